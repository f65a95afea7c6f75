#include "host/zol/digest.h"

#include <bit>
#include <cmath>

#include "host/zol/dir.h"
#include "host/zol/path.h"
#include "host/zol/registry/zol_type.h"

namespace Zol {

namespace {

// A finaliser of 64-bit integers: each bit of the input changes about half of the output's.
std::uint64_t mix(std::uint64_t value) {
  value ^= value >> 32;
  value *= 0xe9846af9b1a615dULL;
  value ^= value >> 32;
  value *= 0xe9846af9b1a615dULL;
  return value ^ (value >> 28);
}

// The entity itself, or the one that holds it and stands in nothing but directories.
Entity const* outermost(Entity const& entity) {
  Entity const* at = &entity;
  while (at->zolParent() && !dynamic_cast<Dir const*>(at->zolParent())) at = at->zolParent();
  return at;
}

}  // namespace

std::uint64_t digest(Entity const& entity) {
  Digest all(entity);
  all.attribute("name", entity.name());
  ZolType const* type = entity.fwkType();
  all.attribute("type", type->fullName());
  for (; type; type = type->baseType()) {
    if (type->digestFn()) type->digestFn()(entity, all);
  }
  return mix(all.sum());
}

void Digest::reference(std::string_view name, Entity const* entity) {
  add(name, {}, entity ? referenceOf(*entity) : 0);
}

std::uint64_t Digest::referenceOf(Entity const& entity) const {
  bool const inside = of_ && outermost(entity) == outermost(*of_);
  if (inside) return textOf(pathBelowDirectories(entity).view());
  return mix(textOf(entity.fwkType()->fullName().view())) + textOf(entity.name().view());
}

std::uint64_t Digest::doubleOf(double value) {
  if (std::isnan(value)) return 1;
  return std::bit_cast<std::uint64_t>(value == 0.0 ? 0.0 : value) + 2;
}

std::uint64_t Digest::textOf(std::string_view text) {
  std::uint64_t state = text.size() + 1;
  for (char const c : text) state = mix(state ^ static_cast<unsigned char>(c)) + 1;
  return state;
}

// A sum does not depend on the order of what is added.
void Digest::add(std::string_view name, std::string_view key, std::uint64_t value) {
  sum_ += mix(mix(textOf(name) + 3 * textOf(key)) ^ mix(value));
}

}  // namespace Zol
