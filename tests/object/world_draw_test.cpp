// Drawing: the layer of each element, its marker, its figure.

#include <gtest/gtest.h>

#include <cmath>

#include "host/gi/Recorder.h"
#include "object/Drawing.h"
#include "object/SampleOutlines.h"
#include "object/TestMember.h"

namespace {

constexpr double kPi = 3.141592653589793;

class WorldDraw : public ::testing::Test {
 protected:
  WorldDraw() { member.setLayer(L"PERFIL"); }

  // Elements of the list, drawn; with their calls in order.
  std::vector<gi::DrawCall> draw(bool dragging = false) {
    gi::Recorder recorder(kAcGiStandardDisplay, dragging);
    member.worldDraw(&recorder);
    return recorder.figures();
  }

  void add(KrVectorType type, int hidden = 0, KrVectorFlag flag = KR_VF_PADRAO) {
    KrVector v(AcGePoint3d(0, 0, 0), AcGePoint3d(10, 0, 0), type);
    v.setHidden(hidden);
    v.setTipo(flag);
    member.AddVertex(v, VistaCorrente);
  }

  Drawing drawing;
  TestMember member;
};

TEST_F(WorldDraw, PutsEachElementOnTheLayerOfItsKind) {
  add(KR_VT_EIXO);
  add(KR_VT_LINHA_OCULTA);
  add(KR_VT_LINHA);
  add(KR_VT_LINHA, 1);
  add(KR_VT_LINHA_OCULTA, 1);
  add(KR_VT_FURO_EIXO);
  add(KR_VT_LINHA, 0, KR_VF_LIMITE);
  const auto calls = draw();
  const wchar_t* layers[] = {L"EIXO", L"L-HIDDEN", L"PERFIL", L"KR_HIDE_FACE", L"KR_HIDE_FACE", L"EIXO", L"EIXO"};
  ASSERT_EQ(calls.size(), std::size(layers));
  for (std::size_t i = 0; i < calls.size(); ++i) {
    EXPECT_EQ(calls[i].traits.layer, drawing.layer(layers[i])) << "element " << i;
    EXPECT_EQ(calls[i].traits.marker, static_cast<Adesk::GsMarker>(i) + 1);
  }
}

TEST_F(WorldDraw, OfAFrozenLayerIsLeftOutAndItsMarkersAreUsedUp) {
  add(KR_VT_LINHA);
  add(KR_VT_LINHA_OCULTA);
  add(KR_VT_LINHA);
  drawing.freeze(L"L-HIDDEN", true);
  const auto calls = draw();
  ASSERT_EQ(calls.size(), 2U);
  EXPECT_EQ(calls[0].traits.marker, 1);
  EXPECT_EQ(calls[1].traits.marker, 3);
}

TEST_F(WorldDraw, NeverDrawsTheReferenceLine) {
  add(KR_VT_REFERENCIA);
  add(KR_VT_LINHA);
  const auto calls = draw();
  ASSERT_EQ(calls.size(), 1U);
  EXPECT_EQ(calls[0].traits.marker, 2);
}

TEST_F(WorldDraw, OfAnArcWithoutLengthDrawsNothingAndUsesItsMarker) {
  KrVector arc(AcGePoint3d(5, 0, 0), AcGePoint3d(6, 1, 0), AcGePoint3d(5, 0, 0), KR_VT_ARCO);
  member.AddVertex(arc, VistaCorrente);
  add(KR_VT_LINHA);
  const auto calls = draw();
  ASSERT_EQ(calls.size(), 1U);
  EXPECT_EQ(calls[0].traits.marker, 2);
}

TEST_F(WorldDraw, DrawsArcsVisibleAndHiddenThroughTheirThreePoints) {
  for (const KrVectorType type : {KR_VT_ARCO, KR_VT_ARCO_OCULTO})
    member.AddVertex(KrVector(AcGePoint3d(5, 0, 0), AcGePoint3d(0, 5, 0), AcGePoint3d(-5, 0, 0), type), VistaCorrente);
  const auto calls = draw();
  ASSERT_EQ(calls.size(), 2U);
  EXPECT_EQ(calls[0].kind, gi::CallKind::arc);
  EXPECT_NEAR(calls[0].radius, 5, 1e-9);
  EXPECT_EQ(calls[1].traits.layer, drawing.layer(L"L-HIDDEN"));
}

TEST_F(WorldDraw, OfACircleForcesTheMembersOwnLayerWithoutFill) {
  KrVector circle(AcGePoint3d(3, 4, 0), 7);
  circle.setHidden(1);
  member.AddVertex(circle, VistaCorrente);
  const auto calls = draw();
  ASSERT_EQ(calls.size(), 1U);
  EXPECT_EQ(calls[0].kind, gi::CallKind::circle);
  EXPECT_DOUBLE_EQ(calls[0].radius, 7);
  EXPECT_EQ(calls[0].traits.layer, drawing.layer(L"PERFIL"));
  EXPECT_EQ(calls[0].traits.fill, kAcGiFillNever);
}

TEST_F(WorldDraw, FillsAHoleButWhileItIsDragged) {
  member.AddVertex(KrVector(AcGePoint3d(3, 4, 0), 9, 2, 0, KR_VT_FURO, KR_VF_FURO_REDONDO), VistaCorrente);
  auto calls = draw(true);
  ASSERT_EQ(calls.size(), 1U);
  EXPECT_EQ(calls[0].traits.fill, kAcGiFillNever);
  EXPECT_DOUBLE_EQ(calls[0].radius, 10) << "the clearance belongs to the drawn circle";
  calls = draw(false);
  EXPECT_EQ(calls[0].traits.fill, kAcGiFillAlways);
  EXPECT_EQ(calls[0].traits.layer, drawing.layer(L"PERFIL"));
}

TEST_F(WorldDraw, OfAnOblongHoleIsTwoHalfCirclesAndTheirMiddle) {
  member.AddVertex(KrVector(AcGePoint3d(0, 0, 0), 9, 0, 0, KR_VT_FURO, KR_VF_FURO_OBLONGO, kPi / 2, 20), VistaCorrente);
  auto calls = draw();
  ASSERT_EQ(calls.size(), 3U);
  EXPECT_EQ(calls[0].kind, gi::CallKind::arc);
  EXPECT_EQ(calls[0].arcType, kAcGiArcChord);
  EXPECT_TRUE(calls[0].center.isEqualTo(AcGePoint3d(0, -10, 0)));
  EXPECT_TRUE(calls[1].center.isEqualTo(AcGePoint3d(0, 10, 0)));
  EXPECT_EQ(calls[2].kind, gi::CallKind::polygon);
  calls = draw(true);
  ASSERT_EQ(calls.size(), 4U);
  EXPECT_EQ(calls[0].arcType, kAcGiArcSimple);
  EXPECT_EQ(calls[1].kind, gi::CallKind::polyline);
}

TEST_F(WorldDraw, OfAHoleOfAnyOtherFlagIsNothing) {
  member.AddVertex(KrVector(AcGePoint3d(3, 4, 0), 9, 2, 0, KR_VT_FURO, KR_VF_PADRAO), VistaCorrente);
  EXPECT_TRUE(draw().empty());
}

TEST_F(WorldDraw, OfAHoleEdgeOnIsABandOfItsWidth) {
  KrVector band(AcGePoint3d(0, 0, 0), AcGePoint3d(0, 6, 0), KR_VT_FURO_LINHA);
  band.setRaio(9);
  member.AddVertex(band, VistaCorrente);
  const auto calls = draw();
  ASSERT_EQ(calls.size(), 1U);
  EXPECT_EQ(calls[0].kind, gi::CallKind::polygon);
  double low = 0, high = 0;
  for (const AcGePoint3d& p : calls[0].points) {
    low = std::min(low, p.x);
    high = std::max(high, p.x);
  }
  EXPECT_DOUBLE_EQ(low, -9);
  EXPECT_DOUBLE_EQ(high, 9);
  // The corners go on around the band: no side of the polygon runs through it.
  ASSERT_EQ(calls[0].points.size(), 4U);
  EXPECT_NEAR(calls[0].points[1].distanceTo(calls[0].points[2]), 6, 1e-9);
}

TEST_F(WorldDraw, OfAnUnknownTypeIsALine) {
  add(static_cast<KrVectorType>(42));
  const auto calls = draw();
  ASSERT_EQ(calls.size(), 1U);
  EXPECT_EQ(calls[0].kind, gi::CallKind::polyline);
}

TEST_F(WorldDraw, TurnsColourByBlockIntoByLayer) {
  add(KR_VT_LINHA);
  gi::Recorder recorder;
  recorder.subEntityTraits().setColor(0);
  member.worldDraw(&recorder);
  ASSERT_FALSE(recorder.figures().empty());
  EXPECT_EQ(recorder.figures()[0].traits.color.colorIndex(), 256);
}

TEST_F(WorldDraw, HidesAndShowsAllAndOneHiddenElementIsEnoughToCountAsHidden) {
  EXPECT_EQ(member.isHideAll(), 1) << "an empty list counts as hidden";
  add(KR_VT_LINHA);
  add(KR_VT_LINHA);
  EXPECT_EQ(member.isHideAll(), 0);
  member.hideAll();
  EXPECT_EQ(member.isHideAll(), 1);
  member.showAll();
  EXPECT_EQ(member.isHideAll(), 0);
  KrVector v;
  member.GetVector(1, v);
  v.setHidden(1);
  member.UpdateVector(1, v);
  EXPECT_EQ(member.isHideAll(), 1) << "the name promises more than that";
}

TEST_F(WorldDraw, FindsTheOuterFacesOfAnElevation) {
  member.make({samples::rolledI(200, 100, 6, 9, 12)}, Direita, 1000, 0.4);
  KrVector a, b;
  int ia = -1, ib = -1;
  member.GetFacesExternas(a, b, &ia, &ib);
  EXPECT_NEAR(a.len(), 1000, 1e-6);
  const AcGeVector3d across = a.startPoint() - b.startPoint();
  const AcGeVector3d along(std::cos(0.4), std::sin(0.4), 0);
  EXPECT_NEAR((across - along * across.dotProduct(along)).length(), 200, 1e-6);
  EXPECT_GE(ia, 0);
  EXPECT_GT(ib, ia);
}

TEST_F(WorldDraw, FollowsALayerThatIsErasedMadeAnewOrRenamed) {
  add(KR_VT_EIXO);
  const AcDbObjectId first = drawing.layer(L"EIXO");
  ASSERT_EQ(draw()[0].traits.layer, first);
  AcDbLayerTableRecord* record = nullptr;
  ASSERT_EQ(acdbOpenObject(record, first, AcDb::kForWrite), Acad::eOk);
  record->setName(L"AXES");
  record->close();
  krCriaLayer(L"EIXO", 7, L"continuous", 0, 0, 0, 0);
  const AcDbObjectId second = drawing.layer(L"EIXO");
  ASSERT_NE(first, second);
  EXPECT_EQ(draw()[0].traits.layer, second);
  ASSERT_EQ(acdbOpenObject(record, second, AcDb::kForWrite), Acad::eOk);
  record->erase();
  record->close();
  krCriaLayer(L"EIXO", 7, L"continuous", 0, 0, 0, 0);
  EXPECT_NE(drawing.layer(L"EIXO"), second);
  EXPECT_EQ(draw()[0].traits.layer, drawing.layer(L"EIXO"));
}

TEST_F(WorldDraw, TakesTheLayersOfTheDrawingAtHand) {
  add(KR_VT_EIXO);
  const AcDbObjectId here = draw()[0].traits.layer;
  {
    const Drawing other;
    gi::Recorder recorder;
    member.worldDraw(&recorder);
    EXPECT_EQ(recorder.figures()[0].traits.layer, other.layer(L"EIXO"));
    EXPECT_NE(recorder.figures()[0].traits.layer, here);
  }
  EXPECT_EQ(draw()[0].traits.layer, here);
}

TEST_F(WorldDraw, WithoutTheLayerOfItsKindAnElementIsOnTheMembersOwn) {
  for (const KrVectorType type : {KR_VT_EIXO, KR_VT_LINHA_OCULTA, KR_VT_FURO_EIXO}) add(type);
  add(KR_VT_LINHA, 1);
  add(KR_VT_LINHA, 0, KR_VF_LIMITE);
  const AcDbObjectId own = drawing.layer(L"PERFIL");
  for (const gi::DrawCall& figure : draw()) EXPECT_NE(figure.traits.layer, own);
  AcDbDatabase bare;
  acdbHostApplicationServices()->setWorkingDatabase(&bare);
  const auto figures = draw();
  acdbHostApplicationServices()->setWorkingDatabase(drawing.database());
  ASSERT_EQ(figures.size(), 5U);
  for (const gi::DrawCall& figure : figures) EXPECT_EQ(figure.traits.layer, own);
}

TEST_F(WorldDraw, NoLayerOfOneDrawingGoesIntoTheFileOfAnother) {
  // The layers stand in the working drawing only; the member is of another.
  AcDbDatabase bare;
  acdbHostApplicationServices()->setWorkingDatabase(&bare);
  auto* elsewhere = new TestMember;
  elsewhere->make({{{-5, -4}, {-5, 4}, {5, 4}, {5, -4}}}, Superior, 100);
  AcDbBlockTable* table = nullptr;
  AcDbBlockTableRecord* space = nullptr;
  bare.getBlockTable(table, AcDb::kForRead);
  table->getAt(ACDB_MODEL_SPACE, space, AcDb::kForWrite);
  table->close();
  AcDbObjectId id;
  space->appendAcDbEntity(id, elsewhere);
  space->close();

  const auto filed = [&] {
    AcDbMemoryDwgFiler filer(AcDb::kFileFiler);
    elsewhere->dwgOutFields(&filer);
    std::vector<AcDbObjectId> layers;
    filer.visitReferences([&](AcDbReferenceKind, AcDbObjectId& reference) { layers.push_back(reference); });
    return layers;
  };
  acdbHostApplicationServices()->setWorkingDatabase(drawing.database());
  for (const auto& reference : {filed(), filed()})
    for (const AcDbObjectId& at : reference) EXPECT_TRUE(at.isNull() || at.database() == &bare);
  acdbHostApplicationServices()->setWorkingDatabase(&bare);
  for (const AcDbObjectId& at : filed()) EXPECT_TRUE(at.isNull() || at.database() == &bare);
  elsewhere->close();
  acdbHostApplicationServices()->setWorkingDatabase(drawing.database());
}

TEST_F(WorldDraw, RestoresTheLayerOfTheTraits) {
  add(KR_VT_EIXO);
  gi::Recorder recorder;
  recorder.subEntityTraits().setLayer(drawing.layer(L"EIXO"));
  member.worldDraw(&recorder);
  EXPECT_EQ(recorder.subEntityTraits().layerId(), drawing.layer(L"EIXO"));
}

}  // namespace
