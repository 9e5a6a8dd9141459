#include "frame/KrAcEditorReactor.h"

#include <string>

namespace {

// The bit of "cmdactive" for a script or an automatic action; alone, nothing else is active.
constexpr short kOnlyScriptActive = 32;

constexpr const wchar_t* kAutosaveConflict =
    L"Ocorreu, provavelmente, um conflito entre \"AUTOSAVE\" e \"KRTRAMA\".\n"
    L"Se este problema persistir, sugere-se um incremento no tempo entre salvamentos automáticos \n"
    L"ou a até mesmo a desabilitação da ferramenta \"AUTOSAVE\".";

bool runsNoNamedCommand() {
  resbuf names{};
  if (acedGetVar(L"cmdnames", &names) != RTNORM || names.restype != RTSTR) return false;
  const bool isEmpty = names.resval.rstring == nullptr || names.resval.rstring[0] == 0;
  acutDelString(names.resval.rstring);
  return isEmpty;
}

bool runsScriptOnly() {
  resbuf active{};
  return acedGetVar(L"cmdactive", &active) == RTNORM && active.resval.rint == kOnlyScriptActive;
}

}  // namespace

void KrAcEditorReactor::beginSave(AcDbDatabase* /*database*/, const ACHAR* /*intendedName*/) {
  if (runsNoNamedCommand() && runsScriptOnly()) acedAlert(kAutosaveConflict);
}
