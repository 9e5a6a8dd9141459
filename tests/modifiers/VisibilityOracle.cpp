// The shapes to try and the judge of elevations, from the tests of the base.
#include "object/VisibilityOracle.cpp"  // NOLINT(bugprone-suspicious-include)
