// Models of attributes, one class per kind: what an operation does to an attribute, what it counts
// and whom it tells, said independently of the library.
#pragma once

#include <gtest/gtest.h>
#include <hwrailseq.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <functional>
#include <limits>
#include <map>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace Hardware::Ucd9012::Test {

using Random = std::mt19937;
inline std::size_t below(Random& random, std::size_t limit) { return random() % limit; }

inline std::string textOf(std::uint32_t key) { return std::to_string(key); }
inline std::string textOf(Zol::Name const& key) { return std::string(key.view()); }

// What an operation must have counted and told.
struct Effect {
  std::uint32_t mutations = 0;
  std::vector<std::string> heard = {};
};

class Model {
 public:
  explicit Model(std::string name) : attr(std::move(name)) {}
  virtual ~Model() = default;
  // Does any operation of the attribute, and gives what it must have done.
  virtual Effect step(Random& random) = 0;
  // The attribute reads as the model has it.
  virtual void check() = 0;

  std::string const attr;
};

struct Models {
  void add(Model* model) { all.emplace_back(model); }
  std::vector<std::unique_ptr<Model>> all;
};

// Any of a few values of a type.
template <class T>
T anyOf(Random& random) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  if constexpr (std::same_as<T, Units::Volts> || std::same_as<T, Units::Celsius>) {
    double const values[] = {-kInfinity, 0.0, -0.0, 1.25, std::nan("")};
    return T(values[below(random, 5)]);
  } else if constexpr (std::same_as<T, Zol::String8>) {
    char const* const values[] = {"", "a", "b"};
    return values[below(random, 3)];
  } else if constexpr (std::same_as<T, UcdCause>) {
    return {ReloadCauses(below(random, 2)), CauseType::gpio, 1, below(random, 2) == 0};
  } else if constexpr (std::same_as<T, PsocCause>) {
    return {ReloadCauses::cpu, static_cast<std::uint16_t>(below(random, 2)), true};
  } else if constexpr (std::same_as<T, PageFaultCause>) {
    return {ReloadCauses::cpu, 1, static_cast<std::uint32_t>(below(random, 2))};
  } else if constexpr (std::same_as<T, ExternalVoltageRail>) {
    return {static_cast<std::uint8_t>(below(random, 2)), 0};
  } else if constexpr (std::is_arithmetic_v<T> || std::is_enum_v<T>) {
    return static_cast<T>(below(random, 2));
  } else {
    // A reference to an entity that is made from its name.
    using Entity = std::remove_reference_t<decltype(*std::declval<T>())>;
    static T const entities[] = {nullptr, new Entity("one"), new Entity("other")};
    return entities[below(random, 3)];
  }
}

template <class T>
bool same(T const& a, T const& b) {
  if constexpr (requires { a.value(); }) {
    return std::bit_cast<std::uint64_t>(a.value()) == std::bit_cast<std::uint64_t>(b.value());
  } else {
    return a == b;
  }
}

template <class T>
class ScalarModel : public Model {
 public:
  ScalarModel(std::string name, T initial, std::function<T()> get, std::function<void(T)> set)
      : Model(std::move(name)), value_(initial), get_(get), set_(set) {}

  Effect step(Random& random) override {
    T const next = anyOf<T>(random);
    set_(next);
    if (next == value_) return {};
    value_ = next;
    return {1, {attr}};
  }
  void check() override { EXPECT_TRUE(same(get_(), value_)) << attr; }

 private:
  T value_;
  std::function<T()> get_;
  std::function<void(T)> set_;
};

template <class Child>
class SingletonModel : public Model {
 public:
  template <class Get, class Del, class Is, class New>
  SingletonModel(Zol::Entity& holder, std::string name, Zol::AttributeId id, Get get, Del del,
                 Is is, New make)
      : Model(std::move(name)), holder_(holder), id_(id), get_(get), del_(del) {
    is_ = [is](std::size_t variant) { return made(is, variant); };
    new_ = [make](std::size_t variant) { return made(make, variant); };
  }

  Effect step(Random& random) override {
    std::size_t const variant = below(random, 4);
    Zol::Ptr<Child> const old = child_;
    switch (below(random, 4)) {
      case 0:
        child_ = nullptr;
        EXPECT_EQ(del_(), old);
        if (old) {
          EXPECT_FALSE(old->parent());
        }
        return old ? Effect{1, {attr}} : Effect{};
      case 1: {
        auto const apart = new_(variant);
        EXPECT_EQ(apart->parentAttrId(), id_);
        EXPECT_EQ(apart->parent().get(), &holder_);
        return {};
      }
      default:
        child_ = is_(variant);
        if (old && variant == variant_) {
          EXPECT_EQ(child_, old);
          return {1, {}};
        }
        EXPECT_NE(child_, old);
        if (old) {
          EXPECT_FALSE(old->parent());
        }
        variant_ = variant;
        return {old ? 2u : 1u, {attr}};
    }
  }
  void check() override {
    EXPECT_EQ(get_(), child_) << attr;
    if (!child_) return;
    EXPECT_EQ(child_->parent().get(), &holder_);
    EXPECT_EQ(child_->parentAttrId(), id_);
  }

 private:
  // Each variant differs from the others in one argument at least.
  template <class Maker>
  static Zol::Ptr<Child> made(Maker const& maker, std::size_t variant) {
    Zol::Name const name = variant % 2 == 0 ? "even" : "odd";
    if constexpr (std::same_as<Child, I2cDexo::DexoDesc>) {
      return maker(name, std::uint8_t{1}, static_cast<std::uint8_t>(variant / 2));
    } else {
      return maker(variant == 2 ? Zol::Name("two") : variant == 3 ? Zol::Name("three") : name);
    }
  }

  Zol::Entity& holder_;
  Zol::AttributeId id_;
  std::function<Zol::Ptr<Child>()> get_;
  std::function<Zol::Ptr<Child>()> del_;
  std::function<Zol::Ptr<Child>(std::size_t)> is_;
  std::function<Zol::Ptr<Child>(std::size_t)> new_;
  Zol::Ptr<Child> child_;
  std::size_t variant_ = 0;
};

// The operations of a keyed attribute.
template <class Get, class Is, class New, class Del, class DelAll, class Walk, class Count>
struct KeyedOps {
  Get get;
  Is is;
  New make;
  Del del;
  DelAll delAll;
  Walk walk;
  Count count;
};
template <class... Ops>
KeyedOps(Ops...) -> KeyedOps<Ops...>;

template <class Key>
Key anyKey(Random& random) {
  if constexpr (std::same_as<Key, Zol::Name>) {
    char const* const names[] = {"a", "b", "c", "d"};
    return names[below(random, 4)];
  } else {
    std::uint32_t const numbers[] = {0, 1, 0x7f, 0x80, 0xff};
    return static_cast<Key>(numbers[below(random, 5)]);
  }
}

// What all keyed kinds have alike; `Kept` is what the model keeps under a key, `Given` what reading
// and taking out give.
template <class Key, class Kept, class Given>
class KeyedModel : public Model {
 public:
  template <class Ops>
  KeyedModel(Zol::Entity& holder, std::string name, Zol::AttributeId id, Ops const& ops)
      : Model(std::move(name)),
        holder_(holder),
        id_(id),
        get_(ops.get),
        delAll_(ops.delAll),
        count_(ops.count) {
    auto const& del = ops.del;
    auto const& walk = ops.walk;
    delKey_ = [del](Key key) { return Given(del(key)); };
    delAt_ = [del, walk](Key key) {
      auto it = walk();
      while (it && !(it.key() == key)) ++it;
      return Given(del(it));
    };
    keys_ = [walk] {
      std::vector<Key> keys;
      for (auto it = walk(); it; ++it) keys.push_back(it.key());
      return keys;
    };
  }

  Effect step(Random& random) override {
    Key const key = anyKey<Key>(random);
    switch (below(random, 20)) {
      case 0: {
        Effect effect;
        for (Key const& each : keys_()) effect.heard.push_back(attr + " " + textOf(each));
        effect.mutations = static_cast<std::uint32_t>(effect.heard.size());
        delAll_();
        for (auto const& [each, kept] : kept_) left(kept);
        kept_.clear();
        return effect;
      }
      case 1:
      case 2:
      case 3:
      case 4:
      case 5: {
        auto const found = kept_.find(key);
        Given const expected = found == kept_.end() ? Given() : given(found->second);
        EXPECT_TRUE(same((below(random, 2) ? delKey_ : delAt_)(key), expected)) << attr;
        if (found == kept_.end()) return {};
        left(found->second);
        kept_.erase(found);
        return {1, {attr + " " + textOf(key)}};
      }
      default:
        return put(random, key);
    }
  }
  void check() override {
    EXPECT_EQ(count_(), kept_.size()) << attr;
    std::vector<Key> const keys = keys_();
    if constexpr (!std::same_as<Key, Zol::Name>) {
      if (attr != "externalVoltageRail") {
        EXPECT_TRUE(std::ranges::is_sorted(keys)) << attr;
      }
    }
    EXPECT_EQ(std::set<Key>(keys.begin(), keys.end()).size(), kept_.size());
    for (Key const& key : keys) {
      ASSERT_TRUE(kept_.count(key)) << attr << " " << textOf(key);
      EXPECT_TRUE(same(get_(key), given(kept_.at(key)))) << attr;
    }
  }

 protected:
  virtual Effect put(Random& random, Key const& key) = 0;
  virtual Given given(Kept const& kept) const = 0;
  virtual void left(Kept const&) {}
  Effect told(Key const& key) const { return {1, {attr + " " + textOf(key)}}; }

  Zol::Entity& holder_;
  Zol::AttributeId id_;
  std::map<Key, Kept> kept_;

 private:
  std::function<Given(Key)> get_;
  std::function<Given(Key)> delKey_;
  std::function<Given(Key)> delAt_;
  std::function<void()> delAll_;
  std::function<std::vector<Key>()> keys_;
  std::function<std::uint32_t()> count_;
};

template <class T, class Key>
class ValuesModel : public KeyedModel<Key, T, T> {
 public:
  template <class Ops>
  ValuesModel(Zol::Entity& holder, std::string name, Zol::AttributeId id, Ops const& ops)
      : KeyedModel<Key, T, T>(holder, std::move(name), id, ops),
        is_([is = ops.is](Key key, T value) { is(key, value); }),
        new_([make = ops.make](Key key, T value) { return *make(key, value)->zolValue(); }) {}

 private:
  Effect put(Random& random, Key const& key) override {
    T const value = anyOf<T>(random);
    auto const found = this->kept_.find(key);
    bool const equal = found != this->kept_.end() && found->second == value;
    bool const silently = below(random, 4) == 0;
    if (silently) {
      EXPECT_EQ(new_(key, value), value);
    } else {
      is_(key, value);
    }
    this->kept_[key] = value;
    return silently || equal ? Effect{} : this->told(key);
  }
  T given(T const& kept) const override { return kept; }

  std::function<void(Key, T)> is_;
  std::function<T(Key, T)> new_;
};

// What a member was made with beyond its key: one of two variants.
template <class Child>
struct Member {
  Zol::Ptr<Child> child;
  std::size_t variant = 0;
};

// The entity named `initial` for variant 0, null for variant 1.
template <class Entity, char initial>
Zol::Ptr<Entity> oneOrNone(std::size_t variant) {
  static Zol::Ptr<Entity> const one(new Entity(std::string(1, initial)));
  return variant == 0 ? one : nullptr;
}

// Makes a member by `maker` with the arguments of a variant. `turn` is an argument that is no
// constructor parameter, where there is one.
template <class Child, class Key, class Maker>
auto madeWith(Maker const& maker, Key const& key, std::size_t variant, std::size_t turn) {
  using RailStatus = Environment::Power::VoltageRailStatus;
  if constexpr (std::same_as<Child, VoltageRailConfig>) {
    return maker(key, oneOrNone<Environment::Power::VoltageRailConfig, 'r'>(variant),
                 Zol::Ptr<RailStatus>());
  } else if constexpr (std::is_base_of_v<ControllerConfig, Child>) {
    return maker(key, Zol::Name(variant ? "c1" : "c0"), Zol::Ptr<Hardware::DexoDesc>(),
                 Zol::Ptr<Hardware::Gpio::PinConfig>(),
                 Zol::Ptr<Hardware::Gpio::PinStatus const>());
  } else if constexpr (std::same_as<Child, SmbusDexo::DexoDesc>) {
    auto const delay = static_cast<Hardware::SmbusDelay>(turn);
    return maker(key, oneOrNone<Hardware::SmbusDevice, 's'>(variant), Hardware::LobusAccelId(1),
                 Hardware::SmbusId(2), Hardware::SmbusDeviceId(static_cast<unsigned char>(turn)),
                 Hardware::SmbusAddrSize::oneByte, turn == 0, delay, delay, turn == 1,
                 Hardware::SmbusTimeout::timeout1ms, Hardware::LobusAgentId(4));
  } else {
    return maker(key);
  }
}

// The text that refuses a member of another variant; empty for a class that has no variants.
template <class Child>
std::string refusalOf(Child const& child, std::size_t wanted) {
  std::string const head = "Reinstantiating the entity with name '" + textOf(child.name()) +
                           "' where constructor parameter attribute _";
  auto const tail = [wanted](std::string const& first, std::string const& second) {
    return " has a different value of " + (wanted ? second : first) +
           " than the current value of " + (wanted ? first : second) + " not allowed";
  };
  if constexpr (std::same_as<Child, VoltageRailConfig>) {
    return head + "voltageRailEnvConfig" +
           tail("Entity('Environment::Power::VoltageRailConfig', 'r')",
                "Entity('Environment::Power::VoltageRailConfig', None)");
  } else if constexpr (std::is_base_of_v<ControllerConfig, Child>) {
    return head + "customerName" + tail("'c0'", "'c1'");
  } else if constexpr (std::same_as<Child, SmbusDexo::DexoDesc>) {
    return head + "device" +
           tail("Entity('Hardware::SmbusDevice', 's')", "Entity('Hardware::SmbusDevice', None)");
  } else {
    return {};
  }
}

template <class Child, class Key>
class ChildrenModel : public KeyedModel<Key, Member<Child>, Zol::Ptr<Child>> {
 public:
  template <class Ops>
  ChildrenModel(Zol::Entity& holder, std::string name, Zol::AttributeId id, Ops const& ops)
      : KeyedModel<Key, Member<Child>, Zol::Ptr<Child>>(holder, std::move(name), id, ops) {
    is_ = [is = ops.is](Key const& key, std::size_t variant, std::size_t turn) {
      return Zol::Ptr<Child>(madeWith<Child>(is, key, variant, turn));
    };
    new_ = [make = ops.make](Key const& key, std::size_t variant, std::size_t turn) {
      return Zol::Ptr<Child>(madeWith<Child>(make, key, variant, turn));
    };
  }

 private:
  Effect put(Random& random, Key const& key) override {
    std::size_t const variant = below(random, 2);
    std::size_t const turn = below(random, 3);
    Member<Child> const old = this->kept_.count(key) ? this->kept_.at(key) : Member<Child>();
    if (below(random, 4) == 0) {
      enter(key, new_(key, variant, turn), variant);
      if (old.child) left(old);
      return {};
    }
    if (old.child && old.variant != variant) {
      std::string const refusal = refusalOf(*old.child, variant);
      if (!refusal.empty()) {
        try {
          is_(key, variant, turn);
          ADD_FAILURE() << this->attr << " was not refused";
        } catch (Zol::NameInUseException const& failure) {
          EXPECT_EQ(failure.what(), refusal);
        }
        return {};
      }
    }
    auto const child = is_(key, variant, turn);
    if constexpr (std::same_as<Child, SmbusDexo::DexoDesc>) {
      EXPECT_EQ(child->readDelay(), static_cast<Hardware::SmbusDelay>(turn));
      EXPECT_EQ(child->deviceId().value(), turn);
    }
    if (old.child) {
      EXPECT_EQ(child, old.child);
      return {1, {}};
    }
    enter(key, child, variant);
    return this->told(key);
  }
  void enter(Key const& key, Zol::Ptr<Child> const& child, std::size_t variant) {
    EXPECT_EQ(child->parent().get(), &this->holder_);
    EXPECT_EQ(child->parentAttrId(), this->id_);
    EXPECT_EQ(child->mutationCounter(), 0u);
    this->kept_[key] = {child, variant};
  }
  Zol::Ptr<Child> given(Member<Child> const& kept) const override { return kept.child; }
  void left(Member<Child> const& kept) override { EXPECT_FALSE(kept.child->parent()); }

  std::function<Zol::Ptr<Child>(Key const&, std::size_t, std::size_t)> is_;
  std::function<Zol::Ptr<Child>(Key const&, std::size_t, std::size_t)> new_;
};

template <class Referred, class Key>
class ReferencesModel : public KeyedModel<Key, Zol::Ptr<Referred>, Zol::Ptr<Referred>> {
 public:
  template <class Ops>
  ReferencesModel(Zol::Entity& holder, std::string name, Zol::AttributeId id, Ops const& ops)
      : KeyedModel<Key, Zol::Ptr<Referred>, Zol::Ptr<Referred>>(holder, std::move(name), id, ops),
        is_([is = ops.is](Zol::Ptr<Referred> const& to) { is(to); }) {}

 private:
  Effect put(Random& random, Key const& key) override {
    if (below(random, 8) == 0) {
      try {
        is_(nullptr);
        ADD_FAILURE() << "null was not refused";
      } catch (Zol::RangeException const& failure) {
        EXPECT_EQ(failure.what(), "null _controller parameter to mutator for " +
                                      std::string(this->holder_.fwkType()->fullName().view()) +
                                      "::controller not allowed\"");
      }
      return {};
    }
    // Two controllers of each name.
    Zol::Ptr<Referred>& to = pool_[textOf(key) + (below(random, 2) ? "1" : "2")];
    if (!to) to = made(key);
    bool const present = this->kept_.count(key) && this->kept_.at(key) == to;
    is_(to);
    EXPECT_FALSE(to->parent());
    this->kept_[key] = to;
    return present ? Effect{} : this->told(key);
  }
  Zol::Ptr<Referred> given(Zol::Ptr<Referred> const& kept) const override { return kept; }
  static Zol::Ptr<Referred> made(Key const& key) {
    if constexpr (std::same_as<Referred, ControllerConfig>) {
      return new Referred(key, "", nullptr, nullptr, nullptr);
    } else {
      return new Referred(key);
    }
  }

  std::map<std::string, Zol::Ptr<Referred>> pool_;
  std::function<void(Zol::Ptr<Referred> const&)> is_;
};

}  // namespace Hardware::Ucd9012::Test
