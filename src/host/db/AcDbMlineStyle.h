#pragma once

#include <vector>

#include "host/db/AcCmColor.h"
#include "host/db/AcDbField.h"
#include "host/db/AcDbObject.h"

/// How multiple parallel lines are drawn.
class AcDbMlineStyle : public AcDbObject {
 public:
  ACRX_DECLARE_MEMBERS(AcDbMlineStyle);
  struct Line {
    double offset = 0.0;
    Adesk::Int16 color = AcCmColor::kACIbyLayer;
    /// Place among the linetypes; 32767 by layer, 32766 by block.
    Adesk::Int16 linetype = 32767;
    /// As the exchange format names it; empty when the number tells.
    std::wstring linetypeName;
    KR_DB_TIE(offset, color, linetype, linetypeName)
  };
  struct Data {
    std::wstring name = L"STANDARD";
    std::wstring description;
    Adesk::Int16 flags = 0;
    Adesk::Int16 fillColor = AcCmColor::kACIbyLayer;
    double startAngle = kHalfPi;
    double endAngle = kHalfPi;
    std::vector<Line> lines;
    KR_DB_TIE(name, description, flags, fillColor, startAngle, endAngle, lines)
  };
  static constexpr double kHalfPi = 1.5707963267948966;
  AcDbMlineStyle() = default;
  KR_DB_DATA(Data)

  KR_DB_TEXT(nameConst, setName, data_.name)
  KR_DB_TEXT(descriptionConst, setDescription, data_.description)
  KR_DB_GET(int, numElements, int(data_.lines.size()))
  Acad::ErrorStatus addElement(double offset, Adesk::Int16 color, Adesk::Int16 linetype);

  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

 private:
  Data data_;
};
