#pragma once

#include <cstdio>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

namespace bench {

/// Something whose instructions are counted: `prepare` gives the work, which tells how many calls it made.
struct Count {
  std::string name;
  std::function<std::function<long()>()> prepare;
};

/// Callgrind counts within this function and nowhere else.
extern "C" __attribute__((noinline)) inline long measured(const std::function<long()>& work) {
  return work();
}

/// `--list` prints the names; a name runs that work, once unmeasured so that caches and lists have their size, once
/// measured, and prints the number of calls.
inline int countMain(int argc, char** argv, const std::vector<Count>& all) {
  if (argc != 2) return 1;
  for (const Count& count : all) {
    if (std::strcmp(argv[1], "--list") == 0) {
      std::printf("%s\n", count.name.c_str());
    } else if (count.name == argv[1]) {
      const std::function<long()> work = count.prepare();
      work();
      std::printf("%ld\n", measured(work));
      return 0;
    }
  }
  return std::strcmp(argv[1], "--list") == 0 ? 0 : 1;
}

}  // namespace bench
