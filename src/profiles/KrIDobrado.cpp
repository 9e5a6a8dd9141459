#include "profiles/KrIDobrado.h"

#include <algorithm>

#include "profiles/FoldedProfile.h"
#include "profiles/KrUDobrado.h"

KR_PROFILE_DEFINE_MEMBERS(KrIDobrado, KRIDOBRADO)
KR_FOLDED_DEFINE_LIFE(KrIDobrado)
KR_FOLDED_DEFINE_MEASURES(KrIDobrado)
KR_FOLDED_DEFINE_DWG(KrIDobrado)
KR_FOLDED_DEFINE_DXF(KrIDobrado)

KrIDobrado::KrIDobrado(const AcGePoint3d& start, const AcGePoint3d& end, KrVistas vista, double altura, double mesa1,
                       double mesa2, double espessura, double raio, double gap, double AngleSecao, double enrig)
    : espessura_(espessura), altura_(altura), mesa1_(mesa1), mesa2_(mesa2), raio_(raio), enrig_(enrig), gap_(gap) {
  ProfileHelpers::placeBar(*this, start, end, vista);
  generate(AngleSecao);
}

KrIDobrado::KrIDobrado(const AcGePoint3d& start, KrVistas vista, double altura, double mesa1, double mesa2,
                       double espessura, double raio, double gap, double Comprimento, double AngleSecao,
                       double AngleVista, double enrig)
    : espessura_(espessura), altura_(altura), mesa1_(mesa1), mesa2_(mesa2), raio_(raio), enrig_(enrig), gap_(gap) {
  ProfileHelpers::placeBar(*this, start, vista, AngleVista, Comprimento);
  generate(AngleSecao);
}

FoldedChannel KrIDobrado::half() const {
  return FoldedChannel{altura_, mesa1_, mesa2_, espessura_, raio_, kRightAngle, kRightAngle, enrig_};
}

void KrIDobrado::Define_geratriz(KrGeratriz& g) const {
  KrGeratriz line;
  half().write(line);
  const double x = line.GetVertex(0).x + (enrig_ != 0.0 ? espessura_ / 2.0 : 0.0) - mesa1_ - gap_ / 2.0;
  const double y = line.GetRefOrigin().y;
  MiddleLine::writeHalves(g, line, AcGeVector3d(x, y, 0.0), espessura_);
}

void KrIDobrado::getPerfil(ACHAR* buffer) const {
  assertReadEnabled();
  ProfileHelpers::writePerfil(*this, L"UU I", buffer);
}

void KrIDobrado::getDimensoes(ACHAR* buffer) const {
  assertReadEnabled();
  ProfileHelpers::writeDimensoes(buffer, {altura_, mesa1_, enrig_, espessura_});
}

double KrIDobrado::getPerimetro() const {
  assertReadEnabled();
  const FoldedChannel of = half();
  const KrUDobrado section(AcGePoint3d::kOrigin, Secao, of.altura, of.mesa1, of.mesa2, of.espessura, of.raio,
                           of.ang_int1, of.ang_int2, 0.0, angleSecao(), 0.0, of.enrig);
  return ProfileHelpers::drawnLength(section);
}

double KrIDobrado::getAltura() {
  assertReadEnabled();
  return altura_;
}

double KrIDobrado::getLargura() {
  assertReadEnabled();
  return 2.0 * std::max(mesa1_, mesa2_) + gap_;
}

void KrIDobrado::subList() const {
  assertReadEnabled();
  KrObject::subList();
  KrGeratriz line;
  half().write(line);
  ProfileHelpers::listCompound({altura_, mesa1_, enrig_, espessura_}, Calcula_AreaGeratriz(line, espessura_),
                               {altura_, mesa1_, enrig_, espessura_, gap_}, getArea());
}
