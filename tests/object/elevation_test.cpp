// The elevation generator by its marks, and the elements that they become.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <vector>

#include "object/SampleOutlines.h"
#include "object/TestMember.h"

namespace {

constexpr double kPi = 3.141592653589793;

struct Elevation {
  KrGeratriz contour;
  KrGeratriz lines;
};

class Bar : public TestMember {
 public:
  Elevation elevation(const KrFuro& holes = KrFuro()) {
    Elevation e;
    setComprimento(500);
    gera_Vista(outline(), e.contour, e.lines, holes);
    return e;
  }
};

std::vector<double> marked(const Elevation& e, double mark) {
  std::vector<double> x;
  for (int i = 0; i < e.lines.Qtd(); ++i)
    if (e.lines.GetBulge(i) == mark) x.push_back(e.lines.GetVertex(i).x);
  std::sort(x.begin(), x.end());
  return x;
}

std::map<KrVectorType, int> typesOf(const TestMember& member) {
  std::map<KrVectorType, int> count;
  KrVector v;
  for (int i = 0; member.GetVector(i, v) != 0; ++i) ++count[v.type()];
  return count;
}

const oracle::Contour kRectangle = {{-5, -4}, {-5, 4}, {5, 4}, {5, -4}};

TEST(Elevation, OfARectangleIsTheRectangleAlone) {
  Bar bar;
  bar.draw({kRectangle});
  const Elevation e = bar.elevation();
  ASSERT_EQ(e.contour.Qtd(), 5);
  EXPECT_TRUE(e.contour.GetVertex(0).isEqualTo(AcGeVector3d(-5, 0, 0)));
  EXPECT_TRUE(e.contour.GetVertex(1).isEqualTo(AcGeVector3d(-5, 500, 0)));
  EXPECT_TRUE(e.contour.GetVertex(2).isEqualTo(AcGeVector3d(5, 500, 0)));
  EXPECT_TRUE(e.contour.GetVertex(3).isEqualTo(AcGeVector3d(5, 0, 0)));
  EXPECT_TRUE(e.contour.GetVertex(4).isEqualTo(AcGeVector3d(-5, 0, 0)));
  EXPECT_DOUBLE_EQ(e.contour.GetBulge(4), 0.0);
  EXPECT_DOUBLE_EQ(e.contour.GetBulge(5), 5000.0);
  EXPECT_EQ(e.lines.Qtd(), 0);
}

TEST(Elevation, OfAnIFromAboveHidesTheWebUnderTheFlange) {
  Bar bar;
  bar.draw({samples::rolledI(200, 100, 6, 9, 0)});
  const Elevation e = bar.elevation();
  EXPECT_TRUE(marked(e, 2).empty());
  EXPECT_EQ(marked(e, 1), (std::vector<double>{-3, 3}));
}

TEST(Elevation, OfAnIFromTheSideShowsTheInnerFacesOfItsFlanges) {
  Bar bar;
  bar.draw(oracle::turned({samples::rolledI(200, 100, 6, 9, 0)}, kPi / 2));
  const Elevation e = bar.elevation();
  const std::vector<double> visible = marked(e, 2);
  ASSERT_EQ(visible.size(), 2U);
  EXPECT_NEAR(visible[0], -91, 1e-9);
  EXPECT_NEAR(visible[1], 91, 1e-9);
  EXPECT_TRUE(marked(e, 1).empty());
}

TEST(Elevation, OfARoundOutlineReachesOverItsArcsAndHasNoMarks) {
  const double q = std::tan(kPi / 8);
  TestMember member;
  for (const double angle : {0.0, 0.3, kPi / 4, 1.0}) {
    member.setAngleSecao(angle);
    member.make({{{-8, 0, q}, {0, -8, q}, {8, 0, q}, {0, 8, q}}}, Superior, 500);
    const auto types = typesOf(member);
    EXPECT_EQ(types, (std::map<KrVectorType, int>{{KR_VT_LINHA, 4}, {KR_VT_REFERENCIA, 1}, {KR_VT_EIXO, 1}}));
    AcGePoint3d p[4];
    member.GetExtremePoints(p, 0, 0);
    EXPECT_NEAR(p[0].distanceTo(p[1]), 16, 1e-9) << "section turned by " << angle;
  }
}

TEST(Elevation, OfTwoContoursApartIsTwoRectangles) {
  Bar bar;
  const auto at = [](double x) { return oracle::Contour{{x, 0}, {x, 8}, {x + 10, 8}, {x + 10, 0}}; };
  bar.draw({at(0), at(10.02)});
  Elevation e = bar.elevation();
  ASSERT_EQ(e.contour.Qtd(), 10);
  EXPECT_DOUBLE_EQ(e.contour.GetBulge(4), 6000.0);
  EXPECT_DOUBLE_EQ(e.contour.GetVertex(5).x, 10.02);
  EXPECT_DOUBLE_EQ(e.contour.GetBulge(10), 5000.0);

  bar.draw({at(0), at(10.01)});
  e = bar.elevation();
  EXPECT_EQ(e.contour.Qtd(), 5) << "a gap of the tolerance or less doesn't part them";
  EXPECT_DOUBLE_EQ(e.contour.GetVertex(2).x, 20.01);
}

TEST(Elevation, OfAFoldedSheetShowsABendAtItsArcsExtreme) {
  // A channel open downwards, 100 x 50, wall 3, inner radius 3: from above the bends' inner faces hide at 3 from the
  // sides.
  TestMember member;
  member.make(
      {samples::rounded({{-50, 0}, {-50, 50, 6}, {50, 50, 6}, {50, 0}, {47, 0}, {47, 47, 3}, {-47, 47, 3}, {-47, 0}})},
      Superior, 500);
  KrVector v;
  std::vector<double> hidden;
  for (int i = 0; member.GetVector(i, v) != 0; ++i) {
    EXPECT_NE(v.type() == KR_VT_LINHA && v.tipo() == KR_VF_PADRAO, true) << "no line at a tangent joint";
    if (v.type() == KR_VT_LINHA_OCULTA) hidden.push_back(v.startPoint().y);
  }
  std::sort(hidden.begin(), hidden.end());
  ASSERT_EQ(hidden.size(), 2U);
  EXPECT_NEAR(hidden[0], -47, 1e-9);
  EXPECT_NEAR(hidden[1], 47, 1e-9);
}

TEST(Elevation, OfAShallowBendShowsTheCornerThatItRoundsOff) {
  // A roof of two slopes whose ridge is rounded: the tangents cross at x = 0.
  TestMember member;
  member.make({samples::rounded({{-50, 0}, {0, 20, 30}, {50, 0}})}, Superior, 500);
  KrVector v;
  int visible = 0;
  for (int i = 0; member.GetVector(i, v) != 0; ++i) {
    if (v.type() != KR_VT_LINHA || v.tipo() != KR_VF_PADRAO) continue;
    ++visible;
    EXPECT_NEAR(v.startPoint().y, 0, 1e-9);
  }
  EXPECT_EQ(visible, 1);
}

TEST(Elevation, OfANegativeReferenceBulgeHidesTheAxisAndKeepsTheReferenceLine) {
  TestMember member;
  member.draw({kRectangle}, AcGeVector3d(0, 0, 0), -5000.0);
  member.setComprimento(500);
  KrGeratriz none;
  member.Gera_KrVector(AcGePoint3d(0, 0, 0), none, Superior, 0, 1);
  KrVector v;
  ASSERT_EQ(member.GetVectorEixo(VistaCorrente, v), 1);
  EXPECT_EQ(v.hidden(), 1);
  const int n = member.GetNumVertex(VistaCorrente);
  ASSERT_EQ(member.GetVector(n - 2, v), 1);
  EXPECT_EQ(v.type(), KR_VT_REFERENCIA) << "the reference line stands before the axis";
  EXPECT_EQ(v.hidden(), 0);
}

TEST(Elevation, RunsFromTheStartAlongTheMembersAngle) {
  TestMember member;
  member.draw({kRectangle}, AcGeVector3d(2, 1, 0));
  member.setAngleVista(kPi / 2);
  member.setComprimento(500);
  KrGeratriz none;
  member.Gera_KrVector(AcGePoint3d(100, 200, 0), none, Superior, 0, 1);
  EXPECT_TRUE(member.endPoint().isEqualTo(AcGePoint3d(100, 700, 0)));
  // The outline's X runs to the right of the bar; its origin at 2 falls on the start.
  EXPECT_NEAR(member.GetMinX(VistaCorrente), 100 - 7, 1e-9);
  EXPECT_NEAR(member.GetMaxX(VistaCorrente), 100 + 3, 1e-9);
  EXPECT_NEAR(member.GetMinY(VistaCorrente), 200, 1e-9);
  EXPECT_NEAR(member.GetMaxY(VistaCorrente), 700, 1e-9);
}

TEST(Elevation, EdgesOfNoLengthMakeNoLine) {
  const double q = std::tan(kPi / 8);
  TestMember member;
  // A tube with doubled nodes at its quarters.
  member.make({{{-8, 0}, {-8, 0, -q}, {0, 8}, {0, 8, -q}, {8, 0}, {8, 0, -q}, {0, -8, -q}},
               {{-5, 0}, {-5, 0, -q}, {0, 5}, {0, 5}, {0, 5, -q}, {5, 0, -q}, {0, -5}, {0, -5, -q}}},
              Superior, 500);
  const auto types = typesOf(member);
  EXPECT_EQ(types, (std::map<KrVectorType, int>{
                       {KR_VT_LINHA, 4}, {KR_VT_LINHA_OCULTA, 2}, {KR_VT_REFERENCIA, 1}, {KR_VT_EIXO, 1}}));
  member.make({{{-8, 0}, {-8, 0, -q}, {0, 8}, {0, 8, -q}, {8, 0}, {8, 0, -q}, {0, -8, -q}}}, Secao, 500);
  EXPECT_EQ(typesOf(member), (std::map<KrVectorType, int>{{KR_VT_ARCO, 4}})) << "nor do they in a section";
}

// --- Single questions ------------------------------------------------------------------------------------------------

TEST(ApparentEdge, OfAnArcIsItsExtremeInXOrTheCrossingOfItsTangents) {
  const double q = 127.0 * std::tan(kPi / 8);
  KrGeratriz g;
  // From (10, 0) a quarter to (0, 10) about the origin: its extreme is (10, 0). Then a line, then a bend of 60 degrees.
  g.Add(AcGeVector3d(10, 0, 0), q);
  g.Add(AcGeVector3d(0, 10, 0), 0);
  g.Add(AcGeVector3d(-20, 10, 0), 0);
  g.Add(AcGeVector3d(10, 0, 0), 0);
  g.Add(AcGeVector3d(0, 0, 0), 5000);
  AcGeVector3d e;
  KrObject::Aresta_Arco(g, 0, e, 0);
  EXPECT_TRUE(e.isEqualTo(AcGeVector3d(10, 0, 0)));
  KrObject::Aresta_Arco(g, 1, e, 0);
  EXPECT_TRUE(e.isEqualTo(AcGeVector3d(0, 0, 1))) << "the null edge";
  KrObject::Aresta_Arco(g, 1, e, 1);
  EXPECT_TRUE(e.isEqualTo(AcGeVector3d(0, 10, 0))) << "the node itself";

  // A quarter from (7.07, 7.07) to (-7.07, 7.07): its tangents cross above the centre at 10 root 2.
  const double h = 10 / std::sqrt(2.0);
  KrGeratriz top;
  top.Add(AcGeVector3d(h, h, 0), q);
  top.Add(AcGeVector3d(-h, h, 0), 0);
  top.Add(AcGeVector3d(h, h, 0), 0);
  KrObject::Aresta_Arco(top, 0, e, 0);
  EXPECT_NEAR(e.x, 0, 1e-9);
  EXPECT_NEAR(e.y, 10 * std::sqrt(2.0), 1e-9);
}

TEST(ArcExtreme, CountsOnlyWhereItPassesTheNeighbours) {
  const double half = 127.0;
  // A stadium end: the half circle from (0, -5) to (0, 5) reaches to x = 5.
  KrGeratriz g;
  g.Add(AcGeVector3d(-20, -5, 0), 0);
  g.Add(AcGeVector3d(0, -5, 0), half);
  g.Add(AcGeVector3d(0, 5, 0), 0);
  g.Add(AcGeVector3d(-20, 5, 0), 0);
  g.Add(AcGeVector3d(-20, -5, 0), 0);
  g.Add(AcGeVector3d(0, 0, 0), 5000);
  int use = 7;
  EXPECT_NEAR(KrObject::Arco_Xtreme(g, 1, use, 0), 5, 1e-9);
  EXPECT_EQ(use, 1);
}

TEST(Marks, StandOncePerXAndTheHigherVertexCounts) {
  KrGeratriz list;
  KrObject::administra_vetores(list, AcGeVector3d(10, 1, 0), 2);
  KrObject::administra_vetores(list, AcGeVector3d(10.009, 5, 0), 2);
  ASSERT_EQ(list.Qtd(), 1);
  EXPECT_DOUBLE_EQ(list.GetVertex(0).y, 5);
  KrObject::administra_vetores(list, AcGeVector3d(10.009, 3, 0), 2);
  EXPECT_DOUBLE_EQ(list.GetVertex(0).y, 5) << "a lower one leaves it";
  KrObject::administra_vetores(list, AcGeVector3d(10.02, 0, 0), 2);
  EXPECT_EQ(list.Qtd(), 2) << "0.011 away is another line";
  KrObject::administra_vetores(list, AcGeVector3d(0, 0, 1), 2);
  EXPECT_EQ(list.Qtd(), 2) << "the null edge is no line";
  EXPECT_EQ(KrObject::Testa_ja_existe(list, AcGeVector3d(10.019, 0, 0)), 0)
      << "strictly within the tolerance, the first";
  EXPECT_EQ(KrObject::Testa_ja_existe(list, AcGeVector3d(50, 0, 0)), -1);
}

// --- Holes -----------------------------------------------------------------------------------------------------------

TEST(Holes, ThroughTheTopFlangeShowFaceOnAndThroughTheWebEdgeOn) {
  Bar bar;
  bar.draw({samples::rolledI(200, 100, 6, 9, 12)});
  KrFuro holes;
  holes.Add(AcGeVector3d(30, 100, 120), AcGeVector3d(30, 91, 120), 18, 0, 0);    // top flange
  holes.Add(AcGeVector3d(30, -91, 130), AcGeVector3d(30, -100, 130), 18, 0, 0);  // bottom flange
  holes.Add(AcGeVector3d(-3, 10, 140), AcGeVector3d(3, 10, 140), 18, 0, 0);      // web, across the view
  holes.Add(AcGeVector3d(20, 100, 150), AcGeVector3d(30, 91, 150), 18, 0, 0);    // askew
  const Elevation e = bar.elevation(holes);
  std::vector<std::array<double, 4>> marks;
  for (int i = 0; i < e.lines.Qtd(); ++i)
    if (e.lines.GetBulge(i) >= 5)
      marks.push_back({e.lines.GetBulge(i), e.lines.GetVertex(i).x, e.lines.GetVertex(i).y, e.lines.GetVertex(i).z});
  const std::vector<std::array<double, 4>> want = {{5, 30, 120, 0}, {7, -3, 140, 2}, {7, 3, 140, 2}};
  EXPECT_EQ(marks, want)
      << "covered by the top flange, a hole of the bottom one has no mark, and an askew one has none";
}

TEST(Holes, BecomeElementsWithTheirIndexAndOnlyFaceOnOnesAreTagged) {
  class Drilled : public TestMember {
   public:
    void drill() {
      draw({samples::rolledI(200, 100, 6, 9, 12)});
      setComprimento(500);
      KrFuro holes;
      holes.Add(AcGeVector3d(30, 100, 120), AcGeVector3d(30, 91, 120), 18, 10, 0.2);
      holes.Add(AcGeVector3d(-3, 10, 140), AcGeVector3d(3, 10, 140), 14, 20, kPi / 3);
      setFurosSemLink(holes);
      KrGeratriz none;
      Gera_KrVector(AcGePoint3d(0, 0, 0), none, Superior, 0, 1);
    }
  } member;
  member.drill();
  std::vector<KrVector> holes;
  KrVector v;
  for (int i = 0; member.GetVector(i, v) != 0; ++i)
    if (v.isFuro()) holes.push_back(v);
  ASSERT_EQ(holes.size(), 5U);

  EXPECT_EQ(holes[0].type(), KR_VT_FURO);
  EXPECT_TRUE(holes[0].midPoint().isEqualTo(AcGePoint3d(120, -30, 0)));
  EXPECT_DOUBLE_EQ(holes[0].radius(), 9);
  EXPECT_EQ(holes[0].tipo(), KR_VF_FURO_OBLONGO);
  EXPECT_NEAR(holes[0].direction(), 0.2, 1e-12);
  EXPECT_NEAR(holes[0].len(), 10, 1e-12);
  EXPECT_EQ(holes[0].IndexFur(), 0);
  EXPECT_EQ(holes[0].typeEx(), KR_VTX_FURO);
  for (const int arm : {1, 2}) {
    EXPECT_EQ(holes[static_cast<std::size_t>(arm)].type(), KR_VT_FURO_EIXO);
    EXPECT_NEAR(holes[static_cast<std::size_t>(arm)].len(), 36, 1e-9) << "an arm of the diameter on each side";
  }
  // Edge on: across the web from y = 3 to y = -3, the centre line one depth of 6 past each end.
  EXPECT_EQ(holes[3].type(), KR_VT_FURO_EIXO);
  EXPECT_TRUE(holes[3].startPoint().isEqualTo(AcGePoint3d(140, -9, 0)));
  EXPECT_TRUE(holes[3].endPoint().isEqualTo(AcGePoint3d(140, 9, 0)));
  EXPECT_EQ(holes[4].type(), KR_VT_FURO_LINHA);
  EXPECT_NEAR(holes[4].radius(), (14 + 20 * 0.5) / 2, 1e-9) << "the apparent width, by the cosine of 60 degrees";
  for (const int i : {3, 4}) {
    EXPECT_EQ(holes[static_cast<std::size_t>(i)].IndexFur(), 1);
    EXPECT_EQ(holes[static_cast<std::size_t>(i)].typeEx(), KR_VTX_NENHUM) << "unlike a hole seen face on";
  }
}

TEST(Holes, SeenFromBelowAreMeasuredFromTheEnd) {
  class Drilled : public TestMember {
   public:
    void drill() {
      draw({samples::rolledI(200, 100, 6, 9, 12)});
      setComprimento(500);
      KrFuro holes;
      holes.Add(AcGeVector3d(30, -91, 120), AcGeVector3d(30, -100, 120), 18, 0, 0);
      setFurosSemLink(holes);
      KrGeratriz none;
      Gera_KrVector(AcGePoint3d(0, 0, 0), none, Inferior, 0, 1);
    }
  } member;
  member.drill();
  KrObjectArray<KrVector> holes;
  ASSERT_EQ(member.GetFuros(holes), 1);
  // Turned by pi and mirrored, the hole stands at X 30 and its z counts from the far end.
  EXPECT_TRUE(holes[0].midPoint().isEqualTo(AcGePoint3d(380, -30, 0)));
}

TEST(Holes, OffTheSectionOrTheBarAreDroppedByTheAudit) {
  class Drilled : public TestMember {
   public:
    int keep() {
      make({samples::rolledI(200, 100, 6, 9, 12)}, Superior, 500);
      KrFuro holes;
      holes.Add(AcGeVector3d(30, 100, 120), AcGeVector3d(30, 91, 120), 18, 0, 0);
      holes.Add(AcGeVector3d(30, 100, 501), AcGeVector3d(30, 91, 501), 18, 0, 0);
      holes.Add(AcGeVector3d(30, 100, -1), AcGeVector3d(30, 91, -1), 18, 0, 0);
      holes.Add(AcGeVector3d(80, 100, 120), AcGeVector3d(80, 91, 120), 18, 0, 0);
      setFurosSemLink(holes);
      AuditFuros();
      return numFuros();
    }
  } member;
  EXPECT_EQ(member.keep(), 1);
}

}  // namespace
