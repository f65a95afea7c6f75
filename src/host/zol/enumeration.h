// What is fixed of an enumeration, and the conversions between its numbers and its texts.
#pragma once

#include <span>
#include <string_view>

#include "host/zol/export.h"
#include "host/zol/text.h"

namespace Zol {

struct Enumerator {
  std::string_view text;
  unsigned int number;
};

// The table of an enumeration: its bare name, and its enumerators with the numbers from 0 on
// without a gap. It is made at compile time from the list of the enumeration. Nothing here touches
// shared state: each text is made anew.
class ZOL_EXPORT EnumerationTable {
 public:
  constexpr EnumerationTable(char const* name, std::span<Enumerator const> rows)
      : name_(name), rows_(rows) {
    for (unsigned int i = 0; i < rows.size(); ++i) {
      if (rows[i].number != i) throw "the numbers of an enumeration run from 0 without a gap";
    }
  }

  [[nodiscard]] constexpr char const* name() const noexcept { return name_; }
  [[nodiscard]] constexpr std::span<Enumerator const> rows() const noexcept { return rows_; }

  // The enumerator's text, or for a number that has none the name with the number in parentheses,
  // as "CauseType(3)".
  [[nodiscard]] String8 text(unsigned int number) const;
  // The number of an enumerator, by number or by its exact text. Both throw `RangeException` with
  // the name of the enumeration when there is no such enumerator.
  [[nodiscard]] unsigned int checked(unsigned int number) const;
  [[nodiscard]] unsigned int numberOf(std::string_view text) const;

 private:
  char const* name_;
  std::span<Enumerator const> rows_;
};

// The same for the enumeration `E`.
template <class E>
class Enumeration : public EnumerationTable {
 public:
  using EnumerationTable::EnumerationTable;

  [[nodiscard]] String8 stringValue(E value) const {
    return text(static_cast<unsigned int>(value));
  }
  // The text in apostrophes.
  [[nodiscard]] String8 strep(E value) const { return "'" + stringValue(value) + "'"; }
  [[nodiscard]] E instance(unsigned int number) const { return static_cast<E>(checked(number)); }
  [[nodiscard]] E instance(String8 const& name) const {
    return static_cast<E>(numberOf(name.view()));
  }
};

}  // namespace Zol
