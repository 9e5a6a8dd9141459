#include "profiles/KrBNLaminado.h"

#include <cmath>

#include "host/ed/ed.h"
#include "profiles/RolledProfile.h"
#include "profiles/SectionWalk.h"

KR_PROFILE_DEFINE_MEMBERS(KrBNLaminado, KR_PERFIL_BN_LAMINADO)
KR_ROLLED_DEFINE_COPYING(KrBNLaminado)
KR_ROLLED_DEFINE_ELEVATIONS(KrBNLaminado)
KR_ROLLED_DEFINE_FILING(KrBNLaminado)

namespace {

constexpr double kPi = 3.141592653589793;

}  // namespace

KrBNLaminado::KrBNLaminado(const AcGePoint3d& start, const AcGePoint3d& end, KrVistas vista, double Aba,
                           double Espessura, double EixoX, double RaioDobra, double AngleSecao, double KgMetro,
                           double Area)
    : Aba_(Aba), Espessura_(Espessura), RaioDobra_(RaioDobra), KgMetro_(KgMetro), EixoX_(EixoX), Area_(Area) {
  ProfileHelpers::placeBar(*this, start, end, vista);
  setAngleSecao(AngleSecao);
  Calcule();
}

KrBNLaminado::KrBNLaminado(const AcGePoint3d& start, KrVistas vista, double Aba, double Espessura, double EixoX,
                           double RaioDobra, double AngleSecao, double AngleVista, double Comprimento, double KgMetro,
                           double Area)
    : Aba_(Aba), Espessura_(Espessura), RaioDobra_(RaioDobra), KgMetro_(KgMetro), EixoX_(EixoX), Area_(Area) {
  ProfileHelpers::placeBar(*this, start, vista, AngleVista, Comprimento);
  setAngleSecao(AngleSecao);
  Calcule();
}

void KrBNLaminado::Calcule() {
  assertWriteEnabled();
  ProfileHelpers::placeBar(*this, startPoint(), endPoint(), KrObject::Vista(0));
  outline().Clear();
  CalculeSecao();
  KrGeratriz none;
  Gera_KrVector(startPoint(), none, KrObject::Vista(0), 0.0, 1);
}

void KrBNLaminado::CalculeSecao() {
  assertWriteEnabled();
  ClearVertexes(Secao);
  outline().reserve(9);
  SectionWalk walk(*this, outline(), AcGeVector3d::kIdentity, kPi / 4.0);
  AngleWalk{Aba_, Aba_, Espessura_, RaioDobra_}.walk(walk);
  outline().Add(AcGeVector3d(EixoX_, std::cos(kPi / 4.0) * Aba_, 0.0), KrGeratriz::kReferenceBulge);
}

HandMadeElevation::Edges KrBNLaminado::edgesByHand() const {
  const double reach = Aba_ * std::sin(kPi / 4.0);
  const double inner = Espessura_ / std::sin(kPi / 4.0);
  return {{{-reach - EixoX_, false, false}, {inner - reach - EixoX_, true, true}, {-EixoX_, false, false}},
          {{-reach, false, false}, {0.0, true, false}, {reach, false, false}}};
}

void KrBNLaminado::getPerfil(ACHAR* buffer) const {
  assertReadEnabled();
  ProfileHelpers::writePerfil(*this, L"BNLam", buffer);
}

void KrBNLaminado::getDimensoes(ACHAR* buffer) const {
  assertReadEnabled();
  ProfileHelpers::writeDimensoes(buffer, {Aba_, Espessura_});
}

int KrBNLaminado::getLinearWeight(double& peso) const {
  assertReadEnabled();
  peso = KgMetro_;
  return 1;
}

double KrBNLaminado::getArea() const {
  assertReadEnabled();
  return Area_;
}

double KrBNLaminado::getPerimetro() const {
  assertReadEnabled();
  const KrBNLaminado section(AcGePoint3d::kOrigin, Secao, Aba_, Espessura_, EixoX_, RaioDobra_, angleSecao(), 0.0, 0.0,
                             KgMetro_, Area_);
  return ProfileHelpers::drawnLength(section);
}

double KrBNLaminado::getAltura() {
  assertReadEnabled();
  return Aba_ * std::sin(kPi / 4.0) * 2.0;
}

double KrBNLaminado::getEspessura() {
  assertReadEnabled();
  return Espessura_;
}

double KrBNLaminado::getLargura() {
  assertReadEnabled();
  return Aba_ * std::sin(kPi / 4.0);
}

void KrBNLaminado::subList() const {
  assertReadEnabled();
  KrObject::subList();
  ProfileHelpers::listSection({Aba_, Espessura_}, Area_);
}
