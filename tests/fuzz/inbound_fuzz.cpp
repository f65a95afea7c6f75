// What a peer sends: any bytes as a stream, and any frames to an end that a recorded session has
// filled. Each leaves the connection open, or closed with a reason; a message that is not applied
// changes nothing; and an honest peer brings the tree back to what it says.
#include "fuzz/inbound.h"

namespace {

using namespace fuzz;
using Zol::NboAttrLog::Connection;
using Zol::NboAttrLog::MountOptions;

constexpr std::size_t kMaxFrames = 60;

std::uint64_t digestOf(std::vector<Zol::Ptr<Zol::Entity>> const& roots) {
  std::uint64_t sum = 0;
  for (auto const& root : roots) sum = sum * 31 + (root ? Zol::digest(*root) : 1);
  return sum;
}

std::vector<Zol::Ptr<Zol::Entity>> mountedAt(Connection const& connection) {
  return {connection.mounted("board"), connection.mounted("state")};
}

void requireReason(Connection const& connection) {
  require(connection.isOpen() == connection.error().empty(), "open, or closed with a reason");
}

// Hands over one frame after the other; `roots` gives those of this end.
template <class Roots>
void sendFrames(RawPeer& peer, Bytes const& input, Roots const& roots) {
  auto const passedOver = [&] {
    auto const counters = peer.connection->counters();
    return counters.refused + counters.unknown;
  };
  std::uint64_t before = digestOf(roots());
  std::size_t count = 0;
  for (Bytes const& frame : framesOf(input)) {
    if (++count > kMaxFrames || !peer.connection->isOpen()) break;
    std::uint64_t const formerly = passedOver();
    Bytes whole{0, 0, static_cast<std::uint8_t>(frame.size() >> 8),
                static_cast<std::uint8_t>(frame.size())};
    whole.insert(whole.end(), frame.begin(), frame.end());
    peer.send(whole);
    requireReason(*peer.connection);
    std::uint64_t const after = digestOf(roots());
    bool const applied = peer.connection->isOpen() && passedOver() == formerly;
    require(applied || after == before, "a message applies whole, or changes nothing");
    before = after;
  }
}

std::string textOf(std::vector<Zol::Ptr<Zol::Entity>> const& roots) {
  std::string text;
  for (auto const& root : roots) text += root ? test::textOf(*root) : "none\n";
  return text;
}

void replica(Bytes const& input, MountOptions mount) {
  static Bytes const sessions[] = {recorded(), recorded({MountOptions::writableByPeer})};
  static std::string const filled = [] {
    Board const board;
    board.fill();
    return textOf({board.config, board.status});
  }();
  Bytes const& session = sessions[mount.access == MountOptions::writableByPeer ? 1 : 0];
  {
    RawPeer peer(inboundOptions());
    peer.send(session);
    require(textOf(mountedAt(*peer.connection)) == filled, "a session fills a replica");
    sendFrames(peer, input, [&] { return mountedAt(*peer.connection); });
    require(peer.connection->demuxer()->reactorCount() <= 300, "what a peer binds is bounded");
    peer.hangUp();
    requireReason(*peer.connection);
    (void)textOf(mountedAt(*peer.connection));
  }
  RawPeer honest(inboundOptions());
  honest.send(session);
  require(textOf(mountedAt(*honest.connection)) == filled, "an honest peer puts it right");
  honest.connection->close();
  Zol::NboAttrLog::forgetPeer("this end");
}

void owner(Bytes const& input) {
  Owner owner({MountOptions::writableByPeer});
  std::vector<Zol::Ptr<Zol::Entity>> const roots{owner.board.config, owner.board.status};
  sendFrames(owner.peer, input, [&] { return roots; });
  owner.peer.hangUp();
  requireReason(*owner.peer.connection);
  auto const [here, there] = Zol::NboAttrLog::connectionPair();
  for (auto const& root : roots) here->mountIs(root);
  while (here->pump() || there->pump()) continue;
  require(textOf(mountedAt(*there)) == textOf(roots), "what the owner has, others can have");
}

void stream(Bytes const& input) {
  RawPeer peer(inboundOptions());
  peer.send(Bytes(input.begin() + 1, input.end()));
  requireReason(*peer.connection);
  (void)textOf(mountedAt(*peer.connection));
  peer.hangUp();
  requireReason(*peer.connection);
}

}  // namespace

int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  if (size == 0) return 0;
  Bytes const input(data, data + size);
  switch (static_cast<Part>(input.front() % 4)) {
    case Part::stream:
      stream(input);
      break;
    case Part::readOnlyReplica:
      replica(input, {});
      break;
    case Part::writableReplica:
      replica(input, {MountOptions::writableByPeer});
      break;
    case Part::owner:
      owner(input);
      break;
  }
  return 0;
}
