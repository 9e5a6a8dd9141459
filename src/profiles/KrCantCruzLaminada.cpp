#include "profiles/KrCantCruzLaminada.h"

#include "host/ed/ed.h"
#include "profiles/KrCantLaminada.h"
#include "profiles/RolledProfile.h"
#include "profiles/SectionWalk.h"

KR_PROFILE_DEFINE_MEMBERS(KrCantCruzLaminada, KRCANTCRUZLAMINADA)
KR_ROLLED_DEFINE_COPYING(KrCantCruzLaminada)
KR_ROLLED_DEFINE_CALCULE(KrCantCruzLaminada)
KR_ROLLED_DEFINE_ELEVATIONS(KrCantCruzLaminada)
KR_ROLLED_DEFINE_FILING(KrCantCruzLaminada)

KrCantCruzLaminada::KrCantCruzLaminada(const AcGePoint3d& start, const AcGePoint3d& end, KrVistas vista, double Altura,
                                       double Largura, double Espessura, double RaioDobra, double AfastamentoHor,
                                       double AfastamentoVer, double AngleSecao, double KgMetro, double Area)
    : Altura_(Altura),
      Largura_(Largura),
      Espessura_(Espessura),
      RaioDobra_(RaioDobra),
      AfastamentoHor_(AfastamentoHor),
      AfastamentoVer_(AfastamentoVer),
      KgMetro_(KgMetro),
      Area_(Area) {
  ProfileHelpers::placeBar(*this, start, end, vista);
  setAngleSecao(AngleSecao);
  Calcule();
}

KrCantCruzLaminada::KrCantCruzLaminada(const AcGePoint3d& start, KrVistas vista, double Altura, double Largura,
                                       double Espessura, double RaioDobra, double AfastamentoHor, double AfastamentoVer,
                                       double AngleSecao, double AngleVista, double Comprimento, double KgMetro,
                                       double Area)
    : Altura_(Altura),
      Largura_(Largura),
      Espessura_(Espessura),
      RaioDobra_(RaioDobra),
      AfastamentoHor_(AfastamentoHor),
      AfastamentoVer_(AfastamentoVer),
      KgMetro_(KgMetro),
      Area_(Area) {
  ProfileHelpers::placeBar(*this, start, vista, AngleVista, Comprimento);
  setAngleSecao(AngleSecao);
  Calcule();
}

void KrCantCruzLaminada::CalculeSecao() {
  assertWriteEnabled();
  ClearVertexes(Secao);
  KrGeratriz half;
  SectionWalk walk(*this, half, AcGeVector3d(AfastamentoHor_ / 2.0, -AfastamentoVer_ / 2.0 - Altura_, 0.0));
  AngleWalk{Altura_, Largura_, Espessura_, RaioDobra_}.walk(walk);
  addHalves(*this, outline(), half, AcGeVector3d::kIdentity, OtherHalf::kTurned);
}

HandMadeElevation::Edges KrCantCruzLaminada::edgesByHand() const {
  const double back = AfastamentoHor_ / 2.0;
  const double leg = back + Espessura_;
  const double toe = back + Largura_;
  const double flange = AfastamentoVer_ / 2.0;
  const double inner = flange + Espessura_;
  const double foot = flange + Altura_;
  return {{{-toe, false, false},
           {-leg, false, true},
           {-back, false, false},
           {back, false, false},
           {leg, true, false},
           {toe, false, false}},
          {{-foot, false, false},
           {-inner, false, true},
           {-flange, false, false},
           {flange, false, false},
           {inner, true, false},
           {foot, false, false}}};
}

void KrCantCruzLaminada::getPerfil(ACHAR* buffer) const {
  assertReadEnabled();
  ProfileHelpers::writePerfil(*this, L"+Lam", buffer);
}

void KrCantCruzLaminada::getDimensoes(ACHAR* buffer) const {
  assertReadEnabled();
  ProfileHelpers::writeDimensoes(buffer, {Espessura_, Altura_, AfastamentoHor_, AfastamentoVer_});
}

int KrCantCruzLaminada::getLinearWeight(double& peso) const {
  assertReadEnabled();
  peso = KgMetro_;
  return 1;
}

double KrCantCruzLaminada::getArea() const {
  assertReadEnabled();
  return Area_;
}

double KrCantCruzLaminada::getPerimetro() const {
  assertReadEnabled();
  const KrCantLaminada half(AcGePoint3d::kOrigin, Secao, Altura_, Largura_, Espessura_, EixoX_, EixoY_, RaioDobra_,
                            angleSecao(), 0.0, 0.0, KgMetro_, Area_);
  return 2.0 * ProfileHelpers::drawnLength(half);
}

double KrCantCruzLaminada::getAltura() {
  assertReadEnabled();
  return 2.0 * Altura_ + AfastamentoVer_;
}

double KrCantCruzLaminada::getEspessura() {
  assertReadEnabled();
  return Espessura_;
}

double KrCantCruzLaminada::getLargura() {
  assertReadEnabled();
  return 2.0 * Largura_ + AfastamentoHor_;
}

void KrCantCruzLaminada::subList() const {
  assertReadEnabled();
  KrObject::subList();
  ProfileHelpers::listCompound({Altura_, Largura_, Espessura_}, Area_ / 2.0,
                               {Espessura_, Altura_, AfastamentoHor_, AfastamentoVer_}, Area_);
}
