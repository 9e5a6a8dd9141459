#include "host/db/AcDbGroup.h"

#include <algorithm>

#include "host/db/StructFiling.h"
#include "host/db/entities/EntityTools.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbGroup, AcDbObject, 0, 0, 0, GROUP, ObjectDBX Classes)
KR_DB_FILE_STRUCT(AcDbGroup, AcDbObject, data_)

AcDbGroup::AcDbGroup(const ACHAR* description, bool selectable) {
  data_.description = dbtext::orEmpty(description);
  data_.selectable = selectable ? 1 : 0;
}

void AcDbGroup::setSelectable(bool on) {
  assertWriteEnabled();
  data_.selectable = on ? 1 : 0;
}

Acad::ErrorStatus AcDbGroup::setAnonymous() {
  assertWriteEnabled();
  data_.unnamed = 1;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbGroup::append(AcDbObjectId id) {
  if (id.isNull()) return Acad::eNullObjectId;
  if (has(id)) return Acad::eDuplicateKey;
  assertWriteEnabled();
  data_.entities.emplace_back(id);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbGroup::remove(AcDbObjectId id) {
  if (!has(id)) return Acad::eKeyNotFound;
  assertWriteEnabled();
  std::erase(data_.entities, AcDbHardPointerId(id));
  return Acad::eOk;
}

bool AcDbGroup::has(AcDbObjectId id) const {
  assertReadEnabled();
  return std::find(data_.entities.begin(), data_.entities.end(), id) != data_.entities.end();
}

Adesk::UInt32 AcDbGroup::allEntityIds(AcDbObjectIdArray& ids) const {
  for (const AcDbHardPointerId& id : data_.entities) ids.append(id);
  return numEntities();
}

void AcDbGroup::clear() {
  assertWriteEnabled();
  data_.entities.clear();
}

Acad::ErrorStatus AcDbGroup::dxfOutFields(AcDbDxfFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbObject::dxfOutFields(filer); es != Acad::eOk) return es;
  filer->writeSubclass(L"AcDbGroup");
  filer->writeItem(300, data_.description.c_str());
  filer->writeItem(70, data_.unnamed);
  filer->writeItem(71, data_.selectable);
  for (const AcDbHardPointerId& id : data_.entities) filer->writeItem(340, AcDbObjectId(id));
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbGroup::dxfInFields(AcDbDxfFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbObject::dxfInFields(filer); es != Acad::eOk) return es;
  data_.entities.clear();
  return entities::readSubclass(filer, L"AcDbGroup", [&](const resbuf& group) {
    if (group.restype == 300) data_.description = entities::textOf(group);
    if (group.restype == 70) data_.unnamed = group.resval.rint;
    if (group.restype == 71) data_.selectable = group.resval.rint;
    if (group.restype == 340) data_.entities.emplace_back(AcDbObjectId().setFromOldId(group.resval.rlname[0]));
  });
}
