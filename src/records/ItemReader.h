#pragma once

#include "host/db/db.h"
#include "host/rx/rx.h"

/// Reads items of a DWG filer into fields, in their order. After the first that the filer fails on no further one is
/// read, and it and the fields behind it keep what they held.
class ItemReader {
 public:
  explicit ItemReader(AcDbDwgFiler* filer) : filer_(filer) {}

  /// An item of the field's own type; says whether it was read. A text is the caller's, to be freed.
  template <class T>
  bool take(T& field) {
    T item{};
    if (status_ == Acad::eOk) status_ = filer_->readItem(&item);
    if (status_ != Acad::eOk) return false;
    field = item;
    return true;
  }

  /// A 16-bit item into a field of another type, zero-extended.
  template <class Field>
  bool takeWord(Field& field) {
    Adesk::UInt16 word = 0;
    if (!take(word)) return false;
    field = static_cast<Field>(word);
    return true;
  }

  /// A run of bytes as they lie in memory.
  template <class Block>
  bool takeBytes(Block& field) {
    Block bytes{};
    if (status_ == Acad::eOk) status_ = filer_->readItem(&bytes, sizeof bytes);
    if (status_ != Acad::eOk) return false;
    field = bytes;
    return true;
  }

  /// What the first item that failed ended in, else `Acad::eOk`.
  Acad::ErrorStatus status() const { return status_; }

 private:
  AcDbDwgFiler* filer_;
  Acad::ErrorStatus status_ = Acad::eOk;
};
