#pragma once

#include <memory>
#include <vector>

#include "host/db/AcDbEntity.h"

/// The entities that belong to another in order: vertices of a polyline, attributes of an insert. While the owner is in
/// no database they are this list's own; with the owner they go into the database, and the end of the sequence too.
class AcDbSubentities {
 public:
  AcDbSubentities() = default;
  AcDbSubentities(const AcDbSubentities&) = delete;
  AcDbSubentities& operator=(const AcDbSubentities&) = delete;
  ~AcDbSubentities();

  /// In a database: the parts in order, erased ones included.
  const std::vector<AcDbStub*>& stubs() const { return stubs_; }
  /// Those that aren't erased.
  AcDbObjectIdArray ids() const;
  /// Outside of any database: the parts in order.
  const std::vector<std::unique_ptr<AcDbEntity>>& pending() const { return pending_; }
  bool isEmpty() const;
  /// The entity that ends the sequence; null when there is none.
  AcDbObjectId sequenceEnd() const { return sequenceEnd_; }

  // For readers of files, which put the parts into the database themselves.
  void reserve(std::size_t count) { stubs_.reserve(count); }
  void listAsRead(AcDbStub* part) { stubs_.push_back(part); }
  void setSequenceEndAsRead(AcDbStub* end) { sequenceEnd_ = end; }

  /// Puts a new part ahead of position `at`, or behind all for -1. It stays open for write when the owner is in a
  /// database; `id` is its id, or null.
  Acad::ErrorStatus insert(AcDbEntity& owner, AcDbEntity* part, AcDbObjectId& id, int at = -1);

  /// As above behind a part, or ahead of all for the null id. eInvalidIndex when that isn't a part.
  Acad::ErrorStatus insertAfter(AcDbEntity& owner, AcDbEntity* part, AcDbObjectId& id, AcDbObjectId after);

  /// Files the parts with their owner: whole where the copy lies in no database, else as owned references.
  Acad::ErrorStatus dwgOut(AcDbDwgFiler* filer) const;
  Acad::ErrorStatus dwgIn(AcDbDwgFiler* filer);

  /// Calls `visit` with each live part, open for read where it is in a database.
  template <class Part, class Visit>
  void forEach(Visit visit) const;
  /// Calls `change` with each live part, open for write where it is in a database; the first status other than eOk ends
  /// it.
  template <class Change>
  Acad::ErrorStatus forEachToWrite(Change change);
  /// Transforms every part.
  Acad::ErrorStatus transformBy(const AcGeMatrix3d& xform);
  /// Erases the parts with their owner, or brings them back.
  Acad::ErrorStatus erase(bool erasing);
  /// Whether a file has to end the sequence: not that of an insert without attributes.
  bool needsEnd(const AcDbEntity& owner) const;
  /// Makes the end of the sequence when the owner is in a database and has none.
  void makeSequenceEnd(AcDbEntity& owner);

 private:
  friend class AcDbDatabase;
  /// The owner has come into a database.
  void ownerAdopted(AcDbEntity& owner);
  /// A part has come into the database under its owner.
  void adopted(AcDbStub* part);

  std::vector<AcDbStub*> stubs_;
  std::vector<std::unique_ptr<AcDbEntity>> pending_;
  AcDbObjectId sequenceEnd_;
  int insertAt_ = -1;
};

#include "host/db/acdbOpen.h"

template <class Part, class Visit>
void AcDbSubentities::forEach(Visit visit) const {
  for (const auto& part : pending_) {
    if (const Part* const each = Part::cast(part.get())) visit(*each);
  }
  for (AcDbStub* const stub : stubs_) {
    if (stub->has(AcDbStub::kErased)) continue;
    const AcDbObjectPointer<Part> part(stub, AcDb::kForRead);
    if (part.openStatus() == Acad::eOk) visit(static_cast<const Part&>(*part));
  }
}

template <class Change>
Acad::ErrorStatus AcDbSubentities::forEachToWrite(Change change) {
  for (const auto& part : pending_) {
    if (const Acad::ErrorStatus es = change(*part); es != Acad::eOk) return es;
  }
  for (AcDbStub* const stub : stubs_) {
    if (stub->has(AcDbStub::kErased)) continue;
    const AcDbObjectPointer<AcDbEntity> part(stub, AcDb::kForWrite);
    if (part.openStatus() != Acad::eOk) return part.openStatus();
    if (const Acad::ErrorStatus es = change(*part); es != Acad::eOk) return es;
  }
  return Acad::eOk;
}
