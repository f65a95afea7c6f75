// Requests a health report and shows it.
#include "railseq/attach/health.h"

#include <poll.h>
#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <iostream>
#include <sstream>
#include <system_error>

#include "railseq/attach/served_peer.h"
#include "railseq/attach/trees.h"
#include "railseq/base/command_error.h"
#include "railseq/base/wording.h"

namespace RailSeq {

namespace {

constexpr std::size_t kLongestReport = std::size_t{16} << 20;

// All that the process answers, up to the end of the stream.
[[nodiscard]] std::string answerOf(Address const& address, Clock::time_point deadline) {
  Fd const socket = connectTo(address, deadline);
  ::send(socket.get(), kHealthRequest.data(), kHealthRequest.size(), MSG_NOSIGNAL);
  std::string answer;
  while (answer.size() < kLongestReport) {
    std::array<char, 4096> block{};
    ssize_t const count = ::recv(socket.get(), block.data(), block.size(), 0);
    if (count == 0) return answer;
    if (count > 0) {
      answer.append(block.data(), static_cast<std::size_t>(count));
      // An attribute log begins with a zero byte: it will not end by itself.
      if (answer.front() == '\0') return answer;
      continue;
    }
    if (errno != EAGAIN && errno != EINTR) {
      throw CommandError(ExitCode::peerLost, address.text() + ": the peer has gone: " +
                                                 std::generic_category().message(errno));
    }
    auto const left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
    if (left.count() <= 0) {
      throw CommandError(ExitCode::timedOut, address.text() + ": timed out without a report");
    }
    pollfd waited{socket.get(), POLLIN, 0};
    ::poll(&waited, 1, static_cast<int>(std::min<std::int64_t>(left.count(), 1000)));
  }
  return answer;
}

[[nodiscard]] std::string joined(Json const& names) {
  std::string text;
  for (Json const& name : names) text += (text.empty() ? "" : ", ") + name.get<std::string>();
  return text;
}

void showConnection(Json const& connection, std::ostream& out) {
  auto const number = [&](char const* name) { return connection.at(name).get<std::uint64_t>(); };
  auto const seconds = [&](char const* name) { return connection.at(name).get<double>(); };
  out << connection.at("peer").get<std::string>() << ": "
      << connection.at("state").get<std::string>();
  if (connection.contains("reason")) out << ", " << connection["reason"].get<std::string>();
  out << "\n  connected " << seconds("connectedSeconds") << " s ago, last heard of "
      << seconds("silentSeconds") << " s ago\n";
  if (connection.contains("owed")) {
    out << "  owed:";
    for (auto const& [name, count] : connection["owed"].items()) {
      out << ' ' << name << " (" << counted(count.get<std::size_t>(), "object") << ')';
    }
    if (connection["owed"].empty()) out << " nothing";
    out << "; " << counted(number("bytesWaiting"), "byte") << " waiting\n";
  }
  out << "  out " << counted(number("messagesOut"), "message") << ", "
      << counted(number("bytesOut"), "byte") << "; in " << counted(number("messagesIn"), "message")
      << ", " << counted(number("bytesIn"), "byte") << "\n  coalesced " << number("coalesced")
      << ", refused " << number("refused") << ", unknown " << number("unknown") << ", dropped "
      << number("dropped") << '\n';
}

[[nodiscard]] std::string reportText(Json const& report) {
  std::ostringstream out;
  out << "process " << report.at("process").get<int>() << " serves " << joined(report.at("roots"))
      << " at " << report.at("address").get<std::string>()
      << (report.at("writable").get<bool>() ? " for writing" : "") << " since "
      << report.at("servingSeconds").get<std::int64_t>() << " s; "
      << counted(report.at("connections").size(), "connection") << ", " << report.at("gone").size()
      << " gone\n";
  for (char const* const list : {"connections", "gone"}) {
    for (Json const& connection : report.at(list)) showConnection(connection, out);
  }
  return out.str();
}

}  // namespace

int runHealth(CommandLine const& line, std::ostream& out) {
  Address const address = parseAddress(line.address);
  std::string const answer = answerOf(address, deadlineOf(line));
  try {
    Json const report = Json::parse(answer);
    out << (line.json ? jsonText(report) : reportText(report));
  } catch (Json::exception const&) {
    throw CommandError(ExitCode::refused,
                       address.text() + ": the peer gives no health report: is it railseq serve?");
  }
  return 0;
}

}  // namespace RailSeq
