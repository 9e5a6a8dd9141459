#pragma once

#include <algorithm>
#include <cmath>

#include "object/KrObject.h"
#include "object/VisibilityOracle.h"

/// What a member draws in an elevation, and what its outline should show there, in the oracle's terms.
namespace oracle {

inline constexpr KrVistas kElevations[] = {Superior, Inferior, Esquerda, Direita};

/// The lines of an elevation by their place across the bar, counted in the outline's X. The bar lies along X from the
/// origin.
inline View drawnView(const KrObject& member, KrVistas vista) {
  View view;
  const KrObjectArray<KrVector>& list = member.currentVertexList(vista);
  for (int i = 0; i < list.length(); ++i) {
    const KrVector& v = list[i];
    // An outline's X runs towards -Y of the drawing.
    const bool along = std::fabs(v.startPoint().y - v.endPoint().y) < 1e-9;
    if (v.tipo() == KR_VF_ARESTA && along) view.sides.push_back(-v.startPoint().y);
    if (v.tipo() == KR_VF_PADRAO && (v.type() == KR_VT_LINHA || v.type() == KR_VT_LINHA_OCULTA))
      view.lines.push_back({-v.startPoint().y, v.type() == KR_VT_LINHA});
  }
  std::sort(view.sides.begin(), view.sides.end());
  return view;
}

/// The outline as the view looks at it, told without the generator: from above, below, left and right.
inline Outline lookedAt(const Outline& section, KrVistas vista, double sectionAngle) {
  constexpr double kPi = 3.141592653589793;
  const Outline whole = turned(section, sectionAngle);
  switch (vista) {
    case Superior:
      return whole;
    case Inferior:
      return mirrored(turned(whole, kPi));
    case Esquerda:
      return mirrored(turned(whole, -kPi / 2));
    default:
      return turned(whole, kPi / 2);
  }
}

}  // namespace oracle
