#pragma once

#include <cmath>
#include <span>

#include "ProfileClasses.h"

namespace kr {

// The rows of profileClasses(), by how the sections are made.
std::span<const ProfileClass> roundClasses();
std::span<const ProfileClass> rolledClasses();
std::span<const ProfileClass> foldedClasses();
std::span<const ProfileClass> plateClasses();
std::span<const ProfileClass> lineClasses();

inline constexpr ProfileParameter kTurnParameter{"AngleSecao", false, "turn of the section about the bar, degrees",
                                                 Range::kTurn};
inline constexpr ProfileParameter kAreaParameter{"Area", true, "area of the section, mm2", Range::kFigure};
inline constexpr ProfileParameter kWeightParameter{"KgMetro", false,
                                                   "weight per metre, kg/m; of steel's when not given", Range::kFigure};

/// The slope of every rolled channel's flanges, one in six, radians: in single precision, as the class has it.
inline const double kChannelSlope = static_cast<float>(std::atan(static_cast<double>(1.0F / 6.0F)));

/// What steel of 1 mm2 weighs, kg/m.
inline constexpr double kSteel = 0.00785;

/// What rounding may take from a length of a section that is given to be just enough, mm.
inline constexpr double kSectionRounding = 1e-6;

}  // namespace kr
