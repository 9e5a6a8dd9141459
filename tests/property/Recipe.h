#pragma once

#include <cstdint>
#include <functional>
#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

#include "object/KrObject.h"

/// Random members with random modifiers, told by few numbers: made again from their recipe, and made simpler until no
/// step can be left out of a failure.
namespace property {

inline constexpr KrVistas kElevations[] = {Superior, Inferior, Esquerda, Direita};
inline constexpr KrVistas kSections[] = {Secao, SecaoVerso};

/// One thing done to a member. Places are fractions: `a`, `b` of the bar's first length, `u`, `w` of the width that the
/// view shows.
struct Step {
  enum Kind { Hole, Cut, EdgeNotch, CornerNotch, Split, Limits };
  Kind kind = Hole;
  KrVistas view = Superior;  ///< the view in which it is done
  double a = 0.5;
  double b = 0.5;
  double u = 0.5;
  double w = 0.5;
  double size = 10;     ///< of a hole, of a gap
  double bulge = 0;     ///< of the notch's inner edge
  bool atEnd = false;   ///< which end a cut or a corner notch takes off, in the drawn order
  bool onTop = false;   ///< which long edge a notch lies on
  bool closed = false;  ///< a notch as a closed polygon
};

struct Recipe {
  int profile = 0;
  KrVistas view = Superior;
  int quarter = 0;
  double angle = 0;    ///< of the bar on the sheet
  double scale = 1.0;  ///< at which everything is done
  double x = 0;        ///< where the bar starts
  double y = 0;
  std::vector<Step> steps;
  double axisAlong = 0;  ///< how far the axis line is moved off the reference line at last
  double axisAcross = 0;
};

std::ostream& operator<<(std::ostream& out, const Recipe& recipe);

/// Numbers that are the same everywhere.
class Random {
 public:
  explicit Random(std::uint64_t seed) : state_(seed) {}
  std::uint64_t next();
  int below(int n) { return static_cast<int>(next() % static_cast<std::uint64_t>(n)); }
  double between(double low, double high) {
    return low + (high - low) * static_cast<double>(next() >> 11) / 9007199254740992.0;
  }
  bool oneIn(int n) { return below(n) == 0; }

 private:
  std::uint64_t state_;
};

/// What recipes of a property may hold.
struct Allowed {
  bool splits = true;
  bool limits = true;
  bool notches = true;
  bool arcs = true;  ///< in notches
  bool user = true;  ///< the class that files nothing
  int mostSteps = 6;
};
Recipe randomRecipe(Random& random, const Allowed& allowed);

/// A place on the sheet of a bar that keeps its place there, whatever is done to its ends.
class Sheet {
 public:
  Sheet(const Recipe& recipe, KrVistas view);

  /// Real measures along the bar, from its first start in every view, and to the left of the drawn direction of the
  /// view.
  AcGePoint3d at(double along, double up) const;
  double along(const AcGePoint3d& p) const;
  double up(const AcGePoint3d& p) const;
  AcGeVector3d direction() const { return direction_; }

 private:
  AcGePoint3d start_;
  AcGeVector3d direction_;
  AcGeVector3d left_;
  double scale_;
};

extern const double kBarLength;

/// The bar of a recipe in a view, nothing done to it.
std::unique_ptr<KrObject> plain(const Recipe& recipe, KrVistas view);
/// The same bar seen in another view, at the same place along the sheet, with all that was done to it.
std::unique_ptr<KrObject> seenIn(const Recipe& recipe, const KrObject& member, KrVistas view);
/// Does a step in the member's view; whether the member took it.
bool apply(const Recipe& recipe, const Step& step, KrObject& member);
/// The bar with all steps done in their views, at last in the recipe's view; in `taken` which steps it took.
std::unique_ptr<KrObject> make(const Recipe& recipe, std::vector<bool>* taken = nullptr);

/// The polygon of a notch step in real measures of its view's sheet, closed far outside of the bar where it is open;
/// arcs as chords.
struct Place {
  double along = 0;
  double up = 0;
};
struct NotchPolygon {
  std::vector<Place> points;
  std::vector<double> bulges;
  Place side;
};
/// How far the bar reaches across, in real measures of its view's sheet.
struct Width {
  double low = 0;
  double high = 0;
};
Width widthOf(const Recipe& recipe, const KrObject& member);
NotchPolygon notchOf(const Step& step, const Width& width);
/// Two points of a cut step's line, and one on the side that goes.
struct CutPlaces {
  Place p;
  Place q;
  Place side;
};
CutPlaces cutOf(const Step& step, const Width& width);

/// What a property says of a recipe: nothing, or what is wrong.
using Property = std::function<std::string(const Recipe&)>;
/// Tries a property on many recipes (environment variable KR_PROPERTY_CASES: how many, else `cases`;
/// KR_PROPERTY_FIRST: the first). A failure is made as small as it gets and told.
void hold(const Property& property, const Allowed& allowed, int cases);

}  // namespace property
