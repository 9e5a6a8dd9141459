#pragma once

#include <algorithm>
#include <cmath>
#include <vector>

#include "host/companion/companion.h"
#include "modifiers/Flat.h"
#include "object/KrObject.h"

/// What an element of a list became under a clip: itself, or a part of it between two places on the fence.
struct ClipPiece {
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
struct ClipWorkspace {
  std::vector<ClipPiece> pieces;
  std::vector<KrVector*> places;
  std::vector<KrVector*> unused;
  AcArray<AcGePoint2d> met;

  static ClipWorkspace& shared() {
    static ClipWorkspace one;
    return one;
  }
};

/// The clip of an element list by a `Fence`: one polygon, or many at once.
///
/// A fence has `meet` for segments and for arcs, which append where these meet it and tell how often, and `takes`,
/// which tells whether what has its middle at a point goes. Elements are split where they meet the fence, in their own
/// direction, and what goes is removed, hidden or turned into hidden lines, as the option says.
template <class Fence>
class ListClip {
 public:
  /// With `keepsLines` an arc that turns into a hidden line becomes one of the type of lines.
  ListClip(KrObjectArray<KrVector>& list, const Fence& fence, RecorteOutLinesOpts options, bool keepsLines)
      : work_(ClipWorkspace::shared()), list_(list), fence_(fence), options_(options), keepsLines_(keepsLines) {
    work_.pieces.clear();
  }

  void run() {
    for (int i = 0; i < list_.length(); ++i) split(i);
    int firstChanged = static_cast<int>(work_.pieces.size());
    for (int k = firstChanged - 1; k >= 0; --k) {
      Piece& piece = work_.pieces[static_cast<std::size_t>(k)];
      piece.goes = isJudged(piece.type) && fence_.takes(piece.mid);
      if (piece.goes || !piece.whole) firstChanged = k;
    }
    // An element may have left no piece at all.
    firstChanged = std::min(firstChanged, lost_);
    rebuildFrom(firstChanged);
  }

 private:
  using Piece = ClipPiece;

  /// A straight piece no longer than this isn't drawn, in millimetres.
  static constexpr double kShortestPiece = 1e-6;
  static constexpr double kTwoPi = 6.283185307179586;

  static bool isSplitStraight(KrVectorType type) {
    return type == KR_VT_LINHA_OCULTA || type == KR_VT_LINHA || type == KR_VT_FURO_LINHA;
  }
  static bool isJudged(KrVectorType type) {
    return isSplitStraight(type) || type == KR_VT_ARCO || type == KR_VT_FURO || type == KR_VT_FURO_EIXO;
  }

  // --- Splitting at the fence ---

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
    if (fence_.meet(segment, met) == 0) return addWhole(i, v);
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
    if (fence_.meet(arc, met) == 0) return addWhole(i, v);
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

  ClipWorkspace& work_;
  KrObjectArray<KrVector>& list_;
  const Fence& fence_;
  RecorteOutLinesOpts options_;
  bool keepsLines_;
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);
  std::size_t firstArc_ = kNone;  ///< The first piece that is or may be of an arc.
  int lost_ = 1 << 30;            ///< The first place at which an element left no piece.
};
