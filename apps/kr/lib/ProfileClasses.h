#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

class AcGePoint3d;
class KrObject;

namespace kr {

/// The most parameters that a class of profile takes.
inline constexpr std::size_t kMaxParameters = 12;

/// A point of a section's middle line, mm, and the bulge of the edge that starts there: the tangent of a quarter of its
/// angle, positive anticlockwise, 0 for a straight edge.
struct LinePoint {
  double x = 0;
  double y = 0;
  double bulge = 0;
};

/// The middle line of a section, for the classes that take one.
struct SectionLine {
  std::vector<LinePoint> points;
  LinePoint origin;  ///< where the bar's axis passes; its bulge means nothing
};

/// The parameters of a profile in the order of its class's row, as its constructor takes them: millimetres, radians,
/// mm2, kg/m. And its middle line, null for a class that takes none.
struct ParameterValues : std::array<double, kMaxParameters> {
  std::shared_ptr<const SectionLine> line;
};

/// Which numbers a parameter may be.
enum class Range : std::uint8_t {
  kSize,        ///< mm, above 0
  kZeroOrMore,  ///< mm
  kSigned,      ///< mm, of either sign
  kTurn,        ///< degrees
  kBend,        ///< degrees, above 0 and below 180
  kSlope,       ///< degrees, from 0 and below 45
  kFigure,      ///< above 0: what the section weighs or measures, which nothing is drawn by
  kKind         ///< 0, 1 or 2
};

/// One parameter as a job gives it.
struct ProfileParameter {
  std::string_view key;
  bool required;
  std::string_view meaning;
  Range range = Range::kSize;
  double otherwise = 0;  ///< when it isn't given, in the job's unit; the class may derive another from the rest
};

/// What is wrong with the parameters of one profile: which key, and what would be right.
struct ParameterProblem {
  std::string_view key;
  std::string message;
};

/// The parameters of one profile as a job gives them, in its units: bit i of `given` says whether value i was there.
struct GivenParameters {
  std::uint32_t given = 0;
  ParameterValues values{};

  bool has(std::size_t i) const { return (given >> i & 1U) != 0; }
  void set(std::size_t i, double value) {
    given |= 1U << i;
    values[i] = value;
  }
};

/// How far a section reaches from the bar's axis, mm: a rectangle around it, the section not turned.
struct SectionBox {
  double left = 0;
  double below = 0;
  double right = 0;
  double above = 0;
};

/// A class of profile: what a job may say of it, what of that fits together, and how a member of it is made.
/// A further class is a further row of profileClasses().
struct ProfileClass {
  static constexpr std::size_t kNoTurn = kMaxParameters;

  std::string_view name;
  std::span<const ProfileParameter> parameters;

  /// Derives what wasn't given, and tells why the parameters give no section: false then. `values` holds what was
  /// given and the constants for what wasn't.
  bool (*settle)(const GivenParameters& given, ParameterValues& values, ParameterProblem& problem);

  SectionBox (*box)(const ParameterValues& values);

  /// A new member between two points of the drawing plane in a view (0 to 6), drawn. The caller owns it.
  KrObject* (*make)(AcGePoint3d& start, AcGePoint3d& end, int view, const ParameterValues& values);

  /// Where "AngleSecao" stands among the parameters; kNoTurn when the section can't be turned.
  std::size_t turn = kNoTurn;

  /// Whether the section is given by its middle line, "line", and perhaps by "origin".
  bool takesLine = false;

  /// The position of a parameter, or kMaxParameters.
  std::size_t positionOf(std::string_view key) const;
};

/// Every class of profile that a job can name.
std::span<const ProfileClass> profileClasses();

/// The class of that name, or null.
const ProfileClass* profileClass(std::string_view name);

/// "greater than 0" when `value` isn't in the range; empty when it is.
std::string_view rangeProblem(Range range, double value);

/// The parameters for the constructor, of what a job gives: each in its range, and every required one there. False,
/// with the problem told, when they give no section.
bool settleParameters(const ProfileClass& row, const GivenParameters& given, ParameterValues& values,
                      ParameterProblem& problem);

/// How far the section, turned as it is, reaches from the bar's axis to either side across the bar in a view, at most.
double reachAcross(const ProfileClass& row, const ParameterValues& values, int view);

/// The side of a square about the bar's axis that holds the section, mm.
double sectionSize(const ProfileClass& row, const ParameterValues& values);

}  // namespace kr
