#pragma once

/// Cuts the text at its first character that is one of `characters`, and returns it. A text that has none stays whole.
wchar_t* CloseInChar(wchar_t* text, const wchar_t* characters);
