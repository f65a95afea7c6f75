// The base model of power controllers of any make: what is wanted of a controller, and what it
// reports.
#pragma once

#include <type_traits>

#include "host/zol/attribute_rules.h"
#include "host/zol/ptr.h"

namespace Hardware {

class DexoDesc;

namespace Gpio {
class PinConfig;
class PinStatus;
}  // namespace Gpio

// The base model of power controllers of any make.
namespace PowerController {

// What is wanted of a controller.
class ZOL_EXPORT ControllerConfig : public Zol::AttributeRules<Zol::Entity> {
 public:
  class NotifieeConst;
  class Notifiee;
  class GenericIf_;
  class ZolNboAttrLogSa;
  class _Type;

  // The state that the controller is wanted in.
  enum class ControllerState : unsigned int {
#include "host/zol/stamp/stamp_enumerators.h"
#include "host/models/controller_config_state.def"
  };

  // The ids of the attributes, under their names.
  struct Id {
    enum : Zol::AttributeId {
#include "host/zol/stamp/stamp_ids.h"
#include "host/models/power_controller_config.def"
    };
  };

  // The arguments are stored as given, null references included.
  ControllerConfig(Zol::Name name, Zol::Name customerName,
                   Zol::Ptr<Hardware::DexoDesc> const& dexoDesc,
                   Zol::Ptr<Hardware::Gpio::PinConfig> const& resetGpioPinConfig,
                   Zol::Ptr<Hardware::Gpio::PinStatus const> const& resetGpioPinStatus);
  ~ControllerConfig() override;

  // The enumerator of a number; throws `RangeException` "ControllerState" for a number that has
  // none.
  static ControllerState ControllerStateInstance(unsigned int number);
  // The type object of `ControllerState`.
  static Zol::ZolType* _fwkType_ControllerState();

  // The name that those who use the controller know it by.
  [[nodiscard]] Zol::Name const& customerName() const { return read(customerName_); }
  // How the controller is reached on its bus.
  [[nodiscard]] Zol::Ptr<Hardware::DexoDesc> const& dexoDesc() const { return read(dexoDesc_); }
  // The pin that resets the controller, as it is set.
  [[nodiscard]] Zol::Ptr<Hardware::Gpio::PinConfig> const& resetGpioPinConfig() const {
    return read(resetGpioPinConfig_);
  }
  // The same pin, as it is read.
  [[nodiscard]] Zol::Ptr<Hardware::Gpio::PinStatus const> const& resetGpioPinStatus() const {
    return read(resetGpioPinStatus_);
  }
  // Whether the controller starts its power program by itself.
  [[nodiscard]] bool autoStartPowerProgram() const { return read(autoStartPowerProgram_); }
  // The state that the controller is wanted in.
  [[nodiscard]] ControllerState controllerState() const { return read(controllerState_); }

  [[nodiscard]] Zol::ZolType* fwkType() const override;
  [[nodiscard]] Zol::String8 attributeString(Zol::AttributeId id) const override;

  virtual void autoStartPowerProgramIs(bool value);
  virtual void controllerStateIs(ControllerState value);

  static Zol::ZolType* _fwkType();

 private:
  Zol::Name customerName_;
  Zol::Ptr<Hardware::DexoDesc> dexoDesc_;
  Zol::Ptr<Hardware::Gpio::PinConfig> resetGpioPinConfig_;
  Zol::Ptr<Hardware::Gpio::PinStatus const> resetGpioPinStatus_;
  bool autoStartPowerProgram_ = false;
  ControllerState controllerState_ = ControllerState::unspecified;
};

// A class below `ControllerConfig` keeps its listeners in the same list. Its `NotifieeConst` marks
// them, so that they are told from those that only know this class (see `Zol::listenerCast`):
//
//   static char const kListenerClass;
//   NotifieeConst() : Base(&kListenerClass) {}
//   static bool isListener(Zol::Entity::NotifieeConst const& listener) {
//     return listener.zolListenerClass() == &kListenerClass;
//   }
class ZOL_EXPORT ControllerConfig::NotifieeConst : public Zol::Entity::NotifieeConst {
 public:
  NotifieeConst() = default;
  ~NotifieeConst() override;

  void notifierIs(Zol::Ptr<Zol::PtrInterface const> const& notifier) override;
  [[nodiscard]] Zol::Ptr<ControllerConfig const> notifier() const;

#include "host/zol/stamp/stamp_slots.h"
#include "host/models/power_controller_config.def"

 protected:
  explicit NotifieeConst(void const* listenerClass) { listenerClass_ = listenerClass; }
};

class ZOL_EXPORT ControllerConfig::Notifiee : public ControllerConfig::NotifieeConst {
 public:
  [[nodiscard]] Zol::Ptr<ControllerConfig> notifier() const;
};

// What a controller reports.
class ZOL_EXPORT ControllerStatus : public Zol::AttributeRules<Zol::Entity> {
 public:
  class NotifieeConst;
  class Notifiee;
  class GenericIf_;
  class ZolNboAttrLogSa;
  class _Type;

  // The state that the controller is in.
  enum class ControllerState : unsigned int {
#include "host/zol/stamp/stamp_enumerators.h"
#include "host/models/controller_status_state.def"
  };

  // The ids of the attributes, under their names.
  struct Id {
    enum : Zol::AttributeId {
#include "host/zol/stamp/stamp_ids.h"
#include "host/models/power_controller_status.def"
    };
  };

  // A controller in state `unknown`, with an empty version.
  explicit ControllerStatus(Zol::Name name);
  ~ControllerStatus() override;

  // The enumerator of a number; throws `RangeException` "ControllerState" for a number that has
  // none.
  static ControllerState ControllerStateInstance(unsigned int number);
  // The type object of `ControllerState`.
  static Zol::ZolType* _fwkType_ControllerState();

  // The state that the controller is in.
  [[nodiscard]] ControllerState controllerState() const { return read(controllerState_); }
  // The version that the controller reports of itself.
  [[nodiscard]] Zol::String8 const& controllerVersion() const { return read(controllerVersion_); }

  [[nodiscard]] Zol::ZolType* fwkType() const override;
  [[nodiscard]] Zol::String8 attributeString(Zol::AttributeId id) const override;

  virtual void controllerStateIs(ControllerState value);
  virtual void controllerVersionIs(Zol::String8 value);

  static Zol::ZolType* _fwkType();

 private:
  ControllerState controllerState_ = ControllerState::unknown;
  Zol::String8 controllerVersion_;
};

// A class below `ControllerStatus` marks its listeners as those of `ControllerConfig` do.
class ZOL_EXPORT ControllerStatus::NotifieeConst : public Zol::Entity::NotifieeConst {
 public:
  NotifieeConst() = default;
  ~NotifieeConst() override;

  void notifierIs(Zol::Ptr<Zol::PtrInterface const> const& notifier) override;
  [[nodiscard]] Zol::Ptr<ControllerStatus const> notifier() const;

#include "host/zol/stamp/stamp_slots.h"
#include "host/models/power_controller_status.def"

 protected:
  explicit NotifieeConst(void const* listenerClass) { listenerClass_ = listenerClass; }
};

class ZOL_EXPORT ControllerStatus::Notifiee : public ControllerStatus::NotifieeConst {
 public:
  [[nodiscard]] Zol::Ptr<ControllerStatus> notifier() const;
};

// The text form: the enumerator's text in apostrophes. A text that is none throws `RangeException`
// "ControllerState".
ZOL_EXPORT Zol::String8 valueToStrep(ControllerConfig::ControllerState value);
ZOL_EXPORT Zol::String8 valueToStrep(ControllerStatus::ControllerState value);
ZOL_EXPORT ControllerConfig::ControllerState sequenceToValue(Zol::String8::IteratorConst& position,
                                                             Zol::String8::IteratorConst const& end,
                                                             ControllerConfig::ControllerState*);
ZOL_EXPORT ControllerStatus::ControllerState sequenceToValue(Zol::String8::IteratorConst& position,
                                                             Zol::String8::IteratorConst const& end,
                                                             ControllerStatus::ControllerState*);

inline Zol::ZolType* zolTypeOf(std::type_identity<ControllerConfig::ControllerState>) {
  return ControllerConfig::_fwkType_ControllerState();
}
inline Zol::ZolType* zolTypeOf(std::type_identity<ControllerStatus::ControllerState>) {
  return ControllerStatus::_fwkType_ControllerState();
}

}  // namespace PowerController
}  // namespace Hardware
