#include <algorithm>
#include <unordered_set>

#include "host/db/OwnerChain.h"
#include "host/io/dwg/Reader.h"
#include "host/io/dwg/ValueBytes.h"
#include "host/os/os.h"

// What a reader puts in order once all objects are there.

namespace krio::dwg {

bool Reader::finish() {
  if (blocks_.empty()) {
    report_.error("there is no drawing in the file: it has no blocks", 0, 0);
    return false;
  }
  nameBlocks();
  listRecords();
  dropForeignEnds();
  if (!breakOwnerCircles() || !dropLooseParts() || !listParts()) return false;
  listInserts();
  numberViewports();
  database_.settleTables();
  dropForeignTables();
  adoptStrays();
  if (database_.finishRead() != Acad::eOk) {
    report_.error("the file lacks what no drawing can be without");
    return false;
  }
  if (!readAllExtendedData()) return false;
  if (context_->dangling() != 0) {
    report_.note(std::to_string(context_->dangling()) + " references name objects that the file doesn't have");
  }
  return true;
}

/// A block's name stands whole in its BLOCK entity only: the record's lacks the number of an anonymous one.
void Reader::nameBlocks() {
  for (BlockRecord& block : blocks_) {
    if (block.stub->object == nullptr) continue;
    auto& record = static_cast<AcDbBlockTableRecord&>(*block.stub->object);
    const auto found = blockNames_.find(record.blockBeginId().stub());
    const std::wstring& name = found != blockNames_.end() && !found->second.empty() ? found->second : block.name;
    record.setNameAsRead(name);
    if (record.recordName() != block.name) record.dataAsRead().recordName = block.name;
  }
}

/// What opens and closes a block, or ends a sequence, must be of that kind and belong to it: one object in two places
/// would be written twice.
void Reader::dropForeignEnds() {
  const auto isOwn = [](AcDbStub* stub, const AcDbStub* owner, const AcRxClass* kind) {
    return stub != nullptr && stub->object != nullptr && stub->owner == owner && stub->object->isKindOf(kind);
  };
  for (const BlockRecord& block : blocks_) {
    if (block.stub->object == nullptr) continue;
    auto& record = static_cast<AcDbBlockTableRecord&>(*block.stub->object);
    AcDbStub* const begin = record.blockBeginId().stub();
    AcDbStub* const end = record.blockEndId().stub();
    const bool beginIsOwn = isOwn(begin, block.stub, AcDbBlockBegin::desc());
    const bool endIsOwn = isOwn(end, block.stub, AcDbBlockEnd::desc());
    if (beginIsOwn && endIsOwn) continue;
    report_.warn("the block's begin or end isn't its own; they are made anew", block.stub->handle, -1, true);
    record.setEndsAsRead(beginIsOwn ? begin : nullptr, endIsOwn ? end : nullptr);
  }
  if (policy_.recover()) dropLooseEnds();
  for (AcDbStub* const stub : sequences_) {
    AcDbSubentities* const parts = static_cast<AcDbEntity*>(stub->object)->subentities();
    AcDbStub* const end = parts->sequenceEnd().stub();
    if (end == nullptr || isOwn(end, stub, AcDbSequenceEnd::desc())) continue;
    report_.warn("the sequence's end isn't its own; it is made anew", stub->handle, -1, true);
    parts->setSequenceEndAsRead(nullptr);
  }
}

/// Gives a record that has the name of another of its table one of its own: by their names the exchange format refers
/// to records, and so do people.
void Reader::nameAlone(TableNames& names, AcDbSymbolTableRecord& record) {
  const auto take = [&](const std::wstring& name) { return names.taken.insert(acdbFoldedName(name.c_str())).second; };
  if (take(record.nameText())) return;
  const std::wstring name = names.further.make(record.nameText(), take);
  report_.warn("the name \"" + os::toUtf8(record.nameText()) + "\" stands twice in a table; the second is now \"" +
                   os::toUtf8(name) + "\"",
               record.objectId().handle().value(), -1, true);
  record.setNameAsRead(name);
}

void Reader::listRecords() {
  std::unordered_set<AcDbStub*> listed;
  std::unordered_map<AcDbStub*, TableNames> names;
  const auto listIn = [&](AcDbStub* tableStub, AcDbStub* stub) {
    auto* const table = tableStub->object != nullptr ? AcDbSymbolTable::cast(tableStub->object) : nullptr;
    auto* const record = AcDbSymbolTableRecord::cast(stub->object);
    if (table == nullptr || record == nullptr || !record->isKindOf(table->recordClass())) return false;
    if (!listed.insert(stub).second) return true;
    stub->owner = tableStub;
    if (!table->isKindOf(AcDbViewportTable::desc())) nameAlone(names[tableStub], *record);
    table->listAsRead(*record);
    return true;
  };
  for (const Control& control : controls_) {
    for (AcDbStub* const stub : control.records) {
      if (stub == nullptr) continue;  // hosts leave gaps in these lists
      if (stub->object == nullptr || !listIn(control.table, stub)) {
        report_.warn("a table lists a record that isn't there", control.table->handle, -1, true);
      }
    }
  }
  for (AcDbStub* const stub : records_) {
    if (stub->object == nullptr || listed.contains(stub)) continue;
    if (stub->owner != nullptr && listIn(stub->owner, stub)) {
      report_.warn("the record was missing in its table", stub->handle, -1, true);
    } else if (AcDbSymbolTableRecord::cast(stub->object) != nullptr) {
      strays_.push_back(stub);
    } else {
      report_.warn("something else stands in the place of a record", stub->handle, -1, false);
    }
  }
}

/// No object may be its own owner, however many steps away.
bool Reader::breakOwnerCircles() {
  for (AcDbStub& stub : const_cast<AcDbHandleTable&>(database_.handleTable()).stubs()) {
    if (!isInOwnerCircle(stub)) continue;
    if (!policy_.goOn("the object's owners form a circle", 0, stub.handle)) return false;
    stub.owner = nullptr;
    circlesBroken_ = true;
  }
  return true;
}

std::optional<Frame> Reader::frameOf(std::uint64_t handle) {
  const auto& map = container_.map();
  const auto entry = std::lower_bound(map.begin(), map.end(), handle,
                                      [](const MapEntry& each, std::uint64_t h) { return each.handle < h; });
  if (entry == map.end() || entry->handle != handle) return {};
  const auto object = container_.objectAt(entry->address);
  return object ? readFrame(file_, *object) : std::nullopt;
}

/// Puts the entities of one owner into the order of their links. Each is met once, whatever the links tell.
bool Reader::orderByLinks(Parts& parts) {
  struct Links {
    AcDbStub* stub;
    std::uint64_t previous, next;
  };
  std::unordered_map<std::uint64_t, Links> links;
  for (AcDbStub* const stub : parts.stubs) {
    const auto frame = frameOf(stub->handle);
    if (!frame) continue;
    Decoder decoder = decoderOf(*frame);
    EntityHead head;
    readHead(decoder, head);
    links.try_emplace(stub->handle, Links{stub, head.previous, head.next});
  }
  std::vector<AcDbStub*> ordered;
  ordered.reserve(parts.stubs.size());
  for (AcDbStub* const stub : parts.stubs) {
    const auto start = links.find(stub->handle);
    if (start == links.end() || start->second.previous != 0) continue;
    for (auto at = start; at != links.end();) {
      ordered.push_back(at->second.stub);
      const std::uint64_t next = at->second.next;
      links.erase(at);
      at = links.find(next);
    }
  }
  if (ordered.size() != parts.stubs.size()) {
    if (!policy_.goOn("the chain of entities is broken; those left over were put at its end", 0,
                      parts.owner != nullptr ? parts.owner->handle : 0)) {
      return false;
    }
    const std::unordered_set<AcDbStub*> placed(ordered.begin(), ordered.end());
    for (AcDbStub* const stub : parts.stubs) {
      if (!placed.contains(stub)) ordered.push_back(stub);
    }
  }
  parts.stubs = std::move(ordered);
  return true;
}

bool Reader::listParts() {
  AcDbStub* fallback = modelSpace_;
  for (const BlockRecord& block : blocks_) {
    const bool lost = fallback == nullptr || fallback->object == nullptr;
    if (lost && block.stub->object != nullptr && block.name == ACDB_MODEL_SPACE) fallback = block.stub;
  }
  std::vector<AcDbStub*> orphans;
  for (Parts& parts : parts_) {
    if ((!parts.inOrder || parts.lastNext != 0) && !orderByLinks(parts)) return false;
    if (circlesBroken_) {
      const auto gone = std::stable_partition(parts.stubs.begin(), parts.stubs.end(),
                                              [&](const AcDbStub* stub) { return stub->owner == parts.owner; });
      orphans.insert(orphans.end(), gone, parts.stubs.end());
      parts.stubs.erase(gone, parts.stubs.end());
      if (parts.stubs.empty()) continue;
    }
    AcDbObject* const owner = parts.owner != nullptr ? parts.owner->object : nullptr;
    if (auto* const block = AcDbBlockTableRecord::cast(owner)) {
      block->setEntitiesAsRead(std::move(parts.stubs));
      continue;
    }
    auto* const entity = AcDbEntity::cast(owner);
    if (AcDbSubentities* const list = entity != nullptr ? entity->subentities() : nullptr) {
      list->reserve(parts.stubs.size());
      for (AcDbStub* const stub : parts.stubs) list->listAsRead(stub);
      continue;
    }
    // What belongs to a proxy, or to an object that isn't known for owning entities, is known by its owner only.
    const bool isSpace = parts.owner == modelSpace_ || parts.owner == paperSpace_;
    if (owner != nullptr && !isSpace) continue;
    if (!policy_.goOn(std::to_string(parts.stubs.size()) + " entities have no owner; they were put into model space", 0,
                      parts.stubs.front()->handle)) {
      return false;
    }
    orphans.insert(orphans.end(), parts.stubs.begin(), parts.stubs.end());
  }
  if (orphans.empty()) return true;
  auto* const space = fallback != nullptr ? AcDbBlockTableRecord::cast(fallback->object) : nullptr;
  if (space == nullptr) {
    report_.error("the drawing has no model space");
    return false;
  }
  for (AcDbStub* const stub : orphans) {
    stub->owner = fallback;
    space->listAsRead(stub);
  }
  return true;
}

void Reader::listInserts() {
  std::stable_sort(inserts_.begin(), inserts_.end(), [](const auto& a, const auto& b) {
    const auto handle = [](const AcDbStub* stub) { return stub != nullptr ? stub->handle : 0; };
    return handle(a.first) < handle(b.first);
  });
  for (auto first = inserts_.begin(); first != inserts_.end();) {
    const auto last = std::find_if(first, inserts_.end(), [&](const auto& each) { return each.first != first->first; });
    if (auto* const block = first->first != nullptr ? AcDbBlockTableRecord::cast(first->first->object) : nullptr) {
      std::vector<AcDbStub*> references;
      for (auto each = first; each != last; ++each) references.push_back(each->second);
      block->setBlockReferencesAsRead(std::move(references));
    }
    first = last;
  }
}

/// A layout's viewports have their numbers by their order; the first is the sheet itself.
void Reader::numberViewports() {
  std::unordered_set<const AcDbStub*> numbered;
  for (const AcDbStub* const stub : viewports_) {
    auto* const block = stub->owner != nullptr ? AcDbBlockTableRecord::cast(stub->owner->object) : nullptr;
    if (block == nullptr || !numbered.insert(stub->owner).second) continue;
    Adesk::Int16 number = 0;
    for (const AcDbStub* const each : block->entities()) {
      auto* const viewport = each->object != nullptr ? AcDbViewport::cast(each->object) : nullptr;
      if (viewport == nullptr) continue;
      AcDbViewport::Data& data = viewport->dataAsRead();
      data.number = ++number;
      data.active = (data.status & AcDbViewport::kOff) != 0 ? Adesk::Int16(0) : number;
    }
  }
}

bool Reader::readAllExtendedData() {
  for (const ExtendedData& place : extendedData_) {
    if (place.stub->object == nullptr || readExtendedData(place)) continue;
    if (!policy_.goOn("the extended data can't be read whole", place.place / 8, place.stub->handle)) return false;
  }
  return true;
}

bool Reader::readExtendedData(const ExtendedData& place) {
  BitReader bits(file_, place.place, 8 * file_.size());
  resbuf* chain = nullptr;
  resbuf** tail = &chain;
  bool whole = true;
  for (std::size_t size = bits.bs(); size != 0 && !bits.failed(); size = bits.bs()) {
    const std::uint64_t application = absoluteHandle(bits.h(), place.stub->handle);
    const BitReader items(file_, bits.position(), bits.position() + 8 * size);
    bits.skip(8 * size);
    AcDbStub* const stub = context_->resolve(application);
    const auto* const record =
        stub != nullptr && stub->object != nullptr ? AcDbRegAppTableRecord::cast(stub->object) : nullptr;
    whole &= record != nullptr && dwg::readExtendedData(*context_, record->nameText(), items, tail);
  }
  if (chain != nullptr) place.stub->object->setXDataAsRead(chain);
  return whole && !bits.failed();
}

}  // namespace krio::dwg
