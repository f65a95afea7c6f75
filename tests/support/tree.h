// What a tree holds, as text; listeners that note what they hear of it; and a hand that changes it
// anywhere.
#pragma once

#include <hwrailseq.h>

#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace test {

using Attributes = std::map<std::string, std::string>;

inline std::string inBrackets(Zol::Name const& key) { return "[" + std::string(key.view()) + "]"; }
inline std::string inBrackets(std::uint32_t key) {
  return std::string(1, '[').append(std::to_string(key)).append(1, ']');
}

// One line per attribute of the root and of all that it owns. Says nothing of ids or addresses.
[[nodiscard]] std::string textOf(Zol::Entity& root);

// Listens to every entity of a tree as it finds it, and keeps the last value that it was told of
// each attribute.
class Ears {
 public:
  explicit Ears(Zol::Entity& root);
  ~Ears();
  // What differs between what was told and what there is now; entities that have gone do not count.
  [[nodiscard]] std::string outdated() const;

  // What was told of although it had not changed. Who refers to another entity of the same name
  // than before is told rightly, and stands here nevertheless.
  [[nodiscard]] std::string unneeded() const;

  class Ear;

 private:
  std::vector<std::unique_ptr<Ear>> ears_;
};

// Changes trees at random. What it refers to outside of the trees belongs to it.
class Hand {
 public:
  explicit Hand(unsigned int seed);
  ~Hand();
  // Takes up with what the other hand refers to, and lets go of its own.
  Hand& operator=(Hand&& other) noexcept;
  // Changes one attribute somewhere below the root.
  void change(Zol::Entity& root);
  // Gives every attribute of the tree below the root a value that is not its first one.
  void fill(Zol::Entity& root);
  [[nodiscard]] std::mt19937& random();

 private:
  struct Content;
  std::unique_ptr<Content> content_;
};

}  // namespace test
