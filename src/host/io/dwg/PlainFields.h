#pragma once

#include "host/io/dwg/Codec.h"

// The fields of the entities that drawings have most of, behind the common data and in both directions.

namespace krio::dwg {

inline bool isPlusZero(double v) {
  return std::bit_cast<std::uint64_t>(v) == 0;
}
inline bool isZAxis(const AcGeVector3d& v) {
  return isPlusZero(v.x) && isPlusZero(v.y) && v.z == 1.0;
}

template <class Io>
void code(Io& io, typename Io::template Field<AcDbLine::Data>& d) {
  bool flat = false;
  if constexpr (!Io::kReading) flat = isPlusZero(d.start.z) && isPlusZero(d.end.z);
  io.b(flat);
  io.rd(d.start.x), io.dd(d.end.x, d.start.x);
  io.rd(d.start.y), io.dd(d.end.y, d.start.y);
  if (!flat) io.rd(d.start.z), io.dd(d.end.z, d.start.z);
  io.bt(d.thickness), io.be(d.normal);
}

template <class Io>
void code(Io& io, typename Io::template Field<AcDbCircle::Data>& d) {
  io.bd3(d.center), io.bd(d.radius), io.bt(d.thickness), io.be(d.normal);
}

template <class Io>
void code(Io& io, typename Io::template Field<AcDbArc::Data>& d) {
  io.bd3(d.center), io.bd(d.radius), io.bt(d.thickness), io.be(d.normal), io.bd(d.startAngle), io.bd(d.endAngle);
}

template <class Io>
void code(Io& io, typename Io::template Field<AcDbPolyline::Data>& d) {
  enum Bit : unsigned { kNormal = 1, kThickness = 2, kWidth = 4, kElevation = 8, kBulges = 16, kWidths = 32 };
  const auto needed = [&] {
    return (isZAxis(d.normal) ? 0U : kNormal) | (isPlusZero(d.thickness) ? 0U : kThickness) |
           (isPlusZero(d.constantWidth) ? 0U : kWidth) | (isPlusZero(d.elevation) ? 0U : kElevation) |
           (d.bulges.empty() ? 0U : kBulges) | (d.widths.empty() ? 0U : kWidths);
  };
  unsigned flags = 0;
  if constexpr (!Io::kReading) flags = (std::uint16_t(d.flags) & ~unsigned(kBulges | kWidths)) | needed();
  io.bs(flags);
  if ((flags & kWidth) != 0) io.bd(d.constantWidth);
  if ((flags & kElevation) != 0) io.bd(d.elevation);
  if ((flags & kThickness) != 0) io.bd(d.thickness);
  if ((flags & kNormal) != 0) io.bd3(d.normal);
  if constexpr (Io::kReading) {
    const std::uint32_t points = io.data.bl();
    const std::uint32_t bulges = (flags & kBulges) != 0 ? io.data.bl() : 0;
    const std::uint32_t widths = (flags & kWidths) != 0 ? io.data.bl() : 0;
    // A point takes two codes of two bits at least. There is a bulge for each point or for none, and so with widths.
    if ((bulges != 0 && bulges != points) || (widths != 0 && widths != points)) return io.data.fail();
    if (!io.sized(d.points, points, 4) || !io.sized(d.bulges, bulges, 2) || !io.sized(d.widths, widths, 4)) return;
  } else {
    io.bl(d.points.size());
    if ((flags & kBulges) != 0) io.bl(d.bulges.size());
    if ((flags & kWidths) != 0) io.bl(d.widths.size());
  }
  if (!d.points.empty()) io.rd2(d.points[0]);
  for (std::size_t i = 1; i < d.points.size(); ++i) {
    io.dd(d.points[i].x, d.points[i - 1].x), io.dd(d.points[i].y, d.points[i - 1].y);
  }
  for (auto& bulge : d.bulges) io.bd(bulge);
  for (auto& width : d.widths) io.bd2(width);
  // What a value tells itself needn't be told by a flag too; one that stands without need is kept.
  if constexpr (Io::kReading) d.flags = Adesk::Int16(flags & ~needed());
}

template <class Io>
void code(Io& io, typename Io::template Field<AcDbText::Data>& d) {
  enum Omission : unsigned {
    kElevation = 1,
    kAlignment = 2,
    kOblique = 4,
    kRotation = 8,
    kWidthFactor = 16,
    kGeneration = 32,
    kHorizontal = 64,
    kVertical = 128
  };
  unsigned omitted = 0;
  if constexpr (!Io::kReading) {
    const bool leftAtBase = d.horizontal == 0 && d.vertical == 0;
    const bool noAlignment = leftAtBase && isPlusZero(d.alignment.x) && isPlusZero(d.alignment.y);
    omitted = (isPlusZero(d.elevation) ? kElevation : 0U) | (noAlignment ? kAlignment : 0U) |
              (isPlusZero(d.oblique) ? kOblique : 0U) | (isPlusZero(d.rotation) ? kRotation : 0U) |
              (d.widthFactor == 1.0 ? kWidthFactor : 0U) | (d.generation == 0 ? kGeneration : 0U) |
              (d.horizontal == 0 ? kHorizontal : 0U) | (d.vertical == 0 ? kVertical : 0U);
  }
  io.rc(omitted);
  if ((omitted & kElevation) == 0) io.rd(d.elevation);
  io.rd2(d.position);
  if ((omitted & kAlignment) == 0) io.dd(d.alignment.x, d.position.x), io.dd(d.alignment.y, d.position.y);
  io.be(d.normal), io.bt(d.thickness);
  if ((omitted & kOblique) == 0) io.rd(d.oblique);
  if ((omitted & kRotation) == 0) io.rd(d.rotation);
  io.rd(d.height);
  if ((omitted & kWidthFactor) == 0) io.rd(d.widthFactor);
  io.tv(d.text);
  if ((omitted & kGeneration) == 0) io.bs(d.generation);
  if ((omitted & kHorizontal) == 0) io.bs(d.horizontal);
  if ((omitted & kVertical) == 0) io.bs(d.vertical);
  io.id(kHardPointer, d.style);
}

template <class Io>
void code(Io& io, typename Io::template Field<AcDbMText::Data>& d) {
  io.bd3(d.location), io.bd3(d.normal), io.bd3(d.direction), io.bd(d.width), io.bd(d.height);
  io.bs(d.attachment), io.bs(d.flow), io.bd(d.extentsHeight), io.bd(d.extentsWidth), io.tv(d.contents);
  io.bs(d.spacingStyle), io.bd(d.spacing), io.b(d.unknown);
  io.id(kHardPointer, d.style);
}

}  // namespace krio::dwg
