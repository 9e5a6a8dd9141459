#pragma once

#include "host/db/AcDbEnums.h"
#include "host/db/AcDbObjectId.h"
#include "host/db/resbuf.h"
#include "host/ge/ge.h"
#include "host/rx/rx.h"

/// Writes and reads the fields of objects in the order given, each by its type. What is read must be what was written,
/// in the same order and of the same types. After a failure the filer's status tells of it, reads give zero values and
/// further calls do nothing.
class AcDbDwgFiler : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcDbDwgFiler);
  AcDbDwgFiler() = default;
  AcDbDwgFiler(const AcDbDwgFiler&) = delete;
  AcDbDwgFiler& operator=(const AcDbDwgFiler&) = delete;

  virtual Acad::ErrorStatus filerStatus() const = 0;
  virtual void setFilerStatus(Acad::ErrorStatus status) = 0;
  virtual void resetFilerStatus() { setFilerStatus(Acad::eOk); }
  virtual AcDb::FilerType filerType() const = 0;
  virtual Acad::ErrorStatus dwgVersion(AcDb::AcDbDwgVersion& version, AcDb::MaintenanceReleaseVersion& maint) const;
  /// Whether the ids filed are looked at by the filer's user (translated, followed).
  virtual bool usesReferences() const { return false; }

  /// Whether the filer's user files what AcDbObject and AcDbEntity have (owner, reactors, extended data, layer, ...) in
  /// a frame of its own: those classes write and read nothing then.
  virtual bool framesObjects() const { return false; }

  /// Moves to a position that tell gave; `method` 0 from the start, 1 from here, 2 from the end.
  virtual Acad::ErrorStatus seek(Adesk::Int64 offset, int method = 0) = 0;
  virtual Adesk::Int64 tell() const = 0;

  virtual Acad::ErrorStatus writeHardOwnershipId(const AcDbHardOwnershipId& id) = 0;
  virtual Acad::ErrorStatus writeHardPointerId(const AcDbHardPointerId& id) = 0;
  virtual Acad::ErrorStatus writeSoftOwnershipId(const AcDbSoftOwnershipId& id) = 0;
  virtual Acad::ErrorStatus writeSoftPointerId(const AcDbSoftPointerId& id) = 0;
  virtual Acad::ErrorStatus writeInt8(Adesk::Int8 value) = 0;
  /// Null text is written as the empty text.
  virtual Acad::ErrorStatus writeString(const ACHAR* text) = 0;
  virtual Acad::ErrorStatus writeBChunk(const ads_binary& chunk) = 0;
  virtual Acad::ErrorStatus writeAcDbHandle(const AcDbHandle& handle) = 0;
  virtual Acad::ErrorStatus writeInt64(Adesk::Int64 value) = 0;
  virtual Acad::ErrorStatus writeInt32(Adesk::Int32 value) = 0;
  virtual Acad::ErrorStatus writeInt16(Adesk::Int16 value) = 0;
  virtual Acad::ErrorStatus writeUInt8(Adesk::UInt8 value) = 0;
  virtual Acad::ErrorStatus writeUInt16(Adesk::UInt16 value) = 0;
  virtual Acad::ErrorStatus writeUInt32(Adesk::UInt32 value) = 0;
  virtual Acad::ErrorStatus writeUInt64(Adesk::UInt64 value) = 0;
  /// What writeBoolean writes readBool reads, and the other way round.
  virtual Acad::ErrorStatus writeBoolean(Adesk::Boolean value) = 0;
  virtual Acad::ErrorStatus writeBool(bool value) = 0;
  virtual Acad::ErrorStatus writeDouble(double value) = 0;
  virtual Acad::ErrorStatus writePoint2d(const AcGePoint2d& value) = 0;
  virtual Acad::ErrorStatus writePoint3d(const AcGePoint3d& value) = 0;
  virtual Acad::ErrorStatus writeVector2d(const AcGeVector2d& value) = 0;
  virtual Acad::ErrorStatus writeVector3d(const AcGeVector3d& value) = 0;
  virtual Acad::ErrorStatus writeAddress(const void* value) = 0;
  /// A run of bytes; read back with the same length.
  virtual Acad::ErrorStatus writeBytes(const void* bytes, Adesk::UIntPtr length) = 0;

  virtual Acad::ErrorStatus readHardOwnershipId(AcDbHardOwnershipId* id) = 0;
  virtual Acad::ErrorStatus readHardPointerId(AcDbHardPointerId* id) = 0;
  virtual Acad::ErrorStatus readSoftOwnershipId(AcDbSoftOwnershipId* id) = 0;
  virtual Acad::ErrorStatus readSoftPointerId(AcDbSoftPointerId* id) = 0;
  virtual Acad::ErrorStatus readInt8(Adesk::Int8* value) = 0;
  /// Gives a new text that acutDelString frees; null on failure.
  virtual Acad::ErrorStatus readString(ACHAR** text) = 0;
  /// Gives a chunk whose `buf` odrxFree frees; null on failure.
  virtual Acad::ErrorStatus readBChunk(ads_binary* chunk) = 0;
  virtual Acad::ErrorStatus readAcDbHandle(AcDbHandle* handle) = 0;
  virtual Acad::ErrorStatus readInt64(Adesk::Int64* value) = 0;
  virtual Acad::ErrorStatus readInt32(Adesk::Int32* value) = 0;
  virtual Acad::ErrorStatus readInt16(Adesk::Int16* value) = 0;
  virtual Acad::ErrorStatus readUInt8(Adesk::UInt8* value) = 0;
  virtual Acad::ErrorStatus readUInt16(Adesk::UInt16* value) = 0;
  virtual Acad::ErrorStatus readUInt32(Adesk::UInt32* value) = 0;
  virtual Acad::ErrorStatus readUInt64(Adesk::UInt64* value) = 0;
  virtual Acad::ErrorStatus readBoolean(Adesk::Boolean* value) = 0;
  virtual Acad::ErrorStatus readBool(bool* value) = 0;
  virtual Acad::ErrorStatus readDouble(double* value) = 0;
  virtual Acad::ErrorStatus readPoint2d(AcGePoint2d* value) = 0;
  virtual Acad::ErrorStatus readPoint3d(AcGePoint3d* value) = 0;
  virtual Acad::ErrorStatus readVector2d(AcGeVector2d* value) = 0;
  virtual Acad::ErrorStatus readVector3d(AcGeVector3d* value) = 0;
  virtual Acad::ErrorStatus readAddress(void** value) = 0;
  virtual Acad::ErrorStatus readBytes(void* bytes, Adesk::UIntPtr length) = 0;

  // The same by the type of the argument.
  Acad::ErrorStatus writeItem(const AcDbHardOwnershipId& id) { return writeHardOwnershipId(id); }
  Acad::ErrorStatus writeItem(const AcDbHardPointerId& id) { return writeHardPointerId(id); }
  Acad::ErrorStatus writeItem(const AcDbSoftOwnershipId& id) { return writeSoftOwnershipId(id); }
  Acad::ErrorStatus writeItem(const AcDbSoftPointerId& id) { return writeSoftPointerId(id); }
  Acad::ErrorStatus writeItem(const ACHAR* text) { return writeString(text); }
  Acad::ErrorStatus writeItem(const ads_binary& chunk) { return writeBChunk(chunk); }
  Acad::ErrorStatus writeItem(const AcDbHandle& handle) { return writeAcDbHandle(handle); }
  Acad::ErrorStatus writeItem(Adesk::Int8 value) { return writeInt8(value); }
  Acad::ErrorStatus writeItem(Adesk::Int16 value) { return writeInt16(value); }
  Acad::ErrorStatus writeItem(Adesk::Int32 value) { return writeInt32(value); }
  Acad::ErrorStatus writeItem(Adesk::Int64 value) { return writeInt64(value); }
  Acad::ErrorStatus writeItem(Adesk::UInt8 value) { return writeUInt8(value); }
  Acad::ErrorStatus writeItem(Adesk::UInt16 value) { return writeUInt16(value); }
  Acad::ErrorStatus writeItem(Adesk::UInt32 value) { return writeUInt32(value); }
  Acad::ErrorStatus writeItem(Adesk::UInt64 value) { return writeUInt64(value); }
  Acad::ErrorStatus writeItem(bool value) { return writeBool(value); }
  Acad::ErrorStatus writeItem(double value) { return writeDouble(value); }
  Acad::ErrorStatus writeItem(const AcGePoint2d& value) { return writePoint2d(value); }
  Acad::ErrorStatus writeItem(const AcGePoint3d& value) { return writePoint3d(value); }
  Acad::ErrorStatus writeItem(const AcGeVector2d& value) { return writeVector2d(value); }
  Acad::ErrorStatus writeItem(const AcGeVector3d& value) { return writeVector3d(value); }
  Acad::ErrorStatus writeItem(const void* value) { return writeAddress(value); }
  Acad::ErrorStatus writeItem(const void* bytes, Adesk::UIntPtr length) { return writeBytes(bytes, length); }

  Acad::ErrorStatus readItem(AcDbHardOwnershipId* id) { return readHardOwnershipId(id); }
  Acad::ErrorStatus readItem(AcDbHardPointerId* id) { return readHardPointerId(id); }
  Acad::ErrorStatus readItem(AcDbSoftOwnershipId* id) { return readSoftOwnershipId(id); }
  Acad::ErrorStatus readItem(AcDbSoftPointerId* id) { return readSoftPointerId(id); }
  Acad::ErrorStatus readItem(ACHAR** text) { return readString(text); }
  Acad::ErrorStatus readItem(ads_binary* chunk) { return readBChunk(chunk); }
  Acad::ErrorStatus readItem(AcDbHandle* handle) { return readAcDbHandle(handle); }
  Acad::ErrorStatus readItem(Adesk::Int8* value) { return readInt8(value); }
  Acad::ErrorStatus readItem(Adesk::Int16* value) { return readInt16(value); }
  Acad::ErrorStatus readItem(Adesk::Int32* value) { return readInt32(value); }
  Acad::ErrorStatus readItem(Adesk::Int64* value) { return readInt64(value); }
  Acad::ErrorStatus readItem(Adesk::UInt8* value) { return readUInt8(value); }
  Acad::ErrorStatus readItem(Adesk::UInt16* value) { return readUInt16(value); }
  Acad::ErrorStatus readItem(Adesk::UInt32* value) { return readUInt32(value); }
  Acad::ErrorStatus readItem(Adesk::UInt64* value) { return readUInt64(value); }
  Acad::ErrorStatus readItem(bool* value) { return readBool(value); }
  Acad::ErrorStatus readItem(double* value) { return readDouble(value); }
  Acad::ErrorStatus readItem(AcGePoint2d* value) { return readPoint2d(value); }
  Acad::ErrorStatus readItem(AcGePoint3d* value) { return readPoint3d(value); }
  Acad::ErrorStatus readItem(AcGeVector2d* value) { return readVector2d(value); }
  Acad::ErrorStatus readItem(AcGeVector3d* value) { return readVector3d(value); }
  Acad::ErrorStatus readItem(void** value) { return readAddress(value); }
  Acad::ErrorStatus readItem(void* bytes, Adesk::UIntPtr length) { return readBytes(bytes, length); }
};
