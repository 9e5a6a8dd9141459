#include "profiles/HandMadeElevation.h"

#include <algorithm>

#include "support/Angles.h"

namespace HandMadeElevation {

namespace {

constexpr double kPi = 3.141592653589793;

/// How many right angles a view turns the section before it looks from above.
int quarterTurns(KrVistas vista) {
  switch (vista) {
    case Direita:
      return 1;
    case Inferior:
      return 2;
    case Esquerda:
      return 3;
    default:
      return 0;
  }
}

/// The edges as lines of the view; none for a section turned by no whole right angle.
std::vector<Line> linesOf(const Edges& edges, KrVistas vista, double angleSecao) {
  std::vector<Line> lines;
  const int turned = HandMadeElevation::quarterTurns(angleSecao);
  if (turned < 0) return lines;
  // A view from below or from the left mirrors what it turned.
  const bool mirrored = vista == Inferior || vista == Esquerda;
  const int turns = (turned + quarterTurns(vista)) % 4;
  // Turned by 0 to 3 right angles the section has its X, -Y, -X and Y along the view's.
  const bool seesX = turns % 2 == 0;
  const double along = turns == 0 || turns == 3 ? 1.0 : -1.0;
  // And it shows the eye its top, its right, its underside and its left.
  const bool fromPlus = turns < 2;
  // The view's X runs to the right of the bar.
  const double side = mirrored ? along : -along;
  for (const Edge& edge : seesX ? edges.acrossX : edges.acrossY) {
    lines.push_back({side * edge.at, fromPlus ? edge.hiddenFromPlus : edge.hiddenFromMinus});
  }
  return lines;
}

}  // namespace

int quarterTurns(double angleSecao) {
  for (int turns = 0; turns < 4; ++turns) {
    if (angleSecao == turns * (kPi / 2.0)) return turns;
  }
  return -1;
}

void fill(KrObject& bar, KrVistas vista, std::span<const Line> lines) {
  bar.assertWriteEnabled();
  bar.ClearVertexes(vista);
  const AcGePoint3d start = bar.startPoint();
  const double along = bar.angleVista();
  double comprimento = 0.0;
  bar.Comprimento(comprimento);
  bar.AddVertex(KrVector(start, along, comprimento, KR_VT_EIXO), vista);
  if (lines.empty()) return;

  const AcGeVector3d left = VectorAngleRad(along + kPi / 2.0);
  for (const Line& line : lines) {
    const KrVectorType type = line.hidden ? KR_VT_LINHA_OCULTA : KR_VT_LINHA;
    bar.AddVertex(KrVector(start + left * line.offset, along, comprimento, type), vista);
  }
  const auto outer =
      std::minmax_element(lines.begin(), lines.end(), [](const Line& a, const Line& b) { return a.offset < b.offset; });
  const AcGeVector3d reach = VectorAngleRad(along) * comprimento;
  const AcGePoint3d low = start + left * outer.first->offset;
  const AcGePoint3d high = start + left * outer.second->offset;
  bar.AddVertex(KrVector(low, high, KR_VT_LINHA), vista);
  bar.AddVertex(KrVector(low + reach, high + reach, KR_VT_LINHA), vista);
}

void fill(KrObject& bar, KrVistas vista, const Edges& edges) {
  fill(bar, vista, linesOf(edges, vista, bar.angleSecao()));
}

}  // namespace HandMadeElevation
