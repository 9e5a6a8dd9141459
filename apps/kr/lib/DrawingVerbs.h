#pragma once

#include <string>

#include "Report.h"

namespace kr {

// What the program's verbs for drawings do; as for those in Verbs.h.

struct InfoRequest {
  std::string drawing;
  bool json = false;
  std::string output = "-";
  bool overwrite = false;
  std::string data;
};

/// Writes what is in a drawing.
void info(const InfoRequest& request, Report& report);

struct ConvertRequest {
  std::string drawing;
  std::string output;
  std::string format;  ///< "dwg" or "dxf"; empty: by the output's ending
  bool overwrite = false;
  std::string data;
};

/// Writes a drawing in the other format, or anew in its own.
void convert(const ConvertRequest& request, Report& report);

struct AuditRequest {
  std::string drawing;
  bool fix = false;
  bool json = false;
  std::string output = "-";
  bool overwrite = false;
  std::string data;
};

/// Looks for faults in a drawing, and with `fix` mends those that can be, in the file. The run ends with kRuleViolation
/// when any is left.
void audit(const AuditRequest& request, Report& report);

struct RecoverRequest {
  std::string drawing;
  std::string output;  ///< the drawing that is saved
  std::string format;  ///< "dwg" or "dxf"; empty: by the output's ending
  bool json = false;
  bool overwrite = false;
  std::string data;
};

/// Saves what can be read of a damaged drawing and writes what was lost. The run ends with kRuleViolation when anything
/// was.
void recover(const RecoverRequest& request, Report& report);

struct PlotRequest {
  std::string drawing;  ///< or a job
  std::string output;
  std::string format;  ///< "pdf", "svg" or "png"; empty: by the output's ending
  std::string size;    ///< "A0" to "A4"; empty: "A3"
  double scale = 0;    ///< paper to drawing; 0: the largest of the usual ones that fits
  int resolution = 150;
  bool overwrite = false;
  std::string data;
  std::string catalogue;
};

/// Draws model space on one page.
void plotModel(const PlotRequest& request, Report& report);

}  // namespace kr
