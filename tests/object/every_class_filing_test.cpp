// Members of every class, modified, through the filers: what comes back is what went, but for what the layout loses.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/gi/Recorder.h"
#include "object/Drawing.h"
#include "object/EveryClass.h"
#include "object/ExampleExtension.h"

namespace {

using everyclass::Sample;

constexpr KrVistas kElevations[] = {Superior, Inferior, Esquerda, Direita};

AcDbMemoryDwgFiler::Buffer written(const KrObject& member, AcDb::FilerType type = AcDb::kFileFiler) {
  AcDbMemoryDwgFiler filer(type);
  EXPECT_EQ(member.dwgOutFields(&filer), Acad::eOk);
  return filer.takeBuffer();
}

std::string picture(KrObject& member) {
  gi::Recorder recorder;
  recorder.drawWhole(member);
  return toText(recorder.figures());
}

/// All that a member tells of itself.
struct Told {
  std::wstring profile, dimensions;
  double area, perimeter, painted, weight, height, width, thickness;
  std::string picture;
  bool operator==(const Told&) const = default;
};

Told told(KrObject& member) {
  ACHAR profile[400] = {};
  ACHAR dimensions[400] = {};
  member.getPerfil(profile);
  member.getDimensoes(dimensions);
  return {profile,          dimensions,         member.getArea(),    member.getPerimetro(), member.getAreaPintura(),
          member.getPeso(), member.getAltura(), member.getLargura(), member.getEspessura(), picture(member)};
}

bool isUser(const Sample& sample) {
  return std::wstring(sample.name) == L"KrUser";
}

class EveryClass : public testing::TestWithParam<Sample> {
 protected:
  Drawing drawing;
};

std::string nameOf(const testing::TestParamInfo<Sample>& info) {
  return testing::PrintToString(info.param);
}

}  // namespace

ACRX_CONS_DEFINE_MEMBERS(ErectionMark, KrObjectExtension, 1)
ACRX_CONS_DEFINE_MEMBERS(BoltData, KrObjectModCData, 1)

TEST_P(EveryClass, ModifiedMembersComeBackFromAFileInEveryElevation) {
  for (const KrVistas view : kElevations) {
    const std::unique_ptr<KrObject> member = GetParam().make(view);
    EXPECT_EQ(everyclass::modify(*member), 3) << view;
    member->setUserName(L"P1");
    member->setZCoordIni(150);
    member->settipoBarra(Viga);
    AcDbMemoryDwgFiler filer(AcDb::kFileFiler, written(*member));
    const std::unique_ptr<KrObject> back = GetParam().empty();
    ASSERT_EQ(back->dwgInFields(&filer), Acad::eOk) << view;
    EXPECT_TRUE(filer.atEnd()) << view;
    if (isUser(GetParam())) {
      EXPECT_TRUE(filer.buffer().empty()) << "nothing of it is filed, not even of the base";
      EXPECT_EQ(back->GetNumVertex(VistaCorrente), 0);
      continue;
    }
    EXPECT_TRUE(told(*back) == told(*member)) << view << "\n" << told(*back).picture << "\n" << told(*member).picture;
    EXPECT_EQ(written(*back), written(*member)) << view;
    EXPECT_EQ(back->numFuros(), member->numFuros());
    EXPECT_EQ(back->numCortes(), 1);
  }
}

TEST_P(EveryClass, TheSectionComesBackFromAFile) {
  if (isUser(GetParam())) GTEST_SKIP() << "nothing of it is filed";
  for (const KrVistas view : {Secao, SecaoVerso}) {
    const std::unique_ptr<KrObject> member = GetParam().make(view);
    AcDbMemoryDwgFiler filer(AcDb::kFileFiler, written(*member));
    const std::unique_ptr<KrObject> back = GetParam().empty();
    ASSERT_EQ(back->dwgInFields(&filer), Acad::eOk);
    EXPECT_TRUE(told(*back) == told(*member)) << view;
    EXPECT_EQ(written(*back), written(*member)) << view;
  }
}

TEST_P(EveryClass, AMemberReadRegeneratesToTheSamePicture) {
  if (isUser(GetParam())) GTEST_SKIP() << "nothing of it is filed";
  const std::unique_ptr<KrObject> member = GetParam().make(Superior);
  everyclass::modify(*member);
  AcDbMemoryDwgFiler filer(AcDb::kFileFiler, written(*member));
  const std::unique_ptr<KrObject> back = GetParam().empty();
  ASSERT_EQ(back->dwgInFields(&filer), Acad::eOk);
  member->Gera_KrVector();
  back->Gera_KrVector();
  EXPECT_EQ(picture(*back), picture(*member));
}

TEST_P(EveryClass, DataWithoutTheEntityHoldsTheClassesItems) {
  if (isUser(GetParam())) GTEST_SKIP() << "nothing of it is filed";
  const std::unique_ptr<KrObject> member = GetParam().make(Superior);
  AcDbMemoryDwgFiler data(AcDb::kFileFiler);
  ASSERT_EQ(member->dwgOutFieldsData(&data), Acad::eOk);
  const AcDbMemoryDwgFiler::Buffer whole = written(*member);
  AcDbMemoryDwgFiler entity(AcDb::kFileFiler);
  member->AcDbEntity::dwgOutFields(&entity);
  ASSERT_EQ(whole.size(), entity.buffer().size() + data.buffer().size());
  EXPECT_TRUE(std::equal(data.buffer().begin(), data.buffer().end(), whole.begin() + entity.tell()));
  data.seek(0);
  const std::unique_ptr<KrObject> back = GetParam().empty();
  ASSERT_EQ(back->dwgInFieldsData(&data), Acad::eOk);
  EXPECT_TRUE(told(*back) == told(*member));
}

TEST_P(EveryClass, AFileThatBreaksOffEndsInAStatus) {
  if (isUser(GetParam())) GTEST_SKIP() << "nothing of it is filed";
  const std::unique_ptr<KrObject> member = GetParam().make(Superior);
  const AcDbMemoryDwgFiler::Buffer whole = written(*member);
  for (std::size_t size = 0; size < whole.size(); size += 7) {
    AcDbMemoryDwgFiler filer(AcDb::kFileFiler,
                             AcDbMemoryDwgFiler::Buffer(whole.begin(), whole.begin() + std::ptrdiff_t(size)));
    EXPECT_NE(GetParam().empty()->dwgInFields(&filer), Acad::eOk) << size;
  }
}

// A class that writes its own groups has its marker behind the base's; others write the base's or nothing at all.
TEST_P(EveryClass, DxfBeginsWithTheEntityThenTheMemberThenTheClass) {
  const std::unique_ptr<KrObject> member = GetParam().make(Superior);
  AcDbMemoryDxfFiler filer;
  ASSERT_EQ(member->dxfOutFields(&filer), Acad::eOk);
  std::vector<std::wstring> markers;
  for (const AcDbMemoryDxfFiler::Group& group : filer.groups())
    if (group.code == 100) markers.push_back(std::get<std::wstring>(group.value));
  const std::wstring name = GetParam().name;
  if (name == L"KrBox" || name == L"KrBarraRedonda" || name == L"KrUser") {
    EXPECT_TRUE(filer.groups().empty());
  } else if (name == L"KrChapa") {
    EXPECT_THAT(markers, testing::ElementsAre(L"AcDbEntity", L"KrObject"));
  } else {
    EXPECT_THAT(markers, testing::ElementsAre(L"AcDbEntity", L"KrObject", name));
  }
}

TEST_P(EveryClass, AMemberWithElementsIsRefusedByItsOwnDxfReader) {
  const std::unique_ptr<KrObject> member = GetParam().make(Superior);
  AcDbMemoryDxfFiler filer;
  ASSERT_EQ(member->dxfOutFields(&filer), Acad::eOk);
  const std::unique_ptr<KrObject> back = GetParam().empty();
  if (filer.groups().empty()) {
    EXPECT_EQ(back->dxfInFields(&filer), Acad::eOk);
    EXPECT_EQ(back->GetNumVertex(VistaCorrente), 0) << "comes back empty";
  } else {
    EXPECT_EQ(back->dxfInFields(&filer), Acad::eInvalidDxfCode);
    EXPECT_STREQ(filer.errorMessage(), L"\nKR_Trama erro ao ler DXF.");
  }
}

INSTANTIATE_TEST_SUITE_P(Catalogue, EveryClass, testing::ValuesIn(everyclass::samples()), nameOf);

TEST(EveryClassOf, TheCatalogueHas27) {
  EXPECT_EQ(everyclass::samples().size(), 27U);
}

// --- What is lost ----------------------------------------------------------------------------------------------------

namespace {

class MemberLosses : public testing::Test {
 protected:
  MemberLosses() { loadExampleModule(); }

  /// A plate with everything that the layout doesn't hold, and the data of a notch, which it does.
  static std::unique_ptr<KrObject> rich() {
    auto member = everyclass::samples()[2].make(Superior);
    EXPECT_EQ(everyclass::modify(*member), 3);
    KrObjectSplit split;
    split.setZPos(400);
    split.setLength(20);
    member->addSplit(split, 0);
    member->Gera_KrVector(Direita);
    member->setVisualRepStart(0.1);
    member->setVisualRepEnd(0.9);
    member->setVisualRepScale(2);
    BoltData bolt(L"M12");
    EXPECT_EQ(member->assocCDataToMod(ModFuro, 0, &bolt), Acad::eOk);
    EXPECT_EQ(member->assocCDataToMod(ModCorte, 0, &bolt), Acad::eOk);
    EXPECT_EQ(member->assocCDataToMod(ModRecorte, 0, &bolt), Acad::eOk);
    EXPECT_NE(member->accessCDataToMod(ModFuro, 0), nullptr);
    EXPECT_NE(member->accessCDataToMod(ModCorte, 0), nullptr);
    return member;
  }

  static void expectLosses(const KrObject& member) {
    AcGePoint3d p;
    EXPECT_EQ(member.splitPoint(0, p), 0) << "splits";
    EXPECT_EQ(member.GetNumVertex(Direita), 0) << "the lists of views not shown";
    EXPECT_DOUBLE_EQ(member.visualRepStart(), 0.0);
    EXPECT_DOUBLE_EQ(member.visualRepEnd(), 1.0);
    EXPECT_DOUBLE_EQ(member.visualRepScale(), 1.0);
    EXPECT_EQ(member.accessCDataToMod(ModFuro, 0), nullptr) << "data of holes";
    EXPECT_EQ(member.accessCDataToMod(ModCorte, 0), nullptr) << "data of cuts";
    const auto* notch = static_cast<const BoltData*>(member.accessCDataToMod(ModRecorte, 0));
    ASSERT_NE(notch, nullptr) << "the data of a notch is in its own record";
    EXPECT_EQ(notch->name, L"M12");
    EXPECT_EQ(member.numCortes(), 1);
    EXPECT_GT(member.numFuros(), 0);
  }

  Drawing drawing;
};

}  // namespace

TEST_F(MemberLosses, OfASave) {
  const std::unique_ptr<KrObject> member = rich();
  AcDbMemoryDwgFiler filer(AcDb::kFileFiler, written(*member));
  KrChapa back;
  ASSERT_EQ(back.dwgInFields(&filer), Acad::eOk);
  expectLosses(back);
}

TEST_F(MemberLosses, OfACopyOfTheData) {
  const std::unique_ptr<KrObject> member = rich();
  KrChapa copy;
  ASSERT_EQ(copy.copyDataFrom(member.get()), Acad::eOk);
  expectLosses(copy);
}

TEST_F(MemberLosses, OfAClone) {
  const std::unique_ptr<KrObject> member = rich();
  const std::unique_ptr<AcRxObject> clone(member->clone());
  expectLosses(*KrObject::cast(clone.get()));
}

TEST_F(MemberLosses, OfADeepClone) {
  const AcDbObjectId id = drawing.append(rich().release());
  AcDbObjectIdArray ids;
  ids.append(id);
  AcDbIdMapping map;
  ASSERT_EQ(drawing.database()->deepCloneObjects(ids, drawing.database()->modelSpaceId(), map), Acad::eOk);
  AcDbIdPair pair(id, AcDbObjectId(), false);
  ASSERT_TRUE(map.compute(pair));
  KrObject* clone = nullptr;
  ASSERT_EQ(acdbOpenObject(clone, pair.value(), AcDb::kForRead), Acad::eOk);
  expectLosses(*clone);
  clone->close();
}

// Undo reads into the member as it stands: what its record doesn't hold stays as it is now, what it replaces is new.
TEST_F(MemberLosses, OfAnUndo) {
  std::unique_ptr<KrObject> before = rich();
  before->setUserName(L"P7");
  ASSERT_EQ(before->numSplits(), 1);
  const AcDbObjectId id = drawing.append(before.release());
  drawing.database()->startUndoRecord();
  KrObject* member = nullptr;
  ASSERT_EQ(acdbOpenObject(member, id, AcDb::kForWrite), Acad::eOk);
  member->setUserName(L"changed");
  KrObjectSplit split;
  split.setZPos(900);
  split.setLength(30);
  member->addSplit(split, 1);
  member->setVisualRepStart(0.2);
  member->setVisualRepEnd(0.8);
  member->setVisualRepScale(3);
  member->close();
  ASSERT_EQ(acdbOpenObject(member, id, AcDb::kForRead), Acad::eOk);
  const int othersShown = member->GetNumVertex(Direita);
  member->close();
  ASSERT_GT(othersShown, 0);
  ASSERT_EQ(drawing.database()->undo(), Acad::eOk);
  ASSERT_EQ(acdbOpenObject(member, id, AcDb::kForRead), Acad::eOk);
  EXPECT_STREQ(member->userName(), L"P7");
  ASSERT_EQ(member->numSplits(), 2);
  EXPECT_DOUBLE_EQ(member->splitList()[0].zPos(), 400);
  EXPECT_DOUBLE_EQ(member->splitList()[1].zPos(), 900);
  EXPECT_DOUBLE_EQ(member->visualRepStart(), 0.2);
  EXPECT_DOUBLE_EQ(member->visualRepEnd(), 0.8);
  EXPECT_DOUBLE_EQ(member->visualRepScale(), 3);
  EXPECT_EQ(member->GetNumVertex(Direita), othersShown);
  EXPECT_EQ(member->accessCDataToMod(ModFuro, 0), nullptr);
  EXPECT_EQ(member->accessCDataToMod(ModCorte, 0), nullptr);
  EXPECT_NE(member->accessCDataToMod(ModRecorte, 0), nullptr);
  member->close();
}

// --- Extensions of another module ------------------------------------------------------------------------------------

namespace {

class MemberWithMark : public testing::Test {
 protected:
  MemberWithMark() : member(everyclass::samples()[2].make(Superior)) {
    loadExampleModule();
    auto* mark = new ErectionMark(17, 25);
    mark->offset = AcGeVector3d(5, 6, 0);
    member->addKrObjectExtension(mark);
  }

  static const ErectionMark* markOf(const KrObject& m, unsigned id = 1) {
    return static_cast<const ErectionMark*>(m.getKrObjectExtension(id));
  }

  Drawing drawing;
  std::unique_ptr<KrObject> member;
};

}  // namespace

TEST_F(MemberWithMark, ComesBackFromAFileWithIt) {
  AcDbMemoryDwgFiler filer(AcDb::kFileFiler, written(*member));
  KrChapa back;
  ASSERT_EQ(back.dwgInFields(&filer), Acad::eOk);
  const ErectionMark* mark = markOf(back);
  ASSERT_NE(mark, nullptr);
  EXPECT_EQ(mark->isA(), ErectionMark::desc());
  EXPECT_EQ(mark->number, 17);
  EXPECT_EQ(mark->radius, 25);
  EXPECT_TRUE(mark->offset.isEqualTo(AcGeVector3d(5, 6, 0)));
  EXPECT_EQ(mark->curExtendedObj(), &back);
  EXPECT_EQ(written(back), written(*member));
}

TEST_F(MemberWithMark, KeepsItInACopyAndThroughUndo) {
  const std::unique_ptr<AcRxObject> clone(member->clone());
  ASSERT_NE(markOf(*KrObject::cast(clone.get())), nullptr);
  EXPECT_EQ(markOf(*KrObject::cast(clone.get()))->number, 17);

  const AcDbObjectId id = drawing.append(member.release());
  drawing.database()->startUndoRecord();
  KrObject* opened = nullptr;
  ASSERT_EQ(acdbOpenObject(opened, id, AcDb::kForWrite), Acad::eOk);
  delete opened->removeKrObjectExtension(1);
  opened->close();
  ASSERT_EQ(drawing.database()->undo(), Acad::eOk);
  ASSERT_EQ(acdbOpenObject(opened, id, AcDb::kForRead), Acad::eOk);
  ASSERT_NE(markOf(*opened), nullptr);
  EXPECT_EQ(markOf(*opened)->number, 17);
  EXPECT_EQ(markOf(*opened)->curExtendedObj(), opened);
  opened->close();
}

TEST_F(MemberWithMark, DrawsItBehindItsElements) {
  gi::Recorder recorder;
  recorder.drawWhole(*member);
  const std::vector<gi::DrawCall> figures = recorder.figures();
  ASSERT_FALSE(figures.empty());
  const gi::DrawCall& last = figures.back();
  EXPECT_EQ(last.kind, gi::CallKind::circle);
  EXPECT_NEAR(last.radius, 25, 1e-12);
  EXPECT_TRUE(last.center.isEqualTo(everyclass::kStart + AcGeVector3d(5, 6, 0)));
}

TEST_F(MemberWithMark, HasTheMarksGrip) {
  auto* mark = const_cast<ErectionMark*>(markOf(*member));
  AcGePoint3dArray points;
  AcDbIntArray modes, ids, indices;
  ASSERT_EQ(mark->getExtensionGripPoints(points, modes, ids), Acad::eOk);
  ASSERT_EQ(points.length(), 1);
  indices.append(3);
  mark->moveExtensionGripPointsAt(indices, AcGeVector3d(1, 1, 0), 3);
  EXPECT_TRUE(mark->centre().isEqualTo(points[0] + AcGeVector3d(1, 1, 0)));
}

TEST_F(MemberWithMark, KeepsAllOfThemInTheirOrder) {
  member->addKrObjectExtension(new ErectionMark(18, 5));
  AcDbMemoryDwgFiler filer(AcDb::kFileFiler, written(*member));
  KrChapa back;
  ASSERT_EQ(back.dwgInFields(&filer), Acad::eOk);
  EXPECT_EQ(markOf(back, 1)->number, 17);
  EXPECT_EQ(markOf(back, 2)->number, 18);
}
