#include "profiles/KrBNDuplaLaminada.h"

#include <cmath>

#include "host/ed/ed.h"
#include "profiles/KrCantLaminada.h"
#include "profiles/RolledProfile.h"
#include "profiles/SectionWalk.h"

KR_PROFILE_DEFINE_MEMBERS(KrBNDuplaLaminada, KR_PERFIL_BNDUPLA_LAMINADO)
KR_ROLLED_DEFINE_COPYING(KrBNDuplaLaminada)
KR_ROLLED_DEFINE_CALCULE(KrBNDuplaLaminada)
KR_ROLLED_DEFINE_ELEVATIONS(KrBNDuplaLaminada)
KR_ROLLED_DEFINE_FILING(KrBNDuplaLaminada)

namespace {

constexpr double kPi = 3.141592653589793;

}  // namespace

KrBNDuplaLaminada::KrBNDuplaLaminada(const AcGePoint3d& start, const AcGePoint3d& end, KrVistas vista, double Aba,
                                     double Espessura, double Afastamento, double RaioDobra, double EixoX,
                                     double AngleSecao, double Area, double KgMetro)
    : Aba_(Aba),
      Espessura_(Espessura),
      RaioDobra_(RaioDobra),
      KgMetro_(KgMetro),
      EixoX_(EixoX),
      Afastamento_(Afastamento),
      Area_(Area) {
  ProfileHelpers::placeBar(*this, start, end, vista);
  setAngleSecao(AngleSecao);
  Calcule();
}

KrBNDuplaLaminada::KrBNDuplaLaminada(const AcGePoint3d& start, KrVistas vista, double Aba, double Espessura,
                                     double Afastamento, double RaioDobra, double EixoX, double AngleSecao,
                                     double AngleVista, double Comprimento, double Area, double KgMetro)
    : Aba_(Aba),
      Espessura_(Espessura),
      RaioDobra_(RaioDobra),
      KgMetro_(KgMetro),
      EixoX_(EixoX),
      Afastamento_(Afastamento),
      Area_(Area) {
  ProfileHelpers::placeBar(*this, start, vista, AngleVista, Comprimento);
  setAngleSecao(AngleSecao);
  Calcule();
}

KrBNDuplaLaminada::KrBNDuplaLaminada(const AcGePoint3d& start, KrVistas vista, double Aba, double Espessura,
                                     double Afastamento, double RaioDobra, double AngleSecao, double AngleVista,
                                     double Comprimento, double Area, double KgMetro)
    : Aba_(Aba),
      Espessura_(Espessura),
      RaioDobra_(RaioDobra),
      KgMetro_(KgMetro),
      Afastamento_(Afastamento),
      Area_(Area) {
  ProfileHelpers::placeBar(*this, start, vista, AngleVista, Comprimento);
  setAngleSecao(AngleSecao);
  Calcule();
}

void KrBNDuplaLaminada::CalculeSecao() {
  assertWriteEnabled();
  ClearVertexes(Secao);
  KrGeratriz half;
  SectionWalk walk(*this, half, AcGeVector3d::kIdentity, kPi / 4.0);
  AngleWalk{Aba_, Aba_, Espessura_, RaioDobra_}.walk(walk);
  const AcGeVector3d& heel = half.GetVertex(1);
  const AcGeVector3d middle(heel.x - Afastamento_ / 2.0, heel.y, 0.0);
  addHalves(*this, outline(), half, middle, OtherHalf::kMirrored);
  // The drawn elements, and not the outline, stand half a gap to the left.
  moveSectionElements(*this, AcGeMatrix3d::translation(AcGeVector3d(-Afastamento_ / 2.0, 0.0, 0.0)));
}

HandMadeElevation::Edges KrBNDuplaLaminada::edgesByHand() const {
  const double reach = Aba_ * std::sin(kPi / 4.0);
  const double heel = Afastamento_ / 2.0;
  const double inner = heel + Espessura_ / std::sin(kPi / 4.0);
  const double toe = heel + reach;
  return {{{-toe, false, false},
           {-inner, true, true},
           {-heel, false, false},
           {heel, false, false},
           {inner, true, true},
           {toe, false, false}},
          {{-reach, false, false}, {0.0, true, true}, {reach, false, false}}};
}

void KrBNDuplaLaminada::getPerfil(ACHAR* buffer) const {
  assertReadEnabled();
  ProfileHelpers::writePerfil(*this, L"BNDlam", buffer);
}

void KrBNDuplaLaminada::getDimensoes(ACHAR* buffer) const {
  assertReadEnabled();
  ProfileHelpers::writeDimensoes(buffer, {Aba_, Espessura_, Afastamento_});
}

int KrBNDuplaLaminada::getLinearWeight(double& peso) const {
  assertReadEnabled();
  peso = KgMetro_;
  return 1;
}

double KrBNDuplaLaminada::getArea() const {
  assertReadEnabled();
  return Area_;
}

double KrBNDuplaLaminada::getPerimetro() const {
  assertReadEnabled();
  const KrCantLaminada half(AcGePoint3d::kOrigin, Secao, Aba_, Aba_, Espessura_, EixoX_, 0.0, RaioDobra_, angleSecao(),
                            0.0, 0.0, KgMetro_, Area_);
  return 2.0 * ProfileHelpers::drawnLength(half);
}

double KrBNDuplaLaminada::getAltura() {
  assertReadEnabled();
  return Aba_ * std::sin(kPi / 4.0) * 2.0;
}

double KrBNDuplaLaminada::getEspessura() {
  assertReadEnabled();
  return Espessura_;
}

double KrBNDuplaLaminada::getLargura() {
  assertReadEnabled();
  return Afastamento_ + 2.0 * Aba_ * std::sin(kPi / 4.0);
}

void KrBNDuplaLaminada::subList() const {
  assertReadEnabled();
  KrObject::subList();
  ProfileHelpers::listCompound({Aba_, Espessura_}, Area_ / 2.0, {Aba_, Espessura_, Afastamento_}, Area_);
}
