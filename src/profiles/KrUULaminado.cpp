#include "profiles/KrUULaminado.h"

#include "host/ed/ed.h"
#include "profiles/KrULaminado.h"
#include "profiles/RolledProfile.h"
#include "profiles/SectionWalk.h"

KR_PROFILE_DEFINE_MEMBERS(KrUULaminado, KR_PERFIL_UU_LAMINADO)
KR_ROLLED_DEFINE_COPYING(KrUULaminado)
KR_ROLLED_DEFINE_CALCULE(KrUULaminado)
KR_ROLLED_DEFINE_ELEVATIONS(KrUULaminado)
KR_ROLLED_DEFINE_FILING(KrUULaminado)

KrUULaminado::KrUULaminado(const AcGePoint3d& start, const AcGePoint3d& end, KrVistas vista, double Altura,
                           double Largura, double Espessura, double Afastamento, double DeslocF, double RaioDobra,
                           double Raio1, double EspMedia, double AngleSecao, double Area, double EixoX)
    : Largura_(Largura),
      Altura_(Altura),
      Espessura_(Espessura),
      DeslocF_(DeslocF),
      RaioDobra_(RaioDobra),
      Raio1_(Raio1),
      EixoX_(EixoX),
      Area_(Area),
      EspMedia_(EspMedia),
      Afastamento_(Afastamento) {
  ProfileHelpers::placeBar(*this, start, end, vista);
  setAngleSecao(AngleSecao);
  Calcule();
}

KrUULaminado::KrUULaminado(const AcGePoint3d& start, KrVistas vista, double Altura, double Largura, double Espessura,
                           double Afastamento, double DeslocF, double RaioDobra, double Raio1, double EspMedia,
                           double AngleSecao, double AngleVista, double Comprimento, double Area, double EixoX,
                           double KgMetro)
    : Largura_(Largura),
      Altura_(Altura),
      Espessura_(Espessura),
      DeslocF_(DeslocF),
      RaioDobra_(RaioDobra),
      Raio1_(Raio1),
      KgMetro_(KgMetro),
      EixoX_(EixoX),
      Area_(Area),
      EspMedia_(EspMedia),
      Afastamento_(Afastamento) {
  ProfileHelpers::placeBar(*this, start, vista, AngleVista, Comprimento);
  setAngleSecao(AngleSecao);
  Calcule();
}

void KrUULaminado::CalculeSecao() {
  assertWriteEnabled();
  ClearVertexes(Secao);
  KrGeratriz half;
  SectionWalk walk(*this, half);
  ChannelWalk{Altura_, Largura_, Espessura_, DeslocF_, RaioDobra_, Raio1_}.walk(walk);
  half.Add(AcGeVector3d::kIdentity, 0.0);
  const AcGeVector3d middle(Afastamento_ / 2.0 + Largura_, Altura_ / 2.0, 0.0);
  addHalves(*this, outline(), half, middle, OtherHalf::kMirrored);
}

HandMadeElevation::Edges KrUULaminado::edgesByHand() const {
  const double toe = Afastamento_ / 2.0;
  const double back = toe + Largura_;
  const double web = back - Espessura_;
  const double top = Altura_ / 2.0;
  const double flange = top - EspMedia_;
  return {{{-back, false, false},
           {-web, true, true},
           {-toe, false, false},
           {toe, false, false},
           {web, true, true},
           {back, false, false}},
          {{-top, false, false}, {-flange, true, true}, {flange, true, true}, {top, false, false}}};
}

void KrUULaminado::getPerfil(ACHAR* buffer) const {
  assertReadEnabled();
  ProfileHelpers::writePerfil(*this, L"UULam", buffer);
}

void KrUULaminado::getDimensoes(ACHAR* buffer) const {
  assertReadEnabled();
  ProfileHelpers::writeDimensoes(buffer, {Altura_, Largura_, Espessura_, EspMedia_, Afastamento_});
}

int KrUULaminado::getLinearWeight(double& peso) const {
  assertReadEnabled();
  peso = KgMetro_;
  return 1;
}

double KrUULaminado::getArea() const {
  assertReadEnabled();
  return Area_;
}

double KrUULaminado::getPerimetro() const {
  assertReadEnabled();
  const KrULaminado half(AcGePoint3d::kOrigin, Secao, Altura_, Largura_, Espessura_, DeslocF_, RaioDobra_, Raio1_,
                         EixoX_, EspMedia_, angleSecao(), 0.0, 0.0, Area_, KgMetro_);
  return 2.0 * ProfileHelpers::drawnLength(half);
}

double KrUULaminado::getAltura() {
  assertReadEnabled();
  return Altura_;
}

double KrUULaminado::getEspessura() {
  assertReadEnabled();
  return Espessura_;
}

double KrUULaminado::getLargura() {
  assertReadEnabled();
  return 2.0 * Largura_ + Afastamento_;
}

void KrUULaminado::subList() const {
  assertReadEnabled();
  KrObject::subList();
  ProfileHelpers::listCompound({Altura_, Largura_, Espessura_, EspMedia_}, Area_ / 2.0,
                               {Altura_, Largura_, Espessura_, EspMedia_, Afastamento_}, Area_);
}
