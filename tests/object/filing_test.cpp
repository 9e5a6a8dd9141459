// A member through the filers of copy and undo, and through the layouts of older files.

#include <gtest/gtest.h>

#include <type_traits>
#include <vector>

#include "object/Drawing.h"
#include "object/SampleOutlines.h"
#include "object/TestMember.h"

namespace {

class Filed : public TestMember {
 public:
  /// A member with something in every field that is filed.
  void fill() {
    draw({samples::rolledI(200, 100, 6, 9, 12)});
    setUserName(L"V7");
    setMaterial(3);
    setAngleVista(0.25);
    setComprimento(500);
    setZCoordIni(100);
    setZCoordEnd(200);
    settipoBarra(Pilar);
    KrFuro holes;
    holes.Add(AcGeVector3d(30, 100, 120), AcGeVector3d(30, 91, 120), 18, 10, 0.2);
    setFurosSemLink(holes);
    DclFuracao pattern;
    pattern.words = {1, 2, 3};
    SetFuracaoByTrelica(pattern);
    KrGeratriz none;
    Gera_KrVector(AcGePoint3d(7, 8, 0), none, Direita, 0, 1);
  }
};

void expectSameMember(const KrObject& a, const KrObject& b) {
  EXPECT_STREQ(a.userName(), b.userName());
  EXPECT_EQ(a.Vista(0), b.Vista(0));
  EXPECT_DOUBLE_EQ(a.angleVista(), b.angleVista());
  EXPECT_TRUE(a.startPoint().isEqualTo(b.startPoint()));
  EXPECT_TRUE(a.endPoint().isEqualTo(b.endPoint()));
  EXPECT_DOUBLE_EQ(a.zCoordIni(), b.zCoordIni());
  EXPECT_DOUBLE_EQ(a.zCoordEnd(), b.zCoordEnd());
  EXPECT_EQ(a.tipoBarra(), b.tipoBarra());
  EXPECT_EQ(a.numFuros(), b.numFuros());
  KrGeratriz ga, gb;
  a.GetSecao(ga);
  b.GetSecao(gb);
  ASSERT_EQ(ga.numNodes(), gb.numNodes());
  EXPECT_EQ(ga.Qtd(), gb.Qtd());
  for (int i = 0; i < ga.numNodes(); ++i) {
    EXPECT_TRUE(ga.GetVertex(i).isEqualTo(gb.GetVertex(i)));
    EXPECT_DOUBLE_EQ(ga.GetBulge(i), gb.GetBulge(i));
  }
  ASSERT_EQ(a.GetNumVertex(VistaCorrente), b.GetNumVertex(VistaCorrente));
  KrVector va, vb;
  for (int i = 0; a.GetVector(i, va) != 0; ++i) {
    b.GetVector(i, vb);
    EXPECT_EQ(va.type(), vb.type());
    EXPECT_TRUE(va.startPoint().isEqualTo(vb.startPoint()));
    EXPECT_TRUE(va.endPoint().isEqualTo(vb.endPoint()));
    EXPECT_EQ(va.IndexFur(), vb.IndexFur());
  }
}

TEST(MemberFiling, ThroughAFilerGivesTheSameMember) {
  const Drawing drawing;
  Filed source;
  source.fill();
  AcDbMemoryDwgFiler filer(AcDb::kCopyFiler);
  ASSERT_EQ(source.dwgOutFieldsData(&filer), Acad::eOk);
  filer.seek(0);
  TestMember back;
  ASSERT_EQ(back.dwgInFieldsData(&filer), Acad::eOk);
  EXPECT_TRUE(filer.atEnd());
  expectSameMember(source, back);
  DclFuracao pattern;
  EXPECT_TRUE(back.GetFuracaoByTrelica(pattern));
  EXPECT_EQ(pattern.words[1], 2U);
}

TEST(MemberFiling, CopyOfDataLeavesTheEntityItself) {
  const Drawing drawing;
  Filed source;
  source.fill();
  source.setLayer(L"PERFIL");
  TestMember target;
  target.setLayer(L"EIXO");
  ASSERT_EQ(target.copyDataFrom(&source), Acad::eOk);
  expectSameMember(source, target);
  EXPECT_EQ(target.layerId(), drawing.layer(L"EIXO"));
}

TEST(MemberFiling, LosesTheVisualLimitsAsTheLayoutDoes) {
  const Drawing drawing;
  Filed source;
  source.fill();
  source.setVisualRepEnd(0.5);
  TestMember target;
  target.copyDataFrom(&source);
  EXPECT_DOUBLE_EQ(target.visualRepEnd(), 1.0);
}

TEST(MemberFiling, OfANewerVersionIsAProxysBusiness) {
  AcDbMemoryDwgFiler filer(AcDb::kCopyFiler);
  filer.writeInt16(10);
  filer.seek(0);
  TestMember member;
  EXPECT_EQ(member.dwgInFieldsData(&filer), Acad::eMakeMeProxy);
}

TEST(MemberFiling, OfVersionZeroReadsNothingMore) {
  AcDbMemoryDwgFiler filer(AcDb::kCopyFiler);
  filer.writeInt16(0);
  filer.seek(0);
  TestMember member;
  EXPECT_EQ(member.dwgInFieldsData(&filer), Acad::eOk);
  Version version{};
  member.KrObjectVersion(version);
  EXPECT_EQ(version, 9) << "what is read is written as the newest";
}

TEST(MemberFiling, OfAVersionBelowZeroReadsNothingMore) {
  AcDbMemoryDwgFiler filer(AcDb::kCopyFiler);
  filer.writeInt16(-1);
  filer.seek(0);
  TestMember member;
  member.setComprimento(77);
  EXPECT_EQ(member.dwgInFieldsData(&filer), Acad::eOk);
  EXPECT_TRUE(filer.atEnd());
  Version version{};
  member.KrObjectVersion(version);
  EXPECT_EQ(version, 9);
  double length = 0;
  member.Comprimento(length);
  EXPECT_DOUBLE_EQ(length, 77);
}

TEST(MemberFiling, AReadingOfTheDataThatFailsLeavesTheEntityToTheNext) {
  const Drawing drawing;
  Filed member;
  member.fill();
  AcDbMemoryDwgFiler newer(AcDb::kCopyFiler);
  newer.writeInt16(10);
  newer.seek(0);
  ASSERT_EQ(member.dwgInFieldsData(&newer), Acad::eMakeMeProxy);
  AcDbMemoryDwgFiler entity(AcDb::kCopyFiler);
  member.AcDbEntity::dwgOutFields(&entity);
  ASSERT_FALSE(entity.buffer().empty());
  AcDbMemoryDwgFiler data(AcDb::kCopyFiler);
  member.dwgOutFieldsData(&data);
  AcDbMemoryDwgFiler whole(AcDb::kCopyFiler);
  ASSERT_EQ(member.dwgOutFields(&whole), Acad::eOk);
  AcDbMemoryDwgFiler::Buffer both = entity.buffer();
  both.insert(both.end(), data.buffer().begin(), data.buffer().end());
  EXPECT_EQ(whole.buffer(), both);
}

// The fields of an old layout, to and including the cuts.
void writeOldModel(AcDbMemoryDwgFiler& filer, int version, KrVistas view, const std::vector<int>& elementsPerList) {
  filer.writeInt16(static_cast<Adesk::Int16>(version));
  filer.writeString(L"");
  filer.writeUInt16(static_cast<Adesk::UInt16>(view));
  filer.writeUInt16(0);
  filer.writeUInt16(Objeto);
  for (std::size_t list = 0; list < elementsPerList.size(); ++list) {
    KrObjectArray<KrVector> elements;
    for (int i = 0; i < elementsPerList[list]; ++i) {
      KrVector v(AcGePoint3d(0, i, 0), AcGePoint3d(100, i, 0), KR_VT_LINHA);
      v.setTipo(KR_VF_ARESTA);
      elements.append(v);
    }
    elements.dwgOutFields(&filer);
  }
  filer.writeVector3d(AcGeVector3d(0, 0, 1));
  filer.writeDouble(0);
  filer.writePoint3d(AcGePoint3d(1, 2, 30));
  filer.writePoint3d(AcGePoint3d(101, 2, 40));
  filer.writeDouble(100);
  filer.writeDouble(0);
  const DclFuracao pattern;
  filer.writeBytes(&pattern, sizeof pattern);
  filer.writeBoolean(false);
  filer.writeDouble(100);
  filer.writeInt32(0);
}

TEST(MemberFiling, OfVersion2HasNoOutlineHolesOrScales) {
  AcDbMemoryDwgFiler filer(AcDb::kCopyFiler);
  writeOldModel(filer, 2, Superior, {1, 2, 0, 0, 0});
  filer.seek(0);
  TestMember member;
  ASSERT_EQ(member.dwgInFieldsData(&filer), Acad::eOk);
  EXPECT_EQ(member.outline().numNodes(), 0);
  EXPECT_EQ(member.numFuros(), 0);
  EXPECT_EQ(member.GetNumVertex(Secao), 1) << "five lists stood in an old file";
  EXPECT_EQ(member.GetNumVertex(Superior), 2);
  double scale = 0;
  member.Xscale(scale);
  EXPECT_DOUBLE_EQ(scale, 1.0);
  EXPECT_DOUBLE_EQ(member.zCoordIni(), 30);
  EXPECT_DOUBLE_EQ(member.startPoint().z, 0);
}

TEST(MemberFiling, OfVersion3GivesItsHolesNoAngle) {
  AcDbMemoryDwgFiler filer(AcDb::kCopyFiler);
  writeOldModel(filer, 3, Superior, {0, 2, 0, 0, 0});
  filer.writeInt32(0);  // linked views
  filer.writeInt32(0);  // no outline: not even a reference node
  filer.writeInt32(1);
  filer.writeVector3d(AcGeVector3d(1, 2, 3));
  filer.writeVector3d(AcGeVector3d(1, 5, 3));
  filer.writeDouble(18);
  filer.writeDouble(0);
  for (int i = 0; i < 3; ++i) filer.writeDouble(0.5);
  filer.writeInt32(0);
  filer.writeInt32(0);
  filer.seek(0);
  TestMember member;
  ASSERT_EQ(member.dwgInFieldsData(&filer), Acad::eOk);
  EXPECT_TRUE(filer.atEnd());
  KrFuro holes;
  member.Furos(holes, 0);
  ASSERT_EQ(holes.Qtd(), 1);
  EXPECT_DOUBLE_EQ(holes.getAngle(0), 0);
  EXPECT_DOUBLE_EQ(holes.getDiametro(0), 18);
  double scale = 0;
  member.Xscale(scale);
  EXPECT_DOUBLE_EQ(scale, 0.5);
}

TEST(MemberFiling, OfAnEmptyListRegeneratesWhenRead) {
  const Drawing drawing;
  Filed source;
  source.fill();
  source.ClearVertexes(Direita);
  AcDbMemoryDwgFiler filer(AcDb::kCopyFiler);
  ASSERT_EQ(source.dwgOutFieldsData(&filer), Acad::eOk);
  filer.seek(0);
  TestMember back;
  ASSERT_EQ(back.dwgInFieldsData(&filer), Acad::eOk);
  EXPECT_GT(back.GetNumVertex(Direita), 0);
}

TEST(MemberSaving, IsSavedAsItself) {
  // The member's own, not the entity's alone.
  static_assert(std::is_same_v<decltype(&KrObject::decomposeForSave),
                               Acad::ErrorStatus (KrObject::*)(AcDb::AcDbDwgVersion, AcDbObject*&, AcDbObjectId&,
                                                               Adesk::Boolean&)>);
  static_assert(std::is_same_v<decltype(&KrObject::subWblockClone),
                               Acad::ErrorStatus (KrObject::*)(AcRxObject*, AcDbObject*&, AcDbIdMapping&, bool) const>);
  Drawing drawing;
  auto* const member = new Filed;
  member->fill();
  const AcDbObjectId id = drawing.append(member);
  KrObject* opened = nullptr;
  ASSERT_EQ(acdbOpenObject(opened, id, AcDb::kForRead), Acad::eOk);
  AcDbObject* replacement = opened;
  AcDbObjectId replacementId = id;
  Adesk::Boolean exchange = Adesk::kTrue;
  EXPECT_EQ(opened->decomposeForSave(AcDb::kDHL_1015, replacement, replacementId, exchange), Acad::eOk);
  EXPECT_EQ(replacement, nullptr);
  EXPECT_TRUE(replacementId.isNull());
  EXPECT_FALSE(exchange);
  opened->close();
}

std::wstring lastAbort;

TEST(MemberSaving, AsksForAnOpenMember) {
  Drawing drawing;
  const AcDbObjectId id = drawing.append(new KrObject);
  auto& closed = static_cast<KrObject&>(*id.stub()->object);
  const AcRxAbortHandler former = acrxSetAbortHandler([](const ACHAR* message) { lastAbort = message; });
  AcDbObject* replacement = nullptr;
  AcDbObjectId replacementId;
  Adesk::Boolean exchange = Adesk::kFalse;
  closed.decomposeForSave(AcDb::kDHL_1015, replacement, replacementId, exchange);
  EXPECT_EQ(lastAbort, L"KrObject: eNotOpenForRead\n");

  // The host finds this one cloned already and asks for nothing.
  lastAbort.clear();
  AcDbIdMapping map;
  map.assign(AcDbIdPair(id, drawing.append(new AcDbLine), true));
  AcDbObject* copy = nullptr;
  EXPECT_EQ(closed.subWblockClone(nullptr, copy, map, true), Acad::eOk);
  EXPECT_EQ(lastAbort, L"KrObject: eNotOpenForRead\n");

  lastAbort.clear();
  AcDbMemoryDwgFiler record(AcDb::kUndoFiler);
  closed.applyPartialUndo(&record, KrObject::desc());
  EXPECT_EQ(lastAbort, L"KrObject: eNotOpenForWrite\n");
  acrxSetAbortHandler(former);
}

TEST(MemberUndo, HasNothingOfItsOwnToUndoInPart) {
  Drawing drawing;
  KrObject::rxInit();
  const AcDbObjectId id = drawing.append(new KrObject);
  KrObject* opened = nullptr;
  ASSERT_EQ(acdbOpenObject(opened, id, AcDb::kForWrite), Acad::eOk);
  AcDbMemoryDwgFiler record(AcDb::kUndoFiler);
  EXPECT_EQ(opened->applyPartialUndo(&record, KrObject::desc()), Acad::eNotThatKindOfClass);
  opened->close();
}

TEST(MemberUndo, RestoresTheModelThroughItsOwnFiler) {
  Drawing drawing;
  KrObject::rxInit();
  auto* member = new KrObject;
  member->setComprimento(100);
  const AcDbObjectId id = drawing.append(member);
  drawing.database()->startUndoRecord();
  KrObject* opened = nullptr;
  ASSERT_EQ(acdbOpenObject(opened, id, AcDb::kForWrite), Acad::eOk);
  opened->setComprimento(250);
  opened->settipoBarra(Viga);
  opened->close();
  ASSERT_EQ(drawing.database()->undo(), Acad::eOk);
  ASSERT_EQ(acdbOpenObject(opened, id, AcDb::kForRead), Acad::eOk);
  double length = 0;
  opened->Comprimento(length);
  EXPECT_DOUBLE_EQ(length, 100);
  EXPECT_EQ(opened->tipoBarra(), Barra);
  opened->close();
  ASSERT_EQ(drawing.database()->redo(), Acad::eOk);
  ASSERT_EQ(acdbOpenObject(opened, id, AcDb::kForRead), Acad::eOk);
  opened->Comprimento(length);
  EXPECT_DOUBLE_EQ(length, 250);
  opened->close();
}

TEST(MemberModifiers, AreRemovedByKindOneOrAll) {
  const Drawing drawing;
  Filed member;
  member.fill();
  KrFuro holes;
  member.Furos(holes, 0);
  holes.Add(AcGeVector3d(-30, 100, 300), AcGeVector3d(-30, 91, 300), 18, 0, 0);
  member.setFurosSemLink(holes);
  member.RemoveMods(ModCorte | ModSplit, -1);
  EXPECT_EQ(member.numFuros(), 2) << "other kinds leave the holes";
  member.RemoveMods(ModFuro, 5);
  EXPECT_EQ(member.numFuros(), 2) << "no such hole";
  member.RemoveMods(ModFuro, 0);
  member.Furos(holes, 0);
  ASSERT_EQ(holes.Qtd(), 1);
  EXPECT_DOUBLE_EQ(holes.getIni(0).z, 300);
  member.RemoveMods(ModFuro | ModRecorte, -1);
  EXPECT_EQ(member.numFuros(), 0);
}

TEST(MemberModifiers, RemovedInADrawingRegenerateTheMember) {
  Drawing drawing;
  auto* member = new Filed;
  member->fill();
  member->ClearVertexes(Direita);
  const AcDbObjectId id = drawing.append(member);
  KrObject* opened = nullptr;
  ASSERT_EQ(acdbOpenObject(opened, id, AcDb::kForWrite), Acad::eOk);
  opened->RemoveMods(ModCorte, -1);
  EXPECT_EQ(opened->GetNumVertex(Direita), 0) << "nothing went, nothing is drawn anew";
  opened->RemoveMods(ModFuro, -1);
  EXPECT_GT(opened->GetNumVertex(Direita), 0);
  opened->close();
}

TEST(MemberClose, RegeneratesOnceWhenMarkedAndNotAfterAReadOnly) {
  Drawing drawing;
  KrObject::rxInit();
  // A member whose list is emptied by hand: a regeneration at close fills it again.
  auto* member = new TestMember;
  member->make({samples::rolledI(200, 100, 6, 9, 12)}, Superior, 500);
  const AcDbObjectId id = drawing.append(member);
  KrObject* opened = nullptr;
  ASSERT_EQ(acdbOpenObject(opened, id, AcDb::kForWrite), Acad::eOk);
  opened->ClearVertexes(Superior);
  opened->close();
  ASSERT_EQ(acdbOpenObject(opened, id, AcDb::kForRead), Acad::eOk);
  EXPECT_EQ(opened->GetNumVertex(Superior), 0) << "an unmarked close leaves the list";
  opened->close();
  ASSERT_EQ(acdbOpenObject(opened, id, AcDb::kForWrite), Acad::eOk);
  opened->setVisualRepScale(2.0);
  opened->setVisualRepScale(3.0);
  EXPECT_EQ(opened->GetNumVertex(Superior), 0) << "nothing before the close";
  opened->close();
  ASSERT_EQ(acdbOpenObject(opened, id, AcDb::kForRead), Acad::eOk);
  EXPECT_GT(opened->GetNumVertex(Superior), 0);
  opened->close();
}

}  // namespace
