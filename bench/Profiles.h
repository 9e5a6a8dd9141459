#pragma once

#include <numbers>

#include "Members.h"
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

namespace bench {

/// A bar of class T between the origin and its end along X: the points, the view, then the section as given.
template <class T, class... Values>
Subject barSubject(std::string name, Contours contours, Values... section) {
  return {std::move(name),
          [section...](KrVistas view) {
            return std::make_unique<T>(AcGePoint3d(0, 0, 0), AcGePoint3d(kLength, 0, 0), view, section...);
          },
          contours};
}

/// A plate of 120 by 8.
inline std::unique_ptr<KrObject> makePlate(KrVistas view) {
  return std::make_unique<KrChapa>(AcGePoint3d(0, 0, 0), view, 120, 8, kLength, 0, 0);
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
  ProfileHelpers::placeBar(*member, AcGePoint3d(0, 0, 0), view, 0.0, kLength);
  member->setespessura(8);
  member->setLinhaMedia(line);
  member->Calcule();
  return member;
}

inline Subject tubeSubject() {
  return barSubject<KrTubo>("KrTubo", Contours::kHollow, 88.9, 79.9);
}

/// A member of every profile class, of dimensions that are on the market.
inline std::vector<Subject> profileSubjects() {
  constexpr Contours solids = Contours::kSolids;
  constexpr double right = std::numbers::pi / 2;
  return {
      tubeSubject(),
      barSubject<KrBarraRedonda>("KrBarraRedonda", solids, 25.0),
      {"KrChapa", makePlate},
      barSubject<KrISoldado>("KrISoldado", solids, 300.0, 150.0, 200.0, 6.3, 12.5, 0.0, 60.0),
      {"KrUser", makeUser},
      // Folded: height, flanges, sheet, inner radius, angles, gap, lips.
      barSubject<KrBox>("KrBox", Contours::kHollow, 100.0, 60.0, 5.0, 3.0, 0.0),
      barSubject<KrUDobrado>("KrUDobrado", solids, 200.0, 75.0, 75.0, 3.0, 3.0, right, right, 0.0, 20.0),
      barSubject<KrIDobrado>("KrIDobrado", solids, 200.0, 75.0, 75.0, 3.0, 3.0, 10.0, 0.0, 20.0),
      barSubject<KrCaixaDobrado>("KrCaixaDobrado", solids, 200.0, 75.0, 3.0, 3.0, 10.0, 0.0, 20.0),
      barSubject<KrZDobrado>("KrZDobrado", solids, 200.0, 75.0, 70.0, 3.0, 3.0, right, right, 0.0, 20.0, 0.0),
      barSubject<KrCartola>("KrCartola", solids, 60.0, 80.0, 3.0, 3.0, 25.0, 0.0),
      barSubject<KrCantoneiraDobrada>("KrCantoneiraDobrada", solids, 60.0, 50.0, 3.0, 3.0, right, 0.0, 15.0),
      barSubject<KrCantTDobrada>("KrCantTDobrada", solids, 60.0, 50.0, 3.0, 3.0, 10.0, 0.0, 15.0),
      barSubject<KrCantUDobrada>("KrCantUDobrada", solids, 60.0, 50.0, 3.0, 3.0, 10.0, 0.0, 15.0),
      barSubject<KrXDobrado>("KrXDobrado", solids, 60.0, 50.0, 3.0, 3.0, right, 10.0, 0.0, 15.0),
      // Rolled: outer dimensions, thickness, gaps, fillets, centre of gravity, turn, then weight and area.
      barSubject<KrILaminadoUSA>("KrILaminadoUSA", solids, 203.0, 102.0, 6.9, 22.8, 0.165, 9.5, 4.0, 10.8, 0.0, 3490.0,
                                 27.4, ISolInclinada),
      barSubject<KrULaminado>("KrULaminado", solids, 203.0, 57.4, 5.6, 20.6, 7.6, 3.8, 14.5, 9.9, 0.0, 2180.0, 17.1),
      barSubject<KrUULaminado>("KrUULaminado", solids, 203.0, 57.4, 5.6, 12.0, 20.6, 7.6, 3.8, 9.9, 0.0, 4360.0, 14.5),
      barSubject<Kr2ULaminado>("Kr2ULaminado", solids, 203.0, 57.4, 5.6, 12.0, 20.6, 7.6, 3.8, 14.5, 9.9, 0.0, 4360.0,
                               34.2),
      barSubject<KrBNLaminado>("KrBNLaminado", solids, 75.0, 8.0, -22.8, 10.0, 0.0, 8.99, 1140.0),
      barSubject<KrBNDuplaLaminada>("KrBNDuplaLaminada", solids, 75.0, 8.0, 10.0, 10.0, 21.4, 0.0, 2280.0, 17.98),
      barSubject<KrCantLaminada>("KrCantLaminada", solids, 100.0, 75.0, 8.0, 18.7, 68.9, 10.0, 0.0, 10.6, 1350.0),
      barSubject<KrCantLaminadaCaixa>("KrCantLaminadaCaixa", solids, 100.0, 75.0, 8.0, 10.0, 0.0, 21.2, 2700.0),
      barSubject<KrCantTEELaminada>("KrCantTEELaminada", solids, 100.0, 75.0, 8.0, 10.0, 10.0, 0.0, 21.2, 2700.0),
      barSubject<KrCantULaminada>("KrCantULaminada", solids, 100.0, 75.0, 8.0, 10.0, 10.0, 0.0, 21.2, 2700.0),
      barSubject<KrCantZLaminada>("KrCantZLaminada", solids, 100.0, 75.0, 8.0, 10.0, 160.0, 12.0, 0.0, 21.2, 2700.0),
      barSubject<KrCantCruzLaminada>("KrCantCruzLaminada", solids, 100.0, 75.0, 8.0, 10.0, 10.0, 12.0, 0.0, 21.2,
                                     2700.0),
  };
}

/// Everything whose pictures are measured.
inline std::vector<Subject> subjects() {
  std::vector<Subject> all = profileSubjects();
  for (Subject& subject : outlineSubjects()) all.push_back(std::move(subject));
  for (const int holes : {1, 8, 10, 40, 100, 1000}) all.push_back(drilledSubject(holes));
  return all;
}

}  // namespace bench
