// A library that is loaded while the reactor has no target.
#include "host/zol/registry/recording_target.h"
#include "load/skipped_load.h"

namespace {

TEST(UntargetedLoad, MakesTypesWithoutAttributes) {
  auto const reactor = Zol::IntrospectionReactor::global();
  auto const recording = Zol::ptrCast<Zol::RecordingTarget>(reactor->target());
  ASSERT_TRUE(recording) << "the target at the start records";
  EXPECT_TRUE(recording->enabled());
  reactor->targetIs(nullptr);
  expectTypesWithoutAttributes(loadLibrary());
  EXPECT_TRUE(recording->types().empty());
  EXPECT_TRUE(reactor->target() == nullptr);
}

// A type answers for its base as long as it has no attributes.
TEST(UntargetedLoad, LeavesTheTypesOfTheRuntimeWhole) {
  EXPECT_NE(Zol::Entity::_fwkType()->attr("name"), nullptr);
}

}  // namespace
