#include "host/zol/generic/argument_list.h"

namespace Zol {

namespace {

GenericIf::List::Queue const& queueOf(GenericIf const* list) {
  if (!dynamic_cast<GenericIf::List_ const*>(list)) {
    GenericIf::throwTypeException("Zol::GenericIf::List_");
  }
  return *static_cast<GenericIf::List::Queue const*>(list->voidPtrIs(GenericIf::List::_fwkType()));
}

}  // namespace

ArgumentList::ArgumentList(GenericIf const* list) : queue_(queueOf(list)), at_(queue_) {}

void ArgumentList::requireEnd(std::string_view what) const {
  if (at_) GenericIf::throwUnknownArgException(what);
}

Ptr<GenericIf> ArgumentList::taken(std::string_view parameter) {
  if (!at_) GenericIf::throwTypeException(parameter);
  Ptr<GenericIf> argument = at_.ptr();
  ++at_;
  return argument;
}

}  // namespace Zol
