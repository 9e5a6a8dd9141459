// Every version of a member's layout, written item by item and read by the member: what each holds comes back, what it
// lacks has its default, and what is written again is the newest.

#include <gtest/gtest.h>

#include <limits>

#include "object/Drawing.h"
#include "object/MemberLayout.h"
#include "object/TestMember.h"
#include "records/KrObjectTextExtension.h"

namespace {

constexpr int kOldest = 0;

int versionOf(const KrObject& member) {
  Version version{};
  member.KrObjectVersion(version);
  return static_cast<int>(version);
}

class MemberVersions : public testing::TestWithParam<int> {
 protected:
  MemberVersions() : layout(MemberLayout::plate()) {
    layout.version = GetParam();
    KrObject::loadLayersIds();
    layout.hidden = drawing.layer(L"L-HIDDEN");
    layout.hideFace = drawing.layer(L"KR_HIDE_FACE");
    layout.axis = drawing.layer(L"EIXO");
  }

  static AcDbMemoryDwgFiler::Buffer written(KrObject& member, AcDb::FilerType type = AcDb::kFileFiler) {
    AcDbMemoryDwgFiler filer(type);
    EXPECT_EQ(member.dwgOutFieldsData(&filer), Acad::eOk);
    return filer.takeBuffer();
  }

  Acad::ErrorStatus read(KrObject& member) const {
    AcDbMemoryDwgFiler filer(AcDb::kFileFiler, layout.bytes());
    const Acad::ErrorStatus es = member.dwgInFieldsData(&filer);
    EXPECT_TRUE(filer.atEnd() || es != Acad::eOk);
    return es;
  }

  /// What a member read from the layout holds: what the version lacks has its default.
  MemberLayout expected() const {
    MemberLayout m = layout;
    const MemberLayout none;
    m.version = MemberLayout::kNewest;
    if (GetParam() < 3) {
      m.outline.clear();
      m.holes.clear();
      m.xScale = m.yScale = m.zScale = 1;
    }
    if (GetParam() < 4)
      for (MemberLayout::Hole& hole : m.holes) hole.angle = 0;
    if (GetParam() < 5) m.tipoBarra = Barra;
    if (GetParam() < 6) m.notches = none.notches;
    return m;
  }

  Drawing drawing;
  MemberLayout layout;
};

}  // namespace

TEST_P(MemberVersions, ReadsWhatTheVersionHoldsAndWritesItAsTheNewest) {
  TestMember member;
  ASSERT_EQ(read(member), Acad::eOk);
  EXPECT_EQ(versionOf(member), MemberLayout::kNewest);
  EXPECT_EQ(written(member), expected().bytes()) << "every item, by type and value";
}

TEST_P(MemberVersions, OldFilesHoldTheListsOfFiveViewsAndNewOnesThatOfTheViewShown) {
  TestMember member;
  ASSERT_EQ(read(member), Acad::eOk);
  for (int view = 0; view < 5; ++view) {
    const bool filed = GetParam() < 7 || view == Superior;
    const std::size_t count = layout.lists[static_cast<std::size_t>(view)].size();
    EXPECT_EQ(member.GetNumVertex(static_cast<KrVistas>(view)), filed ? int(count) : 0) << view;
  }
}

TEST_P(MemberVersions, LevelsStandInTheFilesPointsAndNotInTheMembers) {
  TestMember member;
  ASSERT_EQ(read(member), Acad::eOk);
  EXPECT_DOUBLE_EQ(member.zCoordIni(), 30);
  EXPECT_DOUBLE_EQ(member.zCoordEnd(), 40);
  EXPECT_DOUBLE_EQ(member.startPoint().z, 0);
  EXPECT_DOUBLE_EQ(member.endPoint().z, 0);
}

TEST_P(MemberVersions, ReplacesWhatTheMemberHeld) {
  TestMember member;
  MemberLayout other = MemberLayout::plate();
  other.cuts.resize(1);
  other.holes.insert(other.holes.end(), 5, other.holes[0]);
  other.outline.insert(other.outline.begin(), 4, other.outline[0]);
  AcDbMemoryDwgFiler filer(AcDb::kFileFiler, other.bytes());
  ASSERT_EQ(member.dwgInFieldsData(&filer), Acad::eOk);
  ASSERT_EQ(read(member), Acad::eOk);
  KrGeratriz outline;
  member.GetSecao(outline);
  EXPECT_EQ(member.numCortes(), 2);
  // A version that doesn't hold outline and holes leaves those of the member.
  EXPECT_EQ(member.numFuros(), GetParam() < 3 ? 7 : 2);
  EXPECT_EQ(outline.Qtd(), GetParam() < 3 ? 9 : 5);
}

TEST_P(MemberVersions, EveryBeginningOfAFileEndsInAStatus) {
  const AcDbMemoryDwgFiler::Buffer whole = layout.bytes();
  for (std::size_t size = 0; size < whole.size(); size += 3) {
    TestMember member;
    AcDbMemoryDwgFiler filer(AcDb::kFileFiler,
                             AcDbMemoryDwgFiler::Buffer(whole.begin(), whole.begin() + std::ptrdiff_t(size)));
    EXPECT_NE(member.dwgInFieldsData(&filer), Acad::eOk) << size;
  }
}

INSTANTIATE_TEST_SUITE_P(Since1, MemberVersions, testing::Range(kOldest + 1, MemberLayout::kNewest + 1));

namespace {

class MemberLayouts : public testing::Test {
 protected:
  static Acad::ErrorStatus read(KrObject& member, const MemberLayout& layout) {
    AcDbMemoryDwgFiler filer(AcDb::kFileFiler, layout.bytes());
    return member.dwgInFieldsData(&filer);
  }

  /// A text as a file holds it.
  static MemberLayout::Extension textExtension(Adesk::UInt32 id) {
    return {L"KrObjectTextExtension", [id](AcDbDwgFiler& filer) {
              filer.writeUInt32(1);
              filer.writeUInt32(id);
              filer.writeUInt32(1);
              filer.writeString(L"P12");
              filer.writeUInt32(9);
              filer.writeVector3d(AcGeVector3d(0, 0, 0));
              filer.writeHardPointerId(AcDbHardPointerId());
              filer.writeHardPointerId(AcDbHardPointerId());
              filer.writeDouble(30);
              filer.writeDouble(0);
            }};
  }

  Drawing drawing;
};

}  // namespace

TEST_F(MemberLayouts, Version0IsItsNumberAlone) {
  MemberLayout layout = MemberLayout::plate();
  layout.version = kOldest;
  TestMember member;
  member.setComprimento(77);
  ASSERT_EQ(read(member, layout), Acad::eOk);
  double length = 0;
  member.Comprimento(length);
  EXPECT_DOUBLE_EQ(length, 77);
  EXPECT_EQ(versionOf(member), MemberLayout::kNewest);
}

TEST_F(MemberLayouts, EveryNewerVersionIsLeftToAProxyUnread) {
  for (const int version : {10, 11, 12, 300, 32767}) {
    MemberLayout layout = MemberLayout::plate();
    layout.version = version;
    TestMember member;
    EXPECT_EQ(read(member, layout), Acad::eMakeMeProxy) << version;
    EXPECT_EQ(member.numCortes(), 0);
    EXPECT_EQ(member.userName(), nullptr);
  }
}

TEST_F(MemberLayouts, TheLayerIdsOfTheFileHaveNoEffect) {
  MemberLayout layout = MemberLayout::plate();
  layout.hidden = layout.hideFace = layout.axis = drawing.layer(L"PERFIL");
  TestMember member;
  ASSERT_EQ(read(member, layout), Acad::eOk);
  AcDbMemoryDwgFiler filer(AcDb::kFileFiler);
  member.dwgOutFieldsData(&filer);
  layout.hidden = drawing.layer(L"L-HIDDEN");
  layout.hideFace = drawing.layer(L"KR_HIDE_FACE");
  layout.axis = drawing.layer(L"EIXO");
  EXPECT_EQ(filer.buffer(), layout.bytes());
}

TEST_F(MemberLayouts, AnOldBarGetsItsReferenceLine) {
  MemberLayout layout = MemberLayout::plate();
  layout.version = 6;
  layout.angleSecao = 0;
  layout.lists[Superior].pop_back();
  TestMember member;
  ASSERT_EQ(read(member, layout), Acad::eOk);
  ASSERT_EQ(member.GetNumVertex(Superior), 6);
  KrVector line;
  ASSERT_EQ(member.GetVector(Superior, 5, line), 1);
  EXPECT_EQ(line.type(), KR_VT_REFERENCIA);
  // The outline's reference origin stands in the middle of the section: the line runs along the bar's.
  EXPECT_TRUE(line.startPoint().isEqualTo(AcGePoint3d(10, 20, 0)));
  EXPECT_TRUE(line.endPoint().isEqualTo(AcGePoint3d(1010, 20, 0)));
}

TEST_F(MemberLayouts, ABarThatHasItsReferenceLineGetsNoSecond) {
  TestMember member;
  ASSERT_EQ(read(member, MemberLayout::plate()), Acad::eOk);
  EXPECT_EQ(member.GetNumVertex(Superior), 6);
}

TEST_F(MemberLayouts, AnEmptyListRegeneratesAndAFullOneDoesNot) {
  MemberLayout layout = MemberLayout::plate();
  layout.lists[Superior].clear();
  layout.cuts.clear();
  layout.notches = {};
  TestMember drawn;
  ASSERT_EQ(read(drawn, layout), Acad::eOk);
  EXPECT_GT(drawn.GetNumVertex(Superior), 4);
  // A list that no regeneration would make stays as it is.
  layout.lists[Superior] = {KrVector(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 1, 0), KR_VT_LINHA),
                            KrVector(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 1, 0), KR_VT_REFERENCIA)};
  layout.lists[Superior][0].setTipo(KR_VF_ARESTA);
  TestMember kept;
  ASSERT_EQ(read(kept, layout), Acad::eOk);
  EXPECT_EQ(kept.GetNumVertex(Superior), 2);
}

TEST_F(MemberLayouts, AnEmptyNameInTheFileIsNone) {
  MemberLayout layout = MemberLayout::plate();
  layout.name.clear();
  TestMember member;
  member.setUserName(L"old");
  ASSERT_EQ(read(member, layout), Acad::eOk);
  EXPECT_EQ(member.userName(), nullptr);
}

TEST_F(MemberLayouts, NoCountOfNodesHasNoReferenceNodeEither) {
  MemberLayout layout = MemberLayout::plate();
  layout.outline.clear();
  TestMember member;
  ASSERT_EQ(read(member, layout), Acad::eOk);
  EXPECT_EQ(member.outline().numNodes(), 0);
}

// Only one can be measured from. A file of several must not lose one at each save.
TEST_F(MemberLayouts, AnOutlineOfSeveralReferenceNodesKeepsThem) {
  MemberLayout layout = MemberLayout::plate();
  layout.outline.insert(layout.outline.begin() + 1, {AcGeVector3d(7, 8, 0), KrGeratriz::kReferenceBulge});
  TestMember member;
  ASSERT_EQ(read(member, layout), Acad::eOk);
  for (int round = 0; round < 2; ++round) {
    AcDbMemoryDwgFiler filer(AcDb::kFileFiler);
    ASSERT_EQ(member.dwgOutFieldsData(&filer), Acad::eOk);
    filer.seek(0);
    TestMember again;
    ASSERT_EQ(again.dwgInFieldsData(&filer), Acad::eOk);
    ASSERT_EQ(again.outline().numNodes(), static_cast<int>(layout.outline.size()));
    for (int i = 0; i < again.outline().numNodes(); ++i) {
      const MemberLayout::OutlineNode& want = layout.outline[static_cast<std::size_t>(i)];
      EXPECT_EQ(again.outline().GetVertex(i), want.vertex);
      EXPECT_EQ(again.outline().GetBulge(i), want.bulge);
    }
    member.outline() = again.outline();
  }
}

TEST_F(MemberLayouts, WhatNoMemberCanHoldIsRefused) {
  MemberLayout noView = MemberLayout::plate();
  noView.view = static_cast<KrVistas>(4);
  AcDbMemoryDwgFiler::Buffer bytes = noView.bytes();
  // The view's word stands behind the version (1 + 2 bytes) and the name (1 + 4, and 4 a letter), behind its own tag.
  const std::size_t place = 3 + 5 + sizeof(wchar_t) * noView.name.size() + 1;
  ASSERT_EQ(bytes.at(place), 4);
  bytes[place] = 7;
  TestMember member;
  AcDbMemoryDwgFiler filer(AcDb::kFileFiler, bytes);
  EXPECT_EQ(member.dwgInFieldsData(&filer), Acad::eInvalidInput);
  EXPECT_EQ(member.Vista(0), TestMember().Vista(0)) << "nor is it held";

  MemberLayout noReference = MemberLayout::plate();
  noReference.outline.back().bulge = 0;
  EXPECT_EQ(read(member, noReference), Acad::eInvalidInput);
}

TEST_F(MemberLayouts, WhatBreaksOffKeepsItsVersionAndIsNotDrawn) {
  MemberLayout layout = MemberLayout::plate();
  layout.version = 3;
  for (std::vector<KrVector>& list : layout.lists) list.clear();
  layout.relativePos = {drawing.append(new AcDbLine)};
  AcDbMemoryDwgFiler::Buffer bytes = layout.bytes();
  bytes.resize(bytes.size() - 2);
  TestMember member;
  AcDbMemoryDwgFiler filer(AcDb::kFileFiler, bytes);
  EXPECT_EQ(member.dwgInFieldsData(&filer), Acad::eEndOfObject);
  EXPECT_EQ(versionOf(member), 3);
  EXPECT_EQ(member.outline().Qtd(), 5) << "what was read stays";
  EXPECT_EQ(member.GetNumVertex(Superior), 0) << "the empty list isn't regenerated";
  layout.relativePos.clear();
  ASSERT_EQ(read(member, layout), Acad::eOk);
  EXPECT_EQ(versionOf(member), MemberLayout::kNewest);
  EXPECT_GT(member.GetNumVertex(Superior), 4) << "whole it is";
}

// An item takes a byte more than its value: a role 3, a factor 9, an id 9.
TEST_F(MemberLayouts, NothingBehindABreakIsTaken) {
  MemberLayout layout = MemberLayout::plate();
  layout.version = 5;
  layout.relativePos = {drawing.append(new AcDbLine)};
  const struct {
    std::size_t missing;
    TipoBarra role;
    const char* where;
  } breaks[] = {{3 + 1, Pilar, "within the last id"}, {3, Barra, "behind the links"}, {1, Barra, "within the role"}};
  for (const auto& each : breaks) {
    AcDbMemoryDwgFiler::Buffer bytes = layout.bytes();
    bytes.resize(bytes.size() - each.missing);
    TestMember member;
    member.settipoBarra(Pilar);
    AcDbMemoryDwgFiler filer(AcDb::kFileFiler, bytes);
    EXPECT_EQ(member.dwgInFieldsData(&filer), Acad::eEndOfObject) << each.where;
    EXPECT_EQ(versionOf(member), 5) << each.where;
    EXPECT_EQ(member.tipoBarra(), each.role) << each.where << ": links that are read whole set the role to 0";
  }
}

TEST_F(MemberLayouts, APlacementThatBreaksOffKeepsWhatStandsBehind) {
  MemberLayout layout = MemberLayout::plate();
  layout.version = 1;
  layout.cuts.clear();
  layout.angleVista = 0.25;
  AcDbMemoryDwgFiler::Buffer bytes = layout.bytes();
  // Within the length: behind it stand its angle, the pattern's run with its length, a mark, a factor and a count.
  bytes.resize(bytes.size() - (5 + 9 + 2 + (5 + 96) + 9 + 1));
  TestMember member;
  member.setComprimento(77);
  member.setAngleSecao(0.75);
  DclFuracao pattern;
  pattern.words = {9, 8, 7};
  member.SetFuracaoByTrelica(pattern);
  AcDbMemoryDwgFiler filer(AcDb::kFileFiler, bytes);
  EXPECT_EQ(member.dwgInFieldsData(&filer), Acad::eEndOfObject);
  EXPECT_STREQ(member.userName(), L"V12");
  EXPECT_DOUBLE_EQ(member.angleVista(), 0.25);
  EXPECT_DOUBLE_EQ(member.zCoordEnd(), 40);
  double length = 0;
  member.Comprimento(length);
  EXPECT_DOUBLE_EQ(length, 77);
  EXPECT_DOUBLE_EQ(member.angleSecao(), 0.75);
  member.GetFuracaoByTrelica(pattern);
  EXPECT_EQ(pattern.words[1], 8U);
}

TEST_F(MemberLayouts, AListThatBreaksOffHasNoHalfReadLast) {
  MemberLayout cuts = MemberLayout::plate();
  cuts.version = 1;
  MemberLayout holes = MemberLayout::plate();
  holes.version = 4;
  holes.relativeDim.clear();
  MemberLayout links = holes;
  links.relativePos = {drawing.append(new AcDbLine), drawing.append(new AcDbLine)};
  const auto readWithout = [](KrObject& member, const MemberLayout& layout, std::size_t missing) {
    AcDbMemoryDwgFiler::Buffer bytes = layout.bytes();
    bytes.resize(bytes.size() - missing);
    AcDbMemoryDwgFiler filer(AcDb::kFileFiler, bytes);
    return member.dwgInFieldsData(&filer);
  };
  TestMember ofCuts;
  EXPECT_EQ(readWithout(ofCuts, cuts, 1), Acad::eEndOfObject);
  EXPECT_EQ(ofCuts.numCortes(), 1);
  TestMember ofHoles;
  ofHoles.setXscale(0.125);
  // Behind the last hole stand three scales and two counts.
  EXPECT_EQ(readWithout(ofHoles, holes, 3 * 9 + 2 * 5 + 1), Acad::eEndOfObject);
  EXPECT_EQ(ofHoles.numFuros(), 1);
  double scale = 0;
  ofHoles.Xscale(scale);
  EXPECT_DOUBLE_EQ(scale, 0.125);
  TestMember ofLinks;
  EXPECT_EQ(readWithout(ofLinks, links, 1), Acad::eEndOfObject);
  AcDbObjectIdArray ids;
  ofLinks.RelativePos(ids);
  ASSERT_EQ(ids.length(), 1);
  EXPECT_EQ(ids[0], links.relativePos[0]);
  // A count that isn't read replaces nothing.
  EXPECT_EQ(readWithout(ofLinks, links, 2 * 9 + 1), Acad::eEndOfObject);
  ofLinks.RelativePos(ids);
  EXPECT_EQ(ids.length(), 1);
}

// At a scale of 0, or so near it that its reciprocal is no number, a regeneration would make numbers that are none.
TEST_F(MemberLayouts, AFileOfScalesAtWhichNothingCanBeDrawnIsRefused) {
  constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
  constexpr double kEndless = std::numeric_limits<double>::infinity();
  for (double MemberLayout::*const scale : {&MemberLayout::xScale, &MemberLayout::yScale, &MemberLayout::zScale})
    for (const double bad : {0.0, -0.0, 5e-310, kNone, kEndless}) {
      MemberLayout layout = MemberLayout::plate();
      for (std::vector<KrVector>& list : layout.lists) list.clear();
      layout.*scale = bad;
      TestMember member;
      EXPECT_EQ(read(member, layout), Acad::eInvalidInput) << bad;
      EXPECT_EQ(member.GetNumVertex(Superior), 0) << bad;
    }
}

namespace {

/// A circle as its record tells it, the drawn radius in its length.
KrVector circleOf(double length, double aux) {
  AcDbMemoryDwgFiler filer(AcDb::kCopyFiler);
  filer.writeDouble(std::numeric_limits<double>::max());
  filer.writeInt16(3);
  for (int i = 0; i < 3; ++i) filer.writePoint3d(AcGePoint3d(1, 2, 0));
  filer.writeDouble(0);
  filer.writeDouble(length);
  filer.writeInt16(KR_VT_CIRCULO);
  for (const double measure : {5.0, 0.0, aux}) filer.writeDouble(measure);
  filer.writeInt16(KR_VF_PADRAO);
  filer.writeBoolean(false);
  filer.writeInt32(-1);
  filer.writeInt32(0);
  filer.seek(0);
  KrVector circle;
  circle.dwgInFields(&filer);
  EXPECT_TRUE(filer.atEnd());
  return circle;
}

}  // namespace

TEST_F(MemberLayouts, EveryMeasureOfAnElementMustBeReckonable) {
  constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
  const auto readWith = [](double length, double aux) {
    MemberLayout layout = MemberLayout::plate();
    layout.lists[Superior].push_back(circleOf(length, aux));
    TestMember member;
    return read(member, layout);
  };
  EXPECT_EQ(readWith(5, 0), Acad::eOk);
  EXPECT_EQ(readWith(1e150, 1e150), Acad::eOk);
  for (const double bad : {1e300, -1e151, kNone}) {
    EXPECT_EQ(readWith(bad, 0), Acad::eInvalidInput) << "the drawn radius: " << bad;
    EXPECT_EQ(readWith(5, bad), Acad::eInvalidInput) << "the third measure of a hole: " << bad;
  }
}

TEST_F(MemberLayouts, MoreCutsThanAnyMemberHasAreRefused) {
  MemberLayout layout = MemberLayout::plate();
  layout.version = 1;
  for (const std::size_t count : {65536U, 65537U}) {
    layout.cuts.resize(count, {1, 0, 0, -5, {9, 0, 0}});
    TestMember member;
    EXPECT_EQ(read(member, layout), Acad::eInvalidInput) << count;
  }
}

TEST_F(MemberLayouts, ACutThatCannotBeReckonedWithIsRefused) {
  // The last one's unit normal stands 1e155 off.
  for (const MemberLayout::Cut& cut :
       {MemberLayout::Cut{1e200, 0, 0, 5, {}}, MemberLayout::Cut{1, 0, 0, 1e200, {}},
        MemberLayout::Cut{1, 0, 0, 5, {0, 1e300, 0}}, MemberLayout::Cut{1e-155, 0, 0, 1, {}}}) {
    MemberLayout layout = MemberLayout::plate();
    layout.cuts = {cut};
    TestMember member;
    EXPECT_EQ(read(member, layout), Acad::eInvalidInput) << cut.a << " " << cut.d << " " << cut.side.y;
  }
}

// A plane without a direction is none: it is kept as the file has it, and shows nowhere.
TEST_F(MemberLayouts, ACutWithoutADirectionCutsNothing) {
  MemberLayout layout = MemberLayout::plate();
  layout.lists[Superior].clear();
  layout.cuts.clear();
  layout.angleSecao = 0;
  layout.notches = {};
  layout.xScale = layout.yScale = layout.zScale = 1;
  TestMember whole;
  ASSERT_EQ(read(whole, layout), Acad::eOk);
  layout.cuts = {{0, 0, 0, 5, {100, 0, 0}}};
  TestMember member;
  ASSERT_EQ(read(member, layout), Acad::eOk);
  EXPECT_EQ(member.numCortes(), 1);
  ASSERT_GT(whole.GetNumVertex(Superior), 4);
  ASSERT_EQ(member.GetNumVertex(Superior), whole.GetNumVertex(Superior));
  KrVector a, b;
  for (int i = 0; whole.GetVector(Superior, i, a) != 0; ++i) {
    ASSERT_EQ(member.GetVector(Superior, i, b), 1);
    EXPECT_TRUE(a.startPoint().isEqualTo(b.startPoint())) << i;
    EXPECT_TRUE(a.endPoint().isEqualTo(b.endPoint())) << i;
  }
  AcDbMemoryDwgFiler again(AcDb::kFileFiler);
  ASSERT_EQ(member.dwgOutFieldsData(&again), Acad::eOk);
  again.seek(0);
  TestMember back;
  EXPECT_EQ(back.dwgInFieldsData(&again), Acad::eOk);
  EXPECT_EQ(back.numCortes(), 1);
}

TEST_F(MemberLayouts, ASaveDropsLinksToDimensionsThatAreGoneAndACopyKeepsThem) {
  const AcDbObjectId living = drawing.append(new AcDbLine);
  const AcDbObjectId gone = drawing.append(new AcDbLine);
  AcDbLine* line = nullptr;
  ASSERT_EQ(acdbOpenObject(line, gone, AcDb::kForWrite), Acad::eOk);
  line->erase();
  line->close();
  MemberLayout layout = MemberLayout::plate();
  layout.relativeDim = {living, gone};
  layout.relativeObj = {gone};
  layout.relativePos = {gone, living};
  layout.hidden = drawing.layer(L"L-HIDDEN");
  layout.hideFace = drawing.layer(L"KR_HIDE_FACE");
  layout.axis = drawing.layer(L"EIXO");
  TestMember member;
  ASSERT_EQ(read(member, layout), Acad::eOk);
  for (const AcDb::FilerType type :
       {AcDb::kCopyFiler, AcDb::kUndoFiler, AcDb::kPageFiler, AcDb::kDeepCloneFiler, AcDb::kWblockCloneFiler}) {
    AcDbMemoryDwgFiler other(type);
    member.dwgOutFieldsData(&other);
    EXPECT_EQ(other.buffer(), layout.bytes(type)) << type;
  }
  AcDbMemoryDwgFiler save(AcDb::kFileFiler);
  member.dwgOutFieldsData(&save);
  layout.relativeDim = {living};
  EXPECT_EQ(save.buffer(), layout.bytes()) << "dimensions only: other links stay";
}

TEST_F(MemberLayouts, AnExtensionOfAClassThatIsNotLoadedStopsTheReadingWithoutAnError) {
  MemberLayout layout = MemberLayout::plate();
  layout.lists[Superior].clear();
  layout.extensions = {{L"SomeoneElsesMark", [](AcDbDwgFiler& filer) { filer.writeInt32(5); }}};
  TestMember member;
  AcDbMemoryDwgFiler filer(AcDb::kFileFiler, layout.bytes());
  ASSERT_EQ(member.dwgInFieldsData(&filer), Acad::eOk);
  EXPECT_FALSE(filer.atEnd()) << "the extension's own items stay unread";
  EXPECT_EQ(member.numFuros(), 2) << "what stood ahead of it was read";
  EXPECT_EQ(member.GetNumVertex(Superior), 0) << "and nothing is regenerated";
}

TEST_F(MemberLayouts, AClassThatIsNoExtensionStopsItToo) {
  MemberLayout layout = MemberLayout::plate();
  layout.extensions = {{L"AcDbLine", {}}};
  TestMember member;
  EXPECT_EQ(read(member, layout), Acad::eOk);
  EXPECT_EQ(member.getKrObjectExtension(1), nullptr);
}

TEST_F(MemberLayouts, SlotsBehindAnUnknownExtensionAreCountedAndEmpty) {
  for (const wchar_t* const unknown : {L"SomeoneElsesMark", L"AcDbLine"}) {
    MemberLayout layout = MemberLayout::plate();
    layout.hidden = drawing.layer(L"L-HIDDEN");
    layout.hideFace = drawing.layer(L"KR_HIDE_FACE");
    layout.axis = drawing.layer(L"EIXO");
    layout.extensions = {{unknown, {}}, textExtension(2)};
    TestMember member;
    ASSERT_EQ(read(member, layout), Acad::eOk);
    EXPECT_EQ(member.getKrObjectExtension(2), nullptr) << "what stands behind it isn't read";
    AcDbMemoryDwgFiler filer(AcDb::kFileFiler);
    member.dwgOutFieldsData(&filer);
    layout.extensions = {{L"", {}}, {L"", {}}};
    EXPECT_EQ(filer.buffer(), layout.bytes());
  }
}

TEST_F(MemberLayouts, MoreExtensionsThanAnyMemberHasAreRefused) {
  MemberLayout layout = MemberLayout::plate();
  layout.extensions.resize(65536);
  TestMember member;
  EXPECT_EQ(read(member, layout), Acad::eInvalidInput);
  layout.extensions.resize(65535);
  EXPECT_EQ(read(member, layout), Acad::eOk);
}

// The extension tells of a version that isn't known, and nobody asks: it stands there as it was made.
TEST_F(MemberLayouts, AnExtensionOfANewerVersionIsThereWithoutItsData) {
  MemberLayout layout = MemberLayout::plate();
  layout.hidden = drawing.layer(L"L-HIDDEN");
  layout.hideFace = drawing.layer(L"KR_HIDE_FACE");
  layout.axis = drawing.layer(L"EIXO");
  layout.extensions = {{L"KrObjectTextExtension", [](AcDbDwgFiler& filer) { filer.writeUInt32(2); }}};
  TestMember member;
  AcDbMemoryDwgFiler source(AcDb::kFileFiler, layout.bytes());
  ASSERT_EQ(member.dwgInFieldsData(&source), Acad::eOk);
  EXPECT_TRUE(source.atEnd());
  EXPECT_EQ(versionOf(member), MemberLayout::kNewest);
  EXPECT_EQ(member.getKrObjectExtension(1), nullptr);
  AcDbMemoryDwgFiler again(AcDb::kFileFiler);
  member.dwgOutFieldsData(&again);
  layout.extensions[0].write = [](AcDbDwgFiler& filer) {
    filer.writeUInt32(1);
    filer.writeUInt32(0);  // its id
    filer.writeUInt32(1);
    filer.writeString(L"");
    filer.writeUInt32(9);
    filer.writeVector3d(AcGeVector3d(0, 0, 0));
    filer.writeHardPointerId(AcDbHardPointerId());
    filer.writeHardPointerId(AcDbHardPointerId());
    filer.writeDouble(0);
    filer.writeDouble(0);
  };
  EXPECT_EQ(again.buffer(), layout.bytes());
}

TEST_F(MemberLayouts, AnExtensionAddedBehindEmptySlotsGetsANumberOfItsOwn) {
  MemberLayout layout = MemberLayout::plate();
  layout.extensions = {textExtension(1), textExtension(2), {L"", {}}};
  TestMember member;
  ASSERT_EQ(read(member, layout), Acad::eOk);
  auto* const added = new KrObjectTextExtension;
  member.addKrObjectExtension(added);
  EXPECT_EQ(added->extensionId(), 3U);
  EXPECT_EQ(member.getKrObjectExtension(3), added);
  layout.extensions = {{L"", {}}, {L"", {}}};
  TestMember empty;
  ASSERT_EQ(read(empty, layout), Acad::eOk);
  auto* const first = new KrObjectTextExtension;
  empty.addKrObjectExtension(first);
  EXPECT_EQ(first->extensionId(), 1U);
}

TEST_F(MemberLayouts, EmptySlotsBetweenExtensionsKeepTheirPlace) {
  MemberLayout layout = MemberLayout::plate();
  layout.hidden = drawing.layer(L"L-HIDDEN");
  layout.hideFace = drawing.layer(L"KR_HIDE_FACE");
  layout.axis = drawing.layer(L"EIXO");
  layout.extensions = {textExtension(1), {L"", {}}, textExtension(3)};
  TestMember member;
  ASSERT_EQ(read(member, layout), Acad::eOk);
  EXPECT_NE(member.getKrObjectExtension(1), nullptr);
  EXPECT_EQ(member.getKrObjectExtension(2), nullptr);
  EXPECT_NE(member.getKrObjectExtension(3), nullptr);
  AcDbMemoryDwgFiler filer(AcDb::kFileFiler);
  member.dwgOutFieldsData(&filer);
  EXPECT_EQ(filer.buffer(), layout.bytes());
}

TEST_F(MemberLayouts, AnEmptySlotOfAnExtensionHasNothingBehindItsName) {
  MemberLayout layout = MemberLayout::plate();
  layout.hidden = drawing.layer(L"L-HIDDEN");
  layout.hideFace = drawing.layer(L"KR_HIDE_FACE");
  layout.axis = drawing.layer(L"EIXO");
  layout.extensions = {{L"", {}}, {L"", {}}};
  TestMember member;
  ASSERT_EQ(read(member, layout), Acad::eOk);
  AcDbMemoryDwgFiler filer(AcDb::kFileFiler);
  member.dwgOutFieldsData(&filer);
  EXPECT_EQ(filer.buffer(), layout.bytes());
}
