// What all value records do by their fields: the text form and the wire form.
#pragma once

#include <algorithm>
#include <array>

#include "host/zol/attrlog/in.h"
#include "host/zol/attrlog/out.h"
#include "host/zol/value_reading.h"
#include "host/zol/value_text.h"
#include "schema/types.h"
#include "values/enumerations.h"

namespace Hardware::Ucd9012 {

// A record gives its fields in their order through `eachField( record, visit )`, stamped from its
// list.
class RecordForm {
  using It = Zol::String8::IteratorConst;

 public:
  // How a record is passed to a function: the smallest of them by value.
  template <class R>
  using Passed = std::conditional_t<std::same_as<R, ExternalVoltageRail>, R, R const&>;

  // Gives each field with its name, in order.
  template <class R, class Visit>
  static void eachField(R& record, Visit const& visit) {
    std::remove_const_t<R>::eachField(record, visit);
  }

  template <class R>
  static Zol::String8 text(R const& record) {
    std::string text = "Value('" + std::string(kFullName<R>) + "', ** {";
    char const* separator = "'";
    eachField(record, [&](std::string_view name, auto const& field) {
      text += separator;
      text += name;
      text += "': ";
      text += fieldText(field).view();
      separator = ", '";
    });
    return text + "})";
  }

  template <class R>
  static void parse(R& record, It& position, It const& end) {
    for (char const* const pattern : {" Value", " (", kQuotedName<R>.data(), " ,", " **", " {"}) {
      Zol::needString(position, end, pattern);
    }
    for (bool first = true;; first = false) {
      Zol::needString(position, end, " ");
      std::string_view const rest = position.until(end);
      if (rest.empty()) {
        Zol::throwRangeException("premature end of value type " + std::string(bareName<R>()));
      }
      if (rest.front() == '}') break;
      if (!first) Zol::needString(position, end, ", ");
      Zol::String8 const name = Zol::quotedAt(position, end);
      Zol::needString(position, end, " : ");
      if (!parseField(record, name, position, end)) {
        Zol::throwRangeException(std::string(bareName<R>()) + " has no such attribute: " + name);
      }
    }
    Zol::needString(position, end, "} ");
    Zol::needString(position, end, ") ");
  }

  template <class R>
  static Zol::OutPtr const& write(Zol::OutPtr const& out, R const& record) {
    eachField(record, [&](std::string_view, auto const& field) {
      if constexpr (std::is_enum_v<std::remove_cvref_t<decltype(field)>>) {
        out << static_cast<int>(field);
      } else {
        out << field;
      }
    });
    return out;
  }

  template <class R>
  static void read(R& record, Zol::NboAttrLog::In& in) {
    eachField(record, [&](std::string_view, auto& field) { next(in, field); });
  }

 private:
  // The name as a pattern of the text form, with a NUL behind it.
  template <class R>
  static constexpr auto kQuotedName = [] {
    constexpr std::string_view kName = kFullName<R>;
    std::array<char, kName.size() + 4> pattern{' ', '\''};
    std::ranges::copy(kName, pattern.begin() + 2);
    pattern[kName.size() + 2] = '\'';
    return pattern;
  }();

  template <class R>
  static constexpr std::string_view bareName() {
    return kFullName<R>.substr(kFullName<R>.rfind(':') + 1);
  }

  template <class T>
  static Zol::String8 fieldText(T const& field) {
    if constexpr (std::is_enum_v<T>) {
      return valueToStrep(field);
    } else if constexpr (std::same_as<T, bool>) {
      return Zol::valueToStrep(field);
    } else {
      return Zol::valueToStrep(static_cast<unsigned long long>(field));
    }
  }

  // False for a name that the record does not have.
  template <class R>
  static bool parseField(R& record, Zol::String8 const& wanted, It& position, It const& end) {
    bool known = false;
    eachField(record, [&]<class T>(std::string_view name, T& field) {
      if (known || wanted.view() != name) return;
      known = true;
      T scratch{};
      field = Zol::deserializeAttr(position, end, &scratch, wanted);
    });
    return known;
  }

  static void next(Zol::NboAttrLog::In& in, bool& field) { field = in.nextbool(); }
  static void next(Zol::NboAttrLog::In& in, std::uint8_t& field) { field = in.nextU8(); }
  static void next(Zol::NboAttrLog::In& in, std::uint16_t& field) { field = in.nextU16(); }
  static void next(Zol::NboAttrLog::In& in, std::uint32_t& field) { field = in.nextU32(); }
  static void next(Zol::NboAttrLog::In& in, ReloadCauses& field) {
    field = ReloadCausesInstance(in.nextU32());
  }
  static void next(Zol::NboAttrLog::In& in, CauseType& field) {
    field = CauseTypeInstance(in.nextU32());
  }
};

}  // namespace Hardware::Ucd9012
