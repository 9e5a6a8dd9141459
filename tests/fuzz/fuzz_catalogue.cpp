// A table takes any bytes: what is wrong in it is told with its place, and every row that is used is found by its
// names and either gives a section or a reason.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "lib/CatalogueProfile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  kr::Catalogue catalogue;
  catalogue.addText("first.csv", "# shape: tube\ndesignation,second,D,t\nT1,U1,50,2\n");
  catalogue.addText("given.csv", std::string(reinterpret_cast<const char*>(data), size));
  for (const kr::CatalogueProblem& problem : catalogue.problems()) {
    if (problem.line == 0 || problem.column == 0 || problem.message.empty()) std::abort();
  }
  for (const kr::CatalogueRow& row : catalogue.rows()) {
    const std::string own = catalogue.tableOf(row).name + ":" + std::string(row.designation);
    if (catalogue.find(own).row == nullptr) std::abort();
    if (!row.second.empty() && row.second.find(':') == std::string_view::npos) catalogue.find(row.second);
    std::string why;
    if (!givesSection(catalogue, row, why) && why.empty()) std::abort();
  }
  return 0;
}
