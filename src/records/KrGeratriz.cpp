#include "records/KrGeratriz.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <memory>
#include <type_traits>

static_assert(std::is_trivially_copyable_v<NoGeratriz>);

struct KrGeratriz::Piece {
  explicit Piece(unsigned size) : capacity(size), nodes(std::make_unique<NoGeratriz[]>(size)) {}

  unsigned capacity;
  std::unique_ptr<NoGeratriz[]> nodes;
  Piece* next = nullptr;
};

KrGeratriz::~KrGeratriz() {
  freePieces();
  delete[] first_;
}

void KrGeratriz::freePieces() {
  while (pieces_ != nullptr) {
    const std::unique_ptr<Piece> piece(pieces_);
    pieces_ = piece->next;
  }
}

void KrGeratriz::makeFirst(unsigned capacity) {
  delete[] first_;
  first_ = nullptr;
  firstCapacity_ = 0;
  first_ = new NoGeratriz[capacity];
  firstCapacity_ = capacity;
}

NoGeratriz& KrGeratriz::nodeBeyond(unsigned i) const {
  unsigned position = i - firstCapacity_;
  Piece* piece = pieces_;
  while (position >= piece->capacity) {
    position -= piece->capacity;
    piece = piece->next;
  }
  return piece->nodes[position];
}

NoGeratriz* KrGeratriz::tailBeyond(unsigned i) {
  if (first_ == nullptr) {
    makeFirst(kFirstNodes);
    return first_;
  }
  // Pieces double in size, so that a position is found in few steps.
  unsigned position = i - firstCapacity_;
  Piece** piece = &pieces_;
  while (*piece != nullptr && position >= (*piece)->capacity) {
    position -= (*piece)->capacity;
    piece = &(*piece)->next;
  }
  if (*piece == nullptr) *piece = new Piece(i);
  return &(*piece)->nodes[position];
}

void KrGeratriz::reserve(int count) {
  const auto wanted = static_cast<unsigned>(std::max(count, 0));
  if (wanted <= firstCapacity_) return;
  // Nodes in use must not move.
  if (nodes_ > 0) return;
  freePieces();
  makeFirst(wanted);
}

void KrGeratriz::assign(const KrGeratriz& other) {
  Clear();
  reserve(other.numNodes());
  if (const NoGeratriz* nodes = other.data(); nodes != nullptr) {
    std::copy_n(nodes, other.nodes_, first_);
  } else {
    for (unsigned i = 0; i < other.nodes_; ++i) first_[i] = other.node(i);
  }
  nodes_ = other.nodes_;
  unsigned counted = 0;
  for (unsigned i = 0; i < nodes_; ++i) counted += isReference(first_[i].bulge) ? 0U : 1U;
  qtd_ = static_cast<std::uint16_t>(counted);
}

void KrGeratriz::AddAt(int i, const AcGeVector3d& vertex, double bulge) {
  if (i >= qtd_) return Add(vertex, bulge);
  const NoGeratriz added{vertex, bulge};
  newTail();
  const auto position = static_cast<unsigned>(std::max(i, 0));
  for (unsigned k = nodes_ - 1; k > position; --k) node(k) = node(k - 1);
  node(position) = added;
  ++qtd_;
}

template <class Coordinates>
void KrGeratriz::appendTo(AcArray<Coordinates>* points, AcArray<double>* bulges) const {
  for (unsigned i = 0; i < nodes_; ++i) {
    const NoGeratriz& current = node(i);
    if (points != nullptr) points->append(Coordinates(current.vertex.x, current.vertex.y, current.vertex.z));
    if (bulges != nullptr) bulges->append(current.bulge);
  }
}

void KrGeratriz::GetArrays(AcArray<AcGePoint3d>* points, AcArray<double>* bulges) const {
  appendTo(points, bulges);
}

void KrGeratriz::GetArrays(AcArray<AcGeVector3d>* points, AcArray<double>* bulges) const {
  appendTo(points, bulges);
}

void KrGeratriz::GetExtremePoints(AcGePoint3d& lowest, AcGePoint3d& highest) const {
  if (nodes_ == 0) return;
  AcGeVector3d low = node(0).vertex;
  AcGeVector3d high = low;
  for (unsigned i = 1; i < nodes_; ++i) {
    const AcGeVector3d& v = node(i).vertex;
    low.set(std::min(low.x, v.x), std::min(low.y, v.y), std::min(low.z, v.z));
    high.set(std::max(high.x, v.x), std::max(high.y, v.y), std::max(high.z, v.z));
  }
  lowest.set(low.x, low.y, low.z);
  highest.set(high.x, high.y, high.z);
}

void KrGeratriz::GetExtremePoints(AcGePoint3d& a, AcGePoint3d& b, AcGePoint3d& c, AcGePoint3d& d) const {
  if (nodes_ == 0) return;
  GetExtremePoints(b, c);
  a.set(b.x, c.y, b.z);
  d.set(c.x, b.y, c.z);
}

void KrGeratriz::GetExtremePoints(AcGePoint3d* four) const {
  GetExtremePoints(four[0], four[1], four[2], four[3]);
}

void KrGeratriz::PosLimits(int i, int& from, int& to) const {
  from = 0;
  to = qtd_;
  const int position = std::max(i, 0);
  for (int k = 0; k < position && k < numNodes(); ++k) {
    if (isContourEnd(node(static_cast<unsigned>(k)).bulge)) from = k + 1;
  }
  for (int k = position; k < qtd_; ++k) {
    if (k != qtd_ - 1 && !isContourEnd(node(static_cast<unsigned>(k)).bulge)) continue;
    to = k;
    return;
  }
}

void KrGeratriz::RemoveNulls(int& i) {
  if (nodes_ == 0) return;
  unsigned kept = 0;
  for (unsigned k = 1; k < nodes_; ++k) {
    NoGeratriz& current = node(kept);
    const NoGeratriz& following = node(k);
    const bool mergeable = current.bulge == 0.0 && std::abs(following.bulge) < kReferenceBulge;
    if (mergeable && current.vertex == following.vertex) {
      current = following;
      --qtd_;
      if (static_cast<int>(kept) < i) --i;
      continue;
    }
    if (++kept != k) node(kept) = following;
  }
  nodes_ = kept + 1;
}
