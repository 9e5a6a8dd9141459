#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "host/io/Report.h"
#include "host/rx/ErrorStatus.h"

class AcDbDatabase;

/// Drawings as ASCII DXF of version AC1015.
namespace krio {

/// Whether the bytes look like a DXF of either form (the binary form can be told, not read).
bool isDxf(std::span<const std::byte> bytes);

/// Reads a drawing into `db`, a new database without default contents (AcDbDatabase(false)). Handles are kept; what the
/// file lacks of the objects that every drawing has is made. What no class takes is kept as a proxy with its groups and
/// its picture, and named in the report. Files of other versions are read as far as their groups are understood.
///
/// The bytes may be anything. Without `recover` the first fault ends the reading: eInvalidInput (or another status that
/// tells the fault), the report's last finding names the line, and the database is to be thrown away. With it what can
/// be read is read and the report lists what was mended or lost.
Acad::ErrorStatus readDxf(std::span<const std::byte> bytes, AcDbDatabase& db, Report& report,
                          const ReadOptions& options = {});

/// Writes the whole drawing; `out` is replaced. Real numbers are written with the fewest digits that read back as the
/// same number, and the same drawing gives the same bytes.
Acad::ErrorStatus writeDxf(AcDbDatabase& db, std::vector<std::byte>& out, Report& report);

}  // namespace krio
