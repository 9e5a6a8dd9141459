// From a centre line to the closed outline of a thin wall.
//
// Each branch of the line is walked forward along one face, across its end, and back along the other face. A straight
// edge puts its end at half the wall's thickness to the left of the walk; an arc does the same with its tangent at the
// end, so that faces of tangent lines and arcs meet. A corner takes the normal of the edge that arrives, no mitre. A
// closed branch gives two contours: its walk forward ends in a contour marker.

#include <cmath>

#include "object/ArcGeometry.h"
#include "object/KrObject.h"

namespace {

constexpr double kPi = 3.141592653589793;
constexpr double kMarkerBase = 6000.0;

class BranchWalker {
 public:
  BranchWalker(const KrGeratriz& branch, double wall, KrGeratriz& out)
      : branch_(branch), half_(wall * 0.5), out_(out), last_(branch.Qtd() - 1) {}

  void thicken() {
    if (last_ < 1) return;
    const AcGeVector3d begin = branch_.GetVertex(0);
    const bool closed = begin == branch_.GetVertex(last_);
    angle_ = firstHeading();
    walk(+1);
    double end = KrObject::Bulge_6000(branch_.GetBulge(last_)) ? 0 : branch_.GetBulge(last_);
    if (closed && std::fabs(end) < AcGeContext::gTol.equalPoint()) end = kMarkerBase;
    out_.Add(face_, end == kMarkerBase ? end : 0.0);
    cross();
    angle_ += kPi;
    walk(-1);
    out_.Add(face_, 0.0);
    cross();
    if (!closed) out_.Add(face_, 0.0);
  }

 private:
  // Emits every edge's start on the left face; leaves the last edge's end in `face_`.
  void walk(int step) {
    const int from = step > 0 ? 0 : last_;
    const int to = step > 0 ? last_ : 0;
    for (int i = from; i != to; i += step) {
      const AcGeVector3d& p0 = branch_.GetVertex(i);
      const AcGeVector3d& p1 = branch_.GetVertex(i + step);
      const double bulge = step > 0 ? branch_.GetBulge(i) : -branch_.GetBulge(i - 1);
      // An edge of no length has no direction of its own: the walk goes on as it came.
      const double chord = p0 == p1 ? angle_ : KrObject::orientacao(p1 - p0);
      const double previous = angle_;
      if (bulge == 0) {
        angle_ = chord;
        if (i == from && step > 0) face_ = p0 + normal(angle_);
      } else {
        // At an end of the line there is no edge before to tell the tangent: it comes from the arc itself.
        const double start = i == from ? chord - halfSweep(bulge) : previous;
        if (i == from && step > 0) face_ = p0 + normal(start);
        angle_ = 2 * chord - start;
      }
      out_.Add(face_, bulge);
      face_ = p1 + normal(angle_);
    }
    end_ = branch_.GetVertex(to);
  }

  // The direction in which the line begins: that of its first edge that has a length.
  double firstHeading() const {
    for (int i = 0; i < last_; ++i) {
      const AcGeVector3d& p0 = branch_.GetVertex(i);
      const AcGeVector3d& p1 = branch_.GetVertex(i + 1);
      if (p0 != p1) return KrObject::orientacao(p1 - p0) - halfSweep(branch_.GetBulge(i));
    }
    return 0;
  }

  // Across the wall at the end of the walk.
  void cross() { face_ = end_ - normal(angle_); }

  AcGeVector3d normal(double angle) const {
    return AcGeVector3d(std::cos(angle + kPi / 2), std::sin(angle + kPi / 2), 0) * half_;
  }
  static double halfSweep(double bulge) { return 2 * std::atan(bulge / ArcGeometry::kBulgeUnit); }

  const KrGeratriz& branch_;
  double half_;
  KrGeratriz& out_;
  int last_;
  double angle_ = 0;
  AcGeVector3d face_;
  AcGeVector3d end_;
};

// Copies one branch, to and including its marker or the reference node; returns the position behind it.
int copyBranch(const KrGeratriz& line, int from, KrGeratriz& branch) {
  branch.Clear();
  for (int i = from; i < line.numNodes(); ++i) {
    branch.Add(line.GetVertex(i), line.GetBulge(i));
    if (KrObject::Bulge_6000(line.GetBulge(i))) return i + 1;
  }
  return line.numNodes();
}

}  // namespace

void KrObject::gera_Secao(const KrGeratriz& linha, KrGeratriz& fechada, double espessura) {
  KrGeratriz branch;
  KrGeratriz outline;
  for (int at = 0; at < linha.Qtd();) {
    at = copyBranch(linha, at, branch);
    outline.Clear();
    BranchWalker(branch, espessura, outline).thicken();
    const double marker = branch.Qtd() > 0 ? branch.GetBulge(branch.Qtd() - 1) : 0.0;
    const bool last = !Bulge_6000(marker);
    for (int i = 0; i < outline.Qtd(); ++i) {
      const bool end = i == outline.Qtd() - 1;
      fechada.Add(outline.GetVertex(i), end && !last ? marker : outline.GetBulge(i));
    }
    if (!last) espessura = marker - kMarkerBase;
  }
  // The section's origin stands behind its last contour, also where that contour ended in a marker.
  if (linha.numNodes() > linha.Qtd()) fechada.Add(linha.GetRefOrigin(), linha.GetBulge(linha.Qtd()));
}
