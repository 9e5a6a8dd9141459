#include "host/rx/AcRxObject.h"

#include "host/rx/AcRxClass.h"
#include "host/rx/AcRxRegistry.h"

AcRxClass* AcRxObject::desc() {
  return AcRxRegistry::instance().rootClass();
}

AcRxClass* AcRxObject::isA() const {
  return AcRxObject::desc();
}

AcRxObject* AcRxObject::clone() const {
  return nullptr;
}

Acad::ErrorStatus AcRxObject::copyFrom(const AcRxObject* /*source*/) {
  return Acad::eNotImplementedYet;
}

bool AcRxObject::isEqualTo(const AcRxObject* other) const {
  return this == other;
}

AcRx::Ordering AcRxObject::comparedTo(const AcRxObject* other) const {
  return isEqualTo(other) ? AcRx::kEqual : AcRx::kNotOrderable;
}

AcRxObject* AcRxObject::queryX(const AcRxClass* protocol) const {
  const AcRxClass* own = isA();
  return own != nullptr ? own->queryX(protocol) : nullptr;
}
