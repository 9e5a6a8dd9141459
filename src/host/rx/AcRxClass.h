#pragma once

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "host/rx/AcRxObject.h"

class AcRxClass;

/// Called when a class's application name is filed; may replace the name for the version being saved.
using AppNameChangeFuncPtr = void (*)(const AcRxClass* aClass, ACHAR*& newAppName, int saveVersion);

/// Makes an empty object of a class.
using AcRxPseudoConstructor = AcRxObject* (*)();

/// Descriptor of one run-time class. Made by newAcRxClass and owned by the class dictionary.
class AcRxClass : public AcRxObject {
 public:
  static AcRxClass* desc();
  static AcRxClass* cast(const AcRxObject* object) {
    return object != nullptr && object->isKindOf(desc()) ? const_cast<AcRxClass*>(static_cast<const AcRxClass*>(object))
                                                         : nullptr;
  }
  AcRxClass* isA() const override { return desc(); }

  const ACHAR* name() const { return name_.c_str(); }
  /// The name in drawing files; null for a class that isn't filed.
  const ACHAR* dxfName() const { return dxfName_.empty() ? nullptr : dxfName_.c_str(); }
  /// The application that supplies the class; null when none was named.
  const ACHAR* appName() const { return appName_.empty() ? nullptr : appName_.c_str(); }
  AppNameChangeFuncPtr appNameCallbackPtr() const { return appNameCallback_; }
  /// The drawing format version and maintenance version in which the class came to be.
  Acad::ErrorStatus getClassVersion(int& dwgVersion, int& maintenanceVersion) const;
  int proxyFlags() const { return proxyFlags_; }

  /// A new empty object of the class, owned by the caller; null when the class is abstract.
  AcRxObject* create() const { return constructor_ != nullptr ? constructor_() : nullptr; }
  AcRxPseudoConstructor constructor() const { return constructor_; }

  /// The parent class; null at the root, and while the parent isn't registered.
  AcRxClass* myParent() const { return parent_; }
  AcRxClass* parent() const { return parent_; }
  const ACHAR* parentName() const { return parentName_.c_str(); }

  /// Whether this class is `other` or derives from it.
  bool isDerivedFrom(const AcRxClass* other) const {
    if (this == other) return true;
    if (other == nullptr || other->depth_ >= depth_) return false;
    return other->depth_ < kNearDepth ? ancestors_[std::size_t(other->depth_)] == other : climbsTo(other);
  }
  /// Ancestors come before descendants; kNotOrderable between branches.
  AcRx::Ordering comparedTo(const AcRxObject* other) const override;

  /// Adds, removes and gives the extension held for a protocol class. Extensions aren't owned.
  /// addX and delX return what was held before.
  AcRxObject* addX(AcRxClass* protocol, AcRxObject* extension);
  AcRxObject* delX(AcRxClass* protocol);
  /// The extension held by this very class; null when there is none.
  AcRxObject* getX(const AcRxClass* protocol) const;
  /// The extension held by this class or its nearest ancestor; null when there is none.
  AcRxObject* queryX(const AcRxClass* protocol) const;

  /// Has `slot`, a class's cached descriptor, set to null when this class is removed.
  void bindCache(AcRxClass*& slot);

 private:
  friend class AcRxRegistry;
  AcRxClass() = default;
  ~AcRxClass() override;

  bool climbsTo(const AcRxClass* other) const;
  void setParent(AcRxClass* parent);

  // An ancestor at depth d stands in ancestors_[d], so that the test for descent is one comparison; deeper trees than
  // this walk the parents.
  static constexpr int kNearDepth = 12;

  int depth_ = 0;
  int dwgVersion_ = 0;
  int maintenanceVersion_ = 0;
  int proxyFlags_ = 0;
  std::array<const AcRxClass*, kNearDepth> ancestors_{};
  AcRxClass* parent_ = nullptr;
  AcRxPseudoConstructor constructor_ = nullptr;
  AppNameChangeFuncPtr appNameCallback_ = nullptr;
  std::wstring name_;
  std::wstring parentName_;
  std::wstring dxfName_;
  std::wstring appName_;
  std::vector<std::pair<const AcRxClass*, AcRxObject*>> extensions_;
  std::vector<AcRxClass**> caches_;
};

inline bool AcRxObject::isKindOf(const AcRxClass* aClass) const {
  const AcRxClass* own = isA();
  return own != nullptr && own->isDerivedFrom(aClass);
}

/// Makes and registers a class under its name. The parent may be registered later: acrxBuildClassHierarchy ties the
/// two. The last argument is for the host's own use. A name that is registered already gives that class back.
AcRxClass* newAcRxClass(const ACHAR* className, const ACHAR* parentName, int dwgVersion, int maintenanceVersion,
                        int proxyFlags = 0, AcRxPseudoConstructor constructor = nullptr, const ACHAR* dxfName = nullptr,
                        const ACHAR* appName = nullptr, AppNameChangeFuncPtr callback = nullptr, int reserved = 0);

/// Removes a class from the registry and destroys it; cached descriptors bound to it become null, and classes derived
/// from it lose their parent. Null is allowed.
void deleteAcRxClass(AcRxClass* aClass);

/// Ties every registered class to its parent by name. To be called after classes have been added.
void acrxBuildClassHierarchy();

/// The class registered under `name`, or null.
AcRxClass* acrxFindClass(const ACHAR* name);
