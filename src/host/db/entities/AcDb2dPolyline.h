#pragma once

#include "host/db/AcDbField.h"
#include "host/db/AcDbObjectIterator.h"
#include "host/db/AcDbSubentities.h"
#include "host/db/entities/AcDbSequenceEnd.h"
#include "host/db/entities/AcDbVertex.h"
#include "host/db/entities/PieceCurve.h"

class AcDbPolyline;

/// A polyline in a plane whose vertices are entities of their own. Arcs by bulge, widths, and vertices that a fitted
/// curve adds.
class AcDb2dPolyline : public PieceCurve {
 public:
  ACRX_DECLARE_MEMBERS(AcDb2dPolyline);
  /// Bits of the flags, as in group 70.
  enum Flag : Adesk::Int16 { kClosed = 1, kCurveFit = 2, kSplineFit = 4, kLinetypeGeneration = 128 };
  struct Data {
    Adesk::Int16 flags = 0;
    Adesk::Int16 curveType = 0;  ///< group 75: 0 none, 5 quadratic, 6 cubic, 8 Bezier
    double startWidth = 0.0;
    double endWidth = 0.0;
    double thickness = 0.0;
    double elevation = 0.0;
    AcGeVector3d normal = AcGeVector3d::kZAxis;
    KR_DB_TIE(flags, curveType, startWidth, endWidth, thickness, elevation, normal)
  };
  AcDb2dPolyline() { addTrait(kOwnsParts); }
  /// Vertices at the points; `bulges` may be null, or holds as many.
  AcDb2dPolyline(AcDb::Poly2dType type, const AcGePoint3dArray& vertices, double elevation = 0.0,
                 Adesk::Boolean closed = Adesk::kFalse, double defaultStartWidth = 0.0, double defaultEndWidth = 0.0,
                 const AcGeDoubleArray* bulges = nullptr);
  KR_DB_DATA(Data)

  AcDb::Poly2dType polyType() const;
  Adesk::Boolean isClosed() const override;
  Acad::ErrorStatus makeClosed();
  Acad::ErrorStatus makeOpen();
  KR_DB_FIELD(double, defaultStartWidth, setDefaultStartWidth, data_.startWidth)
  KR_DB_FIELD(double, defaultEndWidth, setDefaultEndWidth, data_.endWidth)
  KR_DB_FIELD(double, thickness, setThickness, data_.thickness)
  KR_DB_FIELD(double, elevation, setElevation, data_.elevation)
  KR_DB_GET(AcGeVector3d, normal, data_.normal)
  /// eInvalidInput for a zero vector.
  Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
  bool isLinetypeGenerationOn() const;
  void setLinetypeGenerationOn();
  void setLinetypeGenerationOff();

  /// Appends a vertex, which becomes the polyline's. In a database it stays open for write.
  Acad::ErrorStatus appendVertex(AcDb2dVertex* vertex);
  Acad::ErrorStatus appendVertex(AcDbObjectId& id, AcDb2dVertex* vertex);
  /// Ahead of all for a null `after`. eInvalidIndex for a vertex of another polyline.
  Acad::ErrorStatus insertVertexAt(AcDbObjectId& id, const AcDbObjectId& after, AcDb2dVertex* vertex);
  Acad::ErrorStatus openVertex(AcDb2dVertex*& vertex, AcDbObjectId id, AcDb::OpenMode mode,
                               bool openErased = false) const;
  Acad::ErrorStatus openSequenceEnd(AcDbSequenceEnd*& end, AcDb::OpenMode mode);
  /// Over the vertices in the database; freed by delete.
  AcDbObjectIterator* vertexIterator() const;
  /// Where a vertex lies in the world.
  AcGePoint3d vertexPosition(const AcDb2dVertex& vertex) const;
  AcDbSubentities* subentities() override { return &vertices_; }

  bool isPlanar() const override { return true; }
  Acad::ErrorStatus getPlane(AcGePlane& plane, AcDb::Planarity& type) const override;
  void getEcs(AcGeMatrix3d& ecs) const override;
  CurvePieces pieces() const override;
  double paramAtPiece(std::size_t i) const override { return double(i); }

  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;
  Acad::ErrorStatus subErase(Adesk::Boolean erasing) override;

 protected:
  Adesk::Boolean subWorldDraw(AcGiWorldDraw* draw) override;
  /// eCannotScaleNonUniformly unless arcs stay arcs.
  Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& xform) override;
  /// Lines and arcs.
  Acad::ErrorStatus subExplode(AcDbVoidPtrArray& entities) const override;

 private:
  /// The same shape as a lightweight polyline.
  void flatten(AcDbPolyline& flat) const;

  Data data_;
  AcDbSubentities vertices_;
};
