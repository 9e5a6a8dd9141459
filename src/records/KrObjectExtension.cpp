#include "records/KrObjectExtension.h"

#include "host/db/db.h"

ACRX_NO_CONS_DEFINE_MEMBERS(KrObjectExtension, AcRxObject)

Acad::ErrorStatus KrObjectExtension::getExtensionGripPoints(AcArray<AcGePoint3d>&, AcArray<int>&, AcArray<int>&) const {
  return Acad::eNotImplementedYet;
}

Acad::ErrorStatus KrObjectExtension::moveExtensionGripPointsAt(const AcArray<int>&, const AcGeVector3d&, int) {
  return Acad::eNotImplementedYet;
}

int KrObjectExtension::extensionWorldDraw(int&, AcGiWorldDraw*) {
  return 1;
}

Acad::ErrorStatus KrObjectExtension::dwgOutFieldsExtension(AcDbDwgFiler* filer) const {
  filer->writeUInt32(kFieldsVersion);
  filer->writeUInt32(extensionId_);
  return filer->filerStatus();
}

Acad::ErrorStatus KrObjectExtension::dwgInFieldsExtension(AcDbDwgFiler* filer) {
  Adesk::UInt32 version = 0;
  filer->readUInt32(&version);
  if (version > kFieldsVersion) return Acad::eNotApplicable;
  if (version == 0) return Acad::eOk;
  filer->readUInt32(&extensionId_);
  return filer->filerStatus();
}

Acad::ErrorStatus KrObjectExtension::copyFrom(const AcRxObject* other) {
  const KrObjectExtension* source = KrObjectExtension::cast(other);
  if (source == nullptr || source == this) return Acad::eOk;
  const std::uint32_t id = extensionId_;
  AcDbDeepCloneFiler filer;
  source->dwgOutFieldsExtension(&filer);
  filer.seek(0);
  dwgInFieldsExtension(&filer);
  extensionId_ = id;
  return Acad::eOk;
}
