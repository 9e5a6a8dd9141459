#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "Job.h"

namespace kr {

class JobBuilder;

/// What a value of a job must be.
enum class Form : std::uint8_t {
  kNumber,
  kInteger,
  kText,
  kFlag,
  kWord,         ///< one of a list of texts
  kPoint,        ///< [x, y] or [x, y, z]
  kPointOrName,  ///< a point or the name of a node
  kObject,
  kMap,  ///< an object whose keys are names
  kList,
  kAny,  ///< whatever stands there: the builder judges
  kIgnored
};

/// What a value of a job is.
enum class Kind : std::uint8_t { kNull, kFlag, kNumber, kText, kPoint, kObject, kList };

/// "a number", "a list": for messages.
std::string_view kindWord(Kind kind);

/// A value that was read and fits its rule.
struct Scalar {
  Kind kind = Kind::kNull;
  double number = 0;
  bool flag = false;
  int word = 0;             ///< position in the rule's list of words
  std::string_view text{};  ///< valid during the call only
  std::string_view key{};   ///< the key or name that it stands under; valid during the call only
  JobPoint point{};
};

struct ObjectRule;

/// What a value must be, and what message tells so.
struct ValueRule {
  Form form = Form::kIgnored;
  std::string_view meaning;  ///< "a length in mm": what would be right
  double low = -kLargestCoordinate;
  double high = kLargestCoordinate;
  bool positive = false;  ///< must be above 0
  std::span<const std::string_view> words{};
  const ObjectRule* object = nullptr;  ///< of kObject
  const ValueRule* element = nullptr;  ///< of the elements of kMap and kList
  const ValueRule* third = nullptr;    ///< of a kPoint's third number, where it isn't a coordinate
  bool flat = false;                   ///< a kPoint of two numbers only
};

/// A key of an object: its value, whether it must be there, and what takes it.
struct KeyRule {
  std::string_view key;
  ValueRule value;
  bool required = false;
  void (*take)(JobBuilder&, const Scalar&) = nullptr;
  void (*openList)(JobBuilder&) = nullptr;  ///< called where the list of a kList begins
};

/// An object: its keys, and what happens when it begins and ends. `name` is the key that it stands under in a map.
struct ObjectRule {
  std::string_view what;  ///< "member": for messages
  std::span<const KeyRule> keys;
  void (*open)(JobBuilder&, std::string_view name) = nullptr;
  void (*close)(JobBuilder&) = nullptr;
  const KeyRule* otherKeys = nullptr;  ///< takes keys that aren't in `keys`, where those depend on the object
};

/// The rule of a whole job: the one declaration that the reader goes by and the published schema is tested against.
const ObjectRule& jobRule();

}  // namespace kr
