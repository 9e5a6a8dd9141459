#pragma once

#include <cmath>
#include <numbers>
#include <vector>

namespace bench {

/// A corner of a closed outline in millimetres; `bulge` is the tangent of a quarter of the angle of the arc that leaves
/// it, negative clockwise, 0 for a straight edge.
struct Node {
  double x = 0;
  double y = 0;
  double bulge = 0;
};

using Outline = std::vector<Node>;

/// A bar's section: its outer contour, then its holes.
using Solid = std::vector<Outline>;

/// Which way an outline runs; its arcs count by the triangles over their middles.
inline bool isCounterclockwise(const Outline& outline) {
  double doubled = 0;
  for (std::size_t i = 0; i < outline.size(); ++i) {
    const Node& a = outline[i];
    const Node& b = outline[(i + 1) % outline.size()];
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    doubled += a.x * b.y - b.x * a.y + (dx * dx + dy * dy) * a.bulge / 2;
  }
  return doubled > 0;
}

/// The length of every member that is measured.
inline constexpr double kLength = 6000;

/// A round hole through one wall: from face to face in the section's plane, at a place along the bar.
struct Hole {
  double x0 = 0, y0 = 0, x1 = 0, y1 = 0, z = 0;
};
inline constexpr double kHoleDiameter = 18;

/// An I of 24 nodes, counterclockwise: four fillets between web and flanges, all eight flange corners bevelled by 2 mm.
inline Outline rolledI() {
  constexpr double half = 75, top = 150, inner = 139.3, web = 3.55, fillet = 15, bevel = 2;
  const double quarter = -std::tan(std::numbers::pi / 8);
  // The right half from the bottom up; the left half is the same turned by half a turn.
  const Outline right = {{half - bevel, -top, 0},        {half, -top + bevel, 0},         {half, -inner - bevel, 0},
                         {half - bevel, -inner, 0},      {web + fillet, -inner, quarter}, {web, -inner + fillet, 0},
                         {web, inner - fillet, quarter}, {web + fillet, inner, 0},        {half - bevel, inner, 0},
                         {half, inner + bevel, 0},       {half, top - bevel, 0},          {half - bevel, top, 0}};
  Outline all = right;
  for (const Node& node : right) all.push_back({-node.x, -node.y, node.bulge});
  return all;
}

/// `count` holes of that I, spread over its length: by turns in the upper flange, seen face on from above, on two gauge
/// lines, and in the web, seen edge on, in two rows.
inline std::vector<Hole> holesOfRolledI(int count) {
  constexpr double gauge = 40, top = 150, inner = 139.3, web = 3.55, row = 60;
  std::vector<Hole> all;
  for (int i = 0; i < count; ++i) {
    const double z = kLength * (i + 0.5) / count;
    const double side = i % 4 < 2 ? 1 : -1;
    if (i % 2 == 0)
      all.push_back({side * gauge, top, side * gauge, inner, z});
    else
      all.push_back({web, side * row, -web, side * row, z});
  }
  return all;
}

/// A wheel of `nodes` corners that lie by turns on two circles: no two edges are parallel to each other by chance, and
/// from any side about half of the corners are hidden.
inline Outline wheel(int nodes) {
  constexpr double outer = 200, inner = 160;
  Outline all;
  for (int i = 0; i < nodes; ++i) {
    const double angle = 2 * std::numbers::pi * (i + 0.25) / nodes;
    const double radius = i % 2 == 0 ? outer : inner;
    all.push_back({radius * std::cos(angle), radius * std::sin(angle), 0});
  }
  return all;
}

}  // namespace bench
