#pragma once

#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "host/io/dwg/Container.h"
#include "host/io/dwg/Frame.h"
#include "host/io/dwg/RecordNames.h"
#include "host/io/dwg/Types.h"

namespace krio::dwg {

/// Reads the objects of a drawing file into a database: one pass over the object map that makes each object, then a
/// few steps that put in order what objects tell of each other.
class Reader {
 public:
  Reader(ByteSpan file, AcDbDatabase& database, Report& report, const ReadOptions& options);
  Acad::ErrorStatus read();

 private:
  /// A class of the file's list and what the host has for it.
  struct FileClass {
    std::size_t record = 0;          ///< its place in the database's list
    const TypeInfo* type = nullptr;  ///< a class of the host that is stored in a form of its own
    AcRxClass* custom = nullptr;     ///< a class that files itself
    bool isEntity = false;
  };
  /// The entities of one owner as they come, and whether their links agree with that order so far.
  struct Parts {
    AcDbStub* owner = nullptr;
    std::vector<AcDbStub*> stubs;
    std::uint64_t lastHandle = 0;
    std::uint64_t lastNext = 0;
    bool inOrder = true;
  };
  /// What an object's control object lists.
  struct Control {
    AcDbStub* table = nullptr;
    std::vector<AcDbStub*> records;
  };
  struct BlockRecord {
    AcDbStub* stub = nullptr;
    std::uint64_t first = 0;
    std::uint64_t last = 0;
    std::wstring name;  ///< as the record has it
  };
  struct ExtendedData {
    AcDbStub* stub = nullptr;
    std::size_t place = 0;  ///< bit position
  };

  bool readClasses();
  bool makeStubs();
  bool readHeaderVariables();
  bool readObjects();
  bool readObject(const MapEntry& entry, AcDbStub* stub);
  void findNamedRecords();
  bool lost(const MapEntry& entry, const char* why);

  bool dispatch(const Frame& frame, AcDbStub* stub);
  template <class T>
  bool readPlain(const Frame& frame, AcDbStub* stub);
  bool readByType(const TypeInfo& type, const Frame& frame, AcDbStub* stub);
  bool readCustom(const FileClass& fileClass, const Frame& frame, AcDbStub* stub);
  bool readProxy(const FileClass* fileClass, bool isEntity, const Frame& frame, AcDbStub* stub, const char* why);
  void fillProxy(AcDbProxyData& data, const FileClass* fileClass, const Frame& frame, Decoder& decoder);
  bool readBlockBegin(const Frame& frame, AcDbStub* stub);
  bool readBlockEnd(const Frame& frame, AcDbStub* stub);
  bool readBlockRecord(const Frame& frame, AcDbStub* stub);
  bool readXrecord(const Frame& frame, AcDbStub* stub);
  template <class Table>
  bool readControl(const Frame& frame, AcDbStub* stub, unsigned further);

  Decoder decoderOf(const Frame& frame) { return {*context_, frame.data, frame.handles, frame.handle}; }
  /// Whether the data ended where the bit size tells, and nothing but filler bits is left of the handles.
  static bool endsRight(const Decoder& decoder) {
    return !decoder.failed() && decoder.data.left() == 0 && decoder.handles.left() < 8;
  }
  AcDbStub* ownerOf(const EntityHead& head);
  void setCommon(AcDbEntity& entity, const EntityHead& head);
  static void setGraphics(AcDbEntity& entity, const EntityHead& head, const Frame& frame);
  template <class Head>
  void setRelations(AcDbObject& object, const Head& head, const Frame& frame);
  template <class Head>
  bool put(std::unique_ptr<AcDbObject> object, AcDbStub* stub, AcDbStub* owner, const Head& head, const Frame& frame);
  void list(const EntityHead& head, AcDbStub* owner, AcDbStub* stub);
  Parts& partsOf(AcDbStub* owner);

  bool finish();
  void nameBlocks();
  void dropForeignEnds();
  bool breakOwnerCircles();
  void listRecords();
  struct TableNames {
    std::unordered_set<std::wstring> taken;
    RecordNames further;
  };
  void nameAlone(TableNames& names, AcDbSymbolTableRecord& record);
  bool dropLooseParts();
  void dropForeignTables();
  void adoptStrays();
  bool moveSpace(AcDbStub* stub);
  void dropLooseEnds();
  bool listParts();
  bool orderByLinks(Parts& parts);
  void listInserts();
  void numberViewports();
  bool readAllExtendedData();
  bool readExtendedData(const ExtendedData& place);
  std::optional<Frame> frameOf(std::uint64_t handle);

  ByteSpan file_;
  AcDbDatabase& database_;
  Report& report_;
  FaultPolicy policy_;
  Container container_;
  std::optional<ReadContext> context_;
  std::vector<FileClass> classes_;
  bool circlesBroken_ = false;
  AcDbStub* modelSpace_ = nullptr;
  AcDbStub* paperSpace_ = nullptr;

  std::vector<Parts> parts_;
  std::unordered_map<AcDbStub*, std::size_t> partsPlaces_;
  std::size_t lastParts_ = 0;
  std::vector<Control> controls_;
  std::vector<AcDbStub*> records_;  // of all symbol tables
  std::vector<AcDbStub*> strays_;   // of them, those that no table lists
  std::vector<BlockRecord> blocks_;
  std::unordered_map<AcDbStub*, std::wstring> blockNames_;  // by the BLOCK entity
  std::vector<ExtendedData> extendedData_;
  std::vector<std::pair<AcDbStub*, AcDbStub*>> inserts_;  // block, insert
  std::vector<AcDbStub*> sequences_;                      // entities with parts of their own
  std::vector<AcDbStub*> sequenceParts_;                  // vertices, attributes and ends of sequences
  std::vector<AcDbStub*> viewports_;
};

}  // namespace krio::dwg
