// A type, as the registry has it: name, kind, base, attributes, and what can be done knowing only
// the type.
#pragma once

#include <memory>

#include "host/zol/notifiee.h"
#include "host/zol/registry/zol_attr.h"

namespace Zol {

class Digest;

// One type: a class of entities, an enumeration, a value type. There is one object for each type;
// it is made on first use, is never destroyed, and is handed out as a plain pointer that is never
// null.
//
//   for (auto it = Config::_fwkType()->attributeQIteratorConst(); it; ++it) {
//     std::cout << it->name() << ' ' << it->attrId() << '\n';
//   }
class ZOL_EXPORT ZolType : public Entity {
 public:
  class ZolAttributeQ;
  class ZolDerivedTypeQ;
  // Attributes in the order of entry.
  using AttributeQueue = LinkQueue<ZolAttributeQ, std::uint32_t, ZolAttr>;
  // Types in the order of entry.
  using DerivedTypeQueue = LinkQueue<ZolDerivedTypeQ, std::uint32_t, ZolType>;
  // See `digestFnIs`.
  using DigestFn = void (*)(Entity const&, Digest&);
  // See `keyTextFnIs`.
  using KeyTextFn = String8 (*)(Entity const&);
  // See `sameFnIs`.
  using SameFn = bool (*)(Entity const&, Entity const&);

  // Traits of a type besides its kind.
  struct ZolTypeFlags {
    // The traits by their bits.
    enum Bit : std::uint32_t { kEmbeddedWriteConstraints = 0x1 };

    // Whether a trait is set.
    [[nodiscard]] bool has(Bit bit) const { return (word & bit) != 0; }

    // All traits together.
    std::uint32_t word = 0;
  };

  // `name` is the bare name, without namespace. `enclosing` is the type inside which this one is
  // declared, or null; `base` the type that it derives from, or null.
  ZolType(Name name, ZolType* enclosing, ZolType* base, ZolTypeFlags const& flags);
  ~ZolType() override;
  [[nodiscard]] ZolType* fwkType() const override;
  // The full name once `typeNodeIs` has given it, the bare one until then.
  [[nodiscard]] String8 fullName() const override;

  // Makes an entity of this type; `dir` may be null. Throws `InternalException` for a type whose
  // entities are not made by name.
  [[nodiscard]] virtual Ptr<Entity> newEntity(Name const& name, Dir* dir) const;
  // Makes an entity of this type from its constructor parameters, which stand next on `in`. The
  // other arguments are of no use to it. Throws `InternalException` for a type whose entities are
  // not made from a stream, and what the reading of the parameters and the entity's constructor
  // throw.
  [[nodiscard]] virtual Ptr<Entity> newEntity(Ptr<NboAttrLog::In> const& in, Zol_BitSet flags,
                                              unsigned int number, PtrInterface* context) const;
  // Makes the adapter on `out` of `child`, which an entity of this type holds under `attr`. Handed
  // on to the base type; does nothing at the root.
  virtual void childAttrLogIs(Ptr<ZolAttr const> const& attr, Ptr<PtrInterface> const& child,
                              Ptr<NboAttrLog::Out> const& out) const;

  // A generic object with a copy of the value, which must be of this type; of the type's default
  // for null. Throws `InternalException` for a type that is no value.
  [[nodiscard]] virtual Ptr<GenericIf> genericIf(void const* value, bool isConst) const;
  // A generic object of what the constructor makes of a list of arguments; `isConst` is not used.
  // Throws `TypeException` for what is no list, for a missing argument with the name of the
  // parameter, and for one of a wrong type with the name of that; `UnknownArgException` for one too
  // many; `InternalException` for a type that is not made from a list.
  [[nodiscard]] virtual Ptr<GenericIf> genericIf(GenericIf const* list, bool isConst) const;
  // A generic object of the value that the text stands for, or over the entity that it refers to.
  // Throws `RangeException` for another text, `InternalException` for a type without a text form.
  [[nodiscard]] virtual Ptr<GenericIf> genericIf(String8 const& text, bool isConst) const;
  // A generic object of this type over the entity; over no entity for null and for an object of
  // another class.
  [[nodiscard]] virtual Ptr<GenericIf> genericIf_(PtrInterface* object, bool isConst) const;

  // Registration. Nothing of this is for use after a type has been registered.
  [[nodiscard]] virtual bool typeFlagsDoEmbeddedWriteConstraints() const;
  // Registration: the size of an instance, in bytes.
  virtual void sizeIs(std::size_t size);
  // Registration: whether it is a type of values.
  virtual void isValueIs(bool value);
  // Registration: whether it is an enumeration.
  virtual void isEnumTypeIs(bool value);
  // Registration: whether it is a class of entities.
  virtual void isEntityIs(bool value);
  // Registration: whether there are generic objects of it.
  virtual void hasGenericIfSupportIs(bool value);
  // Registration: see `valAttr`; null for none.
  virtual void valAttrIs(Ptr<ZolAttr> const& attr);
  // Enters an attribute behind the others. One of the same name that stands there gives up its
  // place to it, so that a redefinition stands where the copy from the base stood.
  virtual void attributeQEnq(Ptr<ZolAttr> const& attr);
  // Registration: a type that derives from this one.
  virtual void derivedTypeQEnq(ZolType* derived);
  // Registration: the name of a further argument of the constructor.
  virtual void constructorArgNameQEnq(String8 name);
  // Registration: the type of a further argument of the constructor.
  virtual void constructorArgTypeQEnq(String8 type);
  // Makes an attribute and enters it into the directory of names, not into the queue. `keyAttr` is
  // the attribute of this type with the name of the key field, or null; `redefined` the attribute
  // of the base type that this one takes the place of, or null.
  virtual Ptr<ZolAttr> attrIs(Name const& name, ZolType* type, Ptr<ZolAttr> const& keyAttr,
                              Ptr<ZolAttr> const& redefined, AttrFlags flags, AttributeId id);
  // Takes the attribute out of the directory and the queue; nothing for a name that is not there.
  virtual void attrDel(Name const& name);

  // A generic object of the entity's own class; over no entity for null.
  [[nodiscard]] static Ptr<GenericIf> genericIf(PtrInterface* object, bool isConst);
  [[nodiscard]] Ptr<GenericIf> genericIf(char const* text, bool isConst) const;

  // The type that this one derives from, or null.
  [[nodiscard]] ZolType* baseType() const noexcept { return base_; }
  // The type inside which this one is declared, or null.
  [[nodiscard]] ZolType* enclosingType() const noexcept { return enclosing_; }
  // Of an instance, in bytes.
  [[nodiscard]] std::size_t size() const noexcept { return size_; }
  // True for numbers, texts, value records and enumerations.
  [[nodiscard]] bool isValue() const noexcept { return isValue_; }
  // True for enumerations.
  [[nodiscard]] bool isEnumType() const noexcept { return isEnumType_; }
  // True for classes of entities.
  [[nodiscard]] bool isEntity() const noexcept { return isEntity_; }
  // Whether there are generic objects of this type.
  [[nodiscard]] bool hasGenericIfSupport() const noexcept { return hasGenericIfSupport_; }
  // The attribute that stands for the whole value, or null.
  [[nodiscard]] ZolAttr* valAttr() const noexcept { return valAttr_.get(); }
  // True when this is `other` or derives from it.
  [[nodiscard]] bool isA(ZolType const* other) const noexcept;

  // This type's own attribute of that name, copies from the base included, or null. Allocates
  // nothing.
  [[nodiscard]] Ptr<ZolAttr> attr(Name const& name) const;
  // The attribute with this id, or null; a type of which none is registered answers as its base.
  [[nodiscard]] ZolAttr const* attr(AttributeId id) const;

  // The attributes in the order of entry, copies from the base included.
  [[nodiscard]] AttributeQueue::IteratorConst attributeQIteratorConst() const;
  // The types that derive directly from this one.
  [[nodiscard]] DerivedTypeQueue::IteratorConst derivedTypeQIteratorConst() const;
  // The names of the constructor's arguments, in their order.
  [[nodiscard]] TextQueue::IteratorConst constructorArgNameQIteratorConst() const;
  // Their types, in the same order.
  [[nodiscard]] TextQueue::IteratorConst constructorArgTypeQIteratorConst() const;

  // What adds the replicated state of an entity of this type to a digest; null when nothing does.
  void digestFnIs(DigestFn fn) noexcept { digestFn_ = fn; }
  // See `digestFnIs`.
  [[nodiscard]] DigestFn digestFn() const noexcept { return digestFn_; }
  // What gives the key, as a text, under which a holder keeps an entity of this type; null when
  // that is the entity's name.
  void keyTextFnIs(KeyTextFn fn) noexcept { keyTextFn_ = fn; }
  // See `keyTextFnIs`.
  [[nodiscard]] KeyTextFn keyTextFn() const noexcept { return keyTextFn_; }

  // What tells whether two entities of this type and of one name were made alike, apart from what
  // can change later; null when the name is all that they are made from.
  void sameFnIs(SameFn fn) noexcept { sameFn_ = fn; }
  // See `sameFnIs`.
  [[nodiscard]] SameFn sameFn() const noexcept { return sameFn_; }

  // Enters the type under its full name, by which it can be found from now on.
  static void typeNodeIs(ZolType* type, String8 const& fullName);
  // The type with this full name, or null.
  [[nodiscard]] static ZolType* typeNode(Name const& fullName);

  static ZolType* _fwkType();

 private:
  struct Content;

  ZolType* enclosing_;
  ZolType* base_;
  ZolTypeFlags flags_;
  String8 fullName_;
  std::size_t size_ = 0;
  bool isValue_ = false;
  bool isEnumType_ = false;
  bool isEntity_ = false;
  bool hasGenericIfSupport_ = false;
  DigestFn digestFn_ = nullptr;
  KeyTextFn keyTextFn_ = nullptr;
  SameFn sameFn_ = nullptr;
  Ptr<ZolAttr> valAttr_;
  std::unique_ptr<Content> content_;
};

class ZolType::ZolAttributeQ final : public LinkQueueMember<ZolAttributeQ, ZolAttr> {
 public:
  using LinkQueueMember::LinkQueueMember;
};

class ZolType::ZolDerivedTypeQ final : public LinkQueueMember<ZolDerivedTypeQ, ZolType> {
 public:
  using LinkQueueMember::LinkQueueMember;
};

}  // namespace Zol
