// From the rectangle and the marks of a view, or the outline of a section, to the drawn elements in the drawing's
// plane.

#include <array>
#include <cmath>
#include <optional>

#include "object/KrObject.h"
#include "object/Rotation.h"

namespace {

constexpr double kPi = 3.141592653589793;
constexpr double kReferenceBulge = 5000.0;

bool startsAtEnd(KrVistas vista) {
  return vista == Inferior || vista == Esquerda;
}

AcGePoint3d asPoint(const AcGeVector3d& v) {
  return {v.x, v.y, v.z};
}

/// A turn about an axis along Z through a point.
struct TurnAbout {
  TurnAbout(const AcGeVector3d& centre, double angle) : turn(angle), base(centre) {}
  AcGePoint3d operator()(const AcGeVector3d& p) const { return asPoint(base + turn(p - base)); }
  Rotation turn;
  AcGeVector3d base;
};

/// The elements of holes in an elevation. Those of one hole are worked out about the origin and kept for the next with
/// the same measures, which most have: it takes copies of them.
class HoleElements {
 public:
  HoleElements(const KrFuro& holes, double angleVista, bool mirrored, const TurnAbout& turned,
               KrObjectArray<KrVector>& list)
      : holes_(holes), angleVista_(angleVista), mirrored_(mirrored), turned_(turned), list_(list) {}

  /// A hole whose centre is at `at`: the hole and the arms of its cross.
  void addFaceOn(const AcGeVector3d& at, int hole) {
    const Measures m = measuresOf(hole);
    if (!faceOn_.elements[0] || !(m == faceOn_.measures)) makeFaceOn(m);
    place(faceOn_, at, hole);
  }
  /// A hole from one face of its wall to the other: the centre line and the band.
  void addEdgeOn(const AcGeVector3d& from, const AcGeVector3d& to, int hole) {
    const Measures m = measuresOf(hole);
    const AcGeVector3d depth = to - from;
    if (!edgeOn_.elements[0] || !(m == edgeOn_.measures) || depth.x != depth_.x || depth.y != depth_.y)
      makeEdgeOn(m, depth);
    place(edgeOn_, from, hole);
  }

 private:
  struct Measures {
    double diameter, stretch, angle;
    bool operator==(const Measures&) const = default;
  };
  struct Shape {
    Measures measures{};
    std::array<std::optional<KrVector>, 3> elements;
  };

  Measures measuresOf(int hole) const {
    const NoFuro& no = *holes_.getNode(hole);
    return {no.Diametro, no.Stretch, no.Angle};
  }

  void makeFaceOn(const Measures& m) {
    const double a = (mirrored_ ? kPi - m.angle : m.angle) + angleVista_;
    const AcGePoint3d centre;
    const KrVector hole(centre, m.diameter / 2, 0, 0, KR_VT_FURO,
                        m.stretch > 0 ? KR_VF_FURO_OBLONGO : KR_VF_FURO_REDONDO, a, m.stretch);
    const AcGeVector3d along = Rotation(a)(AcGeVector3d(m.diameter, 0, 0));
    const AcGeVector3d across = AcGeVector3d::kZAxis.crossProduct(along);
    faceOn_.measures = m;
    faceOn_.elements[0].emplace(hole);
    faceOn_.elements[1].emplace(centre - along, centre + along, KR_VT_FURO_EIXO);
    faceOn_.elements[2].emplace(centre - across, centre + across, KR_VT_FURO_EIXO);
    for (std::optional<KrVector>& v : faceOn_.elements) v->setTypeEx(KR_VTX_FURO);
  }

  // Neither element gets a `typeEx`, unlike a hole seen face on: a stretch finds them by their type and index.
  void makeEdgeOn(const Measures& m, const AcGeVector3d& depth) {
    depth_ = depth;
    const AcGePoint3d from;
    const AcGePoint3d to = from + turned_.turn(depth);
    edgeOn_.measures = m;
    edgeOn_.elements[0].emplace(to + (to - from), from + (from - to), KR_VT_FURO_EIXO);
    edgeOn_.elements[1].emplace(from, to, KR_VT_FURO_LINHA);
    edgeOn_.elements[1]->setRaio(std::fabs(m.diameter + m.stretch * std::cos(m.angle)) / 2);
  }

  void place(const Shape& shape, const AcGeVector3d& at, int hole) {
    const AcGeVector3d move = turned_.base + turned_.turn(at);
    for (const std::optional<KrVector>& element : shape.elements) {
      if (!element) break;
      list_.append(*element);
      KrVector& placed = list_.last();
      placed.translateBy(move);
      placed.setIndexFur(hole);
    }
  }

  const KrFuro& holes_;
  double angleVista_;
  bool mirrored_;
  TurnAbout turned_;
  KrObjectArray<KrVector>& list_;
  Shape faceOn_;
  Shape edgeOn_;
  AcGeVector3d depth_;
};

}  // namespace

void KrObject::KrVector_In(KrVistas vista, KrGeratriz& contorno, const KrGeratriz& linhas) {
  ClearVertexes(vista);
  if (contorno.Qtd() == 0) return;
  const bool section = isSecao(vista) == Acad::eOk;
  const double rot = section ? angleVista_ : angleVista_ - kPi / 2;
  Gira_vetores(contorno, rot);
  const AcGeVector3d base = startPoint_.asVector() - contorno.GetRefOrigin();
  addEdges(vista, contorno, base);
  addMarks(vista, linhas, base, rot);
  const double bulge = contorno.GetBulge(contorno.Qtd());
  if (!section && std::fabs(bulge) == kReferenceBulge) addAxis(vista, bulge, rot);
}

void KrObject::addEdges(KrVistas vista, const KrGeratriz& contorno, const AcGeVector3d& base) {
  KrObjectArray<KrVector>& lista = vertexList(vista);
  for (int i = 0; i + 1 < contorno.Qtd(); ++i) {
    const double bulge = contorno.GetBulge(i);
    if (KrGeratriz::isContourEnd(bulge)) continue;
    const AcGePoint3d p0 = asPoint(base + contorno.GetVertex(i));
    const AcGePoint3d p1 = asPoint(base + contorno.GetVertex(i + 1));
    // An edge of no length makes no line, straight or bent.
    if (p0.isEqualTo(p1)) continue;
    KrVector element;
    if (bulge == 0) {
      element.set(p0, p1, KR_VT_LINHA);
    } else {
      AcGePoint3d mid;
      MidArco(p0, p1, bulge, mid);
      element.set(p0, mid, p1, KR_VT_ARCO);
    }
    element.setTipo(KR_VF_ARESTA);
    lista.append(element);
  }
}

void KrObject::addMarks(KrVistas vista, const KrGeratriz& linhas, const AcGeVector3d& base, double rot) {
  const TurnAbout turned(base, rot);
  const AcGeVector3d along(0, comprimento_, 0);
  KrObjectArray<KrVector>& lista = vertexList(vista);
  // From below and from the left a hole's place counts back from the end.
  const AcGeVector3d start = startsAtEnd(vista) ? along : AcGeVector3d();
  const auto placeOf = [&start](const AcGeVector3d& no) { return AcGeVector3d(no.x, no.y, 0) + start; };
  HoleElements holes(furos_, angleVista_, startsAtEnd(GetVistaReal()), turned, lista);
  for (int i = 0; i < linhas.Qtd(); ++i) {
    const AcGeVector3d& no = linhas.GetVertex(i);
    const int mark = static_cast<int>(linhas.GetBulge(i));
    if (mark == 1 || mark == 2) {
      const AcGeVector3d s = base + no;
      KrVector element(turned(s), turned(s + along), static_cast<KrVectorType>(mark));
      element.setTipo(KR_VF_PADRAO);
      lista.append(element);
    } else if (mark == 5) {
      holes.addFaceOn(placeOf(no), static_cast<int>(no.z));
    } else if (mark == 7 && i + 1 < linhas.Qtd()) {
      holes.addEdgeOn(placeOf(no), placeOf(linhas.GetVertex(++i)), static_cast<int>(no.z));
    }
  }
}

// The reference line stands before the axis line: the two are the last elements before the modifiers act.
void KrObject::addAxis(KrVistas vista, double bulge, double rot) {
  const AcGeVector3d along = Rotation(rot)(AcGeVector3d(0, comprimento_, 0));
  KrVector line(startPoint_, startPoint_ + along, KR_VT_REFERENCIA);
  vertexList(vista).append(line);
  line.setHidden(bulge == -kReferenceBulge ? 1 : 0);
  line.setType(KR_VT_EIXO);
  vertexList(vista).append(line);
}
