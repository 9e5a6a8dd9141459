#include "NamePool.h"

namespace kr {
namespace {

constexpr std::size_t kFirstSlots = 64;  // a power of two

// FNV-1a: names are short, and nothing hostile is gained by a collision but a slower read.
std::uint32_t hashOf(std::string_view text) {
  std::uint32_t hash = 2166136261U;
  for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 16777619U;
  return hash;
}

}  // namespace

NamePool::NamePool() : entries_{{0, 0, 0}}, slots_(kFirstSlots, kNoName) {}

std::string_view NamePool::text(NameId name) const {
  const Entry& entry = entries_[name];
  return {characters_.data() + entry.begin, entry.length};
}

std::size_t NamePool::slotOf(std::string_view text, std::uint32_t hash) const {
  const std::size_t mask = slots_.size() - 1;
  std::size_t slot = hash & mask;
  while (slots_[slot] != kNoName) {
    const NameId name = slots_[slot];
    if (entries_[name].hash == hash && this->text(name) == text) return slot;
    slot = (slot + 1) & mask;
  }
  return slot;
}

NameId NamePool::find(std::string_view text) const {
  return slots_[slotOf(text, hashOf(text))];
}

NameId NamePool::intern(std::string_view text) {
  if (text.empty()) return kNoName;
  const std::uint32_t hash = hashOf(text);
  std::size_t slot = slotOf(text, hash);
  if (slots_[slot] != kNoName) return slots_[slot];
  if (entries_.size() * 2 >= slots_.size()) {
    grow();
    slot = slotOf(text, hash);
  }
  const auto name = static_cast<NameId>(entries_.size());
  entries_.push_back({static_cast<std::uint32_t>(characters_.size()), static_cast<std::uint32_t>(text.size()), hash});
  characters_.insert(characters_.end(), text.begin(), text.end());
  slots_[slot] = name;
  return name;
}

void NamePool::grow() {
  std::vector<NameId> wider(slots_.size() * 2, kNoName);
  const std::size_t mask = wider.size() - 1;
  for (NameId name = 1; name < entries_.size(); ++name) {
    std::size_t slot = entries_[name].hash & mask;
    while (wider[slot] != kNoName) slot = (slot + 1) & mask;
    wider[slot] = name;
  }
  slots_.swap(wider);
}

}  // namespace kr
