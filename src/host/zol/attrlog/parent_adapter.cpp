#include "host/zol/attrlog/parent_adapter.h"

namespace Zol::NboAttrLog {

namespace {

using Token = Zol::Connection::Out::TransactToken;

}  // namespace

ParentAdapter::~ParentAdapter() = default;

void ParentAdapter::childChanged(ChildRow const& row, Name const& key, Ptr<Entity> const& child) {
  if (has(flagQuiet)) return;
  if (!has(flagApplying) && handlingFlowInFor(row.id)) return;
  ApplyingEnd const end(*this);
  bool const applying = has(flagApplying);
  if (!applying && isSilent()) return;
  Ptr<Out> const out = nboAttrLogOut();
  if (!out) return;
  if (applying) return adopt(child);
  requireWritable(row.id, row.attr);
  if (!keyMayLeave(row, key, *out)) return;
  if (!child) {
    out->nextHeaderIs({entityId(), -row.id, true, 0, 0, false});
    out << Token::open << String8(key) << Token::close;
    return;
  }
  try {
    Ptr<Entity::ZolNboAttrLogSa> const adapter = row.announce(*this, childFlags(), *child);
    doFixChildFlags(*adapter);
    if (syncMode() == SyncMode::mark || has(flagScheduledFlowOut)) adapter->doThis();
  } catch (EntityIdUnavailableException const&) {
    if (!flowOut()) createFlowOutOnDemand();
    if (!flowOut()) return;
    flowOut()->attrIdIs(row.id);
    keyOwed(row, key);
    flowOut()->blockedIs(true);
  }
}

bool ParentAdapter::keyMayLeave(ChildRow const& row, Name const& key, Out const& out) {
  if (has(flagNoFlowOut)) {
    if (mayLeaveDirectly(row.id, out)) return true;
  } else if (prepareImmediateTransmission(row.id, false) && out.hasSufficientBuffer()) {
    row.dirty(*flowOut()).dirtyDel(key);
    return true;
  }
  keyOwed(row, key);
  return false;
}

void ParentAdapter::keyOwed(ChildRow const& row, Name const& key) {
  if (!flowOut()) return;
  if (!row.dirty(*flowOut()).dirtyIs(key)) streamDemuxer()->coalescedInc();
}

Ptr<Entity::ZolNboAttrLogSa> ParentAdapter::announceChild(
    AttributeId id, Zol_BitSet flags, Entity& child, unsigned int n, OutPtr const& out,
    PtrInterface* msgChannelEntry, void (*write)(OutPtr const&, Entity const&)) {
  Ptr<Entity::ZolNboAttrLogSa> adapter = child.zolNboAttrLogSa(nboAttrLogOut());
  if (adapter) {
    adapter->notificationFlagsIs(flags);
    if (adapter->has(flagAnnounced)) return adapter;
  } else {
    adapter = child.zolNboAttrLogSaIs(flags, n, out, msgChannelEntry);
    adapter->zolOnInit();
  }
  Expect const scope(48);
  for (;;) {
    try {
      out->nextHeaderIs({entityId(), id, true, 0, kChildMark, false});
      out << Token::open;
      write(out, child);
      out << adapter->entityId() << Token::close;
      return adapter;
    } catch (AttrLogRecordException const&) {
      continue;
    }
  }
}

Ptr<Entity::ZolNboAttrLogSa> ParentAdapter::childAdapterDel(Entity* child) {
  if (!child) return nullptr;
  Ptr<Entity::ZolNboAttrLogSa> adapter = child->zolNboAttrLogSa(nboAttrLogOut());
  if (adapter) adapter->doRemountSelf(nullptr);
  return adapter;
}

// The child takes the id that stands next in the stream, and its place there takes the parent's.
void ParentAdapter::adopt(Ptr<Entity> const& child) {
  if (!child) return;
  Ptr<Out> const out = nboAttrLogOut();
  Ptr<In> const in(out->reverseLog());
  Ptr<Entity::ZolNboAttrLogSa> const adapter =
      child->zolNboAttrLogSaIs(childFlags(), 1, out, msgChannelEntry());
  In::Position const at = in->position();
  EntityId const id = in->nextEntityId();
  adapter->doEntityIdIs(id, *demuxFor(in.get()), true);
  if (!entityId().unified()) in->overwrite(at, entityId().value);
  adapter->flagsIs(flagStale, false);
}

EntityId ParentAdapter::peekEntityId(Inbound& message) {
  In::Position const at = message.in.position();
  EntityId const id = message.in.nextEntityId();
  if (message.in.left() != 0) {
    message.in.malformed("announcement with " + std::to_string(message.in.left()) +
                         " bytes too many");
  }
  message.in.positionIs(at);
  return id;
}

}  // namespace Zol::NboAttrLog
