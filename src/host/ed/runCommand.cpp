#include <exception>

#include "host/db/db.h"
#include "host/ed/ed.h"
#include "host/ed/promptState.h"
#include "host/os/os.h"

namespace {

/// What marks a command as running, for as long as it lives.
class RunningCommand {
 public:
  explicit RunningCommand(const std::wstring& name)
      : m_formerNames(edhost::varText(L"CMDNAMES")), m_formerActive(edhost::varInt(L"CMDACTIVE")) {
    constexpr int kOrdinaryCommand = 1;
    edhost::setVarInternally(L"CMDNAMES", m_formerNames.empty() ? name : m_formerNames + L"'" + name);
    edhost::setVarInternally(L"CMDACTIVE", m_formerActive | kOrdinaryCommand);
    edhost::setVarInternally(L"ERRNO", 0);
  }
  ~RunningCommand() {
    edhost::setVarInternally(L"CMDNAMES", m_formerNames);
    edhost::setVarInternally(L"CMDACTIVE", m_formerActive);
  }
  RunningCommand(const RunningCommand&) = delete;
  RunningCommand& operator=(const RunningCommand&) = delete;
  bool isOuter() const { return m_formerActive == 0; }

 private:
  std::wstring m_formerNames;
  int m_formerActive;
};

/// Whether the function came to its end. An exception stops here: no interface lets one through.
bool called(AcRxFunctionPtr function, const std::wstring& name) {
  try {
    function();
    return true;
  } catch (const std::exception& error) {
    edhost::writeAlert(name + L": " + os::toWide(error.what()));
  } catch (...) {
    edhost::writeAlert(name + L": unknown failure");
  }
  return false;
}

}  // namespace

namespace edhost {

CommandEnd runCommand(std::wstring_view typed) {
  AcEditor* const editor = acedEditorObject();
  const AcEdCommand* const command = acedRegisteredCommands()->find(typed);
  if (command == nullptr) {
    const std::wstring name(typed);
    editor->tell(&AcEditorReactor::unknownCommand, name.c_str());
    writeConsole(L"\nUnknown command \"" + name + L"\".");
    return CommandEnd::Unknown;
  }
  // The command may remove itself while it runs.
  const std::wstring name = command->globalName();
  const AcRxFunctionPtr function = command->functionAddr();
  const RunningCommand running(name);
  AcDbDatabase* const database = acdbHostApplicationServices()->workingDatabase();
  if (running.isOuter()) {
    promptState().cancelled = false;
    if (database != nullptr && database->undoRecording()) database->startUndoRecord();
  }
  editor->tell(&AcEditorReactor::commandWillStart, name.c_str());
  const bool finished = called(function, name);
  promptState().init = {};
  if (!finished) {
    editor->tell(&AcEditorReactor::commandFailed, name.c_str());
    return CommandEnd::Failed;
  }
  const bool cancelled = promptState().cancelled;
  editor->tell(cancelled ? &AcEditorReactor::commandCancelled : &AcEditorReactor::commandEnded, name.c_str());
  return cancelled ? CommandEnd::Cancelled : CommandEnd::Done;
}

bool runQueue() {
  bool fine = true;
  while (!promptQueue().empty()) {
    const std::optional<PromptAnswer> answer = promptQueue().next(L"\nCommand: ");
    if (!answer || answer->kind != PromptAnswer::Kind::Text || answer->text.empty()) continue;
    const CommandEnd end = runCommand(answer->text);
    fine = fine && end != CommandEnd::Unknown && end != CommandEnd::Failed;
  }
  return fine;
}

}  // namespace edhost
