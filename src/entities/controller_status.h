// The status of one power controller, common to all chips.
#pragma once

#include <cstdint>

#include "entities/entity_rules.h"
#include "entities/ucd9012_diag_status.h"
#include "host/models/power_controller.h"
#include "host/models/units.h"
#include "values/enumerations.h"

namespace Hardware::Ucd9012 {

// What an agent reports about one controller. Its chip shows in the derived class:
// `Ucd9012ControllerStatus`, `Ucd9032ControllerStatus`, `PsocControllerStatus`; those add no
// attribute.
//
// A mutator `<attr>Is( value )` with the present value does nothing. Otherwise it stores the value,
// adds 1 to the mutation counter and tells each listener through `on<Attr>()`. It refuses no value
// and throws nothing of its own. Reading through an accessor adds 1 to the read counter. Children
// and collections follow the rules told at `ControllerConfig`.
class ZOL_EXPORT ControllerStatus
    : public EntityRules<Hardware::PowerController::ControllerStatus> {
 public:
  class NotifieeConst;
  class Notifiee;
  class GenericIf_;
  class _Type;
  class ZolNboAttrLogSa;

  struct Id {
    enum : Zol::AttributeId {
#include "host/zol/stamp/stamp_ids.h"
#include "schema/controller_status.def"
    };
  };

  using DiagModeStatusMap = Zol::HashMap<Ucd9012DiagStatus, Zol::Name, Ucd9012DiagStatus>;

  // A controller about which nothing has been reported yet.
  explicit ControllerStatus(Zol::Name name);
  // Takes out all children first, and tells of each.
  ~ControllerStatus() override;

  static Zol::ZolType* _fwkType();
  [[nodiscard]] Zol::ZolType* fwkType() const override;
  [[nodiscard]] Zol::String8 attributeString(Zol::AttributeId id) const override;

  [[nodiscard]] bool zolHasAttrLogInterface() const override;
  Zol::Ptr<Zol::Entity::ZolNboAttrLogSa> zolNboAttrLogSaIs(
      Zol_BitSet flags, unsigned int n, Zol::Ptr<Zol::NboAttrLog::Out> const& out,
      Zol::PtrInterface* msgChannelEntry) override;

  // The outcome of the diagnostic command under way, or null.
  [[nodiscard]] Zol::Ptr<Ucd9012DiagStatus> diagCommandStatus() const;
  virtual Zol::Ptr<Ucd9012DiagStatus> diagCommandStatusDel();
  virtual Zol::ValidPtr<Ucd9012DiagStatus> diagCommandStatusIs(Zol::Name name);
  Zol::Ptr<Ucd9012DiagStatus> newDiagCommandStatus(Zol::Name name);

  // The mode in force.
  [[nodiscard]] OperationalMode operationalMode() const { return read(operationalMode_); }
  virtual void operationalModeIs(OperationalMode value);

  // Negative infinity, the default, as long as there is no reading. A value that is not a number
  // counts as a change each time.
  [[nodiscard]] Units::Celsius temperature() const { return read(temperature_); }
  virtual void temperatureIs(Units::Celsius const& value);

  // The request for voltage readings of the configuration side that has been served last.
  [[nodiscard]] std::uint32_t generationIdReadVoltage() const {
    return read(generationIdReadVoltage_);
  }
  virtual void generationIdReadVoltageIs(std::uint32_t value);

  // The same for the temperature.
  [[nodiscard]] std::uint32_t generationIdTemperature() const {
    return read(generationIdTemperature_);
  }
  virtual void generationIdTemperatureIs(std::uint32_t value);

  // What the last reset was.
  [[nodiscard]] Zol::String8 resetDescription() const { return read(resetDescription_); }
  virtual void resetDescriptionIs(Zol::String8 value);

  // The firmware's date of manufacture.
  [[nodiscard]] Zol::String8 firmwareMfrDate() const { return read(firmwareMfrDate_); }
  virtual void firmwareMfrDateIs(Zol::String8 value);

  [[nodiscard]] Zol::String8 firmwareVersion() const { return read(firmwareVersion_); }
  virtual void firmwareVersionIs(Zol::String8 value);

  // The hardware is ready.
  [[nodiscard]] bool hwReady() const { return read(hwReady_); }
  virtual void hwReadyIs(bool value);

  // What the kernel-panic EEPROM says about the last reload.
  [[nodiscard]] KernelPanicEepromStatus reloadDueToKernelPanic() const {
    return read(reloadDueToKernelPanic_);
  }
  virtual void reloadDueToKernelPanicIs(KernelPanicEepromStatus value);

  // The EEPROM's record has been cleared.
  [[nodiscard]] bool kernelPanicEepromCleared() const { return read(kernelPanicEepromCleared_); }
  virtual void kernelPanicEepromClearedIs(bool value);

  // Outcomes of diagnostic modes by name.
  [[nodiscard]] Zol::Ptr<Ucd9012DiagStatus> diagModeStatus(Zol::Name name) const;
  virtual Zol::Ptr<Ucd9012DiagStatus> diagModeStatusDel(Zol::Name name);
  virtual Zol::Ptr<Ucd9012DiagStatus> diagModeStatusDel(DiagModeStatusMap::Iterator& iterator);
  virtual void diagModeStatusNotify(Zol::Name name);
  virtual Zol::ValidPtr<Ucd9012DiagStatus> diagModeStatusIs(Zol::Name name);
  Zol::Ptr<Ucd9012DiagStatus> newDiagModeStatus(Zol::Name name);
  void diagModeStatusDelAll();

#include "host/zol/stamp/stamp_walks.h"
#include "schema/controller_status.def"

 private:
#include "host/zol/stamp/stamp_fields.h"
#include "schema/controller_status.def"
};

// The slots of a controller's listeners: `on<Attr>()` for each attribute, and for a keyed attribute
// `on<Attr>( key )`. A slot that is not overridden does nothing.
class ZOL_EXPORT ControllerStatus::NotifieeConst
    : public Hardware::PowerController::ControllerStatus::NotifieeConst {
 public:
  static char const kListenerClass;

  NotifieeConst();
  ~NotifieeConst() override;

  // Null when the notifier is no controller of this model.
  [[nodiscard]] Zol::Ptr<ControllerStatus const> notifier() const;
  [[nodiscard]] static bool isListener(Zol::Entity::NotifieeConst const& listener) noexcept {
    return listener.zolListenerClass() == &kListenerClass;
  }

#include "host/zol/stamp/stamp_slots.h"
#include "schema/controller_status.def"
};

class ZOL_EXPORT ControllerStatus::Notifiee : public ControllerStatus::NotifieeConst {
 public:
  [[nodiscard]] Zol::Ptr<ControllerStatus> notifier() const;
};

}  // namespace Hardware::Ucd9012
