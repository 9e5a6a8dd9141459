// Holes of members that show one bar in several views of a drawing.

#include <gtest/gtest.h>

#include "HoleSpace.h"
#include "object/Drawing.h"
#include "profiles/KrTubo.h"

namespace {

constexpr double kLength = 600;

/// A tube shown from above, from the right, in both sections and from below at 1:10, all linked.
class LinkedHoles : public testing::Test {
 protected:
  LinkedHoles() {
    for (const KrVistas view : {Superior, Direita, Secao, SecaoVerso, Inferior}) {
      auto* tube = new KrTubo(AcGePoint3d(0, 0, 0), AcGePoint3d(kLength, 0, 0), view, 88.9, 79.9);
      if (view == Inferior) tube->ObjectScale(0.1, 0.1, 0.1);
      tube->setLayer(L"PERFIL");
      ids_.push_back(drawing_.append(tube));
    }
    for (const AcDbObjectId& id : ids_) {
      AcDbObjectIdArray others;
      for (const AcDbObjectId& other : ids_)
        if (other != id) others.append(other);
      write(id, [&](KrTubo& tube) { tube.setRelativeObj(&others); });
    }
  }

  template <class Change>
  void write(AcDbObjectId id, Change change) {
    KrTubo* tube = nullptr;
    ASSERT_EQ(acdbOpenObject(tube, id, AcDb::kForWrite), Acad::eOk);
    change(*tube);
    tube->close();
  }
  template <class Look>
  void each(Look look) {
    for (const AcDbObjectId& id : ids_) {
      KrTubo* tube = nullptr;
      ASSERT_EQ(acdbOpenObject(tube, id, AcDb::kForRead), Acad::eOk);
      look(*tube);
      tube->close();
    }
  }
  void lockLayer(bool locked) {
    int before = 0;
    ASSERT_EQ(krLockLayer(drawing_.layer(L"PERFIL"), locked ? 1 : 0, before), Acad::eOk);
  }
  bool isLayerLocked() {
    AcDbLayerTableRecord* record = nullptr;
    if (acdbOpenObject(record, drawing_.layer(L"PERFIL"), AcDb::kForRead) != Acad::eOk) return false;
    const bool locked = record->isLocked();
    record->close();
    return locked;
  }
  /// How many elements hole i has in each view: above, right, section, far section, below.
  std::vector<std::size_t> shown(int i) {
    std::vector<std::size_t> counts;
    each([&](const KrTubo& tube) { counts.push_back(space::elementsOf(tube, i).size()); });
    return counts;
  }

  Drawing drawing_;
  std::vector<AcDbObjectId> ids_;
};

using Counts = std::vector<std::size_t>;

TEST_F(LinkedHoles, DrilledInOneViewShowInAllOthers) {
  write(ids_[0], [](KrTubo& tube) { EXPECT_EQ(tube.FurarVista({100, 0, 0}, 6, 18, 0, 0, -1, 0), Acad::eOk); });
  each([](const KrTubo& tube) {
    const KrFuro holes = space::holesOf(tube);
    ASSERT_EQ(holes.Qtd(), 2);
    EXPECT_TRUE(holes.getIni(0).isEqualTo(AcGeVector3d(0, 44.45, 100)));
    EXPECT_TRUE(holes.getFim(1).isEqualTo(AcGeVector3d(0, -44.45, 100)));
  });
  // The near wall shows face on from above and edge on from the right; the far one face on from below.
  EXPECT_EQ(shown(0), (Counts{3, 2, 2, 2, 0}));
  EXPECT_EQ(shown(1), (Counts{0, 2, 2, 2, 3}));
}

TEST_F(LinkedHoles, AreDrilledOnALockedLayerToo) {
  write(ids_[2], [this](KrTubo& tube) {
    lockLayer(true);
    EXPECT_EQ(tube.FurarSecao({0, 0, 100}, {0, -1}, 18, 0, 0, 1, 0, 0), Acad::eOk);
  });
  EXPECT_TRUE(isLayerLocked()) << "as it was";
  each([](const KrTubo& tube) { EXPECT_EQ(tube.numFuros(), 1); });
}

TEST_F(LinkedHoles, AreDrilledWhileTheAuditDropsAnOlderOne) {
  KrFuro past;
  past.Add({0, 44.45, 700}, {0, 39.95, 700}, 18, 0, 0);
  write(ids_[0], [&](KrTubo& tube) {
    ASSERT_EQ(tube.setFurosSemLink(past), Acad::eOk);
    EXPECT_EQ(tube.FurarSecao({0, 0, 100}, {0, -1}, 18, 0, 0, 1, 0, 0), Acad::eOk);
  });
  each([](const KrTubo& tube) {
    const KrFuro holes = space::holesOf(tube);
    ASSERT_EQ(holes.Qtd(), 1) << "the one past the bar has gone";
    EXPECT_TRUE(holes.getIni(0).isEqualTo(AcGeVector3d(0, 44.45, 100)));
  });
}

TEST_F(LinkedHoles, ReplacedByAListSkipMembersThatDontOpen) {
  KrFuro holes;
  holes.Add({0, 44.45, 100}, {0, 39.95, 100}, 18, 0, 0);
  write(ids_[0], [&](KrTubo& tube) {
    lockLayer(true);
    EXPECT_EQ(tube.setFuros(&holes), Acad::eOk);
    EXPECT_EQ(tube.numFuros(), 1);
  });
  lockLayer(false);
  write(ids_[1], [](KrTubo& tube) { EXPECT_EQ(tube.numFuros(), 0) << "on a locked layer it stays as it was"; });
  write(ids_[0], [&](KrTubo& tube) { EXPECT_EQ(tube.setFuros(&holes), Acad::eOk); });
  each([](const KrTubo& tube) { EXPECT_EQ(tube.numFuros(), 1); });
  EXPECT_EQ(shown(0), (Counts{0, 0, 0, 0, 0})) << "nothing is drawn yet";
}

TEST_F(LinkedHoles, BroughtUpToDateAreRedrawnInAll) {
  KrFuro holes;
  holes.Add({0, 44.45, 100}, {0, 39.95, 100}, 18, 0, 0);
  holes.Add({0, 44.45, 700}, {0, 39.95, 700}, 18, 0, 0);
  for (const AcDbObjectId& id : ids_) {
    write(id, [&](KrTubo& tube) { tube.AtualizaFuracao(&holes); });
    each([](const KrTubo& tube) { EXPECT_EQ(tube.numFuros(), 1) << "the one past the bar goes in all"; });
    EXPECT_EQ(shown(0), (Counts{3, 2, 2, 2, 0}));
    const KrFuro none;
    write(id, [&](KrTubo& tube) { tube.AtualizaFuracao(&none); });
    EXPECT_EQ(shown(0), (Counts{0, 0, 0, 0, 0}));
  }
}

TEST_F(LinkedHoles, RemovedInOneGoInAll) {
  KrFuro holes;
  holes.Add({0, 44.45, 100}, {0, 39.95, 100}, 18, 0, 0);
  holes.Add({0, 44.45, 200}, {0, 39.95, 200}, 18, 0, 0);
  write(ids_[3], [&](KrTubo& tube) { tube.AtualizaFuracao(&holes); });
  write(ids_[3], [](KrTubo& tube) { tube.RemoveFuro(0); });
  each([](const KrTubo& tube) {
    ASSERT_EQ(tube.numFuros(), 1);
    EXPECT_DOUBLE_EQ(space::holesOf(tube).getIni(0).z, 200);
  });
  EXPECT_EQ(shown(0), (Counts{3, 2, 2, 2, 0}));
  EXPECT_EQ(shown(1), (Counts{0, 0, 0, 0, 0}));
  write(ids_[0], [](KrTubo& tube) { tube.RemoveFuros(); });
  each([](const KrTubo& tube) { EXPECT_EQ(tube.numFuros(), 0); });
  EXPECT_EQ(shown(0), (Counts{0, 0, 0, 0, 0}));
}

TEST_F(LinkedHoles, MovedInAScaledViewMoveByRealSizeInAllRecords) {
  KrFuro holes;
  holes.Add({0, -39.95, 100}, {0, -44.45, 100}, 18, 0, 0);
  write(ids_[4], [&](KrTubo& tube) { tube.AtualizaFuracao(&holes); });
  write(ids_[4], [this](KrTubo& tube) {
    AcArray<int> first;
    first.append(0);
    lockLayer(true);
    // From below the drawing runs against the bar.
    EXPECT_EQ(tube.moveFurosVista({-3, 0, 0}, first), Acad::eOk);
  });
  EXPECT_TRUE(isLayerLocked());
  each([](const KrTubo& tube) { EXPECT_TRUE(space::holesOf(tube).getIni(0).isEqualTo(AcGeVector3d(0, -39.95, 130))); });
}

// --- Lights ----------------------------------------------------------------------------------------------------------

TEST_F(LinkedHoles, LightUpByTheirElement) {
  KrFuro holes;
  holes.Add({0, 44.45, 100}, {0, 39.95, 100}, 18, 0, 0);
  holes.Add({0, -39.95, 100}, {0, -44.45, 100}, 18, 0, 0);
  write(ids_[0], [&](KrTubo& tube) { tube.AtualizaFuracao(&holes); });
  write(ids_[0], [](KrTubo& tube) {
    EXPECT_FALSE(tube.isHighlighted());
    EXPECT_EQ(tube.highlightFuro(1), Acad::eNotApplicable) << "it doesn't show from above";
    EXPECT_FALSE(tube.isHighlighted());
    EXPECT_EQ(tube.highlightFuro(0), Acad::eOk);
    KrVector* element = nullptr;
    int place = 0;
    ASSERT_EQ(tube.getFuroVertex(element, 0, place), 1);
    const AcDbFullSubentPathArray lit = tube.highlightedPaths();
    ASSERT_EQ(lit.length(), 1) << "both vertices of an edge go by its number";
    EXPECT_EQ(lit[0].subentId(), AcDbSubentId(AcDb::kVertexSubentType, place + 1));
    ASSERT_EQ(lit[0].objectIds().length(), 1);
    EXPECT_EQ(lit[0].objectIds()[0], tube.objectId());
    tube.unhighlight();
    EXPECT_FALSE(tube.isHighlighted());
  });
  write(ids_[1], [](KrTubo& tube) {
    tube.highlightFuros();
    EXPECT_EQ(tube.highlightedPaths().length(), 2) << "both show edge on from the right";
  });
}

}  // namespace
