#include "host/io/dxf/DxfTableReader.h"

#include <cstdlib>

#include "host/io/dxf/DxfCodes.h"
#include "host/io/dxf/DxfHeader.h"
#include "host/os/os.h"

namespace krio::dxf {

namespace {

// Bits of group 70 of all records, and of some.
constexpr int kDependentFlag = 16;
constexpr int kFrozenFlag = 1;
constexpr int kFrozenInNewFlag = 2;
constexpr int kLockedFlag = 4;
constexpr int kShapeFileFlag = 1;
constexpr int kVerticalFlag = 4;

/// Names that the file tells ahead of their records: looked up at the end, by the text as it is here.
std::wstring linetypeNameOf(const std::wstring& name) {
  return name.empty() ? std::wstring(L"Continuous") : name;
}

/// What a style that doesn't tell has: the file leaves out the values of the format's own, imperial style.
void setBuiltInDefaults(AcDbDimStyleTableRecord& style) {
  using Style = AcDbDimStyleTableRecord;
  constexpr std::pair<Style::RealIndex, double> kReals[] = {{Style::dimaszIndex, 0.18}, {Style::dimexoIndex, 0.0625},
                                                            {Style::dimdliIndex, 0.38}, {Style::dimexeIndex, 0.18},
                                                            {Style::dimtxtIndex, 0.18}, {Style::dimcenIndex, 0.09},
                                                            {Style::dimgapIndex, 0.09}, {Style::dimaltfIndex, 25.4}};
  constexpr std::pair<Style::IntIndex, int> kInts[] = {
      {Style::dimtihIndex, 1},   {Style::dimtohIndex, 1},   {Style::dimtadIndex, 0},  {Style::dimzinIndex, 0},
      {Style::dimaltdIndex, 2},  {Style::dimtoflIndex, 0},  {Style::dimdecIndex, 4},  {Style::dimtdecIndex, 4},
      {Style::dimalttdIndex, 2}, {Style::dimdsepIndex, 46}, {Style::dimtoljIndex, 1}, {Style::dimtzinIndex, 0}};
  for (const auto& [index, value] : kReals) style.setRealAsRead(index, value);
  for (const auto& [index, value] : kInts) style.setWholeAsRead(index, value);
}

}  // namespace

TableReader::TableReader(FrameReader& frames) : frames_(frames), drawing_(frames.drawing()), in_(frames.in()) {}

void TableReader::read() {
  std::string kind;
  std::uint64_t handle = 0;
  frames_.begin();
  AcDbDimStyleTable* styles = nullptr;
  std::vector<AcDbHardPointerId> further;
  while (in_.nextField()) {
    if (in_.code() == 2) {
      kind = in_.value();
    } else if (in_.code() == 340) {
      further.emplace_back(in_.reference());
    } else {
      frames_.take(false);
    }
  }
  handle = frames_.frame().handle;
  makeTableOf(kind, handle);
  if (kind == "DIMSTYLE" && drawing_.db().getDimStyleTable(styles) == Acad::eOk) {
    styles->furtherAsRead() = std::move(further);
    styles->close();
  }
  while (in_.next()) {
    // Group 0 is due: nextField() stops ahead of it.
    if (in_.code() != 0) {
      if (!in_.fault("group 0 was due")) return;
      in_.skipFields();
      continue;
    }
    if (in_.value() == "ENDTAB") return;
    if (in_.value() == "ENDSEC" || in_.value() == "TABLE" || in_.value() == "EOF") {
      in_.fault("a table has no end");
      in_.scanner().pushBack();
      return;
    }
    frames_.begin();
    readRecord(kind);
  }
}

template <class Table>
void TableReader::makeTable(AcDbObjectId& root, std::uint64_t handle) {
  if (root.isResident()) return;
  auto made = std::make_unique<Table>();
  frames_.applyRareParts(*made);
  if (Table* const put = drawing_.put(std::move(made), handle, nullptr)) root = put->objectId();
}

void TableReader::makeTableOf(std::string_view kind, std::uint64_t handle) {
  AcDbDatabase::Roots& roots = drawing_.roots();
  if (kind == "VPORT") makeTable<AcDbViewportTable>(roots.viewportTable, handle);
  if (kind == "LTYPE") makeTable<AcDbLinetypeTable>(roots.linetypeTable, handle);
  if (kind == "LAYER") makeTable<AcDbLayerTable>(roots.layerTable, handle);
  if (kind == "STYLE") makeTable<AcDbTextStyleTable>(roots.textStyleTable, handle);
  if (kind == "VIEW") makeTable<AcDbViewTable>(roots.viewTable, handle);
  if (kind == "UCS") makeTable<AcDbUCSTable>(roots.ucsTable, handle);
  if (kind == "APPID") makeTable<AcDbRegAppTable>(roots.regAppTable, handle);
  if (kind == "DIMSTYLE") makeTable<AcDbDimStyleTable>(roots.dimStyleTable, handle);
  if (kind == "BLOCK_RECORD") makeTable<AcDbBlockTable>(roots.blockTable, handle);
  drawing_.db().setRoots(roots);
}

void TableReader::readRecord(std::string_view kind) {
  const std::string_view name = in_.value();
  if (name != kind) {
    if (in_.fault("a record of another kind stands in a table; it was left out")) in_.skipFields();
    return;
  }
  if (kind == "LAYER") return readLayer();
  if (kind == "LTYPE") return readLinetype();
  if (kind == "STYLE") return readTextStyle();
  if (kind == "DIMSTYLE") return readDimStyle();
  if (kind == "APPID") return readRegApp();
  if (kind == "BLOCK_RECORD") return readBlockRecord();
  if (kind == "VPORT") return readViewport();
  if (kind == "VIEW") return readView();
  if (kind == "UCS") return readUcs();
  in_.warn("a record of an unknown table was left out", 0, false);
  in_.skipFields();
}

void TableReader::readGroups(AcDbSymbolTableRecord& record, const std::function<void(int)>& take) {
  name_.clear();
  flags_ = 0;
  Frame& frame = frames_.frame();
  const bool isDimStyle = record.isKindOf(AcDbDimStyleTableRecord::desc());
  while (in_.nextField()) {
    switch (const int code = in_.code()) {
      case 2:
        in_.readText(name_);
        break;
      case 70:
        flags_ = in_.whole();
        break;
      case 105:
        frame.handle = in_.handle();
        break;
      case 5:
        // The name of an arrow's block in a dimension style of an old version.
        if (isDimStyle) break;
        [[fallthrough]];
      default:
        if (!frames_.take(false)) take(code);
    }
  }
  record.setNameAsRead(name_);
  record.filePartAsRead().dependent = (flags_ & kDependentFlag) != 0;
  frames_.applyRareParts(record);
}

bool TableReader::putRecord(std::unique_ptr<AcDbSymbolTableRecord> record, AcDbObjectId root) {
  if (in_.stopped() || !root.isResident()) return false;
  auto* const table = AcDbSymbolTable::cast(root.stub()->object);
  const bool manyOfAName = AcDbViewportTable::cast(table) != nullptr;
  if (!manyOfAName && drawing_.recordNamed(root, record->nameText()) != nullptr) {
    in_.fault("the name \"" + os::toUtf8(record->nameText()) + "\" stands twice in a table; the second was left out",
              frames_.frame().handle, Acad::eDuplicateRecordName);
    return false;
  }
  constexpr std::size_t kAnyRecord = 512;
  AcDbSymbolTableRecord& made = *record;
  if (drawing_.put(std::move(record), frames_.frame().handle, root.stub(), kAnyRecord) == nullptr) return false;
  table->listAsRead(made);
  return true;
}

void TableReader::readLayer() {
  auto layer = std::make_unique<AcDbLayerTableRecord>();
  std::wstring linetype;
  int color = AcCmColor::kACIforeground;
  bool plotted = true;
  readGroups(*layer, [&](int code) {
    switch (code) {
      case 62:
        color = in_.whole<Adesk::Int16>();
        break;
      case 6:
        in_.readText(linetype);
        break;
      case 290:
        plotted = in_.flag();
        break;
      case 370:
        layer->setLineWeightAsRead(AcDb::LineWeight(in_.whole<Adesk::Int16>()));
        break;
      case 390:
        layer->setPlotStyleAsRead(in_.reference());
        break;
      default:
        break;
    }
  });
  AcCmColor index;
  index.setColorIndex(std::abs(color));
  layer->setColorAsRead(index);
  layer->setStatesAsRead((flags_ & kFrozenFlag) != 0, color < 0, (flags_ & kFrozenInNewFlag) != 0,
                         (flags_ & kLockedFlag) != 0, plotted);
  AcDbLayerTableRecord* const made = put(std::move(layer), drawing_.roots().layerTable);
  if (made == nullptr) return;
  later_.emplace_back([this, made, name = linetypeNameOf(linetype)] {
    AcDbStub* const found = drawing_.recordNamed(drawing_.roots().linetypeTable, name);
    if (found == nullptr) in_.warn("a layer's linetype \"" + os::toUtf8(name) + "\" isn't in the table: continuous");
    made->setLinetypeAsRead(found != nullptr ? AcDbObjectId(found) : drawing_.roots().continuous);
  });
}

void TableReader::readLinetype() {
  constexpr std::size_t kMaxDashes = 255;
  auto linetype = std::make_unique<AcDbLinetypeTableRecord>();
  AcDbLinetypeTableRecord::Data& data = linetype->dataAsRead();
  readGroups(*linetype, [&](int code) {
    AcDbLinetypeTableRecord::Dash* const dash = data.dashes.empty() ? nullptr : &data.dashes.back();
    switch (code) {
      case 3:
        in_.readText(data.description);
        return;
      case 72:
        data.alignment = in_.whole<Adesk::UInt8>();
        return;
      case 40:
        data.patternLength = in_.real();
        return;
      case 49:
        if (data.dashes.size() < kMaxDashes) data.dashes.emplace_back().length = in_.real();
        return;
      default:
        break;
    }
    if (dash == nullptr) return;
    switch (code) {
      case 74:
        dash->flags = in_.whole<Adesk::Int16>();
        break;
      case 75:
        dash->shape = in_.whole<Adesk::Int16>();
        break;
      case 340:
        dash->style = in_.reference();
        break;
      case 46:
        dash->scale = in_.real();
        break;
      case 50:
        dash->rotation = in_.angle();
        break;
      case 44:
        dash->xOffset = in_.real();
        break;
      case 45:
        dash->yOffset = in_.real();
        break;
      case 9:
        in_.readText(dash->text);
        break;
      default:
        break;
    }
  });
  put(std::move(linetype), drawing_.roots().linetypeTable);
}

void TableReader::readTextStyle() {
  auto style = std::make_unique<AcDbTextStyleTableRecord>();
  AcDbTextStyleTableRecord::Data& data = style->dataAsRead();
  data.fileName.clear();
  readGroups(*style, [&](int code) {
    switch (code) {
      case 40:
        data.textSize = in_.real();
        break;
      case 41:
        data.xScale = in_.real();
        break;
      case 50:
        data.obliquing = in_.angle();
        break;
      case 71:
        data.flagBits = in_.whole<Adesk::UInt8>();
        break;
      case 42:
        data.priorSize = in_.real();
        break;
      case 3:
        in_.readText(data.fileName);
        break;
      case 4:
        in_.readText(data.bigFontFileName);
        break;
      default:
        break;
    }
  });
  data.shapeFile = (flags_ & kShapeFileFlag) != 0;
  data.vertical = (flags_ & kVerticalFlag) != 0;
  // The styles of shape files have no name: several of them stand side by side.
  if (data.shapeFile && name_.empty()) {
    if (in_.stopped()) return;
    AcDbObjectId root = drawing_.roots().textStyleTable;
    AcDbTextStyleTableRecord* const made = drawing_.put(std::move(style), frames_.frame().handle, root.stub());
    if (made != nullptr) AcDbSymbolTable::cast(root.stub()->object)->listAsRead(*made);
    return;
  }
  put(std::move(style), drawing_.roots().textStyleTable);
}

void TableReader::readDimStyle() {
  using Style = AcDbDimStyleTableRecord;
  auto style = std::make_unique<Style>();
  Style::Data& data = style->dataAsRead();
  setBuiltInDefaults(*style);
  readGroups(*style, [&](int code) {
    if (const int index = dimRealIndex(code); index >= 0)
      return style->setRealAsRead(Style::RealIndex(index), in_.real());
    if (const int index = dimIntIndex(code); index >= 0) {
      return style->setWholeAsRead(Style::IntIndex(index), in_.whole<Adesk::Int16>());
    }
    switch (code) {
      case 3:
        in_.readText(data.dimpost);
        break;
      case 4:
        in_.readText(data.dimapost);
        break;
      case 340:
        data.dimtxsty = in_.reference();
        break;
      case 341:
        data.dimldrblk = in_.reference();
        break;
      case 342:
        data.dimblk = in_.reference();
        break;
      case 343:
        data.dimblk1 = in_.reference();
        break;
      case 344:
        data.dimblk2 = in_.reference();
        break;
      default:
        break;
    }
  });
  data.dxfFlags = Adesk::Int16(flags_);
  Style* const made = put(std::move(style), drawing_.roots().dimStyleTable);
  if (made == nullptr || !data.dimtxsty.isNull()) return;
  later_.emplace_back([this, made] { made->dataAsRead().dimtxsty = drawing_.roots().standardTextStyle; });
}

void TableReader::readRegApp() {
  auto application = std::make_unique<AcDbRegAppTableRecord>();
  readGroups(*application, [](int) {});
  put(std::move(application), drawing_.roots().regAppTable);
}

void TableReader::readBlockRecord() {
  auto record = std::make_unique<AcDbBlockTableRecord>();
  AcDbBlockTableRecord& block = *record;
  std::vector<AcDbStub*> references;
  name_.clear();
  Frame& frame = frames_.frame();
  while (in_.nextField()) {
    if (in_.code() == 102 && in_.value() == "{BLKREFS") {
      while (in_.nextField() && in_.code() != 102) {
        if (AcDbStub* const insert = in_.code() == 331 ? in_.reference().stub() : nullptr) references.push_back(insert);
      }
    } else if (in_.code() == 2) {
      in_.readText(name_);
    } else if (in_.code() == 340) {
      block.dataAsRead().layout = in_.reference();
    } else if (in_.code() == 310) {
      frames_.takePreview(block.dataAsRead().preview);
    } else {
      frames_.take(false);
    }
  }
  block.setNameAsRead(name_);
  block.setBlockReferencesAsRead(std::move(references));
  frames_.applyRareParts(block);
  const bool isSpace = name_ == ACDB_MODEL_SPACE || name_ == ACDB_PAPER_SPACE;
  if (!isSpace && name_.starts_with(L"*") && drawing_.recordNamed(drawing_.roots().blockTable, name_) != nullptr) {
    // The file may name anonymous blocks without their number, which their BLOCK has.
    AcDbObjectId root = drawing_.roots().blockTable;
    if (AcDbBlockTableRecord* const made = drawing_.put(std::move(record), frame.handle, root.stub())) {
      AcDbSymbolTable::cast(root.stub()->object)->listAsRead(*made);
    }
    return;
  }
  put(std::move(record), drawing_.roots().blockTable);
}

void TableReader::finish() {
  for (const auto& each : later_) each();
  later_.clear();
}

}  // namespace krio::dxf
