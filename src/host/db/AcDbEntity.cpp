#include "host/db/AcDbEntity.h"

#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbHostApplicationServices.h"
#include "host/db/AcDbObjectExtras.h"
#include "host/db/acdbOpen.h"
#include "host/db/dbtext.h"
#include "host/gi/AcGiSubEntityTraits.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbEntity, AcDbObject)

namespace {

AcDbDatabase* databaseOf(const AcDbEntity& entity) {
  AcDbDatabase* const own = entity.database();
  return own != nullptr ? own : acdbHostApplicationServices()->workingDatabase();
}

ACHAR* nameOf(AcDbObjectId record) {
  const AcDbObjectPointer<AcDbSymbolTableRecord> opened(record, AcDb::kForRead, true);
  ACHAR* name = nullptr;
  if (opened.openStatus() == Acad::eOk) opened->getName(name);
  return name;
}

Acad::ErrorStatus recordNamed(AcDbObjectId tableId, const ACHAR* name, AcDbObjectId& id) {
  const AcDbObjectPointer<AcDbSymbolTable> table(tableId, AcDb::kForRead);
  return table.openStatus() == Acad::eOk ? table->getAt(name, id) : table.openStatus();
}

}  // namespace

void AcDbEntity::takeDefaults(const AcDbDatabase& database) {
  if (layerId_.isNull()) layerId_ = database.layerZero();
  if (linetypeId_.isNull()) linetypeId_ = database.byLayerLinetype();
}

// --- Properties
// -------------------------------------------------------------------------------------------------------

AcDbObjectId AcDbEntity::layerId() const {
  assertReadEnabled();
  return layerId_;
}

ACHAR* AcDbEntity::layer() const {
  assertReadEnabled();
  return nameOf(layerId_);
}

Acad::ErrorStatus AcDbEntity::setLayer(const ACHAR* name, bool doSubents, bool allowHiddenLayer) {
  const AcDbDatabase* const database = databaseOf(*this);
  if (database == nullptr) return Acad::eNoDatabase;
  AcDbObjectId id;
  const Acad::ErrorStatus es = recordNamed(database->layerTableId(), name, id);
  return es == Acad::eOk ? setLayer(id, doSubents, allowHiddenLayer) : es;
}

Acad::ErrorStatus AcDbEntity::setLayer(AcDbObjectId id, bool doSubents, bool allowHiddenLayer) {
  if (!id.isResident() || AcDbLayerTableRecord::cast(id.stub()->object) == nullptr) return Acad::eInvalidLayer;
  if (database() != nullptr && id.database() != database()) return Acad::eWrongDatabase;
  assertWriteEnabled();
  return subSetLayer(id, doSubents, allowHiddenLayer);
}

Acad::ErrorStatus AcDbEntity::subSetLayer(AcDbObjectId id, bool, bool) {
  layerId_ = id;
  return Acad::eOk;
}

AcCmColor AcDbEntity::color() const {
  assertReadEnabled();
  AcCmColor color;
  color.setColor(color_);
  return color;
}

Acad::ErrorStatus AcDbEntity::setColor(const AcCmColor& color, bool doSubents) {
  assertWriteEnabled();
  return subSetColor(color, doSubents);
}

Acad::ErrorStatus AcDbEntity::setColorIndex(Adesk::UInt16 index, bool doSubents) {
  AcCmColor color;
  const Acad::ErrorStatus es = color.setColorIndex(index);
  return es == Acad::eOk ? setColor(color, doSubents) : es;
}

Acad::ErrorStatus AcDbEntity::subSetColor(const AcCmColor& color, bool) {
  color_ = color.color();
  return Acad::eOk;
}

AcDbObjectId AcDbEntity::linetypeId() const {
  assertReadEnabled();
  return linetypeId_;
}

ACHAR* AcDbEntity::linetype() const {
  assertReadEnabled();
  return nameOf(linetypeId_);
}

Acad::ErrorStatus AcDbEntity::setLinetype(const ACHAR* name, bool doSubents) {
  const AcDbDatabase* const database = databaseOf(*this);
  if (database == nullptr) return Acad::eNoDatabase;
  AcDbObjectId id;
  const Acad::ErrorStatus es = recordNamed(database->linetypeTableId(), name, id);
  return es == Acad::eOk ? setLinetype(id, doSubents) : es;
}

Acad::ErrorStatus AcDbEntity::setLinetype(AcDbObjectId id, bool doSubents) {
  if (!id.isResident() || AcDbLinetypeTableRecord::cast(id.stub()->object) == nullptr) return Acad::eInvalidLineType;
  if (database() != nullptr && id.database() != database()) return Acad::eWrongDatabase;
  assertWriteEnabled();
  return subSetLinetype(id, doSubents);
}

Acad::ErrorStatus AcDbEntity::subSetLinetype(AcDbObjectId id, bool) {
  linetypeId_ = id;
  form_ &= Adesk::UInt8(~(kFormMask << kLinetypeShift));
  return Acad::eOk;
}

double AcDbEntity::linetypeScale() const {
  assertReadEnabled();
  return linetypeScale_;
}

Acad::ErrorStatus AcDbEntity::setLinetypeScale(double scale, bool) {
  if (!(scale > 0)) return Acad::eInvalidInput;
  assertWriteEnabled();
  linetypeScale_ = scale;
  return Acad::eOk;
}

AcDb::LineWeight AcDbEntity::lineWeight() const {
  assertReadEnabled();
  return AcDb::LineWeight(lineWeight_);
}

Acad::ErrorStatus AcDbEntity::setLineWeight(AcDb::LineWeight weight, bool doSubents) {
  assertWriteEnabled();
  return subSetLineWeight(weight, doSubents);
}

Acad::ErrorStatus AcDbEntity::subSetLineWeight(AcDb::LineWeight weight, bool) {
  lineWeight_ = Adesk::Int16(weight);
  return Acad::eOk;
}

AcDb::Visibility AcDbEntity::visibility() const {
  assertReadEnabled();
  return (form_ & kInvisibleBit) != 0 ? AcDb::kInvisible : AcDb::kVisible;
}

Acad::ErrorStatus AcDbEntity::setVisibility(AcDb::Visibility visibility, bool doSubents) {
  assertWriteEnabled();
  return subSetVisibility(visibility, doSubents);
}

Acad::ErrorStatus AcDbEntity::subSetVisibility(AcDb::Visibility visibility, bool) {
  form_ = Adesk::UInt8(visibility == AcDb::kInvisible ? form_ | kInvisibleBit : form_ & ~kInvisibleBit);
  return Acad::eOk;
}

AcDbEntity::PlotStyleForm AcDbEntity::plotStyleNameType() const {
  assertReadEnabled();
  return PlotStyleForm(form_ >> kPlotStyleShift & kFormMask);
}

AcDbObjectId AcDbEntity::plotStyleNameId() const {
  assertReadEnabled();
  return extras_ != nullptr ? AcDbObjectId(extras_->plotStyle) : AcDbObjectId::kNull;
}

Acad::ErrorStatus AcDbEntity::setPlotStyleName(PlotStyleForm form, AcDbObjectId id) {
  if (form == kPlotStyleById && id.isNull()) return Acad::eInvalidInput;
  assertWriteEnabled();
  form_ = Adesk::UInt8((form_ & ~(kFormMask << kPlotStyleShift)) | form << kPlotStyleShift);
  if (form == kPlotStyleById || extras_ != nullptr) extras().plotStyle = form == kPlotStyleById ? id : AcDbObjectId();
  return Acad::eOk;
}

// --- Reading and writing files
// -----------------------------------------------------------------------------------------

AcDbEntity::Common AcDbEntity::common() const {
  Common all;
  all.layer = layerId_;
  all.linetype = linetypeId_;
  if (extras_ != nullptr) all.plotStyle = extras_->plotStyle;
  all.linetypeScale = linetypeScale_;
  all.color.setColor(color_);
  all.lineWeight = AcDb::LineWeight(lineWeight_);
  all.invisible = (form_ & kInvisibleBit) != 0;
  all.plotStyleForm = Adesk::UInt8(form_ >> kPlotStyleShift & kFormMask);
  all.linetypeForm = Adesk::UInt8(form_ >> kLinetypeShift & kFormMask);
  // Set by the program: the shortest form that tells it. As read, Continuous may stand in either.
  const AcDbDatabase* const own = database();
  if (own == nullptr || all.linetypeForm >= kLinetypeContinuous) return all;
  all.linetypeForm = linetypeId_.isNull() || linetypeId_ == own->byLayerLinetype() ? kLinetypeByLayer
                     : linetypeId_ == own->byBlockLinetype()                       ? kLinetypeByBlock
                                                                                   : kLinetypeById;
  return all;
}

void AcDbEntity::setCommonAsRead(const Common& common) {
  setCommonAsRead(common.layer.stub(), common.linetype.stub(), common.linetypeForm, common.linetypeScale, common.color,
                  common.lineWeight, common.invisible);
  form_ |= Adesk::UInt8(common.plotStyleForm << kPlotStyleShift);
  if (!common.plotStyle.isNull()) extras().plotStyle = common.plotStyle;
}

std::span<const std::byte> AcDbEntity::fileGraphics() const {
  if (extras_ == nullptr) return {};
  return extras_->fileGraphics;
}

void AcDbEntity::setFileGraphics(std::vector<std::byte> graphics) {
  if (!graphics.empty() || extras_ != nullptr) extras().fileGraphics = std::move(graphics);
}

Acad::ErrorStatus AcDbEntity::setPropertiesFrom(const AcDbEntity* source, bool doSubents) {
  if (source == nullptr) return Acad::eNullEntityPointer;
  source->assertReadEnabled();
  assertWriteEnabled();
  if (!source->layerId_.isNull()) subSetLayer(source->layerId_, doSubents, true);
  if (!source->linetypeId_.isNull()) subSetLinetype(source->linetypeId_, doSubents);
  subSetColor(source->color(), doSubents);
  subSetLineWeight(source->lineWeight(), doSubents);
  subSetVisibility(source->visibility(), doSubents);
  linetypeScale_ = source->linetypeScale_;
  return Acad::eOk;
}

void AcDbEntity::setDatabaseDefaults(AcDbDatabase* database) {
  assertWriteEnabled();
  if (database == nullptr) database = databaseOf(*this);
  if (database != nullptr) subSetDatabaseDefaults(database);
}

void AcDbEntity::subSetDatabaseDefaults(AcDbDatabase* database) {
  layerId_ = database->clayer();
  linetypeId_ = database->celtype();
  linetypeScale_ = database->celtscale();
  color_ = database->cecolor().color();
  lineWeight_ = Adesk::Int16(database->celweight());
}

Acad::ErrorStatus AcDbEntity::getPlane(AcGePlane&, AcDb::Planarity& type) const {
  type = AcDb::kNonPlanar;
  return Acad::eNotApplicable;
}

void AcDbEntity::getEcs(AcGeMatrix3d& ecs) const {
  ecs.setToIdentity();
}

// --- What classes override
// --------------------------------------------------------------------------------------------

Acad::ErrorStatus AcDbEntity::transformBy(const AcGeMatrix3d& xform) {
  assertWriteEnabled();
  return subTransformBy(xform);
}

Acad::ErrorStatus AcDbEntity::getTransformedCopy(const AcGeMatrix3d& xform, AcDbEntity*& copy) const {
  assertReadEnabled();
  return subGetTransformedCopy(xform, copy);
}

Acad::ErrorStatus AcDbEntity::getGeomExtents(AcDbExtents& extents) const {
  assertReadEnabled();
  return subGetGeomExtents(extents);
}

Acad::ErrorStatus AcDbEntity::explode(AcDbVoidPtrArray& entities) const {
  assertReadEnabled();
  return subExplode(entities);
}

Acad::ErrorStatus AcDbEntity::intersectWith(const AcDbEntity* other, AcDb::Intersect type, AcGePoint3dArray& points,
                                            Adesk::GsMarker thisMarker, Adesk::GsMarker otherMarker) const {
  assertReadEnabled();
  if (other == nullptr) return Acad::eNullEntityPointer;
  other->assertReadEnabled();
  return subIntersectWith(other, type, points, thisMarker, otherMarker);
}

Acad::ErrorStatus AcDbEntity::intersectWith(const AcDbEntity* other, AcDb::Intersect type, const AcGePlane& projection,
                                            AcGePoint3dArray& points, Adesk::GsMarker thisMarker,
                                            Adesk::GsMarker otherMarker) const {
  assertReadEnabled();
  if (other == nullptr) return Acad::eNullEntityPointer;
  other->assertReadEnabled();
  return subIntersectWith(other, type, projection, points, thisMarker, otherMarker);
}

Acad::ErrorStatus AcDbEntity::boundingBoxIntersectWith(const AcDbEntity*, AcDb::Intersect, AcGePoint3dArray&,
                                                       Adesk::GsMarker, Adesk::GsMarker) const {
  return Acad::eNotImplementedYet;
}

void AcDbEntity::list() const {
  assertReadEnabled();
  subList();
}

Acad::ErrorStatus AcDbEntity::getOsnapPoints(AcDb::OsnapMode mode, Adesk::GsMarker marker, const AcGePoint3d& pickPoint,
                                             const AcGePoint3d& lastPoint, const AcGeMatrix3d& viewXform,
                                             AcGePoint3dArray& snapPoints, AcDbIntArray& geomIds) const {
  assertReadEnabled();
  return subGetOsnapPoints(mode, marker, pickPoint, lastPoint, viewXform, snapPoints, geomIds);
}

Acad::ErrorStatus AcDbEntity::getGripPoints(AcGePoint3dArray& points, AcDbIntArray& osnapModes,
                                            AcDbIntArray& geomIds) const {
  assertReadEnabled();
  return subGetGripPoints(points, osnapModes, geomIds);
}

Acad::ErrorStatus AcDbEntity::moveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) {
  assertWriteEnabled();
  return subMoveGripPointsAt(indices, offset);
}

Acad::ErrorStatus AcDbEntity::getStretchPoints(AcGePoint3dArray& points) const {
  assertReadEnabled();
  return subGetStretchPoints(points);
}

Acad::ErrorStatus AcDbEntity::moveStretchPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) {
  assertWriteEnabled();
  return subMoveStretchPointsAt(indices, offset);
}

Acad::ErrorStatus AcDbEntity::getSubentPathsAtGsMarker(AcDb::SubentType type, Adesk::GsMarker marker,
                                                       const AcGePoint3d& pickPoint, const AcGeMatrix3d& viewXform,
                                                       int& numPaths, AcDbFullSubentPath*& paths, int numInserts,
                                                       AcDbObjectId* entAndInsertStack) const {
  assertReadEnabled();
  return subGetSubentPathsAtGsMarker(type, marker, pickPoint, viewXform, numPaths, paths, numInserts,
                                     entAndInsertStack);
}

Acad::ErrorStatus AcDbEntity::getGsMarkersAtSubentPath(const AcDbFullSubentPath& path,
                                                       AcArray<Adesk::GsMarker>& markers) const {
  assertReadEnabled();
  return subGetGsMarkersAtSubentPath(path, markers);
}

AcDbEntity* AcDbEntity::subentPtr(const AcDbFullSubentPath& path) const {
  assertReadEnabled();
  return subSubentPtr(path);
}

Acad::ErrorStatus AcDbEntity::highlight(const AcDbFullSubentPath& path, bool highlightAll) const {
  assertReadEnabled();
  return subHighlight(path, highlightAll);
}

Acad::ErrorStatus AcDbEntity::unhighlight(const AcDbFullSubentPath& path, bool highlightAll) const {
  assertReadEnabled();
  return subUnhighlight(path, highlightAll);
}

bool AcDbEntity::isHighlighted() const {
  return extras_ != nullptr && !extras_->highlighted.isEmpty();
}

AcDbFullSubentPathArray AcDbEntity::highlightedPaths() const {
  return extras_ != nullptr ? extras_->highlighted : AcDbFullSubentPathArray();
}

namespace {

// A part is known by its kind and number; the ids say only through which containers it was reached.
bool isWhole(const AcDbFullSubentPath& path) {
  return path.subentId().type() == AcDb::kNullSubentType;
}

int indexOfPart(const AcDbFullSubentPathArray& paths, const AcDbFullSubentPath& path) {
  for (int i = 0; i < paths.length(); ++i) {
    if (paths[i].subentId() == path.subentId()) return i;
  }
  return -1;
}

}  // namespace

Acad::ErrorStatus AcDbEntity::subHighlight(const AcDbFullSubentPath& path, bool) const {
  AcDbFullSubentPathArray& highlighted = extras().highlighted;
  if (indexOfPart(highlighted, path) < 0) highlighted.append(path);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::subUnhighlight(const AcDbFullSubentPath& path, bool) const {
  if (extras_ == nullptr) return Acad::eOk;
  if (isWhole(path)) {
    extras_->highlighted.removeAll();
  } else if (const int i = indexOfPart(extras_->highlighted, path); i >= 0) {
    extras_->highlighted.removeAt(i);
  }
  return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::draw() {
  recordGraphicsModified();
  return Acad::eOk;
}

Adesk::UInt32 AcDbEntity::subSetAttributes(AcGiDrawableTraits* traits) {
  assertReadEnabled();
  traits->setTrueColor(color());
  if (!layerId_.isNull()) traits->setLayer(layerId_);
  if (!linetypeId_.isNull()) traits->setLineType(linetypeId_);
  traits->setLineTypeScale(linetypeScale_);
  traits->setLineWeight(AcDb::LineWeight(lineWeight_));
  return kDrawableIsAnEntity | ((form_ & kInvisibleBit) != 0 ? Adesk::UInt32(kDrawableIsInvisible) : 0U);
}

Adesk::Boolean AcDbEntity::subWorldDraw(AcGiWorldDraw*) {
  assertReadEnabled();
  return Adesk::kTrue;
}

void AcDbEntity::subViewportDraw(AcGiViewportDraw*) {
  assertReadEnabled();
}

void AcDbEntity::saveAs(AcGiWorldDraw* draw, AcDb::SaveType) {
  assertReadEnabled();
  if (draw != nullptr) worldDraw(draw);
}

Acad::ErrorStatus AcDbEntity::subTransformBy(const AcGeMatrix3d&) {
  return Acad::eNotImplementedYet;
}

Acad::ErrorStatus AcDbEntity::subGetTransformedCopy(const AcGeMatrix3d& xform, AcDbEntity*& copy) const {
  copy = nullptr;
  AcRxObject* const made = clone();
  AcDbEntity* const entity = AcDbEntity::cast(made);
  if (entity == nullptr) {
    delete made;
    return Acad::eNotApplicable;
  }
  if (const Acad::ErrorStatus es = entity->transformBy(xform); es != Acad::eOk) {
    delete entity;
    return es;
  }
  copy = entity;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::subGetGeomExtents(AcDbExtents&) const {
  return Acad::eNotImplementedYet;
}
Acad::ErrorStatus AcDbEntity::subExplode(AcDbVoidPtrArray&) const {
  return Acad::eNotImplementedYet;
}
Acad::ErrorStatus AcDbEntity::subIntersectWith(const AcDbEntity*, AcDb::Intersect, AcGePoint3dArray&, Adesk::GsMarker,
                                               Adesk::GsMarker) const {
  return Acad::eNotImplementedYet;
}
Acad::ErrorStatus AcDbEntity::subIntersectWith(const AcDbEntity*, AcDb::Intersect, const AcGePlane&, AcGePoint3dArray&,
                                               Adesk::GsMarker, Adesk::GsMarker) const {
  return Acad::eNotImplementedYet;
}

void AcDbEntity::subList() const {
  const AcRxClass* const own = isA();
  ACHAR handle[AcDbHandle::kStrSize];
  objectId().handle().getIntoAsciiBuffer(handle);
  ACHAR* layerName = layer();
  std::wstring text(L"\n");
  text.append(own != nullptr ? own->name() : L"AcDbEntity").append(L"  Layer: \"");
  text.append(dbtext::orEmpty(layerName)).append(L"\"\n    Handle = ").append(handle).append(L"\n");
  acutDelString(layerName);
  acdbHostApplicationServices()->displayString(text.c_str(), int(text.size()));
}

Acad::ErrorStatus AcDbEntity::subGetOsnapPoints(AcDb::OsnapMode, Adesk::GsMarker, const AcGePoint3d&,
                                                const AcGePoint3d&, const AcGeMatrix3d&, AcGePoint3dArray&,
                                                AcDbIntArray&) const {
  return Acad::eNotImplementedYet;
}
Acad::ErrorStatus AcDbEntity::subGetGripPoints(AcGePoint3dArray&, AcDbIntArray&, AcDbIntArray&) const {
  return Acad::eNotImplementedYet;
}
Acad::ErrorStatus AcDbEntity::subMoveGripPointsAt(const AcDbIntArray&, const AcGeVector3d&) {
  return Acad::eNotImplementedYet;
}
Acad::ErrorStatus AcDbEntity::subGetStretchPoints(AcGePoint3dArray&) const {
  return Acad::eNotImplementedYet;
}
Acad::ErrorStatus AcDbEntity::subMoveStretchPointsAt(const AcDbIntArray&, const AcGeVector3d&) {
  return Acad::eNotImplementedYet;
}
void AcDbEntity::subGripStatus(AcDb::GripStat) {}
Acad::ErrorStatus AcDbEntity::subGetSubentPathsAtGsMarker(AcDb::SubentType, Adesk::GsMarker, const AcGePoint3d&,
                                                          const AcGeMatrix3d&, int& numPaths,
                                                          AcDbFullSubentPath*& paths, int, AcDbObjectId*) const {
  numPaths = 0;
  paths = nullptr;
  return Acad::eNotImplementedYet;
}
Acad::ErrorStatus AcDbEntity::subGetGsMarkersAtSubentPath(const AcDbFullSubentPath&, AcArray<Adesk::GsMarker>&) const {
  return Acad::eNotImplementedYet;
}
AcDbEntity* AcDbEntity::subSubentPtr(const AcDbFullSubentPath&) const {
  return nullptr;
}
Acad::ErrorStatus AcDbEntity::applyPartialUndo(AcDbDwgFiler* filer, AcRxClass* aClass) {
  return AcDbObject::applyPartialUndo(filer, aClass);
}
Acad::ErrorStatus AcDbEntity::subClose() {
  return Acad::eOk;
}
