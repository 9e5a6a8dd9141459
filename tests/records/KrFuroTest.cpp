#include "records/KrFuro.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Filing.h"
#include "TestData.h"

namespace {

constexpr double kPi = 3.141592653589793;

AcGeVector3d at(double x, double y, double z) {
  return AcGeVector3d(x, y, z);
}

class KrFuroTest : public testing::Test {
 protected:
  void SetUp() override { registerTestData(); }
  void TearDown() override { EXPECT_EQ(TestData::alive, 0); }

  /// Holes of diameter 1, 2, 3...
  static KrFuro holes(int count) {
    KrFuro list;
    for (int i = 0; i < count; ++i) list.Add(at(i, 0, 10), at(i, 1, 20), i + 1, 5, 0.5);
    return list;
  }

  static std::vector<double> diameters(const KrFuro& list) {
    std::vector<double> all;
    for (const NoFuro* hole = list.getNode(0); hole != nullptr; hole = hole->next) all.push_back(hole->Diametro);
    return all;
  }
};

using Values = std::vector<double>;

}  // namespace

TEST_F(KrFuroTest, AddStoresAHoleWithoutData) {
  const KrFuro list = holes(2);
  EXPECT_EQ(list.Qtd(), 2);
  EXPECT_EQ(list.getIni(1), at(1, 0, 10));
  EXPECT_EQ(list.getFim(1), at(1, 1, 20));
  EXPECT_EQ(list.getDiametro(1), 2);
  EXPECT_EQ(list.getStretch(1), 5);
  EXPECT_EQ(list.getAngle(1), 0.5);
  EXPECT_EQ(list.accessCData(1), nullptr);
}

TEST_F(KrFuroTest, NodesAreReachedByPosition) {
  const KrFuro list = holes(3);
  EXPECT_EQ(list.getNode(2)->Diametro, 3);
  EXPECT_EQ(list.accessNode(-5), list.getNode(0));
  EXPECT_EQ(list.getNode(3), nullptr);
  EXPECT_EQ(KrFuro().getNode(-1), nullptr);
}

TEST_F(KrFuroTest, GetNoIsACopyOfTheMeasuresAlone) {
  KrFuro list = holes(2);
  const TestData data(7);
  list.setCData(0, &data);
  const NoFuro copy = list.getNo(0);
  EXPECT_EQ(copy.Diametro, 1);
  EXPECT_EQ(copy.Fim, at(0, 1, 20));
  EXPECT_EQ(copy.next, nullptr);
  EXPECT_EQ(copy.cdata, nullptr);
}

TEST_F(KrFuroTest, SettersIgnoreAPositionPastTheEnd) {
  KrFuro list = holes(2);
  list.setIni(2, at(9, 9, 9));
  list.setFim(2, at(9, 9, 9));
  list.setDiametro(2, 9);
  list.setStretch(2, 9);
  list.setAngle(2, 9);
  list.setNode(2, NoFuro());
  EXPECT_EQ(diameters(list), (Values{1, 2}));
  list.setIni(1, at(9, 8, 7));
  list.setFim(1, at(6, 5, 4));
  list.setDiametro(1, 22);
  list.setStretch(1, 3);
  list.setAngle(1, 2);
  EXPECT_EQ(list.getIni(1), at(9, 8, 7));
  EXPECT_EQ(list.getFim(1), at(6, 5, 4));
  EXPECT_EQ(list.getDiametro(1), 22);
  EXPECT_EQ(list.getStretch(1), 3);
  EXPECT_EQ(list.getAngle(1), 2);
}

TEST_F(KrFuroTest, SetNodeClonesTheDataAndKeepsTheChain) {
  KrFuro list = holes(3);
  NoFuro node;
  node.Diametro = 50;
  node.cdata = new TestData(4);
  list.setNode(1, node);
  EXPECT_EQ(diameters(list), (Values{1, 50, 3}));
  EXPECT_EQ(numberOf(list.accessCData(1)), 4);
  EXPECT_NE(list.accessCData(1), node.cdata);
  list.setNode(1, NoFuro());
  EXPECT_EQ(list.accessCData(1), nullptr);
}

TEST_F(KrFuroTest, ACopiedNodeHoldsTheSameDataAndAnAssignedOneAClone) {
  NoFuro node;
  node.cdata = new TestData(4);
  NoFuro copy(node);
  EXPECT_EQ(copy.cdata, node.cdata);
  copy.cdata = nullptr;
  copy = node;
  EXPECT_NE(copy.cdata, node.cdata);
  EXPECT_EQ(numberOf(copy.cdata), 4);
}

TEST_F(KrFuroTest, AddOfANodeTakesItsDataOver) {
  NoFuro node;
  node.Diametro = 8;
  node.cdata = new TestData(4);
  const KrObjectModCData* data = node.cdata;
  KrFuro list = holes(1);
  list.Add(node);
  node.cdata = nullptr;
  EXPECT_EQ(list.Qtd(), 2);
  EXPECT_EQ(list.accessCData(1), data);
  EXPECT_EQ(list.getDiametro(1), 8);
}

TEST_F(KrFuroTest, AssignmentDropsTheDataAndAddingToHolesKeepsAClone) {
  KrFuro source = holes(2);
  const TestData data(7);
  source.setCData(1, &data);
  KrFuro assigned = holes(5);
  assigned = source;
  EXPECT_EQ(diameters(assigned), (Values{1, 2}));
  EXPECT_EQ(assigned.accessCData(1), nullptr);

  KrFuro added = holes(1);
  added.Add(source);
  EXPECT_EQ(added.Qtd(), 3);
  EXPECT_EQ(diameters(added), (Values{1, 1, 2}));
  EXPECT_EQ(numberOf(added.accessCData(2)), 7);
  EXPECT_NE(added.accessCData(2), source.accessCData(1));

  KrFuro empty;
  empty.Add(source);
  EXPECT_EQ(empty.Qtd(), 2);
  EXPECT_EQ(empty.accessCData(1), nullptr);
}

TEST_F(KrFuroTest, ContainComparesTheTwoEndsOnly) {
  const KrFuro list = holes(2);
  NoFuro node;
  node.Ini = at(1, 0, 10);
  node.Fim = at(1, 1, 20);
  node.Diametro = 777;
  EXPECT_EQ(list.contain(node), 1);
  node.Fim = at(1, 1, 20.1);
  EXPECT_EQ(list.contain(node), 0);
}

// The first hole is removed too, but the result says 0.
TEST_F(KrFuroTest, RemoveAtGivesZeroForTheFirstHoleThatItRemoves) {
  KrFuro list = holes(4);
  EXPECT_EQ(list.removeAt(0), 0);
  EXPECT_EQ(diameters(list), (Values{2, 3, 4}));
  EXPECT_EQ(list.removeAt(1), 1);
  EXPECT_EQ(diameters(list), (Values{2, 4}));
  EXPECT_EQ(list.removeAt(2), 0);
  EXPECT_EQ(list.removeAt(-1), 0);
  EXPECT_EQ(list.Qtd(), 2);
}

TEST_F(KrFuroTest, RemoveFirstOfAnEmptyListWrapsTheCount) {
  KrFuro list = holes(2);
  list.removeFirst();
  EXPECT_EQ(diameters(list), (Values{2}));
  list.removeFirst();
  EXPECT_EQ(list.Qtd(), 0);
  list.removeFirst();
  EXPECT_EQ(list.Qtd(), 65535);
  list.Clear();
  EXPECT_EQ(list.Qtd(), 0);
}

TEST_F(KrFuroTest, RemovedHolesTakeTheirDataWithThem) {
  KrFuro list = holes(3);
  const TestData data(7);
  for (int i = 0; i < 3; ++i) list.setCData(i, &data);
  EXPECT_EQ(TestData::alive, 4);
  list.removeAt(1);
  list.removeFirst();
  EXPECT_EQ(TestData::alive, 2);
  list.Clear();
  EXPECT_EQ(TestData::alive, 1);
  list.Add(at(0, 0, 0), at(0, 0, 0), 1, 0, 0);
  EXPECT_EQ(list.accessCData(0), nullptr);
}

TEST_F(KrFuroTest, DataIsRefusedPastTheEndAndANegativePositionMeansTheFirst) {
  KrFuro list = holes(2);
  const TestData data(7);
  EXPECT_EQ(list.setCData(2, &data), 0);
  EXPECT_EQ(list.accessCData(2), nullptr);
  EXPECT_EQ(list.setCData(-3, &data), 1);
  EXPECT_EQ(numberOf(list.accessCData(0)), 7);
  EXPECT_EQ(numberOf(list.accessCData(-1)), 7);
  EXPECT_EQ(list.setCData(0, nullptr), 1);
  EXPECT_EQ(list.accessCData(0), nullptr);
}

TEST_F(KrFuroTest, PurgeDeletesAllDataOrThatOfOneKind) {
  KrFuro list = holes(3);
  const TestData data(1);
  const OtherTestData other(2);
  list.setCData(0, &data);
  list.setCData(1, &other);
  list.setCData(2, &data);
  list.purgeCData(OtherTestData::desc());
  EXPECT_EQ(numberOf(list.accessCData(0)), 1);
  EXPECT_EQ(list.accessCData(1), nullptr);
  list.purgeCData(nullptr);
  EXPECT_EQ(list.accessCData(0), nullptr);
  EXPECT_EQ(list.accessCData(2), nullptr);
}

TEST_F(KrFuroTest, HolesMoveAlongTheBarAcrossItAndTurn) {
  KrFuro list = holes(2);
  list.moveFuros(3);
  EXPECT_EQ(list.getIni(1), at(1, 0, 13));
  EXPECT_EQ(list.getFim(1), at(1, 1, 23));
  list.translateFuros(at(1, 2, -3));
  EXPECT_EQ(list.getIni(1), at(2, 2, 10));
  EXPECT_EQ(list.getFim(1), at(2, 3, 20));
  list.rotateFuros(kPi / 2);
  EXPECT_EQ(list.getIni(1), at(-2, 2, 10));
  EXPECT_EQ(list.getFim(1), at(-3, 2, 20));
}

// Only the axis's start is mirrored.
TEST_F(KrFuroTest, InvertLeavesTheOtherEndOfTheAxis) {
  KrFuro list = holes(1);
  list.inverteFuros(100);
  EXPECT_EQ(list.getIni(0), at(0, 0, 90));
  EXPECT_EQ(list.getFim(0), at(0, 1, 20));
  EXPECT_DOUBLE_EQ(list.getAngle(0), kPi - 0.5);
}

TEST_F(KrFuroTest, NodesStayWhereTheyAreWhileHolesAreAdded) {
  KrFuro list = holes(1);
  const NoFuro* first = list.getNode(0);
  for (int i = 0; i < 500; ++i) list.Add(at(i, 0, 0), at(i, 1, 0), i, 0, 0);
  EXPECT_EQ(list.getNode(0), first);
  EXPECT_EQ(list.getDiametro(500), 499);
}

TEST_F(KrFuroTest, DwgRecordHoldsTwoVersionsTheCountAndEachHoleWithItsData) {
  KrFuro list = holes(2);
  const TestData data(7);
  list.setCData(1, &data);
  filing::NotingDwgFiler filer;
  EXPECT_EQ(list.dwgOutFields(&filer), Acad::eOk);
  const std::vector<std::string> expected = {"Int16 1",         "Int16 1",         "Int16 2",         "Vector3d 0 0 10",
                                             "Vector3d 0 1 20", "double 1",        "double 5",        "double 0.5",
                                             "string ",         "Vector3d 1 0 10", "Vector3d 1 1 20", "double 2",
                                             "double 5",        "double 0.5",      "string TestData", "Int32 7"};
  EXPECT_EQ(filer.items, expected);

  KrFuro read = holes(4);
  EXPECT_EQ(read.dwgInFields(&filer.rewound()), Acad::eOk);
  EXPECT_EQ(diameters(read), (Values{1, 2}));
  EXPECT_EQ(read.accessCData(0), nullptr);
  EXPECT_EQ(numberOf(read.accessCData(1)), 7);
  EXPECT_EQ(read.getFim(1), at(1, 1, 20));
}

TEST_F(KrFuroTest, DwgListOfANewerVersionIsLeftToAProxyAndTheListUntouched) {
  filing::NotingDwgFiler filer;
  filer.writeInt16(2);
  KrFuro list = holes(3);
  EXPECT_EQ(list.dwgInFields(&filer.rewound()), Acad::eMakeMeProxy);
  EXPECT_EQ(list.Qtd(), 3);
}

TEST_F(KrFuroTest, DwgNodesOfANewerVersionAreLeftToAProxy) {
  filing::NotingDwgFiler filer;
  filer.writeInt16(1);
  filer.writeInt16(2);
  KrFuro list = holes(3);
  EXPECT_EQ(list.dwgInFields(&filer.rewound()), Acad::eMakeMeProxy);
  EXPECT_EQ(list.Qtd(), 3);
}

TEST_F(KrFuroTest, DwgListOfVersion0StopsReadingAndLeavesTheList) {
  filing::NotingDwgFiler filer;
  filer.writeInt16(0);
  filer.writeInt16(1);
  KrFuro list = holes(3);
  EXPECT_EQ(list.dwgInFields(&filer.rewound()), Acad::eOk);
  EXPECT_EQ(list.Qtd(), 3);
  EXPECT_FALSE(filer.atEnd());
}

TEST_F(KrFuroTest, DwgNodesOfVersion0AreEmpty) {
  filing::NotingDwgFiler filer;
  filer.writeInt16(1);
  filer.writeInt16(0);
  filer.writeInt16(2);
  KrFuro list = holes(3);
  EXPECT_EQ(list.dwgInFields(&filer.rewound()), Acad::eOk);
  EXPECT_EQ(diameters(list), (Values{0, 0}));
}

TEST_F(KrFuroTest, AnErrorOfTheDataEndsReadingAndKeepsTheHolesReadSoFar) {
  KrFuro list = holes(3);
  const TestData data(7);
  list.setCData(1, &data);
  filing::NotingDwgFiler filer;
  list.dwgOutFields(&filer);
  TestData::result = Acad::eInvalidInput;
  KrFuro read;
  EXPECT_EQ(read.dwgInFields(&filer.rewound()), Acad::eInvalidInput);
  EXPECT_EQ(diameters(read), (Values{1}));
}
