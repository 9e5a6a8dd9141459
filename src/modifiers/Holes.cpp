// Holes: how the record in the section's frame reaches a view.

#include <cmath>

#include "object/KrObject.h"
#include "object/Rotation.h"

namespace {

constexpr double kPi = 3.141592653589793;

/// The centre line of a hole's trace reaches past each end by this many times the hole's depth.
constexpr double kTraceReach = 2.0;

AcGePoint3d asPoint(const AcGeVector3d& v) {
  return {v.x, v.y, v.z};
}

}  // namespace

Acad::ErrorStatus KrObject::ajustaFuros(KrVistas vista, KrFuro& furos, const AcGePoint3d& ref) const {
  if (vista == VistaCorrente) return Acad::eNotApplicable;
  Gira_furacao(furos, angleSecao_);
  switch (vista) {
    case Inferior:
      Gira_furacao(furos, kPi);
      Mirror_furacao(furos, ref.asVector());
      break;
    case Esquerda:
      Gira_furacao(furos, -kPi / 2);
      Mirror_furacao(furos, ref.asVector());
      break;
    case Direita:
      Gira_furacao(furos, kPi / 2);
      break;
    case SecaoVerso:
      Mirror_furacao(furos, ref.asVector());
      break;
    default:
      break;
  }
  return Acad::eOk;
}

Acad::ErrorStatus KrObject::setFurosSemLink(const KrFuro& furos) {
  assertWriteEnabled();
  furos_ = furos;
  return Acad::eOk;
}

void KrObject::AuditFuros() {
  assertWriteEnabled();
  if (furos_.Qtd() == 0) return;
  const double length = getComprimentoReal();
  const auto outside = [length](double z) { return z < 0 || z > length; };
  AcArray<AcGeVector3d> crossings;
  for (int i = furos_.Qtd() - 1; i >= 0; --i) {
    const AcGeVector3d ini = furos_.getIni(i);
    const AcGeVector3d fim = furos_.getFim(i);
    bool gone = outside(ini.z) || outside(fim.z);
    if (!gone) {
      crossings.setLogicalLength(0);
      InterceptaLinhas(AcGeLine2d(AcGePoint2d(ini.x, ini.y), AcGePoint2d(fim.x, fim.y)), crossings, nullptr);
      gone = crossings.length() == 0;
    }
    if (gone) furos_.removeAt(i);
  }
}

void KrObject::removeFuros() {
  assertWriteEnabled();
  KrObjectArray<KrVector>& lista = vertexList(VistaCorrente);
  for (int i = lista.length() - 1; i >= 0; --i)
    if (lista[i].isFuro()) lista.removeAt(i);
}

void KrObject::KrVector_InFur(int i) {
  assertWriteEnabled();
  if (isSecao() == Acad::eOk)
    KrVector_InFurTrace(&secao_, &furos_, i);
  else
    Gera_KrVector();
}

void KrObject::KrVector_InFurTrace(KrGeratriz* g, KrFuro* furos, int i) {
  AcGeVector3d ini = furos->getIni(i);
  AcGeVector3d fim = furos->getFim(i);
  AcGeVector3d origin = g->GetRefOrigin();
  ini.z = fim.z = 0;
  double angle = angleSecao_;
  if (vista_ == SecaoVerso) {
    ini.x = -ini.x;
    fim.x = -fim.x;
    origin.x = -origin.x;
    angle = -angle;
  }
  const Rotation turn(angle + angleVista_);
  ini = origin + turn(ini - origin);
  fim = origin + turn(fim - origin);
  const AcGeVector3d move = startPoint_.asVector() - origin;
  const auto place = [&](const AcGeVector3d& p) { return asPoint(p + move); };

  KrVector centreLine(place(ini + (ini - fim) * kTraceReach), place(fim + (fim - ini) * kTraceReach), KR_VT_FURO_EIXO);
  centreLine.setTypeEx(KR_VTX_FURO);
  centreLine.setIndexFur(i);
  vertexList(VistaCorrente).append(centreLine);
  KrVector band(place(ini), place(fim), KR_VT_FURO_LINHA);
  // No absolute value here, unlike an elevation: a negative sine narrows the band.
  band.setRaio((std::sin(furos->getAngle(i)) * furos->getStretch(i) + furos->getDiametro(i)) / 2);
  band.setTypeEx(KR_VTX_FURO);
  band.setIndexFur(i);
  vertexList(VistaCorrente).append(band);
}
