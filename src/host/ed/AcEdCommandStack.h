#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/ed/AcEdCommand.h"

class AcEdUIContext;

/// The registered commands, in groups; the group used or added last is sought first. Names don't mind case. One stack
/// lives under "ACAD_REGISTERED_COMMANDS" in acrxSysRegistry.
class AcEdCommandStack : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcEdCommandStack);

  AcEdCommandStack();
  ~AcEdCommandStack() override;
  AcEdCommandStack(const AcEdCommandStack&) = delete;
  AcEdCommandStack& operator=(const AcEdCommandStack&) = delete;

  /// Adds a command to a group, making the group when new. eInvalidInput for a missing name or function,
  /// eDuplicateKey when the group has a command of that global or local name.
  Acad::ErrorStatus addCommand(const ACHAR* group, const ACHAR* globalName, const ACHAR* localName, Adesk::Int32 flags,
                               AcRxFunctionPtr function, AcEdUIContext* context = nullptr, int fcode = -1,
                               void* resources = nullptr, AcEdCommand** added = nullptr);

  /// The first command of that name in the order of the groups; null when there is none.
  AcEdCommand* lookupGlobalCmd(const ACHAR* name) const;
  AcEdCommand* lookupLocalCmd(const ACHAR* name) const;
  /// By global name or by local name, in all groups.
  AcEdCommand* lookupCmd(const ACHAR* name, bool globalLookup) const;
  AcEdCommand* lookupCmd(const ACHAR* name, bool globalLookup, const ACHAR* group) const;

  /// eKeyNotFound when the group, or the command in it, doesn't exist.
  Acad::ErrorStatus removeCmd(const ACHAR* group, const ACHAR* globalName);
  Acad::ErrorStatus removeGroup(const ACHAR* group);
  Acad::ErrorStatus popGroupToTop(const ACHAR* group);

  /// All commands, group by group in the order of search.
  std::vector<const AcEdCommand*> commands() const;

  /// The command that a typed name means: `_` in front asks for the global name, a dot and an apostrophe are passed
  /// over; a local name goes before a global one. Null when there is none.
  AcEdCommand* find(std::wstring_view typed) const;

 private:
  struct Group {
    std::wstring name;
    std::vector<std::unique_ptr<AcEdCommand>> commands;
  };
  Group* group(std::wstring_view name);
  const Group* group(std::wstring_view name) const;

  std::vector<Group> m_groups;  ///< the first is sought first
};

/// The registered commands.
AcEdCommandStack* acedRegisteredCommands();
#define acedRegCmds acedRegisteredCommands()

namespace edhost {

/// How a command came to its end.
enum class CommandEnd { Done, Cancelled, Failed, Unknown };

/// Runs a command by the name a person would type, as one step of undo in the current document, telling the editor's
/// reactors. Cancelled when a prompt in it was cancelled and the command left it there; its changes are taken back only
/// by undo. Failed when an exception came out of it, which is reported and goes no further. Unknown (with a message)
/// when there is no such command.
CommandEnd runCommand(std::wstring_view name);

/// Runs the lines of a script from the prompts' queue: each line that no command asks for is a command's name.
/// False when a command was unknown or failed; the rest is run all the same.
bool runQueue();

}  // namespace edhost
