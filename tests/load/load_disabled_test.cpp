// A library that is loaded while the target is disabled.
#include "load/reports.h"
#include "load/skipped_load.h"

namespace {

TEST(DisabledLoad, MakesTypesWithoutAttributesAndIsNotMadeUpForLater) {
  Zol::Ptr<WritingTarget> const target = new WritingTarget;
  target->enabledIs(false);
  Zol::IntrospectionReactor::global()->targetIs(target);
  void* const library = loadLibrary();
  EXPECT_TRUE(target->reports().empty());
  expectTypesWithoutAttributes(library);

  // All type objects exist, so no accessor registers anything any more.
  target->enabledIs(true);
  expectTypesWithoutAttributes(library);
  EXPECT_TRUE(target->reports().empty());
}

}  // namespace
