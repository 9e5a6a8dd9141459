#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace fuzz {

/// A drawing file taken apart, so that its parts can be changed and put together again with every address, size and
/// checksum right: what is wrong in it then is wrong below them.
struct DwgParts {
  struct Object {
    std::uint64_t handle = 0;
    std::vector<std::uint8_t> data;  ///< behind its size, up to its checksum
  };

  std::vector<std::uint8_t> header;  ///< the bytes before the list of sections
  std::vector<std::uint8_t> variables;
  std::vector<std::uint8_t> classes;
  std::vector<Object> objects;  ///< in ascending order of their handles

  /// What can be found of a file; nothing at all of bytes that are none.
  static DwgParts of(std::span<const std::uint8_t> file);
  /// A file of these parts, without preview and second header. Handles must still ascend.
  std::vector<std::uint8_t> file() const;
};

}  // namespace fuzz
