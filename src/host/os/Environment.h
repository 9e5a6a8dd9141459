#pragma once

/// The value of an environment variable as wide text, or null when it isn't set. The text lasts until the next call for
/// the same variable finds another value.
const wchar_t* _wgetenv(const wchar_t* name);
