#include "profiles/KrUser.h"

#include "FoldedSamples.h"
#include "profiles/ProfileHelpers.h"

namespace {

/// A channel of two thicknesses' worth: a strip of 100, then one of 50 with the wall of its marker.
KrGeratriz line() {
  KrGeratriz g;
  g.Add(AcGeVector3d(0, 0, 0), 0);
  g.Add(AcGeVector3d(100, 0, 0), 6004);
  g.Add(AcGeVector3d(0, 20, 0), 0);
  g.Add(AcGeVector3d(50, 20, 0), 0);
  g.Add(AcGeVector3d(50, 10, 0), 5000);
  return g;
}

std::unique_ptr<KrUser> bar() {
  auto member = std::make_unique<KrUser>();
  ProfileHelpers::placeBar(*member, folded::kOrigin, Superior, 0.0, 1000.0);
  member->setespessura(2);
  member->setLinhaMedia(line());
  member->Calcule();
  return member;
}

}  // namespace

TEST(KrUser, RegistersUnderItsName) {
  profile::registerClass<KrUser>();
  profile::expectRegistered(KrUser::desc(), L"KrUser", L"KRUSER");
}

TEST(KrUser, ThickensTheLineThatTheClientGives) {
  const std::unique_ptr<KrUser> member = bar();
  const oracle::Outline outline = section::contoursOf(*member);
  ASSERT_EQ(outline.size(), 2U);
  EXPECT_NEAR(section::areaOf(outline), 100 * 2 + 50 * 4, 1e-9);
  EXPECT_NEAR(member->getArea(), 400, 1e-9);
  EXPECT_GT(member->GetNumVertex(Superior), 0);
}

TEST(KrUser, StripsAreLengthsAlone) {
  const AcArray<double> strips = bar()->GeratrizLength();
  ASSERT_EQ(strips.length(), 2);
  EXPECT_EQ(strips[0], 100);
  EXPECT_EQ(strips[1], 50);
}

TEST(KrUser, WithoutALineNothingHappens) {
  KrUser member;
  member.Calcule();
  EXPECT_EQ(member.getArea(), 0);
  EXPECT_EQ(member.GeratrizLength().length(), 0);
  EXPECT_TRUE(profile::outlineOf(member).empty());
}

TEST(KrUser, MeasuresAreTheBases) {
  const std::unique_ptr<KrUser> member = bar();
  EXPECT_EQ(member->getAltura(), 0);
  EXPECT_EQ(member->getLargura(), 0);
  EXPECT_EQ(member->getEspessura(), 0);
  EXPECT_EQ(member->getPerimetro(), 0);
  EXPECT_EQ(profile::dimensoesOf(*member), L"untouched");
}

// The copy keeps it alive, whichever goes first.
TEST(KrUser, CopySharesTheLine) {
  std::unique_ptr<KrUser> member = bar();
  const KrUser copy(*member);
  KrUser assigned;
  assigned = *member;
  member.reset();
  for (const KrUser* other : {&copy, static_cast<const KrUser*>(&assigned)}) {
    EXPECT_NEAR(other->getArea(), 400, 1e-9);
    EXPECT_EQ(profile::valueOf(*other, &KrUser::espessura), 2);
    EXPECT_EQ(other->KrObject::Vista(0), Superior);
  }
}

TEST(KrUser, FilesNothingNotEvenTheBase) {
  const std::unique_ptr<KrUser> member = bar();
  AcDbMemoryDwgFiler dwg(AcDb::kFileFiler);
  AcDbMemoryDxfFiler dxf;
  EXPECT_EQ(member->dwgOutFields(&dwg), Acad::eOk);
  EXPECT_EQ(member->dxfOutFields(&dxf), Acad::eOk);
  EXPECT_EQ(dwg.tell(), 0);
  EXPECT_TRUE(dxf.groups().empty());
  KrUser read;
  EXPECT_EQ(read.dwgInFields(&dwg), Acad::eOk);
  EXPECT_EQ(read.dxfInFields(&dxf), Acad::eOk);
  EXPECT_EQ(read.KrObject::Vista(0), VistaCorrente);
  EXPECT_TRUE(profile::outlineOf(read).empty());
}
