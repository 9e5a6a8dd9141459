#pragma once

#include "host/companion/companion.h"
#include "host/rx/rx.h"

extern "C" {

/// The module's entry: starts it, unloads it, and adds its database reactor to a drawing that is opened, as the message
/// tells. The answer is kRetOK in every case.
AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* appId);

/// Plain module glue: the version of the interface that the module was built for, and the module's object (a new one,
/// owned by the caller).
int acrxGetApiVersion();
void odrxGetAPIVersion(int& major, int& minor);
AcRxObject* odrxCreateModuleObject(const ACHAR* moduleName);
}

class KrAcDbDatabaseReactor;
class KrAcEditorReactor;

/// The module's reactors; null unless it has been started.
KrAcDbDatabaseReactor* getKrAcDbDatabaseReactor();
KrAcEditorReactor* getKrAcEditorReactor();

/// The module's centre of settings; null unless the module has been started.
KrConfigCenter* getKrConfigCenter();
