#include "ProfileRows.h"
#include "profiles/KrBarraRedonda.h"
#include "profiles/KrTubo.h"

namespace kr {
namespace {

enum TuboKey : std::size_t { kDiametro, kDiametroInt, kEspessura };

constexpr ProfileParameter kTubo[] = {
    {"Diametro", true, "outer diameter, mm"},
    {"DiametroInt", false, "inner diameter, mm"},
    {"Espessura", false, "wall, mm: in the place of DiametroInt"},
};

constexpr ProfileParameter kBarraRedonda[] = {
    {"diametro", true, "diameter, mm"},
};

bool settleTubo(const GivenParameters& given, ParameterValues& values, ParameterProblem& problem) {
  if (!given.has(kDiametroInt) && !given.has(kEspessura)) {
    problem = {"", "missing \"DiametroInt\" or \"Espessura\": give the inner diameter or the wall, in mm"};
    return false;
  }
  if (given.has(kDiametroInt) && given.has(kEspessura)) {
    problem = {"Espessura", "give either \"DiametroInt\" or \"Espessura\", not both"};
    return false;
  }
  const double outer = given.values[kDiametro];
  if (given.has(kEspessura) && given.values[kEspessura] >= outer / 2) {
    problem = {"Espessura", "tube thicker than its radius: \"Espessura\" must be less than half of \"Diametro\""};
    return false;
  }
  if (given.has(kDiametroInt) && given.values[kDiametroInt] >= outer) {
    problem = {"DiametroInt", "no wall left: \"DiametroInt\" must be less than \"Diametro\""};
    return false;
  }
  if (given.has(kEspessura)) values[kDiametroInt] = outer - 2 * given.values[kEspessura];
  values[kEspessura] = 0;
  return true;
}

bool settleBarraRedonda(const GivenParameters& /*given*/, ParameterValues& /*values*/, ParameterProblem& /*problem*/) {
  return true;
}

SectionBox circleBox(const ParameterValues& values) {
  const double radius = values[0] / 2;
  return {-radius, -radius, radius, radius};
}

KrObject* makeTubo(AcGePoint3d& start, AcGePoint3d& end, int view, const ParameterValues& values) {
  return new KrTubo(start, end, static_cast<KrVistas>(view), values[kDiametro], values[kDiametroInt]);
}

KrObject* makeBarraRedonda(AcGePoint3d& start, AcGePoint3d& end, int view, const ParameterValues& values) {
  return new KrBarraRedonda(start, end, static_cast<KrVistas>(view), values[0]);
}

constexpr ProfileClass kRows[] = {
    {"KrTubo", kTubo, settleTubo, circleBox, makeTubo},
    {"KrBarraRedonda", kBarraRedonda, settleBarraRedonda, circleBox, makeBarraRedonda},
};

}  // namespace

std::span<const ProfileClass> roundClasses() {
  return kRows;
}

}  // namespace kr
