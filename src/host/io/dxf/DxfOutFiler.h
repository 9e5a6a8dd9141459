#pragma once

#include "host/db/AcDbDxfFiler.h"
#include "host/io/dxf/DxfSink.h"

namespace krio::dxf {

/// The filer through which an object writes its groups into a file, behind those that all objects have (handle, owner,
/// common properties), which the writer itself has written.
class OutFiler : public AcDbDxfFiler {
 public:
  OutFiler(Sink& sink, AcDbDatabase& database) : sink_(sink), database_(database) {}

  /// To be called ahead of each object. With `keepsAngles`, groups 50 to 58 are written as they are.
  void beginObject(bool keepsAngles = false);

  AcDbDatabase* database() const override { return &database_; }
  bool framesObjects() const override { return true; }

  Acad::ErrorStatus readResBuf(resbuf* item) override;
  Acad::ErrorStatus pushBackItem() override { return Acad::eNotApplicable; }
  bool atEOF() override { return true; }
  bool atEndOfObject() override { return true; }
  bool atExtendedData() override { return false; }
  bool atSubclassData(const ACHAR*) override { return false; }
  void rewindFiler() override {}

  Acad::ErrorStatus writeResBuf(const resbuf& item) override;
  Acad::ErrorStatus writeObjectId(AcDb::DxfCode code, const AcDbObjectId& id) override;
  Acad::ErrorStatus writeInt8(AcDb::DxfCode code, Adesk::Int8 value) override { return whole(code, value); }
  Acad::ErrorStatus writeString(AcDb::DxfCode code, const ACHAR* text) override;
  Acad::ErrorStatus writeBChunk(AcDb::DxfCode code, const ads_binary& chunk) override;
  Acad::ErrorStatus writeAcDbHandle(AcDb::DxfCode code, const AcDbHandle& handle) override;
  Acad::ErrorStatus writeInt32(AcDb::DxfCode code, Adesk::Int32 value) override { return whole(code, value); }
  Acad::ErrorStatus writeInt16(AcDb::DxfCode code, Adesk::Int16 value) override { return whole(code, value); }
  Acad::ErrorStatus writeUInt8(AcDb::DxfCode code, Adesk::UInt8 value) override { return whole(code, value); }
  Acad::ErrorStatus writeUInt16(AcDb::DxfCode code, Adesk::UInt16 value) override { return whole(code, value); }
  Acad::ErrorStatus writeUInt32(AcDb::DxfCode code, Adesk::UInt32 value) override { return whole(code, value); }
  Acad::ErrorStatus writeInt64(AcDb::DxfCode code, Adesk::Int64 value) override { return whole(code, value); }
  Acad::ErrorStatus writeBoolean(AcDb::DxfCode code, Adesk::Boolean value) override { return whole(code, value != 0); }
  Acad::ErrorStatus writeDouble(AcDb::DxfCode code, double value, int precision = kDfltPrec) override;
  Acad::ErrorStatus writePoint2d(AcDb::DxfCode code, const AcGePoint2d& p, int precision = kDfltPrec) override;
  Acad::ErrorStatus writePoint3d(AcDb::DxfCode code, const AcGePoint3d& p, int precision = kDfltPrec) override;
  Acad::ErrorStatus writeVector2d(AcDb::DxfCode code, const AcGeVector2d& v, int precision = kDfltPrec) override;
  Acad::ErrorStatus writeVector3d(AcDb::DxfCode code, const AcGeVector3d& v, int precision = kDfltPrec) override;

 private:
  bool takes(AcDb::DxfCode code) const;
  Acad::ErrorStatus whole(AcDb::DxfCode code, std::int64_t value);
  /// A length, or an angle where the code is an angle's.
  void real(int code, double value);

  Sink& sink_;
  AcDbDatabase& database_;
  bool keepsAngles_ = false;
};

}  // namespace krio::dxf
