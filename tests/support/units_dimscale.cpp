#include <gtest/gtest.h>

#include "support/DimScale.h"

namespace {

/// A working database for a while.
class DimScale : public testing::Test {
 protected:
  AcDbDatabase database;
  AcDbDatabase* before = acdbHostApplicationServices()->workingDatabase();

  void SetUp() override { acdbHostApplicationServices()->setWorkingDatabase(&database); }
  void TearDown() override { acdbHostApplicationServices()->setWorkingDatabase(before); }

  void setStyleScale(double scale) {
    AcDbDimStyleTableRecord* style = nullptr;
    ASSERT_EQ(acdbOpenObject(style, database.dimstyle(), AcDb::kForWrite), Acad::eOk);
    style->setDimscale(scale);
    style->close();
  }
};

TEST_F(DimScale, IsTheWorkingDatabases) {
  database.setDimscale(20.0);
  EXPECT_EQ(GetScale(), 20.0);
  resbuf value{nullptr, RTNONE, {}};
  EXPECT_EQ(curDimScale(&value), 5100);
  EXPECT_EQ(value.restype, 5001);
  EXPECT_EQ(value.resval.rreal, 20.0);
}

TEST_F(DimScale, IsOneWithoutADatabase) {
  acdbHostApplicationServices()->setWorkingDatabase(nullptr);
  EXPECT_EQ(GetScale(), 1.0);
  resbuf value{nullptr, RTNONE, {}};
  EXPECT_EQ(curDimScale(&value), -5001);
  EXPECT_EQ(value.restype, RTNONE);
}

TEST_F(DimScale, RefusesNoPlaceForIt) {
  EXPECT_EQ(curDimScale(nullptr), -5001);
}

TEST_F(DimScale, OfZeroIsOneWithoutAPaperViewport) {
  EXPECT_EQ(krAdjustDimScale(0.0), 1.0);
  EXPECT_EQ(krAdjustDimScale(-3.0), -3.0);
}

TEST_F(DimScale, OfAStyleIsItsOwn) {
  setStyleScale(50.0);
  EXPECT_EQ(getDimscale(database.dimstyle(), 0), 50.0);
  setStyleScale(0.0);
  EXPECT_EQ(getDimscale(database.dimstyle(), 0), 0.0);
  EXPECT_EQ(getDimscale(database.dimstyle(), 1), 1.0);
}

TEST_F(DimScale, OfNoStyleIsOne) {
  EXPECT_EQ(getDimscale(AcDbObjectId(), 0), 1.0);
  EXPECT_EQ(getDimscale(database.dimStyleTableId(), 1), 1.0) << "an object of another kind";
}

}  // namespace
