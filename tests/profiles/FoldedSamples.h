#pragma once

#include <cmath>
#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "SectionChecks.h"
#include "profiles/KrBox.h"
#include "profiles/KrCaixaDobrado.h"
#include "profiles/KrCantTDobrada.h"
#include "profiles/KrCantUDobrada.h"
#include "profiles/KrCantoneiraDobrada.h"
#include "profiles/KrCartola.h"
#include "profiles/KrChapa.h"
#include "profiles/KrIDobrado.h"
#include "profiles/KrISoldado.h"
#include "profiles/KrUDobrado.h"
#include "profiles/KrUser.h"
#include "profiles/KrXDobrado.h"
#include "profiles/KrZDobrado.h"

/// Bars of the classes made from a middle line, and the measures of their sections by formula.
namespace folded {

inline constexpr double kPi = 3.141592653589793;
inline constexpr double kRight = kPi / 2.0;
inline constexpr double kLength = 1000.0;
inline const AcGePoint3d kOrigin(0.0, 0.0, 0.0);

/// Developed length of a strip of thickness t, inner radius r: its runs measured to their outer corners, less twice the
/// set-back of every bend, plus the bends along the middle of the metal.
inline double developed(double t, double r, std::initializer_list<double> runs, std::initializer_list<double> angles) {
  double length = 0.0;
  for (const double run : runs) length += run;
  for (const double angle : angles) {
    const double setBack = std::fmin(std::tan((kPi - angle) / 2.0), 1.0) * (t + r);
    length += (r + t / 2.0) * (kPi - angle) - 2.0 * setBack;
  }
  return length;
}

struct Sample {
  std::string name;
  std::function<std::unique_ptr<KrObject>(KrVistas, double)> make;  ///< 1000 long, along X from the origin
  int contours;
  double area;
  double outline;    ///< length of all contours
  double perimeter;  ///< what the class tells
  section::Box box;  ///< about the origin of the section
};

inline std::ostream& operator<<(std::ostream& out, const Sample& sample) {
  return out << sample.name;
}

/// A sample of `halves` strips of one developed length, of which the class tells `told` as its perimeter.
template <class Make>
Sample strips(const std::string& name, int halves, double told, double t, double length, section::Box box, Make make) {
  const double round = 2.0 * length + 2.0 * t;
  return {name,
          [make](KrVistas vista, double turn) -> std::unique_ptr<KrObject> { return make(vista, turn); },
          halves,
          halves* length* t,
          halves* round,
          told* round,
          box};
}

inline std::vector<Sample> samples() {
  static constexpr double R = kRight;
  const double lipU = developed(3, 3, {20, 75, 200, 60, 20}, {R, R, R, R});
  const double plainU = developed(3, 3, {75, 200, 60}, {R, R});
  const double slopedU = developed(3, 3, {75, 200, 75}, {100 * kPi / 180, 110 * kPi / 180});
  const double lipL = developed(3, 3, {15, 60, 50, 15}, {R, R, R});
  const double plainL = developed(3, 3, {60, 50}, {R});
  const double lipZ = developed(3, 3, {20, 75, 200, 70, 20}, {R, R, R, R});
  const double openZ = developed(3, 3, {20, 75, 200, 70, 20}, {R + 0.7, R, R, R + 0.7});
  const double hat = developed(3, 3, {25, 60, 80, 60, 25}, {R, R, R, R});
  const double plainHat = developed(3, 3, {60, 80, 60}, {R, R});
  const double boxHalf = developed(3, 3, {20, 75, 200, 75, 20}, {R, R, R, R});
  const double boxHalfPlain = developed(3, 3, {75, 200, 75}, {R, R});
  const double r2 = std::sqrt(2.0);
  const double third = 50.0 / 3.0;
  const auto free = section::Box{};  // not told by a simple formula
  std::vector<Sample> all{
      strips("lipped channel", 1, 1, 3, lipU, {-37.5, -100, 37.5, 100},
             [](KrVistas v, double a) {
               return std::make_unique<KrUDobrado>(kOrigin, v, 200, 75, 60, 3, 3, R, R, kLength, a, 0, 20);
             }),
      strips("channel with lips outward", 1, 1, 3, lipU, {-37.5, -117, 37.5, 117},
             [](KrVistas v, double a) {
               return std::make_unique<KrUDobrado>(kOrigin, v, 200, 75, 60, 3, 3, R, R, kLength, a, 0, -20);
             }),
      strips("plain channel", 1, 1, 3, plainU, {-37.5, -100, 37.5, 100},
             [](KrVistas v, double a) {
               return std::make_unique<KrUDobrado>(kOrigin, v, 200, 75, 60, 3, 3, R, R, kLength, a, 0, 0);
             }),
      strips("channel at obtuse angles", 1, 1, 3, slopedU, free,
             [](KrVistas v, double a) {
               return std::make_unique<KrUDobrado>(kOrigin, v, 200, 75, 75, 3, 3, 100 * kPi / 180, 110 * kPi / 180,
                                                   kLength, a, 0, 0);
             }),
      strips("lipped angle", 1, 1, 3, lipL, {-third, -40, 50 - third, 20},
             [](KrVistas v, double a) {
               return std::make_unique<KrCantoneiraDobrada>(kOrigin, v, 60, 50, 3, 3, R, kLength, a, 0, 15);
             }),
      strips("angle with lips outward", 1, 1, 3, lipL, {-third - 12, -40, 50 - third, 32},
             [](KrVistas v, double a) {
               return std::make_unique<KrCantoneiraDobrada>(kOrigin, v, 60, 50, 3, 3, R, kLength, a, 0, -15);
             }),
      strips("plain angle", 1, 1, 3, plainL, {-third, -40, 50 - third, 20},
             [](KrVistas v, double a) {
               return std::make_unique<KrCantoneiraDobrada>(kOrigin, v, 60, 50, 3, 3, R, kLength, a, 0, 0);
             }),
      strips("acute angle", 1, 1, 3, developed(3, 3, {60, 50}, {70 * kPi / 180}), free,
             [](KrVistas v, double a) {
               return std::make_unique<KrCantoneiraDobrada>(kOrigin, v, 60, 50, 3, 3, 70 * kPi / 180, kLength, a, 0, 0);
             }),
      strips("lipped Z", 1, 1, 3, lipZ, {-73.5, -100, 68.5, 100},
             [](KrVistas v, double a) {
               return std::make_unique<KrZDobrado>(kOrigin, v, 200, 75, 70, 3, 3, R, R, kLength, a, 0, 20, 0);
             }),
      strips("Z with lips turned open", 1, 1, 3, openZ, free,
             [](KrVistas v, double a) {
               return std::make_unique<KrZDobrado>(kOrigin, v, 200, 75, 70, 3, 3, R, R, kLength, a, 0, 20, 0.7);
             }),
      strips("plain Z", 1, 1, 3, developed(3, 3, {75, 200, 70}, {R, R}), {-73.5, -100, 68.5, 100},
             [](KrVistas v, double a) {
               return std::make_unique<KrZDobrado>(kOrigin, v, 200, 75, 70, 3, 3, R, R, kLength, a, 0, 0, 0);
             }),
      strips("hat", 1, 1, 3, hat, {-62, -30, 62, 30},
             [](KrVistas v, double a) {
               return std::make_unique<KrCartola>(kOrigin, v, 60, 80, 3, 3, 25, kLength, a, 0);
             }),
      strips(
          "hat without brims", 1, 1, 3, plainHat, {-40, -30, 40, 30},
          [](KrVistas v, double a) { return std::make_unique<KrCartola>(kOrigin, v, 60, 80, 3, 3, 0, kLength, a, 0); }),
      strips("hat with brims inward", 1, 1, 3, hat, {-40, -30, 40, 30},
             [](KrVistas v, double a) {
               return std::make_unique<KrCartola>(kOrigin, v, 60, 80, 3, 3, -25, kLength, a, 0);
             }),
      // The box and the I of channels tell one half's perimeter.
      strips("box of lipped channels", 2, 1, 3, boxHalf, {-80, -100, 80, 100},
             [](KrVistas v, double a) {
               return std::make_unique<KrCaixaDobrado>(kOrigin, v, 200, 75, 3, 3, 10, kLength, a, 0, 20);
             }),
      strips("box of plain channels", 2, 1, 3, boxHalfPlain, {-80, -100, 80, 100},
             [](KrVistas v, double a) {
               return std::make_unique<KrCaixaDobrado>(kOrigin, v, 200, 75, 3, 3, 10, kLength, a, 0, 0);
             }),
      strips("I of lipped channels", 2, 1, 3, lipU, {-80, -100, 80, 100},
             [](KrVistas v, double a) {
               return std::make_unique<KrIDobrado>(kOrigin, v, 200, 75, 60, 3, 3, 10, kLength, a, 0, 20);
             }),
      strips("I of plain channels", 2, 1, 3, plainU, {-80, -100, 80, 100},
             [](KrVistas v, double a) {
               return std::make_unique<KrIDobrado>(kOrigin, v, 200, 75, 60, 3, 3, 10, kLength, a, 0, 0);
             }),
      strips("T of plain angles", 2, 2, 3, plainL, {-55, -58.5, 55, 1.5},
             [](KrVistas v, double a) {
               return std::make_unique<KrCantTDobrada>(kOrigin, v, 60, 50, 3, 3, 10, kLength, a, 0, 0);
             }),
      strips("T of lipped angles", 2, 2, 3, lipL, {-55, -45, 55, 15},
             [](KrVistas v, double a) {
               return std::make_unique<KrCantTDobrada>(kOrigin, v, 60, 50, 3, 3, 10, kLength, a, 0, 15);
             }),
      strips("T of angles with lips outward", 2, 2, 3, lipL, {-67, -72, 67, 0},
             [](KrVistas v, double a) {
               return std::make_unique<KrCantTDobrada>(kOrigin, v, 60, 50, 3, 3, 10, kLength, a, 0, -15);
             }),
      strips("U of plain angles", 2, 2, 3, plainL, {-55, -58.5, 55, 1.5},
             [](KrVistas v, double a) {
               return std::make_unique<KrCantUDobrada>(kOrigin, v, 60, 50, 3, 3, 10, kLength, a, 0, 0);
             }),
      strips("U of lipped angles", 2, 2, 3, lipL, {-55, -45, 55, 15},
             [](KrVistas v, double a) {
               return std::make_unique<KrCantUDobrada>(kOrigin, v, 60, 50, 3, 3, 10, kLength, a, 0, 15);
             }),
      strips("U of angles with lips outward", 2, 2, 3, lipL, {-67, -72, 67, 0},
             [](KrVistas v, double a) {
               return std::make_unique<KrCantUDobrada>(kOrigin, v, 60, 50, 3, 3, 10, kLength, a, 0, -15);
             }),
      strips("cross of plain angles", 2, 2, 3, plainL, {-51 / r2 - 11, -60 / r2, 51 / r2 + 11, 50 / r2},
             [](KrVistas v, double a) {
               return std::make_unique<KrXDobrado>(kOrigin, v, 60, 50, 3, 3, R, 10, kLength, a, 0, 0);
             }),
      strips("cross of lipped angles", 2, 2, 3, lipL, free,
             [](KrVistas v, double a) {
               return std::make_unique<KrXDobrado>(kOrigin, v, 60, 50, 3, 3, R, 10, kLength, a, 0, 15);
             }),
  };
  // A plate tells no perimeter.
  all.push_back(strips("plate", 1, 0, 8, 120, {-4, 0, 4, 120}, [](KrVistas v, double a) {
    return std::make_unique<KrChapa>(kOrigin, v, 120, 8, kLength, a, 0);
  }));
  const double welded = 150 * 10 + 200 * 12.5 + 277.5 * 6;
  const double faces = 2 * (150 + 10) + 2 * (200 + 12.5) + 2 * (277.5 + 6);
  all.push_back({"welded I",
                 [](KrVistas v, double a) -> std::unique_ptr<KrObject> {
                   return std::make_unique<KrISoldado>(kOrigin, 300, 150, 200, 10, 12.5, 6, kLength, v, a, 0, 40);
                 },
                 3,
                 welded,
                 faces,
                 faces,
                 {-100, -155, 100, 145}});
  const double outer = 2 * (60 + 100) - (8 - 2 * kPi) * 8;
  const double inner = 2 * (50 + 90) - (8 - 2 * kPi) * 3;
  all.push_back({"hollow section",
                 [](KrVistas v, double a) -> std::unique_ptr<KrObject> {
                   return std::make_unique<KrBox>(kOrigin, v, 100, 60, 5, 3, kLength, a, 0);
                 },
                 2,
                 100 * 60 - (4 - kPi) * 64 - (90 * 50 - (4 - kPi) * 9),
                 outer + inner,
                 outer + inner - 2 * 5,
                 {-30, -50, 30, 50}});
  return all;
}

/// Area of the metal: contours beside each other, or one within the other.
inline double areaOf(const oracle::Outline& outline, bool hollow) {
  double area = 0.0;
  for (std::size_t i = 0; i < outline.size(); ++i) {
    const double contour = std::fabs(oracle::area(outline[i]));
    area += hollow && i > 0 ? -contour : contour;
  }
  return area;
}

/// The middle line of a member as it is filed behind `doubles` parameters, the origin's node last.
inline std::vector<profile::Node> filedLine(const KrObject& member, int doubles, bool marked = false) {
  AcDbMemoryDwgFiler base(AcDb::kFileFiler);
  member.KrObject::dwgOutFields(&base);
  AcDbMemoryDwgFiler filer(AcDb::kFileFiler);
  EXPECT_EQ(member.dwgOutFields(&filer), Acad::eOk);
  filer.seek(base.tell());
  double skipped = 0.0;
  if (marked) filer.readDouble(&skipped);
  Adesk::Int16 versao = 0;
  filer.readInt16(&versao);
  for (int i = 0; i < doubles; ++i) filer.readDouble(&skipped);
  Adesk::Int32 qtd = -1;
  filer.readInt32(&qtd);
  std::vector<profile::Node> nodes;
  for (Adesk::Int32 i = 0; i <= qtd && filer.filerStatus() == Acad::eOk; ++i) {
    AcGeVector3d vertex;
    double bulge = 0.0;
    filer.readVector3d(&vertex);
    filer.readDouble(&bulge);
    nodes.push_back({vertex.x, vertex.y, bulge});
  }
  return nodes;
}

/// A line against a table with coordinates to three decimals and bulges to four.
inline void expectLine(const std::vector<profile::Node>& nodes, const std::vector<profile::Node>& table) {
  ASSERT_EQ(nodes.size(), table.size());
  for (std::size_t i = 0; i < nodes.size(); ++i) {
    EXPECT_NEAR(nodes[i].x, table[i].x, 5.01e-4) << "node " << i + 1;
    EXPECT_NEAR(nodes[i].y, table[i].y, 5.01e-4) << "node " << i + 1;
    EXPECT_NEAR(nodes[i].bulge, table[i].bulge, 5.01e-5) << "node " << i + 1;
  }
}

/// Files a middle line as `filedLine` gives it.
inline void writeLine(AcDbDwgFiler& filer, const std::vector<profile::Node>& nodes) {
  filer.writeInt32(static_cast<Adesk::Int32>(nodes.size()) - 1);
  for (const profile::Node& node : nodes) {
    filer.writeVector3d(AcGeVector3d(node.x, node.y, 0.0));
    filer.writeDouble(node.bulge);
  }
}

}  // namespace folded
