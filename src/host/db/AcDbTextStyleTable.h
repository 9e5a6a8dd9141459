#pragma once

#include "host/db/AcDbSymbolTable.h"

/// A text style.
class AcDbTextStyleTableRecord : public AcDbSymbolTableRecord {
 public:
  ACRX_DECLARE_MEMBERS(AcDbTextStyleTableRecord);
  AcDbTextStyleTableRecord() = default;

  /// The file of the font: a new text that acutDelString frees.
  Acad::ErrorStatus fileName(ACHAR*& name) const;
  Acad::ErrorStatus setFileName(const ACHAR* name);
  Acad::ErrorStatus bigFontFileName(ACHAR*& name) const;
  Acad::ErrorStatus setBigFontFileName(const ACHAR* name);
  /// The font as the system knows it; an empty typeface when the style names a file only.
  Acad::ErrorStatus font(ACHAR*& typeface, Adesk::Boolean& bold, Adesk::Boolean& italic, int& charset,
                         int& pitchAndFamily) const;
  Acad::ErrorStatus setFont(const ACHAR* typeface, Adesk::Boolean bold, Adesk::Boolean italic, int charset,
                            int pitchAndFamily);

  /// Height of all text of the style; 0: each text has its own.
  double textSize() const;
  /// eInvalidInput below 0.
  Acad::ErrorStatus setTextSize(double size);
  double xScale() const;
  /// eInvalidInput unless 0.01 to 100.
  Acad::ErrorStatus setXScale(double scale);
  /// The slant, in radians.
  double obliquingAngle() const;
  Acad::ErrorStatus setObliquingAngle(double angle);
  double priorSize() const;
  Acad::ErrorStatus setPriorSize(double size);
  bool isShapeFile() const;
  void setIsShapeFile(bool shape);
  bool isVertical() const;
  void setIsVertical(bool vertical);
  /// Generation flags: 2 backward, 4 upside down.
  Adesk::UInt8 flagBits() const;
  void setFlagBits(Adesk::UInt8 flags);

  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

 protected:
  Adesk::Int16 dxfFlags() const override;
  void setDxfFlags(Adesk::Int16 flags) override;

 private:
  std::wstring fileName_ = L"txt";
  std::wstring bigFontFileName_;
  std::wstring typeface_;
  bool bold_ = false;
  bool italic_ = false;
  int charset_ = 0;
  int pitchAndFamily_ = 0;
  double textSize_ = 0;
  double xScale_ = 1;
  double obliquing_ = 0;
  double priorSize_ = 2.5;
  bool shapeFile_ = false;
  bool vertical_ = false;
  Adesk::UInt8 flagBits_ = 0;
};

class AcDbTextStyleTable : public AcDbSymbolTableOf<AcDbTextStyleTableRecord> {
 public:
  ACRX_DECLARE_MEMBERS(AcDbTextStyleTable);
};
using AcDbTextStyleTableIterator = AcDbTextStyleTable::Iterator;
