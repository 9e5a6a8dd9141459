#pragma once

#include <memory>
#include <string>

#include "JobBuilder.h"
#include "Report.h"

class AcDbDatabase;

namespace kr {

/// The install folder: `given` when it isn't empty; else what the environment's KRTRAMA_BRICSV17 says; else
/// ../share/krobjects beside the folder of the running program.
std::string findInstallFolder(const std::string& given);

/// Names that a job may use because the install folder's files hold them: the system's layers and the line styles.
KnownNames knownNames(const std::string& installFolder);

/// The host with the module started in it, a new drawing open and the user's layers loaded. One at a time.
class Session {
 public:
  /// Starts everything. Null, with the reason reported, when the install folder, its layer files or the side library
  /// aren't what they must be.
  static std::unique_ptr<Session> start(const std::string& installFolder, Report& report);

  /// Starts the module only: neither layers nor a side library are needed to ask it what it is.
  static std::unique_ptr<Session> startModule(const std::string& installFolder, Report& report);

  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  AcDbDatabase* database() const;

  /// Runs a registered command and gives what it wrote, as UTF-8. False, reported, when there's no such command or it
  /// failed.
  bool run(const std::string& command, std::string& output, Report& report);

 private:
  explicit Session(void* module) : module_(module) {}

  void* module_;
};

}  // namespace kr
