// A picture that a file carries may be any bytes: drawing it ends, gives no more than the bytes can hold, and an entity
// with it is drawn and saved.
#include <cstdint>
#include <cstring>
#include <vector>

#include "Budget.h"
#include "Drawings.h"
#include "host/gi/Recorder.h"
#include "host/io/ProxyGraphics.h"

namespace {

/// An entity whose picture is the input.
class Pictured : public AcDbEntity {
 public:
  explicit Pictured(std::span<const std::byte> picture) : picture_(picture) {}

 protected:
  Adesk::Boolean subWorldDraw(AcGiWorldDraw* draw) override {
    krio::drawProxyGraphics(picture_, draw);
    return Adesk::kTrue;
  }

 private:
  std::span<const std::byte> picture_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static AcDbDatabase database;
  acdbHostApplicationServices()->setWorkingDatabase(&database);
  Pictured entity(std::as_bytes(std::span(data, size)));
  {
    const Budget budget(size);
    gi::Recorder recorder;
    recorder.drawWhole(entity);
  }
  std::vector<std::byte> again;
  krio::encodeProxyGraphics(entity, again);
  Pictured second(again);
  gi::Recorder recorder;
  recorder.drawWhole(second);
  acdbHostApplicationServices()->setWorkingDatabase(nullptr);
  return 0;
}

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

/// Mostly keeps the sizes right: the whole size first, then each chunk its own.
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned seed) {
  fuzz::Dice dice(seed);
  size = LLVMFuzzerMutate(data, size, maxSize);
  if (size < 8 || dice.below(4) == 0) return size;
  const auto whole = std::uint32_t(size);
  std::memcpy(data, &whole, sizeof whole);
  std::uint32_t chunks = 0;
  std::size_t at = 8;
  for (; size - at >= 8; ++chunks) {
    std::uint32_t length;
    std::memcpy(&length, data + at, sizeof length);
    const std::size_t left = size - at;
    if (length < 8 || length > left) {
      length = std::uint32_t(8 + 4 * dice.below(std::min<std::size_t>(left, 256) / 4));
      if (length > left) length = std::uint32_t(left);
      std::memcpy(data + at, &length, sizeof length);
    }
    std::uint32_t type;
    std::memcpy(&type, data + at + 4, sizeof type);
    if (type > 64) {
      type = std::uint32_t(dice.below(40));
      std::memcpy(data + at + 4, &type, sizeof type);
    }
    at += length;
  }
  std::memcpy(data + 4, &chunks, sizeof chunks);
  return size;
}
