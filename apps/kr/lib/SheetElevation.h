#pragma once

#include <vector>

#include "Bom.h"
#include "Job.h"
#include "Painter.h"
#include "host/ge/ge.h"

namespace kr {

/// Where the plane of the members lies on paper: paper = real * scale + offset.
struct Placement {
  double scale = 1;
  JobPoint offset;

  JobPoint operator()(JobPoint real) const { return {real.x * scale + offset.x, real.y * scale + offset.y}; }
};

/// The same as a matrix.
AcGeMatrix3d matrixOf(const Placement& place);

/// What the main dimensions take below the elevation and to its right, mm.
inline constexpr double kDimensionRoom = 30;

/// A line on paper that position numbers keep clear of.
struct Stroke {
  JobPoint a;
  JobPoint b;
  double half = 0;  ///< of its width, mm
};

/// The members as they lie on paper.
std::vector<Stroke> memberStrokes(const Job& job, const Placement& place);

/// What of the dimensions lies near the elevation: extension lines below, and numbers.
std::vector<Stroke> dimensionStrokes(const Job& job, const Placement& place);

/// The distance of a point to the nearest of the lines' edges, mm; negative on a line.
double clearanceOf(JobPoint point, const std::vector<Stroke>& strokes);

/// Writes each member's position number beside it, where it meets neither a member, nor another number, nor one of the
/// lines to `avoid`, if there is such a place.
void drawMarks(Painter& painter, const Job& job, const Bom& bom, const Placement& place,
               const std::vector<Stroke>& avoid);

/// Whether the job has members whose nodes are dimensioned: all but plates.
bool isDimensioned(const Job& job);

/// Draws the main dimensions: below, the span by its nodes on the lowest line and over all; to the right, the heights
/// of the nodes at the end and over all.
void drawDimensions(Painter& painter, const Job& job, const Placement& place);

}  // namespace kr
