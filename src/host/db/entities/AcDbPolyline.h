#pragma once

#include <vector>

#include "host/db/AcDbField.h"
#include "host/db/entities/PieceCurve.h"

/// A lightweight polyline: vertices in one plane, joined by straight lines and by arcs of a given bulge (tangent of a
/// quarter of the angle, positive counterclockwise about the normal). Segments may have widths. Its parameter is the
/// index of the vertex plus the part of the segment behind it.
class AcDbPolyline : public PieceCurve {
 public:
  ACRX_DECLARE_MEMBERS(AcDbPolyline);

  enum SegType { kLine, kArc, kCoincident, kPoint, kEmpty };

  /// Bits of the flags, as in a DWG file.
  enum Flag : Adesk::Int16 { kPlinegen = 256, kClosed = 512 };
  /// As filed. The vertices lie in the plane of the normal, at the elevation.
  struct Data {
    /// kPlinegen, kClosed; and of a polyline from a DWG file those that tell what stands there: 1 extrusion,
    /// 2 thickness, 4 constant width, 8 elevation, 16 bulges, 32 widths. A writer adds what is needed.
    Adesk::Int16 flags = 0;
    double constantWidth = 0.0;  ///< counts when there are no widths
    double elevation = 0.0;
    double thickness = 0.0;
    AcGeVector3d normal = AcGeVector3d::kZAxis;
    std::vector<AcGePoint2d> points;
    std::vector<double> bulges;       ///< one for each point, or none
    std::vector<AcGePoint2d> widths;  ///< start and end for each point, or none
    KR_DB_TIE(flags, constantWidth, elevation, thickness, normal, points, bulges, widths)
  };
  KR_DB_DATA(Data)

  AcDbPolyline() = default;
  explicit AcDbPolyline(unsigned int expectedVertices) { data_.points.reserve(expectedVertices); }

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
  std::size_t count() const { return data_.points.size(); }
  std::size_t segmentCount() const;
  const AcGePoint2d& behind(std::size_t i) const { return data_.points[i + 1 < count() ? i + 1 : 0]; }
  double bulgeAt(std::size_t i) const { return i < data_.bulges.size() ? data_.bulges[i] : 0.0; }
  /// The widths at the start and at the end of a segment.
  AcGePoint2d widthsAt(std::size_t i) const {
    return i < data_.widths.size() ? data_.widths[i] : AcGePoint2d(data_.constantWidth, data_.constantWidth);
  }
  void makeWidths();
  CurvePiece pieceAt(std::size_t i, const AcGeMatrix3d& frame) const;
  AcGePoint3d inSpace(const AcGePoint2d& p, const AcGeMatrix3d& frame) const {
    return frame * AcGePoint3d(p.x, p.y, data_.elevation);
  }
  void drawWide(AcGiWorldDraw* draw, std::size_t i, const AcGeMatrix3d& frame) const;

  Data data_;
};
