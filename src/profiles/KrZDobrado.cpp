#include "profiles/KrZDobrado.h"

#include "profiles/FoldedProfile.h"

KR_PROFILE_DEFINE_MEMBERS(KrZDobrado, KRZDOBRADO)
KR_FOLDED_DEFINE_LIFE(KrZDobrado)
KR_FOLDED_DEFINE_MEASURES(KrZDobrado)
KR_FOLDED_DEFINE_DWG(KrZDobrado)
KR_FOLDED_DEFINE_DXF(KrZDobrado)

KrZDobrado::KrZDobrado(const AcGePoint3d& start, const AcGePoint3d& end, KrVistas vista, double altura, double mesa1,
                       double mesa2, double espessura, double raio, double ang_int1, double ang_int2, double AngleSecao,
                       double enrig, double ang_enrig)
    : espessura_(espessura),
      altura_(altura),
      mesa1_(mesa1),
      mesa2_(mesa2),
      raio_(raio),
      ang_int1_(ang_int1),
      ang_int2_(ang_int2),
      enrig_(enrig),
      ang_enrig_(ang_enrig) {
  ProfileHelpers::placeBar(*this, start, end, vista);
  generate(AngleSecao);
}

KrZDobrado::KrZDobrado(const AcGePoint3d& start, KrVistas vista, double altura, double mesa1, double mesa2,
                       double espessura, double raio, double ang_int1, double ang_int2, double Comprimento,
                       double AngleSecao, double AngleVista, double enrig, double ang_enrig)
    : espessura_(espessura),
      altura_(altura),
      mesa1_(mesa1),
      mesa2_(mesa2),
      raio_(raio),
      ang_int1_(ang_int1),
      ang_int2_(ang_int2),
      enrig_(enrig),
      ang_enrig_(ang_enrig) {
  ProfileHelpers::placeBar(*this, start, vista, AngleVista, Comprimento);
  generate(AngleSecao);
}

void KrZDobrado::Define_geratriz(KrGeratriz& g) const {
  g.Clear();
  FoldedStrip strip(g, espessura_, raio_);
  const FoldedLip lip{enrig_, kRightAngle + ang_enrig_};
  const double back1 = strip.setBack(ang_int1_);
  const double back2 = strip.setBack(ang_int2_);
  strip.begin(AcGeVector3d::kIdentity, 0.0, lip, FoldedStrip::kLeft);
  strip.straight(mesa1_ - back1 - strip.setBack(lip));
  strip.bend(ang_int1_, FoldedStrip::kLeft);
  strip.straight(altura_ - back1 - back2);
  strip.bend(ang_int2_, FoldedStrip::kRight);
  strip.straight(mesa2_ - back2 - strip.setBack(lip));
  strip.endLip(lip, FoldedStrip::kRight);
  strip.finish(AcGeVector3d(mesa1_ - espessura_ / 2.0, altura_ / 2.0 - espessura_ / 2.0, 0.0));
}

void KrZDobrado::getPerfil(ACHAR* buffer) const {
  assertReadEnabled();
  ProfileHelpers::writePerfil(*this, L"Zdob", buffer);
}

void KrZDobrado::getDimensoes(ACHAR* buffer) const {
  assertReadEnabled();
  ProfileHelpers::writeDimensoes(buffer, {altura_, mesa1_, mesa2_, espessura_});
}

double KrZDobrado::getPerimetro() const {
  assertReadEnabled();
  const KrZDobrado section(AcGePoint3d::kOrigin, Secao, altura_, mesa1_, mesa2_, espessura_, raio_, ang_int1_,
                           ang_int2_, 0.0, angleSecao(), 0.0, enrig_, ang_enrig_);
  return ProfileHelpers::drawnLength(section);
}

double KrZDobrado::getAltura() {
  assertReadEnabled();
  return altura_;
}

double KrZDobrado::getLargura() {
  assertReadEnabled();
  return mesa1_ + mesa2_ - espessura_;
}

void KrZDobrado::subList() const {
  assertReadEnabled();
  KrObject::subList();
  ProfileHelpers::listSection({altura_, mesa1_, mesa2_, espessura_}, getArea());
}
