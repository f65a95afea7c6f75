// Reads a board file and tells its form.
#include "railseq/board/board.h"

#include "railseq/board/board_forms.h"

namespace RailSeq {

std::vector<Zol::Ptr<Zol::Entity>> Board::roots() const {
  std::vector<Zol::Ptr<Zol::Entity>> roots{config};
  if (status) roots.emplace_back(status);
  return roots;
}

Board readBoard(std::string const& file) { return parseBoard(file, readFile(file)); }

Board parseBoard(std::string const& file, std::string_view text) {
  JsonNode const root = parseJson(file, text);
  NodeReader const reader(file);
  reader.requireObject(root, "the board");
  bool const isAttributeForm = root.find("config") || root.find("status");
  bool const isChassisForm = root.find("chassis") || root.find("chassis_templates");
  if (isAttributeForm && isChassisForm) {
    reader.refuse(root.at, "\"config\" or \"status\" beside \"chassis\" or \"chassis_templates\"",
                  "the keys of one form only");
  }
  if (!isAttributeForm && !isChassisForm) {
    reader.refuse(root.at, "an object without a key of either form", "\"config\" or \"chassis\"");
  }
  return isAttributeForm ? readAttributeForm(root, file) : readChassisForm(root, file);
}

std::string noteText(std::string const& file, Position at, std::string const& text) {
  return placeText(file, at) + ": note: " + text;
}

}  // namespace RailSeq
