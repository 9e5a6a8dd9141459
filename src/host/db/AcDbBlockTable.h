#pragma once

#include "host/db/AcDbEntity.h"
#include "host/db/AcDbField.h"
#include "host/db/AcDbSymbolTable.h"

/// Names of the two blocks that every drawing has.
inline constexpr const ACHAR* ACDB_MODEL_SPACE = L"*Model_Space";
inline constexpr const ACHAR* ACDB_PAPER_SPACE = L"*Paper_Space";

class AcDbBlockBegin;
class AcDbBlockEnd;
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
  /// What a DWG file tells of a block besides its name, base point, description and entities.
  struct Data {
    bool anonymous = false;
    bool hasAttributeDefinitions = false;
    bool external = false;
    bool overlaid = false;
    bool loaded = false;
    std::wstring xrefPath;
    std::vector<std::byte> preview;
    AcDbHardPointerId layout;
    /// The name as the record has it, where that is another than the block's (*D for *D3); empty when it follows the
    /// rule.
    std::wstring recordName;
    /// Group 70 of the BLOCK as read.
    Adesk::Int16 dxfFlags = 0;
    KR_DB_TIE(anonymous, hasAttributeDefinitions, external, overlaid, loaded, xrefPath, preview, layout, recordName,
              dxfFlags)
  };
  const Data& data() const { return data_; }
  Data& dataAsRead() { return data_; }
  AcDbObjectId getLayoutId() const;
  Acad::ErrorStatus setLayoutId(AcDbObjectId id);
  bool hasAttributeDefinitions() const;
  bool isFromExternalReference() const { return data_.external; }
  bool isFromOverlayReference() const { return data_.overlaid; }
  /// The entities BLOCK and ENDBLK; null in a block that isn't in a table yet.
  AcDbObjectId blockBeginId() const { return begin_; }
  AcDbObjectId blockEndId() const { return end_; }
  Acad::ErrorStatus openBlockBegin(AcDbBlockBegin*& begin, AcDb::OpenMode mode = AcDb::kForRead);
  Acad::ErrorStatus openBlockEnd(AcDbBlockEnd*& end, AcDb::OpenMode mode = AcDb::kForRead);
  /// The inserts of the block that aren't erased.
  Acad::ErrorStatus getBlockReferenceIds(AcDbObjectIdArray& ids) const;
  /// The inserts of the block, erased ones included.
  const std::vector<AcDbStub*>& blockReferences() const { return references_; }

  // For readers of files, which put the entities into the database themselves.
  void reserve(std::size_t entities) { entities_.reserve(entities); }
  void listAsRead(AcDbStub* entity) { entities_.push_back(entity); }
  void setEntitiesAsRead(std::vector<AcDbStub*> entities) { entities_ = std::move(entities); }
  void setEndsAsRead(AcDbStub* begin, AcDbStub* end) {
    begin_ = AcDbObjectId(begin);
    end_ = AcDbObjectId(end);
  }
  void listReference(AcDbStub* insert) { references_.push_back(insert); }
  void setBlockReferencesAsRead(std::vector<AcDbStub*> inserts) { references_ = std::move(inserts); }
  void setOriginAsRead(const AcGePoint3d& origin) { origin_ = origin; }
  void setCommentsAsRead(std::wstring comments) { comments_ = std::move(comments); }
  const AcGePoint3d& originAsRead() const { return origin_; }
  const std::wstring& commentsText() const { return comments_; }
  /// The name that a DWG's block record has: without the number of an anonymous block or a further paper space.
  std::wstring recordName() const;
  /// Makes BLOCK and ENDBLK, under the handles given or new ones, when there are none.
  void makeEnds(AcDbHandle begin = AcDbHandle(), AcDbHandle end = AcDbHandle());

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
  void added() override { makeEnds(); }

 private:
  friend class AcDbBlockTableRecordIterator;
  friend class AcDbDatabase;
  friend class AcDbBlockReference;
  std::vector<AcDbStub*> entities_;
  std::vector<AcDbStub*> references_;
  AcDbObjectId begin_;
  AcDbObjectId end_;
  Data data_;
  AcGePoint3d origin_{0, 0, 0};
  std::wstring comments_;
};

class AcDbBlockTable : public AcDbSymbolTableOf<AcDbBlockTableRecord> {
 public:
  ACRX_DECLARE_MEMBERS(AcDbBlockTable);
};
using AcDbBlockTableIterator = AcDbBlockTable::Iterator;
