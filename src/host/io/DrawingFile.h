#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/io/Report.h"
#include "host/os/ReplaceFile.h"
#include "host/rx/ErrorStatus.h"

class AcDbDatabase;

// Drawings as files: which format a file is of, reading it, and saving one so that no drawing is ever lost.

namespace krio {

enum class DrawingFormat { Dwg, Dxf };

/// "DWG" or "DXF".
std::string_view nameOf(DrawingFormat format);
/// The format that the ending of a path names, in any case of letters; none for another ending.
std::optional<DrawingFormat> formatByEnding(std::string_view path);
/// The format that a file's bytes are of, by how they begin: of any version.
std::optional<DrawingFormat> formatByContents(std::span<const std::byte> bytes);
/// Whether a reader knows the format and version that the bytes claim: what a reading could make something of.
bool isReadable(std::span<const std::byte> bytes);
/// The version that a drawing's bytes claim, "AC1015"; empty when they name none.
std::string versionOf(std::span<const std::byte> bytes);

/// Reads a drawing of either format, told by its bytes, into a new database without default contents
/// (AcDbDatabase(false)). eUnknownDwgVersion for bytes of neither format, else as the format's reader. After a failure
/// the database is of no use.
Acad::ErrorStatus readDrawing(std::span<const std::byte> bytes, AcDbDatabase& db, Report& report,
                              const ReadOptions& options = {});

/// Whether each entity that a block of the one drawing holds stands in the other under its handle; what was written of
/// a drawing, and read again, must. Else an error names the first that doesn't.
bool holdsEntitiesOf(const AcDbDatabase& db, const AcDbDatabase& other, Report& report);
/// The same of a file. eFileNotFound, with an error in the report, when the file can't be read.
Acad::ErrorStatus readDrawingFile(const std::string& path, AcDbDatabase& db, Report& report,
                                  const ReadOptions& options = {});

/// The bytes of a drawing's file. They are read back, strictly, into a database of their own before they are given out:
/// every entity that lies in a block of `db` must stand in it. Else the answer is eDwgObjectImproperlyRead (or what the
/// reader said) with an error in the report, and `out` is empty. `db` is what it was.
Acad::ErrorStatus writeDrawing(AcDbDatabase& db, DrawingFormat format, std::vector<std::byte>& out, Report& report);

/// What became of a save.
struct SaveResult {
  Acad::ErrorStatus status = Acad::eOk;
  /// Why the file couldn't be replaced, when that is what failed (`status` is eFileAccessErr then).
  os::ReplaceErrorKind file = os::ReplaceErrorKind::none;
  /// One sentence; empty on success.
  std::string message;
  explicit operator bool() const { return status == Acad::eOk; }
};

/// Saves a drawing by the path's ending. The file at `path` is the old one, byte for byte, until the new one has been
/// proved readable and lies whole on the disk; then it is replaced in one step, and the old one is kept with the ending
/// .bak. At any failure, and when the program or the machine dies, the file is the old one or the new one.
/// eInvalidInput for another ending than .dwg and .dxf.
SaveResult saveDrawingFile(AcDbDatabase& db, const std::string& path, Report& report,
                           const os::ReplaceOptions& options = {.overwrite = true, .keepBackup = true},
                           os::FileSystem& files = os::realFileSystem());

}  // namespace krio
