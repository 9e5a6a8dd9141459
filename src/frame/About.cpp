#include "frame/About.h"

#include "object/KrTypes.h"

#define KR_WIDE_(text) L##text
#define KR_WIDE(text) KR_WIDE_(text)

namespace {

constexpr const wchar_t* kProductVersion = L"4.102";

}  // namespace

const About& about() {
  // The compiler takes both from SOURCE_DATE_EPOCH where that is set.
  static constexpr About data{kProductVersion, static_cast<int>(kKrObjectVersion), KR_WIDE(__DATE__),
                              KR_WIDE(__TIME__)};
  return data;
}
