#pragma once

#include <string>
#include <string_view>

#include "host/os/FileSystem.h"

namespace os {

/// How a file may be replaced.
struct ReplaceOptions {
  /// Whether a file that stands there may be replaced at all.
  bool overwrite = true;
  /// Whether the file that stood there is kept under its name with ".bak" in the place of its ending: a second
  /// name of it, or a copy where the file system can't give a file two names.
  bool keepBackup = false;
};

/// Why a file wasn't replaced.
enum class ReplaceErrorKind { none, noSuchFolder, notWritable, isDirectory, diskFull, exists, other };

/// What became of a replacement.
struct ReplaceResult {
  ReplaceErrorKind kind = ReplaceErrorKind::none;
  /// One sentence that names the file and the reason; empty on success.
  std::string message;
  explicit operator bool() const { return kind == ReplaceErrorKind::none; }
};

/// Makes the file at `path` (UTF-8, the system's form) hold exactly `contents`, in one step: a temporary file in the
/// same folder is written, flushed to the disk and renamed over the target, and the folder flushed. At any failure the
/// temporary file is removed and the old file is what it was. A file that is replaced passes its permissions on; a
/// symbolic link stays one, and its target is replaced; a device or a pipe is written to as it stands. The one failure
/// after which the new contents may stand is that of the last flush, of the folder.
ReplaceResult replaceFile(const std::string& path, std::string_view contents, const ReplaceOptions& options = {},
                          FileSystem& files = realFileSystem());

/// Whether a file could be written at `path` now: its folder takes a new file, and no folder stands there.
bool canReplaceFile(const std::string& path, FileSystem& files = realFileSystem());

/// The name under which the file that stood at `path` is kept: its ending, if it has one, replaced by ".bak".
std::string backupName(const std::string& path);

}  // namespace os
