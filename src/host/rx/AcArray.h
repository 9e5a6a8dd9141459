#pragma once

#include <cassert>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>

#include "host/rx/AcHeapOperators.h"

/// Moves elements of plain data as blocks of bytes. The default of AcArray.
template <class T>
struct AcArrayMemCopyReallocator {
  static_assert(std::is_trivially_copyable_v<T>, "use AcArrayObjectCopyReallocator for this type");
  static void copyItems(T* to, const T* from, int count) {
    if (count > 0) std::memcpy(static_cast<void*>(to), static_cast<const void*>(from), sizeof(T) * std::size_t(count));
  }
  static void moveItems(T* to, T* from, int count) { copyItems(to, from, count); }
};

/// Moves elements by their constructors: for types that own something.
template <class T>
struct AcArrayObjectCopyReallocator {
  static void copyItems(T* to, const T* from, int count) { std::uninitialized_copy_n(from, count, to); }
  static void moveItems(T* to, T* from, int count) {
    std::uninitialized_move_n(from, count, to);
    std::destroy_n(from, count);
  }
};

/// Growable array of the host's interface. Indices and lengths are ints; an index outside the array is a programming
/// error (checked by assertion only). Appending an element of the array itself is safe.
template <class T, class R = AcArrayMemCopyReallocator<T>>
class AcArray : public AcHeapOperators {
 public:
  using value_type = T;
  using iterator = T*;
  using const_iterator = const T*;

  /// An empty array with room for `physicalLength` elements, growing by at least `growLength` at a time.
  explicit AcArray(int physicalLength = 0, int growLength = kDefaultGrowLength)
      : growLength_(growLength < 1 ? 1 : growLength) {
    if (physicalLength > 0) reallocate(physicalLength);
  }
  AcArray(const AcArray& other) : growLength_(other.growLength_) { append(other); }
  AcArray(AcArray&& other) noexcept { swapWith(other); }
  AcArray& operator=(const AcArray& other) {
    if (this == &other) return *this;
    removeAll();
    return append(other);
  }
  AcArray& operator=(AcArray&& other) noexcept {
    swapWith(other);
    return *this;
  }
  ~AcArray() {
    std::destroy_n(items_, length_);
    odrxFree(items_);
  }

  int length() const { return length_; }
  int logicalLength() const { return length_; }
  int physicalLength() const { return capacity_; }
  int growLength() const { return growLength_; }
  bool isEmpty() const { return length_ == 0; }

  T& operator[](int index) { return item(index); }
  const T& operator[](int index) const { return item(index); }
  T& at(int index) { return item(index); }
  const T& at(int index) const { return item(index); }
  T& first() { return item(0); }
  const T& first() const { return item(0); }
  T& last() { return item(length_ - 1); }
  const T& last() const { return item(length_ - 1); }

  T* asArrayPtr() { return items_; }
  const T* asArrayPtr() const { return items_; }
  T* begin() { return items_; }
  T* end() { return items_ + length_; }
  const T* begin() const { return items_; }
  const T* end() const { return items_ + length_; }

  /// Adds at the end; returns the new element's index.
  int append(const T& value) {
    if (length_ < capacity_) {
      ::new (static_cast<void*>(items_ + length_)) T(value);
    } else {
      T copy(value);
      grow(length_ + 1);
      ::new (static_cast<void*>(items_ + length_)) T(std::move(copy));
    }
    return length_++;
  }
  int append(T&& value) {
    if (length_ < capacity_) {
      ::new (static_cast<void*>(items_ + length_)) T(std::move(value));
    } else {
      T copy(std::move(value));
      grow(length_ + 1);
      ::new (static_cast<void*>(items_ + length_)) T(std::move(copy));
    }
    return length_++;
  }
  AcArray& append(const AcArray& other) {
    const int count = other.length_;
    if (count == 0) return *this;
    if (length_ + count > capacity_) grow(length_ + count);
    R::copyItems(items_ + length_, other.items_, count);
    length_ += count;
    return *this;
  }

  /// Inserts before `index`, which may be length().
  AcArray& insertAt(int index, const T& value) {
    assert(index >= 0 && index <= length_);
    T copy(value);
    append(copy);
    for (int i = length_ - 1; i > index; --i) items_[i] = std::move(items_[i - 1]);
    items_[index] = std::move(copy);
    return *this;
  }

  AcArray& setAt(int index, const T& value) {
    item(index) = value;
    return *this;
  }
  AcArray& setAll(const T& value) {
    const T copy(value);
    for (T& each : *this) each = copy;
    return *this;
  }

  AcArray& removeAt(int index) { return removeSubArray(index, index); }
  AcArray& removeFirst() { return removeAt(0); }
  AcArray& removeLast() { return removeAt(length_ - 1); }
  AcArray& removeAll() { return setLogicalLength(0); }
  /// Removes the elements `firstIndex` to `lastIndex`, both included.
  AcArray& removeSubArray(int firstIndex, int lastIndex) {
    assert(firstIndex >= 0 && firstIndex <= lastIndex && lastIndex < length_);
    const int removed = lastIndex - firstIndex + 1;
    for (int i = firstIndex; i + removed < length_; ++i) items_[i] = std::move(items_[i + removed]);
    return setLogicalLength(length_ - removed);
  }
  /// Removes the first element equal to `value`, searching from `start`; false when there is none.
  bool remove(const T& value, int start = 0) {
    const int index = findFrom(value, start);
    if (index < 0) return false;
    removeAt(index);
    return true;
  }

  bool contains(const T& value, int start = 0) const { return findFrom(value, start) >= 0; }
  /// The index of the first element equal to `value`, or -1.
  int find(const T& value) const { return findFrom(value, 0); }
  /// As above from `start` on; `foundAt` is set only when there is one.
  bool find(const T& value, int& foundAt, int start = 0) const {
    const int index = findFrom(value, start);
    if (index >= 0) foundAt = index;
    return index >= 0;
  }

  /// Cuts the array, or lengthens it with value-initialised elements.
  AcArray& setLogicalLength(int length) {
    assert(length >= 0);
    if (length > capacity_) grow(length);
    if (length > length_) std::uninitialized_value_construct_n(items_ + length_, length - length_);
    if (length < length_) std::destroy_n(items_ + length, length_ - length);
    length_ = length;
    return *this;
  }
  /// Sets the room held; smaller than the length cuts the array.
  AcArray& setPhysicalLength(int capacity) {
    assert(capacity >= 0);
    if (capacity < length_) setLogicalLength(capacity);
    if (capacity != capacity_) reallocate(capacity);
    return *this;
  }
  AcArray& setGrowLength(int growLength) {
    growLength_ = growLength < 1 ? 1 : growLength;
    return *this;
  }

  AcArray& reverse() {
    for (int i = 0, j = length_ - 1; i < j; ++i, --j) swap(i, j);
    return *this;
  }
  AcArray& swap(int i, int j) {
    std::swap(item(i), item(j));
    return *this;
  }

  bool operator==(const AcArray& other) const {
    if (length_ != other.length_) return false;
    for (int i = 0; i < length_; ++i) {
      if (!(items_[i] == other.items_[i])) return false;
    }
    return true;
  }

 private:
  static constexpr int kDefaultGrowLength = 8;

  T& item(int index) {
    assert(index >= 0 && index < length_);
    return items_[index];
  }
  const T& item(int index) const {
    assert(index >= 0 && index < length_);
    return items_[index];
  }

  int findFrom(const T& value, int start) const {
    for (int i = start < 0 ? 0 : start; i < length_; ++i) {
      if (items_[i] == value) return i;
    }
    return -1;
  }

  // Doubling keeps a run of appends linear; the grow length only sets the least step.
  void grow(int needed) {
    const int step = capacity_ > growLength_ ? capacity_ : growLength_;
    reallocate(capacity_ + step > needed ? capacity_ + step : needed);
  }

  void reallocate(int capacity) {
    static_assert(alignof(T) <= alignof(std::max_align_t));
    T* moved = nullptr;
    if (capacity > 0) {
      moved = static_cast<T*>(odrxAlloc(sizeof(T) * std::size_t(capacity)));
      if (moved == nullptr) std::abort();
      R::moveItems(moved, items_, length_);
    }
    odrxFree(items_);
    items_ = moved;
    capacity_ = capacity;
  }

  void swapWith(AcArray& other) noexcept {
    std::swap(items_, other.items_);
    std::swap(length_, other.length_);
    std::swap(capacity_, other.capacity_);
    std::swap(growLength_, other.growLength_);
  }

  T* items_ = nullptr;
  int length_ = 0;
  int capacity_ = 0;
  int growLength_ = kDefaultGrowLength;
};
