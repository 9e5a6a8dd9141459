#include <gmock/gmock.h>

#include <cmath>
#include <numbers>
#include <random>

#include "host/companion/side/SideFunctions.h"
#include "host/ge/ge.h"
#include "host/os/os.h"

namespace {

constexpr double kPi = std::numbers::pi;
constexpr double kScale = 127.0;

/// The side library as the module binds it: by name.
class SideLibraryFile : public testing::Test {
 protected:
  void SetUp() override {
    library_ = LoadLibraryW(os::toWide(KR_INSTALL_FOLDER "/Support/krobjfn_ryB16._kr").c_str());
    ASSERT_NE(library_, nullptr) << os::lastLoadError();
    midArco_ = reinterpret_cast<decltype(&krMidArco)>(GetProcAddress(library_, "krMidArco"));
    isBulge6000_ = reinterpret_cast<decltype(&krIsBulge6000)>(GetProcAddress(library_, "krIsBulge6000"));
    orientacao_ = reinterpret_cast<decltype(&krOrientacaoVetor)>(GetProcAddress(library_, "krOrientacaoVetor"));
    ASSERT_NE(midArco_, nullptr);
    ASSERT_NE(isBulge6000_, nullptr);
    ASSERT_NE(orientacao_, nullptr);
  }
  void TearDown() override { FreeLibrary(library_); }

  AcGePoint3d middle(const AcGePoint3d& p0, const AcGePoint3d& p1, double bulge) const {
    AcGePoint3d result;
    midArco_(p0, p1, bulge, result);
    return result;
  }

  HMODULE library_ = nullptr;
  decltype(&krMidArco) midArco_ = nullptr;
  decltype(&krIsBulge6000) isBulge6000_ = nullptr;
  decltype(&krOrientacaoVetor) orientacao_ = nullptr;
};

TEST_F(SideLibraryFile, ExportsAllFourFunctions) {
  for (const char* name : {"krAppendEntity", "krOrientacaoVetor", "krMidArco", "krIsBulge6000"}) {
    EXPECT_NE(GetProcAddress(library_, name), nullptr) << name;
  }
}

// A tube's section goes left, top, right at negative bulge: clockwise, its middle on the circle's top.
TEST_F(SideLibraryFile, NegativeBulgeTurnsClockwise) {
  const AcGePoint3d top = middle(AcGePoint3d(-50, 0, 7), AcGePoint3d(50, 0, 9), -kScale);
  EXPECT_NEAR(top.x, 0, 1e-12);
  EXPECT_NEAR(top.y, 50, 1e-12);
  EXPECT_NEAR(top.z, 8, 1e-12);
  const AcGePoint3d bottom = middle(AcGePoint3d(-50, 0, 0), AcGePoint3d(50, 0, 0), kScale);
  EXPECT_NEAR(bottom.y, -50, 1e-12);
}

TEST_F(SideLibraryFile, BulgeZeroGivesTheChordsMiddle) {
  const AcGePoint3d point = middle(AcGePoint3d(1, 2, 3), AcGePoint3d(5, 6, 7), 0);
  EXPECT_NEAR(point.distanceTo(AcGePoint3d(3, 4, 5)), 0, 1e-12);
}

TEST_F(SideLibraryFile, EqualEndsGiveThatPoint) {
  EXPECT_NEAR(middle(AcGePoint3d(1, 2, 3), AcGePoint3d(1, 2, 3), 60).distanceTo(AcGePoint3d(1, 2, 3)), 0, 1e-12);
}

// Against the arc itself: the ends and the expected middle are placed on a circle by angles.
TEST_F(SideLibraryFile, MiddleLiesAtHalfTheSweepForAnyArc) {
  std::mt19937 random(11);
  std::uniform_real_distribution<double> unit(0, 1);
  for (int i = 0; i < 5000; ++i) {
    const double radius = std::exp(unit(random) * 10 - 2);
    const double start = unit(random) * 2 * kPi;
    const double sweep = (unit(random) * 2 - 1) * 1.9 * kPi;
    const double cx = unit(random) * 1000 - 500;
    const double cy = unit(random) * 1000 - 500;
    const auto at = [&](double angle) {
      return AcGePoint3d(cx + radius * std::cos(angle), cy + radius * std::sin(angle), 0);
    };
    const AcGePoint3d found = middle(at(start), at(start + sweep), kScale * std::tan(sweep / 4));
    ASSERT_NEAR(found.distanceTo(at(start + sweep / 2)), 0, 1e-9 * (radius + 500)) << start << " " << sweep;
  }
}

TEST_F(SideLibraryFile, ContourMarkersGoFrom6000ToBelow7000) {
  EXPECT_NE(isBulge6000_(6000.0), 0);
  EXPECT_NE(isBulge6000_(6012.5), 0);
  EXPECT_NE(isBulge6000_(std::nextafter(7000.0, 0.0)), 0);
  EXPECT_EQ(isBulge6000_(7000.0), 0);
  EXPECT_EQ(isBulge6000_(std::nextafter(6000.0, 0.0)), 0);
  EXPECT_EQ(isBulge6000_(5000.0), 0);
  EXPECT_EQ(isBulge6000_(-6000.0), 0);
  EXPECT_EQ(isBulge6000_(0.0), 0);
  EXPECT_EQ(isBulge6000_(std::nan("")), 0);
}

TEST_F(SideLibraryFile, OrientationOfAVectorGoesOnceRound) {
  EXPECT_EQ(orientacao_(AcGeVector3d(3, 0, 1)), 0);
  EXPECT_NEAR(orientacao_(AcGeVector3d(0, 2, 0)), kPi / 2, 1e-15);
  EXPECT_NEAR(orientacao_(AcGeVector3d(-1, 0, 0)), kPi, 1e-15);
  EXPECT_NEAR(orientacao_(AcGeVector3d(1, -1, 0)), 7 * kPi / 4, 1e-15);
  EXPECT_EQ(orientacao_(AcGeVector3d(0, 0, 1)), 0);
  EXPECT_LT(orientacao_(AcGeVector3d(1, -1e-300, 0)), 2 * kPi);
}

}  // namespace
