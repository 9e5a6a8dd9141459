#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <iterator>
#include <string>
#include <string_view>

/// A list of groups of the exchange format, each a code and its text. A drawing may hold many thousands of such lists,
/// so one takes little more than its texts.
class AcDbProxyGroups {
 public:
  struct Group {
    int code = 0;            ///< fits 16 bits
    std::string_view value;  ///< as in the file, in UTF-8; good as long as the list isn't changed
    bool operator==(const Group&) const = default;
  };

  class Iterator {
   public:
    using iterator_category = std::input_iterator_tag;
    using value_type = Group;
    using difference_type = std::ptrdiff_t;
    using pointer = const Group*;
    using reference = Group;

    Iterator() = default;
    explicit Iterator(const char* at) : at_(at) {}
    Group operator*() const {
      const Head head = headAt(at_);
      return {head.code, {at_ + sizeof head, head.length}};
    }
    Iterator& operator++() {
      at_ += sizeof(Head) + headAt(at_).length;
      return *this;
    }
    Iterator operator++(int) {
      const Iterator before = *this;
      ++*this;
      return before;
    }
    bool operator==(const Iterator&) const = default;

   private:
    const char* at_ = nullptr;
  };

  AcDbProxyGroups() = default;
  AcDbProxyGroups(std::initializer_list<Group> groups) {
    for (const Group& group : groups) push_back(group.code, group.value);
  }

  void push_back(int code, std::string_view value) {
    const Head head{static_cast<std::int16_t>(code), static_cast<std::uint32_t>(value.size())};
    const std::size_t at = bytes_.size();
    bytes_.resize(at + sizeof head + value.size());
    std::memcpy(bytes_.data() + at, &head, sizeof head);
    if (!value.empty()) std::memcpy(bytes_.data() + at + sizeof head, value.data(), value.size());
    ++count_;
  }
  void clear() {
    bytes_.clear();
    count_ = 0;
  }
  std::size_t size() const { return count_; }
  bool empty() const { return count_ == 0; }
  Iterator begin() const { return Iterator(bytes_.data()); }
  Iterator end() const { return Iterator(bytes_.data() + bytes_.size()); }
  bool operator==(const AcDbProxyGroups&) const = default;

 private:
#pragma pack(push, 1)
  struct Head {
    std::int16_t code;
    std::uint32_t length;
  };
#pragma pack(pop)
  static Head headAt(const char* at) {
    Head head;
    std::memcpy(&head, at, sizeof head);
    return head;
  }

  std::string bytes_;  // of each group its head and its text
  std::size_t count_ = 0;
};
