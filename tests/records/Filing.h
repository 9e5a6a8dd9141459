#pragma once

#include <cstdint>
#include <string>
#include <type_traits>
#include <vector>

#include "host/db/db.h"

/// What the tests of filing share: a DWG filer that notes the typed items written to it, and readers of what a list of
/// groups holds.
namespace filing {

/// Notes each item as its type and its value, in order, and can be read from the start.
class NotingDwgFiler : public AcDbMemoryDwgFiler {
 public:
  explicit NotingDwgFiler(AcDb::FilerType type = AcDb::kFileFiler) : AcDbMemoryDwgFiler(type) {}

  std::vector<std::string> items;

  NotingDwgFiler& rewound() {
    seek(0);
    return *this;
  }

  Acad::ErrorStatus writeInt16(Adesk::Int16 v) override {
    note("Int16 ", v);
    return AcDbMemoryDwgFiler::writeInt16(v);
  }
  Acad::ErrorStatus writeInt32(Adesk::Int32 v) override {
    note("Int32 ", v);
    return AcDbMemoryDwgFiler::writeInt32(v);
  }
  Acad::ErrorStatus writeUInt32(Adesk::UInt32 v) override {
    note("UInt32 ", v);
    return AcDbMemoryDwgFiler::writeUInt32(v);
  }
  Acad::ErrorStatus writeBoolean(Adesk::Boolean v) override {
    note("Boolean ", v);
    return AcDbMemoryDwgFiler::writeBoolean(v);
  }
  Acad::ErrorStatus writeDouble(double v) override {
    note("double ", v);
    return AcDbMemoryDwgFiler::writeDouble(v);
  }
  Acad::ErrorStatus writePoint2d(const AcGePoint2d& v) override {
    items.push_back("Point2d " + number(v.x) + " " + number(v.y));
    return AcDbMemoryDwgFiler::writePoint2d(v);
  }
  Acad::ErrorStatus writePoint3d(const AcGePoint3d& v) override {
    items.push_back("Point3d " + number(v.x) + " " + number(v.y) + " " + number(v.z));
    return AcDbMemoryDwgFiler::writePoint3d(v);
  }
  Acad::ErrorStatus writeVector3d(const AcGeVector3d& v) override {
    items.push_back("Vector3d " + number(v.x) + " " + number(v.y) + " " + number(v.z));
    return AcDbMemoryDwgFiler::writeVector3d(v);
  }
  Acad::ErrorStatus writeString(const ACHAR* text) override {
    std::string noted = "string ";
    for (const ACHAR* c = text; c != nullptr && *c != L'\0'; ++c) noted += static_cast<char>(*c);
    items.push_back(noted);
    return AcDbMemoryDwgFiler::writeString(text);
  }
  Acad::ErrorStatus writeHardPointerId(const AcDbHardPointerId& id) override {
    items.emplace_back("hard pointer");
    return AcDbMemoryDwgFiler::writeHardPointerId(id);
  }

 private:
  static std::string number(double v) {
    char text[32];
    std::snprintf(text, sizeof text, "%.17g", v);
    return text;
  }
  template <class T>
  void note(const char* type, T v) {
    items.push_back(type + number(static_cast<double>(v)));
  }
};

/// The codes of the groups written.
inline std::vector<int> codes(const AcDbMemoryDxfFiler& filer) {
  std::vector<int> all;
  for (const AcDbMemoryDxfFiler::Group& group : filer.groups()) all.push_back(group.code);
  return all;
}

/// The code of the group that the filer would give next; 0 at the end.
inline int nextCode(AcDbMemoryDxfFiler& filer) {
  resbuf item{};
  return filer.readItem(&item) == Acad::eOk ? item.restype : 0;
}

}  // namespace filing
