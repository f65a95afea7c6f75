// The constructor parameters of entities, as they stand in announcements.
#pragma once

#include <tuple>

#include "host/zol/attrlog/wire_forms.h"
#include "host/zol/registry/zol_type.h"

namespace Zol::NboAttrLog {

// The accessors of a class's constructor parameters, in the order of the parameters. Most entities
// are made from a name alone.
template <class X>
struct ParametersOf {
  static constexpr auto accessors = std::tuple{&Entity::name};
};

// How many of them, from the first on, can never change.
template <class X>
inline constexpr std::size_t kFixedParameters =
    std::tuple_size_v<std::remove_const_t<decltype(ParametersOf<X>::accessors)>>;

template <class X>
class Parameters {
  static constexpr auto kAccessors = ParametersOf<X>::accessors;
  using Indices = std::make_index_sequence<std::tuple_size_v<decltype(kAccessors)>>;
  template <std::size_t i>
  using At = std::remove_cvref_t<std::invoke_result_t<
      std::tuple_element_t<i, std::remove_const_t<decltype(kAccessors)>>, X const&>>;

 public:
  static void write(OutPtr const& out, Entity const& entity) {
    auto const& from = static_cast<X const&>(entity);
    std::apply(
        [&](auto... accessor) {
          (WireForm<std::remove_cvref_t<decltype((from.*accessor)())>>::write(out,
                                                                              (from.*accessor)()),
           ...);
        },
        kAccessors);
  }

  // Whether two entities have the same of those that cannot change.
  static bool same(Entity const& a, Entity const& b) {
    return same(static_cast<X const&>(a), static_cast<X const&>(b),
                std::make_index_sequence<kFixedParameters<X>>());
  }

  // A tuple of them; `referred()` is called behind each reference. Throws
  // `AttrLogEntityException` for a reference to an unknown entity or to one of another class, and
  // what the forms of the fields throw.
  template <class Referred>
  static auto read(In& in, Referred&& referred) {
    return read(in, referred, Indices());
  }

 private:
  template <std::size_t... i>
  static bool same(X const& a, X const& b, std::index_sequence<i...>) {
    return (((a.*std::get<i>(kAccessors))() == (b.*std::get<i>(kAccessors))()) && ...);
  }
  template <class Referred, std::size_t... i>
  static auto read(In& in, Referred& referred, std::index_sequence<i...>) {
    return std::tuple<At<i>...>{field<At<i>>(in, referred)...};
  }
  template <class T, class Referred>
  static T field(In& in, Referred& referred) {
    T value = WireForm<T>::read(in);
    if constexpr (std::is_convertible_v<T, Ptr<Entity const>>) referred();
    return value;
  }
};

// Makes an entity from the parameters that stand next in the stream, all of which are read first.
// Leaves what stands behind them in the stream.
template <class X>
Ptr<X> entityFromStream(In& in) {
  auto const made = [](auto const&... parameters) { return Ptr<X>(new X(parameters...)); };
  return std::apply(made, Parameters<X>::read(in, [] {}));
}

// The type of a class whose entities are made from a stream.
template <class X>
class StreamType : public ZolType {
 public:
  StreamType(Name name, ZolType* base) : ZolType(std::move(name), nullptr, base, {}) {
    sameFnIs(&Parameters<X>::same);
  }
  using ZolType::newEntity;
  [[nodiscard]] Ptr<Entity> newEntity(Ptr<In> const& in, Zol_BitSet, unsigned int,
                                      PtrInterface*) const override {
    return entityFromStream<X>(*in);
  }
};

}  // namespace Zol::NboAttrLog
