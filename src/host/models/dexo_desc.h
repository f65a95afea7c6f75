// Descriptors of how a device is reached: the common base, and the forms for SMBus and plain I2C.
#pragma once

#include "host/models/smbus.h"
#include "host/zol/attribute_rules.h"
#include "host/zol/hash_map.h"

namespace Hardware {

// How a device is reached, whatever its bus.
class ZOL_EXPORT DexoDesc : public Zol::AttributeRules<NamedEntity> {
 public:
  class _Type;

  using AttributeRules::AttributeRules;
  ~DexoDesc() override;
  [[nodiscard]] Zol::ZolType* fwkType() const override;
  static Zol::ZolType* _fwkType();
};

}  // namespace Hardware

// Access to devices on an SMBus.
namespace SmbusDexo {

// How a device on an SMBus is reached. All attributes are given at construction; all but `device`
// can change.
class ZOL_EXPORT DexoDesc : public Hardware::DexoDesc {
 public:
  class NotifieeConst;
  class Notifiee;
  class GenericIf_;
  class ZolNboAttrLogSa;
  class _Type;

  // The ids of the attributes, under their names.
  struct Id {
    enum : Zol::AttributeId {
#include "host/zol/stamp/stamp_ids.h"
#include "host/models/smbus_dexo_desc.def"
    };
  };

  // The arguments are stored as given, a null device included.
  DexoDesc(Zol::Name name, Zol::Ptr<Hardware::SmbusDevice> const& device,
           Hardware::LobusAccelId lobusAccelId, Hardware::SmbusId busId,
           Hardware::SmbusDeviceId deviceId, Hardware::SmbusAddrSize addrSize,
           bool writeNoStopReadCurrent, Hardware::SmbusDelay writeDelay,
           Hardware::SmbusDelay readDelay, bool bug30005ExtraDelays,
           Hardware::SmbusTimeout busTimeout, Hardware::LobusAgentId smbusAgentId);
  ~DexoDesc() override;

  // The device that is reached.
  [[nodiscard]] Zol::Ptr<Hardware::SmbusDevice> const& device() const { return read(device_); }
  // The accelerator that serves the bus.
  [[nodiscard]] Hardware::LobusAccelId lobusAccelId() const { return read(lobusAccelId_); }
  // The bus behind the accelerator.
  [[nodiscard]] Hardware::SmbusId busId() const { return read(busId_); }
  // The address of the device on the bus.
  [[nodiscard]] Hardware::SmbusDeviceId deviceId() const { return read(deviceId_); }
  // The size of the register address that a transfer begins with.
  [[nodiscard]] Hardware::SmbusAddrSize addrSize() const { return read(addrSize_); }
  // A read writes the register address without a stop and then reads at the current place.
  [[nodiscard]] bool writeNoStopReadCurrent() const { return read(writeNoStopReadCurrent_); }
  // The pause behind a write.
  [[nodiscard]] Hardware::SmbusDelay writeDelay() const { return read(writeDelay_); }
  // The pause behind a read.
  [[nodiscard]] Hardware::SmbusDelay readDelay() const { return read(readDelay_); }
  // A switch for further pauses; nothing here reads a meaning into it.
  [[nodiscard]] bool bug30005ExtraDelays() const { return read(bug30005ExtraDelays_); }
  // How long the device may hold the bus.
  [[nodiscard]] Hardware::SmbusTimeout busTimeout() const { return read(busTimeout_); }
  // The agent that drives the bus.
  [[nodiscard]] Hardware::LobusAgentId smbusAgentId() const { return read(smbusAgentId_); }

  [[nodiscard]] Zol::ZolType* fwkType() const override;
  [[nodiscard]] Zol::String8 attributeString(Zol::AttributeId id) const override;
  Zol::Ptr<Zol::Entity::ZolNboAttrLogSa> zolNboAttrLogSaIs(
      Zol_BitSet flags, unsigned int n, Zol::Ptr<Zol::NboAttrLog::Out> const& out,
      Zol::PtrInterface* msgChannelEntry) override;

  virtual void lobusAccelIdIs(Hardware::LobusAccelId value);
  virtual void busIdIs(Hardware::SmbusId value);
  virtual void deviceIdIs(Hardware::SmbusDeviceId value);
  virtual void addrSizeIs(Hardware::SmbusAddrSize value);
  virtual void writeNoStopReadCurrentIs(bool value);
  virtual void writeDelayIs(Hardware::SmbusDelay value);
  virtual void readDelayIs(Hardware::SmbusDelay value);
  virtual void bug30005ExtraDelaysIs(bool value);
  virtual void busTimeoutIs(Hardware::SmbusTimeout value);
  virtual void smbusAgentIdIs(Hardware::LobusAgentId value);

  static Zol::ZolType* _fwkType();

 private:
  friend class Zol::HashMap<DexoDesc, Zol::Name, DexoDesc>;
  friend class Zol::HashMapVTable<DexoDesc, Zol::Name>;

  Zol::Ptr<Hardware::SmbusDevice> device_;
  Hardware::LobusAccelId lobusAccelId_;
  Hardware::SmbusId busId_;
  Hardware::SmbusDeviceId deviceId_;
  Hardware::SmbusAddrSize addrSize_;
  bool writeNoStopReadCurrent_;
  Hardware::SmbusDelay writeDelay_;
  Hardware::SmbusDelay readDelay_;
  bool bug30005ExtraDelays_;
  Hardware::SmbusTimeout busTimeout_;
  Hardware::LobusAgentId smbusAgentId_;
  Zol::HashLink zolHashLink_;
};

class ZOL_EXPORT DexoDesc::NotifieeConst : public Zol::Entity::NotifieeConst {
 public:
  ~NotifieeConst() override;

  void notifierIs(Zol::Ptr<Zol::PtrInterface const> const& notifier) override;
  [[nodiscard]] Zol::Ptr<DexoDesc const> notifier() const;

#include "host/zol/stamp/stamp_slots.h"
#include "host/models/smbus_dexo_desc.def"
};

class ZOL_EXPORT DexoDesc::Notifiee : public DexoDesc::NotifieeConst {
 public:
  [[nodiscard]] Zol::Ptr<DexoDesc> notifier() const;
};

}  // namespace SmbusDexo

// Access to devices on an I2C bus.
namespace I2cDexo {

// How a device on an I2C bus is reached. Nothing of it changes.
class ZOL_EXPORT DexoDesc : public Hardware::DexoDesc {
 public:
  class NotifieeConst;
  class Notifiee;
  class GenericIf_;
  class ZolNboAttrLogSa;
  class _Type;

  // The ids of the attributes, under their names.
  struct Id {
    enum : Zol::AttributeId {
#include "host/zol/stamp/stamp_ids.h"
#include "host/models/i2c_dexo_desc.def"
    };
  };

  // The arguments are stored as given.
  DexoDesc(Zol::Name name, unsigned char busId, unsigned char device);
  ~DexoDesc() override;

  // The number of the bus, 0 to 255.
  [[nodiscard]] unsigned char busId() const { return read(busId_); }
  // The address of the device on the bus.
  [[nodiscard]] unsigned char device() const { return read(device_); }

  [[nodiscard]] Zol::ZolType* fwkType() const override;
  [[nodiscard]] Zol::String8 attributeString(Zol::AttributeId id) const override;
  Zol::Ptr<Zol::Entity::ZolNboAttrLogSa> zolNboAttrLogSaIs(
      Zol_BitSet flags, unsigned int n, Zol::Ptr<Zol::NboAttrLog::Out> const& out,
      Zol::PtrInterface* msgChannelEntry) override;

  static Zol::ZolType* _fwkType();

 private:
  unsigned char busId_;
  unsigned char device_;
};

class ZOL_EXPORT DexoDesc::NotifieeConst : public Zol::Entity::NotifieeConst {
 public:
  ~NotifieeConst() override;

  void notifierIs(Zol::Ptr<Zol::PtrInterface const> const& notifier) override;
  [[nodiscard]] Zol::Ptr<DexoDesc const> notifier() const;
};

class ZOL_EXPORT DexoDesc::Notifiee : public DexoDesc::NotifieeConst {
 public:
  [[nodiscard]] Zol::Ptr<DexoDesc> notifier() const;
};

}  // namespace I2cDexo
