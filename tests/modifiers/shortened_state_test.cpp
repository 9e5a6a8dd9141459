// A member whose single-line drawing is shortened takes no modifier and shows none.

#include <gtest/gtest.h>

#include "object/MemberLayout.h"
#include "object/TestMember.h"

namespace {

/// A plate of 100 by 8 from (10, 20) to (1010, 20), with one hole through it, as a file of that state holds it.
class ShortenedPlate : public TestMember {
 public:
  ShortenedPlate() {
    MemberLayout layout = MemberLayout::plate();
    layout.projeto = true;
    layout.angleSecao = 0;
    layout.xScale = layout.yScale = layout.zScale = 1;
    layout.cuts.clear();
    for (auto& notches : layout.notches) notches.clear();
    layout.holes = {{{20, 8, 120}, {20, 0, 120}, 18, 0, 0}};
    AcDbMemoryDwgFiler filer(AcDb::kFileFiler, layout.bytes());
    EXPECT_EQ(dwgInFieldsData(&filer), Acad::eOk);
    EXPECT_NE(IsProjeto(), 0);
  }

  int holesDrawn() const {
    int count = 0;
    for (int i = 0; i < GetNumVertex(VistaCorrente); ++i) count += currentVertexList(VistaCorrente)[i].isFuro() ? 1 : 0;
    return count;
  }
};

TEST(ShortenedState, RefusesToBeDrilled) {
  ShortenedPlate plate;
  EXPECT_EQ(plate.FurarSecao(plate.startPoint() + AcGeVector3d(0, 20, 300), {0, -40}, 18, 0, 0, -1, 0, 0),
            Acad::eNotApplicable);
  EXPECT_EQ(plate.numFuros(), 1);
  EXPECT_EQ(plate.FurarVista({310, 20, 0}, 40, 18, 0, 0, -1, 0), Acad::eOk) << "a pick doesn't tell what came of it";
  EXPECT_EQ(plate.numFuros(), 1);
}

TEST(ShortenedState, RefusesToBeCutAndNotched) {
  ShortenedPlate plate;
  const int elements = plate.GetNumVertex(VistaCorrente);
  AcGePoint3d p(500, -100, 0);
  AcGePoint3d q(500, 200, 0);
  AcGePoint3d away(900, 20, 0);
  EXPECT_EQ(plate.Corte(p, q, away, 0, 1), Acad::eNotApplicable);
  EXPECT_EQ(plate.numCortes(), 0);

  AcArray<AcGePoint2d> corners;
  AcArray<double> bulges;
  for (const AcGePoint2d& c :
       {AcGePoint2d(400, 90), AcGePoint2d(400, 40), AcGePoint2d(450, 40), AcGePoint2d(450, 90)}) {
    corners.append(c);
    bulges.append(0.0);
  }
  AcGePoint2d side(425, 60);
  EXPECT_EQ(plate.Recorte(corners, bulges, side), Acad::eNotApplicable);
  KrObjectRecorteArray notches;
  EXPECT_EQ(plate.getRecortesWCS(notches), Acad::eOk);
  EXPECT_EQ(notches.length(), 0);
  EXPECT_EQ(plate.GetNumVertex(VistaCorrente), elements);
}

TEST(ShortenedState, ShowsNoHolesAndNoCutsInAnElevation) {
  ShortenedPlate plate;
  KrPlanoCorte cuts;
  cuts.Add(AcGePlane(AcGePoint3d(0, 0, -700), AcGeVector3d::kZAxis), {0, 0, -900});
  plate.addCortes(cuts, 0);
  plate.Gera_KrVector();
  EXPECT_EQ(plate.holesDrawn(), 0);
  EXPECT_EQ(plate.numFuros(), 1) << "the record stays";
  EXPECT_NEAR(plate.GetMaxX(VistaCorrente), 1010, 1e-9) << "the cut at 710 isn't applied";
}

}  // namespace
