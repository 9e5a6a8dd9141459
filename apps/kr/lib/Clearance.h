#pragma once

#include "Job.h"

namespace kr {

/// Adds to the setbacks of each member with a clearance what keeps it clear of the members without one that pass its
/// nodes: the nearer corner of its square end is then the clearance away from their faces.
void keepMembersClear(Job& job);

}  // namespace kr
