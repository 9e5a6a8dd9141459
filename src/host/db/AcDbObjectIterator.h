#pragma once

#include "host/db/AcDbEntity.h"

/// Walks a run of entities that belong to another, such as the vertices of a polyline.
class AcDbObjectIterator {
 public:
  AcDbObjectIterator() = default;
  explicit AcDbObjectIterator(AcDbObjectIdArray ids) : ids_(std::move(ids)) { start(); }
  virtual ~AcDbObjectIterator() = default;

  void start(bool atBeginning = true, bool skipErased = true) {
    position_ = atBeginning ? 0 : ids_.length() - 1;
    skip(atBeginning ? 1 : -1, skipErased);
  }
  bool done() const { return position_ < 0 || position_ >= ids_.length(); }
  void step(bool backwards = false, bool skipErased = true) {
    const int direction = backwards ? -1 : 1;
    position_ += direction;
    skip(direction, skipErased);
  }
  /// Null when done.
  AcDbObjectId objectId() const { return done() ? AcDbObjectId::kNull : ids_[position_]; }

 private:
  void skip(int direction, bool skipErased) {
    while (skipErased && !done() && ids_[position_].isErased()) position_ += direction;
  }
  AcDbObjectIdArray ids_;
  int position_ = 0;
};
