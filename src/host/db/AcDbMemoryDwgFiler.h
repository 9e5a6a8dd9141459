#pragma once

#include <cstring>
#include <functional>
#include <utility>
#include <vector>

#include "host/db/AcDbDwgFiler.h"

/// The kinds of references that a filer writes.
enum class AcDbReferenceKind : Adesk::UInt8 { kHardOwner, kHardPointer, kSoftOwner, kSoftPointer };

/// Compact record of filed fields in memory: each a byte for its type and its bytes. Serves copying, undo and cloning.
/// Reading a field as another type than it was written puts eFilerError into the filer and gives zeros; reading beyond
/// the end puts eEndOfObject.
class AcDbMemoryDwgFiler : public AcDbDwgFiler {
 public:
  ACRX_DECLARE_MEMBERS(AcDbMemoryDwgFiler);
  using Buffer = std::vector<Adesk::UInt8>;

  explicit AcDbMemoryDwgFiler(AcDb::FilerType type = AcDb::kCopyFiler) : type_(type) {}
  /// Takes over what takeBuffer gave, to read it from its start.
  AcDbMemoryDwgFiler(AcDb::FilerType type, Buffer buffer) : type_(type), buffer_(std::move(buffer)) {}

  /// The record; the filer is empty afterwards.
  Buffer takeBuffer();
  const Buffer& buffer() const { return buffer_; }
  bool atEnd() const { return position_ >= buffer_.size(); }

  /// Calls `visit` with each reference in order; when it changes the id, the record takes the new one. True when any
  /// id was changed.
  bool visitReferences(const std::function<void(AcDbReferenceKind, AcDbObjectId&)>& visit);

  Acad::ErrorStatus filerStatus() const override { return status_; }
  void setFilerStatus(Acad::ErrorStatus status) override { status_ = status; }
  AcDb::FilerType filerType() const override { return type_; }
  Acad::ErrorStatus seek(Adesk::Int64 offset, int method = 0) override;
  Adesk::Int64 tell() const override { return Adesk::Int64(position_); }

  Acad::ErrorStatus writeHardOwnershipId(const AcDbHardOwnershipId& id) override;
  Acad::ErrorStatus writeHardPointerId(const AcDbHardPointerId& id) override;
  Acad::ErrorStatus writeSoftOwnershipId(const AcDbSoftOwnershipId& id) override;
  Acad::ErrorStatus writeSoftPointerId(const AcDbSoftPointerId& id) override;
  Acad::ErrorStatus writeInt8(Adesk::Int8 value) override;
  Acad::ErrorStatus writeString(const ACHAR* text) override;
  Acad::ErrorStatus writeBChunk(const ads_binary& chunk) override;
  Acad::ErrorStatus writeAcDbHandle(const AcDbHandle& handle) override;
  Acad::ErrorStatus writeInt64(Adesk::Int64 value) override;
  Acad::ErrorStatus writeInt32(Adesk::Int32 value) override;
  Acad::ErrorStatus writeInt16(Adesk::Int16 value) override;
  Acad::ErrorStatus writeUInt8(Adesk::UInt8 value) override;
  Acad::ErrorStatus writeUInt16(Adesk::UInt16 value) override;
  Acad::ErrorStatus writeUInt32(Adesk::UInt32 value) override;
  Acad::ErrorStatus writeUInt64(Adesk::UInt64 value) override;
  Acad::ErrorStatus writeBoolean(Adesk::Boolean value) override;
  Acad::ErrorStatus writeBool(bool value) override;
  Acad::ErrorStatus writeDouble(double value) override;
  Acad::ErrorStatus writePoint2d(const AcGePoint2d& value) override;
  Acad::ErrorStatus writePoint3d(const AcGePoint3d& value) override;
  Acad::ErrorStatus writeVector2d(const AcGeVector2d& value) override;
  Acad::ErrorStatus writeVector3d(const AcGeVector3d& value) override;
  Acad::ErrorStatus writeAddress(const void* value) override;
  Acad::ErrorStatus writeBytes(const void* bytes, Adesk::UIntPtr length) override;

  Acad::ErrorStatus readHardOwnershipId(AcDbHardOwnershipId* id) override;
  Acad::ErrorStatus readHardPointerId(AcDbHardPointerId* id) override;
  Acad::ErrorStatus readSoftOwnershipId(AcDbSoftOwnershipId* id) override;
  Acad::ErrorStatus readSoftPointerId(AcDbSoftPointerId* id) override;
  Acad::ErrorStatus readInt8(Adesk::Int8* value) override;
  Acad::ErrorStatus readString(ACHAR** text) override;
  Acad::ErrorStatus readBChunk(ads_binary* chunk) override;
  Acad::ErrorStatus readAcDbHandle(AcDbHandle* handle) override;
  Acad::ErrorStatus readInt64(Adesk::Int64* value) override;
  Acad::ErrorStatus readInt32(Adesk::Int32* value) override;
  Acad::ErrorStatus readInt16(Adesk::Int16* value) override;
  Acad::ErrorStatus readUInt8(Adesk::UInt8* value) override;
  Acad::ErrorStatus readUInt16(Adesk::UInt16* value) override;
  Acad::ErrorStatus readUInt32(Adesk::UInt32* value) override;
  Acad::ErrorStatus readUInt64(Adesk::UInt64* value) override;
  Acad::ErrorStatus readBoolean(Adesk::Boolean* value) override;
  Acad::ErrorStatus readBool(bool* value) override;
  Acad::ErrorStatus readDouble(double* value) override;
  Acad::ErrorStatus readPoint2d(AcGePoint2d* value) override;
  Acad::ErrorStatus readPoint3d(AcGePoint3d* value) override;
  Acad::ErrorStatus readVector2d(AcGeVector2d* value) override;
  Acad::ErrorStatus readVector3d(AcGeVector3d* value) override;
  Acad::ErrorStatus readAddress(void** value) override;
  Acad::ErrorStatus readBytes(void* bytes, Adesk::UIntPtr length) override;

 private:
  enum class Tag : Adesk::UInt8;
  template <class T>
  Acad::ErrorStatus put(Tag tag, const T& value);
  template <class T>
  Acad::ErrorStatus get(Tag tag, T* value);
  Acad::ErrorStatus putRun(Tag tag, const void* bytes, std::size_t length);
  /// The bytes of a run of any length; null on failure.
  const Adesk::UInt8* getRun(Tag tag, std::size_t& length);
  bool expect(Tag tag);
  Acad::ErrorStatus fail(Acad::ErrorStatus status);
  Adesk::UInt8* grow(std::size_t size);

  AcDb::FilerType type_;
  Acad::ErrorStatus status_ = Acad::eOk;
  std::size_t position_ = 0;
  Buffer buffer_;
};
