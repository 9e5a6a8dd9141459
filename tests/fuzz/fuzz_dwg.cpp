// The DWG reader takes any bytes: it ends with a drawing or with an error that is told, strictly and recovering, within
// its memory and its time; a drawing can be drawn, written, read again and written as the same bytes, and in the other
// form.
#include <algorithm>
#include <cstdint>
#include <cstring>
#include <iterator>

#include "Drawings.h"
#include "DwgParts.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::startModule();
  fuzz::tryDrawing(fuzz::kDwg, fuzz::kDxf, std::as_bytes(std::span(data, size)));
  return 0;
}

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

namespace {

using Bytes = std::vector<std::uint8_t>;
using Objects = std::vector<fuzz::DwgParts::Object>;

/// Bits as they stand in a file, the first highest.
bool bitAt(const Bytes& bytes, std::size_t at) {
  return (bytes[at / 8] >> (7 - at % 8) & 1) != 0;
}
void setBit(Bytes& bytes, std::size_t at, bool value) {
  const auto mask = std::uint8_t(0x80 >> at % 8);
  bytes[at / 8] = std::uint8_t(value ? bytes[at / 8] | mask : bytes[at / 8] & ~mask);
}

/// Any mutation of bytes, with room to grow.
void mutateBytes(Bytes& bytes) {
  constexpr std::size_t kGrowth = 64;
  const std::size_t size = bytes.size();
  bytes.resize(size + kGrowth);
  bytes.resize(LLVMFuzzerMutate(bytes.data(), size, bytes.size()));
}

/// Numbers that end badly where a reader trusts them, as they stand in a file.
constexpr std::uint64_t kNumbers[] = {
    0x7FF8000000000000,  // not a number
    0x7FF0000000000000,  // infinity
    0xFFEFFFFFFFFFFFFF,  // the least of all
    0x7FEFFFFFFFFFFFFF,
    0x0000000000000001,
    0x3FF0000000000000,
    0,
    0xFFFFFFFFFFFFFFFF,
    0x7FFFFFFF,
    0x80000000,
    0xFFFF,
    0x7FFF,
};

void putNumber(Bytes& bytes, fuzz::Dice& dice) {
  const std::uint64_t number = kNumbers[dice.below(std::size(kNumbers))];
  const std::size_t width = std::size_t(8) << dice.below(4);
  const std::size_t first = dice.below(8 * bytes.size());
  for (std::size_t i = 0; i < width && first + i < 8 * bytes.size(); ++i) {
    // Bytes from the lowest on, in each the highest bit first.
    setBit(bytes, first + i, (number >> (8 * (i / 8) + 7 - i % 8) & 1) != 0);
  }
}

void copyBits(Bytes& bytes, const Bytes& from, fuzz::Dice& dice) {
  if (from.empty()) return;
  const std::size_t to = dice.below(8 * bytes.size());
  const std::size_t first = dice.below(8 * from.size());
  const std::size_t count = 1 + dice.below(128);
  for (std::size_t i = 0; i < count && to + i < 8 * bytes.size() && first + i < 8 * from.size(); ++i) {
    setBit(bytes, to + i, bitAt(from, first + i));
  }
}

/// Opens or closes a gap of bits, which shifts all codes behind it.
void shiftBits(Bytes& bytes, fuzz::Dice& dice) {
  const std::size_t bits = 8 * bytes.size();
  const std::size_t at = dice.below(bits);
  const std::size_t by = 1 + dice.below(16);
  const Bytes before = bytes;
  const bool opens = dice.below(2) == 0;
  for (std::size_t i = at; i < bits; ++i) {
    const std::size_t from = opens ? i - std::min(by, i) : i + by;
    setBit(bytes, i, from < bits && bitAt(before, from));
  }
}

void mutateObject(Objects& objects, fuzz::Dice& dice) {
  const std::size_t place = dice.below(objects.size());
  Bytes& data = objects[place].data;
  const Bytes& other = objects[dice.below(objects.size())].data;
  if (data.empty()) data.push_back(0);
  const std::size_t bits = 8 * data.size();
  switch (dice.below(12)) {
    case 0:
    case 1:
      mutateBytes(data);
      break;
    case 2:
    case 3:
    case 4:
      for (std::size_t times = 1 + dice.below(4); times > 0; --times) {
        const std::size_t at = dice.below(bits);
        setBit(data, at, !bitAt(data, at));
      }
      break;
    case 5:
    case 6:
      putNumber(data, dice);
      break;
    case 7:
      copyBits(data, Bytes(other), dice);
      break;
    case 8:
      shiftBits(data, dice);
      break;
    case 9:
      objects.erase(objects.begin() + std::ptrdiff_t(place));
      break;
    case 10:
      data = Bytes(other);
      break;
    default:
      objects.push_back({objects.back().handle + 1 + dice.below(3), Bytes(other)});
  }
}

}  // namespace

/// Mostly changes what lies below the checksums, and puts these right.
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned seed) {
  fuzz::Dice dice(seed);
  if (dice.below(16) == 0) return LLVMFuzzerMutate(data, size, maxSize);
  fuzz::DwgParts parts = fuzz::DwgParts::of({data, size});
  if (parts.objects.empty()) return LLVMFuzzerMutate(data, size, maxSize);
  for (std::size_t times = 1 + dice.below(3); times > 0 && !parts.objects.empty(); --times) {
    switch (dice.below(20)) {
      case 0:
        mutateBytes(parts.classes);
        break;
      case 1:
        mutateBytes(parts.variables);
        break;
      case 2:
        if (!parts.variables.empty()) putNumber(parts.variables, dice);
        break;
      default:
        mutateObject(parts.objects, dice);
    }
  }
  const Bytes file = parts.file();
  if (file.size() > maxSize) return LLVMFuzzerMutate(data, size, maxSize);
  std::memcpy(data, file.data(), file.size());
  return file.size();
}
