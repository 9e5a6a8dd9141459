#include "host/io/DrawingMend.h"

#include <algorithm>
#include <string>
#include <vector>

#include "host/db/OwnerChain.h"
#include "host/db/db.h"
#include "host/io/HostClasses.h"

namespace krio {

namespace {

std::wstring handleText(const AcDbStub& stub) {
  char text[AcDbHandle::kStrSize];
  AcDbHandle(stub.handle).getIntoAsciiBuffer(text);
  return {text, text + std::char_traits<char>::length(text)};
}

bool isLost(AcDbObjectId id) {
  return !id.isNull() && !id.isResident();
}

/// The block that stands for one that isn't there.
AcDbObjectId blockInPlaceOf(AcDbDatabase& db, AcDbObjectId lost) {
  const std::wstring name = L"Lost_" + handleText(*lost.stub());
  AcDbObjectId id;
  {
    const AcDbObjectPointer<AcDbBlockTable> table(db.blockTableId(), AcDb::kForRead);
    if (table.openStatus() != Acad::eOk || table->getAt(name.c_str(), id) == Acad::eOk) return id;
  }
  auto* const block = new AcDbBlockTableRecord;
  block->setName(name.c_str());
  if (db.addAcDbObject(id, block, db.blockTableId(), AcDbHandle()) != Acad::eOk) {
    delete block;
    return {};
  }
  block->makeEnds();
  block->close();
  return id;
}

AcDbObjectId inPlaceOf(AcDbDatabase& db, const AcDbObject& object, AcDbObjectId lost) {
  if (const auto* const insert = AcDbBlockReference::cast(&object))
    return insert->data().block == lost ? blockInPlaceOf(db, lost) : AcDbObjectId();
  if (const auto* const layer = AcDbLayerTableRecord::cast(&object))
    return layer->linetypeObjectId() == lost ? db.roots().continuous : AcDbObjectId();
  return {};
}

void mendCommon(const AcDbDatabase& db, AcDbEntity& entity) {
  AcDbEntity::Common common = entity.common();
  const bool linetype = isLost(common.linetype);
  const bool plotStyle = isLost(common.plotStyle);
  if (!linetype && !plotStyle) return;
  if (linetype) {
    common.linetype = db.byLayerLinetype();
    common.linetypeForm = AcDbEntity::kLinetypeByLayer;
  }
  if (plotStyle) {
    common.plotStyle.setNull();
    common.plotStyleForm = AcDbEntity::kPlotStyleByLayer;
  }
  entity.setCommonAsRead(common);
}

/// Whether an entity has a place only with another one, or with its block.
bool isPart(const AcDbObject& object) {
  for (const AcRxClass* const each : {AcDbBlockBegin::desc(), AcDbBlockEnd::desc(), AcDbSequenceEnd::desc(),
                                      AcDbVertex::desc(), AcDbAttribute::desc()})
    if (object.isKindOf(each)) return true;
  return false;
}

/// Whether an object is one of those that nothing owns: a table, the dictionary of named objects.
bool isRoot(const AcDbObject& object) {
  return object.isKindOf(AcDbSymbolTable::desc()) || object.objectId() == object.database()->namedObjectsDictionaryId();
}

void dropLostEntries(AcDbDictionary& dictionary) {
  // By what they are: a damaged dictionary may have two of a name.
  std::vector<AcDbObjectId> lost;
  for (const auto& [name, id] : dictionary.entries()) {
    if (isLost(id)) lost.push_back(id);
  }
  // From the end, so that few entries move up.
  for (auto id = lost.rbegin(); id != lost.rend(); ++id) dictionary.remove(*id);
}

bool isHard(AcDbReferenceKind kind) {
  return kind == AcDbReferenceKind::kHardPointer || kind == AcDbReferenceKind::kHardOwner;
}

bool needsLost(const AcDbObject& object) {
  AcDbMemoryDwgFiler filer;
  if (object.dwgOutFields(&filer) != Acad::eOk) return true;
  bool needs = false;
  filer.visitReferences(
      [&](AcDbReferenceKind kind, AcDbObjectId& id) { needs = needs || (isHard(kind) && isLost(id)); });
  return needs;
}

}  // namespace

bool mendReferences(AcDbDatabase& db, AcDbStub& stub) {
  const AcDbObjectPointer<AcDbObject> object(AcDbObjectId(&stub), AcDb::kForWrite);
  if (object.openStatus() != Acad::eOk) return false;
  if (auto* const entity = AcDbEntity::cast(object.object())) mendCommon(db, *entity);
  if (auto* const dictionary = AcDbDictionary::cast(object.object())) dropLostEntries(*dictionary);
  if (auto* const block = AcDbBlockTableRecord::cast(object.object()); block != nullptr && isLost(block->data().layout))
    block->dataAsRead().layout.setNull();
  if (auto* const dictionary = AcDbDictionaryWithDefault::cast(object.object());
      dictionary != nullptr && isLost(dictionary->defaultId())) {
    dictionary->setDefaultId(dictionary->entries().empty() ? AcDbObjectId() : dictionary->entries().front().second);
  }
  const bool own = isHosts(*object->isA()) || object->isA()->appName() == nullptr;
  if (own && needsLost(*object)) {
    // As an undo would: what the object is stays where it is.
    AcDbMemoryDwgFiler filer(AcDb::kUndoFiler);
    if (object->dwgOutFields(&filer) != Acad::eOk) return false;
    filer.visitReferences([&](AcDbReferenceKind kind, AcDbObjectId& id) {
      if (isHard(kind) && isLost(id)) id = inPlaceOf(db, *object, id);
    });
    filer.seek(0);
    if (object->dwgInFields(&filer) != Acad::eOk) return false;
  }
  return !needsLost(*object);
}

bool mendLayout(AcDbDatabase& db, AcDbStub& stub) {
  const AcDbObjectPointer<AcDbLayout> layout(AcDbObjectId(&stub), AcDb::kForWrite);
  if (layout.openStatus() != Acad::eOk) return false;
  const AcDbObjectPointer<AcDbBlockTable> table(db.blockTableId(), AcDb::kForRead);
  if (table.openStatus() != Acad::eOk) return false;
  for (const AcDbObjectId id : table->recordIds()) {
    if (!id.isResident() || id.isErased()) continue;
    if (static_cast<const AcDbBlockTableRecord*>(id.stub()->object)->data().layout.stub() != &stub) continue;
    layout->layoutDataAsRead().block = id;
    return true;
  }
  return layout->erase() == Acad::eOk;
}

void forgetLayouts(AcDbDatabase& db) {
  for (const AcDbStub& stub : db.handleTable().stubs()) {
    auto* const dictionary =
        stub.object != nullptr && !stub.has(AcDbStub::kErased) ? AcDbDictionary::cast(stub.object) : nullptr;
    if (dictionary == nullptr) continue;
    std::vector<AcDbObjectId> gone;
    for (const auto& [name, id] : dictionary->entries()) {
      if (id.isErased() && AcDbLayout::cast(id.stub()->object) != nullptr) gone.push_back(id);
    }
    if (gone.empty()) continue;
    const AcDbObjectPointer<AcDbDictionary> open(dictionary->objectId(), AcDb::kForWrite);
    if (open.openStatus() != Acad::eOk) continue;
    for (const AcDbObjectId id : gone) open->remove(id);
  }
}

const char* Orphanage::remedyFor(const AcDbObject& orphan) {
  if (orphan.isKindOf(AcDbSymbolTableRecord::desc()) || isPart(orphan)) return "";
  if (orphan.isKindOf(AcDbEntity::desc())) return "put into model space";
  return isRoot(orphan) ? "does without" : "put into a dictionary";
}

bool Orphanage::take(AcDbStub& orphan) {
  if (*remedyFor(*orphan.object) == '\0') return false;
  if (orphan.object->isKindOf(AcDbEntity::desc())) {
    const AcDbObjectPointer<AcDbBlockTableRecord> space(db_.modelSpaceId(), AcDb::kForWrite);
    if (space.openStatus() != Acad::eOk) return false;
    orphan.owner = db_.modelSpaceId().stub();
    space->listAsRead(&orphan);
    return true;
  }
  if (isRoot(*orphan.object)) {
    orphan.owner = nullptr;
    return true;
  }
  if (!looked_) {
    looked_ = true;
    for (const AcDbStub& each : db_.handleTable().stubs()) {
      const auto* const dictionary =
          each.object != nullptr && !each.has(AcDbStub::kErased) ? AcDbDictionary::cast(each.object) : nullptr;
      if (dictionary == nullptr) continue;
      for (const auto& [name, id] : dictionary->entries()) listers_.emplace(id.stub(), dictionary->objectId().stub());
    }
  }
  AcDbStub* const gone = orphan.owner;
  const auto lister = listers_.find(&orphan);
  if (lister != listers_.end()) {
    orphan.owner = lister->second;
    // Dictionaries may list each other.
    if (!isInOwnerCircle(orphan)) return true;
  }
  orphan.owner = gone;
  waiting_.push_back(&orphan);
  return true;
}

bool Orphanage::close() {
  if (waiting_.empty()) return true;
  const AcDbObjectPointer<AcDbDictionary> named(db_.namedObjectsDictionaryId(), AcDb::kForWrite);
  if (named.openStatus() != Acad::eOk) return false;
  AcDbObjectId id;
  auto* const made = new AcDbDictionary;
  std::wstring name = kRecoveredDictionary;
  for (int i = 1; named->getAt(name.c_str(), id) == Acad::eOk; ++i) name = kRecoveredDictionary + std::to_wstring(i);
  if (named->setAt(name.c_str(), made, id) != Acad::eOk) {
    delete made;
    return false;
  }
  std::vector<std::pair<std::wstring, AcDbStub*>> entries;
  for (AcDbStub* const orphan : waiting_) entries.emplace_back(handleText(*orphan), orphan);
  std::sort(entries.begin(), entries.end());
  for (const auto& [handle, orphan] : entries) {
    made->appendAsRead(handle, AcDbObjectId(orphan));
    orphan->owner = id.stub();
  }
  made->close();
  waiting_.clear();
  return true;
}

}  // namespace krio
