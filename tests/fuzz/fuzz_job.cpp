// The job reader takes any bytes: it ends with a job, or with at least one problem that has a place and a message.
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string_view>
#include <vector>

#include "lib/JobReader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const kr::KnownNames known{{"0", "EIXO", "L-HIDDEN"}, {"Continuous", "HIDDEN"}};
  kr::Job job;
  std::vector<kr::Problem> problems;
  const bool good = kr::readJob({reinterpret_cast<const char*>(data), size}, known, job, problems);
  if (good != problems.empty()) std::abort();
  for (const kr::Problem& problem : problems) {
    if (problem.message.empty()) std::abort();
  }
  return 0;
}
