#pragma once

#include "host/db/AcDbEnums.h"
#include "host/db/AcDbObjectId.h"
#include "host/db/resbuf.h"
#include "host/ge/ge.h"
#include "host/rx/rx.h"

class AcDbDatabase;

/// A group code, from its name or its number.
struct AcDbDxfGroup {
  constexpr AcDbDxfGroup(AcDb::DxfCode c) : code(c) {}
  constexpr AcDbDxfGroup(int c) : code(AcDb::DxfCode(c)) {}
  AcDb::DxfCode code;
};

/// Writes and reads the fields of objects as groups: a code and a value whose type follows from the code.
/// Angles (codes 50 to 58) are radians here, whatever a file has.
class AcDbDxfFiler : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcDbDxfFiler);
  AcDbDxfFiler() = default;
  AcDbDxfFiler(const AcDbDxfFiler&) = delete;
  AcDbDxfFiler& operator=(const AcDbDxfFiler&) = delete;

  /// Digits of a real: the filer's own number of them, or the most that are of use.
  static constexpr int kDfltPrec = -1;
  static constexpr int kMaxPrec = 16;

  virtual AcDb::FilerType filerType() const { return AcDb::kFileFiler; }
  virtual AcDbDatabase* database() const { return nullptr; }
  /// Whether the filer's user files what AcDbObject and AcDbEntity have (handle, reactors, owner, the part AcDbEntity)
  /// in a frame of its own: those classes write and read nothing then.
  virtual bool framesObjects() const { return false; }
  virtual Acad::ErrorStatus dwgVersion(AcDb::AcDbDwgVersion& version, AcDb::MaintenanceReleaseVersion& maint) const;
  virtual int precision() const { return kMaxPrec; }
  virtual void setPrecision(int) {}

  virtual Acad::ErrorStatus filerStatus() const { return status_; }
  virtual void setFilerStatus(Acad::ErrorStatus status) { status_ = status; }
  virtual void resetFilerStatus();
  /// Puts a failure into the filer with a text formatted as the host formats wide text. Returns `status`.
  Acad::ErrorStatus setError(Acad::ErrorStatus status, const ACHAR* format, ...);
  /// As above with eInvalidInput, unless the filer holds a failure already, which stays.
  void setError(const ACHAR* format, ...);
  /// The text of the last setError; empty when there was none.
  const ACHAR* errorMessage() const { return message_.c_str(); }

  // --- Reading -----------------------------------------------------------------------------------------------------

  /// The next group. Text and chunks that it points to stay the filer's and last until the next read.
  /// eEndOfFile at the end, and the filer's status stands so.
  virtual Acad::ErrorStatus readResBuf(resbuf* item) = 0;
  Acad::ErrorStatus readItem(resbuf* item) { return readResBuf(item); }
  /// The next read gives the last group again.
  virtual Acad::ErrorStatus pushBackItem() = 0;
  virtual bool atEOF() = 0;
  virtual bool atEndOfObject() = 0;
  virtual bool atExtendedData() = 0;
  /// Whether the next group is the marker of the subclass `name`; if so it is read.
  virtual bool atSubclassData(const ACHAR* name) = 0;
  virtual void rewindFiler() = 0;
  virtual double elevation() const { return 0.0; }
  virtual double thickness() const { return 0.0; }
  virtual bool isModifyingExistingObject() const { return false; }
  virtual bool includesDefaultValues() const { return false; }

  // --- Writing -----------------------------------------------------------------------------------------------------

  virtual Acad::ErrorStatus writeResBuf(const resbuf& item) = 0;
  virtual Acad::ErrorStatus writeObjectId(AcDb::DxfCode code, const AcDbObjectId& id) = 0;
  virtual Acad::ErrorStatus writeInt8(AcDb::DxfCode code, Adesk::Int8 value) = 0;
  virtual Acad::ErrorStatus writeString(AcDb::DxfCode code, const ACHAR* text) = 0;
  virtual Acad::ErrorStatus writeBChunk(AcDb::DxfCode code, const ads_binary& chunk) = 0;
  virtual Acad::ErrorStatus writeAcDbHandle(AcDb::DxfCode code, const AcDbHandle& handle) = 0;
  virtual Acad::ErrorStatus writeInt32(AcDb::DxfCode code, Adesk::Int32 value) = 0;
  virtual Acad::ErrorStatus writeInt16(AcDb::DxfCode code, Adesk::Int16 value) = 0;
  virtual Acad::ErrorStatus writeUInt8(AcDb::DxfCode code, Adesk::UInt8 value) = 0;
  virtual Acad::ErrorStatus writeUInt16(AcDb::DxfCode code, Adesk::UInt16 value) = 0;
  virtual Acad::ErrorStatus writeUInt32(AcDb::DxfCode code, Adesk::UInt32 value) = 0;
  virtual Acad::ErrorStatus writeInt64(AcDb::DxfCode code, Adesk::Int64 value) = 0;
  virtual Acad::ErrorStatus writeBoolean(AcDb::DxfCode code, Adesk::Boolean value) = 0;
  Acad::ErrorStatus writeBool(AcDb::DxfCode code, bool value) { return writeBoolean(code, value); }
  virtual Acad::ErrorStatus writeDouble(AcDb::DxfCode code, double value, int precision = kDfltPrec) = 0;
  virtual Acad::ErrorStatus writePoint2d(AcDb::DxfCode code, const AcGePoint2d& value, int precision = kDfltPrec) = 0;
  virtual Acad::ErrorStatus writePoint3d(AcDb::DxfCode code, const AcGePoint3d& value, int precision = kDfltPrec) = 0;
  virtual Acad::ErrorStatus writeVector2d(AcDb::DxfCode code, const AcGeVector2d& value, int precision = kDfltPrec) = 0;
  virtual Acad::ErrorStatus writeVector3d(AcDb::DxfCode code, const AcGeVector3d& value, int precision = kDfltPrec) = 0;
  /// The marker, group 100, of a subclass.
  Acad::ErrorStatus writeSubclass(const ACHAR* name) { return writeString(AcDb::kDxfSubclass, name); }

  Acad::ErrorStatus writeItem(const resbuf& item) { return writeResBuf(item); }
  Acad::ErrorStatus writeItem(AcDbDxfGroup g, const AcDbObjectId& id) { return writeObjectId(g.code, id); }
  Acad::ErrorStatus writeItem(AcDbDxfGroup g, const ACHAR* text) { return writeString(g.code, text); }
  Acad::ErrorStatus writeItem(AcDbDxfGroup g, const ads_binary& chunk) { return writeBChunk(g.code, chunk); }
  Acad::ErrorStatus writeItem(AcDbDxfGroup g, const void* bytes, Adesk::UIntPtr length);
  Acad::ErrorStatus writeItem(AcDbDxfGroup g, const AcDbHandle& handle) { return writeAcDbHandle(g.code, handle); }
  Acad::ErrorStatus writeItem(AcDbDxfGroup g, Adesk::Int8 value) { return writeInt8(g.code, value); }
  Acad::ErrorStatus writeItem(AcDbDxfGroup g, Adesk::Int16 value) { return writeInt16(g.code, value); }
  Acad::ErrorStatus writeItem(AcDbDxfGroup g, Adesk::Int32 value) { return writeInt32(g.code, value); }
  Acad::ErrorStatus writeItem(AcDbDxfGroup g, Adesk::Int64 value) { return writeInt64(g.code, value); }
  Acad::ErrorStatus writeItem(AcDbDxfGroup g, Adesk::UInt8 value) { return writeUInt8(g.code, value); }
  Acad::ErrorStatus writeItem(AcDbDxfGroup g, Adesk::UInt16 value) { return writeUInt16(g.code, value); }
  Acad::ErrorStatus writeItem(AcDbDxfGroup g, Adesk::UInt32 value) { return writeUInt32(g.code, value); }
  Acad::ErrorStatus writeItem(AcDbDxfGroup g, bool value) { return writeBoolean(g.code, value); }
  Acad::ErrorStatus writeItem(AcDbDxfGroup g, double value, int precision = kDfltPrec) {
    return writeDouble(g.code, value, precision);
  }
  Acad::ErrorStatus writeItem(AcDbDxfGroup g, const AcGePoint2d& value, int precision = kDfltPrec) {
    return writePoint2d(g.code, value, precision);
  }
  Acad::ErrorStatus writeItem(AcDbDxfGroup g, const AcGePoint3d& value, int precision = kDfltPrec) {
    return writePoint3d(g.code, value, precision);
  }
  Acad::ErrorStatus writeItem(AcDbDxfGroup g, const AcGeVector2d& value, int precision = kDfltPrec) {
    return writeVector2d(g.code, value, precision);
  }
  Acad::ErrorStatus writeItem(AcDbDxfGroup g, const AcGeVector3d& value, int precision = kDfltPrec) {
    return writeVector3d(g.code, value, precision);
  }

 protected:
  Acad::ErrorStatus status_ = Acad::eOk;

 private:
  std::wstring message_;
};
