#include <algorithm>
#include <memory>

#include "host/db/AcDbValueChain.h"
#include "host/io/HostClasses.h"
#include "host/io/dxf/DxfCodes.h"
#include "host/io/dxf/DxfEntityReader.h"
#include "host/io/dxf/DxfText.h"
#include "host/os/os.h"

namespace krio::dxf {

namespace {

struct FixedType {
  std::string_view name;
  int number;
};

// The types of section 7 that the host has no class for.
constexpr FixedType kFixedTypes[] = {
    {"3DFACE", 0x1C},    {"SHAPE", 0x21}, {"ELLIPSE", 0x23},   {"SPLINE", 0x24},   {"REGION", 0x25},
    {"3DSOLID", 0x26},   {"BODY", 0x27},  {"RAY", 0x28},       {"XLINE", 0x29},    {"OLEFRAME", 0x2B},
    {"TOLERANCE", 0x2E}, {"MLINE", 0x2F}, {"OLE2FRAME", 0x4A}, {"POLYLINE", 0x1E},
};

/// Whether a value is of the kind of its group.
bool isOfItsKind(int code, std::string_view value) {
  double real = 0;
  std::uint64_t handle = 0;
  Adesk::Int16 narrow = 0;
  Adesk::Int32 whole = 0;
  std::int64_t wide = 0;
  std::string bytes;
  switch (kindOf(code)) {
    case Kind::kReal:
    case Kind::kPoint:
      return parseReal(value, real);
    case Kind::kInt16:
      return parseInteger(value, narrow);
    case Kind::kInt32:
      return parseInteger(value, whole);
    case Kind::kInt64:
      return parseInteger(value, wide);
    case Kind::kObjectId:
      return parseHandle(value, handle);
    case Kind::kBinary:
      return decodeHex(value, bytes);
    default:
      return true;
  }
}

/// Whether a group is the first coordinate of a point: no program reads one without the second.
constexpr bool isFirstOfPoint(int code) {
  return (code >= 10 && code <= 18) || (code >= 110 && code <= 112) || code == 210 || code == 211;
}

}  // namespace

bool isStructural(std::string_view name, const CodePage& page) {
  constexpr std::string_view kNames[] = {"", "SECTION", "ENDSEC", "TABLE", "ENDTAB", "BLOCK", "ENDBLK", "CLASS", "EOF"};
  const auto isOne = [&](std::string_view each) {
    return std::find(std::begin(kNames), std::end(kNames), each) != std::end(kNames);
  };
  const auto isPlain = [](char c) { return c >= ' ' && c != '^' && c != '\\'; };
  if (std::all_of(name.begin(), name.end(), isPlain)) return isOne(name);
  // Such a name is written as what it stands for: it can be one of these in disguise.
  std::wstring text;
  decodeText(page, name, text);
  const bool hasControl = std::any_of(text.begin(), text.end(), [](wchar_t c) { return c < L' '; });
  return hasControl || isOne(os::toUtf8(text));
}

int fixedTypeOf(std::string_view dxfName) {
  for (const FixedType& type : kFixedTypes) {
    if (type.name == dxfName) return type.number;
  }
  return 0;
}

void Frame::reset() {
  handle = 0;
  owner = nullptr;
  layer = linetype = plotStyle = nullptr;
  linetypeScale = 1.0;
  color = AcCmColor();
  lineWeight = AcDb::kLnWtByLayer;
  invisible = paperSpace = sawMarker = false;
  if (!hasRareParts) return;
  hasRareParts = false;
  extensionDictionary.setNull();
  reactors.clear();
  graphics.clear();
  graphicsSize = 0;
  acutRelRb(extendedData);
  extendedData = nullptr;
}

FrameReader::FrameReader(Drawing& drawing) : drawing_(drawing), in_(drawing.in()), filer_(in_) {
  const std::unique_ptr<AcRxDictionaryIterator> classes(acrxClassDictionary->newIterator());
  for (; !classes->done(); classes->next()) {
    auto* const each = static_cast<AcRxClass*>(classes->object());
    if (each->dxfName() != nullptr && each->constructor() != nullptr) byDxfName_.emplace(each->dxfName(), each);
  }
}

AcDbStub* FrameReader::stubOfValue() {
  const std::string_view text = in_.value();
  if (text == lastOwnerText_ && lastOwner_ != nullptr) return lastOwner_;
  lastOwner_ = in_.reference().stub();
  lastOwnerText_ = text;
  return lastOwner_;
}

bool FrameReader::take(bool entity) {
  switch (in_.code()) {
    case 5:
      frame_.handle = in_.handle();
      return true;
    case 102:
      takeControlGroup();
      return true;
    case 330:
      frame_.owner = stubOfValue();
      return true;
    case 100:
      frame_.sawMarker = true;
      return true;
    default:
      break;
  }
  if (in_.code() >= kFirstExtendedCode) {
    in_.scanner().pushBack();
    readExtendedData();
    return true;
  }
  if (!entity) return false;
  switch (in_.code()) {
    case 8:
      frame_.layer = drawing_.layer(in_.value());
      return true;
    case 6:
      frame_.linetype = drawing_.linetype(in_.value());
      return true;
    case 62:
      // A negative one comes from hosts that hide what lies on layers that are off.
      frame_.color.setColorIndex(std::abs(int(in_.whole<Adesk::Int16>())));
      return true;
    case 48:
      frame_.linetypeScale = in_.real();
      return true;
    case 60:
      frame_.invisible = in_.flag();
      return true;
    case 67:
      frame_.paperSpace = in_.flag();
      return true;
    case 370:
      frame_.lineWeight = in_.whole<Adesk::Int16>();
      return true;
    case 390:
      frame_.plotStyle = in_.reference().stub();
      frame_.hasRareParts = true;
      return true;
    case 92:
    case 160:
    case 310:
      takeGraphics();
      return true;
    case 420: {
      const auto rgb = in_.whole<Adesk::Int32>();
      frame_.color.setRGB(Adesk::UInt8(rgb >> 16), Adesk::UInt8(rgb >> 8), Adesk::UInt8(rgb));
      return true;
    }
    default:
      return false;
  }
}

void FrameReader::takeControlGroup() {
  const std::string_view name = in_.value();
  if (name.empty() || name[0] != '{') return;
  const bool dictionary = name == "{ACAD_XDICTIONARY";
  const bool reactors = name == "{ACAD_REACTORS";
  // A second such list in an object without markers stands among the groups that are kept: it is the same one.
  if (reactors) frame_.reactors.clear();
  while (in_.nextField() && in_.code() != 102) {
    if (in_.code() < 320 || in_.code() > 369) continue;
    frame_.hasRareParts = true;
    if (dictionary) frame_.extensionDictionary = in_.reference();
    if (reactors) frame_.reactors.push_back(in_.reference());
  }
}

void FrameReader::takeGraphics() {
  frame_.hasRareParts = true;
  if (in_.code() != 310) {
    // A second picture in an object without markers stands among the groups that are kept: it is the same one.
    frame_.graphics.clear();
    frame_.graphicsSize = std::size_t(std::max<std::int64_t>(0, in_.whole<std::int64_t>()));
    return;
  }
  takePreview(frame_.graphics);
}

void FrameReader::takePreview(std::vector<std::byte>& to) {
  std::string bytes;
  if (!decodeHex(in_.value(), bytes)) {
    in_.fault("a line of bytes isn't hexadecimal", frame_.handle);
    return;
  }
  const auto* const first = reinterpret_cast<const std::byte*>(bytes.data());
  to.insert(to.end(), first, first + bytes.size());
}

bool FrameReader::isOwn(int code) const {
  if (code == 5) return frame_.handle != 0;
  if (code == 330) return frame_.owner != nullptr;
  return code == 92 || code == 160 || code == 310;
}

bool FrameReader::readAll(bool entity) {
  bool markers = false;
  std::size_t firstOwn = 0;
  bool ownSeen = false;
  while (in_.nextField()) {
    const bool marker = in_.code() == AcDb::kDxfSubclass;
    markers = markers || marker;
    if (marker && (!entity || in_.value() != "AcDbEntity")) {
      in_.scanner().pushBack();
      return true;
    }
    if (in_.code() >= kFirstExtendedCode) {
      in_.scanner().pushBack();
      break;
    }
    const std::size_t place = in_.scanner().place();
    if ((ownSeen && isOwn(in_.code())) || take(entity) || markers) continue;
    if (!ownSeen) firstOwn = place;
    ownSeen = true;
  }
  if (ownSeen) in_.scanner().seek(firstOwn);
  return markers;
}

void FrameReader::readExtendedData() {
  frame_.hasRareParts = true;
  resbuf** tail = &frame_.extendedData;
  while (*tail != nullptr) tail = &(*tail)->rbnext;
  filer_.beginObject(true);
  while (in_.nextField()) {
    if (in_.code() < kFirstExtendedCode) {
      in_.scanner().pushBack();
      return;
    }
    in_.scanner().pushBack();
    resbuf item{};
    if (filer_.readResBuf(&item) != Acad::eOk) return;
    *tail = valuechain::copyLink(item);
    if (*tail != nullptr) tail = &(*tail)->rbnext;
  }
}

bool FrameReader::isEntity(std::string_view dxfName) {
  if (dxfName == "ACAD_PROXY_ENTITY" || dxfName == "SEQEND") return true;
  const ObjectKind& kind = kindOf(dxfName, false);
  return kind.record && kind.record->isEntity() && kind.rxClass == nullptr;
}

const ObjectKind& FrameReader::kindOf(std::string_view dxfName, bool entity) {
  auto& kinds = entity ? entityKinds_ : objectKinds_;
  const auto [entry, isNew] = kinds.try_emplace(std::string(dxfName));
  if (!isNew) return entry->second;
  ObjectKind& kind = entry->second;
  std::wstring wide;
  decodeText(in_.page(), dxfName, wide);
  // A copy: the file may list further classes later.
  if (const AcDbClassRecord* const record = drawing_.classRecord(wide)) kind.record = *record;
  if (kind.record) kind.rxClass = acrxFindClass(kind.record->cppName.c_str());
  if (kind.rxClass == nullptr) {
    const auto found = byDxfName_.find(wide);
    if (found != byDxfName_.end()) kind.rxClass = found->second;
  }
  const AcRxClass* const base = entity ? AcDbEntity::desc() : AcDbObject::desc();
  // A class of another name would be written under that.
  const bool fits = kind.rxClass != nullptr && kind.rxClass->constructor() != nullptr &&
                    kind.rxClass->dxfName() != nullptr && wide == kind.rxClass->dxfName() &&
                    kind.rxClass->isDerivedFrom(base) && kind.rxClass->isDerivedFrom(AcDbEntity::desc()) == entity;
  if (!fits) kind.rxClass = nullptr;
  kind.isHosts = fits && krio::isHosts(*kind.rxClass);
  return kind;
}

bool FrameReader::readFields(AcDbObject& object, bool markers, bool isHosts, std::string& why) {
  const std::size_t first = in_.scanner().nextPlace();
  // A record of values keeps each as it stands in the file.
  filer_.beginObject(object.isKindOf(AcDbXrecord::desc()), !markers);
  const Acad::ErrorStatus es = object.dxfInFields(&filer_);
  if (in_.stopped()) return false;
  if (es != Acad::eOk) {
    why = os::toUtf8(filer_.errorMessage());
    std::replace(why.begin(), why.end(), '\n', ' ');
    if (why.empty()) why = "status " + std::to_string(int(es));
  } else {
    const int code = in_.peekCode();
    if (code <= 0 || code >= kFirstExtendedCode) return true;
    if (isHosts || !markers) {
      while (in_.nextField()) {
        if (in_.code() < kFirstExtendedCode) continue;
        in_.scanner().pushBack();
        break;
      }
      return true;
    }
    why = "groups were left over";
  }
  in_.scanner().seek(first);
  return false;
}

void FrameReader::keepGroups(AcDbProxyData& data) {
  data.form = AcDbProxyData::kDxfGroups;
  groups_.clear();
  while (in_.nextField()) {
    if (in_.code() >= kFirstExtendedCode) {
      in_.scanner().pushBack();
      break;
    }
    keepGroup(groups_);
  }
  data.groups = groups_;
}

void FrameReader::keepGroup(AcDbProxyGroups& groups) {
  const int code = in_.code();
  std::string_view value = in_.value();
  if (in_.recovers() && !isOfItsKind(code, value)) {
    // Kept as it is, it would make the saved file faulty again.
    in_.fault("a value isn't of its group's kind");
    value = dxf::kindOf(code) == Kind::kBinary ? "" : "0";
  }
  if (isPlainAscii(value)) {
    groups.push_back(code, value);
  } else {
    groups.push_back(code, keptText(value));
  }
  constexpr int kToNextCoordinate = 10;
  if (!in_.recovers() || !isFirstOfPoint(code) || in_.peekCode() == code + kToNextCoordinate) return;
  in_.fault("a point has one coordinate");
  groups.push_back(code + kToNextCoordinate, "0.0");
}

std::string FrameReader::keptText(std::string_view value) const {
  std::string text;
  for (const char c : os::toUtf8(in_.page().decode(value))) text += c == '\r' ? "^M" : std::string(1, c);
  return text;
}

void FrameReader::describe(AcDbProxyData& data, std::string_view dxfName, const ObjectKind& kind) {
  if (kind.record) data.classRecord = *kind.record;
  data.fixedType = Adesk::UInt16(kind.record ? 0 : fixedTypeOf(dxfName));
  decodeText(in_.page(), dxfName, data.dxfName);
  if (!kind.record && kind.rxClass != nullptr && data.fixedType == 0) {
    data.classRecord.dxfName = data.dxfName;
    data.classRecord.cppName = kind.rxClass->name();
    data.classRecord.appName = kind.rxClass->appName() != nullptr ? kind.rxClass->appName() : L"";
    data.classRecord.proxyFlags = kind.rxClass->proxyFlags();
    const bool entity = kind.rxClass->isDerivedFrom(AcDbEntity::desc());
    data.classRecord.itemClassId = entity ? AcDbClassRecord::kEntityClass : AcDbClassRecord::kObjectClass;
  }
}

void FrameReader::readProxyRecord(AcDbProxyData& data) {
  constexpr int kOwnFormat = 23;  // AC1015
  data.form = AcDbProxyData::kDwgBits;
  enum { kNone, kGraphics, kData } run = kNone;
  while (in_.nextField()) {
    const int code = in_.code();
    if (code >= kFirstExtendedCode) {
      in_.scanner().pushBack();
      break;
    }
    switch (code) {
      case 91: {
        const auto place = in_.whole<Adesk::Int32>() - AcDbClassRecord::kFirstNumber;
        const auto& records = drawing_.db().classRecords();
        if (place >= 0 && std::size_t(place) < records.size()) data.classRecord = records[std::size_t(place)];
        break;
      }
      case 95:
        data.format = in_.whole<Adesk::Int32>();
        break;
      case 92:
      case 160:
        run = kGraphics;
        frame_.hasRareParts = true;
        break;
      case 93:
      case 161:
        run = kData;
        data.bitCount = in_.whole<Adesk::UInt32>();
        break;
      case 310:
        takePreview(run == kData ? data.bits : frame_.graphics);
        break;
      case 330:
        data.references.push_back({4, in_.reference()});
        break;
      case 340:
        data.references.push_back({5, in_.reference()});
        break;
      case 350:
        data.references.push_back({2, in_.reference()});
        break;
      case 360:
        data.references.push_back({3, in_.reference()});
        break;
      default:
        break;
    }
  }
  data.asProxyRecord = data.format != 0 && (data.format & 0xFFFF) != kOwnFormat;
  const std::size_t wanted = (std::size_t(data.bitCount) + 7) / 8;
  if (data.bits.size() < wanted) {
    in_.fault("a proxy's data are shorter than told", frame_.handle);
    data.bitCount = Adesk::UInt32(8 * data.bits.size());
  }
  data.bits.resize(std::min(data.bits.size(), wanted));
  // Objects of a fixed type are written under a class of their name.
  const int fixed = fixedTypeOf(os::toUtf8(data.classRecord.dxfName));
  if (fixed == 0) return;
  data.fixedType = Adesk::UInt16(fixed);
  data.dxfName = data.classRecord.dxfName;
  data.classRecord = AcDbClassRecord();
}

void FrameReader::applyRareParts(AcDbObject& object) {
  if (!frame_.extensionDictionary.isNull()) object.setExtensionDictionaryAsRead(frame_.extensionDictionary);
  for (const AcDbObjectId id : frame_.reactors) {
    if (!id.isNull()) object.addPersistentReactorAsRead(id);
  }
  if (frame_.extendedData != nullptr) object.setXDataAsRead(std::exchange(frame_.extendedData, nullptr));
}

}  // namespace krio::dxf
