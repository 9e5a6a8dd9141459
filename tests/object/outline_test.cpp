// Outlines: thickening, turning, mirroring, measuring; the regeneration's frame.

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "object/SampleOutlines.h"
#include "object/TestMember.h"
#include "support/Bulges.h"

namespace {

constexpr double kPi = 3.141592653589793;
const double kQuarterBulge = 127.0 * std::tan(kPi / 8);

KrGeratriz listOf(const std::vector<std::array<double, 3>>& nodes) {
  KrGeratriz g;
  for (const auto& n : nodes) g.Add(AcGeVector3d(n[0], n[1], 0), n[2]);
  return g;
}

void expectNodes(const KrGeratriz& g, const std::vector<std::array<double, 3>>& nodes) {
  ASSERT_EQ(g.numNodes(), static_cast<int>(nodes.size()));
  for (int i = 0; i < g.numNodes(); ++i) {
    const auto& want = nodes[static_cast<std::size_t>(i)];
    EXPECT_NEAR(g.GetVertex(i).x, want[0], 1e-9) << "node " << i;
    EXPECT_NEAR(g.GetVertex(i).y, want[1], 1e-9) << "node " << i;
    EXPECT_NEAR(g.GetBulge(i), want[2], 1e-9) << "node " << i;
  }
}

TEST(Thickening, OfAnOpenLineGivesOneContourRoundTheWall) {
  KrGeratriz closed;
  KrObject::gera_Secao(listOf({{0, 0, 0}, {100, 0, 0}, {50, 7, 5000}}), closed, 8);
  // Walking along +X the left face lies above; across the end, back below, and home.
  expectNodes(closed, {{0, 4, 0}, {100, 4, 0}, {100, -4, 0}, {0, -4, 0}, {0, 4, 0}, {50, 7, 5000}});
  EXPECT_EQ(closed.Qtd(), 5);
}

TEST(Thickening, OfATangentBendKeepsBothFacesTangent) {
  // Up, a quarter turn to the right of radius 10, then along X; wall 4: faces at radii 12 and 8 about (10, 20).
  KrGeratriz closed;
  KrObject::gera_Secao(listOf({{0, 0, 0}, {0, 20, -kQuarterBulge}, {10, 30, 0}, {40, 30, 0}, {0, 0, 5000}}), closed, 4);
  expectNodes(closed, {{-2, 0, 0},
                       {-2, 20, -kQuarterBulge},
                       {10, 32, 0},
                       {40, 32, 0},
                       {40, 28, 0},
                       {10, 28, kQuarterBulge},
                       {2, 20, 0},
                       {2, 0, 0},
                       {-2, 0, 0},
                       {0, 0, 5000}});
}

TEST(Thickening, OfAClosedLineGivesAnOuterAndAnInnerContour) {
  // A ring of four quarter arcs, clockwise from the left: the left face is the outer one.
  const double b = -kQuarterBulge;
  KrGeratriz closed;
  KrObject::gera_Secao(listOf({{-10, 0, b}, {0, 10, b}, {10, 0, b}, {0, -10, b}, {-10, 0, 0}, {0, 0, 5000}}), closed,
                       2);
  ASSERT_EQ(closed.Qtd(), 10);
  EXPECT_DOUBLE_EQ(closed.GetBulge(4), 6000.0) << "the outer face ends in a contour marker";
  for (int i = 0; i < 5; ++i) EXPECT_NEAR(closed.GetVertex(i).length(), 11, 1e-9);
  for (int i = 5; i < 10; ++i) EXPECT_NEAR(closed.GetVertex(i).length(), 9, 1e-9);
  EXPECT_LT(std::fabs(closed.GetBulge(9)), 5000.0) << "no marker closes the inner face";
}

TEST(Thickening, OfAClosedLineWithAStraightLastEdgeEndsItsOuterFaceInAMarker) {
  KrGeratriz closed;
  KrObject::gera_Secao(listOf({{0, 0, 0}, {0, 50, 0}, {50, 50, 0}, {50, 0, 0}, {0, 0, 0}, {0, 0, 5000}}), closed, 2);
  int markers = 0;
  for (int i = 0; i < closed.Qtd(); ++i) markers += KrObject::Bulge_6000(closed.GetBulge(i)) ? 1 : 0;
  EXPECT_EQ(markers, 1);
  EXPECT_DOUBLE_EQ(closed.GetBulge(4), 6000.0);
}

TEST(Thickening, TakesTheWallOfTheNextBranchFromTheMarker) {
  KrGeratriz closed;
  KrObject::gera_Secao(listOf({{0, 0, 0}, {10, 0, 6006.0}, {0, 50, 0}, {10, 50, 0}, {0, 0, 5000}}), closed, 2);
  expectNodes(closed, {{0, 1, 0},
                       {10, 1, 0},
                       {10, -1, 0},
                       {0, -1, 0},
                       {0, 1, 6006.0},
                       {0, 53, 0},
                       {10, 53, 0},
                       {10, 47, 0},
                       {0, 47, 0},
                       {0, 53, 0},
                       {0, 0, 5000}});
}

TEST(Thickening, OfALineThatIsOneArcClosesItWithStraightEnds) {
  // A quarter of radius 10 about the origin, anticlockwise from (10, 0): the left face is the inner one.
  KrGeratriz closed;
  KrObject::gera_Secao(listOf({{10, 0, kQuarterBulge}, {0, 10, 0}, {0, 0, 5000}}), closed, 2);
  expectNodes(closed, {{9, 0, kQuarterBulge}, {0, 9, 0}, {0, 11, -kQuarterBulge}, {11, 0, 0}, {9, 0, 0}, {0, 0, 5000}});
}

TEST(Outline, CountsItsVerticesAndKeepsTheReferenceNodeBehindThem) {
  TestMember member;
  member.draw({samples::rolledI(200, 100, 6, 9, 12)});
  KrGeratriz section;
  member.GetSecao(section);
  EXPECT_EQ(section.Qtd(), 17) << "16 vertices and the closing node";
  EXPECT_DOUBLE_EQ(section.GetNo(section.Qtd()).bulge, 5000.0);
}

TEST(Outline, MirroringFlipsArcsAndKeepsMarkersAndTheReferenceNode) {
  KrGeratriz g = listOf({{1, 0, 10}, {2, 5, 6000.0}, {3, 1, 0}, {4, 4, -10}, {10, 0, -5000}});
  KrObject::Mirror_vetores(g, AcGeVector3d(0, 1, 0));
  expectNodes(g, {{19, 0, -10}, {18, 5, 6000.0}, {17, 1, 0}, {16, 4, 10}, {10, 0, -5000}});
}

TEST(Outline, TurnsWithItsReferenceNode) {
  KrGeratriz g = listOf({{10, 0, 3}, {0, 5, 0}, {2, 0, 5000}});
  KrObject::Gira_vetores(g, kPi / 2);
  expectNodes(g, {{0, 10, 3}, {-5, 0, 0}, {0, 2, 5000}});
  EXPECT_EQ(g.GetVertex(0).x, 0.0) << "a quarter turn is exact";
}

TEST(Outline, ComesToEachViewAsItIsSeenFromThere) {
  // An L told by one far corner: (30, 10), seen from above, below, left, right and from the end.
  TestMember member;
  const auto seen = [&](KrVistas v) {
    KrGeratriz g = listOf({{30, 10, 0}, {0, 0, 0}, {0, 0, 5000}});
    EXPECT_EQ(member.ajustaGeratriz(v, g), Acad::eOk);
    return g.GetVertex(0);
  };
  EXPECT_TRUE(seen(Secao).isEqualTo(AcGeVector3d(30, 10, 0)));
  EXPECT_TRUE(seen(Superior).isEqualTo(AcGeVector3d(30, 10, 0)));
  EXPECT_TRUE(seen(Inferior).isEqualTo(AcGeVector3d(30, -10, 0)));
  EXPECT_TRUE(seen(Esquerda).isEqualTo(AcGeVector3d(-10, -30, 0)));
  EXPECT_TRUE(seen(Direita).isEqualTo(AcGeVector3d(-10, 30, 0)));
  EXPECT_TRUE(seen(SecaoVerso).isEqualTo(AcGeVector3d(-30, 10, 0)));
  KrGeratriz g = listOf({{30, 10, 0}, {0, 0, 5000}});
  EXPECT_EQ(member.ajustaGeratriz(VistaCorrente, g), Acad::eNotApplicable);
  KrGeratriz empty;
  EXPECT_EQ(member.ajustaGeratriz(Superior, empty), Acad::eNotApplicable);
}

TEST(Outline, VertexBulgeWrapsOnlyInItsWrappingMode) {
  const KrGeratriz g =
      listOf({{0, 0, 0}, {0, 10, 0}, {10, 10, 20}, {0, 0, 6000.0}, {50, 0, 0}, {60, 0, 0}, {0, 0, 5000}});
  EXPECT_EQ(KrObject::VertexBulge(g, 0, 1), 0) << "no edge before the first node";
  EXPECT_EQ(KrObject::VertexBulge(g, 0, 0), 1) << "the last edge of the contour is an arc";
  EXPECT_EQ(KrObject::VertexBulge(g, 2, 1), 1);
  EXPECT_EQ(KrObject::VertexBulge(g, 3, 1), 1) << "the end of the arc";
  EXPECT_EQ(KrObject::VertexBulge(g, 1, 1), 0);
  EXPECT_EQ(KrObject::VertexBulge(g, 4, 1), 0) << "a marker is no arc";
  EXPECT_EQ(KrObject::VertexBulge(g, 2, 7), 0) << "any other mode answers 0";
}

TEST(Outline, AreaAndLengthOfACentreLineTakeTheWallFromTheMarker) {
  const KrGeratriz line = listOf({{0, 0, 0}, {100, 0, 6002.0}, {0, 50, 0}, {30, 50, 0}, {0, 0, 5000}});
  const TestMember member;
  EXPECT_DOUBLE_EQ(member.Calcula_AreaGeratriz(line, 8), 100 * 8 + 30 * 2);
  const AcArray<double> lengths = KrObject::Calcula_LengthGeratriz(line);
  ASSERT_EQ(lengths.length(), 2);
  EXPECT_DOUBLE_EQ(lengths[0], 100);
  EXPECT_DOUBLE_EQ(lengths[1], 30);
}

TEST(Outline, AMarkerOfExactly6000PartsNoLengths) {
  const KrGeratriz line = listOf({{0, 0, 0}, {100, 0, 6000.0}, {0, 50, 0}, {30, 50, 0}, {0, 0, 5000}});
  const AcArray<double> lengths = KrObject::Calcula_LengthGeratriz(line);
  ASSERT_EQ(lengths.length(), 1);
  EXPECT_DOUBLE_EQ(lengths[0], 130);
}

TEST(Outline, AreaOfABendIsThatOfItsRing) {
  const KrGeratriz line = listOf({{10, 0, kQuarterBulge}, {0, 10, 0}, {0, 0, 5000}});
  const TestMember member;
  EXPECT_NEAR(member.Calcula_AreaGeratriz(line, 2), kPi / 4 * (11 * 11 - 9 * 9), 1e-9);
  EXPECT_NEAR(KrObject::Calcula_LengthGeratriz(line)[0], kPi / 2 * 10, 1e-9);
}

TEST(Outline, LimitsAreRelativeToTheReferenceOrigin) {
  TestMember member;
  member.draw({{{-5, -4}, {-5, 6}, {15, 6}, {15, -4}}}, AcGeVector3d(5, 1, 0));
  double minX = 0, maxX = 0, maxY = 0, minY = 0;
  EXPECT_EQ(member.LimitsGeratriz(minX, maxX, maxY, minY), 1);
  EXPECT_DOUBLE_EQ(minX, -10);
  EXPECT_DOUBLE_EQ(maxX, 10);
  EXPECT_DOUBLE_EQ(maxY, 5);
  EXPECT_DOUBLE_EQ(minY, -5);
}

TEST(Regeneration, OfAnotherViewLeavesTheOneShown) {
  TestMember member;
  member.make({samples::rolledI(200, 100, 6, 9, 12)}, Superior, 1000, 0.3, {10, 20, 0});
  const int shown = member.GetNumVertex(Superior);
  const AcGePoint3d start = member.startPoint();
  member.Gera_KrVector(Esquerda);
  EXPECT_EQ(member.Vista(0), Superior);
  EXPECT_EQ(member.GetNumVertex(Superior), shown);
  EXPECT_GT(member.GetNumVertex(Esquerda), 0);
  EXPECT_TRUE(member.startPoint().isEqualTo(start));
}

TEST(Regeneration, OfAnotherViewAtAScaleLeavesTheListShown) {
  TestMember member;
  member.make({samples::rolledI(200, 100, 6, 9, 12)}, Superior, 1000);
  member.ObjectScale(0.1, 0.1, 0.1);
  std::vector<AcGePoint3d> before;
  KrVector v;
  for (int i = 0; member.GetVector(Superior, i, v) != 0; ++i) before.push_back(v.endPoint());
  for (int run = 0; run < 2; ++run) {
    member.Gera_KrVector(Esquerda);
    for (std::size_t i = 0; i < before.size(); ++i) {
      ASSERT_EQ(member.GetVector(Superior, static_cast<int>(i), v), 1);
      EXPECT_TRUE(v.endPoint().isEqualTo(before[i]));
    }
    member.GetVector(Esquerda, 0, v);
    EXPECT_NEAR(v.len(), 100, 1e-9) << "the list of the other view stands at 1:10";
  }
}

TEST(Regeneration, OfAnEmptyOutlineTouchesNothing) {
  TestMember member;
  member.AddVertex(KrVector(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0), KR_VT_LINHA), VistaCorrente);
  member.Gera_KrVector();
  EXPECT_EQ(member.GetNumVertex(VistaCorrente), 1);
}

TEST(Regeneration, TwiceGivesTheSameAsOnce) {
  TestMember member;
  member.make({samples::rolledI(200, 100, 6, 9, 12)}, Direita, 1000, 1.1, {5, 6, 0});
  std::vector<KrVector> once;
  KrVector v;
  for (int i = 0; member.GetVector(i, v) != 0; ++i) once.push_back(v);
  member.Gera_KrVector();
  ASSERT_EQ(member.GetNumVertex(VistaCorrente), static_cast<int>(once.size()));
  for (std::size_t i = 0; i < once.size(); ++i) {
    member.GetVector(static_cast<int>(i), v);
    EXPECT_EQ(v.type(), once[i].type());
    EXPECT_TRUE(v.startPoint().isEqualTo(once[i].startPoint()));
    EXPECT_TRUE(v.endPoint().isEqualTo(once[i].endPoint()));
  }
}

TEST(Regeneration, KeepsTheAxisThatWasMovedAndWhetherItIsHidden) {
  TestMember member;
  member.make({samples::rolledI(200, 100, 6, 9, 12)}, Superior, 1000);
  KrVector axis;
  ASSERT_EQ(member.GetVectorEixo(VistaCorrente, axis), 1);
  axis.set(AcGePoint3d(0, 40, 0), AcGePoint3d(1000, 40, 0));
  axis.setHidden(1);
  member.UpdateVectorEixo(VistaCorrente, axis);
  member.Gera_KrVector();
  member.GetVectorEixo(VistaCorrente, axis);
  EXPECT_TRUE(axis.startPoint().isEqualTo(AcGePoint3d(0, 40, 0)));
  EXPECT_EQ(axis.hidden(), 1);
  AcGePoint3d a, b;
  ASSERT_EQ(member.GetPointsOfEixo(a, b, 1), Acad::eOk);
  EXPECT_TRUE(a.isEqualTo(AcGePoint3d(0, 0, 0))) << "the bar stays at its reference line";
  EXPECT_TRUE(member.startPoint().isEqualTo(AcGePoint3d(0, 40, 0)));
}

TEST(Scale, CloserThanAHundredthChangesNothing) {
  TestMember member;
  member.make({samples::rolledI(200, 100, 6, 9, 12)}, Superior, 1000);
  member.ObjectScale(1.005, 1, 1);
  double x = 0, length = 0;
  member.Xscale(x);
  member.Comprimento(length);
  EXPECT_DOUBLE_EQ(x, 1.0);
  EXPECT_NEAR(length, 1000, 1e-9);
}

TEST(Scale, ThereAndBackLeavesTheListAndTheRealLength) {
  TestMember member;
  member.make({samples::rolledI(200, 100, 6, 9, 12)}, Superior, 1000, 0.7, {11, 13, 0});
  std::vector<KrVector> before;
  KrVector v;
  for (int i = 0; member.GetVector(i, v) != 0; ++i) before.push_back(v);
  member.ObjectScale(0.1, 0.2, 1);
  AcGeTol rounding;
  rounding.setEqualPoint(1e-9);
  EXPECT_NEAR(member.getComprimentoReal(), 1000, 1e-9);
  member.GetVector(0, v);
  member.ObjectScale(1, 1, 1);
  for (std::size_t i = 0; i < before.size(); ++i) {
    member.GetVector(static_cast<int>(i), v);
    EXPECT_TRUE(v.startPoint().isEqualTo(before[i].startPoint(), rounding));
    EXPECT_TRUE(v.endPoint().isEqualTo(before[i].endPoint(), rounding));
  }
}

}  // namespace
