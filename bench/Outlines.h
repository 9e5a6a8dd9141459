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

/// The length of every member that is measured.
inline constexpr double kLength = 6000;

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

/// The contours of a tube: the outer and the inner circle, each of two half circles.
inline std::vector<Outline> tube(double outerDiameter, double wall) {
  const auto circle = [](double radius, double bulge) { return Outline{{radius, 0, bulge}, {-radius, 0, bulge}}; };
  return {circle(outerDiameter / 2, 1), circle(outerDiameter / 2 - wall, 1)};
}

}  // namespace bench
