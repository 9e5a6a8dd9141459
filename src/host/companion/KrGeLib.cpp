#include "host/companion/KrGeLib.h"

#include <algorithm>
#include <cmath>

#include "host/companion/PolygonEdges.h"

namespace {

/// One edge of a polygon as a curve of its own: a polygon of two points.
using Edge = PolygonEdges;

}  // namespace

int createCurves(const AcArray<AcGePoint2d>& pontos, const AcArray<double>& bulges, AcArray<void*>& curvas) {
  const int edges = std::max(0, pontos.length() - 1);
  AcArray<AcGePoint2d> ends(2);
  AcArray<double> bulge(1);
  for (int i = 0; i < edges; ++i) {
    ends.setLogicalLength(0);
    bulge.setLogicalLength(0);
    ends.append(pontos[i]);
    ends.append(pontos[i + 1]);
    bulge.append(i < bulges.length() ? bulges[i] : 0.0);
    curvas.append(new Edge(ends, bulge));
  }
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
  return PolygonEdges(pontos, bulges).meet(l, saida);
}

int intersectWith(const AcGeCircArc2d& a, const AcArray<AcGePoint2d>& pontos, const AcArray<double>& bulges,
                  AcArray<AcGePoint2d>& saida) {
  return PolygonEdges(pontos, bulges).meet(a, saida);
}

int intersectWith2dFence(const AcGeLinearEnt2d& l, const AcArray<AcGePoint2d>& pontos, const AcArray<double>& bulges,
                         AcArray<AcGePoint2d>& saida) {
  return PolygonEdges(pontos, bulges).cross(l, &saida);
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
