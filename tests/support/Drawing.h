#pragma once

#include <cstdlib>
#include <string>

#include "host/ed/ed.h"
#include "host/os/os.h"

/// A drawing that is the working one for as long as it lives.
class Drawing {
 public:
  Drawing() : document_(acDocManagerPtr()->newDocument()) {}
  Drawing(const Drawing&) = delete;
  Drawing& operator=(const Drawing&) = delete;
  ~Drawing() { acDocManagerPtr()->closeDocument(document_); }

  AcDbDatabase& database() const { return *document_->database(); }
  AcApDocument& document() const { return *document_; }

 private:
  AcApDocument* document_;
};

/// The install folder that the environment names, for as long as it lives.
class InstallFolderSetting {
 public:
  /// Null: no install folder.
  explicit InstallFolderSetting(const char* folder) {
    const char* before = std::getenv(kVariable);
    hadOne_ = before != nullptr;
    if (hadOne_) before_ = before;
    set(folder);
  }
  InstallFolderSetting(const InstallFolderSetting&) = delete;
  InstallFolderSetting& operator=(const InstallFolderSetting&) = delete;
  ~InstallFolderSetting() { set(hadOne_ ? before_.c_str() : nullptr); }

 private:
  static constexpr const char* kVariable = "KRTRAMA_BRICSV17";
  static void set(const char* folder) {
    if (folder != nullptr) {
      ::setenv(kVariable, folder, 1);
    } else {
      ::unsetenv(kVariable);
    }
  }
  bool hadOne_;
  std::string before_;
};
