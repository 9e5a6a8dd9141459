#include <cmath>

#include "ProfileRows.h"
#include "profiles/KrChapa.h"

namespace kr {
namespace {

enum ChapaKey : std::size_t { kLargura, kEspessura, kAngleSecao };

constexpr ProfileParameter kChapa[] = {
    {"largura", true, "width of the plate across the bar, mm"},
    {"espessura", true, "thickness of the plate, mm"},
    kTurnParameter,
};

bool settleChapa(const GivenParameters& /*given*/, ParameterValues& /*values*/, ParameterProblem& /*problem*/) {
  return true;
}

// The plate's middle line begins in the bar's axis.
SectionBox boxChapa(const ParameterValues& v) {
  return {-v[kEspessura] / 2, 0, v[kEspessura] / 2, v[kLargura]};
}

KrObject* makeChapa(AcGePoint3d& start, AcGePoint3d& end, int view, const ParameterValues& v) {
  const AcGeVector3d bar = end - start;
  return new KrChapa(start, static_cast<KrVistas>(view), v[kLargura], v[kEspessura], bar.length(), v[kAngleSecao],
                     std::atan2(bar.y, bar.x));
}

constexpr ProfileClass kRows[] = {{"KrChapa", kChapa, settleChapa, boxChapa, makeChapa, kAngleSecao}};

}  // namespace

std::span<const ProfileClass> plateClasses() {
  return kRows;
}

}  // namespace kr
