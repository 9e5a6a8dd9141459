#include "profiles/KrULaminado.h"

#include <cmath>

#include "host/ed/ed.h"
#include "profiles/RolledProfile.h"
#include "profiles/SectionWalk.h"

KR_PROFILE_DEFINE_MEMBERS(KrULaminado, KR_PERFIL_U_LAMINADO)
KR_ROLLED_DEFINE_COPYING(KrULaminado)
KR_ROLLED_DEFINE_CALCULE(KrULaminado)
KR_ROLLED_DEFINE_FILING(KrULaminado)

namespace {

constexpr double kPi = 3.141592653589793;

/// Rise of a rolled channel's flange, and, near enough, its slope.
constexpr double kFlangeRise = 1.0 / 6.0;

}  // namespace

KrULaminado::KrULaminado(const AcGePoint3d& start, const AcGePoint3d& end, KrVistas vista, double Altura,
                         double Largura, double Espessura, double DeslocF, double RaioDobra, double Raio1, double EixoX,
                         double EspMedia, double AngleSecao, double Area, double KgMetro)
    : Largura_(Largura),
      Altura_(Altura),
      Espessura_(Espessura),
      DeslocF_(DeslocF),
      RaioDobra_(RaioDobra),
      Raio1_(Raio1),
      KgMetro_(KgMetro),
      EixoX_(EixoX),
      Area_(Area),
      EspMedia_(EspMedia) {
  ProfileHelpers::placeBar(*this, start, end, vista);
  setAngleSecao(AngleSecao);
  Calcule();
}

KrULaminado::KrULaminado(const AcGePoint3d& start, KrVistas vista, double Altura, double Largura, double Espessura,
                         double DeslocF, double RaioDobra, double Raio1, double EixoX, double EspMedia,
                         double AngleSecao, double AngleVista, double Comprimento, double Area, double KgMetro)
    : Largura_(Largura),
      Altura_(Altura),
      Espessura_(Espessura),
      DeslocF_(DeslocF),
      RaioDobra_(RaioDobra),
      Raio1_(Raio1),
      KgMetro_(KgMetro),
      EixoX_(EixoX),
      Area_(Area),
      EspMedia_(EspMedia) {
  ProfileHelpers::placeBar(*this, start, vista, AngleVista, Comprimento);
  setAngleSecao(AngleSecao);
  Calcule();
}

KrULaminado::KrULaminado(const AcGePoint3d& start, KrVistas vista, double Altura, double Largura, double Espessura,
                         double AngleSecao, double AngleVista, double Comprimento, double Area, double KgMetro)
    : Largura_(Largura),
      Altura_(Altura),
      Espessura_(Espessura),
      DeslocF_(calcDeslocF(Largura, Espessura)),
      RaioDobra_(Espessura),
      Raio1_(Espessura),
      KgMetro_(KgMetro),
      EixoX_(Largura / 3.0),
      Area_(Area),
      EspMedia_(Espessura) {
  ProfileHelpers::placeBar(*this, start, vista, AngleVista, Comprimento);
  setAngleSecao(AngleSecao);
  Calcule();
}

double KrULaminado::calcDeslocF(double largura, double espessura) {
  const double x = kPi / 2.0 - kFlangeRise;
  return ((largura - espessura) - (1.0 - std::cos(x)) * espessura * 2.0) * std::tan(kFlangeRise) +
         std::sin(x) * espessura * 2.0;
}

void KrULaminado::CalculeSecao() {
  assertWriteEnabled();
  ClearVertexes(Secao);
  outline().reserve(14);
  SectionWalk walk(*this, outline());
  ChannelWalk{Altura_, Largura_, Espessura_, DeslocF_, RaioDobra_, Raio1_}.walk(walk);
  outline().Add(AcGeVector3d(EixoX_, Altura_ / 2.0, 0.0), KrGeratriz::kReferenceBulge);
}

void KrULaminado::CalculeDireita() {
  fillFromTheSide(Direita);
}

void KrULaminado::CalculeEsquerda() {
  fillFromTheSide(Esquerda);
}

void KrULaminado::CalculeSuperior() {
  fillFromAbove(Superior);
}

void KrULaminado::CalculeInferior() {
  fillFromAbove(Inferior);
}

std::vector<HandMadeElevation::Line> KrULaminado::linesOverTheHeight(bool hidden) const {
  const double inner = Altura_ - Espessura_;
  return {{inner, hidden}, {Altura_}, {-inner, hidden}, {-Altura_}};
}

std::vector<HandMadeElevation::Line> KrULaminado::linesOverTheWidth(double sideOfTheBack) const {
  return {
      {sideOfTheBack * (EixoX_ - Espessura_), true}, {sideOfTheBack * EixoX_}, {-sideOfTheBack * (Largura_ - EixoX_)}};
}

void KrULaminado::fillFromTheSide(KrVistas vista) {
  std::vector<HandMadeElevation::Line> lines;
  switch (HandMadeElevation::quarterTurns(angleSecao())) {
    case 0:
      lines = linesOverTheHeight(false);
      break;
    case 1:
      lines = linesOverTheWidth(-1.0);
      break;
    case 2:
      lines = linesOverTheHeight(true);
      break;
    case 3:
      lines = linesOverTheWidth(1.0);
      break;
    default:
      break;
  }
  HandMadeElevation::fill(*this, vista, lines);
}

void KrULaminado::fillFromAbove(KrVistas vista) {
  std::vector<HandMadeElevation::Line> lines;
  switch (HandMadeElevation::quarterTurns(angleSecao())) {
    case 0:
      lines = linesOverTheWidth(1.0);
      break;
    case 1:
      lines = linesOverTheHeight(false);
      break;
    case 2:
      lines = linesOverTheWidth(-1.0);
      break;
    case 3:
      lines = linesOverTheHeight(true);
      break;
    default:
      break;
  }
  HandMadeElevation::fill(*this, vista, lines);
}

void KrULaminado::getPerfil(ACHAR* buffer) const {
  assertReadEnabled();
  ProfileHelpers::writePerfil(*this, L"ULam", buffer);
}

void KrULaminado::getDimensoes(ACHAR* buffer) const {
  assertReadEnabled();
  ProfileHelpers::writeDimensoes(buffer, {Altura_, Largura_, Espessura_, EspMedia_});
}

int KrULaminado::getLinearWeight(double& peso) const {
  assertReadEnabled();
  peso = KgMetro_;
  return 1;
}

double KrULaminado::getArea() const {
  assertReadEnabled();
  return Area_;
}

double KrULaminado::getPerimetro() const {
  assertReadEnabled();
  const KrULaminado section(AcGePoint3d::kOrigin, Secao, Altura_, Largura_, Espessura_, DeslocF_, RaioDobra_, Raio1_,
                            EixoX_, EspMedia_, angleSecao(), 0.0, 0.0, Area_, KgMetro_);
  return ProfileHelpers::drawnLength(section);
}

double KrULaminado::getAltura() {
  assertReadEnabled();
  return Altura_;
}

double KrULaminado::getEspessura() {
  assertReadEnabled();
  return Espessura_;
}

double KrULaminado::getLargura() {
  assertReadEnabled();
  return Largura_;
}

void KrULaminado::subList() const {
  assertReadEnabled();
  KrObject::subList();
  ProfileHelpers::listSection({Altura_, Largura_, Espessura_, EspMedia_}, Area_);
}
