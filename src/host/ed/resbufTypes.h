#pragma once

#include <cstdarg>

#include "host/db/resbuf.h"

namespace edhost {

/// Which member of ads_u_val a type of value uses.
enum class ValueKind { Unknown, None, Real, Point, Short, Long, Int64, Text, Name, Binary };

/// For an RT code or a group code of the exchange format.
ValueKind valueKind(int type);
/// For a group code alone.
ValueKind groupCodeKind(int code);

/// A variable argument list that functions can share.
struct ArgumentList {
  std::va_list arguments;
};

/// The chain of pairs of type and value that acutBuildList and acedCommand take; null when empty or ill-formed.
resbuf* buildList(int type, ArgumentList& list);
/// One link of that type with its value taken from the list; null for an unknown type.
resbuf* nextArgument(int type, ArgumentList& list);

}  // namespace edhost
