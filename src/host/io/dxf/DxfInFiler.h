#pragma once

#include <string>

#include "host/db/AcDbDxfFiler.h"
#include "host/io/dxf/DxfInput.h"

namespace krio::dxf {

/// The filer through which an object reads its groups from a file. The reader has read the groups that all objects
/// have: the filer stands at the first marker behind them. At the end of the object it tells that it is at the end of
/// its data, so a reader can't run into the next object. A value of the file that isn't of its group's kind is a fault
/// of the input: a recovering reading gives the object a plain value for it.
class InFiler : public AcDbDxfFiler {
 public:
  explicit InFiler(Input& input)
      : in_(input), scanner_(input.scanner()), page_(input.page()), database_(input.database()) {}

  /// To be called ahead of each object, with the scanner ahead of its first group. With `keepsAngles`, groups 50 to 58
  /// are read as they are. With `withoutMarkers`, as in files of old versions, each class is led to the object's
  /// first group and picks its own.
  void beginObject(bool keepsAngles = false, bool withoutMarkers = false);
  AcDbDatabase* database() const override { return &database_; }
  bool framesObjects() const override { return true; }
  void setFilerStatus(Acad::ErrorStatus status) override { status_ = status; }

  Acad::ErrorStatus readResBuf(resbuf* item) override;
  Acad::ErrorStatus pushBackItem() override;
  bool atEOF() override { return peekCode() == kNoCode; }
  bool atEndOfObject() override { return peekCode() <= 0; }
  bool atExtendedData() override;
  bool atSubclassData(const ACHAR* name) override;
  void rewindFiler() override;

  Acad::ErrorStatus writeResBuf(const resbuf&) override { return Acad::eNotApplicable; }
  Acad::ErrorStatus writeObjectId(AcDb::DxfCode, const AcDbObjectId&) override { return Acad::eNotApplicable; }
  Acad::ErrorStatus writeInt8(AcDb::DxfCode, Adesk::Int8) override { return Acad::eNotApplicable; }
  Acad::ErrorStatus writeString(AcDb::DxfCode, const ACHAR*) override { return Acad::eNotApplicable; }
  Acad::ErrorStatus writeBChunk(AcDb::DxfCode, const ads_binary&) override { return Acad::eNotApplicable; }
  Acad::ErrorStatus writeAcDbHandle(AcDb::DxfCode, const AcDbHandle&) override { return Acad::eNotApplicable; }
  Acad::ErrorStatus writeInt32(AcDb::DxfCode, Adesk::Int32) override { return Acad::eNotApplicable; }
  Acad::ErrorStatus writeInt16(AcDb::DxfCode, Adesk::Int16) override { return Acad::eNotApplicable; }
  Acad::ErrorStatus writeUInt8(AcDb::DxfCode, Adesk::UInt8) override { return Acad::eNotApplicable; }
  Acad::ErrorStatus writeUInt16(AcDb::DxfCode, Adesk::UInt16) override { return Acad::eNotApplicable; }
  Acad::ErrorStatus writeUInt32(AcDb::DxfCode, Adesk::UInt32) override { return Acad::eNotApplicable; }
  Acad::ErrorStatus writeInt64(AcDb::DxfCode, Adesk::Int64) override { return Acad::eNotApplicable; }
  Acad::ErrorStatus writeBoolean(AcDb::DxfCode, Adesk::Boolean) override { return Acad::eNotApplicable; }
  Acad::ErrorStatus writeDouble(AcDb::DxfCode, double, int) override { return Acad::eNotApplicable; }
  Acad::ErrorStatus writePoint2d(AcDb::DxfCode, const AcGePoint2d&, int) override { return Acad::eNotApplicable; }
  Acad::ErrorStatus writePoint3d(AcDb::DxfCode, const AcGePoint3d&, int) override { return Acad::eNotApplicable; }
  Acad::ErrorStatus writeVector2d(AcDb::DxfCode, const AcGeVector2d&, int) override { return Acad::eNotApplicable; }
  Acad::ErrorStatus writeVector3d(AcDb::DxfCode, const AcGeVector3d&, int) override { return Acad::eNotApplicable; }

 private:
  static constexpr int kNoCode = -1;
  /// The code of the next group without reading it; kNoCode at the end of the file.
  int peekCode();
  void refuse(const char* what);
  bool readValue(resbuf& item);
  bool readCoordinates(resbuf& item);
  bool readReal(int code, std::string_view value, double& real) const;

  Input& in_;
  Scanner& scanner_;
  const CodePage& page_;
  AcDbDatabase& database_;
  std::size_t start_ = 0;
  std::size_t last_ = 0;  // where the group read last begins: a point's first coordinate
  bool keepsAngles_ = false;
  bool withoutMarkers_ = false;
  std::wstring text_;
  std::string chunk_;
};

}  // namespace krio::dxf
