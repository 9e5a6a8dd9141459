#include "frame/Module.h"

#include <memory>
#include <span>
#include <string>

#include "frame/ClassTable.h"
#include "frame/Commands.h"
#include "frame/KrAcDbDatabaseReactor.h"
#include "frame/KrAcEditorReactor.h"
#include "host/db/db.h"
#include "host/ed/ed.h"
#include "host/os/os.h"
#include "object/KrObject.h"
#include "support/InstallFolder.h"
#include "support/SideLibrary.h"

namespace {

// The interface's version at which the module was made.
constexpr int kInterfaceMajor = 17;
constexpr int kInterfaceMinor = 1;

// Owned here from start to unload. Plain pointers, since nothing must happen to them at the end of the process.
KrConfigCenter* configCenter = nullptr;
KrAcDbDatabaseReactor* databaseReactor = nullptr;
KrAcEditorReactor* editorReactor = nullptr;

template <class T>
void destroy(T*& object) {
  delete object;
  object = nullptr;
}

void loadProfileNames() {
  auto* names = new KrConfigSection(L"ObjNames");
  KrObject::SetNamesList(names);
  if (const wchar_t* folder = installFolder()) names->Load(os::formatted(L"%s\\support\\ObjNames.krn", folder).c_str());
}

void removeProfileNames() {
  const KrConfigSection* names = KrObject::GetNamesList();
  KrObject::SetNamesList(nullptr);
  delete names;
}

// Visits the databases of all open documents; false when the documents can't be walked.
template <class Visitor>
bool forEachDatabase(Visitor visit) {
  const std::unique_ptr<AcApDocumentIterator> documents(acDocManagerPtr()->newAcApDocumentIterator());
  if (documents == nullptr) return false;
  for (; !documents->done(); documents->step()) visit(*documents->document()->database());
  return true;
}

// What the host's glue holds of a module: its name.
class ModuleObject : public AcRxObject {
 public:
  explicit ModuleObject(const ACHAR* name) : name_(name != nullptr ? name : L"") {}

 private:
  std::wstring name_;
};

AcEditor* editor() {
  return AcEditor::cast(acrxSysRegistry()->at(L"AcEditor"));
}

AcEdCommandStack* commandStack() {
  return AcEdCommandStack::cast(acrxSysRegistry()->at(L"ACAD_REGISTERED_COMMANDS"));
}

void start() {
  for (const ModuleClass& each : moduleClasses()) each.rxInit();
  acrxBuildClassHierarchy();
  loadProfileNames();
  bindSideLibrary();
  databaseReactor = new KrAcDbDatabaseReactor;
  if (!forEachDatabase([](AcDbDatabase& database) { database.addReactor(databaseReactor); })) return;
  editorReactor = new KrAcEditorReactor;
  editor()->addReactor(editorReactor);
  configCenter = new KrConfigCenter;
  registerCommands(*commandStack());
  registerMaintenanceCommands(*commandStack());
}

void unload() {
  const std::span<const ModuleClass> classes = moduleClasses();
  for (auto each = classes.rbegin(); each != classes.rend(); ++each) deleteAcRxClass(each->desc());
  removeProfileNames();
  destroy(configCenter);
  if (!forEachDatabase([](AcDbDatabase& database) { database.removeReactor(databaseReactor); })) return;
  destroy(databaseReactor);
  if (editorReactor != nullptr) {
    editor()->removeReactor(editorReactor);
    destroy(editorReactor);
  }
  removeCommands(*commandStack());
  removeMaintenanceCommands(*commandStack());
  releaseSideLibrary();
}

void loadDrawing() {
  AcDbDatabase* database = acdbHostApplicationServices()->workingDatabase();
  if (database != nullptr && databaseReactor != nullptr) database->addReactor(databaseReactor);
}

void unloadDrawing() {
  AcDbDatabase* database = acdbHostApplicationServices()->workingDatabase();
  if (database != nullptr) database->removeReactor(databaseReactor);
}

}  // namespace

AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* appId) {
  switch (message) {
    case AcRx::kInitAppMsg:
      acrxUnlockApplication(appId);
      acrxRegisterAppMDIAware(appId);
      start();
      break;
    case AcRx::kUnloadAppMsg:
      unload();
      break;
    case AcRx::kLoadDwgMsg:
      loadDrawing();
      break;
    case AcRx::kUnloadDwgMsg:
      unloadDrawing();
      break;
    default:
      break;
  }
  return AcRx::kRetOK;
}

int acrxGetApiVersion() {
  return kInterfaceMajor;
}

void odrxGetAPIVersion(int& major, int& minor) {
  major = kInterfaceMajor;
  minor = kInterfaceMinor;
}

AcRxObject* odrxCreateModuleObject(const ACHAR* moduleName) {
  return new ModuleObject(moduleName);
}

KrAcDbDatabaseReactor* getKrAcDbDatabaseReactor() {
  return databaseReactor;
}

KrAcEditorReactor* getKrAcEditorReactor() {
  return editorReactor;
}

KrConfigCenter* getKrConfigCenter() {
  return configCenter;
}
