#include "profiles/MiddleLine.h"

#include <algorithm>
#include <cmath>

#include "object/FiledNumbers.h"
#include "profiles/ProfileHelpers.h"
#include "records/FiledMarker.h"
#include "records/ItemReader.h"
#include "records/StrictDxfReader.h"
#include "support/Angles.h"
#include "support/Bulges.h"

namespace {

constexpr double kPi = 3.141592653589793;

/// A step shorter than this has no direction.
constexpr double kNoStep = 1e-9;

/// The direction of `Calcula_Bulge` that gives a clockwise arc.
constexpr int kClockwise = 1;

/// The one class version whose DXF groups are read.
constexpr std::int16_t kDxfVersionRead = 1;

constexpr int kDxfNormal = 210;

FoldedStrip::Turn opposite(FoldedStrip::Turn turn) {
  return turn == FoldedStrip::kLeft ? FoldedStrip::kRight : FoldedStrip::kLeft;
}

}  // namespace

double FoldedStrip::setBack(double angle) const {
  const double outer = espessura_ + raio_;
  return std::min(std::fabs(std::tan((kPi - angle) / 2.0) * outer), outer);
}

FoldedStrip::Turn FoldedStrip::turnOf(const FoldedLip& lip, Turn turn) {
  return lip.enrig > 0.0 ? turn : opposite(turn);
}

FoldedStrip::Arc FoldedStrip::arcFrom(double heading, double angle, Turn turn) const {
  const double turned = turn == kLeft ? kPi - angle : angle - kPi;
  const double chord = 2.0 * (raio_ + espessura_ / 2.0) * std::fabs(std::sin((kPi - angle) / 2.0));
  return {Calcula_Bulge(angle, turn == kRight ? kClockwise : 0), turned,
          VectorAngleRad(heading + turned / 2.0) * chord};
}

void FoldedStrip::begin(const AcGeVector3d& end, double heading) {
  at_ = end;
  heading_ = heading;
}

void FoldedStrip::begin(const AcGeVector3d& end, double heading, const FoldedLip& lip, Turn turn) {
  begin(end, heading);
  if (lip.enrig == 0.0) return;
  // The walk starts at the free end, but it is the flange that has its place.
  const double back = setBack(lip.angle);
  const double run = std::fabs(lip.enrig) - back;
  const Turn sense = turnOf(lip, turn);
  heading_ = heading - arcFrom(heading, lip.angle, sense).turned;
  at_ =
      end + VectorAngleRad(heading) * back - arcFrom(heading_, lip.angle, sense).chord - VectorAngleRad(heading_) * run;
  straight(run);
  bend(lip.angle, sense);
}

void FoldedStrip::straight(double length) {
  if (std::fabs(length) < kNoStep) return;
  line_.Add(at_, 0.0);
  at_ += VectorAngleRad(heading_) * length;
}

void FoldedStrip::bend(double angle, Turn turn) {
  const Arc arc = arcFrom(heading_, angle, turn);
  if (arc.chord.length() >= kNoStep) line_.Add(at_, arc.bulge);
  at_ += arc.chord;
  heading_ += arc.turned;
}

void FoldedStrip::endLip(const FoldedLip& lip, Turn turn) {
  if (lip.enrig == 0.0) return;
  bend(lip.angle, turnOf(lip, turn));
  straight(std::fabs(lip.enrig) - setBack(lip.angle));
}

void FoldedStrip::finish(const AcGeVector3d& origin) {
  line_.Add(at_, 0.0);
  line_.Add(origin, KrGeratriz::kReferenceBulge);
}

void FoldedChannel::write(KrGeratriz& line) const {
  line.Clear();
  FoldedStrip strip(line, espessura, raio);
  const FoldedLip lip{enrig};
  const double back1 = strip.setBack(ang_int1);
  const double back2 = strip.setBack(ang_int2);
  strip.begin(AcGeVector3d::kIdentity, kPi, lip, FoldedStrip::kRight);
  strip.straight(mesa1 - back1 - strip.setBack(lip));
  strip.bend(ang_int1, FoldedStrip::kRight);
  strip.straight(altura - back1 - back2);
  strip.bend(ang_int2, FoldedStrip::kRight);
  strip.straight(mesa2 - back2 - strip.setBack(lip));
  strip.endLip(lip, FoldedStrip::kRight);
  strip.finish(AcGeVector3d(-mesa1 / 2.0, altura / 2.0 - espessura / 2.0, 0.0));
}

int FoldedAngle::write(KrGeratriz& line) const {
  line.Clear();
  FoldedStrip strip(line, espessura, raio);
  const FoldedLip lip{enrig};
  const double back = strip.setBack(ang_int);
  strip.begin(AcGeVector3d::kIdentity, kRightAngle, lip, FoldedStrip::kRight);
  strip.straight(aba1 - back - strip.setBack(lip));
  const int heel = line.Qtd();
  strip.bend(ang_int, FoldedStrip::kRight);
  strip.straight(aba2 - back - strip.setBack(lip));
  strip.endLip(lip, FoldedStrip::kRight);
  strip.finish(AcGeVector3d(aba2 / 3.0 - espessura / 2.0, aba1 / 3.0 * 2.0, 0.0));
  return heel;
}

namespace MiddleLine {

void writeHalves(KrGeratriz& line, KrGeratriz& half, const AcGeVector3d& origin, double espessura) {
  const int qtd = half.Qtd();
  half.Troca(origin, KrGeratriz::kReferenceBulge, qtd);
  KrGeratriz other(half);
  KrObject::Mirror_vetores(other, AcGeVector3d::kYAxis);
  line.Clear();
  line.reserve(2 * qtd + 1);
  for (int i = 0; i + 1 < qtd; ++i) line.Add(half.GetVertex(i), half.GetBulge(i));
  line.Add(half.GetVertex(qtd - 1), espessura + KrGeratriz::kContourEnd);
  for (int i = 0; i <= qtd; ++i) line.Add(other.GetVertex(i), other.GetBulge(i));
}

void thicken(KrObject& bar, KrGeratriz& line, double espessura) {
  const bool hasOrigin = line.numNodes() > line.Qtd();
  bar.Gera_KrVector(bar.startPoint(), line, bar.Vista(0), espessura, hasOrigin ? 0 : 1);
}

void restoreOutline(KrGeratriz& outline, const KrGeratriz& line, double espessura) {
  // A branch of n nodes gives 2 n + 1, and has two at least. A line from a file may be too long for an outline.
  constexpr int kMostThickened = kMostCounted / 3;
  if (outline.Qtd() != 0 || line.Qtd() == 0 || line.numNodes() <= line.Qtd() || line.Qtd() > kMostThickened) return;
  outline.Clear();
  KrObject::gera_Secao(line, outline, espessura);
  ProfileHelpers::dropUnlessFinite(outline);
}

AcArray<double> strips(const KrGeratriz& line, double espessura) {
  const AcArray<double> lengths = KrObject::Calcula_LengthGeratriz(line);
  AcArray<double> pairs;
  for (int i = 0; i < lengths.length(); ++i) {
    pairs.append(espessura);
    pairs.append(lengths[i]);
  }
  return pairs;
}

void writeNodes(AcDbDwgFiler* filer, const KrGeratriz& line) {
  // A line that has no origin's node is filed with one: the reader expects it.
  const NoGeratriz none{AcGeVector3d::kIdentity, KrGeratriz::kReferenceBulge};
  filer->writeInt32(line.lastFiled());
  for (int i = 0; i <= line.lastFiled(); ++i) {
    const NoGeratriz& node = i < line.numNodes() ? line.GetNo(i) : none;
    filer->writeVector3d(node.vertex);
    filer->writeDouble(node.bulge);
  }
}

Acad::ErrorStatus readNodes(AcDbDwgFiler* filer, KrGeratriz& line, WithoutCount without) {
  ItemReader in(filer);
  Adesk::Int32 qtd = 0;
  if (!in.take(qtd)) return in.status();
  line.Clear();
  if (qtd > kMostCounted) filer->setFilerStatus(Acad::eInvalidInput);
  if (qtd == 0 && without == kNoneWithoutCount) return Acad::eOk;
  for (Adesk::Int32 i = 0; i <= qtd; ++i) {
    AcGeVector3d vertex;
    double bulge = 0.0;
    in.take(vertex);
    if (!in.take(bulge)) break;
    line.Add(vertex, bulge);
  }
  return filer->filerStatus();
}

Acad::ErrorStatus writeGroups(AcDbDxfFiler* filer, const ACHAR* className, std::int16_t versao,
                              std::span<const double* const> parametros, const KrGeratriz& line) {
  filer->writeItem(AcDb::kDxfSubclass, className);
  filer->writeItem(AcDb::kDxfReal, kFiledMarker);
  filer->writeItem(AcDb::kDxfXInt16, static_cast<Adesk::Int16>(versao));
  for (const double* parametro : parametros) filer->writeItem(AcDb::kDxfReal, *parametro);
  filer->writeItem(AcDb::kDxfInt32, static_cast<Adesk::Int32>(line.Qtd()));
  for (int i = 0; i < line.Qtd(); ++i) {
    filer->writeItem(kDxfNormal, line.GetVertex(i));
    filer->writeItem(AcDb::kDxfReal, line.GetBulge(i));
  }
  return filer->filerStatus();
}

Acad::ErrorStatus readGroups(AcDbDxfFiler* filer, const ACHAR* className, std::int16_t& versao,
                             std::span<double* const> parametros, KrGeratriz& line) {
  if (!filer->atSubclassData(className)) return filer->filerStatus();
  StrictDxfReader reader(filer);
  double ignored = 0.0;
  std::int16_t filed = 0;
  bool complete = reader.real(ignored) && reader.int16(filed) && reader.require(filed == kDxfVersionRead);
  if (complete) versao = filed;
  for (double* parametro : parametros) complete = complete && reader.real(*parametro);
  std::int32_t qtd = 0;
  complete = complete && reader.int32(qtd) && reader.require(qtd <= kMostCounted);
  KrGeratriz told;
  for (std::int32_t i = 0; i < qtd && complete; ++i) {
    AcGePoint3d vertex;
    double bulge = 0.0;
    complete = reader.point(vertex, kDxfNormal) && reader.real(bulge);
    if (complete) told.Add(vertex.asVector(), bulge);
  }
  if (!complete) return reader.giveUp();
  line = told;
  return filer->filerStatus();
}

}  // namespace MiddleLine
