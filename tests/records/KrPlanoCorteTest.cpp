#include "records/KrPlanoCorte.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Filing.h"
#include "TestData.h"

namespace {

constexpr double kPi = 3.141592653589793;

AcGePoint3d at(double x, double y, double z) {
  return AcGePoint3d(x, y, z);
}

/// The plane across the bar at a height.
AcGePlane across(double z) {
  return AcGePlane(at(0, 0, z), AcGeVector3d::kZAxis);
}

/// Where a plane across the bar crosses the bar's axis.
double heightOf(const AcGePlane& plane) {
  return -plane.signedDistanceTo(AcGePoint3d::kOrigin) / plane.normal().z;
}

class KrPlanoCorteTest : public testing::Test {
 protected:
  void SetUp() override { registerTestData(); }
  void TearDown() override { EXPECT_EQ(TestData::alive, 0); }

  /// Cuts across the bar at 10, 20, 30..., each thrown away one beyond.
  static KrPlanoCorte cuts(int count) {
    KrPlanoCorte list;
    for (int i = 1; i <= count; ++i) list.Add(across(10 * i), at(0, 0, 10 * i + 1));
    return list;
  }

  static std::vector<double> heights(const KrPlanoCorte& list) {
    std::vector<double> all;
    for (int i = 0; i < list.Qtd(); ++i) all.push_back(heightOf(list.GetPlane(i)));
    return all;
  }

  static std::vector<double> sides(const KrPlanoCorte& list) {
    std::vector<double> all;
    for (int i = 0; i < list.Qtd(); ++i) all.push_back(list.GetSide(i).z);
    return all;
  }
};

using Values = std::vector<double>;

}  // namespace

TEST_F(KrPlanoCorteTest, AddStoresACutWithoutData) {
  const KrPlanoCorte list = cuts(3);
  EXPECT_EQ(list.Qtd(), 3);
  EXPECT_EQ(heights(list), (Values{10, 20, 30}));
  EXPECT_EQ(sides(list), (Values{11, 21, 31}));
  EXPECT_EQ(list.accessCData(0), nullptr);
  EXPECT_EQ(&list.first(), &list.GetNo(0));
  EXPECT_EQ(&list.last(), &list.GetNo(2));
}

TEST_F(KrPlanoCorteTest, AddOfANodeClonesItsData) {
  NoPlano node;
  node.plane = across(5);
  node.side = at(0, 0, 6);
  node.cdata = new TestData(3);
  KrPlanoCorte list;
  list.Add(node);
  EXPECT_EQ(numberOf(list.accessCData(0)), 3);
  EXPECT_NE(list.accessCData(0), node.cdata);
  EXPECT_EQ(heights(list), (Values{5}));
}

TEST_F(KrPlanoCorteTest, ACopiedNodeHoldsTheSameDataAndAnAssignedOneAClone) {
  NoPlano node;
  node.cdata = new TestData(4);
  NoPlano copy(node);
  EXPECT_EQ(copy.cdata, node.cdata);
  copy.cdata = nullptr;
  copy = node;
  EXPECT_NE(copy.cdata, node.cdata);
  EXPECT_EQ(numberOf(copy.cdata), 4);
}

TEST_F(KrPlanoCorteTest, AssignmentDropsTheData) {
  KrPlanoCorte source = cuts(2);
  const TestData data(7);
  source.setCData(0, &data);
  KrPlanoCorte list = cuts(5);
  list = source;
  EXPECT_EQ(heights(list), (Values{10, 20}));
  EXPECT_EQ(list.accessCData(0), nullptr);
  EXPECT_EQ(numberOf(source.accessCData(0)), 7);
}

TEST_F(KrPlanoCorteTest, TrocaOverwritesACutAndKeepsItsData) {
  KrPlanoCorte list = cuts(2);
  const TestData data(7);
  list.setCData(1, &data);
  list.Troca(across(99), at(0, 0, 100), 1);
  EXPECT_EQ(heights(list), (Values{10, 99}));
  EXPECT_EQ(sides(list), (Values{11, 100}));
  EXPECT_EQ(numberOf(list.accessCData(1)), 7);
}

TEST_F(KrPlanoCorteTest, RemovedCutsTakeTheirDataWithThem) {
  KrPlanoCorte list = cuts(4);
  const TestData data(7);
  for (int i = 0; i < 4; ++i) list.setCData(i, &data);
  list.removeAt(4);
  EXPECT_EQ(list.Qtd(), 4);
  list.removeAt(1);
  EXPECT_EQ(heights(list), (Values{10, 30, 40}));
  list.removeFirst();
  EXPECT_EQ(heights(list), (Values{30, 40}));
  EXPECT_EQ(TestData::alive, 3);
  list.Clear();
  EXPECT_EQ(list.Qtd(), 0);
  EXPECT_EQ(TestData::alive, 1);
}

TEST_F(KrPlanoCorteTest, DataIsRefusedPastTheEndAndANegativePositionMeansTheFirst) {
  KrPlanoCorte list = cuts(2);
  const TestData data(7);
  EXPECT_EQ(list.setCData(2, &data), 0);
  EXPECT_EQ(list.accessCData(2), nullptr);
  EXPECT_EQ(list.setCData(-1, &data), 1);
  EXPECT_EQ(numberOf(list.accessCData(0)), 7);
  EXPECT_EQ(KrPlanoCorte().accessCData(-1), nullptr);
}

TEST_F(KrPlanoCorteTest, PurgeDeletesAllDataOrThatOfOneKind) {
  KrPlanoCorte list = cuts(2);
  const TestData data(1);
  const OtherTestData other(2);
  list.setCData(0, &data);
  list.setCData(1, &other);
  list.purgeCData(OtherTestData::desc());
  EXPECT_EQ(numberOf(list.accessCData(0)), 1);
  EXPECT_EQ(list.accessCData(1), nullptr);
  list.purgeCData(nullptr);
  EXPECT_EQ(list.accessCData(0), nullptr);
}

TEST_F(KrPlanoCorteTest, TransformTakesPlanesAndSides) {
  KrPlanoCorte list = cuts(2);
  EXPECT_EQ(list.transformBy(AcGeMatrix3d::rotation(kPi / 2, AcGeVector3d::kXAxis)), Acad::eOk);
  // Z turns to -Y.
  EXPECT_TRUE(list.GetPlane(1).normal().isEqualTo(AcGeVector3d(0, -1, 0)));
  EXPECT_NEAR(list.GetPlane(1).signedDistanceTo(at(3, -20, 8)), 0.0, 1e-9);
  EXPECT_TRUE(list.GetSide(1).isEqualTo(at(0, -21, 0)));
}

TEST_F(KrPlanoCorteTest, MovePlanesMovesAgainstTheBar) {
  KrPlanoCorte list = cuts(3);
  list.movePlanes(4);
  EXPECT_EQ(heights(list), (Values{6, 16, 26}));
  EXPECT_EQ(sides(list), (Values{7, 17, 27}));
  AcArray<int> which;
  which.append(2);
  which.append(0);
  list.movePlanes(which, 1);
  EXPECT_EQ(heights(list), (Values{5, 16, 25}));
}

// The index selects nothing but whether the first cut moves at all.
TEST_F(KrPlanoCorteTest, MovePlaneMovesTheFirstCutForAnyPositionButZero) {
  KrPlanoCorte list = cuts(4);
  list.movePlane(0, 3);
  EXPECT_EQ(heights(list), (Values{10, 20, 30, 40}));
  list.movePlane(3, 3);
  EXPECT_EQ(heights(list), (Values{7, 20, 30, 40}));
  EXPECT_EQ(sides(list), (Values{8, 21, 31, 41}));
}

TEST_F(KrPlanoCorteTest, InvertMirrorsAcrossTheMiddleBelowTheOrigin) {
  KrPlanoCorte list = cuts(2);
  list.invertePlanos(100);
  // The mirror stands at -50: 10 goes to -110, 20 to -120.
  EXPECT_NEAR(heightOf(list.GetPlane(0)), -110, 1e-9);
  EXPECT_NEAR(heightOf(list.GetPlane(1)), -120, 1e-9);
  EXPECT_NEAR(list.GetSide(0).z, -111, 1e-9);
}

TEST_F(KrPlanoCorteTest, DwgRecordHoldsTwoVersionsTheCountAndEachCutWithItsData) {
  KrPlanoCorte list;
  list.Add(AcGePlane(0, 0, 1, -8), at(1, 2, 9));
  list.Add(AcGePlane(0.6, 0.8, 0, 5), at(3, 4, 5));
  const TestData data(7);
  list.setCData(1, &data);
  filing::NotingDwgFiler filer;
  EXPECT_EQ(list.dwgOutFields(&filer), Acad::eOk);
  const std::vector<std::string> expected = {"Int16 1",
                                             "Int16 1",
                                             "Int16 2",
                                             "double 0",
                                             "double 0",
                                             "double 1",
                                             "double -8",
                                             "Point3d 1 2 9",
                                             "string ",
                                             "double 0.59999999999999998",
                                             "double 0.80000000000000004",
                                             "double 0",
                                             "double 5",
                                             "Point3d 3 4 5",
                                             "string TestData",
                                             "Int32 7"};
  EXPECT_EQ(filer.items, expected);

  KrPlanoCorte read = cuts(4);
  EXPECT_EQ(read.dwgInFields(&filer.rewound()), Acad::eOk);
  ASSERT_EQ(read.Qtd(), 2);
  double a = 0;
  double b = 0;
  double c = 0;
  double d = 0;
  read.GetPlane(1).getCoefficients(a, b, c, d);
  EXPECT_EQ((Values{a, b, c, d}), (Values{0.6, 0.8, 0, 5}));
  EXPECT_EQ(read.GetSide(1), at(3, 4, 5));
  EXPECT_EQ(numberOf(read.accessCData(1)), 7);
  EXPECT_EQ(read.accessCData(0), nullptr);
}

TEST_F(KrPlanoCorteTest, DwgVersionsAreTestedBeforeTheListIsTouched) {
  for (const std::vector<Adesk::Int16>& versions : std::vector<std::vector<Adesk::Int16>>{{2}, {1, 2}}) {
    filing::NotingDwgFiler filer;
    for (const Adesk::Int16 version : versions) filer.writeInt16(version);
    KrPlanoCorte list = cuts(3);
    EXPECT_EQ(list.dwgInFields(&filer.rewound()), Acad::eMakeMeProxy);
    EXPECT_EQ(list.Qtd(), 3);
  }
  filing::NotingDwgFiler filer;
  filer.writeInt16(0);
  KrPlanoCorte list = cuts(3);
  EXPECT_EQ(list.dwgInFields(&filer.rewound()), Acad::eOk);
  EXPECT_EQ(list.Qtd(), 3);
}

TEST_F(KrPlanoCorteTest, AnErrorOfTheDataEndsReadingAndKeepsTheCutsReadSoFar) {
  KrPlanoCorte list = cuts(3);
  const TestData data(7);
  list.setCData(2, &data);
  filing::NotingDwgFiler filer;
  list.dwgOutFields(&filer);
  TestData::result = Acad::eInvalidInput;
  KrPlanoCorte read;
  EXPECT_EQ(read.dwgInFields(&filer.rewound()), Acad::eInvalidInput);
  EXPECT_EQ(read.Qtd(), 2);
}
