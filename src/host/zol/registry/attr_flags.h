// The flag words of an attribute and the sixteen classes that every attribute falls into.
#pragma once

#include <cstdint>

namespace Zol {

// Two words, the low one first.
struct AttrFlags {
  enum Low : std::uint32_t {
    kLowAlways = 0x1,
    kHasMutator = 0x2 | 0x40,
    kConstructorParameter = 0x8,
    kByName = 0x100,  // all but enumerators, keys and operations
    kVirtual = 0x2000,
    kNotKey = 0x20000,
    kHoldsValue = 0x200000,  // all but enumerators and operations
    kKeyed = 0x800000 | 0x1000000,
    kHoldsEntity = 0x8000000,  // by pointer
  };
  enum High : std::uint32_t {
    kHighAlways = 0x400,
    kEnumerator = 0x200000,
    kMutable = 0x1000000,
    kInstantiating = 0x10000000,  // the holder makes the value
    kFixed = 0x40000000,
  };

  [[nodiscard]] constexpr bool has(Low bits) const { return (low & bits) == bits; }
  [[nodiscard]] constexpr bool has(High bits) const { return (high & bits) == bits; }
  friend constexpr bool operator==(AttrFlags, AttrFlags) = default;

  std::uint32_t low = 0;
  std::uint32_t high = 0;
};

enum IntrospectionFlags : std::uint32_t {
  kIntrospectOrdinary = 0x2,
  kIntrospectOperation = 0x8,
  kIntrospectKeyField = 0x20,  // the key is a field of the member
};

// What all attributes of one class have in common.
struct AttrClass {
  AttrFlags flags;
  std::uint32_t introspection = 0;

  friend constexpr bool operator==(AttrClass, AttrClass) = default;
};

// The classes by the letters that attribute lists use for them. V behind a letter: the operations
// are virtual. These numbers are read by tools of other programs too and never change.
// clang-format off
namespace FlagClass {
inline constexpr AttrClass kE {{0x0020001, 0x40200400}, 0x00};  // enumerator
inline constexpr AttrClass kK {{0x0200001, 0x00000400}, 0x00};  // the entity's own key
inline constexpr AttrClass kL {{0x0022001, 0x00000400}, 0x08};  // operation of the attribute log
inline constexpr AttrClass kP {{0x0220109, 0x40000400}, 0x02};  // constructor parameter, a value
inline constexpr AttrClass kPR{{0x8220109, 0x40000400}, 0x02};  // constructor parameter, a reference
inline constexpr AttrClass kS {{0x0220143, 0x01000400}, 0x02};  // scalar
inline constexpr AttrClass kSV{{0x0222143, 0x01000400}, 0x02};
inline constexpr AttrClass kR {{0x8220143, 0x01000400}, 0x02};  // reference
inline constexpr AttrClass kRV{{0x8222143, 0x01000400}, 0x02};
inline constexpr AttrClass kV {{0x1a20143, 0x01000400}, 0x02};  // value collection
inline constexpr AttrClass kVV{{0x1a22143, 0x01000400}, 0x02};
inline constexpr AttrClass kC {{0x8220143, 0x11000400}, 0x02};  // child singleton
inline constexpr AttrClass kCV{{0x8222143, 0x11000400}, 0x02};
inline constexpr AttrClass kM {{0x9a20143, 0x11000400}, 0x22};  // child collection
inline constexpr AttrClass kMV{{0x9a22143, 0x11000400}, 0x22};
inline constexpr AttrClass kN {{0x9a20143, 0x01000400}, 0x22};  // reference collection
}  // namespace FlagClass
// clang-format on

}  // namespace Zol
