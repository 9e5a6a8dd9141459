#include "host/io/dxf/DxfWriter.h"

#include <algorithm>

#include "host/io/HostClasses.h"
#include "host/io/ProxyGraphics.h"
#include "host/io/dxf/Dxf.h"
#include "host/io/dxf/DxfHeader.h"
#include "host/io/dxf/DxfText.h"
#include "host/os/os.h"

namespace krio::dxf {

namespace {

constexpr int kProxyEntityClass = 498;
constexpr int kProxyObjectClass = 499;
constexpr int kOwnFormat = 23;  // AC1015

/// Whether the class that a record names is there: objects of it that are proxies all the same were refused by it.
bool isLoaded(const AcDbClassRecord& record) {
  const AcRxClass* const found = acrxFindClass(record.cppName.c_str());
  return found != nullptr && found->constructor() != nullptr && found->dxfName() != nullptr &&
         record.dxfName == found->dxfName() && found->isDerivedFrom(AcDbEntity::desc()) == record.isEntity();
}

/// Whether an entity belongs to an object that doesn't list its entities: it stands with the objects then.
bool isStray(const AcDbStub& stub) {
  const AcRxClass* const own = stub.object->isA();
  if (own == AcDbBlockBegin::desc() || own == AcDbBlockEnd::desc()) return false;
  const AcDbStub* const owner = stub.owner;
  if (owner == nullptr || owner->object == nullptr || owner->has(AcDbStub::kErased)) return false;
  if (AcDbBlockTableRecord::cast(owner->object) != nullptr) return false;
  auto* const entity = AcDbEntity::cast(owner->object);
  return entity == nullptr || entity->subentities() == nullptr;
}

/// All that stands in the section of objects: the dictionary of named objects, then the others by their handles.
std::vector<AcDbObject*> plainObjects(AcDbDatabase& database) {
  std::vector<AcDbObject*> objects;
  for (const AcDbStub& stub : database.handleTable().stubs()) {
    AcDbObject* const object = stub.object;
    if (object == nullptr || stub.has(AcDbStub::kErased)) continue;
    const AcRxClass* const own = object->isA();
    if (own->isDerivedFrom(AcDbEntity::desc()) && !isStray(stub)) continue;
    if (own->isDerivedFrom(AcDbSymbolTable::desc()) || own->isDerivedFrom(AcDbSymbolTableRecord::desc())) {
      continue;
    }
    objects.push_back(object);
  }
  const AcDbObjectId root = database.namedObjectsDictionaryId();
  std::sort(objects.begin(), objects.end(), [&](const AcDbObject* a, const AcDbObject* b) {
    if (a->objectId() == root || b->objectId() == root) return a->objectId() == root && b->objectId() != root;
    return a->objectId().handle() < b->objectId().handle();
  });
  return objects;
}

}  // namespace

Writer::Writer(AcDbDatabase& database, std::vector<std::byte>& out, Report& report)
    : db_(database),
      report_(report),
      sink_(out, page_, std::size_t(database.approxNumObjects()) * 176 + 65536),
      filer_(sink_, database) {}

void Writer::write() {
  listClasses();
  writeHeader(sink_, db_);
  tellNone(0);
  writeClasses();
  writeTables();
  writeBlocks();
  writeEntities();
  writeObjects();
  sink_.start("EOF");
  sink_.finish();
}

// --- Classes
// ----------------------------------------------------------------------------------------------------------

AcDbClassRecord Writer::classOf(const AcDbProxyData& data, bool entity) {
  AcDbClassRecord record = data.classRecord;
  if (!record.dxfName.empty()) return record;
  record.dxfName = data.dxfName;
  record.cppName = L"AcDb" + data.dxfName;
  record.appName = L"ObjectDBX Classes";
  record.itemClassId = entity ? AcDbClassRecord::kEntityClass : AcDbClassRecord::kObjectClass;
  return record;
}

void Writer::addClass(const AcDbClassRecord& record, bool asProxy) {
  const auto [entry, isNew] = classPlaces_.try_emplace(record.dxfName, classes_.size());
  if (isNew) classes_.push_back(record);
  if (asProxy) classes_[entry->second].wasProxy = true;
}

void Writer::listClasses() {
  for (const AcDbClassRecord& record : db_.classRecords()) {
    if (classPlaces_.try_emplace(record.dxfName, classes_.size()).second) classes_.push_back(record);
  }
  std::vector<const AcRxClass*> used;
  for (const AcDbStub& stub : db_.handleTable().stubs()) {
    if (stub.object == nullptr || stub.has(AcDbStub::kErased)) continue;
    const AcRxClass* const own = stub.object->isA();
    if (used.empty() || used.back() != own) {
      if (std::find(used.begin(), used.end(), own) == used.end()) used.push_back(own);
    }
    if (own == AcDbProxyEntity::desc()) {
      const AcDbProxyData& data = static_cast<const AcDbProxyEntity*>(stub.object)->data();
      const bool byName = data.form == AcDbProxyData::kDxfGroups && data.classRecord.dxfName.empty();
      if (!byName) addClass(classOf(data, true), true);
    } else if (own == AcDbProxyObject::desc()) {
      const AcDbProxyData& data = static_cast<const AcDbProxyObject*>(stub.object)->data();
      const bool byName = data.form == AcDbProxyData::kDxfGroups && data.classRecord.dxfName.empty();
      if (!byName) addClass(classOf(data, false), true);
    }
  }
  // Classes of the host that every file lists, and those of applications, in the order of their names.
  std::sort(used.begin(), used.end(), [](const AcRxClass* a, const AcRxClass* b) {
    return std::wstring_view(a->name()) < std::wstring_view(b->name());
  });
  for (const AcRxClass* const own : used) {
    const bool listed = own == AcDbDictionaryWithDefault::desc() || own == AcDbPlaceHolder::desc() ||
                        own == AcDbLayout::desc() || own == AcDbDictionaryVar::desc();
    if (own->dxfName() == nullptr || (isHosts(*own) && !listed)) continue;
    AcDbClassRecord record;
    record.dxfName = own->dxfName();
    record.cppName = own->name();
    record.appName = isHosts(*own) || own->appName() == nullptr ? L"ObjectDBX Classes" : own->appName();
    record.proxyFlags = own->proxyFlags();
    const bool entity = own->isDerivedFrom(AcDbEntity::desc());
    record.itemClassId = entity ? AcDbClassRecord::kEntityClass : AcDbClassRecord::kObjectClass;
    if (!classPlaces_.contains(record.dxfName)) addClass(record, false);
  }
  for (AcDbClassRecord& record : classes_) {
    if (isLoaded(record)) record.wasProxy = false;
  }
}

int Writer::classNumber(const AcDbClassRecord& record) const {
  const auto found = classPlaces_.find(record.dxfName);
  return AcDbClassRecord::kFirstNumber + int(found != classPlaces_.end() ? found->second : 0);
}

void Writer::writeClasses() {
  sink_.start("SECTION");
  sink_.raw(2, "CLASSES");
  for (const AcDbClassRecord& record : classes_) {
    sink_.start("CLASS");
    sink_.text(1, record.dxfName);
    sink_.text(2, record.cppName);
    sink_.text(3, record.appName);
    sink_.int32(90, record.proxyFlags);
    sink_.int16(280, record.wasProxy);
    sink_.int16(281, record.isEntity());
  }
  sink_.start("ENDSEC");
}

// --- Frames
// -----------------------------------------------------------------------------------------------------------

const std::string& Writer::nameOf(AcDbObjectId id) {
  AcDbStub* const stub = id.stub();
  if (stub == lastNamed_ && lastName_ != nullptr) return *lastName_;
  const auto [entry, isNew] = names_.try_emplace(stub);
  if (isNew) {
    const auto* const record = id.isResident() && !id.isErased() ? AcDbSymbolTableRecord::cast(stub->object) : nullptr;
    if (record != nullptr) sink_.encode(record->nameText(), entry->second);
  }
  lastNamed_ = stub;
  lastName_ = &entry->second;
  return *lastName_;
}

void Writer::writeObjectFrame(const AcDbObject& object, int handleCode) {
  sink_.handle(handleCode, object.objectId().handle().value());
  const AcDbObjectId dictionary = object.extensionDictionaryReference();
  if (dictionary.isResident() && !dictionary.isErased()) {
    sink_.raw(102, "{ACAD_XDICTIONARY");
    sink_.handle(360, dictionary.handle().value());
    sink_.raw(102, "}");
  }
  if (const AcDbVoidPtrArray* const reactors = object.reactors()) {
    bool any = false;
    for (void* const reactor : *reactors) {
      const AcDbObjectId id = acdbPersistentReactorObjectId(reactor);
      if (!id.isResident() || id.isErased()) continue;
      if (!any) sink_.raw(102, "{ACAD_REACTORS");
      any = true;
      sink_.handle(330, id.handle().value());
    }
    if (any) sink_.raw(102, "}");
  }
  sink_.handle(330, object.ownerId().handle().value());
}

void Writer::writeGraphics(std::span<const std::byte> graphics) {
  if (graphics.empty()) return;
  sink_.int32(92, std::int64_t(graphics.size()));
  sink_.binary(310, graphics);
}

void Writer::writeEntityFrame(const AcDbEntity& entity, bool inPaperSpace, std::span<const std::byte> graphics,
                              bool marker) {
  writeObjectFrame(entity);
  if (marker) sink_.marker("AcDbEntity");
  if (inPaperSpace) sink_.int16(67, 1);
  const AcDbEntity::Common common = entity.common();
  const std::string_view layer = nameOf(common.layer);
  sink_.raw(8, layer.empty() ? "0" : layer);
  if (common.linetype != db_.byLayerLinetype()) {
    if (const std::string& linetype = nameOf(common.linetype); !linetype.empty()) sink_.raw(6, linetype);
  }
  if (!common.color.isByLayer()) sink_.int16(62, common.color.colorIndex());
  if (common.lineWeight != AcDb::kLnWtByLayer) sink_.int16(370, common.lineWeight);
  if (common.linetypeScale != 1.0) sink_.real(48, common.linetypeScale);
  if (common.invisible) sink_.int16(60, 1);
  if (common.plotStyleForm == AcDbEntity::kPlotStyleById) sink_.handle(390, common.plotStyle.handle().value());
  writeGraphics(graphics);
}

void Writer::writeExtendedData(const AcDbObject& object) {
  const resbuf* chain = object.xDataChain();
  if (chain == nullptr) return;
  filer_.beginObject(true);
  for (; chain != nullptr; chain = chain->rbnext) filer_.writeResBuf(*chain);
}

// --- Entities
// ---------------------------------------------------------------------------------------------------------

void Writer::writeBlocks() {
  sink_.start("SECTION");
  sink_.raw(2, "BLOCKS");
  const auto* const table = AcDbSymbolTable::cast(db_.blockTableId().stub()->object);
  for (const AcDbObjectId id : table->recordIds()) {
    if (!id.isResident() || id.isErased()) continue;
    if (auto* const block = AcDbBlockTableRecord::cast(id.stub()->object)) writeBlock(*block);
  }
  sink_.start("ENDSEC");
}

void Writer::writeBlock(AcDbBlockTableRecord& block) {
  const AcDbBlockTableRecord::Data& data = block.data();
  const bool model = block.objectId() == db_.modelSpaceId();
  const bool paper = block.objectId() == db_.paperSpaceId();
  const auto writeEnd = [&](AcDbObjectId id, const char* name, const char* marker) {
    sink_.start(name);
    if (const auto* const end = id.isResident() ? AcDbEntity::cast(id.stub()->object) : nullptr) {
      writeEntityFrame(*end, paper, {});
    }
    sink_.marker(marker);
  };
  writeEnd(block.blockBeginId(), "BLOCK", "AcDbBlockBegin");
  sink_.text(2, block.nameText());
  sink_.int16(70, flagsOf(block));
  sink_.point(10, block.originAsRead());
  sink_.text(3, block.nameText());
  sink_.text(1, data.xrefPath);
  if (!block.commentsText().empty()) sink_.text(4, block.commentsText());
  if (block.blockBeginId().isResident()) writeExtendedData(*block.blockBeginId().stub()->object);
  tellNone(block.objectId().handle().value());
  if (!model && !paper) writeEntitiesOf(block, false);
  writeEnd(block.blockEndId(), "ENDBLK", "AcDbBlockEnd");
  if (block.blockEndId().isResident()) writeExtendedData(*block.blockEndId().stub()->object);
}

int Writer::flagsOf(const AcDbBlockTableRecord& block) {
  enum { kAnonymous = 1, kAttributes = 2, kExternal = 4, kOverlaid = 8, kLoaded = 32, kOwn = 47 };
  const AcDbBlockTableRecord::Data& data = block.data();
  int flags = data.dxfFlags & ~kOwn;
  const bool layout = block.nameText().starts_with(L"*Model_Space") || block.nameText().starts_with(L"*Paper_Space");
  if (data.anonymous || (!layout && block.nameText().starts_with(L"*"))) flags |= kAnonymous;
  if (data.hasAttributeDefinitions) flags |= kAttributes;
  if (data.external) flags |= kExternal;
  if (data.overlaid) flags |= kOverlaid;
  if (data.external && data.loaded) flags |= kLoaded;
  return flags;
}

void Writer::writeEntities() {
  sink_.start("SECTION");
  sink_.raw(2, "ENTITIES");
  const std::pair<AcDbObjectId, bool> spaces[] = {{db_.modelSpaceId(), false}, {db_.paperSpaceId(), true}};
  for (const auto& [id, isPaper] : spaces) {
    const auto* const space = id.isResident() ? AcDbBlockTableRecord::cast(id.stub()->object) : nullptr;
    if (space != nullptr) writeEntitiesOf(*space, isPaper);
  }
  sink_.start("ENDSEC");
}

void Writer::writeEntitiesOf(const AcDbBlockTableRecord& block, bool inPaperSpace) {
  constexpr std::size_t kAFew = 256;
  constexpr std::size_t kMostGrowth = 64;  // what comes may be smaller
  const std::size_t before = sink_.size();
  std::size_t count = 0;
  std::size_t estimateAt = kAFew;
  for (AcDbStub* const stub : block.entities()) {
    writeEntity(stub, inPaperSpace);
    if (++count != estimateAt) continue;
    // Those to come are as large as those before, or a little larger, as numbers and handles grow. What isn't used in
    // the end costs nothing: it was never touched.
    const std::size_t expected = (sink_.size() - before) / count * (block.entities().size() - count);
    sink_.expect(sink_.size() + std::min(expected + expected / 4, kMostGrowth * sink_.size()));
    estimateAt *= kMostGrowth;
  }
}

void Writer::writeEntity(AcDbStub* stub, bool inPaperSpace) {
  if (stub->object == nullptr || stub->has(AcDbStub::kErased)) return;
  auto& entity = static_cast<AcDbEntity&>(*stub->object);
  if (!writePlainEntity(entity, inPaperSpace)) {
    if (auto* const proxy = AcDbProxyEntity::cast(&entity)) {
      writeProxyEntity(*proxy, inPaperSpace);
    } else {
      writeByClass(entity, inPaperSpace);
    }
  }
  tellNone(stub->handle);
}

void Writer::tellNone(std::uint64_t handle) {
  if (sink_.takeNone()) report_.warn("a number that no file can say was written as another", handle);
}

bool Writer::writePlainEntity(AcDbEntity& entity, bool inPaperSpace) {
  const AcRxClass* const own = entity.isA();
  const auto begin = [&](std::string_view name) {
    sink_.start(name);
    writeEntityFrame(entity, inPaperSpace, entity.fileGraphics());
  };
  if (own == AcDbLine::desc()) {
    begin("LINE");
    line(static_cast<const AcDbLine&>(entity).data());
  } else if (own == AcDbPolyline::desc()) {
    begin("LWPOLYLINE");
    polyline(static_cast<const AcDbPolyline&>(entity).data());
  } else if (own == AcDbArc::desc()) {
    begin("ARC");
    arc(static_cast<const AcDbArc&>(entity).data());
  } else if (own == AcDbCircle::desc()) {
    begin("CIRCLE");
    circle(static_cast<const AcDbCircle&>(entity).data());
  } else if (own == AcDbText::desc()) {
    begin("TEXT");
    text(static_cast<const AcDbText&>(entity).data());
  } else {
    return false;
  }
  writeExtendedData(entity);
  return true;
}

void Writer::line(const AcDbLine::Data& data) {
  sink_.marker("AcDbLine");
  if (data.thickness != 0.0) sink_.real(39, data.thickness);
  sink_.point(10, data.start);
  sink_.point(11, data.end);
  writeNormal(data.normal);
}

void Writer::writeNormal(const AcGeVector3d& normal) {
  if (normal.x != 0.0 || normal.y != 0.0 || normal.z != 1.0) sink_.vector(210, normal);
}

void Writer::circle(const AcDbCircle::Data& data) {
  sink_.marker("AcDbCircle");
  if (data.thickness != 0.0) sink_.real(39, data.thickness);
  sink_.point(10, data.center);
  sink_.real(40, data.radius);
  writeNormal(data.normal);
}

void Writer::arc(const AcDbArc::Data& data) {
  sink_.marker("AcDbCircle");
  if (data.thickness != 0.0) sink_.real(39, data.thickness);
  sink_.point(10, data.center);
  sink_.real(40, data.radius);
  writeNormal(data.normal);
  sink_.marker("AcDbArc");
  sink_.angle(50, data.startAngle);
  sink_.angle(51, data.endAngle);
}

void Writer::polyline(const AcDbPolyline::Data& data) {
  constexpr int kClosedFlag = 1;
  constexpr int kPlinegenFlag = 128;
  sink_.marker("AcDbPolyline");
  sink_.int32(90, std::int64_t(data.points.size()));
  sink_.int16(70, ((data.flags & AcDbPolyline::kClosed) != 0 ? kClosedFlag : 0) |
                      ((data.flags & AcDbPolyline::kPlinegen) != 0 ? kPlinegenFlag : 0));
  if (data.widths.empty() || data.constantWidth != 0.0) sink_.real(43, data.constantWidth);
  if (data.elevation != 0.0) sink_.real(38, data.elevation);
  if (data.thickness != 0.0) sink_.real(39, data.thickness);
  for (std::size_t i = 0; i < data.points.size(); ++i) {
    sink_.point(10, data.points[i]);
    if (i < data.widths.size()) {
      sink_.real(40, data.widths[i].x);
      sink_.real(41, data.widths[i].y);
    }
    if (i < data.bulges.size()) sink_.real(42, data.bulges[i]);
  }
  writeNormal(data.normal);
}

void Writer::text(const AcDbText::Data& data) {
  sink_.marker("AcDbText");
  if (data.thickness != 0.0) sink_.real(39, data.thickness);
  sink_.point(10, AcGePoint3d(data.position.x, data.position.y, data.elevation));
  sink_.real(40, data.height);
  sink_.text(1, data.text);
  if (data.rotation != 0.0) sink_.angle(50, data.rotation);
  if (data.widthFactor != 1.0) sink_.real(41, data.widthFactor);
  if (data.oblique != 0.0) sink_.angle(51, data.oblique);
  if (data.style != db_.roots().standardTextStyle) {
    if (const std::string& style = nameOf(data.style); !style.empty()) sink_.raw(7, style);
  }
  if (data.generation != 0) sink_.int16(71, data.generation);
  if (data.horizontal != 0) sink_.int16(72, data.horizontal);
  const bool aligned = data.horizontal != 0 || data.vertical != 0 || data.alignment.x != 0.0 || data.alignment.y != 0.0;
  if (aligned) sink_.point(11, AcGePoint3d(data.alignment.x, data.alignment.y, data.elevation));
  writeNormal(data.normal);
  sink_.marker("AcDbText");
  if (data.vertical != 0) sink_.int16(73, data.vertical);
}

void Writer::writeFields(AcDbObject& object) {
  const AcDbObjectPointer<AcDbObject> open(object.objectId(), AcDb::kForRead);
  filer_.beginObject(object.isKindOf(AcDbXrecord::desc()));
  const Acad::ErrorStatus es = object.dxfOutFields(&filer_);
  const std::uint64_t handle = object.objectId().handle().value();
  if (es != Acad::eOk) report_.warn("an object stopped writing its groups, status " + std::to_string(int(es)), handle);
}

void Writer::writeByClass(AcDbEntity& entity, bool inPaperSpace) {
  const AcRxClass& own = *entity.isA();
  if (own.dxfName() == nullptr) {
    report_.warn("an entity of class " + os::toUtf8(own.name()) + " has no name in files: left out",
                 entity.objectId().handle().value());
    return;
  }
  std::span<const std::byte> graphics = entity.fileGraphics();
  if (!isHosts(own) && graphics.empty()) {
    const AcDbObjectPointer<AcDbObject> open(entity.objectId(), AcDb::kForRead);
    graphics_.clear();
    encodeProxyGraphics(entity, graphics_);
    graphics = graphics_;
  }
  std::string name;
  sink_.encode(own.dxfName(), name);
  sink_.start(name);
  writeEntityFrame(entity, inPaperSpace, graphics);
  writeFields(entity);
  writeExtendedData(entity);
  writeParts(entity, inPaperSpace);
}

void Writer::writeParts(AcDbEntity& entity, bool inPaperSpace) {
  AcDbSubentities* const parts = entity.subentities();
  if (parts == nullptr) return;
  for (AcDbStub* const part : parts->stubs()) writeEntity(part, inPaperSpace);
  AcDbStub* const end = parts->sequenceEnd().stub();
  if (end != nullptr && parts->needsEnd(entity)) writeEntity(end, inPaperSpace);
}

// --- Proxies
// ----------------------------------------------------------------------------------------------------------

AcDbProxyGroups::Iterator Writer::writeGroups(AcDbProxyGroups::Iterator first, AcDbProxyGroups::Iterator last) {
  for (auto each = first; each != last; ++each) {
    const AcDbProxyData::Group group = *each;
    if (group.code == 0 && each != first) return each;
    if (isPlainAscii(group.value)) {
      sink_.raw(group.code, group.value);
    } else {
      sink_.raw(group.code, page_.encode(os::toWide(group.value)));
    }
  }
  return last;
}

void Writer::writeProxyEntity(AcDbProxyEntity& proxy, bool inPaperSpace) {
  const AcDbProxyData& data = proxy.data();
  if (data.form == AcDbProxyData::kDwgBits) {
    sink_.start("ACAD_PROXY_ENTITY");
    writeEntityFrame(proxy, inPaperSpace, {});
    writeProxyRecord(data, true, proxy.fileGraphics());
    writeExtendedData(proxy);
    return;
  }
  std::string name;
  sink_.encode(data.classRecord.dxfName.empty() ? data.dxfName : data.classRecord.dxfName, name);
  sink_.start(name);
  // Behind that marker, groups without a marker of their own would be taken for what every entity has.
  const bool marked = data.groups.empty() || (*data.groups.begin()).code == AcDb::kDxfSubclass;
  writeEntityFrame(proxy, inPaperSpace, proxy.fileGraphics(), marked);
  auto next = writeGroups(data.groups.begin(), data.groups.end());
  writeExtendedData(proxy);
  // What belongs to it, such as the vertices of a mesh.
  while (next != data.groups.end()) next = writeGroups(next, data.groups.end());
}

void Writer::writeProxyRecord(const AcDbProxyData& data, bool entity, std::span<const std::byte> graphics) {
  sink_.marker(entity ? "AcDbProxyEntity" : "AcDbProxyObject");
  sink_.int32(90, entity ? kProxyEntityClass : kProxyObjectClass);
  sink_.int32(91, classNumber(classOf(data, entity)));
  sink_.int32(95, data.format != 0 ? data.format : kOwnFormat);
  sink_.int16(70, 0);
  writeGraphics(graphics);
  sink_.int32(93, data.bitCount);
  sink_.binary(310, data.bits);
  for (const AcDbProxyData::Reference& reference : data.references) {
    int code = 330;
    if (reference.code == 5) code = 340;
    if (reference.code == 2) code = 350;
    if (reference.code == 3) code = 360;
    sink_.handle(code, reference.id.handle().value());
  }
  sink_.int32(94, 0);
}

// --- Objects
// ----------------------------------------------------------------------------------------------------------

void Writer::writeObjects() {
  sink_.start("SECTION");
  sink_.raw(2, "OBJECTS");
  for (AcDbObject* const object : plainObjects(db_)) {
    if (object->isKindOf(AcDbEntity::desc())) {
      writeEntity(object->objectId().stub(), false);
    } else {
      writeObject(*object);
    }
  }
  sink_.start("ENDSEC");
}

void Writer::writeObject(AcDbObject& object) {
  const auto* const proxy = AcDbProxyObject::cast(&object);
  if (proxy != nullptr && proxy->data().form == AcDbProxyData::kDwgBits) {
    sink_.start("ACAD_PROXY_OBJECT");
    writeObjectFrame(object);
    writeProxyRecord(proxy->data(), false, {});
    writeExtendedData(object);
    return;
  }
  std::string name;
  if (proxy != nullptr) {
    sink_.encode(proxy->data().classRecord.dxfName.empty() ? proxy->data().dxfName : proxy->data().classRecord.dxfName,
                 name);
  } else if (object.isA()->dxfName() != nullptr) {
    sink_.encode(object.isA()->dxfName(), name);
  } else {
    report_.warn("an object of class " + os::toUtf8(object.isA()->name()) + " has no name in files: left out",
                 object.objectId().handle().value());
    return;
  }
  sink_.start(name);
  writeObjectFrame(object);
  if (proxy != nullptr) {
    writeGroups(proxy->data().groups.begin(), proxy->data().groups.end());
  } else {
    writeFields(object);
  }
  writeExtendedData(object);
  tellNone(object.objectId().handle().value());
}

}  // namespace krio::dxf

namespace krio {

Acad::ErrorStatus writeDxf(AcDbDatabase& db, std::vector<std::byte>& out, Report& report) {
  db.prepareForSave();
  dxf::Writer(db, out, report).write();
  return Acad::eOk;
}

}  // namespace krio
