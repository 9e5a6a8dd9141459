#pragma once

#include <vector>

#include "host/db/entities/PieceCurve.h"

/// A lightweight polyline: vertices in one plane, joined by straight lines and by arcs of a given bulge (tangent of a
/// quarter of the angle, positive counterclockwise about the normal). Segments may have widths. Its parameter is the
/// index of the vertex plus the part of the segment behind it.
class AcDbPolyline : public PieceCurve {
 public:
  ACRX_DECLARE_MEMBERS(AcDbPolyline);

  enum SegType { kLine, kArc, kCoincident, kPoint, kEmpty };

  AcDbPolyline() = default;
  explicit AcDbPolyline(unsigned int expectedVertices) { m_vertices.reserve(expectedVertices); }

  unsigned int numVerts() const;
  /// eInvalidIndex beyond the vertices, here and below. In space, or with a 2D point in the polyline's plane.
  Acad::ErrorStatus getPointAt(unsigned int index, AcGePoint3d& point) const;
  Acad::ErrorStatus getPointAt(unsigned int index, AcGePoint2d& point) const;
  Acad::ErrorStatus getBulgeAt(unsigned int index, double& bulge) const;
  Acad::ErrorStatus getWidthsAt(unsigned int index, double& startWidth, double& endWidth) const;
  Acad::ErrorStatus setPointAt(unsigned int index, const AcGePoint2d& point);
  Acad::ErrorStatus setBulgeAt(unsigned int index, double bulge);
  /// eInvalidInput for a negative width.
  Acad::ErrorStatus setWidthsAt(unsigned int index, double startWidth, double endWidth);
  /// Inserts a vertex ahead of `index`; the number of vertices appends. Negative widths take the constant width.
  Acad::ErrorStatus addVertexAt(unsigned int index, const AcGePoint2d& point, double bulge = 0.0,
                                double startWidth = -1.0, double endWidth = -1.0);
  Acad::ErrorStatus removeVertexAt(unsigned int index);
  /// Removes all vertices; with `reuse`, keeps the first `numVertices` of them.
  Acad::ErrorStatus reset(bool reuse, unsigned int numVertices);

  SegType segType(unsigned int index) const;
  Acad::ErrorStatus getLineSegAt(unsigned int index, AcGeLineSeg3d& line) const;
  Acad::ErrorStatus getArcSegAt(unsigned int index, AcGeCircArc3d& arc) const;
  bool hasBulges() const;
  bool hasWidth() const;
  bool isOnlyLines() const { return !hasBulges(); }

  Adesk::Boolean isClosed() const override;
  void setClosed(Adesk::Boolean closed);
  bool hasPlinegen() const;
  void setPlinegen(bool on);
  double elevation() const;
  Acad::ErrorStatus setElevation(double elevation);
  double thickness() const;
  Acad::ErrorStatus setThickness(double thickness);
  AcGeVector3d normal() const;
  /// eInvalidInput for a zero vector. The vertices keep their places in the plane.
  Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
  /// eInvalidInput when the widths differ.
  Acad::ErrorStatus getConstantWidth(double& width) const;
  Acad::ErrorStatus setConstantWidth(double width);

  bool isPlanar() const override { return true; }
  Acad::ErrorStatus getPlane(AcGePlane& plane, AcDb::Planarity& type) const override;
  void getEcs(AcGeMatrix3d& ecs) const override;

  CurvePieces pieces() const override;
  double paramAtPiece(std::size_t i) const override { return double(i); }
  /// An open polyline counts as closed by a straight line.
  Acad::ErrorStatus getArea(double& area) const override;
  Acad::ErrorStatus reverseCurve() override;

  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

 protected:
  Adesk::Boolean subWorldDraw(AcGiWorldDraw* draw) override;
  /// eCannotScaleNonUniformly unless arcs stay arcs.
  Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& xform) override;
  /// Lines and arcs.
  Acad::ErrorStatus subExplode(AcDbVoidPtrArray& entities) const override;
  void subList() const override;
  /// The vertices.
  Acad::ErrorStatus subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray& osnapModes,
                                     AcDbIntArray& geomIds) const override;
  Acad::ErrorStatus subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) override;

 private:
  struct Vertex {
    AcGePoint2d point;
    double bulge = 0.0;
    double startWidth = 0.0;
    double endWidth = 0.0;
  };
  std::size_t segmentCount() const;
  const Vertex& behind(std::size_t i) const { return m_vertices[(i + 1) % m_vertices.size()]; }
  CurvePiece pieceAt(std::size_t i, const AcGeMatrix3d& frame) const;
  AcGePoint3d inSpace(const AcGePoint2d& p, const AcGeMatrix3d& frame) const {
    return frame * AcGePoint3d(p.x, p.y, m_elevation);
  }
  void drawWide(AcGiWorldDraw* draw, std::size_t i, const AcGeMatrix3d& frame) const;

  std::vector<Vertex> m_vertices;
  AcGeVector3d m_normal = AcGeVector3d::kZAxis;
  double m_elevation = 0.0;
  double m_thickness = 0.0;
  bool m_closed = false;
  bool m_plinegen = false;
};
