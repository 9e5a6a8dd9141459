#include "host/io/dwg/ValueBytes.h"

#include <algorithm>

#include "host/db/AcDbMemoryDxfFiler.h"

namespace krio::dwg {

namespace {

using Kind = AcDbDxfValueKind;

/// The forms that values have in an XRECORD.
enum class Form { None, Text, Point, Real, Int16, Int32, Int64, Byte, Binary, Handle };

Form xrecordForm(int code) {
  struct Band {
    int first, last;
    Form form;
  };
  static constexpr Band kBands[] = {
      {5, 5, Form::Handle},      {0, 9, Form::Text},         {10, 18, Form::Point},      {38, 59, Form::Real},
      {60, 79, Form::Int16},     {90, 99, Form::Int32},      {100, 102, Form::Text},     {105, 105, Form::Handle},
      {110, 112, Form::Point},   {140, 149, Form::Real},     {160, 169, Form::Int64},    {170, 179, Form::Int16},
      {210, 210, Form::Point},   {270, 279, Form::Int16},    {280, 299, Form::Byte},     {300, 309, Form::Text},
      {310, 319, Form::Binary},  {320, 369, Form::Handle},   {370, 379, Form::Int16},    {390, 399, Form::Handle},
      {400, 409, Form::Int16},   {410, 419, Form::Text},     {420, 429, Form::Int32},    {440, 459, Form::Int32},
      {460, 469, Form::Real},    {1004, 1004, Form::Binary}, {1005, 1005, Form::Handle}, {1000, 1009, Form::Text},
      {1010, 1013, Form::Point}, {1040, 1042, Form::Real},   {1070, 1070, Form::Int16},  {1071, 1071, Form::Int32}};
  for (const Band& band : kBands) {
    if (code >= band.first && code <= band.last) return band.form;
  }
  return Form::None;
}

/// A new link for a code whose value is of one of the kinds; null when it is of another.
resbuf* newLink(int code, std::initializer_list<Kind> kinds) {
  if (std::find(kinds.begin(), kinds.end(), acdbDxfValueKind(code)) == kinds.end()) return nullptr;
  return acutNewRb(code);
}

void setText(resbuf& link, const std::wstring& text) {
  acutNewString(text.c_str(), link.resval.rstring);
}

void setHandle(resbuf& link, std::uint64_t handle, ReadContext& context) {
  if (acdbDxfValueKind(link.restype) == Kind::kObjectId) {
    link.resval.rlname[0] = AcDbObjectId(context.resolve(handle)).asOldId();
    return;
  }
  ACHAR digits[AcDbHandle::kStrSize];
  AcDbHandle(handle).getIntoAsciiBuffer(digits);
  setText(link, digits);
}

std::uint64_t handleOf(const resbuf& link) {
  if (acdbDxfValueKind(link.restype) == Kind::kObjectId) {
    const AcDbObjectId id = AcDbObjectId().setFromOldId(Adesk::IntPtr(link.resval.rlname[0]));
    return id.isErased() ? 0 : id.handle().value();
  }
  return link.resval.rstring != nullptr ? AcDbHandle(link.resval.rstring).value() : 0;
}

std::string readBytes(BitReader& bits, std::size_t length) {
  std::string bytes;
  if (!bits.fits(length, 8)) return bytes;
  bytes.resize(length);
  bits.bytes(bytes.data(), length);
  return bytes;
}

void setBinary(resbuf& link, const std::string& bytes) {
  link.resval.rbinary.clen = short(bytes.size());
  link.resval.rbinary.buf = new char[std::max<std::size_t>(bytes.size(), 1)];
  std::copy(bytes.begin(), bytes.end(), link.resval.rbinary.buf);
}

std::wstring cutAtZero(const os::CodePage& page, std::string_view bytes) {
  return page.decode(bytes.substr(0, bytes.find('\0')));
}

/// A text's length in bytes has `lengthBytes`; what is longer is cut.
bool cut(std::string& bytes, std::size_t most) {
  if (bytes.size() <= most) return false;
  bytes.resize(most);
  return true;
}

const wchar_t* textOf(const resbuf& link) {
  return link.resval.rstring != nullptr ? link.resval.rstring : L"";
}

constexpr std::size_t kMostShort = 0xff;
constexpr std::size_t kMostLong = 0xffff;

resbuf* readXrecordItem(ReadContext& context, BitReader& bits, int code) {
  resbuf* link = nullptr;
  switch (xrecordForm(code)) {
    case Form::Text: {
      if ((link = newLink(code, {Kind::kText})) == nullptr) return nullptr;
      const std::size_t length = bits.rs();
      bits.rc();  // its code page, the drawing's
      setText(*link, cutAtZero(context.codePage(), readBytes(bits, length)));
      return link;
    }
    case Form::Point:
      if ((link = newLink(code, {Kind::kPoint})) == nullptr) return nullptr;
      for (double& each : link->resval.rpoint) each = bits.rd();
      return link;
    case Form::Real:
      if ((link = newLink(code, {Kind::kReal})) == nullptr) return nullptr;
      link->resval.rreal = bits.rd();
      return link;
    case Form::Int16:
      if ((link = newLink(code, {Kind::kInt16})) == nullptr) return nullptr;
      link->resval.rint = short(bits.rs());
      return link;
    case Form::Byte:
      if ((link = newLink(code, {Kind::kInt16})) == nullptr) return nullptr;
      link->resval.rint = bits.rc();
      return link;
    case Form::Int32:
      if ((link = newLink(code, {Kind::kInt32})) == nullptr) return nullptr;
      link->resval.rlong = std::int32_t(bits.rl());
      return link;
    case Form::Int64:
      if ((link = newLink(code, {Kind::kInt64})) == nullptr) return nullptr;
      link->resval.mnInt64 = std::int64_t(bits.rll());
      return link;
    case Form::Binary: {
      if ((link = newLink(code, {Kind::kBinary})) == nullptr) return nullptr;
      const std::size_t length = bits.rc();
      setBinary(*link, readBytes(bits, length));
      return link;
    }
    case Form::Handle:
      if ((link = newLink(code, {Kind::kHandle, Kind::kObjectId, Kind::kText})) == nullptr) return nullptr;
      setHandle(*link, bits.rll(), context);
      return link;
    case Form::None:
      break;
  }
  return nullptr;
}

bool writeXrecordItem(const resbuf& link, const os::CodePage& page, std::uint16_t codePage, BitWriter& to) {
  const ads_u_val& value = link.resval;
  const Form form = xrecordForm(link.restype);
  if (form == Form::None) return false;
  to.rs(std::uint16_t(link.restype));
  switch (form) {
    case Form::Text: {
      std::string text = page.encode(textOf(link));
      cut(text, kMostLong);
      to.rs(std::uint16_t(text.size())), to.rc(std::uint8_t(codePage)), to.bytes(text.data(), text.size());
      break;
    }
    case Form::Point:
      for (const double each : value.rpoint) to.rd(each);
      break;
    case Form::Real:
      to.rd(value.rreal);
      break;
    case Form::Int16:
      to.rs(std::uint16_t(value.rint));
      break;
    case Form::Byte:
      to.rc(std::uint8_t(value.rint));
      break;
    case Form::Int32:
      to.rl(std::uint32_t(value.rlong));
      break;
    case Form::Int64:
      to.rll(std::uint64_t(value.mnInt64));
      break;
    case Form::Binary: {
      const auto length = std::min<std::size_t>(std::size_t(std::max<short>(value.rbinary.clen, 0)), kMostShort);
      to.rc(std::uint8_t(length)), to.bytes(value.rbinary.buf, length);
      break;
    }
    case Form::Handle:
      to.rll(handleOf(link));
      break;
    case Form::None:
      break;
  }
  return true;
}

// Extended data: the code that stands in the file is the group code less this.
constexpr int kExtendedBase = 1000;
enum ExtendedCode : int {
  kExtText = 0,
  kExtBrace = 2,
  kExtLayer = 3,
  kExtBinary = 4,
  kExtHandle = 5,
  kExtPoint = 10,
  kExtLastPoint = 13,
  kExtReal = 40,
  kExtLastReal = 42,
  kExtInt16 = 70,
  kExtInt32 = 71
};

std::wstring layerName(ReadContext& context, AcDbStub* layer) {
  if (layer == nullptr || layer->object == nullptr) return {};
  const auto* const record = AcDbLayerTableRecord::cast(layer->object);
  return record != nullptr && context.mayCopy(record->nameText().size()) ? record->nameText() : std::wstring();
}

std::uint64_t layerHandle(AcDbDatabase& database, const wchar_t* name) {
  AcDbLayerTable* layers = nullptr;
  if (database.getLayerTable(layers) != Acad::eOk) return 0;
  AcDbObjectId id;
  layers->getAt(name, id);
  layers->close();
  return id.handle().value();
}

bool readExtendedItem(ReadContext& context, BitReader& bits, int code, resbuf& link) {
  switch (code) {
    case kExtText: {
      const std::size_t length = bits.rc();
      bits.rs();  // its code page, the drawing's
      setText(link, cutAtZero(context.codePage(), readBytes(bits, length)));
      return true;
    }
    case kExtBrace:
      setText(link, bits.rc() == 0 ? L"{" : L"}");
      return true;
    case kExtLayer:
      setText(link, layerName(context, context.resolve(__builtin_bswap64(bits.rll()))));
      return true;
    case kExtBinary: {
      const std::size_t length = bits.rc();
      setBinary(link, readBytes(bits, length));
      return true;
    }
    case kExtHandle:
      setHandle(link, __builtin_bswap64(bits.rll()), context);
      return true;
    case kExtInt16:
      link.resval.rint = short(bits.rs());
      return true;
    case kExtInt32:
      link.resval.rlong = std::int32_t(bits.rl());
      return true;
    default:
      break;
  }
  if (code >= kExtPoint && code <= kExtLastPoint) {
    for (double& each : link.resval.rpoint) each = bits.rd();
    return true;
  }
  if (code >= kExtReal && code <= kExtLastReal) {
    link.resval.rreal = bits.rd();
    return true;
  }
  return false;
}

/// False when the item was cut, or has no form in a file.
bool writeExtendedItem(const resbuf& link, AcDbDatabase& database, const os::CodePage& page, std::uint16_t codePage,
                       BitWriter& to) {
  const int code = link.restype - kExtendedBase;
  const ads_u_val& value = link.resval;
  const bool known = code == kExtText || (code >= kExtBrace && code <= kExtHandle) ||
                     (code >= kExtPoint && code <= kExtLastPoint) || (code >= kExtReal && code <= kExtLastReal) ||
                     code == kExtInt16 || code == kExtInt32;
  if (!known) return false;
  to.rc(std::uint8_t(code));
  switch (code) {
    case kExtText: {
      std::string text = page.encode(textOf(link));
      const bool whole = !cut(text, kMostShort);
      to.rc(std::uint8_t(text.size())), to.rs(__builtin_bswap16(codePage)), to.bytes(text.data(), text.size());
      return whole;
    }
    case kExtBrace:
      to.rc(*textOf(link) == L'}' ? 1 : 0);
      return true;
    case kExtLayer:
      to.rll(__builtin_bswap64(layerHandle(database, textOf(link))));
      return true;
    case kExtBinary: {
      const auto length = std::min<std::size_t>(std::size_t(std::max<short>(value.rbinary.clen, 0)), kMostShort);
      to.rc(std::uint8_t(length)), to.bytes(value.rbinary.buf, length);
      return length == std::size_t(std::max<short>(value.rbinary.clen, 0));
    }
    case kExtHandle:
      to.rll(__builtin_bswap64(handleOf(link)));
      return true;
    case kExtInt16:
      to.rs(std::uint16_t(value.rint));
      return true;
    case kExtInt32:
      to.rl(std::uint32_t(value.rlong));
      return true;
    default:
      break;
  }
  if (code <= kExtLastPoint) {
    for (const double each : value.rpoint) to.rd(each);
  } else {
    to.rd(value.rreal);
  }
  return true;
}

}  // namespace

bool readXrecordItems(ReadContext& context, BitReader bits, resbuf*& chain) {
  chain = nullptr;
  resbuf** tail = &chain;
  while (bits.left() > 0) {
    const int code = std::int16_t(bits.rs());
    *tail = bits.failed() ? nullptr : readXrecordItem(context, bits, code);
    if (*tail == nullptr || bits.failed()) {
      acutRelRb(chain);
      chain = nullptr;
      return false;
    }
    tail = &(*tail)->rbnext;
  }
  return true;
}

int writeXrecordItems(const resbuf* chain, const os::CodePage& page, std::uint16_t codePage, BitWriter& to) {
  int left = 0;
  for (const resbuf* link = chain; link != nullptr; link = link->rbnext) {
    if (!writeXrecordItem(*link, page, codePage, to)) ++left;
  }
  return left;
}

bool readExtendedData(ReadContext& context, const std::wstring& application, BitReader bits, resbuf**& tail) {
  const auto append = [&](resbuf* link) {
    *tail = link;
    tail = &link->rbnext;
  };
  if (!context.mayCopy(application.size())) return false;
  resbuf* const head = acutNewRb(AcDb::kDxfRegAppName);
  setText(*head, application);
  append(head);
  while (bits.left() > 0) {
    const int code = bits.rc();
    resbuf* const link = bits.failed() ? nullptr : acutNewRb(kExtendedBase + code);
    if (link == nullptr) return false;
    if (!readExtendedItem(context, bits, code, *link) || bits.failed()) {
      acutRelRb(link);
      return false;
    }
    append(link);
  }
  return true;
}

int writeExtendedData(const resbuf* first, AcDbDatabase& database, const os::CodePage& page, std::uint16_t codePage,
                      BitWriter& to) {
  int faults = 0;
  for (const resbuf* link = first->rbnext; link != nullptr && link->restype != AcDb::kDxfRegAppName;
       link = link->rbnext) {
    if (!writeExtendedItem(*link, database, page, codePage, to)) ++faults;
  }
  return faults;
}

}  // namespace krio::dwg
