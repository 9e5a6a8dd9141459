#include "host/io/dwg/Writer.h"

#include <algorithm>
#include <cstring>

#include "host/io/DrawingTime.h"
#include "host/io/ProxyGraphics.h"
#include "host/io/dwg/CodePages.h"
#include "host/io/dwg/Crc.h"
#include "host/io/dwg/Dwg.h"
#include "host/io/dwg/ValueBytes.h"

namespace krio {

Acad::ErrorStatus writeDwg(AcDbDatabase& db, std::vector<std::byte>& out, Report& report) {
  return dwg::Writer(db, report).write(out);
}

}  // namespace krio

namespace krio::dwg {

Writer::Writer(AcDbDatabase& database, Report& report)
    : database_(database), report_(report), page_(codePageOf(database.fileExtras().codePage)), encoder_(file_, page_) {
  header_.codePage = database.fileExtras().codePage;
}

Acad::ErrorStatus Writer::write(std::vector<std::byte>& out) {
  database_.prepareForSave();
  stampNewDrawing(database_);
  // What the file will take, about, so that it isn't moved about while it grows.
  constexpr std::size_t kBytesPerObject = 72;
  constexpr std::size_t kBytesAtLeast = 1 << 16;
  const auto objects = std::size_t(database_.approxNumObjects());
  file_.reserve(kBytesPerObject * objects + kBytesAtLeast);
  map_.reserve(objects);
  collectClasses();
  writeHeader();
  writeAuxiliaryHeader();
  writePreview();
  writeVariablesSection();
  // The list of classes stands ahead of the objects that are written by their numbers: all numbers are given by now.
  writeClassesSection();
  writeObjects();
  if (status_ != Acad::eOk) return status_;
  writeObjectMap();
  writeFreeSpace();
  writeSecondHeader();
  writeTemplate();
  patchHeader();
  if (file_.bytes().size() > 0x7fffffffU) {
    report_.error("the drawing is too large for a file of this format");
    return Acad::eOutOfRange;
  }
  out = file_.take();
  return Acad::eOk;
}

/// Makes room for the objects to come, as large as those before, so that the file is moved but once or twice while it
/// grows.
void Writer::makeRoom() {
  constexpr std::size_t kMostGrowth = 8;  // what comes may be smaller
  const std::size_t written = file_.size();
  const std::size_t all = std::max(std::size_t(database_.approxNumObjects()), map_.size());
  const std::size_t expected = written / map_.size() * all;
  const std::size_t wanted = std::min(expected + expected / 16, kMostGrowth * written);
  if (wanted > written) file_.reserve(wanted - written);
}

// --- Frames
// -----------------------------------------------------------------------------------------------------------

Writer::OpenFrame Writer::openFrame(unsigned type, const AcDbObject& object, std::uint64_t handle) {
  OpenFrame frame;
  frame.handle = handle;
  frame.start = file_.size();
  file_.rs(0);
  frame.firstBit = file_.position();
  file_.bs(std::uint16_t(type));
  frame.sizePlace = file_.position();
  file_.rl(0);
  file_.h(kOwn, handle);
  if (const resbuf* const chain = object.xDataChain()) [[unlikely]]
    writeExtendedData(chain, handle);
  file_.bs(0);
  return frame;
}

void Writer::closeFrame(const OpenFrame& frame) {
  const std::size_t bitSize = file_.position() - frame.firstBit;
  encoder_.flushRefs();
  file_.align();
  file_.patchRl(frame.sizePlace, std::uint32_t(bitSize));
  constexpr std::size_t kShortHead = 2;
  constexpr std::size_t kShortLimit = 0x8000;
  std::size_t size = file_.size() - frame.start - kShortHead;
  if (size < kShortLimit) [[likely]] {
    std::uint8_t* const head = file_.data() + frame.start;
    head[0] = std::uint8_t(size);
    head[1] = std::uint8_t(size >> 8);
  } else {
    file_.openGap(frame.start + kShortHead, 2);
    const std::uint16_t words[] = {std::uint16_t(size | kShortLimit), std::uint16_t(size >> 15)};
    std::memcpy(file_.data() + frame.start, words, sizeof words);
  }
  file_.rs(crc16({file_.data() + frame.start, file_.size() - frame.start}));
  map_.push_back({frame.handle, std::uint32_t(frame.start)});
  constexpr std::size_t kObjectsBetween = 4096;
  if (map_.size() % kObjectsBetween == 0) makeRoom();
}

std::uint64_t Writer::applicationHandle(const wchar_t* name) {
  if (lastApplicationHandle_ != 0 && lastApplication_ == name) return lastApplicationHandle_;
  AcDbRegAppTable* applications = nullptr;
  AcDbObjectId id;
  if (database_.getRegAppTable(applications) == Acad::eOk) {
    applications->getAt(name, id);
    applications->close();
  }
  lastApplication_ = name;
  return lastApplicationHandle_ = id.handle().value();
}

void Writer::writeExtendedData(const resbuf* chain, std::uint64_t handle) {
  BitWriter items;
  for (const resbuf* link = chain; link != nullptr; link = link->rbnext) {
    if (link->restype != AcDb::kDxfRegAppName || link->resval.rstring == nullptr) continue;
    const std::uint64_t application = applicationHandle(link->resval.rstring);
    if (application == 0) {
      report_.warn("extended data of an application that isn't registered were left out", handle);
      continue;
    }
    items.clear();
    const int faults = dwg::writeExtendedData(link, database_, page_, header_.codePage, items);
    if (faults != 0) report_.warn(std::to_string(faults) + " items of extended data don't fit and were cut", handle);
    const auto bytes = items.bytes();
    if (bytes.empty()) continue;
    constexpr std::size_t kMostBytes = 0xffff;
    if (bytes.size() > kMostBytes) {
      report_.warn("extended data above 64 KB were left out", handle);
      continue;
    }
    file_.bs(std::uint16_t(bytes.size()));
    file_.h(kHardPointer, application);
    file_.bytes(bytes.data(), bytes.size());
  }
}

namespace {

bool isFiledReactor(void* reactor) {
  return acdbIsPersistentReactor(reactor) && !acdbPersistentReactorObjectId(reactor).isErased();
}

}  // namespace

std::uint32_t Writer::countReactors(const AcDbObject& object) const {
  const AcDbVoidPtrArray* const reactors = object.reactors();
  if (reactors == nullptr) return 0;
  std::uint32_t count = 0;
  for (void* const reactor : *reactors) count += isFiledReactor(reactor) ? 1 : 0;
  return count;
}

template <class Object>
void Writer::writeReactors(const Object& object) {
  const AcDbVoidPtrArray* const reactors = object.reactors();
  if (reactors == nullptr) return;
  for (void* const reactor : *reactors) {
    if (isFiledReactor(reactor)) encoder_.id(kSoftPointer, acdbPersistentReactorObjectId(reactor));
  }
}

void Writer::writeGraphics(const AcDbEntity& entity, bool isCustom) {
  std::span<const std::byte> graphics = entity.fileGraphics();
  if (isCustom && graphics.empty()) [[unlikely]] {
    // The picture that programs without the class show is drawn anew.
    graphics_.clear();
    encodeProxyGraphics(const_cast<AcDbEntity&>(entity), graphics_);
    graphics = graphics_;
  }
  file_.b(!graphics.empty());
  if (graphics.empty()) return;
  file_.rl(std::uint32_t(graphics.size()));
  file_.bytes(graphics.data(), graphics.size());
}

void Writer::writeHead(const AcDbEntity& entity, AcDbStub* stub, const Links& links, bool isCustom) {
  const AcDbEntity::Common common = entity.common();
  const AcDbDatabase::Roots& roots = database_.roots();
  writeGraphics(entity, isCustom);
  const AcDbObjectId owner = stub->owner;
  const unsigned mode = owner == roots.modelSpace   ? unsigned(EntityHead::kInModelSpace)
                        : owner == roots.paperSpace ? unsigned(EntityHead::kInPaperSpace)
                                                    : unsigned(EntityHead::kOwned);
  const std::uint32_t reactors = countReactors(entity);
  const bool adjacent =
      links.chained && links.previous != 0 && links.previous + 1 == stub->handle && links.next == stub->handle + 1;
  unsigned linetypeForm = common.linetypeForm;
  if (linetypeForm == 3 && (common.linetype.isNull() || common.linetype.isErased())) linetypeForm = 0;
  unsigned plotStyleForm = common.plotStyleForm;
  if (plotStyleForm == 3 && (common.plotStyle.isNull() || common.plotStyle.isErased())) plotStyleForm = 0;
  file_.bb(mode);
  file_.bl(reactors);
  file_.b(adjacent);
  file_.bs(common.color.colorIndex());
  file_.bd(common.linetypeScale);
  file_.put(linetypeForm << 2 | plotStyleForm, 4);
  file_.bs(common.invisible ? 1 : 0);
  file_.rc(acdbLineWeightIndex(common.lineWeight));

  if (mode == EntityHead::kOwned) encoder_.id(kSoftPointer, owner);
  if (reactors != 0) writeReactors(entity);
  encoder_.id(kHardOwner, entity.extensionDictionaryReference());
  if (!adjacent) {
    encoder_.ref(kSoftPointer, links.previous);
    encoder_.ref(kSoftPointer, links.next);
  }
  encoder_.id(kHardPointer, common.layer.isNull() || common.layer.isErased() ? roots.layerZero : common.layer);
  if (linetypeForm == 3) encoder_.id(kHardPointer, common.linetype);
  if (plotStyleForm == 3) encoder_.id(kHardPointer, common.plotStyle);
}

void Writer::writeHead(const AcDbObject& object, AcDbStub* stub) {
  file_.bl(countReactors(object));
  encoder_.id(kSoftPointer, stub->owner);
  writeReactors(object);
  encoder_.id(kHardOwner, object.extensionDictionaryReference());
}

}  // namespace krio::dwg
