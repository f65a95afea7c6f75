// The configuration of one power controller, common to all chips.
#pragma once

#include <cstdint>

#include "entities/forward.h"
#include "host/models/power_controller.h"
#include "values/enumerations.h"

namespace Hardware::Ucd9012 {

// What is wanted of one controller. Its chip shows in the derived class: `Ucd9012ControllerConfig`,
// `Ucd9032ControllerConfig`, `PsocControllerConfig`; those add no attribute.
//
// A mutator `<attr>Is( value )` with the present value does nothing. Otherwise it stores the value,
// adds 1 to the mutation counter and tells each listener through `on<Attr>()`. It refuses no value
// and throws nothing of its own. Reading through an accessor adds 1 to the read counter.
class ZOL_EXPORT ControllerConfig : public Hardware::PowerController::ControllerConfig {
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

  // All arguments are stored as given, null references included.
  ControllerConfig(Zol::Name name, Zol::Name customerName,
                   Zol::Ptr<Hardware::DexoDesc> const& dexoDesc,
                   Zol::Ptr<Hardware::Gpio::PinConfig> const& resetGpioPinConfig,
                   Zol::Ptr<Hardware::Gpio::PinStatus const> const& resetGpioPinStatus);
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

  // Orders this controller's reload causes among those of others; stored for the agents.
  [[nodiscard]] std::uint32_t reloadCauseSortKey() const { return read(reloadCauseSortKey_); }
  virtual void reloadCauseSortKeyIs(std::uint32_t value);

  // The mode asked for.
  [[nodiscard]] OperationalMode operationalMode() const { return read(operationalMode_); }
  virtual void operationalModeIs(OperationalMode value);

  // Shutdown is enabled; true at first.
  [[nodiscard]] bool shutdownEnabled() const { return read(shutdownEnabled_); }
  virtual void shutdownEnabledIs(bool value);

  // False stops the agent's reads of the controller; true at first.
  [[nodiscard]] bool pollingEnabled() const { return read(pollingEnabled_); }
  virtual void pollingEnabledIs(bool value);

  // The configuration is complete.
  [[nodiscard]] bool configReady() const { return read(configReady_); }
  virtual void configReadyIs(bool value);

  [[nodiscard]] Zol::String8 modelName() const { return read(modelName_); }
  virtual void modelNameIs(Zol::String8 value);

  [[nodiscard]] Zol::String8 description() const { return read(description_); }
  virtual void descriptionIs(Zol::String8 value);

  // The controller is ready.
  [[nodiscard]] bool ready() const { return read(ready_); }
  virtual void readyIs(bool value);

  // Debug switch for power-off.
  [[nodiscard]] bool debugPowerOff() const { return read(debugPowerOff_); }
  virtual void debugPowerOffIs(bool value);

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
