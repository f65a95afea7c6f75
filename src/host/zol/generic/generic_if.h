// Generic objects: any value and any entity, seen by a tool that knows no more than its type.
#pragma once

#include "host/zol/linked_queue.h"
#include "host/zol/notifiee.h"
#include "host/zol/ptr.h"

namespace Zol {

// A value, or a reference to an entity, behind operations that are the same for all types. What a
// tool asks of an attribute is an operation id, what it gives and gets are generic objects again:
//
//   auto const generic = ZolType::genericIf( controller.get(), false );
//   auto const polling = generic->attributeId( "pollingEnabled" );
//   auto const off = Builtin<bool>::_fwkType()->genericIf( "False", false );
//   generic->attributeOp( { polling, GenericIf::attrOpWrite }, nullptr, off );
//
// A constant one refuses each operation that could change something.
class ZOL_EXPORT GenericIf : public PtrInterface::NotifieeConst {
 public:
  class List;
  class List_;
  class AttributeIteratorConst;
  // One class serves both kinds of walk.
  using AttributeIterator = AttributeIteratorConst;

  // The operations. Each one from `attrOpWrite` upward is a mutation.
  enum OpId : std::int32_t {
    attrOpRead = 0,
    attrOpCount = 1,
    attrOpVersion = 2,
    attrOpContains = 3,
    attrOpWrite = 128,
    attrOpDelete = 129,
  };
  // An operation on an attribute.
  struct AttributeOp {
    // See `attributeId`.
    AttributeId attributeId = 0;
    // An `OpId`; another number is refused as not supported.
    std::int32_t opId = attrOpRead;
  };

  // A constant one refuses mutations.
  explicit GenericIf(bool isConst) : isConst_(isConst) {}
  ~GenericIf() override;

  // The type of the value or entity.
  [[nodiscard]] virtual ZolType* type() const = 0;
  // The address of the value, which must be of this very type; of an entity, its address as a
  // `PtrInterface`, when its class is the type or derives from it. Throws `TypeException` with the
  // bare name of this object's own type.
  [[nodiscard]] virtual void* voidPtrIs(Ptr<ZolType const> const& type) const = 0;
  // The id of an attribute. Throws `UnknownAttrException` with the name.
  [[nodiscard]] virtual AttributeId attributeId(String8 name) const;
  // Does an operation on an attribute. `index` is the key of a member, null for an attribute
  // without keys. What it needs and gives:
  //
  //   read      the value, or the member under the index; of an absent one a default value, or a
  //             generic object over no entity
  //   count     the number of members, `version` a number that each change of membership raises
  //   contains  whether there is a member under the index
  //   write     stores `value`; null is a missing value, but for a reference, which it clears. An
  //             attribute that makes entities takes a list with the arguments of the constructor
  //             (`List_`), no index, and gives the entity.
  //   delete    takes out the member under the index, or the single entity, and gives it
  //
  // Throws `ConstException`, `BadIndexAttrException`, `TypeException`, `OpNotSupportedException`,
  // `UnknownArgException`, `UnknownAttrException`, `RangeException` for an entity that is not
  // there, and what the mutator of the class throws. Nothing has changed then.
  virtual Ptr<GenericIf> attributeOp(AttributeOp const& op, Ptr<GenericIf const> const& index,
                                     Ptr<GenericIf> const& value);
  // The value as a text; of an entity, a reference to it.
  [[nodiscard]] virtual String8 strRep() const = 0;
  // A zombie hears nothing; false brings it back.
  virtual void zolDoZombieReactors(bool value);

  // A walk of the members of a keyed attribute, from the first one or from the member of exactly
  // that key. Members may come and go meanwhile. Throws `UnknownAttrException` for an attribute
  // without keys, `TypeException` for a missing key.
  [[nodiscard]] virtual AttributeIteratorConst attributeIteratorConst(AttributeId id) const;
  // As above, from the member of that key.
  [[nodiscard]] virtual AttributeIteratorConst attributeIteratorKeyConst(
      AttributeId id, Ptr<GenericIf const> const& key) const;
  // The same walk as `attributeIteratorConst`.
  [[nodiscard]] AttributeIterator attributeIterator(AttributeId id) const;
  // The same walk as `attributeIteratorKeyConst`.
  [[nodiscard]] AttributeIterator attributeIteratorKey(AttributeId id,
                                                       Ptr<GenericIf const> const& key) const;
  // The member on which the iterator stands, and its key; null when it stands on nothing.
  [[nodiscard]] virtual Ptr<GenericIf> attributeIterator_iterObj(AttributeIteratorConst const& it);
  [[nodiscard]] virtual Ptr<GenericIf const> attributeIterator_iterObj(
      AttributeIteratorConst const& it) const;
  // Moves the iterator to the next member.
  virtual void attributeIterator_iterInc(AttributeIteratorConst const& it) const;
  // The key of the member on which the iterator stands; null when it stands on nothing.
  [[nodiscard]] virtual Ptr<GenericIf> attributeIterator_iterKey(
      AttributeIteratorConst const& it) const;
  // A second iterator at the same place.
  [[nodiscard]] virtual void* attributeIterator_iterClone(AttributeIteratorConst const& it) const;
  // Whether the iterator stands on a member.
  [[nodiscard]] virtual bool attributeIterator_nonNull(AttributeIteratorConst const& it) const;
  // Ends the iterator; the members stay.
  virtual void attributeIterator_iterDel(AttributeIteratorConst const& it) const;

  // A new generic object over the same entity, or over a copy of the value, with the same flag.
  [[nodiscard]] virtual Ptr<GenericIf> clone() = 0;
  [[nodiscard]] Ptr<GenericIf> clone() const;

  // A change of an attribute, of the member under `key` where one is given.
  using PtrInterface::NotifieeConst::onAttribute;
  virtual void onAttribute(AttributeId id, Ptr<GenericIf const>& key);

  // True for a generic object that refuses all mutations.
  [[nodiscard]] bool isConst() const noexcept { return isConst_; }
  // Whether an operation changes something.
  [[nodiscard]] static constexpr bool isMutation(std::int32_t op) noexcept {
    return op >= attrOpWrite;
  }

  // Throws the exception of that name with this text.
  [[noreturn]] static void throwConstException(String8 const& text);
  [[noreturn]] static void throwBadIndexAttrException(String8 const& name);
  [[noreturn]] static void throwTypeException(String8 const& name);
  [[noreturn]] static void throwOpNotSupportedException(String8 const& name, std::int32_t op, bool);
  [[noreturn]] static void throwUnknownArgException(String8 const& name);
  [[noreturn]] static void throwUnknownAttrException(String8 const& name);

 protected:
  // Throws `ConstException` for a mutation of a constant object.
  void requireMutable(std::int32_t op) const;

 private:
  bool isConst_;
};

// A walk of the members of a keyed attribute of an entity, whatever its type. It holds the generic
// object that made it. Copying it makes a second walk at the same place.
//
//   for (auto it = generic->attributeIteratorConst( rails ); it; ++it) {
//     std::cout << it.key()->strRep() << ' ' << it.obj()->strRep() << '\n';
//   }
class ZOL_EXPORT GenericIf::AttributeIteratorConst {
 public:
  // Owns `iterator`, which only the generic object knows; null stands on nothing.
  AttributeIteratorConst(Ptr<GenericIf> generic, AttributeId id, void* iterator);
  AttributeIteratorConst(AttributeIteratorConst const& other);
  AttributeIteratorConst(AttributeIteratorConst&& other) noexcept;
  AttributeIteratorConst& operator=(AttributeIteratorConst other) noexcept;
  ~AttributeIteratorConst();

  explicit operator bool() const { return generic_ && generic_->attributeIterator_nonNull(*this); }
  AttributeIteratorConst& operator++();
  // The member and its key; null at the end.
  [[nodiscard]] Ptr<GenericIf> obj() const;
  [[nodiscard]] Ptr<GenericIf> key() const;

  // The generic object that made the walk.
  [[nodiscard]] Ptr<GenericIf> const& generic() const noexcept { return generic_; }
  // The attribute whose members are walked.
  [[nodiscard]] AttributeId attributeId() const noexcept { return id_; }
  // What `attributeIterator_iterDel` has ended is gone.
  [[nodiscard]] void* iterator() const noexcept { return iterator_; }
  // For the generic object.
  void iteratorIs(void* iterator) const noexcept { iterator_ = iterator; }

 private:
  Ptr<GenericIf> generic_;
  AttributeId id_;
  mutable void* iterator_;
};

// The arguments of a constructor, in their order. A null argument stands for no entity.
class ZOL_EXPORT GenericIf::List {
 public:
  class ZolGenericIf;
  // The arguments, each a generic object or null.
  using Queue = LinkedQueue<ZolGenericIf, GenericIf, Ptr<GenericIf>>;

  static ZolType* _fwkType();
};

class GenericIf::List::ZolGenericIf final : public PtrInterface {
 public:
  explicit ZolGenericIf(Ptr<GenericIf> held) : held_(std::move(held)) {}
  [[nodiscard]] Ptr<GenericIf> const& held() const noexcept { return held_; }

 private:
  Ptr<GenericIf> held_;

 public:
  Ptr<ZolGenericIf> zolNext_;
};

// The generic object of an argument list.
class ZOL_EXPORT GenericIf::List_ final : public GenericIf {
 public:
  // An empty list; the flag is of no use to it.
  explicit List_(bool isConst) : GenericIf(isConst) {}
  ~List_() override;
  // A new, empty list.
  [[nodiscard]] static Ptr<List_> List_Is();
  // Puts an argument behind the others; null for no entity.
  void valueEnq(Ptr<GenericIf> value) { queue_.enq(std::move(value)); }

  [[nodiscard]] ZolType* type() const override;
  // The address of the `List::Queue`.
  [[nodiscard]] void* voidPtrIs(Ptr<ZolType const> const& type) const override;
  // The arguments' texts in brackets; "None" for a null one.
  [[nodiscard]] String8 strRep() const override;
  [[nodiscard]] Ptr<GenericIf> clone() override;

 private:
  mutable List::Queue queue_;
};

}  // namespace Zol
