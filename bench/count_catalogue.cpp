// The instructions of reading in every table of sections that is installed.
#include "Count.h"
#include "lib/Catalogue.h"

namespace {

std::function<long()> readCatalogue() {
  return [] {
    kr::Catalogue catalogue;
    if (!catalogue.addFolder(KR_INSTALL_FOLDER "/catalogue") || catalogue.rows().empty()) std::abort();
    return 1L;
  };
}

}  // namespace

int main(int argc, char** argv) {
  return bench::countMain(argc, argv, {{"read_catalogue", readCatalogue}});
}
