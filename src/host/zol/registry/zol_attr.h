// An attribute of a type, as the registry has it.
#pragma once

#include "host/zol/entity.h"
#include "host/zol/registry/attr_flags.h"
#include "host/zol/registry/link_queue.h"

namespace Zol {

// A text in a queue: the name of a constructor argument, or its type.
class LinkQueueText final : public LinkQueueMember<LinkQueueText, String8> {
 public:
  using LinkQueueMember::LinkQueueMember;
};
// Texts in the order in which they were entered.
using TextQueue = LinkQueue<LinkQueueText, std::uint32_t, String8>;

// What a type says of one of its attributes. A type that derives from another has copies of its own
// of all attributes of that.
class ZOL_EXPORT ZolAttr final : public Entity {
 public:
  // `type` and `owner` live as long as the process, as all types do.
  ZolAttr(Name name, ZolType* owner, ZolType* type, AttrFlags flags, AttributeId id);
  ~ZolAttr() override;
  [[nodiscard]] ZolType* fwkType() const override;

  // A new attribute that says the same of the type `owner`.
  [[nodiscard]] Ptr<ZolAttr> copyFor(ZolType* owner) const;

  // The id, fixed for good.
  [[nodiscard]] AttributeId attrId() const noexcept { return id_; }
  // What kind of attribute it is.
  [[nodiscard]] AttrFlags flags() const noexcept { return flags_; }
  // Further flags, for tools.
  [[nodiscard]] std::uint32_t introspectionFlags() const noexcept { return introspection_; }
  // The type whose attribute this is; of a copy, the type that it was made for.
  [[nodiscard]] ZolType* owner() const noexcept { return owner_; }
  // The type of the value, of each value of a keyed attribute.
  [[nodiscard]] ZolType* type() const noexcept { return type_; }
  // Null for an attribute without a key.
  [[nodiscard]] ZolType* keyType() const noexcept { return keyType_; }
  // The attribute of the member that is its key; empty when the key is no field of the member.
  [[nodiscard]] Name const& keyFieldName() const noexcept { return keyFieldName_; }
  // The holder's attribute of the key field's name, or null.
  [[nodiscard]] ZolAttr const* keyAttr() const noexcept { return keyAttr_.get(); }
  // The width that keys of new members are padded to in texts; 0: as they are.
  [[nodiscard]] std::uint32_t keyWidth() const noexcept { return keyWidth_; }

  // Registration; not for use after it.
  void keyTypeIs(ZolType* type) noexcept { keyType_ = type; }
  // Registration; not for use after it.
  void keyFieldNameIs(Name name) { keyFieldName_ = std::move(name); }
  // Registration; not for use after it.
  void keyAttrIs(Ptr<ZolAttr const> attr) { keyAttr_ = std::move(attr); }
  // Registration; not for use after it.
  void keyWidthIs(std::uint32_t width) noexcept { keyWidth_ = width; }
  // Registration; not for use after it.
  void introspectionFlagsIs(std::uint32_t flags) noexcept { introspection_ = flags; }

  // What the constructor of the value takes, for attributes whose holder makes the value.
  void constructorArgNameQEnq(String8 name) { argNames_.enq(std::move(name)); }
  // The argument's type, for each name that has been entered.
  void constructorArgTypeQEnq(String8 type) { argTypes_.enq(std::move(type)); }
  // The names of those arguments, in their order.
  [[nodiscard]] TextQueue::IteratorConst constructorArgNameQIteratorConst() const {
    return TextQueue::IteratorConst(argNames_);
  }
  // The types of those arguments, in the same order.
  [[nodiscard]] TextQueue::IteratorConst constructorArgTypeQIteratorConst() const {
    return TextQueue::IteratorConst(argTypes_);
  }

  static ZolType* _fwkType();

 private:
  ZolType* owner_;
  ZolType* type_;
  ZolType* keyType_ = nullptr;
  AttributeId id_;
  AttrFlags flags_;
  std::uint32_t introspection_ = 0;
  std::uint32_t keyWidth_ = 0;
  Name keyFieldName_;
  Ptr<ZolAttr const> keyAttr_;
  TextQueue argNames_;
  TextQueue argTypes_;
};

}  // namespace Zol
