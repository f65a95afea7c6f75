// A source and a replica joined by a log inside the process.
#pragma once

#include <hwrailseq.h>

#include <utility>

namespace test {

using Hardware::Ucd9012::Config;
using Hardware::Ucd9012::ControllerConfig;
using Hardware::Ucd9012::Ucd9012ControllerConfig;
using Zol::NboAttrLog::Connection;
using Zol::NboAttrLog::ConnectionOptions;
using Zol::NboAttrLog::MountOptions;

struct ReplicaPair {
  explicit ReplicaPair(ConnectionOptions sourceOptions = {},
                       ConnectionOptions replicaOptions = {}) {
    sourceOptions.ownName = "source";
    replicaOptions.ownName = "replica";
    std::tie(source, replica) =
        Zol::NboAttrLog::connectionPair(std::move(sourceOptions), std::move(replicaOptions));
  }

  // No test finds what another one has received.
  ~ReplicaPair() {
    if (source) source->close();
    if (replica) replica->close();
    Zol::NboAttrLog::forgetPeer("source");
    Zol::NboAttrLog::forgetPeer("replica");
  }

  // Pumps both ends until neither has anything left to do.
  void flow() {
    for (int turns = 0; turns < 100000; ++turns) {
      bool const worked = source->pump();
      if (!replica->pump() && !worked) return;
    }
  }

  void mount(Zol::Ptr<Config> const& config, MountOptions options = {}) {
    source->mountIs(config, options);
    flow();
  }

  [[nodiscard]] Zol::Ptr<Config> mirror(Zol::Name const& name = "board") const {
    return Zol::ptrCast<Config>(replica->mounted(name));
  }
  [[nodiscard]] Zol::Ptr<Ucd9012ControllerConfig> mirrored(Zol::Name const& name) const {
    return mirror()->realUcd9012Controller(name);
  }

  Zol::Ptr<Connection> source;
  Zol::Ptr<Connection> replica;
};

// An entity that the log does not come to know at first.
template <class Base>
class Reluctant : public Base {
 public:
  using Base::Base;
  Zol::Ptr<Zol::Entity::ZolNboAttrLogSa> zolNboAttrLogSaIs(
      Zol::Entity::Zol_BitSet flags, unsigned int n, Zol::Ptr<Zol::NboAttrLog::Out> const& out,
      Zol::PtrInterface* entry) override {
    if (refusals-- > 0) throw Zol::EntityIdUnavailableException("not yet");
    return Base::zolNboAttrLogSaIs(flags, n, out, entry);
  }
  int refusals = 3;
};

// "c7" of "c" and 7.
inline Zol::Name numbered(char const* prefix, unsigned int number) {
  return Zol::format("%s%u", prefix, number);
}

inline Zol::Ptr<Ucd9012ControllerConfig> addController(Config& config, Zol::Name const& name) {
  return config.realUcd9012ControllerIs(name, "customer", nullptr, nullptr, nullptr);
}

}  // namespace test
