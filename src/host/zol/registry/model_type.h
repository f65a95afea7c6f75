// Makes the type objects of classes that no schema describes: those of the runtime itself and of
// the models beside the product.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "host/zol/enumeration.h"
#include "host/zol/registry/type_of.h"
#include "host/zol/registry/zol_type.h"

namespace Zol {

// Builds one type object, which is complete from its first use on and needs no target to report to:
//
//   ZolType* PinConfig::_fwkType() {
//     static ZolType* const type =
//         ModelType::entity("Hardware::Gpio::PinConfig", sizeof(PinConfig), Entity::_fwkType())
//             .arg("name", "Zol::Name")
//             .type();
//     return type;
//   }
//
// A class with an attribute list has it stamped in between:
//
//   static ZolType* const type = [] {
//     auto attributes = ModelType::entity("SmbusDexo::DexoDesc", sizeof(DexoDesc), base);
//   #include "host/zol/registry/stamp_attributes.h"
//   #include "host/models/smbus_dexo_desc.def"
//     return attributes.type();
//   }();
//
// The trap: a type may not name itself by `_fwkType()` while it is being made.
class ZOL_EXPORT ModelType {
 public:
  // An entity class below `base`, which it takes all attributes of. `made` is a new object of a
  // class derived from `ZolType`, for types that can do more; null for a plain one.
  static ModelType entity(std::string_view fullName, std::size_t size, ZolType* base,
                          ZolType* made = nullptr);
  static ModelType value(std::string_view fullName, std::size_t size, ZolType* made = nullptr);
  // Each enumerator becomes an attribute with its number as id.
  static ModelType enumeration(std::string_view fullName, std::span<Enumerator const> rows,
                               ZolType* made = nullptr);

  // The next argument of the constructor.
  ModelType& arg(std::string_view name, std::string_view type);
  // The next attribute, without a key; `Type` is the class of its value.
  template <class Type>
  ModelType& plain(std::string_view name, AttributeId id, AttrClass attrClass) {
    return attr(name, id, typeOf<Type>(), attrClass);
  }
  ModelType& attr(std::string_view name, AttributeId id, ZolType* type, AttrClass attrClass);

  // The finished type.
  [[nodiscard]] ZolType* type() const noexcept { return type_; }
  // The last part of a full name.
  [[nodiscard]] static std::string_view bareName(std::string_view fullName) noexcept;

 private:
  ModelType(std::string_view fullName, std::size_t size, ZolType* base, ZolType* made);

  ZolType* type_;
};

}  // namespace Zol
