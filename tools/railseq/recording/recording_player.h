// Plays a recording: a real connection takes in the bytes of its source, so that the trees are
// those that the log makes.
#pragma once

#include "hwrailseq.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "railseq/recording/recording_file.h"

namespace RailSeq {

class RecordingPlayer {
 public:
  using Connection = Zol::NboAttrLog::Connection;

  // A frame, from its kind on.
  struct Frame {
    std::string_view bytes;
    // False for what the recorder sent.
    bool fromSource = true;
  };
  // Told of each whole frame. It calls `apply` once, which does nothing for a sent one.
  using FrameHook = std::function<void(Frame const& frame, std::function<void()> const& apply)>;

  explicit RecordingPlayer(FrameHook hook = nullptr);
  RecordingPlayer(RecordingPlayer const&) = delete;
  RecordingPlayer& operator=(RecordingPlayer const&) = delete;
  ~RecordingPlayer();

  void play(Record const& record);

  // Null before the first one, and ended from its loss on.
  [[nodiscard]] Connection* connection() const { return connection_.get(); }
  // How many there have been.
  [[nodiscard]] std::size_t connections() const { return connections_; }
  // The trees as they are by now; those of a lost connection until they have come again.
  [[nodiscard]] std::vector<Zol::Ptr<Zol::Entity>> roots() const;
  // Whether all that was owed at the beginning of the present or last connection has come.
  [[nodiscard]] bool isComplete() const { return isComplete_; }
  // Why the trees are not, or no longer, those of the source; empty when they are.
  [[nodiscard]] std::string note() const;
  // Messages of all connections that were refused, and that were unknown.
  [[nodiscard]] std::uint64_t refused() const;
  [[nodiscard]] std::uint64_t unknown() const;

 private:
  class Tape;

  void connect();
  void takeIn(std::string_view bytes);
  void takeSent(std::string_view bytes);
  void feed(std::string_view bytes);
  // Ends the connection as the recorded one has ended.
  void lose(std::string const& reason);

  FrameHook hook_;
  Zol::Name peerName_;
  Zol::Ptr<Connection> connection_;
  std::shared_ptr<Tape> tape_;
  std::size_t connections_ = 0;
  // Bytes of frames that are not whole yet.
  std::string received_;
  std::string sent_;
  std::vector<Zol::Ptr<Zol::Entity>> formerRoots_;
  bool isComplete_ = false;
  bool wasComplete_ = false;
  std::uint64_t time_ = 0;
  std::uint64_t lostAt_ = 0;
  std::string lossReason_;
  std::uint64_t refused_ = 0;
  std::uint64_t unknown_ = 0;
};

}  // namespace RailSeq
