#include "support/NumberText.h"

#include <cmath>

#include "host/ed/ed.h"
#include "host/os/os.h"

namespace {

/// As much as the longest decimal of a double needs.
constexpr int kRoom = 400;
constexpr int kDecimals = 2;

wchar_t* emptyBuffer() {
  static wchar_t buffer[kRoom];
  buffer[0] = L'\0';
  return buffer;
}

}  // namespace

wchar_t* FormatInString(int valor) {
  wchar_t* text = emptyBuffer();
  if (valor != 0) _itow(valor, text, 10);
  return text;
}

wchar_t* FormatInString(double valor) {
  wchar_t* text = emptyBuffer();
  if (valor == 0.0) return text;
  const bool whole = valor == std::floor(valor);
  acdbRToS(valor, kLinearDecimal, whole ? 0 : kDecimals, text);
  return text;
}

wchar_t* FormatInString(double* valor) {
  return FormatInString(valor == nullptr ? 0.0 : *valor);
}
