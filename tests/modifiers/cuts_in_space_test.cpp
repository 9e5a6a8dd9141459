// A cut is a plane in space: what each view draws of a bar is judged against the planes themselves.
//
// A point of an elevation stands for a line of sight through the section's depth. It may be drawn when somewhere along
// that line, within the depth, lies steel that no plane throws away. Depth and planes are taken from the outline and
// from the record here, with the passage between the frames written out by hand.

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "modifiers/CutBar.h"
#include "object/ElementLists.h"
#include "object/SampleOutlines.h"

namespace {

constexpr double kPi = 3.141592653589793;
constexpr KrVistas kElevations[] = {Superior, Inferior, Esquerda, Direita};

/// A bar with given planes, in a view.
class SpaceBar : public CutBar {
 public:
  SpaceBar(const KrPlanoCorte& cuts, KrVistas view, double length = kLength) : CutBar(view, length) {
    addCortes(cuts, 0);
    Gera_KrVector();
  }
};

/// Directions of a view in the turned section: where drawn Y points, where the viewer stands, and whether the bar is
/// drawn from its end.
struct Looking {
  AcGeVector2d up;
  AcGeVector2d towardsViewer;
  bool fromEnd;
};

Looking lookingAt(KrVistas view) {
  switch (view) {
    case Superior:
      return {{-1, 0}, {0, 1}, false};
    case Inferior:
      return {{-1, 0}, {0, -1}, true};
    case Esquerda:
      return {{0, 1}, {-1, 0}, true};
    default:
      return {{0, 1}, {1, 0}, false};
  }
}

AcGeVector2d turned(const AcGeVector2d& v, double angle) {
  return {v.x * std::cos(angle) - v.y * std::sin(angle), v.x * std::sin(angle) + v.y * std::cos(angle)};
}

/// The steel behind a drawn place: a stretch of the line of sight, in the section's frame.
class Sight {
 public:
  /// `along` and `up` are counted at real size from the section's start and the reference line.
  Sight(KrVistas view, double sectionAngle, double along, double up, double depth) : depth_(depth) {
    const Looking look = lookingAt(view);
    const AcGeVector2d across = turned(look.up * up, -sectionAngle);
    const AcGeVector2d out = turned(look.towardsViewer, -sectionAngle);
    at_ = AcGePoint3d(across.x, across.y, -along);
    out_ = AcGeVector3d(out.x, out.y, 0);
  }

  /// Whether some place within the depth is left by all planes, to a tolerance.
  bool meetsSteel(const KrPlanoCorte& cuts, double tol) const {
    double low = -depth_;
    double high = depth_;
    for (int i = 0; i < cuts.Qtd(); ++i) {
      const AcGePlane& plane = cuts.GetPlane(i);
      const double sign = plane.signedDistanceTo(cuts.GetSide(i)) > 0 ? 1 : -1;
      const double here = sign * plane.signedDistanceTo(at_) - tol;
      const double slope = sign * plane.normal().dotProduct(out_);
      if (std::fabs(slope) < 1e-12) {
        if (here > 0) return false;
      } else if (slope > 0) {
        high = std::min(high, -here / slope);
      } else {
        low = std::max(low, -here / slope);
      }
    }
    return low <= high;
  }

 private:
  AcGePoint3d at_;
  AcGeVector3d out_;
  double depth_;
};

bool isSteel(const KrVector& v) {
  return v.type() == KR_VT_LINHA || v.type() == KR_VT_LINHA_OCULTA || v.type() == KR_VT_ARCO;
}

struct Placing {
  double angle = 0;
  double scale = 1;
  AcGePoint3d start;
};

/// Every sampled point of what a member draws must see steel; says the first that doesn't.
std::string strayPoint(const CutBar& bar, KrVistas view, double sectionAngle, double depth, const Placing& at) {
  const KrPlanoCorte cuts = bar.stored();
  const KrVector reference = bar.line(KR_VT_REFERENCIA);
  const bool fromEnd = lookingAt(view).fromEnd;
  const AcGePoint3d origin = fromEnd ? reference.endPoint() : reference.startPoint();
  const AcGeVector3d along(std::cos(at.angle), std::sin(at.angle), 0);
  const AcGeVector3d up(-along.y, along.x, 0);
  for (const KrVector& v : bar.elements(view)) {
    if (!isSteel(v)) continue;
    for (int k = 0; k <= 20; ++k) {
      const AcGePoint3d p = v.startPoint() + (v.endPoint() - v.startPoint()) * (k / 20.0);
      const AcGeVector3d d = (p - origin) / at.scale;
      const double a = d.dotProduct(along) * (fromEnd ? -1 : 1);
      if (Sight(view, sectionAngle, a, d.dotProduct(up), depth).meetsSteel(cuts, 1e-4)) continue;
      return "view " + std::to_string(view) + ": along " + std::to_string(a) + ", up " +
             std::to_string(d.dotProduct(up));
    }
  }
  return "";
}

// --- By hand ---------------------------------------------------------------------------------------------------------

TEST(CutInSpace, SquareCutMadeInOneViewShowsAtItsPlaceInAll) {
  CutBar master;
  master.cutAt(700, 800);
  for (const KrVistas view : kElevations) {
    const SpaceBar bar(master.stored(), view);
    const bool fromEnd = view == Inferior || view == Esquerda;
    EXPECT_NEAR(bar.left(), fromEnd ? 300 : 0, 1e-9);
    EXPECT_NEAR(bar.right(), fromEnd ? 1000 : 700, 1e-9);
    ASSERT_EQ(bar.cutEdges().size(), 1U);
    const double half = view == Superior || view == Inferior ? 50 : 20;
    const double x = fromEnd ? 300 : 700;
    EXPECT_TRUE(joins(bar.cutEdges()[0], {x, -half, 0}, {x, half, 0}));
  }
}

TEST(CutInSpace, MitreIsSquareInItsViewAndTheOppositeAndEndsTheOthersAtItsTip) {
  CutBar master;
  // x = 850 + y: the tip stands at 900 on the upper side.
  master.cut({850, 0, 0}, {860, 10, 0}, {900, 0, 0});
  const SpaceBar below(master.stored(), Inferior);
  ASSERT_EQ(below.cutEdges().size(), 1U);
  EXPECT_TRUE(joins(below.cutEdges()[0], {200, -50, 0}, {100, 50, 0}, 1e-8)) << "from the other side, ends exchanged";

  const SpaceBar right(master.stored(), Direita);
  ASSERT_EQ(right.cutEdges().size(), 1U);
  EXPECT_TRUE(joins(right.cutEdges()[0], {900, -20, 0}, {900, 20, 0}, 1e-8));
  const SpaceBar left(master.stored(), Esquerda);
  ASSERT_EQ(left.cutEdges().size(), 1U);
  EXPECT_TRUE(joins(left.cutEdges()[0], {100, -20, 0}, {100, 20, 0}, 1e-8));
}

TEST(CutInSpace, MitreMadeFromTheSideEndsTheTopViewAtItsTip) {
  CutBar master(Direita);
  // x = 100 + y at the start, the left thrown away: the tip stands at 80 on the lower side.
  master.cut({100, 0, 0}, {110, 10, 0}, {0, 0, 0});
  const SpaceBar top(master.stored(), Superior, 920);
  // The master's start has moved to 80, from where its planes count now.
  EXPECT_NEAR(top.left(), 0, 1e-8);
  ASSERT_EQ(top.cutEdges().size(), 1U);
  EXPECT_TRUE(joins(top.cutEdges()[0], {0, -50, 0}, {0, 50, 0}, 1e-8));
}

TEST(CutInSpace, TwoMitresThatMeetInAPointEndTheOtherViewsThere) {
  CutBar master;
  master.cut({850, 0, 0}, {860, 10, 0}, {900, 0, 0});
  master.cut({850, 0, 0}, {860, -10, 0}, {900, 0, 0});
  const SpaceBar right(master.stored(), Direita);
  EXPECT_NEAR(right.right(), 850, 1e-8) << "each alone would reach to 900";
  const SpaceBar left(master.stored(), Esquerda);
  EXPECT_NEAR(left.left(), 150, 1e-8);
  EXPECT_NEAR(left.storedLength(), 850, 1e-8);
}

TEST(CutInSpace, AHoleInWhatWasTakenIsDrawnInNoView) {
  // The mitre of a bar along x = 850 + y: on the lower side, at y = -30, steel ends at 820.
  CutBar master;
  master.cut({850, 0, 0}, {860, 10, 0}, {900, 0, 0});
  KrFuro holes;
  holes.Add({30, -20, 830}, {30, 20, 830}, 10, 0, 0);  // through the bar's depth, past the cut
  holes.Add({30, -20, 810}, {30, 20, 810}, 10, 0, 0);  // before it
  holes.Add({-50, 0, 860}, {50, 0, 860}, 10, 0, 0);    // across, from the upper side's steel out of the cut
  for (const KrVistas view : kElevations) {
    CutBar bar(view);
    bar.addCortes(master.stored(), 0);
    bar.setFurosSemLink(holes);
    bar.Gera_KrVector();
    for (const KrVector& v : bar.elements()) EXPECT_FALSE(v.isFuro() && v.IndexFur() == 0) << "view " << view;
    const auto drawn = [&](int hole) {
      const std::vector<KrVector> all = bar.elements();
      return std::any_of(all.begin(), all.end(), [&](const KrVector& v) { return v.isFuro() && v.IndexFur() == hole; });
    };
    EXPECT_TRUE(drawn(1)) << "view " << view;
    EXPECT_TRUE(drawn(2)) << "view " << view;
  }
}

TEST(CutInSpace, TwoMitresThatLeaveNoSteelLeaveNoneInAnyView) {
  // Parallel, the one that throws the end away 2 before the one that throws the start away.
  KrPlanoCorte cuts;
  const AcGeVector3d normal = AcGeVector3d(0.2, 0, 1).normal();
  cuts.Add(AcGePlane(AcGePoint3d(0, 0, -300), normal), {0, 0, 0});
  cuts.Add(AcGePlane(AcGePoint3d(0, 0, -298), normal), {0, 0, -900});
  for (const KrVistas view : {Superior, Inferior, Esquerda, Direita}) {
    CutBar bar(view);
    bar.addCortes(cuts, 0);
    bar.Gera_KrVector();
    EXPECT_TRUE(bar.of(KR_VT_LINHA).empty()) << "view " << view;
    EXPECT_EQ(bar.of(KR_VT_EIXO).size(), 1U);
  }
}

TEST(CutInSpace, APlaneAskewHasNoLineWithoutTurning) {
  CutBar master;
  master.cut({850, 0, 0}, {860, 10, 0}, {900, 0, 0});
  CutBar right(Direita);
  right.addCortes(master.stored(), 0);
  AcGeLine3d trace;
  AcGePoint3d side;
  EXPECT_EQ(right.GetLinhaCorte(trace, side, 0, 1), 0);
  EXPECT_EQ(right.GetLinhaCorte(trace, side, 0, 0), 1);
  EXPECT_TRUE(trace.isOn({900, 0, 0}));
  EXPECT_TRUE(trace.direction().isParallelTo(AcGeVector3d::kYAxis));
  EXPECT_GT(side.x, 900);
  right.AplicaCortes(1);
  EXPECT_EQ(right.numCortes(), 1);
  EXPECT_DOUBLE_EQ(right.right(), 1000);
}

TEST(CutInSpace, APlaneParallelToTheViewHasNoLine) {
  KrPlanoCorte flat;
  flat.Add(AcGePlane(AcGePoint3d(0, 10, 0), AcGeVector3d::kYAxis), {0, 15, 0});
  const SpaceBar top(flat, Superior);
  EXPECT_TRUE(top.cutEdges().empty());
  EXPECT_DOUBLE_EQ(top.right(), 1000);
  const SpaceBar side(flat, Direita);
  EXPECT_NEAR(side.GetMaxY(Direita), 10, 1e-9);
}

TEST(CutInSpace, CountsFromTheReferenceOriginWhereverTheOutlineHasIt) {
  // The same bar with its outline moved by (30, 70) and the reference origin there.
  class MovedBar : public CutBar {
   public:
    MovedBar() {
      draw({{{-20, 50}, {-20, 90}, {80, 90}, {80, 50}}}, {30, 70, 0});
      setComprimento(1000);
      KrGeratriz none;
      Gera_KrVector(AcGePoint3d(), none, Superior, 0, 1);
    }
  };
  MovedBar bar;
  ASSERT_EQ(bar.cut({850, 0, 0}, {860, 10, 0}, {900, 0, 0}), Acad::eOk);
  ASSERT_EQ(bar.cutEdges().size(), 1U);
  EXPECT_TRUE(joins(bar.cutEdges()[0], {800, -50, 0}, {900, 50, 0}));
  bar.Gera_KrVector();
  EXPECT_TRUE(joins(bar.cutEdges()[0], {800, -50, 0}, {900, 50, 0}, 1e-8));
  EXPECT_NEAR(bar.stored().GetPlane(0).distanceTo({0, 0, -850}), 0, 1e-9) << "the planes count from the reference line";
  bar.setVista(Direita);
  bar.ClearVertexes(Direita);
  bar.setStartPoint({0, 0, 0});
  bar.Gera_KrVector();
  EXPECT_NEAR(bar.right(), 900, 1e-8);
}

TEST(CutInSpace, AskewAtAnOddAngleTouchesTheSilhouetteFromOutside) {
  // A square mitre of the upright bar, then the section turned by 30 degrees.
  CutBar master;
  master.cut({850, 0, 0}, {860, 10, 0}, {900, 0, 0});
  for (const KrVistas view : kElevations) {
    CutBar bar(view);
    bar.setAngleSecao(kPi / 6);
    bar.addCortes(master.stored(), 0);
    AcGeLine3d trace;
    AcGePoint3d side;
    ASSERT_EQ(bar.GetLinhaCorte(trace, side, 0), 1);
    const AcGeVector3d out = (side - trace.closestPointTo(side)).normal();
    // The body's edges at the plane: corner (X, Y) of the section ends at 850 - X.
    const Looking look = lookingAt(view);
    double nearest = -std::numeric_limits<double>::infinity();
    for (const AcGeVector2d corner : {AcGeVector2d(-50, -20), {-50, 20}, {50, -20}, {50, 20}}) {
      const double along = 850 - corner.x;
      const AcGePoint3d end(look.fromEnd ? 1000 - along : along, turned(corner, kPi / 6).dotProduct(look.up), 0);
      nearest = std::max(nearest, (end - trace.pointOnLine()).dotProduct(out));
    }
    EXPECT_NEAR(nearest, 0, 1e-8) << "view " << view;
  }
}

TEST(CutInSpace, AskewCutOfARoundBarTouchesItsCircle) {
  // A tube of radius 50, cut in the top view, seen from 30 degrees: x = 850 + y.
  const double bulge = std::tan(kPi / 8);
  KrPlanoCorte cuts;
  {
    CutBar master;
    master.cut({850, 0, 0}, {860, 10, 0}, {900, 0, 0});
    cuts = master.stored();
  }
  TestMember tube;
  tube.make({{{50, 0, bulge}, {0, 50, bulge}, {-50, 0, bulge}, {0, -50, bulge}}}, Superior, 1000);
  tube.setAngleSecao(kPi / 6);
  tube.addCortes(cuts, 0);
  AcGeLine3d trace;
  AcGePoint3d side;
  ASSERT_EQ(tube.GetLinhaCorte(trace, side, 0), 1);
  const AcGeVector3d out = (side - trace.closestPointTo(side)).normal();
  double nearest = -std::numeric_limits<double>::infinity();
  for (int k = 0; k < 3600; ++k) {
    const AcGeVector2d on = turned({50, 0}, k * kPi / 1800);
    const AcGePoint3d end(850 - on.x, -turned(on, kPi / 6).x, 0);
    nearest = std::max(nearest, (end - trace.pointOnLine()).dotProduct(out));
  }
  EXPECT_NEAR(nearest, 0, 1e-4) << "to the blur of the samples";
}

// --- At random -------------------------------------------------------------------------------------------------------

/// Random cuts near both ends of a bar, made on its picture.
void cutAtRandom(CutBar& bar, std::mt19937& random, int count, const Placing& at) {
  const auto uniform = [&](double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(random);
  };
  const AcGeMatrix3d place = AcGeMatrix3d::translation(at.start.asVector()) *
                             AcGeMatrix3d::rotation(at.angle, AcGeVector3d::kZAxis, AcGePoint3d::kOrigin) *
                             AcGeMatrix3d::scaling(at.scale, AcGePoint3d::kOrigin);
  for (int k = 0; k < count; ++k) {
    const bool atEnd = uniform(0, 1) < 0.5;
    const double x = atEnd ? uniform(700, 950) : uniform(50, 300);
    const double lean = uniform(0, 1) < 0.3 ? 0 : uniform(-1, 1);
    bar.cut(place * AcGePoint3d(x, 0, 0), place * AcGePoint3d(x + lean * 10, 10, 0),
            place * AcGePoint3d(atEnd ? 2000 : -1000, 0, 0));
  }
}

TEST(CutInSpace, NothingThrownAwayStaysDrawnInAnyView) {
  std::mt19937 random(4711);
  const auto uniform = [&](double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(random);
  };
  for (int round = 0; round < 300; ++round) {
    const KrVistas made = kElevations[round % 4];
    Placing at{uniform(0, 2 * kPi), round % 3 == 0 ? 0.1 : 1.0, {uniform(-5e3, 5e3), uniform(-5e3, 5e3), 0}};
    const double quarter = static_cast<double>(round / 4 % 4) * kPi / 2;
    CutBar master(made, 1000, at.angle, at.start);
    master.setAngleSecao(quarter);
    master.ObjectScale(at.scale, at.scale, at.scale);
    master.Gera_KrVector();
    cutAtRandom(master, random, 1 + round % 4, at);
    const bool standing = round / 4 % 2 == 1;
    for (const KrVistas view : kElevations) {
      CutBar seen(view, master.getComprimentoReal(), at.angle, at.start);
      seen.setAngleSecao(quarter);
      seen.addCortes(master.stored(), 0);
      seen.ObjectScale(at.scale, at.scale, at.scale);
      seen.Gera_KrVector();
      const bool broad = (view == Superior || view == Inferior) != standing;
      const double depth = broad ? 20 : 50;
      EXPECT_EQ(strayPoint(seen, view, quarter, depth, at), "") << "round " << round << ", made in " << made;
      // Neither is more taken away than the planes ask: the bar reaches as far along as any steel does.
      const KrVector reference = seen.line(KR_VT_REFERENCIA);
      const double length = reference.startPoint().distanceTo(reference.endPoint()) / at.scale;
      EXPECT_NEAR(length, master.getComprimentoReal(), 1e-6) << "round " << round << " view " << view;
    }
    EXPECT_EQ(strayPoint(master, made, quarter, (made == Superior || made == Inferior) != standing ? 20 : 50, at), "");
  }
}

TEST(CutInSpace, RegeneratingTwiceEqualsOnce) {
  std::mt19937 random(99);
  for (int round = 0; round < 100; ++round) {
    const KrVistas view = kElevations[round % 4];
    const Placing at{0.37 * round, round % 2 == 0 ? 1.0 : 0.1, {100.0 * round, -37, 0}};
    CutBar bar(view, 1000, at.angle, at.start);
    bar.ObjectScale(at.scale, at.scale, at.scale);
    cutAtRandom(bar, random, 1 + round % 5, at);
    bar.Gera_KrVector();
    const lists::Elements once = lists::of(bar, view);
    bar.Gera_KrVector();
    const lists::Elements twice = lists::of(bar, view);
    ASSERT_EQ(once.size(), twice.size()) << "round " << round;
    for (std::size_t i = 0; i < once.size(); ++i)
      EXPECT_TRUE(lists::same(once[i], twice[i], 1e-7)) << "round " << round;
  }
}

TEST(CutInSpace, SwitchingThroughTheViewsAndBackGivesTheSamePicture) {
  std::mt19937 random(5);
  for (int round = 0; round < 40; ++round) {
    const Placing at{0.3 * round, round % 2 == 0 ? 1.0 : 0.1, {0, 0, 0}};
    CutBar bar(Superior, 1000, at.angle, at.start);
    bar.ObjectScale(at.scale, at.scale, at.scale);
    cutAtRandom(bar, random, 1 + round % 3, at);
    bar.Gera_KrVector();
    const lists::Elements before = lists::of(bar, Superior);
    for (const KrVistas view : {Direita, Inferior, Esquerda, Superior}) bar.switchToVista(view);
    const lists::Elements after = lists::of(bar, Superior);
    ASSERT_EQ(before.size(), after.size()) << "round " << round;
    for (const KrVector& v : before)
      EXPECT_TRUE(
          std::any_of(after.begin(), after.end(), [&](const KrVector& w) { return lists::looksLike(v, w, 1e-6); }))
          << "round " << round;
  }
}

TEST(CutInSpace, ShapesOfTheCatalogueAreCutLikeTheirBox) {
  std::mt19937 random(31);
  for (const samples::Named& shape : samples::catalogueLike()) {
    for (const KrVistas view : kElevations) {
      CutBar bar(view);
      bar.make(shape.outline, view, 1000);
      cutAtRandom(bar, random, 3, {});
      for (int pass = 0; pass < 2; ++pass) {
        // In the view in which they were made the cuts stand square: the depth doesn't matter.
        EXPECT_EQ(strayPoint(bar, view, 0, 0, {}), "") << shape.name;
        bar.Gera_KrVector();
      }
    }
  }
}

}  // namespace
