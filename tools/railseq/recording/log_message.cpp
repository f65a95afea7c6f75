// Parses frames by the types of the registry.
#include "railseq/recording/log_message.h"

#include <algorithm>
#include <array>

#include "railseq/base/input_error.h"
#include "railseq/base/paths.h"
#include "railseq/base/wording.h"
#include "railseq/values/attribute_values.h"

namespace RailSeq {

namespace {

using namespace Zol::NboAttrLog;
using Zol::AttrFlags;
using Zol::AttributeId;
using Zol::Entity;
using Zol::EntityId;
using Zol::ZolAttr;
using Zol::ZolType;

// How many bytes of what cannot be read are shown.
constexpr std::size_t kHexLimit = 32;

// A field of a message.
struct Field {
  std::string text;
  Json json;
};

[[nodiscard]] Field textField(Zol::String8 const& text) {
  return {inQuotes(text.view()), std::string(text.view())};
}

[[nodiscard]] std::string hexNumber(std::uint64_t number) {
  return std::string(Zol::format("0x%llx", static_cast<unsigned long long>(number)).view());
}

[[nodiscard]] Field enumerator(ZolType const& type, std::uint32_t number) {
  for (auto it = type.attributeQIteratorConst(); it; ++it) {
    bool const isIt = it->flags().has(AttrFlags::kEnumerator) &&
                      static_cast<std::uint32_t>(it->attrId()) == number;
    if (isIt) return {std::string(it->name().view()), it->name().view()};
  }
  return {std::to_string(number), number};
}

[[nodiscard]] Entity const& outermost(Entity const& entity) {
  Entity const* at = &entity;
  while (at->zolParent()) at = at->zolParent();
  return *at;
}

[[nodiscard]] bool isAttribute(ZolAttr const& attr) {
  return attr.flags().has(AttrFlags::kByName) &&
         (attr.introspectionFlags() & Zol::kIntrospectOperation) == 0;
}

// Names are those of the recorded peer: what is in them must not steer a terminal.
[[nodiscard]] std::string withoutControls(std::string text) {
  std::ranges::replace_if(
      text, [](unsigned char byte) { return byte < 0x20U || byte == 0x7fU; }, '?');
  return text;
}

}  // namespace

std::string hexText(std::string_view bytes) {
  static constexpr std::array<char, 17> kDigits{"0123456789abcdef"};
  std::string text;
  for (char const byte : bytes.substr(0, kHexLimit)) {
    auto const number = static_cast<unsigned char>(byte);
    if (!text.empty()) text += ' ';
    text += {kDigits[number >> 4U], kDigits[number & 0xfU]};
  }
  if (bytes.size() > kHexLimit) text += " ... (" + counted(bytes.size(), "byte") + ")";
  return text;
}

class LogMessageReader::Parser {
 public:
  Parser(LogMessageReader& reader, std::string_view frame, Connection const* connection,
         bool fromSource)
      : reader_(reader),
        frame_(frame),
        connection_(connection),
        fromSource_(fromSource),
        in_(new In(frame.size() + 1)) {
    std::span<std::uint8_t> const room = in_->room();
    std::copy(frame.begin(), frame.end(), room.begin());
    in_->received(frame.size());
    in_->boundIs(frame.size());
  }

  LogMessage message() {
    try {
      read();
      if (in_->left() != 0) {
        note(counted(in_->left(), "byte") + " too many: " + rest());
      }
    } catch (Zol::Exception const& failure) {
      note(std::string(failure.what()) + ": " + hexText(frame_.substr(start_)));
    }
    return std::move(m_);
  }

 private:
  // The position of the frame's first byte is 0.
  [[nodiscard]] Field hexField() {
    std::string const text = rest();
    return {text, text};
  }
  [[nodiscard]] std::string rest() {
    std::string text = hexText(frame_.substr(static_cast<std::size_t>(in_->position())));
    in_->positionIs(in_->bound());
    return text;
  }
  void note(std::string const& remark) {
    if (!m_.note.empty()) m_.note += ", ";
    m_.note += remark;
  }

  void read() {
    std::uint8_t const number = in_->nextU8();
    start_ = 1;
    switch (static_cast<FrameKind>(number)) {
      case FrameKind::hello:
        return readHello();
      case FrameKind::mount:
        return readMount();
      case FrameKind::data:
        return readData();
      case FrameKind::mark:
        return readMark();
      case FrameKind::synced:
        return readAbout("SYNCED", "is complete");
      case FrameKind::forget:
        return readAbout("FORGET", "is gone");
      case FrameKind::bye: {
        m_.kind = "BYE";
        Zol::String8 const reason = in_->nextString();
        if (!reason.empty()) valueIs(textField(reason));
        return;
      }
      case FrameKind::alive:
        m_.kind = "ALIVE";
        return;
      case FrameKind::lacks:
        return readLacks();
    }
    m_.kind = "UNKNOWN";
    m_.what = "frame of kind " + std::to_string(number) + ":";
    valueIs(hexField());
  }

  void readHello() {
    m_.kind = "HELLO";
    std::uint32_t const magic = in_->nextU32();
    std::uint16_t const version = in_->nextU16();
    std::uint16_t const oldest = in_->nextU16();
    std::uint32_t const features = in_->nextU32();
    std::uint32_t const maxFrame = in_->nextU32();
    std::uint32_t const maxText = in_->nextU32();
    std::uint64_t const schema = in_->nextU64();
    Field const name = textField(in_->nextString());
    m_.text = name.text + ", version " + std::to_string(version) + " (oldest " +
              std::to_string(oldest) + "), frames of up to " + counted(maxFrame, "byte") +
              ", texts of up to " + counted(maxText, "byte");
    m_.value = {{"name", name.json},    {"version", version},   {"oldest", oldest},
                {"features", features}, {"maxFrame", maxFrame}, {"maxText", maxText},
                {"schemaHash", schema}};
    if (magic != kMagic) note("magic " + hexNumber(magic) + ", expected " + hexNumber(kMagic));
    if (features != 0) note("features " + hexNumber(features));
  }

  void readMount() {
    m_.kind = "MOUNT";
    m_.id = hexNumber(in_->nextU64());
    std::uint8_t const access = in_->nextU8();
    Zol::String8 const name = in_->nextString();
    m_.entity = rootPath(name.view());
    m_.what = access == 0 ? "read-only" : access == 1 ? "writable" : "";
    if (m_.what.empty()) note("access " + std::to_string(access));
  }

  void readAbout(char const* kind, char const* what) {
    m_.kind = kind;
    entityIs(in_->nextU64());
    m_.what = what;
  }

  void readLacks() {
    m_.kind = "LACKS";
    entityIs(in_->nextU64());
    attributeIs(static_cast<AttributeId>(in_->nextU32()));
    m_.what = "could not take in what refers to";
    valueIs(reference(in_->nextU64()));
  }

  void readMark() {
    m_.kind = "MARK";
    entityIs(in_->nextU64());
    auto const attrId = static_cast<AttributeId>(in_->nextU32());
    attributeIs(attrId);
    std::uint8_t const type = in_->nextU8();
    std::uint32_t const count = in_->nextU32();
    static constexpr std::array<char const*, 3> kTypes{"begin", "abort", "end"};
    m_.what = type < kTypes.size() ? kTypes[type] : "mark of type " + std::to_string(type);
    if (count != 0) m_.seen = count;
    if (type != 0) reader_.runs_.erase(id_.value);
  }

  void readData() {
    m_.kind = "DATA";
    std::uint64_t const number = in_->nextU64();
    auto const attrId = static_cast<AttributeId>(in_->nextU32());
    std::uint8_t const bits = in_->nextU8();
    std::uint32_t const fixedSize = (bits & kDataFixedSize) != 0 ? in_->nextU32() : 0;
    if ((bits & kDataChildMark) != 0) in_->nextU32();
    if ((bits & kDataSeen) != 0) m_.seen = in_->nextU32();
    start_ = static_cast<std::size_t>(in_->position());
    if ((bits & kDataVariable) == 0 && in_->left() != fixedSize) {
      note("payload of " + std::to_string(in_->left()) + " bytes, " + std::to_string(fixedSize) +
           " announced");
    }
    if (EntityId(number) == Zol::kOrphanEntityId && attrId == Zol::kOrphanAttrId)
      return readOrphan();
    entityIs(number);
    if ((attrId == kWrappedAttr || attrId == -kWrappedAttr)) {
      m_.what = attrId > 0 ? "wrapped message:" : "wrapped removal:";
      return valueIs(hexField());
    }
    if (attrId == kSyncModeAttr) {
      m_.what = "sync mode";
      return valueIs(wholeNumber(in_->nextU32()));
    }
    ZolAttr const* const attr = attributeIs(attrId);
    if (!attr) {
      m_.what = attrId < 0 ? "removed:" : ":";
      return valueIs(hexField());
    }
    attrId < 0 ? readRemoval(*attr) : readChange(*attr);
  }

  void readRemoval(ZolAttr const& attr) {
    m_.what = "removed";
    if (attr.keyType()) keyIs(field(*attr.keyType()));
  }

  void readChange(ZolAttr const& attr) {
    AttrFlags const flags = attr.flags();
    if (flags.has(AttrFlags::kInstantiating)) return readChild(attr);
    if (attr.keyType() && attr.type()->isEntity()) {
      std::uint64_t const number = in_->nextU64();
      Entity const* const entity = entityOf(number);
      if (entity) keyIs(textField(Zol::String8(entity->name())));
      m_.what = "entered:";
      return valueIs(reference(number));
    }
    if (attr.keyType()) keyIs(field(*attr.keyType()));
    m_.what = "=";
    kindOfValue(*attr.type()) == ValueKind::text ? readChunk() : valueIs(field(*attr.type()));
  }

  // The constructor parameters, of which the key is one, and the id.
  void readChild(ZolAttr const& attr) {
    Field made = parameters(*attr.type(), attr.keyType() != nullptr);
    std::uint64_t const number = in_->nextU64();
    m_.what = "added as " + hexNumber(number) + (made.text.empty() ? "" : ":");
    made.json["id"] = hexNumber(number);
    valueIs(made);
  }

  void readOrphan() {
    m_.what = "announced";
    ZolType const* type = nullptr;
    std::string typeName;
    Field made{"", Json::object()};
    In::Position const end = in_->bound();
    while (in_->left() != 0) {
      std::uint8_t const section = in_->nextU8();
      std::uint32_t const length = in_->nextU32();
      if (length > in_->left()) {
        in_->malformed("section of " + std::to_string(length) + " bytes with " +
                       std::to_string(in_->left()) + " left");
      }
      In::Position const sectionEnd = in_->position() + length;
      in_->boundIs(sectionEnd);
      switch (static_cast<PayloadSection>(section)) {
        case PayloadSection::types:
          while (in_->left() != 0) {
            Zol::String8 const name = in_->nextString();
            if (typeName.empty()) typeName = name.view();
            if (!type) type = ZolType::typeNode(name);
          }
          break;
        case PayloadSection::constructorParameters:
          if (type) made = parameters(*type, true);
          break;
        case PayloadSection::entityId:
          m_.id = hexNumber(in_->nextU64());
          break;
      }
      in_->positionIs(sectionEnd);
      in_->boundIs(end);
    }
    if (!type) note("the type is unknown");
    m_.entity = typeName + ":" + m_.key.value_or("");
    m_.key.reset();
    if (!made.text.empty()) m_.what += ":";
    valueIs(made);
  }

  // The first parameter is the key of a child, or the name.
  Field parameters(ZolType const& type, bool isFirstKey) {
    Field made{"", Json::object()};
    auto argType = type.constructorArgTypeQIteratorConst();
    for (auto name = type.constructorArgNameQIteratorConst(); name; ++name, ++argType) {
      ZolType const* const parameterType = ZolType::typeNode(Zol::Name(*argType));
      if (!parameterType) in_->malformed("parameter of a type that is not registered");
      Field const value = field(*parameterType);
      made.json[std::string(name->view())] = value.json;
      if (isFirstKey) {
        keyIs(value);
        isFirstKey = false;
        continue;
      }
      if (!made.text.empty()) made.text += ", ";
      made.text += std::string(name->view()) + " " + value.text;
    }
    return made;
  }

  // A text in one piece is a value like others; of one in pieces each is told by its number.
  void readChunk() {
    bool const more = in_->nextbool();
    std::uint32_t const length = in_->nextU32();
    if (length > in_->left()) {
      in_->malformed("text chunk of " + std::to_string(length) + " bytes with " +
                     std::to_string(in_->left()) + " left");
    }
    std::string text(length, '\0');
    in_->nextBytes(text.data(), length);
    std::string const where = m_.attribute + "[" + m_.key.value_or("") + "]";
    auto run = reader_.runs_.find(id_.value);
    bool const isPart = run != reader_.runs_.end() && run->second.where == where;
    if (!more && !isPart) return valueIs(textField(text));
    if (!isPart) run = reader_.runs_.insert_or_assign(id_.value, Run{where}).first;
    ++run->second.chunks;
    run->second.bytes += length;
    m_.what =
        "chunk " + std::to_string(run->second.chunks) + " of " + counted(length, "byte") + ":";
    note(more ? "more follows" : "the last, " + counted(run->second.bytes, "byte") + " in all");
    if (!more || !entity_) reader_.runs_.erase(run);
    valueIs(textField(text));
  }

  Field wholeNumber(std::uint64_t value) { return {std::to_string(value), value}; }

  Field field(ZolType const& type) {
    switch (kindOfValue(type)) {
      case ValueKind::boolean: {
        bool const value = in_->nextbool();
        return {value ? "true" : "false", value};
      }
      case ValueKind::text:
      case ValueKind::name:
        return textField(in_->nextString());
      case ValueKind::enumeration:
        return enumerator(type, in_->nextU32());
      case ValueKind::wholeNumber:
        return wholeNumber(type.size() == 1   ? in_->nextU8()
                           : type.size() == 2 ? in_->nextU16()
                                              : in_->nextU32());
      case ValueKind::quantity: {
        std::string const text(Zol::numberText(in_->nextdouble()).view());
        Json const number = Json::parse(text, nullptr, false);
        return {text, number.is_number() ? number : Json(text)};
      }
      case ValueKind::record:
        return record(type);
      case ValueKind::entity:
        break;
    }
    return reference(in_->nextU64());
  }

  Field record(ZolType const& type) {
    Field all{"", Json::object()};
    for (auto attr = type.attributeQIteratorConst(); attr; ++attr) {
      Field const value = field(*attr->type());
      std::string const name(attr->name().view());
      all.text += (all.text.empty() ? "{" : ", ") + name + " " + value.text;
      all.json[name] = value.json;
    }
    all.text += "}";
    return all;
  }

  Field reference(std::uint64_t number) {
    if (number == 0) return {"None", nullptr};
    Entity const* const entity = entityOf(number);
    std::string const text = entity ? nameOf(*entity) : "unknown entity " + idText(number);
    return {text, text};
  }

  // An id as the replica stores it: the source's, as the source's frames have it, without the bit
  // that says so.
  [[nodiscard]] EntityId idOf(std::uint64_t number) const {
    return fromSource_ ? EntityId(number).seenFromOtherEnd() : EntityId(number);
  }
  [[nodiscard]] std::string idText(std::uint64_t number) const {
    return hexNumber(fromSource_ ? number : EntityId(number).seenFromOtherEnd().value);
  }
  [[nodiscard]] Entity const* entityOf(std::uint64_t number) const {
    return connection_ ? connection_->demuxer()->entity(idOf(number)) : nullptr;
  }
  [[nodiscard]] bool isInTree(Entity const& entity) const {
    Entity const& root = outermost(entity);
    return connection_->mounted(root.name()).get() == &root;
  }
  [[nodiscard]] std::string nameOf(Entity const& entity) const {
    std::string const path(entity.uriPath().view());
    if (isInTree(entity)) return path;
    return std::string(outermost(entity).fwkType()->fullName().view()) + ":" + path;
  }

  void entityIs(std::uint64_t number) {
    m_.id = idText(number);
    id_ = idOf(number);
    entity_ = entityOf(number);
    m_.entity = entity_ ? nameOf(*entity_) : "unknown entity";
  }
  ZolAttr const* attributeIs(AttributeId id) {
    // The negated id stands for a removal. The least number has no positive one.
    auto const number = static_cast<std::uint32_t>(id);
    auto const positive = static_cast<AttributeId>(id < 0 ? 0U - number : number);
    ZolAttr const* const attr = entity_ ? entity_->fwkType()->attr(positive) : nullptr;
    bool const isKnown = attr && isAttribute(*attr);
    m_.attribute =
        isKnown ? std::string(attr->name().view()) : "unknown attribute " + std::to_string(id);
    return isKnown ? attr : nullptr;
  }
  void keyIs(Field const& key) {
    m_.key = key.json.is_string() ? key.json.get<std::string>() : key.text;
  }
  void valueIs(Field field) {
    m_.text = std::move(field.text);
    m_.value = std::move(field.json);
  }

  LogMessageReader& reader_;
  std::string_view frame_;
  Connection const* connection_;
  bool fromSource_;
  Zol::Ptr<In> in_;
  LogMessage m_;
  // Where what is not yet told of the frame begins.
  std::size_t start_ = 0;
  EntityId id_;
  Entity const* entity_ = nullptr;
};

LogMessage LogMessageReader::read(std::string_view frame, Connection const* connection,
                                  bool fromSource) {
  return Parser(*this, frame, connection, fromSource).message();
}

std::string LogMessage::line() const {
  constexpr std::size_t kKindWidth = 8;
  std::string line = kind;
  line.resize(std::max(kKindWidth, line.size() + 1), ' ');
  std::string const place = key ? memberPath(attribute, *key) : attribute;
  for (std::string const& part : {entity, id.empty() ? "" : "(" + id + ")", place, what, text,
                                  note.empty() ? "" : "  <" + note + ">"}) {
    if (part.empty()) continue;
    if (line.back() != ' ') line += ' ';
    line += part;
  }
  line.erase(line.find_last_not_of(' ') + 1);
  return withoutControls(line);
}

Json LogMessage::json() const {
  Json json = {{"kind", kind}};
  auto const add = [&json](char const* name, std::string const& part) {
    if (!part.empty()) json[name] = part;
  };
  add("entity", entity);
  add("id", id);
  add("attribute", attribute);
  if (key) json["key"] = *key;
  add("what", what);
  if (!text.empty() || !value.is_null()) json["value"] = value;
  if (seen) json["seen"] = *seen;
  add("note", note);
  return json;
}

}  // namespace RailSeq
