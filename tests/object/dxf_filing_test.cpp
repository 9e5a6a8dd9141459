// A member as groups: what is written in which order, what is read back, and what isn't.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <vector>

#include "object/Drawing.h"
#include "object/DxfRecords.h"
#include "object/MemberLayout.h"
#include "object/SampleOutlines.h"
#include "object/TestMember.h"
#include "profiles/KrTubo.h"
#include "records/KrObjectTextExtension.h"

namespace {

using Group = AcDbMemoryDxfFiler::Group;
using Groups = std::vector<Group>;
using testing::ElementsAre;

constexpr const wchar_t* kMessage = L"\nKR_Trama erro ao ler DXF.";

Group text(int code, const wchar_t* value) {
  return {code, std::wstring(value)};
}
Group number(int code, int value) {
  return {code, Adesk::Int64(value)};
}
Group real(double value) {
  return {40, value};
}
Group point(int code, double x, double y, double z) {
  return {code, AcGePoint3d(x, y, z)};
}

/// A member of no elements: what reads back of it is all that DXF holds.
Groups memberGroups(int version = 9) {
  std::vector<char> pattern(96, 0);
  pattern[0] = 7;
  return {text(100, L"AcDbEntity"),
          text(8, L"PERFIL"),
          text(100, L"KrObject"),
          number(170, version),
          text(1, L"V7"),
          number(170, Direita),
          number(170, 3),
          number(170, Objeto),
          number(90, 0),
          point(210, 0, 0, 1),
          real(0.25),
          point(10, 7, 8, 0),
          point(10, 107, 8, 0),
          real(100),
          real(1.5),
          {310, pattern},
          number(170, 1),
          real(50),
          number(90, 1),
          real(1),
          real(0),
          real(0),
          real(-40),
          point(10, 60, 1, 2)};
}

/// Where the first group of the member's own stands in the list above.
constexpr std::size_t kMarkerPlace = 2;
constexpr std::size_t kNamePlace = 4;
constexpr std::size_t kViewPlace = 5;
constexpr std::size_t kElementsPlace = 8;
constexpr std::size_t kPatternPlace = 15;
constexpr std::size_t kCutsPlace = 18;

std::vector<int> codes(const Groups& groups) {
  std::vector<int> all;
  for (const Group& group : groups) all.push_back(group.code);
  return all;
}

double lengthOf(const KrObject& member) {
  double length = 0;
  member.Comprimento(length);
  return length;
}

int versionOf(const KrObject& member) {
  Version version{};
  member.KrObjectVersion(version);
  return static_cast<int>(version);
}

struct Cut {
  double a, b, c, d;
  AcGePoint3d side;
};

/// The cuts as the member writes them behind everything else.
std::vector<Cut> cutsOf(const KrObject& member) {
  AcDbMemoryDxfFiler filer;
  member.dxfOutFields(&filer);
  const Groups& groups = filer.groups();
  std::vector<Cut> cuts;
  for (std::size_t i = groups.size() - static_cast<std::size_t>(5 * member.numCortes()); i < groups.size(); i += 5) {
    const auto k = [&](std::size_t at) { return std::get<double>(groups[i + at].value); };
    cuts.push_back({k(0), k(1), k(2), k(3), std::get<AcGePoint3d>(groups[i + 4].value)});
  }
  return cuts;
}

class MemberDxf : public testing::Test {
 protected:
  MemberDxf() { KrObject::rxInit(); }

  Acad::ErrorStatus read(Groups groups) {
    filer_ = std::make_unique<AcDbMemoryDxfFiler>(std::move(groups));
    return member.dxfInFields(filer_.get());
  }
  /// The code of the group that the filer would give next; 0 at the end.
  int nextCode() {
    filer_->resetFilerStatus();
    resbuf item{};
    return filer_->readItem(&item) == Acad::eOk ? item.restype : 0;
  }
  const ACHAR* message() const { return filer_->errorMessage(); }

  Drawing drawing;
  TestMember member;

 private:
  std::unique_ptr<AcDbMemoryDxfFiler> filer_;
};

}  // namespace

TEST_F(MemberDxf, GroupsStandInTheirOrderBehindTheEntitys) {
  AcDbMemoryDxfFiler source(memberGroups());
  AcDbMemoryDxfFiler filer;
  ASSERT_EQ(member.dxfInFields(&source), Acad::eOk);
  ASSERT_EQ(member.dxfOutFields(&filer), Acad::eOk);
  EXPECT_THAT(codes(filer.groups()), ElementsAre(100, 8, 100, 170, 1, 170, 170, 170, 90, 210, 40, 10, 10, 40, 40, 310,
                                                 170, 40, 90, 40, 40, 40, 40, 10));
  EXPECT_EQ(std::get<std::wstring>(filer.groups()[2].value), L"KrObject");
  EXPECT_EQ(std::get<Adesk::Int64>(filer.groups()[3].value), 9);
  EXPECT_EQ(std::get<std::wstring>(filer.groups()[4].value), L"V7");
  EXPECT_EQ(std::get<Adesk::Int64>(filer.groups()[6].value), 3);
  EXPECT_EQ(std::get<double>(filer.groups()[10].value), 0.25);
  EXPECT_EQ(std::get<double>(filer.groups()[13].value), 100);
  EXPECT_EQ(std::get<std::vector<char>>(filer.groups()[15].value).size(), 96U);
  EXPECT_EQ(std::get<Adesk::Int64>(filer.groups()[18].value), 1);
  EXPECT_EQ(std::get<double>(filer.groups()[22].value), -40);
}

TEST_F(MemberDxf, AMemberWithoutANameWritesTheEmptyOne) {
  AcDbMemoryDxfFiler filer;
  ASSERT_EQ(member.dxfOutFields(&filer), Acad::eOk);
  EXPECT_EQ(std::get<std::wstring>(filer.groups()[kNamePlace].value), L"");
}

TEST_F(MemberDxf, TheStartWritesNoLevel) {
  member.setZCoordIni(100);
  member.setZCoordEnd(200);
  AcDbMemoryDxfFiler filer;
  ASSERT_EQ(member.dxfOutFields(&filer), Acad::eOk);
  EXPECT_EQ(std::get<AcGePoint3d>(filer.groups()[11].value).z, 0);
  EXPECT_EQ(std::get<AcGePoint3d>(filer.groups()[12].value).z, 0);
}

TEST_F(MemberDxf, EachElementWrites13Groups) {
  member.make({samples::rolledI(200, 100, 6, 9, 12)}, Direita, 500);
  AcDbMemoryDxfFiler filer;
  ASSERT_EQ(member.dxfOutFields(&filer), Acad::eOk);
  const auto count = std::get<Adesk::Int64>(filer.groups()[kElementsPlace].value);
  EXPECT_EQ(count, member.GetNumVertex(VistaCorrente));
  ASSERT_GT(count, 4);
  // Behind the elements stand the normal, 9 groups up to the factor, and the number of cuts.
  EXPECT_EQ(filer.groups().size(),
            kElementsPlace + 1 + static_cast<std::size_t>(count) * dxfrecords::kGroupsPerElement + 10);
}

TEST_F(MemberDxf, AMemberWithoutElementsReadsBack) {
  ASSERT_EQ(read(memberGroups()), Acad::eOk);
  EXPECT_STREQ(message(), L"");
  EXPECT_EQ(member.layerId(), drawing.layer(L"PERFIL"));
  EXPECT_STREQ(member.userName(), L"V7");
  EXPECT_EQ(member.Vista(0), Direita);
  unsigned short material = 0;
  member.Material(material);
  EXPECT_EQ(material, 3);
  EXPECT_DOUBLE_EQ(member.angleVista(), 0.25);
  EXPECT_TRUE(member.startPoint().isEqualTo(AcGePoint3d(7, 8, 0)));
  EXPECT_TRUE(member.endPoint().isEqualTo(AcGePoint3d(107, 8, 0)));
  EXPECT_DOUBLE_EQ(lengthOf(member), 100);
  EXPECT_DOUBLE_EQ(member.angleSecao(), 1.5);
  DclFuracao pattern;
  member.GetFuracaoByTrelica(pattern);
  EXPECT_EQ(pattern.words[0], 7U);
  const std::vector<Cut> cuts = cutsOf(member);
  ASSERT_EQ(cuts.size(), 1U);
  EXPECT_DOUBLE_EQ(cuts[0].a, 1);
  EXPECT_DOUBLE_EQ(cuts[0].d, -40);
  EXPECT_TRUE(cuts[0].side.isEqualTo(AcGePoint3d(60, 1, 2)));
}

TEST_F(MemberDxf, WhatWasReadIsWrittenAgain) {
  ASSERT_EQ(read(memberGroups()), Acad::eOk);
  AcDbMemoryDxfFiler filer;
  ASSERT_EQ(member.dxfOutFields(&filer), Acad::eOk);
  const Groups before = memberGroups();
  ASSERT_EQ(codes(filer.groups()), codes(before));
  for (std::size_t i = 0; i < before.size(); ++i) {
    if (before[i].code == 10 || before[i].code == 210) {
      EXPECT_TRUE(std::get<AcGePoint3d>(filer.groups()[i].value).isEqualTo(std::get<AcGePoint3d>(before[i].value)));
    } else {
      EXPECT_EQ(filer.groups()[i].value, before[i].value) << i;
    }
  }
}

// --- What is required to be lost -------------------------------------------------------------------------------------

TEST_F(MemberDxf, AMemberWithElementsDoesNotReadBackAsItWrites) {
  TestMember drawn;
  drawn.make({samples::rolledI(200, 100, 6, 9, 12)}, Direita, 500);
  AcDbMemoryDxfFiler filer;
  ASSERT_EQ(drawn.dxfOutFields(&filer), Acad::eOk);
  // An element writes record version 3 and reads version 1 only: the first one ends the reading.
  EXPECT_EQ(read(filer.groups()), Acad::eInvalidDxfCode);
  EXPECT_STREQ(message(), kMessage);
  EXPECT_EQ(member.Vista(0), Direita) << "what stood ahead of the elements was read";
  EXPECT_EQ(member.GetNumVertex(VistaCorrente), 0);
  EXPECT_DOUBLE_EQ(lengthOf(member), 0) << "what stood behind them was not";
}

TEST_F(MemberDxf, ElementsOfRecordVersion1AreWhatTheReaderTakes) {
  TestMember drawn;
  drawn.make({samples::rolledI(200, 100, 6, 9, 12)}, Direita, 500);
  AcDbMemoryDxfFiler filer;
  ASSERT_EQ(drawn.dxfOutFields(&filer), Acad::eOk);
  const int count = drawn.GetNumVertex(VistaCorrente);
  ASSERT_EQ(read(dxfrecords::withReadableElements(filer.groups())), Acad::eOk);
  ASSERT_EQ(member.GetNumVertex(VistaCorrente), count);
  KrVector before, after;
  for (int i = 0; drawn.GetVector(i, before) != 0; ++i) {
    ASSERT_EQ(member.GetVector(i, after), 1);
    EXPECT_EQ(before.type(), after.type());
    EXPECT_EQ(before.hidden(), after.hidden());
    EXPECT_TRUE(before.startPoint().isEqualTo(after.startPoint()));
    EXPECT_TRUE(before.endPoint().isEqualTo(after.endPoint()));
    EXPECT_EQ(after.IndexFur(), -1);
  }
  EXPECT_DOUBLE_EQ(lengthOf(member), 500);
}

namespace {

/// Reads a layout and shows nothing of it, so that DXF takes the whole.
void fillUnshown(TestMember& member, const MemberLayout& layout) {
  AcDbMemoryDwgFiler filer(AcDb::kFileFiler, layout.bytes());
  ASSERT_EQ(member.dwgInFieldsData(&filer), Acad::eOk);
  member.ClearVertexes(Superior);
}

}  // namespace

TEST_F(MemberDxf, OutlineHolesLevelsScalesRoleAndExtensionsAreNotWritten) {
  MemberLayout plain = MemberLayout::plate();
  plain.version = 2;
  plain.start.z = plain.end.z = 0;
  plain.lists = {};
  MemberLayout everything = MemberLayout::plate();
  everything.start.z = 100;
  everything.end.z = 200;
  everything.xScale = 0.1;
  everything.relativeObj = everything.relativeDim = everything.relativePos = {drawing.append(new AcDbLine)};
  TestMember bare;
  fillUnshown(bare, plain);
  TestMember rich;
  fillUnshown(rich, everything);
  KrObjectSplit split;
  split.setZPos(400);
  split.setLength(20);
  rich.addSplit(split, 1);
  rich.addKrObjectExtension(new KrObjectTextExtension);
  ASSERT_EQ(rich.numSplits(), 1);
  ASSERT_EQ(rich.numFuros(), 2);
  AcDbMemoryDxfFiler ofBare;
  ASSERT_EQ(bare.dxfOutFields(&ofBare), Acad::eOk);
  AcDbMemoryDxfFiler ofRich;
  ASSERT_EQ(rich.dxfOutFields(&ofRich), Acad::eOk);
  EXPECT_EQ(codes(ofRich.groups()), codes(ofBare.groups()));

  ASSERT_EQ(read(ofRich.groups()), Acad::eOk);
  EXPECT_EQ(member.numSplits(), 0);
  EXPECT_EQ(member.getKrObjectExtension(1), nullptr);
  EXPECT_DOUBLE_EQ(member.zCoordIni(), 0);
  EXPECT_DOUBLE_EQ(member.zCoordEnd(), 0);
  // All else is the identity, the placement and the cuts of the layout, with the rest at its defaults.
  MemberLayout left = plain;
  left.version = MemberLayout::kNewest;
  left.outline.clear();
  left.holes.clear();
  left.notches = {};
  left.xScale = left.yScale = left.zScale = 1;
  left.tipoBarra = Barra;
  left.hidden = drawing.layer(L"L-HIDDEN");
  left.hideFace = drawing.layer(L"KR_HIDE_FACE");
  left.axis = drawing.layer(L"EIXO");
  AcDbMemoryDwgFiler data(AcDb::kFileFiler);
  ASSERT_EQ(member.dwgOutFieldsData(&data), Acad::eOk);
  EXPECT_EQ(data.buffer(), left.bytes());
}

// --- Edges -----------------------------------------------------------------------------------------------------------

TEST_F(MemberDxf, OfVersion8ReadsItsVersionAndNothingElse) {
  ASSERT_EQ(read(memberGroups(8)), Acad::eOk);
  EXPECT_STREQ(message(), L"");
  EXPECT_EQ(versionOf(member), 8);
  EXPECT_EQ(member.userName(), nullptr);
  EXPECT_DOUBLE_EQ(lengthOf(member), 0);
  EXPECT_EQ(nextCode(), 1) << "the groups behind the version stay unread";
}

TEST_F(MemberDxf, OfVersion8GetsItsReferenceLineOverItsAxis) {
  member.make({samples::rolledI(200, 100, 6, 9, 12)}, Superior, 500);
  std::vector<KrVector> kept;
  KrVector v;
  for (int i = 0; member.GetVector(i, v) != 0; ++i)
    if (v.type() != KR_VT_REFERENCIA) kept.push_back(v);
  ASSERT_LT(static_cast<int>(kept.size()), member.GetNumVertex(Superior));
  member.ClearVertexes(Superior);
  for (const KrVector& each : kept) member.AddVertex(each, Superior);
  ASSERT_EQ(read(memberGroups(8)), Acad::eOk);
  KrVector axis;
  ASSERT_EQ(member.GetVectorEixo(Superior, axis), 1);
  ASSERT_EQ(member.GetNumVertex(Superior), static_cast<int>(kept.size()) + 1);
  ASSERT_EQ(member.GetVector(static_cast<int>(kept.size()), v), 1);
  EXPECT_EQ(v.type(), KR_VT_REFERENCIA);
  EXPECT_TRUE(v.startPoint().isEqualTo(axis.startPoint()));
  EXPECT_TRUE(v.endPoint().isEqualTo(axis.endPoint()));
}

TEST_F(MemberDxf, AVersionKeepsItsSign) {
  ASSERT_EQ(read(memberGroups(-3)), Acad::eOk);
  EXPECT_EQ(versionOf(member), -3);
}

TEST_F(MemberDxf, OfANewerVersionReadsItsVersionAndNothingElse) {
  ASSERT_EQ(read(memberGroups(10)), Acad::eOk);
  EXPECT_EQ(versionOf(member), 10);
  EXPECT_EQ(member.userName(), nullptr);
}

TEST_F(MemberDxf, WithoutItsMarkerNothingIsRead) {
  Groups groups = memberGroups();
  groups[kMarkerPlace] = text(100, L"AcDbLine");
  ASSERT_EQ(read(groups), Acad::eOk);
  EXPECT_STREQ(message(), L"");
  EXPECT_EQ(versionOf(member), 9);
  EXPECT_EQ(member.userName(), nullptr);
  EXPECT_EQ(nextCode(), 100);
}

TEST_F(MemberDxf, NoCutsInTheFileLeaveThoseOfTheMember) {
  Groups withCuts = memberGroups();
  withCuts[kCutsPlace] = number(90, 2);
  for (Group& group : Groups{real(0), real(1), real(0), real(-7), point(10, 1, 2, 3)}) withCuts.push_back(group);
  ASSERT_EQ(read(withCuts), Acad::eOk);
  ASSERT_EQ(cutsOf(member).size(), 2U);
  Groups groups = memberGroups();
  groups.resize(kCutsPlace);
  groups.push_back(number(90, 0));
  ASSERT_EQ(read(groups), Acad::eOk);
  ASSERT_EQ(cutsOf(member).size(), 2U);
  EXPECT_DOUBLE_EQ(cutsOf(member)[1].b, 1);
  ASSERT_EQ(read(memberGroups()), Acad::eOk);
  ASSERT_EQ(cutsOf(member).size(), 1U) << "cuts in the file replace them";
}

TEST_F(MemberDxf, AWrongCodeGivesOneMessageAndGoesBackToTheFiler) {
  const std::size_t marker = kMarkerPlace;
  const Groups good = memberGroups();
  for (std::size_t i = marker + 1; i < good.size(); ++i) {
    if (i == kElementsPlace) continue;  // the list has its own status
    Groups groups = good;
    groups[i] = {70, Adesk::Int64(5)};
    TestMember fresh;
    AcDbMemoryDxfFiler filer(groups);
    EXPECT_EQ(fresh.dxfInFields(&filer), Acad::eInvalidDxfCode) << i;
    EXPECT_STREQ(filer.errorMessage(), kMessage) << i;
    filer.resetFilerStatus();
    resbuf item{};
    ASSERT_EQ(filer.readItem(&item), Acad::eOk) << i;
    EXPECT_EQ(item.restype, 70) << i;
  }
}

namespace {

/// Counts the faults reported to it.
class CountingDxfFiler : public AcDbMemoryDxfFiler {
 public:
  using AcDbMemoryDxfFiler::AcDbMemoryDxfFiler;
  int reports = 0;
  void setFilerStatus(Acad::ErrorStatus status) override {
    if (status == Acad::eInvalidDxfCode) ++reports;
    AcDbMemoryDxfFiler::setFilerStatus(status);
  }
};

}  // namespace

TEST_F(MemberDxf, AFaultIsReportedOnceWhereverItStands) {
  Groups wrongCode = memberGroups();
  wrongCode[kPatternPlace] = real(3);
  CountingDxfFiler ofCode(wrongCode);
  EXPECT_EQ(TestMember().dxfInFields(&ofCode), Acad::eInvalidDxfCode);
  EXPECT_EQ(ofCode.reports, 1);

  const KrTubo tube(AcGePoint3d(0, 0, 0), AcGePoint3d(900, 0, 0), Superior, 114.3, 104.3);
  AcDbMemoryDxfFiler written;
  ASSERT_EQ(tube.dxfOutFields(&written), Acad::eOk);
  CountingDxfFiler ofElement(written.groups());
  EXPECT_EQ(KrTubo().dxfInFields(&ofElement), Acad::eInvalidDxfCode);
  EXPECT_EQ(ofElement.reports, 1) << "the element's, whose version isn't read";

  Groups wrongClass = dxfrecords::withReadableElements(written.groups());
  wrongClass.back().code = 41;
  CountingDxfFiler ofClass(wrongClass);
  EXPECT_EQ(KrTubo().dxfInFields(&ofClass), Acad::eInvalidDxfCode);
  EXPECT_EQ(ofClass.reports, 1);
  EXPECT_STREQ(ofClass.errorMessage(), kMessage);
}

TEST_F(MemberDxf, KeepsWhatWasReadBeforeAFault) {
  Groups groups = memberGroups();
  groups[kPatternPlace] = real(3);
  EXPECT_EQ(read(groups), Acad::eInvalidDxfCode);
  EXPECT_STREQ(member.userName(), L"V7");
  EXPECT_DOUBLE_EQ(lengthOf(member), 100);
  EXPECT_EQ(member.numCortes(), 0);
}

TEST_F(MemberDxf, ALackOfTheNumberOfElementsIsTheListsOwnFault) {
  Groups groups = memberGroups();
  groups.erase(groups.begin() + kElementsPlace);
  EXPECT_EQ(read(groups), Acad::eInvalidResBuf);
  EXPECT_EQ(nextCode(), 210);
}

TEST_F(MemberDxf, EveryBeginningOfARecordEndsInAStatus) {
  const Groups good = memberGroups();
  for (std::size_t size = kMarkerPlace + 1; size < good.size(); ++size) {
    TestMember fresh;
    AcDbMemoryDxfFiler filer(Groups(good.begin(), good.begin() + static_cast<std::ptrdiff_t>(size)));
    EXPECT_NE(fresh.dxfInFields(&filer), Acad::eOk) << size;
  }
}

TEST_F(MemberDxf, ANumberOfCutsBeyondTheGroupsEndsWithThem) {
  Groups groups = memberGroups();
  groups[kCutsPlace] = number(90, 65535);
  EXPECT_EQ(read(groups), Acad::eInvalidDxfCode);
  EXPECT_EQ(member.numCortes(), 1);
}

// One more than the counter holds would be none, two more would be one.
TEST_F(MemberDxf, MoreCutsThanAnyMemberHasAreRefused) {
  ASSERT_EQ(read(memberGroups()), Acad::eOk);
  Groups groups = memberGroups();
  const Groups cut(groups.begin() + kCutsPlace + 1, groups.end());
  while (groups.size() < kCutsPlace + 1 + 65535 * cut.size()) groups.insert(groups.end(), cut.begin(), cut.end());
  groups[kCutsPlace] = number(90, 65535);
  TestMember full;
  AcDbMemoryDxfFiler most(groups);
  EXPECT_EQ(full.dxfInFields(&most), Acad::eOk);
  EXPECT_EQ(full.numCortes(), 65535);
  for (const int count : {65536, 65537}) {
    groups.insert(groups.end(), cut.begin(), cut.end());
    groups[kCutsPlace] = number(90, count);
    EXPECT_EQ(read(groups), Acad::eInvalidDxfCode) << count;
    EXPECT_STREQ(message(), kMessage);
    EXPECT_EQ(member.numCortes(), 1) << "those of the member stay";
    EXPECT_EQ(nextCode(), 90);
  }
}

TEST_F(MemberDxf, ACutThatCannotBeReckonedWithIsRefused) {
  constexpr std::size_t kSidePlace = kCutsPlace + 5;
  const struct {
    std::size_t place;
    Group group;
  } faults[] = {{kCutsPlace + 1, real(1e200)},
                {kCutsPlace + 1, real(1e-155)},  // its unit normal stands 40e155 off
                {kCutsPlace + 4, real(1e200)},
                {kCutsPlace + 4, real(std::numeric_limits<double>::quiet_NaN())},
                {kSidePlace, point(10, 60, 1e300, 2)}};
  for (const auto& fault : faults) {
    Groups groups = memberGroups();
    groups[fault.place] = fault.group;
    TestMember fresh;
    AcDbMemoryDxfFiler filer(groups);
    EXPECT_EQ(fresh.dxfInFields(&filer), Acad::eInvalidDxfCode) << fault.place;
    EXPECT_STREQ(filer.errorMessage(), kMessage);
    EXPECT_EQ(fresh.numCortes(), 0);
  }
}

TEST_F(MemberDxf, ACutWithoutADirectionIsKeptAsItIsTold) {
  Groups groups = memberGroups();
  groups[kCutsPlace + 1] = real(0);
  ASSERT_EQ(read(groups), Acad::eOk);
  const std::vector<Cut> cuts = cutsOf(member);
  ASSERT_EQ(cuts.size(), 1U);
  EXPECT_EQ(cuts[0].a, 0);
  EXPECT_EQ(cuts[0].b, 0);
  EXPECT_EQ(cuts[0].c, 0);
  EXPECT_EQ(cuts[0].d, -40);
}

TEST_F(MemberDxf, EveryMeasureOfAnElementMustBeReckonable) {
  // A circle: marker, version, three points, direction, length, type, three measures of a hole, flag, hidden.
  const auto readWith = [](double length, double aux) {
    Groups groups = memberGroups();
    groups[kElementsPlace] = number(90, 1);
    const Groups circle = {real(std::numeric_limits<double>::max()),
                           number(170, 1),
                           point(10, 0, 0, 0),
                           point(10, 5, 6, 0),
                           point(10, 0, 0, 0),
                           real(0),
                           real(length),
                           number(170, KR_VT_CIRCULO),
                           real(9),
                           real(0),
                           real(aux),
                           number(170, KR_VF_PADRAO),
                           number(170, 0)};
    groups.insert(groups.begin() + kElementsPlace + 1, circle.begin(), circle.end());
    AcDbMemoryDxfFiler filer(groups);
    return TestMember().dxfInFields(&filer);
  };
  EXPECT_EQ(readWith(9, 0), Acad::eOk);
  EXPECT_EQ(readWith(1e300, 0), Acad::eInvalidDxfCode) << "the drawn radius";
  EXPECT_EQ(readWith(9, 1e300), Acad::eInvalidDxfCode) << "the third measure of a hole";
}

TEST_F(MemberDxf, AViewThatThereIsNotIsRefused) {
  for (const int view : {-1, 7, 200}) {
    Groups groups = memberGroups();
    groups[kViewPlace] = number(170, view);
    TestMember fresh;
    AcDbMemoryDxfFiler filer(groups);
    EXPECT_EQ(fresh.dxfInFields(&filer), Acad::eInvalidDxfCode) << view;
    EXPECT_EQ(fresh.Vista(0), TestMember().Vista(0)) << view;
  }
}

TEST_F(MemberDxf, AShortPatternOfHolesIsFilledWithZeros) {
  Groups groups = memberGroups();
  groups[kPatternPlace] = {310, std::vector<char>{1, 0, 0, 0, 2}};
  DclFuracao before;
  before.words = {9, 9, 9};
  member.SetFuracaoByTrelica(before);
  ASSERT_EQ(read(groups), Acad::eOk);
  DclFuracao pattern;
  member.GetFuracaoByTrelica(pattern);
  EXPECT_EQ(pattern.words[0], 1U);
  EXPECT_EQ(pattern.words[1], 2U);
  EXPECT_EQ(pattern.words[2], 0U);
}
