// Holes: the record in the section's frame, how it is kept up, and how it reaches a view.

#include <cmath>

#include "editing/Links.h"
#include "object/Finite.h"
#include "object/KrObject.h"
#include "object/OutlineCrossings.h"
#include "object/Rotation.h"

namespace {

constexpr double kPi = 3.141592653589793;

/// The centre line of a hole's trace reaches past each end by this many times the hole's depth.
constexpr double kTraceReach = 2.0;

bool isOfNumbers(const NoFuro& hole) {
  return isFinite(hole.Ini) && isFinite(hole.Fim) && std::isfinite(hole.Diametro) && std::isfinite(hole.Stretch) &&
         std::isfinite(hole.Angle);
}

}  // namespace

Acad::ErrorStatus KrObject::ajustaFuros(KrVistas vista, KrFuro& furos, const AcGePoint3d& ref) const {
  if (vista == VistaCorrente) {
    Gira_furacao(furos, angleSecao_);
    return Acad::eNotApplicable;
  }
  // One turn for the section's and the view's, as the outline has it.
  double turn = angleSecao_;
  if (vista == Inferior) turn += kPi;
  if (vista == Esquerda) turn -= kPi / 2;
  if (vista == Direita) turn += kPi / 2;
  Gira_furacao(furos, turn);
  if (vista == Inferior || vista == Esquerda || vista == SecaoVerso) Mirror_furacao(furos, ref.asVector());
  return Acad::eOk;
}

Acad::ErrorStatus KrObject::setFurosSemLink(const KrFuro& furos) {
  assertWriteEnabled();
  for (const NoFuro* hole = furos.getNode(0); hole != nullptr; hole = hole->next)
    if (!isOfNumbers(*hole)) return Acad::eInvalidInput;
  furos_ = furos;
  return Acad::eOk;
}

Acad::ErrorStatus KrObject::setFuros(const KrFuro* furos) {
  if (furos == nullptr) return Acad::eInvalidInput;
  if (const Acad::ErrorStatus es = setFurosSemLink(*furos); es != Acad::eOk) return es;
  forEachUnlockedLinked([this](KrObject& linked) { linked.setFurosSemLink(furos_); });
  return Acad::eOk;
}

void KrObject::AtualizaFuracao(const KrFuro* novos) {
  assertWriteEnabled();
  if (novos != nullptr && setFuros(novos) != Acad::eOk) return;
  const auto redraw = [](KrObject& member) {
    member.AuditFuros();
    member.removeFuros();
    if (member.isSecao() == Acad::eOk)
      member.desenhaFurosSecao();
    else
      member.Gera_KrVector();
  };
  redraw(*this);
  forEachUnlockedLinked(redraw);
}

Acad::ErrorStatus KrObject::AddFuro(const KrVector& elemento, KrVistas vista) {
  return AddVertex(elemento, vista);
}

Acad::ErrorStatus KrObject::getFurosBarra(KrObjectArray<KrVector>& lista) const {
  GetFuros(lista);
  return Acad::eOk;
}

void KrObject::RemoveFuro(int i) {
  assertWriteEnabled();
  if (i < 0 || i >= furos_.Qtd()) return;
  furos_.removeAt(i);
  Gera_KrVector();
  copyDataToLinked(ModFuro, 1, 0, 0);
}

void KrObject::AuditFuros() {
  assertWriteEnabled();
  if (furos_.Qtd() == 0) return;
  // What a scale and its inverse leave of a length doesn't put a hole off the bar.
  const double slack = AcGeContext::gTol.equalPoint();
  const double length = getComprimentoReal() + slack;
  const auto onBar = [=](double z) { return z >= -slack && z <= length; };
  OutlineCrossings section(secao_);
  for (int i = furos_.Qtd() - 1; i >= 0; --i) {
    const NoFuro& hole = *furos_.getNode(i);
    const bool stays = onBar(hole.Ini.z) && onBar(hole.Fim.z) &&
                       section.any(AcGePoint2d(hole.Ini.x, hole.Ini.y), AcGePoint2d(hole.Fim.x, hole.Fim.y));
    if (!stays) furos_.removeAt(i);
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

// Real size within a regeneration, the drawing's scale at rest.
AcGePoint3d KrObject::sectionAtScale(const AcGePoint3d& p) const {
  if (xScale_ == 1 && yScale_ == 1 && zScale_ == 1) return p;
  AcGeVector3d along = Rotation(-angleVista_)(p - startPoint_);
  along.set(along.x * xScale_, along.y * yScale_, along.z * zScale_);
  return startPoint_ + Rotation(angleVista_)(along);
}

void KrObject::KrVector_InFurTrace(KrGeratriz* g, KrFuro* furos, int i) {
  AcGeVector3d ini = furos->getIni(i);
  AcGeVector3d fim = furos->getFim(i);
  AcGeVector3d origin = g->GetRefOrigin();
  ini.z = fim.z = origin.z = 0;
  double angle = angleSecao_;
  if (vista_ == SecaoVerso) {
    ini.x = -ini.x;
    fim.x = -fim.x;
    origin.x = -origin.x;
    angle = -angle;
  }
  const Rotation turn(angle + angleVista_);
  const AcGePoint3d from = startPoint_ + turn(ini - origin);
  const AcGePoint3d to = startPoint_ + turn(fim - origin);

  // The centre line keeps its length at any scale, as the marks of all holes do.
  const AcGePoint3d middle = sectionAtScale(from + (to - from) / 2);
  const AcGeVector3d reach = (to - from) * (0.5 + kTraceReach);
  KrVector centreLine(middle - reach, middle + reach, KR_VT_FURO_EIXO);
  centreLine.setTypeEx(KR_VTX_FURO);
  centreLine.setIndexFur(i);
  vertexList(VistaCorrente).append(centreLine);
  KrVector band(sectionAtScale(from), sectionAtScale(to), KR_VT_FURO_LINHA);
  // No absolute value here, unlike an elevation: a negative sine narrows the band.
  band.setRaio((std::sin(furos->getAngle(i)) * furos->getStretch(i) + furos->getDiametro(i)) / 2 * yScale_);
  band.setTypeEx(KR_VTX_FURO);
  band.setIndexFur(i);
  vertexList(VistaCorrente).append(band);
}
