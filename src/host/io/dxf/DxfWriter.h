#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "host/db/db.h"
#include "host/io/Report.h"
#include "host/io/dxf/DxfOutFiler.h"
#include "host/io/dxf/DxfSink.h"

namespace krio::dxf {

/// Writes a whole drawing.
class Writer {
 public:
  Writer(AcDbDatabase& database, std::vector<std::byte>& out, Report& report);

  void write();

 private:
  // --- Sections ------------------------------------------------------------------------------------------------------
  void listClasses();
  void addClass(const AcDbClassRecord& record, bool asProxy);
  void writeClasses();
  void writeTables();
  void writeBlocks();
  void writeEntities();
  void writeObjects();

  // --- Tables --------------------------------------------------------------------------------------------------------
  /// Writes a table with its records, each by `body` behind its name.
  template <class Record, class Body>
  void writeTable(const char* kind, AcDbObjectId tableId, const char* marker, Body body);
  void writeTableHead(const char* kind, AcDbObject& table, std::size_t count);
  void writeRecordHead(const char* kind, AcDbSymbolTableRecord& record, const char* marker, int flags);
  void writeViewport(AcDbViewportTableRecord& viewport);
  void writeLinetype(AcDbLinetypeTableRecord& linetype);
  void writeLayer(AcDbLayerTableRecord& layer);
  void writeTextStyle(AcDbTextStyleTableRecord& style);
  void writeView(AcDbViewTableRecord& view);
  void writeUcs(AcDbUCSTableRecord& ucs);
  void writeDimStyle(AcDbDimStyleTableRecord& style);
  void writeBlockRecord(AcDbBlockTableRecord& block);

  // --- Objects -------------------------------------------------------------------------------------------------------
  void writeBlock(AcDbBlockTableRecord& block);
  static int flagsOf(const AcDbBlockTableRecord& block);
  void writeEntitiesOf(const AcDbBlockTableRecord& block, bool inPaperSpace);
  void writeEntity(AcDbStub* stub, bool inPaperSpace);
  /// Warns of the object just written when one of its numbers couldn't be.
  void tellNone(std::uint64_t handle);
  void writeParts(AcDbEntity& entity, bool inPaperSpace);
  bool writePlainEntity(AcDbEntity& entity, bool inPaperSpace);
  void writeByClass(AcDbEntity& entity, bool inPaperSpace);
  void writeProxyEntity(AcDbProxyEntity& proxy, bool inPaperSpace);
  void writeProxyRecord(const AcDbProxyData& data, bool entity, std::span<const std::byte> graphics);
  void writeObject(AcDbObject& object);
  /// Has an object write its own groups.
  void writeFields(AcDbObject& object);

  void line(const AcDbLine::Data& data);
  void arc(const AcDbArc::Data& data);
  void circle(const AcDbCircle::Data& data);
  void polyline(const AcDbPolyline::Data& data);
  void text(const AcDbText::Data& data);
  void writeNormal(const AcGeVector3d& normal);

  // --- Frames --------------------------------------------------------------------------------------------------------
  /// Handle, extension dictionary, reactors, owner.
  void writeObjectFrame(const AcDbObject& object, int handleCode = 5);
  void writeEntityFrame(const AcDbEntity& entity, bool inPaperSpace, std::span<const std::byte> graphics,
                        bool marker = true);
  void writeExtendedData(const AcDbObject& object);
  /// Writes groups kept of a file, from `first` up to the next that begins an object; gives that one, or `last`.
  AcDbProxyGroups::Iterator writeGroups(AcDbProxyGroups::Iterator first, AcDbProxyGroups::Iterator last);
  void writeGraphics(std::span<const std::byte> graphics);
  /// The name of a record as it stands in the file; empty when there is none.
  const std::string& nameOf(AcDbObjectId record);
  int classNumber(const AcDbClassRecord& record) const;
  /// The class under which an object of a fixed type that the host doesn't have is written.
  static AcDbClassRecord classOf(const AcDbProxyData& data, bool entity);

  AcDbDatabase& db_;
  Report& report_;
  CodePage page_;
  Sink sink_;
  OutFiler filer_;
  std::vector<AcDbClassRecord> classes_;
  std::unordered_map<std::wstring, std::size_t> classPlaces_;
  std::unordered_map<AcDbStub*, std::string> names_;
  AcDbStub* lastNamed_ = nullptr;
  const std::string* lastName_ = nullptr;
  std::vector<std::byte> graphics_;
};

}  // namespace krio::dxf
