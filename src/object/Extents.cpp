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

  void add(const AcGePoint3d& p) { add(p, p); }
  /// Both ends of a chord.
  void add(const AcGePoint3d& p, const AcGePoint3d& q) {
    const AcGeVector2d a = back_(AcGeVector2d(p.x - centre_.x, p.y - centre_.y));
    const AcGeVector2d b = back_(AcGeVector2d(q.x - centre_.x, q.y - centre_.y));
    lowX_ = std::min(lowX_, std::min(a.x, b.x));
    highX_ = std::max(highX_, std::max(a.x, b.x));
    lowY_ = std::min(lowY_, std::min(a.y, b.y));
    highY_ = std::max(highY_, std::max(a.y, b.y));
  }

  bool empty() const { return lowX_ > highX_; }
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

void setCorners(const TurnedBox& box, AcGePoint3d& a, AcGePoint3d& b, AcGePoint3d& c, AcGePoint3d& d) {
  if (box.empty()) return;
  a = box.upperLeft();
  b = box.lowerLeft();
  c = box.upperRight();
  d = box.lowerRight();
}

/// One corner of a view as drawn: the point that leads in one direction, and among those within the drawing tolerance
/// of it the one that leads in the other.
class Corner {
 public:
  Corner(const AcGeVector3d& leading, const AcGeVector3d& other) : leading_(leading), other_(other) {}

  void offer(const AcGePoint3d& p) {
    const double lead = leading_.dotProduct(p.asVector());
    const double rest = other_.dotProduct(p.asVector());
    const bool ahead = lead > lead_ + kDrawingTolerance;
    const bool level = lead >= lead_ - kDrawingTolerance && rest > rest_;
    if (!empty_ && !ahead && !level) return;
    point_ = p;
    lead_ = lead;
    rest_ = rest;
    empty_ = false;
  }

  void give(AcGePoint3d& p) const {
    if (!empty_) p = point_;
  }

 private:
  AcGeVector3d leading_;
  AcGeVector3d other_;
  AcGePoint3d point_;
  double lead_ = 0;
  double rest_ = 0;
  bool empty_ = true;
};

/// Circles and round holes seen face on have no ends: what stands there is no point of the drawing.
bool hasEnds(const KrVector& v) {
  return v.type() != KR_VT_CIRCULO && (v.type() != KR_VT_FURO || v.tipo() == KR_VF_FURO_OBLONGO);
}

/// Whether the ends of an element are points of the member as drawn: axes only measure.
bool hasEndsOnTheMember(const KrVector& v) {
  switch (v.type()) {
    case KR_VT_EIXO:
    case KR_VT_REFERENCIA:
    case KR_VT_FURO_EIXO:
    case KR_VT_FURO:
      return false;
    default:
      return hasEnds(v);
  }
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
  for (const Node<KrVector>* no = lista.getNode(0); no != nullptr; no = lista.nextNode(no)) {
    const KrVector& v = *no->value;
    const bool axis = v.type() == KR_VT_EIXO;
    if (!axis && v.tipo() != KR_VF_ARESTA) continue;
    if (semOcultos != 0 && v.hidden() != 0) continue;
    if (axis && comEixo == 0) continue;
    if (!axis && !isStraight(v) && v.type() != KR_VT_ARCO) continue;
    box.add(v.startPoint(), v.endPoint());
    if (v.type() == KR_VT_ARCO) addArcExtremes(v, axes, box);
  }
  setCorners(box, p0, p1, p2, p3);
}

void KrObject::GetExtremePoints(AcGePoint3d* pontos, int comEixo, int semOcultos) const {
  GetExtremePoints(pontos[0], pontos[1], pontos[2], pontos[3], comEixo, semOcultos);
}

Acad::ErrorStatus KrObject::GetExtremePointsSecao(AcGePoint3d& a, AcGePoint3d& b, AcGePoint3d& c,
                                                  AcGePoint3d& d) const {
  assertReadEnabled();
  if (secao_.Qtd() == 0) return Acad::eNotApplicable;
  secao_.GetExtremePoints(b, c);
  const AcGeVector3d& origin = secao_.GetRefOrigin();
  b -= origin;
  c -= origin;
  a.set(b.x, c.y, b.z);
  d.set(c.x, b.y, c.z);
  return Acad::eOk;
}

Acad::ErrorStatus KrObject::GetExtremePointsSecao(AcGePoint3d* pontos) const {
  return GetExtremePointsSecao(pontos[0], pontos[1], pontos[2], pontos[3]);
}

void KrObject::GetCorners(AcGePoint3d& a, AcGePoint3d& b, AcGePoint3d& c, AcGePoint3d& d) const {
  // Each corner leads in a direction of its own, so that a turned rectangle has four of them.
  const AcGeVector3d x = AcGeVector3d::kXAxis;
  const AcGeVector3d y = AcGeVector3d::kYAxis;
  Corner corners[] = {{-x, y}, {-y, -x}, {y, x}, {x, -y}};
  const KrObjectArray<KrVector>& lista = currentVertexList(VistaCorrente);
  for (Corner& corner : corners) {
    for (const Node<KrVector>* no = lista.getNode(0); no != nullptr; no = lista.nextNode(no)) {
      if (!hasEndsOnTheMember(*no->value)) continue;
      corner.offer(no->value->startPoint());
      corner.offer(no->value->endPoint());
    }
  }
  corners[0].give(a);
  corners[1].give(b);
  corners[2].give(c);
  corners[3].give(d);
}

void KrObject::GetCornersOf(AcGePoint3d& a, AcGePoint3d& b, AcGePoint3d& c, AcGePoint3d& d) const {
  GetLimitPointsOfFaces(a, b, c, d);
}

void KrObject::GetLimitPointsOfFaces(AcGePoint3d& a, AcGePoint3d& b, AcGePoint3d& c, AcGePoint3d& d) const {
  const double angle = isSecao() == Acad::eOk ? angleSecao_ : angleVista_;
  const KrObjectArray<KrVector>& lista = currentVertexList(VistaCorrente);
  TurnedBox faces(startPoint_, angle);
  TurnedBox round(startPoint_, angle);
  for (const Node<KrVector>* no = lista.getNode(0); no != nullptr; no = lista.nextNode(no)) {
    const KrVector& v = *no->value;
    if (v.type() == KR_VT_ARCO) addArcExtremes(v, angle, round);
    if (!isStraight(v)) continue;
    faces.add(v.startPoint(), v.endPoint());
  }
  // A round section has no straight face: the tangents round it stand for them.
  setCorners(faces.empty() ? round : faces, a, b, c, d);
}

void KrObject::GetRectangleLimit(AcGePoint3d& p, AcGePoint3d& q, KrVistas vista) const {
  const KrObjectArray<KrVector>& lista = currentVertexList(vista);
  double angle = angleVista_;
  const KrVector* axis = findFirst(vista, KR_VT_EIXO);
  if (axis != nullptr && axis->startPoint() != axis->endPoint()) {
    const AcGeVector3d along = axis->endPoint() - axis->startPoint();
    angle = std::atan2(along.y, along.x);
  }
  TurnedBox box(startPoint_, angle);
  for (const Node<KrVector>* no = lista.getNode(0); no != nullptr; no = lista.nextNode(no)) {
    if (!isStraight(*no->value)) continue;
    box.add(no->value->startPoint(), no->value->endPoint());
  }
  if (box.empty()) return;
  p = box.lowerLeft();
  q = box.upperRight();
}

void KrObject::GetRectangle(AcGePoint3d& a, AcGePoint3d& b, AcGePoint3d& c, AcGePoint3d& d) const {
  AcGePoint3d p, q;
  GetRectangleLimit(p, q, VistaCorrente);
  if (p == q) return;
  double angle = angleVista_;
  AcGePoint3d from, to;
  if (GetPointsOfEixo(from, to, 0) == Acad::eOk && from != to) angle = std::atan2(to.y - from.y, to.x - from.x);
  TurnedBox box(p + (q - p) / 2, angle);
  box.add(p);
  box.add(q);
  setCorners(box, a, b, c, d);
}

void KrObject::GetLimitsPoints(AcGePoint3d& a, AcGePoint3d& b, KrVistas v) const {
  const KrObjectArray<KrVector>& lista = currentVertexList(v);
  bool first = true;
  AcGePoint3d left, right;
  for (const Node<KrVector>* no = lista.getNode(0); no != nullptr; no = lista.nextNode(no)) {
    if (!hasEnds(*no->value)) continue;
    for (const AcGePoint3d& p : {no->value->startPoint(), no->value->endPoint()}) {
      if (first || p.x < left.x) left = p;
      if (first || p.x > right.x) right = p;
      first = false;
    }
  }
  if (first) return;
  a.set(left.x, left.y, 0);
  b.set(right.x, right.y, 0);
}

void KrObject::size(double& w, double& h) const {
  AcGePoint3d p0, p1, p2, p3;
  GetExtremePoints(p0, p1, p2, p3, 0, 0);
  w = p0.distanceTo(p2);
  h = p0.distanceTo(p1);
}

void KrObject::size(AcGeVector2d& tamanho) const {
  size(tamanho.x, tamanho.y);
}

AcGeVector2d KrObject::size() const {
  AcGeVector2d measures;
  size(measures);
  return measures;
}

double KrObject::width() const {
  return size().x;
}
double KrObject::height() const {
  return size().y;
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
  // A drawing of arcs alone, such as a round section, has no extents of its own.
  const KrObjectArray<KrVector>& lista = currentVertexList(VistaCorrente);
  const Node<KrVector>* no = lista.getNode(0);
  while (no != nullptr && !isStraight(*no->value)) no = lista.nextNode(no);
  if (no == nullptr) return Acad::eOk;
  extents.set(AcGePoint3d(GetMinX(VistaCorrente), GetMinY(VistaCorrente), 0),
              AcGePoint3d(GetMaxX(VistaCorrente), GetMaxY(VistaCorrente), 0));
  return Acad::eOk;
}
