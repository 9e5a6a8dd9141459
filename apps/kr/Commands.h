#pragma once

#include "CommandLine.h"
#include "lib/Report.h"

// One function a verb: from the command line to the library. Each reports what goes wrong.
void commandBuild(const CommandLine& line, kr::Report& report);
void commandBom(const CommandLine& line, kr::Report& report);
void commandList(const CommandLine& line, kr::Report& report);
void commandInfo(const CommandLine& line, kr::Report& report);
void commandConvert(const CommandLine& line, kr::Report& report);
void commandPlot(const CommandLine& line, kr::Report& report);
void commandAudit(const CommandLine& line, kr::Report& report);
void commandRecover(const CommandLine& line, kr::Report& report);
void commandCatalogue(const CommandLine& line, kr::Report& report);
void commandAbout(const CommandLine& line, kr::Report& report);
void commandHelp(const CommandLine& line, kr::Report& report);
void commandDocuments(const CommandLine& line, kr::Report& report);

/// A whole number of an option within its limits; `number` stays when it wasn't given. False, reported, when it is
/// none.
bool wholeNumber(const CommandLine& line, std::string_view option, int low, int high, int& number, kr::Report& report);
