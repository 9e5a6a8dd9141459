#pragma once

#include <string>
#include <vector>

#include "Catalogue.h"

namespace kr {

/// The tables that are at hand: those of the install folder and files of the user's own. They are read when the first
/// designation is looked up.
class CatalogueShelf {
 public:
  /// `jobFolder` is where a job's files are looked for; empty: the current one.
  explicit CatalogueShelf(std::string installFolder, std::string jobFolder = {});

  /// Adds a file of the user's own. False when it can't be read.
  bool addFile(const std::string& file);

  /// Adds a file that a job names, from its folder on. False when it can't be read.
  bool addJobFile(const std::string& file);

  /// The tables. Those of the install folder come first.
  const Catalogue& open();

  bool isOpen() const { return open_; }

 private:
  Catalogue catalogue_;
  std::string installFolder_;
  std::string jobFolder_;
  bool open_ = false;
};

}  // namespace kr
