#include <algorithm>
#include <cstring>

#include "host/io/dwg/Crc.h"
#include "host/io/dwg/Variables.h"
#include "host/io/dwg/Writer.h"

// The parts of a file around the objects.

namespace krio::dwg {

namespace {

constexpr std::size_t kHeaderBytes = 0x61;
constexpr std::size_t kFillerBytes = 0x200;
constexpr std::uint32_t kNoHandle32 = 0xffffffffU;  // where a handle takes more than 31 bits
constexpr std::uint16_t kSaves = 1;                 // a count of saves would make each save of a drawing another file

void raw(BitWriter& to, const Sentinel& sentinel) {
  to.bytes(sentinel.data(), sentinel.size());
}

/// Bytes that a modular number takes.
std::size_t umcBytes(std::uint64_t value) {
  return (std::size_t(std::bit_width(value | 1)) + 6) / 7;
}
std::size_t mcBytes(std::int64_t value) {
  // The last byte has one bit for the sign.
  return std::size_t(std::bit_width(std::uint64_t(value < 0 ? -value : value))) / 7 + 1;
}

}  // namespace

void Writer::writeHeader() {
  const std::vector<std::uint8_t> room(kHeaderBytes);
  file_.bytes(room.data(), room.size());
}

void Writer::patchHeader() {
  BitWriter head;
  head.bytes(kVersionTag.data(), kVersionTag.size());
  head.bytes("\0\0\0\0\0", 5);
  head.rc(header_.maintenance), head.rc(header_.mark), head.rl(header_.previewAddress);
  head.rc(header_.applicationVersion), head.rc(header_.applicationMaintenance), head.rs(header_.codePage);
  head.rl(kSectionCount);
  for (std::size_t i = 0; i < kSectionCount; ++i) {
    head.rc(std::uint8_t(i)), head.rl(header_.sections[i].address), head.rl(header_.sections[i].size);
  }
  head.rs(crc16(head.bytes()));
  raw(head, kHeaderEnd);
  std::memcpy(file_.data(), head.bytes().data(), kHeaderBytes);
}

void Writer::writeAuxiliaryHeader() {
  const std::size_t start = file_.size();
  const AcDbHeader& header = database_.header();
  const std::uint64_t seed = database_.handseed().value();
  file_.bytes("\xff\x77\x01", 3);
  file_.rs(kApplicationVersion), file_.rs(kMaintenanceRelease);
  file_.rl(kSaves), file_.rl(kNoHandle32), file_.rs(kSaves), file_.rs(0), file_.rl(0);
  for (int i = 0; i < 2; ++i) file_.rs(kApplicationVersion), file_.rs(kMaintenanceRelease);
  // Numbers of builds, as the first files of the format have them.
  for (const int build : {5, 2195, 5, 2195, 0, 1}) file_.rs(std::uint16_t(build));
  for (int i = 0; i < 5; ++i) file_.rl(0);
  for (const auto index : {AcDbHeader::kTDCREATE, AcDbHeader::kTDUPDATE}) {
    file_.rl(std::uint32_t(header.time(index).day)), file_.rl(std::uint32_t(header.time(index).milliseconds));
  }
  file_.rl(seed > 0x7fffffffU ? kNoHandle32 : std::uint32_t(seed));
  file_.rl(0), file_.rs(0), file_.rs(kSaves);
  for (const std::uint32_t each : {0U, 0U, 0U, std::uint32_t(kSaves), 0U, 0U, 0U, 0U}) file_.rl(each);
  header_.sections[kAuxiliarySection] = {std::uint32_t(start), std::uint32_t(file_.size() - start)};
}

void Writer::writePreview() {
  const std::size_t start = file_.size();
  header_.previewAddress = std::uint32_t(start);
  raw(file_, kPreviewBegin);
  std::vector<std::uint8_t> images;
  for (const std::byte byte : database_.fileExtras().preview) images.push_back(std::uint8_t(byte));
  if (images.empty()) images.push_back(0);
  // Addresses were kept as distances from the preview's begin.
  constexpr std::size_t kImageRecord = 9;
  for (std::size_t i = 0; i < images[0] && 1 + (i + 1) * kImageRecord <= images.size(); ++i) {
    std::uint8_t* const at = images.data() + 2 + i * kImageRecord;
    std::uint32_t address;
    std::memcpy(&address, at, sizeof address);
    address += std::uint32_t(start);
    std::memcpy(at, &address, sizeof address);
  }
  file_.rl(std::uint32_t(images.size()));
  file_.bytes(images.data(), images.size());
  raw(file_, kPreviewEnd);
}

template <class Data>
void Writer::writeFramed(SectionNumber number, const Sentinel& begin, const Sentinel& end, Data data) {
  const std::size_t start = file_.size();
  raw(file_, begin);
  const std::size_t sized = file_.size();
  file_.rl(0);
  const std::size_t first = file_.size();
  data();
  file_.align();
  const auto size = std::uint32_t(file_.size() - first);
  std::memcpy(file_.data() + sized, &size, sizeof size);
  file_.rs(crc16({file_.data() + sized, file_.size() - sized}));
  raw(file_, end);
  header_.sections[number] = {std::uint32_t(start), std::uint32_t(file_.size() - start)};
}

void Writer::writeVariablesSection() {
  writeFramed(kVariablesSection, kVariablesBegin, kVariablesEnd, [&] { writeVariables(database_, page_, file_); });
}

void Writer::writeClassesSection() {
  writeFramed(kClassesSection, kClassesBegin, kClassesEnd, [&] {
    for (std::size_t i = 0; i < classes_.size(); ++i) {
      const AcDbClassRecord& record = classes_[i];
      encoder_.bs(kFirstClass + i), encoder_.bs(record.proxyFlags);
      encoder_.tv(record.appName), encoder_.tv(record.cppName), encoder_.tv(record.dxfName);
      encoder_.b(record.wasProxy), encoder_.bs(record.itemClassId);
    }
  });
  const std::vector<std::uint8_t> filler(kFillerBytes);
  file_.bytes(filler.data(), filler.size());
  firstObject_ = file_.size();
}

void Writer::writeObjectMap() {
  const auto byHandle = [](const MapEntry& a, const MapEntry& b) { return a.handle < b.handle; };
  if (!std::is_sorted(map_.begin(), map_.end(), byHandle)) std::sort(map_.begin(), map_.end(), byHandle);
  const std::size_t start = file_.size();
  constexpr std::size_t kPageLimit = 2032;
  std::size_t page = file_.size();
  std::uint64_t lastHandle = 0;
  std::int64_t lastAddress = 0;
  const auto openPage = [&] {
    page = file_.size();
    file_.rs(0);
    lastHandle = 0;
    lastAddress = 0;
  };
  const auto closePage = [&] {
    const std::size_t size = file_.size() - page;
    std::uint8_t* const head = file_.data() + page;
    head[0] = std::uint8_t(size >> 8);
    head[1] = std::uint8_t(size);
    file_.rs(__builtin_bswap16(crc16({head, size})));
  };
  openPage();
  for (const MapEntry& entry : map_) {
    const std::uint64_t handleStep = entry.handle - lastHandle;
    const std::int64_t addressStep = std::int64_t(entry.address) - lastAddress;
    if (file_.size() - page + umcBytes(handleStep) + mcBytes(addressStep) > kPageLimit) {
      closePage(), openPage();
      file_.umc(entry.handle), file_.mc(entry.address);
    } else {
      file_.umc(handleStep), file_.mc(addressStep);
    }
    lastHandle = entry.handle;
    lastAddress = entry.address;
  }
  if (file_.size() - page > 2) closePage(), openPage();
  closePage();
  header_.sections[kObjectMapSection] = {std::uint32_t(start), std::uint32_t(file_.size() - start)};
}

void Writer::writeFreeSpace() {
  const std::size_t start = file_.size();
  const AcDbHeader::Time update = database_.header().time(AcDbHeader::kTDUPDATE);
  file_.rl(0), file_.rl(std::uint32_t(database_.handseed().value() - 1));
  file_.rl(std::uint32_t(update.day)), file_.rl(std::uint32_t(update.milliseconds));
  file_.rl(std::uint32_t(firstObject_)), file_.rc(4);
  for (const std::uint32_t each : {0x32U, 0x64U, 0x200U, 0xffffffffU}) file_.rl(each), file_.rl(0);
  header_.sections[kFreeSpaceSection] = {std::uint32_t(start), std::uint32_t(file_.size() - start)};
}

void Writer::writeSecondHeader() {
  constexpr std::size_t kTemplateBytes = 4;
  constexpr std::size_t kTail = 8;  // arbitrary bytes behind the checksum
  const std::size_t start = file_.size();
  const AcDbDatabase& db = database_;
  raw(file_, kSecondHeaderBegin);
  const std::size_t sized = file_.size();
  file_.rl(0);
  file_.bl(std::uint32_t(start));
  file_.bytes(kVersionTag.data(), kVersionTag.size());
  file_.bytes("\0\0\0\0\0", 5);
  file_.rc(header_.maintenance), file_.rc(header_.mark);
  file_.bs(std::uint16_t(header_.applicationVersion + 256U * header_.applicationMaintenance));
  file_.bs(header_.codePage), file_.bs(kSectionCount);
  for (std::size_t i = 0; i < kSectionCount; ++i) {
    const Section section = i == kTemplateSection ? Section{} : header_.sections[i];
    file_.rc(std::uint8_t(i)), file_.bl(section.address), file_.bl(section.size);
  }
  const AcDbHeader& header = db.header();
  const std::uint64_t handles[] = {db.handseed().value(),
                                   db.blockTableId().handle().value(),
                                   db.layerTableId().handle().value(),
                                   db.textStyleTableId().handle().value(),
                                   db.linetypeTableId().handle().value(),
                                   db.viewTableId().handle().value(),
                                   db.UCSTableId().handle().value(),
                                   db.viewportTableId().handle().value(),
                                   db.regAppTableId().handle().value(),
                                   db.dimStyleTableId().handle().value(),
                                   db.viewportHeaderTableId().handle().value(),
                                   db.namedObjectsDictionaryId().handle().value(),
                                   header.id(AcDbHeader::kDICTIONARY_MLINESTYLE).handle().value(),
                                   header.id(AcDbHeader::kDICTIONARY_GROUP).handle().value()};
  file_.bs(std::uint16_t(std::size(handles)));
  for (std::size_t i = 0; i < std::size(handles); ++i) {
    const unsigned bytes = handles[i] == 0 ? 0 : (71U - unsigned(std::countl_zero(handles[i]))) / 8;
    file_.rc(std::uint8_t(bytes)), file_.rc(std::uint8_t(i));
    for (unsigned shift = 8 * bytes; shift > 0; shift -= 8) file_.rc(std::uint8_t(handles[i] >> (shift - 8)));
  }
  file_.align();
  const auto size = std::uint32_t(file_.size() - sized + 2 + kTail);
  std::memcpy(file_.data() + sized, &size, sizeof size);
  file_.rs(crc16({file_.data() + sized, file_.size() - sized}));
  file_.rll(0);
  raw(file_, kSecondHeaderEnd);
  header_.sections[kTemplateSection] = {std::uint32_t(file_.size()), kTemplateBytes};
}

void Writer::writeTemplate() {
  file_.rs(0);
  file_.rs(database_.measurement() != 0 ? 1 : 0);
}

}  // namespace krio::dwg
