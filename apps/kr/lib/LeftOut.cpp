#include "LeftOut.h"

#include <memory>
#include <unordered_set>
#include <vector>

#include "host/db/db.h"
#include "host/os/os.h"
#include "object/KrObject.h"

namespace kr {
namespace {

template <class Object>
const Object* residentAs(const AcDbStub* stub) {
  const bool there = stub->object != nullptr && !stub->has(AcDbStub::kErased);
  return there ? Object::cast(stub->object) : nullptr;
}

bool lacksData(const AcDbEntity& entity) {
  if (entity.isKindOf(AcDbProxyEntity::desc())) return true;
  return entity.isKindOf(KrObject::desc()) && !hasData(entity.objectId());
}

// Visits the entities of a block and, each block once, of those that are inserted in it.
template <class Visit>
void eachDrawn(AcDbObjectId block, Visit visit) {
  std::unordered_set<const AcDbStub*> seen;
  std::vector<AcDbStub*> open;
  const auto add = [&](AcDbStub* stub) {
    if (stub != nullptr && seen.insert(stub).second) open.push_back(stub);
  };
  add(block.stub());
  while (!open.empty()) {
    const auto* const record = residentAs<AcDbBlockTableRecord>(open.back());
    open.pop_back();
    if (record == nullptr) continue;
    for (const AcDbStub* const stub : record->entities()) {
      const auto* const entity = residentAs<AcDbEntity>(stub);
      if (entity == nullptr) continue;
      visit(*entity);
      if (const auto* const insert = AcDbBlockReference::cast(entity)) add(insert->data().block.stub());
    }
  }
}

// Whether an object of its class has no data when it reads what the member writes: some classes file nothing.
bool isFiledEmpty(AcDbObjectId id, krio::DrawingFormat format) {
  const AcDbObjectPointer<KrObject> member(id, AcDb::kForRead);
  if (member.openStatus() != Acad::eOk) return false;
  const std::unique_ptr<AcRxObject> made(member->isA()->create());
  auto* const copy = KrObject::cast(made.get());
  if (copy == nullptr) return false;
  Acad::ErrorStatus es = Acad::eOk;
  if (format == krio::DrawingFormat::Dxf) {
    AcDbMemoryDxfFiler filer;
    es = member->dxfOutFields(&filer);
    filer.rewindFiler();
    if (es == Acad::eOk) es = copy->dxfInFields(&filer);
  } else {
    AcDbMemoryDwgFiler filer(AcDb::kFileFiler);
    es = member->dwgOutFields(&filer);
    filer.seek(0);
    if (es == Acad::eOk) es = copy->dwgInFields(&filer);
  }
  // One that its class refuses is kept with all its data.
  return es == Acad::eOk && !hasData(*copy);
}

// Whether a file of the format holds a proxy otherwise than other programs know its kind.
bool isFiledAsProxy(const AcDbProxyData& data, krio::DrawingFormat format) {
  if (format == krio::DrawingFormat::Dwg) return data.form == AcDbProxyData::kDxfGroups;
  return data.form == AcDbProxyData::kDwgBits && data.fixedType != 0;
}

void tell(const ClassCounts& counts, const std::string& before, const std::string& behind, Report& report) {
  if (counts.empty()) return;
  const std::size_t count = sumOf(counts);
  report.warning(before + std::to_string(count) + (count == 1 ? " entity" : " entities") + behind + ": " +
                 textOf(counts));
}

}  // namespace

std::size_t sumOf(const ClassCounts& counts) {
  std::size_t sum = 0;
  for (const auto& [name, count] : counts) sum += count;
  return sum;
}

std::string textOf(const ClassCounts& counts) {
  std::string text;
  for (const auto& [name, count] : counts) text += (text.empty() ? "" : ", ") + std::to_string(count) + " " + name;
  return text;
}

std::string fileClassOf(const AcDbObject& object) {
  const AcDbProxyData* proxy = nullptr;
  if (const auto* const entity = AcDbProxyEntity::cast(&object)) proxy = &entity->data();
  if (const auto* const other = AcDbProxyObject::cast(&object)) proxy = &other->data();
  if (proxy == nullptr) return os::toUtf8(object.isA()->name());
  return os::toUtf8(proxy->classRecord.cppName.empty() ? proxy->dxfName : proxy->classRecord.cppName);
}

bool hasData(const KrObject& member) {
  return member.GetNumVertex(VistaCorrente) > 0 || member.getComprimentoReal() != 0;
}

bool hasData(AcDbObjectId id) {
  const AcDbObjectPointer<KrObject> member(id, AcDb::kForRead);
  return member.openStatus() == Acad::eOk && hasData(*member);
}

ClassCounts withoutData(const AcDbDatabase& database) {
  ClassCounts counts;
  const auto* const space = residentAs<AcDbBlockTableRecord>(database.modelSpaceId().stub());
  if (space == nullptr) return counts;
  for (const AcDbStub* const stub : space->entities()) {
    const auto* const entity = residentAs<AcDbEntity>(stub);
    if (entity != nullptr && lacksData(*entity)) ++counts[fileClassOf(*entity)];
  }
  return counts;
}

ClassCounts withoutPicture(const AcDbDatabase& database) {
  ClassCounts counts;
  eachDrawn(database.modelSpaceId(), [&](const AcDbEntity& entity) {
    if (entity.fileGraphics().empty() && lacksData(entity)) ++counts[fileClassOf(entity)];
  });
  return counts;
}

void tellLosses(const AcDbDatabase& database, krio::DrawingFormat format, Report& report) {
  ClassCounts emptied;
  ClassCounts unseen;
  std::map<const AcRxClass*, bool> filesNothing;
  for (const AcDbStub& stub : database.handleTable().stubs()) {
    if (const auto* const proxy = residentAs<AcDbProxyEntity>(&stub)) {
      if (proxy->fileGraphics().empty() && isFiledAsProxy(proxy->data(), format)) ++unseen[fileClassOf(*proxy)];
      continue;
    }
    const auto* const member = residentAs<KrObject>(&stub);
    if (member == nullptr || !hasData(member->objectId())) continue;
    const auto [found, isNew] = filesNothing.try_emplace(member->isA(), false);
    if (isNew) found->second = isFiledEmpty(member->objectId(), format);
    if (found->second) ++emptied[fileClassOf(*member)];
  }
  const std::string file = std::string(krio::nameOf(format));
  tell(emptied, "the " + file + " holds nothing but a picture of ", "", report);
  tell(unseen, "the " + file + " holds ", " as proxies without a picture, which other programs don't show", report);
}

}  // namespace kr
