#pragma once

#include "host/rx/AcRx.h"
#include "host/rx/AdeskTypes.h"
#include "host/rx/ErrorStatus.h"

class AcRxClass;

/// Base of everything that knows its class at run time.
class AcRxObject {
 public:
  AcRxObject(const AcRxObject&) = default;
  AcRxObject& operator=(const AcRxObject&) = default;
  virtual ~AcRxObject() = default;

  static AcRxClass* desc();
  static AcRxObject* cast(const AcRxObject* object) { return const_cast<AcRxObject*>(object); }

  /// The object's class; null once that class has been removed from the registry.
  virtual AcRxClass* isA() const;

  /// Whether the object's class is `aClass` or derives from it. False for a null class.
  inline bool isKindOf(const AcRxClass* aClass) const;

  /// A new copy of the object, or null for a class that can't be copied (the default).
  virtual AcRxObject* clone() const;

  /// Takes over the contents of `source`; the default answers eNotImplementedYet.
  virtual Acad::ErrorStatus copyFrom(const AcRxObject* source);

  /// Whether both are the same by the class's own rule; by default, whether they are one object.
  virtual bool isEqualTo(const AcRxObject* other) const;

  /// Order by the class's own rule; by default kEqual for one object, else kNotOrderable.
  virtual AcRx::Ordering comparedTo(const AcRxObject* other) const;

  /// The protocol extension that the object's class, or the nearest ancestor that has one, holds for `protocol`;
  /// null when none does.
  AcRxObject* queryX(const AcRxClass* protocol) const;
  AcRxObject* x(const AcRxClass* protocol) const { return queryX(protocol); }

 protected:
  AcRxObject() = default;
};
