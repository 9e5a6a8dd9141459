#pragma once

#include "host/rx/AcRxDictionary.h"
#include "host/rx/AcRxMacros.h"

/// The system registry and the life of run-time classes in it: the inner side of newAcRxClass and its like. It is built
/// at first use and never destroyed, so that objects that outlive main() still know their classes.
class AcRxRegistry {
 public:
  static AcRxRegistry& instance();

  AcRxDictionary& system() { return system_; }
  AcRxClass* rootClass() const { return root_; }
  AcRxClass* classClass() const { return classClass_; }

  AcRxClass* find(const ACHAR* name) const { return static_cast<AcRxClass*>(classes_.at(name)); }
  AcRxClass* add(const acrx::ClassForm& form, AppNameChangeFuncPtr callback);
  void remove(AcRxClass* aClass);
  /// Ties every class to its parent and brings the tables of ancestors up to date.
  void tieParents();

 private:
  AcRxRegistry() = default;
  void fill();
  template <class Visitor>
  void forEachClass(Visitor visit) const;
  static void settle(AcRxClass* aClass);

  AcRxDictionary system_;
  AcRxDictionary classes_;
  AcRxClass* root_ = nullptr;
  AcRxClass* classClass_ = nullptr;
};
