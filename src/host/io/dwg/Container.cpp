#include "host/io/dwg/Container.h"

#include <algorithm>
#include <cstring>

#include "host/io/dwg/BitReader.h"
#include "host/io/dwg/Crc.h"

namespace krio::dwg {

namespace {

constexpr std::size_t kRecordsPlace = 0x15;
constexpr std::size_t kRecordBytes = 9;
constexpr std::size_t kLeastRecords = 3;
constexpr std::size_t kFrameBytes = 38;  // two sentinels, a size of four bytes, a checksum
constexpr std::size_t kSizeBytes = 4;
constexpr std::size_t kCrcBytes = 2;

std::uint32_t rl(ByteSpan bytes, std::size_t at) {
  std::uint32_t value;
  std::memcpy(&value, bytes.data() + at, sizeof value);
  return value;
}
std::uint16_t rs(ByteSpan bytes, std::size_t at) {
  std::uint16_t value;
  std::memcpy(&value, bytes.data() + at, sizeof value);
  return value;
}
std::uint16_t bigRs(ByteSpan bytes, std::size_t at) {
  return std::uint16_t(bytes[at] << 8 | bytes[at + 1]);
}
bool standsAt(ByteSpan bytes, std::size_t at, const Sentinel& sentinel) {
  return at <= bytes.size() && bytes.size() - at >= sentinel.size() &&
         std::memcmp(bytes.data() + at, sentinel.data(), sentinel.size()) == 0;
}

}  // namespace

bool Container::isOne(ByteSpan file) {
  return file.size() >= kVersionTag.size() && std::memcmp(file.data(), kVersionTag.data(), kVersionTag.size()) == 0;
}

std::optional<std::size_t> Container::find(const Sentinel& sentinel, std::size_t from) const {
  if (from > file_.size()) return {};
  const auto found = std::search(file_.begin() + std::ptrdiff_t(from), file_.end(), sentinel.begin(), sentinel.end());
  if (found == file_.end()) return {};
  return std::size_t(found - file_.begin());
}

bool Container::read() {
  return readHeader() &&
         readFramed(header_.sections[kVariablesSection], kVariablesBegin, kVariablesEnd, "header variables",
                    variables_) &&
         readFramed(header_.sections[kClassesSection], kClassesBegin, kClassesEnd, "classes", classes_) && readMap() &&
         readSecondHeader() && readTemplate() && (readPreview(), true);
}

bool Container::readHeader() {
  if (!isOne(file_)) {
    policy_.report().error("not a drawing of version AC1015", 0, 0);
    return false;
  }
  if (file_.size() < kRecordsPlace + 4) {
    policy_.report().error("the file ends within its header", 0, std::int64_t(file_.size()));
    return false;
  }
  header_.maintenance = file_[0x0B];
  header_.mark = file_[0x0C];
  header_.previewAddress = rl(file_, 0x0D);
  header_.applicationVersion = file_[0x11];
  header_.applicationMaintenance = file_[0x12];
  header_.codePage = rs(file_, 0x13);
  const std::size_t count = rl(file_, kRecordsPlace);
  const std::size_t first = kRecordsPlace + 4;
  if (count < kLeastRecords || count > kSectionCount ||
      first + count * kRecordBytes + kCrcBytes + kHeaderEnd.size() > file_.size()) {
    return policy_.goOn("the file header lists " + std::to_string(count) + " sections", kRecordsPlace);
  }
  const std::size_t end = first + count * kRecordBytes;
  if (crc16(file_.first(end)) != rs(file_, end) && !policy_.goOn("the checksum of the file header is wrong", end)) {
    return false;
  }
  if (!standsAt(file_, end + kCrcBytes, kHeaderEnd) &&
      !policy_.goOn("the file header has no end sentinel", end + kCrcBytes)) {
    return false;
  }
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t at = first + i * kRecordBytes;
    const std::size_t number = file_[at];
    const Section section{rl(file_, at + 1), rl(file_, at + 5)};
    if (number >= kSectionCount || !within(section)) {
      if (!policy_.goOn("section " + std::to_string(number) + " lies outside of the file", at)) return false;
      continue;
    }
    header_.sections[number] = section;
  }
  return true;
}

bool Container::readFramed(const Section& section, const Sentinel& begin, const Sentinel& end, const char* name,
                           ByteSpan& data) {
  std::size_t place = section.address;
  if (!standsAt(file_, place, begin)) {
    if (!policy_.goOn(std::string("the ") + name + " aren't where the file header tells", place)) return false;
    const auto found = find(begin);
    if (!found) {
      policy_.report().error(std::string("the ") + name + " are lost", 0, std::int64_t(place));
      return true;
    }
    place = *found;
  }
  const std::size_t sizePlace = place + begin.size();
  const std::size_t room = file_.size() - sizePlace;
  const std::size_t size = room >= kSizeBytes ? rl(file_, sizePlace) : 0;
  if (room < kSizeBytes + kCrcBytes + end.size() || size > room - kSizeBytes - kCrcBytes - end.size()) {
    if (!policy_.goOn(std::string("the ") + name + " reach beyond the end of the file", sizePlace)) return false;
    data = file_.subspan(std::min(file_.size(), sizePlace + kSizeBytes));
    return true;
  }
  if (section.size != size + kFrameBytes && section.address == place &&
      !policy_.goOn(std::string("the size of the ") + name + " differs from the file header's", sizePlace)) {
    return false;
  }
  data = file_.subspan(sizePlace + kSizeBytes, size);
  const std::size_t crcPlace = sizePlace + kSizeBytes + size;
  if (crc16(file_.subspan(sizePlace, kSizeBytes + size)) != rs(file_, crcPlace) &&
      !policy_.goOn(std::string("the checksum of the ") + name + " is wrong", crcPlace)) {
    return false;
  }
  return standsAt(file_, crcPlace + kCrcBytes, end) ||
         policy_.goOn(std::string("the ") + name + " have no end sentinel", crcPlace + kCrcBytes);
}

bool Container::readMap() {
  const Section& section = header_.sections[kObjectMapSection];
  // A pair takes two bytes at least.
  map_.reserve(section.size / 3);
  const bool whole = readMapPages(section);
  if (!whole && !policy_.recover()) return false;
  if (!whole) {
    map_.clear();
    policy_.report().warn("the object map is broken: the file was searched for objects", 0,
                          std::int64_t(section.address), true);
    findObjects();
  }
  return true;
}

bool Container::readMapPages(const Section& section) {
  std::size_t at = section.address;
  const std::size_t end = std::size_t(section.address) + section.size;
  std::uint64_t lastHandle = 0;
  for (;;) {
    if (end - at < 2 * kCrcBytes) {
      policy_.goOn("the object map has no last page", at);
      return false;
    }
    const std::size_t size = bigRs(file_, at);
    if (size < 2 || size > end - at - kCrcBytes) {
      policy_.goOn("a page of the object map is of the wrong size", at);
      return false;
    }
    if (crc16(file_.subspan(at, size)) != bigRs(file_, at + size)) {
      policy_.goOn("the checksum of a page of the object map is wrong", at + size);
      return false;
    }
    if (size == 2) return true;
    BitReader pairs(file_, 8 * (at + 2), 8 * (at + size));
    std::uint64_t handle = 0;
    std::int64_t address = 0;
    while (pairs.left() > 0) {
      const std::size_t place = pairs.position() / 8;
      handle += pairs.umc();
      address += pairs.mc();
      if (pairs.failed() || handle <= lastHandle || address < 0 || std::uint64_t(address) >= file_.size()) {
        policy_.goOn("an entry of the object map is wrong", place, handle);
        return false;
      }
      lastHandle = handle;
      map_.push_back({handle, std::uint32_t(address)});
    }
    at += size + kCrcBytes;
  }
}

std::optional<Section> Container::objectAt(std::size_t address) const {
  if (file_.size() < 8 || address > file_.size() - 8) return {};
  std::size_t size = rs(file_, address);
  std::size_t head = 2;
  if ((size & 0x8000) != 0) {
    const std::size_t high = rs(file_, address + 2);
    if ((high & 0x8000) != 0) return {};
    size = (size & 0x7fff) | high << 15;
    head = 4;
  }
  if (size == 0 || size + kCrcBytes > file_.size() - address - head) return {};
  return Section{std::uint32_t(address), std::uint32_t(head + size)};
}

bool Container::objectSumRight(const Section& object) const {
  return crc16(file_.subspan(object.address, object.size)) == rs(file_, std::size_t(object.address) + object.size);
}

/// Looks at every byte for an object that begins there: its size, its bit size and its handle must be sound and its
/// checksum right. The checksums reckoned are limited, since a file can be made to look like the beginning of a large
/// object everywhere.
void Container::findObjects() {
  std::size_t budget = 64 * file_.size();
  for (std::size_t at = kRecordsPlace; at + 8 < file_.size();) {
    const auto object = objectAt(at);
    const std::size_t next = at + 1;
    at = next;
    if (!object) continue;
    const std::size_t head = rs(file_, object->address) & 0x8000 ? 4 : 2;
    const std::size_t first = 8 * (object->address + head);
    BitReader bits(file_, first, 8 * (std::size_t(object->address) + object->size));
    const std::size_t all = bits.left();
    const std::uint16_t type = bits.bs();
    const std::uint32_t bitSize = bits.rl();
    const HandleRef handle = bits.h();
    constexpr std::uint16_t kMostTypes = 500 + 4096;
    if (bits.failed() || type == 0 || type > kMostTypes || bitSize > all || bitSize < bits.position() - first ||
        handle.code != kOwn || handle.value == 0) {
      continue;
    }
    if (object->size > budget) {
      policy_.report().warn("the search for objects was given up: too much looks like one", 0,
                            std::int64_t(object->address));
      break;
    }
    budget -= object->size;
    if (!objectSumRight(*object)) continue;
    map_.push_back({handle.value, object->address});
    at = std::size_t(object->address) + object->size + kCrcBytes;
  }
  // Of two objects under one handle the later is the one saved later.
  std::stable_sort(map_.begin(), map_.end(), [](const auto& a, const auto& b) { return a.handle < b.handle; });
  std::vector<MapEntry> latest;
  for (const MapEntry& entry : map_) {
    if (!latest.empty() && latest.back().handle == entry.handle) {
      latest.back() = entry;
    } else {
      latest.push_back(entry);
    }
  }
  map_ = std::move(latest);
}

bool Container::readSecondHeader() {
  const Section& map = header_.sections[kObjectMapSection];
  const auto found = find(kSecondHeaderBegin, std::size_t(map.address) + map.size);
  if (!found) {
    policy_.report().warn("the file has no second header", 0, std::int64_t(file_.size()));
    return true;
  }
  return checkSecondHeader(*found);
}

bool Container::checkSecondHeader(std::size_t place) {
  const std::size_t sizePlace = place + kSecondHeaderBegin.size();
  const std::size_t room = file_.size() - sizePlace;
  const std::size_t size = room >= kSizeBytes ? rl(file_, sizePlace) : 0;
  constexpr std::size_t kTail = 8;  // arbitrary bytes behind the checksum
  if (size < kSizeBytes + kCrcBytes + kTail || size + kSecondHeaderEnd.size() > room) {
    return policy_.goOn("the second header is of the wrong size", sizePlace);
  }
  const std::size_t crcPlace = sizePlace + size - kTail - kCrcBytes;
  if (crc16(file_.subspan(sizePlace, crcPlace - sizePlace)) != rs(file_, crcPlace)) {
    return policy_.goOn("the checksum of the second header is wrong", crcPlace);
  }
  return standsAt(file_, sizePlace + size, kSecondHeaderEnd) ||
         policy_.goOn("the second header has no end sentinel", sizePlace + size);
}

bool Container::readTemplate() {
  const Section& section = header_.sections[kTemplateSection];
  if (section.size == 0) return true;
  const std::size_t description = section.size >= 4 ? rs(file_, section.address) : 0;
  if (section.size < 4 || description > section.size - 4) {
    return policy_.goOn("the template record is of the wrong size", section.address);
  }
  measurement_ = rs(file_, section.address + 2 + description) != 0 ? 1 : 0;
  return true;
}

/// A preview is a picture of the drawing and no part of it: one that is broken is dropped.
void Container::readPreview() {
  const std::size_t place = header_.previewAddress;
  if (place == 0) return;
  const std::size_t sizePlace = place + kPreviewBegin.size();
  const auto drop = [&] { policy_.report().warn("the preview is broken and was dropped", 0, std::int64_t(place)); };
  if (!standsAt(file_, place, kPreviewBegin) || file_.size() - sizePlace < kSizeBytes + 1) return drop();
  const std::size_t size = rl(file_, sizePlace);
  if (size == 0 || size > file_.size() - sizePlace - kSizeBytes) return drop();
  const std::size_t first = sizePlace + kSizeBytes;
  if (!standsAt(file_, first + size, kPreviewEnd)) return drop();
  const std::size_t count = file_[first];
  constexpr std::size_t kImageRecord = 9;
  if (count == 0) return;
  if (1 + count * kImageRecord > size) return drop();
  std::vector<std::uint8_t> images(file_.begin() + std::ptrdiff_t(first), file_.begin() + std::ptrdiff_t(first + size));
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t at = 1 + i * kImageRecord + 1;
    const std::uint32_t address = rl(images, at);
    const std::uint32_t bytes = rl(images, at + 4);
    if (address < place || address - place > kPreviewBegin.size() + kSizeBytes + size ||
        bytes > kPreviewBegin.size() + kSizeBytes + size - (address - place)) {
      return drop();
    }
    const auto distance = std::uint32_t(address - place);
    std::memcpy(images.data() + at, &distance, sizeof distance);
  }
  preview_ = std::move(images);
}

}  // namespace krio::dwg
