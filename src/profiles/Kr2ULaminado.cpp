#include "profiles/Kr2ULaminado.h"

#include "host/ed/ed.h"
#include "profiles/KrULaminado.h"
#include "profiles/RolledProfile.h"
#include "profiles/SectionWalk.h"

KR_PROFILE_DEFINE_MEMBERS(Kr2ULaminado, KR_PERFIL_2U_LAMINADO)
KR_ROLLED_DEFINE_COPYING(Kr2ULaminado)
KR_ROLLED_DEFINE_CALCULE(Kr2ULaminado)
KR_ROLLED_DEFINE_ELEVATIONS(Kr2ULaminado)
KR_ROLLED_DEFINE_FILING(Kr2ULaminado)

Kr2ULaminado::Kr2ULaminado(const AcGePoint3d& start, const AcGePoint3d& end, KrVistas vista, double Altura,
                           double Largura, double Espessura, double Afastamento, double DeslocF, double RaioDobra,
                           double Raio1, double EixoX, double EspMedia, double AngleSecao, double Area, double KgMetro)
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
  ProfileHelpers::placeBar(*this, start, end, vista);
  setAngleSecao(AngleSecao);
  Calcule();
}

Kr2ULaminado::Kr2ULaminado(const AcGePoint3d& start, KrVistas vista, double Altura, double Largura, double Espessura,
                           double Afastamento, double DeslocF, double RaioDobra, double Raio1, double EixoX,
                           double EspMedia, double AngleSecao, double AngleVista, double Comprimento, double Area,
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

void Kr2ULaminado::CalculeSecao() {
  assertWriteEnabled();
  ClearVertexes(Secao);
  KrGeratriz half;
  SectionWalk walk(*this, half);
  ChannelWalk{Altura_, Largura_, Espessura_, DeslocF_, RaioDobra_, Raio1_}.walk(walk);
  const AcGeVector3d middle(-Afastamento_ / 2.0, Altura_ / 2.0, 0.0);
  addHalves(*this, outline(), half, middle, OtherHalf::kMirrored);
}

HandMadeElevation::Edges Kr2ULaminado::edgesByHand() const {
  const double back = Afastamento_ / 2.0;
  const double web = back + Espessura_;
  const double toe = back + Largura_;
  const double top = Altura_ / 2.0;
  const double flange = top - EspMedia_;
  return {{{-toe, false, false},
           {-web, true, true},
           {-back, false, false},
           {back, false, false},
           {web, true, true},
           {toe, false, false}},
          {{-top, false, false}, {-flange, false, false}, {flange, false, false}, {top, false, false}}};
}

void Kr2ULaminado::getPerfil(ACHAR* buffer) const {
  assertReadEnabled();
  ProfileHelpers::writePerfil(*this, L"2ULam", buffer);
}

void Kr2ULaminado::getDimensoes(ACHAR* buffer) const {
  assertReadEnabled();
  ProfileHelpers::writeDimensoes(buffer, {Altura_, Largura_, Espessura_, EspMedia_, Afastamento_});
}

int Kr2ULaminado::getLinearWeight(double& peso) const {
  assertReadEnabled();
  peso = KgMetro_;
  return 1;
}

double Kr2ULaminado::getArea() const {
  assertReadEnabled();
  return Area_;
}

double Kr2ULaminado::getPerimetro() const {
  assertReadEnabled();
  const KrULaminado half(AcGePoint3d::kOrigin, Secao, Altura_, Largura_, Espessura_, DeslocF_, RaioDobra_, Raio1_,
                         EixoX_, EspMedia_, angleSecao(), 0.0, 0.0, Area_, KgMetro_);
  return 2.0 * ProfileHelpers::drawnLength(half);
}

double Kr2ULaminado::getAltura() {
  assertReadEnabled();
  return Altura_;
}

double Kr2ULaminado::getEspessura() {
  assertReadEnabled();
  return Espessura_;
}

double Kr2ULaminado::getLargura() {
  assertReadEnabled();
  return 2.0 * Largura_ + Afastamento_;
}

void Kr2ULaminado::subList() const {
  assertReadEnabled();
  KrObject::subList();
  ProfileHelpers::listCompound({Altura_, Largura_, Espessura_, EspMedia_}, Area_ / 2.0,
                               {Altura_, Largura_, Espessura_, EspMedia_, Afastamento_}, Area_);
}
