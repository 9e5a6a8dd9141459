#pragma once

#include <cmath>

#include "object/KrObject.h"

namespace bench {

/// One clip: 20 lines and 4 arcs of an elevation, and a notch of 8 points with 2 arcs that most of them meet.
struct ClipJob {
  KrObjectArray<KrVector> elements;
  AcArray<AcGePoint2d> points;
  AcArray<double> bulges;
  AcGePoint2d side{200, 150};  ///< inside: what lies in the notch goes

  ClipJob() {
    for (int i = 0; i < 10; ++i) addLine(0, 30.0 * i + 15, 400, 30.0 * i + 15);
    for (int i = 0; i < 10; ++i) addLine(40.0 * i + 20, 0, 40.0 * i + 20, 300);
    addArc(100, 100, 60, 0, 90);
    addArc(300, 100, 60, 90, 180);
    addArc(300, 200, 80, 180, 270);
    addArc(100, 200, 80, 270, 360);
    const double quarter = std::tan(3.141592653589793 / 8);
    add(120, 75);
    add(280, 75, quarter);
    add(300, 95);
    add(300, 205, quarter);
    add(280, 225);
    add(150, 225);
    add(120, 195);
    add(120, 75);
  }

 private:
  void addLine(double x0, double y0, double x1, double y1) {
    KrVector v(AcGePoint3d(x0, y0, 0), AcGePoint3d(x1, y1, 0), KR_VT_LINHA);
    v.setTipo(KR_VF_ARESTA);
    elements.append(v);
  }
  void addArc(double x, double y, double r, double from, double to) {
    const auto at = [&](double degrees) {
      const double a = degrees * 3.141592653589793 / 180;
      return AcGePoint3d(x + r * std::cos(a), y + r * std::sin(a), 0);
    };
    elements.append(KrVector(at(from), at((from + to) / 2), at(to), KR_VT_ARCO));
  }
  void add(double x, double y, double bulge = 0) {
    points.append(AcGePoint2d(x, y));
    bulges.append(bulge);
  }
};

}  // namespace bench
