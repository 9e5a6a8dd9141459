#pragma once

#include "object/KrObject.h"
#include "support/Database.h"

template <class Change>
void KrObject::forEachLinked(Change change) {
  if (!hasValidId()) return;
  for (int i = 0; i < relativeObj_.length(); ++i) {
    const krLockLayerHelper unlocked(relativeObj_[i]);
    KrObject* linked = nullptr;
    if (krOpenSon(linked, i, AcDb::kForWrite, 0, 1) != Acad::eOk) continue;
    change(*linked);
    linked->close();
  }
}

template <class Change>
void KrObject::forEachUnlockedLinked(Change change) {
  if (!hasValidId()) return;
  for (int i = 0; i < relativeObj_.length(); ++i) {
    KrObject* linked = nullptr;
    if (krOpenSon(linked, i, AcDb::kForWrite, 0, 1) != Acad::eOk) continue;
    change(*linked);
    linked->close();
  }
}
