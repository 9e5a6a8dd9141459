#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "DrawingSource.h"
#include "host/io/DrawingAudit.h"

namespace kr {

/// How many faults there are of which kind.
struct FaultCounts {
  std::size_t fixed = 0;
  std::size_t mended = 0;   ///< put right by each reading of a whole file, with nothing lost: by a save in the file too
  std::size_t unfixed = 0;  ///< all others
};

FaultCounts countsOf(const OpenDrawing& open, const std::vector<krio::AuditFinding>& faults);

/// What is wrong with an open drawing: what its reading found, then what an audit of its objects does, which with `fix`
/// mends what it can. One that was recovered has a fault at least.
std::vector<krio::AuditFinding> faultsOf(const OpenDrawing& open, bool fix);

/// What the reading put right is so in the file too once that is saved.
void markSaved(std::vector<krio::AuditFinding>& faults);

/// A fault in one line: number, class, handle, sentence, and what became of it.
std::string lineOf(const krio::AuditFinding& fault);

}  // namespace kr
