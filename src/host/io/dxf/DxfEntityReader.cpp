#include "host/io/dxf/DxfEntityReader.h"

#include <algorithm>
#include <unordered_set>

#include "host/io/ProxyGraphics.h"
#include "host/io/dxf/DxfCodes.h"
#include "host/os/os.h"

namespace krio::dxf {

namespace {

// Bits of group 70 of an LWPOLYLINE and of a POLYLINE.
constexpr int kClosedFlag = 1;
constexpr int kPlinegenFlag = 128;
constexpr int kPolyline3dFlag = 8;
constexpr int kMeshFlag = 16;
constexpr int kPolyfaceFlag = 64;

constexpr int kPolyfaceType = 0x1D;

/// The entities that are parts of another one.
bool isPartsName(std::string_view name) {
  return name == "VERTEX" || name == "ATTRIB" || name == "SEQEND";
}

/// What the markers and the flags of the object ahead tell of its class.
struct Ahead {
  std::string_view lastMarker;
  int flags = 0;
  int columns = 1;
  int rows = 1;
};

Ahead lookAhead(Scanner scanner) {
  Ahead ahead;
  while (scanner.next() && scanner.code() != 0 && scanner.code() < kFirstExtendedCode) {
    int number = 0;
    switch (scanner.code()) {
      case 100:
        ahead.lastMarker = scanner.value();
        break;
      case 70:
        if (parseInteger(scanner.value(), number)) ahead.flags = ahead.columns = number;
        break;
      case 71:
        if (parseInteger(scanner.value(), number)) ahead.rows = number;
        break;
      default:
        break;
    }
  }
  return ahead;
}

AcRxClass* polylineClass(const Ahead& ahead) {
  if (ahead.lastMarker == "AcDb3dPolyline") return AcDb3dPolyline::desc();
  if (ahead.lastMarker == "AcDb2dPolyline") return AcDb2dPolyline::desc();
  if (!ahead.lastMarker.empty() || (ahead.flags & (kMeshFlag | kPolyfaceFlag)) != 0) return nullptr;
  return (ahead.flags & kPolyline3dFlag) != 0 ? AcDb3dPolyline::desc() : AcDb2dPolyline::desc();
}

AcRxClass* dimensionClass(const Ahead& ahead) {
  constexpr int kKindMask = 7;
  switch (ahead.flags & kKindMask) {
    case AcDbDimension::kRotated:
      return AcDbRotatedDimension::desc();
    case AcDbDimension::kAligned:
      return AcDbAlignedDimension::desc();
    case AcDbDimension::kAngular2Line:
      return AcDb2LineAngularDimension::desc();
    case AcDbDimension::kDiametric:
      return AcDbDiametricDimension::desc();
    case AcDbDimension::kRadial:
      return AcDbRadialDimension::desc();
    case AcDbDimension::kAngular3Point:
      return AcDb3PointAngularDimension::desc();
    case AcDbDimension::kOrdinate:
      return AcDbOrdinateDimension::desc();
    default:
      return nullptr;
  }
}

constexpr const char* kNoSequenceEnd = "a sequence of vertices or attributes has no end; it gets one";

}  // namespace

EntityReader::EntityReader(FrameReader& frames)
    : frames_(frames), drawing_(frames.drawing()), in_(frames.in()), frame_(frames.frame()) {}

void EntityReader::read(AcDbBlockTableRecord* block) {
  block_ = block;
  frames_.begin();
  const std::string_view name = in_.value();
  isPart_ = false;
  if (name == "LINE") return readLine();
  if (name == "LWPOLYLINE") return readPolyline();
  if (name == "ARC") return readArc();
  if (name == "CIRCLE") return readCircle();
  if (name == "TEXT") return readText();
  isPart_ = isPartsName(name);
  endsSequence_ = name == "SEQEND";
  readByClass(name);
}

void EntityReader::readStray() {
  block_ = nullptr;
  isStray_ = true;
  isPart_ = isPartsName(in_.value());
  frames_.begin();
  readByClass(in_.value());
  isStray_ = false;
}

// --- Plain entities
// ---------------------------------------------------------------------------------------------------

void EntityReader::readLine() {
  auto line = std::make_unique<AcDbLine>();
  AcDbLine::Data& data = line->dataAsRead();
  while (in_.nextField()) {
    switch (in_.code()) {
      case 10:
        data.start = in_.point();
        break;
      case 11:
        data.end = in_.point();
        break;
      case 39:
        data.thickness = in_.real();
        break;
      case 210:
        data.normal = in_.vector();
        break;
      default:
        frames_.take(true);
    }
  }
  attach(std::move(line));
}

void EntityReader::readCircle() {
  auto circle = std::make_unique<AcDbCircle>();
  AcDbCircle::Data& data = circle->dataAsRead();
  while (in_.nextField()) {
    switch (in_.code()) {
      case 10:
        data.center = in_.point();
        break;
      case 40:
        data.radius = in_.real();
        break;
      case 39:
        data.thickness = in_.real();
        break;
      case 210:
        data.normal = in_.vector();
        break;
      default:
        frames_.take(true);
    }
  }
  attach(std::move(circle));
}

void EntityReader::readArc() {
  auto arc = std::make_unique<AcDbArc>();
  AcDbArc::Data& data = arc->dataAsRead();
  while (in_.nextField()) {
    switch (in_.code()) {
      case 10:
        data.center = in_.point();
        break;
      case 40:
        data.radius = in_.real();
        break;
      case 50:
        data.startAngle = in_.angle();
        break;
      case 51:
        data.endAngle = in_.angle();
        break;
      case 39:
        data.thickness = in_.real();
        break;
      case 210:
        data.normal = in_.vector();
        break;
      default:
        frames_.take(true);
    }
  }
  attach(std::move(arc));
}

void EntityReader::readPolyline() {
  // No vertex takes fewer bytes of a file.
  constexpr std::size_t kVertexBytes = 8;
  auto polyline = std::make_unique<AcDbPolyline>();
  AcDbPolyline::Data& data = polyline->dataAsRead();
  while (in_.nextField()) {
    switch (in_.code()) {
      case 10:
        data.points.push_back(in_.point2d());
        break;
      case 42:
        data.bulges.resize(data.points.size());
        if (!data.bulges.empty()) data.bulges.back() = in_.real();
        break;
      case 40:
        data.widths.resize(data.points.size());
        if (!data.widths.empty()) data.widths.back().x = in_.real();
        break;
      case 41:
        data.widths.resize(data.points.size());
        if (!data.widths.empty()) data.widths.back().y = in_.real();
        break;
      case 90: {
        const auto count = std::size_t(std::max(0, in_.whole()));
        data.points.reserve(std::min(count, (in_.scanner().size() - in_.scanner().place()) / kVertexBytes));
        break;
      }
      case 70: {
        const int flags = in_.whole();
        data.flags = Adesk::Int16(((flags & kClosedFlag) != 0 ? AcDbPolyline::kClosed : 0) |
                                  ((flags & kPlinegenFlag) != 0 ? AcDbPolyline::kPlinegen : 0));
        break;
      }
      case 43:
        data.constantWidth = in_.real();
        break;
      case 38:
        data.elevation = in_.real();
        break;
      case 39:
        data.thickness = in_.real();
        break;
      case 210:
        data.normal = in_.vector();
        break;
      default:
        frames_.take(true);
    }
  }
  if (!data.bulges.empty()) data.bulges.resize(data.points.size());
  if (!data.widths.empty()) data.widths.resize(data.points.size());
  attach(std::move(polyline));
}

void EntityReader::readText() {
  auto text = std::make_unique<AcDbText>();
  AcDbText::Data& data = text->dataAsRead();
  AcDbStub* style = drawing_.roots().standardTextStyle.stub();
  while (in_.nextField()) {
    switch (in_.code()) {
      case 10: {
        const AcGePoint3d p = in_.point();
        data.position.set(p.x, p.y);
        data.elevation = p.z;
        break;
      }
      case 11: {
        const AcGePoint3d p = in_.point();
        data.alignment.set(p.x, p.y);
        break;
      }
      case 1:
        in_.readText(data.text);
        break;
      case 40:
        data.height = in_.real();
        break;
      case 50:
        data.rotation = in_.angle();
        break;
      case 41:
        data.widthFactor = in_.real();
        break;
      case 51:
        data.oblique = in_.angle();
        break;
      case 7:
        style = drawing_.textStyle(in_.value());
        break;
      case 71:
        data.generation = in_.whole<Adesk::Int16>();
        break;
      case 72:
        data.horizontal = in_.whole<Adesk::Int16>();
        break;
      case 73:
        data.vertical = in_.whole<Adesk::Int16>();
        break;
      case 39:
        data.thickness = in_.real();
        break;
      case 210:
        data.normal = in_.vector();
        break;
      default:
        frames_.take(true);
    }
  }
  data.style = AcDbObjectId(style);
  attach(std::move(text));
}

// --- Entities by their class
// ------------------------------------------------------------------------------------------

AcRxClass* EntityReader::classAhead(std::string_view name, const ObjectKind& kind) {
  if (name == "POLYLINE") return polylineClass(lookAhead(in_.scanner()));
  if (name == "DIMENSION") return dimensionClass(lookAhead(in_.scanner()));
  if (name == "VERTEX") {
    return AcDb3dPolyline::cast(parent_) != nullptr ? AcDb3dPolylineVertex::desc() : AcDb2dVertex::desc();
  }
  if (name == "INSERT") {
    const Ahead ahead = lookAhead(in_.scanner());
    const bool array = ahead.lastMarker == "AcDbMInsertBlock" || ahead.columns > 1 || ahead.rows > 1;
    return array ? AcDbMInsertBlock::desc() : AcDbBlockReference::desc();
  }
  return kind.rxClass;
}

void EntityReader::readByClass(std::string_view name) {
  if (isStructural(name, in_.page())) {
    if (in_.fault("an entity was due; it was left out")) in_.skipFields();
    return;
  }
  const std::size_t first = in_.scanner().nextPlace();
  const ObjectKind& kind = frames_.kindOf(name, true);
  AcRxClass* const rxClass = classAhead(name, kind);
  if (rxClass == nullptr || rxClass == AcDbProxyEntity::desc()) return readProxy(name, kind);
  std::unique_ptr<AcDbEntity> entity(static_cast<AcDbEntity*>(rxClass->create()));
  const bool markers = frames_.readAll(true);
  if (in_.stopped()) return;
  std::string why;
  const bool isHosts = kind.isHosts || rxClass != kind.rxClass;
  if (!frames_.readFields(*entity, markers, isHosts, why)) {
    if (in_.stopped()) return;
    in_.note(std::string(name) + " was refused by its class (" + why + "); it is kept as a proxy", frame_.handle);
    entity.reset();
    in_.scanner().seek(first);
    frames_.begin();
    return readProxy(name, kind);
  }
  if (in_.peekCode() >= kFirstExtendedCode) frames_.readExtendedData();
  setTextStyle(*entity);
  if (!isHosts && !frame_.graphics.empty() && !drawsNothing(*entity)) frame_.graphics.clear();
  AcDbEntity* const attached = attach(std::move(entity));
  if (attached == nullptr) return;
  if (auto* const insert = AcDbBlockReference::cast(attached)) {
    if (AcDbStub* const block = insert->data().block.stub()) inserts_[block].push_back(attached->objectId().stub());
  }
}

void EntityReader::setTextStyle(AcDbEntity& entity) const {
  // A text that tells no style has the usual one.
  const AcDbHardPointerId usual(drawing_.roots().standardTextStyle);
  if (auto* const text = AcDbText::cast(&entity)) {
    if (text->data().style.isNull()) text->dataAsRead().style = usual;
  } else if (auto* const paragraph = AcDbMText::cast(&entity)) {
    if (paragraph->data().style.isNull()) paragraph->dataAsRead().style = usual;
  }
}

void EntityReader::readProxy(std::string_view name, const ObjectKind& kind) {
  auto proxy = std::make_unique<AcDbProxyEntity>();
  AcDbProxyData& data = proxy->dataAsRead();
  const bool isRecord = name == "ACAD_PROXY_ENTITY";
  const bool isPolyline = name == "POLYLINE";
  const Ahead ahead = isPolyline ? lookAhead(in_.scanner()) : Ahead();
  const bool markers = frames_.readAll(true);
  const std::uint64_t handle = frame_.handle;
  if (isRecord) {
    frames_.readProxyRecord(data);
  } else {
    frames_.describe(data, name, kind);
    frames_.keepGroups(data);
    if (isPolyline && (ahead.lastMarker == "AcDbPolyFaceMesh" || (ahead.flags & kPolyfaceFlag) != 0)) {
      data.fixedType = kPolyfaceType;
    }
    if (kind.rxClass == nullptr) in_.note("entity " + std::string(name) + " is kept as a proxy", handle);
  }
  if (in_.stopped()) return;
  if (in_.peekCode() >= kFirstExtendedCode) frames_.readExtendedData();
  if (!isRecord && data.groups.empty() && !markers) {
    in_.fault("entity " + std::string(name) + " has no data; it was left out", handle);
    return;
  }
  // The sequence follows the groups: they are complete only now.
  const auto announces = [](const AcDbProxyData::Group& group) {
    return group.code == 66 && group.value.find('1') != std::string_view::npos;
  };
  if ((isPolyline || name == "INSERT") && std::any_of(data.groups.begin(), data.groups.end(), announces))
    keepSequence(data);
  attach(std::move(proxy));
}

void EntityReader::keepSequence(AcDbProxyData& data) {
  while (in_.next()) {
    const bool part =
        in_.code() == 0 && (in_.value() == "VERTEX" || in_.value() == "ATTRIB" || in_.value() == "SEQEND");
    if (!part) {
      in_.scanner().pushBack();
      break;
    }
    const bool last = in_.value() == "SEQEND";
    data.groups.push_back(0, in_.value());
    while (in_.nextField()) frames_.keepGroup(data.groups);
    if (last) return;
  }
  in_.warn(kNoSequenceEnd, frame_.handle);
  data.groups.push_back(0, "SEQEND");
  data.groups.push_back(100, "AcDbEntity");
  data.groups.push_back(8, "0");
}

void EntityReader::leaveSequence() {
  const AcDbSubentities* const parts = parent_ != nullptr ? parent_->subentities() : nullptr;
  if (parts != nullptr && parts->needsEnd(*parent_) && parts->sequenceEnd().isNull())
    in_.warn(kNoSequenceEnd, parent_->objectId().handle().value());
  parent_ = nullptr;
}

// --- Into the database
// ------------------------------------------------------------------------------------------------

void EntityReader::applyFrame(AcDbEntity& entity) {
  const AcDbDatabase::Roots& roots = drawing_.roots();
  AcDbStub* const layer = frame_.layer != nullptr ? frame_.layer : roots.layerZero.stub();
  AcDbStub* const linetype = frame_.linetype != nullptr ? frame_.linetype : roots.byLayer.stub();
  enum : Adesk::UInt8 { kByLayer, kByBlock, kContinuous, kByHandle };
  Adesk::UInt8 form = kByHandle;
  if (linetype == roots.byLayer.stub()) form = kByLayer;
  if (linetype == roots.byBlock.stub()) form = kByBlock;
  if (linetype == roots.continuous.stub()) form = kContinuous;
  entity.setCommonAsRead(layer, linetype, form, frame_.linetypeScale, frame_.color, AcDb::LineWeight(frame_.lineWeight),
                         frame_.invisible);
  if (!frame_.hasRareParts) return;
  if (frame_.plotStyle != nullptr) {
    AcDbEntity::Common common = entity.common();
    common.plotStyle = frame_.plotStyle;
    common.plotStyleForm = AcDbEntity::kPlotStyleById;
    entity.setCommonAsRead(common);
  }
  if (!frame_.graphics.empty()) {
    if (frame_.graphicsSize != 0 && frame_.graphicsSize != frame_.graphics.size()) {
      in_.warn("a picture has another size than told", frame_.handle);
    }
    entity.setFileGraphics(frame_.graphics);
  }
  frames_.applyRareParts(entity);
}

AcDbStub* EntityReader::ownerOf(bool part) {
  if (part && parent_ != nullptr) return parent_->objectId().stub();
  if (isStray_ && frame_.owner != nullptr) return frame_.owner;
  AcDbStub* const told = frame_.owner;
  if (told != nullptr && told == listedOwner_) return told;
  if (told != nullptr && told->object != nullptr && AcDbBlockTableRecord::cast(told->object) != nullptr) return told;
  if (told != nullptr) in_.warn("the owner told is no block; the entity goes into the current one", frame_.handle);
  if (block_ != nullptr) return block_->objectId().stub();
  return frame_.paperSpace ? drawing_.roots().paperSpace.stub() : drawing_.roots().modelSpace.stub();
}

void EntityReader::list(AcDbStub* stub) {
  if (parent_ != nullptr && stub->owner == parent_->objectId().stub()) {
    if (endsSequence_) {
      parent_->subentities()->setSequenceEndAsRead(stub);
      parent_ = nullptr;
    } else {
      parent_->subentities()->listAsRead(stub);
    }
    return;
  }
  leaveSequence();
  if (stub->owner != listedOwner_) {
    listedOwner_ = stub->owner;
    listedBlock_ = stub->owner != nullptr ? AcDbBlockTableRecord::cast(stub->owner->object) : nullptr;
  }
  if (listedBlock_ != nullptr) listedBlock_->listAsRead(stub);
}

template <class T>
T* EntityReader::attach(std::unique_ptr<T> entity) {
  if (in_.stopped()) return nullptr;
  // A part among the objects belongs to what it names.
  const bool part = isPart_ && !(isStray_ && frame_.owner != nullptr);
  if (part && (isStray_ || parent_ == nullptr)) {
    in_.fault("a vertex, attribute or end of a sequence belongs to nothing; it was left out", frame_.handle);
    return nullptr;
  }
  applyFrame(*entity);
  T* const raw = entity.get();
  constexpr std::size_t kUnknownClass = 480;
  const std::size_t weight = std::is_same_v<T, AcDbEntity> ? kUnknownClass : sizeof(T);
  AcDbStub* const stub =
      drawing_.put(std::unique_ptr<AcDbObject>(std::move(entity)), frame_.handle, ownerOf(part), weight);
  if (stub == nullptr) return nullptr;
  list(stub);
  if constexpr (std::is_same_v<T, AcDbEntity>) {
    if (!part && raw->subentities() != nullptr) parent_ = raw;
  }
  return raw;
}

void EntityReader::finish() {
  leaveSequence();
  for (auto& [block, inserts] : inserts_) {
    auto* const record = AcDbBlockTableRecord::cast(block->object);
    if (record == nullptr) continue;
    // The order that the file tells of goes first.
    std::unordered_set<AcDbStub*> left(inserts.begin(), inserts.end());
    std::vector<AcDbStub*> ordered;
    for (AcDbStub* const told : record->blockReferences()) {
      if (left.erase(told) != 0) ordered.push_back(told);
    }
    for (AcDbStub* const insert : inserts) {
      if (left.erase(insert) != 0) ordered.push_back(insert);
    }
    record->setBlockReferencesAsRead(std::move(ordered));
  }
}

}  // namespace krio::dxf
