#include "profiles/KrCantTDobrada.h"

#include "profiles/FoldedProfile.h"
#include "profiles/KrCantoneiraDobrada.h"

KR_PROFILE_DEFINE_MEMBERS(KrCantTDobrada, KRCANTONEIRA_T_DOBRADA)
KR_FOLDED_DEFINE_LIFE(KrCantTDobrada)
KR_FOLDED_DEFINE_MEASURES(KrCantTDobrada)
KR_FOLDED_DEFINE_DWG(KrCantTDobrada)
KR_FOLDED_DEFINE_DXF(KrCantTDobrada)

KrCantTDobrada::KrCantTDobrada(const AcGePoint3d& start, const AcGePoint3d& end, KrVistas vista, double aba1,
                               double aba2, double espessura, double raio, double gap, double AngleSecao, double enrig)
    : espessura_(espessura), aba1_(aba1), aba2_(aba2), raio_(raio), gap_(gap), enrig_(enrig) {
  ProfileHelpers::placeBar(*this, start, end, vista);
  generate(AngleSecao);
}

KrCantTDobrada::KrCantTDobrada(const AcGePoint3d& start, KrVistas vista, double aba1, double aba2, double espessura,
                               double raio, double gap, double Comprimento, double AngleSecao, double AngleVista,
                               double enrig)
    : espessura_(espessura), aba1_(aba1), aba2_(aba2), raio_(raio), gap_(gap), enrig_(enrig) {
  ProfileHelpers::placeBar(*this, start, vista, AngleVista, Comprimento);
  generate(AngleSecao);
}

FoldedAngle KrCantTDobrada::half() const {
  return FoldedAngle{aba1_, aba2_, espessura_, raio_, kRightAngle, enrig_};
}

void KrCantTDobrada::Define_geratriz(KrGeratriz& g) const {
  KrGeratriz line;
  half().write(line);
  // From the middle of the first node's metal to the back of the upright leg.
  const double toBack = enrig_ == 0.0 ? -espessura_ / 2.0 : (enrig_ > 0.0 ? -enrig_ : 0.0);
  const double x = line.GetVertex(0).x + toBack - gap_ / 2.0;
  const double y = line.GetVertex(line.Qtd() - 1).y;
  MiddleLine::writeHalves(g, line, AcGeVector3d(x, y, 0.0), espessura_);
}

void KrCantTDobrada::getPerfil(ACHAR* buffer) const {
  assertReadEnabled();
  ProfileHelpers::writePerfil(*this, L"2LLam", buffer);
}

void KrCantTDobrada::getDimensoes(ACHAR* buffer) const {
  assertReadEnabled();
  ProfileHelpers::writeDimensoes(buffer, {aba1_, aba2_, espessura_});
}

double KrCantTDobrada::getPerimetro() const {
  assertReadEnabled();
  const FoldedAngle of = half();
  const KrCantoneiraDobrada section(AcGePoint3d::kOrigin, Secao, of.aba1, of.aba2, of.espessura, of.raio, of.ang_int,
                                    0.0, angleSecao(), 0.0, of.enrig);
  return 2.0 * ProfileHelpers::drawnLength(section);
}

double KrCantTDobrada::getAltura() {
  assertReadEnabled();
  return aba1_;
}

double KrCantTDobrada::getLargura() {
  assertReadEnabled();
  return 2.0 * aba2_ + gap_;
}

void KrCantTDobrada::subList() const {
  assertReadEnabled();
  KrObject::subList();
  KrGeratriz line;
  half().write(line);
  ProfileHelpers::listCompound({aba1_, aba2_, espessura_}, Calcula_AreaGeratriz(line, espessura_),
                               {aba1_, aba2_, espessura_, gap_}, getArea(), L"Dados da Cantoneira");
}
