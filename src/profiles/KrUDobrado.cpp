#include "profiles/KrUDobrado.h"

#include <algorithm>

#include "profiles/FoldedProfile.h"

KR_PROFILE_DEFINE_MEMBERS(KrUDobrado, KRUDOBRADO)
KR_FOLDED_DEFINE_LIFE(KrUDobrado)
KR_FOLDED_DEFINE_MEASURES(KrUDobrado)
KR_FOLDED_DEFINE_DWG(KrUDobrado)
KR_FOLDED_DEFINE_DXF(KrUDobrado)

KrUDobrado::KrUDobrado(const AcGePoint3d& start, const AcGePoint3d& end, KrVistas vista, double altura, double mesa1,
                       double mesa2, double espessura, double raio, double ang_int1, double ang_int2, double AngleSecao,
                       double enrig)
    : espessura_(espessura),
      altura_(altura),
      mesa1_(mesa1),
      mesa2_(mesa2),
      raio_(raio),
      ang_int1_(ang_int1),
      ang_int2_(ang_int2),
      enrig_(enrig) {
  ProfileHelpers::placeBar(*this, start, end, vista);
  generate(AngleSecao);
}

KrUDobrado::KrUDobrado(const AcGePoint3d& start, KrVistas vista, double altura, double mesa1, double mesa2,
                       double espessura, double raio, double ang_int1, double ang_int2, double Comprimento,
                       double AngleSecao, double AngleVista, double enrig)
    : espessura_(espessura),
      altura_(altura),
      mesa1_(mesa1),
      mesa2_(mesa2),
      raio_(raio),
      ang_int1_(ang_int1),
      ang_int2_(ang_int2),
      enrig_(enrig) {
  ProfileHelpers::placeBar(*this, start, vista, AngleVista, Comprimento);
  generate(AngleSecao);
}

void KrUDobrado::Define_geratriz(KrGeratriz& g) const {
  FoldedChannel{altura_, mesa1_, mesa2_, espessura_, raio_, ang_int1_, ang_int2_, enrig_}.write(g);
}

void KrUDobrado::getPerfil(ACHAR* buffer) const {
  assertReadEnabled();
  ProfileHelpers::writePerfil(*this, L"[", buffer);
}

void KrUDobrado::getDimensoes(ACHAR* buffer) const {
  assertReadEnabled();
  ProfileHelpers::writeDimensoes(buffer, {altura_, mesa1_, enrig_, espessura_});
}

double KrUDobrado::getPerimetro() const {
  assertReadEnabled();
  const KrUDobrado section(AcGePoint3d::kOrigin, Secao, altura_, mesa1_, mesa2_, espessura_, raio_, ang_int1_,
                           ang_int2_, 0.0, angleSecao(), 0.0, enrig_);
  return ProfileHelpers::drawnLength(section);
}

double KrUDobrado::getAltura() {
  assertReadEnabled();
  return altura_;
}

double KrUDobrado::getLargura() {
  assertReadEnabled();
  return std::max(mesa1_, mesa2_);
}

void KrUDobrado::subList() const {
  assertReadEnabled();
  KrObject::subList();
  ProfileHelpers::listSection({altura_, mesa1_, enrig_, espessura_}, getArea());
}
