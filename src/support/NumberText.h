#pragma once

/// The number as text, in a buffer of the module that the next call overwrites: copy it at once. 0 gives an empty text,
/// so that a dimension of zero prints as nothing. A whole number has no decimals, any other has two. A null pointer
/// counts as 0.
wchar_t* FormatInString(int valor);
wchar_t* FormatInString(double valor);
wchar_t* FormatInString(double* valor);
