#include "host/db/entities/AcDbBlockReference.h"

#include <algorithm>
#include <cmath>

#include "host/db/AcDbBlockTable.h"
#include "host/db/StructFiling.h"
#include "host/db/entities/AcDbAttribute.h"
#include "host/db/entities/AcDbSequenceEnd.h"
#include "host/db/entities/DrawnExtents.h"
#include "host/db/entities/EntityTools.h"
#include "host/db/entities/TextStyling.h"
#include "host/ed/acut.h"
#include "host/gi/gi.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbBlockReference, AcDbEntity, 0, 0, 0, INSERT, ObjectDBX Classes)
ACRX_DXF_DEFINE_MEMBERS(AcDbMInsertBlock, AcDbBlockReference, 0, 0, 0, INSERT, ObjectDBX Classes)

AcDbBlockReference::AcDbBlockReference(const AcGePoint3d& position, AcDbObjectId block) : AcDbBlockReference() {
  data_.position = position;
  data_.block = block;
}

// --- Place
// ------------------------------------------------------------------------------------------------------------------

AcGePoint3d AcDbBlockReference::position() const {
  assertReadEnabled();
  return entities::fromPlane(data_.position, data_.normal);
}

Acad::ErrorStatus AcDbBlockReference::setPosition(const AcGePoint3d& point) {
  assertWriteEnabled();
  data_.position = entities::toPlane(point, data_.normal);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockReference::setScaleFactors(const AcGeScale3d& scale) {
  if (scale.sx == 0.0 || scale.sy == 0.0 || scale.sz == 0.0) return Acad::eInvalidInput;
  assertWriteEnabled();
  data_.scale = scale;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockReference::setNormal(const AcGeVector3d& normal) {
  if (normal.lengthSqrd() == 0.0) return Acad::eInvalidInput;
  assertWriteEnabled();
  const AcGePoint3d at = entities::fromPlane(data_.position, data_.normal);
  data_.normal = normal / normal.length();
  data_.position = entities::toPlane(at, data_.normal);
  return Acad::eOk;
}

AcGeMatrix3d AcDbBlockReference::blockTransform() const {
  assertReadEnabled();
  const AcGeVector3d x = entities::directionAt(data_.rotation, data_.normal);
  const AcGeVector3d y = data_.normal.crossProduct(x);
  AcGeMatrix3d transform;
  transform.setCoordSystem(entities::fromPlane(data_.position, data_.normal), x * data_.scale.sx, y * data_.scale.sy,
                           data_.normal * data_.scale.sz);
  const AcDbObjectPointer<AcDbBlockTableRecord> block(data_.block, AcDb::kForRead);
  if (block.openStatus() != Acad::eOk) return transform;
  return transform * AcGeMatrix3d::translation(AcGePoint3d::kOrigin - block->origin());
}

Acad::ErrorStatus AcDbBlockReference::setBlockTransform(const AcGeMatrix3d& xform) {
  AcGePoint3d origin;
  AcGeVector3d axes[3];
  xform.getCoordSystem(origin, axes[0], axes[1], axes[2]);
  double lengths[3];
  for (int i = 0; i < 3; ++i) {
    lengths[i] = axes[i].length();
    if (lengths[i] == 0.0) return Acad::eInvalidInput;
    axes[i] /= lengths[i];
  }
  // Square up to rounding: what a drawing keeps of it are three factors and an angle.
  constexpr double kSquare = 1e-9;
  const double skew = std::max({std::fabs(axes[0].dotProduct(axes[1])), std::fabs(axes[0].dotProduct(axes[2])),
                                std::fabs(axes[1].dotProduct(axes[2]))});
  if (!(skew <= kSquare)) return Acad::eCannotScaleNonUniformly;
  assertWriteEnabled();
  AcGePoint3d base;
  const AcDbObjectPointer<AcDbBlockTableRecord> block(data_.block, AcDb::kForRead);
  if (block.openStatus() == Acad::eOk) base = block->origin();
  // A mirrored frame is a right-handed one with one factor below zero.
  const bool mirrored = axes[0].crossProduct(axes[1]).dotProduct(axes[2]) < 0.0;
  data_.normal = axes[2];
  data_.rotation = entities::angleInPlane(axes[0], axes[2]);
  data_.scale.set(lengths[0], mirrored ? -lengths[1] : lengths[1], lengths[2]);
  data_.position = entities::toPlane(xform * base, data_.normal);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockReference::getPlane(AcGePlane& plane, AcDb::Planarity& type) const {
  plane.set(position(), data_.normal);
  type = AcDb::kPlanar;
  return Acad::eOk;
}

void AcDbBlockReference::getEcs(AcGeMatrix3d& ecs) const {
  ecs = blockTransform();
}

// --- Attributes
// -------------------------------------------------------------------------------------------------------------

Acad::ErrorStatus AcDbBlockReference::appendAttribute(AcDbAttribute* attribute) {
  AcDbObjectId id;
  return appendAttribute(id, attribute);
}

Acad::ErrorStatus AcDbBlockReference::appendAttribute(AcDbObjectId& id, AcDbAttribute* attribute) {
  const Acad::ErrorStatus es = attributes_.insert(*this, attribute, id);
  if (es == Acad::eOk) attributes_.makeSequenceEnd(*this);
  return es;
}

Acad::ErrorStatus AcDbBlockReference::openAttribute(AcDbAttribute*& attribute, AcDbObjectId id, AcDb::OpenMode mode,
                                                    bool openErased) {
  attribute = nullptr;
  if (id.isNull() || id.stub()->owner != objectId().stub()) return Acad::eInvalidInput;
  return acdbOpenObject(attribute, id, mode, openErased);
}

Acad::ErrorStatus AcDbBlockReference::openSequenceEnd(AcDbSequenceEnd*& end, AcDb::OpenMode mode) {
  return acdbOpenObject(end, attributes_.sequenceEnd(), mode);
}

AcDbObjectIterator* AcDbBlockReference::attributeIterator() const {
  assertReadEnabled();
  return new AcDbObjectIterator(attributes_.ids());
}

Acad::ErrorStatus AcDbBlockReference::subErase(Adesk::Boolean erasing) {
  const Acad::ErrorStatus es = AcDbEntity::subErase(erasing);
  return es == Acad::eOk ? attributes_.erase(erasing != 0) : es;
}

// --- Picture
// ----------------------------------------------------------------------------------------------------------------

std::vector<AcGeMatrix3d> AcDbBlockReference::placements() const {
  return {blockTransform()};
}

Adesk::Boolean AcDbBlockReference::subWorldDraw(AcGiWorldDraw* draw) {
  assertReadEnabled();
  const AcDbObjectPointer<AcDbBlockTableRecord> block(data_.block, AcDb::kForRead);
  if (block.openStatus() == Acad::eOk) {
    for (const AcGeMatrix3d& place : placements()) {
      if (draw->regenAbort() != Adesk::kFalse) return Adesk::kTrue;
      draw->geometry().pushModelTransform(place);
      for (AcDbStub* const stub : block->entities()) {
        if (draw->regenAbort() != Adesk::kFalse) break;
        if (stub->has(AcDbStub::kErased)) continue;
        const AcDbObjectPointer<AcDbEntity> entity(stub, AcDb::kForRead);
        if (entity.openStatus() != Acad::eOk || entity->visibility() == AcDb::kInvisible) continue;
        // What stands in a block for an attribute isn't seen in its inserts, unless it is the same in all.
        const auto* const definition = AcDbAttributeDefinition::cast(entity.object());
        if (definition == nullptr || definition->isConstant()) draw->geometry().draw(entity.object());
      }
      draw->geometry().popModelTransform();
    }
  }
  attributes_.forEach<AcDbAttribute>(
      [&](const AcDbAttribute& attribute) { draw->geometry().draw(const_cast<AcDbAttribute*>(&attribute)); });
  return Adesk::kTrue;
}

Acad::ErrorStatus AcDbBlockReference::subGetGeomExtents(AcDbExtents& extents) const {
  return entities::drawnExtents(*this, extents);
}

Acad::ErrorStatus AcDbBlockReference::subTransformBy(const AcGeMatrix3d& xform) {
  if (const Acad::ErrorStatus es = setBlockTransform(xform * blockTransform()); es != Acad::eOk) return es;
  return attributes_.transformBy(xform);
}

Acad::ErrorStatus AcDbBlockReference::subExplode(AcDbVoidPtrArray& entities) const {
  const AcDbObjectPointer<AcDbBlockTableRecord> block(data_.block, AcDb::kForRead);
  if (block.openStatus() != Acad::eOk) return block.openStatus();
  for (const AcGeMatrix3d& place : placements()) {
    for (AcDbStub* const stub : block->entities()) {
      if (stub->has(AcDbStub::kErased)) continue;
      const AcDbObjectPointer<AcDbEntity> entity(stub, AcDb::kForRead);
      if (entity.openStatus() != Acad::eOk || AcDbAttributeDefinition::cast(entity.object()) != nullptr) continue;
      AcDbEntity* copy = nullptr;
      if (const Acad::ErrorStatus es = entity->getTransformedCopy(place, copy); es != Acad::eOk) return es;
      entities.append(copy);
    }
  }
  return Acad::eOk;
}

void AcDbBlockReference::subList() const {
  AcDbEntity::subList();
  const AcDbObjectPointer<AcDbBlockTableRecord> block(data_.block, AcDb::kForRead, true);
  acutPrintf(L"\n                    Block: \"%s\"", block.openStatus() == Acad::eOk ? block->nameText().c_str() : L"");
  entities::listPoint(L"                 at point,", position());
  entities::listLength(L"   X scale factor:", data_.scale.sx);
  entities::listLength(L"   Y scale factor:", data_.scale.sy);
  entities::listLength(L"   Z scale factor:", data_.scale.sz);
  entities::listAngle(L"   rotation angle:", data_.rotation);
}

Acad::ErrorStatus AcDbBlockReference::subGetOsnapPoints(AcDb::OsnapMode mode, Adesk::GsMarker, const AcGePoint3d&,
                                                        const AcGePoint3d&, const AcGeMatrix3d&,
                                                        AcGePoint3dArray& snapPoints, AcDbIntArray&) const {
  if (mode == AcDb::kOsModeIns) snapPoints.append(position());
  return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockReference::subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray&, AcDbIntArray&) const {
  points.append(position());
  return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockReference::subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) {
  if (indices.length() == 0) return Acad::eOk;
  return subTransformBy(AcGeMatrix3d::translation(offset));
}

// --- Filing
// -----------------------------------------------------------------------------------------------------------------

Acad::ErrorStatus AcDbBlockReference::dwgOutFields(AcDbDwgFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbEntity::dwgOutFields(filer); es != Acad::eOk) return es;
  fields::put(*filer, data_);
  return attributes_.dwgOut(filer);
}

Acad::ErrorStatus AcDbBlockReference::dwgInFields(AcDbDwgFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbEntity::dwgInFields(filer); es != Acad::eOk) return es;
  if (const Acad::ErrorStatus es = fields::read(filer, data_); es != Acad::eOk) return es;
  return attributes_.dwgIn(filer);
}

Acad::ErrorStatus AcDbBlockReference::dxfOutFields(AcDbDxfFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbEntity::dxfOutFields(filer); es != Acad::eOk) return es;
  filer->writeSubclass(AcDbMInsertBlock::cast(this) != nullptr ? L"AcDbMInsertBlock" : L"AcDbBlockReference");
  if (!attributes_.isEmpty()) filer->writeItem(66, Adesk::Int16(1));
  const AcDbObjectPointer<AcDbBlockTableRecord> block(data_.block, AcDb::kForRead, true);
  filer->writeItem(2, block.openStatus() == Acad::eOk ? block->nameText().c_str() : L"");
  filer->writeItem(10, data_.position);
  if (data_.scale.sx != 1.0) filer->writeItem(41, data_.scale.sx);
  if (data_.scale.sy != 1.0) filer->writeItem(42, data_.scale.sy);
  if (data_.scale.sz != 1.0) filer->writeItem(43, data_.scale.sz);
  if (data_.rotation != 0.0) filer->writeItem(50, data_.rotation);
  if (data_.normal != AcGeVector3d::kZAxis) filer->writeItem(210, data_.normal);
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbBlockReference::dxfInFields(AcDbDxfFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbEntity::dxfInFields(filer); es != Acad::eOk) return es;
  const bool isArray = AcDbMInsertBlock::cast(this) != nullptr;
  return entities::readSubclass(filer, isArray ? L"AcDbMInsertBlock" : L"AcDbBlockReference", [&](const resbuf& group) {
    const double real = group.resval.rreal;
    switch (int(group.restype)) {
      case 2:
        data_.block = entities::blockNamed(filer->database(), entities::textOf(group));
        break;
      case 66:
        data_.hasAttributes = group.resval.rint != 0;
        break;
      case 10:
        data_.position = entities::pointOf(group);
        break;
      case 41:
        data_.scale.sx = real;
        break;
      case 42:
        data_.scale.sy = real;
        break;
      case 43:
        data_.scale.sz = real;
        break;
      case 50:
        data_.rotation = real;
        break;
      case 210:
        data_.normal = entities::vectorOf(group);
        break;
      default:
        takeArrayGroup(group);
    }
  });
}

// --- Array
// ------------------------------------------------------------------------------------------------------------------

KR_DB_FILE_STRUCT(AcDbMInsertBlock, AcDbBlockReference, array_)

Acad::ErrorStatus AcDbMInsertBlock::dxfOutFields(AcDbDxfFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbBlockReference::dxfOutFields(filer); es != Acad::eOk) return es;
  if (array_.columns != 1) filer->writeItem(70, array_.columns);
  if (array_.rows != 1) filer->writeItem(71, array_.rows);
  if (array_.columnSpacing != 0.0) filer->writeItem(44, array_.columnSpacing);
  if (array_.rowSpacing != 0.0) filer->writeItem(45, array_.rowSpacing);
  return filer->filerStatus();
}

void AcDbMInsertBlock::takeArrayGroup(const resbuf& group) {
  if (group.restype == 70) array_.columns = group.resval.rint;
  if (group.restype == 71) array_.rows = group.resval.rint;
  if (group.restype == 44) array_.columnSpacing = group.resval.rreal;
  if (group.restype == 45) array_.rowSpacing = group.resval.rreal;
}

std::vector<AcGeMatrix3d> AcDbMInsertBlock::placements() const {
  const AcGeMatrix3d first = blockTransform();
  const AcGeVector3d x = entities::directionAt(rotation(), normal());
  const AcGeVector3d y = normal().crossProduct(x);
  // A file may tell of billions of cells; nobody sees them apart.
  constexpr int kMostCells = 10000;
  std::vector<AcGeMatrix3d> all;
  for (int row = 0; row < std::max<int>(array_.rows, 1); ++row) {
    for (int column = 0; column < std::max<int>(array_.columns, 1); ++column) {
      if (int(all.size()) == kMostCells) return all;
      all.push_back(AcGeMatrix3d::translation(x * (column * array_.columnSpacing) + y * (row * array_.rowSpacing)) *
                    first);
    }
  }
  return all;
}
