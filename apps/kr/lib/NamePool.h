#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace kr {

/// A name of a job, as a small number: equal names have equal numbers.
using NameId = std::uint32_t;

/// The name that isn't there. Its text is empty.
inline constexpr NameId kNoName = 0;

/// Every name that a job mentions, each kept once.
///
/// A name keeps its number for the life of the pool, so a reference to a node or a profile is four bytes and is
/// resolved by an index, with no second search. The characters may move when a name is added.
class NamePool {
 public:
  NamePool();

  /// The number of `text`, which is added when it is new. The empty text is kNoName.
  NameId intern(std::string_view text);

  /// The number of `text`, or kNoName when the pool doesn't hold it.
  NameId find(std::string_view text) const;

  /// The characters of a name that this pool gave out.
  std::string_view text(NameId name) const;

  /// One more than the greatest number given out.
  std::size_t size() const { return entries_.size(); }

 private:
  struct Entry {
    std::uint32_t begin;
    std::uint32_t length;
    std::uint32_t hash;
  };

  std::size_t slotOf(std::string_view text, std::uint32_t hash) const;
  void grow();

  std::vector<char> characters_;
  std::vector<Entry> entries_;
  std::vector<NameId> slots_;  // open addressing; kNoName is a free slot
};

}  // namespace kr
