// Plays a recording, and tells each frame as it goes in.
#include "railseq/recording/decode.h"

#include <ostream>

#include "railseq/base/command_error.h"
#include "railseq/recording/log_message.h"
#include "railseq/recording/recording_player.h"
#include "railseq/recording/recording_time.h"

namespace RailSeq {

namespace {

class Decoder {
 public:
  Decoder(RecordingReader& reader, bool asJson, std::ostream& out)
      : reader_(reader),
        asJson_(asJson),
        out_(out),
        player_([this](RecordingPlayer::Frame const& frame, std::function<void()> const& apply) {
          frameArrived(frame, apply);
        }) {}

  void play(Record const& record) {
    time_ = record.time;
    switch (record.kind) {
      case RecordKind::connected:
        received_ = {};
        sent_ = {};
        event("connected", record.bytes);
        break;
      case RecordKind::lost:
        event("lost", record.bytes);
        break;
      case RecordKind::ended:
        event("ended", record.bytes);
        break;
      case RecordKind::received:
      case RecordKind::sent:
        break;
    }
    bool const wasOpen = isOpen();
    player_.play(record);
    if (record.kind == RecordKind::received && wasOpen && !isOpen()) {
      event("closed", player_.connection()->error());
    }
  }

 private:
  [[nodiscard]] bool isOpen() const {
    return player_.connection() && player_.connection()->isOpen();
  }

  void frameArrived(RecordingPlayer::Frame const& frame, std::function<void()> const& apply) {
    LogMessage const message = (frame.fromSource ? received_ : sent_)
                                   .read(frame.bytes, player_.connection(), frame.fromSource);
    std::uint64_t const refused = player_.refused();
    std::uint64_t const unknown = player_.unknown();
    apply();
    std::string const outcome = player_.refused() != refused   ? "refused"
                                : player_.unknown() != unknown ? "unknown"
                                                               : "";
    if (asJson_) {
      Json json = start(frame.fromSource ? "in" : "out");
      json.update(message.json());
      if (!outcome.empty()) json["outcome"] = outcome;
      out_ << jsonLine(json);
      return;
    }
    out_ << offsetText(time_) << (frame.fromSource ? "  <-  " : "  ->  ") << message.line()
         << (outcome.empty() ? "" : "  [" + outcome + "]") << '\n';
  }

  void event(char const* what, std::string const& about) {
    if (asJson_) {
      Json json = start("none");
      json["event"] = what;
      json["about"] = about;
      out_ << jsonLine(json);
      return;
    }
    out_ << offsetText(time_) << "  --  " << what << (about.empty() ? "" : ": ") << about << '\n';
  }

  [[nodiscard]] Json start(char const* direction) const {
    Json json = timeJson(reader_.startedAt(), time_);
    json["direction"] = direction;
    return json;
  }

  RecordingReader& reader_;
  bool asJson_;
  std::ostream& out_;
  std::uint64_t time_ = 0;
  LogMessageReader received_;
  LogMessageReader sent_;
  RecordingPlayer player_;
};

}  // namespace

int decode(RecordingReader& reader, bool asJson, std::ostream& out, std::ostream& notes) {
  Decoder decoder(reader, asJson, out);
  if (!asJson) out << "recording begun " << clockText(reader.startedAt()) << '\n';
  while (auto const record = reader.next()) decoder.play(*record);
  if (reader.damage().empty()) return 0;
  notes << "railseq: " << reader.damage() << '\n';
  return static_cast<int>(ExitCode::refused);
}

int runDecode(DecodeLine const& line, std::ostream& out, std::ostream& notes) {
  RecordingReader reader(line.file);
  return decode(reader, line.json, out, notes);
}

}  // namespace RailSeq
