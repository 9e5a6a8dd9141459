#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "lib/Declaration.h"
#include "lib/Report.h"

/// A command line, understood: which verb, and what stands for each of its options and arguments.
class CommandLine {
 public:
  /// Reads a command line by the declaration of the verbs. False when the run ends here: help or the version was asked
  /// for and shown, or the line is wrong, which is reported.
  bool parse(int count, char** words, kr::Report& report);

  const kr::VerbDeclaration& verb() const { return *verb_; }
  bool has(std::string_view option) const { return values_.count(option) != 0; }

  /// What an option was given; empty when it wasn't.
  std::string value(std::string_view option) const;

  /// What an argument was given; empty when it wasn't.
  const std::vector<std::string>& arguments(std::string_view name) const;
  std::string argument(std::string_view name) const;

 private:
  bool parseVerb(int count, char** words, kr::Report& report);

  const kr::VerbDeclaration* verb_ = nullptr;
  std::map<std::string_view, std::string> values_;
  std::map<std::string_view, std::vector<std::string>> arguments_;
};
