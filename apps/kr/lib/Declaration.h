#pragma once

#include <span>
#include <string_view>

namespace kr {

/// How the program ends. One place, exitCode() of a Report, chooses it.
enum class Exit : int {
  kOk = 0,
  kArguments = 1,       ///< the command line is wrong
  kOther = 2,           ///< anything else
  kBadInput = 3,        ///< an input file can't be read or is wrong
  kOutputConflict = 4,  ///< an output exists, or can't be written where it is to go
  kRuleViolation = 5,   ///< a check that was asked for found something
  kJobFailed = 6        ///< the input is good, the work failed
};

/// An option of a verb. `value` names what it takes ("FILE"); empty for a switch.
struct OptionDeclaration {
  std::string_view name;  ///< "--overwrite"
  char letter = '\0';     ///< 'q' for -q
  std::string_view value{};
  std::string_view help{};
  std::span<const std::string_view> choices{};
  bool isFile = false;  ///< the value is a path: completion offers files
};

/// A thing on the command line that isn't an option.
struct ArgumentDeclaration {
  std::string_view name;  ///< "JOB"
  std::string_view help;
  bool required = true;
  bool many = false;
  bool isFile = true;
  std::string_view endings{};  ///< "json" or "pdf svg png": what completion offers
};

struct ExampleDeclaration {
  std::string_view command;
  std::string_view explanation;
};

/// A verb: the one declaration that the parser, the help, the manual pages, the completion and the reference are made
/// of.
struct VerbDeclaration {
  std::string_view name;
  std::string_view summary;  ///< one line, no full stop
  std::string_view description;
  std::span<const ArgumentDeclaration> arguments;
  std::span<const OptionDeclaration> options;
  std::span<const ExampleDeclaration> examples;
  std::string_view schema{};  ///< of what --json writes
  bool hidden = false;        ///< for those who build the program
};

/// A name that means the same in every verb, of now and later.
struct ReservedOption {
  std::string_view name;
  char letter;
  bool takesValue;
  std::string_view meaning;
};

struct ExitMeaning {
  Exit code;
  std::string_view meaning;
};

/// A variable of the environment that the program looks at.
struct VariableDeclaration {
  std::string_view name;
  std::string_view meaning;
};

std::span<const VerbDeclaration> verbs();
const VerbDeclaration* verb(std::string_view name);

/// Options that every verb takes.
std::span<const OptionDeclaration> commonOptions();

std::span<const ReservedOption> reservedOptions();
std::span<const ExitMeaning> exitMeanings();
std::span<const VariableDeclaration> variables();

/// "kr build [OPTION]... JOB FILE..."
std::string_view programSummary();

}  // namespace kr
