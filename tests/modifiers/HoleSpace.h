#pragma once

#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

#include "object/KrObject.h"

/// A member as the prism that it stands for, to judge holes by: points in space, lines of sight, and where the drawing
/// of a view shows them. Shares nothing with the modifiers but the meaning of an outline and of a hole's record.
///
/// The section's frame is right-handed and the bar runs along its -Z; a hole counts z along the bar.
namespace space {

inline constexpr double kPi = 3.141592653589793;
inline constexpr double kQuarter = kPi / 2;
inline constexpr KrVistas kElevations[] = {Superior, Inferior, Esquerda, Direita};
inline constexpr KrVistas kSections[] = {Secao, SecaoVerso};

struct Flat {
  double x = 0;
  double y = 0;
};

inline Flat turned(Flat p, double angle) {
  return {p.x * std::cos(angle) - p.y * std::sin(angle), p.x * std::sin(angle) + p.y * std::cos(angle)};
}

/// The direction from the bar to the viewer in the section's plane, the section turned by `angleSecao`.
inline Flat towardsViewer(KrVistas view, double angleSecao) {
  Flat toViewer;
  if (view == Superior) toViewer = {0, 1};
  if (view == Inferior) toViewer = {0, -1};
  if (view == Direita) toViewer = {1, 0};
  if (view == Esquerda) toViewer = {-1, 0};
  return turned(toViewer, -angleSecao);
}

/// Where an elevation at real size shows a point of the bar: along the drawn bar, and to its left.
inline Flat seen(KrVistas view, double angleSecao, const AcGeVector3d& point, double length) {
  const Flat p = turned({point.x, point.y}, angleSecao);
  const AcGeVector3d at(p.x, p.y, -point.z);
  const Flat v = towardsViewer(view, 0);
  const AcGeVector3d toViewer(v.x, v.y, 0);
  // From above and from the right the drawing runs with the bar, from below and from the left against it.
  const bool against = view == Inferior || view == Esquerda;
  const AcGeVector3d right(0, 0, against ? 1 : -1);
  const AcGeVector3d up = toViewer.crossProduct(right);
  return {at.dotProduct(right) + (against ? length : 0), at.dotProduct(up)};
}

/// A closed contour with its arcs as many short chords.
inline std::vector<std::vector<Flat>> sampled(const KrGeratriz& outline) {
  constexpr int kChords = 400;
  std::vector<std::vector<Flat>> contours(1);
  const AcGeVector3d origin = outline.GetVertex(outline.Qtd());
  for (int i = 0; i < outline.Qtd(); ++i) {
    const AcGeVector3d p = outline.GetVertex(i) - origin;
    const double bulge = outline.GetBulge(i);
    contours.back().push_back({p.x, p.y});
    if (bulge >= 6000 && bulge < 7000) {
      contours.emplace_back();
      continue;
    }
    if (bulge == 0 || i + 1 == outline.Qtd()) continue;
    const AcGeVector3d q = outline.GetVertex(i + 1) - origin;
    const double chord = std::hypot(q.x - p.x, q.y - p.y);
    if (chord < 1e-9) continue;
    const double sweep = 4 * std::atan(bulge / 127.0);
    const double radius = chord / (2 * std::sin(std::fabs(sweep) / 2));
    const double toCentre = radius * std::cos(sweep / 2) * (sweep > 0 ? 1 : -1);
    const Flat centre{(p.x + q.x) / 2 - (q.y - p.y) / chord * toCentre,
                      (p.y + q.y) / 2 + (q.x - p.x) / chord * toCentre};
    const double start = std::atan2(p.y - centre.y, p.x - centre.x);
    for (int k = 1; k < kChords; ++k) {
      const double a = start + sweep * k / kChords;
      contours.back().push_back({centre.x + radius * std::cos(a), centre.y + radius * std::sin(a)});
    }
  }
  return contours;
}

/// A stretch of metal along a ray, by distances from where it starts.
struct Wall {
  double in;
  double out;
};

/// The walls that a ray meets, nearest first.
inline std::vector<Wall> wallsAlong(const std::vector<std::vector<Flat>>& contours, Flat from, Flat dir) {
  std::vector<double> at;
  for (const std::vector<Flat>& c : contours) {
    for (std::size_t i = 0; i < c.size(); ++i) {
      const Flat a = c[i];
      const Flat b = c[(i + 1) % c.size()];
      const double ha = dir.x * (a.y - from.y) - dir.y * (a.x - from.x);
      const double hb = dir.x * (b.y - from.y) - dir.y * (b.x - from.x);
      if ((ha > 0) == (hb > 0)) continue;
      const double share = ha / (ha - hb);
      at.push_back((a.x + (b.x - a.x) * share - from.x) * dir.x + (a.y + (b.y - a.y) * share - from.y) * dir.y);
    }
  }
  std::sort(at.begin(), at.end());
  std::vector<Wall> walls;
  for (std::size_t i = 0; i + 1 < at.size(); i += 2)
    if (at[i + 1] > 0) walls.push_back({at[i], at[i + 1]});
  return walls;
}

/// The elements of hole i in the list shown.
inline std::vector<KrVector> elementsOf(const KrObject& member, int i) {
  std::vector<KrVector> found;
  const KrObjectArray<KrVector>& list = member.currentVertexList(VistaCorrente);
  for (int k = 0; k < list.length(); ++k)
    if (list[k].isFuro() && list[k].IndexFur() == i) found.push_back(list[k]);
  return found;
}

/// The element of hole i of a type, if the list shown has one.
inline std::optional<KrVector> elementOf(const KrObject& member, int i, KrVectorType type) {
  for (const KrVector& v : elementsOf(member, i))
    if (v.type() == type) return v;
  return std::nullopt;
}

inline KrFuro holesOf(const KrObject& member) {
  KrFuro holes;
  member.Furos(holes, 1);
  return holes;
}

}  // namespace space
