#include "Documents.h"

#include <algorithm>
#include <map>
#include <nlohmann/json.hpp>
#include <vector>

namespace kr {
namespace {

constexpr std::size_t kLineLength = 78;
constexpr std::size_t kOptionColumn = 26;

// "-o, --output FILE", or "    --csv" where there is no letter.
std::string spelling(const OptionDeclaration& option) {
  std::string out = option.letter != '\0' ? std::string("-") + option.letter + ", " : "    ";
  out += option.name;
  if (!option.value.empty()) out += " " + std::string(option.value);
  return out;
}

std::string spellingOf(const ArgumentDeclaration& argument) {
  std::string out(argument.name);
  if (argument.many) out += "...";
  return argument.required ? out : "[" + out + "]";
}

std::string choicesOf(const OptionDeclaration& option) {
  std::string out;
  for (const std::string_view choice : option.choices) out += (out.empty() ? "" : ", ") + std::string(choice);
  return out;
}

std::string explanation(const OptionDeclaration& option) {
  std::string out(option.help);
  if (!option.choices.empty()) out += ": " + choicesOf(option);
  return out;
}

// Breaks a text into lines, the first of which begins in column `used`.
std::string wrapped(std::string_view text, std::size_t indent, std::size_t used) {
  std::string out;
  std::size_t column = used;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find_first_of(" \n"), text.size());
    const std::string_view word = text.substr(0, end);
    if (column + word.size() > kLineLength && column > indent) {
      out += "\n" + std::string(indent, ' ');
      column = indent;
    }
    out += word;
    column += word.size();
    if (end == text.size()) break;
    if (text[end] == '\n') {
      out += "\n";
      column = 0;
    } else if (column < kLineLength) {
      out += ' ';
      ++column;
    }
    text.remove_prefix(end + 1);
  }
  // A space before a break is of no use to anyone.
  for (std::size_t at = out.find(" \n"); at != std::string::npos; at = out.find(" \n")) out.erase(at, 1);
  return out;
}

std::string row(std::string_view left, std::string_view right) {
  std::string out = "  " + std::string(left);
  if (out.size() + 2 > kOptionColumn)
    out += "\n" + std::string(kOptionColumn, ' ');
  else
    out.resize(kOptionColumn, ' ');
  return out + wrapped(right, kOptionColumn, kOptionColumn) + "\n";
}

std::string exitRows() {
  std::string out;
  for (const ExitMeaning& exit : exitMeanings()) {
    out += row(std::to_string(static_cast<int>(exit.code)), exit.meaning);
  }
  return out;
}

std::vector<const VerbDeclaration*> shownVerbs() {
  std::vector<const VerbDeclaration*> shown;
  for (const VerbDeclaration& v : verbs()) {
    if (!v.hidden) shown.push_back(&v);
  }
  return shown;
}

// Characters that the man macros would take for their own.
std::string troff(std::string_view text) {
  std::string out;
  for (const char c : text) {
    if (c == '\\')
      out += "\\e";
    else if (c == '-')
      out += "\\-";
    else if (c == '\n')
      out += "\n";
    else
      out += c;
  }
  std::string paragraphs;
  for (std::size_t at = 0; at < out.size();) {
    const std::size_t gap = out.find("\n\n", at);
    paragraphs += out.substr(at, gap - at);
    if (gap == std::string::npos) break;
    paragraphs += "\n.PP\n";
    at = gap + 2;
  }
  return paragraphs;
}

std::string troffOption(const OptionDeclaration& option) {
  std::string out = ".TP\n";
  if (option.letter != '\0') out += "\\fB\\-" + std::string(1, option.letter) + "\\fR, ";
  out += "\\fB" + troff(option.name) + "\\fR";
  if (!option.value.empty()) out += " \\fI" + std::string(option.value) + "\\fR";
  return out + "\n" + troff(explanation(option)) + ".\n";
}

std::string troffHead(std::string_view name, std::string_view summary) {
  std::string title(name);
  std::transform(title.begin(), title.end(), title.begin(),
                 [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
  return ".TH " + title + " 1 \"\" \"kr " + std::string(programVersion()) + "\" \"User Commands\"\n.SH NAME\n" +
         troff(name) + " \\- " + troff(summary) + "\n";
}

std::string troffTail() {
  std::string out = ".SH EXIT STATUS\n";
  for (const ExitMeaning& exit : exitMeanings()) {
    out += ".TP\n" + std::to_string(static_cast<int>(exit.code)) + "\n" + troff(exit.meaning) + ".\n";
  }
  out += ".SH ENVIRONMENT\n";
  for (const VariableDeclaration& variable : variables()) {
    out += ".TP\n\\fB" + std::string(variable.name) + "\\fR\n" + troff(variable.meaning) + "\n";
  }
  return out;
}

std::string markdownVerb(const VerbDeclaration& v) {
  std::string out = "## kr " + std::string(v.name) + "\n\n```\n" + usageLine(v) + "\n```\n\n";
  out += std::string(v.description) + "\n\n";
  if (!v.arguments.empty()) {
    out += "| Argument | Meaning |\n| --- | --- |\n";
    for (const ArgumentDeclaration& a : v.arguments) {
      out += "| `" + spellingOf(a) + "` | " + std::string(a.help) + " |\n";
    }
    out += "\n";
  }
  if (!v.options.empty()) {
    out += "| Option | Meaning |\n| --- | --- |\n";
    for (const OptionDeclaration& o : v.options) {
      const std::string text = spelling(o);
      out += "| `" + text.substr(text.find_first_not_of(' ')) + "` | " + explanation(o) + " |\n";
    }
    out += "\n";
  }
  if (!v.schema.empty()) {
    out += "`--json` writes by the schema [" + std::string(v.schema) + "](../data/schemas/" + std::string(v.schema) +
           ").\n\n";
  }
  for (const ExampleDeclaration& e : v.examples) {
    out += std::string(e.explanation) + "\n\n```\n" + std::string(e.command) + "\n```\n\n";
  }
  return out;
}

nlohmann::ordered_json optionJson(const OptionDeclaration& o) {
  nlohmann::ordered_json out{{"name", o.name}};
  if (o.letter != '\0') out["letter"] = std::string(1, o.letter);
  if (!o.value.empty()) out["value"] = o.value;
  if (!o.choices.empty()) out["choices"] = std::vector<std::string>(o.choices.begin(), o.choices.end());
  out["help"] = o.help;
  return out;
}

std::string optionNames(const VerbDeclaration& v) {
  std::string names;
  const auto add = [&](const OptionDeclaration& o) {
    if (o.letter != '\0') names += "-" + std::string(1, o.letter) + " ";
    names += std::string(o.name) + " ";
  };
  for (const OptionDeclaration& o : v.options) add(o);
  for (const OptionDeclaration& o : commonOptions()) add(o);
  if (!names.empty()) names.pop_back();
  return names;
}

// What completes the value of an option: an option of one name may take other values in another verb.
std::string completionValue(const OptionDeclaration& o) {
  if (!o.choices.empty()) {
    std::string words = choicesOf(o);
    words.erase(std::remove(words.begin(), words.end(), ','), words.end());
    return "COMPREPLY=($(compgen -W '" + words + "' -- \"$word\")); return ;;\n";
  }
  return o.isFile ? "_kr_files ''; return ;;\n" : "return ;;\n";
}

// The cases of the completion after an option that takes a value, each under "verb option".
std::string completionValues() {
  std::map<std::pair<std::string, std::string>, std::string> patterns;
  const auto add = [&](const std::string& verb, const OptionDeclaration& o) {
    if (o.value.empty()) return;
    std::string& pattern = patterns[{std::string(o.name), completionValue(o)}];
    pattern += (pattern.empty() ? "" : "|") + verb + "' " + std::string(o.name) + "'";
    if (o.letter != '\0') pattern += "|" + verb + "' -" + std::string(1, o.letter) + "'";
  };
  for (const VerbDeclaration* v : shownVerbs()) {
    for (const OptionDeclaration& o : v->options) add(std::string(v->name), o);
  }
  for (const OptionDeclaration& o : commonOptions()) add("*", o);
  std::string out;
  for (const auto& [key, pattern] : patterns) out += "    " + pattern + ") " + key.second;
  return out;
}

std::string completionVerb(const VerbDeclaration& v) {
  std::string out = "    " + std::string(v.name) + ")\n";
  out += "      if [[ $word == -* ]]; then\n";
  out += "        COMPREPLY=($(compgen -W '" + optionNames(v) + "' -- \"$word\"))\n        return\n      fi\n";
  if (v.name == "help") {
    std::string names;
    for (const VerbDeclaration* shown : shownVerbs()) names += (names.empty() ? "" : " ") + std::string(shown->name);
    return out + "      COMPREPLY=($(compgen -W '" + names + "' -- \"$word\"))\n      ;;\n";
  }
  if (v.arguments.empty()) return out + "      ;;\n";
  out += "      case $place in\n";
  for (std::size_t i = 0; i < v.arguments.size(); ++i) {
    const ArgumentDeclaration& a = v.arguments[i];
    if (!a.isFile) continue;
    const std::string at = a.many ? "*" : std::to_string(i);
    out += "        " + at + ") _kr_files '" + std::string(a.endings) + "' ;;\n";
  }
  return out + "      esac\n      ;;\n";
}

}  // namespace

std::string_view programVersion() {
  return KR_VERSION;
}

std::string usageLine(const VerbDeclaration& v) {
  std::string out = "kr " + std::string(v.name);
  if (!v.options.empty()) out += " [OPTION]...";
  for (const ArgumentDeclaration& a : v.arguments) out += " " + spellingOf(a);
  return out;
}

std::string helpText() {
  std::string out = "kr: " + std::string(programSummary()) + "\n\nUsage: kr VERB [OPTION]... [ARGUMENT]...\n\nVerbs:\n";
  for (const VerbDeclaration* v : shownVerbs()) out += row(v->name, v->summary);
  out += "\nOptions of every verb:\n";
  for (const OptionDeclaration& o : commonOptions()) out += row(spelling(o), explanation(o));
  out += row("    --version", "show the version, and end");
  out += "\nExit codes:\n" + exitRows();
  return out + "\nkr help VERB explains a verb.\n";
}

std::string helpText(const VerbDeclaration& v) {
  std::string out = "kr " + std::string(v.name) + ": " + std::string(v.summary) + "\n\nUsage: " + usageLine(v) + "\n\n";
  out += wrapped(v.description, 0, 0) + "\n";
  if (!v.arguments.empty()) out += "\nArguments:\n";
  for (const ArgumentDeclaration& a : v.arguments) out += row(spellingOf(a), a.help);
  out += "\nOptions:\n";
  for (const OptionDeclaration& o : v.options) out += row(spelling(o), explanation(o));
  for (const OptionDeclaration& o : commonOptions()) out += row(spelling(o), explanation(o));
  if (!v.examples.empty()) out += "\nExamples:\n";
  for (const ExampleDeclaration& e : v.examples) {
    out += "  " + std::string(e.command) + "\n      " + std::string(e.explanation) + "\n";
  }
  return out;
}

std::string helpJson() {
  nlohmann::ordered_json out{{"format", "kr-help"}, {"version", 1}, {"program", "kr"}};
  out["programVersion"] = programVersion();
  out["verbs"] = nlohmann::ordered_json::array();
  for (const VerbDeclaration* v : shownVerbs()) {
    nlohmann::ordered_json one{{"name", v->name}, {"summary", v->summary}, {"usage", usageLine(*v)}};
    one["arguments"] = nlohmann::ordered_json::array();
    for (const ArgumentDeclaration& a : v->arguments) {
      one["arguments"].push_back({{"name", a.name}, {"required", a.required}, {"many", a.many}, {"help", a.help}});
    }
    one["options"] = nlohmann::ordered_json::array();
    for (const OptionDeclaration& o : v->options) one["options"].push_back(optionJson(o));
    for (const OptionDeclaration& o : commonOptions()) one["options"].push_back(optionJson(o));
    out["verbs"].push_back(std::move(one));
  }
  out["exitCodes"] = nlohmann::ordered_json::array();
  for (const ExitMeaning& exit : exitMeanings()) {
    out["exitCodes"].push_back({{"code", static_cast<int>(exit.code)}, {"meaning", exit.meaning}});
  }
  return out.dump(2) + "\n";
}

std::string manualPage() {
  std::string out = troffHead("kr", programSummary());
  out += ".SH SYNOPSIS\n.B kr\n\\fIVERB\\fR [\\fIOPTION\\fR]... [\\fIARGUMENT\\fR]...\n.SH DESCRIPTION\n";
  out += "Reads job files that describe steel members, draws them on sheets and reports of them.\n";
  out += "Data goes to standard output, everything else to standard error.\n.SH VERBS\n";
  for (const VerbDeclaration* v : shownVerbs()) {
    out += ".TP\n\\fB" + std::string(v->name) + "\\fR\n" + troff(v->summary) + "; see \\fBkr\\-" +
           std::string(v->name) + "\\fR(1).\n";
  }
  out += ".SH OPTIONS\n";
  for (const OptionDeclaration& o : commonOptions()) out += troffOption(o);
  out += ".TP\n\\fB\\-\\-version\\fR\nshow the version, and end.\n";
  return out + troffTail();
}

std::string manualPage(const VerbDeclaration& v) {
  std::string out = troffHead("kr-" + std::string(v.name), v.summary);
  out += ".SH SYNOPSIS\n\\fBkr " + std::string(v.name) + "\\fR";
  if (!v.options.empty()) out += " [\\fIOPTION\\fR]...";
  for (const ArgumentDeclaration& a : v.arguments) out += " \\fI" + spellingOf(a) + "\\fR";
  out += "\n.SH DESCRIPTION\n" + troff(v.description) + "\n";
  for (const ArgumentDeclaration& a : v.arguments) {
    out += ".TP\n\\fI" + std::string(a.name) + "\\fR\n" + troff(a.help) + ".\n";
  }
  out += ".SH OPTIONS\n";
  for (const OptionDeclaration& o : v.options) out += troffOption(o);
  for (const OptionDeclaration& o : commonOptions()) out += troffOption(o);
  if (!v.examples.empty()) out += ".SH EXAMPLES\n";
  for (const ExampleDeclaration& e : v.examples) {
    out += ".PP\n" + troff(e.explanation) + "\n.PP\n.nf\n    " + troff(e.command) + "\n.fi\n";
  }
  out += troffTail() + ".SH SEE ALSO\n\\fBkr\\fR(1)";
  for (const VerbDeclaration* other : shownVerbs()) {
    if (other->name != v.name) out += ", \\fBkr\\-" + std::string(other->name) + "\\fR(1)";
  }
  return out + "\n";
}

std::string completionScript() {
  std::string names;
  for (const VerbDeclaration* v : shownVerbs()) names += (names.empty() ? "" : " ") + std::string(v->name);
  std::string out =
      "# Completion of kr for bash; in zsh: autoload -U +X bashcompinit && bashcompinit, then source this file.\n"
      "# Made from the declaration of the verbs: kr documents completion.\n\n"
      "# Files whose name has one of the endings given, and folders; every file when none is given.\n"
      "_kr_files() {\n"
      "  local ending\n"
      "  COMPREPLY=($(compgen -d -S / -- \"$word\"))\n"
      "  if [[ -z $1 ]]; then\n"
      "    COMPREPLY+=($(compgen -f -- \"$word\"))\n"
      "    return\n"
      "  fi\n"
      "  for ending in $1; do\n"
      "    COMPREPLY+=($(compgen -f -X \"!*.$ending\" -- \"$word\"))\n"
      "  done\n"
      "}\n\n"
      "_kr() {\n"
      "  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD-1]} place=0 i\n"
      "  COMPREPLY=()\n"
      "  if ((COMP_CWORD == 1)); then\n"
      "    COMPREPLY=($(compgen -W '" +
      names +
      " --help --version' -- \"$word\"))\n"
      "    return\n"
      "  fi\n"
      "  for ((i = 2; i < COMP_CWORD; i++)); do\n"
      "    [[ ${COMP_WORDS[i]} == -?* ]] || ((place++))\n"
      "  done\n"
      "  case \"${COMP_WORDS[1]} $before\" in\n";
  out += completionValues();
  out += "  esac\n  case ${COMP_WORDS[1]} in\n";
  for (const VerbDeclaration* v : shownVerbs()) out += completionVerb(*v);
  return out + "  esac\n}\n\ncomplete -o filenames -F _kr kr\n";
}

std::string referenceDocument() {
  std::string out = "# The program kr\n\n<!-- Made from the declaration of the verbs: kr documents reference -->\n\n";
  out +=
      "`kr` reads job files ([job-format.md](job-format.md)) that describe steel members, draws them on sheets and\n";
  out += "reports of them. Inputs stand first on the command line and outputs last, `-` stands for standard input or\n";
  out += "output, and no file is replaced without `--overwrite`. Data goes to standard output, all else to standard\n";
  out += "error. Outputs are written whole or not at all.\n\n";
  for (const VerbDeclaration* v : shownVerbs()) out += markdownVerb(*v);
  out += "## Options of every verb\n\n| Option | Meaning |\n| --- | --- |\n";
  for (const OptionDeclaration& o : commonOptions()) {
    const std::string text = spelling(o);
    out += "| `" + text.substr(text.find_first_not_of(' ')) + "` | " + explanation(o) + " |\n";
  }
  out += "\n## Exit codes\n\n| Code | Meaning |\n| --- | --- |\n";
  for (const ExitMeaning& exit : exitMeanings()) {
    out += "| " + std::to_string(static_cast<int>(exit.code)) + " | " + std::string(exit.meaning) + " |\n";
  }
  out += "\n## Environment\n\n| Variable | Meaning |\n| --- | --- |\n";
  for (const VariableDeclaration& variable : variables()) {
    out += "| `" + std::string(variable.name) + "` | " + std::string(variable.meaning) + " |\n";
  }
  out +=
      "\n## Reserved names\n\nThese options mean the same in every verb, of now and later. No verb gives one of them\n";
  out += "another meaning, nor their letters.\n\n| Option | Meaning |\n| --- | --- |\n";
  for (const ReservedOption& reserved : reservedOptions()) {
    std::string name = reserved.letter != '\0' ? "-" + std::string(1, reserved.letter) + ", " : "";
    name += reserved.name;
    out += "| `" + name + "` | " + std::string(reserved.meaning) + " |\n";
  }
  return out;
}

}  // namespace kr
