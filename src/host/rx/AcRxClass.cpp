#include "host/rx/AcRxClass.h"

#include <algorithm>

#include "host/rx/AcRxRegistry.h"

AcRxClass* AcRxClass::desc() {
  return AcRxRegistry::instance().classClass();
}

AcRxClass::~AcRxClass() {
  for (AcRxClass** cache : caches_) {
    if (*cache == this) *cache = nullptr;
  }
}

Acad::ErrorStatus AcRxClass::getClassVersion(int& dwgVersion, int& maintenanceVersion) const {
  dwgVersion = dwgVersion_;
  maintenanceVersion = maintenanceVersion_;
  return Acad::eOk;
}

AcRx::Ordering AcRxClass::comparedTo(const AcRxObject* other) const {
  const AcRxClass* otherClass = AcRxClass::cast(other);
  if (otherClass == nullptr) return AcRx::kNotOrderable;
  if (otherClass == this) return AcRx::kEqual;
  if (otherClass->isDerivedFrom(this)) return AcRx::kLessThan;
  return isDerivedFrom(otherClass) ? AcRx::kGreaterThan : AcRx::kNotOrderable;
}

AcRxObject* AcRxClass::addX(AcRxClass* protocol, AcRxObject* extension) {
  AcRxObject* before = delX(protocol);
  extensions_.emplace_back(protocol, extension);
  return before;
}

AcRxObject* AcRxClass::delX(AcRxClass* protocol) {
  const auto found =
      std::find_if(extensions_.begin(), extensions_.end(), [&](const auto& each) { return each.first == protocol; });
  if (found == extensions_.end()) return nullptr;
  AcRxObject* extension = found->second;
  extensions_.erase(found);
  return extension;
}

AcRxObject* AcRxClass::getX(const AcRxClass* protocol) const {
  for (const auto& [held, extension] : extensions_) {
    if (held == protocol) return extension;
  }
  return nullptr;
}

AcRxObject* AcRxClass::queryX(const AcRxClass* protocol) const {
  for (const AcRxClass* holder = this; holder != nullptr; holder = holder->parent_) {
    if (AcRxObject* extension = holder->getX(protocol)) return extension;
  }
  return nullptr;
}

void AcRxClass::bindCache(AcRxClass*& slot) {
  if (std::find(caches_.begin(), caches_.end(), &slot) == caches_.end()) caches_.push_back(&slot);
}

bool AcRxClass::climbsTo(const AcRxClass* other) const {
  for (const AcRxClass* each = this; each != nullptr; each = each->parent_) {
    if (each == other) return true;
  }
  return false;
}

void AcRxClass::setParent(AcRxClass* parent) {
  parent_ = parent;
  depth_ = parent != nullptr ? parent->depth_ + 1 : 0;
  ancestors_ = parent != nullptr ? parent->ancestors_ : decltype(ancestors_){};
  if (parent != nullptr && parent->depth_ < kNearDepth) ancestors_[std::size_t(parent->depth_)] = parent;
}

AcRxClass* newAcRxClass(const ACHAR* className, const ACHAR* parentName, int dwgVersion, int maintenanceVersion,
                        int proxyFlags, AcRxPseudoConstructor constructor, const ACHAR* dxfName, const ACHAR* appName,
                        AppNameChangeFuncPtr callback, int /*reserved*/) {
  return AcRxRegistry::instance().add(
      {className, parentName, dwgVersion, maintenanceVersion, proxyFlags, constructor, dxfName, appName}, callback);
}

void deleteAcRxClass(AcRxClass* aClass) {
  if (aClass != nullptr) AcRxRegistry::instance().remove(aClass);
}

void acrxBuildClassHierarchy() {
  AcRxRegistry::instance().tieParents();
}

AcRxClass* acrxFindClass(const ACHAR* name) {
  return AcRxRegistry::instance().find(name);
}

namespace acrx {

AcRxClass* findDescriptor(AcRxClass*& cache, const ACHAR* className) {
  cache = acrxFindClass(className);
  if (cache != nullptr) cache->bindCache(cache);
  return cache;
}

void initClass(AcRxClass*& cache, const ClassForm& form, AppNameChangeFuncPtr callback) {
  const AcRxClass* registered = acrxFindClass(form.name);
  if (cache != nullptr && registered != nullptr) {
    if (registered != cache) acrx_abort(L"Class mismatch");
    return;
  }
  cache = AcRxRegistry::instance().add(form, callback);
  cache->bindCache(cache);
}

}  // namespace acrx
