// Drawing: a walk over the finished list of the current view. No geometry of the member is worked out here.

#include <cmath>

#include "object/KrObject.h"
#include "object/Rotation.h"
#include "support/Database.h"
#include "support/Layers.h"

namespace {

constexpr double kPi = 3.141592653589793;
constexpr int kColorByBlock = 0;
constexpr int kColorByLayer = 256;

/// Length of the line that probes from one face to the next, in millimetres.
constexpr double kProbeLength = 10000.0;

/// Which layers' elements are drawn, each layer looked at once: no state changes while one member draws.
class LayerStates {
 public:
  /// A layer that can't be opened counts as on.
  bool isDrawn(AcDbObjectId layer) {
    for (int i = 0; i < count_; ++i)
      if (known_[i].layer == layer) return known_[i].drawn;
    const bool drawn = look(layer);
    if (count_ < kRoom) known_[count_++] = {layer, drawn};
    return drawn;
  }

 private:
  static bool look(AcDbObjectId layer) {
    AcDbLayerTableRecord* record = nullptr;
    if (acdbOpenObject(record, layer, AcDb::kForRead) != Acad::eOk) return true;
    const bool drawn = !record->isFrozen() && !record->isOff();
    record->close();
    return drawn;
  }

  struct Known {
    AcDbObjectId layer;
    bool drawn;
  };
  /// The member's own layer and the three of its elements.
  static constexpr int kRoom = 4;
  Known known_[kRoom];
  int count_ = 0;
};

AcGeVector3d unit(double angle) {
  return {std::cos(angle), std::sin(angle), 0};
}

void drawLine(AcGiWorldDraw* draw, const AcGePoint3d& a, const AcGePoint3d& b) {
  const AcGePoint3d ends[] = {a, b};
  draw->geometry().polyline(2, ends);
}

}  // namespace

AcDbHardPointerId KrObject::kr_laHiddenId;
AcDbHardPointerId KrObject::kr_laEixoId;
AcDbHardPointerId KrObject::kr_laHideFace;

void KrObject::loadLayersIds() {
  // What the names were looked up in: while none of it changes, and none of the layers is erased, they mean the same
  // layers.
  struct Source {
    const AcDbDatabase* database = nullptr;
    Adesk::UInt64 names = 0;
    unsigned list = 0;
    bool operator==(const Source&) const = default;
  };
  static Source last;
  const Source now{acdbHostApplicationServices()->workingDatabase(), acdbSymbolNameChanges(), UsrLayerChanges()};
  const auto stands = [](const AcDbObjectId& id) { return !id.isNull() && !id.isErased(); };
  if (now == last && stands(kr_laHiddenId) && stands(kr_laEixoId) && stands(kr_laHideFace)) return;

  const struct {
    const ACHAR* name;
    AcDbHardPointerId& id;
  } layers[] = {{L"L-HIDDEN", kr_laHiddenId}, {L"EIXO", kr_laEixoId}, {L"KR_HIDE_FACE", kr_laHideFace}};
  for (const auto& layer : layers) {
    // A failed lookup leaves its output: without this an id of another drawing would stay behind.
    AcDbObjectId id;
    getLayerIdFromString(KrLayerToUsr(layer.name), id);
    layer.id = id;
  }
  last = {now.database, acdbSymbolNameChanges(), now.list};
}

Adesk::Boolean KrObject::subWorldDraw(AcGiWorldDraw* draw) {
  assertReadEnabled();
  AcGiSubEntityTraits& traits = draw->subEntityTraits();
  const AcDbObjectId before = traits.layerId();
  loadLayersIds();
  const AcDbObjectId own = layerId();
  if (traits.color() == kColorByBlock) traits.setColor(kColorByLayer);

  const KrObjectArray<KrVector>& lista = currentVertexList(VistaCorrente);
  LayerStates states;
  int marker = 1;
  for (const Node<KrVector>* no = lista.getNode(0); no != nullptr; no = lista.nextNode(no)) {
    traits.setSelectionMarker(marker++);
    traits.setLayer(layerOf(*no->value, own));
    if (states.isDrawn(traits.layerId())) drawElement(draw, traits, *no->value, own);
  }
  traits.setLayer(own);
  for (KrObjectExtension* e : extensions_)
    if (e != nullptr) e->extensionWorldDraw(marker, draw);
  traits.setLayer(before);
  return Adesk::kTrue;
}

AcDbObjectId KrObject::layerOf(const KrVector& v, AcDbObjectId entityLayer) {
  // A drawing without the layer draws such elements on the member's own.
  const auto orOwn = [&](const AcDbObjectId& layer) { return layer.isNull() ? entityLayer : layer; };
  if (v.hidden() != 0) return orOwn(kr_laHideFace);
  switch (v.type()) {
    case KR_VT_EIXO:
    case KR_VT_FURO_EIXO:
      return orOwn(kr_laEixoId);
    case KR_VT_LINHA_OCULTA:
    case KR_VT_ARCO_OCULTO:
      return orOwn(kr_laHiddenId);
    case KR_VT_FURO:
    case KR_VT_FURO_LINHA:
      return entityLayer;
    default:
      return v.tipo() == KR_VF_LIMITE ? orOwn(kr_laEixoId) : entityLayer;
  }
}

void KrObject::drawElement(AcGiWorldDraw* draw, AcGiSubEntityTraits& traits, const KrVector& v,
                           AcDbObjectId entityLayer) const {
  // A hole is a solid disc in the drawing and an outline while it is dragged.
  const auto setHoleFill = [&] { traits.setFillType(draw->isDragging() ? kAcGiFillNever : kAcGiFillAlways); };
  switch (v.type()) {
    case KR_VT_ARCO:
    case KR_VT_ARCO_OCULTO:
      if (v.startPoint() != v.endPoint())
        draw->geometry().circularArc(v.startPoint(), v.midPoint(), v.endPoint(), kAcGiArcSimple);
      return;
    case KR_VT_CIRCULO:
      traits.setFillType(kAcGiFillNever);
      traits.setLayer(entityLayer);
      draw->geometry().circle(v.centerPoint(), v.len(), normal_);
      return;
    case KR_VT_FURO:
      setHoleFill();
      if (v.tipo() == KR_VF_FURO_REDONDO)
        draw->geometry().circle(v.centerPoint(), v.radius() + v.folga() / 2, normal_);
      else if (v.tipo() == KR_VF_FURO_OBLONGO)
        drawOblong(draw, v, draw->isDragging() != Adesk::kFalse);
      return;
    case KR_VT_FURO_LINHA: {
      AcGePoint3d corners[4];
      PontosTrace(v, corners);
      setHoleFill();
      draw->geometry().polygon(4, corners);
      return;
    }
    case KR_VT_REFERENCIA:
      return;
    default:
      drawLine(draw, v.startPoint(), v.endPoint());
  }
}

void KrObject::drawOblong(AcGiWorldDraw* draw, const KrVector& v, bool dragging) const {
  const double r = v.radius() + v.folga() / 2;
  const AcGeVector3d u = unit(v.direction());
  const AcGeVector3d w = unit(v.direction() + kPi / 2) * r;
  const AcGeVector3d half = u * (v.len() / 2);
  const AcGePoint3d c = v.centerPoint();
  const AcGePoint3d a1 = c - half + w;
  const AcGePoint3d a2 = c - half - u * r;
  const AcGePoint3d a3 = c - half - w;
  const AcGePoint3d a4 = c + half - w;
  const AcGePoint3d a5 = c + half + u * r;
  const AcGePoint3d a6 = c + half + w;
  AcGiWorldGeometry& geometry = draw->geometry();
  if (dragging) {
    geometry.circularArc(a1, a2, a3, kAcGiArcSimple);
    drawLine(draw, a3, a4);
    geometry.circularArc(a4, a5, a6, kAcGiArcSimple);
    drawLine(draw, a6, a1);
    return;
  }
  geometry.circularArc(a1, a2, a3, kAcGiArcChord);
  geometry.circularArc(a4, a5, a6, kAcGiArcChord);
  const AcGePoint3d middle[] = {a3, a4, a6, a1};
  geometry.polygon(4, middle);
}

void KrObject::PontosTrace(const KrVector& elemento, AcGePoint3d* pontos) const {
  const double h = elemento.diametro() / 2;
  const AcGePoint3d& s = elemento.startPoint();
  const AcGePoint3d& e = elemento.endPoint();
  const AcGeVector3d p = (e - s).perpVector() * h;
  const AcGeVector3d back = (s - e).perpVector() * h;
  pontos[0] = s + p;
  pontos[1] = s - p;
  pontos[2] = e + back;
  pontos[3] = e - back;
}

void KrObject::subViewportDraw(AcGiViewportDraw* draw) {
  assertReadEnabled();
  AcDbEntity::subViewportDraw(draw);
}

void KrObject::saveAs(AcGiWorldDraw* draw, AcDb::SaveType type) {
  assertReadEnabled();
  AcDbEntity::saveAs(draw, type);
}

void KrObject::hideAll() {
  assertWriteEnabled();
  KrObjectArray<KrVector>& lista = vertexList(VistaCorrente);
  for (int i = 0; i < lista.length(); ++i) lista[i].setHidden(1);
}

void KrObject::showAll() {
  assertWriteEnabled();
  KrObjectArray<KrVector>& lista = vertexList(VistaCorrente);
  for (int i = 0; i < lista.length(); ++i) lista[i].setHidden(0);
}

int KrObject::isHideAll() const {
  const KrObjectArray<KrVector>& lista = currentVertexList(VistaCorrente);
  if (lista.length() == 0) return 1;
  for (int i = 0; i < lista.length(); ++i)
    if (lista[i].hidden() != 0) return 1;
  return 0;
}

void KrObject::GetFacesExternas(KrVector& a, KrVector& b, int* ia, int* ib) const {
  assertReadEnabled();
  if (vista_ == Secao) return;
  const KrObjectArray<KrVector>& lista = currentVertexList(VistaCorrente);
  KrVector axis;
  if (lista.length() == 0 || GetVectorEixo(VistaCorrente, axis) == 0) return;
  const AcGeVector3d along = axis;
  const auto isFace = [&](const KrVector& v) {
    const bool straight = v.type() == KR_VT_LINHA_OCULTA || v.type() == KR_VT_LINHA;
    return straight && static_cast<AcGeVector3d>(v).isParallelTo(along);
  };
  int first = 0;
  int second = 0;
  double best = -1;
  for (int i = 0; i + 1 < lista.length(); ++i) {
    if (!isFace(lista[i])) continue;
    const AcGePoint3d from = lista[i].startPoint();
    const AcGePoint3d to = from + unit(lista[i].direction() + kPi / 2) * kProbeLength;
    for (int j = i + 1; j < lista.length(); ++j) {
      AcGePoint3d at;
      if (!isFace(lista[j])) continue;
      const AcGePoint3d& s = lista[j].startPoint();
      const AcGePoint3d& e = lista[j].endPoint();
      if (acdbInters(asDblArray(from), asDblArray(to), asDblArray(s), asDblArray(e), 0, asDblArray(at)) != RTNORM)
        continue;
      if (from.distanceTo(at) <= best) continue;
      best = from.distanceTo(at);
      first = i;
      second = j;
    }
  }
  a = lista[first];
  b = lista[second];
  if (ia != nullptr) *ia = first;
  if (ib != nullptr) *ib = second;
}
