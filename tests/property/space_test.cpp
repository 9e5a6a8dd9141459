// What is done to a bar in one view lies in every view where it lies in space.
//
// The bar is a prism: its section along its length. A cut is a half space, square to the view that it was made in; a
// notch is a prism of its polygon along the line of sight, and shows in its view and the one opposite; a split is a
// gap across the bar; a hole is a line through a wall. The test keeps all of them as they were given on the sheet,
// where the bar never moves, and looks from each side at what is drawn.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <sstream>

#include "modifiers/HoleSpace.h"
#include "property/Recipe.h"

namespace {

using namespace property;

/// Real millimetres within which a sample may lie on either side of a bound.
constexpr double kSlack = 0.02;

/// A direction of the upright picture of the section: as far as the drawn up and the viewer of a view go.
struct Looking {
  space::Flat up;
  space::Flat viewer;
};

Looking lookingAt(KrVistas view) {
  const space::Flat viewer = space::towardsViewer(view, 0);
  switch (view) {
    case Superior:
    case Inferior:
      return {{-1, 0}, viewer};
    default:
      return {{0, 1}, viewer};
  }
}

double dot(space::Flat a, space::Flat b) {
  return a.x * b.x + a.y * b.y;
}

bool samePair(KrVistas a, KrVistas b) {
  return (a <= Inferior) == (b <= Inferior);
}

/// The box of a polygon.
struct Reach {
  Place low{std::numeric_limits<double>::infinity(), std::numeric_limits<double>::infinity()};
  Place high{-std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()};

  void extend(const Place& p) {
    low = {std::min(low.along, p.along), std::min(low.up, p.up)};
    high = {std::max(high.along, p.along), std::max(high.up, p.up)};
  }
  bool holds(const Place& p, double margin) const {
    return p.along > low.along - margin && p.along < high.along + margin && p.up > low.up - margin &&
           p.up < high.up + margin;
  }
};

/// A step that the bar took, in real measures of the sheet of its view.
struct Done {
  Step step;
  CutPlaces cut;
  std::vector<Place> polygon;  ///< arcs as chords
  Reach reach;                 ///< of the polygon
  double up = 0;               ///< of a hole
};

std::vector<Place> withChords(const NotchPolygon& n) {
  constexpr int kChords = 200;
  std::vector<Place> points;
  for (std::size_t i = 0; i < n.points.size(); ++i) {
    const Place& p = n.points[i];
    const Place& q = n.points[(i + 1) % n.points.size()];
    points.push_back(p);
    const double bulge = n.bulges[i];
    if (bulge == 0) continue;
    // By the chord's perpendicular bisector: the centre lies to the left of a flat counter-clockwise arc.
    const double dx = q.along - p.along;
    const double dy = q.up - p.up;
    const double toCentre = (1 - bulge * bulge) / (4 * bulge);
    const double cx = (p.along + q.along) / 2 - dy * toCentre;
    const double cy = (p.up + q.up) / 2 + dx * toCentre;
    const double sweep = 4 * std::atan(bulge);
    for (int k = 1; k < kChords; ++k) {
      const double a = sweep * k / kChords;
      const double x = p.along - cx;
      const double y = p.up - cy;
      points.push_back({cx + x * std::cos(a) - y * std::sin(a), cy + x * std::sin(a) + y * std::cos(a)});
    }
  }
  return points;
}

double distanceToSegment(const Place& p, const Place& a, const Place& b) {
  const double dx = b.along - a.along;
  const double dy = b.up - a.up;
  const double l2 = dx * dx + dy * dy;
  double t = l2 == 0 ? 0 : ((p.along - a.along) * dx + (p.up - a.up) * dy) / l2;
  t = std::clamp(t, 0.0, 1.0);
  return std::hypot(p.along - a.along - t * dx, p.up - a.up - t * dy);
}

double distanceToBorder(const Place& p, const std::vector<Place>& polygon) {
  double least = std::numeric_limits<double>::infinity();
  for (std::size_t i = 0; i < polygon.size(); ++i)
    least = std::min(least, distanceToSegment(p, polygon[i], polygon[(i + 1) % polygon.size()]));
  return least;
}

bool isInside(const Place& p, const std::vector<Place>& polygon) {
  bool inside = false;
  for (std::size_t i = 0; i < polygon.size(); ++i) {
    const Place& a = polygon[i];
    const Place& b = polygon[(i + 1) % polygon.size()];
    if ((a.up > p.up) == (b.up > p.up)) continue;
    if (p.along < a.along + (b.along - a.along) * (p.up - a.up) / (b.up - a.up)) inside = !inside;
  }
  return inside;
}

/// The bar as it stands in space, and what of it goes.
class Prism {
 public:
  Prism(const Recipe& recipe, const KrObject& section) : quarter_(recipe.quarter) {
    KrGeratriz outline;
    section.GetSecao(outline);
    contours_ = space::sampled(outline);
    for (const KrVistas view : kElevations) depths_[view] = extent(lookingAt(view).viewer);
  }

  std::vector<Done> done;

  /// How far a point of a line of sight lies on the side of a cut that goes: `fixed` + `perDepth` * depth, which counts
  /// towards the viewer.
  struct Past {
    double fixed;
    double perDepth;
    double at(double depth) const { return fixed + perDepth * depth; }
  };
  static Past pastCut(const Done& d, KrVistas view, const Place& p) {
    // The normal in the plane of the view that the cut was made in, away from what stays.
    double along = d.cut.q.up - d.cut.p.up;
    double up = -(d.cut.q.along - d.cut.p.along);
    const double length = std::hypot(along, up);
    along /= length;
    up /= length;
    const double side = along * (d.cut.side.along - d.cut.p.along) + up * (d.cut.side.up - d.cut.p.up);
    if (side < 0) {
      along = -along;
      up = -up;
    }
    const Looking made = lookingAt(d.step.view);
    const Looking seen = lookingAt(view);
    const double upThere = up * dot(made.up, seen.up);
    return {along * (p.along - d.cut.p.along) - up * d.cut.p.up + upThere * p.up, up * dot(made.up, seen.viewer)};
  }

  /// Whether the cuts together leave nothing of a line of sight, by more than `margin`.
  bool isCutAway(KrVistas view, const Place& p, double margin) const {
    auto [back, front] = depths_[view];
    for (const Done& d : done) {
      if (d.step.kind != Step::Cut) continue;
      const Past past = pastCut(d, view, p);
      if (std::fabs(past.perDepth) < 1e-12) {
        if (past.fixed > margin) return true;
        continue;
      }
      const double bound = (margin - past.fixed) / past.perDepth;
      if (past.perDepth > 0)
        front = std::min(front, bound);
      else
        back = std::max(back, bound);
    }
    return back > front;
  }

  /// Whether a wall that a line of sight passes between two depths lies whole in what a cut takes.
  bool isCutOff(KrVistas view, const Place& p, double back, double front, double margin) const {
    return std::any_of(done.begin(), done.end(), [&](const Done& d) {
      if (d.step.kind != Step::Cut) return false;
      const Past past = pastCut(d, view, p);
      return std::min(past.at(back), past.at(front)) > margin;
    });
  }

  bool isSquare(const Done& d, KrVistas view) const { return d.step.a == d.step.b || samePair(d.step.view, view); }

  /// A place of a view on the sheet of a step's view: the opposite view shows it the other way up.
  static Place onSheetOf(const Done& d, KrVistas view, const Place& p) {
    return {p.along, p.up * dot(lookingAt(d.step.view).up, lookingAt(view).up)};
  }

  /// Whether a place is taken away by more than `margin`.
  bool isTaken(KrVistas view, const Place& p, double margin) const {
    return isCutAway(view, p, margin) || std::any_of(done.begin(), done.end(), [&](const Done& d) {
             if (d.step.kind == Step::Split)
               return std::fabs(p.along - d.step.a * kBarLength) < d.step.size / 2 - margin;
             if (d.polygon.empty() || !samePair(d.step.view, view)) return false;
             const Place q = onSheetOf(d, view, p);
             if (!d.reach.holds(q, std::fabs(margin))) return false;
             const double far = distanceToBorder(q, d.polygon);
             return (isInside(q, d.polygon) ? far : -far) > margin;
           });
  }

  /// Whether a notch that this view doesn't show reaches over a place.
  bool isBesideNotch(KrVistas view, const Place& p) const {
    return std::any_of(done.begin(), done.end(), [&](const Done& d) {
      if (d.polygon.empty() || samePair(d.step.view, view)) return false;
      return p.along > d.reach.low.along - 1 && p.along < d.reach.high.along + 1;
    });
  }

  /// Whether a place lies on an edge that one of the steps makes, in a view on which all cuts stand square.
  bool isOnNewEdge(KrVistas view, const Place& p) const {
    return std::any_of(done.begin(), done.end(), [&](const Done& d) {
      if (d.step.kind == Step::Cut) return std::fabs(pastCut(d, view, p).fixed) < kSlack;
      if (d.step.kind == Step::Split)
        return std::fabs(std::fabs(p.along - d.step.a * kBarLength) - d.step.size / 2) < kSlack;
      if (d.polygon.empty() || !samePair(d.step.view, view)) return false;
      return distanceToBorder(onSheetOf(d, view, p), d.polygon) < kSlack;
    });
  }

  const std::vector<std::vector<space::Flat>>& contours() const { return contours_; }

 private:
  /// The extent of the section along a direction of its upright picture.
  std::pair<double, double> extent(space::Flat direction) const {
    const space::Flat d = space::turned(direction, -quarter_ * space::kQuarter);
    double low = std::numeric_limits<double>::infinity();
    double high = -low;
    for (const auto& contour : contours_) {
      for (const space::Flat& p : contour) {
        low = std::min(low, dot(p, d));
        high = std::max(high, dot(p, d));
      }
    }
    return {low, high};
  }

  int quarter_;
  std::vector<std::vector<space::Flat>> contours_;
  std::pair<double, double> depths_[5];  ///< by view: how far the section reaches from and to the viewer
};

/// A bar done as its recipe tells, with what it took.
struct Work {
  explicit Work(const Recipe& recipe) : member(plain(recipe, recipe.view)), prism(recipe, *member) {
    for (const Step& step : recipe.steps) {
      if (member->Vista(0) != step.view) member = seenIn(recipe, *member, step.view);
      const Width width = widthOf(recipe, *member);
      Done d{step, {}, {}, {}, width.low + step.u * (width.high - width.low)};
      if (step.kind == Step::Cut) d.cut = cutOf(step, width);
      if (step.kind == Step::EdgeNotch || step.kind == Step::CornerNotch) d.polygon = withChords(notchOf(step, width));
      for (const Place& p : d.polygon) d.reach.extend(p);
      if (apply(recipe, step, *member)) prism.done.push_back(d);
      member->Gera_KrVector();
    }
  }
  std::unique_ptr<KrObject> member;
  Prism prism;
};

/// The drawn steel lines of a list in real measures of a sheet.
struct Stretch {
  Place p;
  Place q;
  int samples;
};

/// Of a straight line. A chord of an arc is as good as one.
constexpr int kSamples = 23;

/// With the bands of holes seen edge on, if asked.
std::vector<Stretch> steelOf(const KrObject& member, const Sheet& sheet, bool withBands = false) {
  /// How far a chord lies at most off its arc: no sample leaves what bounds it.
  constexpr double kSagitta = 0.2 * kSlack;
  std::vector<Stretch> all;
  const auto placed = [&](const AcGePoint3d& p) { return Place{sheet.along(p), sheet.up(p)}; };
  const KrObjectArray<KrVector>& list = member.currentVertexList(VistaCorrente);
  for (int i = 0; i < list.length(); ++i) {
    const KrVector& v = list[i];
    if (v.hidden() != 0) continue;
    const bool isBand = withBands && v.type() == KR_VT_FURO_LINHA;
    if (isBand || v.type() == KR_VT_LINHA || v.type() == KR_VT_LINHA_OCULTA) {
      all.push_back({placed(v.startPoint()), placed(v.endPoint()), kSamples});
    } else if (v.type() == KR_VT_ARCO || v.type() == KR_VT_ARCO_OCULTO) {
      // Through its three points; straight where they are in line.
      if (std::fabs((v.midPoint() - v.startPoint()).crossProduct(v.endPoint() - v.startPoint()).z) < 1e-9) {
        all.push_back({placed(v.startPoint()), placed(v.endPoint()), kSamples});
        continue;
      }
      const AcGeCircArc3d arc(v.startPoint(), v.midPoint(), v.endPoint());
      const double sweep = arc.endAng() - arc.startAng();
      const Place centre = placed(arc.center());
      const Place start = placed(v.startPoint());
      const double radius = std::hypot(start.along - centre.along, start.up - centre.up);
      AcGePoint3d from = v.startPoint();
      const int chords = 1 + static_cast<int>(std::fabs(sweep) / std::sqrt(8 * kSagitta / radius));
      for (int k = 1; k <= chords; ++k) {
        const AcGePoint3d to = arc.evalPoint(arc.startAng() + sweep * k / chords);
        all.push_back({placed(from), placed(to), 1});
        from = to;
      }
    }
  }
  return all;
}

template <class Visit>
void forEachSample(const Stretch& s, Visit visit) {
  for (int k = 0; k < s.samples; ++k) {
    const double t = (k + 0.5) / s.samples;
    visit(Place{s.p.along + (s.q.along - s.p.along) * t, s.p.up + (s.q.up - s.p.up) * t});
  }
}

bool isDrawn(const std::vector<Stretch>& all, const Place& p, double tol) {
  return std::any_of(all.begin(), all.end(), [&](const Stretch& s) { return distanceToSegment(p, s.p, s.q) < tol; });
}

std::string told(const char* what, KrVistas view, const Place& p) {
  std::ostringstream text;
  text << what << " in view " << view << " at " << p.along << ", " << p.up;
  return text.str();
}

const Allowed kWithoutLimits{.limits = false};

TEST(Space, NothingThatIsTakenAwayRemainsDrawn) {
  hold(
      [](const Recipe& recipe) {
        const Work work(recipe);
        std::string wrong;
        for (const KrVistas view : kElevations) {
          const auto other = seenIn(recipe, *work.member, view);
          for (const Stretch& s : steelOf(*other, Sheet(recipe, view), true)) {
            forEachSample(s, [&](const Place& p) {
              if (!wrong.empty()) return;
              if (!work.prism.isTaken(view, p, kSlack)) return;
              wrong = told("drawn though taken away", view, p);
            });
          }
        }
        return wrong;
      },
      kWithoutLimits, 300);
}

TEST(Space, WhatStaysIsDrawnAsBefore) {
  hold(
      [](const Recipe& recipe) {
        const Work work(recipe);
        std::string wrong;
        for (const KrVistas view : kElevations) {
          const Sheet sheet(recipe, view);
          const auto before = plain(recipe, view);
          const auto other = seenIn(recipe, *work.member, view);
          const std::vector<Stretch> drawn = steelOf(*other, sheet);
          for (const Stretch& s : steelOf(*before, sheet)) {
            forEachSample(s, [&](const Place& p) {
              if (!wrong.empty() || work.prism.isTaken(view, p, -0.5)) return;
              if (work.prism.isBesideNotch(view, p) || isDrawn(drawn, p, kSlack)) return;
              wrong = told("missing though nothing took it", view, p);
            });
          }
        }
        return wrong;
      },
      kWithoutLimits, 300);
}

TEST(Space, WhatIsNewLiesOnTheEdgesThatWereMade) {
  hold(
      [](const Recipe& recipe) {
        const Work work(recipe);
        // Where planes stand askew to the view, silhouettes meet that no plane makes alone.
        const auto isAskew = [&](KrVistas view) {
          return std::any_of(work.prism.done.begin(), work.prism.done.end(),
                             [&](const Done& d) { return d.step.kind == Step::Cut && !work.prism.isSquare(d, view); });
        };
        std::string wrong;
        for (const KrVistas view : kElevations) {
          if (isAskew(view)) continue;
          const Sheet sheet(recipe, view);
          const std::vector<Stretch> before = steelOf(*plain(recipe, view), sheet);
          for (const Stretch& s : steelOf(*seenIn(recipe, *work.member, view), sheet)) {
            forEachSample(s, [&](const Place& p) {
              if (!wrong.empty() || isDrawn(before, p, kSlack) || work.prism.isOnNewEdge(view, p)) return;
              if (work.prism.isBesideNotch(view, p)) return;
              wrong = told("drawn where nothing is", view, p);
            });
          }
        }
        return wrong;
      },
      kWithoutLimits, 300);
}

/// Where a sight starts, towards the viewer from the bar.
constexpr double kFar = 1e4;

/// The walls along a line of sight of a view at a height of its sheet, from the viewer.
std::vector<space::Wall> wallsSeen(const Recipe& recipe, const Prism& prism, KrVistas view, double up) {
  const Looking look = lookingAt(view);
  const space::Flat from{look.up.x * up + look.viewer.x * kFar, look.up.y * up + look.viewer.y * kFar};
  const double back = -recipe.quarter * space::kQuarter;
  return space::wallsAlong(prism.contours(), space::turned(from, back),
                           space::turned({-look.viewer.x, -look.viewer.y}, back));
}

/// Where a drawn hole may have its centre. An oblong that a cut passes is shortened to it: its other end tells.
std::vector<AcGePoint3d> centresOf(const KrVector& hole, double stretch) {
  std::vector<AcGePoint3d> centres{hole.midPoint()};
  const AcGeVector3d along = hole.endPoint() - hole.startPoint();
  if (hole.tipo() != KR_VF_FURO_OBLONGO || along.isZeroLength()) return centres;
  centres.push_back(hole.startPoint() + along.normal() * (stretch / 2));
  centres.push_back(hole.endPoint() - along.normal() * (stretch / 2));
  return centres;
}

TEST(Space, AHoleThroughAllWallsShowsFromBothSidesWhereItIsDrilled) {
  hold(
      [](const Recipe& recipe) {
        const Work work(recipe);
        std::string wrong;
        for (const Done& d : work.prism.done) {
          if (d.step.kind != Step::Hole) continue;
          for (const KrVistas view : kElevations) {
            if (!samePair(view, d.step.view)) continue;
            const Place place = Prism::onSheetOf(d, d.step.view, {d.step.a * kBarLength, d.up});
            const Place p{place.along, place.up * dot(lookingAt(d.step.view).up, lookingAt(view).up)};
            const std::vector<space::Wall> walls = wallsSeen(recipe, work.prism, view, p.up);
            // The sight grazes a face or an arc: no wall to speak of.
            if (walls.empty() || walls.front().out - walls.front().in < 1) continue;
            const auto isTaken = [&](double margin) {
              return work.prism.isTaken(view, p, margin) ||
                     work.prism.isCutOff(view, p, kFar - walls.front().out, kFar - walls.front().in, margin);
            };
            // Beside a bound its place decides by a hair.
            if (isTaken(-0.5) != isTaken(0.5)) continue;
            const bool stays = !isTaken(0.5);
            const Sheet sheet(recipe, view);
            const auto other = seenIn(recipe, *work.member, view);
            const KrObjectArray<KrVector>& list = other->currentVertexList(VistaCorrente);
            bool shows = false;
            for (int i = 0; i < list.length(); ++i) {
              const KrVector& v = list[i];
              if (v.type() != KR_VT_FURO || v.hidden() != 0) continue;
              for (const AcGePoint3d& centre : centresOf(v, recipe.scale * d.step.size))
                shows = shows || std::hypot(sheet.along(centre) - p.along, sheet.up(centre) - p.up) < kSlack;
            }
            if (shows != stays && wrong.empty()) wrong = told(shows ? "a hole too many" : "a hole missing", view, p);
          }
        }
        return wrong;
      },
      kWithoutLimits, 300);
}

TEST(Space, AHoleShowsInBothSectionsAcrossItsWalls) {
  hold(
      [](const Recipe& recipe) {
        const Work work(recipe);
        std::string wrong;
        for (const KrVistas view : kSections) {
          const auto section = seenIn(recipe, *work.member, view);
          const KrObjectArray<KrVector>& list = section->currentVertexList(VistaCorrente);
          int bands = 0;
          int lines = 0;
          for (int i = 0; i < list.length(); ++i) {
            bands += list[i].type() == KR_VT_FURO_LINHA ? 1 : 0;
            lines += list[i].type() == KR_VT_FURO_EIXO ? 1 : 0;
          }
          if (bands != section->numFuros() || lines != section->numFuros())
            wrong = "a section shows " + std::to_string(bands) + " of " + std::to_string(section->numFuros());
          if (section->numFuros() != work.member->numFuros()) wrong = "a section lost a hole";
        }
        return wrong;
      },
      kWithoutLimits, 200);
}

}  // namespace
