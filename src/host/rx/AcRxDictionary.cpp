#include "host/rx/AcRxDictionary.h"

#include <algorithm>

#include "host/os/Text.h"

ACRX_CONS_DEFINE_MEMBERS(AcRxDictionary, AcRxObject, 0)

/// Iterator over a snapshot of the ids, in the order asked for.
class AcRxDictionaryWalk : public AcRxDictionaryIterator {
 public:
  AcRxDictionaryWalk(const AcRxDictionary& dictionary, AcRx::DictIterType order) : dictionary_(dictionary) {
    for (std::size_t id = 0; id < dictionary.entries_.size(); ++id) {
      if (dictionary.entries_[id].present) ids_.push_back(Adesk::UInt32(id));
    }
    if (order == AcRx::kDictSorted) {
      std::sort(ids_.begin(), ids_.end(), [&](Adesk::UInt32 a, Adesk::UInt32 b) { return keyOf(a) < keyOf(b); });
    }
  }

  bool done() const override {
    skipRemoved();
    return place_ == ids_.size();
  }
  bool next() override {
    if (done()) return false;
    ++place_;
    return !done();
  }
  AcRxObject* object() const override { return done() ? nullptr : dictionary_.at(ids_[place_]); }
  const ACHAR* key() const override { return done() ? nullptr : dictionary_.keyAt(ids_[place_]); }
  Adesk::UInt32 id() const override { return done() ? AcRxDictionary::kNoId : ids_[place_]; }

 private:
  std::wstring keyOf(Adesk::UInt32 id) const { return dictionary_.folded(dictionary_.entries_[id].key.c_str()); }
  void skipRemoved() const {
    while (place_ < ids_.size() && !dictionary_.has(ids_[place_])) ++place_;
  }

  const AcRxDictionary& dictionary_;
  std::vector<Adesk::UInt32> ids_;
  mutable std::size_t place_ = 0;
};

AcRxDictionary::AcRxDictionary(bool deletesObjects, bool ignoreCase)
    : deletesObjects_(deletesObjects), ignoreCase_(ignoreCase) {}

AcRxDictionary::~AcRxDictionary() {
  if (!deletesObjects_) return;
  for (const Entry& each : entries_) delete each.object;
}

std::wstring AcRxDictionary::folded(const ACHAR* key) const {
  std::wstring text(key != nullptr ? key : L"");
  if (ignoreCase_) std::transform(text.begin(), text.end(), text.begin(), os::lowerCase);
  return text;
}

const AcRxDictionary::Entry* AcRxDictionary::entry(Adesk::UInt32 id) const {
  return id < entries_.size() && entries_[id].present ? &entries_[id] : nullptr;
}

AcRxObject* AcRxDictionary::at(const ACHAR* key) const {
  const Entry* found = entry(idAt(key));
  return found != nullptr ? found->object : nullptr;
}

AcRxObject* AcRxDictionary::at(Adesk::UInt32 id) const {
  const Entry* found = entry(id);
  return found != nullptr ? found->object : nullptr;
}

AcRxObject* AcRxDictionary::atPut(const ACHAR* key, AcRxObject* object, Adesk::UInt32& id) {
  id = idAt(key);
  if (id == kNoId) {
    id = Adesk::UInt32(entries_.size());
    entries_.push_back({key != nullptr ? key : L"", object, true});
    index_.emplace(folded(key), id);
    return nullptr;
  }
  AcRxObject* before = std::exchange(entries_[id].object, object);
  if (!deletesObjects_) return before;
  if (before != object) delete before;
  return nullptr;
}

AcRxObject* AcRxDictionary::remove(const ACHAR* key) {
  return remove(idAt(key));
}

AcRxObject* AcRxDictionary::remove(Adesk::UInt32 id) {
  if (entry(id) == nullptr) return nullptr;
  index_.erase(folded(entries_[id].key.c_str()));
  AcRxObject* removed = std::exchange(entries_[id], Entry{}).object;
  if (!deletesObjects_) return removed;
  delete removed;
  return nullptr;
}

bool AcRxDictionary::has(const ACHAR* key) const {
  return idAt(key) != kNoId;
}

bool AcRxDictionary::has(Adesk::UInt32 id) const {
  return entry(id) != nullptr;
}

Adesk::UInt32 AcRxDictionary::idAt(const ACHAR* key) const {
  const auto found = index_.find(folded(key));
  return found != index_.end() ? found->second : kNoId;
}

const ACHAR* AcRxDictionary::keyAt(Adesk::UInt32 id) const {
  const Entry* found = entry(id);
  return found != nullptr ? found->key.c_str() : nullptr;
}

bool AcRxDictionary::resetKey(Adesk::UInt32 id, const ACHAR* newKey) {
  if (entry(id) == nullptr) return false;
  const Adesk::UInt32 holder = idAt(newKey);
  if (holder != kNoId && holder != id) return false;
  index_.erase(folded(entries_[id].key.c_str()));
  entries_[id].key = newKey != nullptr ? newKey : L"";
  index_.emplace(folded(newKey), id);
  return true;
}

Adesk::UInt32 AcRxDictionary::numEntries() const {
  return Adesk::UInt32(index_.size());
}

AcRxDictionaryIterator* AcRxDictionary::newIterator(AcRx::DictIterType order) const {
  return new AcRxDictionaryWalk(*this, order);
}
