#pragma once

#include "host/db/db.h"

/// Hears of the members that enter a drawing and are erased from it, in every database that the module knows. The
/// module has one, added to each database.
class KrAcDbDatabaseReactor : public AcDbDatabaseReactor {};
