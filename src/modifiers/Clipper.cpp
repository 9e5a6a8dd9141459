// The one clipper: element lists against polygons. Notches, splits and visual limits go through it.

#include "modifiers/ListClip.h"
#include "object/Finite.h"

namespace {

const AcArray<double>& bulgesOf(const KrObject::RecKrVectorArrayArgs& args) {
  static const AcArray<double> straight;
  return args.bulges != nullptr ? *args.bulges : straight;
}

/// One polygon, open or closed, and the point on the side that goes.
class Polygon {
 public:
  explicit Polygon(const KrObject::RecKrVectorArrayArgs& args) : edges_(workspace()), side_(args.pontoInterno) {
    edges_.set(*args.pontos, bulgesOf(args));
    goesOnPolygon_ = args.opcoes == HideOutLines || args.opcoes == OcultaOutLines || args.manterFora == 0;
    lookAtSide();
  }

  template <class Curve>
  int meet(const Curve& curve, AcArray<AcGePoint2d>& out) const {
    return edges_.meet(curve, out);
  }

  bool takes(const AcGePoint2d& m) const {
    // Beyond the box of a closed polygon everything is outside.
    if (sideIsKnown_ && !edges_.box().holds(m)) return !sideIsInside_;
    if (edges_.holds(m)) return goesOnPolygon_;
    return m == side_ || edges_.cross(AcGeLineSeg2d(m, side_), nullptr) % 2 == 0;
  }

 private:
  static PolygonEdges& workspace() {
    static PolygonEdges one;
    return one;
  }

  void lookAtSide() {
    sideIsKnown_ = edges_.isClosed() && !edges_.holds(side_);
    if (!sideIsKnown_ || !edges_.box().holds(side_)) return;
    const AcGePoint2d outside = edges_.box().high + (edges_.box().high - edges_.box().low);
    sideIsInside_ = edges_.cross(AcGeLineSeg2d(side_, outside), nullptr) % 2 != 0;
  }

  PolygonEdges& edges_;
  AcGePoint2d side_;
  bool goesOnPolygon_ = true;
  bool sideIsKnown_ = false;
  bool sideIsInside_ = false;
};

}  // namespace

void KrObject::RecorteKrVectorArray(RecKrVectorArrayArgs& args) {
  if (args.vectors == nullptr || args.pontos == nullptr) return;
  if (!isFinite(*args.pontos, bulgesOf(args), args.pontoInterno)) return;
  const Polygon polygon(args);
  ListClip(*args.vectors, polygon, args.opcoes, args.manterFora != 0).run();
}

void KrObject::RecorteKrVectorArray(KrObjectArray<KrVector>& elementos, const AcArray<AcGePoint2d>& pontos,
                                    const AcArray<double>& bulges, const AcGePoint2d& lado, int manterFora,
                                    RecorteOutLinesOpts modo) {
  RecKrVectorArrayArgs args;
  args.vectors = &elementos;
  args.pontos = &pontos;
  args.bulges = &bulges;
  args.pontoInterno = lado;
  args.manterFora = manterFora;
  args.opcoes = modo;
  RecorteKrVectorArray(args);
}

void KrObject::RecorteKrVectorArray(KrObjectArray<KrVector>& vectors, const AcArray<AcGePoint2d>& pontos,
                                    const AcArray<double>& bulges, const AcGePoint2d& pontoInterno, int manterFora) {
  RecorteKrVectorArray(vectors, pontos, bulges, pontoInterno, manterFora, RemoveOutLines);
}

void KrObject::RecHideKrVectorArray(KrObjectArray<KrVector>& vectors, const AcArray<AcGePoint2d>& pontos,
                                    const AcArray<double>& bulges, const AcGePoint2d& pontoInterno) {
  RecorteKrVectorArray(vectors, pontos, bulges, pontoInterno, 0, HideOutLines);
}
