#pragma once

#include <random>
#include <string>
#include <vector>

#include "object/VisibilityOracle.h"

/// Outlines to try the generators on: the shapes of the catalogue, and random ones.
namespace samples {

struct Named {
  std::string name;
  oracle::Outline outline;
};

/// A corner of a polygon and the radius that rounds it; 0 leaves it sharp.
struct Corner {
  double x;
  double y;
  double radius = 0;
};

/// A closed contour through corners, rounded ones by a tangent arc.
oracle::Contour rounded(const std::vector<Corner>& corners);

/// A rolled I: 24 nodes, of them 8 at the ends of 4 fillets. Height, width, web, flange, root radius.
oracle::Contour rolledI(double h, double b, double tw, double tf, double r);

/// Shapes as they stand in catalogues.
std::vector<Named> catalogueLike();

/// A random polygon with `n` corners round the origin, without crossings, its corners sharp or rounded.
oracle::Contour randomContour(std::mt19937& random, int n, double size, bool round);

/// A random outline: one contour, one with a hole, or two apart.
oracle::Outline randomOutline(std::mt19937& random, bool round);

}  // namespace samples
