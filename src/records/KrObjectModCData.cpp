#include "records/KrObjectModCData.h"

#include <memory>

#include "host/db/db.h"

ACRX_NO_CONS_DEFINE_MEMBERS(KrObjectModCData, AcRxObject)

namespace {

/// Whether a filer makes a copy of an object, as against filing it.
bool makesCopy(const AcDbDwgFiler* filer) {
  switch (filer->filerType()) {
    case AcDb::kCopyFiler:
    case AcDb::kDeepCloneFiler:
    case AcDb::kWblockCloneFiler:
      return true;
    default:
      return false;
  }
}

const AcRxClass* registeredClass(const ACHAR* name) {
  auto* dictionary = AcRxDictionary::cast(acrxSysRegistry()->at(L"ClassDictionary"));
  return dictionary != nullptr ? AcRxClass::cast(dictionary->at(name)) : nullptr;
}

}  // namespace

Acad::ErrorStatus KrObjectModCData::copyFrom(const AcRxObject* source) {
  const auto* data = KrObjectModCData::cast(source);
  if (data == nullptr || data == this) return Acad::eOk;
  AcDbDeepCloneFiler filer;
  data->dwgOutFields(&filer);
  filer.seek(0);
  dwgInFields(&filer);
  return Acad::eOk;
}

AcRxObject* KrObjectModCData::clone() const {
  AcRxObject* copy = isA()->create();
  if (copy != nullptr) copy->copyFrom(this);
  return copy;
}

Acad::ErrorStatus KrObjectModCData::auxDwgOutFields(AcDbDwgFiler* filer, const KrObjectModCData* data) {
  if (data != nullptr && makesCopy(filer) && data->saveOnCopy() == 0) data = nullptr;
  if (data == nullptr) {
    filer->writeString(L"");
    return Acad::eOk;
  }
  filer->writeString(data->isA()->name());
  data->dwgOutFields(filer);
  return Acad::eOk;
}

Acad::ErrorStatus KrObjectModCData::auxDwgInFields(AcDbDwgFiler* filer, KrObjectModCData** slot) {
  purge(*slot, nullptr);
  ACHAR* filed = nullptr;
  filer->readString(&filed);
  if (filed == nullptr) return Acad::eNotApplicable;
  const AcRxClass* classe = filed[0] != L'\0' ? registeredClass(filed) : nullptr;
  const bool empty = filed[0] == L'\0';
  acutDelString(filed);
  if (empty) return Acad::eOk;
  if (classe == nullptr) return Acad::eMakeMeProxy;
  std::unique_ptr<AcRxObject> made(classe->create());
  auto* data = KrObjectModCData::cast(made.get());
  // A class of another kind under that name can't be read either.
  if (data == nullptr) return Acad::eMakeMeProxy;
  made.release();
  *slot = data;
  return data->dwgInFields(filer);
}

KrObjectModCData* KrObjectModCData::cloneOf(const KrObjectModCData* data) {
  return data != nullptr ? static_cast<KrObjectModCData*>(data->clone()) : nullptr;
}

void KrObjectModCData::purge(KrObjectModCData*& slot, const AcRxClass* classe) {
  if (classe != nullptr && !slot->isKindOf(classe)) return;
  delete slot;
  slot = nullptr;
}
