#include "host/zol/attrlog/text.h"

#include "host/zol/attrlog/scalar.h"

namespace Zol::NboAttrLog {

bool textChanged(EntityAdapter& adapter, LogRow const& row, String8 (*current)(Entity const&)) {
  Hearing const hearing = adapter.hearing(row);
  if (hearing == Hearing::ignores) return false;
  EntityAdapter::ApplyingEnd const end(adapter);
  if (hearing != Hearing::sends) return true;
  Ptr<Out> const out = adapter.nboAttrLogOut();

  FlowOut* const flow = adapter.has(flagNoFlowOut) ? nullptr : adapter.flowOut();
  if (flow && !adapter.has(flagScheduledFlowOut)) {
    adapter.prepareImmediateTransmission(row.id, true);
    adapter.attributeOwed(row);
    return false;
  }
  bool const resumed = flow && flow->hasValueIter();
  String8::IteratorConst position =
      resumed ? flow->valueDeq() : String8::IteratorConst(current(*adapter.entity()));
  // A run that goes on with an old text owes the new one when it is over.
  auto const complete = [&] { return !resumed || position.text() == current(*adapter.entity()); };
  if (position.position() != 0 && position.atEnd()) return complete();

  bool started = false;
  for (;;) {
    bool const room = flow ? adapter.continueFlowOut() && out->maxMessageSize() <= out->freeSpace()
                           : !started && out->freeSpace() >= kDirectTextRoom;
    if (!room) break;
    out->nextHeaderIs({adapter.entityId(), row.id, true, 0, 0, false});
    out << MessageToken::open;
    out->chunkIs(position);
    out << MessageToken::close;
    started = true;
    if (position.atEnd()) return complete();
  }
  if (flow) {
    flow->valueEnq(position);
    return false;
  }
  if (FlowOut* const made = adapter.flowFor(row.id)) {
    adapter.attributeOwed(row);
    made->outstandingKeysIs(1);
    made->valueEnq(position);
  }
  return false;
}

void chunkRead(Inbound& message, String8::Iterator& text) {
  Ptr<Zol::Connection::In>(&message.in) >> text;
  if (message.in.left() != 0) message.in.malformed("text message with bytes behind its chunk");
}

void textArrived(EntityAdapter& adapter, Inbound& message, LogRow const& row,
                 void (*set)(Entity&, String8)) {
  adapter.channelModeIs(MsgChannel::Mode::applied);
  if (!message.applies) return row.react(adapter, nullptr);
  String8::Iterator whole;
  String8::Iterator& text = message.flow ? message.flow->iterFor(message.id) : whole;
  if (message.size != 0) {
    ConnectionInSizeAnchor const bound(&message.in, message.size);
    chunkRead(message, text);
  }
  Ptr<Demuxer> const demuxer = adapter.streamDemuxer();
  EntityId const entityId = adapter.entityId();
  if (text.position() != 0) {
    if (!message.flow) {
      message.flow = demuxer->flowInIs(entityId);
      message.flow->iterIs(message.id, std::move(text));
    }
    demuxer->partialTextGrew(*message.flow);
    return;
  }
  set(*adapter.entity(), text.text());
  if (!message.flow) return;
  message.flow->iterDel();
  demuxer->flowInDel(entityId);
}

bool textTransaction(EntityAdapter& adapter, AttributeId id, LogRow::TransactionType type,
                     FlowIn* flow) {
  if (!flow || flow->aid() != id) return false;
  if (type == LogRow::TransactionType::begin) return true;
  flow->iterDel();
  adapter.streamDemuxer()->flowInDel(adapter.entityId());
  return true;
}

}  // namespace Zol::NboAttrLog
