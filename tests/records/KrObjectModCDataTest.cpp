#include "records/KrObjectModCData.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "Filing.h"
#include "TestData.h"

namespace {

class KrObjectModCDataTest : public testing::Test {
 protected:
  void SetUp() override { registerTestData(); }
  void TearDown() override { EXPECT_EQ(TestData::alive, 0); }
};

/// A slot that deletes what it is left with.
struct Slot {
  ~Slot() { delete data; }
  KrObjectModCData* data = nullptr;
};

}  // namespace

TEST_F(KrObjectModCDataTest, RegistersAsAnAbstractChildOfTheRoot) {
  EXPECT_STREQ(KrObjectModCData::desc()->name(), L"KrObjectModCData");
  EXPECT_EQ(KrObjectModCData::desc()->myParent(), AcRxObject::desc());
  EXPECT_EQ(KrObjectModCData::desc()->create(), nullptr);
}

TEST_F(KrObjectModCDataTest, GoesWithACopyByDefault) {
  class Plain : public KrObjectModCData {
   public:
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler*) override { return Acad::eOk; }
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler*) const override { return Acad::eOk; }
  };
  EXPECT_EQ(Plain().saveOnCopy(), 1);
}

TEST_F(KrObjectModCDataTest, CopyFromMovesTheDataThroughAFiler) {
  const TestData source(42);
  TestData target;
  EXPECT_EQ(target.copyFrom(&source), Acad::eOk);
  EXPECT_EQ(target.number, 42);
}

TEST_F(KrObjectModCDataTest, CloneIsOfTheSameClass) {
  const OtherTestData source(42);
  const std::unique_ptr<AcRxObject> copy(source.clone());
  ASSERT_NE(copy, nullptr);
  EXPECT_EQ(copy->isA(), OtherTestData::desc());
  EXPECT_EQ(static_cast<OtherTestData*>(copy.get())->number, 42);
}

TEST_F(KrObjectModCDataTest, AnEmptySlotFilesTheEmptyText) {
  filing::NotingDwgFiler filer;
  EXPECT_EQ(KrObjectModCData::auxDwgOutFields(&filer, nullptr), Acad::eOk);
  EXPECT_EQ(filer.items, (std::vector<std::string>{"string "}));
  Slot slot;
  slot.data = new TestData(3);
  EXPECT_EQ(KrObjectModCData::auxDwgInFields(&filer.rewound(), &slot.data), Acad::eOk);
  EXPECT_EQ(slot.data, nullptr);
}

TEST_F(KrObjectModCDataTest, AFilledSlotFilesItsClassNameAndItsData) {
  const OtherTestData data(42);
  filing::NotingDwgFiler filer;
  EXPECT_EQ(KrObjectModCData::auxDwgOutFields(&filer, &data), Acad::eOk);
  EXPECT_EQ(filer.items, (std::vector<std::string>{"string OtherTestData", "Int32 42"}));
  Slot slot;
  EXPECT_EQ(KrObjectModCData::auxDwgInFields(&filer.rewound(), &slot.data), Acad::eOk);
  ASSERT_NE(slot.data, nullptr);
  EXPECT_EQ(slot.data->isA(), OtherTestData::desc());
  EXPECT_EQ(numberOf(slot.data), 42);
}

TEST_F(KrObjectModCDataTest, DataThatDoesNotGoWithACopyIsOnlyFiledInDrawings) {
  TestData data(42);
  data.goesWithACopy = 0;
  for (const AcDb::FilerType type : {AcDb::kCopyFiler, AcDb::kDeepCloneFiler, AcDb::kWblockCloneFiler}) {
    filing::NotingDwgFiler filer(type);
    KrObjectModCData::auxDwgOutFields(&filer, &data);
    EXPECT_EQ(filer.items, (std::vector<std::string>{"string "})) << type;
  }
  for (const AcDb::FilerType type : {AcDb::kFileFiler, AcDb::kUndoFiler, AcDb::kPageFiler}) {
    filing::NotingDwgFiler filer(type);
    KrObjectModCData::auxDwgOutFields(&filer, &data);
    EXPECT_EQ(filer.items, (std::vector<std::string>{"string TestData", "Int32 42"})) << type;
  }
}

TEST_F(KrObjectModCDataTest, AnUnregisteredClassIsLeftToAProxy) {
  filing::NotingDwgFiler filer;
  filer.writeString(L"DataOfAnotherModule");
  Slot slot;
  slot.data = new TestData(3);
  EXPECT_EQ(KrObjectModCData::auxDwgInFields(&filer.rewound(), &slot.data), Acad::eMakeMeProxy);
  EXPECT_EQ(slot.data, nullptr);
}

TEST_F(KrObjectModCDataTest, AClassThatIsNoDataIsLeftToAProxy) {
  filing::NotingDwgFiler filer;
  filer.writeString(L"KrObjectModCData");
  Slot slot;
  EXPECT_EQ(KrObjectModCData::auxDwgInFields(&filer.rewound(), &slot.data), Acad::eMakeMeProxy);
  EXPECT_EQ(slot.data, nullptr);
}

TEST_F(KrObjectModCDataTest, AFilerWithoutANameGivesTwo) {
  filing::NotingDwgFiler filer;
  Slot slot;
  EXPECT_EQ(KrObjectModCData::auxDwgInFields(&filer, &slot.data), Acad::eNotApplicable);
  EXPECT_EQ(static_cast<int>(Acad::eNotApplicable), 2);
}

TEST_F(KrObjectModCDataTest, TheResultOfTheDataIsPassedOn) {
  const TestData data(42);
  filing::NotingDwgFiler filer;
  KrObjectModCData::auxDwgOutFields(&filer, &data);
  TestData::result = Acad::eInvalidInput;
  Slot slot;
  EXPECT_EQ(KrObjectModCData::auxDwgInFields(&filer.rewound(), &slot.data), Acad::eInvalidInput);
  EXPECT_EQ(numberOf(slot.data), 42);
}
