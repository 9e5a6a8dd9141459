#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Filing.h"
#include "TestData.h"
#include "records/KrObjectSplitList.h"

namespace {

KrObjectSplit splitAt(double z, double length) {
  KrObjectSplit split;
  split.setZPos(z);
  split.setLength(length);
  return split;
}

class KrObjectSplitTest : public testing::Test {
 protected:
  void SetUp() override { registerTestData(); }
  void TearDown() override { EXPECT_EQ(TestData::alive, 0); }

  static KrObjectSplitList splits(int count) {
    KrObjectSplitList list;
    for (int i = 0; i < count; ++i) list.append(splitAt(100 * i, 10 + i));
    return list;
  }
};

}  // namespace

TEST_F(KrObjectSplitTest, NewSplitHasNoPlaceAndNoWidth) {
  const KrObjectSplit split;
  EXPECT_EQ(split.zPos(), 0.0);
  EXPECT_EQ(split.length(), 0.0);
  EXPECT_EQ(split.accessCData(), nullptr);
}

TEST_F(KrObjectSplitTest, OffsetsItsPlace) {
  KrObjectSplit split = splitAt(100, 20);
  split.zOffset(-30);
  EXPECT_EQ(split.zPos(), 70.0);
  EXPECT_EQ(split.length(), 20.0);
}

TEST_F(KrObjectSplitTest, EverySplitOwnsItsData) {
  const TestData data(5);
  KrObjectSplit split = splitAt(100, 20);
  split.setCData(&data);
  const KrObjectSplit copy(split);
  KrObjectSplit assigned;
  assigned = split;
  KrObjectSplitList list;
  list.append(split);
  for (const KrObjectSplit* other :
       {&copy, static_cast<const KrObjectSplit*>(&assigned), static_cast<const KrObjectSplit*>(&list[0])}) {
    EXPECT_EQ(numberOf(other->accessCData()), 5);
    EXPECT_NE(other->accessCData(), split.accessCData());
  }
  split.purgeCData(OtherTestData::desc());
  EXPECT_NE(split.accessCData(), nullptr);
  split.purgeCData(TestData::desc());
  EXPECT_EQ(split.accessCData(), nullptr);
  EXPECT_EQ(numberOf(copy.accessCData()), 5);
}

TEST_F(KrObjectSplitTest, ListsApplyToEachSplit) {
  KrObjectSplitList list = splits(3);
  const TestData data(5);
  for (int i = 0; i < 3; ++i) list[i].setCData(&data);
  list.zOffset(7);
  EXPECT_EQ(list[2].zPos(), 207.0);
  list.purgeCData(nullptr);
  EXPECT_EQ(list[1].accessCData(), nullptr);
}

TEST_F(KrObjectSplitTest, DwgListReadsBackWithItsData) {
  KrObjectSplitList list = splits(2);
  const TestData data(5);
  list[1].setCData(&data);
  filing::NotingDwgFiler filer;
  EXPECT_EQ(list.dwgOutFields(&filer), Acad::eOk);
  const std::vector<std::string> expected = {"Int16 1",    "Int32 2",   "double 0",        "double 10", "string ",
                                             "double 100", "double 11", "string TestData", "Int32 5"};
  EXPECT_EQ(filer.items, expected);
  KrObjectSplitList read = splits(4);
  EXPECT_EQ(read.dwgInFields(&filer.rewound()), Acad::eOk);
  ASSERT_EQ(read.length(), 2);
  EXPECT_EQ(read[1].zPos(), 100.0);
  EXPECT_EQ(read[1].length(), 11.0);
  EXPECT_EQ(numberOf(read[1].accessCData()), 5);
}

TEST_F(KrObjectSplitTest, DwgListOfANewerVersionIsLeftToAProxyAndTheListAsItWas) {
  filing::NotingDwgFiler filer;
  filer.writeInt16(2);
  KrObjectSplitList list = splits(3);
  EXPECT_EQ(list.dwgInFields(&filer.rewound()), Acad::eMakeMeProxy);
  EXPECT_EQ(list.length(), 3);
}

TEST_F(KrObjectSplitTest, DwgListOfVersion0HasSplitsOfZeroValues) {
  filing::NotingDwgFiler filer;
  filer.writeInt16(0);
  filer.writeInt32(2);
  KrObjectSplitList list = splits(3);
  EXPECT_EQ(list.dwgInFields(&filer.rewound()), Acad::eOk);
  ASSERT_EQ(list.length(), 2);
  EXPECT_EQ(list[1].zPos(), 0.0);
}

TEST_F(KrObjectSplitTest, AnErrorOfTheDataIsIgnored) {
  KrObjectSplitList list = splits(3);
  const TestData data(5);
  list[1].setCData(&data);
  filing::NotingDwgFiler filer;
  list.dwgOutFields(&filer);
  TestData::result = Acad::eInvalidInput;
  KrObjectSplitList read;
  EXPECT_EQ(read.dwgInFields(&filer.rewound()), Acad::eOk);
  EXPECT_EQ(read.length(), 3);
  EXPECT_EQ(read[2].length(), 12.0);
}

// Positions and widths don't survive DXF.
TEST_F(KrObjectSplitTest, DxfListHasTheCountAndZeroValues) {
  AcDbMemoryDxfFiler filer;
  EXPECT_EQ(splits(3).dxfOutFields(&filer), Acad::eOk);
  EXPECT_EQ(filing::codes(filer), (std::vector<int>{70, 90}));
  EXPECT_EQ(std::get<Adesk::Int64>(filer.groups()[0].value), 1);
  filer.rewindFiler();
  KrObjectSplitList read = splits(5);
  EXPECT_EQ(read.dxfInFields(&filer), Acad::eOk);
  ASSERT_EQ(read.length(), 3);
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(read[i].zPos(), 0.0);
    EXPECT_EQ(read[i].length(), 0.0);
  }
}

TEST_F(KrObjectSplitTest, DxfVersionMayBeAnyAndAWrongGroupGoesBack) {
  AcDbMemoryDxfFiler any;
  any.writeItem(70, Adesk::Int16(44));
  any.writeItem(90, Adesk::Int32(1));
  any.rewindFiler();
  KrObjectSplitList list = splits(3);
  EXPECT_EQ(list.dxfInFields(&any), Acad::eOk);
  EXPECT_EQ(list.length(), 1);

  AcDbMemoryDxfFiler first;
  first.writeItem(90, Adesk::Int32(1));
  first.rewindFiler();
  EXPECT_EQ(list.dxfInFields(&first), Acad::eInvalidResBuf);
  EXPECT_EQ(list.length(), 1);
  EXPECT_EQ(filing::nextCode(first), 90);

  AcDbMemoryDxfFiler second;
  second.writeItem(70, Adesk::Int16(1));
  second.writeItem(40, 1.0);
  second.rewindFiler();
  EXPECT_EQ(list.dxfInFields(&second), Acad::eInvalidResBuf);
  EXPECT_EQ(list.length(), 0);
  EXPECT_EQ(filing::nextCode(second), 40);
}

// Nothing in the file stands behind such a count.
TEST_F(KrObjectSplitTest, ACountThatNothingStandsBehindIsHeldDown) {
  AcDbMemoryDxfFiler filer;
  filer.writeItem(70, Adesk::Int16(1));
  filer.writeItem(90, Adesk::Int32(2000000000));
  filer.rewindFiler();
  KrObjectSplitList list;
  EXPECT_EQ(list.dxfInFields(&filer), Acad::eOk);
  EXPECT_EQ(list.length(), 65535);
}
