// Values of attributes: what a type takes from a JSON document, and how a value is shown.
#pragma once

#include "hwrailseq.h"

#include <string>
#include <string_view>
#include <vector>

#include "railseq/json/node_reader.h"

namespace RailSeq {

// What a type is to a reader of boards.
enum class ValueKind { boolean, text, name, enumeration, wholeNumber, quantity, record, entity };
[[nodiscard]] ValueKind kindOfValue(Zol::ZolType const& type);

// The names of an enumeration's enumerators, or of a record's attributes, in their order.
[[nodiscard]] std::vector<std::string> attributeNames(Zol::ZolType const& type);

// A parameter of a constructor.
struct ArgumentType {
  std::string name;
  Zol::ZolType const* type;
};
// What the making of an entity under the attribute takes besides the key.
[[nodiscard]] std::vector<ArgumentType> argumentsOf(Zol::ZolAttr const& attr);

// The text of a value (docs/values.md says which) of a type that is no entity: true or false, a
// number, a text, the name of an enumerator, an object of a record's attributes; of a quantity also
// one of the texts "-inf", "inf" and "nan". Throws `InputError` with the place and with `what` the
// value is for.
[[nodiscard]] std::string readValue(NodeReader const& reader, JsonNode const& node,
                                    Zol::ZolType const& type, std::string_view what);

// The key of a member, checked for its type. Throws `InputError` with the place.
void requireKey(NodeReader const& reader, JsonMember const& member, Zol::ZolType const& keyType,
                std::string_view attribute);

// The entity in a generic object; null when there is none, and for a value.
[[nodiscard]] Zol::Ptr<Zol::Entity> entityIn(Zol::Ptr<Zol::GenericIf> const& value);

// A value for people: as `plainText`, but an entity of a tree by its path.
[[nodiscard]] std::string shownText(Zol::Ptr<Zol::GenericIf> const& value);
// The same with texts in quotes, so that a value can be told from what stands around it.
[[nodiscard]] std::string quotedText(Zol::Ptr<Zol::GenericIf> const& value);

}  // namespace RailSeq
