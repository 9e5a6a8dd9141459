#include "support/Inches.h"

#include <cmath>
#include <cwchar>
#include <limits>

double InchToMM(int inteiro, int numerador, int denominador) {
  return inteiro + static_cast<double>(numerador) / denominador;
}

namespace {

constexpr double kMillimetresOfAnInch = 25.4;
/// 1/32 of an inch: the smallest fraction written.
constexpr double kSmallestFraction = 0.03125;
constexpr int kRoom = 32;

struct Fraction {
  int numerator = 0;
  int denominator = 1;
};

/// The written fraction closest to part; the first found wins a tie. A numerator that divides its denominator is left
/// out, unless it is 1: the fraction has been tried with a smaller denominator. 0 for a part that is dropped.
Fraction closestFraction(double part) {
  Fraction best;
  if (part < kSmallestFraction) return best;
  double bestMiss = std::numeric_limits<double>::infinity();
  for (int denominator = 2; denominator <= 32; denominator *= 2) {
    for (int numerator = 1; numerator < denominator; ++numerator) {
      if (numerator != 1 && denominator % numerator == 0) continue;
      const double miss = std::fabs(part - static_cast<double>(numerator) / denominator);
      if (miss >= bestMiss) continue;
      bestMiss = miss;
      best = {numerator, denominator};
    }
  }
  return best;
}

}  // namespace

void FormatInInches(double mm, wchar_t* saida, int aspas) {
  const double inches = mm / kMillimetresOfAnInch;
  const bool fits = std::fabs(inches) < std::numeric_limits<int>::max();
  const int whole = fits ? static_cast<int>(inches) : 0;
  const Fraction fraction = closestFraction(fits ? inches - whole : 0.0);

  wchar_t wholeText[kRoom] = L"";
  wchar_t fractionText[kRoom] = L"";
  if (whole != 0) std::swprintf(wholeText, kRoom, L"%d", whole);
  if (fraction.numerator != 0) {
    std::swprintf(fractionText, kRoom, L"%d/%d", fraction.numerator, fraction.denominator);
  }
  const wchar_t* gap = whole != 0 && fraction.numerator != 0 ? L" " : L"";
  std::swprintf(saida, kRoom, L"%ls%ls%ls%ls", wholeText, gap, fractionText, aspas != 0 ? L"\"" : L"");
}
