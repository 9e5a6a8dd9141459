// The list of cuts: its ends, its removals, what of it still shows, and the other members that show the same bar.

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <map>

#include "modifiers/CutBar.h"
#include "object/Drawing.h"

namespace {

constexpr KrVistas kElevations[] = {Superior, Inferior, Esquerda, Direita};

AcArray<int> indices(std::initializer_list<int> values) {
  AcArray<int> all;
  for (const int v : values) all.append(v);
  return all;
}

// --- Ends ------------------------------------------------------------------------------------------------------------

TEST(CutsOfAnEnd, AreNamedByTheDrawnEndAtWhichTheyThrowAway) {
  for (const KrVistas view : kElevations) {
    CutBar bar(view);
    bar.cutAt(900, 950);
    bar.cutAt(100, 50);
    bar.cut({800, 0, 0}, {810, 10, 0}, {2000, 0, 0});
    AcArray<int> atEnd, atStart;
    EXPECT_EQ(bar.getCortesExtremidade(0, atEnd), 2) << "0 is the end of the bar, not its start";
    ASSERT_EQ(atEnd.length(), 2);
    EXPECT_EQ(atEnd[0], 0);
    EXPECT_EQ(atEnd[1], 2);
    EXPECT_EQ(bar.getCortesExtremidade(1, atStart), 1);
    ASSERT_EQ(atStart.length(), 1);
    EXPECT_EQ(atStart[0], 1);
    EXPECT_EQ(bar.getCortesExtremidade(0, nullptr), 2);
  }
}

TEST(CutsOfAnEnd, WithoutCutsAreNoneAndWithoutAFrameUnknown) {
  CutBar bar;
  EXPECT_EQ(bar.getCortesExtremidade(0, nullptr), 0);
  bar.cutAt(900, 950);
  bar.ClearVertexes(Superior);
  EXPECT_EQ(bar.getCortesExtremidade(0, nullptr), -1) << "no reference line";
  bar.setVista(VistaCorrente);
  EXPECT_EQ(bar.getCortesExtremidade(0, nullptr), -1) << "no view";
}

TEST(CutsOfAnEnd, AreRemovedThereAlone) {
  CutBar bar;
  bar.cut({850, 0, 0}, {860, 10, 0}, {900, 0, 0});
  bar.cut({150, 0, 0}, {160, 10, 0}, {0, 0, 0});
  bar.cut({820, 0, 0}, {830, -10, 0}, {900, 0, 0});
  bar.RemoveCortes(0, 0);
  EXPECT_EQ(bar.numCortes(), 1);
  EXPECT_EQ(bar.getCortesExtremidade(1, nullptr), 1);
  EXPECT_EQ(bar.cutEdges().size(), 3U) << "not regenerated";
  bar.Gera_KrVector();
  EXPECT_EQ(bar.cutEdges().size(), 1U);

  CutBar drawn;
  drawn.cut({850, 0, 0}, {860, 10, 0}, {900, 0, 0});
  drawn.RemoveCortes(0, 1);
  EXPECT_TRUE(drawn.cutEdges().empty());
  EXPECT_NEAR(drawn.right(), 900, 1e-8) << "the bar keeps the length that the cut left it";
}

// --- In and out ------------------------------------------------------------------------------------------------------

TEST(CutList, GoesThroughTheViewAndBackUnchanged) {
  for (const KrVistas view : kElevations) {
    for (const double scale : {1.0, 0.1}) {
      CutBar bar(view, 1000, 0.4, {70, -30, 0});
      bar.ObjectScale(scale, scale, scale);
      const AcGeVector3d along(std::cos(0.4), std::sin(0.4), 0);
      const AcGePoint3d p = AcGePoint3d(70, -30, 0) + along * 700 * scale;
      const AcGePoint3d q = p + AcGeVector3d(1, 5, 0);
      ASSERT_EQ(bar.cut(p, q, p + along), Acad::eOk);
      KrPlanoCorte seen;
      ASSERT_EQ(bar.getCortes(seen, 1), Acad::eOk);
      EXPECT_NEAR(seen.GetPlane(0).distanceTo(p), 0, 1e-8) << "as it is drawn, at the drawing's scale";
      EXPECT_NEAR(seen.GetPlane(0).distanceTo(q), 0, 1e-8);
      EXPECT_TRUE(seen.GetSide(0).isEqualTo(p + along));
      ASSERT_EQ(bar.addCortes(seen, 1), Acad::eOk);
      const KrPlanoCorte all = bar.stored();
      ASSERT_EQ(all.Qtd(), 2);
      EXPECT_NEAR(all.GetPlane(1).distanceTo(all.GetPlane(0).pointOnPlane()), 0, 1e-8);
      EXPECT_TRUE(all.GetPlane(1).normal().isParallelTo(all.GetPlane(0).normal()));
      EXPECT_TRUE(all.GetSide(1).isEqualTo(all.GetSide(0)));
    }
  }
}

TEST(CutList, TakesNothingWithoutAFrameAndNoNumbersThatAreNone) {
  CutBar bar;
  bar.cutAt(900, 950);
  const KrPlanoCorte good = bar.stored();
  KrPlanoCorte bad = good;
  bad.GetSide(0).x = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(bar.addCortes(bad, 0), Acad::eInvalidInput);
  bad.GetSide(0).x = 0;
  bad.GetPlane(0) = AcGePlane(AcGePoint3d(0, 0, std::numeric_limits<double>::infinity()), AcGeVector3d::kZAxis);
  EXPECT_EQ(bar.addCortes(bad, 0), Acad::eInvalidInput);
  EXPECT_EQ(bar.numCortes(), 1);
  bar.setVista(VistaCorrente);
  EXPECT_EQ(bar.addCortes(good, 1), Acad::eNotImplementedYet);
  KrPlanoCorte out;
  EXPECT_EQ(bar.getCortes(out, 1), Acad::eNotImplementedYet);
  EXPECT_EQ(bar.getCortes(out, 0), Acad::eOk);
  EXPECT_EQ(out.Qtd(), 1);
}

TEST(CutList, MovesAlongTheBarOnlyAndTheSameAtEveryScale) {
  for (const KrVistas view : kElevations) {
    for (const double scale : {1.0, 0.1}) {
      CutBar bar(view);
      bar.ObjectScale(scale, scale, scale);
      bar.cut({850 * scale, 0, 0}, {860 * scale, 10 * scale, 0}, {900 * scale, 0, 0});
      bar.cutAt(100 * scale, 50 * scale);
      const KrPlanoCorte before = bar.stored();
      // 30 along and 20 across, on the drawing.
      ASSERT_EQ(bar.moveCortesVista(AcGeVector3d(30, 20, 0) * scale, indices({0})), Acad::eOk);
      const KrPlanoCorte after = bar.stored();
      // The section's Z runs against the bar's direction; the bar is drawn from its end in 2 and 3.
      const double z = view == Superior || view == Direita ? -30 : 30;
      EXPECT_TRUE((after.GetSide(0) - before.GetSide(0)).isEqualTo({0, 0, z})) << view << ' ' << scale;
      EXPECT_NEAR(after.GetPlane(0).distanceTo(before.GetPlane(0).pointOnPlane() + AcGeVector3d(0, 0, z)), 0, 1e-8);
      EXPECT_TRUE(after.GetSide(1).isEqualTo(before.GetSide(1)));
    }
  }
  CutBar section(Secao);
  KrPlanoCorte cut;
  cut.Add(AcGePlane(AcGePoint3d(0, 0, -100), AcGeVector3d::kZAxis), {0, 0, -50});
  section.addCortes(cut, 0);
  EXPECT_EQ(section.moveCortesVista({30, 20, 0}, indices({0})), Acad::eOk);
  EXPECT_TRUE(section.stored().GetSide(0).isEqualTo({0, 0, -50})) << "nothing in a section runs along the bar";
  section.setVista(VistaCorrente);
  EXPECT_EQ(section.moveCortesVista({30, 20, 0}, indices({0})), Acad::eNotImplementedYet);
}

// --- Removing by kind ------------------------------------------------------------------------------------------------

TEST(RemovingModifiers, TakesOneEntryOrAllOfTheKindsNamed) {
  CutBar bar;
  bar.cutAt(900, 950);
  bar.cutAt(800, 950);
  bar.cutAt(100, 50);
  KrFuro holes;
  holes.Add({0, -20, 300}, {0, 20, 300}, 22, 0, 0);
  bar.setFurosSemLink(holes);
  const AcGePoint3d second = bar.stored().GetSide(1);
  bar.RemoveMods(ModCorte, 0);
  ASSERT_EQ(bar.numCortes(), 2);
  EXPECT_TRUE(bar.stored().GetSide(0).isEqualTo(second));
  bar.RemoveMods(ModCorte, 5);
  EXPECT_EQ(bar.numCortes(), 2) << "there is no such cut";
  EXPECT_EQ(bar.numFuros(), 1);
  bar.RemoveCortes();
  EXPECT_EQ(bar.numCortes(), 0);
  EXPECT_EQ(bar.numFuros(), 1);
  bar.RemoveMods(ModFuro | ModSplit, -1);
  EXPECT_EQ(bar.numFuros(), 0);
}

// --- What still shows ------------------------------------------------------------------------------------------------

TEST(CutsNotVisible, AreDroppedAndTheOthersStay) {
  for (const double scale : {1.0, 0.1}) {
    CutBar bar;
    bar.ObjectScale(scale, scale, scale);
    bar.cutAt(900 * scale, 950 * scale);
    bar.cut({850 * scale, 0, 0}, {860 * scale, 10 * scale, 0}, {900 * scale, 0, 0});
    EXPECT_EQ(bar.deleteModifiersNotVisible(), 1);
    ASSERT_EQ(bar.numCortes(), 1) << "the mitre took the first cut's edge away: it reaches beyond it nowhere";
    EXPECT_EQ(bar.deleteModifiersNotVisible(), 0);
    EXPECT_EQ(bar.numCortes(), 1);
    bar.Gera_KrVector();
    bar.deleteModifiersNotVisible();
    EXPECT_EQ(bar.numCortes(), 1);
    EXPECT_EQ(bar.cutEdges().size(), 1U);
  }
}

TEST(CutsNotVisible, OneThatIsAskewInTheViewShowsByItsTrace) {
  CutBar master;
  master.cut({850, 0, 0}, {860, 10, 0}, {900, 0, 0});
  for (const double scale : {1.0, 0.1}) {
    CutBar side(Direita);
    side.ObjectScale(scale, scale, scale);
    side.addCortes(master.stored(), 0);
    side.Gera_KrVector();
    EXPECT_EQ(side.deleteModifiersNotVisible(), 0) << scale;
    EXPECT_EQ(side.numCortes(), 1);
  }
}

TEST(CutsNotVisible, LeaveTwoOfWhichTheSecondFindsItsPlaceGone) {
  CutBar bar;
  bar.cutAt(900, 950);
  bar.cutAt(100, 50);
  bar.ClearVertexes(Superior);
  EXPECT_EQ(bar.deleteModifiersNotVisible(), 1) << "the first goes, and place 1 is past the end by then";
  EXPECT_EQ(bar.numCortes(), 1);
}

TEST(CutsNotVisible, TakeNoNotchWithThem) {
  CutBar bar;
  KrObjectRecorteArray notches;
  AcArray<AcGePoint2d> corners;
  for (const AcGePoint2d& p : {AcGePoint2d(2000, 30), AcGePoint2d(2000, 60), AcGePoint2d(2100, 60)}) corners.append(p);
  AcArray<double> bulges;
  bulges.setLogicalLength(3);
  bulges.setAll(0.0);
  notches.append(KrObjectRecorte(corners, bulges, AcGePoint2d(2010, 50)));
  ASSERT_EQ(bar.addRecortesWCS(notches), Acad::eOk);
  EXPECT_EQ(bar.deleteModifiersNotVisible(), 0);
  KrObjectRecorteArray left;
  bar.getRecortesWCS(left);
  EXPECT_EQ(left.length(), 1) << "although it lies past the bar";
}

TEST(CutsNotVisible, OneWhoseEdgeWasSplitAndLostItsTagShowsByThePieces) {
  CutBar bar;
  bar.cutAt(900, 950);
  for (int i = 0; i < bar.GetNumVertex(Superior); ++i) {
    KrVector v;
    bar.GetVector(i, v);
    if (v.typeEx() != KR_VTX_CORTE) continue;
    v.setTypeEx(KR_VTX_NENHUM);
    v.setIndexFur(-1);
    v.setEndPoint({900, 10, 0});
    bar.UpdateVector(i, v);
  }
  bar.deleteModifiersNotVisible();
  EXPECT_EQ(bar.numCortes(), 1);
}

TEST(CutsNotVisible, AfterOneRemovalALaterPlaceNamesTheFollowingCut) {
  CutBar bar;
  bar.cutAt(900, 950);
  bar.cutAt(700, 950);
  // Neither of the first two shows; the walk names them 0 and 1, and by then 1 is the third.
  bar.cutAt(100, 50);
  bar.cutAt(200, 50);
  // Cuts 0 and 2 left no edge: 0 goes, then 2 of the three left, which is cut 3.
  const AcGePoint3d kept[] = {bar.stored().GetSide(1), bar.stored().GetSide(2)};
  bar.deleteModifiersNotVisible();
  ASSERT_EQ(bar.numCortes(), 2);
  EXPECT_TRUE(bar.stored().GetSide(0).isEqualTo(kept[0]));
  EXPECT_TRUE(bar.stored().GetSide(1).isEqualTo(kept[1])) << "this is how it stands";
}

// --- Members that show the same bar ----------------------------------------------------------------------------------

/// A bar shown by a master and copies, each at its own scale, all linked.
class CutGroup : public testing::Test {
 protected:
  AcDbObjectId add(KrVistas view, double scale, KrObjectType type = Vista) {
    auto* bar = new CutBar(view, 1000, 0, AcGePoint3d(0, 500.0 * static_cast<double>(ids.size()), 0));
    bar->setObjectType(type);
    bar->ObjectScale(scale, scale, scale);
    // A section lists its length as its scale makes it.
    if (KrObject::isSecao(view) == Acad::eOk) bar->setComprimento(1000 * scale);
    ids.push_back(drawing.append(bar));
    return ids.back();
  }
  void link() {
    for (const AcDbObjectId& id : ids) {
      AcDbObjectIdArray others;
      for (const AcDbObjectId& other : ids)
        if (other != id) others.append(other);
      write(id, [&](CutBar& bar) { bar.setRelativeObj(&others); });
    }
  }
  template <class Use>
  void write(const AcDbObjectId& id, Use use) {
    AcDbObject* object = nullptr;
    ASSERT_EQ(acdbOpenAcDbObject(object, id, AcDb::kForWrite), Acad::eOk);
    use(static_cast<CutBar&>(*object));
    object->close();
  }
  /// A length along the bar as it is drawn, over the scale.
  double drawnLength(const AcDbObjectId& id) {
    double length = 0;
    write(id, [&](CutBar& bar) {
      double scale = 1;
      bar.Xscale(scale);
      length = (bar.right() - bar.left()) / scale;
    });
    return length;
  }

  Drawing drawing;
  std::vector<AcDbObjectId> ids;
};

TEST_F(CutGroup, RemovingAndMovingSkipMembersOnALockedLayer) {
  const AcDbObjectId master = add(Superior, 1, Objeto);
  const AcDbObjectId copy = add(Inferior, 1);
  link();
  write(master, [](CutBar& bar) { ASSERT_EQ(bar.cutAt(700, 800), Acad::eOk); });
  write(copy, [](CutBar& bar) { bar.setLayer(L"PERFIL"); });
  const auto lock = [this](bool locked) {
    int before = 0;
    ASSERT_EQ(krLockLayer(drawing.layer(L"PERFIL"), locked ? 1 : 0, before), Acad::eOk);
  };
  const auto cutOfCopy = [&] {
    double z = 0;
    write(copy, [&](CutBar& bar) {
      ASSERT_EQ(bar.numCortes(), 1);
      z = bar.stored().GetPlane(0).pointOnPlane().z;
    });
    return z;
  };
  const double before = cutOfCopy();
  for (const int way : {0, 1, 2}) {
    write(master, [&](CutBar& bar) {
      if (bar.numCortes() == 0) {
        KrPlanoCorte again;
        again.Add(AcGePlane(AcGePoint3d(0, 0, -700), AcGeVector3d::kZAxis), {0, 0, -900});
        ASSERT_EQ(bar.addCortes(again, 0), Acad::eOk);
      }
      lock(true);
      if (way == 0) {
        EXPECT_EQ(bar.moveCortesVista({-25, 0, 0}, indices({0})), Acad::eOk);
      }
      if (way == 1) bar.RemoveCortes(0, 1);
      if (way == 2) bar.RemoveMods(ModCorte, -1);
      EXPECT_EQ(bar.numCortes(), way == 0 ? 1 : 0) << way;
    });
    lock(false);
    EXPECT_DOUBLE_EQ(cutOfCopy(), before) << way;
  }
}

TEST_F(CutGroup, ACutIsCarriedToAllViewsAndToTheLengthOfSections) {
  const AcDbObjectId master = add(Superior, 1, Objeto);
  for (const KrVistas view : {Inferior, Esquerda, Direita}) add(view, 0.1);
  const AcDbObjectId section = add(Secao, 0.1);
  link();
  write(master, [](CutBar& bar) {
    EXPECT_EQ(bar.cutAt(200, 100), Acad::eOk);
    EXPECT_EQ(bar.cut({850, 0, 0}, {860, 10, 0}, {900, 0, 0}), Acad::eOk);
  });
  for (const AcDbObjectId& id : ids) {
    write(id, [&](CutBar& bar) {
      ASSERT_EQ(bar.numCortes(), 2);
      EXPECT_NEAR(bar.getComprimentoReal(), 700, 1e-7) << "view " << bar.Vista(0);
    });
    if (id != section) {
      EXPECT_NEAR(drawnLength(id), 700, 1e-7);
    }
  }
  // Every record counts from the same end.
  KrPlanoCorte planes;
  write(master, [&](CutBar& bar) { planes = bar.stored(); });
  for (const AcDbObjectId& id : ids) {
    write(id, [&](CutBar& bar) {
      for (int i = 0; i < 2; ++i) {
        EXPECT_NEAR(bar.stored().GetPlane(i).distanceTo(planes.GetPlane(i).pointOnPlane()), 0, 1e-7);
        EXPECT_NEAR(bar.stored().GetSide(i).z, planes.GetSide(i).z, 1e-7);
      }
    });
  }
}

TEST_F(CutGroup, ACutThatTakesTheTipOfAnotherMovesTheEndInViewsOnWhichBothStandAskew) {
  const AcDbObjectId master = add(Superior, 1, Objeto);
  const AcDbObjectId side = add(Direita, 1);
  link();
  write(master, [](CutBar& bar) {
    // What is left lies between x = 575 - 3.5 y and x = 650 - y, which meet at (680, -30).
    EXPECT_EQ(bar.cut({710, -60, 0}, {590, 60, 0}, {900, 0, 0}), Acad::eOk);
    EXPECT_EQ(bar.cut({785, -60, 0}, {365, 60, 0}, {0, 0, 0}), Acad::eOk);
  });
  for (int run = 0; run < 2; ++run) {
    write(side, [](CutBar& bar) {
      EXPECT_NEAR(bar.left(), 400, 1e-7);
      EXPECT_NEAR(bar.right(), 680, 1e-7);
      bar.Gera_KrVector();
    });
  }
}

TEST_F(CutGroup, ACutInASectionIsRefusedAndReachesNoOne) {
  const AcDbObjectId master = add(Superior, 1, Objeto);
  const AcDbObjectId section = add(Secao, 1);
  link();
  write(master, [](CutBar& bar) { bar.cutAt(900, 950); });
  write(section, [](CutBar& bar) {
    EXPECT_EQ(bar.cutAt(10, 20), Acad::eNotApplicable);
    EXPECT_EQ(bar.numCortes(), 1);
  });
  write(master, [](CutBar& bar) { EXPECT_EQ(bar.numCortes(), 1); });
}

TEST_F(CutGroup, RemovalsAndMovesReachTheOthers) {
  const AcDbObjectId master = add(Superior, 1, Objeto);
  const AcDbObjectId copy = add(Inferior, 0.1);
  const AcDbObjectId section = add(Secao, 1);
  link();
  write(master, [](CutBar& bar) {
    bar.cut({850, 0, 0}, {860, 10, 0}, {900, 0, 0});
    bar.cut({150, 0, 0}, {160, 10, 0}, {0, 0, 0});
    bar.moveCortesVista({-25, 0, 0}, indices({0}));
  });
  KrPlanoCorte planes;
  write(master, [&](CutBar& bar) { planes = bar.stored(); });
  for (const AcDbObjectId& id : {copy, section})
    write(id, [&](CutBar& bar) { EXPECT_TRUE(bar.stored().GetSide(0).isEqualTo(planes.GetSide(0))); });
  write(master, [](CutBar& bar) { bar.RemoveCortes(0, 1); });
  write(copy, [](CutBar& bar) {
    EXPECT_EQ(bar.numCortes(), 1);
    EXPECT_EQ(bar.cutEdges().size(), 1U) << "and regenerated";
  });
  write(section, [](CutBar& bar) { EXPECT_EQ(bar.numCortes(), 1); });
  write(master, [](CutBar& bar) { bar.RemoveMods(ModCorte, 0); });
  for (const AcDbObjectId& id : ids) write(id, [](CutBar& bar) { EXPECT_EQ(bar.numCortes(), 0); });
}

TEST_F(CutGroup, OneThatDoesNotOpenIsSkipped) {
  const AcDbObjectId master = add(Superior, 1, Objeto);
  const AcDbObjectId erased = add(Inferior, 1);
  const AcDbObjectId last = add(Direita, 1);
  link();
  write(erased, [](CutBar& bar) { bar.erase(); });
  write(master, [](CutBar& bar) { EXPECT_EQ(bar.cutAt(900, 950), Acad::eOk); });
  write(last, [](CutBar& bar) { EXPECT_EQ(bar.numCortes(), 1); });
}

TEST_F(CutGroup, MembersOnALockedLayerFollowToo) {
  const AcDbObjectId master = add(Superior, 1, Objeto);
  const AcDbObjectId copy = add(Inferior, 1);
  link();
  write(copy, [&](CutBar& bar) { bar.setLayer(drawing.layer(L"PERFIL")); });
  AcDbLayerTableRecord* record = nullptr;
  ASSERT_EQ(acdbOpenObject(record, drawing.layer(L"PERFIL"), AcDb::kForWrite), Acad::eOk);
  record->setIsLocked(true);
  record->close();
  write(master, [](CutBar& bar) { bar.cutAt(900, 950); });
  AcDbObject* object = nullptr;
  ASSERT_EQ(acdbOpenAcDbObject(object, copy, AcDb::kForRead), Acad::eOk);
  EXPECT_EQ(static_cast<CutBar&>(*object).numCortes(), 1);
  object->close();
}

TEST_F(CutGroup, ARegenerationAtCloseDoesNotAskForAnother) {
  const AcDbObjectId master = add(Superior, 1, Objeto);
  write(master, [](CutBar& bar) {
    bar.cutAt(900, 950);
    // A limit: each cut that the regeneration applies restores it and asks for a regeneration at close.
    bar.setVisualRepStart(0.2);
  });
  std::vector<KrVector> before;
  write(master, [&](CutBar& bar) { before = bar.elements(); });
  write(master, [&](CutBar& bar) {
    EXPECT_NEAR(bar.visualRepStart(), 0.2, 1e-12);
    EXPECT_EQ(bar.elements().size(), before.size());
  });
}

TEST_F(CutGroup, RemovingASplitLeavesTheNotchesOfTheOthers) {
  const AcDbObjectId master = add(Superior, 1, Objeto);
  const AcDbObjectId copy = add(Superior, 1);
  link();
  for (const AcDbObjectId& id : {master, copy}) {
    write(id, [](CutBar& bar) {
      AcArray<AcGePoint2d> points;
      AcArray<double> bulges;
      const double y = bar.line(KR_VT_REFERENCIA).startPoint().y;
      for (const AcGePoint2d& p :
           {AcGePoint2d(400, y + 60), {400, y + 20}, {500, y + 20}, {500, y + 60}, {400, y + 60}}) {
        points.append(p);
        bulges.append(0);
      }
      AcGePoint2d inside(450, y + 40);
      if (bar.ObjectType() == Vista) {
        EXPECT_EQ(bar.Recorte(points, bulges, inside), Acad::eOk);
      }
      KrObjectSplit split;
      split.setZPos(700);
      split.setLength(40);
      bar.addSplit(split, 0);
    });
  }
  KrObjectRecorteArray notches;
  write(copy, [&](CutBar& bar) { bar.getRecortesWCS(notches); });
  ASSERT_GE(notches.length(), 1);
  write(master, [](CutBar& bar) {
    ASSERT_EQ(bar.numSplits(), 1);
    bar.RemoveMods(ModSplit, 0);
  });
  write(copy, [&](CutBar& bar) {
    EXPECT_EQ(bar.numSplits(), 0) << "splits go as splits";
    KrObjectRecorteArray left;
    bar.getRecortesWCS(left);
    EXPECT_EQ(left.length(), notches.length());
  });
}

}  // namespace
