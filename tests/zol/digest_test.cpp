// What makes two digests equal and what tells them apart.
#include "host/zol/digest.h"

#include <gtest/gtest.h>

#include <limits>

namespace Zol {
namespace {

template <class... Adds>
std::uint64_t sumOf(Adds const&... adds) {
  Digest digest;
  (adds(digest), ...);
  return digest.sum();
}

template <class T>
auto attribute(char const* name, T const& value) {
  return [=](Digest& digest) { digest.attribute(name, value); };
}

TEST(Digest, DoesNotDependOnTheOrderOfAttributes) {
  auto const a = attribute("a", 1);
  auto const b = attribute("b", String8("text"));
  EXPECT_EQ(sumOf(a, b), sumOf(b, a));
}

TEST(Digest, TellsNamesValuesAndAbsenceApart) {
  std::uint64_t const sums[] = {
      sumOf(),
      sumOf(attribute("a", 0)),
      sumOf(attribute("a", 1)),
      sumOf(attribute("b", 1)),
      sumOf(attribute("a", 1), attribute("b", 0)),
      sumOf(attribute("a", 0), attribute("b", 1)),
      sumOf(attribute("t", String8())),
      sumOf(attribute("t", String8("x"))),
      sumOf(attribute("t", String8(std::string_view("x\0", 2)))),
      sumOf(attribute("a", 1.0)),
  };
  for (auto const& one : sums) {
    for (auto const& other : sums) EXPECT_EQ(one == other, &one == &other);
  }
}

TEST(Digest, TakesEqualNumbersForEqual) {
  double const nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(sumOf(attribute("v", 0.0)), sumOf(attribute("v", -0.0)));
  EXPECT_EQ(sumOf(attribute("v", nan)), sumOf(attribute("v", -nan)));
  EXPECT_NE(sumOf(attribute("v", nan)), sumOf(attribute("v", 0.0)));
  EXPECT_NE(sumOf(attribute("v", 1.0)), sumOf(attribute("v", -1.0)));
}

TEST(Digest, TakesReferencesByPath) {
  Ptr<Entity> const one = new Entity("output");
  Ptr<Entity> const same = new Entity("output");
  Ptr<Entity> const other = new Entity("input");
  auto const to = [](Ptr<Entity> const& entity) {
    return sumOf([&](Digest& digest) { digest.reference("wp", entity.get()); });
  };
  EXPECT_EQ(to(one), to(same));
  EXPECT_NE(to(one), to(other));
  EXPECT_NE(to(one), to(nullptr));
}

}  // namespace
}  // namespace Zol
