#include "Budget.h"

#include <malloc.h>

#include <cstdio>
#include <cstdlib>
#include <limits>
#include <new>

// Every operator new of the program and of its libraries comes here, also that of arrays, which a sanitizer would else
// serve itself. Memory of larger alignment, and what C functions take, goes uncounted.

namespace {

std::size_t held = 0;
std::size_t limit = std::numeric_limits<std::size_t>::max();

}  // namespace

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  void* const place = std::malloc(size != 0 ? size : 1);
  if (place == nullptr) return nullptr;
  held += malloc_usable_size(place);
  if (held > limit) {
    std::fprintf(stderr, "%zu bytes are held, %zu allowed\n", held, limit);
    limit = std::numeric_limits<std::size_t>::max();
    std::abort();
  }
  return place;
}

void* operator new(std::size_t size) {
  void* const place = operator new(size, std::nothrow);
  if (place == nullptr) {
    std::fprintf(stderr, "no memory for %zu bytes\n", size);
    std::abort();
  }
  return place;
}

void operator delete(void* place) noexcept {
  if (place == nullptr) return;
  const std::size_t size = malloc_usable_size(place);
  held -= size < held ? size : held;
  std::free(place);
}

void operator delete(void* place, std::size_t) noexcept {
  operator delete(place);
}

void operator delete(void* place, const std::nothrow_t&) noexcept {
  operator delete(place);
}

void* operator new[](std::size_t size, const std::nothrow_t& kind) noexcept {
  return operator new(size, kind);
}

void* operator new[](std::size_t size) {
  return operator new(size);
}

void operator delete[](void* place) noexcept {
  operator delete(place);
}

void operator delete[](void* place, std::size_t) noexcept {
  operator delete(place);
}

void operator delete[](void* place, const std::nothrow_t&) noexcept {
  operator delete(place);
}

Budget::Budget(std::size_t size) : size_(size), begun_(std::clock()) {
  limit = held + kBytesPerByte * size + kFreeBytes;
}

Budget::~Budget() {
  limit = std::numeric_limits<std::size_t>::max();
  const double taken = double(std::clock() - begun_) / CLOCKS_PER_SEC;
  const double allowed = kFreeSeconds + kSecondsPerMegabyte * double(size_) / double(1 << 20);
  if (taken <= allowed) return;
  std::fprintf(stderr, "%g seconds were taken for %zu bytes, %g allowed\n", taken, size_, allowed);
  std::abort();
}
