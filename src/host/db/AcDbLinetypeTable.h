#pragma once

#include "host/db/AcDbSymbolTable.h"

/// A linetype: a run of dashes (positive), gaps (negative) and dots (0), in drawing units at scale 1.
class AcDbLinetypeTableRecord : public AcDbSymbolTableRecord {
 public:
  ACRX_DECLARE_MEMBERS(AcDbLinetypeTableRecord);
  AcDbLinetypeTableRecord() = default;

  /// The text that shows the pattern: a new text that acutDelString frees.
  ACHAR* comments() const;
  Acad::ErrorStatus comments(ACHAR*& text) const;
  Acad::ErrorStatus setComments(const ACHAR* text);
  ACHAR* asciiDescription() const { return comments(); }
  Acad::ErrorStatus setAsciiDescription(const ACHAR* text) { return setComments(text); }

  /// 0 for a continuous line.
  int numDashes() const;
  /// At most 12; new dashes have the length 0.
  Acad::ErrorStatus setNumDashes(int count);
  /// 0 for an index beyond the last.
  double dashLengthAt(int index) const;
  /// eInvalidIndex.
  Acad::ErrorStatus setDashLengthAt(int index, double length);
  /// The length of the whole run.
  double patternLength() const;
  Acad::ErrorStatus setPatternLength(double length);
  bool isScaledToFit() const;
  void setIsScaledToFit(bool fit);

  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;
  /// The linetypes that every drawing has can't be erased: eCannotBeErasedByCaller.
  Acad::ErrorStatus subErase(Adesk::Boolean erasing) override;

  static constexpr int kMaxDashes = 12;

 private:
  std::wstring comments_;
  std::vector<double> dashes_;
  double patternLength_ = 0;
  bool scaledToFit_ = false;
};

class AcDbLinetypeTable : public AcDbSymbolTableOf<AcDbLinetypeTableRecord> {
 public:
  ACRX_DECLARE_MEMBERS(AcDbLinetypeTable);
};
using AcDbLinetypeTableIterator = AcDbLinetypeTable::Iterator;
