#include "host/io/dxf/DxfCodes.h"

#include <array>

namespace krio::dxf {

namespace {

constexpr int kNumCodes = 1072;

std::array<Kind, kNumCodes> allKinds() {
  std::array<Kind, kNumCodes> kinds{};
  for (int code = 0; code < kNumCodes; ++code) kinds[std::size_t(code)] = acdbDxfValueKind(code);
  return kinds;
}

}  // namespace

Kind kindOf(int code) {
  static const std::array<Kind, kNumCodes> kKinds = allKinds();
  return code >= 0 && code < kNumCodes ? kKinds[std::size_t(code)] : Kind::kNone;
}

}  // namespace krio::dxf
