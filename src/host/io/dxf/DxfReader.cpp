#include "host/io/dxf/DxfReader.h"

#include "host/db/OwnerChain.h"
#include "host/db/db.h"
#include "host/io/dxf/Dxf.h"
#include "host/io/dxf/DxfCodes.h"
#include "host/os/os.h"

namespace krio::dxf {

namespace {

/// How the first line of the binary form ends, and where.
constexpr std::string_view kBinaryMark("Binary DXF\r\n\x1A\0", 14);
constexpr std::size_t kBinaryMarkPlace = 8;

// Bits of group 70 of a BLOCK.
constexpr int kAnonymousFlag = 1;
constexpr int kAttributesFlag = 2;
constexpr int kExternalFlag = 4;
constexpr int kOverlaidFlag = 8;
constexpr int kLoadedFlag = 32;
constexpr int kKnownFlags = kAnonymousFlag | kAttributesFlag | kExternalFlag | kOverlaidFlag | kLoadedFlag;

bool isBinary(std::span<const std::byte> bytes) {
  const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  return text.size() > kBinaryMarkPlace && text.substr(kBinaryMarkPlace).starts_with(kBinaryMark);
}

/// Whether the record is that of a block of the name: it may name an anonymous one without its number.
bool isNameOf(const AcDbBlockTableRecord& record, const std::wstring& name) {
  const std::wstring own = acdbFoldedName(record.nameText().c_str());
  const std::wstring other = acdbFoldedName(name.c_str());
  const auto isDigit = [](wchar_t c) { return c >= L'0' && c <= L'9'; };
  return own == other || (own.starts_with(L'*') && other.starts_with(own) &&
                          std::all_of(other.begin() + std::ptrdiff_t(own.size()), other.end(), isDigit));
}

}  // namespace

Reader::Reader(std::span<const std::byte> bytes, AcDbDatabase& database, Report& report, const ReadOptions& options)
    : in_(bytes, database, report, options),
      drawing_(in_),
      frames_(drawing_),
      entities_(frames_),
      tables_(frames_),
      header_(drawing_) {}

Acad::ErrorStatus Reader::read() {
  readSections();
  if (!in_.stopped() && !sawEnd_) in_.fault("the file ends without EOF: it has been cut off");
  if (!in_.stopped()) finish();
  return in_.status();
}

void Reader::readSections() {
  while (in_.next()) {
    if (in_.code() != 0) {
      // What stands between sections: an end of a section that went wrong.
      if (!in_.fault("group 0 was due between sections")) return;
      in_.skipFields();
      continue;
    }
    if (in_.value() == "EOF") {
      sawEnd_ = true;
      return;
    }
    if (in_.value() != "SECTION") {
      if (!in_.fault("a section was due")) return;
      in_.skipFields();
      continue;
    }
    if (!in_.next() || in_.code() != 2) {
      if (!in_.fault("a section has no name")) return;
      in_.scanner().pushBack();
      continue;
    }
    readSection(in_.value());
    if (in_.stopped()) return;
  }
}

template <class Each>
void Reader::forEachObject(Each each) {
  while (in_.next()) {
    if (in_.code() != 0) {
      if (!in_.fault("group 0 was due")) return;
      in_.skipFields();
      continue;
    }
    if (in_.value() == "ENDSEC") return;
    if (in_.value() == "EOF" || in_.value() == "SECTION") {
      in_.fault("a section has no end");
      in_.scanner().pushBack();
      return;
    }
    each();
    if (in_.stopped()) return;
  }
}

void Reader::readSection(std::string_view name) {
  if (name == "HEADER") {
    // Entities of a usual file take some 150 bytes each, and lie under handles that run on.
    constexpr std::size_t kBytesPerObject = 150;
    header_.read();
    drawing_.db().reserveObjects(in_.scanner().size() / kBytesPerObject, drawing_.db().handseed().value());
    forEachObject([this] { in_.skipFields(); });
  } else if (name == "CLASSES") {
    forEachObject([this] { readClass(); });
  } else if (name == "TABLES") {
    forEachObject([this] {
      if (in_.value() == "TABLE") return tables_.read();
      if (in_.fault("a table was due")) in_.skipFields();
    });
  } else if (name == "BLOCKS") {
    drawing_.makeBasics();
    tables_.finish();
    forEachObject([this] { readBlock(); });
  } else if (name == "ENTITIES") {
    drawing_.makeBasics();
    tables_.finish();
    forEachObject([this] { entities_.read(nullptr); });
  } else if (name == "OBJECTS") {
    drawing_.makeBasics();
    forEachObject([this] { readObject(); });
  } else {
    in_.note("section " + std::string(name) + " isn't kept");
    in_.skipFields();
    forEachObject([this] { in_.skipFields(); });
  }
}

void Reader::readClass() {
  AcDbClassRecord record;
  while (in_.nextField()) {
    switch (in_.code()) {
      case 1:
        in_.readText(record.dxfName);
        break;
      case 2:
        in_.readText(record.cppName);
        break;
      case 3:
        in_.readText(record.appName);
        break;
      case 90:
        record.proxyFlags = in_.whole<Adesk::Int32>();
        break;
      case 280:
        record.wasProxy = in_.flag();
        break;
      case 281:
        record.itemClassId = in_.flag() ? AcDbClassRecord::kEntityClass : AcDbClassRecord::kObjectClass;
        break;
      default:
        break;
    }
  }
  drawing_.db().classRecords().push_back(std::move(record));
}

// --- Blocks
// -----------------------------------------------------------------------------------------------------------

void Reader::readBlock() {
  if (in_.value() != "BLOCK") {
    if (in_.fault("a block was due")) in_.skipFields();
    return;
  }
  AcDbBlockTableRecord* block = nullptr;
  readBlockHead(block);
  while (in_.next()) {
    if (in_.code() != 0) {
      if (!in_.fault("group 0 was due")) return;
      in_.skipFields();
      continue;
    }
    if (in_.value() == "ENDBLK") return readBlockEnd(block);
    if (in_.value() == "ENDSEC" || in_.value() == "BLOCK" || in_.value() == "EOF") {
      in_.fault("a block has no end");
      in_.scanner().pushBack();
      return;
    }
    entities_.read(block);
  }
}

void Reader::readBlockHead(AcDbBlockTableRecord*& block) {
  frames_.begin();
  Frame& frame = frames_.frame();
  std::wstring name;
  std::wstring path;
  std::wstring comments;
  AcGePoint3d origin;
  int flags = 0;
  while (in_.nextField()) {
    switch (in_.code()) {
      case 2:
        in_.readText(name);
        break;
      case 1:
        in_.readText(path);
        break;
      case 4:
        in_.readText(comments);
        break;
      case 10:
        origin = in_.point();
        break;
      case 70:
        flags = in_.whole();
        break;
      case 3:
        break;
      default:
        frames_.take(true);
    }
  }
  // Files of old versions write the spaces with a dollar sign.
  if (name == L"$MODEL_SPACE") name = ACDB_MODEL_SPACE;
  if (name == L"$PAPER_SPACE") name = ACDB_PAPER_SPACE;
  auto* const owner = frame.owner != nullptr ? AcDbBlockTableRecord::cast(frame.owner->object) : nullptr;
  if (owner != nullptr && isNameOf(*owner, name) && !owner->blockBeginId().isResident()) block = owner;
  // By their names inserts refer to blocks.
  if (block == nullptr) block = drawing_.block(name);
  // The owner told, where nothing else has its handle, is a record that the table lacks.
  const bool ownerIsFree = frame.owner != nullptr && frame.owner->object == nullptr;
  if (block == nullptr) block = drawing_.makeBlock(name, ownerIsFree ? frame.owner->handle : 0);
  if (block == nullptr) return;
  if (block->blockBeginId().isResident()) {
    in_.fault("a block stands twice; what the second holds went into the first", frame.handle);
    return;
  }
  AcDbBlockTableRecord::Data& data = block->dataAsRead();
  data.dxfFlags = Adesk::Int16(flags & ~kKnownFlags);
  data.anonymous = (flags & kAnonymousFlag) != 0;
  data.hasAttributeDefinitions = (flags & kAttributesFlag) != 0;
  data.external = (flags & kExternalFlag) != 0;
  data.overlaid = (flags & kOverlaidFlag) != 0;
  data.loaded = data.external && (flags & kLoadedFlag) != 0;
  data.xrefPath = path;
  block->setOriginAsRead(origin);
  block->setCommentsAsRead(std::move(comments));
  auto begin = std::make_unique<AcDbBlockBegin>();
  entities_.applyFrame(*begin);
  AcDbBlockBegin* const put = drawing_.put(std::move(begin), frame.handle, block->objectId().stub());
  if (put != nullptr) block->setEndsAsRead(put->objectId().stub(), block->blockEndId().stub());
}

void Reader::readBlockEnd(AcDbBlockTableRecord* block) {
  frames_.begin();
  while (in_.nextField()) frames_.take(true);
  if (block == nullptr || in_.stopped() || block->blockEndId().isResident()) return;
  auto end = std::make_unique<AcDbBlockEnd>();
  entities_.applyFrame(*end);
  AcDbBlockEnd* const put = drawing_.put(std::move(end), frames_.frame().handle, block->objectId().stub());
  if (put != nullptr) block->setEndsAsRead(block->blockBeginId().stub(), put->objectId().stub());
}

// --- Objects
// ----------------------------------------------------------------------------------------------------------

void Reader::readObject() {
  constexpr std::size_t kAnyObject = 320;
  const std::string_view name = in_.value();
  if (isStructural(name, in_.page())) {
    if (in_.fault("an object was due; it was left out")) in_.skipFields();
    return;
  }
  if (frames_.isEntity(name)) return entities_.readStray();
  const std::size_t first = in_.scanner().nextPlace();
  const ObjectKind& kind = frames_.kindOf(name, false);
  frames_.begin();
  if (kind.rxClass == nullptr || name == "ACAD_PROXY_OBJECT") return readProxyObject(name, kind);
  if (kind.rxClass->isDerivedFrom(AcDbSymbolTableRecord::desc()) ||
      kind.rxClass->isDerivedFrom(AcDbSymbolTable::desc())) {
    if (in_.fault("a record or table stands among the objects; it was left out")) in_.skipFields();
    return;
  }
  std::unique_ptr<AcDbObject> object(static_cast<AcDbObject*>(kind.rxClass->create()));
  const bool markers = frames_.readAll(false);
  std::string why;
  if (in_.stopped()) return;
  if (!frames_.readFields(*object, markers, kind.isHosts, why)) {
    if (in_.stopped()) return;
    in_.note(std::string(name) + " was refused by its class (" + why + "); it is kept as a proxy",
             frames_.frame().handle);
    object.reset();
    in_.scanner().seek(first);
    frames_.begin();
    return readProxyObject(name, kind);
  }
  if (in_.peekCode() >= kFirstExtendedCode) frames_.readExtendedData();
  if (in_.stopped()) return;
  frames_.applyRareParts(*object);
  const Frame& frame = frames_.frame();
  AcDbStub* const stub = drawing_.put(std::move(object), frame.handle, frame.owner, kAnyObject);
  if (stub == nullptr || drawing_.roots().namedObjects.isResident()) return;
  // The dictionary of named objects stands first and has no owner.
  if (AcDbDictionary::cast(stub->object) != nullptr) drawing_.roots().namedObjects = AcDbObjectId(stub);
}

void Reader::readProxyObject(std::string_view name, const ObjectKind& kind) {
  auto proxy = std::make_unique<AcDbProxyObject>();
  AcDbProxyData& data = proxy->dataAsRead();
  const bool isRecord = name == "ACAD_PROXY_OBJECT";
  const bool markers = frames_.readAll(false);
  if (isRecord) {
    frames_.readProxyRecord(data);
  } else {
    frames_.describe(data, name, kind);
    frames_.keepGroups(data);
  }
  if (in_.stopped()) return;
  if (in_.peekCode() >= kFirstExtendedCode) frames_.readExtendedData();
  const Frame& frame = frames_.frame();
  if (!isRecord && data.groups.empty() && !markers && frame.handle == 0) {
    in_.fault("object " + std::string(name) + " has no data; it was left out");
    return;
  }
  frames_.applyRareParts(*proxy);
  drawing_.put(std::move(proxy), frame.handle, frame.owner);
}

void Reader::finish() {
  tables_.finish();
  entities_.finish();
  drawing_.makeRest();
  if (in_.stopped()) return;
  header_.finish();
  for (AcDbStub& stub : const_cast<AcDbHandleTable&>(drawing_.db().handleTable()).stubs()) {
    if (!isInOwnerCircle(stub)) continue;
    in_.warn("the object's owners form a circle; it has none now", stub.handle);
    stub.owner = nullptr;
  }
  const Acad::ErrorStatus es = drawing_.db().finishRead();
  header_.finishStyles();
  if (es != Acad::eOk) in_.fault("the drawing lacks something that it can't be without", 0, es);
}

}  // namespace krio::dxf

// --- The interface
// ----------------------------------------------------------------------------------------------------

namespace krio {

bool isDxf(std::span<const std::byte> bytes) {
  if (dxf::isBinary(bytes)) return true;
  dxf::Scanner scanner(bytes);
  return scanner.next() && scanner.code() == 0 && scanner.value() == "SECTION";
}

Acad::ErrorStatus readDxf(std::span<const std::byte> bytes, AcDbDatabase& db, Report& report,
                          const ReadOptions& options) {
  if (dxf::isBinary(bytes)) {
    report.error("this is a binary DXF; only the ASCII form is read", 0, 1);
    return Acad::eNotImplementedYet;
  }
  return dxf::Reader(bytes, db, report, options).read();
}

}  // namespace krio
