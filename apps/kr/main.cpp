#include <cstdio>
#include <exception>
#include <new>

#include "Commands.h"

namespace {

struct Command {
  std::string_view verb;
  void (*run)(const CommandLine&, kr::Report&);
};

constexpr Command kCommands[] = {
    {"build", commandBuild},         {"bom", commandBom},     {"list", commandList},   {"info", commandInfo},
    {"convert", commandConvert},     {"plot", commandPlot},   {"audit", commandAudit}, {"recover", commandRecover},
    {"catalogue", commandCatalogue}, {"about", commandAbout}, {"help", commandHelp},   {"documents", commandDocuments},
};

void run(int count, char** words, kr::Report& report) {
  CommandLine line;
  if (!line.parse(count, words, report)) return;
  for (const Command& command : kCommands) {
    if (command.verb == line.verb().name) return command.run(line, report);
  }
  report.error(kr::Exit::kOther, "the verb has no command");
}

}  // namespace

int main(int count, char** words) {
  kr::Report report;
  try {
    run(count, words, report);
  } catch (const std::bad_alloc&) {
    report.error(kr::Exit::kJobFailed, "out of memory");
  } catch (const std::exception& error) {
    report.error(kr::Exit::kOther, error.what());
  }
  return static_cast<int>(report.exitCode());
}
