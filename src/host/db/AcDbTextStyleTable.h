#pragma once

#include "host/db/AcDbField.h"
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

  /// As filed.
  struct Data {
    std::wstring fileName = L"txt";
    std::wstring bigFontFileName;
    std::wstring typeface;
    bool bold = false;
    bool italic = false;
    int charset = 0;
    int pitchAndFamily = 0;
    double textSize = 0;
    double xScale = 1;
    double obliquing = 0;
    double priorSize = 2.5;
    bool shapeFile = false;
    bool vertical = false;
    Adesk::UInt8 flagBits = 0;
    KR_DB_TIE(fileName, bigFontFileName, typeface, bold, italic, charset, pitchAndFamily, textSize, xScale, obliquing,
              priorSize, shapeFile, vertical, flagBits)
  };
  KR_DB_DATA(Data)

  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

 protected:
  Adesk::Int16 dxfFlags() const override;
  void setDxfFlags(Adesk::Int16 flags) override;

 private:
  Data data_;
};

class AcDbTextStyleTable : public AcDbSymbolTableOf<AcDbTextStyleTableRecord> {
 public:
  ACRX_DECLARE_MEMBERS(AcDbTextStyleTable);
};
using AcDbTextStyleTableIterator = AcDbTextStyleTable::Iterator;
