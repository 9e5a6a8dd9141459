#include "ProfileClasses.h"

#include "ProfileMakers.h"

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
  values[0] = outer;
  values[1] = given.has(kEspessura) ? outer - 2 * given.values[kEspessura] : given.values[kDiametroInt];
  return true;
}

bool settleInOrder(const GivenParameters& given, ParameterValues& values, ParameterProblem& problem) {
  static_cast<void>(problem);
  values = given.values;
  return true;
}

double firstValue(const ParameterValues& values) {
  return values[0];
}

constexpr ProfileClass kClasses[] = {
    {"KrTubo", kTubo, settleTubo, firstValue, makeTubo},
    {"KrBarraRedonda", kBarraRedonda, settleInOrder, firstValue, makeBarraRedonda},
};

}  // namespace

std::span<const ProfileClass> profileClasses() {
  return kClasses;
}

const ProfileClass* profileClass(std::string_view name) {
  for (const ProfileClass& row : kClasses) {
    if (row.name == name) return &row;
  }
  return nullptr;
}

}  // namespace kr
