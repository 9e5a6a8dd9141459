#include "AllocationProbe.h"

#include <cstdlib>
#include <new>

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  ++AllocationProbe::allocations;
  return AllocationProbe::memoryIsOut ? nullptr : std::malloc(size);
}

void* operator new(std::size_t size) {
  void* memory = std::malloc(size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

void operator delete(void* memory) noexcept {
  std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}
