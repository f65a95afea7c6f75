#include "host/zol/registry/model_type.h"

namespace Zol {

ModelType::ModelType(std::string_view fullName, std::size_t size, ZolType* base, ZolType* made)
    : type_(made ? made : new ZolType(bareName(fullName), nullptr, base, {})) {
  type_->referencesLeak();
  type_->sizeIs(size);
  type_->hasGenericIfSupportIs(true);
  ZolType::typeNodeIs(type_, fullName);
}

ModelType ModelType::entity(std::string_view fullName, std::size_t size, ZolType* base,
                            ZolType* made) {
  ModelType model(fullName, size, base, made);
  model.type_->isEntityIs(true);
  if (!base) return model;
  base->derivedTypeQEnq(model.type_);
  for (auto it = base->attributeQIteratorConst(); it; ++it) {
    model.type_->attributeQEnq(it->copyFor(model.type_));
  }
  return model;
}

ModelType ModelType::value(std::string_view fullName, std::size_t size, ZolType* made) {
  ModelType model(fullName, size, nullptr, made);
  model.type_->isValueIs(true);
  return model;
}

ModelType ModelType::enumeration(std::string_view fullName, std::span<Enumerator const> rows,
                                 ZolType* made) {
  ModelType model = value(fullName, sizeof(unsigned int), made);
  model.type_->isEnumTypeIs(true);
  for (Enumerator const& row : rows) {
    model.attr(row.text, static_cast<AttributeId>(row.number), model.type_, FlagClass::kE);
  }
  return model;
}

ModelType& ModelType::arg(std::string_view name, std::string_view type) {
  type_->constructorArgNameQEnq(name);
  type_->constructorArgTypeQEnq(type);
  return *this;
}

ModelType& ModelType::attr(std::string_view name, AttributeId id, ZolType* type,
                           AttrClass attrClass) {
  Ptr<ZolAttr> const made = type_->attrIs(name, type, nullptr, nullptr, attrClass.flags, id);
  made->introspectionFlagsIs(attrClass.introspection);
  type_->attributeQEnq(made);
  return *this;
}

std::string_view ModelType::bareName(std::string_view fullName) noexcept {
  std::size_t const scope = fullName.rfind("::");
  return scope == std::string_view::npos ? fullName : fullName.substr(scope + 2);
}

}  // namespace Zol
