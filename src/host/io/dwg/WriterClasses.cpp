#include <array>
#include <unordered_set>

#include "host/io/dwg/Writer.h"
#include "host/os/os.h"

// Which class is written how, and under which number.

namespace krio::dwg {

namespace {

/// The application that classes of the format's own are told to come from.
constexpr const wchar_t* kSystemApplication = L"ObjectDBX Classes";

struct ControlType {
  AcRxClass* (*desc)();
  std::uint16_t number;
};
constexpr std::array kControls = {
    ControlType{[] { return AcDbBlockTable::desc(); }, kBlockControl},
    ControlType{[] { return AcDbLayerTable::desc(); }, kLayerControl},
    ControlType{[] { return AcDbTextStyleTable::desc(); }, kStyleControl},
    ControlType{[] { return AcDbLinetypeTable::desc(); }, kLinetypeControl},
    ControlType{[] { return AcDbViewTable::desc(); }, kViewControl},
    ControlType{[] { return AcDbUCSTable::desc(); }, kUcsControl},
    ControlType{[] { return AcDbViewportTable::desc(); }, kViewportControl},
    ControlType{[] { return AcDbRegAppTable::desc(); }, kAppIdControl},
    ControlType{[] { return AcDbDimStyleTable::desc(); }, kDimStyleControl},
    ControlType{[] { return AcDbVXTable::desc(); }, kViewportHeaderControl},
};

const wchar_t* orEmpty(const wchar_t* text) {
  return text != nullptr ? text : L"";
}

bool isLive(const AcDbStub& stub) {
  return stub.object != nullptr && !stub.has(AcDbStub::kErased);
}

/// A list that was read can tell of a class of objects that it is one of entities: what needs the other gets its own.
std::wstring keyOf(const AcDbClassRecord& record) {
  return record.dxfName + L'\n' + record.cppName + (record.isEntity() ? L"\nentity" : L"\nobject");
}

}  // namespace

const Writer::Kind& Writer::findKind(const AcRxClass* isA) {
  auto found = kinds_.find(isA);
  if (found == kinds_.end()) found = kinds_.emplace(isA, makeKind(*isA)).first;
  lastClass_ = isA;
  lastKind_ = &found->second;
  return found->second;
}

Writer::Kind Writer::makeKind(const AcRxClass& isA) {
  Kind kind;
  kind.isEntity = isA.isDerivedFrom(AcDbEntity::desc());
  if ((kind.type = typeOf(&isA)) != nullptr) {
    kind.how = Kind::How::kByType;
    kind.number = kind.type->number;
    if (kind.number == 0) {
      AcDbClassRecord record;
      record.appName = kSystemApplication;
      record.cppName = isA.name();
      record.dxfName = kind.type->dxfName;
      record.itemClassId = kind.isEntity ? AcDbClassRecord::kEntityClass : AcDbClassRecord::kObjectClass;
      kind.number = classNumber(record);
    }
    return kind;
  }
  for (const ControlType& control : kControls) {
    if (control.desc() == &isA) return {Kind::How::kControl, control.number, nullptr, false};
  }
  if (&isA == AcDbBlockTableRecord::desc()) return {Kind::How::kBlockRecord, kBlockRecord, nullptr, false};
  if (&isA == AcDbXrecord::desc()) return {Kind::How::kXrecord, kXrecord, nullptr, false};
  if (&isA == AcDbBlockBegin::desc()) return {Kind::How::kBlockBegin, kBlockBegin, nullptr, true};
  if (&isA == AcDbBlockEnd::desc()) return {Kind::How::kBlockEnd, kBlockEnd, nullptr, true};
  if (&isA == AcDbProxyEntity::desc()) return {Kind::How::kProxy, 0, nullptr, true};
  if (&isA == AcDbProxyObject::desc()) return {Kind::How::kProxy, 0, nullptr, false};
  AcDbClassRecord record;
  record.proxyFlags = isA.proxyFlags();
  record.appName = orEmpty(isA.appName());
  record.cppName = isA.name();
  record.dxfName = isA.dxfName() != nullptr ? isA.dxfName() : isA.name();
  record.itemClassId = kind.isEntity ? AcDbClassRecord::kEntityClass : AcDbClassRecord::kObjectClass;
  kind.number = classNumber(record);
  return kind;
}

/// The number of a class, which gets a place in the list when it has none.
unsigned Writer::classNumber(const AcDbClassRecord& record) {
  const auto [found, added] = classNumbers_.try_emplace(keyOf(record), classes_.size());
  if (added) classes_.push_back(record);
  return kFirstClass + found->second;
}

/// Groups of the exchange format aren't the data of a fixed type: they go under a class of that name, which is called
/// as their last marker tells.
AcDbClassRecord Writer::classOf(const AcDbProxyData& data, bool isEntity) {
  AcDbClassRecord record = data.classRecord;
  if (record.dxfName.empty() && data.form == AcDbProxyData::kDxfGroups) {
    record.dxfName = data.dxfName;
    record.appName = kSystemApplication;
    for (const AcDbProxyData::Group group : data.groups) {
      if (group.code == AcDb::kDxfSubclass) record.cppName = os::toWide(group.value);
      if (group.code == 0) break;
    }
    if (record.cppName.empty()) record.cppName = L"AcDb" + data.dxfName;
  }
  record.itemClassId = isEntity ? AcDbClassRecord::kEntityClass : AcDbClassRecord::kObjectClass;
  return record;
}

unsigned Writer::typeOfProxy(const AcDbProxyData& data, bool isEntity) {
  const AcDbClassRecord record = classOf(data, isEntity);
  if (record.dxfName.empty()) {
    if (data.fixedType != 0) return data.fixedType;
    return isEntity ? kProxyEntity : kProxyObject;
  }
  const unsigned number = classNumber(record);
  const bool native = data.form == AcDbProxyData::kDwgBits && !data.asProxyRecord;
  return native ? number : unsigned(isEntity ? kProxyEntity : kProxyObject);
}

/// The classes of the drawing's list first, then those that its objects need.
void Writer::collectClasses() {
  for (const AcDbClassRecord& record : database_.classRecords()) {
    classNumbers_.try_emplace(keyOf(record), unsigned(classes_.size()));
    classes_.push_back(record);
  }
  std::unordered_set<unsigned> ofProxies;
  for (const AcDbStub& stub : database_.handleTable().stubs()) {
    if (!isLive(stub)) continue;
    const Kind& kind = kindOf(*stub.object);
    if (kind.how != Kind::How::kProxy) continue;
    const AcDbProxyData& data = kind.isEntity ? static_cast<const AcDbProxyEntity&>(*stub.object).data()
                                              : static_cast<const AcDbProxyObject&>(*stub.object).data();
    const AcDbClassRecord record = classOf(data, kind.isEntity);
    if (!record.dxfName.empty()) ofProxies.insert(classNumber(record) - kFirstClass);
  }
  for (unsigned i = 0; i < classes_.size(); ++i) {
    const bool known = typeOfClass(classes_[i].dxfName) != nullptr || customClassOf(classes_[i]) != nullptr;
    if (known || ofProxies.contains(i)) classes_[i].wasProxy = !known;
  }
}

}  // namespace krio::dwg
