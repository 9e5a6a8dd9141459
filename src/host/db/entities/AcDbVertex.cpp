#include "host/db/entities/AcDbVertex.h"

#include "host/db/StructFiling.h"
#include "host/db/entities/AcDbSequenceEnd.h"
#include "host/db/entities/EntityTools.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbVertex, AcDbEntity)
ACRX_DXF_DEFINE_MEMBERS(AcDb2dVertex, AcDbVertex, 0, 0, 0, VERTEX, ObjectDBX Classes)
ACRX_DXF_DEFINE_MEMBERS(AcDb3dPolylineVertex, AcDbVertex, 0, 0, 0, VERTEX, ObjectDBX Classes)
ACRX_DXF_DEFINE_MEMBERS(AcDbSequenceEnd, AcDbEntity, 0, 0, 0, SEQEND, ObjectDBX Classes)
ACRX_DXF_DEFINE_MEMBERS(AcDbBlockBegin, AcDbEntity, 0, 0, 0, BLOCK, ObjectDBX Classes)
ACRX_DXF_DEFINE_MEMBERS(AcDbBlockEnd, AcDbEntity, 0, 0, 0, ENDBLK, ObjectDBX Classes)
KR_DB_FILE_STRUCT(AcDb2dVertex, AcDbVertex, data_)
KR_DB_FILE_STRUCT(AcDb3dPolylineVertex, AcDbVertex, data_)

// --- 2D
// --------------------------------------------------------------------------------------------------------------------

AcDb2dVertex::AcDb2dVertex(const AcGePoint3d& position, double bulge, double startWidth, double endWidth,
                           double tangent, Adesk::Int32)
    : data_{0, position, startWidth, endWidth, bulge, tangent} {}

AcDb::Vertex2dType AcDb2dVertex::vertexType() const {
  assertReadEnabled();
  if ((data_.flags & kSplineControl) != 0) return AcDb::k2dSplineCtlVertex;
  if ((data_.flags & kSplineFit) != 0) return AcDb::k2dSplineFitVertex;
  return (data_.flags & kCurveFit) != 0 ? AcDb::k2dCurveFitVertex : AcDb::k2dVertex;
}

Acad::ErrorStatus AcDb2dVertex::setTangent(double angle) {
  useTangent();
  data_.tangent = angle;
  return Acad::eOk;
}

bool AcDb2dVertex::isTangentUsed() const {
  assertReadEnabled();
  return (data_.flags & kTangentUsed) != 0;
}

void AcDb2dVertex::useTangent() {
  assertWriteEnabled();
  data_.flags |= kTangentUsed;
}

void AcDb2dVertex::ignoreTangent() {
  assertWriteEnabled();
  data_.flags &= Adesk::UInt8(~kTangentUsed);
}

Acad::ErrorStatus AcDb2dVertex::dxfOutFields(AcDbDxfFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbVertex::dxfOutFields(filer); es != Acad::eOk) return es;
  filer->writeSubclass(L"AcDbVertex");
  filer->writeSubclass(L"AcDb2dVertex");
  filer->writeItem(10, data_.position);
  if (data_.startWidth != 0.0) filer->writeItem(40, data_.startWidth);
  if (data_.endWidth != 0.0) filer->writeItem(41, data_.endWidth);
  if (data_.bulge != 0.0) filer->writeItem(42, data_.bulge);
  filer->writeItem(70, Adesk::Int16(data_.flags));
  filer->writeItem(50, data_.tangent);
  return filer->filerStatus();
}

Acad::ErrorStatus AcDb2dVertex::dxfInFields(AcDbDxfFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbVertex::dxfInFields(filer); es != Acad::eOk) return es;
  filer->atSubclassData(L"AcDbVertex");
  return entities::readSubclass(filer, L"AcDb2dVertex", [this](const resbuf& group) {
    if (group.restype == 10) data_.position = entities::pointOf(group);
    if (group.restype == 40) data_.startWidth = group.resval.rreal;
    if (group.restype == 41) data_.endWidth = group.resval.rreal;
    if (group.restype == 42) data_.bulge = group.resval.rreal;
    if (group.restype == 50) data_.tangent = group.resval.rreal;
    if (group.restype == 70) data_.flags = Adesk::UInt8(group.resval.rint);
  });
}

// --- 3D
// --------------------------------------------------------------------------------------------------------------------

AcDb::Vertex3dType AcDb3dPolylineVertex::vertexType() const {
  assertReadEnabled();
  if ((data_.flags & AcDb2dVertex::kSplineControl) != 0) return AcDb::k3dControlVertex;
  return (data_.flags & AcDb2dVertex::kSplineFit) != 0 ? AcDb::k3dFitVertex : AcDb::k3dSimpleVertex;
}

Acad::ErrorStatus AcDb3dPolylineVertex::dxfOutFields(AcDbDxfFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbVertex::dxfOutFields(filer); es != Acad::eOk) return es;
  filer->writeSubclass(L"AcDbVertex");
  filer->writeSubclass(L"AcDb3dPolylineVertex");
  filer->writeItem(10, data_.position);
  filer->writeItem(70, Adesk::Int16(data_.flags));
  return filer->filerStatus();
}

Acad::ErrorStatus AcDb3dPolylineVertex::dxfInFields(AcDbDxfFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbVertex::dxfInFields(filer); es != Acad::eOk) return es;
  filer->atSubclassData(L"AcDbVertex");
  return entities::readSubclass(filer, L"AcDb3dPolylineVertex", [this](const resbuf& group) {
    if (group.restype == 10) data_.position = entities::pointOf(group);
    if (group.restype == 70) data_.flags = Adesk::UInt8(group.resval.rint);
  });
}

Acad::ErrorStatus AcDb3dPolylineVertex::subTransformBy(const AcGeMatrix3d& xform) {
  data_.position.transformBy(xform);
  return Acad::eOk;
}
