#include "host/db/AcDbPlaceHolder.h"

#include "host/db/StructFiling.h"
#include "host/db/entities/EntityTools.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbPlaceHolder, AcDbObject, 0, 0, 0, ACDBPLACEHOLDER, ObjectDBX Classes)
ACRX_DXF_DEFINE_MEMBERS(AcDbDictionaryVar, AcDbObject, 0, 0, 0, DICTIONARYVAR, ObjectDBX Classes)
ACRX_DXF_DEFINE_MEMBERS(AcDbDictionaryWithDefault, AcDbDictionary, 0, 0, 0, ACDBDICTIONARYWDFLT, ObjectDBX Classes)
KR_DB_FILE_STRUCT(AcDbDictionaryVar, AcDbObject, data_)

Acad::ErrorStatus AcDbDictionaryVar::dxfOutFields(AcDbDxfFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbObject::dxfOutFields(filer); es != Acad::eOk) return es;
  filer->writeSubclass(L"DictionaryVariables");
  filer->writeItem(280, Adesk::Int16(data_.schema));
  filer->writeItem(1, data_.value.c_str());
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbDictionaryVar::dxfInFields(AcDbDxfFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbObject::dxfInFields(filer); es != Acad::eOk) return es;
  return entities::readSubclass(filer, L"DictionaryVariables", [&](const resbuf& group) {
    if (group.restype == 280) data_.schema = Adesk::UInt8(group.resval.rint);
    if (group.restype == 1) data_.value = entities::textOf(group);
  });
}

Acad::ErrorStatus AcDbDictionaryWithDefault::getAt(const ACHAR* name, AcDbObjectId& id) const {
  if (AcDbDictionary::getAt(name, id) == Acad::eOk) return Acad::eOk;
  if (default_.isNull()) return Acad::eKeyNotFound;
  id = default_;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDictionaryWithDefault::dwgOutFields(AcDbDwgFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbDictionary::dwgOutFields(filer); es != Acad::eOk) return es;
  return filer->writeHardPointerId(default_);
}

Acad::ErrorStatus AcDbDictionaryWithDefault::dwgInFields(AcDbDwgFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbDictionary::dwgInFields(filer); es != Acad::eOk) return es;
  return filer->readHardPointerId(&default_);
}

Acad::ErrorStatus AcDbDictionaryWithDefault::dxfOutFields(AcDbDxfFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbDictionary::dxfOutFields(filer); es != Acad::eOk) return es;
  filer->writeSubclass(L"AcDbDictionaryWithDefault");
  return filer->writeItem(340, AcDbObjectId(default_));
}

Acad::ErrorStatus AcDbDictionaryWithDefault::dxfInFields(AcDbDxfFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbDictionary::dxfInFields(filer); es != Acad::eOk) return es;
  return entities::readSubclass(filer, L"AcDbDictionaryWithDefault", [&](const resbuf& group) {
    if (group.restype == 340) default_ = AcDbObjectId().setFromOldId(group.resval.rlname[0]);
  });
}
