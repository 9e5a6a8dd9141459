#pragma once

#include "object/KrObject.h"

/// A walk round a section: each step leaves a node in an outline and the same edge as a drawn element in the section's
/// list of a bar.
///
/// Nodes are counted from the bar's start point, in the section's plane, the section not yet turned; millimetres and
/// radians. A node stands where a step begins and carries that step's bulge.
///
/// Example: `SectionWalk walk(bar, nodes); walk.line(0, 10); walk.line(kPi, 10); walk.finish();` leaves three nodes.
class SectionWalk {
 public:
  /// Stands at `from`; `turn` is added to the direction of every step.
  SectionWalk(KrObject& bar, KrGeratriz& nodes, const AcGeVector3d& from = AcGeVector3d::kIdentity, double turn = 0.0)
      : bar_(bar), nodes_(nodes), at_(from), turn_(turn) {}

  /// A straight step; a negative length goes backwards.
  void line(double direction, double length);
  /// A fillet of `radius` between two directions: on along `in` by `tangent` to the corner that it rounds, and from
  /// there along `out` by as much.
  void arc(double in, double out, double tangent, double radius, double bulge);
  /// Where the walk ends is a node too.
  void finish() { nodes_.Add(at_, 0.0); }

 private:
  AcGePoint3d drawn(const AcGeVector3d& node) const { return bar_.startPoint() + node; }

  KrObject& bar_;
  KrGeratriz& nodes_;
  AcGeVector3d at_;
  double turn_;
};

/// A channel with sloped flanges, its back upwards from where the walk stands: 13 nodes, the last over the first.
struct ChannelWalk {
  double Altura;     ///< height
  double Largura;    ///< width of the flanges
  double Espessura;  ///< thickness of the web
  double DeslocF;    ///< from a flange's outer face to the end of the root fillet on the web
  double RaioDobra;  ///< root fillet
  double Raio1;      ///< toe fillet

  void walk(SectionWalk& section) const;
};

/// An angle, from the toe of its upright leg over the heel at the top left: 8 nodes, the last over the first.
struct AngleWalk {
  double Altura;     ///< length of the upright leg
  double Largura;    ///< length of the lying leg
  double Espessura;  ///< thickness of both, and radius of their toes
  double RaioDobra;  ///< fillet of the inner corner

  void walk(SectionWalk& section) const;
};

/// How the second half of a compound section lies to the first.
enum class OtherHalf {
  kMirrored,         ///< mirrored in the upright through the reference
  kMirroredReverse,  ///< the same, its nodes in reverse order, so that both halves run one way round
  kTurned            ///< turned by half a turn about the reference
};

/// Adds both halves of a compound section to an outline, with a contour's end between them and the reference node
/// behind, and the second half's drawn elements to those of the first, which stand in the bar's section list.
void addHalves(KrObject& bar, KrGeratriz& outline, const KrGeratriz& half, const AcGeVector3d& reference,
               OtherHalf other);

/// Maps the drawn elements of a bar's section list.
void moveSectionElements(KrObject& bar, const AcGeMatrix3d& map);
