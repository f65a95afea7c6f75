// Writes the seed inputs of the inbound target to a directory: recorded sessions, whole and cut
// into pieces.
#include <fstream>
#include <iostream>

#include "fuzz/inbound.h"

namespace {

using namespace fuzz;
using Zol::NboAttrLog::MountOptions;

std::string directory;

void write(std::string const& name, Bytes const& input) {
  std::ofstream file(directory + "/" + name, std::ios::binary);
  file.write(reinterpret_cast<char const*>(input.data()),
             static_cast<std::streamsize>(input.size()));
}

// Ten frames in each file.
void writeFrames(std::string const& name, Part part, Bytes const& stream) {
  Bytes input{static_cast<std::uint8_t>(part)};
  int frames = 0;
  auto const end = [&] {
    if (input.size() > 1) write(name + std::to_string(frames / 10), input);
    input.resize(1);
  };
  eachFrame(stream, [&](Bytes const& frame) {
    if (frame.size() > 300) return;  // a long text's
    append(input, frame);
    if (++frames % 10 == 0) end();
  });
  end();
}

// What the owner says when it brackets everything again, and when it changes.
Bytes changes(MountOptions mount) {
  Owner owner(mount);
  std::size_t const before = owner.peer.received().size();
  for (Zol::Entity* const root : {static_cast<Zol::Entity*>(owner.board.config.get()),
                                  static_cast<Zol::Entity*>(owner.board.status.get())}) {
    root->zolNboAttrLogSa(owner.peer.connection->out())->doSerializeOrphan();
  }
  owner.peer.send(Bytes());
  test::Hand hand(2);
  for (int i = 0; i < 100; ++i) {
    hand.change(i % 4 == 0 ? static_cast<Zol::Entity&>(*owner.board.status) : *owner.board.config);
    owner.peer.send(Bytes());
  }
  Bytes const& all = owner.peer.received();
  return {all.begin() + static_cast<std::ptrdiff_t>(before), all.end()};
}

// What a writable replica says when it is changed everywhere.
Bytes writes() {
  RawPeer replica(inboundOptions());
  replica.send(recorded({MountOptions::writableByPeer}));
  std::size_t const before = replica.received().size();
  test::Hand hand(1);
  for (int i = 0; i < 150; ++i) {
    hand.change(*replica.connection->mounted(i % 4 == 0 ? "state" : "board"));
    replica.send(Bytes());
  }
  Bytes const& all = replica.received();
  return {all.begin() + static_cast<std::ptrdiff_t>(before), all.end()};
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: " << argv[0] << " DIRECTORY\n";
    return 2;
  }
  directory = argv[1];
  Bytes stream{static_cast<std::uint8_t>(Part::stream)};
  Bytes const session = recorded();
  stream.insert(stream.end(), session.begin(), session.end());
  write("stream", stream);
  writeFrames("session", Part::readOnlyReplica, session);

  writeFrames("changes", Part::readOnlyReplica, changes({}));
  writeFrames("writable", Part::writableReplica, changes({MountOptions::writableByPeer}));
  writeFrames("writes", Part::owner, writes());
  return 0;
}
