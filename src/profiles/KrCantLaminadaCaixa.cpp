#include "profiles/KrCantLaminadaCaixa.h"

#include <cmath>

#include "host/ed/ed.h"
#include "profiles/KrCantLaminada.h"
#include "profiles/RolledProfile.h"
#include "profiles/SectionWalk.h"

KR_PROFILE_DEFINE_MEMBERS(KrCantLaminadaCaixa, KRCANTLAMINADACAIXA)
KR_ROLLED_DEFINE_COPYING(KrCantLaminadaCaixa)
KR_ROLLED_DEFINE_CALCULE(KrCantLaminadaCaixa)
KR_ROLLED_DEFINE_ELEVATIONS(KrCantLaminadaCaixa)
KR_ROLLED_DEFINE_FILING(KrCantLaminadaCaixa)

namespace {

constexpr double kPi = 3.141592653589793;

}  // namespace

KrCantLaminadaCaixa::KrCantLaminadaCaixa(const AcGePoint3d& start, const AcGePoint3d& end, KrVistas vista,
                                         double Altura, double Largura, double Espessura, double RaioDobra,
                                         double AngleSecao, double KgMetro, double Area)
    : Altura_(Altura), Largura_(Largura), Espessura_(Espessura), RaioDobra_(RaioDobra), KgMetro_(KgMetro), Area_(Area) {
  ProfileHelpers::placeBar(*this, start, end, vista);
  setAngleSecao(AngleSecao);
  Calcule();
}

KrCantLaminadaCaixa::KrCantLaminadaCaixa(const AcGePoint3d& start, KrVistas vista, double Altura, double Largura,
                                         double Espessura, double RaioDobra, double AngleSecao, double AngleVista,
                                         double Comprimento, double KgMetro, double Area)
    : Altura_(Altura), Largura_(Largura), Espessura_(Espessura), RaioDobra_(RaioDobra), KgMetro_(KgMetro), Area_(Area) {
  ProfileHelpers::placeBar(*this, start, vista, AngleVista, Comprimento);
  setAngleSecao(AngleSecao);
  Calcule();
}

double KrCantLaminadaCaixa::GetD_Arco() const {
  return std::cos(kPi / 4.0) * Espessura_ * 2.0 - Espessura_;
}

void KrCantLaminadaCaixa::CalculeSecao() {
  assertWriteEnabled();
  ClearVertexes(Secao);
  KrGeratriz half;
  SectionWalk walk(*this, half);
  AngleWalk{Altura_, Largura_, Espessura_, RaioDobra_}.walk(walk);
  const double out = GetD_Arco() / 2.0;
  const AcGeVector3d middle(Largura_ / 2.0 + out, Altura_ / 2.0 - out, 0.0);
  addHalves(*this, outline(), half, middle, OtherHalf::kTurned);
}

HandMadeElevation::Edges KrCantLaminadaCaixa::edgesByHand() const {
  const double side = (Largura_ + GetD_Arco()) / 2.0;
  const double top = (Altura_ + GetD_Arco()) / 2.0;
  return {
      {{-side, false, false}, {Espessura_ - side, true, true}, {side - Espessura_, true, true}, {side, false, false}},
      {{-top, false, false}, {Espessura_ - top, true, true}, {top - Espessura_, true, true}, {top, false, false}}};
}

void KrCantLaminadaCaixa::getPerfil(ACHAR* buffer) const {
  assertReadEnabled();
  ProfileHelpers::writePerfil(*this, L"CaixaLam", buffer);
}

void KrCantLaminadaCaixa::getDimensoes(ACHAR* buffer) const {
  assertReadEnabled();
  ProfileHelpers::writeDimensoes(buffer, {Altura_, Largura_, Espessura_});
}

int KrCantLaminadaCaixa::getLinearWeight(double& peso) const {
  assertReadEnabled();
  peso = KgMetro_;
  return 1;
}

double KrCantLaminadaCaixa::getArea() const {
  assertReadEnabled();
  return Area_;
}

double KrCantLaminadaCaixa::getPerimetro() const {
  assertReadEnabled();
  const KrCantLaminada half(AcGePoint3d::kOrigin, Secao, Altura_, Largura_, Espessura_, EixoX_, EixoY_, RaioDobra_,
                            angleSecao(), 0.0, 0.0, KgMetro_, Area_);
  return 2.0 * ProfileHelpers::drawnLength(half);
}

double KrCantLaminadaCaixa::getAltura() {
  assertReadEnabled();
  return Altura_;
}

double KrCantLaminadaCaixa::getEspessura() {
  assertReadEnabled();
  return Espessura_;
}

double KrCantLaminadaCaixa::getLargura() {
  assertReadEnabled();
  return Largura_;
}

void KrCantLaminadaCaixa::subList() const {
  assertReadEnabled();
  KrObject::subList();
  ProfileHelpers::listCompound({Altura_, Largura_, Espessura_}, Area_ / 2.0, {Altura_, Largura_, Espessura_}, Area_);
}
