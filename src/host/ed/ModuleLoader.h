#pragma once

#include <string>
#include <vector>

#include "host/rx/rx.h"

/// The entry point of a module: acrxEntryPoint.
using AcRxEntryFunction = AcRx::AppRetCode (*)(AcRx::AppMsgCode message, void* appId);

namespace edhost {

/// Loads a module by the path of its shared object (a bare name is sought beside the program), calls its exported
/// acrxEntryPoint with kInitAppMsg, and with kLoadDwgMsg when a document is open. The result is its appId, null on
/// failure: no such file, no entry point, or an entry that answers kRetError. `why` tells which.
void* loadModule(const wchar_t* path, std::wstring* why = nullptr);

/// The same for a module that is linked in.
void* loadModule(const wchar_t* name, AcRxEntryFunction entry);

/// Sends kUnloadAppMsg and lets go of the shared object. eKeyNotFound for an appId that isn't loaded,
/// eCannotBeErasedByCaller for a module that hasn't called acrxUnlockApplication.
Acad::ErrorStatus unloadModule(void* appId);

/// Sends a message to the modules that said they know several documents, in the order they were loaded.
void tellModules(AcRx::AppMsgCode message);

/// Names of the loaded modules, in that order.
std::vector<std::wstring> loadedModules();

}  // namespace edhost

/// Loads a module by path. RTNORM, or RTERROR.
int acedArxLoad(const wchar_t* path);
/// Unloads it by the path it was loaded with.
int acedArxUnload(const wchar_t* path);
