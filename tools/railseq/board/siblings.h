// Entities of the models beside the product that are known by their name alone.
#pragma once

#include "hwrailseq.h"

#include <map>
#include <string>
#include <utility>

namespace RailSeq {

// True for a type whose entities a name is enough to make.
[[nodiscard]] bool isSibling(Zol::ZolType const& type);

// The siblings of one board. The same type and name is the same entity, however often it is named.
class Siblings {
 public:
  [[nodiscard]] Zol::Ptr<Zol::Entity> entity(Zol::ZolType const& type, std::string const& name);

 private:
  std::map<std::pair<Zol::ZolType const*, std::string>, Zol::Ptr<Zol::Entity>> entities_;
};

}  // namespace RailSeq
