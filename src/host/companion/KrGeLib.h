#pragma once

#include "host/ge/ge.h"
#include "host/rx/AcArray.h"

// Operations on polygons of the plane and sorts of points.
//
// A polygon is a chain of edges: pontos and bulges have one length n, and edge i runs from point i to point i + 1 with
// bulge i, the tangent of a quarter of its sweep, positive counter-clockwise; a bulge no larger than the global point
// tolerance makes it straight. There are n - 1 edges: a closed polygon repeats its first point as its last, whose bulge
// isn't looked at, and no edge is added to a chain that is left open. Edges of no length are passed over. Missing
// bulges count as 0.

/// Makes one curve for each edge and appends it to curvas as an opaque pointer; an edge of no length gives a curve that
/// is a point. Each curve belongs to the caller until deleteCurves. Returns the count of curves made.
int createCurves(const AcArray<AcGePoint2d>& pontos, const AcArray<double>& bulges, AcArray<void*>& curvas);

/// Frees the curves. The array itself stays as it is.
void deleteCurves(const AcArray<void*>& curvas);

/// 1 when p lies on one of the curves, within the global point tolerance; else 0. It is no test for inside.
int contains(const AcGePoint2d& p, const AcArray<void*>& curvas);

/// Appends the points where the line, ray or segment meets the edges, touches and ends included, each point once,
/// in the order of the edges. Where an edge runs along the line, the points are those ends of it that the line holds.
/// Returns how many were appended.
int intersectWith(const AcGeLinearEnt2d& l, const AcArray<AcGePoint2d>& pontos, const AcArray<double>& bulges,
                  AcArray<AcGePoint2d>& saida);
/// The same for an arc.
int intersectWith(const AcGeCircArc2d& a, const AcArray<AcGePoint2d>& pontos, const AcArray<double>& bulges,
                  AcArray<AcGePoint2d>& saida);

/// Appends the true crossings of the line, ray or segment with the polygon, in the order of the edges: each place where
/// the polygon passes from one side of the line to the other, once. A vertex on the line counts once when the polygon
/// passes over there; a stretch along the line that the polygon enters from one side and leaves to the other counts
/// once, at its beginning; a touch counts as none, and so does an end of a ray or segment on the polygon, and an end of
/// an open chain on the line. So for a closed polygon the parity tells whether the ends of a segment, neither of which
/// lies on it, are on one side. What lies within the global point tolerance of the line lies on it. Returns how many
/// were appended.
int intersectWith2dFence(const AcGeLinearEnt2d& l, const AcArray<AcGePoint2d>& pontos, const AcArray<double>& bulges,
                         AcArray<AcGePoint2d>& saida);

/// Sorts by the projection on d, ascending.
void QuickSort(AcArray<AcGePoint2d>& p, const AcGeVector2d& d);
/// Sorts the points from primeiro to ultimo, both included, by the coordinate eixo (0 x, 1 y, 2 z), ascending.
void QuickSort(AcGePoint2d* p, int primeiro, int ultimo, int eixo);
void QuickSort(AcGePoint3d* p, int primeiro, int ultimo, int eixo);
/// Sorts the first n points by the projection on d, ascending.
void QuickSort(AcGePoint3d* p, int n, const AcGeVector3d& d);
/// Sorts by the angle about centro, in the order in which they are met when one sets out at anguloInicial (radians from
/// the X axis) and turns clockwise for a horario other than 0, counter-clockwise for 0. A point within the global point
/// tolerance behind the start counts as met at the start.
void QuickSortAngular(const AcGePoint2d& centro, double anguloInicial, AcArray<AcGePoint2d>& p, int horario);

/// The angle brought into one full turn, from 0 to below 2 pi.
double GetAngle(double angulo);
