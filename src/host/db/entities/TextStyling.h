#pragma once

#include "host/db/AcDbExtents.h"
#include "host/db/AcDbObjectId.h"
#include "host/gi/gi.h"

class AcDbDatabase;

namespace entities {

/// The lettering of a text style (the standard one for a null id) with a text's own height and slant.
AcGiTextStyle styleFor(AcDbObjectId style, double height, double widthFactor, double oblique);

/// The box of a text in that lettering, lying along X from the origin.
void textBox(const AcGiTextStyle& style, const std::wstring& text, AcGePoint2d& low, AcGePoint2d& high);

/// The name of a text style, "STANDARD" for a null id; and the style of a name in a database, null when there is none.
std::wstring styleName(AcDbObjectId style);
AcDbObjectId styleNamed(AcDbDatabase* database, const ACHAR* name);

/// The block, and the dimension style, of a name in a database (the working one for null); null when there is none.
AcDbObjectId blockNamed(AcDbDatabase* database, const ACHAR* name);
AcDbObjectId dimStyleNamed(AcDbDatabase* database, const ACHAR* name);
/// The name of any record; `otherwise` for an id that is none's.
std::wstring recordName(AcDbObjectId record, const ACHAR* otherwise = L"");

/// Grows the extents by the box laid out by a frame.
void addBox(AcDbExtents& extents, const AcGeMatrix3d& frame, const AcGePoint2d& low, const AcGePoint2d& high);

}  // namespace entities
