#pragma once

#include <string>

#include "host/rx/rx.h"

/// What a command runs.
using AcRxFunctionPtr = void (*)();

/// Flags of a command.
inline constexpr Adesk::Int32 ACRX_CMD_MODAL = 0x0;
inline constexpr Adesk::Int32 ACRX_CMD_TRANSPARENT = 0x1;
inline constexpr Adesk::Int32 ACRX_CMD_USEPICKSET = 0x2;
inline constexpr Adesk::Int32 ACRX_CMD_REDRAW = 0x4;

/// A registered command. Owned by the stack.
class AcEdCommand : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcEdCommand);

  AcEdCommand(const ACHAR* group, const ACHAR* globalName, const ACHAR* localName, Adesk::Int32 flags,
              AcRxFunctionPtr function)
      : m_group(group), m_global(globalName), m_local(localName), m_flags(flags), m_function(function) {}

  AcRxFunctionPtr functionAddr() const { return m_function; }
  const ACHAR* globalName() const { return m_global.c_str(); }
  const ACHAR* localName() const { return m_local.c_str(); }
  const ACHAR* groupName() const { return m_group.c_str(); }
  Adesk::Int32 commandFlags() const { return m_flags; }

 private:
  std::wstring m_group;
  std::wstring m_global;
  std::wstring m_local;
  Adesk::Int32 m_flags;
  AcRxFunctionPtr m_function;
};
