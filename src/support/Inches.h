#pragma once

/// Lengths in inches.

/// inteiro + numerador / denominador, the division in floating point. In spite of its name the function converts
/// nothing to millimetres: the result is in inches, and callers rely on that.
double InchToMM(int inteiro, int numerador, int denominador);

/// Writes a length given in millimetres as inches with a fraction, to the nearest of the fractions with denominator 2,
/// 4, 8, 16 or 32: 28.575 gives "1 1/8". What is left over below 1/32 of an inch is dropped, so that a length under it
/// gives an empty text, and a fraction is never rounded up to a whole inch. A non-zero aspas ends the text in a double
/// quote. saida must have room for 32 characters. A length that isn't finite or doesn't fit an int counts as 0.
void FormatInInches(double mm, wchar_t* saida, int aspas);
