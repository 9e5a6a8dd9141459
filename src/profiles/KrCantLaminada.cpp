#include "profiles/KrCantLaminada.h"

#include "host/ed/ed.h"
#include "profiles/RolledProfile.h"
#include "profiles/SectionWalk.h"

KR_PROFILE_DEFINE_MEMBERS(KrCantLaminada, KR_PERFIL_CANT_LAMINADA)
KR_ROLLED_DEFINE_COPYING(KrCantLaminada)
KR_ROLLED_DEFINE_CALCULE(KrCantLaminada)
KR_ROLLED_DEFINE_ELEVATIONS(KrCantLaminada)
KR_ROLLED_DEFINE_FILING(KrCantLaminada)

KrCantLaminada::KrCantLaminada(const AcGePoint3d& start, const AcGePoint3d& end, KrVistas vista, double Altura,
                               double Largura, double Espessura, double EixoX, double EixoY, double RaioDobra,
                               double AngleSecao, double KgMetro, double Area)
    : Altura_(Altura),
      Largura_(Largura),
      Espessura_(Espessura),
      RaioDobra_(RaioDobra),
      KgMetro_(KgMetro),
      EixoX_(EixoX),
      EixoY_(EixoY),
      Area_(Area) {
  ProfileHelpers::placeBar(*this, start, end, vista);
  setAngleSecao(AngleSecao);
  Calcule();
}

KrCantLaminada::KrCantLaminada(const AcGePoint3d& start, KrVistas vista, double Altura, double Largura,
                               double Espessura, double EixoX, double EixoY, double RaioDobra, double AngleSecao,
                               double AngleVista, double Comprimento, double KgMetro, double Area)
    : Altura_(Altura),
      Largura_(Largura),
      Espessura_(Espessura),
      RaioDobra_(RaioDobra),
      KgMetro_(KgMetro),
      EixoX_(EixoX),
      EixoY_(EixoY),
      Area_(Area) {
  ProfileHelpers::placeBar(*this, start, vista, AngleVista, Comprimento);
  setAngleSecao(AngleSecao);
  Calcule();
}

void KrCantLaminada::CalculeSecao() {
  assertWriteEnabled();
  ClearVertexes(Secao);
  outline().reserve(9);
  SectionWalk walk(*this, outline());
  AngleWalk{Altura_, Largura_, Espessura_, RaioDobra_}.walk(walk);
  outline().Add(AcGeVector3d(EixoX_, EixoY_, 0.0), KrGeratriz::kReferenceBulge);
}

HandMadeElevation::Edges KrCantLaminada::edgesByHand() const {
  return {{{-EixoX_, false, false}, {Espessura_ - EixoX_, true, false}, {Largura_ - EixoX_, false, false}},
          {{-EixoY_, false, false}, {Altura_ - Espessura_ - EixoY_, false, true}, {Altura_ - EixoY_, false, false}}};
}

void KrCantLaminada::getPerfil(ACHAR* buffer) const {
  assertReadEnabled();
  ProfileHelpers::writePerfil(*this, L"LLam", buffer);
}

void KrCantLaminada::getDimensoes(ACHAR* buffer) const {
  assertReadEnabled();
  ProfileHelpers::writeDimensoes(buffer, {Altura_, Largura_, Espessura_});
}

int KrCantLaminada::getLinearWeight(double& peso) const {
  assertReadEnabled();
  peso = KgMetro_;
  return 1;
}

double KrCantLaminada::getArea() const {
  assertReadEnabled();
  return Area_;
}

double KrCantLaminada::getPerimetro() const {
  assertReadEnabled();
  const KrCantLaminada section(AcGePoint3d::kOrigin, Secao, Altura_, Largura_, Espessura_, EixoX_, EixoY_, RaioDobra_,
                               angleSecao(), 0.0, 0.0, KgMetro_, Area_);
  return ProfileHelpers::drawnLength(section);
}

double KrCantLaminada::getAltura() {
  assertReadEnabled();
  return Altura_;
}

double KrCantLaminada::getEspessura() {
  assertReadEnabled();
  return Espessura_;
}

double KrCantLaminada::getLargura() {
  assertReadEnabled();
  return Largura_;
}

void KrCantLaminada::subList() const {
  assertReadEnabled();
  KrObject::subList();
  ProfileHelpers::listSection({Altura_, Largura_, Espessura_}, Area_);
}
