#pragma once

#include <memory>
#include <unordered_map>
#include <vector>

#include "host/db/AcDbEnums.h"
#include "host/db/AcDbObjectId.h"
#include "host/rx/rx.h"

class AcDbDatabase;

/// One object of a cloning and what became of it.
class AcDbIdPair {
 public:
  AcDbIdPair() = default;
  AcDbIdPair(AcDbObjectId key, AcDbObjectId value, bool isCloned, bool isPrimary = true, bool isOwnerXlated = true)
      : key_(key), value_(value), cloned_(isCloned), primary_(isPrimary), ownerXlated_(isOwnerXlated) {}

  AcDbObjectId key() const { return key_; }
  AcDbObjectId value() const { return value_; }
  /// Whether value() is a new object, made from key(); otherwise it only stands for it.
  bool isCloned() const { return cloned_; }
  /// Whether the object was asked for by name, and not brought along by its owner or by reference.
  bool isPrimary() const { return primary_; }
  /// Whether the clone's owner is in its final place.
  bool isOwnerXlated() const { return ownerXlated_; }

  void setKey(AcDbObjectId key) { key_ = key; }
  void setValue(AcDbObjectId value) { value_ = value; }
  void setCloned(bool cloned) { cloned_ = cloned; }
  void setPrimary(bool primary) { primary_ = primary; }
  void setOwnerXlated(bool xlated) { ownerXlated_ = xlated; }

 private:
  AcDbObjectId key_;
  AcDbObjectId value_;
  bool cloned_ = false;
  bool primary_ = true;
  bool ownerXlated_ = true;
};

/// What each object became in a cloning.
class AcDbIdMapping {
 public:
  AcDbIdMapping() = default;
  AcDbIdMapping(const AcDbIdMapping&) = delete;
  AcDbIdMapping& operator=(const AcDbIdMapping&) = delete;

  /// Adds a pair; false when its key is there already, and nothing changes then.
  bool assign(const AcDbIdPair& pair);
  /// Fills the pair from the one of the same key; false when there is none.
  bool compute(AcDbIdPair& pair) const;
  /// Replaces the pair of the same key; false when there is none.
  bool change(const AcDbIdPair& pair);
  /// Removes the pair of the key; false when there is none.
  bool del(AcDbObjectId key);

  AcDbDatabase* destDb() const { return destDb_; }
  Acad::ErrorStatus destDb(AcDbDatabase*& database) const {
    database = destDb_;
    return Acad::eOk;
  }
  void setDestDb(AcDbDatabase* database) { destDb_ = database; }
  Acad::ErrorStatus origDb(AcDbDatabase*& database) const {
    database = origDb_;
    return Acad::eOk;
  }
  void setOrigDb(AcDbDatabase* database) { origDb_ = database; }
  AcDb::DeepCloneType deepCloneContext() const { return context_; }
  void setDeepCloneContext(AcDb::DeepCloneType context) { context_ = context; }
  AcDb::DuplicateRecordCloning duplicateRecordCloning() const { return duplicates_; }
  void setDuplicateRecordCloning(AcDb::DuplicateRecordCloning drc) { duplicates_ = drc; }

  int numPairs() const { return int(index_.size()); }

 private:
  friend class AcDbIdMappingIter;
  std::vector<AcDbIdPair> pairs_;  // in the order of cloning; a removed one has a null key
  std::unordered_map<AcDbObjectId, std::size_t> index_;
  AcDbDatabase* destDb_ = nullptr;
  AcDbDatabase* origDb_ = nullptr;
  AcDb::DeepCloneType context_ = AcDb::kDcCopy;
  AcDb::DuplicateRecordCloning duplicates_ = AcDb::kDrcNotApplicable;
};

/// Walks the pairs of a mapping in the order in which they were assigned.
class AcDbIdMappingIter {
 public:
  explicit AcDbIdMappingIter(const AcDbIdMapping& mapping) : mapping_(mapping) { skip(); }
  void start() {
    position_ = 0;
    skip();
  }
  bool done() const { return position_ >= mapping_.pairs_.size(); }
  Acad::ErrorStatus next() {
    if (done()) return Acad::eIteratorDone;
    ++position_;
    skip();
    return Acad::eOk;
  }
  bool getMap(AcDbIdPair& pair) const {
    if (done()) return false;
    pair = mapping_.pairs_[position_];
    return true;
  }

 private:
  void skip() {
    while (!done() && mapping_.pairs_[position_].key().isNull()) ++position_;
  }
  const AcDbIdMapping& mapping_;
  std::size_t position_ = 0;
};
