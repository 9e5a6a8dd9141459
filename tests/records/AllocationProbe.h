#pragma once

/// What this test program's allocations of node chunks did: those are the ones that ask for memory without throwing.
struct AllocationProbe {
  static inline int allocations = 0;
  static inline bool memoryIsOut = false;
};
