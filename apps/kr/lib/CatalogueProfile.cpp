#include "CatalogueProfile.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "ProfileRows.h"

namespace kr {
namespace {

using C = CatalogueColumn;

constexpr double kDegrees = 180 / std::numbers::pi;
struct Row {
  const Catalogue& catalogue;
  const CatalogueRow& row;

  double operator()(C column) const { return catalogue.value(row, column); }
};

const ProfileClass& classNamed(std::string_view name) {
  return *profileClass(name);
}

double weightOf(const Row& row) {
  const double mass = row(C::kMass);
  return mass > 0 ? mass : row(C::kArea) * kSteel;
}

// The mean thickness of a flange, half-way along its overhang: the table gives it at `u` from the tip.
double meanFlange(const Row& row, double overhang) {
  const double u = row(C::kU);
  return u > 0 ? row(C::kTf) + row(C::kSlope) * (overhang / 2 - u) : row(C::kTf);
}

double tangent(double slope) {
  return std::tan((std::numbers::pi / 2 - slope) / 2);
}

void fillI(const Row& row, GivenParameters& given) {
  const double overhang = (row(C::kB) - row(C::kTw)) / 2;
  const double mean = meanFlange(row, overhang);
  const double slope = std::atan(row(C::kSlope));
  const double reach = mean + row(C::kSlope) * overhang / 2 + tangent(slope) * row(C::kR);
  const double parallel = 1;
  const double tapered = 2;
  const double values[] = {
      row(C::kH),  row(C::kB), row(C::kTw), reach,         slope * kDegrees, row(C::kR),
      row(C::kR2), mean,       0,           row(C::kArea), weightOf(row),    slope > 0 ? tapered : parallel};
  for (std::size_t i = 0; i < std::size(values); ++i) given.set(i, values[i]);
}

// The class's flanges always rise by one in six: the mean thickness is kept, and a toe that is rounder than the thinner
// tip allows is cut down to it.
void fillU(const Row& row, GivenParameters& given) {
  const double overhang = row(C::kB) - row(C::kTw);
  const double mean = meanFlange(row, overhang);
  const double rise = std::tan(kChannelSlope) * overhang;
  const double reach = mean + rise / 2 + tangent(kChannelSlope) * row(C::kR);
  const double roundest = std::max(0.0, (mean - rise / 2) / tangent(kChannelSlope));
  const double values[] = {
      row(C::kH),  row(C::kB), row(C::kTw), reach,         row(C::kR),   std::min(row(C::kR2), roundest),
      row(C::kEx), mean,       0,           row(C::kArea), weightOf(row)};
  for (std::size_t i = 0; i < std::size(values); ++i) given.set(i, values[i]);
}

void fillL(const Row& row, GivenParameters& given) {
  const double values[] = {row(C::kA), row(C::kB), row(C::kT),    row(C::kEx),  row(C::kA) - row(C::kEy),
                           row(C::kR), 0,          weightOf(row), row(C::kArea)};
  for (std::size_t i = 0; i < std::size(values); ++i) given.set(i, values[i]);
}

void fillTube(const Row& row, GivenParameters& given) {
  constexpr std::size_t kEspessura = 2;
  given.set(0, row(C::kD));
  given.set(kEspessura, row(C::kT));
}

void fillBox(const Row& row, GivenParameters& given) {
  const double values[] = {row(C::kH), row(C::kB), row(C::kT), row(C::kRi), 0};
  for (std::size_t i = 0; i < std::size(values); ++i) given.set(i, values[i]);
}

constexpr double kSquare = 90;

void fillColdU(const Row& row, GivenParameters& given) {
  const double values[] = {row(C::kH), row(C::kB), row(C::kB), row(C::kT),  row(C::kRi),
                           kSquare,    kSquare,    0,          row(C::kLip)};
  for (std::size_t i = 0; i < std::size(values); ++i) given.set(i, values[i]);
}

void fillColdZ(const Row& row, GivenParameters& given) {
  const double values[] = {row(C::kH), row(C::kB1), row(C::kB2), row(C::kT),   row(C::kRi),
                           kSquare,    kSquare,     0,           row(C::kLip), 0};
  for (std::size_t i = 0; i < std::size(values); ++i) given.set(i, values[i]);
}

struct Mapping {
  std::string_view profileClass;
  void (*fill)(const Row&, GivenParameters&);
};

// By shape.
constexpr Mapping kMappings[] = {
    {"KrILaminadoUSA", fillI}, {"KrULaminado", fillU},    {"KrCantLaminada", fillL}, {"KrTubo", fillTube},
    {"KrBox", fillBox},        {"KrUDobrado", fillColdU}, {"KrZDobrado", fillColdZ},
};

// What a class is made of two of, and the parameter that carries over under another name.
struct Compound {
  std::string_view whole;
  std::string_view half;
};
constexpr Compound kCompounds[] = {
    {"KrUULaminado", "KrULaminado"},           {"Kr2ULaminado", "KrULaminado"},
    {"KrCantLaminadaCaixa", "KrCantLaminada"}, {"KrCantTEELaminada", "KrCantLaminada"},
    {"KrCantULaminada", "KrCantLaminada"},     {"KrCantZLaminada", "KrCantLaminada"},
    {"KrCantCruzLaminada", "KrCantLaminada"},  {"KrIDobrado", "KrUDobrado"},
};

}  // namespace

CatalogueProfile profileOf(const Catalogue& catalogue, const CatalogueRow& row) {
  const Mapping& mapping = kMappings[static_cast<std::size_t>(catalogue.tableOf(row).shape)];
  CatalogueProfile profile;
  profile.profileClass = &classNamed(mapping.profileClass);
  mapping.fill({catalogue, row}, profile.given);
  return profile;
}

bool compoundOf(const CatalogueProfile& single, const ProfileClass& compound, CatalogueProfile& profile) {
  if (&compound == single.profileClass) {
    profile = single;
    return true;
  }
  const auto found = std::find_if(std::begin(kCompounds), std::end(kCompounds), [&](const Compound& row) {
    return row.whole == compound.name && row.half == single.profileClass->name;
  });
  if (found == std::end(kCompounds)) return false;
  profile = {&compound, {}};
  for (std::size_t i = 0; i < single.profileClass->parameters.size(); ++i) {
    const ProfileParameter& parameter = single.profileClass->parameters[i];
    const std::size_t at = compound.positionOf(parameter.key);
    if (at == kMaxParameters || !single.given.has(i)) continue;
    profile.given.set(at, single.given.values[i] * (parameter.range == Range::kFigure ? 2 : 1));
  }
  return true;
}

bool givesSection(const Catalogue& catalogue, const CatalogueRow& row, std::string& why) {
  const CatalogueProfile profile = profileOf(catalogue, row);
  ParameterValues values;
  ParameterProblem problem;
  if (settleParameters(*profile.profileClass, profile.given, values, problem)) return true;
  why = std::move(problem.message);
  return false;
}

}  // namespace kr
