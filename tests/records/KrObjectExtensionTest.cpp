#include "records/KrObjectExtension.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Filing.h"
#include "records/KrObjectTextExtension.h"

namespace {

/// An extension of a test: a number, filed as an Int32.
class NumberExtension : public KrObjectExtension {
 public:
  ACRX_DECLARE_MEMBERS(NumberExtension);

  Acad::ErrorStatus dwgOutFieldsExtension(AcDbDwgFiler* filer) const override {
    KrObjectExtension::dwgOutFieldsExtension(filer);
    return filer->writeInt32(number);
  }
  Acad::ErrorStatus dwgInFieldsExtension(AcDbDwgFiler* filer) override {
    if (const Acad::ErrorStatus es = KrObjectExtension::dwgInFieldsExtension(filer); es != Acad::eOk) return es;
    Adesk::Int32 filed = 0;
    filer->readInt32(&filed);
    number = filed;
    return filer->filerStatus();
  }

  int number = 0;
};

class KrObjectExtensionTest : public testing::Test {
 protected:
  void SetUp() override {
    KrObjectExtension::rxInit();
    KrObjectTextExtension::rxInit();
    NumberExtension::rxInit();
    acrxBuildClassHierarchy();
  }
};

}  // namespace

ACRX_CONS_DEFINE_MEMBERS(NumberExtension, KrObjectExtension, 1)

TEST_F(KrObjectExtensionTest, RegistersAsAnAbstractChildOfTheRoot) {
  EXPECT_STREQ(KrObjectExtension::desc()->name(), L"KrObjectExtension");
  EXPECT_EQ(KrObjectExtension::desc()->myParent(), AcRxObject::desc());
  EXPECT_EQ(KrObjectExtension::desc()->create(), nullptr);
  EXPECT_STREQ(KrObjectTextExtension::desc()->name(), L"KrObjectTextExtension");
  EXPECT_EQ(KrObjectTextExtension::desc()->myParent(), KrObjectExtension::desc());
}

TEST_F(KrObjectExtensionTest, OffersNothingByItself) {
  NumberExtension extension;
  EXPECT_EQ(extension.curExtendedObj(), nullptr);
  EXPECT_EQ(extension.extensionId(), 0U);
  AcArray<AcGePoint3d> points;
  AcArray<int> modes;
  AcArray<int> ids;
  EXPECT_EQ(extension.getExtensionGripPoints(points, modes, ids), Acad::eNotImplementedYet);
  EXPECT_EQ(extension.moveExtensionGripPointsAt(ids, AcGeVector3d(1, 0, 0), 0), Acad::eNotImplementedYet);
  int regen = 0;
  EXPECT_EQ(extension.extensionWorldDraw(regen, nullptr), 1);
}

TEST_F(KrObjectExtensionTest, FilesItsVersionAndItsId) {
  NumberExtension extension;
  extension.setExtensionId(6);
  filing::NotingDwgFiler filer;
  EXPECT_EQ(extension.KrObjectExtension::dwgOutFieldsExtension(&filer), Acad::eOk);
  EXPECT_EQ(filer.items, (std::vector<std::string>{"UInt32 1", "UInt32 6"}));
  NumberExtension read;
  EXPECT_EQ(read.KrObjectExtension::dwgInFieldsExtension(&filer.rewound()), Acad::eOk);
  EXPECT_EQ(read.extensionId(), 6U);
}

TEST_F(KrObjectExtensionTest, ANewerVersionGivesTwoAndVersion0ReadsNothing) {
  filing::NotingDwgFiler filer;
  filer.writeUInt32(2);
  filer.writeUInt32(0);
  filer.writeUInt32(9);
  filer.seek(0);
  NumberExtension extension;
  extension.setExtensionId(3);
  EXPECT_EQ(static_cast<int>(extension.KrObjectExtension::dwgInFieldsExtension(&filer)), 2);
  EXPECT_EQ(extension.KrObjectExtension::dwgInFieldsExtension(&filer), Acad::eOk);
  EXPECT_EQ(extension.extensionId(), 3U);
}

TEST_F(KrObjectExtensionTest, CopyFromTakesWhatIsFiledAndKeepsTheId) {
  NumberExtension source;
  source.setExtensionId(9);
  source.number = 42;
  NumberExtension target;
  target.setExtensionId(2);
  EXPECT_EQ(target.copyFrom(&source), Acad::eOk);
  EXPECT_EQ(target.number, 42);
  EXPECT_EQ(target.extensionId(), 2U);
  EXPECT_EQ(target.copyFrom(nullptr), Acad::eOk);
  EXPECT_EQ(target.number, 42);
}

TEST_F(KrObjectExtensionTest, ATextStandsOnTheFirstAxisAndTurnsWithTheMemberByDefault) {
  const KrObjectTextExtension text;
  EXPECT_EQ(text.optionFlags(), 9U);
  EXPECT_EQ(text.text(), nullptr);
  EXPECT_EQ(text.isRelativeOriented(), 1);
  EXPECT_EQ(text.textHeight(), 0.0);
  EXPECT_EQ(text.textAngle(), 0.0);
  EXPECT_TRUE(text.layerId() == AcDbObjectId::kNull);
  EXPECT_TRUE(text.textStyleId() == AcDbObjectId::kNull);
}

TEST_F(KrObjectExtensionTest, FlagsAreClearedAndThenSet) {
  KrObjectTextExtension text;
  text.modifyOptionFlags(0x8, 0x4 | 0x100);
  EXPECT_EQ(text.optionFlags(), 0x105U);
  text.modifyOptionFlags(0x100, 0x100);
  EXPECT_EQ(text.optionFlags(), 0x105U);
  text.setIsRelativeOriented(0);
  EXPECT_EQ(text.optionFlags(), 0x104U);
  text.setIsRelativeOriented(2);
  EXPECT_EQ(text.optionFlags(), 0x105U);
}

TEST_F(KrObjectExtensionTest, ATextIsAPrivateCopyThatAssignedExtensionsShare) {
  std::wstring given = L"P1";
  KrObjectTextExtension text;
  text.setText(given.c_str());
  given = L"P2";
  EXPECT_STREQ(text.text(), L"P1");
  KrObjectTextExtension assigned;
  assigned = text;
  EXPECT_EQ(assigned.text(), text.text());
  text.setText(L"P3");
  EXPECT_STREQ(assigned.text(), L"P1");
  text.setText(nullptr);
  EXPECT_EQ(text.text(), nullptr);
}

TEST_F(KrObjectExtensionTest, ATextFilesItsFieldsInOrderAndReadsBack) {
  KrObjectTextExtension text;
  text.setExtensionId(1);
  text.setText(L"P1");
  text.setTextAngle(0.5);
  text.setTextHeight(2.5);
  text.setVecOffset(AcGeVector3d(1, 2, 3));
  text.modifyOptionFlags(0, 0x40);
  filing::NotingDwgFiler filer;
  EXPECT_EQ(text.dwgOutFieldsExtension(&filer), Acad::eOk);
  const std::vector<std::string> expected = {"UInt32 1",   "UInt32 1",       "UInt32 1",     "string P1",
                                             "UInt32 73",  "Vector3d 1 2 3", "hard pointer", "hard pointer",
                                             "double 2.5", "double 0.5"};
  EXPECT_EQ(filer.items, expected);
  KrObjectTextExtension read;
  EXPECT_EQ(read.dwgInFieldsExtension(&filer.rewound()), Acad::eOk);
  EXPECT_STREQ(read.text(), L"P1");
  EXPECT_EQ(read.textAngle(), 0.5);
  EXPECT_EQ(read.textHeight(), 2.5);
  EXPECT_EQ(read.vecOffset(), AcGeVector3d(1, 2, 3));
  EXPECT_EQ(read.optionFlags(), 73U);
}

TEST_F(KrObjectExtensionTest, ATextOfANewerVersionGivesTwoAndOfVersion0ReadsNothingMore) {
  for (const Adesk::UInt32 version : {2U, 0U}) {
    filing::NotingDwgFiler filer;
    filer.writeUInt32(1);
    filer.writeUInt32(1);
    filer.writeUInt32(version);
    KrObjectTextExtension text;
    text.setText(L"P1");
    EXPECT_EQ(text.dwgInFieldsExtension(&filer.rewound()), version == 2 ? Acad::eNotApplicable : Acad::eOk);
    EXPECT_STREQ(text.text(), L"P1");
  }
}

TEST_F(KrObjectExtensionTest, ATextWithoutAMemberDrawsNothingAndHasNoGrip) {
  KrObjectTextExtension text;
  text.setText(L"P1");
  int regen = 0;
  EXPECT_EQ(text.extensionWorldDraw(regen, nullptr), 1);
  AcArray<AcGePoint3d> points;
  AcArray<int> modes;
  AcArray<int> ids;
  text.getExtensionGripPoints(points, modes, ids);
  EXPECT_EQ(points.length(), 0);
}
