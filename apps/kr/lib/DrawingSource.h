#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Report.h"
#include "Session.h"
#include "host/db/AcDbObjectId.h"
#include "host/io/DrawingFile.h"

namespace kr {

/// A drawing opened from a file.
struct OpenDrawing {
  std::string name;  ///< as messages call it: the path, or "standard input"
  krio::DrawingFormat format = krio::DrawingFormat::Dwg;
  std::string version;               ///< "AC1015"
  std::size_t size = 0;              ///< of the file, bytes
  krio::Report findings;             ///< of the reading
  bool recovered = false;            ///< it could be read only with what was lost told in `findings`
  AcDbDatabase* database = nullptr;  ///< the session's
};

/// How a drawing is opened.
enum class Opening {
  kStrict,         ///< a fault ends it
  kStrictThenMend  ///< what a fault left is opened, `recovered`
};

/// Whether a file's contents are a drawing of either format.
bool isDrawing(std::string_view contents);

/// What a finding says, in one line: the place, the object, the sentence.
std::string sentenceOf(const krio::Finding& finding);

/// Opens a drawing in a session, whose current one it becomes; kStrict tells the findings. False, reported, when that
/// can't be. `file` is what it came from.
bool openDrawing(const Session& session, const std::string& file, std::string_view contents, Opening opening,
                 OpenDrawing& open, Report& report);

/// Reads a file and opens it as a drawing in a new session. Null, reported, when that can't be.
std::unique_ptr<Session> openDrawingFile(const std::string& file, const std::string& data, Opening opening,
                                         OpenDrawing& open, Report& report);

/// The members that stand in model space, in its order.
std::vector<AcDbObjectId> membersOf(const AcDbDatabase& database);

/// The bytes of a drawing's file, proved readable. False, reported, when there are none.
bool drawingBytes(AcDbDatabase& database, krio::DrawingFormat format, std::string& bytes, Report& report);

/// The format for an output: what `given` ("dwg", "dxf") names, or else the ending. None for another.
std::optional<krio::DrawingFormat> drawingFormatFor(const std::string& file, const std::string& given);

}  // namespace kr
