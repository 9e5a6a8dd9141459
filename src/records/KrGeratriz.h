#pragma once

#include <algorithm>
#include <cstdint>

#include "host/ge/ge.h"
#include "host/rx/rx.h"

/// One node of an outline: a vertex in the section's plane, in real size, and the bulge of the edge that starts there,
/// or a code (see `KrGeratriz`).
struct NoGeratriz {
  AcGeVector3d vertex;
  double bulge = 0.0;
};

/// A section outline or a centre line: vertices with bulges. Never filed by itself.
///
/// A bulge is 127 times the tangent of a quarter of the arc's angle, negative for a clockwise arc, 0 for a straight
/// edge. Two codes stand among them: `kReferenceBulge`, positive or negative, marks the reference node, which holds the
/// section's origin, isn't counted by `Qtd` and stands behind all counted nodes; and a value from `kContourEnd` to
/// below `kContourEndLimit` ends a contour, or an interior line.
///
/// Positions are found in constant time, and a vertex stays where it is while nodes are added. None of the positions is
/// tested against the end, where the operation doesn't say so.
class KrGeratriz {
 public:
  /// Absolute bulge of a reference node.
  static constexpr double kReferenceBulge = 5000.0;
  /// Bulges that end a contour: from here to below `kContourEndLimit`.
  static constexpr double kContourEnd = 6000.0;
  static constexpr double kContourEndLimit = 7000.0;

  /// Whether a bulge marks a reference node.
  static bool isReference(double bulge) { return bulge == kReferenceBulge || bulge == -kReferenceBulge; }
  /// Whether a bulge ends a contour.
  static bool isContourEnd(double bulge) { return bulge >= kContourEnd && bulge < kContourEndLimit; }

  KrGeratriz() = default;
  KrGeratriz(const KrGeratriz& other) { assign(other); }
  ~KrGeratriz();
  /// Takes the other's nodes and counts them anew.
  KrGeratriz& operator=(const KrGeratriz& other) {
    if (this != &other) assign(other);
    return *this;
  }

  /// Adds a node at the tail; counts it unless it is a reference node.
  void Add(const AcGeVector3d& vertex, double bulge) {
    const NoGeratriz node{vertex, bulge};
    *newTail() = node;
    if (!isReference(bulge)) ++qtd_;
  }
  /// Adds a node before position `i`, and counts it whatever its bulge is; at or past `Qtd` it is `Add`.
  void AddAt(int i, const AcGeVector3d& vertex, double bulge);
  /// Overwrites node `i`; the count stays.
  void Troca(const AcGeVector3d& vertex, double bulge, int i) { nodeAt(i) = NoGeratriz{vertex, bulge}; }
  /// Deletes all nodes, the reference node too. Their memory serves the next filling.
  void Clear() { nodes_ = qtd_ = 0; }
  /// Makes room for `count` nodes in one piece. Nodes already there stay where they are.
  void reserve(int count);

  /// 1 for a list without any node, else 0: a list with only a reference node isn't empty.
  int isEmpty() const { return nodes_ == 0 ? 1 : 0; }
  /// Number of counted nodes.
  unsigned short Qtd() const { return qtd_; }

  AcGeVector3d& GetVertex(int i) { return nodeAt(i).vertex; }
  const AcGeVector3d& GetVertex(int i) const { return nodeAt(i).vertex; }
  double GetBulge(int i) const { return nodeAt(i).bulge; }
  const NoGeratriz& GetNo(int i) const { return nodeAt(i); }
  /// Vertex of the node behind the counted ones, which must have been added.
  AcGeVector3d& GetRefOrigin() { return node(qtd_).vertex; }
  const AcGeVector3d& GetRefOrigin() const { return node(qtd_).vertex; }

  /// Number of nodes, the reference node too.
  int numNodes() const { return static_cast<int>(nodes_); }
  /// The count of nodes that a file tells, which is the place of the last one it holds: the number of counted nodes, as
  /// the reference node stands behind them. More only where several nodes are such, so that each save keeps them all.
  int lastFiled() const { return std::max(static_cast<int>(qtd_), numNodes() - 1); }
  /// All nodes in a row, the reference node last, if they lie in one piece; else null. A copy of an outline always
  /// does, and so does one that was reserved or has at most `kFirstNodes` nodes.
  const NoGeratriz* data() const { return nodes_ <= firstCapacity_ ? first_ : nullptr; }
  NoGeratriz* data() { return nodes_ <= firstCapacity_ ? first_ : nullptr; }
  /// Nodes that the first adding makes room for.
  static constexpr unsigned kFirstNodes = 16;

  /// Appends every node's vertex and bulge to the arrays, the reference node's too; either may be null.
  void GetArrays(AcArray<AcGePoint3d>* points, AcArray<double>* bulges) const;
  void GetArrays(AcArray<AcGeVector3d>* points, AcArray<double>* bulges) const;

  /// Smallest and largest coordinates of all vertices, the reference node's too. Unchanged for a list without nodes.
  void GetExtremePoints(AcGePoint3d& lowest, AcGePoint3d& highest) const;
  /// Corners of that rectangle: upper left, lower left, upper right, lower right.
  void GetExtremePoints(AcGePoint3d& a, AcGePoint3d& b, AcGePoint3d& c, AcGePoint3d& d) const;
  /// The same corners into four points in a row.
  void GetExtremePoints(AcGePoint3d* four) const;

  /// First and last position of the contour that holds position `i`; the last is `Qtd` for a position past the count.
  void PosLimits(int i, int& from, int& to) const;

  /// Removes every straight edge of no length: of its two nodes the second goes, and the first takes its bulge. Never
  /// merges into a node whose bulge is 5000 or more in absolute value. `i` keeps naming the node that it named.
  void RemoveNulls(int& i);
  void RemoveNulls() {
    int position = 0;
    RemoveNulls(position);
  }

 private:
  /// Nodes beyond the first piece.
  struct Piece;

  NoGeratriz& nodeAt(int i) const { return node(static_cast<unsigned>(i)); }
  NoGeratriz& node(unsigned i) const { return i < firstCapacity_ ? first_[i] : nodeBeyond(i); }
  NoGeratriz* newTail() {
    const unsigned i = nodes_++;
    return i < firstCapacity_ ? first_ + i : tailBeyond(i);
  }
  NoGeratriz& nodeBeyond(unsigned i) const;
  NoGeratriz* tailBeyond(unsigned i);
  void makeFirst(unsigned capacity);
  void freePieces();
  void assign(const KrGeratriz& other);
  template <class Coordinates>
  void appendTo(AcArray<Coordinates>* points, AcArray<double>* bulges) const;

  NoGeratriz* first_ = nullptr;
  unsigned firstCapacity_ = 0;
  unsigned nodes_ = 0;
  Piece* pieces_ = nullptr;
  std::uint16_t qtd_ = 0;
};
