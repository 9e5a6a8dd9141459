#include "object/SampleOutlines.h"

#include <cmath>

namespace samples {
namespace {

using oracle::Contour;
using oracle::Outline;

constexpr double kPi = 3.141592653589793;
const double kQuarter = std::tan(kPi / 8);

Contour circle(double r, bool clockwise) {
  const double b = clockwise ? -kQuarter : kQuarter;
  if (clockwise) return {{-r, 0, b}, {0, r, b}, {r, 0, b}, {0, -r, b}};
  return {{-r, 0, b}, {0, -r, b}, {r, 0, b}, {0, r, b}};
}

Contour moved(Contour c, double dx, double dy) {
  for (oracle::Vertex& v : c) v = {v.x + dx, v.y + dy, v.bulge};
  return c;
}

Contour mirroredX(const Contour& c) {
  return oracle::mirrored({c}).front();
}

Contour roundedBox(double w, double h, double r) {
  return rounded({{-w / 2, -h / 2, r}, {-w / 2, h / 2, r}, {w / 2, h / 2, r}, {w / 2, -h / 2, r}});
}

// A rolled angle: heel sharp at the lower left, root rounded, at both toes a quarter circle of the leg's thickness that
// runs into the inner face and meets the toe's outer corner square.
Contour angleWithToes(double a, double b, double t, double root) {
  return {{0, 0, 0},        {b, 0, kQuarter},     {b - t, t, 0}, {t + root, t, -kQuarter},
          {t, t + root, 0}, {t, a - t, kQuarter}, {0, a, 0}};
}

Contour channel(double h, double b, double tw, double tf, double r) {
  return rounded({{0, 0}, {0, h}, {b, h}, {b, h - tf}, {tw, h - tf, r}, {tw, tf, r}, {b, tf}, {b, 0}});
}

Contour taperedChannel(double h, double b, double tw, double tf, double slope, double r, double toe) {
  const double rise = slope * (b - tw);
  return rounded(
      {{0, 0}, {0, h}, {b, h}, {b, h - tf, toe}, {tw, h - tf - rise, r}, {tw, tf + rise, r}, {b, tf, toe}, {b, 0}});
}

Contour lippedC(double h, double b, double lip, double t, double ri) {
  const double ro = ri + t;
  return rounded({{b, lip},
                  {b, 0, ro},
                  {0, 0, ro},
                  {0, h, ro},
                  {b, h, ro},
                  {b, h - lip},
                  {b - t, h - lip},
                  {b - t, h - t, ri},
                  {t, h - t, ri},
                  {t, t, ri},
                  {b - t, t, ri},
                  {b - t, lip}});
}

Contour lippedZ(double h, double b, double lip, double t, double ri) {
  const double ro = ri + t;
  return rounded({{b, h - lip},
                  {b, h, ro},
                  {0, h, ro},
                  {0, t, ri},
                  {-b + 2 * t, t, ri},
                  {-b + 2 * t, lip},
                  {-b + t, lip},
                  {-b + t, 0, ro},
                  {t, 0, ro},
                  {t, h - t, ri},
                  {b - t, h - t, ri},
                  {b - t, h - lip}});
}

Contour hat(double h, double top, double brim, double t, double ri) {
  const double ro = ri + t;
  const double w = top / 2;
  return rounded({{-w - brim, 0},
                  {-w - brim, t},
                  {-w, t, ri},
                  {-w, h, ro},
                  {w, h, ro},
                  {w, t, ri},
                  {w + brim, t},
                  {w + brim, 0},
                  {w - t, 0, ro},
                  {w - t, h - t, ri},
                  {-w + t, h - t, ri},
                  {-w + t, 0, ro}});
}

}  // namespace

oracle::Contour rounded(const std::vector<Corner>& corners) {
  Contour c;
  const std::size_t n = corners.size();
  for (std::size_t i = 0; i < n; ++i) {
    const Corner& p = corners[(i + n - 1) % n];
    const Corner& v = corners[i];
    const Corner& q = corners[(i + 1) % n];
    if (v.radius <= 0) {
      c.push_back({v.x, v.y, 0});
      continue;
    }
    const double ax = p.x - v.x, ay = p.y - v.y, bx = q.x - v.x, by = q.y - v.y;
    const double la = std::hypot(ax, ay), lb = std::hypot(bx, by);
    const double between = std::acos((ax * bx + ay * by) / (la * lb));
    const double cut = v.radius / std::tan(between / 2);
    const double sense = (v.x - p.x) * (q.y - v.y) - (v.y - p.y) * (q.x - v.x) > 0 ? 1 : -1;
    c.push_back({v.x + ax / la * cut, v.y + ay / la * cut, sense * std::tan((kPi - between) / 4)});
    c.push_back({v.x + bx / lb * cut, v.y + by / lb * cut, 0});
  }
  return c;
}

oracle::Contour rolledI(double h, double b, double tw, double tf, double r) {
  const double x = b / 2, w = tw / 2, y = h / 2;
  return rounded({{-x, -y},
                  {-x, -y + tf},
                  {-w, -y + tf, r},
                  {-w, y - tf, r},
                  {-x, y - tf},
                  {-x, y},
                  {x, y},
                  {x, y - tf},
                  {w, y - tf, r},
                  {w, -y + tf, r},
                  {x, -y + tf},
                  {x, -y}});
}

std::vector<Named> catalogueLike() {
  std::vector<Named> all;
  all.push_back({"round bar", {circle(8, false)}});
  all.push_back({"tube", {circle(57.15, true), circle(52.15, true)}});
  all.push_back({"thick tube", {circle(30, true), circle(10, true)}});
  all.push_back({"flat bar", {{{0, 0}, {0, 8}, {100, 8}, {100, 0}}}});
  all.push_back({"rolled I", {rolledI(200, 100, 5.6, 8.5, 12)}});
  all.push_back({"wide flange", {rolledI(310, 305, 9.9, 15.4, 15)}});
  all.push_back({"I without fillets", {rolledI(400, 180, 8, 12.5, 0)}});
  all.push_back({"parallel channel", {channel(200, 75, 8.5, 11.5, 11.5)}});
  all.push_back({"tapered channel", {taperedChannel(200, 75, 8.5, 9, 1.0 / 12, 11.5, 5)}});
  all.push_back({"angle with toes", {angleWithToes(100, 75, 8, 10)}});
  all.push_back({"equal angle", {angleWithToes(76, 76, 6.4, 8)}});
  all.push_back({"two angles",
                 {moved(angleWithToes(100, 75, 8, 10), 5, 0), mirroredX(moved(angleWithToes(100, 75, 8, 10), 5, 0))}});
  all.push_back(
      {"two channels",
       {moved(channel(200, 75, 8.5, 11.5, 11.5), 6, 0), mirroredX(moved(channel(200, 75, 8.5, 11.5, 11.5), 6, 0))}});
  all.push_back(
      {"box of channels",
       {moved(mirroredX(channel(200, 75, 8.5, 11.5, 11.5)), -1, 0), moved(channel(200, 75, 8.5, 11.5, 11.5), 1, 0)}});
  all.push_back({"hollow box", {roundedBox(150, 100, 12), roundedBox(138, 88, 6)}});
  all.push_back({"box of one radius", {roundedBox(150, 100, 12), roundedBox(138, 88, 12)}});
  all.push_back({"square box", {roundedBox(80, 80, 8), roundedBox(72, 72, 4)}});
  all.push_back({"lipped channel", {lippedC(200, 75, 20, 2.65, 2.65)}});
  all.push_back({"folded channel", {lippedC(150, 60, 12, 3, 3)}});
  all.push_back({"lipped Z", {lippedZ(200, 75, 20, 2.65, 2.65)}});
  all.push_back({"hat", {hat(60, 100, 40, 3, 3)}});
  all.push_back(
      {"tee",
       {rounded({{-75, 0}, {-75, -12}, {-4, -12, 10}, {-4, -150}, {4, -150}, {4, -12, 10}, {75, -12}, {75, 0}})}});
  return all;
}

oracle::Contour randomContour(std::mt19937& random, int n, double size, bool round) {
  std::uniform_real_distribution<double> share(0.0, 1.0);
  std::vector<Corner> corners;
  for (int i = 0; i < n; ++i) {
    const double angle = 2 * kPi * (i + 0.8 * share(random)) / n;
    const double reach = size * (0.35 + 0.65 * share(random));
    corners.push_back({reach * std::cos(angle), reach * std::sin(angle), 0});
  }
  if (!round) return rounded(corners);
  for (std::size_t i = 0; i < corners.size(); ++i) {
    const Corner& p = corners[(i + corners.size() - 1) % corners.size()];
    const Corner& q = corners[(i + 1) % corners.size()];
    Corner& v = corners[i];
    const double la = std::hypot(p.x - v.x, p.y - v.y), lb = std::hypot(q.x - v.x, q.y - v.y);
    const double between = std::acos(((p.x - v.x) * (q.x - v.x) + (p.y - v.y) * (q.y - v.y)) / (la * lb));
    // The rounding takes at most two fifths of the shorter neighbour, so that the arcs of two corners never meet.
    if (share(random) < 0.7) v.radius = 0.4 * std::min(la, lb) * std::tan(between / 2) * (0.2 + 0.8 * share(random));
  }
  return rounded(corners);
}

oracle::Outline randomOutline(std::mt19937& random, bool round) {
  std::uniform_int_distribution<int> corners(3, 14);
  std::uniform_int_distribution<int> kind(0, 3);
  const int k = kind(random);
  // A hole within needs the origin well inside: four corners at least.
  Contour outer = randomContour(random, corners(random) + 1, 100, round);
  if (k == 1) {
    Contour hole = outer;
    for (oracle::Vertex& v : hole) v = {v.x * 0.5, v.y * 0.5, v.bulge};
    return {outer, hole};
  }
  if (k == 2) return {outer, moved(randomContour(random, corners(random), 60, round), 170, 20)};
  return {outer};
}

}  // namespace samples
