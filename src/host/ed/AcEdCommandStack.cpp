#include "host/ed/AcEdCommandStack.h"

#include <algorithm>

#include "host/os/os.h"

namespace {

bool same(std::wstring_view a, std::wstring_view b) {
  return os::compareNoCase(a, b) == 0;
}

bool isMissing(const ACHAR* text) {
  return text == nullptr || *text == L'\0';
}

}  // namespace

AcEdCommandStack::AcEdCommandStack() = default;
AcEdCommandStack::~AcEdCommandStack() = default;

const AcEdCommandStack::Group* AcEdCommandStack::group(std::wstring_view name) const {
  for (const Group& candidate : m_groups) {
    if (same(candidate.name, name)) return &candidate;
  }
  return nullptr;
}

AcEdCommandStack::Group* AcEdCommandStack::group(std::wstring_view name) {
  return const_cast<Group*>(static_cast<const AcEdCommandStack*>(this)->group(name));
}

Acad::ErrorStatus AcEdCommandStack::addCommand(const ACHAR* groupName, const ACHAR* globalName, const ACHAR* localName,
                                               Adesk::Int32 flags, AcRxFunctionPtr function, AcEdUIContext*, int, void*,
                                               AcEdCommand** added) {
  if (isMissing(groupName) || isMissing(globalName) || function == nullptr) return Acad::eInvalidInput;
  if (isMissing(localName)) localName = globalName;
  Group* into = group(groupName);
  if (into == nullptr) {
    m_groups.insert(m_groups.begin(), Group{groupName, {}});
    into = &m_groups.front();
  }
  for (const auto& command : into->commands) {
    if (same(command->globalName(), globalName) || same(command->localName(), localName)) return Acad::eDuplicateKey;
  }
  into->commands.push_back(std::make_unique<AcEdCommand>(groupName, globalName, localName, flags, function));
  if (added != nullptr) *added = into->commands.back().get();
  return Acad::eOk;
}

AcEdCommand* AcEdCommandStack::lookupGlobalCmd(const ACHAR* name) const {
  return lookupCmd(name, true);
}

AcEdCommand* AcEdCommandStack::lookupLocalCmd(const ACHAR* name) const {
  return lookupCmd(name, false);
}

AcEdCommand* AcEdCommandStack::lookupCmd(const ACHAR* name, bool globalLookup) const {
  for (const Group& candidate : m_groups) {
    if (AcEdCommand* const command = lookupCmd(name, globalLookup, candidate.name.c_str())) return command;
  }
  return nullptr;
}

AcEdCommand* AcEdCommandStack::lookupCmd(const ACHAR* name, bool globalLookup, const ACHAR* groupName) const {
  const Group* const in = name != nullptr && groupName != nullptr ? group(groupName) : nullptr;
  if (in == nullptr) return nullptr;
  for (const auto& command : in->commands) {
    if (same(globalLookup ? command->globalName() : command->localName(), name)) return command.get();
  }
  return nullptr;
}

Acad::ErrorStatus AcEdCommandStack::removeCmd(const ACHAR* groupName, const ACHAR* globalName) {
  Group* const from = groupName != nullptr && globalName != nullptr ? group(groupName) : nullptr;
  if (from == nullptr) return Acad::eKeyNotFound;
  const auto removed =
      std::erase_if(from->commands, [&](const auto& command) { return same(command->globalName(), globalName); });
  return removed != 0 ? Acad::eOk : Acad::eKeyNotFound;
}

Acad::ErrorStatus AcEdCommandStack::removeGroup(const ACHAR* groupName) {
  if (groupName == nullptr) return Acad::eKeyNotFound;
  const auto removed = std::erase_if(m_groups, [&](const Group& candidate) { return same(candidate.name, groupName); });
  return removed != 0 ? Acad::eOk : Acad::eKeyNotFound;
}

Acad::ErrorStatus AcEdCommandStack::popGroupToTop(const ACHAR* groupName) {
  const auto found = std::find_if(m_groups.begin(), m_groups.end(), [&](const Group& candidate) {
    return groupName != nullptr && same(candidate.name, groupName);
  });
  if (found == m_groups.end()) return Acad::eKeyNotFound;
  std::rotate(m_groups.begin(), found, found + 1);
  return Acad::eOk;
}

std::vector<const AcEdCommand*> AcEdCommandStack::commands() const {
  std::vector<const AcEdCommand*> all;
  for (const Group& candidate : m_groups) {
    for (const auto& command : candidate.commands) all.push_back(command.get());
  }
  return all;
}

AcEdCommand* AcEdCommandStack::find(std::wstring_view typed) const {
  bool global = false;
  while (!typed.empty() && (typed.front() == L'_' || typed.front() == L'.' || typed.front() == L'\'')) {
    global = global || typed.front() == L'_';
    typed.remove_prefix(1);
  }
  const std::wstring name(typed);
  if (!global) {
    if (AcEdCommand* const command = lookupLocalCmd(name.c_str())) return command;
  }
  return lookupGlobalCmd(name.c_str());
}
