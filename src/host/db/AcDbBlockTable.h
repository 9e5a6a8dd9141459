#pragma once

#include "host/db/AcDbEntity.h"
#include "host/db/AcDbSymbolTable.h"

/// Names of the two blocks that every drawing has.
inline constexpr const ACHAR* ACDB_MODEL_SPACE = L"*Model_Space";
inline constexpr const ACHAR* ACDB_PAPER_SPACE = L"*Paper_Space";

class AcDbBlockTableRecord;

/// Walks the entities of a block in the order in which they were appended.
class AcDbBlockTableRecordIterator {
 public:
  /// To the first entity, or the last; past erased ones unless `skipDeleted` is false.
  void start(bool atBeginning = true, bool skipDeleted = true);
  bool done() const { return position_ < 0 || position_ >= count(); }
  void step(bool forward = true, bool skipDeleted = true);
  Acad::ErrorStatus seek(AcDbObjectId id);
  Acad::ErrorStatus seek(const AcDbEntity* entity) { return seek(entity->objectId()); }
  Acad::ErrorStatus getEntityId(AcDbObjectId& id) const;
  /// Opens the entity. eIteratorDone, or as acdbOpenObject.
  Acad::ErrorStatus getEntity(AcDbEntity*& entity, AcDb::OpenMode mode = AcDb::kForRead, bool openErased = false) const;

 private:
  friend class AcDbBlockTableRecord;
  explicit AcDbBlockTableRecordIterator(const AcDbBlockTableRecord* block);
  int count() const;
  void skip(int direction, bool skipDeleted);

  AcDbObjectId block_;
  const std::vector<AcDbStub*>* entities_;
  int position_ = 0;
};

/// A block: entities under one name. Model space and paper space are blocks too.
class AcDbBlockTableRecord : public AcDbSymbolTableRecord {
 public:
  ACRX_DECLARE_MEMBERS(AcDbBlockTableRecord);
  AcDbBlockTableRecord() = default;

  /// Takes a new entity over into the block's database; it stays open for write. eAlreadyInDb, eNullEntityPointer,
  /// eNoDatabase when the block is in none.
  Acad::ErrorStatus appendAcDbEntity(AcDbEntity* entity);
  Acad::ErrorStatus appendAcDbEntity(AcDbObjectId& id, AcDbEntity* entity);
  /// A new iterator, freed by delete. It mustn't outlive the database.
  Acad::ErrorStatus newIterator(AcDbBlockTableRecordIterator*& iterator, bool atBeginning = true,
                                bool skipDeleted = true) const;

  AcGePoint3d origin() const;
  Acad::ErrorStatus setOrigin(const AcGePoint3d& origin);
  bool isLayout() const;
  bool isModelSpace() const;
  bool isPaperSpace() const;
  bool isAnonymous() const;
  bool isEmpty() const;
  /// A new text that acutDelString frees.
  Acad::ErrorStatus comments(ACHAR*& text) const;
  Acad::ErrorStatus setComments(const ACHAR* text);
  /// The entities of the block, erased ones included, in order.
  const std::vector<AcDbStub*>& entities() const { return entities_; }

  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;
  /// The spaces can't be erased: eCannotBeErasedByCaller.
  Acad::ErrorStatus subErase(Adesk::Boolean erasing) override;

 protected:
  Adesk::Int16 dxfFlags() const override;

 private:
  friend class AcDbBlockTableRecordIterator;
  friend class AcDbDatabase;
  std::vector<AcDbStub*> entities_;
  AcGePoint3d origin_{0, 0, 0};
  std::wstring comments_;
};

class AcDbBlockTable : public AcDbSymbolTableOf<AcDbBlockTableRecord> {
 public:
  ACRX_DECLARE_MEMBERS(AcDbBlockTable);
};
using AcDbBlockTableIterator = AcDbBlockTable::Iterator;
