#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <cerrno>
#include <csignal>

#include "Scratch.h"
#include "host/os/os.h"

namespace {

using os::ReplaceErrorKind;
using testing::HasSubstr;

/// The real file system, whose n-th step fails, and which takes only a few bytes at a time.
class FailingFileSystem : public os::FileSystem {
 public:
  FailingFileSystem(int failingStep, int error) : failingStep_(failingStep), error_(error) {}

  int createExclusive(const std::string& path, unsigned mode, int& descriptor) override {
    return step([&] { return real_.createExclusive(path, mode, descriptor); });
  }
  int write(int descriptor, const char* bytes, std::size_t size, std::size_t& written) override {
    return step([&] { return real_.write(descriptor, bytes, size < 4 ? size : 4, written); });
  }
  int sync(int descriptor) override {
    return step([&] { return real_.sync(descriptor); });
  }
  int setMode(int descriptor, unsigned mode) override {
    return step([&] { return real_.setMode(descriptor, mode); });
  }
  int close(int descriptor) override {
    const int result = real_.close(descriptor);
    return step([&] { return result; });
  }
  int rename(const std::string& from, const std::string& to) override {
    return step([&] { return real_.rename(from, to); });
  }
  int link(const std::string& from, const std::string& to) override {
    return step([&] { return real_.link(from, to); });
  }
  int remove(const std::string& path) override { return real_.remove(path); }
  int syncFolder(const std::string& path) override {
    return step([&] { return real_.syncFolder(path); });
  }
  int openExisting(const std::string& path, int& descriptor) override {
    return step([&] { return real_.openExisting(path, descriptor); });
  }
  int status(const std::string& path, unsigned& mode, os::FileKind& kind) override {
    return step([&] { return real_.status(path, mode, kind); });
  }
  std::string target(const std::string& path) override { return real_.target(path); }

  bool hasFailed() const { return steps_ >= failingStep_; }

 private:
  template <class Action>
  int step(Action action) {
    return ++steps_ == failingStep_ ? error_ : action();
  }

  os::FileSystem& real_ = os::realFileSystem();
  int failingStep_;
  int error_;
  int steps_ = 0;
};

const std::string kOld = "the old drawing";
const std::string kNew = "the new drawing, longer than the old one";

TEST(Replace, MakesANewFile) {
  const Scratch scratch;
  EXPECT_TRUE(os::replaceFile(scratch.path("a.dxf"), kNew));
  EXPECT_EQ(scratch.read("a.dxf"), kNew);
  EXPECT_THAT(scratch.names(), testing::ElementsAre("a.dxf"));
}

TEST(Replace, PutsTheNewContentsInPlaceAndKeepsThePermissions) {
  const Scratch scratch;
  scratch.write("a.dxf", kOld);
  ::chmod(scratch.path("a.dxf").c_str(), 0640);
  EXPECT_TRUE(os::replaceFile(scratch.path("a.dxf"), kNew));
  EXPECT_EQ(scratch.read("a.dxf"), kNew);
  struct stat found {};
  ::stat(scratch.path("a.dxf").c_str(), &found);
  EXPECT_EQ(found.st_mode & 07777U, 0640U);
  EXPECT_THAT(scratch.names(), testing::ElementsAre("a.dxf"));
}

TEST(Replace, KeepsTheOldFileAsBackupWhenAsked) {
  const Scratch scratch;
  scratch.write("a.dxf", kOld);
  scratch.write("a.bak", "older still");
  EXPECT_TRUE(os::replaceFile(scratch.path("a.dxf"), kNew, {.keepBackup = true}));
  EXPECT_EQ(scratch.read("a.dxf"), kNew);
  EXPECT_EQ(scratch.read("a.bak"), kOld);
  EXPECT_THAT(scratch.names(), testing::UnorderedElementsAre("a.dxf", "a.bak"));
}

/// The real file system on a disk that stores other bytes than it was given.
class LyingFileSystem final : public FailingFileSystem {
 public:
  LyingFileSystem() : FailingFileSystem(0, 0) {}
  int write(int descriptor, const char* bytes, std::size_t size, std::size_t& written) override {
    std::string changed(bytes, size);
    changed.back() = char(changed.back() ^ 1);
    return os::realFileSystem().write(descriptor, changed.data(), size, written);
  }
};

TEST(Replace, KeepsTheOldFileAndItsBackupWhenTheDiskGivesBackOtherBytes) {
  const Scratch scratch;
  scratch.write("a.dxf", kOld);
  scratch.write("a.bak", "older still");
  LyingFileSystem files;
  EXPECT_FALSE(os::replaceFile(scratch.path("a.dxf"), kNew, {.keepBackup = true}, files));
  EXPECT_EQ(scratch.read("a.dxf"), kOld);
  EXPECT_EQ(scratch.read("a.bak"), "older still");
  EXPECT_THAT(scratch.names(), testing::UnorderedElementsAre("a.dxf", "a.bak"));
}

TEST(Replace, WithoutLeaveToOverwriteSaysThatTheFileExists) {
  const Scratch scratch;
  scratch.write("a.dxf", kOld);
  const os::ReplaceResult result = os::replaceFile(scratch.path("a.dxf"), kNew, {.overwrite = false});
  EXPECT_EQ(result.kind, ReplaceErrorKind::exists);
  EXPECT_THAT(result.message, HasSubstr("exists already"));
  EXPECT_EQ(scratch.read("a.dxf"), kOld);
  EXPECT_TRUE(os::replaceFile(scratch.path("b.dxf"), kNew, {.overwrite = false}));
  EXPECT_EQ(scratch.read("b.dxf"), kNew);
  EXPECT_THAT(scratch.names(), testing::UnorderedElementsAre("a.dxf", "b.dxf"));
}

TEST(Replace, FollowsASymbolicLinkToItsTarget) {
  const Scratch scratch;
  scratch.write("real.dxf", kOld);
  std::filesystem::create_symlink("real.dxf", scratch.path("link.dxf"));
  EXPECT_TRUE(os::replaceFile(scratch.path("link.dxf"), kNew));
  EXPECT_TRUE(std::filesystem::is_symlink(scratch.path("link.dxf")));
  EXPECT_EQ(scratch.read("real.dxf"), kNew);
}

TEST(Replace, SaysWhyAPlaceCannotTakeAFile) {
  const Scratch scratch;
  scratch.write("file", kOld);
  EXPECT_EQ(os::replaceFile(scratch.path("none/a"), kNew).kind, ReplaceErrorKind::noSuchFolder);
  EXPECT_EQ(os::replaceFile(scratch.path("file/a"), kNew).kind, ReplaceErrorKind::noSuchFolder);
  EXPECT_EQ(os::replaceFile(scratch.path(), kNew).kind, ReplaceErrorKind::isDirectory);
  const os::ReplaceResult result = os::replaceFile("/proc/a", kNew);
  EXPECT_FALSE(result);
  EXPECT_THAT(result.message, HasSubstr("/proc/a"));
}

TEST(Replace, NamesTheKindOfEachError) {
  const Scratch scratch;
  const std::vector<std::pair<int, ReplaceErrorKind>> kinds = {
      {EACCES, ReplaceErrorKind::notWritable}, {EROFS, ReplaceErrorKind::notWritable},
      {ENOSPC, ReplaceErrorKind::diskFull},    {EDQUOT, ReplaceErrorKind::diskFull},
      {EFBIG, ReplaceErrorKind::diskFull},     {EIO, ReplaceErrorKind::other}};
  constexpr int kFirstWrite = 3;  // after the look at the target and the making of the temporary file
  for (const auto& [error, kind] : kinds) {
    FailingFileSystem files(kFirstWrite, error);
    EXPECT_EQ(os::replaceFile(scratch.path("a"), kNew, {}, files).kind, kind) << error;
    EXPECT_TRUE(scratch.names().empty());
  }
}

TEST(Replace, FullDiskLeavesTheOldFile) {
  const Scratch scratch;
  scratch.write("a.dxf", kOld);
  // A limit on the size of files is as good as a full disk: the write fails on the way.
  rlimit before{};
  ::getrlimit(RLIMIT_FSIZE, &before);
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  const rlimit small{4096, before.rlim_max};
  ::setrlimit(RLIMIT_FSIZE, &small);
  const os::ReplaceResult result = os::replaceFile(scratch.path("a.dxf"), std::string(100000, 'x'));
  ::setrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, handler);
  EXPECT_EQ(result.kind, ReplaceErrorKind::diskFull);
  EXPECT_THAT(result.message, HasSubstr("no space left"));
  EXPECT_EQ(scratch.read("a.dxf"), kOld);
  EXPECT_THAT(scratch.names(), testing::ElementsAre("a.dxf"));
}

class ReplaceFailure : public testing::TestWithParam<bool> {};

// Whichever step fails, the target is the old file or the new one, whole, and nothing else is left behind.
TEST_P(ReplaceFailure, AtAnyStepLeavesTheOldFileOrTheNewOne) {
  const bool keepBackup = GetParam();
  int step = 1;
  for (;; ++step) {
    const Scratch scratch;
    scratch.write("a.dxf", kOld);
    FailingFileSystem files(step, ENOSPC);
    const os::ReplaceResult result = os::replaceFile(scratch.path("a.dxf"), kNew, {.keepBackup = keepBackup}, files);
    if (!files.hasFailed()) {
      EXPECT_TRUE(result);
      break;
    }
    ASSERT_FALSE(result) << "step " << step;
    ASSERT_THAT(scratch.read("a.dxf"), testing::AnyOf(kOld, kNew)) << "step " << step;
    for (const std::string& name : scratch.names()) {
      ASSERT_THAT(name, testing::AnyOf("a.dxf", "a.bak")) << "step " << step;
    }
    const bool hasBackup = std::filesystem::exists(scratch.path("a.bak"));
    ASSERT_EQ(hasBackup ? scratch.read("a.bak") : kOld, kOld) << "step " << step;
  }
  // Ten writes of four bytes and the steps around them: the loop has really walked them.
  EXPECT_GT(step, 15);
}

INSTANTIATE_TEST_SUITE_P(WithAndWithoutBackup, ReplaceFailure, testing::Bool());

/// A file system that gives no file two names, and whose n-th step fails.
class LinklessFileSystem final : public FailingFileSystem {
 public:
  explicit LinklessFileSystem(int error, int failingStep = 0) : FailingFileSystem(failingStep, ENOSPC), error_(error) {}
  int link(const std::string&, const std::string&) override { return error_; }

 private:
  int error_;
};

TEST(ReplaceWithoutSecondNames, KeepsACopyOfTheOldFileAsBackup) {
  for (const int error : {EPERM, EOPNOTSUPP, ENOSYS, EMLINK}) {
    const Scratch scratch;
    scratch.write("a.dxf", kOld);
    scratch.write("a.bak", "older still");
    ::chmod(scratch.path("a.dxf").c_str(), 0640);
    LinklessFileSystem files(error);
    EXPECT_TRUE(os::replaceFile(scratch.path("a.dxf"), kNew, {.keepBackup = true}, files)) << error;
    EXPECT_EQ(scratch.read("a.dxf"), kNew);
    EXPECT_EQ(scratch.read("a.bak"), kOld);
    struct stat found {};
    ::stat(scratch.path("a.bak").c_str(), &found);
    EXPECT_EQ(found.st_mode & 07777U, 0640U);
    EXPECT_THAT(scratch.names(), testing::UnorderedElementsAre("a.dxf", "a.bak"));
  }
}

TEST(ReplaceWithoutSecondNames, LeavesTheOldFileOrTheNewOneWhicheverStepFails) {
  int step = 1;
  for (;; ++step) {
    const Scratch scratch;
    scratch.write("a.dxf", kOld);
    scratch.write("a.bak", "older still");
    LinklessFileSystem files(EPERM, step);
    const os::ReplaceResult result = os::replaceFile(scratch.path("a.dxf"), kNew, {.keepBackup = true}, files);
    if (!files.hasFailed()) {
      EXPECT_TRUE(result);
      break;
    }
    ASSERT_FALSE(result) << "step " << step;
    ASSERT_THAT(scratch.read("a.dxf"), testing::AnyOf(kOld, kNew)) << "step " << step;
    ASSERT_THAT(scratch.read("a.bak"), testing::AnyOf("older still", kOld)) << "step " << step;
    ASSERT_TRUE(scratch.read("a.dxf") == kOld || scratch.read("a.bak") == kOld) << "step " << step;
    ASSERT_THAT(scratch.names(), testing::UnorderedElementsAre("a.dxf", "a.bak")) << "step " << step;
  }
  // Ten writes of the new contents, four of the old, each of at most four bytes, and the steps around them.
  EXPECT_GT(step, 20);
}

TEST(ReplaceWithoutSecondNames, RefusesOtherErrorsOfTheSecondName) {
  const Scratch scratch;
  scratch.write("a.dxf", kOld);
  LinklessFileSystem files(EACCES);
  EXPECT_EQ(os::replaceFile(scratch.path("a.dxf"), kNew, {.keepBackup = true}, files).kind,
            ReplaceErrorKind::notWritable);
  EXPECT_EQ(scratch.read("a.dxf"), kOld);
  EXPECT_THAT(scratch.names(), testing::ElementsAre("a.dxf"));
}

TEST(Replace, WritesToADeviceWithoutTakingItsPlace) {
  if (!std::filesystem::is_character_file("/dev/full")) GTEST_SKIP() << "no device that is always full";
  const os::ReplaceResult result = os::replaceFile("/dev/full", kNew);
  EXPECT_EQ(result.kind, ReplaceErrorKind::diskFull);
  EXPECT_TRUE(std::filesystem::is_character_file("/dev/full"));
  EXPECT_TRUE(os::replaceFile("/dev/null", kNew, {.overwrite = false}));
  EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));
}

TEST(BackupName, ReplacesTheEnding) {
  EXPECT_EQ(os::backupName("/a.b/viga.dwg"), "/a.b/viga.bak");
  EXPECT_EQ(os::backupName("/a.b/viga"), "/a.b/viga.bak");
  EXPECT_EQ(os::backupName("/a/.viga"), "/a/.viga.bak");
}

}  // namespace
