#include "CommandLine.h"

#include <CLI/CLI.hpp>
#include <deque>

#include "lib/Documents.h"
#include "lib/Files.h"
#include "lib/Suggest.h"

namespace {

std::string seeHelp(std::string_view verb) {
  return "kr help" + (verb.empty() ? "" : " " + std::string(verb));
}

void show(const std::string& text, kr::Report& report) {
  kr::writeOutput("-", text, false, report);
}

void unknownVerb(std::string_view word, kr::Report& report) {
  std::vector<std::string_view> names;
  for (const kr::VerbDeclaration& verb : kr::verbs()) {
    if (!verb.hidden) names.push_back(verb.name);
  }
  const bool option = word.starts_with('-');
  report.error(kr::Exit::kArguments, std::string("unknown ") + (option ? "option " : "verb ") + kr::inQuotes(word) +
                                         ": " + kr::suggestion(word, names, "see " + seeHelp({})));
}

}  // namespace

std::string CommandLine::value(std::string_view option) const {
  const auto found = values_.find(option);
  return found == values_.end() ? std::string() : found->second;
}

const std::vector<std::string>& CommandLine::arguments(std::string_view name) const {
  static const std::vector<std::string> kNothing;
  const auto found = arguments_.find(name);
  return found == arguments_.end() ? kNothing : found->second;
}

std::string CommandLine::argument(std::string_view name) const {
  const std::vector<std::string>& given = arguments(name);
  return given.empty() ? std::string() : given.front();
}

bool CommandLine::parse(int count, char** words, kr::Report& report) {
  if (count < 2) {
    report.error(kr::Exit::kArguments, "no verb given: see " + seeHelp({}));
    return false;
  }
  const std::string_view first = words[1];
  if (first == "--version") {
    show("kr " + std::string(kr::programVersion()) + "\n", report);
    return false;
  }
  if (first == "--help" || first == "-h") {
    show(kr::helpText(), report);
    return false;
  }
  verb_ = kr::verb(first);
  if (verb_ == nullptr) {
    unknownVerb(first, report);
    return false;
  }
  return parseVerb(count - 1, words + 1, report);
}

bool CommandLine::parseVerb(int count, char** words, kr::Report& report) {
  CLI::App app;
  app.set_help_flag();
  std::vector<std::pair<const kr::OptionDeclaration*, CLI::Option*>> options;
  std::vector<std::pair<const kr::ArgumentDeclaration*, CLI::Option*>> arguments;
  const auto declare = [&](const kr::OptionDeclaration& row) {
    std::string spelled(row.name);
    if (row.letter != '\0') spelled = std::string("-") + row.letter + "," + spelled;
    CLI::Option* option = row.value.empty() ? app.add_flag(spelled) : app.add_option(spelled)->expected(1);
    if (row.value.empty()) option->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
    if (!row.choices.empty()) {
      option->check(CLI::IsMember(std::vector<std::string>(row.choices.begin(), row.choices.end())));
    }
    options.emplace_back(&row, option);
  };
  for (const kr::OptionDeclaration& row : verb_->options) declare(row);
  for (const kr::OptionDeclaration& row : kr::commonOptions()) declare(row);
  std::deque<std::vector<std::string>> given;  // where the parser puts them
  for (const kr::ArgumentDeclaration& row : verb_->arguments) {
    CLI::Option* option = app.add_option(std::string(row.name), given.emplace_back());
    if (!row.many) option->expected(1)->allow_extra_args(false);
    // Asked for below, so that --help goes before a missing argument.
    arguments.emplace_back(&row, option);
  }
  try {
    app.parse(count, words);
  } catch (const CLI::ParseError& error) {
    report.error(kr::Exit::kArguments, std::string(error.what()) + ": see " + seeHelp(verb_->name));
    return false;
  }
  for (const auto& [row, option] : options) {
    if (option->count() == 0) continue;
    values_[row->name] = row->value.empty() ? std::string() : option->results().front();
  }
  if (has("--help")) {
    show(kr::helpText(*verb_), report);
    return false;
  }
  for (const auto& [row, option] : arguments) {
    if (option->count() > 0) {
      arguments_[row->name] = option->results();
    } else if (row->required) {
      report.error(kr::Exit::kArguments,
                   std::string(row->name) + " is missing: " + kr::usageLine(*verb_) + "; see " + seeHelp(verb_->name));
      return false;
    }
  }
  if (has("--quiet") && has("--verbose")) {
    report.error(kr::Exit::kArguments, "--quiet and --verbose exclude each other");
    return false;
  }
  if (has("--quiet")) report.setTalk(kr::Report::Talk::kQuiet);
  if (has("--verbose")) report.setTalk(kr::Report::Talk::kVerbose);
  return true;
}
