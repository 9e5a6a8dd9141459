#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

class AcGePoint3d;
class KrObject;

namespace kr {

/// The most parameters that a class of profile takes.
inline constexpr std::size_t kMaxParameters = 12;

/// The parameters of a profile in the order of its class's constructor, millimetres and degrees.
using ParameterValues = std::array<double, kMaxParameters>;

/// One parameter as a job gives it.
struct ProfileParameter {
  std::string_view key;
  bool required;
  std::string_view meaning;
};

/// What is wrong with the parameters of one profile: which key, and what would be right.
struct ParameterProblem {
  std::string_view key;
  std::string message;
};

/// The parameters of one profile as a job gives them: bit i of `given` says whether value i was there.
struct GivenParameters {
  std::uint32_t given = 0;
  ParameterValues values{};

  bool has(std::size_t i) const { return (given >> i & 1U) != 0; }
};

/// A class of profile: what a job may say of it, what of that fits together, and how a member of it is made.
/// A further class is a further row of profileClasses().
struct ProfileClass {
  std::string_view name;
  std::span<const ProfileParameter> parameters;

  /// Puts the given parameters, each of which is there and positive where required, into constructor order. Returns
  /// false and tells the problem when they don't fit together.
  bool (*settle)(const GivenParameters& given, ParameterValues& values, ParameterProblem& problem);

  /// The extent of the section across the bar, mm.
  double (*depth)(const ParameterValues& values);

  /// A new member between two points of the drawing plane in a view (0 to 6), drawn. The caller owns it.
  KrObject* (*make)(AcGePoint3d& start, AcGePoint3d& end, int view, const ParameterValues& values);
};

/// Every class of profile that a job can name.
std::span<const ProfileClass> profileClasses();

/// The class of that name, or null.
const ProfileClass* profileClass(std::string_view name);

}  // namespace kr
