// Counts what the test program and the libraries allocate. Replaces the global operators, so it is
// for one source of a program only.
#pragma once

#include <malloc.h>

#include <atomic>
#include <cstdlib>
#include <new>

namespace test {

inline std::atomic<std::size_t> allocated = 0;
// Bytes that are allocated now.
inline std::atomic<std::size_t> liveBytes = 0;

inline void* counted(void* place) {
  ++allocated;
  liveBytes += ::malloc_usable_size(place);
  return place;
}
inline void freed(void* place) {
  liveBytes -= ::malloc_usable_size(place);
  std::free(place);
}

// How often the action allocates.
template <class Action>
std::size_t allocationsOf(Action const& action) {
  std::size_t const before = allocated;
  action();
  return allocated - before;
}

}  // namespace test

// Never inlined: the compiler would see through them and find that malloc and delete do not match.
[[gnu::noinline]] void* operator new(std::size_t size) {
  if (void* const place = std::malloc(size ? size : 1)) return test::counted(place);
  throw std::bad_alloc();
}
[[gnu::noinline]] void* operator new(std::size_t size, std::nothrow_t const&) noexcept {
  return test::counted(std::malloc(size ? size : 1));
}
[[gnu::noinline]] void operator delete(void* place) noexcept { test::freed(place); }
[[gnu::noinline]] void operator delete(void* place, std::size_t) noexcept { test::freed(place); }
