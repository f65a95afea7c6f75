// Hands the types of this library over to the registry of the process.
#pragma once

namespace Hardware::Ucd9012 {

// Reports all types with their attributes to the process's reactor, once; later calls do nothing,
// not even ask for the reactor. Reports nothing while the reactor has no target or a disabled one:
// then a later call tries again. An exception of the target passes through; there is no second
// attempt then.
void zolInitHwRailSeq();

}  // namespace Hardware::Ucd9012
