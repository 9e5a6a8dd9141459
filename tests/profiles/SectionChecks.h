#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <string>
#include <vector>

#include "ProfileTest.h"
#include "object/VisibilityOracle.h"

/// Checks of a section's outline that know nothing of how it was made.
namespace section {

inline constexpr double kBulgeUnit = 127.0;

/// A contour without its edges of no length, which have no shape whatever their bulge.
inline oracle::Contour withoutNulls(const oracle::Contour& contour) {
  oracle::Contour kept;
  for (std::size_t i = 0; i < contour.size(); ++i) {
    const oracle::Vertex& next = contour[(i + 1) % contour.size()];
    if (std::hypot(next.x - contour[i].x, next.y - contour[i].y) > 1e-9) kept.push_back(contour[i]);
  }
  return kept;
}

/// The contours of an outline about its reference, each without the node that closes it and without edges of no length.
/// A contour whose last node doesn't lie over its first is reported.
inline oracle::Outline contoursOf(const KrObject& member) {
  const std::vector<profile::Node> nodes = profile::outlineOf(member);
  oracle::Outline outline(1);
  if (nodes.empty()) return outline;
  const profile::Node reference = nodes.back();
  EXPECT_EQ(std::fabs(reference.bulge), 5000.0);
  for (std::size_t i = 0; i + 1 < nodes.size(); ++i) {
    const bool ends = nodes[i].bulge >= 6000.0 || i + 2 == nodes.size();
    const oracle::Vertex vertex{nodes[i].x - reference.x, nodes[i].y - reference.y,
                                ends ? 0.0 : nodes[i].bulge / kBulgeUnit};
    if (!ends) {
      outline.back().push_back(vertex);
      continue;
    }
    EXPECT_NEAR(vertex.x, outline.back().front().x, 1e-9) << "contour " << outline.size() << " is open";
    EXPECT_NEAR(vertex.y, outline.back().front().y, 1e-9) << "contour " << outline.size() << " is open";
    outline.back() = withoutNulls(outline.back());
    if (i + 2 < nodes.size()) outline.emplace_back();
  }
  return outline;
}

/// Length of an edge along its arc.
inline double lengthOf(const oracle::Vertex& a, const oracle::Vertex& b) {
  const double chord = std::hypot(b.x - a.x, b.y - a.y);
  if (a.bulge == 0.0) return chord;
  const double sweep = 4.0 * std::atan(std::fabs(a.bulge));
  return chord / (2.0 * std::sin(sweep / 2.0)) * sweep;
}

inline double perimeterOf(const oracle::Contour& contour) {
  double length = 0.0;
  for (std::size_t i = 0; i < contour.size(); ++i) length += lengthOf(contour[i], contour[(i + 1) % contour.size()]);
  return length;
}

/// Area of the metal: the contours of these sections lie beside each other.
inline double areaOf(const oracle::Outline& outline) {
  double area = 0.0;
  for (const oracle::Contour& contour : outline) area += std::fabs(oracle::area(contour));
  return area;
}

struct Point {
  double x, y;
};

/// The edges of all contours as chords, arcs in steps; edges of no length left out.
inline std::vector<std::pair<Point, Point>> chordsOf(const oracle::Outline& outline) {
  constexpr int kSteps = 16;
  std::vector<std::pair<Point, Point>> chords;
  for (const oracle::Contour& contour : outline) {
    for (std::size_t i = 0; i < contour.size(); ++i) {
      const oracle::Vertex& a = contour[i];
      const oracle::Vertex& b = contour[(i + 1) % contour.size()];
      const double dx = b.x - a.x, dy = b.y - a.y;
      if (std::hypot(dx, dy) < 1e-9) continue;
      if (a.bulge == 0.0) {
        chords.push_back({{a.x, a.y}, {b.x, b.y}});
        continue;
      }
      // A point of the arc sees the chord under a constant angle: walk the sweep in equal turns of the tangent.
      const double sweep = 4.0 * std::atan(a.bulge);
      const double radius = std::hypot(dx, dy) / (2.0 * std::sin(sweep / 2.0));
      double heading = std::atan2(dy, dx) - sweep / 2.0;
      Point at{a.x, a.y};
      for (int k = 0; k < kSteps; ++k) {
        const double turn = sweep / kSteps;
        const double step = 2.0 * radius * std::sin(turn / 2.0);
        const Point to{at.x + step * std::cos(heading + turn / 2.0), at.y + step * std::sin(heading + turn / 2.0)};
        chords.push_back({at, to});
        at = to;
        heading += turn;
      }
    }
  }
  return chords;
}

/// Places where two chords run through each other; touching in a point or along a line isn't counted.
inline int crossingsOf(const oracle::Outline& outline) {
  const std::vector<std::pair<Point, Point>> chords = chordsOf(outline);
  const auto side = [](const std::pair<Point, Point>& line, const Point& p) {
    const double dx = line.second.x - line.first.x, dy = line.second.y - line.first.y;
    const double away = (dx * (p.y - line.first.y) - dy * (p.x - line.first.x)) / std::hypot(dx, dy);
    return std::fabs(away) < 1e-6 ? 0 : away > 0 ? 1 : -1;
  };
  int crossings = 0;
  for (std::size_t i = 0; i < chords.size(); ++i)
    for (std::size_t j = i + 1; j < chords.size(); ++j) {
      const auto& a = chords[i];
      const auto& b = chords[j];
      if (side(a, b.first) * side(a, b.second) < 0 && side(b, a.first) * side(b, a.second) < 0) ++crossings;
    }
  return crossings;
}

/// Width and height of what the outline encloses, and where it lies about the reference.
struct Box {
  double minX = 1e300, minY = 1e300, maxX = -1e300, maxY = -1e300;
};
inline Box boxOf(const oracle::Outline& outline) {
  Box box;
  for (const auto& [a, b] : chordsOf(outline))
    for (const Point& p : {a, b}) {
      box.minX = std::fmin(box.minX, p.x);
      box.maxX = std::fmax(box.maxX, p.x);
      box.minY = std::fmin(box.minY, p.y);
      box.maxY = std::fmax(box.maxY, p.y);
    }
  return box;
}

/// The outline's nodes against a table that gives coordinates to three decimals and bulges to four.
inline void expectTable(const KrObject& member, const std::vector<profile::Node>& table) {
  const std::vector<profile::Node> nodes = profile::outlineOf(member);
  ASSERT_EQ(nodes.size(), table.size());
  for (std::size_t i = 0; i < nodes.size(); ++i) {
    EXPECT_NEAR(nodes[i].x, table[i].x, 5.01e-4) << "node " << i + 1;
    EXPECT_NEAR(nodes[i].y, table[i].y, 5.01e-4) << "node " << i + 1;
    EXPECT_NEAR(nodes[i].bulge, table[i].bulge, 5.01e-5) << "node " << i + 1;
  }
}

}  // namespace section

namespace profile {

/// A parameter of a class and the value that it should have.
template <class Member>
struct Parameter {
  const char* name;
  Acad::ErrorStatus (Member::*getter)(double&) const;
  double expected;
};
#define PARAMETER(CLASS, NAME, VALUE) \
  profile::Parameter<CLASS> {         \
#NAME, &CLASS::NAME, VALUE        \
  }

template <class Member>
double valueOf(const Member& member, Acad::ErrorStatus (Member::*getter)(double&) const) {
  double value = -1e300;
  EXPECT_EQ((member.*getter)(value), Acad::eOk);
  return value;
}

template <class Member>
void expectParameters(const Member& member, const std::vector<Parameter<Member>>& parameters) {
  for (const Parameter<Member>& each : parameters) {
    EXPECT_DOUBLE_EQ(valueOf(member, each.getter), each.expected) << each.name;
  }
}

/// Where a bar lies and what it shows.
inline void expectBar(const KrObject& member, KrVistas vista, double angleVista, double comprimento,
                      double angleSecao) {
  EXPECT_EQ(member.Vista(0), vista);
  EXPECT_NEAR(member.angleVista(), angleVista, 1e-12);
  EXPECT_EQ(member.angleSecao(), angleSecao);
  double length = -1.0;
  EXPECT_EQ(member.Comprimento(length), Acad::eOk);
  EXPECT_NEAR(length, comprimento, 1e-9);
  EXPECT_TRUE(member.endPoint().isEqualTo(member.startPoint() +
                                          AcGeVector3d(std::cos(angleVista), std::sin(angleVista), 0.0) * comprimento));
}

/// The two points that the tests of constructors lay a bar between, and the measures that follow: 300 across, 400 up.
inline const AcGePoint3d kStart(10.0, 20.0, 0.0);
inline const AcGePoint3d kEnd(310.0, 420.0, 0.0);
inline const double kAngle = std::atan2(4.0, 3.0);
inline constexpr double kLength = 500.0;

}  // namespace profile
