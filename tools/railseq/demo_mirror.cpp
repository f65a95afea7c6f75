// The mirror's end: it changes nothing, and tells its source what it hears and what it holds at the
// end.
#include <poll.h>

#include <array>
#include <cinttypes>
#include <cstdio>
#include <iostream>

#include "railseq/change_listener.h"
#include "railseq/demo_ends.h"
#include "railseq/paths.h"
#include "railseq/report_pipe.h"
#include "railseq/tree_text.h"

namespace RailSeq {

namespace {

using Zol::NboAttrLog::Connection;

void waitFor(Connection const& connection) {
  pollfd waited{connection.fd(), POLLIN, 0};
  if (connection.wantsWrite()) waited.events |= POLLOUT;
  ::poll(&waited, 1, -1);
}

void reportTree(Zol::Ptr<Config> const& config, ReportWriter& report) {
  std::string const root = rootPath(config->name().view());
  for (std::string const& line : treeLines(Zol::ByName({config}), root)) {
    report.write(Report::Kind::tree, line);
  }
  report.write(Report::Kind::digest, digestText(Zol::digest(*config)));
}

}  // namespace

std::string digestText(std::uint64_t digest) {
  std::array<char, 17> text{};
  std::snprintf(text.data(), text.size(), "%016" PRIx64, digest);
  return text.data();
}

int runMirror(std::string const& rootName, int logFd, int reportFd) {
  ReportWriter report(reportFd);
  Zol::Ptr<Connection> const connection =
      Connection::overFd(logFd, {.ownName = "mirror", .peerName = "source"});
  Zol::Ptr<Config> config;
  Zol::Ptr<ChangeListener> listener;
  while (connection->isOpen()) {
    while (connection->pump()) {
    }
    if (!listener && connection->synced(rootName)) {
      config = Zol::ptrCast<Config>(connection->mounted(rootName));
      if (!config) break;
      listener = new ChangeListener(
          config, [&report](std::string const& line) { report.write(Report::Kind::change, line); });
      report.write(Report::Kind::ready, "");
    }
    if (connection->isOpen()) waitFor(*connection);
  }
  report.write(Report::Kind::ended, connection->error());
  if (config) reportTree(config, report);
  if (report.isBroken()) std::cerr << "mirror: " << connection->error() << '\n';
  return config && !report.isBroken() ? 0 : 1;
}

}  // namespace RailSeq
