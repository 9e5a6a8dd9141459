#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "host/db/AcDbObject.h"

class AcDbSymbolTable;
class AcDbSymbolTableRecord;

/// Text as names compare: without regard to case.
std::wstring acdbFoldedName(const ACHAR* name);
/// How often a record of any table has come or been renamed. While it stays, an id found by name is still the one of
/// that name, as long as it isn't erased.
Adesk::UInt64 acdbSymbolNameChanges();
/// Whether `name` may name a record: not empty, at most 255 characters, none of < > / \ " : ; ? * | , = `
Acad::ErrorStatus acdbValidateName(const ACHAR* name);

/// One entry of a symbol table.
class AcDbSymbolTableRecord : public AcDbObject {
 public:
  ACRX_DECLARE_MEMBERS(AcDbSymbolTableRecord);

  /// A new text that acutDelString frees.
  Acad::ErrorStatus getName(ACHAR*& name) const;
  /// The record's own text: it lasts while the record keeps its name.
  Acad::ErrorStatus getName(const ACHAR*& name) const;
  /// eInvalidInput for a name that names can't be; eDuplicateRecordName when the table holds it already.
  Acad::ErrorStatus setName(const ACHAR* name);
  bool isDependent() const { return file_.dependent; }
  bool isResolved() const { return true; }

  /// What a DWG file tells of every record besides its name.
  struct FilePart {
    bool referenced = true;
    Adesk::Int16 xrefIndex = 0;
    bool dependent = false;
    AcDbHardPointerId xrefBlock;
  };
  const FilePart& filePart() const { return file_; }
  FilePart& filePartAsRead() { return file_; }
  /// Any name, for readers of files, before the record is listed in its table.
  void setNameAsRead(std::wstring name) { name_ = std::move(name); }
  const std::wstring& nameText() const { return name_; }

  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;
  Acad::ErrorStatus subErase(Adesk::Boolean erasing) override;
  Acad::ErrorStatus subDeepClone(AcDbObject* owner, AcDbObject*& clone, AcDbIdMapping& idMap,
                                 bool isPrimary) const override;

 protected:
  AcDbSymbolTableRecord() = default;
  /// Flags of group 70 that the record's class adds, and takes back.
  virtual Adesk::Int16 dxfFlags() const { return 0; }
  virtual void setDxfFlags(Adesk::Int16) {}
  /// Called when the record has been added to its table by add().
  virtual void added() {}

 private:
  friend class AcDbSymbolTable;
  std::wstring name_;
  FilePart file_;
};

/// Walks the records of a symbol table in the order in which they were added.
class AcDbSymbolTableIterator {
 public:
  explicit AcDbSymbolTableIterator(std::vector<AcDbObjectId> ids) : ids_(std::move(ids)) {}
  virtual ~AcDbSymbolTableIterator() = default;
  /// To the first record, or the last; past erased ones unless `skipDeleted` is false.
  void start(bool atBeginning = true, bool skipDeleted = true);
  bool done() const { return position_ < 0 || position_ >= int(ids_.size()); }
  void step(bool forward = true, bool skipDeleted = true);
  Acad::ErrorStatus getRecordId(AcDbObjectId& id) const;
  /// Opens the record. eIteratorDone, or as acdbOpenObject.
  Acad::ErrorStatus getRecord(AcDbSymbolTableRecord*& record, AcDb::OpenMode mode = AcDb::kForRead,
                              bool openErased = false) const;
  Acad::ErrorStatus seek(AcDbObjectId id);

 private:
  std::vector<AcDbObjectId> ids_;
  int position_ = 0;
};

/// Named records of one kind. Names compare without regard to case; an erased record gives its name free and can still
/// be found when asked for.
class AcDbSymbolTable : public AcDbObject {
 public:
  ACRX_DECLARE_MEMBERS(AcDbSymbolTable);

  bool has(const ACHAR* name) const;
  bool has(AcDbObjectId id) const;
  /// The record of that name. With `getErased` an erased one too, when there is no other; the one erased last.
  /// eKeyNotFound otherwise.
  Acad::ErrorStatus getAt(const ACHAR* name, AcDbObjectId& id, bool getErased = false) const;
  /// As above, and opens it. The status of opening.
  Acad::ErrorStatus getAt(const ACHAR* name, AcDbSymbolTableRecord*& record, AcDb::OpenMode mode,
                          bool openErased = false) const;
  /// Takes a new record over; it stays open for write. eDuplicateRecordName, eInvalidInput (name), eWrongObjectType.
  Acad::ErrorStatus add(AcDbSymbolTableRecord* record);
  Acad::ErrorStatus add(AcDbObjectId& id, AcDbSymbolTableRecord* record);
  /// A new iterator, freed by delete.
  Acad::ErrorStatus newIterator(AcDbSymbolTableIterator*& iterator, bool atBeginning = true,
                                bool skipDeleted = true) const;

  /// Lists a record that has been put into the database under this table, for readers of files: the name needn't be a
  /// valid or a new one.
  void listAsRead(AcDbSymbolTableRecord& record) { adopted(record); }
  /// All records in order, erased ones included.
  const std::vector<AcDbObjectId>& recordIds() const { return records_; }
  /// The class of the records.
  virtual AcRxClass* recordClass() const = 0;

  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;
  Acad::ErrorStatus subErase(Adesk::Boolean erasing) override;  ///< eCannotBeErasedByCaller

 protected:
  AcDbSymbolTable() = default;
  /// The record of a folded name; with `erased` an erased one when there is no other.
  AcDbObjectId find(std::wstring_view folded, bool erased) const;

 private:
  friend class AcDbSymbolTableRecord;
  void renamed(AcDbObjectId id, const std::wstring& oldName, const std::wstring& newName);
  friend class AcDbDatabase;
  /// Lists a record that has come into the database under this table.
  void adopted(AcDbSymbolTableRecord& record);

  std::vector<AcDbObjectId> records_;
  struct NameHash {
    using is_transparent = void;
    std::size_t operator()(std::wstring_view name) const { return std::hash<std::wstring_view>()(name); }
  };
  // By folded name, erased ones included; looked up by a text that needn't be a string of its own.
  std::unordered_multimap<std::wstring, AcDbObjectId, NameHash, std::equal_to<>> index_;
};

/// The iterator of a table of records of class R.
template <class R>
class AcDbSymbolTableIteratorOf : public AcDbSymbolTableIterator {
 public:
  using AcDbSymbolTableIterator::AcDbSymbolTableIterator;
  using AcDbSymbolTableIterator::getRecord;
  Acad::ErrorStatus getRecord(R*& record, AcDb::OpenMode mode = AcDb::kForRead, bool openErased = false) const {
    AcDbSymbolTableRecord* opened = nullptr;
    const Acad::ErrorStatus es = AcDbSymbolTableIterator::getRecord(opened, mode, openErased);
    record = static_cast<R*>(opened);
    return es;
  }
};

/// A symbol table of records of class R.
template <class R>
class AcDbSymbolTableOf : public AcDbSymbolTable {
 public:
  using Iterator = AcDbSymbolTableIteratorOf<R>;
  AcRxClass* recordClass() const override { return R::desc(); }
  using AcDbSymbolTable::getAt;
  using AcDbSymbolTable::newIterator;
  Acad::ErrorStatus getAt(const ACHAR* name, R*& record, AcDb::OpenMode mode, bool openErased = false) const {
    AcDbSymbolTableRecord* opened = nullptr;
    const Acad::ErrorStatus es = AcDbSymbolTable::getAt(name, opened, mode, openErased);
    record = static_cast<R*>(opened);
    return es;
  }
  Acad::ErrorStatus newIterator(Iterator*& iterator, bool atBeginning = true, bool skipDeleted = true) const {
    assertReadEnabled();
    iterator = new Iterator(recordIds());
    iterator->start(atBeginning, skipDeleted);
    return Acad::eOk;
  }

 protected:
  AcDbSymbolTableOf() = default;
};
