// Recordings of a source in this process: what is played is what the source held, at each time, and
// whatever becomes of the file.
#include "railseq/recording/recording.h"

#include <gmock/gmock.h>

#include <set>
#include <sstream>

#include "railseq/recording/decode.h"
#include "railseq/recording/recording_player.h"
#include "railseq/recording/replay.h"
#include "railseq/recording/tree_difference.h"
#include "support/replica_pair.h"
#include "support/tree.h"
#include "tool/run_tool.h"
#include "tool/temp_file.h"

namespace RailSeq {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using Roots = std::vector<Zol::Ptr<Zol::Entity>>;

// What a source held at a time.
struct Mark {
  std::uint64_t time;
  std::vector<std::uint64_t> digests;
  Snapshot snapshot{};
};

std::vector<std::uint64_t> digestsOf(Roots const& roots) {
  std::vector<std::uint64_t> digests;
  for (auto const& root : roots) digests.push_back(Zol::digest(*root));
  return digests;
}

// A source that is changed, and a recorder that is attached to it now and then.
class Session {
 public:
  explicit Session(unsigned int seed) : hand_(seed) {
    roots = {Hardware::Ucd9012::configFactory("board"),
             Hardware::Ucd9012::statusFactory("board-status")};
  }
  ~Session() {
    if (source_) detach("end of the test");
    Zol::NboAttrLog::forgetPeer("recorded");
    Zol::NboAttrLog::forgetPeer("recorder");
  }

  void attach() {
    auto [here, there] = Zol::NboAttrLog::memoryTransports(65536);
    source_ = test::Connection::over(std::move(here), {.ownName = "recorded"});
    replica_ = test::Connection::over(recorder.connected("here", std::move(there)),
                                      {.ownName = "recorder"});
    for (auto const& root : roots) source_->mountIs(root);
    flow();
  }
  void detach(std::string const& reason) {
    source_->close();
    flow();
    source_ = replica_ = nullptr;
    recorder.lost(reason);
  }
  void flow() {
    for (bool worked = true; worked;) {
      worked = source_->pump();
      worked = replica_->pump() || worked;
    }
  }
  void fill() {
    for (auto const& root : roots) hand_.fill(*root);
  }
  void change(int times) {
    while (times-- > 0) hand_.change(*roots[hand_.random()() % roots.size()]);
    if (source_) flow();
  }
  [[nodiscard]] Mark mark() const { return {recorder.time(), digestsOf(roots), snapshotOf(roots)}; }
  [[nodiscard]] std::string const& path() const { return file_.path(); }

 private:
  TempFile file_{""};
  test::Hand hand_;
  Zol::Ptr<test::Connection> source_;
  Zol::Ptr<test::Connection> replica_;

 public:
  Roots roots;
  Recorder recorder{file_.path(), true, 0};
};

std::string seconds(std::uint64_t time) {
  std::string fraction = std::to_string(time % 1000000000);
  fraction.insert(0, 9 - fraction.size(), '0');
  return std::to_string(time / 1000000000) + "." + fraction;
}

struct Shown {
  int exitCode;
  std::string out;
  std::string notes;
};

Shown replayed(ReplayLine const& line) {
  std::ostringstream out;
  std::ostringstream notes;
  int const exitCode = runReplay(line, out, notes);
  return {exitCode, out.str(), notes.str()};
}

std::string contentOf(std::string const& path) {
  std::ostringstream text;
  text << std::ifstream(path, std::ios::binary).rdbuf();
  return text.str();
}

RecordingReader readerOf(std::string const& content) {
  return RecordingReader(std::make_unique<std::istringstream>(content), "r");
}

TEST(Recording, IsPlayedToWhatTheSourceHeldAtEachTime) {
  for (unsigned int seed = 1; seed <= 1; ++seed) {
    SCOPED_TRACE(seed);
    Session session(seed);
    session.fill();
    session.attach();
    std::vector<Mark> marks{session.mark()};
    std::set<std::size_t> const compared{2, 8, 12};
    for (int i = 0; i < 20; ++i) {
      if (i == 10) {
        session.detach("cut");
        session.change(40);
        session.attach();
      }
      session.change(5);
      marks.push_back(session.mark());
      if (compared.contains(marks.size() - 1)) marks.back().snapshot = snapshotOf(session.roots);
    }
    session.recorder.ended("done");

    RecordingReader reader(session.path());
    RecordingPlayer player;
    std::size_t next = 0;
    while (auto const record = reader.next()) {
      for (; next < marks.size() && record->time > marks[next].time; ++next) {
        EXPECT_EQ(digestsOf(player.roots()), marks[next].digests) << next;
        EXPECT_EQ(player.note(), "");
      }
      player.play(*record);
    }
    EXPECT_TRUE(reader.hasEnd());
    EXPECT_EQ(reader.damage(), "");
    EXPECT_EQ(digestsOf(player.roots()), marks.back().digests);
    EXPECT_EQ(player.connections(), 2U);
    EXPECT_EQ(player.refused() + player.unknown(), 0U);

    // Two times on one side of the cut, and one on either side.
    for (auto const& [from, to] : {std::pair{2U, 8U}, {8U, 12U}}) {
      Mark const& first = marks[from];
      Mark const& last = marks[to];
      std::string expected;
      for (TreeChange const& difference : differences(first.snapshot, last.snapshot)) {
        expected += changeText(difference) + "\n";
      }
      Shown const shown =
          replayed({.file = session.path(), .from = seconds(first.time), .to = seconds(last.time)});
      EXPECT_EQ(shown.out, expected);
      EXPECT_EQ(shown.notes, "");
    }
  }
}

// What `--changes` tells from a time on leads from what there was then to what there is at the end.
TEST(Recording, TheChangesAddUpToTheDifference) {
  Session session(7);
  session.fill();
  session.attach();
  std::uint64_t const from = session.recorder.time();
  Snapshot const first = snapshotOf(session.roots);
  session.change(60);
  session.detach("cut");
  session.change(30);
  session.attach();
  session.change(60);
  Snapshot const last = snapshotOf(session.roots);
  session.recorder.ended("done");

  Shown const shown =
      replayed({.file = session.path(), .from = seconds(from), .changes = true, .json = true});
  std::map<std::string, Json> values;
  std::set<std::string> events;
  std::istringstream lines(shown.out);
  for (std::string line; std::getline(lines, line);) {
    Json const change = Json::parse(line);
    if (change.contains("path")) {
      values[change["path"].get<std::string>()] = change.value("after", Json("removed"));
    } else {
      events.insert(change["event"].get<std::string>());
    }
  }
  EXPECT_THAT(events, testing::ElementsAre("complete", "connected", "ended", "lost"));
  std::size_t compared = 0;
  for (TreeChange const& difference : differences(first, last)) {
    auto const now = last.find(difference.path);
    bool const isEntity = now != last.end() && now->second.isEntity;
    if (difference.kind != TreeChange::Kind::changed || isEntity) continue;
    // Who went and came again has its first values, of which nothing is told.
    auto const isAbove = [&](auto const& told) {
      return difference.path.starts_with(told.first + "/");
    };
    // What is referred to may have left its holder, and has no path any more.
    bool const isMoved = difference.after && difference.after->text.starts_with("Entity(");
    if (isMoved || std::ranges::any_of(values, isAbove)) continue;
    ++compared;
    ASSERT_TRUE(values.contains(difference.path)) << changeText(difference);
    EXPECT_EQ(values[difference.path], changeJson(difference)["after"]) << difference.path;
  }
  EXPECT_GT(compared, 20U);
}

TEST(Recording, CutOrChangedAtAnyByteIsReadUpToThere) {
  Session session(1);
  session.attach();
  auto const main = test::addController(static_cast<Config&>(*session.roots.front()), "main");
  for (std::uint8_t i = 0; i < 4; ++i) {
    session.flow();
    main->voltageRailIs(i, nullptr, nullptr);
  }
  for (std::uint8_t i = 0; i < 4; ++i) {
    session.flow();
    main->voltageRailDel(i);
  }
  session.flow();
  session.recorder.ended("done");
  std::string const whole = contentOf(session.path());
  // Where each record begins, and the tree in front of it.
  std::vector<std::size_t> begins;
  std::vector<std::vector<std::uint64_t>> digests;
  RecordingReader all = readerOf(whole);
  RecordingPlayer player;
  std::size_t at = kRecordingHeaderSize;
  while (auto const record = all.next()) {
    begins.push_back(at);
    digests.push_back(digestsOf(player.roots()));
    player.play(*record);
    at += kRecordOverhead + record->bytes.size();
  }
  ASSERT_EQ(at, whole.size());
  ASSERT_GT(begins.size(), 10U);

  std::size_t plays = 0;
  auto const readsUpTo = [&](std::string const& content, std::size_t byte, bool isCut) {
    std::size_t const good =
        static_cast<std::size_t>(std::ranges::upper_bound(begins, byte) - begins.begin()) - 1;
    bool const isWhole = isCut && begins[good] == byte;
    RecordingReader reader = readerOf(content);
    std::vector<Record> records;
    while (auto record = reader.next()) records.push_back(std::move(*record));
    ASSERT_EQ(records.size(), good) << byte;
    EXPECT_EQ(reader.damage().empty(), isWhole) << byte;
    if (!isWhole) {
      EXPECT_THAT(reader.damage(), HasSubstr("at byte " + std::to_string(begins[good])));
    }
    if (byte % 61 != 0) return;
    ++plays;
    RecordingPlayer again;
    for (Record const& record : records) again.play(record);
    EXPECT_EQ(digestsOf(again.roots()), digests[good]) << byte;
  };
  for (std::size_t byte = 0; byte < whole.size(); ++byte) {
    std::string changed = whole;
    changed[byte] = static_cast<char>(changed[byte] ^ (byte % 2 == 0 ? 0x01 : 0x80));
    if (byte < kRecordingHeaderSize) {
      EXPECT_THROW(readerOf(whole.substr(0, byte)), InputError);
      EXPECT_THROW(readerOf(changed), InputError);
      continue;
    }
    readsUpTo(whole.substr(0, byte), byte, true);
    readsUpTo(changed, byte, false);
  }
  EXPECT_GT(plays, 10U);

  TempFile const cut(whole.substr(0, begins.back() + 3));
  Shown const shown = replayed({.file = cut.path()});
  EXPECT_EQ(shown.exitCode, 1);
  EXPECT_THAT(shown.notes, AllOf(HasSubstr(cut.path() + ": damaged at byte "),
                                 HasSubstr("cut off inside a record")));
  EXPECT_EQ(shown.out, replayed({.file = session.path()}).out);
}

TEST(Recording, SaysWhenAStateIsNotComplete) {
  Session session(3);
  session.fill();
  session.attach();
  session.detach("the line was cut");
  session.recorder.ended("done");
  EXPECT_THAT(replayed({.file = session.path(), .at = "0"}).notes,
              HasSubstr("nothing had been received"));
  Shown const end = replayed({.file = session.path()});
  EXPECT_EQ(end.exitCode, 0);
  EXPECT_THAT(end.notes,
              AllOf(HasSubstr("the source was lost at +0."), HasSubstr("last one received")));
  EXPECT_THAT(replayed({.file = session.path(), .at = "3600"}).notes,
              HasSubstr("the recording ends at +0."));

  std::string beginning = recordingHeader(0) + recordText(RecordKind::connected, 1, "here");
  RecordingReader reader(session.path());
  for (bool isPart = false; auto const record = reader.next();) {
    if (record->kind != RecordKind::received || isPart) continue;
    beginning += recordText(RecordKind::received, 2, record->bytes.substr(0, 600));
    isPart = true;
  }
  TempFile const part(beginning);
  EXPECT_THAT(
      replayed({.file = part.path()}).notes,
      AllOf(HasSubstr("the state is incomplete"), HasSubstr("stopped before it could end")));
}

TEST(Recording, RefusesTimesAndPathsThatCannotBe) {
  Session session(4);
  session.fill();
  session.attach();
  session.recorder.ended("done");
  std::string const file = session.path();
  for (char const* const time :
       {"", "x", "-1", "1.", "1e3", "2026-11-22", "2026-13-01T00:00:00Z", "1990-01-01T00:00:00Z"}) {
    if (*time == '\0') continue;
    EXPECT_THROW((void)replayed({.file = file, .at = time}), InputError) << time;
  }
  EXPECT_THROW((void)replayed({.file = file, .from = "2", .to = "1"}), InputError);
  EXPECT_THROW((void)replayed({.file = file, .at = "1", .changes = true}), InputError);
  EXPECT_THROW((void)replayed({.file = file, .paths = {"board/nothing"}}), Zol::RangeException);
  EXPECT_THROW((void)replayed({.file = file, .from = "0", .paths = {"nowhere"}}),
               Zol::RangeException);
  EXPECT_EQ(replayed({.file = file, .at = "2100-01-01T00:00:00.5Z", .paths = {"board"}}).exitCode,
            0);
}

// Every attribute of every class comes by its name, with nothing left over.
TEST(Decoding, NamesEveryAttributeOfAFullTree) {
  Session session(5);
  session.fill();
  session.attach();
  session.change(40);
  session.recorder.ended("done");

  std::set<std::string> wanted;
  for (auto const& root : session.roots) {
    auto const add = [&](std::string const&, Zol::Ptr<Zol::GenericIf> const& value) {
      if (!value || !value->type()->isEntity()) return;
      for (auto attr = value->type()->attributeQIteratorConst(); attr; ++attr) {
        bool const isOwn = !Zol::Entity::_fwkType()->attr(attr->name());
        if (isOwn && attr->flags().has(Zol::AttrFlags::kMutable) &&
            attr->flags().has(Zol::AttrFlags::kByName)) {
          wanted.insert(std::string(attr->name().view()));
        }
      }
    };
    Zol::ByName({root}).walk(root->name().view(), add);
  }
  std::ostringstream text;
  std::ostringstream json;
  std::ostringstream notes;
  EXPECT_EQ(runDecode({session.path(), false}, text, notes), 0);
  EXPECT_EQ(runDecode({session.path(), true}, json, notes), 0);
  EXPECT_EQ(notes.str(), "");
  EXPECT_THAT(text.str(), AllOf(Not(HasSubstr("unknown ")), Not(HasSubstr("[unknown]")),
                                Not(HasSubstr("refused")), Not(HasSubstr("malformed")),
                                Not(HasSubstr("too many")), HasSubstr("  ->  HELLO"),
                                HasSubstr("<the last, ")));
  std::set<std::string> named;
  std::istringstream lines(json.str());
  for (std::string line; std::getline(lines, line);) {
    Json const message = Json::parse(line);
    if (message.contains("attribute")) named.insert(message["attribute"].get<std::string>());
  }
  EXPECT_THAT(named, testing::IsSupersetOf(wanted));
}

// The rest of the first line behind the mark.
std::string behind(std::string const& text, std::string const& mark) {
  std::size_t const at = text.find(mark);
  if (at == std::string::npos) return "";
  std::size_t const begin = at + mark.size();
  return text.substr(begin, text.find('\n', begin) - begin);
}

// A serving process goes and comes back while it is recorded; the shell waits for each step.
TEST(RecordingProgram, RecordsAProcessThatGoesAndComesBack) {
  TempFile const script(
      "set -e\n"
      "r='" RAILSEQ_TOOL "'; b='" RAILSEQ_BOARDS
      "/switch-2ucd.json'; d=$(mktemp -d)\n"
      "serve() { \"$r\" serve \"$b\" --listen unix:$d/s --writable >$d/serve & s=$!; until grep -q "
      "serving $d/serve; do sleep 0.02; done; }\n"
      "lines() { until [ $(grep -c 'full state' $d/log) = $1 ]; do sleep 0.02; done; }\n"
      "serve\n"
      "\"$r\" record unix:$d/s $d/f >$d/log & p=$!; until [ -f $d/log ]; do sleep 0.02; done\n"
      "lines 1\n"
      "\"$r\" set unix:$d/s 'switch/realUcd9012Controller[main]/location=J14'\n"
      "kill $s; wait $s; serve; lines 2\n"
      "\"$r\" set unix:$d/s 'switch/realUcd9012Controller[main]/location=J15'\n"
      "until \"$r\" decode $d/f | grep -q J15; do sleep 0.02; done\n"
      "kill -INT $p; wait $p; echo recorded $?; cat $d/log\n"
      "echo 'the end:' $(\"$r\" replay $d/f 'switch/realUcd9012Controller[main]/location')\n"
      "\"$r\" replay $d/f --changes\n"
      "\"$r\" record unix:$d/s $d/f || echo again $?\n"
      "\"$r\" record unix:$d/s $d/small --max-bytes 8192; stat -c 'small %s' $d/small\n"
      "kill $s; wait $s\n"
      "\"$r\" record unix:$d/s $d/none || echo nobody $?; ls $d/none || true\n"
      "\"$r\" replay \"$b\" || echo no recording $?\n"
      "rm -r $d\n");
  Outcome const run = shell("timeout 60 bash '" + script.path() + "'");
  EXPECT_EQ(run.exitCode, 0) << run.output;
  std::string const path = "switch/realUcd9012Controller[main]/location";
  EXPECT_THAT(run.output,
              AllOf(HasSubstr("recorded 0\n"), HasSubstr("trying again\n"),
                    HasSubstr("2 connections\n"), HasSubstr("the end: " + path + " = \"J15\"\n"),
                    HasSubstr("-> \"J14\"\n"), HasSubstr(path + ": \"J14\" -> "),
                    HasSubstr("-- lost: "), HasSubstr("-- ended: stopped"),
                    HasSubstr("is there already; --force replaces it\nagain 2\n"),
                    HasSubstr("full: "), HasSubstr("nobody 3\n"), HasSubstr("No such file"),
                    HasSubstr("is no recording"), HasSubstr("no recording 2\n")))
      << run.output;
  EXPECT_LE(std::stoul("0" + behind(run.output, "small ")), 8192U);
}

}  // namespace
}  // namespace RailSeq
