#include "host/io/dwg/RecordFields.h"

#include <algorithm>

namespace krio::dwg {

namespace {

using Linetype = AcDbLinetypeTableRecord;

bool hasText(const Linetype::Dash& dash) {
  return (dash.flags & Linetype::Dash::kText) != 0;
}

}  // namespace

std::vector<std::uint8_t> stringArea(const Linetype::Data& data, const os::CodePage& page,
                                     std::vector<Adesk::Int16>& places) {
  places.clear();
  std::vector<std::uint8_t> area(kStringAreaBytes);
  const bool asRead = data.stringArea.size() == kStringAreaBytes;
  if (asRead) area = data.stringArea;
  std::size_t used = 0;
  for (const Linetype::Dash& dash : data.dashes) {
    places.push_back(dash.shape);
    if (asRead || !hasText(dash)) continue;
    const std::string text = page.encode(dash.text);
    // Each text ends with a zero byte. What doesn't fit is cut.
    const std::size_t length = std::min(text.size(), kStringAreaBytes - 1 - std::min(used, kStringAreaBytes - 1));
    places.back() = Adesk::Int16(used);
    std::copy_n(text.begin(), length, area.begin() + std::ptrdiff_t(used));
    used = std::min(used + length + 1, kStringAreaBytes - 1);
  }
  return area;
}

void takeTexts(Linetype::Data& data, const os::CodePage& page) {
  // An area of zeros alone says nothing.
  if (std::all_of(data.stringArea.begin(), data.stringArea.end(), [](auto byte) { return byte == 0; })) {
    data.stringArea.clear();
  }
  for (Linetype::Dash& dash : data.dashes) {
    if (!hasText(dash) || dash.shape < 0 || std::size_t(dash.shape) >= data.stringArea.size()) continue;
    const auto first = data.stringArea.begin() + dash.shape;
    dash.text = page.decode(std::string(first, std::find(first, data.stringArea.end(), 0)));
  }
}

}  // namespace krio::dwg
