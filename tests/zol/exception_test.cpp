// Failures carry their text and nothing else; the scope around listeners is left on every way out.
#include "host/zol/exception.h"

#include <gtest/gtest.h>

#include <string>

#include "host/zol/expect.h"

namespace Zol {
namespace {

template <class Failure>
class Failures : public ::testing::Test {};
using AllFailures =
    ::testing::Types<Exception, RangeException, NameInUseException, InternalException,
                     AttrLogRecordException, EntityIdUnavailableException, AttrLogEntityException>;
TYPED_TEST_SUITE(Failures, AllFailures);

TYPED_TEST(Failures, SayExactlyWhatTheThrowerSaid) {
  for (std::string const text : {"", "null ValidPtr", "ends with a quote\""}) {
    try {
      throw TypeParam(text);
    } catch (std::exception const& failure) {
      EXPECT_EQ(failure.what(), text);
      EXPECT_NE(dynamic_cast<Exception const*>(&failure), nullptr);
    }
  }
}

TEST(ThrowFunctions, ThrowTheFailureOfTheirName) {
  EXPECT_THROW(throwRangeException("x"), RangeException);
  EXPECT_THROW(throwNameInUseException("x"), NameInUseException);
  EXPECT_THROW(throwInternalException("x"), InternalException);
}

TEST(ExpectScope, CountsTheOpenScopesOfListeners) {
  EXPECT_EQ(Expect::depth(), 0u);
  try {
    Expect const outer(0);
    Expect const other(7);
    EXPECT_EQ(Expect::depth(), 1u);
    Expect const inner(0);
    EXPECT_EQ(Expect::depth(), 2u);
    throw 1;
  } catch (int) {
    EXPECT_EQ(Expect::depth(), 0u);
  }
}

}  // namespace
}  // namespace Zol
