// The one clipper: element lists against polygons. Notches, splits and visual limits go through it.

#include <algorithm>
#include <cmath>
#include <vector>

#include "host/companion/companion.h"
#include "modifiers/Flat.h"
#include "object/KrObject.h"

namespace {

/// A straight piece no longer than this isn't drawn, in millimetres.
constexpr double kShortestPiece = 1e-6;
constexpr double kTwoPi = 6.283185307179586;

/// What an element of the list became: itself, or a part of it between two places on the polygon.
struct Piece {
  AcGePoint2d from;
  AcGePoint2d mid;
  AcGePoint2d to;
  int source;  ///< index of the element in the list
  bool whole;
  bool goes;
  // What a part takes over.
  KrVectorType type;
  KrVectorFlag flag;
  int hidden;
  double radius;
};

/// What a clip works with, kept for the next.
struct Workspace {
  PolygonEdges edges;
  std::vector<Piece> pieces;
  std::vector<KrVector*> places;
  std::vector<KrVector*> unused;
  AcArray<AcGePoint2d> met;
};

Workspace& workspace() {
  static Workspace one;
  return one;
}

bool isSplitStraight(KrVectorType type) {
  return type == KR_VT_LINHA_OCULTA || type == KR_VT_LINHA || type == KR_VT_FURO_LINHA;
}

bool isJudged(KrVectorType type) {
  return isSplitStraight(type) || type == KR_VT_ARCO || type == KR_VT_FURO || type == KR_VT_FURO_EIXO;
}

class Clip {
 public:
  explicit Clip(KrObject::RecKrVectorArrayArgs& args)
      : work_(workspace()), list_(*args.vectors), side_(args.pontoInterno), options_(args.opcoes) {
    static const AcArray<double> kStraight;
    work_.edges.set(*args.pontos, args.bulges != nullptr ? *args.bulges : kStraight);
    work_.pieces.clear();
    goesOnPolygon_ = options_ == HideOutLines || options_ == OcultaOutLines || args.manterFora == 0;
    keepsLines_ = args.manterFora != 0;
    lookAtSide();
  }

  void run() {
    for (int i = 0; i < list_.length(); ++i) split(i);
    int firstChanged = static_cast<int>(work_.pieces.size());
    for (int k = firstChanged - 1; k >= 0; --k) {
      Piece& piece = work_.pieces[static_cast<std::size_t>(k)];
      piece.goes = isJudged(piece.type) && goes(piece.mid);
      if (piece.goes || !piece.whole) firstChanged = k;
    }
    // An element may have left no piece at all.
    firstChanged = std::min(firstChanged, lost_);
    rebuildFrom(firstChanged);
  }

 private:
  void lookAtSide() {
    const PolygonEdges& edges = work_.edges;
    sideIsKnown_ = edges.isClosed() && !edges.holds(side_);
    if (!sideIsKnown_ || !edges.box().holds(side_)) return;
    const AcGePoint2d outside = edges.box().high + (edges.box().high - edges.box().low);
    sideIsInside_ = edges.cross(AcGeLineSeg2d(side_, outside), nullptr) % 2 != 0;
  }

  // --- Splitting at the polygon ---

  void split(int i) {
    const KrVector& v = list_[i];
    work_.met.setLogicalLength(0);
    const std::size_t before = work_.pieces.size();
    if (firstArc_ == kNone && (v.type() == KR_VT_ARCO || v.type() == KR_VT_ARCO_OCULTO)) firstArc_ = before;
    if (isSplitStraight(v.type())) {
      splitStraight(i, v);
    } else if (v.type() == KR_VT_ARCO) {
      splitArc(i, v);
    } else {
      addWhole(i, v);
    }
    if (work_.pieces.size() == before) lost_ = std::min(lost_, static_cast<int>(before));
  }

  void addWhole(int i, const KrVector& v) {
    work_.pieces.push_back({flat(v.startPoint()), flat(v.midPoint()), flat(v.endPoint()), i, true, false, v.type(),
                            v.tipo(), v.hidden(), v.radius()});
  }

  void addPart(int i, const KrVector& v, const AcGePoint2d& from, const AcGePoint2d& mid, const AcGePoint2d& to) {
    work_.pieces.push_back({from, mid, to, i, false, false, v.type(), v.tipo(), v.hidden(), v.radius()});
  }

  void splitStraight(int i, const KrVector& v) {
    const AcGeLineSeg2d segment(flat(v.startPoint()), flat(v.endPoint()));
    AcArray<AcGePoint2d>& met = work_.met;
    if (work_.edges.meet(segment, met) == 0) return addWhole(i, v);
    if (met.length() > 1) QuickSort(met, segment.direction());
    forEachPair(segment.startPoint(), segment.endPoint(), [&](const AcGePoint2d& from, const AcGePoint2d& to) {
      if (from.distanceSqrdTo(to) <= kShortestPiece * kShortestPiece) return;
      addPart(i, v, from, from + (to - from) / 2.0, to);
    });
  }

  void splitArc(int i, const KrVector& v) {
    const AcGeCircArc2d arc(flat(v.startPoint()), flat(v.midPoint()), flat(v.endPoint()));
    // What a cut straightened is an arc by its type alone.
    if (arc.radius() == 0.0) return splitStraight(i, v);
    AcArray<AcGePoint2d>& met = work_.met;
    if (work_.edges.meet(arc, met) == 0) return addWhole(i, v);
    const AcGePoint2d centre = arc.center();
    const AcGeVector2d out = arc.startPoint() - centre;
    const double angle = std::atan2(out.y, out.x);
    if (met.length() > 1) QuickSortAngular(centre, angle < 0 ? angle + kTwoPi : angle, met, arc.isClockWise());
    forEachPair(arc.startPoint(), arc.endPoint(), [&](const AcGePoint2d& from, const AcGePoint2d& to) {
      if (from == to) return;
      const AcGeVector2d across = (to - from).normal().perpVector() * arc.radius();
      const AcGePoint2d mid = arc.isClockWise() ? centre + across : centre - across;
      if (!isDrawnAlready(i, from, mid, to)) addPart(i, v, from, mid, to);
    });
  }

  template <class Visit>
  void forEachPair(AcGePoint2d from, const AcGePoint2d& end, Visit visit) const {
    for (const AcGePoint2d& to : work_.met) {
      visit(from, to);
      from = to;
    }
    visit(from, end);
  }

  /// Whether a piece of an earlier split, or an element still to come, is this very arc.
  bool isDrawnAlready(int i, const AcGePoint2d& from, const AcGePoint2d& mid, const AcGePoint2d& to) const {
    const double tolerance = AcGeContext::gTol.equalPoint();
    const auto same = [&](const AcGePoint2d& a, const AcGePoint2d& m, const AcGePoint2d& b) {
      return m == mid && ((a == from && b == to) || (a == to && b == from));
    };
    for (std::size_t k = firstArc_; k < work_.pieces.size(); ++k) {
      const Piece& piece = work_.pieces[k];
      if (std::fabs(piece.mid.x - mid.x) <= tolerance && same(piece.from, piece.mid, piece.to)) return true;
    }
    for (const Node<KrVector>* node = list_.getNode(i)->next; node != nullptr; node = node->next) {
      const KrVector& v = *node->value;
      if (std::fabs(v.midPoint().x - mid.x) > tolerance) continue;
      if (same(flat(v.startPoint()), flat(v.midPoint()), flat(v.endPoint()))) return true;
    }
    return false;
  }

  // --- Judging ---

  bool goes(const AcGePoint2d& m) const {
    const PolygonEdges& edges = work_.edges;
    // Beyond the box of a closed polygon everything is outside.
    if (sideIsKnown_ && !edges.box().holds(m)) return !sideIsInside_;
    if (edges.holds(m)) return goesOnPolygon_;
    return m == side_ || edges.cross(AcGeLineSeg2d(m, side_), nullptr) % 2 == 0;
  }

  // --- Writing the list ---

  static void makePart(const Piece& piece, KrVector& v) {
    v.setTypeEx(KR_VTX_NENHUM);
    v.setTipo(piece.flag);
    if (piece.type == KR_VT_ARCO) {
      v.set(raised(piece.from), raised(piece.mid), raised(piece.to), KR_VT_ARCO);
      return;
    }
    v.set(raised(piece.from), raised(piece.to), piece.type);
    v.setHidden(piece.hidden);
    // A band is as wide as its radius says.
    if (piece.type == KR_VT_FURO_LINHA) v.setRaio(piece.radius);
  }

  void takeAway(KrVector& v) const {
    const bool line = v.type() == KR_VT_LINHA_OCULTA || v.type() == KR_VT_LINHA;
    if (options_ == OcultaOutLines && (line || v.type() == KR_VT_ARCO)) {
      v.setType(line || keepsLines_ ? KR_VT_LINHA_OCULTA : KR_VT_ARCO_OCULTO);
    } else {
      v.setHidden(1);
    }
  }

  bool stays(const Piece& piece) const { return !piece.goes || options_ != RemoveOutLines; }

  /// Up to `first` every piece is the element at its own place, and stays. Behind, elements that stay are handed from
  /// node to node and not copied; parts are made where elements went.
  void rebuildFrom(int first) {
    const auto begin = work_.pieces.begin() + first;
    const auto end = work_.pieces.end();
    const auto left = std::count_if(begin, end, [this](const Piece& piece) { return stays(piece); });
    const int length = first + static_cast<int>(left);
    while (list_.length() < length) list_.append(KrVector());

    std::vector<KrVector*>& places = work_.places;
    std::vector<KrVector*>& unused = work_.unused;
    places.clear();
    unused.clear();
    for (const Node<KrVector>* node = list_.getNode(first); node != nullptr; node = node->next)
      places.push_back(node->value);
    std::size_t next = 0;
    for (auto piece = begin; piece != end; ++piece) {
      if (!piece->whole || !stays(*piece)) continue;
      for (const auto at = static_cast<std::size_t>(piece->source - first); next < at; ++next)
        unused.push_back(places[next]);
      ++next;
    }
    for (; next < places.size(); ++next) unused.push_back(places[next]);

    Node<KrVector>* node = list_.getNode(first);
    for (auto piece = begin; piece != end; ++piece) {
      if (!stays(*piece)) continue;
      if (piece->whole) {
        node->value = places[static_cast<std::size_t>(piece->source - first)];
      } else {
        node->value = unused.back();
        unused.pop_back();
        makePart(*piece, *node->value);
      }
      if (piece->goes) takeAway(*node->value);
      node = node->next;
    }
    for (; node != nullptr; node = node->next) {
      node->value = unused.back();
      unused.pop_back();
    }
    for (int i = list_.length() - 1; i >= length; --i) list_.removeAt(i);
  }

  Workspace& work_;
  KrObjectArray<KrVector>& list_;
  AcGePoint2d side_;
  RecorteOutLinesOpts options_;
  bool goesOnPolygon_ = true;
  bool keepsLines_ = false;  ///< An arc that turns into a hidden line becomes one of the type of lines.
  bool sideIsKnown_ = false;
  bool sideIsInside_ = false;
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);
  std::size_t firstArc_ = kNone;  ///< The first piece that is or may be of an arc.
  int lost_ = 1 << 30;            ///< The first place at which an element left no piece.
};

}  // namespace

void KrObject::RecorteKrVectorArray(RecKrVectorArrayArgs& args) {
  if (args.vectors == nullptr || args.pontos == nullptr) return;
  Clip(args).run();
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
