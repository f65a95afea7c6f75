// The mirror's end: it changes nothing, and tells its source what it hears and what it holds at the
// end.
#include <poll.h>

#include <array>
#include <cinttypes>
#include <cstdio>
#include <iostream>

#include "railseq/base/paths.h"
#include "railseq/demo/change_listener.h"
#include "railseq/demo/demo_ends.h"
#include "railseq/demo/report_pipe.h"
#include "railseq/values/tree_text.h"

namespace RailSeq {

namespace {

using Zol::NboAttrLog::Connection;
using Roots = std::vector<Zol::Ptr<Zol::Entity>>;

void waitFor(Connection const& connection) {
  pollfd waited{connection.fd(), POLLIN, 0};
  if (connection.wantsWrite()) waited.events |= POLLOUT;
  ::poll(&waited, 1, -1);
}

// The roots, once all of them are there.
[[nodiscard]] Roots mountedRoots(Connection const& connection,
                                 std::vector<Zol::Name> const& names) {
  Roots roots;
  for (Zol::Name const& name : names) {
    if (!connection.synced(name)) return {};
    roots.push_back(connection.mounted(name));
  }
  return roots;
}

void reportTrees(Roots const& roots, ReportWriter& report) {
  for (Zol::Ptr<Zol::Entity> const& root : roots) {
    for (std::string const& line : treeLines(Zol::ByName(roots), rootPath(root->name().view()))) {
      report.write(Report::Kind::tree, line);
    }
  }
  report.write(Report::Kind::digest, digestText(roots));
}

}  // namespace

std::string digestText(std::vector<Zol::Ptr<Zol::Entity>> const& roots) {
  std::string result;
  for (Zol::Ptr<Zol::Entity> const& root : roots) {
    std::array<char, 17> text{};
    std::snprintf(text.data(), text.size(), "%016" PRIx64, Zol::digest(*root));
    if (!result.empty()) result += ' ';
    result += text.data();
  }
  return result;
}

int runMirror(std::vector<Zol::Name> const& names, int logFd, int reportFd) {
  ReportWriter report(reportFd);
  Zol::Ptr<Connection> const connection =
      Connection::overFd(logFd, {.ownName = "mirror", .peerName = "source"});
  Roots roots;
  Zol::Ptr<ChangeListener> listener;
  while (connection->isOpen()) {
    while (connection->pump()) {
    }
    if (roots.empty()) roots = mountedRoots(*connection, names);
    if (!listener && !roots.empty()) {
      auto const config = Zol::ptrCast<Config>(roots.front());
      if (!config) break;
      listener = new ChangeListener(
          config, [&report](std::string const& line) { report.write(Report::Kind::change, line); });
      report.write(Report::Kind::ready, "");
    }
    if (connection->isOpen()) waitFor(*connection);
  }
  report.write(Report::Kind::ended, connection->error());
  if (listener) reportTrees(roots, report);
  if (report.isBroken()) std::cerr << "mirror: " << connection->error() << '\n';
  return listener && !report.isBroken() ? 0 : 1;
}

}  // namespace RailSeq
