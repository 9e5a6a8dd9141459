#pragma once

#include <malloc.h>

#include <fstream>
#include <string>

namespace bench {

/// The resident memory of the process at its peak since a moment.
class PeakMemory {
 public:
  /// Gives back what is free and starts anew.
  static void reset() {
    ::malloc_trim(0);
    std::ofstream("/proc/self/clear_refs") << "5";
  }
  static double peak() { return of("VmHWM:"); }
  static double now() { return of("VmRSS:"); }

 private:
  static double of(const std::string& what) {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
      double kilobytes = 0;
      if (word == what && status >> kilobytes) return 1024 * kilobytes;
    }
    return 0;
  }
};

}  // namespace bench
