#pragma once

#include "host/rx/rx.h"

class AcDbDwgFiler;
class AcDbDxfFiler;
class KrObjectModCData;

/// A gap across a bar, in real size.
class KrObjectSplit {
 public:
  KrObjectSplit() = default;
  /// Copying clones the modification data.
  KrObjectSplit(const KrObjectSplit& other);
  KrObjectSplit& operator=(const KrObjectSplit& other);
  virtual ~KrObjectSplit();

  /// Centre of the gap, along the bar.
  double zPos() const { return zPos_; }
  void setZPos(double z) { zPos_ = z; }
  /// Width of the gap.
  double length() const { return length_; }
  void setLength(double length) { length_ = length; }
  /// Moves the gap along the bar.
  void zOffset(double d) { zPos_ += d; }

  /// The modification data, owned by the split; null for none.
  KrObjectModCData* accessCData() const { return cdata_; }
  /// Replaces the data by a clone of `data`, which must not be null.
  void setCData(const KrObjectModCData* data);
  /// Deletes the data if `classe` is null or the data is of a kind of it. With a class there must be data.
  void purgeCData(AcRxClass* classe);

  /// Files position, width and data. The result of the data.
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const;
  /// Reads what a list of that version holds per split; version 0 holds nothing. The result of the data.
  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer, int version);
  /// A split has no DXF form: nothing is written and nothing read. Always `Acad::eOk`.
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer);

 private:
  double zPos_ = 0.0;
  double length_ = 0.0;
  KrObjectModCData* cdata_ = nullptr;
};
