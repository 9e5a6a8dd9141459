#pragma once

#include "host/ge/ge.h"

/// Bulges and sides of chords: the measures that outlines and elements rest on.

/// The unit of an outline's bulge: the tangent of a quarter of the included angle counts 127, as in the host's shape
/// codes.
inline constexpr double kBulgeUnit = 127.0;

/// The bulge, in units of kBulgeUnit, of an arc between two edges that enclose angulo (radians): it turns through pi
/// less angulo. Negative for sentido 1. 0 where the edges go straight on.
double Calcula_Bulge(double angulo, int sentido);

/// Back from a bulge, in units of kBulgeUnit, over a chord: the radius, in the chord's unit, and the included angle in
/// radians, both positive whatever the bulge's sign.
void Calcula_Bulge(double bulge, double corda, double& raio, double& angulo);

/// 1 when a and b lie on the same side of the line through p1 and p2, 0 when not. The measure is the angle from p1 to
/// the feet of a and b on the line through p1 square to the chord: two feet at one angle, to 0.01, are on one side. A
/// point on the line has its foot in p1 itself, at angle 0, and so counts with a point on the line and with the side of
/// a chord whose square points along the X axis. Equal p1 and p2 count as a chord along the X axis. Z is left out.
int toEqualSide(const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& a, const AcGePoint3d& b);
