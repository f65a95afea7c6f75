// Counts what the test program and the libraries allocate. Replaces the global operators, so it is
// for one source of a program only.
#pragma once

#include <atomic>
#include <cstdlib>
#include <new>

namespace test {

inline std::atomic<std::size_t> allocated = 0;

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
  ++test::allocated;
  if (void* const place = std::malloc(size ? size : 1)) return place;
  throw std::bad_alloc();
}
[[gnu::noinline]] void* operator new(std::size_t size, std::nothrow_t const&) noexcept {
  ++test::allocated;
  return std::malloc(size ? size : 1);
}
[[gnu::noinline]] void operator delete(void* place) noexcept { std::free(place); }
[[gnu::noinline]] void operator delete(void* place, std::size_t) noexcept { std::free(place); }
