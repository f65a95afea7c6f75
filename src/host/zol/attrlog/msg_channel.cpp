#include "host/zol/attrlog/msg_channel.h"

#include "host/zol/attrlog/demuxer.h"
#include "host/zol/attrlog/dispatching.h"

namespace Zol::MsgChannel {

Constrainer::ZolEntry::~ZolEntry() = default;

Constrainer& constrainer() {
  static Constrainer theConstrainer;
  return theConstrainer;
}

DeserializingEidAnchor::DeserializingEidAnchor(EntityId const& id, Entity* parent)
    : formerId_(constrainer().deserializingEid()),
      formerParent_(constrainer().deserializingInParent()) {
  if (NboAttrLog::Demuxer const* const demuxer = NboAttrLog::dispatchingDemuxer()) {
    demuxer->requireAnnounceable(id, parent);
  }
  constrainer().deserializingEidIs(id);
  constrainer().deserializingInParentIs(parent);
}

DeserializingEidAnchor::~DeserializingEidAnchor() {
  constrainer().deserializingEidIs(formerId_);
  constrainer().deserializingInParentIs(formerParent_);
}

}  // namespace Zol::MsgChannel
