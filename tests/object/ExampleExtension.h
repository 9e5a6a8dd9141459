#pragma once

#include <string>

#include "host/db/db.h"
#include "host/gi/gi.h"
#include "object/KrObject.h"
#include "records/KrObjectExtension.h"
#include "records/KrObjectModCData.h"

/// What another module might hang on members: an erection mark, a ring with a number at the bar's start, which is
/// dragged by a grip.
class ErectionMark : public KrObjectExtension {
 public:
  ACRX_DECLARE_MEMBERS(ErectionMark);

  ErectionMark() = default;
  ErectionMark(int n, double r) : number(n), radius(r) {}

  int number = 0;
  double radius = 0;
  AcGeVector3d offset;
  AcDbObjectId drawingOf;  ///< where the mark is told of

  AcGePoint3d centre() const { return curExtendedObj()->startPoint() + offset; }

  int extensionWorldDraw(int&, AcGiWorldDraw* mode) override {
    mode->geometry().circle(centre(), radius, AcGeVector3d::kZAxis);
    return 1;
  }
  Acad::ErrorStatus getExtensionGripPoints(AcArray<AcGePoint3d>& points, AcArray<int>&, AcArray<int>&) const override {
    points.append(centre());
    return Acad::eOk;
  }
  Acad::ErrorStatus moveExtensionGripPointsAt(const AcArray<int>& indices, const AcGeVector3d& by,
                                              int firstIndex) override {
    assertWriteEnabled();
    if (indices.contains(firstIndex)) offset += by;
    return Acad::eOk;
  }
  Acad::ErrorStatus dwgOutFieldsExtension(AcDbDwgFiler* filer) const override {
    KrObjectExtension::dwgOutFieldsExtension(filer);
    filer->writeInt32(number);
    filer->writeDouble(radius);
    filer->writeVector3d(offset);
    filer->writeSoftPointerId(AcDbSoftPointerId(drawingOf));
    return filer->filerStatus();
  }
  Acad::ErrorStatus dwgInFieldsExtension(AcDbDwgFiler* filer) override {
    if (const Acad::ErrorStatus es = KrObjectExtension::dwgInFieldsExtension(filer); es != Acad::eOk) return es;
    Adesk::Int32 filed = 0;
    filer->readInt32(&filed);
    number = filed;
    filer->readDouble(&radius);
    filer->readVector3d(&offset);
    AcDbSoftPointerId id;
    filer->readSoftPointerId(&id);
    drawingOf = id;
    return filer->filerStatus();
  }
};

/// Data of one modifier: the bolt that goes through a hole, the weld along a notch.
class BoltData : public KrObjectModCData {
 public:
  ACRX_DECLARE_MEMBERS(BoltData);

  BoltData() = default;
  explicit BoltData(const wchar_t* bolt) : name(bolt) {}

  std::wstring name;
  int goesWithACopy = 1;

  int saveOnCopy() const override { return goesWithACopy; }
  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override {
    ACHAR* text = nullptr;
    filer->readString(&text);
    name = text != nullptr ? text : L"";
    acutDelString(text);
    return filer->filerStatus();
  }
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override {
    filer->writeString(name.c_str());
    return filer->filerStatus();
  }
};

/// What the start of that module does, and what its unload does.
inline void loadExampleModule() {
  ErectionMark::rxInit();
  BoltData::rxInit();
  acrxBuildClassHierarchy();
}
inline void unloadExampleModule() {
  deleteAcRxClass(ErectionMark::desc());
  deleteAcRxClass(BoltData::desc());
}
