#include "host/io/plot/DrawingStyles.h"

#include "host/db/db.h"
#include "host/os/Text.h"

namespace plot {
namespace {

bool hasName(const AcDbSymbolTableRecord& record, const wchar_t* wanted) {
  const ACHAR* name = nullptr;
  return record.getName(name) == Acad::eOk && name != nullptr && _wcsicmp(name, wanted) == 0;
}

LinetypeStyle readLinetype(AcDbObjectId id) {
  AcDbLinetypeTableRecord* record = nullptr;
  if (id.isNull() || acdbOpenObject(record, id, AcDb::kForRead) != Acad::eOk) return {};
  LinetypeStyle style;
  if (hasName(*record, L"ByBlock")) {
    style.kind = LinetypeStyle::Kind::byBlock;
  } else if (!hasName(*record, L"ByLayer")) {
    style.kind = LinetypeStyle::Kind::pattern;
    for (int i = 0; i < record->numDashes(); ++i) style.pattern.push_back(record->dashLengthAt(i));
  }
  record->close();
  return style;
}

}  // namespace

const LayerStyle& DrawingStyles::layer(AcDbObjectId id) {
  const auto [place, isNew] = layers_.try_emplace(id.stub());
  if (isNew) place->second = readLayer(id);
  return place->second;
}

const LinetypeStyle& DrawingStyles::linetype(AcDbObjectId id) {
  const auto [place, isNew] = linetypes_.try_emplace(id.stub());
  if (isNew) place->second = readLinetype(id);
  return place->second;
}

LayerStyle DrawingStyles::readLayer(AcDbObjectId id) const {
  LayerStyle style;
  style.color.setColorIndex(AcCmColor::kACIforeground);
  AcDbLayerTableRecord* record = nullptr;
  if (!id.isNull() && acdbOpenObject(record, id, AcDb::kForRead) == Acad::eOk) {
    style.frozen = record->isFrozen();
    style.hidden = style.frozen || record->isOff() || !record->isPlottable();
    style.isZero = hasName(*record, L"0");
    style.color = record->color();
    style.linetype = record->linetypeObjectId();
    style.lineWeight = record->lineWeight();
    record->close();
  }
  for (const LayerOverride& item : overrides_) {
    if (!(item.layer == id)) continue;
    style.hidden = style.hidden || item.hidden;
    if (item.color) style.color = *item.color;
    if (item.linetype) style.linetype = *item.linetype;
    if (item.lineWeight) style.lineWeight = *item.lineWeight;
  }
  return style;
}

}  // namespace plot
