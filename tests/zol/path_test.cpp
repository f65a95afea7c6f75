// Directories, and the paths of what stands below them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <hwrailseq.h>

namespace {

using namespace Hardware::Ucd9012;
using Zol::Dir;
using Zol::String8;

std::string failureOf(auto action) {
  try {
    action();
  } catch (Zol::Exception const& failure) {
    return failure.what();
  }
  return "accepted";
}

class Paths : public testing::Test {
 protected:
  ~Paths() override { Dir::root().entryDel("d"); }

  Zol::Ptr<Dir> const dir = new Dir("d");
  Zol::Ptr<Dir::Entry> const entry = Dir::root().entryIs(dir);
};

TEST_F(Paths, leadBackToTheEntityWhateverTheNames) {
  for (char const* const name :
       {"board", "a/b", "[x]", "]", "\\", "\\/", "it's", "\n\x01\xff", "/", " "}) {
    SCOPED_TRACE(name);
    auto const config = configFactory(name);
    dir->entryIs(config);
    auto const main = config->realPsocControllerIs(name, "", nullptr, nullptr, nullptr);
    EXPECT_EQ(Zol::entityAt(config->fullName()), config);
    EXPECT_EQ(Zol::entityAt(main->uriPath()), Zol::Ptr<Zol::Entity>(main.get()));
    String8 const text = Zol::valueToStrepOfRawPtr(main.get(), typeid(Zol::Entity));
    EXPECT_EQ(Zol::strepToValue<Zol::Ptr<PsocControllerConfig>>(text).get(), main.get());
    EXPECT_EQ(dir->entryDel(name), config);
    EXPECT_THROW((void)Zol::strepToValue<Zol::Ptr<PsocControllerConfig>>(text),
                 Zol::RangeException);
  }
  EXPECT_EQ(Zol::entityAt("/").get(), &Dir::root());
  EXPECT_EQ(Zol::entityAt("/d"), dir);
}

TEST_F(Paths, thatLeadNowhereAreRefused) {
  auto const config = configFactory("b");
  dir->entryIs(config);
  config->realUcd9032ControllerIs("m", "", nullptr, nullptr, nullptr);
  for (char const* const path :
       {"", "d", "//d", "/d/", "/d/b/", "/d[b]", "/d/b[", "/d/b]", "/d/b/realUcd9032Controller",
        "/d/b/realUcd9032Controller[m", "/d/b/realUcd9032Controller[m]]", "/d/b/pollingEnabled",
        "/d/b/realUcd9032Controller[m]x", "/d/b/realUcd9032Controller[m]/", "/d/b\\", "/D"}) {
    EXPECT_THAT(failureOf([&] { (void)Zol::entityAt(path); }),
                testing::StartsWith("no entity at '"))
        << path;
  }
}

TEST_F(Paths, withoutADirectoryOrARegisteredRootSayWhereAnEntityIs) {
  auto const config = configFactory("b");
  EXPECT_EQ(config->fullName(), String8("b"));
  Zol::Ptr<Dir> const apart = new Dir("apart");
  apart->entryIs(config);
  EXPECT_EQ(config->fullName(), String8("apart/b"));
  EXPECT_EQ(Zol::pathBelowDirectories(*config), String8("b"));
  EXPECT_EQ(VoltageRailConfig(3, nullptr, nullptr).fullName(), String8());
}

TEST_F(Paths, ofADirectoryHoldEachNameOnce) {
  Zol::Ptr<Zol::Entity> const config = configFactory("b");
  auto const first = dir->entryIs(config);
  EXPECT_EQ(dir->entryIs(config), first);
  EXPECT_EQ(first->entity(), config);
  EXPECT_EQ(config->parent(), dir);
  EXPECT_EQ(failureOf([&] { dir->entryIs(nullptr); }), "null ValidPtr");
  EXPECT_EQ(failureOf([&] { dir->entryIs(configFactory("b")); }),
            "the directory '/d' holds another entity with the name 'b'");
  EXPECT_EQ(failureOf([&] { dir->entryIs(configFactory("")); }),
            "an entity without a name cannot stand in a directory");
  EXPECT_EQ(failureOf([&] { Dir::root().entryIs(config); }), "'/d/b' has a parent already");
  EXPECT_EQ(failureOf([&] { dir->entryIs(dir); }), "the directory 'd' cannot stand in itself");
  EXPECT_EQ(dir->entryDel("b"), config);
  EXPECT_EQ(dir->entryDel("b"), nullptr);
  EXPECT_EQ(config->parent(), nullptr);
}

TEST_F(Paths, doNotChangeADigest) {
  auto const config = configFactory("b");
  auto const pin = Zol::Ptr<Hardware::Gpio::PinConfig>(new Hardware::Gpio::PinConfig("p"));
  config->realUcd9012ControllerIs("m", "", nullptr, pin, nullptr);
  auto const before = Zol::digest(*config);
  dir->entryIs(config);
  dir->entryIs(pin);
  EXPECT_EQ(Zol::digest(*config), before);
}

}  // namespace
