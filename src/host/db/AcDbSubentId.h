#pragma once

#include "host/db/AcDbEnums.h"
#include "host/db/AcDbObjectId.h"

class AcRxClass;

/// A part of an entity: its kind and its number within the entity.
class AcDbSubentId {
 public:
  constexpr AcDbSubentId() = default;
  constexpr AcDbSubentId(AcDb::SubentType type, Adesk::GsMarker index) : type_(type), index_(index) {}

  constexpr AcDb::SubentType type() const { return type_; }
  constexpr void setType(AcDb::SubentType type) { type_ = type; }
  constexpr Adesk::GsMarker index() const { return index_; }
  constexpr void setIndex(Adesk::GsMarker index) { index_ = index; }

  constexpr bool operator==(const AcDbSubentId&) const = default;

 private:
  AcDb::SubentType type_ = AcDb::kNullSubentType;
  Adesk::GsMarker index_ = 0;
};

inline constexpr AcDbSubentId kNullSubent{};

/// The way to a part of an entity: the ids from the outermost container to the entity, and the part.
class AcDbFullSubentPath {
 public:
  AcDbFullSubentPath() = default;
  AcDbFullSubentPath(AcDb::SubentType type, Adesk::GsMarker index) : subentId_(type, index) {}
  AcDbFullSubentPath(AcDbObjectId entity, AcDb::SubentType type, Adesk::GsMarker index) : subentId_(type, index) {
    objectIds_.append(entity);
  }
  AcDbFullSubentPath(AcDbObjectId entity, AcDbSubentId subent) : subentId_(subent) { objectIds_.append(entity); }
  AcDbFullSubentPath(const AcDbObjectIdArray& objectIds, AcDbSubentId subent)
      : objectIds_(objectIds), subentId_(subent) {}

  const AcDbObjectIdArray& objectIds() const { return objectIds_; }
  AcDbObjectIdArray& objectIds() { return objectIds_; }
  void objectIds(AcDbObjectIdArray& ids) const { ids = objectIds_; }
  const AcDbSubentId subentId() const { return subentId_; }
  AcDbSubentId& subentId() { return subentId_; }

  bool operator==(const AcDbFullSubentPath& other) const {
    return subentId_ == other.subentId_ && objectIds_ == other.objectIds_;
  }

 private:
  AcDbObjectIdArray objectIds_;
  AcDbSubentId subentId_;
};

using AcDbFullSubentPathArray = AcArray<AcDbFullSubentPath, AcArrayObjectCopyReallocator<AcDbFullSubentPath>>;
