#include "ProfileClasses.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numbers>
#include <vector>

#include "ProfileRows.h"

namespace kr {
namespace {

constexpr double kStraight = 180;
constexpr double kSteepest = 45;
constexpr double kLastKind = 2;

// Views that look at the section's height; the others look at its width.
constexpr int kEsquerda = 3;
constexpr int kDireita = 4;

bool isAngle(Range range) {
  return range == Range::kTurn || range == Range::kBend || range == Range::kSlope;
}

double radians(double degrees) {
  return degrees * (std::numbers::pi / kStraight);
}

const std::vector<ProfileClass>& table() {
  static const std::vector<ProfileClass> rows = [] {
    std::vector<ProfileClass> all;
    for (const auto part : {roundClasses(), rolledClasses(), foldedClasses(), plateClasses(), lineClasses()}) {
      all.insert(all.end(), part.begin(), part.end());
    }
    return all;
  }();
  return rows;
}

}  // namespace

std::size_t ProfileClass::positionOf(std::string_view key) const {
  for (std::size_t i = 0; i < parameters.size(); ++i) {
    if (parameters[i].key == key) return i;
  }
  return kMaxParameters;
}

std::span<const ProfileClass> profileClasses() {
  return table();
}

const ProfileClass* profileClass(std::string_view name) {
  for (const ProfileClass& row : table()) {
    if (row.name == name) return &row;
  }
  return nullptr;
}

std::string_view rangeProblem(Range range, double value) {
  switch (range) {
    case Range::kSize:
    case Range::kFigure:
      return value > 0 ? "" : "greater than 0";
    case Range::kZeroOrMore:
      return value >= 0 ? "" : "0 or more";
    case Range::kBend:
      return value > 0 && value < kStraight ? "" : "greater than 0 and less than 180";
    case Range::kSlope:
      return value >= 0 && value < kSteepest ? "" : "0 or more and less than 45";
    case Range::kKind:
      return value == 0 || value == 1 || value == kLastKind ? "" : "0, 1 or 2";
    case Range::kSigned:
    case Range::kTurn:
      break;
  }
  return {};
}

bool settleParameters(const ProfileClass& row, const GivenParameters& given, ParameterValues& values,
                      ParameterProblem& problem) {
  values.line = given.values.line;
  for (std::size_t i = 0; i < row.parameters.size(); ++i) {
    const ProfileParameter& parameter = row.parameters[i];
    const double value = given.has(i) ? given.values[i] : parameter.otherwise;
    values[i] = isAngle(parameter.range) ? radians(value) : value;
  }
  return row.settle(given, values, problem);
}

double reachAcross(const ProfileClass& row, const ParameterValues& values, int view) {
  const SectionBox box = row.box(values);
  const double turn = row.turn < kMaxParameters ? values[row.turn] : 0;
  const bool height = view == kEsquerda || view == kDireita;
  double reach = 0;
  for (const double x : {box.left, box.right}) {
    for (const double y : {box.below, box.above}) {
      const double across = height ? x * std::sin(turn) + y * std::cos(turn) : x * std::cos(turn) - y * std::sin(turn);
      reach = std::max(reach, std::abs(across));
    }
  }
  return reach;
}

double sectionSize(const ProfileClass& row, const ParameterValues& values) {
  constexpr int kSuperior = 1;
  return 2 * std::max(reachAcross(row, values, kSuperior), reachAcross(row, values, kDireita));
}

}  // namespace kr
