// Walks the references of trees.
#include "railseq/values/references.h"

#include <algorithm>
#include <optional>

#include "host/zol/path_steps.h"
#include "host/zol/value_reading.h"
#include "railseq/base/paths.h"
#include "railseq/base/wording.h"
#include "railseq/values/attribute_values.h"

namespace RailSeq {

namespace {

// Whether the text form of a reference names an entity that stands in no tree.
[[nodiscard]] bool isWithoutPath(Zol::String8 const& text) {
  Zol::String8::IteratorConst position(text);
  Zol::String8::IteratorConst const end(text, text.size());
  Zol::needString(position, end, " Entity (");
  static_cast<void>(Zol::quotedAt(position, end));
  Zol::needString(position, end, " , ");
  if (!position.until(end).starts_with('\'')) return false;
  return !Zol::quotedAt(position, end).view().starts_with('/');
}

}  // namespace

AttributePlace attributeAt(Zol::ByName const& tree, std::string_view path) {
  std::string_view holder;
  std::optional<Zol::PathStep> last;
  for (Zol::PathSteps steps(path, true); !steps.done();) {
    holder = steps.walked();
    last = steps.next();
    if (!last) break;
  }
  AttributePlace place;
  place.isRoot = !last || holder.empty();
  if (place.isRoot) return place;
  place.holder = tree.at(holder);
  place.hasKey = last->key.has_value();
  if (place.holder) place.attr = place.holder->type()->attr(Zol::Name(last->name));
  return place;
}

void referenceIs(Zol::Ptr<Zol::GenericIf> const& holder, std::string const& attribute,
                 Zol::Ptr<Zol::Entity> const& entity) {
  holder->attributeOp({holder->attributeId(attribute), Zol::GenericIf::attrOpWrite}, nullptr,
                      Zol::ZolType::genericIf(entity.get(), false));
}

Neighbours::Neighbours(std::vector<Zol::Ptr<Zol::Entity>> const& roots) {
  Zol::ByName const tree(roots);
  auto const visit = [&](std::string const&, Zol::Ptr<Zol::GenericIf> const& value) {
    Zol::Ptr<Zol::Entity> const entity = entityIn(value);
    bool const isRoot = std::ranges::find(roots, entity) != roots.end();
    if (!entity || entity->zolParent() || isRoot) return;
    entities_.emplace(Zol::plainText(value.get()).view(), entity);
  };
  for (Zol::Ptr<Zol::Entity> const& root : roots) tree.walk(rootPath(root->name().view()), visit);
}

Zol::Ptr<Zol::Entity> Neighbours::find(std::string const& text, Zol::ZolType const& type) const {
  if (!text.starts_with("Entity")) return nullptr;
  std::vector<std::string> texts;
  for (auto const& [known, entity] : entities_) {
    if (!entity->fwkType()->isA(&type)) continue;
    if (known == text) return entity;
    texts.push_back(known);
  }
  if (!isWithoutPath(text)) return nullptr;
  std::string const name(type.fullName().view());
  Zol::throwRangeException("no reference leads to " + text + ", expected " +
                           (texts.empty() ? "the path of a " + name : suggestion(text, texts)));
}

}  // namespace RailSeq
