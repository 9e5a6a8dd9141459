#include "host/db/AcDbLayout.h"

#include "host/db/StructFiling.h"
#include "host/db/entities/EntityTools.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbPlotSettings, AcDbObject, 0, 0, 0, PLOTSETTINGS, ObjectDBX Classes)
ACRX_DXF_DEFINE_MEMBERS(AcDbLayout, AcDbPlotSettings, 0, 0, 0, LAYOUT, ObjectDBX Classes)
KR_DB_FILE_STRUCT(AcDbPlotSettings, AcDbObject, plot_)
KR_DB_FILE_STRUCT(AcDbLayout, AcDbPlotSettings, layout_)

namespace {

AcDbObjectId idOf(const resbuf& group) {
  return AcDbObjectId().setFromOldId(group.resval.rlname[0]);
}

AcGePoint2d flat(const resbuf& group) {
  return {group.resval.rpoint[0], group.resval.rpoint[1]};
}

}  // namespace

void AcDbPlotSettings::getPlotPaperSize(double& width, double& height) const {
  assertReadEnabled();
  width = plot_.paperWidth;
  height = plot_.paperHeight;
}

Acad::ErrorStatus AcDbPlotSettings::dxfOutFields(AcDbDxfFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbObject::dxfOutFields(filer); es != Acad::eOk) return es;
  const PlotData& p = plot_;
  filer->writeSubclass(L"AcDbPlotSettings");
  filer->writeItem(1, p.pageSetup.c_str());
  filer->writeItem(2, p.device.c_str());
  filer->writeItem(4, p.paperSize.c_str());
  filer->writeItem(6, p.plotView.c_str());
  const double lengths[] = {p.leftMargin,  p.bottomMargin, p.rightMargin, p.topMargin,   p.paperWidth,
                            p.paperHeight, p.originX,      p.originY,     p.windowMin.x, p.windowMin.y};
  for (int i = 0; i < 10; ++i) filer->writeItem(40 + i, lengths[i]);
  filer->writeItem(140, p.windowMax.x);
  filer->writeItem(141, p.windowMax.y);
  filer->writeItem(142, p.scaleNumerator);
  filer->writeItem(143, p.scaleDenominator);
  filer->writeItem(70, p.flags);
  filer->writeItem(72, p.paperUnits);
  filer->writeItem(73, p.rotation);
  filer->writeItem(74, p.plotType);
  filer->writeItem(7, p.styleSheet.c_str());
  filer->writeItem(75, p.standardScaleType);
  filer->writeItem(147, p.standardScale);
  filer->writeItem(148, p.paperImageOrigin.x);
  filer->writeItem(149, p.paperImageOrigin.y);
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbPlotSettings::dxfInFields(AcDbDxfFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbObject::dxfInFields(filer); es != Acad::eOk) return es;
  PlotData& p = plot_;
  return entities::readSubclass(filer, L"AcDbPlotSettings", [&](const resbuf& group) {
    double* const lengths[] = {&p.leftMargin,  &p.bottomMargin, &p.rightMargin, &p.topMargin,   &p.paperWidth,
                               &p.paperHeight, &p.originX,      &p.originY,     &p.windowMin.x, &p.windowMin.y};
    const int code = group.restype;
    const double real = group.resval.rreal;
    const Adesk::Int16 whole = group.resval.rint;
    if (code >= 40 && code <= 49) *lengths[code - 40] = real;
    if (code == 1) p.pageSetup = entities::textOf(group);
    if (code == 2) p.device = entities::textOf(group);
    if (code == 4) p.paperSize = entities::textOf(group);
    if (code == 6) p.plotView = entities::textOf(group);
    if (code == 7) p.styleSheet = entities::textOf(group);
    if (code == 140) p.windowMax.x = real;
    if (code == 141) p.windowMax.y = real;
    if (code == 142) p.scaleNumerator = real;
    if (code == 143) p.scaleDenominator = real;
    if (code == 147) p.standardScale = real;
    if (code == 148) p.paperImageOrigin.x = real;
    if (code == 149) p.paperImageOrigin.y = real;
    if (code == 70) p.flags = whole;
    if (code == 72) p.paperUnits = whole;
    if (code == 73) p.rotation = whole;
    if (code == 74) p.plotType = whole;
    if (code == 75) p.standardScaleType = whole;
  });
}

Acad::ErrorStatus AcDbLayout::getLayoutName(const ACHAR*& name) const {
  assertReadEnabled();
  name = layout_.name.c_str();
  return Acad::eOk;
}

void AcDbLayout::setTabOrder(int order) {
  assertWriteEnabled();
  layout_.tabOrder = order;
}

Acad::ErrorStatus AcDbLayout::dxfOutFields(AcDbDxfFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbPlotSettings::dxfOutFields(filer); es != Acad::eOk) return es;
  const LayoutData& l = layout_;
  filer->writeSubclass(L"AcDbLayout");
  filer->writeItem(1, l.name.c_str());
  filer->writeItem(70, l.flags);
  filer->writeItem(71, Adesk::Int16(l.tabOrder));
  filer->writeItem(10, l.limMin);
  filer->writeItem(11, l.limMax);
  filer->writeItem(12, l.insBase);
  filer->writeItem(14, l.extMin);
  filer->writeItem(15, l.extMax);
  filer->writeItem(146, l.elevation);
  filer->writeItem(13, l.ucsOrigin);
  filer->writeItem(16, l.ucsXAxis);
  filer->writeItem(17, l.ucsYAxis);
  filer->writeItem(76, l.orthoType);
  filer->writeItem(330, AcDbObjectId(l.block));
  if (!l.lastActiveViewport.isNull()) filer->writeItem(331, AcDbObjectId(l.lastActiveViewport));
  if (!l.namedUcs.isNull()) filer->writeItem(345, AcDbObjectId(l.namedUcs));
  if (!l.baseUcs.isNull()) filer->writeItem(346, AcDbObjectId(l.baseUcs));
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbLayout::dxfInFields(AcDbDxfFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbPlotSettings::dxfInFields(filer); es != Acad::eOk) return es;
  LayoutData& l = layout_;
  return entities::readSubclass(filer, L"AcDbLayout", [&](const resbuf& group) {
    const int code = group.restype;
    const Adesk::Int16 whole = group.resval.rint;
    if (code == 1) l.name = entities::textOf(group);
    if (code == 70) l.flags = whole;
    if (code == 71) l.tabOrder = whole;
    if (code == 76) l.orthoType = whole;
    if (code == 10) l.limMin = flat(group);
    if (code == 11) l.limMax = flat(group);
    if (code == 12) l.insBase = entities::pointOf(group);
    if (code == 13) l.ucsOrigin = entities::pointOf(group);
    if (code == 14) l.extMin = entities::pointOf(group);
    if (code == 15) l.extMax = entities::pointOf(group);
    if (code == 16) l.ucsXAxis = entities::vectorOf(group);
    if (code == 17) l.ucsYAxis = entities::vectorOf(group);
    if (code == 146) l.elevation = group.resval.rreal;
    if (code == 330) l.block = idOf(group);
    if (code == 331) l.lastActiveViewport = idOf(group);
    if (code == 345) l.namedUcs = idOf(group);
    if (code == 346) l.baseUcs = idOf(group);
  });
}
