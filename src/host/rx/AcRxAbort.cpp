#include "host/rx/AcRxAbort.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "host/os/Format.h"
#include "host/os/Text.h"

namespace {

void printAndAbort(const ACHAR* message) {
  std::fprintf(stderr, "%s\n", os::toUtf8(message).c_str());
  std::abort();
}

AcRxAbortHandler currentHandler = printAndAbort;

}  // namespace

void acrx_abort(const ACHAR* format, ...) {
  std::wstring message;
  va_list arguments;
  va_start(arguments, format);
  os::formatWide(message, format, arguments);
  va_end(arguments);
  currentHandler(message.c_str());
}

AcRxAbortHandler acrxSetAbortHandler(AcRxAbortHandler handler) {
  const AcRxAbortHandler before = currentHandler;
  currentHandler = handler != nullptr ? handler : printAndAbort;
  return before;
}
