// From the rectangle and the marks of a view, or the outline of a section, to the drawn elements in the drawing's
// plane.

#include <cmath>

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
  for (int i = 0; i < linhas.Qtd(); ++i) {
    const AcGeVector3d& no = linhas.GetVertex(i);
    const int mark = static_cast<int>(linhas.GetBulge(i));
    if (mark == 1 || mark == 2) {
      const AcGeVector3d s = base + no;
      KrVector element(turned(s), turned(s + along), static_cast<KrVectorType>(mark));
      element.setTipo(KR_VF_PADRAO);
      vertexList(vista).append(element);
    } else if (mark == 5) {
      addFaceOnHole(vista, no, base, rot);
    } else if (mark == 7 && i + 1 < linhas.Qtd()) {
      addEdgeOnHole(vista, no, linhas.GetVertex(++i), base, rot);
    }
  }
}

void KrObject::addFaceOnHole(KrVistas vista, const AcGeVector3d& no, const AcGeVector3d& base, double rot) {
  AcGeVector3d at(no.x, no.y + (startsAtEnd(vista) ? comprimento_ : 0), 0);
  const AcGePoint3d p = TurnAbout(base, rot)(at + base);
  const int h = static_cast<int>(no.z);
  const double d = furos_.getDiametro(h);
  const double s = furos_.getStretch(h);
  double a = furos_.getAngle(h);
  if (startsAtEnd(GetVistaReal())) a = kPi - a;
  a += angleVista_;

  KrVector element(p, d / 2, 0, 0, KR_VT_FURO, s > 0 ? KR_VF_FURO_OBLONGO : KR_VF_FURO_REDONDO, a, s);
  element.setIndexFur(h);
  element.setTypeEx(KR_VTX_FURO);
  vertexList(vista).append(element);
  for (const double arm : {a, a + kPi / 2}) {
    const AcGeVector3d reach = Rotation(arm)(AcGeVector3d(d, 0, 0));
    KrVector centreLine(p - reach, p + reach, KR_VT_FURO_EIXO);
    centreLine.setIndexFur(h);
    centreLine.setTypeEx(KR_VTX_FURO);
    vertexList(vista).append(centreLine);
  }
}

// Neither element gets a `typeEx`, unlike a hole seen face on: a stretch finds them by their type and index.
void KrObject::addEdgeOnHole(KrVistas vista, const AcGeVector3d& n1, const AcGeVector3d& n2, const AcGeVector3d& base,
                             double rot) {
  const double shift = startsAtEnd(vista) ? comprimento_ : 0;
  const TurnAbout turned(base, rot);
  const AcGePoint3d p1 = turned(base + AcGeVector3d(n1.x, n1.y + shift, 0));
  const AcGePoint3d p2 = turned(base + AcGeVector3d(n2.x, n2.y + shift, 0));
  const int h = static_cast<int>(n1.z);
  const double d = furos_.getDiametro(h);
  const double s = furos_.getStretch(h);
  const double a = furos_.getAngle(h);
  double w = 0;
  if (vista == Secao) w = d + s * std::sin(a);
  if (isSecao(vista) == Acad::eNotApplicable) w = d + s * std::cos(a);

  KrVector centreLine(p2 + (p2 - p1), p1 + (p1 - p2), KR_VT_FURO_EIXO);
  centreLine.setIndexFur(h);
  vertexList(vista).append(centreLine);
  KrVector band(p1, p2, KR_VT_FURO_LINHA);
  band.setRaio(std::fabs(w) / 2);
  band.setIndexFur(h);
  vertexList(vista).append(band);
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
