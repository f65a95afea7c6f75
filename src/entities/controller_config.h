// The configuration of one power controller, common to all chips.
#pragma once

#include <cstdint>

#include "entities/entity_rules.h"
#include "entities/ucd9012_diag_config.h"
#include "entities/ucd9012_diag_mode_config.h"
#include "entities/voltage_rail_config.h"
#include "host/models/dexo_desc.h"
#include "host/models/power_controller.h"
#include "values/external_voltage_rail.h"
#include "values/page_fault_cause.h"
#include "values/psoc_cause.h"
#include "values/ucd_cause.h"

namespace Hardware::Ucd9012 {

// What is wanted of one controller. Its chip shows in the derived class: `Ucd9012ControllerConfig`,
// `Ucd9032ControllerConfig`, `PsocControllerConfig`; those add no attribute.
//
// A mutator `<attr>Is( value )` with the present value does nothing. Otherwise it stores the value,
// adds 1 to the mutation counter and tells each listener through `on<Attr>()`. It refuses no value
// and throws nothing of its own. Reading through an accessor adds 1 to the read counter.
//
// Rails and diagnostic modes are made, taken out and walked as the members of a root's collections
// (`Config`). A rail that exists under the number must have been made with the same two entities,
// or `voltageRailIs` throws `NameInUseException` ("Reinstantiating the entity with name ...").
//
// A child singleton: `<attr>Is( name, ... )` keeps the child if it was made with the same
// arguments, counts one mutation and tells nobody; any other child is replaced by a new one, which
// counts two mutations and tells once. `<attr>Del()` takes it out and gives it, or null.
//
// A collection of values: `<attr>( key )` gives the value, or the default for an absent key.
// `<attr>Is( key, value )` stores it; an equal one changes nothing. `<attr>Del( key )` and
// `<attr>Del( iterator )` take it out and give it. A change of one value counts one mutation and
// tells each listener through `on<Attr>( key )`.
class ZOL_EXPORT ControllerConfig
    : public EntityRules<Hardware::PowerController::ControllerConfig> {
 public:
  class NotifieeConst;
  class Notifiee;
  class GenericIf_;
  class _Type;
  class ZolNboAttrLogSa;

  struct Id {
    enum : Zol::AttributeId {
#include "host/zol/stamp/stamp_ids.h"
#include "schema/controller_config.def"
    };
  };

  // The entries of the collections of values.
  class ZolReloadCause final : public Zol::OrderedValueEntry<std::uint32_t, UcdCause> {
    using OrderedValueEntry::OrderedValueEntry;
  };
  class ZolPsocReloadCause final : public Zol::OrderedValueEntry<std::uint32_t, PsocCause> {
    using OrderedValueEntry::OrderedValueEntry;
  };
  class ZolPageFaultCause final
      : public Zol::OrderedValueEntry<std::uint32_t, Hardware::Ucd9012::PageFaultCause> {
    using OrderedValueEntry::OrderedValueEntry;
  };
  class ZolExternalVoltageRail final
      : public Zol::HashedValueEntry<std::uint32_t, Hardware::Ucd9012::ExternalVoltageRail> {
    using HashedValueEntry::HashedValueEntry;
  };

  using VoltageRailMap = Zol::RbTreeMap<VoltageRailConfig, std::uint8_t, VoltageRailConfig>;
  using ReloadCauseMap = Zol::RbTreeMap<ZolReloadCause, std::uint32_t, UcdCause>;
  using PsocReloadCauseMap = Zol::RbTreeMap<ZolPsocReloadCause, std::uint32_t, PsocCause>;
  using PageFaultCauseMap =
      Zol::RbTreeMap<ZolPageFaultCause, std::uint32_t, Hardware::Ucd9012::PageFaultCause>;
  using ExternalVoltageRailMap =
      Zol::HashMap<ZolExternalVoltageRail, std::uint32_t, Hardware::Ucd9012::ExternalVoltageRail>;
  using DiagModeConfigMap = Zol::HashMap<Ucd9012DiagModeConfig, Zol::Name, Ucd9012DiagModeConfig>;

  // All arguments are stored as given, null references included.
  ControllerConfig(Zol::Name name, Zol::Name customerName,
                   Zol::Ptr<Hardware::DexoDesc> const& dexoDesc,
                   Zol::Ptr<Hardware::Gpio::PinConfig> const& resetGpioPinConfig,
                   Zol::Ptr<Hardware::Gpio::PinStatus const> const& resetGpioPinStatus);
  // Takes out all children first, and tells of each.
  ~ControllerConfig() override;

  static Zol::ZolType* _fwkType();
  [[nodiscard]] Zol::ZolType* fwkType() const override;
  [[nodiscard]] Zol::String8 attributeString(Zol::AttributeId id) const override;

  [[nodiscard]] bool zolHasAttrLogInterface() const override;
  Zol::Ptr<Zol::Entity::ZolNboAttrLogSa> zolNboAttrLogSaIs(
      Zol_BitSet flags, unsigned int n, Zol::Ptr<Zol::NboAttrLog::Out> const& out,
      Zol::PtrInterface* msgChannelEntry) override;

  // A request for fresh voltage readings; the status side shows the same number once it is served.
  [[nodiscard]] std::uint32_t generationIdReadVoltage() const {
    return read(generationIdReadVoltage_);
  }
  virtual void generationIdReadVoltageIs(std::uint32_t value);

  // The same for the temperature.
  [[nodiscard]] std::uint32_t generationIdTemperature() const {
    return read(generationIdTemperature_);
  }
  virtual void generationIdTemperatureIs(std::uint32_t value);

  // This controller is the main one of its board.
  [[nodiscard]] bool isMainController() const { return read(isMainController_); }
  virtual void isMainControllerIs(bool value);

  // Where the controller sits.
  [[nodiscard]] Zol::String8 location() const { return read(location_); }
  virtual void locationIs(Zol::String8 value);

  // The rails that the controller sequences, in the order of their numbers, 0 to 255. Each rail is
  // made with its two entities of the environment model; one that exists must have been made with
  // the same two, or `voltageRailIs` throws `NameInUseException`.
  [[nodiscard]] Zol::Ptr<VoltageRailConfig> voltageRail(std::uint8_t id) const;
  virtual Zol::Ptr<VoltageRailConfig> voltageRailDel(std::uint8_t id);
  virtual Zol::Ptr<VoltageRailConfig> voltageRailDel(VoltageRailMap::Iterator& iterator);
  virtual void voltageRailNotify(std::uint8_t id);
  virtual Zol::ValidPtr<VoltageRailConfig> voltageRailIs(
      std::uint8_t id, Zol::Ptr<Environment::Power::VoltageRailConfig> const& voltageRailEnvConfig,
      Zol::Ptr<Environment::Power::VoltageRailStatus> const& voltageRailEnvStatus);
  Zol::Ptr<VoltageRailConfig> newVoltageRail(
      std::uint8_t id, Zol::Ptr<Environment::Power::VoltageRailConfig> const& voltageRailEnvConfig,
      Zol::Ptr<Environment::Power::VoltageRailStatus> const& voltageRailEnvStatus);
  void voltageRailDelAll();

  // Orders this controller's reload causes among those of others; stored for the agents.
  [[nodiscard]] std::uint32_t reloadCauseSortKey() const { return read(reloadCauseSortKey_); }
  virtual void reloadCauseSortKeyIs(std::uint32_t value);

  // How an input of a UCD sequencer stands for a reload cause. In the order of the keys.
  [[nodiscard]] UcdCause reloadCause(std::uint32_t key) const;
  virtual UcdCause reloadCauseDel(std::uint32_t key);
  virtual UcdCause reloadCauseDel(ReloadCauseMap::Iterator& iterator);
  virtual void reloadCauseNotify(std::uint32_t key);
  virtual void reloadCauseIs(std::uint32_t key, UcdCause const& value);
  Zol::Ptr<ZolReloadCause> newReloadCause(std::uint32_t key, UcdCause const& value);
  void reloadCauseDelAll();

  // How a bit that a PSoC reports stands for a reload cause. In the order of the keys.
  [[nodiscard]] PsocCause psocReloadCause(std::uint32_t key) const;
  virtual PsocCause psocReloadCauseDel(std::uint32_t key);
  virtual PsocCause psocReloadCauseDel(PsocReloadCauseMap::Iterator& iterator);
  virtual void psocReloadCauseNotify(std::uint32_t key);
  virtual void psocReloadCauseIs(std::uint32_t key, PsocCause const& value);
  Zol::Ptr<ZolPsocReloadCause> newPsocReloadCause(std::uint32_t key, PsocCause const& value);
  void psocReloadCauseDelAll();

  // How the fault bits of a source stand for a reload cause. In the order of the keys.
  [[nodiscard]] PageFaultCause pageFaultCause(std::uint32_t key) const;
  virtual PageFaultCause pageFaultCauseDel(std::uint32_t key);
  virtual PageFaultCause pageFaultCauseDel(PageFaultCauseMap::Iterator& iterator);
  virtual void pageFaultCauseNotify(std::uint32_t key);
  virtual void pageFaultCauseIs(std::uint32_t key, PageFaultCause const& value);
  Zol::Ptr<ZolPageFaultCause> newPageFaultCause(std::uint32_t key, PageFaultCause const& value);
  void pageFaultCauseDelAll();

  // Rails outside the controller, with the kind of fault that each stands for. An absent key reads
  // as a record of zeros, as a stored one of zeros does.
  [[nodiscard]] Hardware::Ucd9012::ExternalVoltageRail externalVoltageRail(std::uint32_t key) const;
  virtual Hardware::Ucd9012::ExternalVoltageRail externalVoltageRailDel(std::uint32_t key);
  virtual Hardware::Ucd9012::ExternalVoltageRail externalVoltageRailDel(
      ExternalVoltageRailMap::Iterator& iterator);
  virtual void externalVoltageRailNotify(std::uint32_t key);
  virtual void externalVoltageRailIs(std::uint32_t key,
                                     Hardware::Ucd9012::ExternalVoltageRail value);
  Zol::Ptr<ZolExternalVoltageRail> newExternalVoltageRail(
      std::uint32_t key, Hardware::Ucd9012::ExternalVoltageRail value);
  void externalVoltageRailDelAll();

  // The mode asked for.
  [[nodiscard]] OperationalMode operationalMode() const { return read(operationalMode_); }
  virtual void operationalModeIs(OperationalMode value);

  // The diagnostic command under way, or null.
  [[nodiscard]] Zol::Ptr<Ucd9012DiagConfig> diagCommandConfig() const;
  virtual Zol::Ptr<Ucd9012DiagConfig> diagCommandConfigDel();
  virtual Zol::ValidPtr<Ucd9012DiagConfig> diagCommandConfigIs(Zol::Name name);
  Zol::Ptr<Ucd9012DiagConfig> newDiagCommandConfig(Zol::Name name);

  // Diagnostic modes by name.
  [[nodiscard]] Zol::Ptr<Ucd9012DiagModeConfig> diagModeConfig(Zol::Name name) const;
  virtual Zol::Ptr<Ucd9012DiagModeConfig> diagModeConfigDel(Zol::Name name);
  virtual Zol::Ptr<Ucd9012DiagModeConfig> diagModeConfigDel(DiagModeConfigMap::Iterator& iterator);
  virtual void diagModeConfigNotify(Zol::Name name);
  virtual Zol::ValidPtr<Ucd9012DiagModeConfig> diagModeConfigIs(Zol::Name name);
  Zol::Ptr<Ucd9012DiagModeConfig> newDiagModeConfig(Zol::Name name);
  void diagModeConfigDelAll();

  // How the EEPROM with the records of kernel panics is reached, or null.
  [[nodiscard]] Zol::Ptr<I2cDexo::DexoDesc> kernelPanicEepromDexo() const;
  virtual Zol::Ptr<I2cDexo::DexoDesc> kernelPanicEepromDexoDel();
  virtual Zol::ValidPtr<I2cDexo::DexoDesc> kernelPanicEepromDexoIs(Zol::Name name,
                                                                   std::uint8_t busId,
                                                                   std::uint8_t device);
  Zol::Ptr<I2cDexo::DexoDesc> newKernelPanicEepromDexo(Zol::Name name, std::uint8_t busId,
                                                       std::uint8_t device);

  // The output that write-protects that EEPROM, or null.
  [[nodiscard]] Zol::Ptr<Fru::Gpo> const& kernelPanicEepromWp() const {
    return read(kernelPanicEepromWp_);
  }
  virtual void kernelPanicEepromWpIs(Zol::Ptr<Fru::Gpo> const& value);

  // Shutdown is enabled; true at first.
  [[nodiscard]] bool shutdownEnabled() const { return read(shutdownEnabled_); }
  virtual void shutdownEnabledIs(bool value);

  // False stops the agent's reads of the controller; true at first.
  [[nodiscard]] bool pollingEnabled() const { return read(pollingEnabled_); }
  virtual void pollingEnabledIs(bool value);

  // The configuration is complete.
  [[nodiscard]] bool configReady() const { return read(configReady_); }
  virtual void configReadyIs(bool value);

  // The name of the controller's model.
  [[nodiscard]] Zol::String8 modelName() const { return read(modelName_); }
  virtual void modelNameIs(Zol::String8 value);

  // A description for people.
  [[nodiscard]] Zol::String8 description() const { return read(description_); }
  virtual void descriptionIs(Zol::String8 value);

  // The controller is ready.
  [[nodiscard]] bool ready() const { return read(ready_); }
  virtual void readyIs(bool value);

  // Debug switch for power-off.
  [[nodiscard]] bool debugPowerOff() const { return read(debugPowerOff_); }
  virtual void debugPowerOffIs(bool value);

#include "host/zol/stamp/stamp_walks.h"
#include "schema/controller_config.def"

 private:
#include "host/zol/stamp/stamp_fields.h"
#include "schema/controller_config.def"
};

// The slots of a controller's listeners: `on<Attr>()` for each attribute, and for a keyed attribute
// `on<Attr>( key )`. A slot that is not overridden does nothing.
class ZOL_EXPORT ControllerConfig::NotifieeConst
    : public Hardware::PowerController::ControllerConfig::NotifieeConst {
 public:
  static char const kListenerClass;

  NotifieeConst();
  ~NotifieeConst() override;

  // Null when the notifier is no controller of this model.
  [[nodiscard]] Zol::Ptr<ControllerConfig const> notifier() const;
  [[nodiscard]] static bool isListener(Zol::Entity::NotifieeConst const& listener) noexcept {
    return listener.zolListenerClass() == &kListenerClass;
  }

#include "host/zol/stamp/stamp_slots.h"
#include "schema/controller_config.def"
};

class ZOL_EXPORT ControllerConfig::Notifiee : public ControllerConfig::NotifieeConst {
 public:
  [[nodiscard]] Zol::Ptr<ControllerConfig> notifier() const;
};

}  // namespace Hardware::Ucd9012
