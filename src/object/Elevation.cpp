// The elevation generator: from a section outline to the lines of a view, by 2D geometry alone.
//
// The outline has been turned so that every elevation looks along -Y. A vertex at X = x is then a line at x over the
// whole length of the bar. Steps: the X extent of each contour; the extents in order and, where they overlap, merged
// into rectangles; from each contour's leftmost to its rightmost vertex along its upper side, the edges that can be
// seen; then every other vertex as a hidden edge, unless a line stands over its X already; then the holes.
//
// Invariant: two marks are never within the drawing tolerance in X, and none lies on a side of a rectangle.

#include <algorithm>
#include <cmath>
#include <vector>

#include "object/ArcGeometry.h"
#include "object/ElevationOutline.h"
#include "object/KrObject.h"
#include "object/OutlineCrossings.h"

namespace {

/// Marks: what the bulge of a node in the list of lines says.
constexpr int kHiddenMark = 1;
constexpr int kVisibleMark = 2;
constexpr int kFaceOnHoleMark = 5;
constexpr int kEdgeOnHoleMark = 7;

constexpr double kMarkerBase = 6000.0;
/// Bulges below this are arcs, for the extent of a contour.
constexpr double kArcLimit = 1000.0;

/// The null edge: what stands for no edge at all.
const AcGeVector3d kNullEdge(0, 0, 1);

struct Extent {
  double low;
  double high;
  int imin;
  int imax;
};

bool isNullEdge(const AcGeVector3d& v) {
  return v.x == 0 && v.y == 0 && v.z == 1;
}

// --- Extents ---------------------------------------------------------------------------------------------------------

double arcExtreme(const ElevationOutline& o, int i, int& usar, double x) {
  const ElevationOutline::Node& p = o.node(i);
  const ElevationOutline::Node& q = o.node(i + 1);
  const ArcGeometry g(p.x, p.y, q.x, q.y, p.bulge);
  usar = 0;
  if (g.chord == 0 || !std::isfinite(g.radius)) return x;
  const double my = p.y + g.dy * 0.5 - g.dx * g.t * 0.5;
  double low = std::min(p.x, q.x);
  double high = std::max(p.x, q.x);
  const bool above = p.y > g.cy + kDrawingTolerance && my > g.cy + kDrawingTolerance && q.y > g.cy + kDrawingTolerance;
  const bool below = p.y < g.cy - kDrawingTolerance && my < g.cy - kDrawingTolerance && q.y < g.cy - kDrawingTolerance;
  if (!above && !below) {
    const double tol = AcGeContext::gTol.equalPoint();
    const bool right = g.holds(g.cx + g.radius, g.cy, tol);
    const bool left = g.holds(g.cx - g.radius, g.cy, tol);
    if (right) high = g.cx + g.radius;
    if (left) low = g.cx - g.radius;
  }
  if (i + 2 >= o.qtd()) return x;
  const double before = o.node(i == 0 ? o.qtd() - 2 : i - 1).x;
  const double after = o.node(i + 2).x;
  const double least = std::min({before, p.x, q.x, after});
  const double most = std::max({before, p.x, q.x, after});
  if (least - low > kDrawingTolerance) {
    usar = 1;
    return low;
  }
  if (high - most > kDrawingTolerance) {
    usar = 1;
    return high;
  }
  return x;
}

Extent extentOf(const ElevationOutline& o, int ini, int fim) {
  Extent e{o.node(ini).x, o.node(ini).x, ini, ini};
  for (int i = ini; i < o.qtd() - 1; ++i) {
    const double bulge = o.node(i).bulge;
    double x = o.node(i).x;
    int usar = 0;
    if (!o.isPrepared() && bulge != 0 && std::fabs(bulge) < kArcLimit) x = arcExtreme(o, i, usar, x);
    if (e.low - x > kDrawingTolerance) {
      e.low = x;
      e.imin = i + usar;
    }
    if (x - e.high > kDrawingTolerance) {
      e.high = x;
      e.imax = i;
    }
    if (e.imax == 0) e.imax = fim;
    if (ElevationOutline::isMarker(bulge)) break;
  }
  if (e.imax == ini) e.imax = fim;
  return e;
}

// By xmin, ascending; among equals the later entry goes first.
void sortExtents(std::vector<Extent>& extents) {
  for (std::size_t i = 0; i + 1 < extents.size(); ++i) {
    std::size_t smallest = i;
    for (std::size_t j = i + 1; j < extents.size(); ++j)
      if (extents[j].low <= extents[smallest].low) smallest = j;
    std::swap(extents[i], extents[smallest]);
  }
}

void addRectangle(KrGeratriz& contorno, double low, double high, double length, bool several) {
  contorno.Add(AcGeVector3d(low, 0, 0), 0);
  contorno.Add(AcGeVector3d(low, length, 0), 0);
  contorno.Add(AcGeVector3d(high, length, 0), 0);
  contorno.Add(AcGeVector3d(high, 0, 0), 0);
  contorno.Add(AcGeVector3d(low, 0, 0), several ? kMarkerBase : 0);
}

// Overlapping extents are one rectangle; a gap above the tolerance parts two.
void addRectangles(const std::vector<Extent>& extents, double length, KrGeratriz& contorno,
                   std::vector<double>& sides) {
  static std::vector<Extent> merged;
  merged.clear();
  for (const Extent& e : extents) {
    if (merged.empty() || e.low - merged.back().high > kDrawingTolerance)
      merged.push_back(e);
    else
      merged.back().high = std::max(merged.back().high, e.high);
  }
  sides.clear();
  for (const Extent& e : merged) {
    addRectangle(contorno, e.low, e.high, length, merged.size() > 1);
    sides.push_back(e.low);
    sides.push_back(e.high);
  }
}

// --- Visible edges ---------------------------------------------------------------------------------------------------

// Which way round the top of a contour lies, from its leftmost vertex to its rightmost: with the nodes (+1) where the
// contour runs clockwise, against them (-1) where it runs anticlockwise. Asking where the highest and lowest vertices
// stand between the two decides the same for an upright section, but not for one that is turned.
int topDirection(const ElevationOutline& o, int ini, int fim) {
  double doubled = 0;
  for (int i = ini; i <= fim; ++i) {
    const ElevationOutline::Node& p = o.node(i);
    const ElevationOutline::Node& q = o.node(i == fim ? ini : i + 1);
    doubled += p.x * q.y - q.x * p.y;
    // An arc adds what it holds beyond its chord; the triangle over its middle tells the sign.
    if (i == fim || p.bulge == 0 || std::fabs(p.bulge) >= kArcLimit) continue;
    const double dx = q.x - p.x;
    const double dy = q.y - p.y;
    doubled += (dx * dx + dy * dy) * (p.bulge / ArcGeometry::kBulgeUnit) / 2;
  }
  return doubled < 0 ? 1 : -1;
}

/// Whether one of the lines at these places is the line at x.
bool standsAt(const std::vector<double>& lines, double x) {
  for (const double line : lines)
    if (std::fabs(line - x) < kDrawingTolerance) return true;
  return false;
}

/// What is known of the X's asked about so far. The vertex that stands for a line is the highest over its X, so that
/// all of one X get one answer.
class Visibility {
 public:
  void reset(const ElevationOutline& outline) {
    outline_ = &outline;
    answers_.clear();
  }
  bool of(int k, double x) {
    for (const Answer& a : answers_)
      if (a.x == x) return a.visible;
    answers_.push_back({x, outline_->visibleFromAbove(k)});
    return answers_.back().visible;
  }

 private:
  struct Answer {
    double x;
    bool visible;
  };
  const ElevationOutline* outline_ = nullptr;
  std::vector<Answer> answers_;
};

void markVisible(const ElevationOutline& o, int k, const std::vector<double>& sides, Visibility& visibility,
                 KrGeratriz& linhas) {
  const ElevationOutline::Node& n = o.node(k);
  if (!o.touchesArc(k, false) && !standsAt(sides, n.x) && visibility.of(k, n.x))
    KrObject::administra_vetores(linhas, AcGeVector3d(n.x, n.y, n.z), kVisibleMark);
  if (n.bulge == 0 || ElevationOutline::isMarker(n.bulge)) return;
  const ElevationOutline::Edge e = o.apparentPoint(k);
  if (!standsAt(sides, e.x) && visibility.of(k, e.x))
    KrObject::administra_vetores(linhas, AcGeVector3d(e.x, e.y, 0), kVisibleMark);
}

void markVisibleEdges(const ElevationOutline& o, const Extent& e, const std::vector<double>& sides,
                      Visibility& visibility, KrGeratriz& linhas) {
  const int ini = o.first(e.imin);
  const int fim = o.last(e.imin);
  if (e.imax < ini || e.imax > fim) return;
  const int passo = topDirection(o, ini, fim);
  const auto step = [&](int k, int by) {
    const int next = k + by;
    if (next > fim) return ini;
    return next < ini ? fim : next;
  };
  const auto sameVertex = [&](int i, int j) { return o.node(i).x == o.node(j).x && o.node(i).y == o.node(j).y; };
  // A corner may stand as several nodes in one place: all of them belong to the walk.
  int begin = e.imin;
  while (step(begin, -passo) != e.imax && sameVertex(begin, step(begin, -passo))) begin = step(begin, -passo);
  int end = e.imax;
  while (step(end, passo) != begin && sameVertex(end, step(end, passo))) end = step(end, passo);
  for (int k = begin;; k = step(k, passo)) {
    markVisible(o, k, sides, visibility, linhas);
    if (k == end) break;
  }
}

// --- Hidden edges ----------------------------------------------------------------------------------------------------

void markHiddenEdges(const ElevationOutline& o, const std::vector<double>& sides, KrGeratriz& linhas) {
  static std::vector<double> lines;
  lines.clear();
  for (int i = 0; i < linhas.Qtd(); ++i) lines.push_back(linhas.GetVertex(i).x);
  for (int i = 0; i < o.qtd(); ++i) {
    const ElevationOutline::Node& n = o.node(i);
    double x = n.x;
    bool edge = false;
    if (n.bulge != 0 && !ElevationOutline::isMarker(n.bulge)) {
      const ElevationOutline::Edge& e = o.edgeOfArc(i);
      edge = e.isEdge;
      if (edge) x = e.x;
    }
    if (!edge && o.touchesArc(i, false)) continue;
    if (standsAt(sides, x) || standsAt(lines, x)) continue;
    linhas.Add(AcGeVector3d(x, n.y, n.z), kHiddenMark);
    lines.push_back(x);
  }
}

void makeElevation(const ElevationOutline& o, double length, const AcGeVector3d& origin, double originBulge,
                   KrGeratriz& contorno, KrGeratriz& linhas) {
  static std::vector<Extent> extents;
  static std::vector<double> sides;
  extents.clear();
  for (int c = 0; c < o.contours(); ++c) extents.push_back(extentOf(o, o.contourFirst(c), o.contourLast(c)));
  sortExtents(extents);
  addRectangles(extents, length, contorno, sides);
  contorno.Add(AcGeVector3d(origin.x, 0, 0), originBulge);

  static Visibility visibility;
  visibility.reset(o);
  for (const Extent& e : extents) markVisibleEdges(o, e, sides, visibility, linhas);
  markHiddenEdges(o, sides, linhas);
  const double level = contorno.GetVertex(0).y;
  for (int i = 0; i < linhas.Qtd(); ++i) linhas.GetVertex(i).y = level;
}

}  // namespace

void KrObject::gera_Vista(const KrGeratriz& secao, KrGeratriz& contorno, KrGeratriz& linhas,
                          const KrFuro& furos) const {
  if (secao.Qtd() == 0) return;
  static ElevationOutline outline;
  outline.assign(secao);
  makeElevation(outline, comprimento_, secao.GetRefOrigin(), secao.GetBulge(secao.Qtd()), contorno, linhas);
  addHoleMarks(secao, linhas, furos);
}

void KrObject::geraVistaPreparada(const KrGeratriz& secao, KrGeratriz& contorno, KrGeratriz& linhas,
                                  const KrFuro& furos) const {
  if (secao.Qtd() == 0) return;
  static ElevationOutline outline;
  outline.assignPrepared(secao);
  linhas.reserve(secao.Qtd() + 2 * furos.Qtd());
  makeElevation(outline, comprimento_, secao.GetRefOrigin(), secao.GetBulge(secao.Qtd()), contorno, linhas);
  addHoleMarks(secao, linhas, furos);
}

void KrObject::addHoleMarks(const KrGeratriz& secao, KrGeratriz& linhas, const KrFuro& furos) {
  OutlineCrossings crossings(secao);
  int h = 0;
  for (const NoFuro* hole = furos.getNode(0); hole != nullptr; hole = hole->next, ++h) {
    const AcGeVector3d& n0 = hole->Ini;
    const AcGeVector3d& n1 = hole->Fim;
    if (std::fabs(n0.x - n1.x) >= kDrawingTolerance) {
      if (std::fabs(n0.y - n1.y) >= kDrawingTolerance) continue;
      linhas.Add(AcGeVector3d(n0.x, n0.z, h), kEdgeOnHoleMark);
      linhas.Add(AcGeVector3d(n1.x, n1.z, h), kEdgeOnHoleMark);
      continue;
    }
    double top = 0;
    if (!crossings.top(AcGePoint2d(n0.x, n0.y), AcGePoint2d(n1.x, n1.y), top)) continue;
    if (std::fabs(n0.y - top) < kDrawingTolerance)
      linhas.Add(AcGeVector3d(n0.x, n0.z, h), kFaceOnHoleMark);
    else if (std::fabs(n1.y - top) < kDrawingTolerance)
      linhas.Add(AcGeVector3d(n1.x, n1.z, h), kFaceOnHoleMark);
  }
}

int KrObject::Testa_Top(const KrGeratriz& secao, int indice) {
  static ElevationOutline outline;
  outline.assign(secao);
  return outline.visibleFromAbove(indice) ? 1 : 0;
}

int KrObject::Testa_ja_existe(const KrGeratriz& lista, const AcGeVector3d& v) {
  const int n = lista.Qtd();
  for (int i = 0; i < n; ++i)
    if (std::fabs(lista.GetVertex(i).x - v.x) < kDrawingTolerance) return i;
  return -1;
}

void KrObject::administra_vetores(KrGeratriz& lista, const AcGeVector3d& v, int marca) {
  if (isNullEdge(v)) return;
  const int i = Testa_ja_existe(lista, v);
  if (i == -1)
    lista.Add(v, marca);
  else if (marca != kFaceOnHoleMark && v.y > lista.GetVertex(i).y)
    lista.Troca(v, marca, i);
}

double KrObject::Arco_Xtreme(const KrGeratriz& secao, int i, int& usar, double x) {
  static ElevationOutline outline;
  outline.assign(secao);
  return arcExtreme(outline, i, usar, x);
}

void KrObject::Aresta_Arco(const KrGeratriz& secao, int i, AcGeVector3d& v, int modo) {
  static ElevationOutline outline;
  outline.assign(secao);
  const ElevationOutline::Edge& e = outline.edgeOfArc(i);
  if (e.isEdge)
    v = AcGeVector3d(e.x, e.y, 0);
  else
    v = modo == 1 ? secao.GetVertex(i) : kNullEdge;
}

int KrObject::VertexBulge(const KrGeratriz& geratriz, int i, int modo) {
  if (modo != 0 && modo != 1) return 0;
  static ElevationOutline outline;
  outline.assign(geratriz);
  return outline.touchesArc(i, modo == 0) ? 1 : 0;
}

void KrObject::InterceptaLinhas(const AcGeLinearEnt2d& linha, AcArray<AcGeVector3d>& pontos,
                                const KrGeratriz* geratriz) const {
  AcArray<AcGePoint2d> found;
  crossOutline(linha, geratriz != nullptr ? *geratriz : secao_, found);
  for (const AcGePoint2d& p : found) pontos.append(AcGeVector3d(p.x, p.y, 0));
}

void KrObject::AlinhaVertexes(AcGePoint3dArray& pontos) const {
  const KrObjectArray<KrVector>& lista = currentVertexList(VistaCorrente);
  AcGeTol near;
  near.setEqualPoint(kDrawingTolerance);
  std::vector<const KrVector*> candidates;
  for (int i = 0; i < lista.length(); ++i) {
    const KrVector& v = lista[i];
    if (v.type() != KR_VT_LINHA && v.type() != KR_VT_ARCO) continue;
    bool atStart = false;
    bool atEnd = false;
    for (int j = 0; j < lista.length(); ++j) {
      const KrVector& w = lista[j];
      if (j == i || (w.type() != KR_VT_LINHA && w.type() != KR_VT_ARCO)) continue;
      atStart =
          atStart || v.startPoint().isEqualTo(w.startPoint(), near) || v.startPoint().isEqualTo(w.endPoint(), near);
      atEnd = atEnd || v.endPoint().isEqualTo(w.startPoint(), near) || v.endPoint().isEqualTo(w.endPoint(), near);
    }
    if (atStart && atEnd) candidates.push_back(&v);
  }
  if (candidates.empty()) return;
  const int all = static_cast<int>(candidates.size());
  int chain = 2;
  pontos.append(candidates.front()->startPoint());
  pontos.append(candidates.front()->endPoint());
  candidates.erase(candidates.begin());
  for (bool added = true; added && chain < all;) {
    added = false;
    // A pass is finished even when it has as many points as candidates: the last of them closes the chain.
    for (std::size_t i = 0; i < candidates.size();) {
      const AcGePoint3d end = pontos[pontos.length() - 1];
      const bool fits = candidates[i]->startPoint().isEqualTo(end, near);
      if (!fits && !candidates[i]->endPoint().isEqualTo(end, near)) {
        ++i;
        continue;
      }
      pontos.append(fits ? candidates[i]->endPoint() : candidates[i]->startPoint());
      candidates.erase(candidates.begin() + static_cast<std::ptrdiff_t>(i));
      ++chain;
      added = true;
    }
  }
}
