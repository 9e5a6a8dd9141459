#pragma once

#include <functional>

#include "host/db/AcDbHandle.h"
#include "host/db/AcDbStub.h"
#include "host/rx/AcArray.h"
#include "host/rx/AdeskTypes.h"

class AcRxClass;

/// Names one object of one database for the life of that database. The null id names none.
class AcDbObjectId {
 public:
  static const AcDbObjectId kNull;

  constexpr AcDbObjectId() = default;
  constexpr AcDbObjectId(AcDbStub* stub) : stub_(stub) {}

  constexpr bool isNull() const { return stub_ == nullptr; }
  constexpr void setNull() { stub_ = nullptr; }
  /// Whether the id names something that was once put into a database.
  bool isValid() const { return stub_ != nullptr && (stub_->object != nullptr || stub_->handle != 0); }
  bool isResident() const { return stub_ != nullptr && stub_->object != nullptr; }
  bool isErased() const { return stub_ != nullptr && stub_->has(AcDbStub::kErased); }
  /// Whether the object or one of its owners is erased.
  bool isEffectivelyErased() const;
  bool objectLeftOnDisk() const { return false; }

  /// The id as a number, as it travels through older interfaces.
  Adesk::IntPtr asOldId() const { return reinterpret_cast<Adesk::IntPtr>(stub_); }
  AcDbObjectId& setFromOldId(Adesk::IntPtr id) {
    stub_ = reinterpret_cast<AcDbStub*>(id);
    return *this;
  }

  /// The handle; 0 for the null id.
  AcDbHandle handle() const { return stub_ != nullptr ? AcDbHandle(stub_->handle) : AcDbHandle(); }
  AcDbHandle nonForwardedHandle() const { return handle(); }
  AcDbDatabase* database() const { return stub_ != nullptr ? stub_->database : nullptr; }
  AcDbDatabase* originalDatabase() const { return database(); }
  /// The class of the object named; null when there is no object.
  const AcRxClass* objectClass() const;

  /// The stub behind the id, for the host itself.
  constexpr AcDbStub* stub() const { return stub_; }
  constexpr explicit operator bool() const { return stub_ != nullptr; }

  friend constexpr bool operator==(AcDbObjectId a, AcDbObjectId b) { return a.stub_ == b.stub_; }
  friend bool operator<(AcDbObjectId a, AcDbObjectId b) { return std::less<>()(a.stub_, b.stub_); }
  friend bool operator>(AcDbObjectId a, AcDbObjectId b) { return b < a; }
  friend bool operator<=(AcDbObjectId a, AcDbObjectId b) { return !(b < a); }
  friend bool operator>=(AcDbObjectId a, AcDbObjectId b) { return !(a < b); }

 protected:
  AcDbStub* stub_ = nullptr;
};

inline constexpr AcDbObjectId AcDbObjectId::kNull{};

template <>
struct std::hash<AcDbObjectId> {
  std::size_t operator()(AcDbObjectId id) const { return std::hash<AcDbStub*>()(id.stub()); }
};

/// An id that is filed as a hard pointer: the object named can't be purged and goes along when cloned to another
/// database.
class AcDbHardPointerId : public AcDbObjectId {
 public:
  constexpr AcDbHardPointerId() = default;
  constexpr AcDbHardPointerId(AcDbObjectId id) : AcDbObjectId(id) {}
};

/// An id that is filed as a soft pointer: a mere mention.
class AcDbSoftPointerId : public AcDbObjectId {
 public:
  constexpr AcDbSoftPointerId() = default;
  constexpr AcDbSoftPointerId(AcDbObjectId id) : AcDbObjectId(id) {}
};

/// An id that is filed as a hard owner's: the object named belongs to the filing one, which can't be without it.
class AcDbHardOwnershipId : public AcDbObjectId {
 public:
  constexpr AcDbHardOwnershipId() = default;
  constexpr AcDbHardOwnershipId(AcDbObjectId id) : AcDbObjectId(id) {}
};

/// An id that is filed as a soft owner's: the object named belongs to the filing one.
class AcDbSoftOwnershipId : public AcDbObjectId {
 public:
  constexpr AcDbSoftOwnershipId() = default;
  constexpr AcDbSoftOwnershipId(AcDbObjectId id) : AcDbObjectId(id) {}
};

using AcDbObjectIdArray = AcArray<AcDbObjectId>;
using AcDbVoidPtrArray = AcArray<void*>;
using AcDbIntArray = AcArray<int>;
