#include "support/Bulges.h"

#include <cmath>
#include <limits>

double Calcula_Bulge(double angulo, int sentido) {
  const double turn = 3.141592653589793 - angulo;
  const double chord = std::sqrt((1.0 - std::cos(turn)) * 2.0);
  if (chord == 0.0) return 0.0;
  const double bulge = std::tan(turn / 4.0) * kBulgeUnit;
  return sentido == 1 ? -bulge : bulge;
}

void Calcula_Bulge(double bulge, double corda, double& raio, double& angulo) {
  angulo = 4.0 * std::atan(std::fabs(bulge) / kBulgeUnit);
  raio = std::sqrt(corda * corda / ((1.0 - std::cos(angulo)) * 2.0));
}

namespace {

/// The largest difference of the two angles on one side: the single-precision value of 0.01.
constexpr double kSameSideAngle = 0.009999999776482582;
/// An angle from here on, 0.01 short of the full turn, counts as just below 0, so that a foot just below the X axis
/// stands with one just above it.
constexpr double kWrapAngle = 6.273185307403104;

/// Where a point's foot on the square through p1 lies: at p1, or along the square, or against it.
enum class Foot { kAtStart, kAlong, kAgainst };

/// The offset of p from the line through p1 along the unit vector d says on which side its foot lies. An offset that
/// the rounding of the coordinates can make counts as none.
Foot footOf(const AcGePoint3d& p1, const AcGeVector2d& d, const AcGePoint3d& p) {
  constexpr double kRounding = 4.0 * std::numeric_limits<double>::epsilon();
  const AcGeVector2d out(p.x - p1.x, p.y - p1.y);
  const double offset = d.crossProduct(out);
  const double noise = kRounding * (std::fabs(p.x) + std::fabs(p.y) + std::fabs(p1.x) + std::fabs(p1.y));
  if (std::fabs(offset) <= noise) return Foot::kAtStart;
  return offset > 0.0 ? Foot::kAlong : Foot::kAgainst;
}

/// The angle at which p1 sees a foot; 0 for a foot in p1 itself.
double angleOfFoot(Foot foot, const AcGeVector2d& d) {
  if (foot == Foot::kAtStart) return 0.0;
  const AcGeVector2d square = d.perpVector();
  const double angle = (foot == Foot::kAlong ? square : -square).angle();
  return angle >= kWrapAngle ? angle - kAcGeTwoPi : angle;
}

}  // namespace

// The feet of a and b lie on one line through p1, so that their angles can only be those of the square's two
// directions, or 0. That leaves signs to compare, and angles only where a point lies on the line itself.
int toEqualSide(const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& a, const AcGePoint3d& b) {
  const AcGeVector2d chord(p2.x - p1.x, p2.y - p1.y);
  const double length = chord.length();
  const AcGeVector2d d = length == 0.0 ? AcGeVector2d::kXAxis : chord / length;
  const Foot footA = footOf(p1, d, a);
  const Foot footB = footOf(p1, d, b);
  if (footA == footB) return 1;
  if (footA != Foot::kAtStart && footB != Foot::kAtStart) return 0;
  return std::fabs(angleOfFoot(footA, d) - angleOfFoot(footB, d)) <= kSameSideAngle ? 1 : 0;
}
