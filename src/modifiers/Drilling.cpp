// Drilling: from a point and a direction to the walls of a section, and from those to holes.
//
// Everything is worked out in the section's frame at real size. A pick in an elevation is brought there first.

#include <algorithm>
#include <cmath>
#include <utility>

#include "editing/Links.h"
#include "host/companion/companion.h"
#include "object/ArcGeometry.h"
#include "object/KrObject.h"
#include "object/Rotation.h"

namespace {

constexpr double kPi = 3.141592653589793;

/// A stretch shorter than this is none: the hole is round.
constexpr double kShortestStretch = 0.001;

/// What `FurarSecao` and `FurarVista` take for the number of walls.
constexpr int kMostHoles = std::numeric_limits<unsigned short>::max();
constexpr int kAllWalls = -1;
constexpr int kWallsOfSegment = 0;

/// The crossings of a line with an outline in order along it, paired to walls: 0 to 1 is the first, 2 to 3 the second.
class Walls {
 public:
  Walls(AcArray<AcGePoint2d> crossings, double z, AcArray<AcGeVector3d>& out)
      : crossings_(std::move(crossings)), z_(z), out_(out) {}

  int count() const { return crossings_.length(); }
  const AcGePoint2d& operator[](int i) const { return crossings_[i]; }
  int find(const AcGePoint2d& p) const {
    for (int i = 0; i < count(); ++i)
      if (crossings_[i].isEqualTo(p)) return i;
    return -1;
  }
  void dropUnpaired() {
    if (count() % 2 != 0) crossings_.removeLast();
  }
  void wall(int from) {
    const AcGePoint2d& a = crossings_[from];
    const AcGeVector2d through = crossings_[from + 1] - a;
    out_.append(AcGeVector3d(a.x, a.y, z_));
    out_.append(AcGeVector3d(through.x, through.y, 0));
  }
  void wallUnlessThin(int from) {
    if (!crossings_[from].isEqualTo(crossings_[from + 1])) wall(from);
  }

 private:
  AcArray<AcGePoint2d> crossings_;
  double z_;
  AcArray<AcGeVector3d>& out_;
};

void wallsOfSegment(Walls& walls, const AcGePoint2d& first, const AcGePoint2d& last) {
  int at = walls.find(first);
  const int end = walls.find(last);
  if (at < 0 || end < 0) return;
  if (at % 2 != 0) {
    // The segment starts within a wall.
    walls.wallUnlessThin(at - 1);
    ++at;
  }
  for (; at + 1 <= end; at += 2) walls.wall(at);
  if (at == end && at + 1 < walls.count()) walls.wallUnlessThin(at);
}

// The first of `count` walls: from outside the section, or the one that the line reaches next.
void wallsFrom(Walls& walls, int at, int count) {
  if (at < 0) return;
  if (at % 2 != 0 && at < walls.count()) {
    walls.wall(at - 1);
    ++at;
    --count;
  }
  for (; count > 0 && at + 1 < walls.count(); at += 2, --count) walls.wall(at);
}

// The first crossing ahead, back to the one that opens its wall; -1 when none is ahead.
int firstAhead(const Walls& walls, const AcGePoint2d& from, const AcGeVector2d& along) {
  for (int i = 0; i < walls.count(); ++i)
    if ((walls[i] - from).dotProduct(along) > 0) return i - i % 2;
  return -1;
}

struct Box {
  double minX = 0, maxX = 0, minY = 0, maxY = 0;

  void extend(double x, double y) {
    minX = std::min(minX, x);
    maxX = std::max(maxX, x);
    minY = std::min(minY, y);
    maxY = std::max(maxY, y);
  }
};

// The box of an outline turned about its reference origin, which becomes the origin; arcs with what they hold beyond
// their ends.
Box turnedBox(const KrGeratriz& outline, double angle) {
  const Rotation turn(angle);
  const AcGeVector3d origin = outline.GetRefOrigin();
  const auto at = [&](int i) { return turn(outline.GetVertex(i) - origin); };
  AcGeVector3d p = at(0);
  Box box{p.x, p.x, p.y, p.y};
  for (int i = 0; i + 1 < outline.Qtd(); ++i) {
    const AcGeVector3d q = at(i + 1);
    const double bulge = outline.GetBulge(i);
    box.extend(q.x, q.y);
    if (bulge != 0 && !KrGeratriz::isContourEnd(bulge) && (p.x != q.x || p.y != q.y)) {
      const ArcGeometry g(p.x, p.y, q.x, q.y, bulge);
      const auto extreme = [&](double x, double y) {
        if (g.holds(x, y, 0)) box.extend(x, y);
      };
      extreme(g.cx + g.radius, g.cy);
      extreme(g.cx - g.radius, g.cy);
      extreme(g.cx, g.cy + g.radius);
      extreme(g.cx, g.cy - g.radius);
    }
    p = q;
  }
  return box;
}

/// Locks the current document for writing for as long as it lives: drilling is called outside commands too. Without a
/// document there is nothing to lock.
class DocumentLock {
 public:
  DocumentLock() : document_(curDoc()) {
    if (document_ != nullptr && acDocManagerPtr()->lockDocument(document_, AcAp::kWrite) != Acad::eOk)
      document_ = nullptr;
  }
  ~DocumentLock() {
    if (document_ != nullptr) acDocManagerPtr()->unlockDocument(document_);
  }
  DocumentLock(const DocumentLock&) = delete;
  DocumentLock& operator=(const DocumentLock&) = delete;

 private:
  AcApDocument* document_;
};

}  // namespace

void KrObject::FurosInters(AcGeVector3d origem, AcGeVector3d dir, AcArray<AcGeVector3d>& saida, int paredes,
                           int deFora) const {
  const AcGePoint2d from(origem.x, origem.y);
  const AcGeVector2d along(dir.x, dir.y);
  if (along.isZeroLength() || paredes < kAllWalls) return;
  const auto crossings = [this](const AcGeLinearEnt2d& line, const AcGeVector2d& order) {
    AcArray<AcGeVector3d> found;
    InterceptaLinhas(line, found, nullptr);
    AcArray<AcGePoint2d> points;
    for (int i = 0; i < found.length(); ++i) points.append(AcGePoint2d(found[i].x, found[i].y));
    QuickSort(points, order);
    return points;
  };
  const AcArray<AcGePoint2d> passed = crossings(AcGeLineSeg2d(from, from + along), along);
  if (passed.isEmpty() && paredes == kWallsOfSegment) return;
  Walls walls(crossings(AcGeLine2d(from, from + along), along.normal()), origem.z, saida);
  if (walls.count() == 0) return;

  if (paredes == kWallsOfSegment) return wallsOfSegment(walls, passed.first(), passed.last());
  walls.dropUnpaired();
  if (paredes == kAllWalls) return wallsFrom(walls, 0, walls.count());
  if (deFora == 0) return wallsFrom(walls, 0, paredes);
  wallsFrom(walls, passed.isEmpty() ? firstAhead(walls, from, along) : walls.find(passed.first()), paredes);
}

Acad::ErrorStatus KrObject::FurarSecao(const AcGePoint3d& p, const AcGeVector2d& dir, double diametro, double stretch,
                                       double angulo, int paredes, int corrigeEixo, int deFora) {
  assertWriteEnabled();
  if (projeto_ != 0 || secao_.Qtd() == 0) return Acad::eNotApplicable;
  for (const double number : {p.x, p.y, p.z, dir.x, dir.y, diametro, stretch, angulo})
    if (!std::isfinite(number)) return Acad::eNotApplicable;
  const DocumentLock lock;

  AcGeVector3d origin = p - startPoint_ + secao_.GetRefOrigin();
  AcGePoint3d axis[2];
  AcGePoint3d reference[2];
  if (corrigeEixo != 0 && isSecao() == Acad::eNotApplicable && GetPointsOfEixo(axis[0], axis[1], 0) == Acad::eOk &&
      GetPointsOfEixo(reference[0], reference[1], 1) == Acad::eOk) {
    // In the order of the bar. What is told along the axis line becomes a place along the reference line: by how far
    // the axis starts behind it.
    const int start = isInverted();
    const AcGeVector3d along = (reference[1 - start] - reference[start]).normal();
    origin.z += (axis[start] - reference[start]).dotProduct(along) / xScale_;
  }
  const double angle = dir.x > -AcGeContext::gTol.equalPoint() ? kPi - angulo : angulo;
  if (stretch < kShortestStretch) stretch = 0;

  AcArray<AcGeVector3d> walls;
  FurosInters(origin, AcGeVector3d(dir.x, dir.y, 0), walls, paredes, deFora);
  Acad::ErrorStatus es = Acad::eNotApplicable;
  for (int i = 0; i + 1 < walls.length(); i += 2) {
    const AcGeVector3d ini = walls[i];
    const AcGeVector3d fim = ini + walls[i + 1];
    if (ini.isEqualTo(fim)) continue;
    if (furos_.Qtd() == kMostHoles) break;
    furos_.Add(ini, fim, diametro, stretch, angle);
    const NoFuro* const made = furos_.getNode(furos_.Qtd() - 1);
    KrVector_InFur(furos_.Qtd() - 1);
    // The audit of an elevation drops places off the bar, this one or others.
    if (furos_.Qtd() == 0 || furos_.getNode(furos_.Qtd() - 1) != made) continue;
    es = Acad::eOk;
    forEachLinked([&](KrObject& linked) {
      KrFuro holes = linked.furos_;
      holes.Add(ini, fim, diametro, stretch, angle);
      linked.setFurosSemLink(holes);
      linked.KrVector_InFur(holes.Qtd() - 1);
    });
  }
  return es;
}

// The section is looked at from outside, so a hole starts on the outermost face of the turned section. The pick's
// place across the bar is the section's X from above and below and its Y from the sides; along the bar it counts from
// the end of the reference line where the section's Z starts.
Acad::ErrorStatus KrObject::FurarVista(AcGePoint3d p, double profundidade, double diametro, double stretch,
                                       double angulo, int paredes, int angRelativo) {
  assertWriteEnabled();
  if (isSecao() != Acad::eNotApplicable || secao_.Qtd() == 0) return Acad::eNotApplicable;
  const DocumentLock lock;
  AcGePoint3d reference[2];
  if (const Acad::ErrorStatus es = unscaleRef(p); es != Acad::eOk) return es;
  if (const Acad::ErrorStatus es = GetPointsOfEixo(reference[0], reference[1], 1); es != Acad::eOk) return es;

  const Box face = turnedBox(secao_, angleSecao_);
  const int inverted = isInverted();
  const AcGeVector3d pick = Rotation(-angleVista_)(p - reference[inverted]);
  AcGeVector3d from(0, 0, inverted != 0 ? -pick.x : pick.x);
  AcGeVector2d inwards;
  switch (vista_) {
    case Superior:
      from.x = -pick.y;
      from.y = face.maxY;
      inwards.set(0, -profundidade);
      break;
    case Inferior:
      from.x = -pick.y;
      from.y = face.minY;
      inwards.set(0, profundidade);
      break;
    case Direita:
      from.x = face.maxX;
      from.y = pick.y;
      inwards.set(-profundidade, 0);
      break;
    default:
      from.x = face.minX;
      from.y = pick.y;
      inwards.set(profundidade, 0);
      break;
  }
  const Rotation toSection(-angleSecao_);
  double angle = angulo;
  if (angRelativo == 1) {
    // What FurarSecao stores of it is drawn at the angle asked for, whichever way the view turns and mirrors it.
    const double sign = GetVistaReal() == Superior ? 1 : -1;
    angle = sign * (angleVista_ - angulo);
  }
  FurarSecao(startPoint_ + toSection(from), toSection(inwards), diametro, stretch, angle, paredes, 0, 0);
  return Acad::eOk;
}
