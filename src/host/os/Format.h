#pragma once

#include <cstdarg>
#include <string>

namespace os {

/// Appends formatted text to `out`, never by locale. Conversions: d i u o x X c s p e E f F g G a A and %%, with flags,
/// width, precision and '*'. %s and %c take wide text, %hs, %hc, %S and %C narrow (UTF-8); lengths h hh l ll w j z t L
/// I32 I64 I. A null text prints as "(null)". A conversion that isn't one prints the character after the percent sign
/// and reads no argument; a format that ends inside a conversion prints nothing more and reads no argument for it.
void formatWide(std::wstring& out, const wchar_t* format, std::va_list arguments);

/// As above, into a new text.
std::wstring formatted(const wchar_t* format, ...);

}  // namespace os

/// Formats into a buffer of `capacity` characters, always ended; returns the length, or -1 when the text was cut.
int _snwprintf(wchar_t* buffer, std::size_t capacity, const wchar_t* format, ...);
