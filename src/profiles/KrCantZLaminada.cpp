#include "profiles/KrCantZLaminada.h"

#include "host/ed/ed.h"
#include "profiles/KrCantLaminada.h"
#include "profiles/RolledProfile.h"
#include "profiles/SectionWalk.h"

KR_PROFILE_DEFINE_MEMBERS(KrCantZLaminada, KR_PERFIL_CANT_Z_LAMINADA)
KR_ROLLED_DEFINE_COPYING(KrCantZLaminada)
KR_ROLLED_DEFINE_CALCULE(KrCantZLaminada)
KR_ROLLED_DEFINE_ELEVATIONS(KrCantZLaminada)
KR_ROLLED_DEFINE_FILING(KrCantZLaminada)

namespace {

/// What two legs leave of the overall width; nothing, with an alert, where they are wider.
double gapWithin(double larguraTotal, double largura) {
  if (2.0 * largura <= larguraTotal) return larguraTotal - 2.0 * largura;
  acedAlert(L"Afastamento menor que 2*Largura!\nVou trocar para o valor minimo.");
  return 0.0;
}

}  // namespace

KrCantZLaminada::KrCantZLaminada(const AcGePoint3d& start, const AcGePoint3d& end, KrVistas vista, double Altura,
                                 double Largura, double Espessura, double RaioDobra, double larguraTotal,
                                 double AfastamentoV, double AngleSecao, double KgMetro, double Area)
    : Altura_(Altura),
      Largura_(Largura),
      Espessura_(Espessura),
      RaioDobra_(RaioDobra),
      AfastamentoH_(gapWithin(larguraTotal, Largura)),
      AfastamentoV_(AfastamentoV),
      KgMetro_(KgMetro),
      Area_(Area) {
  ProfileHelpers::placeBar(*this, start, end, vista);
  setAngleSecao(AngleSecao);
  Calcule();
}

KrCantZLaminada::KrCantZLaminada(const AcGePoint3d& start, KrVistas vista, double Altura, double Largura,
                                 double Espessura, double RaioDobra, double larguraTotal, double AfastamentoV,
                                 double Comprimento, double AngleSecao, double AngleVista, double KgMetro, double Area)
    : Altura_(Altura),
      Largura_(Largura),
      Espessura_(Espessura),
      RaioDobra_(RaioDobra),
      AfastamentoH_(gapWithin(larguraTotal, Largura)),
      AfastamentoV_(AfastamentoV),
      KgMetro_(KgMetro),
      Area_(Area) {
  ProfileHelpers::placeBar(*this, start, vista, AngleVista, Comprimento);
  setAngleSecao(AngleSecao);
  Calcule();
}

void KrCantZLaminada::CalculeSecao() {
  assertWriteEnabled();
  ClearVertexes(Secao);
  KrGeratriz half;
  SectionWalk walk(*this, half, AcGeVector3d(-AfastamentoH_ / 2.0 - Largura_, 0.0, 0.0));
  AngleWalk{Altura_, Largura_, Espessura_, RaioDobra_}.walk(walk);
  addHalves(*this, outline(), half, AcGeVector3d(0.0, -AfastamentoV_ / 2.0, 0.0), OtherHalf::kTurned);
  const AcGeVector3d& first = half.GetVertex(0);
  const AcGeVector3d& second = outline().GetVertex(half.Qtd());
  EixoX_ = (second.x - first.x) / 2.0;
  EixoY_ = first.y - (first.y - second.y) / 2.0;
}

HandMadeElevation::Edges KrCantZLaminada::edgesByHand() const {
  const double toe = AfastamentoH_ / 2.0;
  const double back = toe + Largura_;
  const double leg = back - Espessura_;
  const double foot = AfastamentoV_ / 2.0;
  const double top = foot + Altura_;
  const double flange = top - Espessura_;
  return {{{-back, false, false},
           {-leg, true, false},
           {-toe, false, false},
           {toe, false, false},
           {leg, false, true},
           {back, false, false}},
          {{-top, false, false},
           {-flange, true, false},
           {-foot, false, false},
           {foot, false, false},
           {flange, false, true},
           {top, false, false}}};
}

void KrCantZLaminada::getPerfil(ACHAR* buffer) const {
  assertReadEnabled();
  ProfileHelpers::writePerfil(*this, L"CantZLam", buffer);
}

void KrCantZLaminada::getDimensoes(ACHAR* buffer) const {
  assertReadEnabled();
  ProfileHelpers::writeDimensoes(buffer, {Espessura_, Altura_, AfastamentoH_, AfastamentoV_});
}

int KrCantZLaminada::getLinearWeight(double& peso) const {
  assertReadEnabled();
  peso = KgMetro_;
  return 1;
}

double KrCantZLaminada::getArea() const {
  assertReadEnabled();
  return Area_;
}

double KrCantZLaminada::getPerimetro() const {
  assertReadEnabled();
  const KrCantLaminada half(AcGePoint3d::kOrigin, Secao, Altura_, Largura_, Espessura_, EixoX_, EixoY_, RaioDobra_,
                            angleSecao(), 0.0, 0.0, KgMetro_, Area_);
  return 2.0 * ProfileHelpers::drawnLength(half);
}

double KrCantZLaminada::getAltura() {
  assertReadEnabled();
  return 2.0 * Altura_ + AfastamentoV_;
}

double KrCantZLaminada::getEspessura() {
  assertReadEnabled();
  return Espessura_;
}

double KrCantZLaminada::getLargura() {
  assertReadEnabled();
  return 2.0 * Largura_ + AfastamentoH_;
}

void KrCantZLaminada::subList() const {
  assertReadEnabled();
  KrObject::subList();
  ProfileHelpers::listCompound({Altura_, Largura_, Espessura_}, Area_ / 2.0,
                               {Espessura_, Altura_, AfastamentoH_, AfastamentoV_}, Area_);
}
