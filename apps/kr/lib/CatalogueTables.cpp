#include "CatalogueTables.h"

#include "Suggest.h"

namespace kr {

bool addTables(CatalogueShelf& shelf, const std::string& file, Report& report) {
  if (file.empty() || shelf.addFile(file)) return true;
  report.error(Exit::kBadInput, "the table " + inQuotes(file) + " can't be read");
  return false;
}

void tellTables(CatalogueShelf& shelf, Report& report) {
  if (!shelf.isOpen()) return;
  for (const CatalogueProblem& problem : shelf.open().problems()) report.warning(describe(problem));
}

}  // namespace kr
