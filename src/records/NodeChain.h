#pragma once

#include <cstddef>
#include <cstring>
#include <memory>
#include <new>
#include <type_traits>

/// A chain of nodes with an index beside it: what the record lists keep their nodes in.
///
/// `N` is default constructible and has a member `N* next`, which the chain writes. Nodes live in a few chunks and
/// never move, so a pointer to a node stays good until that node is removed or the chain cleared, whatever is appended
/// or inserted meanwhile. Positions are found in constant time. Removed and cleared nodes stay in the chain as spares
/// and serve the next append, so a list that is filled over and over again allocates only while it grows. An empty
/// chain that was never filled owns no memory.
///
/// The chain does not touch what a node holds: a spare node keeps its contents until its user resets them.
template <class N>
class NodeChain {
 public:
  NodeChain() = default;
  NodeChain(const NodeChain&) = delete;
  NodeChain& operator=(const NodeChain&) = delete;
  ~NodeChain() { freeChunks(); }

  /// Number of nodes in the chain.
  int size() const { return size_; }
  bool empty() const { return size_ == 0; }
  /// The first and last nodes, null in an empty chain.
  N* first() const { return size_ > 0 ? index_[0] : nullptr; }
  N* last() const { return size_ > 0 ? index_[size_ - 1] : nullptr; }
  /// The node at a position that the caller knows to exist.
  N* at(int position) const { return index_[position]; }
  /// The node at a position: the first for a negative one, null past the end.
  N* find(int position) const {
    if (position < 0) position = 0;
    return position < size_ ? index_[position] : nullptr;
  }

  /// Adds a node behind the last; null if memory ran out, and then nothing changed.
  N* append() {
    N* node = takeSpare();
    if (node == nullptr) return nullptr;
    node->next = nullptr;
    if (size_ > 0) index_[size_ - 1]->next = node;
    index_[size_++] = node;
    return node;
  }

  /// Adds a node before `position`, 0 to size(); null if memory ran out.
  N* insert(int position) {
    if (position >= size_) return append();
    N* node = takeSpare();
    if (node == nullptr) return nullptr;
    node->next = index_[position];
    if (position > 0) index_[position - 1]->next = node;
    shiftIndex(position, position + 1);
    index_[position] = node;
    ++size_;
    return node;
  }

  /// Takes the node at an existing position out of the chain and returns it, a spare from now on.
  N* remove(int position) {
    N* node = index_[position];
    if (position > 0) index_[position - 1]->next = node->next;
    shiftIndex(position + 1, position);
    --size_;
    node->next = spare_;
    spare_ = node;
    return node;
  }

  /// Empties the chain in constant time; all its nodes become spares, to be handed out in the same order.
  void clear() {
    if (size_ == 0) return;
    index_[size_ - 1]->next = spare_;
    spare_ = index_[0];
    size_ = 0;
  }

  /// Makes room for nodes that a file announces, `count` in all: just as many while they are few, and no more than the
  /// chain would grow by itself, so that a false number costs nothing. Ask again ahead of each append.
  void expect(int count) {
    if (spare_ != nullptr || count <= capacity_) return;
    const int trusted = capacity_ > kFirstChunk ? 2 * capacity_ : capacity_ + kFirstChunk;
    reserve(count < trusted ? count : trusted);
  }

  /// Makes room for `count` nodes in all; false if memory ran out.
  bool reserve(int count) { return count <= capacity_ || grow(count - capacity_); }

 private:
  /// A block of nodes, followed by the index over all nodes of the chain up to this block.
  struct Chunk {
    Chunk* older;
    int nodes;
  };
  static constexpr int kFirstChunk = 8;
  static constexpr std::size_t kNodesAt = (sizeof(Chunk) + alignof(N) - 1) / alignof(N) * alignof(N);
  static_assert(alignof(N) >= alignof(N*) && alignof(N) <= __STDCPP_DEFAULT_NEW_ALIGNMENT__);

  static N* nodesOf(Chunk* chunk) {
    return std::launder(reinterpret_cast<N*>(reinterpret_cast<std::byte*>(chunk) + kNodesAt));
  }

  N* takeSpare() {
    if (spare_ == nullptr && !grow(capacity_ > kFirstChunk ? capacity_ : kFirstChunk)) return nullptr;
    N* node = spare_;
    spare_ = node->next;
    return node;
  }

  void shiftIndex(int from, int to) {
    if (from < size_) std::memmove(index_ + to, index_ + from, static_cast<std::size_t>(size_ - from) * sizeof(N*));
  }

  bool grow(int count) {
    const auto fresh = static_cast<std::size_t>(count);
    const auto all = fresh + static_cast<std::size_t>(capacity_);
    void* memory = ::operator new(kNodesAt + fresh * sizeof(N) + all * sizeof(N*), std::nothrow);
    if (memory == nullptr) return false;
    chunks_ = ::new (memory) Chunk{chunks_, count};
    auto* bytes = static_cast<std::byte*>(memory) + kNodesAt;
    for (std::size_t i = 0; i < fresh; ++i) ::new (bytes + i * sizeof(N)) N();
    N* nodes = nodesOf(chunks_);
    for (int i = 0; i + 1 < count; ++i) nodes[i].next = nodes + i + 1;
    nodes[count - 1].next = spare_;
    spare_ = nodes;
    auto** index = ::new (bytes + fresh * sizeof(N)) N*[all];
    if (size_ > 0) std::memcpy(index, index_, static_cast<std::size_t>(size_) * sizeof(N*));
    index_ = index;
    capacity_ += count;
    return true;
  }

  void freeChunks() {
    while (chunks_ != nullptr) {
      Chunk* chunk = chunks_;
      chunks_ = chunk->older;
      if constexpr (!std::is_trivially_destructible_v<N>) std::destroy_n(nodesOf(chunk), chunk->nodes);
      ::operator delete(chunk);
    }
  }

  int size_ = 0;
  int capacity_ = 0;
  N** index_ = nullptr;
  N* spare_ = nullptr;
  Chunk* chunks_ = nullptr;
};
