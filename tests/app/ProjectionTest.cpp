#include "lib/Projection.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <numbers>

#include "host/db/db.h"
#include "host/io/plot/PlotSheet.h"
#include "lib/BarFrame.h"
#include "lib/Drawing.h"
#include "lib/JobReader.h"
#include "lib/Painter.h"
#include "lib/Session.h"
#include "object/KrObject.h"

namespace {

using kr::Look;

constexpr double kDegree = std::numbers::pi / 180;

// A job with one member of a folded angle, whose section is symmetric about no axis.
kr::Job oneBar(kr::JobPoint from, kr::JobPoint to, double rotation = 0) {
  kr::Job job;
  job.points = {from, to};
  kr::JobProfile profile;
  profile.profileClass = kr::profileClass("KrCantoneiraDobrada");
  kr::GivenParameters given;
  given.set(0, 90);  // upright leg
  given.set(1, 60);  // lying leg
  given.set(2, 3);
  given.set(3, 4.5);
  kr::ParameterProblem problem;
  EXPECT_TRUE(kr::settleParameters(*profile.profileClass, given, profile.values, problem));
  job.profiles.push_back(profile);
  kr::JobMember member;
  member.name = job.names.intern("M");
  member.from = 0;
  member.to = 1;
  member.profile = 0;
  member.rotation = rotation;
  job.members.push_back(member);
  return job;
}

kr::JobMember seen(const kr::Job& job, Look look) {
  kr::JobView view;
  view.look = look;
  return kr::projected(job, view).members.at(0);
}

TEST(BarFrame, KeepsUpNearToZAndOfAnUprightBarToX) {
  const kr::BarFrame level = kr::barFrame({2, 0, 0});
  EXPECT_TRUE(level.up.isEqualTo(AcGeVector3d(0, 0, 1)));
  EXPECT_TRUE(level.across.isEqualTo(AcGeVector3d(0, -1, 0)));
  const kr::BarFrame slope = kr::barFrame({3, 0, 4});
  EXPECT_TRUE(slope.up.isEqualTo(AcGeVector3d(-0.8, 0, 0.6)));
  const kr::BarFrame column = kr::barFrame({0, 0, 5});
  EXPECT_TRUE(column.up.isEqualTo(AcGeVector3d(1, 0, 0)));
  EXPECT_TRUE(column.across.isEqualTo(AcGeVector3d(0, 1, 0)));
}

TEST(Projection, ShowsTheSectionOfABarAlongTheLookFromItsNearerEnd) {
  EXPECT_EQ(seen(oneBar({0, 0, 0}, {0, 900, 0}), Look::kFront).view, Secao);
  EXPECT_EQ(seen(oneBar({0, 900, 0}, {0, 0, 0}), Look::kFront).view, SecaoVerso);
  EXPECT_EQ(seen(oneBar({0, 0, 0}, {0, 900, 0}), Look::kBack).view, SecaoVerso);
  EXPECT_EQ(seen(oneBar({0, 0, 0}, {900, 0, 0}), Look::kLeft).view, Secao);
  EXPECT_EQ(seen(oneBar({0, 0, 0}, {0, 0, 900}), Look::kPlan).view, SecaoVerso);
}

TEST(Projection, ShowsTheElevationThatFacesTheViewer) {
  const kr::Job beam = oneBar({0, 0, 0}, {900, 0, 0});
  EXPECT_EQ(seen(beam, Look::kPlan).view, Superior);
  EXPECT_EQ(seen(beam, Look::kFront).view, Direita);
  EXPECT_EQ(seen(beam, Look::kBack).view, Esquerda);
  EXPECT_EQ(seen(oneBar({0, 0, 0}, {900, 0, 0}, 180 * kDegree), Look::kPlan).view, Inferior);
  EXPECT_EQ(seen(oneBar({0, 0, 0}, {900, 0, 0}, 90 * kDegree), Look::kPlan).view, Direita);
  const kr::JobMember turned = seen(oneBar({0, 0, 0}, {900, 0, 0}, 30 * kDegree), Look::kPlan);
  EXPECT_EQ(turned.view, Superior);
  EXPECT_NEAR(turned.rotation, 30 * kDegree, 1e-12);
}

TEST(Projection, ShortensABarThatSlantsTowardsTheViewerAndItsSetbacks) {
  kr::Job job = oneBar({0, 0, 0}, {3000, 0, 4000});
  job.members[0].startSetback = 100;
  job.members[0].endSetback = -50;
  kr::JobView view;
  const kr::Job plan = kr::projected(job, view);
  const kr::MemberAxis axis = kr::memberAxis(plan, plan.members[0]);
  EXPECT_NEAR(axis.start.x, 60, 1e-9);
  EXPECT_NEAR(axis.end.x, 3030, 1e-9);
  EXPECT_NEAR(axis.end.y, 0, 1e-9);
}

TEST(Projection, LaysMembersDownAtTheirTrueLength) {
  for (const kr::Job& job : {oneBar({0, 0, 0}, {3000, 0, 4000}), oneBar({7, 8, 0}, {7, 8, 5000})}) {
    const kr::Job flat = kr::laidDown(job);
    EXPECT_FALSE(kr::isSpatial(flat));
    const kr::MemberAxis axis = kr::memberAxis(flat, flat.members[0]);
    EXPECT_NEAR(std::hypot(axis.end.x - axis.start.x, axis.end.y - axis.start.y), 5000, 1e-9);
  }
}

TEST(Projection, ShowsMembersWithinItsLimitsOfItsRolesAndThoseItNames) {
  kr::Job job = oneBar({0, 0, 0}, {900, 0, 0});
  job.points.push_back({0, 0, 500});
  job.points.push_back({900, 0, 500});
  kr::JobMember upper = job.members[0];
  upper.from = 2;
  upper.to = 3;
  upper.role = Viga;
  job.members.push_back(upper);
  kr::JobView view;
  EXPECT_EQ(kr::projected(job, view).members.size(), 2U);
  view.from = 400;
  EXPECT_EQ(kr::projected(job, view).members.at(0).role, Viga);
  EXPECT_EQ(kr::projected(job, view).members.size(), 1U);
  view.members = {0};
  EXPECT_EQ(kr::projected(job, view).members.size(), 2U);
  view.from = -kr::kLargestCoordinate;
  EXPECT_EQ(kr::projected(job, view).members.size(), 1U);
  view.members.clear();
  view.roles = {Pilar};
  EXPECT_TRUE(kr::projected(job, view).members.empty());
}

class DrawnProjection : public testing::Test {
 protected:
  void SetUp() override {
    session_ = kr::Session::start(KR_INSTALL_FOLDER, report_);
    ASSERT_NE(session_, nullptr);
  }

  kr::Report report_;
  std::unique_ptr<kr::Session> session_;
};

// Right and up on paper, of the looks in their order.
const AcGeVector3d kPaper[][2] = {{{1, 0, 0}, {0, 1, 0}},
                                  {{1, 0, 0}, {0, 0, 1}},
                                  {{-1, 0, 0}, {0, 0, 1}},
                                  {{0, -1, 0}, {0, 0, 1}},
                                  {{0, 1, 0}, {0, 0, 1}}};

// The drawn picture covers what the eight corners of the bar in space cover, whichever way it runs and is turned: a
// section that is mirrored or turned the wrong way reaches elsewhere.
TEST_F(DrawnProjection, CoversWhatTheBarInSpaceCovers) {
  const kr::JobPoint ends[] = {{500, 0, 0}, {-500, 0, 0}, {0, 500, 0}, {0, -500, 0}, {0, 0, 500}, {0, 0, -500}};
  int number = 0;
  for (const kr::JobPoint& end : ends) {
    for (const double rotation : {0.0, 90.0, 180.0, -90.0}) {
      const kr::Job job = oneBar({0, 0, 0}, end, rotation * kDegree);
      const AcGeVector3d along(end.x, end.y, end.z);
      const AcGeVector3d up = along.z != 0 ? AcGeVector3d(1, 0, 0) : AcGeVector3d(0, 0, 1);
      const AcGeVector3d across = along.normal().crossProduct(up);
      const double c = std::cos(rotation * kDegree);
      const double s = std::sin(rotation * kDegree);
      for (int look = 0; look < 5; ++look) {
        SCOPED_TRACE(testing::Message() << end.x << " " << end.y << " " << end.z << " turned " << rotation << " look "
                                        << look);
        double low[2] = {1e9, 1e9};
        double high[2] = {-1e9, -1e9};
        // The heel is the upper left corner; the bar's axis lies a third of each leg from it.
        for (const double x : {-20.0, 40.0}) {
          for (const double y : {-60.0, 30.0}) {
            for (const double part : {0.0, 1.0}) {
              const AcGeVector3d corner = along * part + across * (x * c - y * s) + up * (x * s + y * c);
              for (int i = 0; i < 2; ++i) {
                low[i] = std::min(low[i], corner.dotProduct(kPaper[look][i]));
                high[i] = std::max(high[i], corner.dotProduct(kPaper[look][i]));
              }
            }
          }
        }
        kr::JobView view;
        view.look = static_cast<Look>(look);
        const AcDbObjectId block = kr::makeBlock(*session_->database(), L"P" + std::to_wstring(++number));
        std::vector<AcDbObjectId> ids;
        std::string why;
        ASSERT_TRUE(kr::drawInto(kr::projected(job, view), *session_->database(), block, Vista, ids, why)) << why;
        const AcDbExtents box = plot::drawnExtents(block);
        EXPECT_NEAR(box.minPoint().x, low[0], 1e-6);
        EXPECT_NEAR(box.maxPoint().x, high[0], 1e-6);
        EXPECT_NEAR(box.minPoint().y, low[1], 1e-6);
        EXPECT_NEAR(box.maxPoint().y, high[1], 1e-6);
      }
    }
  }
}

TEST_F(DrawnProjection, CountsMembersInSpaceAtTheirTrueLength) {
  const std::string text =
      R"({"kr": 1, "profiles": {"t": {"class": "KrBarraRedonda", "diametro": 20}}, "members": [
         {"name": "a", "profile": "t", "from": [0, 0, 0], "to": [2000, 3000, 6000]},
         {"name": "b", "profile": "t", "from": [0, 0, 0], "to": [0, 0, 7000]}]})";
  kr::Job job;
  std::vector<AcDbObjectId> ids;
  std::vector<kr::Problem> problems;
  std::string why;
  ASSERT_TRUE(kr::drawJob(text, kr::knownNames(KR_INSTALL_FOLDER), job, *session_->database(), ids, problems, why));
  const std::vector<kr::BomPiece> pieces = kr::piecesOf(ids);
  EXPECT_NEAR(pieces.at(0).length, 7000, 1e-9);
  EXPECT_NEAR(pieces.at(1).length, 7000, 1e-9);
}

TEST_F(DrawnProjection, KeepsMembersInSpaceClearOfEachOther) {
  // A beam that runs in Y to a column of a hollow section 200 (X) by 100 (Y): half of 100 and the gap are taken.
  const std::string text =
      R"({"kr": 1, "profiles": {
         "box": {"class": "KrBox", "altura": 200, "largura": 100, "espessura": 5, "raio": 5},
         "t": {"class": "KrBarraRedonda", "diametro": 20}}, "members": [
         {"name": "column", "profile": "box", "from": [0, 0, 0], "to": [0, 0, 5000]},
         {"name": "in y", "profile": "t", "from": [0, 0, 3000], "to": [0, 4000, 3000], "clearance": 10},
         {"name": "in x", "profile": "t", "from": [0, 0, 3000], "to": [4000, 0, 3000], "clearance": 10}]})";
  kr::Job job;
  std::vector<kr::Problem> problems;
  ASSERT_TRUE(kr::readJob(text, {}, job, problems));
  EXPECT_NEAR(kr::memberAxis(job, job.members[1]).start.y, 50 + 10, 1e-9);
  EXPECT_NEAR(kr::memberAxis(job, job.members[2]).start.x, 100 + 10, 1e-9);
}

}  // namespace
