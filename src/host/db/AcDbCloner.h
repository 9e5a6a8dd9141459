#pragma once

#include <vector>

#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbMemoryDwgFiler.h"

/// What copies, deep clones and clones across databases are made of.
class AcDbCloner {
 public:
  /// A new object of the same class with the same fields, outside of any database; null on failure.
  static Acad::ErrorStatus copyFields(const AcDbObject& source, AcDbObject*& copy, AcDbMemoryDwgFiler& record);
  /// The default of subDeepClone and subWblockClone.
  static Acad::ErrorStatus cloneObject(const AcDbObject& source, AcDbObject* owner, AcDbObject*& clone,
                                       AcDbIdMapping& idMap, bool isPrimary, AcDb::FilerType type);
  /// Puts a new object under its owner: into a block, a table, or just the database.
  static Acad::ErrorStatus place(AcDbObject& object, AcDbObject* owner, AcDbDatabase& database,
                                 const AcDbObject& original);

  explicit AcDbCloner(AcDbIdMapping& idMap) : idMap_(idMap) {}
  AcDbCloner(const AcDbCloner&) = delete;
  AcDbCloner& operator=(const AcDbCloner&) = delete;
  /// Closes what the cloner holds open.
  ~AcDbCloner() { closeAll(); }

  /// Clones the objects within their database; null owner: each to its original's.
  Acad::ErrorStatus deepClone(const AcDbObjectIdArray& ids, AcDbObjectId owner);
  /// Clones the objects to the mapping's destination.
  Acad::ErrorStatus wblockClone(const AcDbObjectIdArray& ids, AcDbObjectId owner);
  void translate(AcDb::FilerType type);
  /// Erases the clones made so far.
  void undoClones();

 private:
  Acad::ErrorStatus cloneOne(AcDbObjectId id, AcDbObject* owner, bool across, bool isPrimary);
  Acad::ErrorStatus cloneHardReferences();
  Acad::ErrorStatus bringAlong(AcDbObjectId id);
  bool standsForExisting(const AcDbObject& source, AcDbObject* owner, Acad::ErrorStatus& es);
  /// The object, open for write until the cloner ends (or as its caller has it open); null when it can't be.
  AcDbObject* openOwner(AcDbObjectId id);
  void closeAll();

  AcDbIdMapping& idMap_;
  std::vector<AcDbObject*> held_;
};
