#pragma once

#include <cstdint>
#include <span>

#include "object/KrObject.h"

/// \file
/// What the classes share whose section is told by the line through the middle of the metal: the walk along a folded
/// strip, the two single profiles that the compound ones are made of, and the filing of the line. Millimetres, radians.

inline constexpr double kRightAngle = 1.5707963267948966;

/// A lip at the end of a flange: its length over everything, and the inner angle of the bend between. A positive length
/// turns the lip to the class's one side, a negative one to the other, 0 means no lip.
struct FoldedLip {
  double enrig = 0.0;
  double angle = kRightAngle;
};

/// A walk along the middle of a strip that is folded with one inner radius. Each step leaves a node where it begins; a
/// step of no length leaves none, so that every edge of the line has a direction. Flat runs and bends meet in tangents.
///
/// Example: `FoldedStrip s(line, 3, 3); s.begin(o, 0); s.straight(60 - s.setBack(a)); s.bend(a, FoldedStrip::kLeft);`
/// is a leg of 60, measured from its end to the outer face of the next.
class FoldedStrip {
 public:
  enum Turn { kRight, kLeft };

  FoldedStrip(KrGeratriz& line, double espessura, double raio) : line_(line), espessura_(espessura), raio_(raio) {}

  /// How far a bend's tangent point lies from the outer corner that the bend rounds: |tan((pi - angle) / 2)| times the
  /// outer radius, but not more than the outer radius.
  double setBack(double angle) const;
  /// The same of the bend before a lip; 0 without a lip.
  double setBack(const FoldedLip& lip) const { return lip.enrig == 0.0 ? 0.0 : setBack(lip.angle); }

  /// Stands at a flange's end, the middle of the metal there, and looks along the flange.
  void begin(const AcGeVector3d& end, double heading);
  /// The same with a lip before, walked from its free end: a positive lip turns to `turn` into the flange. The lip's
  /// outer face is where the flange would end.
  void begin(const AcGeVector3d& end, double heading, const FoldedLip& lip, Turn turn);
  /// A flat run; a negative length goes backwards.
  void straight(double length);
  /// A bend of an inner angle: the heading turns by pi less the angle.
  void bend(double angle, Turn turn);
  /// A lip behind a flange, to its free end: a positive one turns to `turn`.
  void endLip(const FoldedLip& lip, Turn turn);
  /// Ends the line where the walk stands, and puts the section's origin behind it.
  void finish(const AcGeVector3d& origin);

 private:
  struct Arc {
    double bulge;
    double turned;       ///< by how much the heading turns, positive to the left
    AcGeVector3d chord;  ///< from its start to its end
  };
  Arc arcFrom(double heading, double angle, Turn turn) const;
  static Turn turnOf(const FoldedLip& lip, Turn turn);

  KrGeratriz& line_;
  double espessura_;
  double raio_;
  AcGeVector3d at_;
  double heading_ = 0.0;
};

/// A channel, with or without lips, its open side towards +X: from the lower flange's toe at X 0, the flange's middle
/// at Y 0, to the web and back. The section's origin is the middle of its box.
struct FoldedChannel {
  double altura;
  double mesa1;  ///< lower flange
  double mesa2;  ///< upper flange
  double espessura;
  double raio;
  double ang_int1;
  double ang_int2;
  double enrig;

  void write(KrGeratriz& line) const;
};

/// An angle, with or without lips at both legs: upright leg `aba1` from Y 0 with its middle at X 0, heel at the top
/// left, leg `aba2` to the right.
struct FoldedAngle {
  double aba1;
  double aba2;
  double espessura;
  double raio;
  double ang_int;
  double enrig;

  /// Returns the node at which the bend of the heel begins.
  int write(KrGeratriz& line) const;
};

namespace MiddleLine {

/// Writes a compound section: a half, which ends in the marker of a wall of `espessura`, its mirror image in the
/// upright through `origin`, and the origin.
void writeHalves(KrGeratriz& line, KrGeratriz& half, const AcGeVector3d& origin, double espessura);

/// Thickens a line to the bar's outline and regenerates the view shown. A line that has lost its origin, as one read
/// from DXF has, leaves the outline as it stands.
void thicken(KrObject& bar, KrGeratriz& line, double espessura);

/// Gives a bar that was filed without an outline the one of its line; nothing happens where one stands, or without a
/// line with its origin. Nothing is regenerated.
void restoreOutline(KrGeratriz& outline, const KrGeratriz& line, double espessura);

/// Thickness and developed length of each strip of a line, in turn.
AcArray<double> strips(const KrGeratriz& line, double espessura);

/// Files the line: the number of counted nodes, then every node with the one that holds the origin.
void writeNodes(AcDbDwgFiler* filer, const KrGeratriz& line);
/// Whether a count of 0 is followed by the origin's node all the same, or by nothing.
enum WithoutCount : bool { kNoneWithoutCount = false, kOriginWithoutCount = true };
/// Reads the line back in the place of what it held. Stops where the filer does; more nodes than a line can count end
/// in `Acad::eInvalidInput` in the filer. The filer's status.
Acad::ErrorStatus readNodes(AcDbDwgFiler* filer, KrGeratriz& line, WithoutCount without = kOriginWithoutCount);

/// Files in DXF: the class's subclass marker, group 40 with the marker of a version, group 170, a group 40 per
/// parameter, and the line: group 90, and 210 and 40 per counted node. The origin's node isn't filed.
Acad::ErrorStatus writeGroups(AcDbDxfFiler* filer, const ACHAR* className, std::int16_t versao,
                              std::span<const double* const> parametros, const KrGeratriz& line);
/// Reads them back in strict order; a wrong group, a version other than 1, or more nodes than a line can count end the
/// reading with `Acad::eInvalidDxfCode` in the filer. The parameters ahead of that stay; a refused version isn't taken,
/// and the line only whole. Without the subclass marker nothing is read. The filer's status.
Acad::ErrorStatus readGroups(AcDbDxfFiler* filer, const ACHAR* className, std::int16_t& versao,
                             std::span<double* const> parametros, KrGeratriz& line);

}  // namespace MiddleLine
