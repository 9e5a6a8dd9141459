#pragma once

#include <string>
#include <utility>
#include <vector>

#include "host/db/AcDbObject.h"

/// Walks the entries of a dictionary by name.
class AcDbDictionaryIterator {
 public:
  const ACHAR* name() const { return entries_[position_].first.c_str(); }
  AcDbObjectId objectId() const { return entries_[position_].second; }
  Acad::ErrorStatus getObject(AcDbObject*& object, AcDb::OpenMode mode = AcDb::kForRead) const;
  bool done() const { return position_ >= entries_.size(); }
  bool next() {
    ++position_;
    return !done();
  }

 private:
  friend class AcDbDictionary;
  std::vector<std::pair<std::wstring, AcDbObjectId>> entries_;
  std::size_t position_ = 0;
};

/// Objects by name, owned by the dictionary. Names compare without regard to case; entries whose object is erased
/// don't show.
class AcDbDictionary : public AcDbObject {
 public:
  ACRX_DECLARE_MEMBERS(AcDbDictionary);
  AcDbDictionary() = default;

  /// eKeyNotFound.
  Acad::ErrorStatus getAt(const ACHAR* name, AcDbObjectId& id) const;
  Acad::ErrorStatus getAt(const ACHAR* name, AcDbObject*& object, AcDb::OpenMode mode) const;
  bool has(const ACHAR* name) const;
  bool has(AcDbObjectId id) const;
  /// A new text that acutDelString frees. eKeyNotFound.
  Acad::ErrorStatus nameAt(AcDbObjectId id, ACHAR*& name) const;
  Adesk::UInt32 numEntries() const;
  /// Puts an object under a name; a new one is taken over into the database and stays open for write. What stood there
  /// before is erased.
  Acad::ErrorStatus setAt(const ACHAR* name, AcDbObject* object, AcDbObjectId& id);
  /// Takes an entry out; its object stays. eKeyNotFound.
  Acad::ErrorStatus remove(const ACHAR* name);
  Acad::ErrorStatus remove(const ACHAR* name, AcDbObjectId& id);
  Acad::ErrorStatus remove(AcDbObjectId id);
  /// False when the old name isn't there or the new one is.
  bool setName(const ACHAR* oldName, const ACHAR* newName);
  /// A new iterator, freed by delete.
  AcDbDictionaryIterator* newIterator() const;

  /// Whether the entries can't be without the dictionary.
  bool isTreatElementsAsHard() const;
  void setTreatElementsAsHard(bool hard);
  AcDb::DuplicateRecordCloning mergeStyle() const;
  void setMergeStyle(AcDb::DuplicateRecordCloning style);

  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

  // For readers and writers of files, whatever the open state: entries in the order of the file, ids that may still be
  // without object, and erased ones.
  using Entry = std::pair<std::wstring, AcDbObjectId>;
  const std::vector<Entry>& entries() const { return entries_; }
  void reserve(std::size_t count) { entries_.reserve(count); }
  void appendAsRead(std::wstring name, AcDbObjectId id) { entries_.emplace_back(std::move(name), id); }
  void setFlagsAsRead(bool hard, AcDb::DuplicateRecordCloning style) {
    hard_ = hard;
    mergeStyle_ = style;
  }
  bool hardAsRead() const { return hard_; }
  AcDb::DuplicateRecordCloning mergeStyleAsRead() const { return mergeStyle_; }

 private:
  std::vector<Entry>::const_iterator find(const ACHAR* name) const;
  std::vector<Entry> entries_;  // in the order of the file; new ones go ahead of the first greater by folded name
  bool hard_ = false;
  AcDb::DuplicateRecordCloning mergeStyle_ = AcDb::kDrcIgnore;
};
