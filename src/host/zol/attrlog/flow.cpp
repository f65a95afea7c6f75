#include "host/zol/attrlog/flow.h"

namespace Zol::NboAttrLog {

FlowOut::FlowOut(Ptr<Out> out, StreamAdapter*, ConnectDesc, bool, AttributeId start)
    : out_(std::move(out)), start_(start) {}

FlowOut::~FlowOut() = default;

void FlowOut::blockedIs(bool value) noexcept {
  zolDataBits_ = static_cast<unsigned char>(value ? zolDataBits_ | kBlocked
                                                  : zolDataBits_ & ~unsigned{kBlocked});
}

void FlowOut::valueEnq(String8::IteratorConst position) {
  if (valueIter_) throwInternalException("!rsc->valueIter()");
  valueIter_ = std::move(position);
}

String8::IteratorConst FlowOut::valueDeq() {
  if (!valueIter_) return {};
  String8::IteratorConst position = std::move(*valueIter_);
  valueIter_.reset();
  return position;
}

void FlowOut::valueKeyEnq(LogKey key) {
  if (valueKey_) throwInternalException("!rsc->valueIterKey()");
  valueKey_ = std::move(key);
}

LogKey FlowOut::valueKeyDeq() {
  LogKey key = std::move(valueKey_.value());
  valueKey_.reset();
  return key;
}

void FlowOut::bookmarkEnq(AttributeId id, LogKey key) {
  if (bookmark_) throwInternalException("!rsc->bookmark()");
  bookmark_ = std::move(key);
  bookmarkedId_ = id;
}

void FlowOut::pendingAbortIs(AttributeId id, bool value) {
  if (value) {
    pendingAborts_.insert(id);
  } else {
    pendingAborts_.erase(id);
  }
}

void FlowOut::bitIs(DirtyBit bit, bool value) noexcept {
  std::uint32_t& word = bits_[bit.set];
  word = value ? (word | bit.mask) : (word & ~bit.mask);
}

bool FlowOut::hasDirtyAttributes() const {
  return hasValueIter() || hasValueKey() || hasBookmark() || !pendingAborts_.empty();
}

void FlowOut::owedFromStart(DirtyBit bit, AttributeId id, bool collection) noexcept {
  bitIs(bit, collection ? start_ > id : start_ <= id);
}

FlowIn::~FlowIn() { accountedIs(0); }

void FlowIn::accountedIs(std::size_t bytes) noexcept {
  *partialBytes_ += bytes;
  *partialBytes_ -= accounted_;
  accounted_ = bytes;
}

std::size_t FlowIn::accounted() {
  accountedIs(iter_ ? iter_->size() : 0);
  return *partialBytes_;
}

String8::Iterator& FlowIn::iterFor(AttributeId id) {
  if (iter_ && aid_ != id) iter_.reset();
  if (!iter_) iter_ = std::make_unique<String8::Iterator>();
  aid_ = id;
  return *iter_;
}

void FlowIn::iterIs(AttributeId id, String8::Iterator iter) {
  if (iter_) throwInternalException("!rrc->iter()");
  iter_ = std::make_unique<String8::Iterator>(std::move(iter));
  aid_ = id;
}

void FlowIn::idxIs(LogKey key) {
  if (idx_) throwInternalException("!rsc->idx()");
  idx_ = std::move(key);
}

void FlowIn::iterDel() noexcept {
  iter_.reset();
  aid_ = 0;
  accountedIs(0);
}

}  // namespace Zol::NboAttrLog
