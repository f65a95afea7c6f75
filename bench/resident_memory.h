// The memory of this process.
#pragma once

#include <unistd.h>

#include <cstdint>
#include <fstream>

// Resident, in KiB.
inline std::uint32_t residentKiB() {
  std::uint32_t pages = 0;
  std::ifstream statm("/proc/self/statm");
  statm >> pages >> pages;
  return pages * static_cast<std::uint32_t>(sysconf(_SC_PAGESIZE) / 1024);
}
