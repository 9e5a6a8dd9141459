#include <algorithm>

#include "host/io/dxf/DxfWriter.h"

namespace krio::dxf {

namespace {

// Bits of group 70.
constexpr int kDependentFlag = 16;
constexpr int kFrozenFlag = 1;
constexpr int kFrozenInNewFlag = 2;
constexpr int kLockedFlag = 4;
constexpr int kShapeFileFlag = 1;
constexpr int kVerticalFlag = 4;
constexpr int kPaperSpaceFlag = 1;

#define KR_DXF_CODE(get, set, value, code) code,
constexpr int kDimRealCodes[] = {KR_DB_DIM_REALS(KR_DXF_CODE)};
constexpr int kDimIntCodes[] = {KR_DB_DIM_INTS(KR_DXF_CODE)};
#undef KR_DXF_CODE

void writeUcsOf(Sink& sink, const AcDbUcsData& ucs) {
  sink.point(110, ucs.origin);
  sink.vector(111, ucs.xAxis);
  sink.vector(112, ucs.yAxis);
  sink.int16(79, ucs.orthoType);
  sink.real(146, ucs.elevation);
  if (!ucs.named.isNull()) sink.handle(345, ucs.named.handle().value());
  if (!ucs.base.isNull()) sink.handle(346, ucs.base.handle().value());
}

}  // namespace

void Writer::writeTableHead(const char* kind, AcDbObject& table, std::size_t count) {
  sink_.start("TABLE");
  sink_.raw(2, kind);
  writeObjectFrame(table);
  sink_.marker("AcDbSymbolTable");
  sink_.int16(70, int(count));
}

void Writer::writeRecordHead(const char* kind, AcDbSymbolTableRecord& record, const char* marker, int flags) {
  const bool isDimStyle = std::string_view(kind) == "DIMSTYLE";
  sink_.start(kind);
  writeObjectFrame(record, isDimStyle ? 105 : 5);
  sink_.marker("AcDbSymbolTableRecord");
  sink_.marker(marker);
  sink_.text(2, record.nameText());
  if (flags >= 0) sink_.int16(70, flags | (record.isDependent() ? kDependentFlag : 0));
}

template <class Record, class Body>
void Writer::writeTable(const char* kind, AcDbObjectId tableId, const char* marker, Body body) {
  auto* const table = tableId.isResident() ? AcDbSymbolTable::cast(tableId.stub()->object) : nullptr;
  if (table == nullptr) return;
  std::vector<Record*> records;
  for (const AcDbObjectId id : table->recordIds()) {
    Record* const record = id.isResident() && !id.isErased() ? Record::cast(id.stub()->object) : nullptr;
    if (record != nullptr) records.push_back(record);
  }
  writeTableHead(kind, *table, records.size());
  if (const auto* const styles = AcDbDimStyleTable::cast(table)) {
    sink_.marker("AcDbDimStyleTable");
    sink_.int16(71, int(styles->further().size()));
    for (const AcDbHardPointerId id : styles->further()) sink_.handle(340, id.handle().value());
  }
  writeExtendedData(*table);
  for (Record* const record : records) {
    const AcDbObjectPointer<AcDbObject> open(record->objectId(), AcDb::kForRead);
    body(*record, marker);
    writeExtendedData(*record);
    tellNone(record->objectId().handle().value());
  }
  sink_.start("ENDTAB");
}

void Writer::writeTables() {
  sink_.start("SECTION");
  sink_.raw(2, "TABLES");
  const AcDbDatabase::Roots& roots = db_.roots();
  writeTable<AcDbViewportTableRecord>("VPORT", roots.viewportTable, "AcDbViewportTableRecord",
                                      [this](AcDbViewportTableRecord& record, const char* marker) {
                                        writeRecordHead("VPORT", record, marker, 0);
                                        writeViewport(record);
                                      });
  writeTable<AcDbLinetypeTableRecord>("LTYPE", roots.linetypeTable, "AcDbLinetypeTableRecord",
                                      [this](AcDbLinetypeTableRecord& record, const char* marker) {
                                        writeRecordHead("LTYPE", record, marker, 0);
                                        writeLinetype(record);
                                      });
  writeTable<AcDbLayerTableRecord>(
      "LAYER", roots.layerTable, "AcDbLayerTableRecord", [this](AcDbLayerTableRecord& record, const char* marker) {
        writeRecordHead("LAYER", record, marker,
                        (record.isFrozen() ? kFrozenFlag : 0) | (record.VPDFLT() ? kFrozenInNewFlag : 0) |
                            (record.isLocked() ? kLockedFlag : 0));
        writeLayer(record);
      });
  writeTable<AcDbTextStyleTableRecord>(
      "STYLE", roots.textStyleTable, "AcDbTextStyleTableRecord",
      [this](AcDbTextStyleTableRecord& record, const char* marker) {
        writeRecordHead("STYLE", record, marker,
                        (record.data().shapeFile ? kShapeFileFlag : 0) | (record.data().vertical ? kVerticalFlag : 0));
        writeTextStyle(record);
      });
  writeTable<AcDbViewTableRecord>(
      "VIEW", roots.viewTable, "AcDbViewTableRecord", [this](AcDbViewTableRecord& record, const char* marker) {
        writeRecordHead("VIEW", record, marker, record.data().paperSpace ? kPaperSpaceFlag : 0);
        writeView(record);
      });
  writeTable<AcDbUCSTableRecord>("UCS", roots.ucsTable, "AcDbUCSTableRecord",
                                 [this](AcDbUCSTableRecord& record, const char* marker) {
                                   writeRecordHead("UCS", record, marker, 0);
                                   writeUcs(record);
                                 });
  writeTable<AcDbRegAppTableRecord>(
      "APPID", roots.regAppTable, "AcDbRegAppTableRecord",
      [this](AcDbRegAppTableRecord& record, const char* marker) { writeRecordHead("APPID", record, marker, 0); });
  writeTable<AcDbDimStyleTableRecord>("DIMSTYLE", roots.dimStyleTable, "AcDbDimStyleTableRecord",
                                      [this](AcDbDimStyleTableRecord& record, const char* marker) {
                                        writeRecordHead("DIMSTYLE", record, marker, record.data().dxfFlags);
                                        writeDimStyle(record);
                                      });
  writeTable<AcDbBlockTableRecord>("BLOCK_RECORD", roots.blockTable, "AcDbBlockTableRecord",
                                   [this](AcDbBlockTableRecord& record, const char* marker) {
                                     constexpr int kNoFlags = -1;
                                     writeRecordHead("BLOCK_RECORD", record, marker, kNoFlags);
                                     writeBlockRecord(record);
                                   });
  sink_.start("ENDSEC");
}

void Writer::writeViewport(AcDbViewportTableRecord& viewport) {
  const AcDbViewportTableRecord::Data& data = viewport.data();
  const AcDbAbstractViewTableRecord::ViewData& view = viewport.viewData();
  sink_.point(10, data.lowerLeft);
  sink_.point(11, data.upperRight);
  sink_.point(12, view.center);
  sink_.point(13, data.snapBase);
  sink_.point(14, data.snapSpacing);
  sink_.point(15, data.gridSpacing);
  sink_.vector(16, view.direction);
  sink_.point(17, view.target);
  sink_.real(40, view.height);
  sink_.ratio(41, view.width, view.height);
  sink_.real(42, view.lensLength);
  sink_.real(43, view.frontClip);
  sink_.real(44, view.backClip);
  sink_.angle(50, data.snapRotation);
  sink_.angle(51, view.twist);
  sink_.int16(71, view.mode);
  sink_.int16(72, data.circleZoom);
  sink_.int16(73, data.fastZoom);
  sink_.int16(74, data.ucsIcon);
  sink_.int16(75, data.snapOn);
  sink_.int16(76, data.gridOn);
  sink_.int16(77, data.snapStyle);
  sink_.int16(78, data.snapIsoPair);
  sink_.int16(281, view.renderMode);
  sink_.int16(65, data.ucsPerViewport);
  writeUcsOf(sink_, view.ucs);
}

void Writer::writeLinetype(AcDbLinetypeTableRecord& linetype) {
  using Dash = AcDbLinetypeTableRecord::Dash;
  const AcDbLinetypeTableRecord::Data& data = linetype.data();
  sink_.text(3, data.description);
  sink_.int16(72, data.alignment);
  sink_.int16(73, int(data.dashes.size()));
  sink_.real(40, data.patternLength);
  for (const Dash& dash : data.dashes) {
    sink_.real(49, dash.length);
    sink_.int16(74, dash.flags & (Dash::kAbsoluteRotation | Dash::kText | Dash::kShape));
    if ((dash.flags & (Dash::kText | Dash::kShape)) == 0) continue;
    sink_.int16(75, (dash.flags & Dash::kShape) != 0 ? dash.shape : 0);
    sink_.handle(340, dash.style.handle().value());
    sink_.real(46, dash.scale);
    sink_.angle(50, dash.rotation);
    sink_.real(44, dash.xOffset);
    sink_.real(45, dash.yOffset);
    if ((dash.flags & Dash::kText) != 0) sink_.text(9, dash.text);
  }
}

void Writer::writeLayer(AcDbLayerTableRecord& layer) {
  const int color = layer.color().colorIndex();
  sink_.int16(62, layer.isOff() ? -color : color);
  const std::string& linetype = nameOf(layer.linetypeObjectId());
  sink_.raw(6, linetype.empty() ? "Continuous" : linetype);
  if (!layer.isPlottable()) sink_.int16(290, 0);
  sink_.int16(370, layer.lineWeight());
  const AcDbObjectId plotStyle = layer.plotStyleNameId();
  if (!plotStyle.isNull()) sink_.handle(390, plotStyle.handle().value());
}

void Writer::writeTextStyle(AcDbTextStyleTableRecord& style) {
  const AcDbTextStyleTableRecord::Data& data = style.data();
  sink_.real(40, data.textSize);
  sink_.real(41, data.xScale);
  sink_.angle(50, data.obliquing);
  sink_.int16(71, data.flagBits);
  sink_.real(42, data.priorSize);
  sink_.text(3, data.fileName);
  sink_.text(4, data.bigFontFileName);
}

void Writer::writeView(AcDbViewTableRecord& view) {
  const AcDbAbstractViewTableRecord::ViewData& data = view.viewData();
  sink_.real(40, data.height);
  sink_.point(10, data.center);
  sink_.real(41, data.width);
  sink_.vector(11, data.direction);
  sink_.point(12, data.target);
  sink_.real(42, data.lensLength);
  sink_.real(43, data.frontClip);
  sink_.real(44, data.backClip);
  sink_.angle(50, data.twist);
  sink_.int16(71, data.mode);
  sink_.int16(281, data.renderMode);
  sink_.int16(72, view.data().hasUcs);
  if (view.data().hasUcs) writeUcsOf(sink_, data.ucs);
}

void Writer::writeUcs(AcDbUCSTableRecord& ucs) {
  const AcDbUCSTableRecord::Data& data = ucs.data();
  sink_.point(10, data.ucs.origin);
  sink_.vector(11, data.ucs.xAxis);
  sink_.vector(12, data.ucs.yAxis);
  sink_.int16(79, data.ucs.orthoType);
  sink_.real(146, data.ucs.elevation);
  if (!data.ucs.base.isNull()) sink_.handle(346, data.ucs.base.handle().value());
  for (const AcDbUCSTableRecord::OrthoOrigin& each : data.orthoOrigins) {
    sink_.int16(71, each.type);
    sink_.point(13, each.origin);
  }
}

void Writer::writeDimStyle(AcDbDimStyleTableRecord& style) {
  using Style = AcDbDimStyleTableRecord;
  const Style::Data& data = style.data();
  if (!data.dimpost.empty()) sink_.text(3, data.dimpost);
  if (!data.dimapost.empty()) sink_.text(4, data.dimapost);
  // All of them: what a reader takes for left-out ones differs from reader to reader.
  for (int i = 0; i < Style::kNumReals; ++i) sink_.real(kDimRealCodes[i], style.realAt(Style::RealIndex(i)));
  for (int i = 0; i < Style::kNumInts; ++i) sink_.int16(kDimIntCodes[i], style.wholeAt(Style::IntIndex(i)));
  // Without a text style a reader takes this one.
  const AcDbObjectId textStyle = data.dimtxsty.isNull() ? db_.roots().standardTextStyle : AcDbObjectId(data.dimtxsty);
  const std::pair<int, AcDbObjectId> references[] = {
      {340, textStyle}, {341, data.dimldrblk}, {342, data.dimblk}, {343, data.dimblk1}, {344, data.dimblk2}};
  for (const auto& [code, id] : references) {
    if (!id.isNull()) sink_.handle(code, id.handle().value());
  }
}

void Writer::writeBlockRecord(AcDbBlockTableRecord& block) {
  const AcDbObjectId layout = block.data().layout;
  sink_.handle(340, layout.isResident() ? layout.handle().value() : 0);
  std::vector<AcDbStub*> inserts;
  for (AcDbStub* const insert : block.blockReferences()) {
    if (insert->object != nullptr && !insert->has(AcDbStub::kErased)) inserts.push_back(insert);
  }
  if (!inserts.empty()) {
    sink_.raw(102, "{BLKREFS");
    for (AcDbStub* const insert : inserts) sink_.handle(331, insert->handle);
    sink_.raw(102, "}");
  }
  if (!block.data().preview.empty()) sink_.binary(310, block.data().preview);
}

}  // namespace krio::dxf
