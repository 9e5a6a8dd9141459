#pragma once

#include <optional>
#include <string>
#include <vector>

#include "Bom.h"
#include "Job.h"
#include "host/io/plot/PlotSheet.h"

class AcDbDatabase;

namespace kr {

/// The members of a job as they stand in a database, and their bill.
struct DrawnJob {
  const Job& job;
  const Bom& bom;
  AcDbDatabase& database;
};

/// The sheets that a job asks for; one of size A1, drawn in full, when it asks for none.
std::vector<JobSheet> sheetsOf(const Job& job);

/// Lays out a sheet, `number` of `count`: border, title block, bill of materials, notes, the elevation with marks and
/// dimensions, the sections and the details. What belongs to paper goes into a block of its own. Nothing, with `why`,
/// when the sheet can't hold what it shall show.
std::optional<plot::PlotSheet> layOutSheet(const DrawnJob& drawn, const JobSheet& sheet, int number, int count,
                                           std::string& why);

}  // namespace kr
