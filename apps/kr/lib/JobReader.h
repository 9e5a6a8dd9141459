#pragma once

#include <string_view>
#include <vector>

#include "Job.h"
#include "JobBuilder.h"
#include "Problem.h"

namespace kr {

/// Reads a job from its JSON text. `problems` receives everything that is wrong with it, in the order of the text, each
/// with its line, column and path; a syntax error is the last. Returns true, and a job that can be drawn, when there is
/// none. The format stands in docs/job-format.md.
bool readJob(std::string_view text, const KnownNames& known, Job& job, std::vector<Problem>& problems);

/// Does to the members of a job that was read what it wants done to them (makeModels()). Problems as of readJob().
bool modelJob(std::string_view text, Job& job, std::vector<Problem>& problems);

}  // namespace kr
