#include "CatalogueShelf.h"

#include <filesystem>

#include "CatalogueProfile.h"
#include "Suggest.h"

namespace kr {

CatalogueShelf::CatalogueShelf(std::string installFolder, std::string jobFolder)
    : installFolder_(std::move(installFolder)), jobFolder_(std::move(jobFolder)) {}

const Catalogue& CatalogueShelf::open() {
  if (!open_) catalogue_.addFolder((std::filesystem::path(installFolder_) / "catalogue").string());
  open_ = true;
  return catalogue_;
}

bool CatalogueShelf::addFile(const std::string& file) {
  open();
  const std::size_t before = catalogue_.rows().size();
  if (!catalogue_.addFile(file)) return false;
  // The program's own tables are tested; of a user's every row is told that gives no section.
  for (std::size_t i = before; i < catalogue_.rows().size(); ++i) {
    const CatalogueRow& row = catalogue_.rows()[i];
    std::string why;
    if (!givesSection(catalogue_, row, why)) {
      catalogue_.blame(row, inQuotes(row.designation) + " gives no section: " + why);
    }
  }
  return true;
}

bool CatalogueShelf::addJobFile(const std::string& file) {
  return addFile((std::filesystem::path(jobFolder_) / file).string());
}

}  // namespace kr
