// The objects that every drawing has: made for a new one, found or put right in one that was read.
#include <algorithm>
#include <unordered_set>

#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbLayout.h"
#include "host/db/AcDbMlineStyle.h"
#include "host/db/AcDbPlaceHolder.h"
#include "host/db/acdbOpen.h"
#include "host/db/entities/entities.h"

namespace {

using H = AcDbHeader;

// The handles that these objects have in drawings by convention.
enum : Adesk::UInt64 {
  kBlockTable = 0x1,
  kLayerTable = 0x2,
  kStyleTable = 0x3,
  kLinetypeTable = 0x5,
  kViewTable = 0x6,
  kUcsTable = 0x7,
  kViewportTable = 0x8,
  kRegAppTable = 0x9,
  kDimStyleTable = 0xA,
  kVxTable = 0xB,
  kNamedObjects = 0xC,
  kGroups = 0xD,
  kPlotStyleNames = 0xE,
  kNormalPlotStyle = 0xF,
  kLayerZero = 0x10,
  kStandardStyle = 0x11,
  kAcad = 0x12,
  kByBlock = 0x14,
  kByLayer = 0x15,
  kContinuous = 0x16,
  kMlineStyles = 0x17,
  kStandardMline = 0x18,
  kPlotSettings = 0x19,
  kLayouts = 0x1A,
  kPaperSpace = 0x1B,
  kLayout1 = 0x1E,
  kModelSpace = 0x1F,
  kModelLayout = 0x22,
  kStandardDimStyle = 0x27,
  kActiveViewport = 0x29,
  kFirstFree = 0x2A
};

constexpr const ACHAR* kAcadName = L"ACAD";

/// Puts objects into a database where they are missing.
class Founder {
 public:
  /// `conventional`: under the handles above, in a database without objects.
  Founder(AcDbDatabase& database, bool conventional) : db_(database), conventional_(conventional) {}

  /// Adds a new object under an owner.
  AcDbObjectId add(AcDbObject* object, AcDbObjectId owner, Adesk::UInt64 handle) {
    AcDbObjectId id;
    if (db_.addAcDbObject(id, object, owner, AcDbHandle(conventional_ ? handle : 0)) != Acad::eOk) {
      delete object;
      return {};
    }
    object->close();
    return id;
  }
  /// The table, or dictionary that nothing owns: where none is known the first that there is, made when there is none.
  template <class T>
  void table(AcDbObjectId& id, Adesk::UInt64 handle) {
    if (id.isResident()) return;
    for (AcDbStub& stub : const_cast<AcDbHandleTable&>(db_.handleTable()).stubs()) {
      const bool isOne = stub.object != nullptr && !stub.has(AcDbStub::kErased) && stub.object->isA() == T::desc();
      if (isOne && (stub.owner == nullptr || T::desc() != AcDbDictionary::desc()))
        return id = AcDbObjectId(&stub), void();
    }
    id = add(new T, {}, handle);
  }
  /// The record of a name, made when it isn't there.
  template <class R>
  AcDbObjectId record(AcDbObjectId tableId, const ACHAR* name, Adesk::UInt64 handle) {
    const AcDbObjectPointer<AcDbSymbolTable> table(tableId, AcDb::kForRead);
    AcDbObjectId id;
    if (table.openStatus() != Acad::eOk || table->getAt(name, id) == Acad::eOk) return id;
    auto* const made = new R;
    made->setName(name);
    return add(made, tableId, handle);
  }
  /// The entry of a dictionary, made when it isn't there; its dictionary is its reactor.
  template <class T>
  AcDbObjectId entry(AcDbObjectId dictionaryId, const ACHAR* name, Adesk::UInt64 handle) {
    const AcDbObjectPointer<AcDbDictionary> dictionary(dictionaryId, AcDb::kForWrite);
    AcDbObjectId id;
    if (dictionary.openStatus() != Acad::eOk || dictionary->AcDbDictionary::getAt(name, id) == Acad::eOk) return id;
    id = add(new T, dictionaryId, handle);
    const AcDbObjectPointer<AcDbObject> made(id, AcDb::kForWrite);
    if (made.openStatus() != Acad::eOk) return {};
    made->addPersistentReactor(dictionaryId);
    AcDbObjectId same;
    dictionary->setAt(name, made.object(), same);
    return id;
  }

 private:
  AcDbDatabase& db_;
  bool conventional_;
};

template <class T, class Change>
void change(AcDbObjectId id, Change change) {
  const AcDbObjectPointer<T> object(id, AcDb::kForWrite, true);
  if (object.openStatus() == Acad::eOk) change(*object);
}

void makeTables(Founder& make, AcDbDatabase::Roots& r) {
  make.table<AcDbBlockTable>(r.blockTable, kBlockTable);
  make.table<AcDbLayerTable>(r.layerTable, kLayerTable);
  make.table<AcDbTextStyleTable>(r.textStyleTable, kStyleTable);
  make.table<AcDbLinetypeTable>(r.linetypeTable, kLinetypeTable);
  make.table<AcDbViewTable>(r.viewTable, kViewTable);
  make.table<AcDbUCSTable>(r.ucsTable, kUcsTable);
  make.table<AcDbViewportTable>(r.viewportTable, kViewportTable);
  make.table<AcDbRegAppTable>(r.regAppTable, kRegAppTable);
  make.table<AcDbDimStyleTable>(r.dimStyleTable, kDimStyleTable);
  make.table<AcDbVXTable>(r.viewportHeaderTable, kVxTable);
  make.table<AcDbDictionary>(r.namedObjects, kNamedObjects);
}

void makeDictionaries(Founder& make, AcDbDatabase& db, AcDbObjectId root) {
  H& header = db.header();
  const auto dictionary = [&](H::Index index, const ACHAR* name, Adesk::UInt64 handle) {
    header.setId(index, make.entry<AcDbDictionary>(root, name, handle));
  };
  dictionary(H::kDICTIONARY_GROUP, L"ACAD_GROUP", kGroups);
  header.setId(H::kDICTIONARY_PLOTSTYLENAME,
               make.entry<AcDbDictionaryWithDefault>(root, L"ACAD_PLOTSTYLENAME", kPlotStyleNames));
  dictionary(H::kDICTIONARY_MLINESTYLE, L"ACAD_MLINESTYLE", kMlineStyles);
  dictionary(H::kDICTIONARY_PLOTSETTINGS, L"ACAD_PLOTSETTINGS", kPlotSettings);
  dictionary(H::kDICTIONARY_LAYOUT, L"ACAD_LAYOUT", kLayouts);

  const AcDbObjectId plotStyles = header.id(H::kDICTIONARY_PLOTSTYLENAME);
  const AcDbObjectId normal = make.entry<AcDbPlaceHolder>(plotStyles, L"Normal", kNormalPlotStyle);
  const AcDbObjectPointer<AcDbDictionaryWithDefault> styles(plotStyles, AcDb::kForRead);
  if (styles.openStatus() == Acad::eOk && styles->defaultId().isNull()) styles->setDefaultIdAsRead(normal);
}

AcDbObjectId makeMlineStyle(Founder& make, AcDbDatabase& db) {
  AcDbObjectId id;
  {
    const AcDbObjectPointer<AcDbDictionary> styles(db.mLStyleDictionaryId(), AcDb::kForRead);
    if (styles.openStatus() != Acad::eOk || styles->getAt(L"Standard", id) == Acad::eOk) return id;
  }
  id = make.entry<AcDbMlineStyle>(db.mLStyleDictionaryId(), L"Standard", kStandardMline);
  change<AcDbMlineStyle>(id, [](AcDbMlineStyle& style) {
    constexpr Adesk::Int16 kByLayer = 32767;
    style.addElement(0.5, AcCmColor::kACIbyLayer, kByLayer);
    style.addElement(-0.5, AcCmColor::kACIbyLayer, kByLayer);
  });
  return id;
}

/// The layout of a block, made when there is none.
void makeLayout(Founder& make, AcDbDatabase& db, AcDbObjectId blockId, const ACHAR* name, int tab,
                Adesk::UInt64 handle) {
  const AcDbObjectPointer<AcDbBlockTableRecord> block(blockId, AcDb::kForRead);
  if (block.openStatus() != Acad::eOk) return;
  if (AcDbLayout::cast(block->getLayoutId().isResident() ? block->getLayoutId().stub()->object : nullptr) != nullptr) {
    return;
  }
  const AcDbObjectId id = make.entry<AcDbLayout>(db.layoutDictionaryId(), name, handle);
  block->dataAsRead().layout = id;
  change<AcDbLayout>(id, [&](AcDbLayout& layout) {
    // A layout of that name may be there for another block.
    if (!layout.layoutData().block.isNull()) return;
    AcDbLayout::LayoutData& data = layout.layoutDataAsRead();
    data.name = name;
    data.tabOrder = tab;
    data.block = blockId;
    constexpr Adesk::Int16 kModelFlags = 1712;
    if (tab != 0) return;
    layout.plotDataAsRead().flags = kModelFlags;
    layout.plotDataAsRead().plotType = AcDbPlotSettings::kDisplay;
  });
}

/// What new records need beyond what their constructors give.
void fillRecords(AcDbDatabase& db, const AcDbDatabase::Roots& r, AcDbObjectId normalPlotStyle) {
  change<AcDbLayerTableRecord>(r.layerZero, [&](AcDbLayerTableRecord& layer) {
    layer.setLinetypeAsRead(r.continuous);
    layer.setPlotStyleAsRead(normalPlotStyle);
  });
  change<AcDbLinetypeTableRecord>(r.continuous, [](auto& linetype) { linetype.setComments(L"Solid line"); });
  change<AcDbDimStyleTableRecord>(r.standardDimStyle, [&](auto& style) { style.setDimtxsty(r.standardTextStyle); });
  change<AcDbViewportTableRecord>(db.handleTable().find(kActiveViewport), [](auto& viewport) {
    // The whole of the default limits.
    viewport.setHeight(297.0);
    viewport.setWidth(420.0);
    viewport.setCenterPoint({210.0, 148.5});
  });
}

/// The record that plays a role already, else the one of that name, else a new one.
template <class R>
void play(Founder& make, AcDbObjectId& role, AcDbObjectId table, const ACHAR* name, Adesk::UInt64 handle) {
  if (role.isNull()) role = make.record<R>(table, name, handle);
}

void makeRecords(Founder& make, AcDbDatabase::Roots& r) {
  play<AcDbLinetypeTableRecord>(make, r.byBlock, r.linetypeTable, L"ByBlock", kByBlock);
  play<AcDbLinetypeTableRecord>(make, r.byLayer, r.linetypeTable, L"ByLayer", kByLayer);
  play<AcDbLinetypeTableRecord>(make, r.continuous, r.linetypeTable, L"Continuous", kContinuous);
  play<AcDbLayerTableRecord>(make, r.layerZero, r.layerTable, L"0", kLayerZero);
  play<AcDbTextStyleTableRecord>(make, r.standardTextStyle, r.textStyleTable, L"Standard", kStandardStyle);
}

void makeSpaces(Founder& make, AcDbDatabase::Roots& r) {
  play<AcDbBlockTableRecord>(make, r.paperSpace, r.blockTable, ACDB_PAPER_SPACE, kPaperSpace);
  play<AcDbBlockTableRecord>(make, r.modelSpace, r.blockTable, ACDB_MODEL_SPACE, kModelSpace);
}

/// BLOCK and ENDBLK of a new drawing have the handles behind their block's.
void makeSpaceEnds(AcDbObjectId space) {
  change<AcDbBlockTableRecord>(space, [](AcDbBlockTableRecord& block) {
    const Adesk::UInt64 own = block.objectId().handle().value();
    block.makeEnds(AcDbHandle(own + 1), AcDbHandle(own + 2));
  });
}

/// The id, unless it names no object of class T.
template <class T>
AcDbObjectId ifKind(AcDbObjectId id) {
  return id.isResident() && T::cast(id.stub()->object) != nullptr ? id : AcDbObjectId();
}

/// An object that was read, by its role.
struct Role {
  AcDbObjectId AcDbDatabase::Roots::*root;
  H::Index header;
};
using Roots = AcDbDatabase::Roots;
constexpr Role kTableRoles[] = {{&Roots::blockTable, H::kBLOCK_CONTROL},
                                {&Roots::layerTable, H::kLAYER_CONTROL},
                                {&Roots::textStyleTable, H::kSTYLE_CONTROL},
                                {&Roots::linetypeTable, H::kLTYPE_CONTROL},
                                {&Roots::viewTable, H::kVIEW_CONTROL},
                                {&Roots::ucsTable, H::kUCS_CONTROL},
                                {&Roots::viewportTable, H::kVPORT_CONTROL},
                                {&Roots::regAppTable, H::kAPPID_CONTROL},
                                {&Roots::dimStyleTable, H::kDIMSTYLE_CONTROL},
                                {&Roots::viewportHeaderTable, H::kVIEWPORT_HEADER_CONTROL},
                                {&Roots::namedObjects, H::kDICTIONARY_NAMED_OBJECTS}};
constexpr Role kRecordRoles[] = {{&Roots::paperSpace, H::kBLOCK_PAPER_SPACE},
                                 {&Roots::modelSpace, H::kBLOCK_MODEL_SPACE},
                                 {&Roots::byLayer, H::kLTYPE_BYLAYER},
                                 {&Roots::byBlock, H::kLTYPE_BYBLOCK},
                                 {&Roots::continuous, H::kLTYPE_CONTINUOUS}};

/// A role's object must be of its class: a broken file may name any.
void dropStrangers(Roots& r) {
  r.blockTable = ifKind<AcDbBlockTable>(r.blockTable);
  r.layerTable = ifKind<AcDbLayerTable>(r.layerTable);
  r.textStyleTable = ifKind<AcDbTextStyleTable>(r.textStyleTable);
  r.linetypeTable = ifKind<AcDbLinetypeTable>(r.linetypeTable);
  r.viewTable = ifKind<AcDbViewTable>(r.viewTable);
  r.ucsTable = ifKind<AcDbUCSTable>(r.ucsTable);
  r.viewportTable = ifKind<AcDbViewportTable>(r.viewportTable);
  r.regAppTable = ifKind<AcDbRegAppTable>(r.regAppTable);
  r.dimStyleTable = ifKind<AcDbDimStyleTable>(r.dimStyleTable);
  r.viewportHeaderTable = ifKind<AcDbVXTable>(r.viewportHeaderTable);
  r.namedObjects = ifKind<AcDbDictionary>(r.namedObjects);
  r.paperSpace = ifKind<AcDbBlockTableRecord>(r.paperSpace);
  r.modelSpace = ifKind<AcDbBlockTableRecord>(r.modelSpace);
  // A damaged file may name one space for the other, and the one that is both would be written twice.
  const auto hasName = [](AcDbObjectId block, const ACHAR* name) {
    return block.isResident() && static_cast<AcDbBlockTableRecord*>(block.stub()->object)->nameText() == name;
  };
  if (hasName(r.paperSpace, ACDB_MODEL_SPACE)) r.paperSpace.setNull();
  if (hasName(r.modelSpace, ACDB_PAPER_SPACE)) r.modelSpace.setNull();
  r.byLayer = ifKind<AcDbLinetypeTableRecord>(r.byLayer);
  r.byBlock = ifKind<AcDbLinetypeTableRecord>(r.byBlock);
  r.continuous = ifKind<AcDbLinetypeTableRecord>(r.continuous);
}

/// Lists every insert in its block, where it isn't yet, and drops those that show another block now.
void listInserts(AcDbDatabase& db, const std::vector<AcDbObjectId>& blocks) {
  const auto blockOf = [](const AcDbStub* stub) {
    const auto* const insert =
        stub->object != nullptr && !stub->has(AcDbStub::kErased) ? AcDbBlockReference::cast(stub->object) : nullptr;
    return insert != nullptr ? AcDbObjectId(insert->data().block) : AcDbObjectId();
  };
  std::unordered_set<const AcDbStub*> listed;
  for (const AcDbObjectId block : blocks) {
    auto& record = *static_cast<AcDbBlockTableRecord*>(block.stub()->object);
    std::vector<AcDbStub*> inserts = record.blockReferences();
    std::erase_if(inserts, [&](const AcDbStub* stub) { return blockOf(stub) != block || !listed.insert(stub).second; });
    record.setBlockReferencesAsRead(std::move(inserts));
  }
  for (const AcDbStub& stub : db.handleTable().stubs()) {
    const AcDbObjectId block = blockOf(&stub);
    if (block.isNull() || listed.contains(&stub) || !block.isResident()) continue;
    auto* const record = AcDbBlockTableRecord::cast(block.stub()->object);
    if (record != nullptr) record->listReference(const_cast<AcDbStub*>(&stub));
  }
}

/// Texts, dimensions and leaders that were given no style have the standard one: a file can't leave it out.
void giveStyles(AcDbDatabase& db, AcDbObjectId textStyle, AcDbObjectId dimensionStyle) {
  const auto give = [](AcDbHardPointerId& style, AcDbObjectId usual) {
    if (style.isNull()) style = usual;
  };
  for (const AcDbStub& stub : db.handleTable().stubs()) {
    if (stub.object == nullptr || stub.has(AcDbStub::kErased) || !stub.object->isKindOf(AcDbEntity::desc())) continue;
    if (auto* const text = AcDbText::cast(stub.object)) {
      give(text->dataAsRead().style, textStyle);
    } else if (auto* const paragraph = AcDbMText::cast(stub.object)) {
      give(paragraph->dataAsRead().style, textStyle);
    } else if (auto* const dimension = AcDbDimension::cast(stub.object)) {
      give(dimension->dataAsRead().style, dimensionStyle);
    } else if (auto* const leader = AcDbLeader::cast(stub.object)) {
      give(leader->dataAsRead().dimensionStyle, dimensionStyle);
    }
  }
}

/// A GUID's text from a number: the drawing's own, the same for the same drawing.
std::wstring guidText(Adesk::UInt64 seed) {
  std::wstring text = L"{00000000-0000-0000-0000-000000000000}";
  Adesk::UInt64 state = seed;
  for (wchar_t& c : text) {
    if (c != L'0') continue;
    state = state * 6364136223846793005ULL + 1442695040888963407ULL;
    c = L"0123456789ABCDEF"[state >> 60];
  }
  return text;
}

}  // namespace

void AcDbDatabase::takeCurrentDefaults() {
  const auto current = [this](H::Index index, AcDbObjectId id) {
    if (!header_.id(index).isResident()) header_.setId(index, id);
  };
  current(H::kCLAYER, roots_.layerZero);
  current(H::kCELTYPE, roots_.byLayer);
  current(H::kTEXTSTYLE, roots_.standardTextStyle);
  current(H::kDIMTXSTY, roots_.standardTextStyle);
  current(H::kDIMSTYLE, roots_.standardDimStyle);
}

void AcDbDatabase::buildDefaultDrawing() {
  Founder make(*this, true);
  makeTables(make, roots_);
  makeDictionaries(make, *this, roots_.namedObjects);
  makeRecords(make, roots_);
  make.record<AcDbRegAppTableRecord>(roots_.regAppTable, kAcadName, kAcad);
  header_.setId(H::kCMLSTYLE, makeMlineStyle(make, *this));
  makeSpaces(make, roots_);
  makeSpaceEnds(roots_.paperSpace);
  makeSpaceEnds(roots_.modelSpace);
  makeLayout(make, *this, roots_.paperSpace, L"Layout1", 1, kLayout1);
  makeLayout(make, *this, roots_.modelSpace, L"Model", 0, kModelLayout);
  roots_.standardDimStyle = make.record<AcDbDimStyleTableRecord>(roots_.dimStyleTable, L"Standard", kStandardDimStyle);
  make.record<AcDbViewportTableRecord>(roots_.viewportTable, L"*Active", kActiveViewport);
  fillRecords(*this, roots_, AcDbObjectId(handles_.find(kNormalPlotStyle)));
  takeCurrentDefaults();
  if (handseed_ < kFirstFree) handseed_ = kFirstFree;
  header_.setText(H::kFINGERPRINTGUID, guidText(1));
  header_.setText(H::kVERSIONGUID, guidText(2));
}

/// Ends every sequence of vertices or attributes that has no end: neither form of file can do without.
void endSequences(AcDbDatabase& db) {
  std::vector<AcDbEntity*> open;
  const AcRxClass* plain = nullptr;  // the last class met whose entities have no parts
  for (const AcDbStub& stub : db.handleTable().stubs()) {
    if (stub.object == nullptr || stub.has(AcDbStub::kErased)) continue;
    const AcRxClass* const own = stub.object->isA();
    if (own == plain) continue;
    auto* const entity = AcDbEntity::cast(stub.object);
    AcDbSubentities* const parts = entity != nullptr ? entity->subentities() : nullptr;
    if (parts == nullptr) {
      plain = own;
      continue;
    }
    const AcDbObjectId end = parts->sequenceEnd();
    if (parts->needsEnd(*entity) && (!end.isResident() || end.isErased())) open.push_back(entity);
  }
  for (AcDbEntity* const entity : open) {
    entity->subentities()->setSequenceEndAsRead(nullptr);
    const AcDbObjectPointer<AcDbEntity> owner(entity->objectId(), AcDb::kForRead);
    entity->subentities()->makeSequenceEnd(*entity);
  }
}

void AcDbDatabase::settleTables() {
  for (const Role& role : kTableRoles) {
    if ((roots_.*role.root).isNull()) roots_.*role.root = header_.id(role.header);
  }
  dropStrangers(roots_);
  Founder make(*this, false);
  makeTables(make, roots_);
}

Acad::ErrorStatus AcDbDatabase::finishRead() {
  settleTables();
  for (const Role& role : kRecordRoles) {
    if ((roots_.*role.root).isNull()) roots_.*role.root = header_.id(role.header);
  }
  dropStrangers(roots_);
  Founder make(*this, false);
  makeRecords(make, roots_);
  makeSpaces(make, roots_);
  const AcDbObjectPointer<AcDbDimStyleTable> styles(roots_.dimStyleTable, AcDb::kForRead);
  if (styles->getAt(L"Standard", roots_.standardDimStyle) != Acad::eOk && !styles->recordIds().empty()) {
    roots_.standardDimStyle = styles->recordIds().front();
  }
  takeCurrentDefaults();
  const AcDbObjectPointer<AcDbDimStyleTableRecord> style(dimstyle(), AcDb::kForRead);
  dimscaleApart_ = style.openStatus() != Acad::eOk || style->dimscale() != header_.real(H::kDIMSCALE);
  return Acad::eOk;
}

void AcDbDatabase::prepareForSave() {
  Founder make(*this, false);
  makeDictionaries(make, *this, roots_.namedObjects);
  make.record<AcDbRegAppTableRecord>(roots_.regAppTable, kAcadName, 0);
  roots_.standardDimStyle = roots_.standardDimStyle.isResident()
                                ? roots_.standardDimStyle
                                : make.record<AcDbDimStyleTableRecord>(roots_.dimStyleTable, L"Standard", 0);
  make.record<AcDbViewportTableRecord>(roots_.viewportTable, L"*Active", 0);
  const AcDbObjectId mline = makeMlineStyle(make, *this);
  if (!header_.id(H::kCMLSTYLE).isResident()) header_.setId(H::kCMLSTYLE, mline);
  makeLayout(make, *this, roots_.paperSpace, L"Layout1", 1, 0);
  makeLayout(make, *this, roots_.modelSpace, L"Model", 0, 0);
  const std::vector<AcDbObjectId> blocks = static_cast<AcDbBlockTable*>(roots_.blockTable.stub()->object)->recordIds();
  for (const AcDbObjectId block : blocks) {
    auto& record = *static_cast<AcDbBlockTableRecord*>(block.stub()->object);
    if (!block.isErased()) record.makeEnds();
  }
  endSequences(*this);
  listInserts(*this, blocks);
  giveStyles(*this, roots_.standardTextStyle, roots_.standardDimStyle);
  takeCurrentDefaults();
  if (!dimscaleApart_) header_.setReal(H::kDIMSCALE, dimscale());
  for (const Role& role : kTableRoles) header_.setId(role.header, roots_.*role.root);
  for (const Role& role : kRecordRoles) header_.setId(role.header, roots_.*role.root);
}
