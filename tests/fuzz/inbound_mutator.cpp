// Changes inputs of the inbound target frame by frame, so that what it finds lies behind the
// framing: frames are taken out, doubled, exchanged and changed inside, and ids replaced by others.
#include <random>

#include "fuzz/inbound.h"

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t maxSize, unsigned int seed);

namespace {

using fuzz::Bytes;

void numberIs(Bytes& frame, std::size_t at, std::uint64_t value, std::size_t bytes) {
  if (frame.size() < at + bytes) return;
  for (std::size_t i = 0; i < bytes; ++i) {
    frame[at + i] = static_cast<std::uint8_t>(value >> (8 * (bytes - 1 - i)));
  }
}

// Behind the kind stands an id, and behind it an attribute's id.
void change(Bytes& frame, std::mt19937& random) {
  std::uint64_t const id = (random() % 4 == 0 ? std::uint64_t{1} << 63 : 0) | (random() % 40 * 2);
  std::uint64_t const attribute = 256 + random() % (random() % 2 ? 10 : 152);
  switch (random() % 7) {
    case 0:
      if (frame.size() > 1) numberIs(frame, 1, id | (frame[1] & 0x80ULL) << 56, 8);
      return;
    case 1:
      return numberIs(frame, 9, random() % 3 ? attribute : -attribute, 4);
    case 2:
      if (frame.size() >= 9) numberIs(frame, frame.size() - 8, id, 8);
      return;
    case 3:
      frame.front() = static_cast<std::uint8_t>(2 + random() % 6);
      return;
    case 4: {
      constexpr std::uint8_t kLacks = 0xa2;
      frame.assign(21, 0);
      frame.front() = kLacks;
      numberIs(frame, 1, id, 8);
      return numberIs(frame, 13, id ^ random() % 40 * 2, 8);
    }
    default:
      std::size_t const before = frame.size();
      frame.resize(before + 40);
      frame.resize(LLVMFuzzerMutate(frame.data(), before, frame.size()));
  }
}

}  // namespace

std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                    unsigned int seed) {
  std::mt19937 random(seed);
  Bytes const input(data, data + size);
  bool const isStream = size != 0 && input.front() % 4 == 0;
  auto frames = fuzz::framesOf(input);
  if (isStream || frames.empty() || random() % 10 == 0)
    return LLVMFuzzerMutate(data, size, maxSize);
  std::size_t const at = random() % frames.size();
  std::size_t const other = random() % frames.size();
  auto const place = [&](std::size_t index) {
    return frames.begin() + static_cast<std::ptrdiff_t>(index);
  };
  switch (random() % 8) {
    case 0:
      frames.erase(place(at));
      break;
    case 1:
      frames.insert(place(other), Bytes(frames[at]));
      break;
    case 2:
      std::swap(frames[at], frames[other]);
      break;
    default:
      if (!frames[at].empty()) change(frames[at], random);
  }
  Bytes output{input.front()};
  for (Bytes const& frame : frames) {
    if (output.size() + 2 + frame.size() > maxSize) break;
    fuzz::append(output, frame);
  }
  std::copy(output.begin(), output.end(), data);
  return output.size();
}
