// The value records in a message and as text, beyond the tables of docs/values.md.
#include <gtest/gtest.h>
#include <hwrailseq.h>

#include <algorithm>
#include <random>
#include <sstream>

namespace {

using namespace Hardware::Ucd9012;
using enum ReloadCauses;

// The payload of a message that holds just `value`.
template <class T>
std::string payload(T const& value) {
  Zol::OutPtr const out(new Zol::NboAttrLog::Out(1000, 1000));
  using Token = Zol::Connection::Out::TransactToken;
  out->nextHeaderIs({Zol::EntityId(1), 300, true, 0, 0, false});
  out << Token::open;
  out << value;
  out << Token::close;
  constexpr std::size_t kHeader = 4 + 1 + 8 + 4 + 1;
  return std::string(out->pending().begin() + kHeader, out->pending().end());
}

template <class T>
T fromPayload(std::string_view bytes) {
  Zol::Ptr<Zol::NboAttrLog::In> const in(new Zol::NboAttrLog::In(100));
  std::ranges::copy(bytes, in->room().begin());
  in->received(bytes.size());
  in->boundIs(in->position() + bytes.size());
  T const value(in.get(), Zol::StreamBogon());
  EXPECT_EQ(in->left(), 0u);
  return value;
}

template <class T>
void expectForms(T const& value, std::string const& bytes) {
  EXPECT_EQ(payload(value), bytes);
  EXPECT_EQ(fromPayload<T>(bytes), value);
  std::ostringstream stream;
  stream << value;
  EXPECT_EQ(stream.str(), std::string(valueToStrep(value).view()));
  EXPECT_EQ(Zol::strepToValue<T>(stream.str()), value);
  EXPECT_EQ(value.fwkType(), T::_fwkType());
  for (std::size_t cut = 0; cut < bytes.size(); ++cut) {
    EXPECT_THROW(fromPayload<T>(bytes.substr(0, cut)), Zol::MalformedMessageException);
  }
}

TEST(Records, HaveTheirBytesAndTheirText) {
  using namespace std::string_literals;
  expectForms(UcdCause(cpu, CauseType::mon, 0x01020304, true), "\0\0\0\x11\0\0\0\2\1\2\3\4\1"s);
  expectForms(PsocCause(none, 0x1234, false), "\0\0\0\1\x12\x34\0"s);
  expectForms(PageFaultCause(systemWatchdog, 7, 0x80000001), "\0\0\0\x15\0\0\0\7\x80\0\0\1"s);
  expectForms(ExternalVoltageRail(255, 254), "\xff\xfe"s);
}

TEST(Records, RefuseANumberWithoutEnumeratorFromTheWire) {
  using namespace std::string_literals;
  auto const failureOf = [](auto read) -> std::string {
    try {
      read();
    } catch (Zol::RangeException const& failure) {
      return failure.what();
    }
    return "accepted";
  };
  EXPECT_EQ(failureOf([] { fromPayload<PsocCause>("\0\0\0\x16\0\0\0"s); }), "ReloadCauses");
  EXPECT_EQ(failureOf([] { fromPayload<UcdCause>("\0\0\0\1\0\0\0\3\0\0\0\0\0"s); }), "CauseType");
}

TEST(ValueText, OfAnyBytesComesBack) {
  std::mt19937 random(7);
  std::string everyByte;
  for (int byte = 0; byte < 256; ++byte) everyByte += static_cast<char>(byte);
  for (int round = 0; round < 500; ++round) {
    std::ranges::shuffle(everyByte, random);
    Zol::String8 const text(everyByte.substr(random() % 256));
    EXPECT_EQ(Zol::strepToValue<Zol::String8>(Zol::valueToStrep(text)), text);
  }
}

TEST(ValueText, IsReadUpToTheEndGivenAndNoFurther) {
  Zol::String8 const text("'none', 1234 True");
  Zol::String8::IteratorConst position(text);
  EXPECT_EQ(sequenceToValue(position, Zol::String8::IteratorConst(text, 6),
                            static_cast<ReloadCauses*>(nullptr)),
            none);
  EXPECT_EQ(position.position(), 6u);
  Zol::String8::IteratorConst number(text, 7);
  EXPECT_EQ(Zol::sequenceToValue(number, Zol::String8::IteratorConst(text, 10),
                                 static_cast<long long*>(nullptr)),
            12);
  Zol::String8::IteratorConst behind(text, 100);
  EXPECT_THROW(Zol::sequenceToValue(behind, Zol::String8::IteratorConst(text, text.size()),
                                    static_cast<bool*>(nullptr)),
               Zol::RangeException);
}

TEST(NeedString, TakesAnyWhiteSpaceForABlankAlsoNone) {
  Zol::String8 const text(" \t\n\v\f\rValue(x");
  Zol::String8::IteratorConst position(text);
  Zol::String8::IteratorConst const end(text, text.size());
  Zol::needString(position, end, " Value ( ");
  EXPECT_EQ(position.rest(), "x");
  EXPECT_THROW(Zol::needString(position, end, "xy"), Zol::RangeException);
}

}  // namespace
