#include "host/db/AcDbDatabase.h"

#include <algorithm>

#include "host/db/AcDbAuditInfo.h"
#include "host/db/AcDbCloner.h"
#include "host/db/AcDbHostApplicationServices.h"
#include "host/db/AcDbNotifier.h"
#include "host/db/HandleLimit.h"
#include "host/db/acdbOpen.h"
#include "host/db/entities/entities.h"

ACRX_CONS_DEFINE_MEMBERS(AcDbDatabase, AcRxObject, 0)

AcDbDatabase::AcDbDatabase(bool buildDefault, bool) : undo_(*this) {
  if (buildDefault) buildDefaultDrawing();
}

AcDbDatabase::~AcDbDatabase() {
  AcDbNotifier::tellDatabase(*this, [&](auto* reactor) { reactor->goodbye(this); });
  AcDbHostApplicationServices* const services = acdbHostApplicationServices();
  if (services->workingDatabase() == this) services->setWorkingDatabase(nullptr);
  undo_.clear();
  for (AcDbStub& stub : handles_.stubs()) delete stub.object;
}

// --- Objects
// ----------------------------------------------------------------------------------------------------------

AcDbStub* AcDbDatabase::adopt(AcDbObject* object, AcDbStub* stub, AcDbStub* owner) {
  stub->object = object;
  stub->database = this;
  stub->owner = owner;
  stub->flags = AcDbStub::kOpenForWrite | AcDbStub::kNewObject | AcDbStub::kModified | AcDbStub::kModifiedGraphics |
                AcDbStub::kUndoTaken | AcDbStub::kAnnounced;
  object->stub_ = stub;
  const bool isEntity = object->hasTrait(AcDbObject::kIsEntity);
  if (isEntity) static_cast<AcDbEntity*>(object)->takeDefaults(*this);
  if (owner != nullptr && owner->object != nullptr) {
    if (isEntity) {
      listEntity(stub);
    } else if (auto* const record = AcDbSymbolTableRecord::cast(object)) {
      if (auto* const table = AcDbSymbolTable::cast(owner->object)) table->adopted(*record);
    }
  }
  if (undoRecording()) undo_.recordAppend(stub);
  AcDbNotifier::appended(*object);
  if (object->hasTrait(AcDbObject::kOwnsParts)) {
    static_cast<AcDbEntity*>(object)->subentities()->ownerAdopted(*static_cast<AcDbEntity*>(object));
  }
  return stub;
}

void AcDbDatabase::listEntity(AcDbStub* stub) {
  AcDbObject* const owner = stub->owner->object;
  if (owner->hasTrait(AcDbObject::kOwnsParts)) {
    static_cast<AcDbEntity*>(owner)->subentities()->adopted(stub);
    return;
  }
  auto* const block = AcDbBlockTableRecord::cast(owner);
  if (block == nullptr) return;
  // What opens and closes a block isn't one of its entities.
  if (AcDbBlockBegin::cast(stub->object) != nullptr) {
    block->begin_ = AcDbObjectId(stub);
  } else if (AcDbBlockEnd::cast(stub->object) != nullptr) {
    block->end_ = AcDbObjectId(stub);
  } else {
    block->entities_.push_back(stub);
  }
}

Acad::ErrorStatus AcDbDatabase::addAcDbObject(AcDbObject* object) {
  AcDbObjectId id;
  return addAcDbObject(id, object);
}

Acad::ErrorStatus AcDbDatabase::addAcDbObject(AcDbObjectId& id, AcDbObject* object) {
  return addAcDbObject(id, object, object != nullptr ? object->ownerId() : AcDbObjectId::kNull, AcDbHandle());
}

Acad::ErrorStatus AcDbDatabase::addAcDbObject(AcDbObjectId& id, AcDbObject* object, AcDbObjectId owner,
                                              AcDbHandle handle) {
  id.setNull();
  if (object == nullptr) return Acad::eNullObjectPointer;
  if (object->isPersistent()) return Acad::eAlreadyInDb;
  if (!owner.isNull() && owner.database() != this) return Acad::eWrongDatabase;
  if (handle.isNull()) handle = AcDbHandle(nextHandle(*this));
  if (!isPossibleHandle(handle.value())) return Acad::eInvalidInput;
  AcDbStub* stub = handles_.find(handle.value());
  if (stub != nullptr && stub->object != nullptr) return Acad::eHandleExists;
  if (stub == nullptr) stub = handles_.add(handle.value());
  if (handle.value() >= handseed_) handseed_ = handle.value() + 1;
  id = adopt(object, stub, owner.stub());
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::getAcDbObjectId(AcDbObjectId& id, bool createIfNotFound, const AcDbHandle& handle,
                                                Adesk::UInt32) {
  id.setNull();
  if (handle.isNull()) return Acad::eNullHandle;
  AcDbStub* stub = handles_.find(handle.value());
  if (stub == nullptr && createIfNotFound && isPossibleHandle(handle.value())) {
    stub = handles_.add(handle.value());
    stub->database = this;
    if (handle.value() >= handseed_) handseed_ = handle.value() + 1;
  }
  if (stub == nullptr) return Acad::eUnknownHandle;
  id = stub;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::setHandseed(const AcDbHandle& handle) {
  if (handle.value() < handseed_ || handle.value() > kMaxHandle + 1) return Acad::eInvalidInput;
  handseed_ = handle.value();
  return Acad::eOk;
}

void AcDbDatabase::setHandseedAsRead(Adesk::UInt64 seed) {
  // The stubs count, with or without object: a file may name handles of objects that it doesn't have.
  if (seed > handseed_) handseed_ = std::min(seed, kMaxHandle + 1);
}

int AcDbDatabase::numOpenObjects() const {
  const auto& stubs = handles_.stubs();
  return int(std::count_if(stubs.begin(), stubs.end(), [](const AcDbStub& stub) {
    return stub.has(AcDbStub::kOpenForWrite | AcDbStub::kOpenForNotify) || stub.readers != 0;
  }));
}

// --- Tables
// -----------------------------------------------------------------------------------------------------------

Acad::ErrorStatus AcDbDatabase::getBlockTable(AcDbBlockTable*& table, AcDb::OpenMode mode) {
  return acdbOpenObject(table, roots_.blockTable, mode);
}
Acad::ErrorStatus AcDbDatabase::getLayerTable(AcDbLayerTable*& table, AcDb::OpenMode mode) {
  return acdbOpenObject(table, roots_.layerTable, mode);
}
Acad::ErrorStatus AcDbDatabase::getLinetypeTable(AcDbLinetypeTable*& table, AcDb::OpenMode mode) {
  return acdbOpenObject(table, roots_.linetypeTable, mode);
}
Acad::ErrorStatus AcDbDatabase::getTextStyleTable(AcDbTextStyleTable*& table, AcDb::OpenMode mode) {
  return acdbOpenObject(table, roots_.textStyleTable, mode);
}
Acad::ErrorStatus AcDbDatabase::getDimStyleTable(AcDbDimStyleTable*& table, AcDb::OpenMode mode) {
  return acdbOpenObject(table, roots_.dimStyleTable, mode);
}
Acad::ErrorStatus AcDbDatabase::getRegAppTable(AcDbRegAppTable*& table, AcDb::OpenMode mode) {
  return acdbOpenObject(table, roots_.regAppTable, mode);
}
Acad::ErrorStatus AcDbDatabase::getViewTable(AcDbViewTable*& table, AcDb::OpenMode mode) {
  return acdbOpenObject(table, roots_.viewTable, mode);
}
Acad::ErrorStatus AcDbDatabase::getViewportTable(AcDbViewportTable*& table, AcDb::OpenMode mode) {
  return acdbOpenObject(table, roots_.viewportTable, mode);
}
Acad::ErrorStatus AcDbDatabase::getUCSTable(AcDbUCSTable*& table, AcDb::OpenMode mode) {
  return acdbOpenObject(table, roots_.ucsTable, mode);
}
Acad::ErrorStatus AcDbDatabase::getNamedObjectsDictionary(AcDbDictionary*& dictionary, AcDb::OpenMode mode) {
  return acdbOpenObject(dictionary, roots_.namedObjects, mode);
}

// --- Header
// -----------------------------------------------------------------------------------------------------------

void AcDbDatabase::willChange(const ACHAR* name) {
  AcDbNotifier::tellDatabase(*this, [&](auto* reactor) { reactor->headerSysVarWillChange(this, name); });
}

void AcDbDatabase::changed(const ACHAR* name) {
  AcDbNotifier::tellDatabase(*this, [&](auto* reactor) { reactor->headerSysVarChanged(this, name, true); });
}

Acad::ErrorStatus AcDbDatabase::setReal(AcDbHeader::Index index, const ACHAR* name, double value) {
  willChange(name);
  header_.setReal(index, value);
  changed(name);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::setInt(AcDbHeader::Index index, const ACHAR* name, int value) {
  willChange(name);
  header_.setWhole(index, value);
  changed(name);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::setHeaderId(AcDbHeader::Index index, const ACHAR* name, AcDbObjectId id,
                                            const AcRxClass* kind) {
  if (id.database() != this || !id.isResident() || !id.stub()->object->isKindOf(kind)) return Acad::eInvalidInput;
  willChange(name);
  header_.setId(index, id);
  changed(name);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::setClayer(AcDbObjectId id) {
  if (id.database() == this && id.isResident()) {
    const AcDbObjectPointer<AcDbLayerTableRecord> layer(id, AcDb::kForRead);
    if (layer.openStatus() == Acad::eOk && layer->isFrozen()) return Acad::eInvalidLayer;
  }
  return setHeaderId(AcDbHeader::kCLAYER, L"CLAYER", id, AcDbLayerTableRecord::desc());
}
Acad::ErrorStatus AcDbDatabase::setCeltype(AcDbObjectId id) {
  return setHeaderId(AcDbHeader::kCELTYPE, L"CELTYPE", id, AcDbLinetypeTableRecord::desc());
}
Acad::ErrorStatus AcDbDatabase::setTextstyle(AcDbObjectId id) {
  return setHeaderId(AcDbHeader::kTEXTSTYLE, L"TEXTSTYLE", id, AcDbTextStyleTableRecord::desc());
}
Acad::ErrorStatus AcDbDatabase::setDimstyle(AcDbObjectId id) {
  const Acad::ErrorStatus es = setHeaderId(AcDbHeader::kDIMSTYLE, L"DIMSTYLE", id, AcDbDimStyleTableRecord::desc());
  if (es == Acad::eOk) dimscaleApart_ = false;
  return es;
}

Acad::ErrorStatus AcDbDatabase::setCecolor(const AcCmColor& color) {
  willChange(L"CECOLOR");
  header_.setWhole(AcDbHeader::kCECOLOR, color.colorIndex());
  changed(L"CECOLOR");
  return Acad::eOk;
}

AcCmColor AcDbDatabase::cecolor() const {
  AcCmColor color;
  color.setColorIndex(header_.whole(AcDbHeader::kCECOLOR));
  return color;
}

double AcDbDatabase::dimscale() const {
  const double own = header_.real(AcDbHeader::kDIMSCALE);
  if (dimscaleApart_ || !dimstyle().isResident()) return own > 0 ? own : 1.0;
  const AcDbObjectPointer<AcDbDimStyleTableRecord> style(dimstyle(), AcDb::kForRead);
  return style.openStatus() == Acad::eOk ? style->dimscale() : 1.0;
}

Acad::ErrorStatus AcDbDatabase::setDimscale(double scale) {
  if (!(scale > 0)) return Acad::eInvalidInput;
  willChange(L"DIMSCALE");
  header_.setReal(AcDbHeader::kDIMSCALE, scale);
  dimscaleApart_ = true;
  changed(L"DIMSCALE");
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::updateExt() {
  AcDbExtents extents;
  const AcDbObjectPointer<AcDbBlockTableRecord> space(roots_.modelSpace, AcDb::kForRead);
  if (space.openStatus() != Acad::eOk) return space.openStatus();
  for (AcDbStub* const stub : space->entities()) {
    AcDbEntity* entity = nullptr;
    if (acdbOpenAcDbEntity(entity, stub, AcDb::kForRead) != Acad::eOk) continue;
    AcDbExtents box;
    if (entity->getGeomExtents(box) == Acad::eOk) extents.addExt(box);
    entity->close();
  }
  header_.setPoint(AcDbHeader::kEXTMIN, extents.minPoint());
  header_.setPoint(AcDbHeader::kEXTMAX, extents.maxPoint());
  return extents.isEmpty() ? Acad::eNullExtents : Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::setLimmin(const AcGePoint2d& point) {
  willChange(L"LIMMIN");
  header_.setPoint(AcDbHeader::kLIMMIN, {point.x, point.y, 0.0});
  changed(L"LIMMIN");
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::setLimmax(const AcGePoint2d& point) {
  willChange(L"LIMMAX");
  header_.setPoint(AcDbHeader::kLIMMAX, {point.x, point.y, 0.0});
  changed(L"LIMMAX");
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::setUcs(const AcGePoint3d& origin, const AcGeVector3d& xDir, const AcGeVector3d& yDir) {
  if (xDir.isZeroLength() || yDir.isZeroLength() || xDir.isParallelTo(yDir)) return Acad::eInvalidInput;
  willChange(L"UCSORG");
  header_.setPoint(AcDbHeader::kUCSORG, origin);
  header_.setPoint(AcDbHeader::kUCSXDIR, xDir.normal().asPoint());
  header_.setPoint(AcDbHeader::kUCSYDIR, yDir.normal().asPoint());
  changed(L"UCSORG");
  return Acad::eOk;
}

// --- Reactors
// ---------------------------------------------------------------------------------------------------------

Acad::ErrorStatus AcDbDatabase::addReactor(AcDbDatabaseReactor* reactor) {
  if (reactor == nullptr) return Acad::eNullObjectPointer;
  if (std::find(reactors_.begin(), reactors_.end(), reactor) != reactors_.end()) return Acad::eDuplicateKey;
  reactors_.push_back(reactor);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::removeReactor(AcDbDatabaseReactor* reactor) {
  const auto found = std::find(reactors_.begin(), reactors_.end(), reactor);
  if (found == reactors_.end()) return Acad::eKeyNotFound;
  reactors_.erase(found);
  return Acad::eOk;
}

// --- Cloning
// ----------------------------------------------------------------------------------------------------------

Acad::ErrorStatus AcDbDatabase::deepCloneObjects(const AcDbObjectIdArray& ids, AcDbObjectId owner, AcDbIdMapping& idMap,
                                                 bool deferXlation) {
  if (!owner.isNull() && owner.database() != this) return Acad::eWrongDatabase;
  for (const AcDbObjectId id : ids) {
    if (!id.isNull() && id.database() != this) return Acad::eWrongDatabase;
  }
  idMap.setDestDb(this);
  idMap.setOrigDb(this);
  AcDbCloner cloner(idMap);
  const Acad::ErrorStatus es = cloner.deepClone(ids, owner);
  if (es != Acad::eOk) {
    cloner.undoClones();
    return es;
  }
  if (!deferXlation) cloner.translate(AcDb::kDeepCloneFiler);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::wblockCloneObjects(const AcDbObjectIdArray& ids, AcDbObjectId owner,
                                                   AcDbIdMapping& idMap, AcDb::DuplicateRecordCloning drc,
                                                   bool deferXlation) {
  if (!owner.isNull() && owner.database() != this) return Acad::eWrongDatabase;
  idMap.setDestDb(this);
  if (ids.length() > 0) idMap.setOrigDb(ids[0].database());
  idMap.setDeepCloneContext(AcDb::kDcWblock);
  idMap.setDuplicateRecordCloning(drc);
  AcDbCloner cloner(idMap);
  const Acad::ErrorStatus es = cloner.wblockClone(ids, owner);
  if (es != Acad::eOk) {
    cloner.undoClones();
    return es;
  }
  if (!deferXlation) cloner.translate(AcDb::kWblockCloneFiler);
  return Acad::eOk;
}

namespace {

AcDbObjectIdArray entitiesOf(AcDbObjectId blockId) {
  AcDbObjectIdArray ids;
  const AcDbObjectPointer<AcDbBlockTableRecord> block(blockId, AcDb::kForRead);
  if (block.openStatus() != Acad::eOk) return ids;
  for (AcDbStub* const entity : block->entities()) {
    if (!entity->has(AcDbStub::kErased)) ids.append(entity);
  }
  return ids;
}

Acad::ErrorStatus transformClones(const AcDbIdMapping& idMap, const AcGeMatrix3d& xform) {
  for (AcDbIdMappingIter pairs(idMap); !pairs.done(); pairs.next()) {
    AcDbIdPair pair;
    pairs.getMap(pair);
    if (!pair.isCloned() || !pair.isPrimary()) continue;
    const AcDbObjectPointer<AcDbEntity> entity(pair.value(), AcDb::kForWrite);
    if (entity.openStatus() != Acad::eOk) continue;
    if (const Acad::ErrorStatus es = entity->transformBy(xform); es != Acad::eOk) return es;
  }
  return Acad::eOk;
}

}  // namespace

Acad::ErrorStatus AcDbDatabase::insert(AcDbObjectId& blockId, const ACHAR* name, AcDbDatabase* source) {
  if (source == nullptr) return Acad::eNoDatabase;
  AcDbObjectPointer<AcDbBlockTable> table(roots_.blockTable, AcDb::kForWrite);
  if (table.openStatus() != Acad::eOk) return table.openStatus();
  auto* const block = new AcDbBlockTableRecord;
  Acad::ErrorStatus es = block->setName(name);
  if (es == Acad::eOk) es = table->add(blockId, block);
  if (es != Acad::eOk) {
    delete block;
    return es;
  }
  block->close();
  table.close();
  AcDbIdMapping idMap;
  return wblockCloneObjects(entitiesOf(source->modelSpaceId()), blockId, idMap, AcDb::kDrcIgnore);
}

Acad::ErrorStatus AcDbDatabase::insert(const AcGeMatrix3d& xform, AcDbDatabase* source) {
  if (source == nullptr) return Acad::eNoDatabase;
  AcDbIdMapping idMap;
  const Acad::ErrorStatus es =
      wblockCloneObjects(entitiesOf(source->modelSpaceId()), roots_.modelSpace, idMap, AcDb::kDrcIgnore);
  return es != Acad::eOk ? es : transformClones(idMap, xform);
}

Acad::ErrorStatus AcDbDatabase::wblock(AcDbDatabase*& result, const AcDbObjectIdArray& ids,
                                       const AcGePoint3d& basePoint) {
  result = nullptr;
  auto made = std::make_unique<AcDbDatabase>();
  AcDbIdMapping idMap;
  Acad::ErrorStatus es = made->wblockCloneObjects(ids, made->modelSpaceId(), idMap, AcDb::kDrcIgnore);
  if (es == Acad::eOk) es = transformClones(idMap, AcGeMatrix3d::translation(AcGePoint3d::kOrigin - basePoint));
  if (es == Acad::eOk) result = made.release();
  return es;
}

// --- Undo
// -------------------------------------------------------------------------------------------------------------

void AcDbDatabase::startUndoRecord() {
  undoStarted_ = true;
  undo_.mark();
}

void AcDbDatabase::setUndoMark() {
  startUndoRecord();
  undoMarks_.push_back(undo_.numUndoGroups());
}

Acad::ErrorStatus AcDbDatabase::undoToMark() {
  if (undoMarks_.empty()) return Acad::eUndoOperationNotAvailable;
  const int mark = undoMarks_.back();
  undoMarks_.pop_back();
  while (undo_.numUndoGroups() > mark) {
    if (const Acad::ErrorStatus es = undo(); es != Acad::eOk) return es;
  }
  return Acad::eOk;
}

// --- Audit
// ------------------------------------------------------------------------------------------------------------

Acad::ErrorStatus AcDbDatabase::auditAll(AcDbAuditInfo& info) {
  std::vector<AcDbStub*> all;
  for (AcDbStub& stub : handles_.stubs()) all.push_back(&stub);
  for (AcDbStub* const stub : all) {
    if (stub->object == nullptr || stub->has(AcDbStub::kErased)) continue;
    AcDbObject* object = nullptr;
    const AcDb::OpenMode mode = info.fixErrors() ? AcDb::kForWrite : AcDb::kForRead;
    Acad::ErrorStatus es = acdbOpenObject(object, stub, mode);
    // An object that can't be mended can still be looked at.
    const bool readOnly = es == Acad::eOnLockedLayer;
    if (readOnly) es = acdbOpenObject(object, stub, AcDb::kForRead);
    if (es != Acad::eOk) return es;
    info.setFixErrors(info.fixErrors() && !readOnly);
    object->audit(&info);
    info.setFixErrors(mode == AcDb::kForWrite);
    object->close();
  }
  return Acad::eOk;
}
