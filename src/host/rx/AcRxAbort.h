#pragma once

#include "host/rx/AdeskTypes.h"

/// Receives the text of an abort. When it returns, so does acrx_abort.
using AcRxAbortHandler = void (*)(const ACHAR* message);

/// Ends the program with a message formatted as the host formats wide text (%s takes wide text), unless a handler is
/// set, which is then called instead.
void acrx_abort(const ACHAR* format, ...);

/// Sets the handler of acrx_abort and returns the one before; null restores the default, which prints the message to
/// the standard error and aborts.
AcRxAbortHandler acrxSetAbortHandler(AcRxAbortHandler handler);
