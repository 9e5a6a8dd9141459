#include "host/io/dwg/Reader.h"

#include <algorithm>

#include "host/db/HandleLimit.h"
#include "host/db/MergeStyle.h"
#include "host/io/ProxyGraphics.h"
#include "host/io/dwg/CodePages.h"
#include "host/io/dwg/Dwg.h"
#include "host/io/dwg/FileFiler.h"
#include "host/io/dwg/PlainFields.h"
#include "host/io/dwg/RecordFields.h"
#include "host/io/dwg/ValueBytes.h"
#include "host/io/dwg/Variables.h"

namespace krio {

namespace {

dwg::ByteSpan asBytes(std::span<const std::byte> bytes) {
  return {reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()};
}

}  // namespace

bool isDwg(std::span<const std::byte> bytes) {
  return dwg::Container::isOne(asBytes(bytes));
}

Acad::ErrorStatus readDwg(std::span<const std::byte> bytes, AcDbDatabase& db, Report& report,
                          const ReadOptions& options) {
  return dwg::Reader(asBytes(bytes), db, report, options).read();
}

}  // namespace krio

namespace krio::dwg {

namespace {

/// How the exchange format names objects of the fixed types that the host has no class for.
struct TypeName {
  std::uint16_t type;
  const wchar_t* name;
};
constexpr std::uint16_t kPolyfaceMesh = 0x1D;
constexpr TypeName kTypeNames[] = {
    {0x0C, L"VERTEX"},    {0x0D, L"VERTEX"}, {0x0E, L"VERTEX"},    {0x1C, L"3DFACE"},     {0x1E, L"POLYLINE"},
    {0x1D, L"POLYLINE"},  {0x21, L"SHAPE"},  {0x23, L"ELLIPSE"},   {0x24, L"SPLINE"},     {0x25, L"REGION"},
    {0x26, L"3DSOLID"},   {0x27, L"BODY"},   {0x28, L"RAY"},       {0x29, L"XLINE"},      {0x2B, L"OLEFRAME"},
    {0x2E, L"TOLERANCE"}, {0x2F, L"MLINE"},  {0x4A, L"OLE2FRAME"}, {kXrecord, L"XRECORD"}};

const wchar_t* nameOfFixedType(unsigned type) {
  const auto found = std::find_if(std::begin(kTypeNames), std::end(kTypeNames),
                                  [&](const TypeName& each) { return each.type == type; });
  return found != std::end(kTypeNames) ? found->name : L"";
}

/// The fixed type whose groups stand under a class of its name; 0 for a class of an application.
std::uint16_t fixedTypeOf(const AcDbClassRecord& record) {
  if (record.cppName == L"AcDbPolyFaceMesh") return kPolyfaceMesh;
  const auto found = std::find_if(std::begin(kTypeNames), std::end(kTypeNames),
                                  [&](const TypeName& each) { return each.name == record.dxfName; });
  return found != std::end(kTypeNames) ? found->type : std::uint16_t(0);
}

/// The groups of a proxy in the exchange format's form, to the end of the data.
bool readGroups(Decoder& decoder, AcDbProxyGroups& groups) {
  BitReader bits = decoder.data;
  // A group takes two short codes; more of them than this would be made of nothing but zeros.
  constexpr std::size_t kBitsPerGroup = 16;
  const std::size_t most = bits.left() / kBitsPerGroup;
  AcDbProxyGroups found;
  std::string value;
  while (bits.left() > 0) {
    const int code = bits.sbs();
    const std::size_t length = bits.bs();
    if (found.size() >= most || !bits.fits(length, 8)) return false;
    value.resize(length);
    bits.bytes(value.data(), length);
    found.push_back(code, value);
  }
  decoder.data = bits;
  groups = found;
  return true;
}

}  // namespace

Reader::Reader(ByteSpan file, AcDbDatabase& database, Report& report, const ReadOptions& options)
    : file_(file), database_(database), report_(report), policy_(report, options.recover), container_(file, policy_) {}

Acad::ErrorStatus Reader::read() {
  if (!Container::isOne(file_)) {
    report_.error("not a drawing of version AC1015", 0, 0);
    return Acad::eUnknownDwgVersion;
  }
  if (!container_.read()) return Acad::eDwgNeedsRecovery;
  database_.fileExtras().codePage = container_.header().codePage;
  const auto* const preview = reinterpret_cast<const std::byte*>(container_.preview().data());
  database_.fileExtras().preview.assign(preview, preview + container_.preview().size());
  context_.emplace(database_, codePageOf(container_.header().codePage), file_.size());
  if (!readClasses() || !makeStubs() || !readHeaderVariables()) return Acad::eDwgNeedsRecovery;
  if (!readObjects()) return Acad::eDwgObjectImproperlyRead;
  return finish() ? Acad::eOk : Acad::eDwgNeedsRecovery;
}

// --- What comes before the objects
// ----------------------------------------------------------------------------------------------------

bool Reader::readClasses() {
  const ByteSpan data = container_.classes();
  const auto place = std::size_t(data.data() - file_.data());
  Decoder d(*context_, BitReader(data), BitReader(), 0);
  auto& records = database_.classRecords();
  while (d.data.left() >= 8) {
    AcDbClassRecord record;
    unsigned number = 0;
    d.bs(number), d.bs(record.proxyFlags);
    record.proxyFlags &= 0xffff;
    d.tv(record.appName), d.tv(record.cppName), d.tv(record.dxfName), d.b(record.wasProxy), d.bs(record.itemClassId);
    const std::size_t at = place + d.data.position() / 8;
    if (d.failed()) return policy_.goOn("a class record ends within itself", at);
    if (number != kFirstClass + records.size()) {
      return policy_.goOn("class " + std::to_string(number) + " is out of order", at);
    }
    FileClass entry;
    entry.record = records.size();
    entry.isEntity = record.isEntity();
    entry.type = entry.isEntity ? nullptr : typeOfClass(record.dxfName);
    if (entry.type == nullptr) entry.custom = customClassOf(record);
    records.push_back(std::move(record));
    classes_.push_back(entry);
  }
  return true;
}

/// Every object of the map gets its stub, so that references find them whatever the order.
bool Reader::makeStubs() {
  const auto& map = container_.map();
  if (map.empty() && !policy_.recover()) return policy_.goOn("the drawing has no objects", 0);
  const std::uint64_t declared = readHandseed(BitReader(container_.variables()));
  while (!map.empty() && map.back().handle > kMaxHandle) {
    if (!policy_.goOn("a handle is too large; its object was left out", 0, map.back().handle)) return false;
    container_.dropLast();
  }
  const std::uint64_t needed = map.empty() ? 1 : map.back().handle + 1;
  std::uint64_t seed = std::max(declared, needed);
  if (declared < needed || declared > kMaxHandle + 1) {
    if (!policy_.goOn("HANDSEED isn't the handle that comes next", 0, declared)) return false;
    seed = needed;
  }
  database_.reserveObjects(map.size(), needed);
  for (const MapEntry& entry : map) database_.stubOf(entry.handle);
  database_.setHandseedAsRead(seed);
  context_->setHandseed(seed);
  return true;
}

bool Reader::readHeaderVariables() {
  AcDbHeader& header = database_.header();
  if (!readVariables(*context_, BitReader(container_.variables()), header) &&
      !policy_.goOn("the header variables end early",
                    container_.variables().empty() ? 0 : container_.variablesPlace())) {
    return false;
  }
  header.setWhole(AcDbHeader::kMEASUREMENT, container_.measurement());
  if (policy_.recover()) findNamedRecords();
  modelSpace_ = header.id(AcDbHeader::kBLOCK_MODEL_SPACE).stub();
  paperSpace_ = header.id(AcDbHeader::kBLOCK_PAPER_SPACE).stub();
  return true;
}

// --- Objects
// ----------------------------------------------------------------------------------------------------------

bool Reader::lost(const MapEntry& entry, const char* why) {
  return policy_.goOn(why, entry.address, entry.handle);
}

bool Reader::readObjects() {
  // Objects don't overlap: together they are no larger than the file. A map that tells otherwise would have the same
  // bytes read over and over.
  std::size_t budget = file_.size();
  for (const MapEntry& entry : container_.map()) {
    const auto object = container_.objectAt(entry.address);
    if (object && object->size > budget) {
      return policy_.goOn("the object map tells of objects that overlap", entry.address, entry.handle);
    }
    if (object) budget -= object->size;
    if (!readObject(entry, database_.handleTable().find(entry.handle))) return false;
  }
  return true;
}

bool Reader::readObject(const MapEntry& entry, AcDbStub* stub) {
  const auto object = container_.objectAt(entry.address);
  if (!object) return lost(entry, "the object lies outside of the file");
  if (!container_.objectSumRight(*object)) return lost(entry, "the object's checksum is wrong; it was left out");
  const auto frame = readFrame(file_, *object);
  if (!frame) return lost(entry, "the object's parts don't fit together; it was left out");
  if (frame->handle != entry.handle) return lost(entry, "another object stands where the map tells; it was left out");
  if (!dispatch(*frame, stub)) return lost(entry, "the object can't be read; it was left out");
  if (frame->hasExtendedData) [[unlikely]]
    extendedData_.push_back({stub, frame->extendedData});
  return true;
}

bool Reader::dispatch(const Frame& frame, AcDbStub* stub) {
  switch (frame.type) {
    case kLine:
      return readPlain<AcDbLine>(frame, stub);
    case kArc:
      return readPlain<AcDbArc>(frame, stub);
    case kCircle:
      return readPlain<AcDbCircle>(frame, stub);
    case kLwPolyline:
      return readPlain<AcDbPolyline>(frame, stub);
    case kText:
      return readPlain<AcDbText>(frame, stub);
    case kBlockBegin:
      return readBlockBegin(frame, stub);
    case kBlockEnd:
      return readBlockEnd(frame, stub);
    case kBlockRecord:
      return readBlockRecord(frame, stub);
    case kXrecord:
      return readXrecord(frame, stub);
    case kBlockControl:
      return readControl<AcDbBlockTable>(frame, stub, 2);
    case kLayerControl:
      return readControl<AcDbLayerTable>(frame, stub, 0);
    case kStyleControl:
      return readControl<AcDbTextStyleTable>(frame, stub, 0);
    case kLinetypeControl:
      return readControl<AcDbLinetypeTable>(frame, stub, 2);
    case kViewControl:
      return readControl<AcDbViewTable>(frame, stub, 0);
    case kUcsControl:
      return readControl<AcDbUCSTable>(frame, stub, 0);
    case kViewportControl:
      return readControl<AcDbViewportTable>(frame, stub, 0);
    case kAppIdControl:
      return readControl<AcDbRegAppTable>(frame, stub, 0);
    case kDimStyleControl:
      return readControl<AcDbDimStyleTable>(frame, stub, 0);
    case kViewportHeaderControl:
      return readControl<AcDbVXTable>(frame, stub, 0);
    default:
      break;
  }
  if (const TypeInfo* const type = typeOfNumber(frame.type)) return readByType(*type, frame, stub);
  if (frame.type < kFirstClass) return readProxy(nullptr, isEntityType(frame.type), frame, stub, nullptr);
  const auto place = std::size_t(frame.type - kFirstClass);
  if (place >= classes_.size()) return false;
  const FileClass& fileClass = classes_[place];
  if (fileClass.type != nullptr) return readByType(*fileClass.type, frame, stub);
  if (fileClass.custom != nullptr) return readCustom(fileClass, frame, stub);
  return readProxy(&fileClass, fileClass.isEntity, frame, stub, nullptr);
}

AcDbStub* Reader::ownerOf(const EntityHead& head) {
  if (head.mode == EntityHead::kInModelSpace) return modelSpace_;
  if (head.mode == EntityHead::kInPaperSpace) return paperSpace_;
  return context_->resolve(head.owner);
}

void Reader::setCommon(AcDbEntity& entity, const EntityHead& head) {
  AcDbDatabase& db = database_;
  AcDbStub* linetype = nullptr;
  switch (head.linetypeForm) {
    case 0:
      linetype = db.header().id(AcDbHeader::kLTYPE_BYLAYER).stub();
      break;
    case 1:
      linetype = db.header().id(AcDbHeader::kLTYPE_BYBLOCK).stub();
      break;
    case 2:
      linetype = db.header().id(AcDbHeader::kLTYPE_CONTINUOUS).stub();
      break;
    default:
      linetype = context_->resolve(head.linetype);
  }
  AcDbStub* const layer = context_->resolve(head.layer);
  const AcDb::LineWeight weight = acdbLineWeightAt(head.lineWeight);
  if (head.plotStyleForm == 0) [[likely]] {
    entity.setCommonAsRead(layer, linetype, Adesk::UInt8(head.linetypeForm), head.linetypeScale, head.color, weight,
                           head.invisible);
    return;
  }
  AcDbEntity::Common common;
  common.layer = layer;
  common.linetype = linetype;
  common.plotStyle = context_->resolve(head.plotStyle);
  common.linetypeScale = head.linetypeScale;
  common.color = head.color;
  common.lineWeight = weight;
  common.invisible = head.invisible;
  common.linetypeForm = Adesk::UInt8(head.linetypeForm);
  common.plotStyleForm = Adesk::UInt8(head.plotStyleForm);
  entity.setCommonAsRead(common);
}

/// The picture that the file has of an entity.
void Reader::setGraphics(AcDbEntity& entity, const EntityHead& head, const Frame& frame) {
  if (!head.hasGraphics) return;
  std::vector<std::byte> graphics(head.graphicsBytes);
  BitReader bits = frame.data;
  bits.seek(head.graphics);
  bits.bytes(graphics.data(), graphics.size());
  entity.setFileGraphics(std::move(graphics));
}

template <class Head>
void Reader::setRelations(AcDbObject& object, const Head& head, const Frame& frame) {
  if (head.extensionDictionary != 0) {
    object.setExtensionDictionaryAsRead(context_->resolve(head.extensionDictionary));
  }
  if (head.reactors == 0) return;
  BitReader handles = frame.handles;
  handles.seek(head.reactorsAt);
  for (std::uint32_t i = 0; i < head.reactors && !handles.failed(); ++i) {
    AcDbStub* const reactor = context_->resolve(absoluteHandle(handles.h(), frame.handle));
    if (reactor != nullptr) object.addPersistentReactorAsRead(reactor);
  }
}

template <class Head>
bool Reader::put(std::unique_ptr<AcDbObject> object, AcDbStub* stub, AcDbStub* owner, const Head& head,
                 const Frame& frame) {
  if (head.reactors != 0 || head.extensionDictionary != 0) [[unlikely]]
    setRelations(*object, head, frame);
  if (database_.putRead(object.get(), stub, owner) != Acad::eOk) return false;
  static_cast<void>(object.release());
  return true;
}

Reader::Parts& Reader::partsOf(AcDbStub* owner) {
  if (lastParts_ < parts_.size() && parts_[lastParts_].owner == owner) return parts_[lastParts_];
  const auto [found, added] = partsPlaces_.try_emplace(owner, parts_.size());
  if (added) parts_.push_back({owner, {}, 0, 0, true});
  lastParts_ = found->second;
  return parts_[lastParts_];
}

void Reader::list(const EntityHead& head, AcDbStub* owner, AcDbStub* stub) {
  Parts& parts = partsOf(owner);
  parts.inOrder &= head.previous == parts.lastHandle && (parts.stubs.empty() || parts.lastNext == stub->handle);
  parts.lastHandle = stub->handle;
  parts.lastNext = head.next;
  parts.stubs.push_back(stub);
}

/// The entities that drawings have most of.
template <class T>
bool Reader::readPlain(const Frame& frame, AcDbStub* stub) {
  Decoder decoder = decoderOf(frame);
  EntityHead head;
  readHead(decoder, head);
  auto entity = std::make_unique<T>();
  code(decoder, entity->dataAsRead());
  if (!endsRight(decoder) || !decoder.finite()) [[unlikely]]
    return readProxy(nullptr, true, frame, stub, "its data can't be understood");
  setCommon(*entity, head);
  AcDbStub* const owner = ownerOf(head);
  if (!put(std::unique_ptr<AcDbObject>(entity.release()), stub, owner, head, frame)) return false;
  list(head, owner, stub);
  return true;
}

bool Reader::readByType(const TypeInfo& type, const Frame& frame, AcDbStub* stub) {
  Decoder decoder = decoderOf(frame);
  std::unique_ptr<AcDbObject> object(type.make());
  auto* const entity = AcDbEntity::cast(object.get());
  if (AcDbSymbolTableRecord::cast(object.get()) != nullptr) records_.push_back(stub);
  const FileClass* const fileClass = frame.type >= kFirstClass ? &classes_[frame.type - kFirstClass] : nullptr;
  const auto keep = [&] {
    return readProxy(fileClass, entity != nullptr, frame, stub, "its data can't be understood");
  };
  if (entity == nullptr) {
    ObjectHead head;
    readHead(decoder, head);
    type.read(decoder, *object);
    if (!endsRight(decoder)) return keep();
    return put(std::move(object), stub, context_->resolve(head.owner), head, frame);
  }
  EntityHead head;
  readHead(decoder, head);
  type.read(decoder, *object);
  // The end of a sequence has no data. Kept as a proxy for what stands there, it would count as one of the sequence.
  const bool fits = frame.type == kSequenceEnd ? !decoder.failed() : endsRight(decoder) && decoder.finite();
  if (!fits) return keep();
  setCommon(*entity, head);
  AcDbStub* const owner = ownerOf(head);
  if (!put(std::move(object), stub, owner, head, frame)) return false;
  if (frame.type == kInsert || frame.type == kMInsert) {
    inserts_.emplace_back(static_cast<AcDbBlockReference*>(entity)->data().block.stub(), stub);
  }
  if (entity->subentities() != nullptr) sequences_.push_back(stub);
  if (frame.type == kViewport) viewports_.push_back(stub);
  if (frame.type != kSequenceEnd) list(head, owner, stub);
  if (isPartType(frame.type)) sequenceParts_.push_back(stub);
  return true;
}

/// An object of a class that files itself: it reads while it is in the database and open, as if it had just been added.
bool Reader::readCustom(const FileClass& fileClass, const Frame& frame, AcDbStub* stub) {
  Decoder decoder = decoderOf(frame);
  std::unique_ptr<AcDbObject> object(static_cast<AcDbObject*>(fileClass.custom->create()));
  if (object == nullptr) return readProxy(&fileClass, fileClass.isEntity, frame, stub, "its class makes no object");
  auto* const entity = AcDbEntity::cast(object.get());
  EntityHead head;
  ObjectHead objectHead;
  AcDbStub* owner = nullptr;
  if (entity != nullptr) {
    readHead(decoder, head);
    if (decoder.failed()) return false;
    setCommon(*entity, head);
    setRelations(*object, head, frame);
    owner = ownerOf(head);
  } else {
    readHead(decoder, objectHead);
    if (decoder.failed()) return false;
    setRelations(*object, objectHead, frame);
    owner = context_->resolve(objectHead.owner);
  }
  if (database_.putRead(object.get(), stub, owner) != Acad::eOk) return false;
  constexpr Adesk::UInt32 kReading = AcDbStub::kOpenForWrite | AcDbStub::kModified | AcDbStub::kModifiedGraphics |
                                     AcDbStub::kUndoTaken | AcDbStub::kAnnounced;
  stub->flags |= kReading;
  FileFiler filer(decoder);
  const Acad::ErrorStatus es = object->dwgInFields(&filer);
  const bool isRead = es == Acad::eOk && filer.filerStatus() == Acad::eOk && endsRight(decoder);
  if (isRead && entity != nullptr && head.hasGraphics && drawsNothing(*entity)) setGraphics(*entity, head, frame);
  stub->flags &= ~kReading;
  if (isRead) {
    static_cast<void>(object.release());
    if (entity != nullptr) list(head, owner, stub);
    return true;
  }
  object.reset();
  stub->object = nullptr;
  return readProxy(&fileClass, fileClass.isEntity, frame, stub,
                   es == Acad::eMakeMeProxy ? "its class refused it" : "its class can't read it");
}

bool Reader::readProxy(const FileClass* fileClass, bool isEntity, const Frame& frame, AcDbStub* stub, const char* why) {
  if (why != nullptr) {
    report_.warn(std::string(why) + "; it is kept as it is", frame.handle, std::int64_t(frame.place), true);
  }
  Decoder decoder = decoderOf(frame);
  if (!isEntity) {
    ObjectHead head;
    readHead(decoder, head);
    if (decoder.failed()) return false;
    auto proxy = std::make_unique<AcDbProxyObject>();
    fillProxy(proxy->dataAsRead(), fileClass, frame, decoder);
    return put(std::move(proxy), stub, context_->resolve(head.owner), head, frame);
  }
  EntityHead head;
  readHead(decoder, head);
  if (decoder.failed()) return false;
  auto proxy = std::make_unique<AcDbProxyEntity>();
  setCommon(*proxy, head);
  setGraphics(*proxy, head, frame);
  fillProxy(proxy->dataAsRead(), fileClass, frame, decoder);
  AcDbStub* const owner = ownerOf(head);
  if (!put(std::move(proxy), stub, owner, head, frame)) return false;
  list(head, owner, stub);
  return true;
}

/// What stands behind the common data: the bits to the end, and the references.
void Reader::fillProxy(AcDbProxyData& data, const FileClass* fileClass, const Frame& frame, Decoder& decoder) {
  data.form = AcDbProxyData::kDwgBits;
  if (fileClass == nullptr && (frame.type == kProxyEntity || frame.type == kProxyObject)) {
    Decoder ahead = decoder;
    const std::uint32_t number = ahead.data.bl();
    const std::uint32_t format = ahead.data.bl();
    const bool asGroups = ahead.data.b();
    if (!ahead.failed() && number >= kFirstClass && number - kFirstClass < classes_.size()) {
      // Groups that can't be told apart are kept as they stand, with what stands ahead of them.
      if (!asGroups || readGroups(ahead, data.groups)) {
        fileClass = &classes_[number - kFirstClass];
        data.asProxyRecord = true;
        data.format = Adesk::Int32(format);
        data.form = asGroups ? AcDbProxyData::kDxfGroups : AcDbProxyData::kDwgBits;
        decoder.data = ahead.data;
      }
    }
  }
  const AcDbClassRecord* const record = fileClass != nullptr ? &database_.classRecords()[fileClass->record] : nullptr;
  if (record != nullptr &&
      context_->mayCopy(record->appName.size() + record->cppName.size() + record->dxfName.size())) {
    data.classRecord = *record;
    data.classRecord.wasProxy = fileClass->type == nullptr && fileClass->custom == nullptr;
  } else {
    data.fixedType = frame.type;
    data.dxfName = nameOfFixedType(frame.type);
  }
  if (const std::uint16_t fixed = data.form == AcDbProxyData::kDxfGroups ? fixedTypeOf(data.classRecord) : 0) {
    data.dxfName = data.classRecord.dxfName;
    data.classRecord = {};
    data.fixedType = fixed;
  }
  data.bitCount = Adesk::UInt32(decoder.data.left());
  data.bits.resize((data.bitCount + 7) / 8);
  decoder.data.bytes(data.bits.data(), data.bitCount / 8);
  if (const auto rest = unsigned(data.bitCount % 8); rest != 0) {
    data.bits.back() = std::byte(decoder.data.bits(rest) << (8 - rest));
  }
  while (decoder.handles.left() >= 8) {
    const HandleRef ref = decoder.handles.h();
    if (decoder.handles.failed()) break;
    const bool relative = ref.code > kHardPointer;
    data.references.push_back({Adesk::UInt8(relative ? unsigned(kSoftPointer) : ref.code),
                               context_->resolve(absoluteHandle(ref, frame.handle))});
  }
}

bool Reader::readBlockBegin(const Frame& frame, AcDbStub* stub) {
  Decoder decoder = decoderOf(frame);
  EntityHead head;
  readHead(decoder, head);
  std::wstring name;
  decoder.tv(name);
  if (!endsRight(decoder)) return false;
  auto entity = std::make_unique<AcDbBlockBegin>();
  setCommon(*entity, head);
  blockNames_[stub] = std::move(name);
  return put(std::move(entity), stub, ownerOf(head), head, frame);
}

bool Reader::readBlockEnd(const Frame& frame, AcDbStub* stub) {
  Decoder decoder = decoderOf(frame);
  EntityHead head;
  readHead(decoder, head);
  if (!endsRight(decoder)) return false;
  auto entity = std::make_unique<AcDbBlockEnd>();
  setCommon(*entity, head);
  return put(std::move(entity), stub, ownerOf(head), head, frame);
}

bool Reader::readBlockRecord(const Frame& frame, AcDbStub* stub) {
  Decoder d = decoderOf(frame);
  ObjectHead head;
  readHead(d, head);
  auto record = std::make_unique<AcDbBlockTableRecord>();
  AcDbBlockTableRecord::Data& data = record->dataAsRead();
  BlockRecord block;
  block.stub = stub;
  codeFilePart(d, block.name, record->filePartAsRead());
  d.b(data.anonymous), d.b(data.hasAttributeDefinitions), d.b(data.external), d.b(data.overlaid), d.b(data.loaded);
  AcGePoint3d origin;
  std::wstring comments;
  d.bd3(origin), d.tv(data.xrefPath);
  std::size_t inserts = 0;
  while (d.data.rc() != 0) ++inserts;
  d.tv(comments);
  const std::uint32_t previewBytes = d.data.bl();
  if (!d.data.fits(previewBytes, 8)) return false;
  data.preview.resize(previewBytes);
  d.data.bytes(data.preview.data(), previewBytes);

  AcDbObjectId begin, end, insert;
  d.id(kHardOwner, begin);
  if (!data.external && !data.overlaid) {
    block.first = absoluteHandle(d.handles.h(), d.own());
    block.last = absoluteHandle(d.handles.h(), d.own());
  }
  d.id(kHardOwner, end);
  for (std::size_t i = 0; i < inserts && !d.failed(); ++i) d.id(kSoftPointer, insert);
  d.id(kHardPointer, data.layout);
  if (!endsRight(d)) return false;
  record->setOriginAsRead(origin);
  record->setCommentsAsRead(std::move(comments));
  record->setEndsAsRead(begin.stub(), end.stub());
  blocks_.push_back(std::move(block));
  records_.push_back(stub);
  return put(std::move(record), stub, context_->resolve(head.owner), head, frame);
}

bool Reader::readXrecord(const Frame& frame, AcDbStub* stub) {
  Decoder d = decoderOf(frame);
  ObjectHead head;
  readHead(d, head);
  auto record = std::make_unique<AcDbXrecord>();
  const std::uint32_t size = d.data.bl();
  if (!d.data.fits(size, 8)) return false;
  const std::size_t first = d.data.position();
  resbuf* chain = nullptr;
  if (!readXrecordItems(*context_, BitReader(file_, first, first + 8 * std::size_t(size)), chain)) {
    return readProxy(nullptr, false, frame, stub, "its values can't be understood");
  }
  record->setChainAsRead(chain);
  d.data.skip(8 * std::size_t(size));
  Adesk::Int16 style = 0;
  d.bs(style);
  record->setMergeStyleAsRead(acdbMergeStyleOf(style));
  while (d.handles.left() >= 8 && !d.failed()) {
    const HandleRef ref = d.handles.h();
    record->referencesAsRead().push_back({ref.code, context_->resolve(absoluteHandle(ref, d.own()))});
  }
  if (!endsRight(d)) return false;
  return put(std::move(record), stub, context_->resolve(head.owner), head, frame);
}

/// A control object lists the records of its table; `further` of them aren't counted.
template <class Table>
bool Reader::readControl(const Frame& frame, AcDbStub* stub, unsigned further) {
  Decoder d = decoderOf(frame);
  ObjectHead head;
  readHead(d, head);
  auto table = std::make_unique<Table>();
  const std::uint32_t n = d.data.bl();
  unsigned uses = 0;
  if constexpr (std::is_same_v<Table, AcDbDimStyleTable>) uses = d.data.rc();
  if (!d.handles.fits(std::uint64_t(n) + further + uses, 8)) return false;
  Control control;
  control.table = stub;
  const auto next = [&] { return context_->resolve(absoluteHandle(d.handles.h(), d.own())); };
  for (std::uint32_t i = 0; i < n; ++i) control.records.push_back(next());
  // The records that aren't counted come first in the drawing: the two spaces, the linetypes ByBlock and ByLayer.
  std::vector<AcDbStub*> special;
  for (unsigned i = 0; i < further; ++i) special.push_back(next());
  // Paper space is made ahead of model space in a new drawing, and so it is listed.
  if constexpr (std::is_same_v<Table, AcDbBlockTable>) std::reverse(special.begin(), special.end());
  control.records.insert(control.records.begin(), special.begin(), special.end());
  if constexpr (std::is_same_v<Table, AcDbDimStyleTable>) {
    for (unsigned i = 0; i < uses; ++i) {
      if (AcDbStub* const style = next()) table->furtherAsRead().push_back(AcDbObjectId(style));
    }
  }
  if (!endsRight(d)) return false;
  controls_.push_back(std::move(control));
  return put(std::move(table), stub, context_->resolve(head.owner), head, frame);
}

}  // namespace krio::dwg
