#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "host/io/Report.h"
#include "host/io/dwg/Sentinels.h"
#include "host/rx/ErrorStatus.h"

namespace krio::dwg {

using ByteSpan = std::span<const std::uint8_t>;

/// Where a part of the file lies.
struct Section {
  std::uint32_t address = 0;
  std::uint32_t size = 0;
};

/// The parts that the file header lists, by number.
enum SectionNumber : std::size_t {
  kVariablesSection,
  kClassesSection,
  kObjectMapSection,
  kFreeSpaceSection,
  kTemplateSection,
  kAuxiliarySection,
  kSectionCount
};

/// The version that this format is of, as it stands first in the file.
inline constexpr std::string_view kVersionTag = "AC1015";
/// What the application that first wrote this format gave as its version and its maintenance release.
inline constexpr std::uint8_t kApplicationVersion = 23;
inline constexpr std::uint8_t kMaintenanceRelease = 6;

/// What the file header says.
struct FileHeader {
  std::uint8_t maintenance = kMaintenanceRelease;
  std::uint8_t mark = 1;  ///< the byte behind it
  std::uint32_t previewAddress = 0;
  std::uint8_t applicationVersion = kApplicationVersion;
  std::uint8_t applicationMaintenance = kMaintenanceRelease;
  std::uint16_t codePage = 30;
  std::array<Section, kSectionCount> sections{};
};

/// One object of the object map.
struct MapEntry {
  std::uint64_t handle = 0;
  std::uint32_t address = 0;  ///< of its size, from the start of the file
};

/// Tells of faults, and whether reading goes on behind one.
class FaultPolicy {
 public:
  FaultPolicy(Report& report, bool recover) : report_(report), recover_(recover) {}
  /// A fault at a place. True when reading is to go on: it is a warning then, and else an error.
  bool goOn(std::string what, std::size_t place, std::uint64_t handle = 0) {
    if (recover_) {
      report_.warn(std::move(what), handle, std::int64_t(place));
    } else {
      report_.error(std::move(what), handle, std::int64_t(place));
    }
    return recover_;
  }
  bool recover() const { return recover_; }
  Report& report() { return report_; }

 private:
  Report& report_;
  bool recover_;
};

/// The outer form of a drawing file: header, framed sections, object map, second header, template. Everything is
/// checked on the way: sentinels, sizes and checksums. A fault ends the reading unless the policy lets it go on.
class Container {
 public:
  Container(ByteSpan file, FaultPolicy& policy) : file_(file), policy_(policy) {}

  /// Whether the bytes begin as a file of this version.
  static bool isOne(ByteSpan file);

  /// False when a fault ended it.
  bool read();

  const FileHeader& header() const { return header_; }
  /// The data of the header variables and of the classes, without their frames. Empty when they are lost.
  ByteSpan variables() const { return variables_; }
  std::size_t variablesPlace() const { return std::size_t(variables_.data() - file_.data()); }
  ByteSpan classes() const { return classes_; }
  /// All objects in ascending order of their handles.
  const std::vector<MapEntry>& map() const { return map_; }
  /// Forgets the object of the highest handle.
  void dropLast() { map_.pop_back(); }
  /// MEASUREMENT: 0 English, 1 metric.
  int measurement() const { return measurement_; }
  /// The images of the preview, behind their sentinel and size and up to the end sentinel, with addresses turned into
  /// distances from the begin sentinel; empty when there are none.
  const std::vector<std::uint8_t>& preview() const { return preview_; }

  /// The stretch of the file in which an object lies: from its size to before its checksum. Nothing when that isn't
  /// within the file.
  std::optional<Section> objectAt(std::size_t address) const;
  bool objectSumRight(const Section& object) const;

 private:
  bool readHeader();
  bool readFramed(const Section& section, const Sentinel& begin, const Sentinel& end, const char* name, ByteSpan& data);
  bool readMap();
  bool readMapPages(const Section& section);
  bool readSecondHeader();
  bool checkSecondHeader(std::size_t place);
  bool readTemplate();
  void readPreview();
  void findObjects();
  bool within(const Section& section) const {
    return section.address <= file_.size() && section.size <= file_.size() - section.address;
  }
  std::optional<std::size_t> find(const Sentinel& sentinel, std::size_t from = 0) const;

  ByteSpan file_;
  FaultPolicy& policy_;
  FileHeader header_;
  ByteSpan variables_, classes_;
  std::vector<MapEntry> map_;
  std::vector<std::uint8_t> preview_;
  int measurement_ = 0;
};

}  // namespace krio::dwg
