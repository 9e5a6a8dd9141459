#include "profiles/KrCantTEELaminada.h"

#include "host/ed/ed.h"
#include "profiles/KrCantLaminada.h"
#include "profiles/RolledProfile.h"
#include "profiles/SectionWalk.h"

KR_PROFILE_DEFINE_MEMBERS(KrCantTEELaminada, KR_PERFIL_CANT_TEE_LAMINADA)
KR_ROLLED_DEFINE_COPYING(KrCantTEELaminada)
KR_ROLLED_DEFINE_CALCULE(KrCantTEELaminada)
KR_ROLLED_DEFINE_ELEVATIONS(KrCantTEELaminada)
KR_ROLLED_DEFINE_FILING(KrCantTEELaminada)

KrCantTEELaminada::KrCantTEELaminada(const AcGePoint3d& start, const AcGePoint3d& end, KrVistas vista, double Altura,
                                     double Largura, double Espessura, double EixoX, double EixoY, double RaioDobra,
                                     double Afastamento, double AngleSecao, double KgMetro, double Area)
    : Altura_(Altura),
      Largura_(Largura),
      Espessura_(Espessura),
      RaioDobra_(RaioDobra),
      Afastamento_(Afastamento),
      KgMetro_(KgMetro),
      EixoX_(EixoX),
      EixoY_(EixoY),
      Area_(Area) {
  ProfileHelpers::placeBar(*this, start, end, vista);
  setAngleSecao(AngleSecao);
  Calcule();
}

KrCantTEELaminada::KrCantTEELaminada(const AcGePoint3d& start, const AcGePoint3d& end, KrVistas vista, double Altura,
                                     double Largura, double Espessura, double RaioDobra, double Afastamento,
                                     double AngleSecao, double KgMetro, double Area)
    : Altura_(Altura),
      Largura_(Largura),
      Espessura_(Espessura),
      RaioDobra_(RaioDobra),
      Afastamento_(Afastamento),
      KgMetro_(KgMetro),
      EixoY_(Altura * 2.0 / 3.0),
      Area_(Area) {
  ProfileHelpers::placeBar(*this, start, end, vista);
  setAngleSecao(AngleSecao);
  Calcule();
}

KrCantTEELaminada::KrCantTEELaminada(const AcGePoint3d& start, KrVistas vista, double Altura, double Largura,
                                     double Espessura, double EixoX, double EixoY, double RaioDobra, double Afastamento,
                                     double AngleSecao, double AngleVista, double Comprimento, double KgMetro,
                                     double Area)
    : Altura_(Altura),
      Largura_(Largura),
      Espessura_(Espessura),
      RaioDobra_(RaioDobra),
      Afastamento_(Afastamento),
      KgMetro_(KgMetro),
      EixoX_(EixoX),
      EixoY_(EixoY),
      Area_(Area) {
  ProfileHelpers::placeBar(*this, start, vista, AngleVista, Comprimento);
  setAngleSecao(AngleSecao);
  Calcule();
}

KrCantTEELaminada::KrCantTEELaminada(const AcGePoint3d& start, KrVistas vista, double Altura, double Largura,
                                     double Espessura, double RaioDobra, double Afastamento, double AngleSecao,
                                     double AngleVista, double Comprimento, double KgMetro, double Area)
    : Altura_(Altura),
      Largura_(Largura),
      Espessura_(Espessura),
      RaioDobra_(RaioDobra),
      Afastamento_(Afastamento),
      KgMetro_(KgMetro),
      EixoY_(Altura * 2.0 / 3.0),
      Area_(Area) {
  ProfileHelpers::placeBar(*this, start, vista, AngleVista, Comprimento);
  setAngleSecao(AngleSecao);
  Calcule();
}

void KrCantTEELaminada::CalculeSecao() {
  assertWriteEnabled();
  ClearVertexes(Secao);
  KrGeratriz half;
  SectionWalk walk(*this, half, AcGeVector3d(Afastamento_ / 2.0, 0.0, 0.0));
  AngleWalk{Altura_, Largura_, Espessura_, RaioDobra_}.walk(walk);
  addHalves(*this, outline(), half, AcGeVector3d::kIdentity, OtherHalf::kMirroredReverse);
}

HandMadeElevation::Edges KrCantTEELaminada::edgesByHand() const {
  const double back = Afastamento_ / 2.0;
  const double leg = back + Espessura_;
  const double toe = back + Largura_;
  return {{{-toe, false, false},
           {-leg, true, false},
           {-back, false, false},
           {back, false, false},
           {leg, true, false},
           {toe, false, false}},
          {{0.0, false, false}, {Altura_ - Espessura_, false, false}, {Altura_, false, false}}};
}

void KrCantTEELaminada::getPerfil(ACHAR* buffer) const {
  assertReadEnabled();
  ProfileHelpers::writePerfil(*this, L"TEELam", buffer);
}

void KrCantTEELaminada::getDimensoes(ACHAR* buffer) const {
  assertReadEnabled();
  ProfileHelpers::writeDimensoes(buffer, {Altura_, Largura_, Espessura_, Afastamento_});
}

int KrCantTEELaminada::getLinearWeight(double& peso) const {
  assertReadEnabled();
  peso = KgMetro_;
  return 1;
}

double KrCantTEELaminada::getArea() const {
  assertReadEnabled();
  return Area_;
}

double KrCantTEELaminada::getPerimetro() const {
  assertReadEnabled();
  const KrCantLaminada half(AcGePoint3d::kOrigin, Secao, Altura_, Largura_, Espessura_, EixoX_, EixoY_, RaioDobra_,
                            angleSecao(), 0.0, 0.0, KgMetro_, Area_);
  return 2.0 * ProfileHelpers::drawnLength(half);
}

double KrCantTEELaminada::getAltura() {
  assertReadEnabled();
  return Altura_;
}

double KrCantTEELaminada::getEspessura() {
  assertReadEnabled();
  return Espessura_;
}

double KrCantTEELaminada::getLargura() {
  assertReadEnabled();
  return 2.0 * Largura_ + Afastamento_;
}

void KrCantTEELaminada::subList() const {
  assertReadEnabled();
  KrObject::subList();
  ProfileHelpers::listCompound({Altura_, Largura_, Espessura_}, Area_ / 2.0,
                               {Altura_, Largura_, Espessura_, Afastamento_}, Area_);
}
