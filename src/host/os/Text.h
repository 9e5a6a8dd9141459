#pragma once

#include <string>
#include <string_view>

namespace os {

/// Whether the bytes are well-formed UTF-8 (no overlong forms, no surrogates, nothing above U+10FFFF).
bool isUtf8(std::string_view bytes);

/// UTF-8 to wide text. Text that isn't well-formed UTF-8 is read whole as Windows-1252, so no byte is ever refused.
std::wstring toWide(std::string_view bytes);

/// Wide text to UTF-8. A value that is no character becomes U+FFFD.
std::string toUtf8(std::wstring_view text);

/// Order without regard to case, for the letters of Latin text (accented ones too): negative, 0 or positive.
int compareNoCase(std::wstring_view a, std::wstring_view b);

/// The character in lower case, by the Unicode tables of the common scripts and never by locale.
wchar_t lowerCase(wchar_t c);
wchar_t upperCase(wchar_t c);

}  // namespace os

/// Order without regard to case: negative, 0 or positive.
int _wcsicmp(const wchar_t* a, const wchar_t* b);

/// The whole number at the start of the text, leading blanks passed over; 0 when there is none. Values beyond an int
/// stop at its limits.
int _wtoi(const wchar_t* text);

/// The decimal number at the start of the text, always with a point; 0 when there is none.
double _wtof(const wchar_t* text);

/// Writes `value` in the given base (2 to 36) and returns `buffer`, which must have room for 33 characters.
wchar_t* _itow(int value, wchar_t* buffer, int base);

/// The next token of a text: runs of separators count as one. Null for `text` goes on with the text of the call
/// before. Null when no token is left. Writes into the text.
wchar_t* wcstok(wchar_t* text, const wchar_t* separators);
