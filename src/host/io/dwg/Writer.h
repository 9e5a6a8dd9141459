#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "host/io/Report.h"
#include "host/io/dwg/Container.h"
#include "host/io/dwg/Frame.h"
#include "host/io/dwg/Types.h"

namespace krio::dwg {

/// Writes a database as a drawing file, from its first byte to its last into one buffer: the parts in the order of the
/// format, the objects of the tables and dictionaries first, then block by block the entities.
class Writer {
 public:
  Writer(AcDbDatabase& database, Report& report);
  Acad::ErrorStatus write(std::vector<std::byte>& out);

 private:
  /// The neighbours of an entity in its owner's chain; 0 at the ends.
  struct Links {
    std::uint64_t previous = 0;
    std::uint64_t next = 0;
    bool chained = true;  ///< false for what isn't in a chain: BLOCK, ENDBLK, SEQEND
  };
  /// Where an object begins that is being written.
  struct OpenFrame {
    std::size_t start = 0;
    std::size_t firstBit = 0;
    std::size_t sizePlace = 0;
    std::uint64_t handle = 0;
  };

  /// How the objects of one class are written.
  struct Kind {
    enum class How { kByType, kBlockRecord, kControl, kXrecord, kBlockBegin, kBlockEnd, kProxy, kCustom };
    How how = How::kCustom;
    unsigned number = 0;  ///< type number; of proxies each has its own
    const TypeInfo* type = nullptr;
    bool isEntity = false;
  };

  // Classes: WriterClasses.cpp
  void collectClasses();
  const Kind& kindOf(const AcDbObject& object) {
    const AcRxClass* const isA = object.isA();
    return isA == lastClass_ ? *lastKind_ : findKind(isA);
  }
  const Kind& findKind(const AcRxClass* isA);
  Kind makeKind(const AcRxClass& isA);
  unsigned classNumber(const AcDbClassRecord& record);
  static AcDbClassRecord classOf(const AcDbProxyData& data, bool isEntity);
  unsigned typeOfProxy(const AcDbProxyData& data, bool isEntity);

  // Objects: WriterObjects.cpp
  void writeObjects();
  void writeObject(AcDbStub* stub);
  void writeBlock(const AcDbBlockTableRecord& block);
  void writeChain(const std::vector<AcDbStub*>& stubs);
  void writeStrays(std::vector<AcDbStub*> strays);
  void writeEntity(AcDbStub* stub, const Links& links);
  void writeBlockRecord(const AcDbBlockTableRecord& record);
  void writeControl(const AcDbSymbolTable& table);
  void writeXrecord(const AcDbXrecord& record);
  void writeProxyData(const AcDbProxyData& data, bool isEntity);
  void writeCustom(const AcDbObject& object);

  // Frames: Writer.cpp
  OpenFrame openFrame(unsigned type, const AcDbObject& object, std::uint64_t handle);
  void makeRoom();
  void closeFrame(const OpenFrame& frame);
  void writeExtendedData(const resbuf* chain, std::uint64_t handle);
  std::uint64_t applicationHandle(const wchar_t* name);
  template <class Object>
  void writeReactors(const Object& object);
  void writeGraphics(const AcDbEntity& entity, bool isCustom);
  void writeHead(const AcDbEntity& entity, AcDbStub* stub, const Links& links, bool isCustom);
  void writeHead(const AcDbObject& object, AcDbStub* stub);
  std::uint32_t countReactors(const AcDbObject& object) const;

  // The other parts: WriterParts.cpp
  void writeHeader();
  void writeAuxiliaryHeader();
  void writePreview();
  void writeVariablesSection();
  void writeClassesSection();
  void writeObjectMap();
  void writeFreeSpace();
  void writeSecondHeader();
  void writeTemplate();
  void patchHeader();
  template <class Data>
  void writeFramed(SectionNumber number, const Sentinel& begin, const Sentinel& end, Data data);

  AcDbDatabase& database_;
  Report& report_;
  const os::CodePage& page_;
  BitWriter file_;
  Encoder encoder_;
  FileHeader header_;
  std::vector<AcDbClassRecord> classes_;
  std::vector<std::byte> graphics_;  // of the entity that is written
  std::unordered_map<std::wstring, unsigned> classNumbers_;
  std::unordered_map<const AcRxClass*, Kind> kinds_;
  const AcRxClass* lastClass_ = nullptr;
  const Kind* lastKind_ = nullptr;
  std::vector<MapEntry> map_;
  std::size_t firstObject_ = 0;
  std::wstring lastApplication_;
  std::uint64_t lastApplicationHandle_ = 0;
  Acad::ErrorStatus status_ = Acad::eOk;
};

}  // namespace krio::dwg
