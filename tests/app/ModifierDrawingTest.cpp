// What a job does to a member, as it is stored and as it is drawn. A box 160 high and 100 wide, its wall 5, is 3000
// long and lies along X from the origin: seen from a side it reaches 80 to either side of its axis, from above and
// below 50. With the bar's start to the left, up on paper is the section's -X from above, X from below, Y from the
// right and -Y from the left.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <numbers>
#include <string>
#include <vector>

#include "host/db/db.h"
#include "lib/BarViews.h"
#include "lib/Drawing.h"
#include "lib/JobReader.h"
#include "lib/Session.h"
#include "object/KrObject.h"

namespace {

using testing::ElementsAre;
using testing::SizeIs;

constexpr double kNear = 1e-6;
constexpr double kDegree = std::numbers::pi / 180;

struct View {
  KrVistas number;
  std::string word;
  double half;  ///< how far the box reaches from its axis
  KrVistas opposite;
};
const View kViews[] = {{Superior, "Superior", 50, Inferior},
                       {Inferior, "Inferior", 50, Superior},
                       {Esquerda, "Esquerda", 80, Direita},
                       {Direita, "Direita", 80, Esquerda}};

const View& viewOf(KrVistas number) {
  return *std::find_if(std::begin(kViews), std::end(kViews), [&](const View& v) { return v.number == number; });
}

using Elements = std::vector<KrVector>;

Elements elementsOf(const KrObject& member) {
  Elements all;
  const KrObjectArray<KrVector>& list = member.currentVertexList(VistaCorrente);
  for (int i = 0; i < list.length(); ++i) all.push_back(list[i]);
  return all;
}

Elements ofType(const KrObject& member, KrVectorType type) {
  Elements found = elementsOf(member);
  std::erase_if(found, [&](const KrVector& v) { return v.type() != type; });
  return found;
}

bool isAt(const AcGePoint3d& p, double x, double y) {
  return std::hypot(p.x - x, p.y - y) < kNear;
}

/// Whether an edge of the steel runs between two places, either way.
bool hasEdge(const KrObject& member, double x0, double y0, double x1, double y1) {
  const Elements all = elementsOf(member);
  return std::any_of(all.begin(), all.end(), [&](const KrVector& v) {
    return v.tipo() == KR_VF_ARESTA && v.hidden() == 0 &&
           ((isAt(v.startPoint(), x0, y0) && isAt(v.endPoint(), x1, y1)) ||
            (isAt(v.startPoint(), x1, y1) && isAt(v.endPoint(), x0, y0)));
  });
}

/// A line's angle, in which it has no sense, from 0 to a half turn.
double slope(double angle) {
  const double a = std::fmod(angle, std::numbers::pi);
  return a < -kNear ? a + std::numbers::pi : a;
}

KrFuro holesOf(const KrObject& member) {
  KrFuro holes;
  member.Furos(holes, 1);
  return holes;
}

class ModifierDrawing : public testing::Test {
 protected:
  void SetUp() override {
    session_ = kr::Session::start(KR_INSTALL_FOLDER, report_);
    ASSERT_NE(session_, nullptr);
  }

  /// Draws the box in a view, with the keys of what is done to it.
  void draw(const std::string& view, const std::string& modifiers) {
    const std::string text =
        R"({"kr": 1, "profiles": {"box": {"class": "KrBox", "altura": 160, "largura": 100, "espessura": 5, "raio": 5}},
            "members": [{"name": "B", "profile": "box", "from": [0, 0], "to": [3000, 0], "view": ")" +
        view + "\", " + modifiers + "}]}";
    std::vector<kr::Problem> problems;
    std::string why;
    bar_.reset();
    ids_.clear();
    job_ = {};
    ASSERT_TRUE(kr::drawJob(text, kr::knownNames(KR_INSTALL_FOLDER), job_, *session_->database(), ids_, problems, why))
        << why << (problems.empty() ? "" : problems[0].message);
    ASSERT_THAT(ids_, SizeIs(1));
    open(ids_[0]);
  }

  void open(AcDbObjectId id) {
    bar_ = std::make_unique<AcDbObjectPointer<KrObject>>(id, AcDb::kForRead);
    ASSERT_EQ(bar_->openStatus(), Acad::eOk);
  }

  const KrObject& bar() const { return **bar_; }

  /// Whether steel of the bar is shown at some place along it on paper.
  bool isShownAt(double x) const {
    const Elements all = elementsOf(bar());
    return std::any_of(all.begin(), all.end(), [&](const KrVector& v) {
      return v.hidden() == 0 && v.tipo() == KR_VF_ARESTA && std::min(v.startPoint().x, v.endPoint().x) < x &&
             std::max(v.startPoint().x, v.endPoint().x) > x;
    });
  }

  kr::Report report_;
  std::unique_ptr<kr::Session> session_;
  kr::Job job_;
  std::vector<AcDbObjectId> ids_;
  std::unique_ptr<AcDbObjectPointer<KrObject>> bar_;
};

TEST_F(ModifierDrawing, AHoleStandsWhereItsViewShowsItWithItsSlotAsItIsSeen) {
  for (const View& view : kViews) {
    SCOPED_TRACE(view.word);
    draw(view.word,
         R"("holes": [{"view": ")" + view.word + R"(", "at": [200, 40], "diameter": 18, "slot": 12, "angle": 30}])");
    const Elements holes = ofType(bar(), KR_VT_FURO);
    ASSERT_THAT(holes, SizeIs(1));
    EXPECT_TRUE(isAt(holes[0].midPoint(), 200, 40)) << holes[0].midPoint().x << ' ' << holes[0].midPoint().y;
    EXPECT_NEAR(slope(holes[0].direction()), 30 * kDegree, kNear);
    EXPECT_NEAR(holes[0].len(), 12, kNear);
    EXPECT_NEAR(holes[0].radius(), 9, kNear);
  }
}

TEST_F(ModifierDrawing, AHoleIsStoredAtItsPlaceInTheSection) {
  // From the face that is seen, in which the place is taken, through the wall.
  const struct {
    KrVistas view;
    AcGeVector3d ini, fim;
  } cases[] = {{Superior, {-40, 80, 200}, {-40, 75, 200}},
               {Inferior, {40, -80, 200}, {40, -75, 200}},
               {Esquerda, {-50, -40, 200}, {-45, -40, 200}},
               {Direita, {50, 40, 200}, {45, 40, 200}}};
  for (const auto& c : cases) {
    const std::string& word = viewOf(c.view).word;
    SCOPED_TRACE(word);
    draw("Superior", R"("holes": [{"view": ")" + word + R"(", "at": [200, 40], "diameter": 18}])");
    const KrFuro holes = holesOf(bar());
    ASSERT_EQ(holes.Qtd(), 1);
    EXPECT_NEAR((holes.getIni(0) - c.ini).length(), 0, kNear);
    EXPECT_NEAR((holes.getFim(0) - c.fim).length(), 0, kNear);
    EXPECT_EQ(holes.getDiametro(0), 18);
    EXPECT_EQ(holes.getStretch(0), 0);
  }
}

TEST_F(ModifierDrawing, ASlotSeenEdgeOnIsAsWideAsItsAngleMakesIt) {
  draw("Superior", R"("holes": [{"view": "Direita", "at": [200, 40], "diameter": 18, "slot": 12, "angle": 30}])");
  EXPECT_THAT(ofType(bar(), KR_VT_FURO), SizeIs(0));
  const Elements bands = ofType(bar(), KR_VT_FURO_LINHA);
  ASSERT_THAT(bands, SizeIs(1));
  // The wall on the section's +X: from above that is down.
  EXPECT_TRUE(isAt(bands[0].startPoint(), 200, -50) && isAt(bands[0].endPoint(), 200, -45));
  EXPECT_NEAR(bands[0].radius(), (18 + 12 * std::cos(30 * kDegree)) / 2, kNear);
}

TEST_F(ModifierDrawing, AHoleInTheSectionIsGivenAsTheSectionStands) {
  // Turned by 90 degrees, (10, 0) of what is seen is (0, -10) of the section, and 45 degrees are -45: the line
  // y = -10 - x, which enters the left wall at (-50, 40) and leaves the right one at (50, -60).
  draw("Secao", R"("rotation": 90, "holes": [)"
                R"({"view": "Secao", "at": [10, 0], "along": 450, "direction": 45, "diameter": 20, "walls": 0}])");
  const KrFuro holes = holesOf(bar());
  ASSERT_EQ(holes.Qtd(), 2);
  EXPECT_NEAR((holes.getIni(0) - AcGeVector3d(-50, 40, 450)).length(), 0, kNear);
  EXPECT_NEAR((holes.getFim(0) - AcGeVector3d(-45, 35, 450)).length(), 0, kNear);
  EXPECT_NEAR((holes.getIni(1) - AcGeVector3d(45, -55, 450)).length(), 0, kNear);
  EXPECT_NEAR((holes.getFim(1) - AcGeVector3d(50, -60, 450)).length(), 0, kNear);
  // Drawn it runs at 45 degrees through (10, 0), whichever way its walls are told: the first from (-40, -50).
  const Elements bands = ofType(bar(), KR_VT_FURO_LINHA);
  ASSERT_THAT(bands, SizeIs(2));
  EXPECT_TRUE(isAt(bands[0].startPoint(), -40, -50));
  EXPECT_TRUE(isAt(bands[0].endPoint(), -35, -45));
  EXPECT_TRUE(isAt(bands[1].startPoint(), 55, 45));
  EXPECT_TRUE(isAt(bands[1].endPoint(), 60, 50));
}

TEST_F(ModifierDrawing, ACutRunsAlongItsLine) {
  for (const View& view : kViews) {
    // The line x = 2100 + y, in the view and in the opposite one, which shows it the other way up.
    for (const bool opposite : {false, true}) {
      const std::string& shown = opposite ? viewOf(view.opposite).word : view.word;
      SCOPED_TRACE(view.word + " seen in " + shown);
      draw(shown,
           R"("cuts": [{"view": ")" + view.word + R"(", "line": [[2000, -100], [2200, 100]], "side": [2900, 0]}])");
      const double h = view.half;
      const double up = opposite ? -1 : 1;
      EXPECT_TRUE(hasEdge(bar(), 2100 - h, -h * up, 2100 + h, h * up));
      EXPECT_TRUE(hasEdge(bar(), 0, -h * up, 2100 - h, -h * up));
      EXPECT_TRUE(hasEdge(bar(), 0, h * up, 2100 + h, h * up));
      EXPECT_FALSE(isShownAt(2200));
      EXPECT_NEAR(bar().getComprimentoReal(), 2100 + h, kNear) << "to its farthest corner";
    }
  }
}

TEST_F(ModifierDrawing, ANotchLiesInItsViewAndTheOtherWayUpInTheOpposite) {
  for (const View& view : kViews) {
    for (const View& shown : kViews) {
      SCOPED_TRACE(view.word + " seen in " + shown.word);
      const double h = view.half;
      const auto y = [&](double fromEdge) { return std::to_string(h + fromEdge); };
      draw(shown.word, R"("notches": [{"view": ")" + view.word + R"(", "points": [[1000, )" + y(-30) + "], [1200, " +
                           y(-30) + "], [1200, " + y(20) + "], [1000, " + y(20) + R"(]], "side": [1100, )" + y(-10) +
                           "]}]");
      const bool sees = shown.half == h;
      const double up = shown.number == view.number ? 1 : -1;
      EXPECT_EQ(hasEdge(bar(), 1000, (h - 30) * up, 1200, (h - 30) * up), sees);
      EXPECT_EQ(hasEdge(bar(), 1000, (h - 30) * up, 1000, h * up), sees);
      EXPECT_EQ(hasEdge(bar(), 1200, (h - 30) * up, 1200, h * up), sees);
      EXPECT_EQ(hasEdge(bar(), 0, h * up, 1000, h * up), sees);
      EXPECT_EQ(hasEdge(bar(), 0, shown.half, 3000, shown.half), !sees || up < 0);
    }
  }
}

TEST_F(ModifierDrawing, AnOpenNotchTakesAnEndOff) {
  draw("Inferior", R"("notches": [{"view": "Inferior", "points": [[120, -60], [80, 0], [120, 60]], "side": [0, 0],)"
                   R"("open": true}])");
  // Its ends are on the edges of the box at x = 120 - 40 * 10 / 60.
  const double x = 120 - 40.0 * 10 / 60;
  EXPECT_TRUE(hasEdge(bar(), x, -50, 80, 0));
  EXPECT_TRUE(hasEdge(bar(), x, 50, 80, 0));
  EXPECT_TRUE(hasEdge(bar(), x, 50, 3000, 50));
}

TEST_F(ModifierDrawing, ASplitLiesAtItsPlaceInEveryView) {
  for (const View& view : kViews) {
    for (const double at : {1500.0, 700.0}) {
      SCOPED_TRACE(view.word + " at " + std::to_string(at));
      draw(view.word, R"("splits": [{"at": )" + std::to_string(at) + R"(, "gap": 200}])");
      EXPECT_TRUE(hasEdge(bar(), at - 100, -view.half, at - 100, view.half));
      EXPECT_TRUE(hasEdge(bar(), at + 100, -view.half, at + 100, view.half));
      EXPECT_FALSE(isShownAt(at));
      EXPECT_TRUE(isShownAt(at - 110) && isShownAt(at + 110));
      EXPECT_NEAR(bar().getComprimentoReal(), 3000, kNear);
    }
  }
}

TEST_F(ModifierDrawing, LimitsCountFromTheBarsStartInEveryView) {
  for (const View& view : kViews) {
    SCOPED_TRACE(view.word);
    draw(view.word, R"("limits": {"from": 500, "to": 2000})");
    EXPECT_TRUE(isShownAt(1250) && isShownAt(520) && isShownAt(1980));
    EXPECT_FALSE(isShownAt(480) || isShownAt(2020));
    // Stored are fractions of the line as it is drawn: from behind, from the bar's end.
    const bool behind = view.number == Inferior || view.number == Esquerda;
    EXPECT_NEAR(bar().visualRepStart(), (behind ? 1000 : 500) / 3000.0, 1e-12);
    EXPECT_NEAR(bar().visualRepEnd(), (behind ? 2500 : 2000) / 3000.0, 1e-12);
    EXPECT_NEAR(bar().getComprimentoReal(), 3000, kNear);
  }
}

TEST_F(ModifierDrawing, ALimitOnTheBarsEndHidesNothingThere) {
  draw("Superior", R"("limits": {"from": 500, "to": 3000})");
  EXPECT_EQ(bar().visualRepEnd(), 1);
  EXPECT_TRUE(hasEdge(bar(), 3000, -50, 3000, 50));
  EXPECT_FALSE(isShownAt(480));
}

TEST_F(ModifierDrawing, AScaleShortensTheBarAndKeepsItsHolesRound) {
  const std::string hole = R"("holes": [{"view": "Direita", "at": [200, 40], "diameter": 18}], "scale": "1:10")";
  const struct {
    std::string more;
    double length, holeAt;
  } cases[] = {{"", 300, 20}, {R"(, "scaleAlong": "1:50")", 60, 4}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.more);
    draw("Direita", hole + c.more);
    EXPECT_TRUE(hasEdge(bar(), 0, 8, c.length, 8));
    EXPECT_TRUE(hasEdge(bar(), c.length, -8, c.length, 8));
    const Elements holes = ofType(bar(), KR_VT_FURO);
    ASSERT_THAT(holes, SizeIs(1));
    EXPECT_TRUE(isAt(holes[0].midPoint(), c.holeAt, 4));
    EXPECT_NEAR(holes[0].radius(), 0.9, kNear);
    EXPECT_EQ(holes[0].tipo(), KR_VF_FURO_REDONDO);
    EXPECT_NEAR(bar().getComprimentoReal(), 3000, kNear);
    const kr::MemberAxis axis = kr::drawnAxis(job_, job_.members[0]);
    EXPECT_NEAR(axis.start.x, 0, kNear);
    EXPECT_NEAR(axis.end.x, c.length, kNear);
  }
}

TEST_F(ModifierDrawing, AScaledBarStaysAtItsStartInEveryView) {
  for (const View& view : kViews) {
    SCOPED_TRACE(view.word);
    draw(view.word, R"("holes": [{"view": ")" + view.word +
                        R"(", "at": [200, 40], "diameter": 18}], "scale": "1:10", "scaleAlong": "1:50")");
    EXPECT_TRUE(hasEdge(bar(), 0, view.half / 10, 60, view.half / 10));
    EXPECT_TRUE(hasEdge(bar(), 0, view.half / 10, 0, -view.half / 10));
    const Elements holes = ofType(bar(), KR_VT_FURO);
    ASSERT_THAT(holes, SizeIs(1));
    EXPECT_TRUE(isAt(holes[0].midPoint(), 4, 4));
    const kr::MemberAxis axis = kr::drawnAxis(job_, job_.members[0]);
    EXPECT_NEAR(axis.start.x, 0, kNear);
    EXPECT_NEAR(axis.end.x, 60, kNear);
  }
}

TEST_F(ModifierDrawing, TheViewsOfABarStandBelowEachOtherWithTheirStartsToTheLeft) {
  draw("Superior", R"("holes": [{"view": "Superior", "at": [200, 30], "diameter": 18, "walls": 0},
                                {"view": "Direita", "at": [300, 40], "diameter": 14}],
                      "cuts": [{"view": "Direita", "line": [[2900, -100], [2900, 100]], "side": [2950, 0]}])");
  kr::JobView view;
  view.bar = 0;
  std::vector<kr::BarViewLabel> labels;
  const kr::Job flat = kr::barViews(job_, view, labels);
  ASSERT_THAT(flat.members, SizeIs(6));
  std::vector<AcDbObjectId> ids;
  std::string why;
  ASSERT_TRUE(kr::drawInto(flat, *session_->database(), session_->database()->modelSpaceId(), Vista, ids, why)) << why;
  ASSERT_THAT(ids, SizeIs(6));

  std::vector<std::string> words;
  for (const kr::BarViewLabel& label : labels) words.push_back(label.text);
  EXPECT_THAT(words, ElementsAre("Superior", "Direita", "Inferior", "Esquerda", "Secao", "SecaoVerso"));
  double above = 1e9;
  for (std::size_t i = 0; i < 4; ++i) {
    SCOPED_TRACE(words[i]);
    open(ids[i]);
    const View& shown = viewOf(bar().Vista(0));
    EXPECT_EQ(shown.word, words[i]);
    const double y = flat.points[flat.members[i].from].y;
    EXPECT_LT(y + shown.half, above) << "clear of the one above";
    above = y - shown.half;
    // The cut end is the bar's end: to the right.
    EXPECT_TRUE(hasEdge(bar(), 2900, y - shown.half, 2900, y + shown.half));
    EXPECT_TRUE(hasEdge(bar(), 0, y - shown.half, 0, y + shown.half));
    EXPECT_FALSE(isShownAt(2901));
    // The hole from above passes both walls at the section's X of -30; the other shows from the right alone.
    for (const KrVector& hole : ofType(bar(), KR_VT_FURO)) {
      const bool fromRight = shown.number == Direita;
      EXPECT_TRUE(isAt(hole.midPoint(), fromRight ? 300 : 200,
                       y + (fromRight                  ? 40
                            : shown.number == Superior ? 30
                                                       : -30)));
    }
    EXPECT_THAT(ofType(bar(), KR_VT_FURO), SizeIs(shown.number == Esquerda ? 0 : 1));
  }
  for (std::size_t i = 4; i < 6; ++i) {
    SCOPED_TRACE(words[i]);
    open(ids[i]);
    const bool fromEnd = words[i] == "SecaoVerso";
    EXPECT_EQ(bar().Vista(0), fromEnd ? SecaoVerso : Secao);
    const kr::JobPoint middle = flat.points[flat.members[i].from];
    EXPECT_NEAR(middle.y, 0, kNear) << "beside the first of them";
    if (fromEnd)
      EXPECT_GT(middle.x - 50, 3000);
    else
      EXPECT_LT(middle.x + 50, 0);
    // Both walls of the first hole and the wall of the second; from the end, left and right are changed.
    EXPECT_THAT(ofType(bar(), KR_VT_FURO_LINHA), SizeIs(3));
    const double side = fromEnd ? -1 : 1;
    for (const KrVector& band : ofType(bar(), KR_VT_FURO_LINHA)) {
      const double x = (band.midPoint().x - middle.x) * side;
      const double y = band.midPoint().y;
      EXPECT_TRUE((std::fabs(x + 30) < kNear && std::fabs(std::fabs(y) - 77.5) < kNear) ||
                  (std::fabs(x - 47.5) < kNear && std::fabs(y - 40) < kNear))
          << x << ' ' << y;
    }
  }
}

}  // namespace
