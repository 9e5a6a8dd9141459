#include "host/db/db.h"
#include "host/ed/ed.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcEdCommand, AcRxObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcEdCommandStack, AcRxObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcEditorReactor, AcRxObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcEditor, AcRxObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcApDocument, AcRxObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcApDocManager, AcRxObject)

// The editor's objects are made at first use and never destroyed: modules reach for them until the process ends.

AcEdCommandStack* acedRegisteredCommands() {
  static auto* const stack = new AcEdCommandStack;
  return stack;
}

AcEditor* acedEditorObject() {
  static auto* const editor = new AcEditor;
  return editor;
}

AcApDocManager* acDocManagerPtr() {
  static auto* const manager = new AcApDocManager;
  return manager;
}

namespace {

// At load, so that a module finds the services under their names whoever started the program.
[[maybe_unused]] const bool kRegistered = [] {
  AcEdCommand::rxInit();
  AcEdCommandStack::rxInit();
  AcEditorReactor::rxInit();
  AcEditor::rxInit();
  AcApDocument::rxInit();
  AcApDocManager::rxInit();
  acrxBuildClassHierarchy();
  Adesk::UInt32 id = 0;
  acrxSysRegistry()->atPut(L"ACAD_REGISTERED_COMMANDS", acedRegisteredCommands(), id);
  acrxSysRegistry()->atPut(L"AcEditor", acedEditorObject(), id);
  return true;
}();

}  // namespace
