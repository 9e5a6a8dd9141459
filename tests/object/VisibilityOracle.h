#pragma once

#include <string>
#include <vector>

/// An independent judge of elevations: which lines a section shows from above, decided by casting vertical rays over
/// the outline with its arcs sampled finely. Shares nothing with the generator but the meaning of an outline.
namespace oracle {

/// A vertex and the edge that starts there. `bulge` is the tangent of a quarter of the included angle, positive
/// anticlockwise.
struct Vertex {
  double x;
  double y;
  double bulge = 0;
};

/// A closed contour; the last edge runs back to the first vertex.
using Contour = std::vector<Vertex>;
using Outline = std::vector<Contour>;

/// A line of the view at a section X.
struct Line {
  double x;
  bool visible;
};

/// What an elevation shows: the sides of its rectangles, and the lines between.
struct View {
  std::vector<double> sides;
  std::vector<Line> lines;
};

/// Judges an outline looked at along -Y.
View look(const Outline& outline);

/// Whether two views show the same to the tolerance of drawing (0.01): every line of one stands in the other, of the
/// same kind. Where two edges lie within `blur` of each other, either judgement passes.
bool same(const View& a, const View& b, std::string* why = nullptr);

/// The outline as text, one vertex a row, for failure messages.
std::string text(const Outline& outline);

/// The outline turned about the origin, mirrored in the Y axis, moved.
Outline turned(const Outline& outline, double angle);
Outline mirrored(const Outline& outline);

/// Signed area, positive for an anticlockwise contour; arcs exact.
double area(const Contour& contour);

}  // namespace oracle
