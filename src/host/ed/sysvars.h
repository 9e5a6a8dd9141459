#pragma once

#include <string>
#include <vector>

#include "host/db/resbuf.h"

/// Reads a system variable. `value` gets its type (RTSHORT, RTLONG, RTREAL, RTSTR, RTPOINT or RT3DPOINT) and value;
/// text is a copy that acutDelString frees. Names don't mind case. RTERROR for an unknown name.
int acedGetVar(const wchar_t* name, resbuf* value);

/// Sets a system variable. An integer is taken for a real and the other way round where it is whole. RTERROR for an
/// unknown name, a read-only variable, a value of another type or one out of range.
int acedSetVar(const wchar_t* name, const resbuf* value);

namespace edhost {

/// Where a variable lives: with the session, with the drawing (written to its file), or nowhere (worked out).
enum class VarHome { Session, Drawing, Computed };

struct SysVarInfo {
  std::wstring name;
  short type;  ///< RTSHORT, RTLONG, RTREAL, RTSTR, RTPOINT or RT3DPOINT
  VarHome home;
  bool readOnly;
  double low;  ///< range of numbers, ends included
  double high;
};

/// All variables, by name.
std::vector<SysVarInfo> sysVars();

/// Shorthands over the services above; a missing variable is a program error there, and gives 0 or the empty text.
int varInt(const wchar_t* name);
double varReal(const wchar_t* name);
std::wstring varText(const wchar_t* name);

/// Sets a variable that commands may only read (CMDNAMES, ERRNO, DWGNAME, ...).
void setVarInternally(const wchar_t* name, int value);
void setVarInternally(const wchar_t* name, const std::wstring& value);

}  // namespace edhost
