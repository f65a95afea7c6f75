#include "support/tree.h"

#include <bit>
#include <cmath>
#include <functional>

#include "support/visits.h"

namespace test {

namespace {

using Random = std::mt19937;

template <class T>
std::string show(T const& value) {
  if constexpr (std::is_integral_v<T> || std::is_enum_v<T>) {
    return std::to_string(static_cast<long long>(value));
  } else if constexpr (std::is_convertible_v<T, Zol::String8>) {
    Zol::String8 const text(value);
    std::string const bytes(text.view());
    if (bytes.size() < 40) return "'" + bytes + "'";
    return std::to_string(bytes.size()) + " bytes, " +
           std::to_string(std::hash<std::string>()(bytes));
  } else if constexpr (std::is_convertible_v<T, Zol::Ptr<Zol::Entity const>>) {
    if (!value) return "none";
    return std::string(value->fwkType()->fullName().view()) + " " +
           std::string(value->name().view());
  } else if constexpr (requires { value.value(); }) {
    return std::to_string(value.value());
  } else {
    return std::string(valueToStrep(value).view());
  }
}

// What a child was made with.
struct ShowParameters {
  template <class T>
  void parameter(char const* name, T const& value) {
    text += std::string(" ") + name + " " + show(value);
  }
  template <class... Any>
  void scalar(Any const&...) {}
  template <class... Any>
  void singleton(Any const&...) {}
  template <class Type, class Key, class... Any>
  void values(Any const&...) {}
  template <class Type, class Key, class... Any>
  void children(Any const&...) {}
  template <class Type, class Key, class... Any>
  void references(Any const&...) {}

  std::string text;
};

template <class X>
std::string parametersOf(X& child) {
  ShowParameters shown;
  eachAttribute(child, shown);
  return "child '" + std::string(child.name().view()) + "'" + shown.text;
}

// The attributes of one entity, and a visit to each of its children.
template <class OnChild>
struct Collect {
  template <class T>
  void parameter(char const* name, T const& value) {
    found[name] = show(value);
  }
  template <class Get, class Set>
  void scalar(char const* name, Get const& get, Set const&) {
    found[name] = show(get());
  }
  template <class Get, class Make, class Del>
  void singleton(char const* name, Get const& get, Make const&, Del const&) {
    auto const child = get();
    if (!child) return;
    found[name] = parametersOf(*child);
    onChild(name, *child);
  }
  template <class Type, class Key, class Walk, class Is, class Del>
  void values(char const* name, Walk const& walk, Is const&, Del const&) {
    for (auto it = walk(); it; ++it) found[name + inBrackets(it.key())] = show(*it);
  }
  template <class Type, class Key, class Walk, class Is, class Del>
  void children(char const* name, Walk const& walk, Is const&, Del const&) {
    for (auto it = walk(); it; ++it) {
      std::string const entry = name + inBrackets(it.key());
      found[entry] = parametersOf(*it);
      onChild(entry, *it);
    }
  }
  template <class Type, class Key, class Walk, class Is, class Del>
  void references(char const* name, Walk const& walk, Is const&, Del const&) {
    for (auto it = walk(); it; ++it) {
      found[name + inBrackets(it.key())] = show(Zol::Ptr<Zol::Entity const>(it.ptr()));
    }
  }

  OnChild onChild;
  Attributes found;
};

template <class X>
Attributes attributesOf(X& entity) {
  auto const ignore = [](auto const&, auto&) {};
  Collect<decltype(ignore)> collect{ignore, {}};
  eachAttribute(entity, collect);
  return collect.found;
}

// Calls `visit( path, entity )` for an entity and all below it, each as its own class.
template <class X, class Visit>
void eachBelow(std::string const& path, X& entity, Visit const& visit) {
  visit(path, entity);
  auto const descend = [&](std::string const& name, auto& child) {
    eachBelow(path + "/" + name, child, visit);
  };
  Collect<decltype(descend)> collect{descend, {}};
  eachAttribute(entity, collect);
}

template <class Visit>
void eachOf(Zol::Entity& root, Visit const& visit) {
  if (auto* const config = dynamic_cast<Config*>(&root)) return eachBelow("", *config, visit);
  eachBelow("", dynamic_cast<Status&>(root), visit);
}

}  // namespace

std::string textOf(Zol::Entity& root) {
  std::string text;
  eachOf(root, [&](std::string const& path, auto& entity) {
    for (auto const& [name, value] : attributesOf(entity)) {
      text += path + "/" + name + " = " + value + "\n";
    }
  });
  return text;
}

class Ears::Ear {
 public:
  virtual ~Ear() = default;
  [[nodiscard]] virtual std::string outdated() const = 0;
  [[nodiscard]] virtual std::string unneeded() const = 0;
};

namespace {

template <class X>
class EarOn : public X::Notifiee {
 public:
  explicit EarOn(X& entity) : told(attributesOf(entity)) {
    this->isRegisteredNotifieeIs(true);
    this->notifierIs(Zol::Ptr<X>(&entity));
    this->isWeakReferenceIs(true);
  }

  Attributes told;
  std::vector<std::string> unneeded;

 protected:
  void changed(std::string const& name) {
    Attributes const now = attributesOf(*this->notifier());
    auto const found = now.find(name);
    auto const before = told.find(name);
    bool const isThere = found != now.end();
    bool const wasThere = before != told.end();
    if (isThere == wasThere && (!isThere || found->second == before->second)) {
      unneeded.push_back(name);
    }
    if (!isThere) {
      told.erase(name);
    } else {
      told[name] = found->second;
    }
  }
};

template <class X>
class SlotsOf;
template <>
class SlotsOf<Config> final : public EarOn<Config> {
  using Listener = Config::NotifieeConst;
  using EarOn::EarOn;

 public:
#include "support/stamp_ear_slots.h"
#include "schema/config.def"
};
template <>
class SlotsOf<Status> final : public EarOn<Status> {
  using Listener = Status::NotifieeConst;
  using EarOn::EarOn;

 public:
#include "support/stamp_ear_slots.h"
#include "schema/status.def"
};
template <>
class SlotsOf<ControllerConfig> final : public EarOn<ControllerConfig> {
  using Listener = ControllerConfig::NotifieeConst;
  using EarOn::EarOn;

 public:
#include "support/stamp_ear_slots.h"
#include "host/models/power_controller_config.def"

#include "support/stamp_ear_slots.h"
#include "schema/controller_config.def"
};
template <>
class SlotsOf<ControllerStatus> final : public EarOn<ControllerStatus> {
  using Listener = ControllerStatus::NotifieeConst;
  using EarOn::EarOn;

 public:
#include "support/stamp_ear_slots.h"
#include "host/models/power_controller_status.def"

#include "support/stamp_ear_slots.h"
#include "schema/controller_status.def"
};
template <>
class SlotsOf<VoltageRailConfig> final : public EarOn<VoltageRailConfig> {
  using Listener = VoltageRailConfig::NotifieeConst;
  using EarOn::EarOn;

 public:
#include "support/stamp_ear_slots.h"
#include "schema/voltage_rail_config.def"
};
template <>
class SlotsOf<Ucd9012DiagConfig> final : public EarOn<Ucd9012DiagConfig> {
  using Listener = Ucd9012DiagConfig::NotifieeConst;
  using EarOn::EarOn;

 public:
#include "support/stamp_ear_slots.h"
#include "schema/ucd9012_diag_config.def"
};
template <>
class SlotsOf<Ucd9012DiagModeConfig> final : public EarOn<Ucd9012DiagModeConfig> {
  using Listener = Ucd9012DiagModeConfig::NotifieeConst;
  using EarOn::EarOn;

 public:
#include "support/stamp_ear_slots.h"
#include "schema/ucd9012_diag_mode_config.def"
};
template <>
class SlotsOf<Ucd9012DiagStatus> final : public EarOn<Ucd9012DiagStatus> {
  using Listener = Ucd9012DiagStatus::NotifieeConst;
  using EarOn::EarOn;

 public:
#include "support/stamp_ear_slots.h"
#include "schema/ucd9012_diag_status.def"
};
template <>
class SlotsOf<SmbusDexo::DexoDesc> final : public EarOn<SmbusDexo::DexoDesc> {
  using Listener = SmbusDexo::DexoDesc::NotifieeConst;
  using EarOn::EarOn;

 public:
#include "support/stamp_ear_slots.h"
#include "host/models/smbus_dexo_desc.def"
};
template <>
class SlotsOf<I2cDexo::DexoDesc> final : public EarOn<I2cDexo::DexoDesc> {
  using EarOn::EarOn;
};

template <class X>
class EarHeld final : public Ears::Ear {
 public:
  EarHeld(std::string path, X& entity) : path_(std::move(path)), slots_(new SlotsOf<X>(entity)) {}
  [[nodiscard]] std::string unneeded() const override {
    std::string text;
    for (auto const& name : slots_->unneeded) text += path_ + "/" + name + "\n";
    return text;
  }
  [[nodiscard]] std::string outdated() const override {
    if (!slots_->notifier()) return "";
    Attributes const now = attributesOf(*slots_->notifier());
    std::string text;
    for (auto const& [name, value] : now) {
      auto const told = slots_->told.find(name);
      if (told == slots_->told.end()) {
        text += path_ + "/" + name + ": never told of " + value + "\n";
      } else if (told->second != value) {
        text += path_ + "/" + name + ": told " + told->second + ", is " + value + "\n";
      }
    }
    for (auto const& [name, value] : slots_->told) {
      if (!now.contains(name)) text += path_ + "/" + name + ": not told that it has gone\n";
    }
    return text;
  }

 private:
  std::string path_;
  Zol::Ptr<SlotsOf<X>> slots_;
};

// The class whose slots an entity's listener has: a chip's controller has those of any.
template <class X>
using SlotsClass = std::conditional_t<
    std::is_base_of_v<ControllerConfig, X>, ControllerConfig,
    std::conditional_t<std::is_base_of_v<ControllerStatus, X>, ControllerStatus, X>>;

}  // namespace

Ears::Ears(Zol::Entity& root) {
  eachOf(root, [this]<class X>(std::string const& path, X& entity) {
    ears_.push_back(std::make_unique<EarHeld<SlotsClass<X>>>(path, entity));
  });
}

Ears::~Ears() = default;

std::string Ears::outdated() const {
  std::string text;
  for (auto const& ear : ears_) text += ear->outdated();
  return text;
}

std::string Ears::unneeded() const {
  std::string text;
  for (auto const& ear : ears_) text += ear->unneeded();
  return text;
}

// Three entities of each class that is made from a name, one of which is a new one now and then.
template <class T>
struct Pool {
  Zol::Ptr<T> any(Random& random) {
    std::size_t const at = random() % 4;
    if (at == 3) return nullptr;
    if (!entities[at] || random() % 10 == 0) {
      entities[at] = new T(Zol::format("e%u", static_cast<unsigned int>(random() % 1000)));
    }
    return entities[at];
  }
  Zol::Ptr<T> entities[3];
};

struct Hand::Content {
  explicit Content(unsigned int seed) : random(seed) {}

  [[nodiscard]] std::size_t below(std::size_t limit) { return random() % limit; }
  [[nodiscard]] bool oneIn(std::size_t count) { return below(count) == 0; }
  [[nodiscard]] Zol::Name name() { return Zol::format("k%u", static_cast<unsigned int>(below(4))); }
  [[nodiscard]] Zol::Name nameOf(std::type_identity<Zol::Name>) { return name(); }
  [[nodiscard]] std::uint8_t nameOf(std::type_identity<std::uint8_t>) {
    return static_cast<std::uint8_t>(below(4));
  }
  [[nodiscard]] std::uint32_t nameOf(std::type_identity<std::uint32_t>) {
    return oneIn(5) ? 0xffffffffU : static_cast<std::uint32_t>(below(5));
  }

  template <class T>
  T any(std::type_identity<T>) {
    auto const number = static_cast<std::uint32_t>(random());
    if constexpr (std::same_as<T, bool>) {
      return number % 2 != 0;
    } else if constexpr (std::is_enum_v<T>) {
      return static_cast<T>(number % 2);
    } else if constexpr (std::same_as<T, UcdCause>) {
      return {ReloadCauses(number % 22), CauseType(number % 3), number, number % 2 == 0};
    } else if constexpr (std::same_as<T, PsocCause>) {
      return {ReloadCauses(number % 22), static_cast<std::uint16_t>(number), number % 2 == 0};
    } else if constexpr (std::same_as<T, PageFaultCause>) {
      return {ReloadCauses(number % 22), number, number / 3};
    } else if constexpr (std::same_as<T, ExternalVoltageRail>) {
      return {static_cast<std::uint8_t>(number), static_cast<std::uint8_t>(number / 3)};
    } else if constexpr (std::is_arithmetic_v<T>) {
      return static_cast<T>(number);
    } else {
      return T(static_cast<unsigned char>(number % 100));
    }
  }
  Units::Volts any(std::type_identity<Units::Volts>) {
    return static_cast<double>(below(100)) / 8.0;
  }
  Units::Celsius any(std::type_identity<Units::Celsius>) {
    return oneIn(9) ? std::nan("") : static_cast<double>(below(100)) / 8.0;
  }
  Zol::String8 any(std::type_identity<Zol::String8>) {
    static constexpr std::size_t kLengths[] = {0, 1, 30, 32735, 32736, 50000, 120000};
    std::size_t const length = kLengths[below(oneIn(3) ? 7 : 3)];
    return std::string(length, static_cast<char>('a' + below(26)));
  }
  Zol::Ptr<EntityMib::Sensor> any(std::type_identity<Zol::Ptr<EntityMib::Sensor>>) {
    return sensors.any(random);
  }
  Zol::Ptr<Fru::Gpo> any(std::type_identity<Zol::Ptr<Fru::Gpo>>) { return outputs.any(random); }

  // A descriptor of one's own, of the root, or of another controller.
  Zol::Ptr<Hardware::DexoDesc> descriptor() {
    std::vector<Zol::Ptr<Hardware::DexoDesc>> all{nullptr, descriptors.any(random), i2c};
    if (auto* const config = dynamic_cast<Config*>(root)) {
      eachOf(*config, [&]<class X>(std::string const&, X& entity) {
        if constexpr (std::is_base_of_v<Hardware::DexoDesc, X>) all.emplace_back(&entity);
      });
    }
    return all[below(all.size())];
  }

  template <class Type, class Make>
  void make(Make const& is) {
    if constexpr (std::is_base_of_v<ControllerConfig, Type>) {
      is(name(), Zol::Name("customer"), descriptor(), pins.any(random),
         Zol::Ptr<Hardware::Gpio::PinStatus const>(pinStates.any(random)));
    } else if constexpr (std::same_as<Type, VoltageRailConfig>) {
      is(nameOf(std::type_identity<std::uint8_t>()), railConfigs.any(random),
         railStates.any(random));
    } else if constexpr (std::same_as<Type, SmbusDexo::DexoDesc>) {
      auto const id = static_cast<unsigned char>(below(100));
      is(name(), devices.any(random), Hardware::LobusAccelId(id), Hardware::SmbusId(id),
         Hardware::SmbusDeviceId(id), Hardware::SmbusAddrSize(below(3)), oneIn(2),
         Hardware::SmbusDelay(below(3)), Hardware::SmbusDelay(below(3)), oneIn(2),
         Hardware::SmbusTimeout(below(3)), Hardware::LobusAgentId(id));
    } else if constexpr (std::same_as<Type, I2cDexo::DexoDesc>) {
      is(name(), std::uint8_t{7}, static_cast<std::uint8_t>(below(3)));
    } else {
      is(name());
    }
  }

  template <class Type>
  std::vector<Zol::Ptr<Type>> controllers() {
    std::vector<Zol::Ptr<Type>> all;
    eachOf(*root, [&]<class X>(std::string const&, X& entity) {
      if constexpr (std::is_base_of_v<Type, X>) all.emplace_back(&entity);
    });
    return all;
  }

  Random random;
  Zol::Entity* root = nullptr;
  Pool<EntityMib::Sensor> sensors;
  Pool<Fru::Gpo> outputs;
  Pool<Hardware::DexoDesc> descriptors;
  Pool<Hardware::SmbusDevice> devices;
  Pool<Hardware::Gpio::PinConfig> pins;
  Pool<Hardware::Gpio::PinStatus> pinStates;
  Pool<Environment::Power::VoltageRailConfig> railConfigs;
  Pool<Environment::Power::VoltageRailStatus> railStates;
  Zol::Ptr<Hardware::DexoDesc> const i2c = new I2cDexo::DexoDesc("i2c", 3, 4);
};

namespace {

// Does something to the `target`th attribute that can change; counts them meanwhile.
template <class Content>
struct ChangeOne {
  template <class T>
  void parameter(char const*, T const&) {}
  template <class Get, class Set>
  void scalar(char const*, Get const& get, Set const& set) {
    if (isTarget()) set(content.any(std::type_identity<decltype(get())>()));
  }
  template <class Get, class Make, class Del>
  void singleton(char const*, Get const& get, Make const& make, Del const& del) {
    using Type = std::remove_reference_t<decltype(*get())>;
    if (!isTarget()) return;
    if (content.oneIn(4)) return del();
    content.template make<Type>(make);
  }
  template <class Type, class Key, class Walk, class Is, class Del>
  void values(char const*, Walk const&, Is const& is, Del const& del) {
    if (!isTarget()) return;
    Key const key = content.nameOf(std::type_identity<Key>());
    if (content.oneIn(5)) return del(key);
    is(key, content.any(std::type_identity<Type>()));
  }
  template <class Type, class Key, class Walk, class Is, class Del>
  void children(char const*, Walk const&, Is const& is, Del const& del) {
    if (!isTarget()) return;
    if (content.oneIn(6)) return del(content.nameOf(std::type_identity<Key>()));
    content.template make<Type>(is);
  }
  template <class Type, class Key, class Walk, class Is, class Del>
  void references(char const*, Walk const&, Is const& is, Del const& del) {
    if (!isTarget()) return;
    auto const all = content.template controllers<Type>();
    if (all.empty() || content.oneIn(4)) return del(content.nameOf(std::type_identity<Key>()));
    is(all[content.below(all.size())]);
  }

  bool isTarget() { return count++ == target; }

  Content& content;
  std::size_t target;
  std::size_t count = 0;
};

// Gives each attribute another value, and each collection a few members.
template <class Content>
struct FillOne {
  template <class T>
  void parameter(char const*, T const&) {}
  template <class Get, class Set>
  void scalar(char const*, Get const& get, Set const& set) {
    using T = decltype(get());
    for (int tries = 0; tries < 1000; ++tries) {
      auto const before = show(get());
      set(content.any(std::type_identity<T>()));
      if (show(get()) != before) return;
    }
  }
  template <class Get, class Make, class Del>
  void singleton(char const*, Get const& get, Make const& make, Del const&) {
    content.template make<std::remove_reference_t<decltype(*get())>>(make);
  }
  template <class Type, class Key, class Walk, class Is, class Del>
  void values(char const*, Walk const&, Is const& is, Del const&) {
    for (Key key = 3; key < 6; ++key) is(key, content.any(std::type_identity<Type>()));
  }
  template <class Type, class Key, class Walk, class Is, class Del>
  void children(char const*, Walk const&, Is const& is, Del const&) {
    for (int i = 0; i < 3; ++i) {
      try {
        content.template make<Type>(is);
      } catch (Zol::NameInUseException const&) {
      }
    }
  }
  template <class Type, class Key, class Walk, class Is, class Del>
  void references(char const*, Walk const&, Is const& is, Del const&) {
    for (auto const& controller : content.template controllers<Type>()) is(controller);
  }

  Content& content;
};

}  // namespace

Hand::Hand(unsigned int seed) : content_(std::make_unique<Content>(seed)) {}

Hand::~Hand() = default;

Hand& Hand::operator=(Hand&& other) noexcept = default;

std::mt19937& Hand::random() { return content_->random; }

void Hand::change(Zol::Entity& root) {
  content_->root = &root;
  std::size_t entities = 0;
  eachOf(root, [&](std::string const&, auto&) { ++entities; });
  std::size_t const chosen = content_->below(entities);
  std::size_t at = 0;
  std::function<void()> act;
  eachOf(root, [&](std::string const&, auto& entity) {
    if (at++ != chosen) return;
    act = [this, &entity] {
      Zol::Ptr<Zol::Entity> const hold(&entity);
      ChangeOne<Content> counting{*content_, ~std::size_t{0}};
      eachAttribute(entity, counting);
      if (counting.count == 0) return;
      ChangeOne<Content> change{*content_, content_->below(counting.count)};
      try {
        eachAttribute(entity, change);
      } catch (Zol::NameInUseException const&) {
        // Made before, with other parameters.
      }
    };
  });
  act();
}

void Hand::fill(Zol::Entity& root) {
  content_->root = &root;
  // Visits a child after its holder has been filled, so the children are there.
  eachOf(root, [this](std::string const&, auto& entity) {
    FillOne<Content> fill{*content_};
    eachAttribute(entity, fill);
  });
}

}  // namespace test
