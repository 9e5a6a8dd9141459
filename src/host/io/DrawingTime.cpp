#include "host/io/DrawingTime.h"

#include <cerrno>
#include <cstdlib>

namespace krio {

namespace {

constexpr long long kSecondsPerDay = 86400;
constexpr long long kDayOfEpoch = 2440588;      // Julian day of 1970-01-01
constexpr long long kNoEpochGiven = 946684800;  // 2000-01-01

long long secondsNow() {
  const char* const text = std::getenv("SOURCE_DATE_EPOCH");
  if (text == nullptr || *text == '\0') return kNoEpochGiven;
  char* end = nullptr;
  errno = 0;
  const long long seconds = std::strtoll(text, &end, 10);
  constexpr long long kLast = kSecondsPerDay * 366 * 10000;  // a day that still is one of the calendar
  const bool usable = errno == 0 && *end == '\0' && seconds >= 0 && seconds < kLast;
  return usable ? seconds : kNoEpochGiven;
}

}  // namespace

void stampNewDrawing(AcDbDatabase& database) {
  AcDbHeader& header = database.header();
  if (header.time(AcDbHeader::kTDCREATE).day != 0) return;
  const long long seconds = secondsNow();
  const AcDbHeader::Time now{Adesk::Int32(kDayOfEpoch + seconds / kSecondsPerDay),
                             Adesk::Int32(1000 * (seconds % kSecondsPerDay))};
  header.setTime(AcDbHeader::kTDCREATE, now);
  header.setTime(AcDbHeader::kTDUPDATE, now);
}

}  // namespace krio
