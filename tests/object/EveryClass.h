#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "profiles/Kr2ULaminado.h"
#include "profiles/KrBNDuplaLaminada.h"
#include "profiles/KrBNLaminado.h"
#include "profiles/KrBarraRedonda.h"
#include "profiles/KrBox.h"
#include "profiles/KrCaixaDobrado.h"
#include "profiles/KrCantCruzLaminada.h"
#include "profiles/KrCantLaminada.h"
#include "profiles/KrCantLaminadaCaixa.h"
#include "profiles/KrCantTDobrada.h"
#include "profiles/KrCantTEELaminada.h"
#include "profiles/KrCantUDobrada.h"
#include "profiles/KrCantULaminada.h"
#include "profiles/KrCantZLaminada.h"
#include "profiles/KrCantoneiraDobrada.h"
#include "profiles/KrCartola.h"
#include "profiles/KrChapa.h"
#include "profiles/KrIDobrado.h"
#include "profiles/KrILaminadoUSA.h"
#include "profiles/KrISoldado.h"
#include "profiles/KrTubo.h"
#include "profiles/KrUDobrado.h"
#include "profiles/KrULaminado.h"
#include "profiles/KrUULaminado.h"
#include "profiles/KrUser.h"
#include "profiles/KrXDobrado.h"
#include "profiles/KrZDobrado.h"
#include "profiles/ProfileHelpers.h"

/// A bar of every class of the catalogue, for tests of what all classes have in common.
namespace everyclass {

inline constexpr double kLength = 3000;
inline const AcGePoint3d kStart(100, 200, 0);

struct Sample {
  const wchar_t* name;
  std::function<std::unique_ptr<KrObject>(KrVistas view)> make;

  std::unique_ptr<KrObject> empty() const {
    return std::unique_ptr<KrObject>(KrObject::cast(AcRxClass::cast(acrxClassDictionary->at(name))->create()));
  }
};

inline void PrintTo(const Sample& sample, std::ostream* out) {
  for (const wchar_t* c = sample.name; *c != L'\0'; ++c) *out << static_cast<char>(*c);
}

/// From point to point along X, then the section's values.
template <class T, class... Values>
Sample bar(const wchar_t* name, Values... section) {
  return {name, [section...](KrVistas view) {
            return std::make_unique<T>(kStart, kStart + AcGeVector3d(kLength, 0, 0), view, section...);
          }};
}

/// A tee of two strips, as a client gives it.
inline std::unique_ptr<KrObject> makeUser(KrVistas view) {
  KrGeratriz line;
  line.Add({0, 0, 0}, 0);
  line.Add({100, 0, 0}, KrGeratriz::kContourEnd + 8);
  line.Add({50, -4, 0}, 0);
  line.Add({50, -120, 0}, 0);
  line.Add({50, 0, 0}, KrGeratriz::kReferenceBulge);
  auto member = std::make_unique<KrUser>();
  ProfileHelpers::placeBar(*member, kStart, view, 0.0, kLength);
  member->setespessura(8);
  member->setLinhaMedia(line);
  member->Calcule();
  return member;
}

inline std::vector<Sample> samples() {
  constexpr double right = 1.5707963267948966;
  return {
      bar<KrTubo>(L"KrTubo", 88.9, 79.9),
      bar<KrBarraRedonda>(L"KrBarraRedonda", 25.0),
      {L"KrChapa",
       [](KrVistas view) { return std::make_unique<KrChapa>(kStart, view, 120.0, 8.0, kLength, 0.0, 0.0); }},
      bar<KrISoldado>(L"KrISoldado", 300.0, 150.0, 200.0, 6.3, 12.5, 0.0, 60.0),
      {L"KrUser", makeUser},
      bar<KrBox>(L"KrBox", 100.0, 60.0, 5.0, 3.0, 0.0),
      bar<KrUDobrado>(L"KrUDobrado", 200.0, 75.0, 75.0, 3.0, 3.0, right, right, 0.0, 20.0),
      bar<KrIDobrado>(L"KrIDobrado", 200.0, 75.0, 75.0, 3.0, 3.0, 10.0, 0.0, 20.0),
      bar<KrCaixaDobrado>(L"KrCaixaDobrado", 200.0, 75.0, 3.0, 3.0, 10.0, 0.0, 20.0),
      bar<KrZDobrado>(L"KrZDobrado", 200.0, 75.0, 70.0, 3.0, 3.0, right, right, 0.0, 20.0, 0.0),
      bar<KrCartola>(L"KrCartola", 60.0, 80.0, 3.0, 3.0, 25.0, 0.0),
      bar<KrCantoneiraDobrada>(L"KrCantoneiraDobrada", 60.0, 50.0, 3.0, 3.0, right, 0.0, 15.0),
      bar<KrCantTDobrada>(L"KrCantTDobrada", 60.0, 50.0, 3.0, 3.0, 10.0, 0.0, 15.0),
      bar<KrCantUDobrada>(L"KrCantUDobrada", 60.0, 50.0, 3.0, 3.0, 10.0, 0.0, 15.0),
      bar<KrXDobrado>(L"KrXDobrado", 60.0, 50.0, 3.0, 3.0, right, 10.0, 0.0, 15.0),
      bar<KrILaminadoUSA>(L"KrILaminadoUSA", 203.0, 102.0, 6.9, 22.8, 0.165, 9.5, 4.0, 10.8, 0.0, 3490.0, 27.4,
                          ISolInclinada),
      bar<KrULaminado>(L"KrULaminado", 203.0, 57.4, 5.6, 20.6, 7.6, 3.8, 14.5, 9.9, 0.0, 2180.0, 17.1),
      bar<KrUULaminado>(L"KrUULaminado", 203.0, 57.4, 5.6, 12.0, 20.6, 7.6, 3.8, 9.9, 0.0, 4360.0, 14.5),
      bar<Kr2ULaminado>(L"Kr2ULaminado", 203.0, 57.4, 5.6, 12.0, 20.6, 7.6, 3.8, 14.5, 9.9, 0.0, 4360.0, 34.2),
      bar<KrBNLaminado>(L"KrBNLaminado", 75.0, 8.0, -22.8, 10.0, 0.0, 8.99, 1140.0),
      bar<KrBNDuplaLaminada>(L"KrBNDuplaLaminada", 75.0, 8.0, 10.0, 10.0, 21.4, 0.0, 2280.0, 17.98),
      bar<KrCantLaminada>(L"KrCantLaminada", 100.0, 75.0, 8.0, 18.7, 68.9, 10.0, 0.0, 10.6, 1350.0),
      bar<KrCantLaminadaCaixa>(L"KrCantLaminadaCaixa", 100.0, 75.0, 8.0, 10.0, 0.0, 21.2, 2700.0),
      bar<KrCantTEELaminada>(L"KrCantTEELaminada", 100.0, 75.0, 8.0, 10.0, 10.0, 0.0, 21.2, 2700.0),
      bar<KrCantULaminada>(L"KrCantULaminada", 100.0, 75.0, 8.0, 10.0, 10.0, 0.0, 21.2, 2700.0),
      bar<KrCantZLaminada>(L"KrCantZLaminada", 100.0, 75.0, 8.0, 10.0, 160.0, 12.0, 0.0, 21.2, 2700.0),
      bar<KrCantCruzLaminada>(L"KrCantCruzLaminada", 100.0, 75.0, 8.0, 10.0, 10.0, 12.0, 0.0, 21.2, 2700.0),
  };
}

/// Drills, cuts, notches a bar in an elevation, in this order. How many of the three could be done.
inline int modify(KrObject& member) {
  AcGePoint3d e[4];
  member.GetExtremePoints(e, 0, 0);
  const double low = e[1].y;
  const double high = e[2].y;
  const double middle = (low + high) / 2;
  int done = 0;
  if (member.FurarVista(AcGePoint3d(900, middle, 0), 10000, 14, 0, 0, -1, 0) == Acad::eOk) ++done;
  AcGePoint3d p1(2700, low - 100, 0);
  AcGePoint3d p2(2800, high + 100, 0);
  AcGePoint3d away(3050, middle, 0);
  if (member.Corte(p1, p2, away, 0, 0) == Acad::eOk) ++done;
  AcArray<AcGePoint2d> corners;
  AcArray<double> bulges;
  for (const AcGePoint2d& p : {AcGePoint2d(1500, high + 10), AcGePoint2d(1500, (high + middle) / 2),
                               AcGePoint2d(1600, (high + middle) / 2), AcGePoint2d(1600, high + 10)}) {
    corners.append(p);
    bulges.append(0);
  }
  AcGePoint2d side(1550, high - (high - middle) / 8);
  if (member.Recorte(corners, bulges, side) == Acad::eOk) ++done;
  return done;
}

}  // namespace everyclass
