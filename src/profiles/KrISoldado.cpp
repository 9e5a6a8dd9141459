#include "profiles/KrISoldado.h"

#include <algorithm>
#include <cmath>

#include "profiles/MiddleLine.h"
#include "profiles/ProfileHelpers.h"
#include "records/FiledMarker.h"
#include "records/ItemReader.h"

KR_PROFILE_DEFINE_MEMBERS(KrISoldado, KRISOLDADO)

namespace {

/// Flanges whose thicknesses differ by no more than this are alike.
constexpr double kAlike = 0.01;

double commonThickness(double tf1, double tf2) {
  return std::fabs(tf1 - tf2) <= kAlike ? tf1 : 0.0;
}

}  // namespace

KrISoldado::KrISoldado() = default;

KrISoldado::KrISoldado(const AcGePoint3d& start, const AcGePoint3d& end, KrVistas vista, double altura, double mesa1,
                       double mesa2, double tw, double tf, double AngleSecao, double KgMetro)
    : altura_(altura), mesa1_(mesa1), mesa2_(mesa2), tw_(tw), tf_(tf), tf1_(tf), tf2_(tf), KgMetro_(KgMetro) {
  ProfileHelpers::placeBar(*this, start, end, vista);
  generate(AngleSecao);
}

KrISoldado::KrISoldado(const AcGePoint3d& start, KrVistas vista, double altura, double mesa1, double mesa2, double tw,
                       double tf, double Comprimento, double AngleSecao, double AngleVista, double KgMetro)
    : altura_(altura), mesa1_(mesa1), mesa2_(mesa2), tw_(tw), tf_(tf), tf1_(tf), tf2_(tf), KgMetro_(KgMetro) {
  ProfileHelpers::placeBar(*this, start, vista, AngleVista, Comprimento);
  generate(AngleSecao);
}

KrISoldado::KrISoldado(const AcGePoint3d& start, const AcGePoint3d& end, double altura, double mesa1, double mesa2,
                       double tf1, double tf2, double tw, KrVistas vista, double AngleSecao, double KgMetro)
    : altura_(altura),
      mesa1_(mesa1),
      mesa2_(mesa2),
      tw_(tw),
      tf_(commonThickness(tf1, tf2)),
      tf1_(tf1),
      tf2_(tf2),
      KgMetro_(KgMetro) {
  ProfileHelpers::placeBar(*this, start, end, vista);
  generate(AngleSecao);
}

KrISoldado::KrISoldado(const AcGePoint3d& start, double altura, double mesa1, double mesa2, double tf1, double tf2,
                       double tw, double Comprimento, KrVistas vista, double AngleSecao, double AngleVista,
                       double KgMetro)
    : altura_(altura),
      mesa1_(mesa1),
      mesa2_(mesa2),
      tw_(tw),
      tf_(commonThickness(tf1, tf2)),
      tf1_(tf1),
      tf2_(tf2),
      KgMetro_(KgMetro) {
  ProfileHelpers::placeBar(*this, start, vista, AngleVista, Comprimento);
  generate(AngleSecao);
}

KrISoldado::KrISoldado(const KrISoldado* source, int completo) {
  CopiaDados(source, completo);
  ProfileHelpers::copyParameters(parameters(*this), parameters(*source));
  linhaMedia_ = source->linhaMedia_;
  if (completo != 1) MiddleLine::thicken(*this, linhaMedia_, tf1_);
}

KrISoldado::KrISoldado(const KrISoldado& source, int completo) : KrISoldado(&source, completo) {}

void KrISoldado::generate(double AngleSecao) {
  setAngleSecao(AngleSecao);
  Define_geratriz(linhaMedia_);
  MiddleLine::thicken(*this, linhaMedia_, tf1_);
}

void KrISoldado::Define_geratriz(KrGeratriz& g) const {
  g.Clear();
  const auto add = [&g](double x, double y, double bulge) { g.Add(AcGeVector3d(x, y, 0.0), bulge); };
  const double left = (mesa1_ - mesa2_) / 2.0;
  const double top = altura_ - tf1_ / 2.0 - tf2_ / 2.0;
  const double foot = tf1_ / 2.0;
  add(0.0, 0.0, 0.0);
  add(mesa1_, 0.0, tf2_ + KrGeratriz::kContourEnd);
  add(left, top, 0.0);
  add(left + mesa2_, top, tw_ + KrGeratriz::kContourEnd);
  add(mesa1_ / 2.0, foot, 0.0);
  add(mesa1_ / 2.0, foot + altura_ - (tf2_ + tf1_), 0.0);
  add(mesa1_ / 2.0, foot + altura_ / 2.0 - tf1_ / 2.0, KrGeratriz::kReferenceBulge);
}

void KrISoldado::getPerfil(ACHAR* buffer) const {
  assertReadEnabled();
  ProfileHelpers::writePerfil(*this, L"Isold", buffer);
}

void KrISoldado::getDimensoes(ACHAR* buffer) const {
  assertReadEnabled();
  ProfileHelpers::writeDimensoes(buffer, {altura_, mesa1_, mesa2_, tw_, tf1_, tf2_});
}

int KrISoldado::getLinearWeight(double& peso) const {
  assertReadEnabled();
  peso = KgMetro_;
  return 1;
}

double KrISoldado::getArea() const {
  assertReadEnabled();
  return Calcula_AreaGeratriz(linhaMedia_, tf1_);
}

double KrISoldado::getPerimetro() const {
  assertReadEnabled();
  const KrISoldado section(AcGePoint3d::kOrigin, altura_, mesa1_, mesa2_, tf1_, tf2_, tw_, 0.0, Secao, angleSecao(),
                           0.0, KgMetro_);
  return ProfileHelpers::drawnLength(section);
}

double KrISoldado::getAltura() {
  assertReadEnabled();
  return altura_;
}

double KrISoldado::getEspessura() {
  assertReadEnabled();
  return std::max(tw_, tf_);
}

double KrISoldado::getLargura() {
  assertReadEnabled();
  return std::max(mesa1_, mesa2_);
}

AcArray<double> KrISoldado::GeratrizLength() {
  assertReadEnabled();
  const AcArray<double> lengths = Calcula_LengthGeratriz(linhaMedia_);
  const std::array thicknesses{tf1_, tf2_, tw_};
  AcArray<double> strips;
  // A line that a file left short has fewer strips.
  for (int i = 0; i < lengths.length() && i < static_cast<int>(thicknesses.size()); ++i) {
    strips.append(thicknesses[static_cast<std::size_t>(i)]);
    strips.append(lengths[i]);
  }
  return strips;
}

Acad::ErrorStatus KrISoldado::dwgOutFields(AcDbDwgFiler* filer) const {
  assertReadEnabled();
  if (const Acad::ErrorStatus es = KrObject::dwgOutFields(filer); es != Acad::eOk) return es;
  filer->writeDouble(kFiledMarker);
  ProfileHelpers::writeFields(filer, versao_, filed(*this));
  if (linhaMedia_.Qtd() > 0)
    MiddleLine::writeNodes(filer, linhaMedia_);
  else
    filer->writeInt32(0);
  filer->writeDouble(tf1_);
  filer->writeDouble(tf2_);
  return filer->filerStatus();
}

Acad::ErrorStatus KrISoldado::dwgInFields(AcDbDwgFiler* filer) {
  assertWriteEnabled();
  if (const Acad::ErrorStatus es = KrObject::dwgInFields(filer); es != Acad::eOk) return es;
  ItemReader in(filer);
  double first = 0.0;
  if (!in.take(first)) return in.status();
  const bool older = first != kFiledMarker;
  if (older) {
    tf_ = first;
    for (double* parametro : {&tw_, &altura_, &mesa1_, &mesa2_, &KgMetro_}) in.take(*parametro);
    if (in.status() != Acad::eOk) return in.status();
  } else if (const Acad::ErrorStatus es = ProfileHelpers::readFields(filer, versao_, kVersion, filed(*this));
             es != Acad::eOk) {
    return es;
  }
  const Acad::ErrorStatus es = MiddleLine::readNodes(filer, linhaMedia_, MiddleLine::kNoneWithoutCount);
  if (es != Acad::eOk) return es;
  if (older) {
    tf1_ = tf2_ = tf_;
  } else {
    in.take(tf1_);
    in.take(tf2_);
    if (in.status() != Acad::eOk) return in.status();
  }
  MiddleLine::restoreOutline(outline(), linhaMedia_, tf1_);
  versao_ = kVersion;
  return Acad::eOk;
}

Acad::ErrorStatus KrISoldado::dxfOutFields(AcDbDxfFiler* filer) const {
  assertReadEnabled();
  if (const Acad::ErrorStatus es = KrObject::dxfOutFields(filer); es != Acad::eOk) return es;
  return MiddleLine::writeGroups(filer, L"KrISoldado", versao_, parameters(*this), linhaMedia_);
}

Acad::ErrorStatus KrISoldado::dxfInFields(AcDbDxfFiler* filer) {
  assertWriteEnabled();
  if (const Acad::ErrorStatus es = KrObject::dxfInFields(filer); es != Acad::eOk) return es;
  const Acad::ErrorStatus es = MiddleLine::readGroups(filer, L"KrISoldado", versao_, parameters(*this), linhaMedia_);
  versao_ = kVersion;
  return es;
}

void KrISoldado::subList() const {
  assertReadEnabled();
  KrObject::subList();
  ProfileHelpers::listSection({altura_, mesa1_, mesa2_, tw_, tf1_, tf2_}, getArea());
}
