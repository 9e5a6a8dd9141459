#pragma once

#include <algorithm>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "frame/Module.h"
#include "host/gi/Recorder.h"
#include "host/io/DwgTools.h"
#include "host/io/dxf/Dxf.h"
#include "object/Drawing.h"
#include "object/EveryClass.h"
#include "object/ExampleExtension.h"
#include "records/KrObjectTextExtension.h"

/// Drawings with members on their way through files.
namespace trips {

using dwgtools::Bytes;
using dwgtools::textOf;
using everyclass::Sample;

enum class Form { kDwg, kDxf };

/// What a drawing is as a file. The writer has nothing to say of it.
inline Bytes saved(AcDbDatabase& database, Form form) {
  if (form == Form::kDwg) return dwgtools::saved(database);
  Bytes bytes;
  krio::Report report;
  EXPECT_EQ(krio::writeDxf(database, bytes, report), Acad::eOk) << textOf(report);
  EXPECT_TRUE(report.clean()) << textOf(report);
  return bytes;
}

/// An opened file, which is the working drawing for the life of this object.
class Opened {
 public:
  explicit Opened(const Bytes& bytes) : database_(std::make_unique<AcDbDatabase>(false)) {
    acdbHostApplicationServices()->setWorkingDatabase(database_.get());
    const Acad::ErrorStatus es =
        krio::isDwg(bytes) ? krio::readDwg(bytes, *database_, report) : krio::readDxf(bytes, *database_, report);
    EXPECT_EQ(es, Acad::eOk) << textOf(report);
    EXPECT_EQ(database_->numOpenObjects(), 0);
  }
  ~Opened() {
    for (AcDbObject* const object : looked_) object->close();
    database_.reset();
    acdbHostApplicationServices()->setWorkingDatabase(before_);
  }
  Opened(const Opened&) = delete;
  Opened& operator=(const Opened&) = delete;

  AcDbDatabase& database() { return *database_; }

  AcDbObjectId idOf(AcDbHandle handle) { return AcDbObjectId(database_->handleTable().find(handle.value())); }

  /// The object of a handle, open for read as long as this lives; null when there is none.
  AcDbObject* at(AcDbHandle handle) {
    AcDbStub* const stub = database_->handleTable().find(handle.value());
    if (stub == nullptr || stub->object == nullptr) return nullptr;
    if (looked_.insert(stub->object).second) {
      AcDbObject* open = nullptr;
      EXPECT_EQ(acdbOpenObject(open, AcDbObjectId(stub), AcDb::kForRead), Acad::eOk);
    }
    return stub->object;
  }
  template <class T>
  T* at(AcDbHandle handle) {
    return T::cast(at(handle));
  }

  krio::Report report;

 private:
  AcDbDatabase* before_ = acdbHostApplicationServices()->workingDatabase();
  std::unique_ptr<AcDbDatabase> database_;
  std::set<AcDbObject*> looked_;
};

inline std::string ascii(const wchar_t* text) {
  std::string narrow;
  for (; *text != L'\0'; ++text) narrow += static_cast<char>(*text);
  return narrow;
}

/// What an entity draws, as text. Layers go by their handles.
inline std::string picture(AcDbEntity& entity) {
  gi::Recorder recorder;
  recorder.setDatabase(entity.database());
  AcDbEntity* open = nullptr;
  EXPECT_EQ(acdbOpenObject(open, entity.objectId(), AcDb::kForRead), Acad::eOk);
  recorder.drawWhole(*open);
  open->close();
  return toText(recorder.figures());
}

/// All that a member tells of itself.
struct Told {
  std::wstring profile, dimensions, name;
  double area, perimeter, painted, weight, height, width, thickness, zIni, zEnd;
  int holes, cuts, role;
  unsigned short material;
  bool operator==(const Told&) const = default;
};

inline Told told(KrObject& member) {
  ACHAR profile[400] = {};
  ACHAR dimensions[400] = {};
  ACHAR name[400] = {};
  member.getPerfil(profile);
  member.getDimensoes(dimensions);
  member.UserName(name);
  unsigned short material = 0;
  member.Material(material);
  return {profile,
          dimensions,
          name,
          member.getArea(),
          member.getPerimetro(),
          member.getAreaPintura(),
          member.getPeso(),
          member.getAltura(),
          member.getLargura(),
          member.getEspessura(),
          member.zCoordIni(),
          member.zCoordEnd(),
          member.numFuros(),
          member.numCortes(),
          member.tipoBarra(),
          material};
}

/// Opens an object for the life of this one.
template <class T>
class Open {
 public:
  Open(AcDbObjectId id, AcDb::OpenMode mode) { EXPECT_EQ(acdbOpenObject(object_, id, mode), Acad::eOk); }
  ~Open() {
    if (object_ != nullptr) object_->close();
  }
  Open(const Open&) = delete;
  Open& operator=(const Open&) = delete;
  T* operator->() { return object_; }
  T& operator*() { return *object_; }

 private:
  T* object_ = nullptr;
};

inline constexpr KrVistas kViews[] = {Secao, Superior, Inferior, Esquerda, Direita, SecaoVerso};

/// A bar with everything done to it that can be: holes, a cut, a notch, a split, visual limits, all with data of
/// another module, a name, levels, a role, a text and a mark. A section shows what was done in an elevation.
inline std::unique_ptr<KrObject> rich(const Sample& sample, KrVistas view) {
  const bool isSection = view == Secao || view == SecaoVerso;
  std::unique_ptr<KrObject> member = sample.make(view);
  if (isSection) {
    const std::unique_ptr<KrObject> elevation = sample.make(Superior);
    EXPECT_EQ(everyclass::modify(*elevation), 3);
    member->copyModifiersFrom(*elevation);
  } else {
    EXPECT_EQ(everyclass::modify(*member), 3);
  }
  KrObjectSplit split;
  split.setZPos(400);
  split.setLength(20);
  member->addSplit(split, 0);
  member->setVisualRepStart(0.05);
  member->setVisualRepEnd(0.9);
  member->setVisualRepScale(2);
  BoltData bolt(L"M16 \u00d7 45 \u0436");
  for (const ObjMods kind : {ModFuro, ModCorte, ModRecorte, ModSplit})
    if (kind != ModRecorte || !isSection) member->assocCDataToMod(kind, 0, &bolt);
  member->setUserName(L"V\u00e3o 12 \u2013 \u0421");
  member->setZCoordIni(150);
  member->setZCoordEnd(-75.5);
  member->settipoBarra(Viga);
  member->setMaterial(3);
  auto* const text = new KrObjectTextExtension;
  text->setText(L"P12 \u2264 3");
  text->setTextHeight(30);
  text->setVecOffset(AcGeVector3d(10, -20, 0));
  member->addKrObjectExtension(text);
  auto* const mark = new ErectionMark(17, 25);
  mark->offset = AcGeVector3d(5, 6, 0);
  member->addKrObjectExtension(mark);
  member->Gera_KrVector();
  return member;
}

/// A class of which a file holds nothing.
inline bool filesNothing(const std::wstring& name) {
  return name == L"KrUser";
}

/// One member of a drawing: of which class, in which view, under which id.
struct Placed {
  std::wstring name;
  KrVistas view;
  AcDbObjectId id;
  std::string label() const { return ascii(name.c_str()) + " in view " + std::to_string(view); }
};

/// Every class in every view, the views of a bar linked with each other, each bar with a dimension and a mark; plain
/// entities beside them.
class MemberDrawing : public Drawing {
 public:
  MemberDrawing() {
    loadExampleModule();
    append(new AcDbLine({10, 20, 0}, {110, 70, 0}));
    append(new AcDbCircle({50, 50, 0}, AcGeVector3d::kZAxis, 25));
    append(new AcDbArc({300, 20, 0}, 40, 0.25, 2.5));
    auto* const outline = new AcDbPolyline(4);
    const AcGePoint2d corners[] = {{0, 0}, {200, 0}, {200, 100}, {0, 100}};
    for (unsigned i = 0; i < 4; ++i) outline->addVertexAt(i, corners[i], i == 1 ? 0.5 : 0.0);
    outline->setClosed(true);
    append(outline);
    for (const Sample& sample : everyclass::samples()) addBar(sample);
    // A dimension that goes while the members still name it.
    Open<AcDbEntity>(erased, AcDb::kForWrite)->erase();
  }

  std::vector<Placed> members;
  AcDbObjectId dimension, erased, mark;

 private:
  void addBar(const Sample& sample) {
    dimension = append(new AcDbAlignedDimension({100, 200, 0}, {3100, 200, 0}, {1600, 500, 0}, L""));
    const AcDbObjectId gone =
        erased.isNull() ? append(new AcDbAlignedDimension({100, 200, 0}, {600, 200, 0}, {300, 500, 0}, L"")) : erased;
    erased = gone;
    mark = append(new AcDbText({100, 200, 0}, L"P12", AcDbObjectId::kNull, 30, 0.0));
    AcDbObjectIdArray group, dimensions, marks;
    const std::size_t first = members.size();
    for (const KrVistas view : kViews) {
      KrObject* const member = rich(sample, view).release();
      member->setLayer(L"PERFIL");
      members.push_back({sample.name, view, append(member)});
      group.append(members.back().id);
    }
    dimensions.append(gone);
    dimensions.append(dimension);
    marks.append(mark);
    for (std::size_t i = first; i < members.size(); ++i) {
      Open<KrObject> member(members[i].id, AcDb::kForWrite);
      AcDbObjectIdArray others = group;
      others.remove(members[i].id);
      member->setRelativeObj(&others);
      member->setRelativeDim(&dimensions);
      member->setRelativePos(&marks);
      static_cast<ErectionMark*>(const_cast<KrObjectExtension*>(member->getKrObjectExtension(2)))->drawingOf = mark;
    }
  }
};

/// Those whose DXF form is nothing at all.
inline bool hasNoDxf(const std::wstring& name) {
  return name == L"KrBox" || name == L"KrBarraRedonda" || name == L"KrUser";
}

/// The same of what a digest begins with.
inline bool hasNoDxf(const std::string& fields) {
  return fields.starts_with("KrBox") || fields.starts_with("KrBarraRedonda") || fields.starts_with("KrUser");
}

/// A DXF's objects as their groups in text, by handle; what has none, by its kind and number.
inline std::map<std::string, std::string> records(const Bytes& dxf) {
  const std::string_view text(reinterpret_cast<const char*>(dxf.data()), dxf.size());
  std::map<std::string, std::string> all;
  std::string record, key;
  const auto finish = [&] {
    if (!record.empty()) all[key.empty() ? "#" + std::to_string(all.size()) : key] = record;
    record.clear();
    key.clear();
  };
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t codeEnd = text.find('\n', at);
    const std::size_t end = text.find('\n', codeEnd + 1);
    const std::string_view code = text.substr(at, codeEnd - at);
    if (code == "  0") finish();
    if (code == "  5" && key.empty()) key = text.substr(codeEnd + 1, end - codeEnd - 1);
    record += text.substr(at, end + 1 - at);
    at = end + 1;
  }
  finish();
  return all;
}

}  // namespace trips
