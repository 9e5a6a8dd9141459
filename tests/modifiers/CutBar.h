#pragma once

#include <algorithm>
#include <vector>

#include "object/KrObject.h"
#include "object/TestMember.h"

/// A flat bar to cut: 1000 long, 100 wide (X of the section), 40 deep (Y of the section), about its reference origin.
///
/// Lying along X from the origin at 1:1 it fills (0, -50) to (1000, 50) in the views 1 and 2 and (0, -20) to (1000, 20)
/// in 3 and 4. Drawn Y is -X of the section in 1 and 2 and Y of the section in 3 and 4; the section's start is at the
/// left in 1 and 4 and at the right in 2 and 3.
class CutBar : public TestMember {
 public:
  static constexpr double kLength = 1000;

  explicit CutBar(KrVistas vista = Superior, double length = kLength, double angle = 0, AcGePoint3d start = {0, 0, 0}) {
    make({{{-50, -20}, {-50, 20}, {50, 20}, {50, -20}}}, vista, length, angle, start);
  }

  Acad::ErrorStatus cut(AcGePoint3d p1, AcGePoint3d p2, AcGePoint3d side, int trimsAxis = 0) {
    return Corte(p1, p2, side, 0, trimsAxis);
  }
  /// A square cut at x that throws away the side of `side`.
  Acad::ErrorStatus cutAt(double x, double side, int trimsAxis = 0) {
    return cut({x, -70, 0}, {x, 70, 0}, {side, 0, 0}, trimsAxis);
  }

  std::vector<KrVector> elements(KrVistas view = VistaCorrente) const {
    std::vector<KrVector> all;
    for (int i = 0; i < GetNumVertex(view); ++i) all.push_back(currentVertexList(view)[i]);
    return all;
  }
  std::vector<KrVector> of(KrVectorType type) const {
    std::vector<KrVector> found = elements();
    std::erase_if(found, [&](const KrVector& v) { return v.type() != type; });
    return found;
  }
  /// The edges that cuts have made.
  std::vector<KrVector> cutEdges() const {
    std::vector<KrVector> found = elements();
    std::erase_if(found, [](const KrVector& v) { return v.typeEx() != KR_VTX_CORTE; });
    return found;
  }
  double left() const { return GetMinX(VistaCorrente); }
  double right() const { return GetMaxX(VistaCorrente); }
  KrVector line(KrVectorType type) const { return of(type).at(0); }

  KrPlanoCorte stored() const {
    KrPlanoCorte cuts;
    getCortes(cuts, 0);
    return cuts;
  }
  double storedLength() const {
    double length = 0;
    Comprimento(length);
    return length;
  }
};

inline bool joins(const KrVector& v, const AcGePoint3d& a, const AcGePoint3d& b, double tol = 1e-9) {
  AcGeTol t;
  t.setEqualPoint(tol);
  return (v.startPoint().isEqualTo(a, t) && v.endPoint().isEqualTo(b, t)) ||
         (v.startPoint().isEqualTo(b, t) && v.endPoint().isEqualTo(a, t));
}
