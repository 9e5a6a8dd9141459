#pragma once

#include "host/rx/AdeskTypes.h"

/// Kinds and errors shared by the geometry classes.
struct AcGe {
  /// What a geometry entity is; carried by value, so that a base reference still knows its limits.
  enum EntityId { kLine2d, kRay2d, kLineSeg2d, kCircArc2d, kLine3d, kRay3d, kLineSeg3d, kCircArc3d, kPlane };
  /// Why a construction was refused.
  enum ErrorCondition {
    kOk,
    k0This,  ///< The object itself has no length.
    k0Arg1,
    k0Arg2,
    kPerpendicularArg1Arg2,
    kEqualArg1Arg2,
    kEqualArg1Arg3,
    kEqualArg2Arg3,
    kLinearlyDependentArg1Arg2Arg3
  };
};
using AcGeError = AcGe::ErrorCondition;

/// Two tolerances: a distance under which points are the same, and a length under which (unit) vectors are.
class AcGeTol {
 public:
  constexpr AcGeTol() = default;

  constexpr double equalPoint() const { return m_point; }
  constexpr double equalVector() const { return m_vector; }
  constexpr void setEqualPoint(double value) { m_point = value; }
  constexpr void setEqualVector(double value) { m_vector = value; }

 private:
  double m_point = 1e-10;
  double m_vector = 1e-10;
};

/// The tolerance of every comparison that is given none.
struct AcGeContext {
  inline static AcGeTol gTol;
};

inline constexpr double kAcGePi = 3.141592653589793;
inline constexpr double kAcGeTwoPi = 2.0 * kAcGePi;
