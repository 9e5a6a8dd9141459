#include "profiles/KrCartola.h"

#include "profiles/FoldedProfile.h"

KR_PROFILE_DEFINE_MEMBERS(KrCartola, KRCARTOLA)
KR_FOLDED_DEFINE_LIFE(KrCartola)
KR_FOLDED_DEFINE_MEASURES(KrCartola)
KR_FOLDED_DEFINE_DWG(KrCartola)
KR_FOLDED_DEFINE_DXF(KrCartola)

KrCartola::KrCartola(const AcGePoint3d& start, const AcGePoint3d& end, KrVistas vista, double altura, double mesa,
                     double espessura, double raio, double enrig, double AngleSecao)
    : espessura_(espessura), altura_(altura), mesa_(mesa), raio_(raio), enrig_(enrig) {
  ProfileHelpers::placeBar(*this, start, end, vista);
  generate(AngleSecao);
}

KrCartola::KrCartola(const AcGePoint3d& start, KrVistas vista, double altura, double mesa, double espessura,
                     double raio, double enrig, double Comprimento, double AngleSecao, double AngleVista)
    : espessura_(espessura), altura_(altura), mesa_(mesa), raio_(raio), enrig_(enrig) {
  ProfileHelpers::placeBar(*this, start, vista, AngleVista, Comprimento);
  generate(AngleSecao);
}

void KrCartola::Define_geratriz(KrGeratriz& g) const {
  g.Clear();
  FoldedStrip strip(g, espessura_, raio_);
  const FoldedLip brim{enrig_};
  const double back = strip.setBack(kRightAngle);
  const double leg = altura_ - back - strip.setBack(brim);
  strip.begin(AcGeVector3d(enrig_ - espessura_ / 2.0, 0.0, 0.0), kRightAngle, brim, FoldedStrip::kLeft);
  strip.straight(leg);
  strip.bend(kRightAngle, FoldedStrip::kRight);
  strip.straight(mesa_ - 2.0 * back);
  strip.bend(kRightAngle, FoldedStrip::kRight);
  strip.straight(leg);
  strip.endLip(brim, FoldedStrip::kLeft);
  strip.finish(AcGeVector3d(enrig_ - espessura_ + mesa_ / 2.0, altura_ / 2.0, 0.0));
}

void KrCartola::getPerfil(ACHAR* buffer) const {
  assertReadEnabled();
  ProfileHelpers::writePerfil(*this, L"Cart", buffer);
}

void KrCartola::getDimensoes(ACHAR* buffer) const {
  assertReadEnabled();
  ProfileHelpers::writeDimensoes(buffer, {altura_, mesa_, enrig_, espessura_});
}

double KrCartola::getPerimetro() const {
  assertReadEnabled();
  const KrCartola section(AcGePoint3d::kOrigin, Secao, altura_, mesa_, espessura_, raio_, enrig_, 0.0, angleSecao(),
                          0.0);
  return ProfileHelpers::drawnLength(section);
}

double KrCartola::getAltura() {
  assertReadEnabled();
  return altura_;
}

double KrCartola::getLargura() {
  assertReadEnabled();
  return mesa_ + 2.0 * enrig_ - 2.0 * espessura_;
}

void KrCartola::subList() const {
  assertReadEnabled();
  KrObject::subList();
  ProfileHelpers::listSection({altura_, mesa_, enrig_, espessura_}, getArea());
}
