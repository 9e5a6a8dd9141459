// Notches: polygons taken out of a member as seen from one side.

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>
#include <vector>

#include "editing/Links.h"
#include "host/companion/companion.h"
#include "modifiers/ClosedPolygons.h"
#include "modifiers/Contours.h"
#include "modifiers/Flat.h"
#include "modifiers/ListClip.h"
#include "object/Finite.h"
#include "object/KrObject.h"

namespace {

constexpr double kPi = 3.141592653589793;

/// A polygon as it is given for a notch.
struct Outline {
  AcArray<AcGePoint2d> points;
  AcArray<double> bulges;
};

bool isStraight(double bulge) {
  return std::fabs(bulge) < AcGeContext::gTol.equalPoint();
}

/// The chord from one point to the next, turned to the tangent of the arc there.
AcGeVector2d turned(const AcGePoint2d& from, const AcGePoint2d& to, double angle) {
  return (to - from).rotateBy(angle);
}

/// Puts a straight end in front of and behind an open polygon that starts or ends with an arc: what is lengthened is
/// its tangent.
void addTangentStubs(Outline& outline) {
  AcArray<AcGePoint2d>& p = outline.points;
  AcArray<double>& b = outline.bulges;
  if (!isStraight(b[0])) {
    const AcGePoint2d stub = p[0] - turned(p[0], p[1], -2 * std::atan(b[0]));
    p.insertAt(0, stub);
    b.insertAt(0, 0.0);
  }
  const int last = p.length() - 1;
  if (isStraight(b[last - 1])) return;
  const AcGePoint2d stub = p[last] - turned(p[last], p[last - 1], 2 * std::atan(b[last - 1]));
  p.append(stub);
  b[last] = 0.0;
  b.append(0.0);
}

/// Moves the end of a ray out to where it leaves the ring last; never back.
void reachAcross(const AcGePoint2d& from, AcGePoint2d& end, const AcGePoint2d* ring) {
  if (from == end) return;
  const AcGeRay2d ray(from, end);
  for (int i = 0; i < 4; ++i) {
    AcGePoint2d crossing;
    if (!ray.intersectWith(AcGeLineSeg2d(ring[i], ring[(i + 1) % 4]), crossing) || crossing == from) continue;
    if (from.distanceSqrdTo(crossing) > from.distanceSqrdTo(end)) end = crossing;
  }
}

/// The polygon's edges as outline edges of the member.
void appendEdges(const Outline& outline, KrObjectArray<KrVector>& list) {
  for (int i = 0; i + 1 < outline.points.length(); ++i) {
    const AcGePoint2d& from = outline.points[i];
    const AcGePoint2d& to = outline.points[i + 1];
    if (from == to) continue;
    KrVector edge;
    if (isStraight(outline.bulges[i])) {
      edge.set(raised(from), raised(to), KR_VT_LINHA);
    } else {
      const AcGeCircArc2d arc(from, to, outline.bulges[i]);
      const AcGeVector2d across = (to - from).normal().perpVector() * arc.radius();
      const AcGePoint2d mid = arc.isClockWise() ? arc.center() + across : arc.center() - across;
      edge.set(raised(from), raised(mid), raised(to), KR_VT_ARCO);
    }
    edge.setTipo(KR_VF_ARESTA);
    list.append(edge);
  }
}

/// The contours of a view as polygons, and which of them bound the steel from outside and which from inside.
class Steel {
 public:
  explicit Steel(const KrObjectArray<KrVector>& list) {
    const Contours contours(list);
    contours_.resize(contours.all().size());
    for (std::size_t i = 0; i < contours_.size(); ++i)
      Contours::polygonOf(contours.all()[i], contours_[i].points, contours_[i].bulges);
    findHoles();
  }

  /// Keeps of the edges what lies in the steel or on its outline; what each contour leaves comes before what the one
  /// before it left.
  void keepInside(const KrObjectArray<KrVector>& edges, KrObjectArray<KrVector>& kept) const {
    for (std::size_t i = 0; i < contours_.size(); ++i) {
      if (depth(i) % 2 != 0) continue;
      KrObjectArray<KrVector> rest(edges);
      const Outline& contour = contours_[i];
      KrObject::RecorteKrVectorArray(rest, contour.points, contour.bulges, outsideOf(contour), 1);
      for (std::size_t hole = 0; hole < contours_.size(); ++hole)
        if (depth(hole) % 2 != 0 && isWithin(hole, i)) takeInside(contours_[hole], rest);
      if (rest.IsEmpty() == 0) kept.AddAt(rest, 0);
    }
  }

 private:
  static AcGePoint2d outsideOf(const Outline& contour) {
    AcGePoint2d p = contour.points[0];
    double reach = 1.0;
    for (int i = 1; i < contour.points.length(); ++i) {
      // An arc lies within a chord's length, times its bulge if that is above 1, of its ends.
      const double chord = contour.points[i].distanceTo(contour.points[i - 1]);
      const double bulge = std::fabs(contour.bulges[i - 1]);
      reach = std::max(reach, std::fabs(contour.points[i].x - p.x) + chord * std::max(1.0, bulge));
    }
    p.x += 2 * reach;
    return p;
  }

  static void takeInside(const Outline& hole, KrObjectArray<KrVector>& edges) {
    const AcGePoint2d none(outsideOf(hole));
    AcGePoint2d inside(none);
    KrObject::pointInsideBorders(hole.points, hole.bulges, inside);
    if (inside != none) KrObject::RecorteKrVectorArray(edges, hole.points, hole.bulges, inside, 1);
  }

  /// How many contours a contour lies within.
  int depth(std::size_t i) const { return depths_.empty() ? 0 : depths_[i]; }

  void findHoles() {
    if (contours_.size() < 2) return;
    depths_.assign(contours_.size(), 0);
    for (std::size_t i = 0; i < contours_.size(); ++i)
      for (std::size_t j = 0; j < contours_.size(); ++j)
        if (i != j && isWithin(i, j)) ++depths_[i];
  }

  bool isWithin(std::size_t i, std::size_t j) const {
    const AcGePoint2d probe = Contours::middleOf(contours_[i].points, contours_[i].bulges, 0);
    const Outline& other = contours_[j];
    AcArray<AcGePoint2d> crossings;
    return intersectWith2dFence(AcGeLineSeg2d(probe, outsideOf(other)), other.points, other.bulges, crossings) % 2 != 0;
  }

  std::vector<Outline> contours_;
  std::vector<int> depths_;  ///< empty for a single contour
};

/// Marks an edge as made by a notch.
void tagEdge(KrVector& edge, int array, int index) {
  edge.setTypeEx(KR_VTX_RECORTE);
  edge.setIndexFur(array << 16 | (index & 0xffff));
}

void tagEdges(const AcArray<void*>& edges, int array, int index) {
  for (void* edge : edges) tagEdge(*static_cast<KrVector*>(edge), array, index);
}

/// The two measures that a notch must leave as they are.
struct Measures {
  explicit Measures(const KrObject& member) : contours(Contours(member.currentVertexList(VistaCorrente)).all().size()) {
    AcGePoint3d e[4];
    member.GetExtremePoints(e, 0, 0);
    width = e[0].distanceTo(e[1]);
  }
  bool operator==(const Measures& other) const {
    return contours == other.contours && std::fabs(width - other.width) <= kDrawingTolerance;
  }

  std::size_t contours;
  double width = 0;
};

/// What brings notches from bar coordinates to the drawing and back: the frame, the drawing scale, and the sense of
/// arcs.
struct NotchFrame {
  explicit NotchFrame(const KrObject& m) : member(m), status(m.recorteXForm(matrix, array, mirrored)) {}
  NotchFrame(const KrObject& m, const AcGeMatrix2d& frame, int arranjo, int espelho)
      : member(m), matrix(frame), array(arranjo), mirrored(espelho) {}

  void toDrawing(KrObjectRecorte& notch) const {
    change(notch, [this](AcGePoint2d& p) {
      p.transformBy(matrix);
      member.scaleRef(p, 0);
    });
  }
  void toBar(KrObjectRecorte& notch) const {
    const AcGeMatrix2d back = matrix.inverse();
    change(notch, [&](AcGePoint2d& p) {
      member.unscaleRef(p);
      p.transformBy(back);
    });
  }

  const KrObject& member;
  AcGeMatrix2d matrix;
  int array = 0;
  int mirrored = 0;
  Acad::ErrorStatus status = Acad::eOk;

 private:
  template <class Move>
  void change(KrObjectRecorte& notch, Move move) const {
    AcGePoint2d side = notch.lado();
    move(side);
    notch.setLado(side);
    for (AcGePoint2d& p : notch.points()) move(p);
    if (mirrored == 0) return;
    for (double& b : notch.bulges()) b = -b;
  }
};

/// Notches that follow each other, clear of each other and of the bar's ends, each a closed polygon that takes away
/// what lies within it: none of them moves the frame of another, nor meets an edge that another made. They are taken
/// out in one go, with the elements that one after the other would give, so that many cost little more for each.
class ClearNotches {
 public:
  /// The notches from `first` on.
  ClearNotches(const KrObject& member, const NotchFrame& frame, const KrObjectRecorteArray& notches, int first) {
    findEnds(member, frame);
    for (int i = first; i < notches.length() && add(frame, notches[i]); ++i) {
    }
    double x = 1, y = 1;
    member.Xscale(x), member.Yscale(y);
    dropThoseThatMeet(kApart / std::min({1.0, std::fabs(x), std::fabs(y)}));
  }

  int count() const { return static_cast<int>(notches_.size()); }

  /// Takes them out of a list; `array` and `index` tell where the first is stored.
  void takeOut(KrObjectArray<KrVector>& list, int array, int index) {
    const Steel steel(list);
    ClosedPolygons polygons;
    std::vector<KrObjectArray<KrVector>> made(notches_.size());
    for (std::size_t i = 0; i < notches_.size(); ++i) {
      Notch& notch = notches_[i];
      KrObjectArray<KrVector> edges;
      appendEdges(notch.outline, edges);
      steel.keepInside(edges, made[i]);
      for (int k = 0; k < made[i].length(); ++k) tagEdge(made[i][k], array, index + static_cast<int>(i));
      polygons.add(std::move(notch.drawn), notch.side);
    }
    polygons.arrange();
    ListClip(list, polygons, RemoveOutLines, false).run();
    // The edges of the last come first.
    KrObjectArray<KrVector> front;
    for (auto edges = made.rbegin(); edges != made.rend(); ++edges)
      for (int k = 0; k < edges->length(); ++k) front.append((*edges)[k]);
    if (front.IsEmpty() == 0) list.AddAt(front, 0);
  }

 private:
  struct Notch {
    Outline outline;  ///< in the drawing
    AcGePoint2d side;
    PolygonEdges drawn;
    PolygonBox inBar;
  };
  /// What lies at least so far apart in the drawing is clear of each other.
  static constexpr double kApart = 0.01;

  void findEnds(const KrObject& member, const NotchFrame& frame) {
    AcGePoint3d e[4];
    member.GetExtremePoints(e, 0, 0);
    for (const AcGePoint3d& corner : e) {
      KrObjectRecorte place;
      place.setLado(flat(corner));
      frame.toBar(place);
      start_ = std::min(start_, place.lado().x);
      end_ = std::max(end_, place.lado().x);
    }
  }

  bool add(const NotchFrame& frame, const KrObjectRecorte& stored) {
    if (stored.points().length() < 2 || !isFinite(stored.points(), stored.bulges(), stored.lado())) return false;
    const PolygonBox inBar = PolygonEdges(stored.points(), stored.bulges()).box();
    KrObjectRecorte notch(stored);
    frame.toDrawing(notch);
    PolygonEdges drawn(notch.points(), notch.bulges());
    if (!(inBar.low.x > start_ && inBar.high.x < end_) || !ClosedPolygons::isTakenInside(drawn, notch.lado()))
      return false;
    Outline outline{notch.points(), notch.bulges()};
    while (outline.bulges.length() < outline.points.length()) outline.bulges.append(0.0);
    notches_.push_back({std::move(outline), notch.lado(), std::move(drawn), inBar});
    return true;
  }

  /// Ends the row before the first notch that one in front of it meets or nearly meets.
  void dropThoseThatMeet(double apart) {
    std::vector<std::size_t> order(notches_.size());
    for (std::size_t i = 0; i < order.size(); ++i) order[i] = i;
    const auto box = [this](std::size_t i) -> const PolygonBox& { return notches_[i].inBar; };
    std::sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) { return box(a).low.x < box(b).low.x; });
    std::size_t keep = notches_.size();
    std::vector<std::size_t> open;  // those that the one looked at may still meet
    for (const std::size_t i : order) {
      std::erase_if(open, [&](std::size_t other) { return box(other).high.x + apart < box(i).low.x; });
      for (const std::size_t other : open) {
        const bool clear = box(other).high.y + apart < box(i).low.y || box(i).high.y + apart < box(other).low.y;
        if (!clear) keep = std::min(keep, std::max(i, other));
      }
      open.push_back(i);
    }
    notches_.resize(keep);
  }

  double start_ = std::numeric_limits<double>::infinity();
  double end_ = -std::numeric_limits<double>::infinity();
  std::vector<Notch> notches_;
};

/// The array of notches that show in a real view; -1 for none.
int arrayOf(KrVistas real) {
  if (real == Superior || real == Inferior) return 1;
  return real == Esquerda || real == Direita ? 0 : -1;
}

}  // namespace

// --- The picture of a notch ------------------------------------------------------------------------------------------

Acad::ErrorStatus KrObject::RecorteVisual(const AcArray<AcGePoint2d>& pontos, const AcArray<double>& bulges,
                                          AcGePoint2d& lado, int atualizaEixo, AcArray<void*>* saida) {
  return RecorteVisual(pontos, bulges, lado, atualizaEixo, RemoveOutLines, saida);
}

Acad::ErrorStatus KrObject::RecHideVisual(const AcArray<AcGePoint2d>& pontos, const AcArray<double>& bulges,
                                          AcGePoint2d& lado) {
  return RecorteVisual(pontos, bulges, lado, 0, HideOutLines, nullptr);
}

Acad::ErrorStatus KrObject::RecorteVisual(const AcArray<AcGePoint2d>& pontos, const AcArray<double>& bulges,
                                          AcGePoint2d& lado, int atualizaEixo, RecorteOutLinesOpts opcoes,
                                          AcArray<void*>* saida) {
  assertWriteEnabled();
  if (isSecao() != Acad::eNotApplicable || pontos.length() < 2 || !isFinite(pontos, bulges, lado))
    return Acad::eNotApplicable;
  if (PolygonEdges(pontos, bulges).holds(lado)) return Acad::eNotApplicable;

  Outline outline{pontos, bulges};
  while (outline.bulges.length() < pontos.length()) outline.bulges.append(0.0);
  if (pontos.first() != pontos.last()) {
    addTangentStubs(outline);
    AcGePoint3d e[4];
    GetExtremePoints(e, 0, 0);
    const AcGePoint2d ring[] = {flat(e[0]), flat(e[1]), flat(e[3]), flat(e[2])};
    AcArray<AcGePoint2d>& p = outline.points;
    const int last = p.length() - 1;
    reachAcross(p[1], p[0], ring);
    reachAcross(p[last - 1], p[last], ring);
  }

  KrObjectArray<KrVector>& lista = vertexList(VistaCorrente);
  KrObjectArray<KrVector> made;
  if (opcoes == RemoveOutLines) {
    KrObjectArray<KrVector> edges;
    appendEdges(outline, edges);
    Steel(lista).keepInside(edges, made);
  }
  RecorteKrVectorArray(lista, outline.points, outline.bulges, lado, 0, opcoes);
  if (made.IsEmpty() != 0) return Acad::eOk;
  lista.AddAt(made, 0);
  if (atualizaEixo != 0) updateEixoBarra(0);
  if (saida == nullptr) return Acad::eOk;
  for (int i = 0; i < made.length(); ++i) saida->append(&lista[i]);
  return Acad::eOk;
}

// --- The notch itself ------------------------------------------------------------------------------------------------

Acad::ErrorStatus KrObject::Recorte(const AcArray<AcGePoint2d>& pontos, const AcArray<double>& bulges,
                                    AcGePoint2d& lado) {
  assertWriteEnabled();
  if (IsProjeto() != 0 || !isRetRotated()) return Acad::eNotApplicable;
  KrObjectArray<KrVector>& lista = vertexList(VistaCorrente);
  const KrObjectArray<KrVector> before(lista);
  const Measures measures(*this);
  AcArray<void*> made;
  const NotchFrame frame(*this);
  if (frame.status != Acad::eOk || RecorteVisual(pontos, bulges, lado, 0, RemoveOutLines, &made) != Acad::eOk ||
      !(Measures(*this) == measures)) {
    lista = before;
    return Acad::eNotApplicable;
  }

  KrObjectRecorte notch(pontos, bulges, lado);
  frame.toBar(notch);
  KrObjectRecorteArray& notches = recortes_[static_cast<std::size_t>(frame.array)];
  notches.append(notch);
  const int index = notches.length() - 1;
  tagEdges(made, frame.array, index);
  updateEixoBarra(1);

  forEachLinked([&](KrObject& linked) {
    linked.assertWriteEnabled();
    if (linked.isSecao() == Acad::eNotApplicable) {
      linked.Gera_KrVector();
      linked.recortes_[static_cast<std::size_t>(frame.array)] = notches;
    }
    const int shown = arrayOf(linked.GetVistaReal());
    if (shown == frame.array) linked.AplicaRecorte(index);
    if (shown == -1) opDataCopyTo(linked);
  });
  return Acad::eOk;
}

Acad::ErrorStatus KrObject::recorteXForm(AcGeMatrix2d& m, int& arranjo, int& espelho) const {
  assertReadEnabled();
  if (isSecao() != Acad::eNotApplicable) return Acad::eNotImplementedYet;
  AcGePoint3d start, end;
  if (const Acad::ErrorStatus es = GetPointsOfEixo(start, end, 1); es != Acad::eOk) return es;
  int inverted = 0;
  const KrVistas real = GetVistaReal(inverted);
  if (inverted != 0) std::swap(start, end);
  const bool fromEnd = real == Inferior || real == Esquerda;
  arranjo = arrayOf(real);
  espelho = fromEnd ? 1 : 0;
  m = AcGeMatrix2d::translation(flat(fromEnd ? end : start).asVector()) *
      AcGeMatrix2d::rotation(angleVista_ + (inverted != 0 ? kPi : 0.0), AcGePoint2d::kOrigin);
  if (fromEnd) m = m * AcGeMatrix2d::mirroring(AcGeLine2d(AcGePoint2d::kOrigin, AcGeVector2d::kYAxis));
  return Acad::eOk;
}

Acad::ErrorStatus KrObject::AplicaRecorte(int i) {
  const NotchFrame frame(*this);
  if (frame.status != Acad::eOk) return Acad::eNotApplicable;
  return AplicaRecorte(i, frame.matrix, frame.array, frame.mirrored);
}

Acad::ErrorStatus KrObject::AplicaRecorte(int i, const AcGeMatrix2d& m, int arranjo, int espelho) {
  assertWriteEnabled();
  if (arranjo < 0 || arranjo > 1) return Acad::eInvalidInput;
  const KrObjectRecorteArray& notches = recortes_[static_cast<std::size_t>(arranjo)];
  if (i < 0 || i >= notches.length()) return Acad::eInvalidIndex;
  KrObjectRecorte notch(notches[i]);
  NotchFrame(*this, m, arranjo, espelho).toDrawing(notch);
  AcGePoint2d side = notch.lado();
  AcArray<void*> made;
  // The lines along the bar are brought up once, behind.
  const Acad::ErrorStatus es = RecorteVisual(notch.points(), notch.bulges(), side, 0, &made);
  tagEdges(made, arranjo, i);
  updateEixoBarra(0);
  return es;
}

Acad::ErrorStatus KrObject::AplicaRecortes() {
  if (isSecao() != Acad::eNotApplicable) return Acad::eNotApplicable;
  assertWriteEnabled();
  for (int i = 0;;) {
    // A notch at an end moves the frame of those behind it.
    const NotchFrame frame(*this);
    if (frame.status != Acad::eOk || frame.array < 0) break;
    const KrObjectRecorteArray& notches = recortes_[static_cast<std::size_t>(frame.array)];
    if (i >= notches.length()) break;
    if (notches.length() - i > 1) {
      ClearNotches clear(*this, frame, notches, i);
      if (clear.count() > 1) {
        clear.takeOut(vertexList(VistaCorrente), frame.array, i);
        updateEixoBarra(0);
        i += clear.count();
        continue;
      }
    }
    AplicaRecorte(i++, frame.matrix, frame.array, frame.mirrored);
  }
  return Acad::eOk;
}

// --- The lists -------------------------------------------------------------------------------------------------------

Acad::ErrorStatus KrObject::addRecortesWCS(const KrObjectRecorteArray& lista) {
  assertWriteEnabled();
  const NotchFrame frame(*this);
  if (frame.status != Acad::eOk) return Acad::eNotApplicable;
  for (int i = 0; i < lista.length(); ++i)
    if (!isFinite(lista[i].points(), lista[i].bulges(), lista[i].lado())) return Acad::eInvalidInput;
  for (int i = 0; i < lista.length(); ++i) {
    KrObjectRecorte notch(lista[i]);
    frame.toBar(notch);
    recortes_[static_cast<std::size_t>(frame.array)].append(notch);
  }
  return Acad::eOk;
}

Acad::ErrorStatus KrObject::getRecortesWCS(KrObjectRecorteArray& saida) const {
  const NotchFrame frame(*this);
  if (frame.status != Acad::eOk) return Acad::eNotApplicable;
  saida = recortes_[static_cast<std::size_t>(frame.array)];
  for (int i = 0; i < saida.length(); ++i) frame.toDrawing(saida[i]);
  return Acad::eOk;
}

void KrObject::getRecortesExtremidade(int extremo, AcArray<int>* saida) const {
  assertReadEnabled();
  if (isSecao() != Acad::eNotApplicable) return;
  const bool backwards = (isInverted() != 0) != (extremo != 0);
  const AcGeVector2d d(backwards ? -1.0 : 1.0, 0.0);
  const AcGeLine2d axis(AcGePoint2d::kOrigin, AcGeVector2d::kXAxis);
  AcArray<AcGePoint2d> met;
  for (std::size_t array = 0; array < recortes_.size(); ++array) {
    for (int i = recortes_[array].length() - 1; i >= 0; --i) {
      const KrObjectRecorte& notch = recortes_[array][i];
      const PolygonEdges edges(notch.points(), notch.bulges());
      met.setLogicalLength(0);
      if (edges.meet(axis, met) == 0) continue;
      QuickSort(met, AcGeVector2d::kXAxis);
      const AcGePoint2d& outermost = (met.last() - met.first()).dotProduct(d) > 0 ? met.last() : met.first();
      if (edges.cross(AcGeLineSeg2d(outermost + d, notch.lado()), nullptr) % 2 == 0) saida[array].append(i);
    }
  }
}

void KrObject::RemoveRecortes(int extremo, int regenera) {
  assertWriteEnabled();
  AcArray<int> indices[2];
  getRecortesExtremidade(extremo, indices);
  for (std::size_t array = 0; array < recortes_.size(); ++array)
    for (const int i : indices[array]) recortes_[array].removeAt(i);
  if (regenera != 0) Gera_KrVector();
  forEachUnlockedLinked([&](KrObject& linked) {
    linked.assertWriteEnabled();
    linked.recortes_ = recortes_;
    if (regenera != 0 && linked.isSecao() == Acad::eNotApplicable) linked.Gera_KrVector();
  });
}

Acad::ErrorStatus KrObject::moveRecortesVista(const AcGeVector3d& v, const AcArray<int>* indices) {
  assertWriteEnabled();
  const NotchFrame frame(*this);
  if (frame.status != Acad::eOk) return frame.status;
  if (!isFinite(v)) return Acad::eInvalidInput;
  AcGeVector3d real = v;
  unscaleRef(real);
  // The frame itself, not its inverse: so the vector is told, and so it stays.
  const double d = (frame.matrix * AcGeVector2d(real.x, real.y)).x;
  for (std::size_t array = 0; array < recortes_.size(); ++array) recortes_[array].xOffSet(d, indices[array]);
  forEachUnlockedLinked([&](KrObject& linked) {
    linked.assertWriteEnabled();
    linked.recortes_ = recortes_;
  });
  return Acad::eOk;
}
