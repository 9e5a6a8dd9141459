#pragma once

#include <string>

#include "CatalogueShelf.h"
#include "Report.h"

namespace kr {

/// Adds a file of the user's own, if one is named. False, reported, when it can't be read.
bool addTables(CatalogueShelf& shelf, const std::string& file, Report& report);

/// Warns of what is wrong in the tables, if they were read.
void tellTables(CatalogueShelf& shelf, Report& report);

}  // namespace kr
