// Attributes by their paths, and references to entities that stand in no tree.
#pragma once

#include "hwrailseq.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace RailSeq {

// What the last step of a path names.
struct AttributePlace {
  // Whether what stands there is made and taken out with it.
  [[nodiscard]] bool isOwning() const {
    return attr && attr->flags().has(Zol::AttrFlags::kInstantiating);
  }
  // Whether it is a single reference, which can be set.
  [[nodiscard]] bool isReference() const {
    return attr && !attr->keyType() && attr->type()->isEntity() && !isOwning() &&
           !attr->flags().has(Zol::AttrFlags::kConstructorParameter);
  }

  Zol::Ptr<Zol::GenericIf> holder;
  // Null for a root, and where the holder has no such attribute.
  Zol::Ptr<Zol::ZolAttr> attr;
  bool hasKey = false;
  // There is no more than one step.
  bool isRoot = false;
};
// Throws as `Zol::ByName::at` for a path to a holder that is not there.
[[nodiscard]] AttributePlace attributeAt(Zol::ByName const& tree, std::string_view path);

// Sets the reference `attribute` of `holder`. Throws what the generic object throws.
void referenceIs(Zol::Ptr<Zol::GenericIf> const& holder, std::string const& attribute,
                 Zol::Ptr<Zol::Entity> const& entity);

// The entities that some trees refer to and that stand in none. They are known by the text form of
// a reference, such as "Entity('EntityMib::Sensor', 'VoltageSensor12V')".
class Neighbours {
 public:
  explicit Neighbours(std::vector<Zol::Ptr<Zol::Entity>> const& roots);

  // The one of this text; null for a text that is no reference without a path. Throws
  // `RangeException` with those that there are when none of the type has the text, and for a
  // malformed one.
  [[nodiscard]] Zol::Ptr<Zol::Entity> find(std::string const& text, Zol::ZolType const& type) const;

 private:
  std::map<std::string, Zol::Ptr<Zol::Entity>> entities_;
};

}  // namespace RailSeq
