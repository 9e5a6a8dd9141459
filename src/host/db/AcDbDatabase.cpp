#include "host/db/AcDbDatabase.h"

#include <algorithm>

#include "host/db/AcDbAuditInfo.h"
#include "host/db/AcDbCloner.h"
#include "host/db/AcDbHostApplicationServices.h"
#include "host/db/AcDbNotifier.h"
#include "host/db/acdbOpen.h"

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
      if (auto* const block = AcDbBlockTableRecord::cast(owner->object)) block->entities_.push_back(stub);
    } else if (auto* const record = AcDbSymbolTableRecord::cast(object)) {
      if (auto* const table = AcDbSymbolTable::cast(owner->object)) table->adopted(*record);
    }
  }
  if (undoRecording()) undo_.recordAppend(stub);
  AcDbNotifier::appended(*object);
  return stub;
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
  AcDbStub* stub = handle.isNull() ? nullptr : handles_.find(handle.value());
  if (stub != nullptr && stub->object != nullptr) return Acad::eHandleExists;
  if (handle.isNull()) handle = AcDbHandle(handseed_);
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
  if (stub == nullptr && createIfNotFound) {
    stub = handles_.add(handle.value());
    stub->database = this;
    if (handle.value() >= handseed_) handseed_ = handle.value() + 1;
  }
  if (stub == nullptr) return Acad::eUnknownHandle;
  id = stub;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::setHandseed(const AcDbHandle& handle) {
  if (handle.value() < handseed_) return Acad::eInvalidInput;
  handseed_ = handle.value();
  return Acad::eOk;
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

namespace {

/// Puts the objects that every drawing has into a new database.
class DefaultDrawing {
 public:
  explicit DefaultDrawing(AcDbDatabase& database) : database_(database) {}

  AcDbObjectId add(AcDbObject* object) {
    AcDbObjectId id;
    database_.addAcDbObject(id, object);
    object->close();
    return id;
  }

  template <class R>
  AcDbObjectId addRecord(AcDbObjectId table, const ACHAR* name) {
    auto* const record = new R;
    record->setName(name);
    AcDbObjectId id;
    database_.addAcDbObject(id, record, table, AcDbHandle());
    record->close();
    return id;
  }

 private:
  AcDbDatabase& database_;
};

}  // namespace

void AcDbDatabase::buildDefaultDrawing() {
  DefaultDrawing make(*this);
  Roots r;
  r.blockTable = make.add(new AcDbBlockTable);
  r.layerTable = make.add(new AcDbLayerTable);
  r.textStyleTable = make.add(new AcDbTextStyleTable);
  r.linetypeTable = make.add(new AcDbLinetypeTable);
  r.viewTable = make.add(new AcDbViewTable);
  r.ucsTable = make.add(new AcDbUCSTable);
  r.viewportTable = make.add(new AcDbViewportTable);
  r.regAppTable = make.add(new AcDbRegAppTable);
  r.dimStyleTable = make.add(new AcDbDimStyleTable);
  r.namedObjects = make.add(new AcDbDictionary);
  r.byBlock = make.addRecord<AcDbLinetypeTableRecord>(r.linetypeTable, L"ByBlock");
  r.byLayer = make.addRecord<AcDbLinetypeTableRecord>(r.linetypeTable, L"ByLayer");
  r.continuous = make.addRecord<AcDbLinetypeTableRecord>(r.linetypeTable, L"Continuous");
  roots_ = r;
  r.layerZero = make.addRecord<AcDbLayerTableRecord>(r.layerTable, L"0");
  r.standardTextStyle = make.addRecord<AcDbTextStyleTableRecord>(r.textStyleTable, L"Standard");
  r.standardDimStyle = make.addRecord<AcDbDimStyleTableRecord>(r.dimStyleTable, L"Standard");
  r.modelSpace = make.addRecord<AcDbBlockTableRecord>(r.blockTable, ACDB_MODEL_SPACE);
  r.paperSpace = make.addRecord<AcDbBlockTableRecord>(r.blockTable, ACDB_PAPER_SPACE);
  make.addRecord<AcDbViewportTableRecord>(r.viewportTable, L"*Active");
  roots_ = r;
  clayer_ = r.layerZero;
  celtype_ = r.byLayer;
  textstyle_ = r.standardTextStyle;
  dimstyle_ = r.standardDimStyle;
}

// --- Header
// -----------------------------------------------------------------------------------------------------------

void AcDbDatabase::willChange(const ACHAR* name) {
  AcDbNotifier::tellDatabase(*this, [&](auto* reactor) { reactor->headerSysVarWillChange(this, name); });
}

void AcDbDatabase::changed(const ACHAR* name) {
  AcDbNotifier::tellDatabase(*this, [&](auto* reactor) { reactor->headerSysVarChanged(this, name, true); });
}

Acad::ErrorStatus AcDbDatabase::setReal(RealIndex index, const ACHAR* name, double value) {
  willChange(name);
  reals_[index] = value;
  changed(name);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::setInt(IntIndex index, const ACHAR* name, int value) {
  willChange(name);
  ints_[index] = value;
  changed(name);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::setHeaderId(AcDbObjectId& variable, const ACHAR* name, AcDbObjectId id,
                                            const AcRxClass* kind) {
  if (id.database() != this || !id.isResident() || !id.stub()->object->isKindOf(kind)) return Acad::eInvalidInput;
  willChange(name);
  variable = id;
  changed(name);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::setClayer(AcDbObjectId id) {
  if (id.database() == this && id.isResident()) {
    const AcDbObjectPointer<AcDbLayerTableRecord> layer(id, AcDb::kForRead);
    if (layer.openStatus() == Acad::eOk && layer->isFrozen()) return Acad::eInvalidLayer;
  }
  return setHeaderId(clayer_, L"CLAYER", id, AcDbLayerTableRecord::desc());
}
Acad::ErrorStatus AcDbDatabase::setCeltype(AcDbObjectId id) {
  return setHeaderId(celtype_, L"CELTYPE", id, AcDbLinetypeTableRecord::desc());
}
Acad::ErrorStatus AcDbDatabase::setTextstyle(AcDbObjectId id) {
  return setHeaderId(textstyle_, L"TEXTSTYLE", id, AcDbTextStyleTableRecord::desc());
}
Acad::ErrorStatus AcDbDatabase::setDimstyle(AcDbObjectId id) {
  const Acad::ErrorStatus es = setHeaderId(dimstyle_, L"DIMSTYLE", id, AcDbDimStyleTableRecord::desc());
  if (es == Acad::eOk) dimscale_ = 0;
  return es;
}

Acad::ErrorStatus AcDbDatabase::setCecolor(const AcCmColor& color) {
  willChange(L"CECOLOR");
  cecolor_ = color;
  changed(L"CECOLOR");
  return Acad::eOk;
}

double AcDbDatabase::dimscale() const {
  if (dimscale_ > 0 || !dimstyle_.isResident()) return dimscale_ > 0 ? dimscale_ : 1.0;
  const AcDbObjectPointer<AcDbDimStyleTableRecord> style(dimstyle_, AcDb::kForRead);
  return style.openStatus() == Acad::eOk ? style->dimscale() : 1.0;
}

Acad::ErrorStatus AcDbDatabase::setDimscale(double scale) {
  if (!(scale > 0)) return Acad::eInvalidInput;
  willChange(L"DIMSCALE");
  dimscale_ = scale;
  changed(L"DIMSCALE");
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::updateExt() {
  extents_ = AcDbExtents();
  const AcDbObjectPointer<AcDbBlockTableRecord> space(roots_.modelSpace, AcDb::kForRead);
  if (space.openStatus() != Acad::eOk) return space.openStatus();
  for (AcDbStub* const stub : space->entities()) {
    AcDbEntity* entity = nullptr;
    if (acdbOpenAcDbEntity(entity, stub, AcDb::kForRead) != Acad::eOk) continue;
    AcDbExtents box;
    if (entity->getGeomExtents(box) == Acad::eOk) extents_.addExt(box);
    entity->close();
  }
  return extents_.isEmpty() ? Acad::eNullExtents : Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::setLimmin(const AcGePoint2d& point) {
  willChange(L"LIMMIN");
  limmin_ = point;
  changed(L"LIMMIN");
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::setLimmax(const AcGePoint2d& point) {
  willChange(L"LIMMAX");
  limmax_ = point;
  changed(L"LIMMAX");
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::setUcs(const AcGePoint3d& origin, const AcGeVector3d& xDir, const AcGeVector3d& yDir) {
  if (xDir.isZeroLength() || yDir.isZeroLength() || xDir.isParallelTo(yDir)) return Acad::eInvalidInput;
  willChange(L"UCSORG");
  ucsorg_ = origin;
  ucsxdir_ = xDir.normal();
  ucsydir_ = yDir.normal();
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
