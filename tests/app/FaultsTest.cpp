#include "lib/Faults.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/db/db.h"

namespace {

using krio::AuditFinding;

// An open drawing whose model space lists a line twice, which an audit can mend.
class Faults : public testing::Test {
 protected:
  Faults() {
    AcDbObjectId id;
    const AcDbObjectPointer<AcDbBlockTableRecord> space(database_.modelSpaceId(), AcDb::kForWrite);
    auto* const line = new AcDbLine({0, 0, 0}, {100, 50, 0});
    EXPECT_EQ(space->appendAcDbEntity(id, line), Acad::eOk);
    line->close();
    space->setEntitiesAsRead({id.stub(), id.stub()});
    open_.database = &database_;
  }

  AcDbDatabase database_;
  kr::OpenDrawing open_;
};

TEST_F(Faults, AreThoseOfTheReadingThenThoseOfTheObjects) {
  open_.findings.warn("made a layer", 0x2A, -1, true);
  open_.findings.error("lost a line", 0x2B);
  std::vector<AuditFinding> faults = kr::faultsOf(open_, false);
  ASSERT_EQ(faults.size(), 3U);
  EXPECT_EQ(faults[0].number, krio::kAuditMendedInReading);
  EXPECT_EQ(faults[1].number, krio::kAuditLost);
  EXPECT_EQ(faults[2].number, krio::kAuditListing);
  EXPECT_EQ(kr::lineOf(faults[0]), "102 2A: made a layer; mended in reading");
  EXPECT_EQ(kr::lineOf(faults[1]), "101 2B: lost a line");
  const kr::FaultCounts counts = kr::countsOf(open_, faults);
  EXPECT_EQ(counts.fixed, 0U);
  EXPECT_EQ(counts.mended, 1U);
  EXPECT_EQ(counts.unfixed, 2U);
  kr::markSaved(faults);
  EXPECT_EQ(kr::countsOf(open_, faults).fixed, 1U);
  EXPECT_EQ(kr::countsOf(open_, faults).unfixed, 2U);
}

TEST_F(Faults, AreMendedInTheDrawingWhenAsked) {
  const std::vector<AuditFinding> faults = kr::faultsOf(open_, true);
  ASSERT_EQ(faults.size(), 1U);
  EXPECT_TRUE(faults[0].fixed);
  EXPECT_EQ(kr::countsOf(open_, faults).unfixed, 0U);
  EXPECT_TRUE(kr::faultsOf(open_, false).empty());
}

// What a recovery puts right in a damaged file it may have put in the place of what was lost.
TEST_F(Faults, OfADamagedFileAreNeverMendedInReading) {
  kr::faultsOf(open_, true);
  open_.recovered = true;
  std::vector<AuditFinding> faults = kr::faultsOf(open_, false);
  ASSERT_EQ(faults.size(), 1U) << "a damaged file has a fault at least";
  EXPECT_EQ(faults[0].number, krio::kAuditLost);
  open_.findings.warn("took 0 for a bad value", 0, 7, true);
  faults = kr::faultsOf(open_, false);
  ASSERT_EQ(faults.size(), 1U);
  EXPECT_EQ(kr::countsOf(open_, faults).mended, 0U);
  EXPECT_EQ(kr::countsOf(open_, faults).unfixed, 1U);
}

}  // namespace
