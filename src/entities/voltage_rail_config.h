// One voltage rail of a controller.
#pragma once

#include <cstdint>

#include "entities/forward.h"
#include "host/models/units.h"
#include "host/zol/attribute_rules.h"
#include "host/zol/rb_tree_map.h"

namespace Hardware::Ucd9012 {

// A rail that a controller sequences: its two entities in the environment model, three limits that
// can override those of the sequencer, and its sensor. It owns none of the entities it refers to.
// Its name is empty; it is known by its number.
//
// A mutator `<attr>Is( value )` with the present value does nothing. Otherwise it stores the value,
// adds 1 to the mutation counter and tells each listener through `on<Attr>()`. No value is refused;
// a limit that is not a number never equals the present one.
class ZOL_EXPORT VoltageRailConfig final : public Zol::AttributeRules<Zol::Entity> {
 public:
  class NotifieeConst;
  class Notifiee;
  class GenericIf_;
  class _Type;
  class ZolNboAttrLogSa;

  struct Id {
    enum : Zol::AttributeId {
#include "host/zol/stamp/stamp_ids.h"
#include "schema/voltage_rail_config.def"
    };
  };

  // All arguments are stored as given, null references included.
  VoltageRailConfig(std::uint8_t id,
                    Zol::Ptr<Environment::Power::VoltageRailConfig> const& voltageRailEnvConfig,
                    Zol::Ptr<Environment::Power::VoltageRailStatus> const& voltageRailEnvStatus);
  ~VoltageRailConfig() override;

  static Zol::ZolType* _fwkType();
  [[nodiscard]] Zol::ZolType* fwkType() const override;
  [[nodiscard]] Zol::String8 attributeString(Zol::AttributeId id) const override;

  [[nodiscard]] bool zolHasAttrLogInterface() const override;
  Zol::Ptr<Zol::Entity::ZolNboAttrLogSa> zolNboAttrLogSaIs(
      Zol_BitSet flags, unsigned int n, Zol::Ptr<Zol::NboAttrLog::Out> const& out,
      Zol::PtrInterface* msgChannelEntry) override;

  // The key under which a controller holds this rail.
  [[nodiscard]] std::uint8_t zolKey() const noexcept { return id_; }

  // The number of the rail in its controller.
  [[nodiscard]] std::uint8_t id() const { return read(id_); }
  // The configuration of the rail in the environment model, as given at construction.
  [[nodiscard]] Zol::Ptr<Environment::Power::VoltageRailConfig> const& voltageRailEnvConfig()
      const {
    return read(voltageRailEnvConfig_);
  }
  // The status of the rail in the environment model, as given at construction.
  [[nodiscard]] Zol::Ptr<Environment::Power::VoltageRailStatus> const& voltageRailEnvStatus()
      const {
    return read(voltageRailEnvStatus_);
  }

  // Override of the output under-voltage limit; negative infinity, the default, for none.
  [[nodiscard]] Units::Volts overrideVoutUvLimit() const { return read(overrideVoutUvLimit_); }
  void overrideVoutUvLimitIs(Units::Volts const& value);

  // Override of the output over-voltage limit; negative infinity for none.
  [[nodiscard]] Units::Volts overrideVoutOvLimit() const { return read(overrideVoutOvLimit_); }
  void overrideVoutOvLimitIs(Units::Volts const& value);

  // Override of the level at which the power is no longer good; negative infinity for none.
  [[nodiscard]] Units::Volts overridePowerGoodOff() const { return read(overridePowerGoodOff_); }
  void overridePowerGoodOffIs(Units::Volts const& value);

  // The sensor of the rail, or null.
  [[nodiscard]] Zol::Ptr<EntityMib::Sensor> const& sensorMib() const { return read(sensorMib_); }
  void sensorMibIs(Zol::Ptr<EntityMib::Sensor> const& value);

 private:
  friend class Zol::RbTreeMap<VoltageRailConfig, std::uint8_t, VoltageRailConfig>;

  std::uint8_t id_;
  Zol::Ptr<Environment::Power::VoltageRailConfig> voltageRailEnvConfig_;
  Zol::Ptr<Environment::Power::VoltageRailStatus> voltageRailEnvStatus_;
#include "host/zol/stamp/stamp_fields.h"
#include "schema/voltage_rail_config.def"
  Zol::RbTreeLink zolTreeLink_;
};

// The slots: `on<Attr>()` for each attribute that can change.
class ZOL_EXPORT VoltageRailConfig::NotifieeConst : public Zol::Entity::NotifieeConst {
 public:
  ~NotifieeConst() override;
  void notifierIs(Zol::Ptr<Zol::PtrInterface const> const& notifier) override;
  [[nodiscard]] Zol::Ptr<VoltageRailConfig const> notifier() const;

#include "host/zol/stamp/stamp_slots.h"
#include "schema/voltage_rail_config.def"
};

class ZOL_EXPORT VoltageRailConfig::Notifiee : public VoltageRailConfig::NotifieeConst {
 public:
  [[nodiscard]] Zol::Ptr<VoltageRailConfig> notifier() const;
};

}  // namespace Hardware::Ucd9012
