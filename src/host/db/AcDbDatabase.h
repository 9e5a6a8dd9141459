#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/db/AcCmColor.h"
#include "host/db/AcDbBlockTable.h"
#include "host/db/AcDbDatabaseReactor.h"
#include "host/db/AcDbDictionary.h"
#include "host/db/AcDbDimStyleTable.h"
#include "host/db/AcDbHandleTable.h"
#include "host/db/AcDbHeader.h"
#include "host/db/AcDbIdMapping.h"
#include "host/db/AcDbLayerTable.h"
#include "host/db/AcDbLinetypeTable.h"
#include "host/db/AcDbProxy.h"
#include "host/db/AcDbRegAppTable.h"
#include "host/db/AcDbTextStyleTable.h"
#include "host/db/AcDbUndoLog.h"
#include "host/db/AcDbViewTables.h"
#include "host/ge/ge.h"

/// Variables of the header that have accessors of their own: X(accessor, setter, NAME, default).
#define KR_DB_HEADER_REALS(X)                   \
  X(ltscale, setLtscale, L"LTSCALE", 1.0)       \
  X(celtscale, setCeltscale, L"CELTSCALE", 1.0) \
  X(textsize, setTextsize, L"TEXTSIZE", 2.5)    \
  X(elevation, setElevation, L"ELEVATION", 0.0) \
  X(thickness, setThickness, L"THICKNESS", 0.0) \
  X(filletrad, setFilletrad, L"FILLETRAD", 0.0) \
  X(angbase, setAngbase, L"ANGBASE", 0.0)
#define KR_DB_HEADER_INTS(X)                        \
  X(tilemode, setTilemode, L"TILEMODE", 1)          \
  X(insunits, setInsunits, L"INSUNITS", 4)          \
  X(measurement, setMeasurement, L"MEASUREMENT", 1) \
  X(lunits, setLunits, L"LUNITS", 2)                \
  X(luprec, setLuprec, L"LUPREC", 4)                \
  X(aunits, setAunits, L"AUNITS", 0)                \
  X(auprec, setAuprec, L"AUPREC", 0)                \
  X(angdir, setAngdir, L"ANGDIR", 0)                \
  X(celweight, setCelweight, L"CELWEIGHT", -1)      \
  X(pdmode, setPdmode, L"PDMODE", 0)                \
  X(psltscale, setPsltscale, L"PSLTSCALE", 1)       \
  X(mirrtext, setMirrtext, L"MIRRTEXT", 0)          \
  X(dimassoc, setDimassoc, L"DIMASSOC", 2)

/// A drawing: its objects by id and handle, its tables and header, its undo. Destroying it destroys all its objects
/// and makes their ids invalid.
class AcDbDatabase : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcDbDatabase);
  /// With `buildDefaultDrawing`, a drawing with the tables, the two spaces, layer "0", the linetypes ByBlock, ByLayer
  /// and Continuous, the text and dimension styles Standard and the named objects dictionary. Without, nothing: for a
  /// reader of files. Undo is recorded once startUndoRecord has been called.
  explicit AcDbDatabase(bool buildDefaultDrawing = true, bool noDocument = false);
  AcDbDatabase(const AcDbDatabase&) = delete;
  AcDbDatabase& operator=(const AcDbDatabase&) = delete;
  ~AcDbDatabase() override;

  // --- Objects -----------------------------------------------------------------------------------------------------

  /// Takes a new object over under a new id; it stays open for write. eNullObjectPointer, eAlreadyInDb.
  Acad::ErrorStatus addAcDbObject(AcDbObject* object);
  Acad::ErrorStatus addAcDbObject(AcDbObjectId& id, AcDbObject* object);
  /// As above under a given handle (0: a new one) and owner, for readers of files. eHandleExists.
  Acad::ErrorStatus addAcDbObject(AcDbObjectId& id, AcDbObject* object, AcDbObjectId owner, AcDbHandle handle);
  /// The id of a handle. eUnknownHandle, or with `createIfNotFound` a new id whose object may come later; eNullHandle.
  Acad::ErrorStatus getAcDbObjectId(AcDbObjectId& id, bool createIfNotFound, const AcDbHandle& handle,
                                    Adesk::UInt32 xrefId = 0);
  AcDbHandle handseed() const { return AcDbHandle(handseed_); }
  /// As a file has it, also below the present one: never below what the handles in use need.
  void setHandseedAsRead(Adesk::UInt64 seed);
  /// eInvalidInput for a seed below the present one.
  Acad::ErrorStatus setHandseed(const AcDbHandle& handle);
  Adesk::Int32 approxNumObjects() const { return Adesk::Int32(handles_.size()); }
  /// Objects that are open just now, in any mode. 0 at rest.
  int numOpenObjects() const;
  const AcDbHandleTable& handleTable() const { return handles_; }

  // --- Reading files -------------------------------------------------------------------------------------------------
  // A reader makes an object, fills it while it is in no database, and puts it under its handle. Nobody is told, no
  // undo is recorded, and the object is closed. It lists entities in their blocks and records in their tables itself
  // (their listAsRead), and at the end calls finishRead.

  /// Makes room for `count` objects with handles below `handseed`.
  void reserveObjects(std::size_t count, Adesk::UInt64 handseed) { handles_.reserve(count, handseed); }
  /// The stub of a handle, made when it isn't there: an object may come under it later. Null for 0.
  AcDbStub* stubOf(Adesk::UInt64 handle) {
    if (handle == 0) return nullptr;
    AcDbStub* stub = handles_.find(handle);
    if (stub != nullptr) return stub;
    stub = handles_.add(handle);
    stub->database = this;
    return stub;
  }
  /// eHandleExists when there is an object under the stub already, eAlreadyInDb when the object is in a database.
  Acad::ErrorStatus putRead(AcDbObject* object, AcDbStub* stub, AcDbStub* owner) {
    if (stub->object != nullptr) return Acad::eHandleExists;
    if (object->stub_ != nullptr) return Acad::eAlreadyInDb;
    stub->object = object;
    stub->owner = owner;
    object->stub_ = stub;
    if (stub->handle >= handseed_) handseed_ = stub->handle + 1;
    return Acad::eOk;
  }
  /// Takes the objects by role (tables, spaces, layer 0, ...) from the header's references, and where these are missing
  /// by name. Puts right what a drawing can't do without: eOk, or what is missing still (eKeyNotFound).
  Acad::ErrorStatus finishRead();
  /// The part of it that is about tables: afterwards every one is there, and a reader can list further records in it.
  void settleTables();
  /// Brings up to date what the header tells of the objects, and makes what a valid file needs and the drawing lacks
  /// (dictionaries, layouts, BLOCK and ENDBLK, the application ACAD, ...).
  void prepareForSave();

  AcDbHeader& header() { return header_; }
  const AcDbHeader& header() const { return header_; }
  /// The list of classes as read, in order.
  std::vector<AcDbClassRecord>& classRecords() { return classRecords_; }
  const std::vector<AcDbClassRecord>& classRecords() const { return classRecords_; }
  /// What a file has beside its drawing.
  struct FileExtras {
    Adesk::UInt16 codePage = 30;     ///< of its texts, by its number in a DWG file; 30 is Windows-1252
    std::vector<std::byte> preview;  ///< the images of a DWG's preview, their addresses counted from its begin
  };
  FileExtras& fileExtras() { return fileExtras_; }
  const FileExtras& fileExtras() const { return fileExtras_; }

  // --- Tables ------------------------------------------------------------------------------------------------------

  Acad::ErrorStatus getBlockTable(AcDbBlockTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
  Acad::ErrorStatus getLayerTable(AcDbLayerTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
  Acad::ErrorStatus getLinetypeTable(AcDbLinetypeTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
  Acad::ErrorStatus getTextStyleTable(AcDbTextStyleTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
  Acad::ErrorStatus getDimStyleTable(AcDbDimStyleTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
  Acad::ErrorStatus getRegAppTable(AcDbRegAppTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
  Acad::ErrorStatus getViewTable(AcDbViewTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
  Acad::ErrorStatus getViewportTable(AcDbViewportTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
  Acad::ErrorStatus getUCSTable(AcDbUCSTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
  Acad::ErrorStatus getNamedObjectsDictionary(AcDbDictionary*& dictionary, AcDb::OpenMode mode = AcDb::kForRead);
  Acad::ErrorStatus getSymbolTable(AcDbBlockTable*& t, AcDb::OpenMode m) { return getBlockTable(t, m); }
  Acad::ErrorStatus getSymbolTable(AcDbLayerTable*& t, AcDb::OpenMode m) { return getLayerTable(t, m); }
  Acad::ErrorStatus getSymbolTable(AcDbLinetypeTable*& t, AcDb::OpenMode m) { return getLinetypeTable(t, m); }
  Acad::ErrorStatus getSymbolTable(AcDbTextStyleTable*& t, AcDb::OpenMode m) { return getTextStyleTable(t, m); }
  Acad::ErrorStatus getSymbolTable(AcDbDimStyleTable*& t, AcDb::OpenMode m) { return getDimStyleTable(t, m); }
  Acad::ErrorStatus getSymbolTable(AcDbRegAppTable*& t, AcDb::OpenMode m) { return getRegAppTable(t, m); }

  AcDbObjectId blockTableId() const { return roots_.blockTable; }
  AcDbObjectId layerTableId() const { return roots_.layerTable; }
  AcDbObjectId linetypeTableId() const { return roots_.linetypeTable; }
  AcDbObjectId textStyleTableId() const { return roots_.textStyleTable; }
  AcDbObjectId dimStyleTableId() const { return roots_.dimStyleTable; }
  AcDbObjectId regAppTableId() const { return roots_.regAppTable; }
  AcDbObjectId viewTableId() const { return roots_.viewTable; }
  AcDbObjectId viewportTableId() const { return roots_.viewportTable; }
  AcDbObjectId UCSTableId() const { return roots_.ucsTable; }
  AcDbObjectId viewportHeaderTableId() const { return roots_.viewportHeaderTable; }
  AcDbObjectId groupDictionaryId() const { return header_.id(AcDbHeader::kDICTIONARY_GROUP); }
  AcDbObjectId mLStyleDictionaryId() const { return header_.id(AcDbHeader::kDICTIONARY_MLINESTYLE); }
  AcDbObjectId layoutDictionaryId() const { return header_.id(AcDbHeader::kDICTIONARY_LAYOUT); }
  AcDbObjectId plotSettingsDictionaryId() const { return header_.id(AcDbHeader::kDICTIONARY_PLOTSETTINGS); }
  AcDbObjectId plotStyleNameDictionaryId() const { return header_.id(AcDbHeader::kDICTIONARY_PLOTSTYLENAME); }
  AcDbObjectId namedObjectsDictionaryId() const { return roots_.namedObjects; }
  AcDbObjectId modelSpaceId() const { return roots_.modelSpace; }
  AcDbObjectId paperSpaceId() const { return roots_.paperSpace; }
  /// Model space, or paper space when TILEMODE is 0.
  AcDbObjectId currentSpaceId() const { return tilemode() != 0 ? roots_.modelSpace : roots_.paperSpace; }
  AcDbObjectId layerZero() const { return roots_.layerZero; }
  AcDbObjectId byBlockLinetype() const { return roots_.byBlock; }
  AcDbObjectId byLayerLinetype() const { return roots_.byLayer; }
  AcDbObjectId continuousLinetype() const { return roots_.continuous; }

  /// The objects that a database needs by role, for a reader that builds one.
  struct Roots {
    AcDbObjectId blockTable, layerTable, linetypeTable, textStyleTable, dimStyleTable, regAppTable, viewTable,
        viewportTable, ucsTable, namedObjects, modelSpace, paperSpace, layerZero, byBlock, byLayer, continuous,
        standardTextStyle, standardDimStyle, viewportHeaderTable;
  };
  const Roots& roots() const { return roots_; }
  void setRoots(const Roots& roots) { roots_ = roots; }

  // --- Header ------------------------------------------------------------------------------------------------------
  // A setter tells the reactors (headerSysVarWillChange, headerSysVarChanged).

#define KR_DB_HEADER_REAL(get, set, name, value)     \
  double get() const {                               \
    constexpr auto kIndex = AcDbHeader::find(name);  \
    return header_.real(kIndex);                     \
  }                                                  \
  Acad::ErrorStatus set(double v) {                  \
    return setReal(AcDbHeader::find(name), name, v); \
  }
  KR_DB_HEADER_REALS(KR_DB_HEADER_REAL)
#undef KR_DB_HEADER_REAL
#define KR_DB_HEADER_INT(get, set, name, value)     \
  int get() const {                                 \
    constexpr auto kIndex = AcDbHeader::find(name); \
    return header_.whole(kIndex);                   \
  }                                                 \
  Acad::ErrorStatus set(int v) {                    \
    return setInt(AcDbHeader::find(name), name, v); \
  }
  KR_DB_HEADER_INTS(KR_DB_HEADER_INT)
#undef KR_DB_HEADER_INT

  AcDbObjectId clayer() const {
    return header_.id(AcDbHeader::kCLAYER);
  }
  /// eInvalidInput for an id that isn't a layer's of this database; eInvalidLayer for a frozen layer.
  Acad::ErrorStatus setClayer(AcDbObjectId id);
  AcDbObjectId celtype() const {
    return header_.id(AcDbHeader::kCELTYPE);
  }
  Acad::ErrorStatus setCeltype(AcDbObjectId id);
  AcCmColor cecolor() const;
  Acad::ErrorStatus setCecolor(const AcCmColor& color);
  AcDbObjectId textstyle() const {
    return header_.id(AcDbHeader::kTEXTSTYLE);
  }
  Acad::ErrorStatus setTextstyle(AcDbObjectId id);
  AcDbObjectId dimstyle() const {
    return header_.id(AcDbHeader::kDIMSTYLE);
  }
  Acad::ErrorStatus setDimstyle(AcDbObjectId id);
  /// The scale of the current dimensions: the style's, unless it was set apart from it.
  double dimscale() const;
  Acad::ErrorStatus setDimscale(double scale);
  /// The box of what model space held when last asked to reckon it (updateExt).
  AcGePoint3d extmin() const {
    return header_.point(AcDbHeader::kEXTMIN);
  }
  AcGePoint3d extmax() const {
    return header_.point(AcDbHeader::kEXTMAX);
  }
  Acad::ErrorStatus updateExt();
  AcGePoint2d limmin() const {
    return {header_.point(AcDbHeader::kLIMMIN).x, header_.point(AcDbHeader::kLIMMIN).y};
  }
  AcGePoint2d limmax() const {
    return {header_.point(AcDbHeader::kLIMMAX).x, header_.point(AcDbHeader::kLIMMAX).y};
  }
  Acad::ErrorStatus setLimmin(const AcGePoint2d& point);
  Acad::ErrorStatus setLimmax(const AcGePoint2d& point);
  AcGePoint3d ucsorg() const {
    return header_.point(AcDbHeader::kUCSORG);
  }
  AcGeVector3d ucsxdir() const {
    return header_.point(AcDbHeader::kUCSXDIR).asVector();
  }
  AcGeVector3d ucsydir() const {
    return header_.point(AcDbHeader::kUCSYDIR).asVector();
  }
  Acad::ErrorStatus setUcs(const AcGePoint3d& origin, const AcGeVector3d& xDir, const AcGeVector3d& yDir);

  // --- Reactors ----------------------------------------------------------------------------------------------------

  Acad::ErrorStatus addReactor(AcDbDatabaseReactor* reactor);
  Acad::ErrorStatus removeReactor(AcDbDatabaseReactor* reactor);

  // --- Cloning -----------------------------------------------------------------------------------------------------

  /// Clones objects of this database into `owner` of this database, and translates the ids in the clones: what was
  /// cloned along is named by its clone, all else stays named as it was. Null owner: each clone goes to its original's.
  /// On a failure the clones made so far are erased again.
  Acad::ErrorStatus deepCloneObjects(const AcDbObjectIdArray& ids, AcDbObjectId owner, AcDbIdMapping& idMap,
                                     bool deferXlation = false);
  /// Clones objects of another database into `owner` of this one, with all that hard references name. A symbol table
  /// record whose name is here already is treated as `drc` tells. A soft pointer to what wasn't cloned becomes null.
  Acad::ErrorStatus wblockCloneObjects(const AcDbObjectIdArray& ids, AcDbObjectId owner, AcDbIdMapping& idMap,
                                       AcDb::DuplicateRecordCloning drc, bool deferXlation = false);
  /// Makes a block `name` of what is in model space of `source`. eDuplicateRecordName.
  Acad::ErrorStatus insert(AcDbObjectId& blockId, const ACHAR* name, AcDbDatabase* source);
  /// Clones what is in model space of `source` into this one's and transforms it.
  Acad::ErrorStatus insert(const AcGeMatrix3d& xform, AcDbDatabase* source);
  /// A new database with copies of the objects in its model space, moved so that `basePoint` comes to the origin.
  Acad::ErrorStatus wblock(AcDbDatabase*& result, const AcDbObjectIdArray& ids, const AcGePoint3d& basePoint);

  // --- Undo --------------------------------------------------------------------------------------------------------

  /// Begins to record undo, or begins a new group: what comes until the next call is undone at once.
  void startUndoRecord();
  bool undoRecording() const {
    return undoStarted_ && undo_.recording();
  }
  /// Turns recording off and on again; nests.
  void disableUndoRecording(bool disable) {
    undo_.disable(disable);
  }
  /// Undoes, or redoes, one group. eUndoOperationNotAvailable when there is none.
  Acad::ErrorStatus undo() {
    return undo_.undo();
  }
  Acad::ErrorStatus redo() {
    return undo_.redo();
  }
  /// Remembers the present group as the place that undoToMark goes back to; marks nest.
  void setUndoMark();
  Acad::ErrorStatus undoToMark();
  AcDbUndoLog& undoLog() {
    return undo_;
  }
  const AcDbUndoLog& undoLog() const {
    return undo_;
  }

  // --- Audit -------------------------------------------------------------------------------------------------------

  /// Audits every object. The first status that tells of a failure other than found errors; else eOk.
  Acad::ErrorStatus auditAll(AcDbAuditInfo& info);

 private:
  friend class AcDbObject;
  friend class AcDbOpener;
  friend class AcDbNotifier;
  friend class AcDbUndoLog;
  friend class AcDbCloner;
  friend class AcDbBlockTableRecord;
  friend class AcDbSymbolTable;

  void buildDefaultDrawing();
  /// The current layer, style, ...: those that every drawing has, where the header names none.
  void takeCurrentDefaults();
  Acad::ErrorStatus setReal(AcDbHeader::Index index, const ACHAR* name, double value);
  Acad::ErrorStatus setInt(AcDbHeader::Index index, const ACHAR* name, int value);
  Acad::ErrorStatus setHeaderId(AcDbHeader::Index index, const ACHAR* name, AcDbObjectId id, const AcRxClass* kind);
  void willChange(const ACHAR* name);
  void changed(const ACHAR* name);
  AcDbStub* adopt(AcDbObject* object, AcDbStub* stub, AcDbStub* owner);
  static void listEntity(AcDbStub* stub);

  AcDbHandleTable handles_;
  Adesk::UInt64 handseed_ = 1;
  Roots roots_;
  AcDbUndoLog undo_;
  bool undoStarted_ = false;
  std::vector<int> undoMarks_;
  std::vector<AcDbDatabaseReactor*> reactors_;
  AcDbHeader header_;
  bool dimscaleApart_ = false;  // DIMSCALE was set apart from that of the current style
  std::vector<AcDbClassRecord> classRecords_;
  FileExtras fileExtras_;
};
