#include "profiles/KrCaixaDobrado.h"

#include "profiles/FoldedProfile.h"
#include "profiles/KrUDobrado.h"

KR_PROFILE_DEFINE_MEMBERS(KrCaixaDobrado, KRCAIXADOBRADO)
KR_FOLDED_DEFINE_LIFE(KrCaixaDobrado)
KR_FOLDED_DEFINE_MEASURES(KrCaixaDobrado)
KR_FOLDED_DEFINE_DWG(KrCaixaDobrado)
KR_FOLDED_DEFINE_DXF(KrCaixaDobrado)

KrCaixaDobrado::KrCaixaDobrado(const AcGePoint3d& start, const AcGePoint3d& end, KrVistas vista, double altura,
                               double mesa, double espessura, double raio, double gap, double AngleSecao, double enrig)
    : espessura_(espessura), altura_(altura), mesa_(mesa), raio_(raio), enrig_(enrig), gap_(gap) {
  ProfileHelpers::placeBar(*this, start, end, vista);
  generate(AngleSecao);
}

KrCaixaDobrado::KrCaixaDobrado(const AcGePoint3d& start, KrVistas vista, double altura, double mesa, double espessura,
                               double raio, double gap, double Comprimento, double AngleSecao, double AngleVista,
                               double enrig)
    : espessura_(espessura), altura_(altura), mesa_(mesa), raio_(raio), enrig_(enrig), gap_(gap) {
  ProfileHelpers::placeBar(*this, start, vista, AngleVista, Comprimento);
  generate(AngleSecao);
}

FoldedChannel KrCaixaDobrado::half() const {
  return FoldedChannel{altura_, mesa_, mesa_, espessura_, raio_, kRightAngle, kRightAngle, enrig_};
}

void KrCaixaDobrado::Define_geratriz(KrGeratriz& g) const {
  KrGeratriz line;
  half().write(line);
  const double x = line.GetVertex(0).x + gap_ / 2.0 + (enrig_ != 0.0 ? espessura_ / 2.0 : 0.0);
  const double y = line.GetRefOrigin().y;
  MiddleLine::writeHalves(g, line, AcGeVector3d(x, y, 0.0), espessura_);
}

void KrCaixaDobrado::getPerfil(ACHAR* buffer) const {
  assertReadEnabled();
  ProfileHelpers::writePerfil(*this, L"Caixa", buffer);
}

void KrCaixaDobrado::getDimensoes(ACHAR* buffer) const {
  assertReadEnabled();
  ProfileHelpers::writeDimensoes(buffer, {altura_, mesa_, espessura_, enrig_});
}

double KrCaixaDobrado::getPerimetro() const {
  assertReadEnabled();
  const FoldedChannel of = half();
  const KrUDobrado section(AcGePoint3d::kOrigin, Secao, of.altura, of.mesa1, of.mesa2, of.espessura, of.raio,
                           of.ang_int1, of.ang_int2, 0.0, angleSecao(), 0.0, of.enrig);
  return ProfileHelpers::drawnLength(section);
}

double KrCaixaDobrado::getAltura() {
  assertReadEnabled();
  return altura_;
}

double KrCaixaDobrado::getLargura() {
  assertReadEnabled();
  return 2.0 * mesa_ + gap_;
}

void KrCaixaDobrado::subList() const {
  assertReadEnabled();
  KrObject::subList();
  KrGeratriz line;
  half().write(line);
  ProfileHelpers::listCompound({altura_, mesa_, espessura_, enrig_}, Calcula_AreaGeratriz(line, espessura_),
                               {altura_, mesa_, espessura_, enrig_, gap_}, getArea());
}
