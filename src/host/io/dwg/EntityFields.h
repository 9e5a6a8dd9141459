#pragma once

#include "host/io/dwg/Codec.h"

// The fields of the entities that a drawing stores by a fixed type number, behind the common data and in both
// directions. Each returns nothing: a Decoder tells of failures.

namespace krio::dwg {

template <class Io>
void code(Io& io, typename Io::template Field<AcDbPoint::Data>& d) {
  io.bd3(d.position), io.bt(d.thickness), io.be(d.normal), io.bd(d.ecsRotation);
}

template <class Io>
void code(Io& io, typename Io::template Field<AcDb2dPolyline::Data>& d) {
  io.bs(d.flags), io.bs(d.curveType), io.bd(d.startWidth), io.bd(d.endWidth);
  io.bt(d.thickness), io.bd(d.elevation), io.be(d.normal);
}

template <class Io>
void code(Io& io, typename Io::template Field<AcDb3dPolyline::Data>& d) {
  io.rc(d.curve), io.rc(d.closed);
}

template <class Io>
void code(Io& io, typename Io::template Field<AcDb2dVertex::Data>& d) {
  io.rc(d.flags), io.bd3(d.position);
  // A negative start width stands for both widths.
  if constexpr (Io::kReading) {
    io.bd(d.startWidth);
    if (d.startWidth < 0) {
      d.startWidth = d.endWidth = -d.startWidth;
    } else {
      io.bd(d.endWidth);
    }
  } else {
    const bool equal = d.startWidth == d.endWidth && d.startWidth > 0;
    io.bd(equal ? -d.startWidth : d.startWidth);
    if (!equal) io.bd(d.endWidth);
  }
  io.bd(d.bulge), io.bd(d.tangent);
}

template <class Io>
void code(Io& io, typename Io::template Field<AcDb3dPolylineVertex::Data>& d) {
  io.rc(d.flags), io.bd3(d.position);
}

template <class Io>
void code(Io& io, typename Io::template Field<AcDbFourCorners::Data>& d) {
  io.bt(d.thickness), io.bd(d.elevation);
  for (auto& corner : d.corners) io.rd2(corner);
  io.be(d.normal);
}

template <class Io>
void codeScale(Io& io, typename Io::template Field<AcGeScale3d>& s) {
  enum Form : unsigned { kAll = 0, kXIsOne = 1, kUniform = 2, kOnes = 3 };
  unsigned form = kOnes;
  if constexpr (!Io::kReading) {
    const auto same = [](double a, double b) {
      return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
    };
    const bool uniform = same(s.sx, s.sy) && same(s.sx, s.sz);
    form = same(s.sx, 1.0) ? (uniform ? kOnes : kXIsOne) : uniform ? kUniform : kAll;
  }
  io.bb(form);
  if constexpr (Io::kReading) s.sx = s.sy = s.sz = 1.0;
  if (form == kAll || form == kUniform) io.rd(s.sx);
  if (form == kAll || form == kXIsOne) io.dd(s.sy, s.sx), io.dd(s.sz, s.sx);
  if constexpr (Io::kReading) {
    if (form == kUniform) s.sy = s.sz = s.sx;
  }
}

template <class Io>
void code(Io& io, typename Io::template Field<AcDbBlockReference::Data>& d, bool hasAttributes) {
  io.bd3(d.position);
  codeScale(io, d.scale);
  io.bd(d.rotation), io.bd3(d.normal);
  if constexpr (Io::kReading) {
    io.b(d.hasAttributes);
  } else {
    io.b(hasAttributes);
  }
  io.id(kHardPointer, d.block);
}

template <class Io>
void code(Io& io, typename Io::template Field<AcDbMInsertBlock::ArrayData>& d) {
  io.bs(d.columns), io.bs(d.rows), io.bd(d.columnSpacing), io.bd(d.rowSpacing);
}

template <class Io>
void code(Io& io, typename Io::template Field<AcDbAttributeData>& d, bool definition) {
  io.tv(d.tag), io.bs(d.fieldLength), io.rc(d.flags);
  if (definition) io.tv(d.prompt);
}

template <class Io>
void code(Io& io, typename Io::template Field<AcDbLeader::Data>& d) {
  io.b(d.unknown1), io.bs(d.annotationType), io.bs(d.pathType);
  if (!io.count(d.vertices, 6)) return;
  for (auto& vertex : d.vertices) io.bd3(vertex);
  io.bd3(d.origin), io.bd3(d.normal), io.bd3(d.xDirection), io.bd3(d.blockOffset), io.bd3(d.annotationOffset);
  io.bd(d.textHeight), io.bd(d.textWidth), io.b(d.hookLineAlongX), io.b(d.hasArrowHead), io.bs(d.arrowType);
  io.b(d.unknown2), io.b(d.unknown3);
  io.id(kHardPointer, d.annotation), io.id(kHardPointer, d.dimensionStyle);
}

template <class Io>
void code(Io& io, typename Io::template Field<AcDbViewport::Data>& d) {
  io.bd3(d.center), io.bd(d.width), io.bd(d.height), io.bd3(d.target), io.bd3(d.direction), io.bd(d.twist);
  io.bd(d.viewHeight), io.bd(d.lensLength), io.bd(d.frontClip), io.bd(d.backClip), io.bd(d.snapAngle);
  io.rd2(d.viewCenter), io.rd2(d.snapBase), io.rd2(d.snapSpacing), io.rd2(d.gridSpacing), io.bs(d.circleZoom);
  // The frozen layers stand in the handle part, each with 8 bits at least.
  if constexpr (Io::kReading) {
    const std::uint32_t frozen = io.data.bl();
    if (!io.handles.fits(frozen, 8)) return;
    d.frozenLayers.resize(frozen);
  } else {
    io.count(d.frozenLayers, 0);
  }
  io.bl(d.status), io.tv(d.styleSheet), io.rc(d.renderMode), io.b(d.ucsAtOrigin), io.b(d.ucsPerViewport);
  io.bd3(d.ucsOrigin), io.bd3(d.ucsXAxis), io.bd3(d.ucsYAxis), io.bd(d.elevation), io.bs(d.orthoType);
  for (auto& layer : d.frozenLayers) io.id(kHardPointer, layer);
  io.id(kHardPointer, d.clipBoundary), io.id(kHardPointer, d.header);
  io.id(kHardPointer, d.namedUcs), io.id(kHardPointer, d.baseUcs);
}

template <class Io>
void code(Io& io, typename Io::template Field<AcDbDimension::Data>& d, AcDbDimension::Kind kind) {
  io.bd3(d.normal), io.rd2(d.textPosition), io.bd(d.elevation), io.rc(d.flags), io.tv(d.text);
  io.bd(d.textRotation), io.bd(d.horizontalRotation), io.bd3(d.blockScale), io.bd(d.blockRotation);
  io.bs(d.attachment), io.bs(d.lineSpacingStyle), io.bd(d.lineSpacingFactor), io.bd(d.measurement);
  io.rd2(d.point12);
  switch (kind) {
    case AcDbDimension::kOrdinate:
      io.bd3(d.point10), io.bd3(d.point13), io.bd3(d.point14), io.rc(d.ordinateFlags);
      break;
    case AcDbDimension::kRotated:
      io.bd3(d.point13), io.bd3(d.point14), io.bd3(d.point10), io.bd(d.oblique), io.bd(d.rotation);
      break;
    case AcDbDimension::kAligned:
      io.bd3(d.point13), io.bd3(d.point14), io.bd3(d.point10), io.bd(d.oblique);
      break;
    case AcDbDimension::kAngular3Point:
      io.bd3(d.point10), io.bd3(d.point13), io.bd3(d.point14), io.bd3(d.point15);
      break;
    case AcDbDimension::kAngular2Line:
      io.rd2(d.point16), io.bd3(d.point13), io.bd3(d.point14), io.bd3(d.point15), io.bd3(d.point10);
      break;
    case AcDbDimension::kRadial:
      io.bd3(d.point10), io.bd3(d.point15), io.bd(d.leaderLength);
      break;
    case AcDbDimension::kDiametric:
      io.bd3(d.point15), io.bd3(d.point10), io.bd(d.leaderLength);
      break;
  }
  io.id(kHardPointer, d.style), io.id(kHardPointer, d.block);
}

template <class Io>
void code(Io& io, typename Io::template Field<AcDbHatch::Edge>& e) {
  io.rc(e.kind);
  switch (e.kind) {
    case AcDbHatch::EdgeKind::kLine:
      io.rd2(e.start), io.rd2(e.end);
      return;
    case AcDbHatch::EdgeKind::kArc:
      io.rd2(e.start), io.bd(e.radius), io.bd(e.startAngle), io.bd(e.endAngle), io.b(e.counterClockwise);
      return;
    case AcDbHatch::EdgeKind::kEllipse:
      io.rd2(e.start), io.rd2(e.end), io.bd(e.radius), io.bd(e.startAngle), io.bd(e.endAngle);
      io.b(e.counterClockwise);
      return;
    case AcDbHatch::EdgeKind::kSpline:
      break;
    default:
      if constexpr (Io::kReading) io.data.fail();
      return;
  }
  io.bl(e.degree), io.b(e.rational), io.b(e.periodic);
  if constexpr (Io::kReading) {
    const std::uint32_t knots = io.data.bl();
    const std::uint32_t points = io.data.bl();
    // A spline without points means nothing, and a list of them would take far more memory than it has bytes.
    if (points == 0) return io.data.fail();
    if (!io.sized(e.knots, knots, 2) || !io.sized(e.points, points, 128)) return;
    if (e.rational) e.weights.resize(points);
  } else {
    io.count(e.knots, 0), io.count(e.points, 0);
  }
  for (auto& knot : e.knots) io.bd(knot);
  for (std::size_t i = 0; i < e.points.size(); ++i) {
    io.rd2(e.points[i]);
    if (e.rational) io.bd(e.weights[i]);
  }
}

template <class Io>
void code(Io& io, typename Io::template Field<AcDbHatch::Path>& p) {
  io.bl(p.flags);
  if (p.isPolyline()) {
    io.b(p.hasBulges), io.b(p.closed);
    if (!io.count(p.vertices, 128)) return;
    if constexpr (Io::kReading) p.bulges.resize(p.hasBulges ? p.vertices.size() : 0);
    for (std::size_t i = 0; i < p.vertices.size(); ++i) {
      io.rd2(p.vertices[i]);
      if (p.hasBulges) io.bd(p.bulges[i]);
    }
  } else {
    constexpr std::size_t kLeastEdgeBits = 8 + 128;  // its kind and a point
    if (!io.count(p.edges, kLeastEdgeBits)) return;
    for (auto& edge : p.edges) code(io, edge);
  }
  if constexpr (Io::kReading) {
    const std::uint32_t objects = io.data.bl();
    if (!io.handles.fits(objects, 8)) return;
    p.boundaryObjects.resize(objects);
  } else {
    io.count(p.boundaryObjects, 0);
  }
}

template <class Io>
void code(Io& io, typename Io::template Field<AcDbHatch::Data>& d) {
  io.bd(d.elevation), io.bd3(d.normal), io.tv(d.patternName), io.b(d.solid), io.b(d.associative);
  constexpr std::size_t kLeastPathBits = 24;
  if (!io.count(d.paths, kLeastPathBits)) return;
  bool derived = false;
  for (auto& path : d.paths) {
    code(io, path);
    derived |= (path.flags & AcDbHatch::kDerived) != 0;
  }
  io.bs(d.style), io.bs(d.patternType);
  if (!d.solid) {
    io.bd(d.patternAngle), io.bd(d.patternScale), io.b(d.patternDouble);
    if constexpr (Io::kReading) {
      if (!io.sized(d.patternLines, io.data.bs(), 12)) return;
    } else {
      io.bs(d.patternLines.size());
    }
    for (auto& line : d.patternLines) {
      io.bd(line.angle), io.bd2(line.origin), io.bd2(line.offset);
      if constexpr (Io::kReading) {
        if (!io.sized(line.dashes, io.data.bs(), 2)) return;
      } else {
        io.bs(line.dashes.size());
      }
      for (auto& dash : line.dashes) io.bd(dash);
    }
  }
  if (derived) io.bd(d.pixelSize);
  if (!io.count(d.seeds, 128)) return;
  for (auto& seed : d.seeds) io.rd2(seed);
  for (auto& path : d.paths) {
    for (auto& object : path.boundaryObjects) io.id(kSoftPointer, object);
  }
}

}  // namespace krio::dwg
