#pragma once

#include "host/io/dwg/Codec.h"

namespace krio::dwg {

/// The filer by which an object of a class of its own reads and writes its fields in a drawing file: items in the data,
/// ids in the handle part. What every object has (owner, reactors, extended data, layer and so on) is told by the frame
/// around it, and isn't filed here.
class FileFiler : public AcDbDwgFiler {
 public:
  explicit FileFiler(Decoder& decoder) : in_(&decoder) {}
  explicit FileFiler(Encoder& encoder) : out_(&encoder) {}

  bool framesObjects() const override { return true; }

  Acad::ErrorStatus filerStatus() const override { return status_; }
  void setFilerStatus(Acad::ErrorStatus status) override { status_ = status; }
  AcDb::FilerType filerType() const override { return AcDb::kFileFiler; }
  Acad::ErrorStatus seek(Adesk::Int64 offset, int method = 0) override;
  Adesk::Int64 tell() const override;

  Acad::ErrorStatus writeHardOwnershipId(const AcDbHardOwnershipId& id) override { return writeId(kHardOwner, id); }
  Acad::ErrorStatus writeHardPointerId(const AcDbHardPointerId& id) override { return writeId(kHardPointer, id); }
  Acad::ErrorStatus writeSoftOwnershipId(const AcDbSoftOwnershipId& id) override { return writeId(kSoftOwner, id); }
  Acad::ErrorStatus writeSoftPointerId(const AcDbSoftPointerId& id) override { return writeId(kSoftPointer, id); }
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
  /// An address means nothing in a file: eNotApplicable.
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
  template <class Put>
  Acad::ErrorStatus write(Put put);
  template <class T, class Get>
  Acad::ErrorStatus read(T* value, Get get);
  Acad::ErrorStatus writeId(unsigned code, AcDbObjectId id);
  template <class Id>
  Acad::ErrorStatus readId(Id* id);

  Decoder* in_ = nullptr;
  Encoder* out_ = nullptr;
  Acad::ErrorStatus status_ = Acad::eOk;
};

}  // namespace krio::dwg
