#include "host/db/AcDbMlineStyle.h"

#include <algorithm>

#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbLinetypeTable.h"
#include "host/db/StructFiling.h"
#include "host/db/entities/EntityTools.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbMlineStyle, AcDbObject, 0, 0, 0, MLINESTYLE, ObjectDBX Classes)
KR_DB_FILE_STRUCT(AcDbMlineStyle, AcDbObject, data_)

namespace {

constexpr Adesk::Int16 kByLayer = 32767;
constexpr Adesk::Int16 kByBlock = 32766;

/// The records that a number counts: all of the table but the two that stand for the block's and the layer's.
std::vector<AcDbObjectId> countedLinetypes(const AcDbDatabase& database) {
  std::vector<AcDbObjectId> records;
  const auto* const table = static_cast<const AcDbLinetypeTable*>(database.linetypeTableId().stub()->object);
  for (const AcDbObjectId id : table->recordIds()) {
    if (id != database.byBlockLinetype() && id != database.byLayerLinetype()) records.push_back(id);
  }
  return records;
}

std::wstring linetypeName(const AcDbMlineStyle::Line& line, const AcDbDatabase* database) {
  if (!line.linetypeName.empty()) return line.linetypeName;
  if (line.linetype == kByBlock) return L"BYBLOCK";
  if (line.linetype == kByLayer) return L"BYLAYER";
  const std::vector<AcDbObjectId> counted = database != nullptr ? countedLinetypes(*database) : decltype(counted)();
  const bool found = line.linetype >= 0 && std::size_t(line.linetype) < counted.size();
  const AcDbObjectId record = found ? counted[std::size_t(line.linetype)] : AcDbObjectId::kNull;
  if (!record.isResident()) return L"CONTINUOUS";
  return static_cast<AcDbSymbolTableRecord*>(record.stub()->object)->nameText();
}

/// The number that a name stands for; the name stays where it has none.
void setLinetype(AcDbMlineStyle::Line& line, std::wstring name, const AcDbDatabase* database) {
  const std::wstring folded = acdbFoldedName(name.c_str());
  line.linetypeName.clear();
  line.linetype = folded == L"byblock" ? kByBlock : kByLayer;
  if (folded == L"byblock" || folded == L"bylayer") return;
  const std::vector<AcDbObjectId> counted = database != nullptr ? countedLinetypes(*database) : decltype(counted)();
  const auto found = std::find_if(counted.begin(), counted.end(), [&](AcDbObjectId id) {
    return id.isResident() &&
           acdbFoldedName(static_cast<AcDbSymbolTableRecord*>(id.stub()->object)->nameText().c_str()) == folded;
  });
  line.linetype = Adesk::Int16(found != counted.end() ? found - counted.begin() : 0);
  if (found == counted.end()) line.linetypeName = std::move(name);
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
    filer->writeItem(6, linetypeName(line, filer->database()).c_str());
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
      setLinetype(data_.lines.back(), entities::textOf(group), filer->database());
    }
  });
}
