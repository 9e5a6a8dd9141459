#include "host/companion/side/SideFunctions.h"

#include <cmath>
#include <numbers>

#include "host/ge/ge.h"

namespace {

// A bulge on the scale of shape codes is 127 times the tangent of a quarter of the sweep.
constexpr double kBulgeScale = 127.0;

// A contour marker holds the next contour's wall thickness above its first value.
constexpr double kFirstContourMarker = 6000.0;
constexpr double kEndOfContourMarkers = 7000.0;

}  // namespace

void krMidArco(const AcGePoint3d& p0, const AcGePoint3d& p1, double bulge, AcGePoint3d& middle) {
  // The rise of the arc over its chord is half the chord times the tangent of a quarter of the sweep; for a turn to the
  // left it lies on the chord's right.
  const double rise = bulge / (2.0 * kBulgeScale);
  const double dx = p1.x - p0.x;
  const double dy = p1.y - p0.y;
  middle.set(0.5 * (p0.x + p1.x) + rise * dy, 0.5 * (p0.y + p1.y) - rise * dx, 0.5 * (p0.z + p1.z));
}

int krIsBulge6000(double bulge) {
  return bulge >= kFirstContourMarker && bulge < kEndOfContourMarkers ? 1 : 0;
}

double krOrientacaoVetor(const AcGeVector3d& vector) {
  const double angle = std::atan2(vector.y, vector.x);
  if (angle >= 0.0) return angle;
  const double turned = angle + 2.0 * std::numbers::pi;
  // A vector barely below the axis rounds to the full turn, which is the axis itself.
  return turned < 2.0 * std::numbers::pi ? turned : 0.0;
}
