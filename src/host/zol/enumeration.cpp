#include "host/zol/enumeration.h"

#include "host/zol/exception.h"

namespace Zol {

String8 EnumerationTable::text(unsigned int number) const {
  if (number < rows_.size()) return rows_[number].text;
  return format("%s(%d)", name_, static_cast<int>(number));
}

unsigned int EnumerationTable::checked(unsigned int number) const {
  if (number >= rows_.size()) throwRangeException(name_);
  return number;
}

unsigned int EnumerationTable::numberOf(std::string_view text) const {
  for (Enumerator const& row : rows_) {
    if (row.text == text) return row.number;
  }
  throwRangeException(name_);
}

}  // namespace Zol
