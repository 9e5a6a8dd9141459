#include "host/db/AcDbObjectId.h"

#include "host/db/AcDbObject.h"

bool AcDbObjectId::isEffectivelyErased() const {
  for (const AcDbStub* stub = stub_; stub != nullptr; stub = stub->owner) {
    if (stub->has(AcDbStub::kErased)) return true;
  }
  return false;
}

const AcRxClass* AcDbObjectId::objectClass() const {
  return isResident() ? stub_->object->isA() : nullptr;
}
