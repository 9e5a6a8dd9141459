#pragma once

#include <string>

#include "Job.h"

namespace kr {

/// What a view shows, as a job of one plane: its points are those of the paper at real size, each member has the view
/// and the rotation of section in which its nearer side faces the viewer, and names and profiles are the job's.
///
/// A member along the look shows its section at its place: "Secao" when its start is the nearer end, else "SecaoVerso".
/// Any other shows an elevation; one that slants towards the viewer is shortened as it appears, its ends drawn square.
/// Members don't hide each other.
Job projected(const Job& job, const JobView& view);

/// The job with every member laid into the drawing plane at its true length: what members are made of that are counted
/// and listed. A job of one plane stays as it is.
Job laidDown(const Job& job);

/// What stands above a view: its title, or what it looks like.
std::string viewName(const JobView& view);

/// The views of a sheet that names none in a job that leaves the plane: plan, front and right.
std::vector<JobView> standardViews();

}  // namespace kr
