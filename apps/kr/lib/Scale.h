#pragma once

#include <string>

namespace kr {

/// "1:50" of 0.02, "2:1" of 2.
std::string scaleText(double scale);

/// The largest scale, of those that drawings are made at, at which `real` mm take no more than `paper` mm.
double fittingScale(double real, double paper);

}  // namespace kr
