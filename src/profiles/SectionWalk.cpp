#include "profiles/SectionWalk.h"

#include <cmath>

#include "support/Angles.h"
#include "support/Bulges.h"

namespace {

constexpr double kPi = 3.141592653589793;
constexpr double kTwoPi = 2.0 * kPi;
constexpr double kUp = kPi / 2.0;
constexpr double kDown = 3.0 * kPi / 2.0;
constexpr double kRight = 0.0;
constexpr double kLeft = kPi;

/// Rise of a rolled channel's flange.
constexpr float kFlangeRise = 1.0F / 6.0F;

/// The slope of a flange has single precision: drawings rest on the points that follow from it.
double flangeSlope() {
  static const double slope = std::atan(kFlangeRise);
  return slope;
}

KrGeratriz mirrored(const KrGeratriz& half, const AcGeVector3d& reference, OtherHalf other) {
  KrGeratriz copy(half);
  copy.Add(reference, KrGeratriz::kReferenceBulge);
  KrObject::Mirror_vetores(copy, AcGeVector3d::kYAxis);
  if (other == OtherHalf::kTurned) KrObject::Mirror_vetores(copy, AcGeVector3d::kXAxis);
  return copy;
}

/// The map from the drawn elements of the first half to those of the second.
AcGeMatrix3d mapToOtherHalf(const KrObject& bar, const AcGeVector3d& reference, OtherHalf other) {
  const AcGePoint3d centre = bar.startPoint() + reference;
  if (other == OtherHalf::kTurned) return AcGeMatrix3d().setToMirroring(centre);
  return AcGeMatrix3d().setToMirroring(AcGeLine3d(centre, AcGeVector3d::kYAxis));
}

}  // namespace

void SectionWalk::line(double direction, double length) {
  const AcGeVector3d from = at_;
  nodes_.Add(from, 0.0);
  at_ += VectorAngleRad(direction + turn_) * length;
  bar_.AddVertex(KrVector(drawn(from), drawn(at_), KR_VT_LINHA), Secao);
}

void SectionWalk::arc(double in, double out, double tangent, double radius, double bulge) {
  const AcGeVector3d from = at_;
  nodes_.Add(from, bulge);
  const AcGeVector3d corner = from + VectorAngleRad(in + turn_) * tangent;
  at_ = corner + VectorAngleRad(out + turn_) * tangent;
  bar_.AddVertex(KrVector(drawn(from), drawn(at_), drawn(corner), radius), Secao);
}

void ChannelWalk::walk(SectionWalk& section) const {
  const double a = flangeSlope();
  const double tangent = std::tan((kPi / 2.0 - a) / 2.0);
  const double root = tangent * RaioDobra;
  const double toe = tangent * Raio1;
  const double face = Largura / std::cos(a) - (Espessura / std::cos(a) + toe + root);
  const double s = std::sin(a);
  const double rise = s * toe + toe + s * face + root + s * root;
  const double tip = DeslocF - rise;
  const double upperFace = kPi + a;
  const double lowerFace = kTwoPi - a;

  section.line(kUp, Altura);
  section.line(kRight, Largura);
  section.line(kDown, tip);
  // A full quarter, where the other toe has the sweep of its arc: the first toe stands out by a hair.
  section.arc(kDown, upperFace, toe, Raio1, Calcula_Bulge(kDown, -1));
  section.line(upperFace, face);
  section.arc(upperFace, kDown, root, RaioDobra, Calcula_Bulge(kPi / 2.0 + a, -1));
  section.line(kDown, Altura - 2.0 * DeslocF);
  section.arc(kDown, lowerFace, root, RaioDobra, Calcula_Bulge(kDown - a, 1));
  section.line(lowerFace, face);
  section.arc(lowerFace, kDown, toe, Raio1, Calcula_Bulge(kDown - a, -1));
  section.line(kDown, tip);
  section.line(kLeft, Largura);
  section.finish();
}

void AngleWalk::walk(SectionWalk& section) const {
  static const double toe = Calcula_Bulge(kPi / 2.0, 1);
  static const double root = Calcula_Bulge(kPi / 2.0, -1);
  section.line(kUp, Altura);
  section.line(kRight, Largura);
  section.arc(kDown, kLeft, Espessura, Espessura, toe);
  section.line(kLeft, Largura - 2.0 * Espessura - RaioDobra);
  section.arc(kLeft, kDown, RaioDobra, RaioDobra, root);
  section.line(kDown, Altura - 2.0 * Espessura - RaioDobra);
  section.arc(kDown, kLeft, Espessura, Espessura, toe);
  section.finish();
}

void addHalves(KrObject& bar, KrGeratriz& outline, const KrGeratriz& half, const AcGeVector3d& reference,
               OtherHalf other) {
  const KrGeratriz second = mirrored(half, reference, other);
  const int last = half.Qtd() - 1;
  outline.reserve(2 * half.Qtd() + 1);
  for (int i = 0; i < last; ++i) outline.Add(half.GetVertex(i), half.GetBulge(i));
  outline.Add(half.GetVertex(last), KrGeratriz::kContourEnd);
  if (other == OtherHalf::kMirroredReverse) {
    // Walked back, an edge begins at its former end: it takes its bulge along, in the other sense.
    for (int i = last; i > 0; --i) outline.Add(second.GetVertex(i), -second.GetBulge(i - 1));
    outline.Add(second.GetVertex(0), 0.0);
  } else {
    for (int i = 0; i <= last; ++i) outline.Add(second.GetVertex(i), second.GetBulge(i));
  }
  outline.Add(reference, KrGeratriz::kReferenceBulge);

  const AcGeMatrix3d map = mapToOtherHalf(bar, reference, other);
  const int drawn = bar.GetNumVertex(Secao);
  for (int i = 0; i < drawn; ++i) {
    KrVector element;
    bar.GetVector(Secao, i, element);
    element.transformBy(map);
    bar.AddVertex(element, Secao);
  }
}

void moveSectionElements(KrObject& bar, const AcGeMatrix3d& map) {
  for (int i = 0; i < bar.GetNumVertex(Secao); ++i) {
    KrVector element;
    bar.GetVector(Secao, i, element);
    element.transformBy(map);
    bar.UpdateVector(Secao, i, element);
  }
}
