// What the registry must know of the library, written down apart from the lists that the library
// itself is made from: a slip in those lists must not slip into the expectation.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "host/zol/registry/zol_type.h"

namespace ExpectedSchema {

using Args = std::vector<std::pair<std::string, std::string>>;

enum class Kind { enumeration, record, entity };

struct Attr {
  std::string name;
  int id;
  std::string attrClass;
  std::string value;          // full names of types
  std::string key = {};       // empty: not keyed
  std::string keyField = {};  // empty: the key is no field
};

struct Type {
  std::string name;
  Kind kind;
  std::string base;
  Args args;
  // Its own; without those that each entity type has, and without enumerators.
  std::vector<Attr> attrs = {};
  std::vector<std::string> enumerators = {};
  std::string ownKey = {};  // type of the key that it holds as an attribute
};

// In the order of registration.
std::vector<Type> const& types();
// By bare or full name, the bases from outside among them. Fails the test when there is none.
Type const& type(std::string const& name);
std::string fullName(Type const& type);
// All attributes in the order of a walk, those of the bases in front.
std::vector<Attr> allAttrs(Type const& type);
// All that is known of an attribute as one line, as it is expected and as it was found; so too for
// the arguments of a constructor.
std::string lineOf(Attr const& attr);
std::string lineOf(Zol::ZolAttr const& attr);
std::string lineOf(Args const& args);
std::string lineOf(Zol::TextQueue::IteratorConst name, Zol::TextQueue::IteratorConst type);
// Whether the attribute is put together by hand rather than defined by the reactor.
bool isBuilt(Attr const& attr);

}  // namespace ExpectedSchema
