// Lines of calls by name, "VERB PATH REST", over a small tree: paths, keys and values of any bytes.
#include "fuzz/fuzz.h"

using namespace Hardware::Ucd9012;

namespace {

struct Tree {
  Zol::Ptr<Config> config = configFactory("c");
  Zol::Ptr<Status> status = statusFactory("s");
  Zol::ByName names{{config, status}};
};

Zol::String8 everything(Tree const& tree) {
  std::string text;
  for (char const* const root : {"c", "s"}) {
    tree.names.walk(root, [&](std::string const& path, Zol::Ptr<Zol::GenericIf> const& value) {
      text += path + "=" + std::string(Zol::plainText(value.get()).view()) + "\n";
      fuzz::require(!value->type()->isEntity() || tree.names.contains(path) ||
                        Zol::plainText(value.get()) == Zol::String8("None"),
                    "a path that a walk shows leads somewhere");
    });
  }
  return text;
}

void call(Tree& tree, std::string_view line) {
  std::size_t const first = line.find(' ');
  if (first == std::string_view::npos) return;
  std::string_view const path = line.substr(first + 1, line.find(' ', first + 1) - first - 1);
  std::size_t const behind = first + 1 + path.size();
  std::string_view const rest = behind < line.size() ? line.substr(behind + 1) : "";
  switch (line.front()) {
    case 'r':
      (void)tree.names.read(path);
      break;
    case 'w':
      tree.names.write(path, rest);
      break;
    case 'm':
      tree.names.make(path, {{"name", std::string(rest)}});
      break;
    case 'n':
      tree.names.make(path);
      break;
    case 'e':
      tree.names.erase(path);
      break;
    case 'c':
      (void)tree.names.count(path);
      break;
    default:
      for (std::string const& each : tree.names.complete(path)) {
        fuzz::require(std::string_view(each).starts_with(path), "a completion begins as asked");
      }
  }
}

}  // namespace

int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  Tree tree;
  std::string_view left(reinterpret_cast<char const*>(data), size);
  for (int calls = 0; !left.empty() && calls < 50; ++calls) {
    std::string_view const line = left.substr(0, left.find('\n'));
    left.remove_prefix(std::min(left.size(), line.size() + 1));
    Zol::String8 const before = everything(tree);
    bool const done = fuzz::accepted([&] {
                        call(tree, line);
                        return true;
                      }).has_value();
    fuzz::require(done || everything(tree) == before, "a refused call changes nothing");
  }
  return 0;
}
