#include "host/io/dwg/CodePages.h"

#include <array>

namespace krio::dwg {

const os::CodePage& codePageOf(std::uint16_t number) {
  static constexpr std::array kNames = {
      "",           "ASCII",      "ISO-8859-1", "ISO-8859-2", "ISO-8859-3", "ISO-8859-4", "ISO-8859-5", "ISO-8859-6",
      "ISO-8859-7", "ISO-8859-8", "ISO-8859-9", "CP437",      "CP850",      "CP852",      "CP855",      "CP857",
      "CP860",      "CP861",      "CP863",      "CP864",      "CP865",      "CP869",      "CP932",      "MACINTOSH",
      "BIG5",       "CP949",      "JOHAB",      "CP866",      "CP1250",     "CP1251",     "CP1252",     "GB2312",
      "CP1253",     "CP1254",     "CP1255",     "CP1256",     "CP1257",     "CP874",      "CP932",      "CP936",
      "CP949",      "CP950",      "JOHAB",      "",           "CP1258"};
  return os::CodePage::named(number < kNames.size() ? kNames[number] : "");
}

}  // namespace krio::dwg
