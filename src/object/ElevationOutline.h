#pragma once

#include <vector>

#include "host/ge/ge.h"
#include "records/KrGeratriz.h"

/// An outline laid out flat for the elevation generator: the counted nodes, then the reference node.
///
/// The generator asks the same questions of an outline many times over (where a contour begins and ends, what the
/// apparent edge of an arc is), so they are answered from arrays here, each arc's geometry worked out once.
/// `KrObject`'s named operations (`Testa_Top`, `Aresta_Arco`, `VertexBulge`, ...) are this class's answers for a single
/// question.
///
/// Frame: the adjusted outline of a view, looked at from +Y. Units: millimetre, real size.
class ElevationOutline {
 public:
  struct Node {
    double x = 0;
    double y = 0;
    double z = 0;
    double bulge = 0;  ///< on the scale of 127, or a code
  };

  /// The apparent edge of an arc, or none.
  struct Edge {
    double x = 0;
    double y = 0;
    bool isEdge = false;
  };

  /// A full copy of an outline, node by node.
  void assign(const KrGeratriz& outline);

  /// A working copy in which every vertex is what it looks like:
  ///  1. edges of no length are gone, and so are nodes within a straight edge or within an arc;
  ///  2. an arc is divided where it turns back in X, so that no piece reaches beyond its ends;
  ///  3. a corner at which an arc meets its neighbour at an angle stands as a node between two straight edges, of no
  ///  length
  ///     where need be, and a tangent joint doesn't;
  ///  4. a closed contour starts at a corner, or at its leftmost point where it has none.
  ///
  /// Given the same outline again, it keeps the copy that it has: members are regenerated many times over between two
  /// changes of their section.
  void assignPrepared(const KrGeratriz& outline);

  /// Whether this is a working copy, in which no arc reaches beyond its ends in X.
  bool isPrepared() const { return prepared_; }
  int qtd() const { return qtd_; }
  const Node& node(int i) const { return nodes_[static_cast<std::size_t>(i)]; }
  /// First and last node of the contour that holds node i.
  int first(int i) const { return limitsOf(i).first; }
  int last(int i) const { return limitsOf(i).last; }
  int contours() const { return static_cast<int>(limits_.size()); }
  int contourFirst(int c) const { return limits_[static_cast<std::size_t>(c)].first; }
  int contourLast(int c) const { return limits_[static_cast<std::size_t>(c)].last; }

  /// Whether a real arc touches node i: edges i - 1 and i; with `wrap` the first node's previous edge is its contour's
  /// last.
  bool touchesArc(int i, bool wrap) const {
    const Facts& f = facts_[static_cast<std::size_t>(i)];
    return wrap ? f.touchesArcWrapped : f.touchesArc;
  }
  /// The apparent edge of arc i; `isEdge` is false where there is none.
  const Edge& edgeOfArc(int i) const;
  /// The point that stands for node i: its arc's apparent edge, or the node itself.
  Edge apparentPoint(int i) const;
  /// Whether the edge at a node can be seen from above.
  bool visibleFromAbove(int k) const;

  static bool isMarker(double bulge) { return bulge >= 6000.0 && bulge < 7000.0; }

 private:
  struct Facts {
    int contour;
    bool touchesArc;
    bool touchesArcWrapped;
  };
  struct Limits {
    int first;
    int last;
  };
  struct Arc {
    double cx = 0;
    double cy = 0;
    double radius = 0;
    Edge edge;
    bool known = false;
    bool isArc = false;
  };

  const Limits& limitsOf(int i) const {
    return limits_[static_cast<std::size_t>(facts_[static_cast<std::size_t>(i)].contour)];
  }
  void clear();
  void finish();
  bool isSource(const KrGeratriz& outline) const;
  const Arc& arc(int i) const;
  bool isEdgeAt(int i, double x) const;
  bool isAcute(int k, double yk) const;
  bool crossing(int i, int j, int k, double sx, double sy, double ty, double& y, bool& own) const;

  std::vector<Node> nodes_;
  std::vector<Facts> facts_;
  std::vector<Limits> limits_;
  mutable std::vector<Arc> arcs_;
  int qtd_ = 0;
  bool prepared_ = false;
  std::vector<NoGeratriz> source_;  ///< what the prepared copy was made from
  int sourceQtd_ = 0;
  double sourceTol_ = 0;
  double height_ = 0;
};
