#pragma once

#include <span>
#include <vector>

#include "object/KrObject.h"

/// Elevations drawn line by line from a class's dimensions, without its outline.
///
/// They serve clients that want a quick picture: the drawn views always come from the outline. A section turned by
/// anything but a whole number of right angles, compared exactly, shows its axis alone.
namespace HandMadeElevation {

/// A line along the bar.
struct Line {
  double offset;  ///< from the start point, positive to the left of the bar's direction
  bool hidden = false;
};

/// An edge along the bar as the section has it.
struct Edge {
  double at;             ///< across the section, from its reference
  bool hiddenFromPlus;   ///< seen from the positive side of the other axis
  bool hiddenFromMinus;  ///< seen from its negative side
};

/// The edges of a section that isn't turned.
struct Edges {
  std::vector<Edge> acrossX;  ///< as seen from above (plus) and below (minus)
  std::vector<Edge> acrossY;  ///< as seen from the right (plus) and the left (minus)
};

/// The whole right angles of a section's turn, 0 to 3; -1 for any other turn. Compared exactly.
int quarterTurns(double angleSecao);

/// Clears the list of an elevation and draws the axis; then the lines, and the two ends between the outermost ones.
void fill(KrObject& bar, KrVistas vista, std::span<const Line> lines);
/// The same with the lines that the section's edges show in that view.
void fill(KrObject& bar, KrVistas vista, const Edges& edges);

}  // namespace HandMadeElevation
