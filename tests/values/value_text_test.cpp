// The text of texts, numbers, bools and references.
#include "host/zol/value_text.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "host/models/siblings.h"

namespace Zol {
namespace {

using namespace std::string_view_literals;

TEST(ValueText, PutsTextsInApostrophes) {
  EXPECT_EQ(valueToStrep(String8("main")), String8("'main'"));
  EXPECT_EQ(valueToStrep(Name("main")), String8("'main'"));
  EXPECT_EQ(valueToStrep(String8()), String8("''"));
}

TEST(ValueText, EscapesWhatWouldEndOrBreakTheText) {
  EXPECT_EQ(valueToStrep(String8("it's")), String8("'it\\'s'"));
  EXPECT_EQ(valueToStrep(String8("a\\b")), String8("'a\\\\b'"));
  EXPECT_EQ(valueToStrep(String8("1\n2\r3\t4")), String8("'1\\n2\\r3\\t4'"));
  EXPECT_EQ(valueToStrep(String8("\0\x1f\x7f"sv)), String8("'\\x00\\x1f\\x7f'"));
  EXPECT_EQ(valueToStrep(String8("\xc2\xb5V")), String8("'\xc2\xb5V'"));
}

TEST(ValueText, ShowsNumbersAndBools) {
  EXPECT_EQ(valueToStrep(0ULL), String8("0"));
  EXPECT_EQ(valueToStrep(18446744073709551615ULL), String8("18446744073709551615"));
  EXPECT_EQ(valueToStrep(true), String8("True"));
  EXPECT_EQ(valueToStrep(false), String8("False"));
}

TEST(ValueText, NamesClassAndPathOfAnEntity) {
  Ptr<Fru::Gpo> const gpo = new Fru::Gpo("write protect");
  EXPECT_EQ(valueToStrepOfRawPtr(gpo.get(), typeid(Zol::Entity)),
            String8("Entity('Fru::Gpo', 'write protect')"));
}

TEST(ValueText, NamesTheClassThatANullReferenceCouldReferTo) {
  EXPECT_EQ(valueToStrepOfRawPtr(nullptr, typeid(Hardware::Gpio::PinStatus const)),
            String8("Entity('Hardware::Gpio::PinStatus', None)"));
}

}  // namespace
}  // namespace Zol
