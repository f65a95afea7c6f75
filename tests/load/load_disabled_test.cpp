// A library that is loaded while the target is disabled.
#include "host/zol/registry/recording_target.h"
#include "load/skipped_load.h"

namespace {

TEST(DisabledLoad, MakesTypesWithoutAttributesAndIsNotMadeUpForLater) {
  auto const target =
      Zol::ptrCast<Zol::RecordingTarget>(Zol::IntrospectionReactor::global()->target());
  ASSERT_TRUE(target) << "the target at the start records";
  target->enabledIs(false);
  void* const library = loadLibrary();
  EXPECT_TRUE(target->types().empty());
  expectTypesWithoutAttributes(library);

  // All type objects exist, so no accessor registers anything any more.
  target->enabledIs(true);
  expectTypesWithoutAttributes(library);
  EXPECT_TRUE(target->types().empty());
}

}  // namespace
