#pragma once

#include <cstddef>
#include <string>

namespace os {

/// What stands at a path; everything but files and folders, such as devices and pipes, is special.
enum class FileKind { regular, folder, special };

/// The few steps on files that a safe replacement takes, so that a test can make each of them fail. Every function
/// returns 0 on success or the system's error number; paths are in the system's form.
class FileSystem {
 public:
  virtual ~FileSystem() = default;

  /// Makes a new file that only this process has, with the given permission bits; EEXIST when the name is taken.
  virtual int createExclusive(const std::string& path, unsigned mode, int& descriptor) = 0;
  /// Opens what stands there for writing, without cutting it.
  virtual int openExisting(const std::string& path, int& descriptor) = 0;
  /// Writes up to `size` bytes and tells how many were taken.
  virtual int write(int descriptor, const char* bytes, std::size_t size, std::size_t& written) = 0;
  virtual int sync(int descriptor) = 0;
  virtual int setMode(int descriptor, unsigned mode) = 0;
  virtual int close(int descriptor) = 0;
  /// Puts `from` in the place of `to`, in one step.
  virtual int rename(const std::string& from, const std::string& to) = 0;
  /// Gives `from` a second name; EEXIST when it is taken.
  virtual int link(const std::string& from, const std::string& to) = 0;
  virtual int remove(const std::string& path) = 0;
  virtual int syncFolder(const std::string& path) = 0;
  /// Permission bits and kind of what stands at `path`, links followed; ENOENT when nothing does.
  virtual int status(const std::string& path, unsigned& mode, FileKind& kind) = 0;
  /// Where a symbolic link leads in the end; the path itself when it is none or leads nowhere.
  virtual std::string target(const std::string& path) = 0;
};

/// The real one.
FileSystem& realFileSystem();

}  // namespace os
