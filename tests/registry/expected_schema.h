// What the registry must know of the library, written down apart from the lists that the library
// itself is made from: a slip in those lists must not slip into the expectation.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace ExpectedSchema {

enum class Kind { enumeration, record, entity };

struct Attr {
  std::string name;
  int id;
  std::string attrClass;
  std::string value;     // full names of types
  std::string key;       // empty: not keyed
  std::string keyField;  // empty: the key is no field
};

struct Type {
  std::string name;
  Kind kind;
  std::string base;
  std::vector<std::pair<std::string, std::string>> args;
  std::vector<Attr>
      attrs;  // its own; without those that each entity type has, and without enumerators
  std::vector<std::string> enumerators;
  std::string ownKey;  // type of the key that it holds as an attribute
};

struct Flags {
  std::uint32_t low;
  std::uint32_t high;
  std::uint32_t introspection;
};

// In the order of registration.
std::vector<Type> const& types();
// By bare or full name, the bases from outside among them. Fails the test when there is none.
Type const& type(std::string const& name);
Flags flagsOf(std::string const& attrClass);
std::string fullName(Type const& type);
// All attributes in the order of a walk, those of the bases in front.
std::vector<Attr> allAttrs(Type const& type);
// What the constructor of an attribute's value takes, when its holder makes it.
std::vector<std::pair<std::string, std::string>> argsOf(Attr const& attr);
// Whether the attribute is put together by hand rather than defined by the reactor.
bool isBuilt(Attr const& attr);

}  // namespace ExpectedSchema
