#pragma once

#include <cstddef>

/// Allocates from the host's heap: what is handed to the host to free must come from here.
/// Returns null when memory is exhausted; a size of 0 still gives a distinct block.
void* odrxAlloc(std::size_t size);

/// Resizes a block of odrxAlloc, keeping its contents; null for `block` allocates. On exhaustion returns null and
/// leaves the block as it was.
void* odrxRealloc(void* block, std::size_t newSize);

/// Frees a block of odrxAlloc. Null is allowed.
void odrxFree(void* block);

/// Base that gives a class the host's heap for its own new and delete.
class AcHeapOperators {
 public:
  static void* operator new(std::size_t size) { return allocate(size); }
  static void* operator new(std::size_t, void* place) { return place; }
  static void* operator new[](std::size_t size) { return allocate(size); }
  static void operator delete(void* block) { odrxFree(block); }
  static void operator delete(void*, void*) {}
  static void operator delete[](void* block) { odrxFree(block); }

 private:
  /// As odrxAlloc, but ends the program when memory is exhausted.
  static void* allocate(std::size_t size);
};
