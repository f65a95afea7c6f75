#include "host/models/dexo_desc.h"

#include "host/models/dexo_desc_generic.h"
#include "host/models/parameters.h"
#include "host/models/stream_type.h"
#include "host/zol/digest.h"
#include "host/zol/generic/entity_type.h"

namespace Hardware {

DexoDesc::~DexoDesc() { dismissNotifiees(); }

Zol::ZolType* DexoDesc::fwkType() const { return _fwkType(); }

Zol::ZolType* DexoDesc::_fwkType() {
  static Zol::ZolType* const type = namedType<DexoDesc>("Hardware::DexoDesc");
  return type;
}

}  // namespace Hardware

namespace SmbusDexo {

namespace {

void digestDesc(Zol::Entity const& desc, Zol::Digest& digest) {
  auto const& entity = static_cast<DexoDesc const&>(desc);
#include "host/zol/stamp/stamp_digest.h"
#include "host/models/smbus_dexo_desc.def"
}

}  // namespace

DexoDesc::DexoDesc(Zol::Name name, Zol::Ptr<Hardware::SmbusDevice> const& device,
                   Hardware::LobusAccelId lobusAccelId, Hardware::SmbusId busId,
                   Hardware::SmbusDeviceId deviceId, Hardware::SmbusAddrSize addrSize,
                   bool writeNoStopReadCurrent, Hardware::SmbusDelay writeDelay,
                   Hardware::SmbusDelay readDelay, bool bug30005ExtraDelays,
                   Hardware::SmbusTimeout busTimeout, Hardware::LobusAgentId smbusAgentId)
    : Hardware::DexoDesc(std::move(name)),
      device_(device),
      lobusAccelId_(lobusAccelId),
      busId_(busId),
      deviceId_(deviceId),
      addrSize_(addrSize),
      writeNoStopReadCurrent_(writeNoStopReadCurrent),
      writeDelay_(writeDelay),
      readDelay_(readDelay),
      bug30005ExtraDelays_(bug30005ExtraDelays),
      busTimeout_(busTimeout),
      smbusAgentId_(smbusAgentId) {}

DexoDesc::~DexoDesc() { dismissNotifiees(); }

Zol::ZolType* DexoDesc::fwkType() const { return _fwkType(); }

Zol::ZolType* DexoDesc::_fwkType() {
  static Zol::ZolType* const type = [] {
    using Type = Zol::EntityType<DexoDesc, Zol::NboAttrLog::StreamType<DexoDesc>>;
    auto attributes =
        Hardware::streamType<DexoDesc, Type>("SmbusDexo::DexoDesc", Hardware::DexoDesc::_fwkType());
    attributes.arg("name", "Zol::Name")
        .arg("device", "Hardware::SmbusDevice")
        .arg("lobusAccelId", "Hardware::LobusAccelId")
        .arg("busId", "Hardware::SmbusId")
        .arg("deviceId", "Hardware::SmbusDeviceId")
        .arg("addrSize", "Hardware::SmbusAddrSize")
        .arg("writeNoStopReadCurrent", "bool")
        .arg("writeDelay", "Hardware::SmbusDelay")
        .arg("readDelay", "Hardware::SmbusDelay")
        .arg("bug30005ExtraDelays", "bool")
        .arg("busTimeout", "Hardware::SmbusTimeout")
        .arg("smbusAgentId", "Hardware::LobusAgentId");
#include "host/zol/registry/stamp_attributes.h"
#include "host/models/smbus_dexo_desc.def"
    attributes.type()->digestFnIs(&digestDesc);
    return attributes.type();
  }();
  return type;
}

Zol::String8 DexoDesc::attributeString(Zol::AttributeId id) const {
  switch (id) {
#include "host/zol/stamp/stamp_names.h"
#include "host/models/smbus_dexo_desc.def"
    default:
      return Hardware::DexoDesc::attributeString(id);
  }
}

void DexoDesc::lobusAccelIdIs(Hardware::LobusAccelId value) {
  assign<NotifieeConst>(lobusAccelId_, value, Id::lobusAccelId, &NotifieeConst::onLobusAccelId);
}

void DexoDesc::busIdIs(Hardware::SmbusId value) {
  assign<NotifieeConst>(busId_, value, Id::busId, &NotifieeConst::onBusId);
}

void DexoDesc::deviceIdIs(Hardware::SmbusDeviceId value) {
  assign<NotifieeConst>(deviceId_, value, Id::deviceId, &NotifieeConst::onDeviceId);
}

void DexoDesc::addrSizeIs(Hardware::SmbusAddrSize value) {
  assign<NotifieeConst>(addrSize_, value, Id::addrSize, &NotifieeConst::onAddrSize);
}

void DexoDesc::writeNoStopReadCurrentIs(bool value) {
  assign<NotifieeConst>(writeNoStopReadCurrent_, value, Id::writeNoStopReadCurrent,
                        &NotifieeConst::onWriteNoStopReadCurrent);
}

void DexoDesc::writeDelayIs(Hardware::SmbusDelay value) {
  assign<NotifieeConst>(writeDelay_, value, Id::writeDelay, &NotifieeConst::onWriteDelay);
}

void DexoDesc::readDelayIs(Hardware::SmbusDelay value) {
  assign<NotifieeConst>(readDelay_, value, Id::readDelay, &NotifieeConst::onReadDelay);
}

void DexoDesc::bug30005ExtraDelaysIs(bool value) {
  assign<NotifieeConst>(bug30005ExtraDelays_, value, Id::bug30005ExtraDelays,
                        &NotifieeConst::onBug30005ExtraDelays);
}

void DexoDesc::busTimeoutIs(Hardware::SmbusTimeout value) {
  assign<NotifieeConst>(busTimeout_, value, Id::busTimeout, &NotifieeConst::onBusTimeout);
}

void DexoDesc::smbusAgentIdIs(Hardware::LobusAgentId value) {
  assign<NotifieeConst>(smbusAgentId_, value, Id::smbusAgentId, &NotifieeConst::onSmbusAgentId);
}

DexoDesc::NotifieeConst::~NotifieeConst() = default;

void DexoDesc::NotifieeConst::notifierIs(Zol::Ptr<Zol::PtrInterface const> const& notifier) {
  entityIs(dynamic_cast<DexoDesc const*>(notifier.get()));
}

Zol::Ptr<DexoDesc const> DexoDesc::NotifieeConst::notifier() const {
  return static_cast<DexoDesc const*>(entity());
}

Zol::Ptr<DexoDesc> DexoDesc::Notifiee::notifier() const {
  return const_cast<DexoDesc*>(static_cast<DexoDesc const*>(entity()));
}

}  // namespace SmbusDexo

namespace I2cDexo {

namespace {

void digestDesc(Zol::Entity const& desc, Zol::Digest& digest) {
  auto const& entity = static_cast<DexoDesc const&>(desc);
#include "host/zol/stamp/stamp_digest.h"
#include "host/models/i2c_dexo_desc.def"
}

}  // namespace

DexoDesc::DexoDesc(Zol::Name name, unsigned char busId, unsigned char device)
    : Hardware::DexoDesc(std::move(name)), busId_(busId), device_(device) {}

DexoDesc::~DexoDesc() { dismissNotifiees(); }

Zol::ZolType* DexoDesc::fwkType() const { return _fwkType(); }

Zol::ZolType* DexoDesc::_fwkType() {
  static Zol::ZolType* const type = [] {
    using Type = Zol::EntityType<DexoDesc, Zol::NboAttrLog::StreamType<DexoDesc>>;
    auto attributes =
        Hardware::streamType<DexoDesc, Type>("I2cDexo::DexoDesc", Hardware::DexoDesc::_fwkType());
    attributes.arg("name", "Zol::Name").arg("busId", "U8").arg("device", "U8");
#include "host/zol/registry/stamp_attributes.h"
#include "host/models/i2c_dexo_desc.def"
    attributes.type()->digestFnIs(&digestDesc);
    return attributes.type();
  }();
  return type;
}

Zol::String8 DexoDesc::attributeString(Zol::AttributeId id) const {
  switch (id) {
#include "host/zol/stamp/stamp_names.h"
#include "host/models/i2c_dexo_desc.def"
    default:
      return Hardware::DexoDesc::attributeString(id);
  }
}

DexoDesc::NotifieeConst::~NotifieeConst() = default;

void DexoDesc::NotifieeConst::notifierIs(Zol::Ptr<Zol::PtrInterface const> const& notifier) {
  entityIs(dynamic_cast<DexoDesc const*>(notifier.get()));
}

Zol::Ptr<DexoDesc const> DexoDesc::NotifieeConst::notifier() const {
  return static_cast<DexoDesc const*>(entity());
}

Zol::Ptr<DexoDesc> DexoDesc::Notifiee::notifier() const {
  return const_cast<DexoDesc*>(static_cast<DexoDesc const*>(entity()));
}

}  // namespace I2cDexo
