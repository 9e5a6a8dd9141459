#include "host/os/ReplaceFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <system_error>
#include <utility>

namespace os {

namespace {

constexpr unsigned kNewFileMode = 0666;
constexpr int kTemporaryNameTries = 100;

std::string folderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  if (slash == std::string::npos) return ".";
  return slash == 0 ? "/" : path.substr(0, slash);
}

ReplaceErrorKind kindOf(int error) {
  switch (error) {
    case ENOENT:
    case ENOTDIR:
      return ReplaceErrorKind::noSuchFolder;
    case EACCES:
    case EPERM:
    case EROFS:
      return ReplaceErrorKind::notWritable;
    case EISDIR:
      return ReplaceErrorKind::isDirectory;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return ReplaceErrorKind::diskFull;
    case EEXIST:
      return ReplaceErrorKind::exists;
    default:
      return ReplaceErrorKind::other;
  }
}

std::string reasonOf(ReplaceErrorKind kind, int error) {
  switch (kind) {
    case ReplaceErrorKind::noSuchFolder:
      return "its folder does not exist";
    case ReplaceErrorKind::notWritable:
      return "no permission to write there";
    case ReplaceErrorKind::isDirectory:
      return "it is a folder";
    case ReplaceErrorKind::diskFull:
      return "no space left";
    case ReplaceErrorKind::exists:
      return "it exists already";
    default:
      return std::generic_category().message(error);
  }
}

ReplaceResult failure(const std::string& path, int error) {
  const ReplaceErrorKind kind = kindOf(error);
  return {kind, "cannot write " + path + ": " + reasonOf(kind, error)};
}

int writeAll(FileSystem& files, int descriptor, std::string_view contents) {
  while (!contents.empty()) {
    std::size_t written = 0;
    if (const int error = files.write(descriptor, contents.data(), contents.size(), written)) return error;
    // A file system that takes nothing and names no reason would be asked for ever.
    if (written == 0) return ENOSPC;
    contents.remove_prefix(written);
  }
  return 0;
}

// Gives `take` the contents of a file piece by piece, until it returns false.
template <class Take>
int readPieces(const std::string& path, Take take) {
  const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (descriptor < 0) return errno;
  std::array<char, 65536> buffer;
  int error = 0;
  for (;;) {
    const ssize_t got = ::read(descriptor, buffer.data(), buffer.size());
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) error = errno;
    if (got <= 0 || !take(std::string_view(buffer.data(), std::size_t(got)))) break;
  }
  ::close(descriptor);
  return error;
}

// Whether a file, read back, holds exactly `contents`.
bool holds(const std::string& path, std::string_view contents) {
  bool same = true;
  const int error = readPieces(path, [&](std::string_view piece) {
    same = contents.starts_with(piece);
    if (same) contents.remove_prefix(piece.size());
    return same;
  });
  return error == 0 && same && contents.empty();
}

/// The temporary file beside the target: closed and removed unless it has taken the target's place.
class TemporaryFile {
 public:
  explicit TemporaryFile(FileSystem& files) : files_(files) {}
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile() {
    if (descriptor_ >= 0) files_.close(descriptor_);
    if (!path_.empty()) files_.remove(path_);
  }

  int create(const std::string& target) {
    int error = EEXIST;
    for (int i = 0; i < kTemporaryNameTries && error == EEXIST; ++i) {
      const std::string name = target + ".tmp" + std::to_string(::getpid()) + "-" + std::to_string(i);
      error = files_.createExclusive(name, kNewFileMode, descriptor_);
      if (error == 0) path_ = name;
    }
    if (error != 0) descriptor_ = -1;
    // Names that are all taken are no sign that the target exists.
    return error == EEXIST ? EIO : error;
  }

  int write(std::string_view contents) { return writeAll(files_, descriptor_, contents); }

  int setMode(unsigned mode) { return files_.setMode(descriptor_, mode); }

  int finish() {
    const int error = files_.sync(descriptor_);
    // A failed close still gives the descriptor up.
    const int closing = files_.close(std::exchange(descriptor_, -1));
    return error != 0 ? error : closing;
  }

  // Only what gives back what was written may take the place of what was there.
  int prove(std::string_view contents) { return holds(path_, contents) ? 0 : EIO; }

  int moveTo(const std::string& target) {
    const int error = files_.rename(path_, target);
    if (error == 0) path_.clear();
    return error;
  }

  // Unlike a rename, a second name is refused when the target has come to be in the meantime.
  int linkTo(const std::string& target) { return files_.link(path_, target); }

 private:
  FileSystem& files_;
  std::string path_;
  int descriptor_ = -1;
};

/// What stands at the target before the replacement.
struct OldFile {
  bool present = false;
  bool isSpecial = false;
  unsigned mode = 0;
};

int inspect(FileSystem& files, const std::string& target, const ReplaceOptions& options, OldFile& old) {
  FileKind kind = FileKind::regular;
  const int error = files.status(target, old.mode, kind);
  if (error == ENOENT) return 0;
  if (error != 0) return error;
  if (kind == FileKind::folder) return EISDIR;
  old.isSpecial = kind == FileKind::special;
  // A device or a pipe has no contents to lose.
  if (old.isSpecial) return 0;
  if (!options.overwrite) return EEXIST;
  old.present = true;
  return 0;
}

// What the system answers where it can't give this file a second name.
bool cannotLink(int error) {
  return error == EPERM || error == EOPNOTSUPP || error == ENOSYS || error == EMLINK;
}

// The old file stays where it is, whole, whatever becomes of the copy.
int copyToBackup(FileSystem& files, const std::string& target, unsigned mode) {
  std::string contents;
  if (const int error = readPieces(target, [&](std::string_view piece) {
        contents += piece;
        return true;
      }))
    return error;
  const std::string backup = backupName(target);
  TemporaryFile copy(files);
  if (const int error = copy.create(backup)) return error;
  if (const int error = copy.write(contents)) return error;
  if (const int error = copy.setMode(mode)) return error;
  if (const int error = copy.finish()) return error;
  if (const int error = copy.prove(contents)) return error;
  return copy.moveTo(backup);
}

// The backup is a second name of the old file, so that the old contents are never without one.
int backUp(FileSystem& files, const std::string& target, unsigned mode) {
  const std::string spare = target + ".bak" + std::to_string(::getpid());
  if (const int error = files.link(target, spare)) return cannotLink(error) ? copyToBackup(files, target, mode) : error;
  const int error = files.rename(spare, backupName(target));
  if (error != 0) files.remove(spare);
  return error;
}

// A device or a pipe is written to as it stands: replacing it would take it away from everybody.
int writeSpecial(FileSystem& files, const std::string& target, std::string_view contents) {
  int descriptor = -1;
  if (const int error = files.openExisting(target, descriptor)) return error;
  const int error = writeAll(files, descriptor, contents);
  const int closing = files.close(descriptor);
  return error != 0 ? error : closing;
}

// File systems without second names for a file leave only the rename.
int putNew(TemporaryFile& temporary, const std::string& target) {
  const int error = temporary.linkTo(target);
  return cannotLink(error) ? temporary.moveTo(target) : error;
}

int replace(FileSystem& files, const std::string& target, std::string_view contents, const ReplaceOptions& options) {
  OldFile old;
  if (const int error = inspect(files, target, options, old)) return error;
  if (old.isSpecial) return writeSpecial(files, target, contents);
  TemporaryFile temporary(files);
  if (const int error = temporary.create(target)) return error;
  if (const int error = temporary.write(contents)) return error;
  if (const int error = old.present ? temporary.setMode(old.mode) : 0) return error;
  if (const int error = temporary.finish()) return error;
  if (const int error = temporary.prove(contents)) return error;
  if (const int error = old.present && options.keepBackup ? backUp(files, target, old.mode) : 0) return error;
  const int error = options.overwrite ? temporary.moveTo(target) : putNew(temporary, target);
  return error != 0 ? error : files.syncFolder(folderOf(target));
}

}  // namespace

ReplaceResult replaceFile(const std::string& path, std::string_view contents, const ReplaceOptions& options,
                          FileSystem& files) {
  const int error = replace(files, files.target(path), contents, options);
  return error == 0 ? ReplaceResult{} : failure(path, error);
}

bool canReplaceFile(const std::string& path, FileSystem& files) {
  const std::string target = files.target(path);
  OldFile old;
  if (inspect(files, target, {}, old) != 0) return false;
  if (old.isSpecial) return true;
  TemporaryFile temporary(files);
  return temporary.create(target) == 0;
}

std::string backupName(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  const std::size_t name = slash == std::string::npos ? 0 : slash + 1;
  const std::size_t dot = path.rfind('.');
  // A dot that begins the name begins no ending.
  const bool hasEnding = dot != std::string::npos && dot > name;
  return (hasEnding ? path.substr(0, dot) : path) + ".bak";
}

}  // namespace os
