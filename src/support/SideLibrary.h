#pragma once

#include "host/os/os.h"

class AcDbDatabase;
class AcDbEntity;
class AcDbObjectId;
class AcGePoint3d;
class AcGeVector3d;

/// The side library and the four functions bound from it by name. Callers use the pointers without a test: the module's
/// start supplies them, and without the library the first call fails hard.
struct SideLibrary {
  HMODULE module = nullptr;
  /// Appends an entity to model or paper space, as CVPORT and TILEMODE tell; nonzero on success.
  int (*krAppendEntity)(AcDbEntity* entity, AcDbDatabase* db, int cvport, int tilemode, AcDbObjectId& id) = nullptr;
  /// Bound with the others; nothing calls it.
  double (*krOrientacaoVetor)(const AcGeVector3d& vector) = nullptr;
  /// The point at half the sweep of an arc, of a bulge on the scale of 127.
  void (*krMidArco)(const AcGePoint3d& p0, const AcGePoint3d& p1, double bulge, AcGePoint3d& middle) = nullptr;
  /// Nonzero for a contour marker.
  int (*krIsBulge6000)(double bulge) = nullptr;
};

/// The module's side library: all null until the module's start.
extern SideLibrary krSideLibrary;
inline SideLibrary& sideLibrary() {
  return krSideLibrary;
}

/// Loads the library from `<install>\Support`, the install folder being the value of KRTRAMA_BRICSV17, or by its bare
/// name when that isn't set, and binds the functions; one that the library lacks stays null. On failure all stay null
/// and the command line says so.
void bindSideLibrary();

/// Sets the library free when it was loaded; the pointers become null.
void releaseSideLibrary();
