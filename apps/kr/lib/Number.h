#pragma once

#include <string>

namespace kr {

/// The shortest decimal text that reads back as the same number. The decimal sign is a point everywhere.
std::string shortest(double value);

/// `value` rounded to `decimals` places, with a point, without grouping. Never "-0".
std::string fixed(double value, int decimals);

}  // namespace kr
