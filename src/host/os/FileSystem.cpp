#include "host/os/FileSystem.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>

namespace os {

namespace {

int errorOf(int result) {
  return result < 0 ? errno : 0;
}

class RealFileSystem final : public FileSystem {
 public:
  int createExclusive(const std::string& path, unsigned mode, int& descriptor) override {
    descriptor = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode_t(mode));
    return errorOf(descriptor);
  }
  int openExisting(const std::string& path, int& descriptor) override {
    descriptor = ::open(path.c_str(), O_WRONLY | O_CLOEXEC);
    return errorOf(descriptor);
  }
  int write(int descriptor, const char* bytes, std::size_t size, std::size_t& written) override {
    ssize_t taken = 0;
    do {
      taken = ::write(descriptor, bytes, size);
    } while (taken < 0 && errno == EINTR);
    written = taken < 0 ? 0 : std::size_t(taken);
    return errorOf(int(taken < 0 ? -1 : 0));
  }
  int sync(int descriptor) override { return errorOf(::fsync(descriptor)); }
  int setMode(int descriptor, unsigned mode) override { return errorOf(::fchmod(descriptor, mode_t(mode))); }
  int close(int descriptor) override { return errorOf(::close(descriptor)); }
  int rename(const std::string& from, const std::string& to) override {
    return errorOf(std::rename(from.c_str(), to.c_str()));
  }
  int link(const std::string& from, const std::string& to) override {
    return errorOf(::link(from.c_str(), to.c_str()));
  }
  int remove(const std::string& path) override { return errorOf(::unlink(path.c_str())); }
  int syncFolder(const std::string& path) override {
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) return errno;
    const int error = errorOf(::fsync(descriptor));
    ::close(descriptor);
    // Some file systems can't flush a folder; there is nothing more to do then.
    return error == EINVAL ? 0 : error;
  }
  int status(const std::string& path, unsigned& mode, FileKind& kind) override {
    struct stat found {};
    const int error = errorOf(::stat(path.c_str(), &found));
    mode = found.st_mode & 07777U;
    kind = S_ISDIR(found.st_mode) ? FileKind::folder : S_ISREG(found.st_mode) ? FileKind::regular : FileKind::special;
    return error;
  }
  std::string target(const std::string& path) override {
    char* real = ::realpath(path.c_str(), nullptr);
    if (real == nullptr) return path;
    std::string result(real);
    std::free(real);
    return result;
  }
};

}  // namespace

FileSystem& realFileSystem() {
  static RealFileSystem files;
  return files;
}

}  // namespace os
