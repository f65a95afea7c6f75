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

// "c7" of "c" and 7.
inline Zol::Name numbered(char const* prefix, unsigned int number) {
  return Zol::format("%s%u", prefix, number);
}

inline Zol::Ptr<Ucd9012ControllerConfig> addController(Config& config, Zol::Name const& name) {
  return config.realUcd9012ControllerIs(name, "customer", nullptr, nullptr, nullptr);
}

}  // namespace test
