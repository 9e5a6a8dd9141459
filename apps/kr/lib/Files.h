#pragma once

#include <string>
#include <string_view>

#include "Report.h"

namespace kr {

/// The name that stands for standard input or output.
inline constexpr std::string_view kStandardStream = "-";

/// The greatest input file that is read, in bytes.
inline constexpr std::size_t kLargestInput = std::size_t{1} << 30;

/// Reads a whole input file, or standard input for "-". False, with the reason reported, when it can't be read.
bool readInput(const std::string& path, std::string& contents, Report& report);

/// Whether an output could be written at `path` now; the reason is reported when not. Nothing is touched. A device or a
/// pipe can always be written, a file that exists only with `overwrite`, and the file `input` never.
bool checkOutput(const std::string& path, const std::string& input, bool overwrite, Report& report);

/// Writes a whole output: standard output for "-", a device or pipe as it stands, and a file in one step, so that it
/// holds either all of `contents` or what it held before. False, with the reason reported, on failure.
bool writeOutput(const std::string& path, std::string_view contents, bool overwrite, Report& report);

/// The same of a drawing: a file that is replaced is kept with the ending .bak.
bool writeDrawingOutput(const std::string& path, std::string_view contents, bool overwrite, Report& report);

}  // namespace kr
