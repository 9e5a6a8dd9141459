#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "host/db/db.h"
#include "host/io/Report.h"

// Drawing files of the R2000 family (version tag AC1015) in their binary form.

namespace krio {

/// Whether the bytes begin as such a file.
bool isDwg(std::span<const std::byte> bytes);

/// Reads a file into a new database without default contents. Handles stay what they are in the file. An object of a
/// class that isn't there, or whose class refuses it, becomes a proxy and is kept whole.
///
/// eUnknownDwgVersion for other bytes. eDwgObjectImproperlyRead for an object that is damaged, eDwgNeedsRecovery for
/// another fault: the report's last error tells which and where, and the database is of no use then. With
/// `options.recover` faults are warnings as far as anything can be read, and eDwgNeedsRecovery is left for a file in
/// which no drawing is to be found.
Acad::ErrorStatus readDwg(std::span<const std::byte> bytes, AcDbDatabase& db, Report& report,
                          const ReadOptions& options = {});

/// Writes the drawing as a new file; erased objects are left out. The same drawing always gives the same bytes. What a
/// file can't hold (a text too long) is cut and told in the report.
Acad::ErrorStatus writeDwg(AcDbDatabase& db, std::vector<std::byte>& out, Report& report);

}  // namespace krio
