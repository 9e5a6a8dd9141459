#pragma once

#include <string>
#include <vector>

#include "Report.h"

namespace kr {

// What the program's verbs do. A file name of "-" is standard input or output; `data` names the install folder, empty
// for the rule in Session.h. Everything that goes wrong is told to the report, which then knows how the run ends.

inline constexpr int kLowestResolution = 30;
inline constexpr int kHighestResolution = 1200;

struct BuildRequest {
  std::string job;
  std::vector<std::string> files;
  std::string format;  ///< "pdf", "svg" or "png"; empty: by each file's ending
  int sheet = 0;       ///< from 1; 0 for all
  int resolution = 150;
  bool overwrite = false;
  std::string data;
  std::string catalogue;  ///< a file of tables of one's own; empty for none
};

/// Draws a job into files. No file is touched before all are made.
void build(const BuildRequest& request, Report& report);

enum class BomForm { kText, kCsv, kJson };

struct BomRequest {
  std::string job;
  BomForm form = BomForm::kText;
  std::string output = "-";
  bool overwrite = false;
  std::string data;
  std::string catalogue;
};

/// Writes a job's bill of materials.
void bom(const BomRequest& request, Report& report);

struct ListRequest {
  std::string job;
  std::vector<std::string> names;  ///< empty for all
  bool json = false;
  std::string output = "-";
  bool overwrite = false;
  std::string data;
  std::string catalogue;
};

/// Writes what members say of themselves.
void list(const ListRequest& request, Report& report);

enum class CatalogueAction { kList, kSearch, kShow };

struct CatalogueRequest {
  CatalogueAction action = CatalogueAction::kList;
  std::string text;  ///< what is searched, or the designation that is shown
  bool json = false;
  std::string output = "-";  ///< of a section shown: its picture, by the ending; "-" for none
  bool overwrite = false;
  std::string data;
  std::string catalogue;
};

/// Writes which tables there are, the sections that match a text, or the numbers of one section.
void catalogue(const CatalogueRequest& request, Report& report);

struct AboutRequest {
  bool json = false;
  std::string output = "-";
  bool overwrite = false;
  std::string data;
};

/// Writes what the module says of itself.
void about(const AboutRequest& request, Report& report);

}  // namespace kr
