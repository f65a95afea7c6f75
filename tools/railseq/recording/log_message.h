// Reads the frames of an attribute log for people: names, paths and values instead of numbers. What
// an attribute is comes from the registry alone.
#pragma once

#include "hwrailseq.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "railseq/board/tree_json.h"

namespace RailSeq {

// What one frame says. Parts that it does not have are empty.
struct LogMessage {
  // "HELLO", "MOUNT", "DATA", "MARK", "SYNCED", "FORGET", "BYE", "ALIVE", "LACKS", or
  // "UNKNOWN".
  std::string kind;
  // The path of an entity of a mounted tree, "type:name" of another one.
  std::string entity;
  // "0x26", as the writer of the frame numbers the entity.
  std::string id;
  std::string attribute;
  // The key of a member of the attribute.
  std::optional<std::string> key;
  // What is done: "=", "added", "removed", "begin", "abort", "end", "announced", "chunk", ...
  std::string what;
  // The new value, or what a thing was made from; null for none.
  Json value;
  // The value as text.
  std::string text;
  // How many frames of the other end the writer had taken in, where it says so.
  std::optional<std::uint32_t> seen;
  // What else there is to say, such as what is wrong with the frame.
  std::string note;

  // "switch (0x20) pollingEnabled = false"; the kind in front, in a column.
  [[nodiscard]] std::string line() const;
  // An object of the parts that there are.
  [[nodiscard]] Json json() const;
};

// Reads the frames of one direction of a connection, each before it is applied. Never trusts a
// length.
class LogMessageReader {
 public:
  using Connection = Zol::NboAttrLog::Connection;

  // `frame`: from the kind on. `connection`: what takes in the source's frames, and knows the
  // entities; may be null. `fromSource`: false for a frame that goes the other way.
  [[nodiscard]] LogMessage read(std::string_view frame, Connection const* connection,
                                bool fromSource);

 private:
  class Parser;

  // The chunks of a text under way.
  struct Run {
    std::string where;
    std::size_t chunks = 0;
    std::size_t bytes = 0;
  };
  // By the entity's id: it has one run at a time. Only known entities have one.
  std::map<std::uint64_t, Run> runs_;
};

// The bytes as hexadecimal digits; of many the first, and how many there are.
[[nodiscard]] std::string hexText(std::string_view bytes);

}  // namespace RailSeq
