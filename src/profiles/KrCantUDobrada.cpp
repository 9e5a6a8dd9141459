#include "profiles/KrCantUDobrada.h"

#include <cmath>

#include "profiles/FoldedProfile.h"
#include "profiles/KrCantoneiraDobrada.h"

KR_PROFILE_DEFINE_MEMBERS(KrCantUDobrada, KRCANTONEIRA_U_DOBRADA)
KR_FOLDED_DEFINE_LIFE(KrCantUDobrada)
KR_FOLDED_DEFINE_MEASURES(KrCantUDobrada)
KR_FOLDED_DEFINE_DWG(KrCantUDobrada)
KR_FOLDED_DEFINE_DXF(KrCantUDobrada)

KrCantUDobrada::KrCantUDobrada(const AcGePoint3d& start, const AcGePoint3d& end, KrVistas vista, double aba1,
                               double aba2, double espessura, double raio, double gap, double AngleSecao, double enrig)
    : espessura_(espessura), aba1_(aba1), aba2_(aba2), raio_(raio), gap_(gap), enrig_(enrig) {
  ProfileHelpers::placeBar(*this, start, end, vista);
  generate(AngleSecao);
}

KrCantUDobrada::KrCantUDobrada(const AcGePoint3d& start, KrVistas vista, double aba1, double aba2, double espessura,
                               double raio, double gap, double Comprimento, double AngleSecao, double AngleVista,
                               double enrig)
    : espessura_(espessura), aba1_(aba1), aba2_(aba2), raio_(raio), gap_(gap), enrig_(enrig) {
  ProfileHelpers::placeBar(*this, start, vista, AngleVista, Comprimento);
  generate(AngleSecao);
}

FoldedAngle KrCantUDobrada::half() const {
  return FoldedAngle{aba1_, aba2_, espessura_, raio_, kRightAngle, enrig_};
}

void KrCantUDobrada::Define_geratriz(KrGeratriz& g) const {
  KrGeratriz line;
  half().write(line);
  // From the middle of the first node's metal to the back of the upright leg.
  const double toBack = enrig_ == 0.0 ? -espessura_ / 2.0 : (enrig_ > 0.0 ? -enrig_ : std::fabs(enrig_) - espessura_);
  const double x = line.GetVertex(0).x + toBack + aba2_ + gap_ / 2.0;
  const double y = line.GetVertex(line.Qtd() - 1).y;
  MiddleLine::writeHalves(g, line, AcGeVector3d(x, y, 0.0), espessura_);
}

void KrCantUDobrada::getPerfil(ACHAR* buffer) const {
  assertReadEnabled();
  ProfileHelpers::writePerfil(*this, L"CantU", buffer);
}

void KrCantUDobrada::getDimensoes(ACHAR* buffer) const {
  assertReadEnabled();
  ProfileHelpers::writeDimensoes(buffer, {aba1_, aba2_, espessura_});
}

double KrCantUDobrada::getPerimetro() const {
  assertReadEnabled();
  const FoldedAngle of = half();
  const KrCantoneiraDobrada section(AcGePoint3d::kOrigin, Secao, of.aba1, of.aba2, of.espessura, of.raio, of.ang_int,
                                    0.0, angleSecao(), 0.0, of.enrig);
  return 2.0 * ProfileHelpers::drawnLength(section);
}

double KrCantUDobrada::getAltura() {
  assertReadEnabled();
  return aba1_;
}

double KrCantUDobrada::getLargura() {
  assertReadEnabled();
  return 2.0 * aba2_ + gap_;
}

void KrCantUDobrada::subList() const {
  assertReadEnabled();
  KrObject::subList();
  KrGeratriz line;
  half().write(line);
  ProfileHelpers::listCompound({aba1_, aba2_, espessura_}, Calcula_AreaGeratriz(line, espessura_),
                               {aba1_, aba2_, espessura_, gap_}, getArea(), L"Dados da Cantoneira");
}
