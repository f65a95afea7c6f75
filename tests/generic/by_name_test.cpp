// The examples of docs/by-name.md, and what paths make of ill-formed texts.
#include "generic/samples.h"

#include <gmock/gmock.h>

#include <fstream>
#include <sstream>

namespace Hardware::Ucd9012::Test {
namespace {

struct Trees {
  Zol::Ptr<Config> config = configFactory("board");
  Zol::Ptr<Status> status = statusFactory("state");
  Zol::ByName tree{{config, status}};
};

// Does what one line says; gives what the page shows of it, with "= " or "! " in front of each
// line.
std::vector<std::string> done(Zol::ByName const& tree, std::string const& line) {
  std::istringstream words(line);
  std::string verb;
  std::string path;
  words >> verb >> path >> std::ws;
  std::string rest;
  std::getline(words, rest);
  std::vector<std::string> shown;
  auto const show = [&](auto const& text) { shown.push_back("= " + std::string(text)); };
  try {
    if (verb == "read") {
      show(tree.read(path).view());
    } else if (verb == "write") {
      tree.write(path, rest);
    } else if (verb == "make") {
      std::vector<Zol::ByName::Argument> arguments;
      std::istringstream given(rest);
      for (std::string each; given >> each;) {
        std::size_t const equals = each.find('=');
        arguments.push_back({each.substr(0, equals), each.substr(equals + 1)});
      }
      (void)tree.make(path, arguments);
    } else if (verb == "erase") {
      tree.erase(path);
    } else if (verb == "count") {
      show(std::to_string(tree.count(path)));
    } else if (verb == "has") {
      show(tree.contains(path) ? "true" : "false");
    } else if (verb == "walk") {
      tree.walk(path, [&](std::string const& at, Generic const& value) {
        show(at + " " + std::string(Zol::plainText(value.get()).view()));
      });
    } else if (verb == "complete") {
      for (std::string const& each : tree.complete(path)) show(each);
    } else {
      ADD_FAILURE() << "unknown verb in " << line;
    }
  } catch (Zol::RangeException const& failure) {
    shown.push_back("! " + std::string(failure.what()));
  }
  return shown;
}

TEST(ByName, DoesWhatItsPageShows) {
  std::ifstream page(HWRAILSEQ_BY_NAME_PAGE);
  ASSERT_TRUE(page);
  auto trees = std::make_unique<Trees>();
  std::vector<std::string> shown;
  std::vector<std::string> expected;
  std::string call;
  std::size_t calls = 0;
  bool inside = false;
  for (std::string line; std::getline(page, line);) {
    if (line.starts_with("## ")) trees = std::make_unique<Trees>();
    if (inside && (line.starts_with("= ") || line.starts_with("! "))) {
      expected.push_back(line);
      continue;
    }
    EXPECT_EQ(shown, expected) << call;
    shown.clear();
    expected.clear();
    if (line.starts_with("```")) {
      inside = line == "```by-name";
    } else if (inside) {
      call = line;
      shown = done(trees->tree, line);
      ++calls;
    }
  }
  EXPECT_GT(calls, 40u);
}

std::vector<std::string> walked(Zol::ByName const& tree) {
  std::vector<std::string> lines;
  for (char const* const root : {"board", "state"}) {
    tree.walk(root, [&](std::string const& path, Generic const& value) {
      bool const isEntity = value->type()->isEntity();
      lines.push_back(path + " " + (isEntity ? "" : std::string(value->strRep().view())));
    });
  }
  return lines;
}

void makeEntities(Zol::ByName const& tree) {
  tree.make("board/dexoDesc[bus]",
            {{"device", Zol::Ptr<Zol::Entity>(new Hardware::SmbusDevice("d"))},
             {"busTimeout", "timeout1ms"}});
  tree.make("board/realUcd9032Controller[a\\[b\\]\\/\\\\]",
            {{"dexoDesc", "board/dexoDesc[bus]"}, {"resetGpioPinStatus", "None"}});
  std::string const path = tree.complete("board/realUcd9032Controller[").front();
  EXPECT_TRUE(tree.complete(path + "[").empty());
  for (char const* const child : {"/voltageRail[255]", "/diagModeConfig[m]", "/diagCommandConfig",
                                  "/diagModeConfig[m]/diagCommandConfig"}) {
    tree.make(path + child);
  }
  tree.make(path + "/kernelPanicEepromDexo", {{"name", "n"}, {"device", "80"}});
  tree.make("state/realPsocController[p]");
  tree.make("state/realPsocController[p]/diagModeStatus[m]");
}

// Every value that a walk of one tree shows is written into another with the same entities.
TEST(ByName, WhatAWalkShowsCanBeWrittenAndMakesAnEqualTree) {
  Trees from;
  Trees to;
  makeEntities(from.tree);
  makeEntities(to.tree);
  std::size_t changed = 0;
  from.tree.walk("board", [&](std::string const& path, Generic const& value) {
    Zol::ZolType const& type = *value->type();
    std::size_t const slash = path.rfind('/');
    std::string const attribute = path.substr(slash + 1);
    if (type.isEntity() || attribute == "id" || attribute == "device" || attribute == "busId" ||
        attribute == "customerName") {
      return;
    }
    from.tree.write(path, Zol::plainText(sample(type, 0).get()).view());
    ++changed;
  });
  std::string const main = from.tree.complete("board/realUcd9032Controller[").front();
  from.tree.write(main + "/externalVoltageRail[9]",
                  Zol::plainText(sample(*ExternalVoltageRail::_fwkType(), 0).get()).view());
  from.tree.write(main + "/diagCommandConfig/parameter[4]", "'quoted\\ and \x01 bytes");
  EXPECT_GT(changed, 30u);
  EXPECT_NE(walked(from.tree), walked(to.tree));
  for (char const* const root : {"board", "state"}) {
    from.tree.walk(root, [&](std::string const& path, Generic const& value) {
      if (value->type()->isEntity()) return;
      try {
        to.tree.write(path, Zol::plainText(value.get()).view());
      } catch (Zol::RangeException const& failure) {
        EXPECT_THAT(failure.what(), testing::EndsWith("is fixed when its entity is made"));
      }
    });
  }
  EXPECT_EQ(walked(from.tree), walked(to.tree));
}

TEST(ByName, FollowsReferencesAndRefusesWhatIsOverNothing) {
  Trees trees;
  trees.tree.make("board/realPsocController[p]");
  trees.tree.write("board/controller[p]", "board/realPsocController[p]");
  trees.tree.write("board/controller[p]/location", "by way of the reference");
  EXPECT_EQ(trees.tree.read("board/realPsocController[p]/location"), "by way of the reference");
  EXPECT_EQ(done(trees.tree, "read board/realPsocController[p]/diagCommandConfig/epoch"),
            std::vector<std::string>{
                "! board/realPsocController[p]/diagCommandConfig: there is no entity here"});
  EXPECT_EQ(done(trees.tree, "write board/controller[q] board/realPsocController[p]"),
            std::vector<std::string>{"! board/controller[q]: the key of a reference is the name of "
                                     "its entity, expected [p]"});
  trees.tree.erase("board/realPsocController");
  EXPECT_EQ(trees.tree.count("board/realPsocController"), 0u);
  EXPECT_EQ(trees.tree.count("board/controller"), 1u);
  EXPECT_EQ(done(trees.tree, "erase board/controller[x]"),
            std::vector<std::string>{"! board/controller[x]: there is no such member, expected p"});
  EXPECT_EQ(done(Zol::ByName({}), "read board/location"),
            std::vector<std::string>{"! board/location: there is no such root, and no other"});
}

}  // namespace
}  // namespace Hardware::Ucd9012::Test
