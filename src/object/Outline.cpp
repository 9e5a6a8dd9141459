// Operations on outlines: turning, mirroring, measuring.

#include <cmath>
#include <limits>

#include "object/KrObject.h"
#include "object/Rotation.h"
#include "support/Bulges.h"
#include "support/SideLibrary.h"

namespace {

constexpr double kPi = 3.141592653589793;

/// Bulges below this are arcs, for the measures of an outline.
constexpr double kArcLimit = 1000.0;

/// What a contour marker adds to the wall thickness of the contour behind it.
constexpr double kMarkerBase = 6000.0;

const AcGeVector3d kAlongY(0, 1, 0);

}  // namespace

bool KrObject::Bulge_6000(double bulge) {
  return sideLibrary().krIsBulge6000(bulge) != 0;
}

void KrObject::MidArco(const AcGePoint3d& p0, const AcGePoint3d& p1, double bulge, AcGePoint3d& saida) {
  sideLibrary().krMidArco(p0, p1, bulge, saida);
}

double KrObject::orientacao(const AcGeVector3d& v) {
  const double angle = AcGeVector3d::kXAxis.angleTo(v);
  return v.y < 0 ? 2 * kPi - angle : angle;
}

// An elevation always looks along the section's Y axis: each view's own turn is put into the outline here.
Acad::ErrorStatus KrObject::ajustaGeratriz(KrVistas vista, KrGeratriz& geratriz) const {
  if (geratriz.Qtd() == 0 || vista == VistaCorrente) return Acad::eNotApplicable;
  switch (vista) {
    case Secao:
    case Superior:
      Gira_vetores(geratriz, angleSecao_);
      break;
    case Inferior:
      Gira_vetores(geratriz, angleSecao_ + kPi);
      Mirror_vetores(geratriz, kAlongY);
      break;
    case Esquerda:
      Gira_vetores(geratriz, angleSecao_ - kPi / 2);
      Mirror_vetores(geratriz, kAlongY);
      break;
    case Direita:
      Gira_vetores(geratriz, angleSecao_ + kPi / 2);
      break;
    case SecaoVerso:
      Gira_vetores(geratriz, angleSecao_);
      Mirror_vetores(geratriz, kAlongY);
      break;
    default:
      return Acad::eNotApplicable;
  }
  return Acad::eOk;
}

void KrObject::Gira_vetores(KrGeratriz& geratriz, double angulo) {
  if (angulo == 0 || geratriz.isEmpty() != 0) return;
  const Rotation turn(angulo);
  for (int i = 0; i < geratriz.numNodes(); ++i) {
    AcGeVector3d& v = geratriz.GetVertex(i);
    v = turn(v);
  }
}

void KrObject::Mirror_vetores(KrGeratriz& geratriz, const AcGeVector3d& direcao) {
  if (geratriz.isEmpty() != 0) return;
  const AcGeVector3d origin = geratriz.GetRefOrigin();
  const AcGeVector3d u = direcao.normal();
  for (int i = 0; i <= geratriz.Qtd(); ++i) {
    const AcGeVector3d from = geratriz.GetVertex(i) - origin;
    const AcGeVector3d mirrored = origin + u * (2 * from.dotProduct(u)) - from;
    const double bulge = geratriz.GetBulge(i);
    const bool code = i == geratriz.Qtd() || Bulge_6000(bulge);
    geratriz.Troca(mirrored, code || bulge == 0 ? bulge : -bulge, i);
  }
}

// As the outline is turned, exact at whole quarters.
void KrObject::Gira_furacao(KrFuro& furos, double angulo) {
  if (angulo == 0) return;
  const Rotation turn(angulo);
  for (NoFuro* hole = furos.getNode(0); hole != nullptr; hole = hole->next) {
    hole->Ini = turn(hole->Ini);
    hole->Fim = turn(hole->Fim);
  }
}

void KrObject::Mirror_furacao(KrFuro& furos, const AcGeVector3d& origem) {
  for (NoFuro* hole = furos.getNode(0); hole != nullptr; hole = hole->next) {
    hole->Ini = AcGeVector3d(2 * origem.x - hole->Ini.x, hole->Ini.y, -hole->Ini.z);
    hole->Fim = AcGeVector3d(2 * origem.x - hole->Fim.x, hole->Fim.y, -hole->Fim.z);
  }
}

double KrObject::Calcula_AreaGeratriz(const KrGeratriz& linha, double espessura) const {
  double area = 0;
  for (int i = 0; i + 1 < linha.Qtd(); ++i) {
    const double bulge = linha.GetBulge(i);
    const double corda = (linha.GetVertex(i + 1) - linha.GetVertex(i)).length();
    if (bulge == 0) {
      area += corda * espessura;
    } else if (std::fabs(bulge) >= kArcLimit) {
      if (bulge > kMarkerBase) espessura = bulge - kMarkerBase;
    } else {
      double raio = 0;
      double angulo = 0;
      Calcula_Bulge(bulge, corda, raio, angulo);
      const double fora = raio + espessura / 2;
      const double dentro = raio - espessura / 2;
      area += (fora * fora - dentro * dentro) * angulo / 2;
    }
  }
  return area;
}

AcArray<double> KrObject::Calcula_LengthGeratriz(const KrGeratriz& linha) {
  AcArray<double> lengths;
  double sum = 0;
  for (int i = 0; i + 1 < linha.Qtd(); ++i) {
    const double bulge = linha.GetBulge(i);
    // A marker of exactly 6000.0 is no separation here, and its gap adds nothing.
    if (bulge > kMarkerBase) {
      lengths.append(sum);
      sum = 0;
      continue;
    }
    if (std::fabs(bulge) >= kArcLimit) continue;
    const double corda = (linha.GetVertex(i + 1) - linha.GetVertex(i)).length();
    if (bulge == 0) {
      sum += corda;
      continue;
    }
    double raio = 0;
    double angulo = 0;
    Calcula_Bulge(bulge, corda, raio, angulo);
    sum += raio * angulo;
  }
  lengths.append(sum);
  return lengths;
}

int KrObject::LimitsGeratriz(double& minX, double& maxX, double& maxY, double& minY) const {
  assertReadEnabled();
  minX = minY = std::numeric_limits<double>::max();
  maxX = maxY = std::numeric_limits<double>::lowest();
  if (secao_.Qtd() == 0) {
    minX = maxX = maxY = minY = 0;
    return 1;
  }
  const AcGeVector3d& origin = secao_.GetRefOrigin();
  for (int i = 0; i < secao_.Qtd(); ++i) {
    const AcGeVector3d v = secao_.GetVertex(i) - origin;
    minX = std::fmin(minX, v.x);
    maxX = std::fmax(maxX, v.x);
    minY = std::fmin(minY, v.y);
    maxY = std::fmax(maxY, v.y);
  }
  return 1;
}
