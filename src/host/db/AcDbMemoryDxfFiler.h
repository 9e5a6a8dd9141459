#pragma once

#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "host/db/AcDbDxfFiler.h"

/// What kind of value a group code carries.
enum class AcDbDxfValueKind { kNone, kText, kPoint, kReal, kInt16, kInt32, kInt64, kBinary, kHandle, kObjectId };
AcDbDxfValueKind acdbDxfValueKind(int code);

/// A list of groups in memory, to be written and read.
class AcDbMemoryDxfFiler : public AcDbDxfFiler {
 public:
  ACRX_DECLARE_MEMBERS(AcDbMemoryDxfFiler);

  /// One group. Integers of any width are held as Int64, points with three coordinates.
  struct Group {
    int code = 0;
    std::variant<std::monostate, std::wstring, Adesk::Int64, double, AcGePoint3d, std::vector<char>, AcDbHandle,
                 AcDbObjectId>
        value;
  };

  AcDbMemoryDxfFiler() = default;
  /// A filer to read the groups given.
  explicit AcDbMemoryDxfFiler(std::vector<Group> groups) : groups_(std::move(groups)) {}

  const std::vector<Group>& groups() const { return groups_; }
  void append(Group group) { groups_.push_back(std::move(group)); }

  Acad::ErrorStatus readResBuf(resbuf* item) override;
  Acad::ErrorStatus pushBackItem() override;
  bool atEOF() override { return position_ >= groups_.size(); }
  bool atEndOfObject() override;
  bool atExtendedData() override;
  bool atSubclassData(const ACHAR* name) override;
  void rewindFiler() override;

  Acad::ErrorStatus writeResBuf(const resbuf& item) override;
  Acad::ErrorStatus writeObjectId(AcDb::DxfCode code, const AcDbObjectId& id) override;
  Acad::ErrorStatus writeInt8(AcDb::DxfCode code, Adesk::Int8 value) override;
  Acad::ErrorStatus writeString(AcDb::DxfCode code, const ACHAR* text) override;
  Acad::ErrorStatus writeBChunk(AcDb::DxfCode code, const ads_binary& chunk) override;
  Acad::ErrorStatus writeAcDbHandle(AcDb::DxfCode code, const AcDbHandle& handle) override;
  Acad::ErrorStatus writeInt32(AcDb::DxfCode code, Adesk::Int32 value) override;
  Acad::ErrorStatus writeInt16(AcDb::DxfCode code, Adesk::Int16 value) override;
  Acad::ErrorStatus writeUInt8(AcDb::DxfCode code, Adesk::UInt8 value) override;
  Acad::ErrorStatus writeUInt16(AcDb::DxfCode code, Adesk::UInt16 value) override;
  Acad::ErrorStatus writeUInt32(AcDb::DxfCode code, Adesk::UInt32 value) override;
  Acad::ErrorStatus writeInt64(AcDb::DxfCode code, Adesk::Int64 value) override;
  Acad::ErrorStatus writeBoolean(AcDb::DxfCode code, Adesk::Boolean value) override;
  Acad::ErrorStatus writeDouble(AcDb::DxfCode code, double value, int precision = kDfltPrec) override;
  Acad::ErrorStatus writePoint2d(AcDb::DxfCode code, const AcGePoint2d& value, int precision = kDfltPrec) override;
  Acad::ErrorStatus writePoint3d(AcDb::DxfCode code, const AcGePoint3d& value, int precision = kDfltPrec) override;
  Acad::ErrorStatus writeVector2d(AcDb::DxfCode code, const AcGeVector2d& value, int precision = kDfltPrec) override;
  Acad::ErrorStatus writeVector3d(AcDb::DxfCode code, const AcGeVector3d& value, int precision = kDfltPrec) override;

 private:
  template <class T>
  Acad::ErrorStatus put(AcDb::DxfCode code, T&& value);

  std::vector<Group> groups_;
  std::size_t position_ = 0;
};
