#include <memory>

#include "host/db/db.h"
#include "host/gi/AcGiTextStyle.h"

namespace {

/// Takes over a text that the record gave away.
std::wstring take(ACHAR* text) {
  const std::wstring copy = text == nullptr ? L"" : text;
  acutDelString(text);
  return copy;
}

}  // namespace

Acad::ErrorStatus fromAcDbTextStyle(AcGiTextStyle& textStyle, const AcDbObjectId& styleId) {
  AcDbTextStyleTableRecord* record = nullptr;
  if (const auto status = acdbOpenObject(record, styleId, AcDb::kForRead); status != Acad::eOk) return status;
  const ACHAR* name = nullptr;
  record->getName(name);
  textStyle.setStyleName(name);
  ACHAR* text = nullptr;
  record->fileName(text);
  textStyle.setFileName(take(text).c_str());
  text = nullptr;
  record->bigFontFileName(text);
  textStyle.setBigFontFileName(take(text).c_str());
  ACHAR* typeface = nullptr;
  Adesk::Boolean bold = Adesk::kFalse;
  Adesk::Boolean italic = Adesk::kFalse;
  int charset = 0;
  int pitchAndFamily = 0;
  record->font(typeface, bold, italic, charset, pitchAndFamily);
  // A font that isn't there is found out when text is set in it.
  static_cast<void>(textStyle.setFont(take(typeface).c_str(), bold != 0, italic != 0));
  const double size = record->textSize();
  textStyle.setTextSize(size > 0.0 ? size : record->priorSize());
  textStyle.setXScale(record->xScale());
  textStyle.setObliquingAngle(record->obliquingAngle());
  constexpr int kBackward = 2;
  constexpr int kUpsideDown = 4;
  textStyle.setBackward((record->flagBits() & kBackward) != 0);
  textStyle.setUpsideDown((record->flagBits() & kUpsideDown) != 0);
  record->close();
  return Acad::eOk;
}
