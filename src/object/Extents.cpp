// The extent of what a view draws: the box along the member, and the box of its straight lines in the drawing.

#include <algorithm>
#include <cmath>
#include <limits>

#include "object/KrObject.h"
#include "object/Rotation.h"

namespace {

/// The box of points turned into a member's direction about its start.
class TurnedBox {
 public:
  TurnedBox(const AcGePoint3d& centre, double angle) : centre_(centre), back_(-angle), forth_(angle) {}

  void add(const AcGePoint3d& p) {
    const AcGeVector3d v = back_(p - centre_);
    lowX_ = std::min(lowX_, v.x);
    highX_ = std::max(highX_, v.x);
    lowY_ = std::min(lowY_, v.y);
    highY_ = std::max(highY_, v.y);
    empty_ = false;
  }

  bool empty() const { return empty_; }
  AcGePoint3d lowerLeft() const { return corner(lowX_, lowY_); }
  AcGePoint3d upperLeft() const { return corner(lowX_, highY_); }
  AcGePoint3d lowerRight() const { return corner(highX_, lowY_); }
  AcGePoint3d upperRight() const { return corner(highX_, highY_); }

 private:
  AcGePoint3d corner(double x, double y) const {
    AcGePoint3d p = centre_ + forth_(AcGeVector3d(x, y, 0));
    p.z = 0;
    return p;
  }

  AcGePoint3d centre_;
  Rotation back_;
  Rotation forth_;
  double lowX_ = std::numeric_limits<double>::max();
  double lowY_ = std::numeric_limits<double>::max();
  double highX_ = std::numeric_limits<double>::lowest();
  double highY_ = std::numeric_limits<double>::lowest();
  bool empty_ = true;
};

void addArcExtremes(const KrVector& v, double axes, TurnedBox& box) {
  const AcGeCircArc3d arc(v.startPoint(), v.midPoint(), v.endPoint());
  const AcGePoint3d centre = arc.center();
  for (int quarter = 0; quarter < 4; ++quarter) {
    const double angle = axes + quarter * 1.5707963267948966;
    const AcGePoint3d p = centre + Rotation(angle)(AcGeVector3d(arc.radius(), 0, 0));
    if (arc.isOn(p)) box.add(p);
  }
}

bool isStraight(const KrVector& v) {
  return v.type() == KR_VT_LINHA_OCULTA || v.type() == KR_VT_LINHA;
}

}  // namespace

void KrObject::GetExtremePoints(AcGePoint3d& p0, AcGePoint3d& p1, AcGePoint3d& p2, AcGePoint3d& p3, int comEixo,
                                int semOcultos) const {
  assertReadEnabled();
  if (isSecao() == Acad::eNotImplementedYet) return;
  double axes = angleVista_;
  if (vista_ == Secao) axes += angleSecao_;
  if (vista_ == SecaoVerso) axes -= angleSecao_;
  double theta = axes;
  if (isSecao() == Acad::eNotApplicable) {
    AcGePoint3d a, b;
    if (GetPointsOfEixo(a, b, 0) == Acad::eOk && !(b - a).isZeroLength()) theta = std::atan2(b.y - a.y, b.x - a.x);
  }

  TurnedBox box(startPoint_, theta);
  const KrObjectArray<KrVector>& lista = currentVertexList(VistaCorrente);
  for (int i = 0; i < lista.length(); ++i) {
    const KrVector& v = lista[i];
    const bool axis = v.type() == KR_VT_EIXO;
    if (!axis && v.tipo() != KR_VF_ARESTA) continue;
    if (semOcultos != 0 && v.hidden() != 0) continue;
    if (axis && comEixo == 0) continue;
    if (!axis && !isStraight(v) && v.type() != KR_VT_ARCO) continue;
    box.add(v.startPoint());
    box.add(v.endPoint());
    if (v.type() == KR_VT_ARCO) addArcExtremes(v, axes, box);
  }
  if (box.empty()) return;
  p0 = box.upperLeft();
  p1 = box.lowerLeft();
  p2 = box.upperRight();
  p3 = box.lowerRight();
}

void KrObject::GetExtremePoints(AcGePoint3d* pontos, int comEixo, int semOcultos) const {
  GetExtremePoints(pontos[0], pontos[1], pontos[2], pontos[3], comEixo, semOcultos);
}

// The four extremes look at straight elements only; a round section has none of its own.
static double extremeOf(const KrObjectArray<KrVector>& lista, double AcGePoint3d::*coordinate, bool largest) {
  double best = 0;
  bool first = true;
  for (int i = 0; i < lista.length(); ++i) {
    const KrVector& v = lista[i];
    if (!isStraight(v)) continue;
    for (const AcGePoint3d& p : {v.startPoint(), v.endPoint()}) {
      const double c = p.*coordinate;
      if (first || (largest ? c > best : c < best)) best = c;
      first = false;
    }
  }
  return best;
}

double KrObject::GetMaxX(KrVistas v) const {
  return extremeOf(currentVertexList(v), &AcGePoint3d::x, true);
}
double KrObject::GetMaxY(KrVistas v) const {
  return extremeOf(currentVertexList(v), &AcGePoint3d::y, true);
}
double KrObject::GetMinX(KrVistas v) const {
  return extremeOf(currentVertexList(v), &AcGePoint3d::x, false);
}
double KrObject::GetMinY(KrVistas v) const {
  return extremeOf(currentVertexList(v), &AcGePoint3d::y, false);
}

Acad::ErrorStatus KrObject::subGetGeomExtents(AcDbExtents& extents) const {
  assertReadEnabled();
  extents.set(AcGePoint3d(GetMinX(VistaCorrente), GetMinY(VistaCorrente), 0),
              AcGePoint3d(GetMaxX(VistaCorrente), GetMaxY(VistaCorrente), 0));
  return Acad::eOk;
}
