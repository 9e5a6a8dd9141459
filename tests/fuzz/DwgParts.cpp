#include "DwgParts.h"

#include <algorithm>
#include <cstring>

#include "host/io/dwg/BitWriter.h"
#include "host/io/dwg/Container.h"
#include "host/io/dwg/Crc.h"

namespace fuzz {

using namespace krio::dwg;

namespace {

constexpr std::size_t kRecordsPlace = 0x15;
constexpr std::size_t kHeaderBytes = 0x61;
constexpr std::size_t kLongestPage = 2000;

std::vector<std::uint8_t> copyOf(ByteSpan bytes) {
  return {bytes.begin(), bytes.end()};
}

Section writeFramed(BitWriter& file, const Sentinel& begin, const Sentinel& end, ByteSpan data) {
  const std::size_t start = file.size();
  file.bytes(begin.data(), begin.size());
  const std::size_t sized = file.size();
  file.rl(std::uint32_t(data.size()));
  file.bytes(data.data(), data.size());
  file.rs(crc16({file.data() + sized, file.size() - sized}));
  file.bytes(end.data(), end.size());
  return {std::uint32_t(start), std::uint32_t(file.size() - start)};
}

void writePage(BitWriter& file, std::span<const std::uint8_t> pairs) {
  const std::size_t start = file.size();
  const std::size_t size = pairs.size() + 2;
  file.rc(std::uint8_t(size >> 8)), file.rc(std::uint8_t(size));
  file.bytes(pairs.data(), pairs.size());
  const std::uint16_t sum = crc16({file.data() + start, size});
  file.rc(std::uint8_t(sum >> 8)), file.rc(std::uint8_t(sum));
}

Section writeMap(BitWriter& file, const std::vector<MapEntry>& map) {
  const std::size_t start = file.size();
  BitWriter pairs;
  MapEntry last;
  for (const MapEntry& entry : map) {
    if (pairs.size() > kLongestPage) {
      writePage(file, pairs.bytes());
      pairs.clear();
      last = {};
    }
    pairs.umc(entry.handle - last.handle);
    pairs.mc(std::int64_t(entry.address) - std::int64_t(last.address));
    last = entry;
  }
  if (pairs.size() > 0) writePage(file, pairs.bytes());
  writePage(file, {});
  return {std::uint32_t(start), std::uint32_t(file.size() - start)};
}

}  // namespace

DwgParts DwgParts::of(ByteSpan file) {
  DwgParts parts;
  if (!Container::isOne(file) || file.size() < kHeaderBytes) return parts;
  krio::Report report;
  FaultPolicy policy(report, true);
  Container container(file, policy);
  if (!container.read()) return parts;
  parts.header = copyOf(file.first(kRecordsPlace));
  parts.variables = copyOf(container.variables());
  parts.classes = copyOf(container.classes());
  for (const MapEntry& entry : container.map()) {
    const auto object = container.objectAt(entry.address);
    if (!object) continue;
    const bool isLong = (file[entry.address + 1] & 0x80) != 0;
    const std::size_t head = isLong ? 4 : 2;
    parts.objects.push_back({entry.handle, copyOf(file.subspan(object->address + head, object->size - head))});
  }
  return parts;
}

std::vector<std::uint8_t> DwgParts::file() const {
  BitWriter file;
  const std::vector<std::uint8_t> room(kHeaderBytes);
  file.bytes(room.data(), room.size());
  Section sections[kSectionCount];
  sections[kVariablesSection] = writeFramed(file, kVariablesBegin, kVariablesEnd, variables);
  sections[kClassesSection] = writeFramed(file, kClassesBegin, kClassesEnd, classes);
  std::vector<MapEntry> map;
  for (const Object& object : objects) {
    const std::size_t start = file.size();
    map.push_back({object.handle, std::uint32_t(start)});
    file.ms(std::uint32_t(object.data.size()));
    file.bytes(object.data.data(), object.data.size());
    file.rs(crc16({file.data() + start, file.size() - start}));
  }
  sections[kObjectMapSection] = writeMap(file, map);
  sections[kTemplateSection] = {std::uint32_t(file.size()), 4};
  file.rl(0);

  BitWriter head;
  head.bytes(header.data(), std::min(header.size(), kRecordsPlace));
  while (head.size() < kRecordsPlace) head.rc(0);
  std::memset(head.data() + 0x0D, 0, 4);  // no preview
  head.rl(kSectionCount);
  for (std::size_t i = 0; i < kSectionCount; ++i) {
    head.rc(std::uint8_t(i)), head.rl(sections[i].address), head.rl(sections[i].size);
  }
  head.rs(crc16(head.bytes()));
  head.bytes(kHeaderEnd.data(), kHeaderEnd.size());
  std::memcpy(file.data(), head.bytes().data(), kHeaderBytes);
  return copyOf(file.bytes());
}

}  // namespace fuzz
