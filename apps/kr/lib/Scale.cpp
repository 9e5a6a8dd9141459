#include "Scale.h"

#include <cmath>

#include "Number.h"

namespace kr {
namespace {

constexpr double kSteps[] = {1, 2, 2.5, 5, 10};
constexpr double kRoom = 1e-9;  // a drawing that just fits does
constexpr int kRatioDecimals = 6;

// A ratio free of what dividing left: 49.99999999 is 50.
std::string ratio(double value) {
  return shortest(std::stod(fixed(value, kRatioDecimals)));
}

}  // namespace

std::string scaleText(double scale) {
  return scale < 1 ? "1:" + ratio(1 / scale) : ratio(scale) + ":1";
}

double fittingScale(double real, double paper) {
  if (real <= paper * (1 + kRoom)) return 1;
  for (double decade = 1;; decade *= 10) {
    for (const double step : kSteps) {
      if (real / (step * decade) <= paper * (1 + kRoom)) return 1 / (step * decade);
    }
  }
}

}  // namespace kr
