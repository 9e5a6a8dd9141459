// The middle lines, node by node, against tables that were worked out by hand.

#include <gtest/gtest.h>

#include "FoldedSamples.h"

namespace {

using folded::expectLine;
using folded::filedLine;
using folded::kOrigin;
using folded::kPi;
using folded::kRight;

/// A quarter bend: 127 times the tangent of a sixteenth of a turn.
constexpr double kQuarter = 52.6051;

}  // namespace

TEST(MiddleLineTable, LippedChannel) {
  const KrUDobrado bar(kOrigin, Secao, 200, 75, 75, 3, 3, kRight, kRight, 100, 0, 0, 20);
  expectLine(filedLine(bar, 8), {{-1.5, 18.5, 0},
                                 {-1.5, 4.5, -kQuarter},
                                 {-6, 0, 0},
                                 {-69, 0, -kQuarter},
                                 {-73.5, 4.5, 0},
                                 {-73.5, 192.5, -kQuarter},
                                 {-69, 197, 0},
                                 {-6, 197, -kQuarter},
                                 {-1.5, 192.5, 0},
                                 {-1.5, 178.5, 0},
                                 {-37.5, 98.5, 5000}});
}

// The web is measured along its slope, and the acute bend's set-back is capped.
TEST(MiddleLineTable, ChannelAt100And80DegreesWithoutLips) {
  const KrUDobrado bar(kOrigin, Secao, 200, 75, 75, 3, 3, 100 * kPi / 180, 80 * kPi / 180, 100, 0, 0, 0);
  expectLine(filedLine(bar, 8), {{0, 0, 0},
                                 {-69.965, 0, -46.2242},
                                 {-74.397, 3.719, 0},
                                 {-107.211, 189.813, -59.2211},
                                 {-102.779, 195.095, 0},
                                 {-33.779, 195.095, 0},
                                 {-37.5, 98.5, 5000}});
}

TEST(MiddleLineTable, LippedAngle) {
  const KrCantoneiraDobrada bar(kOrigin, Secao, 60, 50, 3, 3, kRight, 100, 0, 0, 15);
  expectLine(filedLine(bar, 6), {{13.5, 1.5, 0},
                                 {4.5, 1.5, -kQuarter},
                                 {0, 6, 0},
                                 {0, 54, -kQuarter},
                                 {4.5, 58.5, 0},
                                 {42.5, 58.5, -kQuarter},
                                 {47, 54, 0},
                                 {47, 45, 0},
                                 {15.167, 40, 5000}});
}

TEST(MiddleLineTable, LippedZ) {
  const KrZDobrado bar(kOrigin, Secao, 200, 75, 70, 3, 3, kRight, kRight, 100, 0, 0, 20, 0);
  expectLine(filedLine(bar, 9), {{1.5, 18.5, 0},
                                 {1.5, 4.5, kQuarter},
                                 {6, 0, 0},
                                 {69, 0, kQuarter},
                                 {73.5, 4.5, 0},
                                 {73.5, 192.5, -kQuarter},
                                 {78, 197, 0},
                                 {136, 197, -kQuarter},
                                 {140.5, 192.5, 0},
                                 {140.5, 178.5, 0},
                                 {73.5, 98.5, 5000}});
}

TEST(MiddleLineTable, Hat) {
  const KrCartola bar(kOrigin, Secao, 60, 80, 3, 3, 25, 100, 0, 0);
  expectLine(filedLine(bar, 5), {{0, 1.5, 0},
                                 {19, 1.5, kQuarter},
                                 {23.5, 6, 0},
                                 {23.5, 54, -kQuarter},
                                 {28, 58.5, 0},
                                 {96, 58.5, -kQuarter},
                                 {100.5, 54, 0},
                                 {100.5, 6, kQuarter},
                                 {105, 1.5, 0},
                                 {124, 1.5, 0},
                                 {62, 30, 5000}});
}

TEST(MiddleLineTable, WeldedI) {
  const KrISoldado bar(kOrigin, 300, 150, 200, 10, 12.5, 6, 100, Secao, 0, 0, 40);
  expectLine(filedLine(bar, 6, true), {{0, 0, 0},
                                       {150, 0, 6012.5},
                                       {-25, 288.75, 0},
                                       {175, 288.75, 6006},
                                       {75, 5, 0},
                                       {75, 282.5, 0},
                                       {75, 150, 5000}});
}

TEST(MiddleLineTable, Box) {
  const KrBox bar(kOrigin, Secao, 100, 60, 5, 3, 100, 0, 0);
  expectLine(filedLine(bar, 4), {{30, 2.5, 0},
                                 {8, 2.5, -kQuarter},
                                 {2.5, 8, 0},
                                 {2.5, 92, -kQuarter},
                                 {8, 97.5, 0},
                                 {52, 97.5, -kQuarter},
                                 {57.5, 92, 0},
                                 {57.5, 8, -kQuarter},
                                 {52, 2.5, 0},
                                 {30, 2.5, 0},
                                 {30, 50, 5000}});
}

// The first corner is the origin, with the negative code.
TEST(MiddleLineTable, Plate) {
  const KrChapa bar(kOrigin, Secao, 120, 8, 1000, 0, 0);
  expectLine(filedLine(bar, 2), {{0, 0, 0}, {0, 120, 0}, {0, 0, -5000}});
}

// The first half ends in the marker of a wall as thick as the strip; the other half is its mirror image.
TEST(MiddleLineTable, HalvesOfAnI) {
  const KrIDobrado bar(kOrigin, Secao, 100, 50, 40, 3, 3, 10, 100, 0, 0, 0);
  expectLine(filedLine(bar, 7), {{0, 0, 0},
                                 {-44, 0, -kQuarter},
                                 {-48.5, 4.5, 0},
                                 {-48.5, 92.5, -kQuarter},
                                 {-44, 97, 0},
                                 {-10, 97, 6003},
                                 {-110, 0, 0},
                                 {-66, 0, kQuarter},
                                 {-61.5, 4.5, 0},
                                 {-61.5, 92.5, kQuarter},
                                 {-66, 97, 0},
                                 {-100, 97, 0},
                                 {-55, 48.5, 5000}});
}
