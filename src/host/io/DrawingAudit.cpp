#include "host/io/DrawingAudit.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <unordered_map>
#include <unordered_set>

#include "host/db/db.h"
#include "host/io/DrawingMend.h"
#include "host/io/HostClasses.h"
#include "host/os/os.h"

namespace krio {

namespace {

// A member's coordinates, or a map's, stay far below: what lies beyond can't be drawn or measured.
constexpr double kFarthest = 1e100;

bool isThere(const AcDbStub* stub) {
  return stub != nullptr && stub->object != nullptr && !stub->has(AcDbStub::kErased);
}

// Every stub of a database. Ids are pointers to stubs that can be written to, its table gives them for reading only.
std::vector<AcDbStub*> stubsOf(const AcDbDatabase& db) {
  std::vector<AcDbStub*> stubs;
  stubs.reserve(db.handleTable().size());
  for (const AcDbStub& stub : db.handleTable().stubs()) stubs.push_back(const_cast<AcDbStub*>(&stub));
  return stubs;
}

std::string classOf(const AcDbObject& object) {
  return os::toUtf8(object.isA()->name());
}

AuditFinding about(const AcDbStub& stub, int number, std::string what, std::string remedy = {}) {
  return {number, stub.handle, classOf(*stub.object), std::move(what), std::move(remedy), false};
}

// Classes that no file names, such as those of tables, name no application: they are the host's.
bool isOfModule(const AcRxClass& own) {
  return own.appName() != nullptr && !isHosts(own);
}

std::string handleOf(const AcDbStub& stub) {
  char text[AcDbHandle::kStrSize];
  AcDbHandle(stub.handle).getIntoAsciiBuffer(text);
  return text;
}

/// Takes down what objects find in themselves, each with whether it was mended.
class OwnAudits final : public AcDbAuditInfo {
 public:
  OwnAudits(bool fix, std::vector<AuditFinding>& found) : AcDbAuditInfo(fix), found_(found) {}

  using AcDbAuditInfo::printError;
  void printError(const AcDbObject* object, const ACHAR* value, const ACHAR* validation,
                  const ACHAR* defaultValue) override {
    settle();
    if (object == nullptr || object->objectId().isNull()) return;
    const std::wstring subject(value != nullptr ? value : L"");
    if (subject == L"owner") return;  // told already
    // That one the host looks at in every entity, a module's too.
    const int number = subject == L"layer" ? kAuditLayer : isOfModule(*object->isA()) ? kAuditCustom : kAuditLinkOther;
    const std::string reason = os::toUtf8(validation != nullptr ? validation : L"");
    found_.push_back(about(*object->objectId().stub(), number, os::toUtf8(subject) + ": " + reason,
                           os::toUtf8(defaultValue != nullptr ? defaultValue : L"")));
    open_ = true;
  }

  // An object reports first and mends then: the mending is known when the next one reports, or at the end.
  void settle() {
    if (open_) found_.back().fixed = numFixes() > fixes_;
    open_ = false;
    fixes_ = numFixes();
  }

 private:
  std::vector<AuditFinding>& found_;
  bool open_ = false;
  int fixes_ = 0;
};

class Auditor {
 public:
  Auditor(AcDbDatabase& db, bool fix) : db_(db), fix_(fix), orphanage_(db) {}

  std::vector<AuditFinding> run();

 private:
  void auditOwners(const AcDbStub& stub);
  void auditOwner(AcDbStub& stub);
  void auditReferences(AcDbStub& stub);
  void auditLayout(AcDbStub& stub);
  void auditReach(AcDbStub& stub);
  void auditListing();
  void auditInserts();
  void askObjects();
  bool insertsItself(AcDbStub* block);

  AcDbDatabase& db_;
  bool fix_;
  Orphanage orphanage_;
  bool layoutsGone_ = false;
  std::vector<AuditFinding> found_;
  enum class Walk : char { kOpen, kClean, kCyclic };
  std::unordered_map<const AcDbStub*, Walk> walked_;
};

void Auditor::auditOwners(const AcDbStub& stub) {
  // The owner's owner and so on: two walkers, of which one goes twice as fast, meet in a ring.
  const AcDbStub* slow = &stub;
  const AcDbStub* fast = &stub;
  while (fast != nullptr && fast->owner != nullptr) {
    slow = slow->owner;
    fast = fast->owner->owner;
    if (slow != fast) continue;
    if (fast != nullptr) found_.push_back(about(stub, kAuditOwnerCycle, "the object is among its own owners"));
    return;
  }
}

void Auditor::auditReferences(AcDbStub& stub) {
  const bool proxy = stub.object->isKindOf(AcDbProxyEntity::desc()) || stub.object->isKindOf(AcDbProxyObject::desc());
  AcDbObject* object = nullptr;
  if (acdbOpenAcDbObject(object, AcDbObjectId(&stub), AcDb::kForRead) != Acad::eOk) return;
  AcDbMemoryDwgFiler filer;
  const Acad::ErrorStatus es = object->dwgOutFields(&filer);
  object->close();
  if (es != Acad::eOk) {
    found_.push_back(about(stub, kAuditReference, "the object can't be filed: " + os::toUtf8(acadErrorStatusText(es))));
    return;
  }
  const auto* const entity = AcDbEntity::cast(stub.object);
  bool layerPassed = false;
  std::unordered_set<const AcDbStub*> told;
  const std::size_t before = found_.size();
  filer.visitReferences([&](AcDbReferenceKind kind, AcDbObjectId& id) {
    const bool hard = kind == AcDbReferenceKind::kHardPointer || kind == AcDbReferenceKind::kHardOwner;
    // What a proxy's data mean nobody knows.
    if (!hard || proxy || id.isNull() || id.isResident()) return;
    // A layer that isn't there is told by the entity itself; its linetype can be the same object.
    if (entity != nullptr && !layerPassed && entity->layerReference() == id) {
      layerPassed = true;
      return;
    }
    if (!told.insert(id.stub()).second) return;
    found_.push_back(about(stub, kAuditReference, "it needs object " + handleOf(*id.stub()) + ", which isn't there"));
  });
  // A copy leaves the entries of a dictionary out.
  if (const auto* const dictionary = AcDbDictionary::cast(stub.object)) {
    for (const auto& [name, id] : dictionary->entries()) {
      if (id.isNull() || id.isResident()) continue;
      found_.push_back(
          about(stub, kAuditReference,
                "its entry \"" + os::toUtf8(name) + "\" is object " + handleOf(*id.stub()) + ", which isn't there"));
    }
  }
  if (found_.size() == before) return;
  const bool fixed = fix_ && mendReferences(db_, stub);
  for (std::size_t i = before; i < found_.size(); ++i) {
    if (fixed || !fix_) found_[i].remedy = "does with another, or without";
    found_[i].fixed = fixed;
  }
}

void Auditor::auditOwner(AcDbStub& stub) {
  if (stub.owner == nullptr || stub.owner->object != nullptr) return;
  found_.push_back(about(stub, kAuditOwner, "owner: no such object", Orphanage::remedyFor(*stub.object)));
  found_.back().fixed = fix_ && orphanage_.take(stub);
}

void Auditor::auditLayout(AcDbStub& stub) {
  auto* const layout = AcDbLayout::cast(stub.object);
  if (layout == nullptr) return;
  const AcDbStub* const block = layout->layoutData().block.stub();
  if (isThere(block) && block->object->isKindOf(AcDbBlockTableRecord::desc())) return;
  found_.push_back(
      about(stub, kAuditReference, "the layout's block isn't there", "shows the block that names it, or goes"));
  found_.back().fixed = fix_ && mendLayout(db_, stub);
  layoutsGone_ = layoutsGone_ || !isThere(&stub);
}

void Auditor::auditReach(AcDbStub& stub) {
  const auto* const entity = AcDbEntity::cast(stub.object);
  if (entity == nullptr) return;
  const AcDbObjectPointer<AcDbEntity> open(AcDbObjectId(&stub), AcDb::kForRead);
  AcDbExtents box;
  if (open.openStatus() != Acad::eOk || open->getGeomExtents(box) != Acad::eOk || box.isEmpty()) return;
  for (const AcGePoint3d& point : {box.minPoint(), box.maxPoint()}) {
    const bool near = std::abs(point.x) < kFarthest && std::abs(point.y) < kFarthest && std::abs(point.z) < kFarthest;
    if (near) continue;
    found_.push_back(about(stub, kAuditNotFinite, "it reaches beyond all numbers that can be drawn"));
    return;
  }
}

// Each block lists its entities, each once, and an entity that names a block as its owner stands in that list.
void Auditor::auditListing() {
  std::unordered_map<const AcDbStub*, std::size_t> listed;
  for (AcDbStub* const holder : stubsOf(db_)) {
    AcDbStub& stub = *holder;
    auto* const block = isThere(&stub) ? AcDbBlockTableRecord::cast(stub.object) : nullptr;
    if (block == nullptr) continue;
    std::vector<AcDbStub*> good;
    std::size_t bad = 0;
    for (AcDbStub* const entity : block->entities()) {
      const bool own = entity->owner == &stub && ++listed[entity] == 1;
      if (own || entity->object == nullptr) {
        good.push_back(entity);
        continue;
      }
      ++bad;
      found_.push_back(about(
          stub, kAuditListing,
          "its list has object " + handleOf(*entity) + (entity->owner == &stub ? " twice" : ", which is another's"),
          "taken off the list"));
      found_.back().fixed = fix_;
    }
    if (fix_ && bad > 0) block->setEntitiesAsRead(std::move(good));
  }
  for (AcDbStub* const member : stubsOf(db_)) {
    AcDbStub& stub = *member;
    if (!isThere(&stub) || !isThere(stub.owner) || listed.count(&stub) != 0) continue;
    auto* const block = AcDbBlockTableRecord::cast(stub.owner->object);
    if (block == nullptr || !stub.object->isKindOf(AcDbEntity::desc())) continue;
    const AcDbObjectId id(&stub);
    if (id == block->blockBeginId() || id == block->blockEndId()) continue;
    found_.push_back(about(stub, kAuditListing, "its block doesn't list it", "put at the end of the list"));
    found_.back().fixed = fix_;
    if (fix_) block->listAsRead(&stub);
  }
}

// Whether a block comes to itself again through the blocks that its inserts name. Each block is walked once.
bool Auditor::insertsItself(AcDbStub* start) {
  struct Step {
    AcDbStub* block;
    std::size_t next = 0;
  };
  if (walked_.count(start) != 0) return walked_[start] == Walk::kCyclic;
  std::vector<Step> path{{start}};
  walked_[start] = Walk::kOpen;
  bool cyclic = false;
  while (!path.empty()) {
    const auto* const block = AcDbBlockTableRecord::cast(path.back().block->object);
    if (block == nullptr || path.back().next >= block->entities().size()) {
      Walk& state = walked_[path.back().block];
      if (state == Walk::kOpen) state = Walk::kClean;
      path.pop_back();
      continue;
    }
    const AcDbStub* const entity = block->entities()[path.back().next++];
    const auto* const insert = isThere(entity) ? AcDbBlockReference::cast(entity->object) : nullptr;
    AcDbStub* const inner = insert != nullptr ? insert->data().block.stub() : nullptr;
    if (!isThere(inner)) continue;
    const auto known = walked_.find(inner);
    if (known == walked_.end()) {
      walked_[inner] = Walk::kOpen;
      path.push_back({inner});
    } else if (known->second == Walk::kOpen) {
      // All of the path from there on goes in a ring.
      for (auto step = path.rbegin(); step != path.rend(); ++step) {
        walked_[step->block] = Walk::kCyclic;
        cyclic = cyclic || step->block == start;
        if (step->block == inner) break;
      }
    }
  }
  return cyclic;
}

void Auditor::auditInserts() {
  for (AcDbStub* const stub : stubsOf(db_)) {
    if (!isThere(stub) || !stub->object->isKindOf(AcDbBlockTableRecord::desc())) continue;
    if (insertsItself(stub)) found_.push_back(about(*stub, kAuditSelfInsert, "the block inserts itself"));
  }
}

void Auditor::askObjects() {
  OwnAudits audits(fix_, found_);
  const Acad::ErrorStatus es = db_.auditAll(audits);
  audits.settle();
  if (es != Acad::eOk) {
    found_.push_back({kAuditLinkOther, 0, {}, "the audit stopped: " + os::toUtf8(acadErrorStatusText(es)), {}, false});
  }
}

std::vector<AuditFinding> Auditor::run() {
  // Listing first: what it mends changes no address, and the objects' own audits come to all of them anyway.
  auditListing();
  for (AcDbStub* const stub : stubsOf(db_)) {
    if (!isThere(stub)) continue;
    auditOwner(*stub);
    auditOwners(*stub);
    auditReferences(*stub);
    auditLayout(*stub);
    if (!isThere(stub)) continue;
    auditReach(*stub);
  }
  if (layoutsGone_) forgetLayouts(db_);
  if (!orphanage_.close()) {
    found_.push_back({kAuditOwner, 0, {}, "there is no dictionary to put objects without an owner into", {}, false});
  }
  auditInserts();
  askObjects();
  std::stable_sort(found_.begin(), found_.end(), [](const AuditFinding& a, const AuditFinding& b) {
    return a.number / 100 != b.number / 100 ? a.number < b.number : a.handle < b.handle;
  });
  return std::move(found_);
}

}  // namespace

std::string_view nameOf(AuditBand band) {
  constexpr std::array<std::string_view, 4> kNames = {"structure", "links", "content", "custom objects"};
  return kNames[std::size_t(band) - 1];
}

std::vector<AuditFinding> auditDrawing(AcDbDatabase& db, bool fix) {
  return Auditor(db, fix).run();
}

std::vector<AuditFinding> auditFindings(const Report& reading) {
  std::vector<AuditFinding> found;
  for (const Finding& finding : reading.findings) {
    if (finding.severity == Severity::Note) continue;
    const std::string place = finding.place >= 0 ? "at " + std::to_string(finding.place) + ": " : std::string();
    found.push_back({finding.fixed ? kAuditMendedInReading : kAuditLost,
                     finding.handle,
                     {},
                     place + finding.what,
                     finding.fixed ? "mended in reading" : "",
                     false});
  }
  return found;
}

}  // namespace krio
