// Serving a board, and the commands that attach to it.
#include <gmock/gmock.h>
#include <sys/socket.h>

#include "railseq/base/input_error.h"
#include "railseq/board/tree_json.h"
#include "support/raw_peer.h"
#include "tool/attached.h"
#include "tool/temp_file.h"

namespace RailSeq {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

TEST_F(Attached, CommandsAnswerAsForABoard) {
  auto const server = serve();
  for (std::string const command : {"tree", "tree --json"}) {
    EXPECT_EQ(at(command).output, railseq(command + " --board '" + kBoard + "'").output);
  }
  EXPECT_EQ(at("get", "'" + kMain + "/dexoDesc'").output, "switch/dexoDesc[main-bus]\n");
  EXPECT_EQ(at("count", "'" + kMain + "/voltageRail'").output, "3\n");
  EXPECT_THAT(at("types", "switch/dexoDesc[main-bus]/busId").output,
              StartsWith("Hardware::SmbusId: value"));
  EXPECT_EQ(at("complete", "'" + kMain + "/poll'").output, kMain + "/pollingEnabled\n");
  Outcome const bad = at("get", "'" + kMain + "/pol'");
  EXPECT_EQ(bad.exitCode, 1);
  EXPECT_THAT(bad.output, HasSubstr("has no attribute 'pol'"));
  Outcome const refused = at("set", "'" + kMain + "/ready=true'");
  EXPECT_EQ(refused.exitCode, 1);
  EXPECT_THAT(refused.output, HasSubstr("serves switch read-only"));
  for (std::string const command : {"make", "erase"}) {
    EXPECT_THAT(at(command, "'switch/dexoDesc[main-bus]'").output,
                HasSubstr("serves switch read-only"));
  }
  EXPECT_EQ(at("types").output, railseq("types --board '" + kBoard + "'").output);
}

TEST_F(Attached, WhatIsMadeAndTakenOutAtAWritableOneArrives) {
  auto const server = serve(kBoard, true);
  auto const client = watch(kLastOfBoard);
  std::string const bus = "switch/dexoDesc[new]";
  std::string const psoc = "switch/realPsocController[new]";
  EXPECT_EQ(at("make", "'" + bus + "' busId=3 '" + psoc + "' 'dexoDesc=" + bus + "'").output,
            bus + " added\n" + psoc + " added\n");
  client->awaits(psoc + " added\n");
  EXPECT_EQ(at("get", "'" + psoc + "/dexoDesc/busId'").output, "3\n");
  std::string const sensor = "Entity('EntityMib::Sensor', 'VoltageSensor12V')";
  std::string const reference = kMain + "/voltageRail[1]/sensorMib";
  EXPECT_EQ(at("set", "\"" + reference + "=" + sensor + "\"").exitCode, 0);
  EXPECT_EQ(at("get", "'" + reference + "'").output, sensor + "\n");
  EXPECT_EQ(at("erase", "'" + psoc + "' '" + reference + "' '" + kMain + "/reloadCause'").exitCode,
            0);
  client->awaits(psoc + " removed\n");
  EXPECT_EQ(at("count", "switch/realPsocController '" + kMain + "/reloadCause'").output, "1\n0\n");
  EXPECT_EQ(at("get", "'" + reference + "'").output, "None\n");
  // All of them, or none.
  EXPECT_EQ(at("erase", "'" + bus + "' '" + kMain + "/location'").exitCode, 1);
  EXPECT_EQ(at("get", "'" + bus + "/busId'").output, "3\n");
  EXPECT_EQ(client->end(SIGINT), 0);
}

TEST_F(Attached, WhatIsSetAtAWritableOneIsSeenByEachWatch) {
  auto const server = serve(kBoard, true);
  auto const first = watch(kLastOfBoard);
  auto const second = watch(kLastOfBoard);
  RunningTool json({"watch", address(), "--json", "--initial", kMain + "/pollingEnabled"});
  json.awaits("\"after\":true}\n");
  RunningTool tree({"tree", address(), "--follow", kMain + "/pollingEnabled"});
  tree.awaits(" = true\n");
  Outcome const set = at("set", "'" + kMain + "/pollingEnabled=false' '" + kMain + "/ready=true'");
  EXPECT_EQ(set.exitCode, 0);
  EXPECT_EQ(set.output,
            kMain + "/pollingEnabled: true -> false\n" + kMain + "/ready: false -> true\n");
  for (RunningTool* const each : {first.get(), second.get()}) {
    EXPECT_EQ(each->awaits("/ready: false -> true\n"),
              kMain + "/pollingEnabled: true -> false\n" + kMain);
  }
  Json const change = Json::parse(json.awaits("\n"));
  EXPECT_EQ(change["path"], kMain + "/pollingEnabled");
  EXPECT_EQ(change["before"], true);
  EXPECT_EQ(change["after"], false);
  EXPECT_THAT(tree.awaits(" = false\n"), StartsWith("--- 2"));
  // A text that differs only far behind its beginning differs.
  std::string const longText(200, 'x');
  for (char const* const end : {"1", "2"}) {
    EXPECT_EQ(at("set", "'" + kMain + "/description=" + longText + end + "'").exitCode, 0);
    first->awaits("/description: ");
  }
  // Of several assignments all are made, or none.
  EXPECT_EQ(at("set", "'" + kMain + "/ready=false' '" + kMain + "/ready=maybe'").exitCode, 1);
  EXPECT_EQ(at("get", "'" + kMain + "/ready'").output, "true\n");
  EXPECT_EQ(first->end(SIGINT), 0);
  second->closeOutput();
  EXPECT_EQ(second->end(), 0);
}

TEST_F(Attached, AWatchTellsWhatDiffersWhenTheServerComesBack) {
  TempFile const before(R"({"config": {"name": "b", "realPsocController": {
    "p": {"location": "here"}, "q": {}}}})");
  TempFile const after(R"({"config": {"name": "b", "realPsocController": {
    "p": {"location": "there"}}}})");
  auto server = serve(before.path());
  auto const client = watch("b/realPsocController[q]/debugPowerOff: ");
  server->end(SIGKILL);
  client->awaits("; trying again\n");
  server = serve(after.path());
  std::string told = client->awaits(": attached again\n");
  EXPECT_THAT(told, AllOf(HasSubstr("b/realPsocController[p]/location: \"here\" -> \"there\"\n"),
                          HasSubstr("b/realPsocController[q] removed\n")));
  std::string changes;
  for (std::size_t end = told.find('\n'); end != std::string::npos; end = told.find('\n')) {
    if (!told.starts_with("railseq: ")) changes += 'c';
    told.erase(0, end + 1);
  }
  EXPECT_EQ(changes, "cc") << client->text();
  EXPECT_EQ(client->end(SIGTERM), 0);
}

TEST_F(Attached, AServerEndsInGoodOrder) {
  auto const server = serve();
  RunningTool client({"watch", address(), "--no-reconnect", "--initial"});
  client.awaits(kLastOfBoard);
  EXPECT_EQ(server->end(SIGTERM), 0);
  EXPECT_FALSE(hasSocket());
  EXPECT_EQ(client.end(), 3);
  EXPECT_THAT(client.text(), HasSubstr("closed by the peer: the serving process ends\n"));
  EXPECT_EQ(at("get", "x").exitCode, 3);
}

TEST_F(Attached, APeerThatSendsGarbageIsDroppedAndTheOthersLiveOn) {
  auto const server = serve();
  auto const client = watch(kLastOfBoard);
  Fd const bad = connect();
  ASSERT_EQ(::send(bad.get(), "garbage garbage", 15, 0), 15);
  EXPECT_THAT(server->awaits("bytes, 1 to 4096 allowed\n"), HasSubstr(" dropped: frame of "));
  EXPECT_EQ(at("count", "'" + kMain + "/voltageRail'").output, "3\n");
  EXPECT_EQ(client->end(SIGINT), 0);
}

TEST_F(Attached, AnAddressThatIsTakenIsRefused) {
  {
    auto const server = serve();
    Outcome const second = railseq("serve '" + kBoard + "' --listen '" + address() + "'");
    EXPECT_EQ(second.exitCode, 1);
    EXPECT_THAT(second.output, HasSubstr("another process listens there"));
    EXPECT_TRUE(hasSocket());
  }
  // It was killed: its socket is still there, and is replaced.
  EXPECT_TRUE(hasSocket());
  EXPECT_EQ(serve()->end(SIGTERM), 0);
  TempFile const file("precious");
  Outcome const noSocket = railseq("serve '" + kBoard + "' --listen 'unix:" + file.path() + "'");
  EXPECT_EQ(noSocket.exitCode, 1);
  EXPECT_THAT(noSocket.output, HasSubstr("a file that is no socket"));
}

TEST_F(Attached, WaitEndsWithTheValueOrAtTheTimeout) {
  auto server = serve(kBoard, true);
  Outcome const late = at("wait", "--timeout 0.1 '" + kMain + "/ready=true'");
  EXPECT_EQ(late.exitCode, 4);
  EXPECT_THAT(late.output, HasSubstr("timed out; its last value is false"));
  EXPECT_EQ(at("wait", "'" + kMain + "/ready=False'").exitCode, 0);
  EXPECT_EQ(at("wait", "'" + kMain + "/ready=soon'").exitCode, 1);
  RunningTool value({"wait", address(), kMain + "/voltageRail[0]/overrideVoutUvLimit=11.50"});
  RunningTool member({"wait", address(), "switch/realPsocController[late]/location=here"});
  server->awaits("(railseq wait) attached");
  EXPECT_EQ(at("set", "'" + kMain + "/voltageRail[0]/overrideVoutUvLimit=11.5'").exitCode, 0);
  EXPECT_EQ(value.end(), 0);
  server->end(SIGTERM);
  TempFile const other(R"({"config": {"name": "switch", "realPsocController": {
    "late": {"location": "here"}}}})");
  server = serve(other.path());
  EXPECT_EQ(member.end(), 0);
}

TEST_F(Attached, HealthTellsWhatAPeerThatReadsNothingIsOwed) {
  TempFile const board(R"({"config": {"realPsocController": {"p": {"location": ")" +
                       std::string(4000000, 'x') + R"("}}}})");
  auto const server = serve(board.path());
  Fd const stuck = connect();
  test::Bytes const hello = test::Frame::hello().bytes();
  ASSERT_GT(::send(stuck.get(), hello.data(), hello.size(), 0), 0);
  server->awaits(" (raw) attached\n");
  Outcome const health = at("health", "--json");
  EXPECT_EQ(health.exitCode, 0);
  Json const report = Json::parse(health.output);
  Json const& connection = report["connections"][0];
  EXPECT_EQ(connection["state"], "catching up");
  EXPECT_EQ(connection["owed"]["location"], 1);
  EXPECT_FALSE(connection["owed"].contains("realPsocController"));
  EXPECT_TRUE(connection.contains("bytesWaiting"));
  EXPECT_EQ(report["roots"][0], "config");
  EXPECT_EQ(at("count", "config/dexoDesc").exitCode, 0);
  EXPECT_THAT(at("health").output,
              AllOf(HasSubstr("(raw): catching up"), HasSubstr(" location (1 object)"),
                    HasSubstr("(railseq): closed, closed by the peer")));
}

TEST(Tcp, APortThatIsFreeIsToldAndServed) {
  RunningTool server({"serve", kBoard, "--listen", "tcp:127.0.0.1:0"});
  server.awaits(" at ");
  std::string const address = server.awaits("\n");
  EXPECT_THAT(address, StartsWith("tcp:127.0.0.1:"));
  EXPECT_EQ(railseq("count '" + address + "' '" + kMain + "/voltageRail'").output, "3\n");
  EXPECT_EQ(railseq("serve '" + kBoard + "' --listen '" + address + "'").exitCode, 1);
  EXPECT_EQ(server.end(SIGINT), 0);
}

TEST(Addresses, AreReadAndWritten) {
  for (char const* const text : {"unix:/run/a b", "tcp:localhost:7000", "tcp:[::1]:0"}) {
    EXPECT_EQ(parseAddress(text).text(), text);
  }
  EXPECT_EQ(parseAddress("tcp:[::1]:7000").host, "::1");
  std::pair<std::string, char const*> const bad[] = {
      {"", "unix:PATH or tcp:HOST:PORT"},
      {"/run/agent", "unix:PATH or tcp:HOST:PORT"},
      {"unix:", "a path of 1 to 107 bytes"},
      {"unix:" + std::string(108, 'x'), "a path of 1 to 107 bytes"},
      {"tcp:localhost", "tcp:HOST:PORT"},
      {"tcp::7000", "a host"},
      {"tcp:::1:7000", "an IPv6 host in brackets"},
      {"tcp:localhost:", "a port from 0 to 65535"},
      {"tcp:localhost:65536", "a port from 0 to 65535"},
      {"tcp:localhost:7x", "a port from 0 to 65535"}};
  for (auto const& [text, expected] : bad) {
    try {
      (void)parseAddress(text);
      ADD_FAILURE() << text;
    } catch (InputError const& error) {
      EXPECT_THAT(error.what(), AllOf(StartsWith("address: found \""), HasSubstr(expected)));
    }
  }
  EXPECT_EQ(railseq("tree tcp:localhost:0").exitCode, 2);
  EXPECT_EQ(railseq("watch nowhere").exitCode, 2);
  EXPECT_EQ(railseq("get unix:/nonexistent").exitCode, 2);
  EXPECT_EQ(railseq("health unix:/nonexistent").exitCode, 3);
  EXPECT_EQ(railseq("types unix:/nonexistent").exitCode, 3);
  EXPECT_EQ(railseq("get --timeout nan unix:/nonexistent x").exitCode, 2);
}

}  // namespace
}  // namespace RailSeq
