// The drawing scale of a member.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "object/Drawing.h"
#include "object/ElementLists.h"
#include "object/TestMember.h"

namespace {

constexpr double kPi = 3.141592653589793;

const KrVistas kViews[] = {Secao, Superior, Inferior, Esquerda, Direita, SecaoVerso};
const KrVistas kElevations[] = {Superior, Inferior, Esquerda, Direita};
const oracle::Outline kAngle = {{{0, 0}, {0, 120}, {12, 120}, {12, 8}, {60, 8}, {60, 0}}};

void makeDrilled(TestMember& member, KrVistas view) {
  KrFuro holes;
  holes.Add(AcGeVector3d(0, 60, 120), AcGeVector3d(12, 60, 120), 18, 0, 0);
  holes.Add(AcGeVector3d(40, 0, 700), AcGeVector3d(40, 8, 700), 14, 20, 0.3);
  member.setFurosSemLink(holes);
  member.make(kAngle, view, 1000, 0.7, {500, 80, 0});
}

AcGePoint3d along(double x, double y) {
  return AcGePoint3d(500 + x * std::cos(0.7) - y * std::sin(0.7), 80 + x * std::sin(0.7) + y * std::cos(0.7), 0);
}

TEST(DrawingScale, CloserThanAHundredthChangesNothing) {
  TestMember member;
  makeDrilled(member, Superior);
  const lists::Elements before = lists::of(member, Superior);
  EXPECT_EQ(member.ObjectScale(1.005, 1, 1), Acad::eOk);
  EXPECT_THAT(lists::of(member, Superior), lists::Are(before));
  double x = 0;
  member.Xscale(x);
  EXPECT_EQ(x, 1.0);
}

TEST(DrawingScale, AHundredthIsAbsoluteSoThatFrom1To50To1To100NothingChanges) {
  TestMember member;
  makeDrilled(member, Superior);
  member.ObjectScale(0.02, 0.02, 0.02);
  const lists::Elements before = lists::of(member, Superior);
  EXPECT_EQ(member.ObjectScale(0.01, 0.01, 0.01), Acad::eOk);
  double x = 0;
  member.Xscale(x);
  EXPECT_EQ(x, 0.02);
  EXPECT_THAT(lists::of(member, Superior), lists::Are(before));
}

TEST(DrawingScale, IsAlongAndAcrossTheBarAboutItsStart) {
  TestMember member;
  member.make(kAngle, Superior, 1000, 0.7, {500, 80, 0});
  lists::Elements want = lists::of(member, Superior);
  member.ObjectScale(0.1, 0.5, 1);
  const lists::Elements got = lists::of(member, Superior);
  const AcGeMatrix3d back = AcGeMatrix3d::rotation(-0.7, AcGeVector3d::kZAxis, AcGePoint3d(500, 80, 0));
  for (std::size_t i = 0; i < want.size(); ++i) {
    const AcGePoint3d s = back * want[i].startPoint();
    const AcGePoint3d e = back * want[i].endPoint();
    EXPECT_LT(got[i].startPoint().distanceTo(along((s.x - 500) * 0.1, (s.y - 80) * 0.5)), 1e-9);
    EXPECT_LT(got[i].endPoint().distanceTo(along((e.x - 500) * 0.1, (e.y - 80) * 0.5)), 1e-9);
    EXPECT_NEAR(got[i].len(), got[i].startPoint().distanceTo(got[i].endPoint()), 1e-9);
  }
  EXPECT_LT(member.endPoint().distanceTo(along(100, 0)), 1e-9);
  double length = 0;
  member.Comprimento(length);
  EXPECT_DOUBLE_EQ(length, 100);
  EXPECT_DOUBLE_EQ(member.getComprimentoReal(), 1000);
}

TEST(DrawingScale, ThereAndBackLeavesModelAndList) {
  for (const KrVistas view : kViews) {
    for (const double scale : {0.1, 0.04, 3.0}) {
      SCOPED_TRACE(testing::Message() << "view " << view << " at " << scale);
      TestMember member;
      makeDrilled(member, view);
      const lists::Elements before = lists::of(member, view);
      member.ObjectScale(scale, scale / 2, scale);
      member.ObjectScale(1, 1, 1);
      EXPECT_THAT(lists::of(member, view), lists::ShowTheSameAs(before));
      EXPECT_NEAR(member.getComprimentoReal(), 1000, 1e-9);
      EXPECT_LT(member.startPoint().distanceTo(AcGePoint3d(500, 80, 0)), 1e-12);
      // And so it does when the bar is made anew at the scale in between.
      member.ObjectScale(scale, scale / 2, scale);
      member.Gera_KrVector();
      member.Gera_KrVector();
      member.ObjectScale(1, 1, 1);
      EXPECT_THAT(lists::of(member, view), lists::ShowTheSameAs(before));
      EXPECT_NEAR(member.getComprimentoReal(), 1000, 1e-8);
    }
  }
}

TEST(DrawingScale, KeepsEveryElementTypeThereAndBack) {
  TestMember member;
  member.make(kAngle, Superior, 1000, 0.7, {500, 80, 0});
  const AcGePoint3d p(40, 50, 0), q(80, -30, 0), r(70, 30, 0);
  KrVector arc(p, r, q, KR_VT_ARCO);
  arc.setTipo(KR_VF_ARESTA);
  KrVector hiddenArc(p, r, q, KR_VT_ARCO_OCULTO);
  KrVector circle(p, 25);
  circle.setHidden(1);
  KrVector oblong(q, 9, 2, 0, KR_VT_FURO, KR_VF_FURO_OBLONGO, 0.7, 30);
  oblong.setIndexFur(4);
  oblong.setTypeEx(KR_VTX_FURO);
  KrVector centreLine(p, q, KR_VT_FURO_EIXO);
  centreLine.setIndexFur(4);
  KrVector band(p, q, KR_VT_FURO_LINHA);
  band.setRaio(11);
  band.setIndexFur(2);
  for (const KrVector& v : {arc, hiddenArc, circle, oblong, centreLine, band, KrVector(p, q, KR_VT_LINHA_OCULTA)})
    member.AddVertex(v, Superior);
  lists::Elements before = lists::of(member, Superior);
  member.ObjectScale(0.1, 0.1, 0.1);
  EXPECT_NE(lists::of(member, Superior).back().len(), before.back().len());
  member.ObjectScale(1, 1, 1);
  const lists::Elements after = lists::of(member, Superior);
  ASSERT_EQ(after.size(), before.size());
  for (std::size_t i = 0; i < after.size(); ++i) {
    SCOPED_TRACE(testing::Message() << "type " << before[i].type());
    EXPECT_TRUE(lists::same(after[i], before[i], 1e-9));
  }
}

TEST(DrawingScale, AHoleStaysRoundByTheSecondFactor) {
  TestMember member;
  KrFuro holes;
  holes.Add(AcGeVector3d(0, 60, 120), AcGeVector3d(12, 60, 120), 18, 0, 0);
  member.setFurosSemLink(holes);
  member.make(kAngle, Esquerda, 1000);
  member.ObjectScale(0.5, 0.25, 1);
  KrObjectArray<KrVector> drawn;
  ASSERT_EQ(member.GetFuros(drawn), 1);
  EXPECT_EQ(drawn[0].type(), KR_VT_FURO);
  EXPECT_EQ(drawn[0].tipo(), KR_VF_FURO_REDONDO);
  EXPECT_NEAR(drawn[0].radius(), 9 * 0.25, 1e-12);
  EXPECT_NEAR(drawn[0].midPoint().x, 440, 1e-9) << "880 from the drawn start, at half the scale";
}

TEST(DrawingScale, AHolesCentreLineKeepsItsSize) {
  TestMember member;
  makeDrilled(member, Esquerda);
  const auto armLength = [&] {
    for (const KrVector& v : lists::of(member, Esquerda))
      if (v.type() == KR_VT_FURO_EIXO) return v.len();
    return 0.0;
  };
  const double before = armLength();
  ASSERT_GT(before, 0);
  member.ObjectScale(0.1, 0.1, 0.1);
  EXPECT_NEAR(armLength(), before, 1e-9);
}

TEST(DrawingScale, TheBandOfAHoleAndACircleFollowTheSecondFactor) {
  TestMember member;
  member.make(kAngle, Superior, 1000);
  KrVector band(AcGePoint3d(100, 0, 0), AcGePoint3d(100, 12, 0), KR_VT_FURO_LINHA);
  band.setRaio(11);
  member.AddVertex(band, Superior);
  member.AddVertex(KrVector(AcGePoint3d(50, 60, 0), 25), Superior);
  member.ObjectScale(0.5, 0.1, 1);
  const lists::Elements all = lists::of(member, Superior);
  EXPECT_NEAR(all[all.size() - 2].radius(), 1.1, 1e-12) << "a band of 22 mm is 2.2 mm wide at 1:10";
  EXPECT_NEAR(all.back().radius(), 2.5, 1e-12);
  EXPECT_NEAR(all.back().len(), 2.5, 1e-12) << "a circle is drawn by its length";
  EXPECT_TRUE(all.back().midPoint().isEqualTo(AcGePoint3d(25, 6, 0)));
}

TEST(DrawingScale, AlwaysPassesThroughOneToOne) {
  TestMember member;
  member.make(kAngle, Superior, 1000);
  member.ObjectScale(0.1, 0.1, 0.1);
  member.ObjectScale(0.25, 0.5, 1);
  AcGePoint3d a, b;
  member.GetPointsOfEixo(a, b, 1);
  EXPECT_LT(b.distanceTo(AcGePoint3d(250, 0, 0)), 1e-9);
  EXPECT_NEAR(member.getComprimentoReal(), 1000, 1e-9);
}

TEST(DrawingScale, OfNothingOrNoNumberIsRefused) {
  TestMember member;
  member.make(kAngle, Superior, 1000);
  const lists::Elements before = lists::of(member, Superior);
  for (const double bad : {0.0, -1.0, 5e-310, std::nan(""), static_cast<double>(INFINITY)}) {
    EXPECT_EQ(member.ObjectScale(bad, 1, 1), Acad::eInvalidInput);
    EXPECT_EQ(member.ObjectScale(1, 1, bad), Acad::eInvalidInput);
  }
  EXPECT_THAT(lists::of(member, Superior), lists::Are(before));
  double x = 0;
  member.Xscale(x);
  EXPECT_EQ(x, 1.0);
}

TEST(DrawingScale, TheSettersRescaleNothing) {
  TestMember member;
  member.make(kAngle, Superior, 1000);
  const lists::Elements before = lists::of(member, Superior);
  member.setXscale(0.1);
  member.setYscale(0.1);
  member.setZscale(0.1);
  EXPECT_THAT(lists::of(member, Superior), lists::Are(before));
}

TEST(DrawingScale, RegenerationOfAnotherViewLeavesTheListShown) {
  TestMember member;
  makeDrilled(member, Superior);
  member.ObjectScale(0.1, 0.1, 0.1);
  const lists::Elements shown = lists::of(member, Superior);
  member.Gera_KrVector(Esquerda);
  EXPECT_THAT(lists::of(member, Superior), lists::Are(shown));
  const lists::Elements once = lists::of(member, Esquerda);
  member.Gera_KrVector(Esquerda);
  EXPECT_THAT(lists::of(member, Esquerda), lists::Are(once));
  EXPECT_THAT(lists::of(member, Superior), lists::Are(shown));
  EXPECT_NEAR(member.GetMaxX(Esquerda) - member.GetMinX(Esquerda), 100 * std::cos(0.7) + 12 * std::sin(0.7), 1e-8)
      << "list 3 at 1:10: 100 long, 12 high";
  EXPECT_EQ(member.Vista(0), Superior);
}

// --- Along the bar ---------------------------------------------------------------------------------------------------

TEST(AxialScale, LeavesItsBaseWhereItWas) {
  for (const KrVistas view : kElevations) {
    TestMember member;
    member.make(kAngle, view, 1000, 0.7, {500, 80, 0});
    const AcGePoint3d end = member.endPoint();
    EXPECT_EQ(member.ObjectScaleAxl(end, 0.5), Acad::eOk);
    EXPECT_LT(member.endPoint().distanceTo(end), 1e-9);
    EXPECT_LT(member.startPoint().distanceTo(along(500, 0)), 1e-9);
    EXPECT_NEAR(member.getComprimentoReal(), 1000, 1e-9);
  }
}

TEST(AxialScale, MovesTheBarAlongItselfOnly) {
  TestMember member;
  member.make(kAngle, Superior, 1000, 0.7, {500, 80, 0});
  member.ObjectScaleAxl(along(400, 250), 0.5);
  EXPECT_LT(member.startPoint().distanceTo(along(200, 0)), 1e-9);
  AcGePoint3d a, b;
  member.GetPointsOfEixo(a, b, 1);
  EXPECT_LT(b.distanceTo(along(700, 0)), 1e-9);
}

TEST(AxialScale, MakesTheOtherScalesOne) {
  TestMember member;
  member.make(kAngle, Superior, 1000);
  member.ObjectScale(0.1, 0.1, 0.1);
  member.ObjectScaleAxl(member.startPoint(), 0.5);
  double x = 0, y = 0, z = 0;
  member.Xscale(x);
  member.Yscale(y);
  member.Zscale(z);
  EXPECT_EQ(x, 0.5);
  EXPECT_EQ(y, 1.0);
  EXPECT_EQ(z, 1.0);
}

TEST(AxialScale, WithinAHundredthMovesNothingEither) {
  TestMember member;
  member.make(kAngle, Superior, 1000);
  const lists::Elements before = lists::of(member, Superior);
  member.ObjectScaleAxl(AcGePoint3d(1000, 0, 0), 1.005);
  EXPECT_THAT(lists::of(member, Superior), lists::Are(before));
}

// --- Marks of the member ---------------------------------------------------------------------------------------------

class MarksOfAMember : public testing::Test {
 protected:
  /// A member from (500, 80) along 0.7 with marks of its own, and the ids of these.
  void link(const std::vector<AcDbEntity*>& marks) {
    for (AcDbEntity* mark : marks) ids.append(drawing.append(mark));
    member.make(kAngle, Superior, 1000, 0.7, {500, 80, 0});
    member.setRelativePos(&ids);
  }

  template <class T, class Read>
  auto read(int i, Read get) {
    T* entity = nullptr;
    if (acdbOpenObject(entity, ids[i], AcDb::kForRead) != Acad::eOk) throw std::runtime_error("no such mark");
    const auto value = get(*entity);
    entity->close();
    return value;
  }

  Drawing drawing;
  AcDbObjectIdArray ids;
  TestMember member;
};

TEST_F(MarksOfAMember, FollowTheScaleByTheirPoints) {
  auto* polyline = new AcDbPolyline;
  polyline->addVertexAt(0, AcGePoint2d(along(10, 10).x, along(10, 10).y));
  polyline->addVertexAt(1, AcGePoint2d(along(60, 10).x, along(60, 10).y));
  auto* paragraph = new AcDbMText;
  paragraph->setLocation(along(300, -40));
  auto* text = new AcDbText(along(300, 40), L"P1", AcDbObjectId::kNull, 2.5, 0);
  link({new AcDbLine(along(100, 20), along(200, 50)), new AcDbCircle(along(400, 30), AcGeVector3d::kZAxis, 8), text,
        paragraph, polyline});
  ASSERT_EQ(member.ObjectScale(0.1, 0.5, 1), Acad::eOk);
  const auto near = [](const AcGePoint3d& p, const AcGePoint3d& q) { return p.distanceTo(q) < 1e-9; };
  EXPECT_TRUE(near(read<AcDbLine>(0, [](auto& e) { return e.startPoint(); }), along(10, 10)));
  EXPECT_TRUE(near(read<AcDbLine>(0, [](auto& e) { return e.endPoint(); }), along(20, 25)));
  EXPECT_TRUE(near(read<AcDbCircle>(1, [](auto& e) { return e.center(); }), along(40, 15)));
  EXPECT_DOUBLE_EQ(read<AcDbCircle>(1, [](auto& e) { return e.radius(); }), 8) << "a mark keeps its size";
  EXPECT_TRUE(near(read<AcDbText>(2, [](auto& e) { return e.position(); }), along(30, 20)));
  EXPECT_TRUE(near(read<AcDbMText>(3, [](auto& e) { return e.location(); }), along(30, -20)));
  const auto vertex = [&](unsigned i) {
    return read<AcDbPolyline>(4, [i](auto& e) {
      AcGePoint3d p;
      e.getPointAt(i, p);
      return p;
    });
  };
  EXPECT_TRUE(near(vertex(0), along(1, 5)));
  EXPECT_TRUE(near(vertex(1), along(6, 5)));

  ASSERT_EQ(member.ObjectScale(1, 1, 1), Acad::eOk);
  EXPECT_TRUE(near(read<AcDbLine>(0, [](auto& e) { return e.endPoint(); }), along(200, 50)));
  EXPECT_TRUE(near(vertex(1), along(60, 10)));
}

TEST_F(MarksOfAMember, AJustifiedTextFollowsByItsAlignmentPoint) {
  auto* text = new AcDbText(along(300, 40), L"P1", AcDbObjectId::kNull, 2.5, 0);
  text->setHorizontalMode(AcDb::kTextCenter);
  text->setAlignmentPoint(along(310, 40));
  link({text});
  member.ObjectScale(0.1, 0.5, 1);
  EXPECT_LT(read<AcDbText>(0, [](auto& e) { return e.alignmentPoint(); }).distanceTo(along(31, 20)), 1e-9);
}

TEST_F(MarksOfAMember, ALinkedMemberMovesWithoutBeingScaled) {
  auto* other = new TestMember;
  other->make(kAngle, Secao, 1000, 0, along(600, -200));
  link({other});
  member.ObjectScale(0.1, 0.5, 1);
  EXPECT_LT(read<KrObject>(0, [](auto& e) { return e.startPoint(); }).distanceTo(along(60, -100)), 1e-9);
  EXPECT_DOUBLE_EQ(read<KrObject>(0, [](auto& e) { return e.getComprimentoReal(); }), 1000);
  double x = read<KrObject>(0, [](auto& e) {
    double scale = 0;
    e.Xscale(scale);
    return scale;
  });
  EXPECT_EQ(x, 1.0);
}

TEST_F(MarksOfAMember, AnyOtherClassStays) {
  auto* arc = new AcDbArc;
  arc->setCenter(along(100, 20));
  arc->setRadius(5);
  link({arc});
  member.ObjectScale(0.1, 0.5, 1);
  EXPECT_LT(read<AcDbArc>(0, [](auto& e) { return e.center(); }).distanceTo(along(100, 20)), 1e-9);
}

TEST_F(MarksOfAMember, OneThatIsGoneIsLeftOut) {
  link({new AcDbLine(along(100, 20), along(200, 50)), new AcDbLine(along(100, 20), along(200, 50))});
  AcDbEntity* line = nullptr;
  ASSERT_EQ(acdbOpenObject(line, ids[0], AcDb::kForWrite), Acad::eOk);
  line->erase();
  line->close();
  EXPECT_EQ(member.ObjectScale(0.1, 0.5, 1), Acad::eOk);
  EXPECT_LT(read<AcDbLine>(1, [](auto& e) { return e.endPoint(); }).distanceTo(along(20, 25)), 1e-9);
}

TEST_F(MarksOfAMember, FollowAnAxialScaleToItsBase) {
  link({new AcDbLine(along(1000, 20), along(600, 50))});
  member.ObjectScaleAxl(along(1000, 0), 0.5);
  EXPECT_LT(read<AcDbLine>(0, [](auto& e) { return e.startPoint(); }).distanceTo(along(1000, 20)), 1e-9);
  EXPECT_LT(read<AcDbLine>(0, [](auto& e) { return e.endPoint(); }).distanceTo(along(800, 50)), 1e-9);
}

TEST_F(MarksOfAMember, StandStillInARegeneration) {
  link({new AcDbLine(along(100, 20), along(200, 50))});
  member.ObjectScale(0.1, 0.5, 1);
  member.Gera_KrVector();
  EXPECT_LT(read<AcDbLine>(0, [](auto& e) { return e.endPoint(); }).distanceTo(along(20, 25)), 1e-9);
}

// --- Dimensions of the member ----------------------------------------------------------------------------------------

class DimensionsOfAMember : public MarksOfAMember {
 protected:
  void dimension(const std::vector<AcDbEntity*>& dimensions) {
    for (AcDbEntity* entity : dimensions) ids.append(drawing.append(entity));
    member.make(kAngle, Superior, 1000, 0.7, {500, 80, 0});
    member.setRelativeDim(&ids);
  }

  std::wstring textOf(int i) {
    return read<AcDbDimension>(i, [](const AcDbDimension& d) {
      ACHAR* text = d.dimensionText();
      const std::wstring copy = text;
      acutDelString(text);
      return copy;
    });
  }
};

TEST_F(DimensionsOfAMember, FollowTheScaleAndTellTheRealSize) {
  dimension({new AcDbAlignedDimension(along(100, 0), along(350, 0), along(200, 60)),
             new AcDbRotatedDimension(0.7 + kPi / 2, along(100, 0), along(120, 50), along(90, 20))});
  ASSERT_EQ(member.ObjectScale(0.1, 0.5, 1), Acad::eOk);
  const auto near = [](const AcGePoint3d& p, const AcGePoint3d& q) { return p.distanceTo(q) < 1e-9; };
  EXPECT_TRUE(near(read<AcDbAlignedDimension>(0, [](auto& d) { return d.xLine1Point(); }), along(10, 0)));
  EXPECT_TRUE(near(read<AcDbAlignedDimension>(0, [](auto& d) { return d.xLine2Point(); }), along(35, 0)));
  EXPECT_TRUE(near(read<AcDbAlignedDimension>(0, [](auto& d) { return d.dimLinePoint(); }), along(20, 30)));
  EXPECT_TRUE(near(read<AcDbRotatedDimension>(1, [](auto& d) { return d.xLine2Point(); }), along(12, 25)));
  EXPECT_NEAR(read<AcDbRotatedDimension>(1, [](auto& d) { return d.rotation(); }), 0.7 + kPi / 2, 1e-12)
      << "across the bar stays across";
  EXPECT_EQ(std::stod(textOf(0)), 250);
  EXPECT_EQ(std::stod(textOf(1)), 50);
  ASSERT_EQ(member.ObjectScale(1, 1, 1), Acad::eOk);
  EXPECT_TRUE(near(read<AcDbAlignedDimension>(0, [](auto& d) { return d.xLine2Point(); }), along(350, 0)));
  EXPECT_EQ(std::stod(textOf(0)), 250);
}

TEST_F(DimensionsOfAMember, AddedAtAScaleTellTheRealSizeFromTheNextOn) {
  member.make(kAngle, Superior, 1000, 0.7, {500, 80, 0});
  member.ObjectScale(0.1, 0.1, 0.1);
  ids.append(drawing.append(new AcDbAlignedDimension(along(10, 0), along(35, 0), along(20, 60))));
  member.setRelativeDim(&ids);
  member.Gera_KrVector();
  EXPECT_EQ(std::stod(textOf(0)), 250);
  EXPECT_LT(read<AcDbAlignedDimension>(0, [](auto& d) { return d.xLine2Point(); }).distanceTo(along(35, 0)), 1e-9);
}

TEST_F(DimensionsOfAMember, KeepATextOfTheirOwn) {
  dimension({new AcDbAlignedDimension(along(100, 0), along(350, 0), along(200, 60), L"to suit")});
  member.ObjectScale(0.1, 0.1, 0.1);
  EXPECT_EQ(textOf(0), L"to suit");
}

TEST_F(DimensionsOfAMember, ARotatedOneMeasuresAlongWhatItMeasured) {
  // 45 degrees to the bar; at half the scale along it, that line rises by 2 in 1.
  dimension({new AcDbRotatedDimension(0.7 + kPi / 4, along(100, 0), along(200, 100), along(90, 20))});
  member.ObjectScale(0.5, 1, 1);
  EXPECT_NEAR(read<AcDbRotatedDimension>(0, [](auto& d) { return d.rotation(); }), 0.7 + std::atan2(2, 1), 1e-12);
}

TEST_F(DimensionsOfAMember, AnOrdinateTellsItsPlaceInTheDrawing) {
  auto* ordinate = new AcDbOrdinateDimension(true, along(300, 0), along(300, 80));
  ordinate->setOrigin(along(0, 0));
  dimension({ordinate});
  member.ObjectScale(0.1, 0.1, 0.1);
  EXPECT_LT(read<AcDbOrdinateDimension>(0, [](auto& d) { return d.definingPoint(); }).distanceTo(along(30, 0)), 1e-9);
  EXPECT_LT(read<AcDbOrdinateDimension>(0, [](auto& d) { return d.leaderEndPoint(); }).distanceTo(along(30, 8)), 1e-9);
  // The style's number of decimals rounds it: 300 cos 0.7 = 229.4526.
  EXPECT_NEAR(std::stod(textOf(0)), 300 * std::cos(0.7), 0.005) << "along the drawing's X, at real size";
}

TEST_F(DimensionsOfAMember, ALeaderFollowsByItsVertices) {
  const auto leader = [] {
    auto* made = new AcDbLeader;
    made->appendVertex(along(100, 20));
    made->appendVertex(along(200, 60));
    return made;
  };
  dimension({leader()});
  AcDbObjectIdArray marks;
  marks.append(drawing.append(leader()));
  member.setRelativePos(&marks);
  ids.append(marks[0]);
  member.ObjectScale(0.1, 0.5, 1);
  for (const int i : {0, 1}) {
    EXPECT_LT(read<AcDbLeader>(i, [](auto& l) { return l.vertexAt(0); }).distanceTo(along(10, 10)), 1e-9);
    EXPECT_LT(read<AcDbLeader>(i, [](auto& l) { return l.vertexAt(1); }).distanceTo(along(20, 30)), 1e-9);
  }
}

TEST_F(DimensionsOfAMember, OfAnyOtherKindStay) {
  auto* radial = new AcDbRadialDimension;
  radial->setCenter(along(100, 0));
  radial->setChordPoint(along(120, 0));
  dimension({radial});
  member.ObjectScale(0.1, 0.5, 1);
  EXPECT_LT(read<AcDbRadialDimension>(0, [](auto& d) { return d.center(); }).distanceTo(along(100, 0)), 1e-9);
  EXPECT_EQ(textOf(0), L"");
}

}  // namespace
