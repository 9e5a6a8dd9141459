#pragma once

#include "object/KrObject.h"
#include "object/VisibilityOracle.h"

/// A member of any outline, for tests: a concrete class without parameters.
class TestMember : public KrObject {
 public:
  using KrObject::outline;

  /// Writes an outline, each contour closed by its first node, and the reference node.
  void draw(const oracle::Outline& section, AcGeVector3d origin = {0, 0, 0}, double originBulge = 5000.0) {
    outline().Clear();
    for (std::size_t c = 0; c < section.size(); ++c) {
      for (const oracle::Vertex& v : section[c]) outline().Add(AcGeVector3d(v.x, v.y, 0), v.bulge * 127.0);
      const oracle::Vertex& first = section[c].front();
      outline().Add(AcGeVector3d(first.x, first.y, 0), c + 1 < section.size() ? 6000.0 : 0.0);
    }
    outline().Add(origin, originBulge);
  }

  /// Draws an outline as a bar from a point, and regenerates.
  void make(const oracle::Outline& section, KrVistas vista, double length, double angle = 0,
            AcGePoint3d start = {0, 0, 0}) {
    draw(section);
    setAngleVista(angle);
    setComprimento(length);
    KrGeratriz none;
    Gera_KrVector(start, none, vista, 0, 1);
  }

  double area = 0;
  double perimeter = 0;
  double linearWeight = 0;
  double getArea() const override { return area; }
  double getPerimetro() const override { return perimeter; }
  int getLinearWeight(double& w) const override {
    w = linearWeight;
    return linearWeight != 0 ? 1 : 0;
  }
};
