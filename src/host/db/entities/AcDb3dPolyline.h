#pragma once

#include "host/db/AcDbField.h"
#include "host/db/AcDbObjectIterator.h"
#include "host/db/AcDbSubentities.h"
#include "host/db/entities/AcDbSequenceEnd.h"
#include "host/db/entities/AcDbVertex.h"
#include "host/db/entities/PieceCurve.h"

/// A polyline of straight pieces in space whose vertices are entities of their own.
class AcDb3dPolyline : public PieceCurve {
 public:
  ACRX_DECLARE_MEMBERS(AcDb3dPolyline);
  /// As a drawing file holds it: the kind of curve 0 none, 1 quadratic (group 75: 5), 2 cubic (6); closed 1 (group 70
  /// has 8 besides).
  struct Data {
    Adesk::UInt8 curve = 0;
    Adesk::UInt8 closed = 0;
    KR_DB_TIE(curve, closed)
  };
  AcDb3dPolyline() { addTrait(kOwnsParts); }
  AcDb3dPolyline(AcDb::Poly3dType type, const AcGePoint3dArray& vertices, Adesk::Boolean closed = Adesk::kFalse);
  KR_DB_DATA(Data)

  AcDb::Poly3dType polyType() const;
  Adesk::Boolean isClosed() const override;
  Acad::ErrorStatus makeClosed();
  Acad::ErrorStatus makeOpen();

  /// As for AcDb2dPolyline.
  Acad::ErrorStatus appendVertex(AcDb3dPolylineVertex* vertex);
  Acad::ErrorStatus appendVertex(AcDbObjectId& id, AcDb3dPolylineVertex* vertex);
  Acad::ErrorStatus insertVertexAt(AcDbObjectId& id, const AcDbObjectId& after, AcDb3dPolylineVertex* vertex);
  Acad::ErrorStatus openVertex(AcDb3dPolylineVertex*& vertex, AcDbObjectId id, AcDb::OpenMode mode,
                               bool openErased = false) const;
  Acad::ErrorStatus openSequenceEnd(AcDbSequenceEnd*& end, AcDb::OpenMode mode);
  AcDbObjectIterator* vertexIterator() const;
  AcDbSubentities* subentities() override { return &vertices_; }

  CurvePieces pieces() const override;
  double paramAtPiece(std::size_t i) const override { return double(i); }

  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;
  Acad::ErrorStatus subErase(Adesk::Boolean erasing) override;

 protected:
  Adesk::Boolean subWorldDraw(AcGiWorldDraw* draw) override;
  Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& xform) override;
  /// Lines.
  Acad::ErrorStatus subExplode(AcDbVoidPtrArray& entities) const override;

 private:
  /// The vertices seen, the first again at the end of a closed one.
  std::vector<AcGePoint3d> outline() const;

  Data data_;
  AcDbSubentities vertices_;
};
