#include "host/companion/KrGeLib.h"

#include <algorithm>
#include <cmath>

#include "host/companion/PolygonFence.h"

namespace {

/// One edge of a polygon as a calculator: an arc, or a segment.
struct Edge {
  bool isArc;
  AcGeLineSeg2d segment;
  AcGeCircArc2d arc;

  bool holds(const AcGePoint2d& p) const { return (isArc ? arc.isOn(p) : segment.isOn(p)) != 0; }
};

double bulgeOf(const AcArray<double>& bulges, int i) {
  return i < bulges.length() ? bulges[i] : 0.0;
}

bool isStraight(double bulge) {
  return std::fabs(bulge) <= AcGeContext::gTol.equalPoint();
}

Edge edgeOf(const AcGePoint2d& from, const AcGePoint2d& to, double bulge) {
  Edge edge{!isStraight(bulge) && from != to, AcGeLineSeg2d(from, to), AcGeCircArc2d(from, from, 0.0)};
  if (edge.isArc) edge.arc.set(from, to, bulge);
  return edge;
}

/// Appends points, but none that was appended since the collector was made.
class DistinctPoints {
 public:
  explicit DistinctPoints(AcArray<AcGePoint2d>& points) : m_points(points), m_from(points.length()) {}

  void add(const AcGePoint2d& p) {
    for (int i = m_from; i < m_points.length(); ++i) {
      if (m_points[i] == p) return;
    }
    m_points.append(p);
  }
  int count() const { return m_points.length() - m_from; }

 private:
  AcArray<AcGePoint2d>& m_points;
  int m_from;
};

/// Two arcs on one circle share a stretch or nothing, and two linear entities on one line.
bool runAlong(const AcGeLinearEnt2d& l, const Edge& edge) {
  return !edge.isArc && l.isColinearTo(edge.segment);
}
bool runAlong(const AcGeCircArc2d& a, const Edge& edge) {
  return edge.isArc && a.center() == edge.arc.center() &&
         std::fabs(a.radius() - edge.arc.radius()) <= AcGeContext::gTol.equalPoint();
}

int meet(const AcGeLinearEnt2d& l, const Edge& edge, AcGePoint2d found[2]) {
  int count = 0;
  if (edge.isArc) {
    edge.arc.intersectWith(l, count, found[0], found[1]);
    return count;
  }
  return l.intersectWith(edge.segment, found[0]);
}
int meet(const AcGeCircArc2d& a, const Edge& edge, AcGePoint2d found[2]) {
  int count = 0;
  if (edge.isArc) {
    a.intersectWith(edge.arc, count, found[0], found[1]);
  } else {
    a.intersectWith(edge.segment, count, found[0], found[1]);
  }
  return count;
}

template <class Curve>
int meetPolygon(const Curve& curve, const AcArray<AcGePoint2d>& points, const AcArray<double>& bulges,
                AcArray<AcGePoint2d>& out) {
  DistinctPoints distinct(out);
  for (int i = 0; i + 1 < points.length(); ++i) {
    if (points[i] == points[i + 1]) continue;
    const Edge edge = edgeOf(points[i], points[i + 1], bulgeOf(bulges, i));
    if (runAlong(curve, edge)) {
      if (curve.isOn(points[i])) distinct.add(points[i]);
      if (curve.isOn(points[i + 1])) distinct.add(points[i + 1]);
      continue;
    }
    AcGePoint2d found[2];
    const int count = meet(curve, edge, found);
    for (int k = 0; k < count; ++k) distinct.add(found[k]);
  }
  return distinct.count();
}

}  // namespace

int createCurves(const AcArray<AcGePoint2d>& pontos, const AcArray<double>& bulges, AcArray<void*>& curvas) {
  const int edges = std::max(0, pontos.length() - 1);
  for (int i = 0; i < edges; ++i) curvas.append(new Edge(edgeOf(pontos[i], pontos[i + 1], bulgeOf(bulges, i))));
  return edges;
}

void deleteCurves(const AcArray<void*>& curvas) {
  for (void* curve : curvas) delete static_cast<Edge*>(curve);
}

int contains(const AcGePoint2d& p, const AcArray<void*>& curvas) {
  return std::any_of(curvas.begin(), curvas.end(), [&](void* curve) { return static_cast<Edge*>(curve)->holds(p); });
}

int intersectWith(const AcGeLinearEnt2d& l, const AcArray<AcGePoint2d>& pontos, const AcArray<double>& bulges,
                  AcArray<AcGePoint2d>& saida) {
  return meetPolygon(l, pontos, bulges, saida);
}

int intersectWith(const AcGeCircArc2d& a, const AcArray<AcGePoint2d>& pontos, const AcArray<double>& bulges,
                  AcArray<AcGePoint2d>& saida) {
  return meetPolygon(a, pontos, bulges, saida);
}

int intersectWith2dFence(const AcGeLinearEnt2d& l, const AcArray<AcGePoint2d>& pontos, const AcArray<double>& bulges,
                         AcArray<AcGePoint2d>& saida) {
  const int before = saida.length();
  const int last = pontos.length() - 1;
  if (last < 1 || l.direction().lengthSqrd() == 0.0) return 0;
  PolygonFence fence(l, saida);
  fence.begin(pontos[0]);
  for (int i = 0; i < last; ++i) {
    if (pontos[i] == pontos[i + 1]) continue;
    const double bulge = bulgeOf(bulges, i);
    if (isStraight(bulge)) {
      fence.straightTo(pontos[i + 1]);
    } else {
      fence.arcTo(AcGeCircArc2d(pontos[i], pontos[i + 1], bulge));
    }
  }
  if (pontos[0] == pontos[last]) fence.close();
  return saida.length() - before;
}

void QuickSort(AcArray<AcGePoint2d>& p, const AcGeVector2d& d) {
  std::sort(p.begin(), p.end(), [&](const AcGePoint2d& a, const AcGePoint2d& b) {
    return a.asVector().dotProduct(d) < b.asVector().dotProduct(d);
  });
}

namespace {

template <class Point>
void sortByCoordinate(Point* p, int first, int last, int axis) {
  if (last <= first) return;
  const auto coordinate = static_cast<unsigned int>(axis);
  std::sort(p + first, p + last + 1, [=](const Point& a, const Point& b) { return a[coordinate] < b[coordinate]; });
}

}  // namespace

void QuickSort(AcGePoint2d* p, int primeiro, int ultimo, int eixo) {
  sortByCoordinate(p, primeiro, ultimo, eixo);
}

void QuickSort(AcGePoint3d* p, int primeiro, int ultimo, int eixo) {
  sortByCoordinate(p, primeiro, ultimo, eixo);
}

void QuickSort(AcGePoint3d* p, int n, const AcGeVector3d& d) {
  if (n < 2) return;
  std::sort(p, p + n, [&](const AcGePoint3d& a, const AcGePoint3d& b) {
    return a.asVector().dotProduct(d) < b.asVector().dotProduct(d);
  });
}

void QuickSortAngular(const AcGePoint2d& centro, double anguloInicial, AcArray<AcGePoint2d>& p, int horario) {
  const auto turn = [&](const AcGePoint2d& point) {
    const AcGeVector2d out = point - centro;
    const double ahead = GetAngle(horario ? anguloInicial - out.angle() : out.angle() - anguloInicial);
    // A point of the start itself may come out a rounding short of the full turn.
    return (kAcGeTwoPi - ahead) * out.length() <= AcGeContext::gTol.equalPoint() ? 0.0 : ahead;
  };
  std::sort(p.begin(), p.end(), [&](const AcGePoint2d& a, const AcGePoint2d& b) { return turn(a) < turn(b); });
}

double GetAngle(double angulo) {
  const double within = std::fmod(angulo, kAcGeTwoPi);
  if (within >= 0.0) return within;
  return within + kAcGeTwoPi < kAcGeTwoPi ? within + kAcGeTwoPi : 0.0;
}
