#pragma once

#include <cmath>

#include "object/KrObject.h"

/// Members of plain outlines, for tests by hand.
namespace sections {

/// A member without parameters.
class Bar : public KrObject {
 public:
  using KrObject::outline;

  void corner(double x, double y, double bulge = 0) { outline().Add(AcGeVector3d(x, y, 0), bulge); }
  void origin(double x, double y) { outline().Add(AcGeVector3d(x, y, 0), KrGeratriz::kReferenceBulge); }

  void show(KrVistas view, double length, double angle = 0, AcGePoint3d start = {0, 0, 0}) {
    setAngleVista(angle);
    setComprimento(length);
    KrGeratriz none;
    Gera_KrVector(start, none, view, 0, 1);
  }
};

/// An I of straight edges, 200 high and 100 wide, web 6, flanges 9 thick, its origin in the middle.
class PlainI : public Bar {
 public:
  explicit PlainI(AcGeVector3d origin = {0, 0, 0}) {
    const double half[12][2] = {{-50, -100}, {50, -100}, {50, -91}, {3, -91}, {3, 91},   {50, 91},
                                {50, 100},   {-50, 100}, {-50, 91}, {-3, 91}, {-3, -91}, {-50, -91}};
    for (const auto& p : half) corner(p[0] + origin.x, p[1] + origin.y);
    corner(-50 + origin.x, -100 + origin.y);
    outline().Add(origin, KrGeratriz::kReferenceBulge);
  }
};

/// A tube of outer diameter 100 and wall 5, each circle of two half turns.
class Tube : public Bar {
 public:
  Tube() {
    corner(-50, 0, 127);
    corner(50, 0, 127);
    corner(-50, 0, 6000);
    corner(-45, 0, 127);
    corner(45, 0, 127);
    corner(-45, 0);
    origin(0, 0);
  }
};

/// A hollow rectangle 100 wide and 60 high, wall 4.
class Box : public Bar {
 public:
  Box() {
    rectangle(50, 30, 6000);
    rectangle(46, 26, 0);
    origin(0, 0);
  }

 private:
  void rectangle(double x, double y, double last) {
    corner(-x, -y);
    corner(x, -y);
    corner(x, y);
    corner(-x, y);
    corner(-x, -y, last);
  }
};

}  // namespace sections
