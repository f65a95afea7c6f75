#include "host/zol/value_reading.h"

#include <charconv>
#include <optional>

#include "host/zol/path.h"
#include "host/zol/registry/zol_type.h"
#include "host/zol/value_text.h"

namespace Zol {

namespace {

using It = String8::IteratorConst;

bool isSpace(char byte) { return byte == ' ' || (byte >= '\t' && byte <= '\r'); }

void skip(It& position, std::size_t bytes) { position.positionIs(position.position() + bytes); }

void skipSpace(It& position, It const& end) {
  std::string_view const rest = position.until(end);
  std::size_t count = 0;
  while (count < rest.size() && isSpace(rest[count])) ++count;
  skip(position, count);
}

// What stands in a text, as failures show it.
std::string shown(std::string_view text) {
  constexpr std::size_t kMost = 60;
  if (text.empty()) return "the end of the text";
  std::string const quoted(valueToStrep(String8(text.substr(0, kMost))).view());
  return text.size() > kMost ? quoted + "..." : quoted;
}

[[noreturn]] void throwExpected(std::string_view what, It const& position, It const& end) {
  throwRangeException("expected " + std::string(what) + " at column " +
                      std::to_string(position.position()) + " but found " +
                      shown(position.until(end)));
}

std::optional<unsigned> hexDigit(char byte) {
  if (byte >= '0' && byte <= '9') return byte - '0';
  if (byte >= 'a' && byte <= 'f') return byte - 'a' + 10;
  if (byte >= 'A' && byte <= 'F') return byte - 'A' + 10;
  return std::nullopt;
}

// Reads the escape whose backslash stands at the position.
char escapedAt(It& position, It const& end) {
  std::string_view const rest = position.until(end);
  char const kind = rest.size() > 1 ? rest[1] : '\0';
  std::size_t length = 2;
  char byte = kind;
  if (kind == 'n') {
    byte = '\n';
  } else if (kind == 'r') {
    byte = '\r';
  } else if (kind == 't') {
    byte = '\t';
  } else if (kind == 'x' && rest.size() > 3 && hexDigit(rest[2]) && hexDigit(rest[3])) {
    byte = static_cast<char>(*hexDigit(rest[2]) * 16 + *hexDigit(rest[3]));
    length = 4;
  } else if (kind != '\'' && kind != '\\') {
    throwExpected("an escape \\', \\\\, \\n, \\r, \\t or \\x with two hexadecimal digits", position,
                  end);
  }
  skip(position, length);
  return byte;
}

}  // namespace

void needString(It& position, It const& end, char const* pattern) {
  std::string_view left(pattern);
  while (!left.empty()) {
    if (left.front() == ' ') {
      skipSpace(position, end);
      left.remove_prefix(1);
      continue;
    }
    std::string_view const word = left.substr(0, left.find(' '));
    if (!position.until(end).starts_with(word)) throwExpected(word, position, end);
    skip(position, word.size());
    left.remove_prefix(word.size());
  }
}

String8 quotedAt(It& position, It const& end) {
  skipSpace(position, end);
  if (!position.until(end).starts_with('\'')) {
    throwExpected("a text in apostrophes", position, end);
  }
  skip(position, 1);
  std::string content;
  for (;;) {
    std::string_view const rest = position.until(end);
    std::size_t const plain = rest.find_first_of("'\\");
    content.append(rest.substr(0, plain));
    if (plain == std::string_view::npos) {
      skip(position, rest.size());
      throwExpected("the closing apostrophe", position, end);
    }
    skip(position, plain);
    if (rest[plain] == '\'') break;
    content += escapedAt(position, end);
  }
  skip(position, 1);
  return content;
}

long long sequenceToValue(It& position, It const& end, long long*) {
  skipSpace(position, end);
  std::string_view const rest = position.until(end);
  long long value = 0;
  auto const [stop, error] = std::from_chars(rest.data(), rest.data() + rest.size(), value);
  if (error == std::errc::invalid_argument) throwExpected("a number", position, end);
  if (error == std::errc::result_out_of_range) {
    throwExpected("a number of at most 64 bits with its sign", position, end);
  }
  skip(position, static_cast<std::size_t>(stop - rest.data()));
  return value;
}

long long numberUpTo(It& position, It const& end, long long most) {
  It const start = position;
  long long const value = sequenceToValue(position, end, static_cast<long long*>(nullptr));
  if (value < 0 || value > most) {
    position = start;
    throwExpected("a number from 0 to " + std::to_string(most), position, end);
  }
  return value;
}

double floatingAt(It& position, It const& end) {
  skipSpace(position, end);
  std::string_view const rest = position.until(end);
  double value = 0;
  auto const [stop, error] = std::from_chars(rest.data(), rest.data() + rest.size(), value);
  if (error == std::errc::invalid_argument) throwExpected("a number", position, end);
  if (error == std::errc::result_out_of_range) {
    throwExpected("a number that 64 bits of floating point can hold", position, end);
  }
  skip(position, static_cast<std::size_t>(stop - rest.data()));
  return value;
}

bool sequenceToValue(It& position, It const& end, bool*) {
  skipSpace(position, end);
  for (bool const value : {true, false}) {
    String8 const text = valueToStrep(value);
    if (!position.until(end).starts_with(text.view())) continue;
    skip(position, text.size());
    return value;
  }
  throwExpected("True or False", position, end);
}

Ptr<Entity> sequenceToValueOfPtr(It& position, It const& end, Entity*) {
  needString(position, end, " Entity (");
  String8 const type = quotedAt(position, end);
  needString(position, end, " , ");
  if (position.until(end).starts_with("None")) {
    needString(position, end, "None )");
    return nullptr;
  }
  String8 const path = quotedAt(position, end);
  needString(position, end, " )");
  Ptr<Entity> entity = entityAt(path);
  ZolType const* found = entity->fwkType();
  while (found && found->fullName() != type) found = found->baseType();
  if (!found) {
    throwRangeException("the entity at " + valueToStrep(path) + " is a " +
                        entity->fwkType()->fullName() + " and no " + type);
  }
  return entity;
}

void cannotConvert(It const& position, It const& end, std::type_info const& wanted) {
  throwRangeException("cannot convert " + std::string(position.until(end)) + " at column " +
                      std::to_string(position.position()) + " to " + classNameOf(wanted));
}

void rethrowFromDeserializeAttr(RangeException const& failure, String8& name) {
  throwRangeException("attribute " + valueToStrep(name) + ": " + failure.what());
}

void throwJunk(It const& position) {
  throw RangeException("junk at column " + std::to_string(position.position()) + " deserializing " +
                           std::string(position.text().view()),
                       Exception::IdBitArray());
}

}  // namespace Zol
