// Members are made with the side library bound: the module's start does it once for the whole program.

#include <gtest/gtest.h>

#include <cstdlib>

#include "support/SideLibrary.h"

namespace {

class BoundSideLibrary : public ::testing::Environment {
 public:
  void SetUp() override {
    ::setenv("KRTRAMA_BRICSV17", KR_INSTALL_FOLDER, 1);
    bindSideLibrary();
    ASSERT_NE(sideLibrary().krMidArco, nullptr);
  }
};

const auto* const kBound = ::testing::AddGlobalTestEnvironment(new BoundSideLibrary);

}  // namespace
