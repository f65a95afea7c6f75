// What an adapter owes its stream (`FlowOut`) and what it has received in part (`FlowIn`).
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <set>
#include <variant>
#include <vector>

#include "host/zol/attrlog/out.h"

namespace Zol {

// The two path texts of a connection of flows. This library always makes them empty.
struct EntityUriPath {
  String8 text;
};
struct ConnectDesc {
  EntityUriPath from;
  EntityUriPath to;
};

class StreamAdapter;

namespace NboAttrLog {

// A start attribute above all ids: a flow made with it owes nothing until something is marked.
inline constexpr AttributeId kOwesOnlyMarks = 0x7fffffff;

// A key of whichever type the collection has.
using LogKey = std::variant<std::uint8_t, std::uint32_t, Name>;

// One attribute's bit in a flow. Set 0 belongs to classes directly below `Entity`, where the first
// attribute takes bit 1; set 1 to the level below, where it takes bit 0.
struct DirtyBit {
  std::uint8_t set = 0;
  std::uint32_t mask = 0;

  // `first` is the class's first attribute that can change.
  static constexpr DirtyBit of(unsigned int set, AttributeId first, AttributeId id) {
    auto const index = static_cast<unsigned int>(id - first) + (set == 0 ? 1U : 0U);
    return {static_cast<std::uint8_t>(set), std::uint32_t{1} << index};
  }
};

// The debt of one adapter: a bit per attribute, and a set of keys per collection, however often a
// value changes. Of an attribute without a key the bit says that it is owed; of a collection, that
// its full walk has been sent.
class ZOL_EXPORT FlowOut : public PtrInterface {
 public:
  // `zolDataBits`: the flow-out stops at the present attribute; collections owe only their dirty
  // keys.
  static constexpr unsigned char kBlocked = 0x10;
  static constexpr unsigned char kOnlyDirtyKeys = 0x4;

  FlowOut(Ptr<Out> out, StreamAdapter* adapter, ConnectDesc desc, bool flag, AttributeId start);
  ~FlowOut() override;

  [[nodiscard]] AttributeId attrId() const noexcept { return attrId_; }
  void attrIdIs(AttributeId id) noexcept { attrId_ = id; }
  [[nodiscard]] unsigned int outstandingKeys() const noexcept { return outstandingKeys_; }
  void outstandingKeysIs(unsigned int count) noexcept { outstandingKeys_ = count; }
  [[nodiscard]] unsigned char zolDataBits() const noexcept { return zolDataBits_; }
  void zolDataBitsIs(unsigned char bits) noexcept { zolDataBits_ = bits; }
  [[nodiscard]] bool blocked() const noexcept { return (zolDataBits_ & kBlocked) != 0; }
  void blockedIs(bool value) noexcept;
  [[nodiscard]] AttributeId start() const noexcept { return start_; }

  // The saved position of a text that stopped in the middle; at most one.
  [[nodiscard]] bool hasValueIter() const noexcept { return valueIter_.has_value(); }
  // Throws `InternalException` "!rsc->valueIter()" when one is saved already.
  void valueEnq(String8::IteratorConst position);
  // The text of the saved position, which must be there.
  [[nodiscard]] String8 const& valueText() const noexcept { return valueIter_->text(); }
  // Takes the saved position; an iterator over the empty text when there is none.
  String8::IteratorConst valueDeq();

  // The key of the keyed text to which the saved position belongs; at most one.
  [[nodiscard]] bool hasValueKey() const noexcept { return valueKey_.has_value(); }
  [[nodiscard]] bool valueKeyIs(LogKey const& key) const { return valueKey_ == key; }
  // Throws `InternalException` "!rsc->valueIterKey()" when one is saved already.
  void valueKeyEnq(LogKey key);
  // Takes the key, which must be there.
  LogKey valueKeyDeq();
  void valueKeyFree() noexcept { valueKey_.reset(); }

  // The key at which the walk of a collection goes on; at most one.
  [[nodiscard]] bool hasBookmark() const noexcept { return bookmark_.has_value(); }
  // Whether it is in the collection `id`. One of another collection is dropped: that walk begins
  // anew.
  [[nodiscard]] bool hasBookmarkOf(AttributeId id) noexcept {
    if (bookmarkedId_ != id) bookmark_.reset();
    return hasBookmark();
  }
  // Throws `InternalException` "!rsc->bookmark()" when one is saved already.
  void bookmarkEnq(AttributeId id, LogKey key);
  // Takes the key; the zero key or the empty name when there is none.
  template <class Key>
  Key bookmarkDeq() {
    Key const key = bookmark_ ? std::get<Key>(*bookmark_) : Key{};
    bookmark_.reset();
    return key;
  }
  void bookmarkFree() noexcept { bookmark_.reset(); }

  void pendingAbortIs(AttributeId id, bool value);
  void pendingAbortDel(AttributeId id) { pendingAborts_.erase(id); }
  [[nodiscard]] std::set<AttributeId> const& pendingAborts() const noexcept {
    return pendingAborts_;
  }

  [[nodiscard]] bool bit(DirtyBit bit) const noexcept { return (bits_[bit.set] & bit.mask) != 0; }
  void bitIs(DirtyBit bit, bool value) noexcept;

  // Whether anything is owed still.
  [[nodiscard]] virtual bool hasDirtyAttributes() const;
  // The names of the attributes of which something is owed, each once.
  [[nodiscard]] virtual std::vector<Name> owedAttributes() const { return {}; }

 protected:
  // For the constructor of a level: the attribute is owed when `start` does not lie above it.
  void owedFromStart(DirtyBit bit, AttributeId id, bool collection) noexcept;
  [[nodiscard]] bool owes(unsigned int set, std::uint32_t dirtyMask,
                          std::uint32_t syncedMask) const noexcept {
    return (bits_[set] & dirtyMask) != 0 || (~bits_[set] & syncedMask) != 0;
  }

 private:
  Ptr<Out> out_;
  AttributeId const start_;
  AttributeId attrId_ = 0;
  unsigned int outstandingKeys_ = 0;
  unsigned char zolDataBits_ = 0;
  std::array<std::uint32_t, 2> bits_{};
  std::optional<String8::IteratorConst> valueIter_;
  std::optional<LogKey> valueKey_;
  std::optional<LogKey> bookmark_;
  AttributeId bookmarkedId_ = 0;
  std::set<AttributeId> pendingAborts_;
};

// What an entity has received in part: the text of attribute `aid`, so far, and its key if the
// attribute has keys. A begun transaction on `aid` holds one too.
class ZOL_EXPORT FlowIn : public PtrInterface {
 public:
  // `partialBytes`: the bytes of all partial texts of the connection.
  explicit FlowIn(std::shared_ptr<std::size_t> partialBytes)
      : partialBytes_(std::move(partialBytes)) {}
  ~FlowIn() override;

  [[nodiscard]] AttributeId aid() const noexcept { return aid_; }
  void aidIs(AttributeId id) noexcept { aid_ = id; }
  [[nodiscard]] bool handlingTransaction() const noexcept { return handlingTransaction_; }
  void handlingTransactionIs(bool value) noexcept { handlingTransaction_ = value; }
  [[nodiscard]] bool hasIter() const noexcept { return iter_ != nullptr; }

  // The text under way for attribute `id`; one that belongs to another attribute is dropped first.
  String8::Iterator& iterFor(AttributeId id);
  // Stores a text that has begun. Throws `InternalException` "!rrc->iter()" when there is one
  // already.
  void iterIs(AttributeId id, String8::Iterator iter);
  void iterDel() noexcept;
  // The key of the text under way.
  [[nodiscard]] bool hasIdx() const noexcept { return idx_.has_value(); }
  [[nodiscard]] bool idxMatches(LogKey const& key) const { return idx_ == key; }
  // Throws `InternalException` "!rsc->idx()" when there is one already.
  void idxIs(LogKey key);
  void idxDel() noexcept { idx_.reset(); }
  // What the writer of the text's first piece had seen; see `In::seen()`.
  [[nodiscard]] std::optional<std::uint32_t> seen() const noexcept { return seen_; }
  void seenIs(std::optional<std::uint32_t> frames) noexcept { seen_ = frames; }
  // Counts the text as it stands now among the connection's partial texts; gives their sum.
  std::size_t accounted();

 private:
  void accountedIs(std::size_t bytes) noexcept;

  std::shared_ptr<std::size_t> partialBytes_;
  std::size_t accounted_ = 0;
  AttributeId aid_ = 0;
  bool handlingTransaction_ = false;
  std::unique_ptr<String8::Iterator> iter_;
  std::optional<LogKey> idx_;
  std::optional<std::uint32_t> seen_;
};

}  // namespace NboAttrLog

}  // namespace Zol
