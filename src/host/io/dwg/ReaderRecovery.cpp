#include <algorithm>

#include "host/io/dwg/Reader.h"
#include "host/io/dwg/RecordFields.h"
#include "host/os/os.h"

// What a reader puts right in damaged files alone.

namespace krio::dwg {

namespace {

bool hasRecord(AcDbObjectId table, const std::wstring& name) {
  const AcDbObjectPointer<AcDbSymbolTable> open(table, AcDb::kForRead);
  return open->has(name.c_str());
}

/// What a drawing's variables name among the records.
struct NamedRole {
  AcDbHeader::Index variable;
  unsigned type;
  const wchar_t* name;
};
constexpr NamedRole kNamedRoles[] = {{AcDbHeader::kBLOCK_MODEL_SPACE, kBlockRecord, ACDB_MODEL_SPACE},
                                     {AcDbHeader::kBLOCK_PAPER_SPACE, kBlockRecord, ACDB_PAPER_SPACE},
                                     {AcDbHeader::kLTYPE_BYLAYER, kLinetype, L"ByLayer"},
                                     {AcDbHeader::kLTYPE_BYBLOCK, kLinetype, L"ByBlock"},
                                     {AcDbHeader::kLTYPE_CONTINUOUS, kLinetype, L"Continuous"}};

}  // namespace

/// Entities name neither their space nor the usual linetypes: where the variables that do are damaged, the records are
/// found by their names, ahead of all that refers to them.
void Reader::findNamedRecords() {
  AcDbHeader& header = database_.header();
  struct Found {
    bool asTold = false;
    std::uint64_t first = 0;
  } found[std::size(kNamedRoles)];
  std::size_t budget = file_.size();
  for (const MapEntry& entry : container_.map()) {
    const auto object = container_.objectAt(entry.address);
    if (!object || object->size > budget) continue;
    budget -= object->size;
    const auto frame = readFrame(file_, *object);
    if (!frame || frame->handle != entry.handle || (frame->type != kBlockRecord && frame->type != kLinetype)) continue;
    Decoder decoder = decoderOf(*frame);
    ObjectHead head;
    readHead(decoder, head);
    std::wstring name;
    AcDbSymbolTableRecord::FilePart part;
    codeFilePart(decoder, name, part);
    if (decoder.failed()) continue;
    const std::wstring folded = acdbFoldedName(name.c_str());
    for (std::size_t i = 0; i < std::size(kNamedRoles); ++i) {
      const NamedRole& role = kNamedRoles[i];
      if (frame->type != role.type || folded != acdbFoldedName(role.name)) continue;
      if (header.id(role.variable).handle().value() == entry.handle) found[i].asTold = true;
      if (found[i].first == 0) found[i].first = entry.handle;
    }
  }
  for (std::size_t i = 0; i < std::size(kNamedRoles); ++i) {
    if (found[i].asTold || found[i].first == 0) continue;
    const NamedRole& role = kNamedRoles[i];
    report_.warn("the variables don't name \"" + os::toUtf8(role.name) + "\"; the record of that name was taken",
                 found[i].first, -1, true);
    header.setId(role.variable, AcDbObjectId(database_.handleTable().find(found[i].first)));
  }
}

/// What opens or closes no block has no place in a file and nothing to tell.
void Reader::dropLooseEnds() {
  for (AcDbStub& stub : const_cast<AcDbHandleTable&>(database_.handleTable()).stubs()) {
    const AcRxClass* const own = stub.object != nullptr ? stub.object->isA() : nullptr;
    if (own != AcDbBlockBegin::desc() && own != AcDbBlockEnd::desc()) continue;
    const auto* const block = stub.owner != nullptr ? AcDbBlockTableRecord::cast(stub.owner->object) : nullptr;
    const bool isUsed =
        block != nullptr && (block->blockBeginId().stub() == &stub || block->blockEndId().stub() == &stub);
    if (!isUsed) stub.flags |= AcDbStub::kErased;
  }
}

/// Vertices and attributes have a place in a file only behind the entity that they belong to, and so has the end of
/// them, which tells nothing.
bool Reader::dropLooseParts() {
  std::unordered_set<AcDbStub*> loose;
  std::uint64_t ofNothing = 0;
  for (AcDbStub* const stub : sequenceParts_) {
    AcDbObject* const owner = stub->owner != nullptr ? stub->owner->object : nullptr;
    const bool isEnd = stub->object->isA() == AcDbSequenceEnd::desc();
    if (owner != nullptr && AcDbBlockTableRecord::cast(owner) == nullptr) {
      auto* const entity = AcDbEntity::cast(owner);
      AcDbSubentities* const parts = entity != nullptr ? entity->subentities() : nullptr;
      if (parts == nullptr || !isEnd || parts->sequenceEnd().stub() == stub) continue;
    }
    loose.insert(stub);
    stub->flags |= AcDbStub::kErased;
    if (isEnd) {
      report_.warn("the end of a sequence ends none; it was left out", stub->handle, -1, true);
    } else {
      ofNothing = stub->handle;
    }
  }
  if (ofNothing == 0) return true;
  if (!policy_.goOn("vertices or attributes belong to nothing; they were left out", 0, ofNothing)) return false;
  for (Parts& parts : parts_) std::erase_if(parts.stubs, [&](AcDbStub* stub) { return loose.contains(stub); });
  std::erase_if(parts_, [](const Parts& parts) { return parts.stubs.empty(); });
  return true;
}

/// A damaged file can have two tables of a kind. What only the one lists that isn't the drawing's has no table then.
void Reader::dropForeignTables() {
  const AcDbDatabase::Roots& roots = database_.roots();
  const AcDbObjectId own[] = {roots.blockTable,    roots.layerTable,         roots.textStyleTable, roots.linetypeTable,
                              roots.viewTable,     roots.ucsTable,           roots.viewportTable,  roots.regAppTable,
                              roots.dimStyleTable, roots.viewportHeaderTable};
  for (const Control& control : controls_) {
    const auto* const table = control.table->object != nullptr ? AcDbSymbolTable::cast(control.table->object) : nullptr;
    if (table == nullptr || std::ranges::find(own, table->objectId()) != std::end(own)) continue;
    report_.warn("a second table of its kind was taken apart", control.table->handle, -1, true);
    for (const AcDbObjectId id : table->recordIds()) strays_.push_back(id.stub());
    control.table->flags |= AcDbStub::kErased;
  }
}

/// Records whose table was lost go into the one that stands for it now. Where that has one of the name, what a space
/// holds goes into that one, and other records get names of their own.
void Reader::adoptStrays() {
  const AcDbObjectId ids[] = {database_.blockTableId(),    database_.layerTableId(),     database_.linetypeTableId(),
                              database_.dimStyleTableId(), database_.textStyleTableId(), database_.viewportTableId(),
                              database_.regAppTableId(),   database_.viewTableId(),      database_.UCSTableId()};
  std::unordered_map<const AcDbStub*, RecordNames> names;
  for (AcDbStub* const stub : strays_) {
    if (stub->object == nullptr || stub->has(AcDbStub::kErased)) continue;
    auto& record = static_cast<AcDbSymbolTableRecord&>(*stub->object);
    const auto* const id = std::ranges::find_if(ids, [&](AcDbObjectId each) {
      return record.isKindOf(static_cast<AcDbSymbolTable*>(each.stub()->object)->recordClass());
    });
    if (id == std::end(ids)) {
      report_.warn("the record belongs to no table", stub->handle, -1, false);
      continue;
    }
    auto& table = static_cast<AcDbSymbolTable&>(*id->stub()->object);
    if (stub->owner == id->stub()) continue;
    if (moveSpace(stub)) {
      report_.warn("the space belonged to no table; what it holds was put into the one of its name", stub->handle, -1,
                   true);
      continue;
    }
    const auto isFree = [&](const std::wstring& name) { return !hasRecord(*id, name); };
    const bool manyOfAName = table.isKindOf(AcDbViewportTable::desc());
    if (!manyOfAName && !isFree(record.nameText()))
      record.setNameAsRead(names[id->stub()].make(record.nameText(), isFree));
    stub->owner = id->stub();
    table.listAsRead(record);
    report_.warn("the record belonged to no table; it was put into that of its kind", stub->handle, -1, true);
  }
}

/// Moves what a space that no table lists holds into the one of its name that the table has. False where it has none,
/// and for other records.
bool Reader::moveSpace(AcDbStub* stub) {
  auto* const block = AcDbBlockTableRecord::cast(stub->object);
  if (block == nullptr || (block->nameText() != ACDB_MODEL_SPACE && block->nameText() != ACDB_PAPER_SPACE))
    return false;
  AcDbObjectId space;
  {
    const AcDbObjectPointer<AcDbBlockTable> table(database_.blockTableId(), AcDb::kForRead);
    if (table->getAt(block->nameText().c_str(), space) != Acad::eOk) return false;
  }
  auto* const target = static_cast<AcDbBlockTableRecord*>(space.stub()->object);
  for (AcDbStub* const entity : block->entities()) {
    entity->owner = space.stub();
    target->listAsRead(entity);
  }
  block->setEntitiesAsRead({});
  // What is left of the lost space goes: no form of a file has a place for it.
  for (AcDbStub* const each : {stub, block->blockBeginId().stub(), block->blockEndId().stub()})
    if (each != nullptr) each->flags |= AcDbStub::kErased;
  return true;
}

}  // namespace krio::dwg
