#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <vector>

#include "modifiers/NotchSpace.h"
#include "object/Drawing.h"

namespace {

using namespace notches;

constexpr double kPi = 3.141592653589793;
constexpr KrVistas kElevations[] = {Superior, Inferior, Esquerda, Direita};

KrObjectSplit splitAt(double z, double length) {
  KrObjectSplit split;
  split.setZPos(z);
  split.setLength(length);
  return split;
}

int contoursOf(const KrObject& member) {
  AcArray<void*> contours;
  member.Contornos(contours);
  for (void* c : contours) delete static_cast<KrObjectArray<KrVector>*>(c);
  return contours.length();
}

TEST(Split, PartsTheBarByAGapAcrossIt) {
  TestMember bar;
  makeBar(bar);
  EXPECT_EQ(bar.addSplit(splitAt(300, 20), 0), 0);
  EXPECT_EQ(contoursOf(bar), 2);
  EXPECT_TRUE(holdsLine(bar, 0, 50, 290, 50));
  EXPECT_TRUE(holdsLine(bar, 290, 50, 290, -50));
  EXPECT_TRUE(holdsLine(bar, 310, 50, 310, -50));
  EXPECT_TRUE(holdsLine(bar, 310, -50, 1000, -50));
  EXPECT_NEAR(bar.getComprimentoReal(), 1000, 1e-9);
  AcGePoint3d a, b;
  bar.GetPointsOfEixo(a, b, 1);
  EXPECT_NEAR(a.distanceTo(b), 1000, 1e-9);
  const auto once = elementsOf(bar);
  bar.Gera_KrVector();
  EXPECT_TRUE(sameList(elementsOf(bar), once, 0));
}

TEST(Split, OfNoLengthIsATenth) {
  TestMember bar;
  makeBar(bar);
  bar.addSplit(splitAt(300, 0), 0);
  EXPECT_TRUE(holdsLine(bar, 299.95, 50, 299.95, -50));
  EXPECT_TRUE(holdsLine(bar, 300.05, 50, 300.05, -50));
}

TEST(Split, TakesTheHoleInItsGap) {
  TestMember bar;
  makeBar(bar);
  KrFuro holes;
  holes.Add({0, -30, 300}, {0, 30, 300}, 14, 0, 0);
  holes.Add({0, -30, 500}, {0, 30, 500}, 14, 0, 0);
  bar.setFurosSemLink(holes);
  bar.Gera_KrVector();
  ASSERT_EQ(bar.GetNumFuros(), 2);
  bar.addSplit(splitAt(300, 20), 0);
  bar.addSplit(splitAt(700, 20), 0);
  EXPECT_EQ(contoursOf(bar), 3);
  EXPECT_EQ(bar.numSplits(), 2);
  KrObjectArray<KrVector> drawn;
  ASSERT_EQ(bar.GetFuros(drawn), 1);
  ASSERT_EQ(drawn.length(), 1);
  EXPECT_EQ(drawn[0].IndexFur(), 1) << "the hole between the gaps stays";
}

TEST(Split, LiesAtItsPlaceInEveryViewScaleAndQuarter) {
  for (const KrVistas view : kElevations) {
    for (int quarter = 0; quarter < 4; ++quarter) {
      for (const double scale : {1.0, 0.1}) {
        TestMember bar;
        bar.setAngleSecao(quarter * kPi / 2);
        makeBar(bar, view, 1000, 0.5, AcGePoint3d(100, 200, 0));
        bar.ObjectScale(scale, scale, scale);
        bar.addSplit(splitAt(300, 20), 0);
        AcGePoint3d a, b, p;
        ASSERT_EQ(bar.GetPointsOfEixo(a, b, 1), Acad::eOk);
        ASSERT_EQ(bar.splitPoint(0, p), 1);
        // Section Z runs from the start of the line in views 1 and 4, from its end in 2 and 3.
        const bool fromEnd = view == Inferior || view == Esquerda;
        const AcGePoint3d expected = fromEnd ? b + (a - b) * 0.3 : a + (b - a) * 0.3;
        EXPECT_NEAR(p.distanceTo(expected), 0, 1e-9) << view << ' ' << quarter << ' ' << scale;
        EXPECT_FALSE(isSteel(bar, p.x + 0.01, p.y + 0.02));
        const AcGePoint3d inBar = p + (b - a) * 0.02;
        EXPECT_TRUE(isSteel(bar, inBar.x, inBar.y));
        KrObjectSplit adjusted;
        ASSERT_EQ(bar.adjustSplit(adjusted, p + AcGeVector3d(-(b - a).y, (b - a).x, 0) * 0.01), Acad::eOk);
        EXPECT_NEAR(adjusted.zPos(), 300, 1e-9) << "from any point across";
      }
    }
  }
}

TEST(Split, ReachesASectionFarOffItsReference) {
  TestMember bar;
  bar.make({{{-50, 500}, {50, 500}, {50, 560}, {-50, 560}}}, Esquerda, 1000);
  bar.addSplit(splitAt(500, 20), 0);
  EXPECT_EQ(contoursOf(bar), 2);
}

// The regeneration measures the steel that is drawn.
TEST(Split, WhoseGapReachesPastTheEndEndsTheBarThere) {
  TestMember bar;
  makeBar(bar);
  EXPECT_EQ(bar.addSplit(splitAt(995, 20), 0), 0);
  for (int round = 0; round < 3; ++round) {
    bar.Gera_KrVector();
    EXPECT_NEAR(bar.getComprimentoReal(), 985, 1e-9);
    EXPECT_NEAR(bar.GetMaxX(VistaCorrente), 985, 1e-9);
  }
}

TEST(Split, HasNoPlaceInASectionAndOutsideTheList) {
  TestMember bar;
  makeBar(bar, Secao);
  bar.addSplit(splitAt(300, 20), 0);
  AcGePoint3d p(1, 2, 3);
  EXPECT_EQ(bar.splitPoint(0, p), 0);
  TestMember elevation;
  makeBar(elevation);
  EXPECT_EQ(elevation.splitPoint(0, p), 0);
  elevation.addSplit(splitAt(300, 20), 0);
  EXPECT_EQ(elevation.splitPoint(1, p), 0);
  EXPECT_EQ(elevation.splitPoint(-1, p), 0);
  EXPECT_EQ(p.x, 1);
}

TEST(Split, IsRefusedWithoutAPlace) {
  TestMember bar;
  makeBar(bar);
  const auto before = elementsOf(bar);
  EXPECT_EQ(bar.addSplit(splitAt(std::nan(""), 20), 0), -1);
  EXPECT_EQ(bar.addSplit(splitAt(300, HUGE_VAL), 0), -1);
  EXPECT_EQ(bar.numSplits(), 0);
  EXPECT_TRUE(sameList(elementsOf(bar), before, 0));
}

TEST(Split, OfNegativeLengthIsTheSameGap) {
  TestMember bar;
  makeBar(bar);
  bar.addSplit(splitAt(300, -20), 0);
  EXPECT_TRUE(holdsLine(bar, 290, 50, 290, -50));
  EXPECT_TRUE(holdsLine(bar, 310, 50, 310, -50));
}

/// A bar in a drawing, which is made anew when it is closed.
class DrawnBar : public testing::Test {
 protected:
  DrawnBar() {
    auto* bar = new TestMember;
    makeBar(*bar);
    id_ = drawing_.append(bar);
  }

  template <class Use>
  void open(Use use) {
    AcDbObject* object = nullptr;
    ASSERT_EQ(acdbOpenAcDbObject(object, id_, AcDb::kForWrite), Acad::eOk);
    use(static_cast<TestMember&>(*object));
    object->close();
  }

  Drawing drawing_;
  AcDbObjectId id_;
};

TEST_F(DrawnBar, TakesADeferredSplitWhenItIsClosed) {
  open([](TestMember& bar) {
    EXPECT_EQ(bar.addSplit(splitAt(300, 20), 1), 0);
    EXPECT_EQ(bar.numSplits(), 1);
    EXPECT_EQ(contoursOf(bar), 1);
  });
  open([](TestMember& bar) { EXPECT_EQ(contoursOf(bar), 2); });
}

// --- Visual limits ---------------------------------------------------------------------------------------------------

std::vector<KrVector> breakLines(const KrObject& member) {
  std::vector<KrVector> found;
  for (const KrVector& v : elementsOf(member))
    if (v.tipo() == KR_VF_LIMITE) found.push_back(v);
  return found;
}

TEST(VisualLimit, AddsNothingToAWholeBar) {
  TestMember bar;
  makeBar(bar);
  const auto whole = elementsOf(bar);
  bar.setVisualRepStart(0.0);
  bar.setVisualRepEnd(1.0);
  bar.Gera_KrVector();
  EXPECT_TRUE(sameList(elementsOf(bar), whole, 0));
}

TEST(VisualLimit, DrawsABreakLineAndHidesWhatLiesBeyond) {
  TestMember bar;
  makeBar(bar);
  bar.setVisualRepStart(0.2);
  bar.Gera_KrVector();
  const auto lines = breakLines(bar);
  ASSERT_EQ(lines.size(), 5u);
  // The bar is 100 wide: the symbol of scale 1 reaches 56 to both sides.
  const double x[] = {200, 200, 185, 215, 200, 200}, y[] = {56, 10, 2, -2, -10, -56};
  for (std::size_t k = 0; k < 5; ++k) {
    EXPECT_TRUE(runs(lines[k], x[k], y[k], x[k + 1], y[k + 1])) << k;
    EXPECT_TRUE(sameElement(lines[k], elementsOf(bar)[k], 0)) << "they stand first";
    EXPECT_EQ(lines[k].type(), KR_VT_LINHA);
    EXPECT_EQ(lines[k].typeEx(), KR_VTX_NENHUM);
    EXPECT_EQ(lines[k].IndexFur(), -1);
    EXPECT_EQ(lines[k].hidden(), 0);
  }
  for (const KrVector& v : elementsOf(bar)) {
    if (v.tipo() != KR_VF_ARESTA) continue;
    EXPECT_EQ(v.hidden(), v.midPoint().x < 200 ? 1 : 0) << v.midPoint().x;
  }
  EXPECT_NEAR(bar.getComprimentoReal(), 1000, 1e-9);
  const auto once = elementsOf(bar);
  bar.Gera_KrVector();
  EXPECT_TRUE(sameList(elementsOf(bar), once, 0));
}

TEST_F(DrawnBar, ShowsALimitWhenItIsClosed) {
  open([](TestMember& bar) {
    bar.setVisualRepEnd(0.7);
    EXPECT_TRUE(breakLines(bar).empty());
  });
  open([](TestMember& bar) {
    EXPECT_EQ(breakLines(bar).size(), 5u);
    bar.setVisualRepStart(0.2);
    EXPECT_EQ(breakLines(bar).size(), 5u);
  });
  open([](TestMember& bar) {
    EXPECT_EQ(breakLines(bar).size(), 10u);
    bar.setVisualRepScale(0.5);
  });
  open([](TestMember& bar) {
    // The far end of the zigzag's second line stands 15 of the symbol's size behind the limit.
    EXPECT_TRUE(runs(breakLines(bar)[1], 700, 5, 700 - 7.5, 1));
  });
}

TEST(VisualLimit, AtBothEndsLeavesTheMiddle) {
  for (const KrVistas view : kElevations) {
    for (const double scale : {1.0, 0.1}) {
      TestMember bar;
      makeBar(bar, view, 1000, 1.1, AcGePoint3d(7, 8, 0));
      bar.ObjectScale(scale, scale, scale);
      bar.setVisualRepStart(0.3);
      bar.setVisualRepEnd(0.6);
      bar.Gera_KrVector();
      EXPECT_EQ(breakLines(bar).size(), 10u);
      AcGePoint3d a, b, p, q;
      bar.GetPointsOfEixo(a, b, 1);
      ASSERT_EQ(bar.visualRepStartPoint(p), Acad::eOk);
      ASSERT_EQ(bar.visualRepEndPoint(q), Acad::eOk);
      EXPECT_NEAR(p.distanceTo(a + (b - a) * 0.3), 0, 1e-9);
      EXPECT_NEAR(q.distanceTo(a + (b - a) * 0.6), 0, 1e-9);
      const AcGeVector3d along = (b - a).normal();
      for (const KrVector& v : elementsOf(bar)) {
        if (v.tipo() != KR_VF_ARESTA) continue;
        const double at = (v.midPoint() - a).dotProduct(along) / (b - a).length();
        EXPECT_EQ(v.hidden(), at < 0.3 || at > 0.6 ? 1 : 0) << at;
      }
    }
  }
}

TEST(VisualLimit, HasASymbolNoLargerThanAFiftiethOfTheWidth) {
  // 100 wide: a fiftieth is 2. So large is a negative scale, and any above.
  for (const double scale : {-1.0, 2.5, 2.0}) {
    TestMember bar;
    makeBar(bar);
    bar.setVisualRepScale(scale);
    bar.setVisualRepEnd(0.5);
    bar.Gera_KrVector();
    const auto lines = breakLines(bar);
    ASSERT_EQ(lines.size(), 5u);
    EXPECT_TRUE(runs(lines[2], 500 - 30, 4, 500 + 30, -4)) << scale;
  }
  TestMember bar;
  makeBar(bar);
  EXPECT_NE(bar.setVisualRepScale(std::nan("")), Acad::eOk);
  EXPECT_EQ(bar.visualRepScale(), 1);
}

TEST(VisualLimit, IsClampedAndNeverPassesTheOther) {
  TestMember bar;
  makeBar(bar);
  bar.setVisualRepStart(1.5);
  EXPECT_EQ(bar.visualRepStart(), 0);
  bar.setVisualRepEnd(1.5);
  EXPECT_EQ(bar.visualRepEnd(), 1);
  bar.setVisualRepEnd(0.6);
  bar.setVisualRepStart(0.6);
  EXPECT_EQ(bar.visualRepStart(), 0);
  bar.setVisualRepStart(-3);
  EXPECT_EQ(bar.visualRepStart(), 0);
  bar.setVisualRepStart(0.4);
  bar.setVisualRepEnd(0.4);
  EXPECT_EQ(bar.visualRepEnd(), 0.6);
  bar.setVisualRepStart(std::nan(""));
  bar.setVisualRepEnd(std::nan(""));
  EXPECT_EQ(bar.visualRepStart(), 0.4);
  EXPECT_EQ(bar.visualRepEnd(), 0.6);
}

TEST(VisualLimit, IsSetFromAPointOfTheDrawing) {
  TestMember bar;
  makeBar(bar, Superior, 1000, kPi / 2, AcGePoint3d(10, 20, 0));
  EXPECT_EQ(bar.setVisualRepStart(AcGePoint3d(77, 220, 0), 0), Acad::eOk);
  EXPECT_EQ(bar.setVisualRepEnd(AcGePoint3d(-77, 820, 0), 0), Acad::eOk);
  EXPECT_NEAR(bar.visualRepStart(), 0.2, 1e-12);
  EXPECT_NEAR(bar.visualRepEnd(), 0.8, 1e-12);
  AcGePoint3d a, b;
  bar.GetPointsOfEixo(a, b, 0);
  EXPECT_NEAR(a.y, 20, 1e-9) << "the axis line stays";
}

TEST(VisualLimit, TakesTheAxisLinesEndWithItOnRequest) {
  TestMember bar;
  makeBar(bar);
  bar.setVisualRepStart(AcGePoint3d(200, 33, 0), 1);
  bar.setVisualRepEnd(AcGePoint3d(700, 33, 0), 1);
  AcGePoint3d a, b;
  bar.GetPointsOfEixo(a, b, 0);
  EXPECT_TRUE(a.isEqualTo({200, 0, 0}));
  EXPECT_TRUE(b.isEqualTo({700, 0, 0}));
  EXPECT_TRUE(bar.startPoint().isEqualTo({200, 0, 0})) << "the member's ends follow the axis line";
  EXPECT_TRUE(bar.endPoint().isEqualTo({700, 0, 0}));
  EXPECT_NEAR(bar.visualRepStart(), 0.2, 1e-12);
  bar.setVisualRepStart(AcGePoint3d(-100, 0, 0), 1);
  bar.GetPointsOfEixo(a, b, 0);
  EXPECT_TRUE(a.isEqualTo({200, 0, 0})) << "beyond the axis line it isn't moved";
  EXPECT_EQ(bar.visualRepStart(), 0);
}

TEST(VisualLimit, HasNoPlaceInASection) {
  TestMember bar;
  makeBar(bar, Secao);
  AcGePoint3d p;
  EXPECT_EQ(bar.visualRepStartPoint(p), Acad::eNotApplicable);
  EXPECT_EQ(bar.visualRepEndPoint(p), Acad::eNotApplicable);
  const auto before = elementsOf(bar);
  bar.setVisualRepStart(0.5);
  bar.Gera_KrVector();
  EXPECT_TRUE(sameList(elementsOf(bar), before, 0));
}

TEST(VisualLimit, HidesWhatOtherModifiersMadeAndLeavesTheTagsOfWhatItDoesNotSplit) {
  TestMember bar;
  makeBar(bar);
  ASSERT_EQ(notch(bar, rectangle(100, 20, 200, 90), AcGePoint2d(150, 40)), Acad::eOk);
  bar.setVisualRepStart(0.5);
  bar.Gera_KrVector();
  const auto made = tagged(bar, KR_VTX_RECORTE);
  ASSERT_EQ(made.size(), 3u);
  for (const KrVector& v : made) EXPECT_EQ(v.hidden(), 1);
  EXPECT_EQ(shown(bar).length(), 1);
}

}  // namespace
