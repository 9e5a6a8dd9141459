#include "host/db/AcDbProxy.h"

#include "host/db/FieldFiling.h"
#include "host/db/entities/DrawnExtents.h"
#include "host/ed/acut.h"
#include "host/gi/gi.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbProxyEntity, AcDbEntity, 0, 0, 0, ACAD_PROXY_ENTITY, ObjectDBX Classes)
ACRX_DXF_DEFINE_MEMBERS(AcDbProxyObject, AcDbObject, 0, 0, 0, ACAD_PROXY_OBJECT, ObjectDBX Classes)

namespace {

AcDbProxyGraphicsDraw& drawFunction() {
  static AcDbProxyGraphicsDraw draw = nullptr;
  return draw;
}

// Codes of handles.
constexpr Adesk::UInt8 kSoftOwner = 2;
constexpr Adesk::UInt8 kHardOwner = 3;
constexpr Adesk::UInt8 kHardPointer = 5;

void putReference(AcDbDwgFiler& filer, const AcDbProxyData::Reference& reference) {
  filer.writeUInt8(reference.code);
  switch (reference.code) {
    case kSoftOwner:
      filer.writeSoftOwnershipId(reference.id);
      break;
    case kHardOwner:
      filer.writeHardOwnershipId(reference.id);
      break;
    case kHardPointer:
      filer.writeHardPointerId(reference.id);
      break;
    default:
      filer.writeSoftPointerId(reference.id);
  }
}

template <class Id>
AcDbObjectId readAs(AcDbDwgFiler& filer) {
  Id id;
  fields::get(filer, id);
  return id;
}

AcDbProxyData::Reference getReference(AcDbDwgFiler& filer) {
  AcDbProxyData::Reference reference;
  filer.readUInt8(&reference.code);
  switch (reference.code) {
    case kSoftOwner:
      reference.id = readAs<AcDbSoftOwnershipId>(filer);
      break;
    case kHardOwner:
      reference.id = readAs<AcDbHardOwnershipId>(filer);
      break;
    case kHardPointer:
      reference.id = readAs<AcDbHardPointerId>(filer);
      break;
    default:
      reference.id = readAs<AcDbSoftPointerId>(filer);
  }
  return reference;
}

std::vector<std::byte> bytesOf(std::string_view text) {
  const auto* const first = reinterpret_cast<const std::byte*>(text.data());
  return {first, first + text.size()};
}

/// The fields that are filed one by one, in order.
auto plain(auto& data) {
  auto& record = data.classRecord;
  return std::tie(data.form, record.proxyFlags, record.appName, record.cppName, record.dxfName, record.wasProxy,
                  record.itemClassId, data.fixedType, data.dxfName, data.asProxyRecord, data.format, data.bits,
                  data.bitCount);
}

Acad::ErrorStatus listReferences(const AcDbProxyData& data, AcDbObjectIdArray& ids, AcDbIntArray& codes) {
  for (const AcDbProxyData::Reference& reference : data.references) {
    ids.append(reference.id);
    codes.append(reference.code);
  }
  return Acad::eOk;
}

const ACHAR* dxfNameOf(const AcDbProxyData& data) {
  return (data.classRecord.dxfName.empty() ? data.dxfName : data.classRecord.dxfName).c_str();
}

}  // namespace

void acdbSetProxyGraphicsDraw(AcDbProxyGraphicsDraw draw) {
  drawFunction() = draw;
}

AcDbProxyGraphicsDraw acdbProxyGraphicsDraw() {
  return drawFunction();
}

Acad::ErrorStatus AcDbProxyData::dwgOut(AcDbDwgFiler* filer) const {
  std::apply([&](const auto&... each) { (fields::put(*filer, each), ...); }, plain(*this));
  filer->writeInt32(Adesk::Int32(references.size()));
  for (const Reference& reference : references) putReference(*filer, reference);
  filer->writeInt32(Adesk::Int32(groups.size()));
  for (const Group group : groups) {
    filer->writeInt32(group.code);
    fields::put(*filer, bytesOf(group.value));
  }
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbProxyData::dwgIn(AcDbDwgFiler* filer) {
  AcDbProxyData fresh;
  std::apply([&](auto&... each) { (fields::get(*filer, each), ...); }, plain(fresh));
  Adesk::Int32 count = 0;
  filer->readInt32(&count);
  for (Adesk::Int32 i = 0; i < count && filer->filerStatus() == Acad::eOk; ++i) {
    fresh.references.push_back(getReference(*filer));
  }
  filer->readInt32(&count);
  for (Adesk::Int32 i = 0; i < count && filer->filerStatus() == Acad::eOk; ++i) {
    Adesk::Int32 code = 0;
    std::vector<std::byte> value;
    filer->readInt32(&code);
    fields::get(*filer, value);
    fresh.groups.push_back(code, {reinterpret_cast<const char*>(value.data()), value.size()});
  }
  if (filer->filerStatus() == Acad::eOk) *this = std::move(fresh);
  return filer->filerStatus();
}

bool AcDbProxyData::operator==(const AcDbProxyData& other) const {
  const auto sameReferences = [](const Reference& a, const Reference& b) { return a.code == b.code && a.id == b.id; };
  return plain(*this) == plain(other) &&
         std::equal(references.begin(), references.end(), other.references.begin(), other.references.end(),
                    sameReferences) &&
         groups == other.groups;
}

// --- Entity
// -----------------------------------------------------------------------------------------------------------

const ACHAR* AcDbProxyEntity::originalDxfName() const {
  return dxfNameOf(data_);
}

AcDbProxyEntity::GraphicsMetafileType AcDbProxyEntity::graphicsMetafileType() const {
  return fileGraphics().empty() ? kNoMetafile : kFullGraphics;
}

Acad::ErrorStatus AcDbProxyEntity::getReferences(AcDbObjectIdArray& ids, AcDbIntArray& codes) const {
  assertReadEnabled();
  return listReferences(data_, ids, codes);
}

Acad::ErrorStatus AcDbProxyEntity::dwgOutFields(AcDbDwgFiler* filer) const {
  const Acad::ErrorStatus es = AcDbEntity::dwgOutFields(filer);
  return es == Acad::eOk ? data_.dwgOut(filer) : es;
}

Acad::ErrorStatus AcDbProxyEntity::dwgInFields(AcDbDwgFiler* filer) {
  const Acad::ErrorStatus es = AcDbEntity::dwgInFields(filer);
  return es == Acad::eOk ? data_.dwgIn(filer) : es;
}

Adesk::Boolean AcDbProxyEntity::subWorldDraw(AcGiWorldDraw* draw) {
  assertReadEnabled();
  if (!fileGraphics().empty() && acdbProxyGraphicsDraw() != nullptr) acdbProxyGraphicsDraw()(fileGraphics(), draw);
  return Adesk::kTrue;
}

Acad::ErrorStatus AcDbProxyEntity::subTransformBy(const AcGeMatrix3d&) {
  return Acad::eNotApplicable;
}

Acad::ErrorStatus AcDbProxyEntity::subGetGeomExtents(AcDbExtents& extents) const {
  return entities::drawnExtents(*this, extents);
}

void AcDbProxyEntity::subList() const {
  AcDbEntity::subList();
  acutPrintf(L"\n                    Kept from: %s", data_.classRecord.cppName.c_str());
}

// --- Object
// -----------------------------------------------------------------------------------------------------------

const ACHAR* AcDbProxyObject::originalDxfName() const {
  return dxfNameOf(data_);
}

Acad::ErrorStatus AcDbProxyObject::getReferences(AcDbObjectIdArray& ids, AcDbIntArray& codes) const {
  assertReadEnabled();
  return listReferences(data_, ids, codes);
}

Acad::ErrorStatus AcDbProxyObject::dwgOutFields(AcDbDwgFiler* filer) const {
  const Acad::ErrorStatus es = AcDbObject::dwgOutFields(filer);
  return es == Acad::eOk ? data_.dwgOut(filer) : es;
}

Acad::ErrorStatus AcDbProxyObject::dwgInFields(AcDbDwgFiler* filer) {
  const Acad::ErrorStatus es = AcDbObject::dwgInFields(filer);
  return es == Acad::eOk ? data_.dwgIn(filer) : es;
}
