// Cuts: planes that trim a member.
//
// A cut is stored once, as a plane in the section's frame at real size. What a view shows of it is its trace: along
// that segment the list of the view is trimmed, and closed again by new edges between the points in which the outline
// crosses it.

#include <cmath>
#include <limits>
#include <utility>
#include <vector>

#include "editing/Links.h"
#include "host/companion/companion.h"
#include "modifiers/CutLine.h"
#include "modifiers/CutTraces.h"
#include "object/Finite.h"
#include "object/KrObject.h"

namespace {

constexpr int kMostCuts = std::numeric_limits<unsigned short>::max();

/// A vector that keeps its memory from one use to the next. A use within a use gets an empty one.
template <class T>
class WorkBuffer {
 public:
  WorkBuffer() {
    values_.swap(kept());
    values_.clear();
  }
  ~WorkBuffer() { values_.swap(kept()); }
  WorkBuffer(const WorkBuffer&) = delete;
  WorkBuffer& operator=(const WorkBuffer&) = delete;
  std::vector<T>* operator->() { return &values_; }
  std::vector<T>& operator*() { return values_; }

 private:
  static std::vector<T>& kept() {
    static std::vector<T> values;
    return values;
  }
  std::vector<T> values_;
};

/// The box of what a view draws: E0 to E2 and E1 to E3 are the bar's long edges.
struct DrawnBox {
  explicit DrawnBox(const KrObject& member) { member.GetExtremePoints(e, 0, 0); }
  bool isEmpty() const { return e[0].isEqualTo(e[3]); }

  /// Where a line meets the two long edges; false when it misses one.
  bool crossLongEdges(const AcGeLine3d& line, AcGePoint3d& x0, AcGePoint3d& x1) const {
    return line.intersectWith(AcGeLine3d(e[0], e[2]), x0) && line.intersectWith(AcGeLine3d(e[1], e[3]), x1);
  }
  /// The part of a line alongside the box.
  void shadowOn(const AcGeLine3d& line, AcGePoint3d& x0, AcGePoint3d& x1) const {
    double low = std::numeric_limits<double>::infinity();
    double high = -low;
    for (const AcGePoint3d& corner : e) {
      low = std::min(low, line.paramOf(corner));
      high = std::max(high, line.paramOf(corner));
    }
    x0 = line.evalPoint(low);
    x1 = line.evalPoint(high);
  }

  AcGePoint3d e[4];
};

/// The visual limits of a member: kept at their place on the drawing while the bar changes its length.
class KeptLimits {
 public:
  explicit KeptLimits(KrObject& member) : member_(member) {
    const double none = AcGeContext::gTol.equalPoint();
    start_ = !(std::fabs(member.visualRepStart()) < none) && member.visualRepStartPoint(startPoint_) == Acad::eOk;
    end_ = !(std::fabs(1 - member.visualRepEnd()) < none) && member.visualRepEndPoint(endPoint_) == Acad::eOk;
  }
  void restore() {
    // Each limit is refused where it would pass the other: the start goes first, and again once the end has moved.
    if (start_) member_.setVisualRepStart(startPoint_, 0);
    if (end_) member_.setVisualRepEnd(endPoint_, 0);
    if (start_ && end_) member_.setVisualRepStart(startPoint_, 0);
  }

 private:
  KrObject& member_;
  AcGePoint3d startPoint_;
  AcGePoint3d endPoint_;
  bool start_ = false;
  bool end_ = false;
};

/// What a cut takes away whole when both of its ends are gone.
bool isTrimmedLine(KrVectorType type) {
  switch (type) {
    case KR_VT_LINHA_OCULTA:
    case KR_VT_LINHA:
    case KR_VT_ARCO:
    case KR_VT_ARCO_OCULTO:
    case KR_VT_FURO_LINHA:
      return true;
    default:
      return false;
  }
}

/// What a cut takes away by its mid point.
bool goesByMidPoint(KrVectorType type) {
  return type == KR_VT_FURO || type == KR_VT_FURO_EIXO || type == KR_VT_CIRCULO;
}

/// Round things have no ends to trim.
bool hasEnds(const KrVector& v) {
  return !(v.type() == KR_VT_CIRCULO || (v.type() == KR_VT_FURO && v.tipo() != KR_VF_FURO_OBLONGO));
}

/// Whether an element goes as a whole.
bool isThrownAway(const KrVector& v, const CutLine& cut) {
  const auto gone = [&](const AcGePoint3d& p) { return cut.holds(p) || cut.throwsAway(p); };
  return isTrimmedLine(v.type()) ? gone(v.startPoint()) && gone(v.endPoint())
                                 : goesByMidPoint(v.type()) && cut.throwsAway(v.midPoint());
}

/// Trims an axis line. One that ends on the cut stays as it is.
bool trimAxis(KrVector& axis, const CutLine& cut) {
  AcGePoint3d x;
  if (cut.holds(axis.startPoint()) || cut.holds(axis.endPoint())) return false;
  if (!cut.crosses(axis.startPoint(), axis.endPoint(), x)) return false;
  if (cut.throwsAway(axis.endPoint()))
    axis.setEndPoint(x);
  else
    axis.setStartPoint(x);
  return true;
}

/// Trims an element and gives the point in which the cut meets it; false where it doesn't. An arc is judged by its
/// chord and left with its three points in line.
bool trimElement(KrVector& v, const CutLine& cut, AcGePoint3d& x) {
  if (cut.holds(v.startPoint())) {
    x = v.startPoint();
    return true;
  }
  if (cut.holds(v.endPoint())) {
    x = v.endPoint();
    return true;
  }
  if (!cut.crosses(v.startPoint(), v.endPoint(), x)) return false;
  if (cut.throwsAway(v.endPoint()))
    v.setEndPoint(x);
  else
    v.setStartPoint(x);
  return true;
}

/// New edges between the crossings of the outline, two by two along the cut; an odd last one is dropped.
void closeSection(KrObjectArray<KrVector>& lista, std::vector<AcGePoint3d>& crossings, const CutLine& cut, int indice) {
  QuickSort(crossings.data(), static_cast<int>(crossings.size()), cut.direction());
  for (std::size_t i = 0; i + 1 < crossings.size(); i += 2) {
    if (crossings[i] == crossings[i + 1]) continue;
    KrVector edge(crossings[i], crossings[i + 1], KR_VT_LINHA);
    edge.setTipo(KR_VF_ARESTA);
    if (indice >= 0) {
      edge.setTypeEx(KR_VTX_CORTE);
      edge.setIndexFur(indice);
    }
    lista.append(edge);
  }
}

/// Removes the elements of holes that lie, in space, in what a cut throws away. Where a cut stands askew its trace
/// bounds the picture at the last steel that is left, and such a hole may lie before that. `origin` is the outline's
/// reference origin.
void removeHolesPast(KrObjectArray<KrVector>& lista, const KrFuro& holes, const NoPlano& cut,
                     const AcGeVector3d& origin) {
  const bool towardsNormal = cut.plane.signedDistanceTo(cut.side) > 0;
  const auto past = [&](const AcGeVector3d& end) {
    // Holes count along the bar and contain the reference origin; planes count against it and from it.
    const double d = cut.plane.signedDistanceTo(AcGePoint3d(end.x - origin.x, end.y - origin.y, -end.z));
    return (towardsNormal ? d : -d) > AcGeContext::gTol.equalPoint();
  };
  for (int i = lista.length() - 1; i >= 0; --i) {
    const KrVector& v = lista[i];
    if (!v.isFuro() || v.IndexFur() < 0 || v.IndexFur() >= holes.Qtd()) continue;
    if (past(holes.getIni(v.IndexFur())) && past(holes.getFim(v.IndexFur()))) lista.removeAt(i);
  }
}

}  // namespace

// --- Cutting by a polygon
// ---------------------------------------------------------------------------------------------

Acad::ErrorStatus KrObject::Corte(KrObjectArray<KrVector>& elementos, AcGePoint3d& lado) {
  assertWriteEnabled();
  KrObjectArray<KrVector> border;
  for (const Node<KrVector>* no = elementos.getNode(0); no != nullptr; no = elementos.nextNode(no)) {
    KrVector v = *no->value;
    if (v.isFuro() || v.type() == KR_VT_CIRCULO) continue;
    if (v.type() != KR_VT_ARCO) v.setType(KR_VT_LINHA);
    border.append(v);
  }
  AcArray<AcGePoint2d> points;
  AcArray<double> bulges;
  pontosDeCortePorContorno(border, points, bulges);
  AcGePoint2d side(lado.x, lado.y);
  Recorte(points, bulges, side);
  return Acad::eOk;
}

// --- The interactive cut ---------------------------------------------------------------------------------------------

Acad::ErrorStatus KrObject::Corte(const AcGeLinearEnt3d& linha, AcGePoint3d& lado, int reservado, int cortaEixo) {
  AcGePoint3d p1 = linha.pointOnLine();
  AcGePoint3d p2 = p1 + linha.direction();
  return Corte(p1, p2, lado, reservado, cortaEixo);
}

Acad::ErrorStatus KrObject::Corte(AcGePoint3d& p1, AcGePoint3d& p2, AcGePoint3d& lado, int reservado, int cortaEixo) {
  assertWriteEnabled();
  if (projeto_ != 0) return Acad::eNotApplicable;
  if (!isFinite(p1) || !isFinite(p2) || !isFinite(lado)) return Acad::eNotApplicable;
  const AcGeLine3d line(p1, p2);
  if (p1.isEqualTo(p2) || line.isOn(lado)) return Acad::eNotApplicable;
  if (isSecao() != Acad::eNotApplicable) {
    if (objectType_ == Objeto) acutPrintf(L"\nNão é possível cortar vista.");
    return Acad::eNotApplicable;
  }
  const DrawnBox box(*this);
  AcGePoint3d x0, x1;
  if (box.isEmpty() || !box.crossLongEdges(line, x0, x1)) return Acad::eNotApplicable;
  const AcGeVector3d along = (box.e[3] - box.e[1]).normal();
  const double a0 = (x0 - box.e[1]).dotProduct(along);
  const double a1 = (x1 - box.e[1]).dotProduct(along);
  const double t = AcGeContext::gTol.equalPoint();
  const bool before = t > a0 && t > a1;
  const bool past = a0 > comprimento_ - t && a1 > comprimento_ - t;
  if (before || past || cortes_.Qtd() == kMostCuts) return Acad::eNotApplicable;

  const int cuts = cortes_.Qtd();
  RegistraCorte(p1, p2, lado);
  // Without a reference line there is no frame to store a cut in.
  if (cortes_.Qtd() == cuts) return Acad::eNotApplicable;
  // As it counts from the bar's present start: what the picture does to this member shifts its own record.
  const AcGePlane plane = cortes_.last().plane;
  const AcGePoint3d side = cortes_.last().side;
  CorteVista(x0, x1, lado, vista_, reservado, cortaEixo, cuts);

  forEachLinked([&](KrObject& linked) {
    if (linked.isSecao() == Acad::eOk) return opDataCopyTo(linked);
    linked.assertWriteEnabled();
    const int last = linked.cortes_.Qtd();
    linked.cortes_.Add(plane, side);
    linked.AplicaCorte(last, reservado, cortaEixo);
    // A plane askew may have moved the silhouette up to which the cuts before it reach.
    AcGeLine3d trace;
    AcGePoint3d away;
    if (last > 0 && linked.GetLinhaCorte(trace, away, last, 1) == 0) linked.Gera_KrVector();
  });
  return Acad::eOk;
}

void KrObject::RegistraCorte(AcGePoint3d& p1, AcGePoint3d& p2, AcGePoint3d& lado) {
  assertWriteEnabled();
  if (isSecao() != Acad::eNotApplicable || cortes_.Qtd() == kMostCuts) return;
  AcGePoint3d real[] = {p1, p2, lado};
  for (AcGePoint3d& p : real) {
    if (!isFinite(p) || unscaleRef(p) != Acad::eOk) return;
  }
  AcGeMatrix3d toSection;
  if (vistaToSecaoXForm(toSection) != Acad::eOk) return;
  AcGePlane plane(real[0], real[1] - real[0], AcGeVector3d::kZAxis);
  if (plane.normal().isZeroLength()) return;
  plane.transformBy(toSection);
  cortes_.Add(plane, toSection * real[2]);
}

// --- A stored cut in the view ----------------------------------------------------------------------------------------

int KrObject::GetLinhaCorte(AcGeLine3d& linha, AcGePoint3d& lado, int i, int semGiro) const {
  AcGeMatrix3d frame;
  if (isSecao() != Acad::eNotApplicable || i < 0 || i >= cortes_.Qtd()) return 0;
  if (secaoToVistaXForm(frame) != Acad::eOk) return 0;
  CutTraces traces(frame, secao_, direction().length() / xScale_, semGiro == 0);
  const std::optional<CutTraces::Trace> trace = traces.of(cortes_, i);
  if (!trace) return 0;
  AcGePoint3d p = trace->point;
  AcGePoint3d q = trace->point + trace->direction;
  AcGePoint3d side = trace->side;
  for (AcGePoint3d* point : {&p, &q, &side}) scaleRef(*point, 0);
  linha.set(p, q);
  lado = side;
  return 1;
}

void KrObject::AplicaCorte(int i, int reservado, int cortaEixo, int semGiro) {
  assertWriteEnabled();
  AcGeLine3d linha;
  AcGePoint3d lado;
  if (GetLinhaCorte(linha, lado, i, semGiro) != 0) cutAlong(linha, lado, i, reservado, cortaEixo);
}

void KrObject::AplicaCortes(int semGiro) {
  assertWriteEnabled();
  AcGeMatrix3d frame;
  if (cortes_.Qtd() == 0 || isSecao() != Acad::eNotApplicable || secaoToVistaXForm(frame) != Acad::eOk) return;

  // All traces first: the cuts trim the steel and leave its place, so that none moves the trace of another, and those
  // that stand askew share what they ask of the others.
  struct Line {
    int cut;
    AcGeLine3d line;
    AcGePoint3d side;
  };
  WorkBuffer<Line> lines;
  CutTraces traces(frame, secao_, direction().length() / xScale_, semGiro == 0);
  for (int i = 0; i < cortes_.Qtd(); ++i) {
    const std::optional<CutTraces::Trace> trace = traces.of(cortes_, i);
    if (!trace) continue;
    AcGePoint3d points[] = {trace->point, trace->point + trace->direction, trace->side};
    for (AcGePoint3d& p : points) scaleRef(p, 0);
    lines->push_back({i, AcGeLine3d(points[0], points[1]), points[2]});
  }
  for (Line& l : *lines) cutAlong(l.line, l.side, l.cut, 0, 0);
}

void KrObject::cutAlong(const AcGeLine3d& linha, AcGePoint3d& lado, int i, int reservado, int cortaEixo) {
  const DrawnBox box(*this);
  if (box.isEmpty()) return;
  AcGePoint3d x0, x1;
  // A plane along the bar meets neither long edge; its trace then reaches as far as the bar does.
  if (!box.crossLongEdges(linha, x0, x1)) box.shadowOn(linha, x0, x1);
  x0 += x0 - x1;
  x1 += x1 - x0;
  CorteVista(x0, x1, lado, vista_, reservado, cortaEixo, i);
  if (furos_.Qtd() != 0) removeHolesPast(vertexList(VistaCorrente), furos_, cortes_.GetNo(i), secao_.GetRefOrigin());
}

// --- Trimming a list -------------------------------------------------------------------------------------------------

Acad::ErrorStatus KrObject::CorteVista(AcGePoint3d& p1, AcGePoint3d& p2, AcGePoint3d& lado, KrVistas vista,
                                       int reservado, int cortaEixo) {
  return CorteVista(p1, p2, lado, vista, reservado, cortaEixo, -1);
}

Acad::ErrorStatus KrObject::CorteVista(AcGePoint3d& p1, AcGePoint3d& p2, AcGePoint3d& lado, KrVistas vista, int,
                                       int cortaEixo, int indice) {
  assertWriteEnabled();
  const CutLine cut(p1, p2, lado);
  if (isSecao() != Acad::eNotApplicable || !cut.isValid()) return Acad::eNotApplicable;
  KeptLimits limits(*this);
  KrVector axis;
  const bool hadAxis = GetVectorEixo(vista, axis) != 0;

  KrObjectArray<KrVector>& lista = vertexList(vista);
  WorkBuffer<AcGePoint3d> outline;
  bool met = false;
  for (int i = 0; i < lista.length();) {
    KrVector& v = lista[i];
    if (isTrimmedLine(v.type()) && cut.leaves(v.startPoint(), v.endPoint())) {
      ++i;
      continue;
    }
    if (isThrownAway(v, cut)) {
      lista.removeAt(i);
      continue;
    }
    ++i;
    if (v.type() == KR_VT_REFERENCIA || !hasEnds(v)) continue;
    if (v.type() == KR_VT_EIXO) {
      if (cortaEixo == 0 || !trimAxis(v, cut)) continue;
      startPoint_ = v.startPoint();
      endPoint_ = v.endPoint();
      continue;
    }
    AcGePoint3d x;
    if (!trimElement(v, cut, x)) continue;
    met = true;
    if (v.tipo() == KR_VF_ARESTA) outline->push_back(x);
  }
  if (!met) {
    updateEixoBarra(0);
    return Acad::eNotApplicable;
  }

  closeSection(lista, *outline, cut, indice);
  if (hadAxis && findFirst(vista, KR_VT_EIXO) == nullptr) lista.append(axis);
  if (updateEixoBarra(0) != Acad::eOk) {
    if (const double drawn = getComprimento(); drawn > 0) comprimento_ = drawn;
  }
  limits.restore();
  auditDrawnHoles(vista);
  return Acad::eOk;
}

void KrObject::auditDrawnHoles(KrVistas vista) {
  if (furos_.Qtd() == 0) return;
  WorkBuffer<const NoFuro*> before;
  for (int i = 0; i < furos_.Qtd(); ++i) before->push_back(furos_.getNode(i));
  AuditFuros();
  if (furos_.Qtd() == before->size()) return;

  constexpr int kGone = -1;
  WorkBuffer<int> place;
  int next = 0;
  for (const NoFuro* hole : *before) place->push_back(furos_.getNode(next) == hole ? next++ : kGone);
  KrObjectArray<KrVector>& lista = vertexList(vista);
  for (int i = lista.length() - 1; i >= 0; --i) {
    KrVector& v = lista[i];
    const auto hole = static_cast<std::size_t>(v.IndexFur());
    if (!v.isFuro() || v.IndexFur() < 0 || hole >= place->size()) continue;
    if ((*place)[hole] == kGone)
      lista.removeAt(i);
    else
      v.setIndexFur((*place)[hole]);
  }
}

// --- Along an edge ---------------------------------------------------------------------------------------------------

Acad::ErrorStatus KrObject::CorteArestaVista(AcGePoint3d& p1, AcGePoint3d& p2, AcGePoint3d& lado, KrVistas vista, int,
                                             int cortaEixo) {
  assertWriteEnabled();
  const CutLine edge(p1, p2, lado);
  if (!edge.isValid()) return Acad::eNotApplicable;
  const AcGeLineSeg3d segment(p1, p2);
  KrObjectArray<KrVector>& lista = vertexList(vista);
  AcGePoint3d x;
  for (Node<KrVector>* no = lista.getNode(0); no != nullptr; no = lista.nextNode(no)) {
    KrVector& v = *no->value;
    if (v.type() == KR_VT_EIXO) {
      if (cortaEixo == 0 || !trimAxis(v, edge)) continue;
      startPoint_ = v.startPoint();
      endPoint_ = v.endPoint();
    } else if (v.type() != KR_VT_FURO && edge.crosses(v.startPoint(), v.endPoint(), x)) {
      if (edge.throwsAway(v.endPoint()) || segment.isOn(v.endPoint()))
        v.setEndPoint(x);
      else
        v.setStartPoint(x);
    }
  }
  // Each element that the edge meets moves to the end of the list, so that the next one is at its place.
  int i = 0;
  for (int left = lista.length(); left > 0; --left) {
    const KrVector& v = lista[i];
    const bool stays = v.type() == KR_VT_EIXO || v.type() == KR_VT_FURO;
    if (stays || !edge.crosses(v.startPoint(), v.endPoint(), x)) {
      ++i;
      continue;
    }
    KrVector fresh(v.startPoint(), v.endPoint(), v.type());
    // The band of a hole is as wide as it was.
    if (v.type() == KR_VT_FURO_LINHA) fresh.setRaio(v.radius());
    lista.removeAt(i);
    lista.append(fresh);
  }
  lista.append(KrVector(p1, p2, KR_VT_LINHA));
  return Acad::eOk;
}
