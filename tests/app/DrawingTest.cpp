#include "lib/Drawing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <memory>

#include "host/db/db.h"
#include "lib/JobReader.h"
#include "lib/Session.h"
#include "object/KrObject.h"

namespace {

using testing::HasSubstr;

// The members of a job in the drawing of a session.
class Drawing : public testing::Test {
 protected:
  void SetUp() override {
    session_ = kr::Session::start(KR_INSTALL_FOLDER, report_);
    ASSERT_NE(session_, nullptr);
  }

  void draw(const std::string& layers, const std::string& members) {
    const std::string text = "{\"kr\": 1, \"layers\": {" + layers +
                             "}, \"profiles\": {\"tube\": {\"class\": \"KrTubo\", \"Diametro\": 100, \"Espessura\": 5},"
                             "\"wide\": {\"class\": \"KrTubo\", \"Diametro\": 200, \"Espessura\": 5}}, \"members\": [" +
                             members + "]}";
    std::vector<kr::Problem> problems;
    std::string why;
    ASSERT_TRUE(kr::drawJob(text, kr::knownNames(KR_INSTALL_FOLDER), job_, *session_->database(), ids_, problems, why))
        << why << (problems.empty() ? "" : problems[0].message);
  }

  kr::Report report_;
  std::unique_ptr<kr::Session> session_;
  kr::Job job_;
  std::vector<AcDbObjectId> ids_;
};

TEST_F(Drawing, HoldsEachMemberWithNameRoleViewAndAnElevation) {
  draw("", R"({"name": "M1", "profile": "tube", "from": [0, 0], "to": [300, 400], "view": "Direita", "role": "Viga"})");
  ASSERT_EQ(ids_.size(), 1U);
  const AcDbObjectPointer<KrObject> member(ids_[0], AcDb::kForRead);
  ASSERT_EQ(member.openStatus(), Acad::eOk);
  EXPECT_STREQ(member->userName(), L"M1");
  EXPECT_STREQ(member->tipoBarraStr(), L"Viga");
  EXPECT_DOUBLE_EQ(member->getComprimentoReal(), 500);
  EXPECT_DOUBLE_EQ(member->angleVista(), std::atan2(4, 3));
  // Axis and reference, two outlines, two hidden lines of the bore, two ends at least.
  EXPECT_GE(member->GetNumVertex(Direita), 8);
  EXPECT_EQ(member->GetNumVertex(Superior), 0);
}

TEST_F(Drawing, PutsMembersOnTheJobsLayersAndOnTheSystems) {
  draw(R"("OWN": {"color": 5, "linetype": "KR_OCULTA", "lineweight": 0.49})",
       R"({"name": "1", "profile": "tube", "from": [0, 0], "to": [300, 400], "layer": "OWN"},
          {"name": "2", "profile": "tube", "from": [0, 0], "to": [300, 400]})");
  const AcDbObjectPointer<KrObject> first(ids_[0], AcDb::kForRead);
  const AcDbObjectPointer<AcDbLayerTableRecord> own(first->layerId(), AcDb::kForRead);
  const ACHAR* name = nullptr;
  ASSERT_EQ(own->getName(name), Acad::eOk);
  EXPECT_STREQ(name, L"OWN");
  EXPECT_EQ(own->color().colorIndex(), 5);
  EXPECT_EQ(own->lineWeight(), AcDb::kLnWt050);  // the nearest standard weight to 0.49 mm
  const AcDbObjectPointer<KrObject> second(ids_[1], AcDb::kForRead);
  const AcDbObjectPointer<AcDbLayerTableRecord> system(second->layerId(), AcDb::kForRead);
  ASSERT_EQ(system->getName(name), Acad::eOk);
  EXPECT_STREQ(name, L"PERFIL");
}

TEST_F(Drawing, EndsAMemberClearOfThoseThatPassItsNodes) {
  draw("", R"({"name": "chord", "profile": "wide", "from": [0, 0], "to": [1000, 0]},
              {"name": "post", "profile": "tube", "from": [500, 0], "to": [500, 1000], "clearance": 10},
              {"name": "diagonal", "profile": "tube", "from": [500, 0], "to": [1500, 1000], "clearance": 10})");
  const AcDbObjectPointer<KrObject> post(ids_[1], AcDb::kForRead);
  EXPECT_NEAR(post->startPoint().y, 100 + 10, 1e-9);
  EXPECT_NEAR(post->endPoint().y, 1000, 1e-9);
  // At 45 degrees: the lower corner of the square end lies 50 cos 45 below the axis' end.
  const AcDbObjectPointer<KrObject> diagonal(ids_[2], AcDb::kForRead);
  EXPECT_NEAR(diagonal->startPoint().y - 50 * std::sqrt(0.5), 100 + 10, 1e-9);
}

TEST_F(Drawing, TellsAClearanceThatLeavesNothing) {
  std::vector<kr::Problem> problems;
  const std::string text =
      R"({"kr": 1, "profiles": {"t": {"class": "KrBarraRedonda", "diametro": 200}}, "members": [
         {"name": "a", "profile": "t", "from": [0, 0], "to": [1000, 0]},
         {"name": "b", "profile": "t", "from": [500, 0], "to": [500, 100], "clearance": 0}]})";
  EXPECT_FALSE(kr::readJob(text, {}, job_, problems));
  ASSERT_EQ(problems.size(), 1U);
  EXPECT_EQ(problems[0].path, "/members/1/clearance");
  EXPECT_THAT(problems[0].message, HasSubstr("leave nothing of the 100.0 mm"));
}

TEST_F(Drawing, WeighsAndPaintsByTheSectionAndTheLength) {
  draw("", R"({"name": "M", "profile": "tube", "from": [0, 0], "to": [0, 2000]})");
  const std::vector<kr::BomPiece> pieces = kr::piecesOf(ids_);
  ASSERT_EQ(pieces.size(), 1U);
  const double area = M_PI * (50 * 50 - 45 * 45);
  EXPECT_EQ(pieces[0].profileClass, "KrTubo");
  EXPECT_EQ(pieces[0].dimensions, "100x10");
  EXPECT_NEAR(pieces[0].length, 2000, 1e-9);
  EXPECT_NEAR(pieces[0].weight, area * 0.00785 * 2, 1e-9);
  EXPECT_NEAR(pieces[0].paintedArea, (2 * area + M_PI * 100 * 2000) / 1e6, 1e-9);
}

}  // namespace
