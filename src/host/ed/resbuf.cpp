#include "host/db/resbuf.h"

#include <cstdarg>
#include <cstring>
#include <cwchar>
#include <memory>

#include "host/ed/resbufTypes.h"

using edhost::ValueKind;

namespace edhost {

// The group codes of the exchange format come in bands by the kind of value.
ValueKind groupCodeKind(int code) {
  struct Band {
    int first, last;
    ValueKind kind;
  };
  static constexpr Band kBands[] = {
      {-6, -5, ValueKind::Name},      {-4, -4, ValueKind::Text},       {-3, -3, ValueKind::None},
      {-2, -1, ValueKind::Name},      {0, 9, ValueKind::Text},         {10, 17, ValueKind::Point},
      {18, 59, ValueKind::Real},      {60, 79, ValueKind::Short},      {90, 99, ValueKind::Long},
      {100, 105, ValueKind::Text},    {110, 112, ValueKind::Point},    {113, 149, ValueKind::Real},
      {160, 169, ValueKind::Int64},   {170, 179, ValueKind::Short},    {210, 219, ValueKind::Point},
      {220, 239, ValueKind::Real},    {270, 299, ValueKind::Short},    {300, 309, ValueKind::Text},
      {310, 319, ValueKind::Binary},  {320, 329, ValueKind::Text},     {330, 369, ValueKind::Name},
      {370, 389, ValueKind::Short},   {390, 399, ValueKind::Name},     {400, 409, ValueKind::Short},
      {410, 419, ValueKind::Text},    {420, 429, ValueKind::Long},     {430, 439, ValueKind::Text},
      {440, 459, ValueKind::Long},    {460, 469, ValueKind::Real},     {470, 481, ValueKind::Text},
      {999, 1003, ValueKind::Text},   {1004, 1004, ValueKind::Binary}, {1005, 1009, ValueKind::Text},
      {1010, 1013, ValueKind::Point}, {1014, 1059, ValueKind::Real},   {1060, 1070, ValueKind::Short},
      {1071, 1071, ValueKind::Long}};
  for (const Band& band : kBands) {
    if (code >= band.first && code <= band.last) return band.kind;
  }
  return ValueKind::Unknown;
}

ValueKind valueKind(int type) {
  switch (type) {
    case RTNONE:
    case RTVOID:
    case RTLB:
    case RTLE:
    case RTDOTE:
    case RTNIL:
    case RTT:
      return ValueKind::None;
    case RTREAL:
    case RTANG:
    case RTORINT:
      return ValueKind::Real;
    case RTPOINT:
    case RT3DPOINT:
      return ValueKind::Point;
    case RTSHORT:
      return ValueKind::Short;
    case RTLONG:
      return ValueKind::Long;
    case RTSTR:
    case RTDXF0:
      return ValueKind::Text;
    case RTENAME:
    case RTPICKS:
      return ValueKind::Name;
    default:
      return groupCodeKind(type);
  }
}

}  // namespace edhost

namespace {

struct ChainDeleter {
  void operator()(resbuf* chain) const { acutRelRb(chain); }
};

}  // namespace

resbuf* acutNewRb(int type) {
  if (edhost::valueKind(type) == ValueKind::Unknown) return nullptr;
  auto* link = new resbuf{};
  link->restype = static_cast<short>(type);
  return link;
}

int acutRelRb(resbuf* chain) {
  while (chain != nullptr) {
    resbuf* const next = chain->rbnext;
    const ValueKind kind = edhost::valueKind(chain->restype);
    if (kind == ValueKind::Text) delete[] chain->resval.rstring;
    if (kind == ValueKind::Binary) delete[] chain->resval.rbinary.buf;
    delete chain;
    chain = next;
  }
  return RTNORM;
}

int acutNewString(const wchar_t* text, wchar_t*& copy) {
  if (text == nullptr) return RTERROR;
  const std::size_t size = std::wcslen(text) + 1;
  copy = new wchar_t[size];
  std::wmemcpy(copy, text, size);
  return RTNORM;
}

void acutDelString(wchar_t*& text) {
  delete[] text;
  text = nullptr;
}

namespace edhost {

resbuf* nextArgument(int type, ArgumentList& list) {
  resbuf* const link = acutNewRb(type);
  if (link == nullptr) return nullptr;
  ads_u_val& value = link->resval;
  switch (valueKind(type)) {
    case ValueKind::Real:
      value.rreal = va_arg(list.arguments, double);
      break;
    case ValueKind::Point: {
      const auto* point = va_arg(list.arguments, const double*);
      std::memcpy(value.rpoint, point, (type == RTPOINT ? 2 : 3) * sizeof(double));
      break;
    }
    case ValueKind::Short:
      value.rint = static_cast<short>(va_arg(list.arguments, int));
      break;
    case ValueKind::Long:
      value.rlong = va_arg(list.arguments, int);
      break;
    case ValueKind::Int64:
      value.mnInt64 = va_arg(list.arguments, std::int64_t);
      break;
    case ValueKind::Text: {
      const wchar_t* text = va_arg(list.arguments, const wchar_t*);
      acutNewString(text != nullptr ? text : L"", value.rstring);
      break;
    }
    case ValueKind::Name:
      ads_name_set(va_arg(list.arguments, const std::int64_t*), value.rlname);
      break;
    case ValueKind::Binary: {
      const auto* chunk = va_arg(list.arguments, const ads_binary*);
      value.rbinary.clen = chunk->clen;
      value.rbinary.buf = new char[static_cast<std::size_t>(chunk->clen)];
      std::memcpy(value.rbinary.buf, chunk->buf, static_cast<std::size_t>(chunk->clen));
      break;
    }
    case ValueKind::None:
    case ValueKind::Unknown:
      break;
  }
  if (type == RTDXF0) link->restype = 0;
  return link;
}

resbuf* buildList(int type, ArgumentList& list) {
  std::unique_ptr<resbuf, ChainDeleter> head;
  resbuf* tail = nullptr;
  for (; type != 0 && type != RTNONE; type = va_arg(list.arguments, int)) {
    resbuf* const link = nextArgument(type, list);
    if (link == nullptr) return nullptr;
    if (tail == nullptr) {
      head.reset(link);
    } else {
      tail->rbnext = link;
    }
    tail = link;
  }
  return head.release();
}

}  // namespace edhost

resbuf* acutBuildList(int type, ...) {
  edhost::ArgumentList list;
  va_start(list.arguments, type);
  resbuf* const chain = edhost::buildList(type, list);
  va_end(list.arguments);
  return chain;
}
