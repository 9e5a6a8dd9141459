#include "host/db/AcDbMlineStyle.h"

#include "host/db/AcDbSymbolTable.h"
#include "host/db/StructFiling.h"
#include "host/db/entities/EntityTools.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbMlineStyle, AcDbObject, 0, 0, 0, MLINESTYLE, ObjectDBX Classes)
KR_DB_FILE_STRUCT(AcDbMlineStyle, AcDbObject, data_)

namespace {

constexpr Adesk::Int16 kByLayer = 32767;
constexpr Adesk::Int16 kByBlock = 32766;

const ACHAR* linetypeName(const AcDbMlineStyle::Line& line) {
  if (!line.linetypeName.empty()) return line.linetypeName.c_str();
  return line.linetype == kByBlock ? L"BYBLOCK" : line.linetype == kByLayer ? L"BYLAYER" : L"CONTINUOUS";
}

}  // namespace

Acad::ErrorStatus AcDbMlineStyle::addElement(double offset, Adesk::Int16 color, Adesk::Int16 linetype) {
  constexpr std::size_t kMostLines = 16;
  if (data_.lines.size() >= kMostLines) return Acad::eInvalidInput;
  assertWriteEnabled();
  data_.lines.push_back({offset, color, linetype, {}});
  return Acad::eOk;
}

Acad::ErrorStatus AcDbMlineStyle::dxfOutFields(AcDbDxfFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbObject::dxfOutFields(filer); es != Acad::eOk) return es;
  filer->writeSubclass(L"AcDbMlineStyle");
  filer->writeItem(2, data_.name.c_str());
  filer->writeItem(70, data_.flags);
  filer->writeItem(3, data_.description.c_str());
  filer->writeItem(62, data_.fillColor);
  filer->writeItem(51, data_.startAngle);
  filer->writeItem(52, data_.endAngle);
  filer->writeItem(71, Adesk::Int16(data_.lines.size()));
  for (const Line& line : data_.lines) {
    filer->writeItem(49, line.offset);
    filer->writeItem(62, line.color);
    filer->writeItem(6, linetypeName(line));
  }
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbMlineStyle::dxfInFields(AcDbDxfFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbObject::dxfInFields(filer); es != Acad::eOk) return es;
  data_.lines.clear();
  return entities::readSubclass(filer, L"AcDbMlineStyle", [&](const resbuf& group) {
    const ads_u_val& value = group.resval;
    if (group.restype == 2) data_.name = entities::textOf(group);
    if (group.restype == 3) data_.description = entities::textOf(group);
    if (group.restype == 70) data_.flags = value.rint;
    if (group.restype == 51) data_.startAngle = value.rreal;
    if (group.restype == 52) data_.endAngle = value.rreal;
    if (group.restype == 49) data_.lines.emplace_back().offset = value.rreal;
    if (group.restype == 62) (data_.lines.empty() ? data_.fillColor : data_.lines.back().color) = value.rint;
    if (group.restype == 6 && !data_.lines.empty()) {
      Line& line = data_.lines.back();
      line.linetypeName = entities::textOf(group);
      const std::wstring folded = acdbFoldedName(line.linetypeName.c_str());
      line.linetype = folded == L"bylayer" ? kByLayer : folded == L"byblock" ? kByBlock : Adesk::Int16(0);
    }
  });
}
