#include <memory>

#include "host/db/db.h"
#include "host/ed/ed.h"
#include "host/ed/entityChain.h"
#include "host/ed/resbufTypes.h"
#include "host/os/os.h"

namespace {

using Group = AcDbMemoryDxfFiler::Group;

void setText(resbuf& link, const std::wstring& text) {
  acutNewString(text.c_str(), link.resval.rstring);
}

/// The group as a link of a chain; null for one that no chain can hold.
resbuf* linkOf(const Group& group) {
  resbuf* const link = acutNewRb(group.code);
  if (link == nullptr) return nullptr;
  const bool isName = edhost::valueKind(group.code) == edhost::ValueKind::Name;
  if (const auto* text = std::get_if<std::wstring>(&group.value)) {
    setText(*link, *text);
  } else if (const auto* whole = std::get_if<Adesk::Int64>(&group.value)) {
    if (edhost::valueKind(group.code) == edhost::ValueKind::Short) {
      link->resval.rint = static_cast<short>(*whole);
    } else {
      link->resval.rlong = static_cast<Adesk::Int32>(*whole);
    }
  } else if (const auto* real = std::get_if<double>(&group.value)) {
    link->resval.rreal = *real;
  } else if (const auto* p = std::get_if<AcGePoint3d>(&group.value)) {
    asPnt3d(link->resval.rpoint) = *p;
  } else if (const auto* id = std::get_if<AcDbObjectId>(&group.value)) {
    if (isName) acdbGetAdsName(link->resval.rlname, *id);
  } else if (const auto* handle = std::get_if<AcDbHandle>(&group.value); handle != nullptr && !isName) {
    ACHAR digits[AcDbHandle::kStrSize];
    handle->getIntoAsciiBuffer(digits);
    setText(*link, digits);
  }
  return link;
}

/// Where acdbTblNext stands in each table.
struct TableWalk {
  std::wstring table;
  std::size_t next = 0;
};
TableWalk& tableWalk() {
  static auto* const walk = new TableWalk;
  return *walk;
}

AcDbObjectId tableId(const AcDbDatabase& database, const std::wstring& name) {
  if (name == L"LAYER") return database.layerTableId();
  if (name == L"LTYPE") return database.linetypeTableId();
  if (name == L"STYLE") return database.textStyleTableId();
  if (name == L"DIMSTYLE") return database.dimStyleTableId();
  if (name == L"BLOCK") return database.blockTableId();
  if (name == L"APPID") return database.regAppTableId();
  if (name == L"VPORT") return database.viewportTableId();
  if (name == L"VIEW") return database.viewTableId();
  if (name == L"UCS") return database.UCSTableId();
  return AcDbObjectId::kNull;
}

std::wstring upper(const wchar_t* text) {
  std::wstring result = text != nullptr ? text : L"";
  for (wchar_t& c : result) c = os::upperCase(c);
  return result;
}

std::vector<AcDbObjectId> recordsOf(const std::wstring& table) {
  const AcDbDatabase* const database = acdbHostApplicationServices()->workingDatabase();
  if (database == nullptr) return {};
  AcDbObjectPointer<AcDbSymbolTable> opened(tableId(*database, table), AcDb::kForRead);
  if (opened.openStatus() != Acad::eOk) return {};
  std::vector<AcDbObjectId> present;
  for (const AcDbObjectId& id : opened->recordIds()) {
    if (!id.isErased()) present.push_back(id);
  }
  return present;
}

resbuf* recordChain(AcDbObjectId id) {
  AcDbObjectPointer<AcDbObject> record(id, AcDb::kForRead);
  return record.openStatus() == Acad::eOk ? edhost::chainOf(*record) : nullptr;
}

}  // namespace

namespace edhost {

resbuf* chainOf(const AcDbObject& object) {
  AcDbMemoryDxfFiler filer;
  if (object.dxfOut(&filer) != Acad::eOk) return nullptr;
  resbuf head{};
  resbuf* tail = &head;
  const auto append = [&tail](resbuf* link) {
    if (link != nullptr) tail = tail->rbnext = link;
  };
  const std::vector<Group>& groups = filer.groups();
  if (groups.empty() || groups.front().code != 0) {
    const ACHAR* const name = object.isA()->dxfName();
    append(linkOf({0, std::wstring(name != nullptr ? name : object.isA()->name())}));
  }
  for (const Group& group : groups) append(linkOf(group));
  return head.rbnext;
}

std::vector<AcDbObjectId> entitiesOfSpace() {
  const AcDbDatabase* const database = acdbHostApplicationServices()->workingDatabase();
  std::vector<AcDbObjectId> ids;
  if (database == nullptr) return ids;
  AcDbObjectPointer<AcDbBlockTableRecord> space(database->currentSpaceId(), AcDb::kForRead);
  AcDbBlockTableRecordIterator* iterator = nullptr;
  if (space.openStatus() != Acad::eOk || space->newIterator(iterator) != Acad::eOk) return ids;
  const std::unique_ptr<AcDbBlockTableRecordIterator> owner(iterator);
  for (; !iterator->done(); iterator->step()) {
    AcDbObjectId id;
    if (iterator->getEntityId(id) == Acad::eOk) ids.push_back(id);
  }
  return ids;
}

}  // namespace edhost

resbuf* acdbEntGet(const ads_name entity) {
  AcDbObjectId id;
  if (acdbGetObjectId(id, entity) != Acad::eOk) return nullptr;
  resbuf* const chain = recordChain(id);
  if (chain == nullptr) return nullptr;
  resbuf* const head = acutNewRb(AcDb::kDxfEnd);
  ads_name_set(entity, head->resval.rlname);
  head->rbnext = chain;
  return head;
}

resbuf* acdbTblNext(const wchar_t* table, int rewind) {
  TableWalk& walk = tableWalk();
  const std::wstring name = upper(table);
  if (rewind != 0 || walk.table != name) walk = {name, 0};
  const std::vector<AcDbObjectId> records = recordsOf(name);
  return walk.next < records.size() ? recordChain(records[walk.next++]) : nullptr;
}

resbuf* acdbTblSearch(const wchar_t* table, const wchar_t* name, int setNext) {
  const std::wstring tableName = upper(table);
  const std::vector<AcDbObjectId> records = recordsOf(tableName);
  for (std::size_t i = 0; i < records.size(); ++i) {
    AcDbObjectPointer<AcDbSymbolTableRecord> record(records[i], AcDb::kForRead);
    const ACHAR* recordName = nullptr;
    if (record.openStatus() != Acad::eOk || record->getName(recordName) != Acad::eOk) continue;
    if (upper(recordName) != upper(name)) continue;
    if (setNext != 0) tableWalk() = {tableName, i + 1};
    return edhost::chainOf(*record);
  }
  return nullptr;
}

int acdbEntLast(ads_name entity) {
  const std::vector<AcDbObjectId> ids = edhost::entitiesOfSpace();
  ads_name found = {0, 0};
  if (ids.empty() || acdbGetAdsName(found, ids.back()) != Acad::eOk) return RTERROR;
  ads_name_set(found, entity);
  return RTNORM;
}

int acdbEntNext(const ads_name entity, ads_name next) {
  const std::vector<AcDbObjectId> ids = edhost::entitiesOfSpace();
  std::size_t place = 0;
  if (entity != nullptr) {
    AcDbObjectId id;
    if (acdbGetObjectId(id, entity) != Acad::eOk) return RTERROR;
    while (place < ids.size() && ids[place] != id) ++place;
    ++place;
  }
  ads_name found = {0, 0};
  if (place >= ids.size() || acdbGetAdsName(found, ids[place]) != Acad::eOk) return RTERROR;
  ads_name_set(found, next);
  return RTNORM;
}

int acdbEntDel(const ads_name entity) {
  AcDbObjectId id;
  AcDbEntity* opened = nullptr;
  if (acdbGetObjectId(id, entity) != Acad::eOk) return RTERROR;
  if (acdbOpenAcDbEntity(opened, id, AcDb::kForWrite, true) != Acad::eOk) return RTERROR;
  const Acad::ErrorStatus status = opened->erase(!opened->isErased());
  opened->close();
  return status == Acad::eOk ? RTNORM : RTERROR;
}
