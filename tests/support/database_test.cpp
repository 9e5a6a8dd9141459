#include "support/Database.h"

#include <gmock/gmock.h>

#include <numbers>

#include "Drawing.h"
#include "support/Layers.h"
#include "support/SideLibrary.h"

namespace {

constexpr double kPi = std::numbers::pi;

AcDbDatabase& database() {
  return *acdbHostApplicationServices()->workingDatabase();
}

class InDrawing : public testing::Test {
 protected:
  InDrawing() : folder_(KR_INSTALL_FOLDER) {
    bindSideLibrary();
    krCriaLayer(L"Aço", 4, L"continuous", 0, 0, 0, 0);
    getLayerIdFromString(L"Aço", layer_);
  }
  ~InDrawing() override { releaseSideLibrary(); }

  AcDbObjectId addLine() const {
    auto* line = new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0));
    line->setLayer(layer_);
    AcDbObjectId id;
    EXPECT_NE(append(line, id), 0);
    line->close();
    return id;
  }
  bool isLocked() const {
    int locked = 0;
    AcDbLayerTableRecord* record = nullptr;
    EXPECT_EQ(acdbOpenObject(record, layer_, AcDb::kForRead), Acad::eOk);
    locked = record->isLocked();
    record->close();
    return locked != 0;
  }
  void lock(bool locked) const {
    int before = 0;
    EXPECT_EQ(krLockLayer(layer_, locked, before), Acad::eOk);
  }

  InstallFolderSetting folder_;
  edhost::ConsoleCapture console_;
  Drawing drawing_;
  AcDbObjectId layer_;
};

TEST_F(InDrawing, IdsAreFoundByNameInEachTable) {
  AcDbObjectId id;
  EXPECT_EQ(getLayerIdFromString(L"0", id), Acad::eOk);
  EXPECT_EQ(id, database().layerZero());
  EXPECT_EQ(getLinetypeIdFromString(L"continuous", id), Acad::eOk);
  EXPECT_EQ(id, database().continuousLinetype());
  EXPECT_EQ(getTextStyleIdFromString(L"standard", id), Acad::eOk);
  EXPECT_EQ(id, database().textstyle());
  EXPECT_EQ(getDimStyleIdFromString(L"Standard", id), Acad::eOk);
  EXPECT_EQ(id, database().dimstyle());
  EXPECT_EQ(getLayerIdFromString(L"nenhuma", id), Acad::eKeyNotFound);
  EXPECT_EQ(database().numOpenObjects(), 0);
}

TEST_F(InDrawing, IdsOfErasedRecordsAreFoundToo) {
  AcDbLayerTableRecord* record = nullptr;
  ASSERT_EQ(acdbOpenObject(record, layer_, AcDb::kForWrite), Acad::eOk);
  EXPECT_EQ(record->erase(), Acad::eOk);
  record->close();
  AcDbObjectId id;
  EXPECT_EQ(getLayerIdFromString(L"Aço", id), Acad::eOk);
  EXPECT_EQ(id, layer_);
}

TEST(WithoutDrawing, IdsByNameSayThatThereIsNoDatabase) {
  ASSERT_EQ(acdbHostApplicationServices()->workingDatabase(), nullptr);
  AcDbObjectId id;
  EXPECT_EQ(getLayerIdFromString(L"0", id), Acad::eNoDatabase);
  EXPECT_TRUE(id.isNull());
}

TEST_F(InDrawing, AppendPutsEntitiesIntoModelSpace) {
  const AcDbObjectId id = addLine();
  AcDbEntity* entity = nullptr;
  ASSERT_EQ(acdbOpenObject(entity, id, AcDb::kForRead), Acad::eOk);
  EXPECT_EQ(entity->ownerId(), database().modelSpaceId());
  entity->close();
  EXPECT_EQ(database().numOpenObjects(), 0);
}

TEST_F(InDrawing, SideLibraryChoosesTheSpaceByTheTwoVariables) {
  struct Case {
    int cvport;
    int tilemode;
    bool model;
  };
  for (const Case& each : {Case{2, 1, true}, Case{1, 1, true}, Case{1, 0, false}, Case{2, 0, true}}) {
    auto* line = new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0));
    AcDbObjectId id;
    ASSERT_NE(sideLibrary().krAppendEntity(line, &database(), each.cvport, each.tilemode, id), 0);
    EXPECT_EQ(line->ownerId(), each.model ? database().modelSpaceId() : database().paperSpaceId())
        << each.cvport << " " << each.tilemode;
    EXPECT_EQ(line->objectId(), id);
    line->close();
  }
}

TEST_F(InDrawing, SideLibraryRefusesWhatCannotBeAppended) {
  AcDbObjectId id;
  EXPECT_EQ(sideLibrary().krAppendEntity(nullptr, &database(), 2, 1, id), 0);
  AcDbLine line(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0));
  EXPECT_EQ(sideLibrary().krAppendEntity(&line, nullptr, 2, 1, id), 0);
  EXPECT_TRUE(id.isNull());
}

TEST_F(InDrawing, LayerIsLockedAndUnlockedTellingWhatItWas) {
  int before = 7;
  EXPECT_EQ(krLockLayer(layer_, 1, before), Acad::eOk);
  EXPECT_EQ(before, 0);
  EXPECT_TRUE(isLocked());
  EXPECT_EQ(krLockLayer(layer_, 0, before), Acad::eOk);
  EXPECT_EQ(before, 1);
  EXPECT_FALSE(isLocked());
}

TEST_F(InDrawing, LayerAlreadyAsWantedIsNotOpenedForWrite) {
  AcDbLayerTableRecord* reader = nullptr;
  ASSERT_EQ(acdbOpenObject(reader, layer_, AcDb::kForRead), Acad::eOk);
  int before = 7;
  EXPECT_EQ(krLockLayer(layer_, 0, before), Acad::eOk);
  EXPECT_EQ(before, 0);
  EXPECT_EQ(krLockLayer(layer_, 1, before), Acad::eWasOpenForRead);
  reader->close();
}

TEST_F(InDrawing, LayerHelperUnlocksALockedLayerForItsLife) {
  const AcDbObjectId id = addLine();
  lock(true);
  {
    const krLockLayerHelper helper(id);
    EXPECT_EQ(helper.layerId(), layer_);
    EXPECT_FALSE(isLocked());
  }
  EXPECT_TRUE(isLocked());
}

TEST_F(InDrawing, LayerHelperLeavesAnUnlockedLayerAlone) {
  const AcDbObjectId id = addLine();
  {
    krLockLayerHelper helper;
    EXPECT_TRUE(helper.layerId().isNull());
    helper.set(id);
    EXPECT_FALSE(isLocked());
  }
  EXPECT_FALSE(isLocked());
}

TEST_F(InDrawing, LayerHelperHoldsNothingWhenTheUnlockingFails) {
  const krLockLayerHelper helper{AcDbObjectId()};
  EXPECT_TRUE(helper.layerId().isNull());
}

TEST(ArcFromCalculator, KeepsPlaceSizeAndEnds) {
  // A tilted plane and a reference vector away from its X axis.
  const AcGeVector3d normal = AcGeVector3d(1, 2, 3).normal();
  const AcGeVector3d reference = normal.perpVector().rotateBy(0.7, normal);
  const AcGeCircArc3d source(AcGePoint3d(10, 20, 30), normal, reference, 5.0, 0.3, 2.1);
  AcDbArc arc;
  ASSERT_EQ(krGeToDbArc(source, &arc), Acad::eOk);
  AcGePoint3d start;
  AcGePoint3d end;
  arc.getStartPoint(start);
  arc.getEndPoint(end);
  EXPECT_NEAR(arc.radius(), 5.0, 1e-12);
  EXPECT_NEAR(arc.center().distanceTo(source.center()), 0, 1e-12);
  EXPECT_NEAR(start.distanceTo(source.startPoint()), 0, 1e-9);
  EXPECT_NEAR(end.distanceTo(source.endPoint()), 0, 1e-9);
}

TEST(ArcFromCalculator, TurnsByTheReferenceVector) {
  const AcGeCircArc3d source(AcGePoint3d(0, 0, 0), AcGeVector3d(0, 0, 1), AcGeVector3d(0, 1, 0), 2.0, 0.0, kPi / 2);
  AcDbArc arc;
  ASSERT_EQ(krGeToDbArc(source, &arc), Acad::eOk);
  EXPECT_NEAR(arc.startAngle(), kPi / 2, 1e-12);
  EXPECT_NEAR(arc.endAngle(), kPi, 1e-12);
}

TEST(ArcFromCalculator, RefusesNullAndOtherEntities) {
  const AcGeCircArc3d source(AcGePoint3d(0, 0, 0), AcGeVector3d(0, 0, 1), AcGeVector3d(1, 0, 0), 2.0, 0.0, 1.0);
  AcDbLine line;
  EXPECT_EQ(krGeToDbArc(source, nullptr), 20);
  EXPECT_EQ(krGeToDbArc(source, &line), 21);
}

}  // namespace
