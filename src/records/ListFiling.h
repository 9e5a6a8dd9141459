#pragma once

#include "host/rx/rx.h"

class AcDbDwgFiler;
class AcDbDxfFiler;

/// The counted form in which a `KrObjectArray` files itself, apart from the type of its values.
namespace ListFiling {

/// Writes the number of values that follow: an Int32, or group 90.
void writeCount(AcDbDwgFiler* filer, int count);
void writeCount(AcDbDxfFiler* filer, int count);

/// Reads the number of values that follow.
int readCount(AcDbDwgFiler* filer);

/// Reads the number of values that follow from group 90. On any other group the item goes back to the filer and the
/// result is `Acad::eInvalidResBuf`.
Acad::ErrorStatus readCount(AcDbDxfFiler* filer, int& count);

/// The filer's own status.
Acad::ErrorStatus status(AcDbDwgFiler* filer);
Acad::ErrorStatus status(AcDbDxfFiler* filer);

}  // namespace ListFiling
