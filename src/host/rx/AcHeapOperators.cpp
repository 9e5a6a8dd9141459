#include "host/rx/AcHeapOperators.h"

#include <cstdlib>

#include "host/rx/AcRxAbort.h"

void* odrxAlloc(std::size_t size) {
  return std::malloc(size == 0 ? 1 : size);
}

void* odrxRealloc(void* block, std::size_t newSize) {
  return std::realloc(block, newSize == 0 ? 1 : newSize);
}

void odrxFree(void* block) {
  std::free(block);
}

void* AcHeapOperators::allocate(std::size_t size) {
  void* block = odrxAlloc(size);
  if (block == nullptr) {
    acrx_abort(L"Out of memory");
    // No object can be built on a null block, whatever a handler made of the message.
    std::abort();
  }
  return block;
}
