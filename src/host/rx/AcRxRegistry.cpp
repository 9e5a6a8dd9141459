#include "host/rx/AcRxRegistry.h"

#include <memory>

namespace {

// Depths of classes whose place in the tree isn't known yet, and of those being placed.
constexpr int kUnsettled = -1;
constexpr int kSettling = -2;

std::wstring orEmpty(const ACHAR* text) {
  return text != nullptr ? text : L"";
}

}  // namespace

AcRxRegistry& AcRxRegistry::instance() {
  static AcRxRegistry* registry = nullptr;
  if (registry == nullptr) {
    // Set before it is filled: filling registers the dictionary's own class, which comes back here.
    registry = new AcRxRegistry;
    registry->fill();
  }
  return *registry;
}

void AcRxRegistry::fill() {
  Adesk::UInt32 id = 0;
  system_.atPut(ACRX_CLASS_DICTIONARY, &classes_, id);
  root_ = add({L"AcRxObject", L"", 0, 0, 0, nullptr, nullptr, nullptr}, nullptr);
  classClass_ = add({L"AcRxClass", L"AcRxObject", 0, 0, 0, nullptr, nullptr, nullptr}, nullptr);
  AcRxDictionary::rxInit();
}

template <class Visitor>
void AcRxRegistry::forEachClass(Visitor visit) const {
  const std::unique_ptr<AcRxDictionaryIterator> walk(classes_.newIterator());
  for (; !walk->done(); walk->next()) visit(static_cast<AcRxClass*>(walk->object()));
}

AcRxClass* AcRxRegistry::add(const acrx::ClassForm& form, AppNameChangeFuncPtr callback) {
  if (AcRxClass* known = find(form.name)) return known;
  auto* made = new AcRxClass;
  made->name_ = form.name;
  made->parentName_ = orEmpty(form.parentName);
  made->dwgVersion_ = form.dwgVersion;
  made->maintenanceVersion_ = form.maintenanceVersion;
  made->proxyFlags_ = form.proxyFlags;
  made->constructor_ = form.constructor;
  made->dxfName_ = orEmpty(form.dxfName);
  made->appName_ = orEmpty(form.appName);
  made->appNameCallback_ = callback;
  Adesk::UInt32 id = 0;
  classes_.atPut(form.name, made, id);
  made->setParent(find(made->parentName_.c_str()));

  bool isAwaited = false;
  forEachClass([&](const AcRxClass* each) {
    isAwaited = isAwaited || (each->parent_ == nullptr && each->parentName_ == made->name_);
  });
  if (isAwaited) tieParents();
  return made;
}

void AcRxRegistry::remove(AcRxClass* aClass) {
  if (find(aClass->name()) != aClass) return;
  classes_.remove(aClass->name());
  bool hasChildren = false;
  forEachClass([&](const AcRxClass* each) { hasChildren = hasChildren || each->parent_ == aClass; });
  if (hasChildren) tieParents();
  delete aClass;
}

void AcRxRegistry::tieParents() {
  forEachClass([&](AcRxClass* each) {
    each->parent_ = find(each->parentName_.c_str());
    each->depth_ = kUnsettled;
  });
  forEachClass([](AcRxClass* each) { settle(each); });
}

void AcRxRegistry::settle(AcRxClass* aClass) {
  if (aClass->depth_ != kUnsettled) return;
  aClass->depth_ = kSettling;
  AcRxClass* parent = aClass->parent_;
  if (parent != nullptr) settle(parent);
  // A class that turns up among its own ancestors can't have a parent there.
  aClass->setParent(parent != nullptr && parent->depth_ == kSettling ? nullptr : parent);
}

AcRxDictionary* acrxSysRegistry() {
  return &AcRxRegistry::instance().system();
}

AcRxDictionary* acrxClassDictionaryOf(AcRxDictionary* registry) {
  return AcRxDictionary::cast(registry->at(ACRX_CLASS_DICTIONARY));
}
