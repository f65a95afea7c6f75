// Takes the arguments of a constructor out of a generic list.
#pragma once

#include "host/zol/generic/wrapped.h"

namespace Zol {

// A copy of the list's queue, taken from its front.
class ZOL_EXPORT ArgumentList {
 public:
  // Throws `TypeException` "Zol::GenericIf::List_" for null and for what is no list.
  explicit ArgumentList(GenericIf const* list);

  [[nodiscard]] bool atEnd() const noexcept { return !at_; }
  // The next argument, of class `T`, or an entity by `Ptr<E>`, which may be null. Throws
  // `TypeException` with the parameter's name for one that is missing, and with the bare name of
  // the argument's own type for one of another type.
  template <class T>
  [[nodiscard]] T next(std::string_view parameter) {
    Ptr<GenericIf> const argument = taken(parameter);
    if constexpr (std::is_convertible_v<T, Ptr<PtrInterface const>>) {
      return unwrappedEntity<std::remove_reference_t<decltype(*std::declval<T>())>>(argument.get());
    } else {
      if (!argument) GenericIf::throwTypeException(parameter);
      return unwrapped<T>(*argument);
    }
  }
  // Throws `UnknownArgException` with `what` when an argument is left.
  void requireEnd(std::string_view what) const;

 private:
  [[nodiscard]] Ptr<GenericIf> taken(std::string_view parameter);

  GenericIf::List::Queue queue_;
  GenericIf::List::Queue::Iterator at_;
};

}  // namespace Zol
