#pragma once

#include "host/db/AcDbField.h"
#include "host/db/AcDbSymbolTable.h"
#include "host/ge/ge.h"

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

  /// One dash as filed. Text and shapes are set at the end of it.
  struct Dash {
    /// Bits of `flags`.
    enum Flag : Adesk::Int16 { kAbsoluteRotation = 1, kText = 2, kShape = 4 };
    double length = 0.0;
    Adesk::Int16 shape = 0;  ///< number of the shape; of a text, its place in the string area as read
    double xOffset = 0.0;
    double yOffset = 0.0;
    double scale = 0.0;
    double rotation = 0.0;  ///< radians
    Adesk::Int16 flags = 0;
    AcDbHardPointerId style;
    std::wstring text;
    KR_DB_TIE(length, shape, xOffset, yOffset, scale, rotation, flags, style, text)
  };
  /// As filed.
  struct Data {
    std::wstring description;
    double patternLength = 0.0;
    Adesk::UInt8 alignment = 'A';
    std::vector<Dash> dashes;
    /// The 256 bytes behind the dashes in a DWG file as read; empty when there were none.
    std::vector<Adesk::UInt8> stringArea;
    bool scaledToFit = false;  ///< not in files
    KR_DB_TIE(description, patternLength, alignment, dashes, stringArea, scaledToFit)
  };
  KR_DB_DATA(Data)
  /// eInvalidIndex for these, and plain values for an index beyond.
  AcDbObjectId shapeStyleAt(int index) const;
  Acad::ErrorStatus setShapeStyleAt(int index, AcDbObjectId id);
  int shapeNumberAt(int index) const;
  Acad::ErrorStatus setShapeNumberAt(int index, int shape);
  AcGeVector2d shapeOffsetAt(int index) const;
  Acad::ErrorStatus setShapeOffsetAt(int index, const AcGeVector2d& offset);
  double shapeScaleAt(int index) const;
  Acad::ErrorStatus setShapeScaleAt(int index, double scale);
  double shapeRotationAt(int index) const;
  Acad::ErrorStatus setShapeRotationAt(int index, double angle);
  /// The record's own text.
  Acad::ErrorStatus textAt(int index, const ACHAR*& text) const;
  Acad::ErrorStatus setTextAt(int index, const ACHAR* text);

  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;
  /// The linetypes that every drawing has can't be erased: eCannotBeErasedByCaller.
  Acad::ErrorStatus subErase(Adesk::Boolean erasing) override;

  static constexpr int kMaxDashes = 12;

 private:
  const Dash& dashAt(int index) const;
  template <class Set>
  Acad::ErrorStatus setDash(int index, Set set);

  Data data_;
};

class AcDbLinetypeTable : public AcDbSymbolTableOf<AcDbLinetypeTableRecord> {
 public:
  ACRX_DECLARE_MEMBERS(AcDbLinetypeTable);
};
using AcDbLinetypeTableIterator = AcDbLinetypeTable::Iterator;
