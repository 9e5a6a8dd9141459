#include "host/db/AcDbIdMapping.h"

bool AcDbIdMapping::assign(const AcDbIdPair& pair) {
  if (pair.key().isNull() || !index_.emplace(pair.key(), pairs_.size()).second) return false;
  pairs_.push_back(pair);
  return true;
}

bool AcDbIdMapping::compute(AcDbIdPair& pair) const {
  const auto found = index_.find(pair.key());
  if (found == index_.end()) return false;
  pair = pairs_[found->second];
  return true;
}

bool AcDbIdMapping::change(const AcDbIdPair& pair) {
  const auto found = index_.find(pair.key());
  if (found == index_.end()) return false;
  pairs_[found->second] = pair;
  return true;
}

bool AcDbIdMapping::del(AcDbObjectId key) {
  const auto found = index_.find(key);
  if (found == index_.end()) return false;
  pairs_[found->second] = AcDbIdPair();
  index_.erase(found);
  return true;
}
