#pragma once

#include <memory>
#include <type_traits>

#include "host/rx/rx.h"
#include "records/ListFiling.h"
#include "records/NodeChain.h"

/// One element of a `KrObjectArray`: its value, which the node owns, and the node behind it (null at the tail).
template <class T>
struct Node {
  Node() : value(reinterpret_cast<T*>(slot)) {}
  Node(const Node&) = delete;
  Node& operator=(const Node&) = delete;

  T* value;
  Node* next = nullptr;

 private:
  /// Where a value lives. Nodes that exchanged values hold each other's slot.
  alignas(T) unsigned char slot[sizeof(T)];
};

/// An ordered list of values with filing: the drawn elements of a view, the notches, the splits.
///
/// A node stays where it is, and a pointer to it stays good, while others are appended or inserted; walk with
/// `getNode(0)` and `nextNode`. Access by position is O(1). `Clear` keeps the nodes for the next filling, so a list
/// that is rebuilt at each regeneration allocates nothing once it has grown. Copying a list copies its values.
template <class T>
class KrObjectArray {
 public:
  KrObjectArray() = default;
  KrObjectArray(const KrObjectArray& other) { assign(other); }
  virtual ~KrObjectArray() { destroyValues(); }

  /// Drops the present values and copies the other's.
  KrObjectArray& operator=(const KrObjectArray& other) {
    if (this != &other) assign(other);
    return *this;
  }

  /// Adds a copy of the value at the tail: 1, or 0 if there is no memory for it.
  int append(const T& value) {
    Node<T>* node = chain_.append();
    if (node == nullptr) return 0;
    node->value = std::construct_at(node->value, value);
    ++count_;
    return 1;
  }

  /// Adds copies of all the other's values at the tail; into an empty list that is an assignment. Always 1.
  int append(const KrObjectArray& other) {
    if (IsEmpty()) {
      *this = other;
      return 1;
    }
    const int added = other.chain_.size();
    chain_.reserve(chain_.size() + added);
    for (int i = 0; i < added; ++i) append(*other.chain_.at(i)->value);
    return 1;
  }

  /// Adds a copy of the value before position `i`: at the tail if `i` is at or past the count, at position 1 if it is
  /// negative. 1, or 0 if there is no memory for it.
  int AddAt(const T& value, int i) {
    if (i >= count_ || chain_.empty()) return append(value);
    Node<T>* node = chain_.insert(i < 0 ? 1 : i);
    if (node == nullptr) return 0;
    node->value = std::construct_at(node->value, value);
    ++count_;
    return 1;
  }

  /// Adds copies of another list's values: at the tail if `i` is at or past the count, before the first for 0.
  ///
  /// Anywhere between, the argument is not inserted: from position `i` on the list gets new nodes with copies of its
  /// own values, and the count grows by their number although no node more stands in the list, so that the last
  /// positions give no node. That form is kept as it is and not to be relied on. Always 1.
  int AddAt(const KrObjectArray& other, int i) {
    if (i >= count_) return append(other);
    if (i == 0) return addInFront(other);
    return renewTail(i < 1 ? 1 : i);
  }

  /// Deletes all values. Pointers to nodes are void from now on.
  void Clear() {
    destroyValues();
    chain_.clear();
    count_ = 0;
  }

  /// 1 for a list without values, else 0.
  int IsEmpty() const { return chain_.empty() ? 1 : 0; }
  /// Number of values.
  int length() const { return count_; }

  /// The value at a position, the first for a negative one. Past the end there is none: the reference is a null one,
  /// and using it is the caller's fault.
  T& operator[](int i) const { return *accessNode(i)->value; }
  T& first() const { return (*this)[0]; }
  T& last() const { return (*this)[count_ - 1]; }

  /// The node at a position, the first for a negative one, null past the end.
  Node<T>* getNode(int i) const { return accessNode(i); }
  /// The node behind a node, null behind the last. The argument must not be null.
  static Node<T>* nextNode(const Node<T>* node) { return node->next; }

  /// Deletes the value at a position; a position at or past the count is ignored, a negative one is the caller's fault.
  void removeAt(int i) {
    if (i >= chain_.size()) return;
    std::destroy_at(chain_.remove(i)->value);
    --count_;
  }

  /// Exchanges the values of two nodes, which stay in their places: 1, or 0 if either position has no node.
  int swap(int i, int j) {
    Node<T>* a = accessNode(i);
    Node<T>* b = accessNode(j);
    if (a == nullptr || b == nullptr) return 0;
    std::swap(a->value, b->value);
    return 1;
  }

  /// Makes room for values that a file announces, `count` in all, as far as those already there vouch for them.
  void expect(int count) { chain_.expect(count); }
  /// Makes room for `count` values in all, so that they take one piece of memory. No effect if there is none.
  void reserve(int count) { chain_.reserve(count); }

  /// An Int32 count, then each value's own fields. Always `Acad::eOk`.
  virtual Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const {
    ListFiling::writeCount(filer, chain_.size());
    for (const Node<T>* node = chain_.first(); node != nullptr; node = node->next) node->value->dwgOutFields(filer);
    return Acad::eOk;
  }

  /// Replaces the list by what `dwgOutFields` wrote. Stops at the first value that the filer fails on. Always
  /// `Acad::eOk`: the filer's status tells of a failure.
  virtual Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) {
    Clear();
    const int count = ListFiling::readCount(filer);
    T value;
    for (int i = 0; i < count; ++i) {
      readValue(value, filer);
      if (ListFiling::status(filer) != Acad::eOk) break;
      chain_.expect(count);
      append(value);
    }
    return Acad::eOk;
  }

  /// Group 90 with the count, then each value's own groups. The filer's status.
  virtual Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const {
    ListFiling::writeCount(filer, chain_.size());
    for (const Node<T>* node = chain_.first(); node != nullptr; node = node->next) node->value->dxfOutFields(filer);
    return ListFiling::status(filer);
  }

  /// Replaces the list by what `dxfOutFields` wrote: `Acad::eInvalidResBuf` and an empty list if the first group is not
  /// 90, which then goes back to the filer; else the filer's status.
  virtual Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) {
    Clear();
    int count = 0;
    if (const Acad::ErrorStatus es = ListFiling::readCount(filer, count); es != Acad::eOk) return es;
    T value;
    for (int i = 0; i < count; ++i) {
      value.dxfInFields(filer);
      if (ListFiling::status(filer) != Acad::eOk) break;
      append(value);
    }
    return ListFiling::status(filer);
  }

 private:
  /// The version that values which read themselves by version are told.
  static constexpr int kValueVersion = 1;

  Node<T>* accessNode(int i) const { return chain_.find(i); }

  static void readValue(T& value, AcDbDwgFiler* filer) {
    if constexpr (requires { value.dwgInFields(filer, kValueVersion); }) {
      value.dwgInFields(filer, kValueVersion);
    } else {
      value.dwgInFields(filer);
    }
  }

  void destroyValues() {
    if constexpr (!std::is_trivially_destructible_v<T>) {
      for (Node<T>* node = chain_.first(); node != nullptr; node = node->next) std::destroy_at(node->value);
    }
  }

  void assign(const KrObjectArray& other) {
    Clear();
    chain_.reserve(other.chain_.size());
    for (const Node<T>* node = other.chain_.first(); node != nullptr; node = node->next) append(*node->value);
    count_ = other.count_;
  }

  int addInFront(const KrObjectArray& other) {
    const int added = other.chain_.size();
    chain_.reserve(chain_.size() + added);
    for (int i = 0; i < added; ++i) {
      // Added to itself, a list has moved its old values behind the copies made so far.
      const int source = this == &other ? 2 * i : i;
      AddAt(*other.chain_.at(source)->value, i);
    }
    return 1;
  }

  int renewTail(int from) {
    const int end = chain_.size();
    for (int i = from; i < end; ++i) append(*chain_.at(i)->value);
    for (int i = end - 1; i >= from; --i) std::destroy_at(chain_.remove(i)->value);
    return 1;
  }

  int count_ = 0;
  NodeChain<Node<T>> chain_;
};
