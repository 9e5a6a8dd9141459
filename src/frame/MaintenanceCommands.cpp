// Tools for whoever looks after drawings.

#include "frame/Commands.h"
#include "host/ed/ed.h"

namespace {

constexpr const wchar_t* kToolGroup = L"KR_OBJECTS_DBGTOOLS";
constexpr const wchar_t* kSampleGroup = L"KR__OBJECT_TESTE";

}  // namespace

// Neither group has commands yet; their places in the order of start and unload are held.
void registerMaintenanceCommands(AcEdCommandStack& /*stack*/) {}

void removeMaintenanceCommands(AcEdCommandStack& stack) {
  stack.removeGroup(kSampleGroup);
  stack.removeGroup(kToolGroup);
}
