#pragma once

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "host/db/db.h"
#include "host/io/dxf/DxfDrawing.h"
#include "host/io/dxf/DxfInFiler.h"

namespace krio::dxf {

/// The groups that all objects have. One of these serves all: it keeps its memory.
struct Frame {
  std::uint64_t handle = 0;
  AcDbStub* owner = nullptr;
  AcDbObjectId extensionDictionary;
  std::vector<AcDbObjectId> reactors;
  resbuf* extendedData = nullptr;

  // Of entities.
  AcDbStub* layer = nullptr;
  AcDbStub* linetype = nullptr;
  AcDbStub* plotStyle = nullptr;
  double linetypeScale = 1.0;
  AcCmColor color;
  int lineWeight = AcDb::kLnWtByLayer;
  bool invisible = false;
  bool paperSpace = false;
  std::vector<std::byte> graphics;
  std::size_t graphicsSize = 0;  // as announced

  bool hasRareParts = false;
  bool sawMarker = false;

  Frame() = default;
  Frame(const Frame&) = delete;
  Frame& operator=(const Frame&) = delete;
  ~Frame() { acutRelRb(extendedData); }
  void reset();
};

/// What a kind of object in the file is here.
struct ObjectKind {
  AcRxClass* rxClass = nullptr;  // null: none that can be made
  std::optional<AcDbClassRecord> record;
  bool isHosts = false;  // of the host itself
};

/// Reads the groups that all objects have, and objects by their class.
class FrameReader {
 public:
  explicit FrameReader(Drawing& drawing);

  Input& in() { return in_; }
  Drawing& drawing() { return drawing_; }
  Frame& frame() { return frame_; }

  /// To be called when group 0 of an object has been read.
  void begin() { frame_.reset(); }
  /// Takes the group read last when it is one that all objects, or with `entity` all entities, have.
  bool take(bool entity);
  /// Reads up to the class's own groups. Gives whether there are markers: without, as in files of old versions, the
  /// class's groups stand among the common ones, and the scanner goes back to the first of them.
  bool readAll(bool entity);
  /// Reads the extended data at which the scanner stands.
  void readExtendedData();

  /// Whether objects of that name are entities by the file's list of classes.
  bool isEntity(std::string_view dxfName);
  /// What the name of an object means.
  const ObjectKind& kindOf(std::string_view dxfName, bool entity);

  /// Has an object read its own groups. Gives whether it took them: if not, the scanner stands at the first again, and
  /// `why` tells.
  bool readFields(AcDbObject& object, bool markers, bool isHosts, std::string& why);
  /// Keeps the groups up to the extended data.
  void keepGroups(AcDbProxyData& data);
  /// Keeps the group read last. Recovering, one that isn't of its kind becomes 0, and a point gets its second
  /// coordinate.
  void keepGroup(AcDbProxyGroups& groups);
  /// A value as a proxy keeps it: a return within it, where other programs end the line, stands as ^M.
  std::string keptText(std::string_view value) const;
  /// Reads the groups of a proxy's record as another program wrote it. The picture goes to the frame.
  void readProxyRecord(AcDbProxyData& data);
  void describe(AcDbProxyData& data, std::string_view dxfName, const ObjectKind& kind);

  /// Gives an object that isn't in the database yet the rare things of the frame.
  void applyRareParts(AcDbObject& object);
  /// Appends the bytes of the group read last.
  void takePreview(std::vector<std::byte>& bytes);

 private:
  void takeControlGroup();
  /// Whether a group behind the first that is the object's own, in an object without markers, is its own as well though
  /// it has the code of what every object has: it has that already, or bytes would be ambiguous.
  bool isOwn(int code) const;
  void takeGraphics();
  AcDbStub* stubOfValue();

  Drawing& drawing_;
  Input& in_;
  InFiler filer_;
  Frame frame_;
  AcDbProxyGroups groups_;  // of the object that is read; what it keeps takes no more than it needs
  std::unordered_map<std::string, ObjectKind> entityKinds_, objectKinds_;
  std::unordered_map<std::wstring, AcRxClass*> byDxfName_;
  std::string_view lastOwnerText_;
  AcDbStub* lastOwner_ = nullptr;
};

/// Whether the name is one of those that the file's own structure has, or holds what no name can: no object's.
bool isStructural(std::string_view name, const CodePage& page);

/// Number of the fixed type of an object in a DWG; 0 for a name that has none.
int fixedTypeOf(std::string_view dxfName);

/// Reads entities into the blocks that own them.
class EntityReader {
 public:
  explicit EntityReader(FrameReader& frames);

  /// Reads the entity whose group 0 was read last. One that doesn't tell its owner goes into `block`, or into the space
  /// that it names.
  void read(AcDbBlockTableRecord* block);
  /// Reads the entity whose group 0 was read last and which stands among the objects: it belongs to one of them.
  void readStray();
  /// Gives an entity that isn't in the database yet the common properties of the frame.
  void applyFrame(AcDbEntity& entity);
  /// What only the end of the file tells.
  void finish();

 private:
  void readLine();
  void readArc();
  void readCircle();
  void readPolyline();
  void readText();
  void readByClass(std::string_view name);
  void setTextStyle(AcDbEntity& entity) const;
  void readProxy(std::string_view name, const ObjectKind& kind);
  AcRxClass* classAhead(std::string_view name, const ObjectKind& kind);
  void keepSequence(AcDbProxyData& data);

  /// Puts the entity into the database; null when the reading has stopped.
  template <class T>
  T* attach(std::unique_ptr<T> entity);
  AcDbStub* ownerOf(bool part);
  void list(AcDbStub* stub);
  /// What is read now is no part of the entity before: its sequence should have ended.
  void leaveSequence();

  FrameReader& frames_;
  Drawing& drawing_;
  Input& in_;
  Frame& frame_;
  AcDbBlockTableRecord* block_ = nullptr;
  bool isStray_ = false;             // the entity that is read belongs to an object that isn't a block
  bool isPart_ = false;              // the entity that is read belongs to another one
  bool endsSequence_ = false;        // it is the end of the other's parts
  AcDbEntity* parent_ = nullptr;     // whose vertices or attributes follow
  AcDbStub* listedOwner_ = nullptr;  // the block that the last entity went to
  AcDbBlockTableRecord* listedBlock_ = nullptr;
  std::unordered_map<AcDbStub*, std::vector<AcDbStub*>> inserts_;
};

}  // namespace krio::dxf
