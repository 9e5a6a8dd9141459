#include "records/KrGeratriz.h"

#include <gtest/gtest.h>

#include <array>
#include <vector>

namespace {

constexpr double kReference = 5000.0;
constexpr double kEnd = 6000.0;

AcGeVector3d at(double x, double y = 0.0, double z = 0.0) {
  return AcGeVector3d(x, y, z);
}

struct Entry {
  double x;
  double bulge;
};

KrGeratriz outlineOf(const std::vector<Entry>& entries) {
  KrGeratriz outline;
  for (const Entry& entry : entries) outline.Add(at(entry.x), entry.bulge);
  return outline;
}

std::vector<double> xs(const KrGeratriz& outline) {
  std::vector<double> values;
  for (int i = 0; i < outline.numNodes(); ++i) values.push_back(outline.GetVertex(i).x);
  return values;
}

std::vector<double> bulges(const KrGeratriz& outline) {
  std::vector<double> values;
  for (int i = 0; i < outline.numNodes(); ++i) values.push_back(outline.GetBulge(i));
  return values;
}

using Values = std::vector<double>;

}  // namespace

TEST(KrGeratriz, CountsOrdinaryNodesArcsAndContourEnds) {
  const KrGeratriz outline = outlineOf({{1, 0}, {2, -52.6}, {3, 6002}, {4, 4999}, {5, -5001}});
  EXPECT_EQ(outline.Qtd(), 5);
  EXPECT_EQ(xs(outline), (Values{1, 2, 3, 4, 5}));
}

TEST(KrGeratriz, AddDoesNotCountAReferenceNodeOfEitherSign) {
  for (const double bulge : {kReference, -kReference}) {
    KrGeratriz outline = outlineOf({{1, 0}, {2, 0}});
    outline.Add(at(7, 8), bulge);
    EXPECT_EQ(outline.Qtd(), 2);
    EXPECT_EQ(outline.GetRefOrigin(), at(7, 8));
    EXPECT_EQ(outline.GetNo(outline.Qtd()).bulge, bulge);
    AcArray<AcGePoint3d> points;
    AcArray<double> values;
    outline.GetArrays(&points, &values);
    EXPECT_EQ(points.length(), 3);
    EXPECT_EQ(values.length(), 3);
    EXPECT_EQ(points[2], AcGePoint3d(7, 8, 0));
    EXPECT_EQ(values[2], bulge);
  }
}

TEST(KrGeratriz, AddAtTheCountOrBeyondAppendsAndDoesNotCountAReferenceNode) {
  KrGeratriz outline = outlineOf({{1, 0}});
  outline.AddAt(1, at(2), 0);
  outline.AddAt(9, at(3), kReference);
  EXPECT_EQ(outline.Qtd(), 2);
  EXPECT_EQ(xs(outline), (Values{1, 2, 3}));
}

TEST(KrGeratriz, AddAtBeforeTheCountCountsAlways) {
  KrGeratriz outline = outlineOf({{1, 0}, {3, 0}, {0, kReference}});
  outline.AddAt(1, at(2), kReference);
  EXPECT_EQ(outline.Qtd(), 3);
  EXPECT_EQ(xs(outline), (Values{1, 2, 3, 0}));
  EXPECT_EQ(bulges(outline), (Values{0, kReference, 0, kReference}));
}

TEST(KrGeratriz, AddAtTakesAVertexOfItsOwn) {
  KrGeratriz outline;
  for (int i = 0; i < 40; ++i) outline.Add(at(i), 0);
  outline.AddAt(0, outline.GetVertex(39), 0);
  EXPECT_EQ(outline.GetVertex(0), at(39));
  EXPECT_EQ(outline.GetVertex(40), at(39));
  outline.Add(outline.GetVertex(3), 0);
  EXPECT_EQ(outline.GetVertex(41), at(2));
}

TEST(KrGeratriz, TrocaOverwritesANodeAndKeepsTheCount) {
  KrGeratriz outline = outlineOf({{1, 0}, {2, 0}, {0, kReference}});
  outline.Troca(at(8), kReference, 1);
  EXPECT_EQ(outline.Qtd(), 2);
  EXPECT_EQ(xs(outline), (Values{1, 8, 0}));
}

TEST(KrGeratriz, ClearTakesTheReferenceNodeToo) {
  KrGeratriz outline = outlineOf({{1, 0}, {0, kReference}});
  outline.Clear();
  EXPECT_EQ(outline.isEmpty(), 1);
  EXPECT_EQ(outline.Qtd(), 0);
  EXPECT_EQ(outline.numNodes(), 0);
}

TEST(KrGeratriz, AListWithOnlyAReferenceNodeIsNotEmptyButCountsNothing) {
  const KrGeratriz outline = outlineOf({{0, kReference}});
  EXPECT_EQ(outline.isEmpty(), 0);
  EXPECT_EQ(outline.Qtd(), 0);
}

TEST(KrGeratriz, AssignmentRebuildsTheCount) {
  KrGeratriz outline = outlineOf({{1, 0}, {2, 0}});
  outline.AddAt(0, at(5), kReference);
  EXPECT_EQ(outline.Qtd(), 3);
  KrGeratriz copy;
  copy = outline;
  EXPECT_EQ(copy.Qtd(), 2);
  EXPECT_EQ(xs(copy), (Values{5, 1, 2}));
  copy.GetVertex(0) = at(50);
  EXPECT_EQ(outline.GetVertex(0), at(5));
}

TEST(KrGeratriz, VerticesStayWhereTheyAreWhileNodesAreAdded) {
  KrGeratriz outline;
  outline.Add(at(1), 0);
  AcGeVector3d& first = outline.GetVertex(0);
  std::vector<const AcGeVector3d*> places;
  for (int i = 0; i < 3000; ++i) {
    outline.Add(at(i), 0);
    places.push_back(&outline.GetVertex(i + 1));
  }
  EXPECT_EQ(&outline.GetVertex(0), &first);
  for (int i = 0; i < 3000; ++i) {
    ASSERT_EQ(&outline.GetVertex(i + 1), places[static_cast<std::size_t>(i)]);
    ASSERT_EQ(outline.GetVertex(i + 1).x, i);
  }
}

TEST(KrGeratriz, ACopyLiesInOnePiece) {
  KrGeratriz outline;
  for (int i = 0; i < 100; ++i) outline.Add(at(i), i);
  EXPECT_EQ(outline.data(), nullptr);
  const KrGeratriz copy = outline;
  ASSERT_NE(copy.data(), nullptr);
  for (int i = 0; i < 100; ++i) {
    EXPECT_EQ(copy.data()[i].vertex.x, i);
    EXPECT_EQ(copy.data()[i].bulge, i);
  }
  KrGeratriz again;
  again = copy;
  const NoGeratriz* memory = again.data();
  again = copy;
  EXPECT_EQ(again.data(), memory);
}

TEST(KrGeratriz, AReservedOutlineLiesInOnePiece) {
  KrGeratriz outline;
  outline.reserve(50);
  for (int i = 0; i < 50; ++i) outline.Add(at(i), 0);
  ASSERT_NE(outline.data(), nullptr);
  EXPECT_EQ(outline.data()[49].vertex.x, 49);
  AcGeVector3d& first = outline.GetVertex(0);
  outline.reserve(500);
  EXPECT_EQ(&outline.GetVertex(0), &first);
}

TEST(KrGeratriz, GetArraysAppendsAndSkipsANullArray) {
  const KrGeratriz outline = outlineOf({{1, 2}, {3, 4}});
  AcArray<AcGeVector3d> vectors;
  vectors.append(at(9));
  outline.GetArrays(&vectors, nullptr);
  ASSERT_EQ(vectors.length(), 3);
  EXPECT_EQ(vectors[2], at(3));
  AcArray<double> values;
  outline.GetArrays(static_cast<AcArray<AcGePoint3d>*>(nullptr), &values);
  ASSERT_EQ(values.length(), 2);
  EXPECT_EQ(values[1], 4);
}

TEST(KrGeratriz, ExtremePointsTakeEachCoordinateByItselfAndTheReferenceNodeToo) {
  KrGeratriz outline;
  outline.Add(at(1, 5, 2), 0);
  outline.Add(at(4, -3, 7), 0);
  outline.Add(at(-2, 0, 0), kReference);
  AcGePoint3d low;
  AcGePoint3d high;
  outline.GetExtremePoints(low, high);
  EXPECT_EQ(low, AcGePoint3d(-2, -3, 0));
  EXPECT_EQ(high, AcGePoint3d(4, 5, 7));
  AcGePoint3d four[4];
  outline.GetExtremePoints(four);
  EXPECT_EQ(four[0], AcGePoint3d(-2, 5, 0));
  EXPECT_EQ(four[1], low);
  EXPECT_EQ(four[2], high);
  EXPECT_EQ(four[3], AcGePoint3d(4, -3, 7));
}

TEST(KrGeratriz, PosLimitsFindsTheContourOfAPosition) {
  // Two contours: positions 0 to 2, ended by the marker at 2, and 3 to 5.
  const KrGeratriz outline = outlineOf({{0, 0}, {1, 0}, {2, 6003}, {3, 0}, {4, 0}, {5, 0}, {0, kReference}});
  int from = -1;
  int to = -1;
  for (const int i : {0, 1, 2}) {
    outline.PosLimits(i, from, to);
    EXPECT_EQ(from, 0) << i;
    EXPECT_EQ(to, 2) << i;
  }
  for (const int i : {3, 4, 5}) {
    outline.PosLimits(i, from, to);
    EXPECT_EQ(from, 3) << i;
    EXPECT_EQ(to, 5) << i;
  }
  outline.PosLimits(6, from, to);
  EXPECT_EQ(from, 3);
  EXPECT_EQ(to, 6);
}

TEST(KrGeratriz, ContourEndsReachFrom6000ToBelow7000) {
  EXPECT_TRUE(KrGeratriz::isContourEnd(6000.0));
  EXPECT_TRUE(KrGeratriz::isContourEnd(6999.999));
  EXPECT_FALSE(KrGeratriz::isContourEnd(5999.999));
  EXPECT_FALSE(KrGeratriz::isContourEnd(7000.0));
  EXPECT_FALSE(KrGeratriz::isContourEnd(-6000.0));
}

TEST(KrGeratriz, RemoveNullsTakesTheSecondOfTwoEqualVerticesAndKeepsItsBulge) {
  KrGeratriz outline = outlineOf({{1, 0}, {1, 40}, {2, 0}, {0, kReference}});
  outline.RemoveNulls();
  EXPECT_EQ(xs(outline), (Values{1, 2, 0}));
  EXPECT_EQ(bulges(outline), (Values{40, 0, kReference}));
  EXPECT_EQ(outline.Qtd(), 2);
}

TEST(KrGeratriz, RemoveNullsTakesARunOfEqualVertices) {
  KrGeratriz outline = outlineOf({{1, 0}, {1, 0}, {1, 0}, {1, 7}, {2, 0}, {2, 0}, {3, 0}});
  outline.RemoveNulls();
  EXPECT_EQ(xs(outline), (Values{1, 2, 3}));
  EXPECT_EQ(bulges(outline), (Values{7, 0, 0}));
}

TEST(KrGeratriz, RemoveNullsKeepsArcsAndNeverMergesIntoACode) {
  KrGeratriz outline = outlineOf({{1, 5}, {1, 0}, {2, 0}, {2, kEnd}, {3, 0}, {3, 5000}});
  outline.RemoveNulls();
  EXPECT_EQ(xs(outline), (Values{1, 1, 2, 2, 3, 3}));
  EXPECT_EQ(outline.Qtd(), 5);
}

TEST(KrGeratriz, RemoveNullsKeepsThePositionOnItsNode) {
  // Position 3 names the vertex at 3; one of the two nodes at 1 goes in front of it.
  KrGeratriz outline = outlineOf({{1, 0}, {1, 0}, {2, 0}, {3, 0}, {4, 0}, {4, 0}});
  int position = 3;
  outline.RemoveNulls(position);
  EXPECT_EQ(position, 2);
  EXPECT_EQ(outline.GetVertex(position), at(3));
  EXPECT_EQ(outline.Qtd(), 4);
}

TEST(KrGeratriz, RemoveNullsOfAnEmptyListDoesNothing) {
  KrGeratriz outline;
  outline.RemoveNulls();
  EXPECT_EQ(outline.isEmpty(), 1);
}

TEST(KrGeratriz, FillingAgainAfterClearUsesTheSameMemory) {
  KrGeratriz outline;
  for (int i = 0; i < 100; ++i) outline.Add(at(i), 0);
  const AcGeVector3d* last = &outline.GetVertex(99);
  outline.Clear();
  for (int i = 0; i < 100; ++i) outline.Add(at(i), 0);
  EXPECT_EQ(&outline.GetVertex(99), last);
}
