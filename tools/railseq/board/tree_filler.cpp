// Forwards to the trees and turns their exceptions into refusals.
#include "railseq/board/tree_filler.h"

#include "railseq/base/paths.h"
#include "railseq/values/attribute_values.h"
#include "railseq/values/references.h"

namespace RailSeq {

void TreeFiller::located(Position at, std::function<void()> const& what) const {
  try {
    what();
  } catch (Zol::Exception const& failure) {
    reader_.fail(at, failure.what());
  }
}

void TreeFiller::make(Position at, std::string const& path, Arguments const& arguments) {
  placeIs(path, at);
  located(at, [&] { tree_.make(path, arguments); });
}

void TreeFiller::write(Position at, std::string const& path, std::string const& text) {
  placeIs(path, at);
  located(at, [&] { tree_.write(path, text); });
}

void TreeFiller::refer(Position at, std::string const& holder, std::string const& attribute,
                       Zol::Ptr<Zol::Entity> const& entity) {
  placeIs(attributePath(holder, attribute), at);
  located(at, [&] { referenceIs(tree_.at(holder), attribute, entity); });
}

void TreeFiller::requireEntity(Position at, std::string const& path,
                               Zol::ZolType const& type) const {
  located(at, [&] {
    Zol::Ptr<Zol::Entity> const entity = entityIn(tree_.at(path));
    if (entity && entity->fwkType()->isA(&type)) return;
    Zol::throwRangeException(path + ": " +
                             (entity ? "this is a " + entity->fwkType()->fullName()
                                     : Zol::String8("there is no entity here")) +
                             ", expected " + type.fullName());
  });
}

bool TreeFiller::contains(std::string const& path) const {
  try {
    return tree_.contains(path);
  } catch (Zol::RangeException const&) {
    return false;
  }
}

}  // namespace RailSeq
