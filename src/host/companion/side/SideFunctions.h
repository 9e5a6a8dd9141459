#pragma once

class AcDbDatabase;
class AcDbEntity;
class AcDbObjectId;
class AcGePoint3d;
class AcGeVector3d;

/// What the side library exports, under names without decoration.
extern "C" {

/// Appends an entity to the space of `db` that the two system variables tell: model space when `tilemode` is nonzero or
/// `cvport` is above 1 (a viewport is entered), else paper space. Gives the new object's id in `id` and closes the
/// space, not the entity. 1, or 0 with `id` as it was when the space can't be opened or refuses the entity.
int krAppendEntity(AcDbEntity* entity, AcDbDatabase* db, int cvport, int tilemode, AcDbObjectId& id);

/// The point at half the sweep of the arc from p0 to p1, in the XY plane, of a bulge on the scale of 127; a negative
/// bulge turns clockwise from p0 to p1. Z is halfway between the ends. Bulge 0 gives the middle of the chord, equal
/// points give that point.
void krMidArco(const AcGePoint3d& p0, const AcGePoint3d& p1, double bulge, AcGePoint3d& middle);

/// 1 for a contour marker, a bulge from 6000 up to below 7000; else 0.
int krIsBulge6000(double bulge);

/// The angle from the X axis to the vector in the XY plane, from 0 up to below 2 pi; 0 for a vector without length
/// there.
double krOrientacaoVetor(const AcGeVector3d& vector);
}
