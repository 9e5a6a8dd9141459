// Members are made with the side library bound: the module's start does it once for the whole program.

#include <gtest/gtest.h>

#include "support/SideLibrary.h"

namespace {

class BoundSideLibrary : public ::testing::Environment {
 public:
  void SetUp() override {
    bindSideLibrary();
    ASSERT_NE(sideLibrary().krMidArco, nullptr);
  }
};

const auto* const kBound = ::testing::AddGlobalTestEnvironment(new BoundSideLibrary);

}  // namespace
