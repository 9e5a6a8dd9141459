#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Bom.h"
#include "Job.h"
#include "Report.h"
#include "Session.h"
#include "host/db/AcDbObjectId.h"

namespace kr {

/// What a verb works on: a job read, its members made in a session's drawing, or a drawing opened from a file.
struct OpenWork {
  std::unique_ptr<Session> session;
  std::string name;        ///< as messages call it: the path, or "standard input"
  std::optional<Job> job;  ///< none for a drawing
  std::vector<AcDbObjectId> members;
  /// What stands in the drawing without data and so isn't among the members.
  ClassCounts leftOut;

  /// What a bill of materials counts.
  std::vector<BomPiece> pieces() const;

  /// What a bill or a list leaves out must be told.
  void tellLeftOut(Report& report) const;
};

/// Opens a job or, told by its bytes, a drawing. Null, reported, when something is wrong.
std::unique_ptr<OpenWork> openWork(const std::string& file, const std::string& data, const std::string& tables,
                                   Report& report);

/// As above; a drawing is told to be no job.
std::unique_ptr<OpenWork> openJob(const std::string& file, const std::string& data, const std::string& tables,
                                  Report& report);

}  // namespace kr
