#include <algorithm>

#include "host/io/dwg/FileFiler.h"
#include "host/io/dwg/PlainFields.h"
#include "host/io/dwg/RecordFields.h"
#include "host/io/dwg/ValueBytes.h"
#include "host/io/dwg/Writer.h"

namespace krio::dwg {

namespace {

/// Holds an object open for read, whoever else has it open.
class OpenForRead {
 public:
  explicit OpenForRead(AcDbStub* stub) : stub_(stub) { ++stub_->readers; }
  OpenForRead(const OpenForRead&) = delete;
  OpenForRead& operator=(const OpenForRead&) = delete;
  ~OpenForRead() { --stub_->readers; }

 private:
  AcDbStub* stub_;
};

bool isLive(const AcDbStub* stub) {
  return stub != nullptr && stub->object != nullptr && !stub->has(AcDbStub::kErased);
}

}  // namespace

void Writer::writeObjects() {
  std::vector<AcDbStub*> objects, blocks, strays;
  const AcDbStub* lastOwner = nullptr;
  bool lastLists = true;
  // Whether an owner lists its entities itself.
  const auto lists = [&](const AcDbStub* owner) {
    if (owner == lastOwner) return lastLists;
    lastOwner = owner;
    auto* const entity = AcDbEntity::cast(owner->object);
    return lastLists = AcDbBlockTableRecord::cast(owner->object) != nullptr ||
                       (entity != nullptr && entity->subentities() != nullptr);
  };
  for (AcDbStub& stub : const_cast<AcDbHandleTable&>(database_.handleTable()).stubs()) {
    if (!isLive(&stub)) continue;
    const AcDbStub* const owner = stub.owner;
    const Kind& kind = kindOf(*stub.object);
    if (kind.isEntity) {
      const bool isEnd = kind.how == Kind::How::kBlockBegin || kind.how == Kind::How::kBlockEnd;
      if (!isEnd && isLive(owner) && !lists(owner)) strays.push_back(&stub);
      continue;
    }
    if (AcDbObjectId(&stub).isEffectivelyErased()) continue;
    objects.push_back(&stub);
    if (kind.how == Kind::How::kBlockRecord) blocks.push_back(&stub);
  }
  const auto byHandle = [](const AcDbStub* a, const AcDbStub* b) { return a->handle < b->handle; };
  std::sort(objects.begin(), objects.end(), byHandle);
  std::sort(blocks.begin(), blocks.end(), byHandle);
  for (AcDbStub* const stub : objects) writeObject(stub);
  for (AcDbStub* const stub : blocks) writeBlock(static_cast<const AcDbBlockTableRecord&>(*stub->object));
  writeStrays(std::move(strays));
}

void Writer::writeObject(AcDbStub* stub) {
  const OpenForRead open(stub);
  const AcDbObject& object = *stub->object;
  const Kind& kind = kindOf(object);
  const unsigned number = kind.how == Kind::How::kProxy
                              ? typeOfProxy(static_cast<const AcDbProxyObject&>(object).data(), false)
                              : kind.number;
  const OpenFrame frame = openFrame(number, object, stub->handle);
  writeHead(object, stub);
  switch (kind.how) {
    case Kind::How::kByType:
      kind.type->write(encoder_, object);
      break;
    case Kind::How::kBlockRecord:
      writeBlockRecord(static_cast<const AcDbBlockTableRecord&>(object));
      break;
    case Kind::How::kControl:
      writeControl(static_cast<const AcDbSymbolTable&>(object));
      break;
    case Kind::How::kXrecord:
      writeXrecord(static_cast<const AcDbXrecord&>(object));
      break;
    case Kind::How::kProxy:
      writeProxyData(static_cast<const AcDbProxyObject&>(object).data(), false);
      break;
    default:
      writeCustom(object);
  }
  closeFrame(frame);
}

void Writer::writeBlock(const AcDbBlockTableRecord& block) {
  const auto writeEnd = [&](AcDbObjectId id) {
    if (isLive(id.stub())) writeEntity(id.stub(), {0, 0, false});
  };
  writeEnd(block.blockBeginId());
  writeChain(block.entities());
  writeEnd(block.blockEndId());
}

/// The entities of one owner, each with its neighbours, and behind each what belongs to it.
void Writer::writeChain(const std::vector<AcDbStub*>& stubs) {
  const auto nextLive = [&](std::size_t i) {
    while (i < stubs.size() && !isLive(stubs[i])) ++i;
    return i;
  };
  std::uint64_t previous = 0;
  for (std::size_t i = nextLive(0); i < stubs.size();) {
    const std::size_t next = nextLive(i + 1);
    AcDbStub* const stub = stubs[i];
    writeEntity(stub, {previous, next < stubs.size() ? stubs[next]->handle : 0, true});
    auto& entity = *static_cast<AcDbEntity*>(stub->object);
    if (const AcDbSubentities* const parts = entity.subentities()) {
      writeChain(parts->stubs());
      if (parts->needsEnd(entity) && isLive(parts->sequenceEnd().stub()))
        writeEntity(parts->sequenceEnd().stub(), {0, 0, false});
    }
    previous = stub->handle;
    i = next;
  }
}

/// What belongs to an object that doesn't list its entities itself, such as a proxy. Their chain goes by their handles.
void Writer::writeStrays(std::vector<AcDbStub*> strays) {
  std::sort(strays.begin(), strays.end(), [](const AcDbStub* a, const AcDbStub* b) {
    return a->owner != b->owner ? a->owner->handle < b->owner->handle : a->handle < b->handle;
  });
  for (auto first = strays.begin(); first != strays.end();) {
    const auto last =
        std::find_if(first, strays.end(), [&](const AcDbStub* each) { return each->owner != (*first)->owner; });
    const auto parts =
        std::stable_partition(first, last, [](const AcDbStub* each) { return !AcDbSequenceEnd::cast(each->object); });
    writeChain({first, parts});
    for (auto each = parts; each != last; ++each) writeEntity(*each, {0, 0, false});
    first = last;
  }
}

void Writer::writeEntity(AcDbStub* stub, const Links& links) {
  const OpenForRead open(stub);
  const auto& entity = static_cast<const AcDbEntity&>(*stub->object);
  const Kind& kind = kindOf(entity);
  const unsigned number = kind.how == Kind::How::kProxy
                              ? typeOfProxy(static_cast<const AcDbProxyEntity&>(entity).data(), true)
                              : kind.number;
  const OpenFrame frame = openFrame(number, entity, stub->handle);
  writeHead(entity, stub, links, kind.how == Kind::How::kCustom);
  switch (kind.how) {
    case Kind::How::kByType:
      if (number == kLine) {
        code(encoder_, static_cast<const AcDbLine&>(entity).data());
      } else if (number == kArc) {
        code(encoder_, static_cast<const AcDbArc&>(entity).data());
      } else if (number == kCircle) {
        code(encoder_, static_cast<const AcDbCircle&>(entity).data());
      } else if (number == kLwPolyline) {
        code(encoder_, static_cast<const AcDbPolyline&>(entity).data());
      } else {
        kind.type->write(encoder_, entity);
      }
      break;
    case Kind::How::kBlockBegin: {
      const auto* const block = AcDbBlockTableRecord::cast(stub->owner != nullptr ? stub->owner->object : nullptr);
      encoder_.tv(block != nullptr ? block->nameText() : std::wstring());
      break;
    }
    case Kind::How::kBlockEnd:
      break;
    case Kind::How::kProxy:
      writeProxyData(static_cast<const AcDbProxyEntity&>(entity).data(), true);
      break;
    default:
      writeCustom(entity);
  }
  closeFrame(frame);
}

void Writer::writeBlockRecord(const AcDbBlockTableRecord& record) {
  const AcDbBlockTableRecord::Data& data = record.data();
  codeFilePart(encoder_, record.recordName(), record.filePart());
  encoder_.b(data.anonymous), encoder_.b(data.hasAttributeDefinitions), encoder_.b(data.external);
  encoder_.b(data.overlaid), encoder_.b(data.loaded), encoder_.bd3(record.originAsRead());
  encoder_.tv(data.xrefPath);
  std::vector<AcDbStub*> inserts;
  std::copy_if(record.blockReferences().begin(), record.blockReferences().end(), std::back_inserter(inserts), isLive);
  for (std::size_t i = 0; i < inserts.size(); ++i) encoder_.rc(1);
  encoder_.rc(0);
  encoder_.tv(record.commentsText());
  encoder_.bl(data.preview.size());
  file_.bytes(data.preview.data(), data.preview.size());

  encoder_.id(kHardOwner, record.blockBeginId());
  if (!data.external && !data.overlaid) {
    const auto& entities = record.entities();
    const auto first = std::find_if(entities.begin(), entities.end(), isLive);
    const auto last = std::find_if(entities.rbegin(), entities.rend(), isLive);
    encoder_.ref(kSoftPointer, first != entities.end() ? (*first)->handle : 0);
    encoder_.ref(kSoftPointer, last != entities.rend() ? (*last)->handle : 0);
  }
  encoder_.id(kHardOwner, record.blockEndId());
  for (AcDbStub* const insert : inserts) encoder_.id(kSoftPointer, insert);
  encoder_.id(kHardPointer, data.layout);
}

void Writer::writeControl(const AcDbSymbolTable& table) {
  // The records that aren't counted stand behind the others, and belong to the table wholly.
  const AcDbDatabase::Roots& roots = database_.roots();
  std::vector<AcDbObjectId> apart;
  if (table.isA() == AcDbBlockTable::desc()) apart = {roots.modelSpace, roots.paperSpace};
  if (table.isA() == AcDbLinetypeTable::desc()) apart = {roots.byBlock, roots.byLayer};
  std::vector<AcDbObjectId> records;
  for (const AcDbObjectId id : table.recordIds()) {
    if (isLive(id.stub()) && std::find(apart.begin(), apart.end(), id) == apart.end()) records.push_back(id);
  }
  encoder_.bl(records.size());
  for (const AcDbObjectId id : records) encoder_.id(kSoftOwner, id);
  for (const AcDbObjectId id : apart) encoder_.id(kHardOwner, id);
  if (table.isA() != AcDbDimStyleTable::desc()) return;
  constexpr std::size_t kMostUses = 0xff;
  std::vector<AcDbObjectId> uses;
  for (const AcDbObjectId id : static_cast<const AcDbDimStyleTable&>(table).further()) {
    if (isLive(id.stub()) && uses.size() < kMostUses) uses.push_back(id);
  }
  encoder_.rc(uses.size());
  for (const AcDbObjectId id : uses) encoder_.id(kHardPointer, id);
}

void Writer::writeXrecord(const AcDbXrecord& record) {
  BitWriter items;
  const int faults = writeXrecordItems(record.chain(), page_, header_.codePage, items);
  if (faults != 0) {
    report_.warn(std::to_string(faults) + " values of a record have no form in this file and were left out",
                 record.objectId().handle().value());
  }
  const auto bytes = items.bytes();
  encoder_.bl(bytes.size());
  file_.bytes(bytes.data(), bytes.size());
  encoder_.bs(int(record.mergeStyleAsRead()));
  for (const AcDbXrecord::Reference& reference : record.references()) encoder_.id(reference.code, reference.id);
  if (!record.references().empty()) return;
  // Of a record that wasn't read from such a file, the references are those that its values are.
  for (const resbuf* link = record.chain(); link != nullptr; link = link->rbnext) {
    const int band = link->restype / 10;
    const unsigned code = band == 33   ? unsigned(kSoftPointer)
                          : band == 34 ? unsigned(kHardPointer)
                          : band == 35 ? unsigned(kSoftOwner)
                          : band == 36 ? unsigned(kHardOwner)
                          : band == 39 ? unsigned(kHardPointer)
                                       : unsigned(kOwn);
    if (code != kOwn) encoder_.id(code, AcDbObjectId().setFromOldId(Adesk::IntPtr(link->resval.rlname[0])));
  }
}

/// The data of an object kept whole. Groups of the exchange format go into a proxy's record, each as its code and its
/// text.
void Writer::writeProxyData(const AcDbProxyData& data, bool isEntity) {
  const bool asGroups = data.form == AcDbProxyData::kDxfGroups;
  if (asGroups || data.asProxyRecord) {
    const AcDbClassRecord record = classOf(data, isEntity);
    const unsigned number = record.dxfName.empty() ? 0 : classNumber(record);
    file_.bl(number), file_.bl(std::uint32_t(data.format)), file_.b(asGroups);
  }
  if (asGroups) {
    for (const AcDbProxyData::Group group : data.groups) {
      file_.sbs(group.code);
      file_.tv(group.value);
    }
    return;
  }
  file_.bitRun({reinterpret_cast<const std::uint8_t*>(data.bits.data()), data.bits.size()}, data.bitCount);
  for (const AcDbProxyData::Reference& reference : data.references) encoder_.id(reference.code, reference.id);
}

void Writer::writeCustom(const AcDbObject& object) {
  FileFiler filer(encoder_);
  Acad::ErrorStatus es = object.dwgOutFields(&filer);
  if (es == Acad::eOk) es = filer.filerStatus();
  if (es == Acad::eOk || status_ != Acad::eOk) return;
  status_ = es;
  report_.error("the object can't be written", object.objectId().handle().value());
}

}  // namespace krio::dwg
