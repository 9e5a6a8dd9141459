// Members live in a started module: their classes registered, the side library bound. Started once for the whole
// program.

#include <gtest/gtest.h>

#include <cstdlib>

#include "frame/Module.h"
#include "support/SideLibrary.h"

namespace {

class StartedModule : public ::testing::Environment {
 public:
  void SetUp() override {
    ::setenv("KRTRAMA_BRICSV17", KR_INSTALL_FOLDER, 1);
    acrxEntryPoint(AcRx::kInitAppMsg, nullptr);
    ASSERT_NE(sideLibrary().krMidArco, nullptr) << "the side library isn't bound";
  }
  void TearDown() override { acrxEntryPoint(AcRx::kUnloadAppMsg, nullptr); }
};

const auto* const kStarted = ::testing::AddGlobalTestEnvironment(new StartedModule);

}  // namespace
