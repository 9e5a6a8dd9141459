#include "profiles/KrXDobrado.h"

#include <algorithm>
#include <cmath>

#include "profiles/FoldedProfile.h"
#include "profiles/KrCantoneiraDobrada.h"

KR_PROFILE_DEFINE_MEMBERS(KrXDobrado, KRXDOBRADO)
KR_FOLDED_DEFINE_LIFE(KrXDobrado)
KR_FOLDED_DEFINE_MEASURES(KrXDobrado)
KR_FOLDED_DEFINE_DWG(KrXDobrado)
KR_FOLDED_DEFINE_DXF(KrXDobrado)

namespace {

constexpr double kEighthTurn = 0.7853981633974483;

}  // namespace

KrXDobrado::KrXDobrado(const AcGePoint3d& start, const AcGePoint3d& end, KrVistas vista, double aba1, double aba2,
                       double espessura, double raio, double ang_int, double gap, double AngleSecao, double enrig)
    : espessura_(espessura), aba1_(aba1), aba2_(aba2), raio_(raio), ang_int_(ang_int), enrig_(enrig), gap_(gap) {
  ProfileHelpers::placeBar(*this, start, end, vista);
  generate(AngleSecao);
}

KrXDobrado::KrXDobrado(const AcGePoint3d& start, KrVistas vista, double aba1, double aba2, double espessura,
                       double raio, double ang_int, double gap, double Comprimento, double AngleSecao,
                       double AngleVista, double enrig)
    : espessura_(espessura), aba1_(aba1), aba2_(aba2), raio_(raio), ang_int_(ang_int), enrig_(enrig), gap_(gap) {
  ProfileHelpers::placeBar(*this, start, vista, AngleVista, Comprimento);
  generate(AngleSecao);
}

FoldedAngle KrXDobrado::half() const {
  return FoldedAngle{aba1_, aba2_, espessura_, raio_, ang_int_, enrig_};
}

void KrXDobrado::Define_geratriz(KrGeratriz& g) const {
  KrGeratriz line;
  const int heel = half().write(line);
  KrObject::Gira_vetores(line, kEighthTurn);
  int unused = 0;
  const AcGeVector3d& from = line.GetVertex(heel);
  const AcGeVector3d& to = line.GetVertex(heel + 1);
  const double x = KrObject::Arco_Xtreme(line, heel, unused, from.x) - espessura_ / 2.0 - gap_ / 2.0;
  double y = from.y;
  if (const double bulge = line.GetBulge(heel); bulge != 0.0) {
    AcGePoint3d through;
    KrObject::MidArco(from.asPoint(), to.asPoint(), bulge, through);
    y = AcGeCircArc3d(from.asPoint(), through, to.asPoint()).center().y;
  }
  MiddleLine::writeHalves(g, line, AcGeVector3d(x, y, 0.0), espessura_);
}

void KrXDobrado::getPerfil(ACHAR* buffer) const {
  assertReadEnabled();
  ProfileHelpers::writePerfil(*this, L"XDob", buffer);
}

void KrXDobrado::getDimensoes(ACHAR* buffer) const {
  assertReadEnabled();
  ProfileHelpers::writeDimensoes(buffer, {aba1_, aba2_, espessura_});
}

double KrXDobrado::getPerimetro() const {
  assertReadEnabled();
  const FoldedAngle of = half();
  const KrCantoneiraDobrada section(AcGePoint3d::kOrigin, Secao, of.aba1, of.aba2, of.espessura, of.raio, of.ang_int,
                                    0.0, angleSecao(), 0.0, of.enrig);
  return 2.0 * ProfileHelpers::drawnLength(section);
}

double KrXDobrado::getAltura() {
  assertReadEnabled();
  return (aba1_ + aba2_) * std::sin(kEighthTurn);
}

double KrXDobrado::getLargura() {
  assertReadEnabled();
  return std::max(aba1_, aba2_) * std::sin(kEighthTurn) * 2.0 + gap_;
}

void KrXDobrado::subList() const {
  assertReadEnabled();
  KrObject::subList();
  KrGeratriz line;
  half().write(line);
  ProfileHelpers::listCompound({aba1_, aba2_, espessura_}, Calcula_AreaGeratriz(line, espessura_),
                               {aba1_, aba2_, espessura_, gap_}, getArea(), L"Dados da Cantoneira");
}
