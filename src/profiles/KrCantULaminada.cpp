#include "profiles/KrCantULaminada.h"

#include "host/ed/ed.h"
#include "profiles/KrCantLaminada.h"
#include "profiles/RolledProfile.h"
#include "profiles/SectionWalk.h"

KR_PROFILE_DEFINE_MEMBERS(KrCantULaminada, KR_PERFIL_CANT_U_LAMINADA)
KR_ROLLED_DEFINE_COPYING(KrCantULaminada)
KR_ROLLED_DEFINE_CALCULE(KrCantULaminada)
KR_ROLLED_DEFINE_ELEVATIONS(KrCantULaminada)
KR_ROLLED_DEFINE_FILING(KrCantULaminada)

KrCantULaminada::KrCantULaminada(const AcGePoint3d& start, const AcGePoint3d& end, KrVistas vista, double Altura,
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

KrCantULaminada::KrCantULaminada(const AcGePoint3d& start, const AcGePoint3d& end, KrVistas vista, double Altura,
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

KrCantULaminada::KrCantULaminada(const AcGePoint3d& start, KrVistas vista, double Altura, double Largura,
                                 double Espessura, double EixoX, double EixoY, double RaioDobra, double Afastamento,
                                 double AngleSecao, double AngleVista, double Comprimento, double KgMetro, double Area)
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

KrCantULaminada::KrCantULaminada(const AcGePoint3d& start, KrVistas vista, double Altura, double Largura,
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

void KrCantULaminada::CalculeSecao() {
  assertWriteEnabled();
  ClearVertexes(Secao);
  KrGeratriz half;
  SectionWalk walk(*this, half, AcGeVector3d(-Afastamento_ / 2.0 - Largura_, 0.0, 0.0));
  AngleWalk{Altura_, Largura_, Espessura_, RaioDobra_}.walk(walk);
  addHalves(*this, outline(), half, AcGeVector3d::kIdentity, OtherHalf::kMirrored);
}

HandMadeElevation::Edges KrCantULaminada::edgesByHand() const {
  const double toe = Afastamento_ / 2.0;
  const double back = toe + Largura_;
  const double leg = back - Espessura_;
  return {{{-back, false, false},
           {-leg, true, false},
           {-toe, false, false},
           {toe, false, false},
           {leg, true, false},
           {back, false, false}},
          {{0.0, false, false}, {Altura_ - Espessura_, true, true}, {Altura_, false, false}}};
}

void KrCantULaminada::getPerfil(ACHAR* buffer) const {
  assertReadEnabled();
  ProfileHelpers::writePerfil(*this, L"CantULam", buffer);
}

void KrCantULaminada::getDimensoes(ACHAR* buffer) const {
  assertReadEnabled();
  ProfileHelpers::writeDimensoes(buffer, {Altura_, Largura_, Espessura_, Afastamento_});
}

int KrCantULaminada::getLinearWeight(double& peso) const {
  assertReadEnabled();
  peso = KgMetro_;
  return 1;
}

double KrCantULaminada::getArea() const {
  assertReadEnabled();
  return Area_;
}

double KrCantULaminada::getPerimetro() const {
  assertReadEnabled();
  const KrCantLaminada half(AcGePoint3d::kOrigin, Secao, Altura_, Largura_, Espessura_, EixoX_, EixoY_, RaioDobra_,
                            angleSecao(), 0.0, 0.0, KgMetro_, Area_);
  return 2.0 * ProfileHelpers::drawnLength(half);
}

double KrCantULaminada::getAltura() {
  assertReadEnabled();
  return Altura_;
}

double KrCantULaminada::getEspessura() {
  assertReadEnabled();
  return Espessura_;
}

double KrCantULaminada::getLargura() {
  assertReadEnabled();
  return 2.0 * Largura_ + Afastamento_;
}

void KrCantULaminada::subList() const {
  assertReadEnabled();
  KrObject::subList();
  ProfileHelpers::listCompound({Altura_, Largura_, Espessura_}, Area_ / 2.0,
                               {Altura_, Largura_, Espessura_, Afastamento_}, Area_);
}
