// Marks what users of a library may link against; everything else stays hidden.
#pragma once

#define ZOL_EXPORT __attribute__((visibility("default")))
