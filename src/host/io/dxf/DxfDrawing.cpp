#include "host/io/dxf/DxfDrawing.h"

#include <algorithm>

#include "host/db/HandleLimit.h"
#include "host/db/db.h"
#include "host/os/os.h"

namespace krio::dxf {

// --- Names
// ------------------------------------------------------------------------------------------------------------

std::size_t NameIndex::slotOf(std::string_view name) const {
  std::uint64_t mixed = 0xCBF29CE484222325ULL;
  for (const char c : name) mixed = (mixed ^ static_cast<unsigned char>(c)) * 0x100000001B3ULL;
  std::size_t i = std::size_t(mixed ^ mixed >> 32) & (slots_.size() - 1);
  while (slots_[i].record != nullptr && slots_[i].name != name) i = (i + 1) & (slots_.size() - 1);
  return i;
}

AcDbStub* NameIndex::findOther(std::string_view name) const {
  if (slots_.empty()) return nullptr;
  const Slot& slot = slots_[slotOf(name)];
  if (slot.record == nullptr) return nullptr;
  lastName_ = slot.name;
  return last_ = slot.record;
}

void NameIndex::add(std::string_view name, AcDbStub* record) {
  constexpr std::size_t kFirstSize = 64;
  if (2 * (count_ + 1) > slots_.size()) {
    std::vector<Slot> old(std::max(kFirstSize, 2 * slots_.size()));
    old.swap(slots_);
    for (const Slot& slot : old) {
      if (slot.record != nullptr) slots_[slotOf(slot.name)] = slot;
    }
  }
  Slot& slot = slots_[slotOf(name)];
  if (slot.record == nullptr) ++count_;
  slot = {name, record};
}

// --- Objects
// ----------------------------------------------------------------------------------------------------------

std::uint64_t Drawing::freshHandle() {
  if (!seedKnown_) {
    seedKnown_ = true;
    // Handles that come later in the file mustn't be given away.
    std::uint64_t highest = db_.handseed().value();
    Scanner ahead(in_.scanner().bytes());
    for (;;) {
      if (!ahead.next()) {
        if (!ahead.fault()) break;
        ahead.skipLine();
        continue;
      }
      std::uint64_t handle = 0;
      const bool own = ahead.code() == AcDb::kDxfHandle || ahead.code() == AcDb::kDxfDimVarHandle;
      if (own && parseHandle(ahead.value(), handle) && isPossibleHandle(handle))
        highest = std::max(highest, handle + 1);
    }
    db_.setHandseedAsRead(highest);
  }
  return nextHandle(db_);
}

std::uint64_t Drawing::unusedHandle() const {
  constexpr std::uint64_t kUsual = 0xB;
  const std::uint64_t seed = db_.handseed().value();
  if (kUsual < seed && db_.handleTable().find(kUsual) == nullptr) return kUsual;
  for (std::uint64_t handle = 1; handle < seed; ++handle) {
    if (db_.handleTable().find(handle) == nullptr) return handle;
  }
  return 0;
}

AcDbStub* Drawing::put(std::unique_ptr<AcDbObject> object, std::uint64_t handle, AcDbStub* owner, std::size_t weight) {
  // No object takes so few bytes of a file that it comes to more than this.
  constexpr std::size_t kPerByte = 40;
  constexpr std::size_t kFree = std::size_t(24) << 20;
  constexpr std::size_t kStub = 96;
  weight_ += weight + kStub;
  if (weight_ > kPerByte * in_.scanner().size() + kFree) {
    in_.stop("there are more objects than so many bytes can mean");
    return nullptr;
  }
  if (handle > kMaxHandle) {
    if (!in_.fault("a handle is beyond all bounds; another was given")) return nullptr;
    handle = 0;
  }
  if (handle == 0) handle = freshHandle();
  AcDbStub* stub = db_.stubOf(handle);
  if (db_.putRead(object.get(), stub, owner) == Acad::eHandleExists) {
    if (!in_.fault("the handle stands for two objects; the second got another", handle, Acad::eHandleExists)) {
      return nullptr;
    }
    stub = db_.stubOf(freshHandle());
    if (db_.putRead(object.get(), stub, owner) != Acad::eOk) return nullptr;
  }
  static_cast<void>(object.release());  // The database owns it from here on.
  return stub;
}

const AcDbClassRecord* Drawing::classRecord(const std::wstring& dxfName) const {
  for (const AcDbClassRecord& record : db_.classRecords()) {
    if (record.dxfName == dxfName) return &record;
  }
  return nullptr;
}

// --- Records
// ----------------------------------------------------------------------------------------------------------

AcDbStub* Drawing::recordNamed(AcDbObjectId tableId, const std::wstring& name) const {
  const AcDbObjectPointer<AcDbSymbolTable> table(tableId, AcDb::kForRead);
  AcDbObjectId id;
  if (table.openStatus() != Acad::eOk || table->getAt(name.c_str(), id) != Acad::eOk) return nullptr;
  return id.stub();
}

template <class Record>
AcDbObjectId Drawing::makeRecord(AcDbObjectId tableId, const wchar_t* name) {
  if (!tableId.isResident()) return AcDbObjectId::kNull;
  auto record = std::make_unique<Record>();
  record->setNameAsRead(name);
  Record* const made = put(std::move(record), 0, tableId.stub());
  if (made == nullptr) return AcDbObjectId::kNull;
  if (auto* const table = AcDbSymbolTable::cast(tableId.stub()->object)) table->listAsRead(*made);
  return made->objectId();
}

template <class Record>
AcDbObjectId Drawing::findOrMake(AcDbObjectId table, const wchar_t* name) {
  if (AcDbStub* const there = recordNamed(table, name); there != nullptr) return there;
  return makeRecord<Record>(table, name);
}

AcDbStub* Drawing::layer(std::string_view name) {
  if (AcDbStub* const known = layers_.find(name)) return known;
  std::wstring wide;
  in_.readText(wide);
  AcDbStub* record = wide.empty() ? roots_.layerZero.stub() : recordNamed(roots_.layerTable, wide);
  if (record == nullptr) {
    in_.warn("layer \"" + os::toUtf8(wide) + "\" wasn't in the table; it was made");
    record = makeRecord<AcDbLayerTableRecord>(roots_.layerTable, wide.c_str()).stub();
  }
  layers_.add(name, record);
  return record;
}

AcDbStub* Drawing::linetype(std::string_view name) {
  if (AcDbStub* const known = linetypes_.find(name)) return known;
  std::wstring wide;
  in_.readText(wide);
  AcDbStub* record = wide.empty() ? roots_.byLayer.stub() : recordNamed(roots_.linetypeTable, wide);
  if (record == nullptr) {
    in_.warn("linetype \"" + os::toUtf8(wide) + "\" wasn't in the table; a continuous one was made");
    record = makeRecord<AcDbLinetypeTableRecord>(roots_.linetypeTable, wide.c_str()).stub();
  }
  linetypes_.add(name, record);
  return record;
}

AcDbStub* Drawing::textStyle(std::string_view name) {
  if (AcDbStub* const known = textStyles_.find(name)) return known;
  std::wstring wide;
  in_.readText(wide);
  AcDbStub* record = wide.empty() ? roots_.standardTextStyle.stub() : recordNamed(roots_.textStyleTable, wide);
  if (record == nullptr) {
    in_.warn("text style \"" + os::toUtf8(wide) + "\" wasn't in the table; it was made");
    record = makeRecord<AcDbTextStyleTableRecord>(roots_.textStyleTable, wide.c_str()).stub();
  }
  textStyles_.add(name, record);
  return record;
}

AcDbBlockTableRecord* Drawing::block(const std::wstring& name) {
  AcDbStub* const record = recordNamed(roots_.blockTable, name);
  return record != nullptr ? AcDbBlockTableRecord::cast(record->object) : nullptr;
}

AcDbBlockTableRecord* Drawing::makeBlock(const std::wstring& name, std::uint64_t handle) {
  auto record = std::make_unique<AcDbBlockTableRecord>();
  record->setNameAsRead(name);
  AcDbBlockTableRecord* const made = put(std::move(record), handle, roots_.blockTable.stub());
  if (made == nullptr) return nullptr;
  if (auto* const table = AcDbSymbolTable::cast(roots_.blockTable.stub()->object)) table->listAsRead(*made);
  return made;
}

// --- What every drawing has
// -------------------------------------------------------------------------------------------

template <class Table>
void Drawing::makeTable(AcDbObjectId& root) {
  if (root.isResident()) return;
  Table* const made = put(std::make_unique<Table>(), 0, nullptr);
  // What was put belongs to the database, which clang-tidy doesn't see.
  // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks)
  if (made != nullptr) root = made->objectId();
}

void Drawing::makeBasics() {
  if (basicsMade_) return;
  basicsMade_ = true;
  makeTable<AcDbBlockTable>(roots_.blockTable);
  makeTable<AcDbLayerTable>(roots_.layerTable);
  makeTable<AcDbTextStyleTable>(roots_.textStyleTable);
  makeTable<AcDbLinetypeTable>(roots_.linetypeTable);
  makeTable<AcDbViewTable>(roots_.viewTable);
  makeTable<AcDbUCSTable>(roots_.ucsTable);
  makeTable<AcDbViewportTable>(roots_.viewportTable);
  makeTable<AcDbRegAppTable>(roots_.regAppTable);
  makeTable<AcDbDimStyleTable>(roots_.dimStyleTable);
  roots_.byBlock = findOrMake<AcDbLinetypeTableRecord>(roots_.linetypeTable, L"ByBlock");
  roots_.byLayer = findOrMake<AcDbLinetypeTableRecord>(roots_.linetypeTable, L"ByLayer");
  roots_.continuous = findOrMake<AcDbLinetypeTableRecord>(roots_.linetypeTable, L"Continuous");
  roots_.layerZero = findOrMake<AcDbLayerTableRecord>(roots_.layerTable, L"0");
  roots_.standardTextStyle = findOrMake<AcDbTextStyleTableRecord>(roots_.textStyleTable, L"Standard");
  const AcDbObjectId model = findOrMake<AcDbBlockTableRecord>(roots_.blockTable, ACDB_MODEL_SPACE);
  const AcDbObjectId paper = findOrMake<AcDbBlockTableRecord>(roots_.blockTable, ACDB_PAPER_SPACE);
  roots_.modelSpace = model;
  roots_.paperSpace = paper;
  // Objects that read themselves look records up through the database.
  db_.setRoots(roots_);
}

void Drawing::makeDimStyle() {
  roots_.standardDimStyle = makeRecord<AcDbDimStyleTableRecord>(roots_.dimStyleTable, L"Standard");
  if (!roots_.standardDimStyle.isResident()) return;
  auto* const style = static_cast<AcDbDimStyleTableRecord*>(roots_.standardDimStyle.stub()->object);
  style->dataAsRead().dimtxsty = roots_.standardTextStyle;
}

void Drawing::makeRest() {
  makeBasics();
  if (in_.stopped()) return;
  AcDbDimStyleTable* styles = nullptr;
  if (db_.getDimStyleTable(styles) == Acad::eOk) {
    const bool empty = styles->recordIds().empty();
    styles->close();
    roots_.standardDimStyle = recordNamed(roots_.dimStyleTable, L"Standard");
    if (empty) makeDimStyle();
  }
  findOrMake<AcDbRegAppTableRecord>(roots_.regAppTable, L"ACAD");
  findOrMake<AcDbViewportTableRecord>(roots_.viewportTable, L"*Active");
  makeTable<AcDbDictionary>(roots_.namedObjects);
  if (!roots_.viewportHeaderTable.isResident()) {
    // A DXF holds none, but it takes a handle: one that the file leaves free, so that the next handle stays the same.
    AcDbVXTable* const made = put(std::make_unique<AcDbVXTable>(), unusedHandle(), nullptr);
    // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks): as above, the database owns it.
    if (made != nullptr) roots_.viewportHeaderTable = made->objectId();
  }
  db_.setRoots(roots_);
  AcDbHeader& header = db_.header();
  const std::pair<AcDbHeader::Index, AcDbObjectId> roles[] = {
      {AcDbHeader::kBLOCK_CONTROL, roots_.blockTable},
      {AcDbHeader::kLAYER_CONTROL, roots_.layerTable},
      {AcDbHeader::kSTYLE_CONTROL, roots_.textStyleTable},
      {AcDbHeader::kLTYPE_CONTROL, roots_.linetypeTable},
      {AcDbHeader::kVIEW_CONTROL, roots_.viewTable},
      {AcDbHeader::kUCS_CONTROL, roots_.ucsTable},
      {AcDbHeader::kVPORT_CONTROL, roots_.viewportTable},
      {AcDbHeader::kAPPID_CONTROL, roots_.regAppTable},
      {AcDbHeader::kDIMSTYLE_CONTROL, roots_.dimStyleTable},
      {AcDbHeader::kVIEWPORT_HEADER_CONTROL, roots_.viewportHeaderTable},
      {AcDbHeader::kDICTIONARY_NAMED_OBJECTS, roots_.namedObjects},
      {AcDbHeader::kBLOCK_PAPER_SPACE, roots_.paperSpace},
      {AcDbHeader::kBLOCK_MODEL_SPACE, roots_.modelSpace},
      {AcDbHeader::kLTYPE_BYLAYER, roots_.byLayer},
      {AcDbHeader::kLTYPE_BYBLOCK, roots_.byBlock},
      {AcDbHeader::kLTYPE_CONTINUOUS, roots_.continuous}};
  for (const auto& [index, id] : roles) header.setId(index, id);
}

}  // namespace krio::dxf
