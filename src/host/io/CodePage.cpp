#include "host/io/CodePage.h"

#include <algorithm>
#include <cctype>
#include <iterator>

#include "host/os/os.h"

namespace krio {

namespace {

/// A code page as the two formats and the system's converter name it.
struct PageName {
  int number;
  std::string_view name;
  const char* converter;
};

constexpr PageName kPages[] = {
    {1, "ASCII", "ASCII"},          {2, "ISO8859-1", "ISO8859-1"},  {3, "ISO8859-2", "ISO8859-2"},
    {4, "ISO8859-3", "ISO8859-3"},  {5, "ISO8859-4", "ISO8859-4"},  {6, "ISO8859-5", "ISO8859-5"},
    {7, "ISO8859-6", "ISO8859-6"},  {8, "ISO8859-7", "ISO8859-7"},  {9, "ISO8859-8", "ISO8859-8"},
    {10, "ISO8859-9", "ISO8859-9"}, {11, "DOS437", "CP437"},        {12, "DOS850", "CP850"},
    {13, "DOS852", "CP852"},        {14, "DOS855", "CP855"},        {15, "DOS857", "CP857"},
    {16, "DOS860", "CP860"},        {17, "DOS861", "CP861"},        {18, "DOS863", "CP863"},
    {19, "DOS864", "CP864"},        {20, "DOS865", "CP865"},        {21, "DOS869", "CP869"},
    {22, "DOS932", "CP932"},        {23, "MACINTOSH", "MACINTOSH"}, {24, "BIG5", "BIG5"},
    {25, "KSC5601", "CP949"},       {26, "JOHAB", "JOHAB"},         {27, "DOS866", "CP866"},
    {28, "ANSI_1250", "CP1250"},    {29, "ANSI_1251", "CP1251"},    {30, "ANSI_1252", "CP1252"},
    {31, "GB2312", "CP936"},        {32, "ANSI_1253", "CP1253"},    {33, "ANSI_1254", "CP1254"},
    {34, "ANSI_1255", "CP1255"},    {35, "ANSI_1256", "CP1256"},    {36, "ANSI_1257", "CP1257"},
    {37, "ANSI_874", "CP874"},      {38, "ANSI_932", "CP932"},      {39, "ANSI_936", "CP936"},
    {40, "ANSI_949", "CP949"},      {41, "ANSI_950", "CP950"},      {42, "ANSI_1361", "JOHAB"},
    {44, "ANSI_1258", "CP1258"},
};

bool sameName(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
    return std::toupper(static_cast<unsigned char>(x)) == std::toupper(static_cast<unsigned char>(y));
  });
}

}  // namespace

CodePage::CodePage() : page_(&os::CodePage::named("CP1252")) {}

CodePage CodePage::numbered(int number) {
  CodePage page;
  page.number_ = number;
  page.name_.clear();
  for (const PageName& known : kPages) {
    if (known.number != number) continue;
    page.name_ = known.name;
    page.page_ = &os::CodePage::named(known.converter);
  }
  return page;
}

CodePage CodePage::named(std::string_view name) {
  for (const PageName& known : kPages) {
    if (sameName(known.name, name)) return numbered(known.number);
  }
  CodePage page;
  page.number_ = 0;
  page.name_ = name;
  page.isUtf8_ = sameName(name, "UTF-8") || sameName(name, "UTF8");
  return page;
}

std::wstring CodePage::decode(std::string_view bytes) const {
  if (!isUtf8_) return page_->decode(bytes);
  // Escapes stand in UTF-8 too: read as a page whose letters all are escaped, they come out as what they name.
  return page_->decode(page_->encode(os::toWide(bytes)));
}

}  // namespace krio
