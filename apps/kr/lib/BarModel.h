#pragma once

#include <vector>

#include "Job.h"
#include "Problem.h"

class KrObject;

namespace kr {

/// Does to a model of each member what the job wants done to it: cuts first, then holes, notches, splits and limits. A
/// member that several views show then takes all of it from its model. False, with a problem for each modifier that
/// can't be, which has a path and no offset.
bool makeModels(Job& job, std::vector<Problem>& problems);

/// Brings what was done to a model to a member as it was made for one view, between the ends of its axis. A member that
/// is drawn shorter than it is, because it slants away from the viewer, is scaled along.
void applyModel(const JobModifiers& modifiers, KrObject& member);

}  // namespace kr
