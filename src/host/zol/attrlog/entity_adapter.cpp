#include "host/zol/attrlog/entity_adapter.h"

#include "host/zol/registry/zol_type.h"

namespace Zol::NboAttrLog {

namespace {

using Token = Zol::Connection::Out::TransactToken;

// Says for the time of a flow-out that the reactions come from it, and puts back what was said
// before.
class HandlingScheduledFlowOutAnchor {
 public:
  explicit HandlingScheduledFlowOutAnchor(EntityAdapter& adapter)
      : adapter_(adapter), former_(adapter.has(flagScheduledFlowOut)) {
    adapter_.flagsIs(flagScheduledFlowOut, adapter_.flowOut() != nullptr);
  }
  ~HandlingScheduledFlowOutAnchor() { adapter_.flagsIs(flagScheduledFlowOut, former_); }
  HandlingScheduledFlowOutAnchor(HandlingScheduledFlowOutAnchor const&) = delete;
  HandlingScheduledFlowOutAnchor& operator=(HandlingScheduledFlowOutAnchor const&) = delete;

 private:
  EntityAdapter& adapter_;
  bool former_;
};

}  // namespace

EntityAdapter::~EntityAdapter() = default;

void EntityAdapter::requireWritable(AttributeId id, ZolAttr const* (*attr)(AttributeId)) const {
  if (has(flagOutReadOnly) && !convertedToWritable(false)) doThrowReadOnly(attr(id));
}

bool EntityAdapter::mayLeaveDirectly(AttributeId id, Out const& out) {
  if (has(flagScheduledFlowOut)) return true;
  if (out.hasSufficientBuffer() && !has(flagDeferOutput)) return true;
  createFlowOutOnDemand();
  if (flowOut()) flowOut()->attrIdIs(id);
  return false;
}

// An adapter of several levels hears of a change once through each of them: it counts once.
void EntityAdapter::attributeOwed(LogRow const& row) {
  if (!flowOut()) return;
  bool const heardBefore = owedAt_ == entity()->mutationCounter();
  if (flowOut()->bit(row.bit) && !heardBefore) streamDemuxer()->coalescedInc();
  flowOut()->bitIs(row.bit, true);
  owedAt_ = entity()->mutationCounter();
}

bool EntityAdapter::mayLeave(LogRow const& row, Out const& out) {
  if (has(flagNoFlowOut)) {
    if (mayLeaveDirectly(row.id, out)) return true;
  } else if (prepareImmediateTransmission(row.id, !out.hasSufficientBuffer())) {
    flowOut()->bitIs(row.bit, false);
    return true;
  }
  attributeOwed(row);
  return false;
}

void EntityAdapter::beginOrphan() {
  Ptr<Out> const& out = nboAttrLogOut();
  out->nextHeaderIs({kOrphanEntityId, kOrphanAttrId, true, 0, 0, false});
  out << Token::open;
  out->currentPayloadSectionIs(PayloadSection::types);
  for (ZolType const* type = entity()->fwkType(); type && type != Entity::_fwkType();
       type = type->baseType()) {
    out << TypeId{type->fullName()};
  }
  out->currentPayloadSectionIs(PayloadSection::constructorParameters);
}

void EntityAdapter::endOrphan() {
  Ptr<Out> const& out = nboAttrLogOut();
  out->currentPayloadSectionIs(PayloadSection::entityId);
  out << entityId() << Token::close;
  doThis();
}

bool EntityAdapter::textChanged(LogRow const& row, String8 (*current)(Entity const&)) {
  if (has(flagQuiet) || (!has(flagApplying) && handlingFlowInFor(row.id))) return false;
  ApplyingEnd const end(*this);
  if (isSilent() || has(flagApplying)) return true;
  Ptr<Out> const out = nboAttrLogOut();
  if (!out) return true;
  requireWritable(row.id, row.attr);

  FlowOut* const flow = has(flagNoFlowOut) ? nullptr : flowOut();
  bool const scheduled = has(flagScheduledFlowOut);
  if (flow && !scheduled) {
    prepareImmediateTransmission(row.id, true);
    attributeOwed(row);
    return false;
  }
  bool const resumed = flow && flow->hasValueIter();
  String8::IteratorConst position =
      resumed ? flow->valueDeq() : String8::IteratorConst(current(*entity()));
  // A run that goes on with an old text owes the new one when it is over.
  auto const complete = [&] { return !resumed || position.text() == current(*entity()); };
  if (position.position() != 0 && position.atEnd()) return complete();

  bool started = false;
  for (;;) {
    bool const room = flow ? continueFlowOut() && out->maxMessageSize() <= out->freeSpace()
                           : !started && out->freeSpace() >= kDirectTextRoom;
    if (!room) break;
    out->nextHeaderIs({entityId(), row.id, true, 0, 0, false});
    out << Token::open;
    out->chunkIs(position);
    out << Token::close;
    started = true;
    if (position.atEnd()) return complete();
  }
  if (flow) {
    flow->valueEnq(position);
    return false;
  }
  createFlowOutOnDemand();
  if (FlowOut* const made = flowOut()) {
    made->attrIdIs(row.id);
    attributeOwed(row);
    made->outstandingKeysIs(1);
    made->valueEnq(position);
  }
  return false;
}

void EntityAdapter::textArrived(Inbound& message, void (*set)(Entity&, String8),
                                void (*react)(EntityAdapter&)) {
  channelModeIs(MsgChannel::Mode::applied);
  if (!message.applies) return react(*this);
  String8::Iterator whole;
  String8::Iterator& text = message.flow ? message.flow->iterFor(message.id) : whole;
  if (message.size != 0) {
    ConnectionInSizeAnchor const bound(message.in, message.size);
    Ptr<Zol::Connection::In>(&message.in) >> text;
    if (message.in.left() != 0) message.in.malformed("text message with bytes behind its chunk");
  }
  Ptr<Demuxer> const demuxer = streamDemuxer();
  if (text.position() != 0) {
    if (!message.flow) {
      message.flow = demuxer->flowInIs(entityId());
      message.flow->iterIs(message.id, std::move(text));
    }
    demuxer->partialTextGrew(*message.flow);
    return;
  }
  set(*entity(), text.text());
  if (!message.flow) return;
  message.flow->iterDel();
  demuxer->flowInDel(entityId());
}

AttributeId EntityAdapter::flowOutFrom(LogLevel const& level, AttributeId id) {
  HandlingScheduledFlowOutAnchor const anchor(*this);
  Ptr<FlowOut> const flow(flowOut());
  if (!flow) return 0;
  flow->blockedIs(false);
  while (!flow->pendingAborts().empty()) {
    AttributeId const aborted = *flow->pendingAborts().begin();
    sendTransactionMarker(aborted, AttrTransactionType::abort, 0);
    flow->pendingAbortDel(aborted);
  }
  AttributeId const first = level.rows.front().id;
  if (id < first) {
    AttributeId const next = level.base ? flowOutFrom(*level.base, id) : 0;
    if (next != 0) return next;
    if (!continueFlowOut()) return first;
  }
  for (std::size_t i = 0; i < level.rows.size(); ++i) {
    LogRow const& row = level.rows[i];
    if (row.id < id) continue;
    bool const last = i + 1 == level.rows.size();
    flow->attrIdIs(row.id);
    bool finished = true;
    switch (row.kind) {
      case LogRow::Kind::scalar:
        if (flow->bit(row.bit)) row.react(*this, nullptr);
        break;
      case LogRow::Kind::text:
        if (flow->hasValueIter() || flow->bit(row.bit)) {
          finished = row.serialize(*this);
          flow->bitIs(row.bit, !finished);
        }
        break;
      case LogRow::Kind::collection:
        finished = row.serialize(*this);
        break;
    }
    if (flow->blocked()) return row.id;
    if (last) return finished ? 0 : row.id;
    if (continueFlowOut()) continue;
    if (!finished) return row.id;
    AttributeId const next = level.rows[i + 1].id;
    bool const owesMore = row.kind == LogRow::Kind::scalar || flow->hasDirtyAttributes();
    return owesMore ? next : 0;
  }
  return 0;
}

void EntityAdapter::freeState(LogLevel const& level, FlowOut& flow) {
  LogRow const* const row = flow.attrId() == 0 ? nullptr : level.find(flow.attrId());
  if (!row) return;
  if (row->kind == LogRow::Kind::text) flow.valueDeq();
  if (row->kind == LogRow::Kind::collection) flow.bookmarkFree();
}

void EntityAdapter::messageIs(LogLevel const& level, AttributeId id, DeserializationOptions options,
                              unsigned int size, Ptr<In> const& in) {
  Ptr<In> const input(in ? in.get() : nboAttrLogOut() ? nboAttrLogOut()->reverseLog() : nullptr);
  Ptr<Demuxer> const demuxer = streamDemuxer();
  if (!input || !demuxer || !entity()) return;
  std::optional<ApplyingEnd> end;
  if (!in) {
    if (has(flagApplying)) throwInternalException("entity reactor is already active");
    flagsIs(flagApplying, true);
    end.emplace(*this);
    if (has(flagInReadOnly) && !readOnlyRemoteOk(id) && !convertedToWritable(false)) {
      throwInternalException(String8("write-update from readonly proxy: ") + entity()->fullName() +
                             " peerName: " + String8(nboAttrLogOut()->peerName()));
    }
  }
  LogRow const* const row = level.find(id);
  auto* const read = !row ? nullptr : id > 0 ? row->apply : row->remove;
  if (!read) return doBaseZolNboAttrLogSaMsg(id, options, size, in);
  Inbound message{*input, row->id, size, !in, options.prefixOnly, demuxer->flowIn(entityId())};
  read(*this, message);
}

void EntityAdapter::notificationIs(LogLevel const& level, AttributeId id, void* key) {
  LogRow const* const row = level.find(id);
  bool const keyed = row && row->kind == LogRow::Kind::collection;
  if (!row || !entity() || (id < 0 && !keyed)) return;
  row->react(*this, key);
}

}  // namespace Zol::NboAttrLog
