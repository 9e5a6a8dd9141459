// The measure of areas, from the tests of the base.
#include "object/VisibilityOracle.cpp"  // NOLINT(bugprone-suspicious-include)
