// Texts and names: what they hold, share, compare and join.
#include "host/zol/text.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace Zol {
namespace {

using namespace std::string_literals;

TEST(Text, SharesItsBytesWithItsCopiesAndLivesAsLongAsAny) {
  Name copy;
  {
    String8 const text = "shared";
    copy = text;
    EXPECT_EQ(copy.view().data(), text.view().data());
  }
  Name& same = copy;
  copy = same;
  copy = std::move(same);
  Name const moved = std::move(copy);
  EXPECT_EQ(moved, "shared");
  EXPECT_TRUE(copy.empty());
}

TEST(Text, HoldsAnyBytesWithANulBehindThem) {
  for (String8 const& text : {String8(), String8(""), String8(std::string())}) {
    EXPECT_TRUE(text.empty() && text == String8() && text.hash() == String8().hash());
    EXPECT_STREQ(text.view().data(), "");
  }
  std::string const bytes = "a\0b\xff\x80\n"s;
  String8 const text = bytes;
  EXPECT_EQ(text.view(), bytes);
  EXPECT_EQ(text.size(), 6u);
  EXPECT_EQ(text.view().data()[6], '\0');
  EXPECT_NE(text, String8("a"));
  EXPECT_NE(text, String8("a\0c\xff\x80\n"s));
}

TEST(Text, IsEqualByItsBytesAndThenHasTheSameHash) {
  for (std::size_t size = 0; size < 40; ++size) {
    std::string const bytes(size, 'x');
    String8 const one = bytes;
    String8 const two = bytes;
    String8 const longer = bytes + "y";
    EXPECT_NE(one, longer);
    EXPECT_EQ(one, two);
    EXPECT_EQ(one.hash(), two.hash());
    EXPECT_EQ(one.hash(), Name(one).hash());
    EXPECT_EQ(one, two);
    EXPECT_NE(one, longer);
  }
}

TEST(Text, IsOrderedByItsBytesUnsigned) {
  String8 const ordered[] = {"", "\0"s, "A", "a", "a\0"s, "aa", "b", "\x7f", "\x80", "\xff"};
  for (std::size_t i = 0; i < std::size(ordered); ++i) {
    for (std::size_t j = 0; j < std::size(ordered); ++j) {
      EXPECT_EQ(ordered[i] < ordered[j], i < j) << i << " " << j;
      EXPECT_EQ(Name(ordered[i]) < Name(ordered[j]), i < j) << i << " " << j;
      EXPECT_EQ(ordered[i] == ordered[j], i == j) << i << " " << j;
    }
  }
}

TEST(Text, ComparesWithEveryKindOfText) {
  Name const name = "m";
  String8 const text = "m";
  std::string const plain = "m";
  EXPECT_TRUE(name == text && text == name && name == "m" && name == plain && text == plain);
  EXPECT_TRUE("m" == name && plain == name && name == std::string_view(plain));
  EXPECT_TRUE(name != String8("n") && name != "n" && text != Name("n") && name != "m\0"s);
  EXPECT_TRUE(name < String8("n") && String8("l") < name && name < "n" && "l" < name);
  EXPECT_TRUE(name < "n"s && text < "n" && name >= "m" && name > "l"s);
}

TEST(Text, JoinsEveryKindOfText) {
  Name const name = "n";
  String8 const text = "t";
  std::string const plain = "p";
  EXPECT_EQ(name + name + text + name, "nntn");
  EXPECT_EQ(name + text, "nt");
  EXPECT_EQ("c" + name + "c", "cnc");
  EXPECT_EQ(plain + name + std::string_view(plain), "pnp");
  EXPECT_EQ((text + "\0"s + text).view(), "t\0t"s);
  EXPECT_EQ((text + "").view().data(), text.view().data());
  EXPECT_EQ((String8() + text).view().data(), text.view().data());
}

TEST(Text, IsWrittenBare) {
  std::ostringstream stream;
  stream << String8("a'b\n") << Name("c");
  EXPECT_EQ(stream.str(), "a'b\nc");
}

TEST(Format, FillsItsPattern) {
  EXPECT_EQ(format("%s is %d%%", "load", 42).view(), "load is 42%");
  EXPECT_EQ(format("%s", "").view(), "");
  std::string const text(5000, 'x');
  EXPECT_EQ(format("<%s>", text.c_str()).view(), "<" + text + ">");
}

}  // namespace
}  // namespace Zol
