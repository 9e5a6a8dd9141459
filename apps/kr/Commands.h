#pragma once

#include "CommandLine.h"
#include "lib/Report.h"

// One function a verb: from the command line to the library. Each reports what goes wrong.
void commandBuild(const CommandLine& line, kr::Report& report);
void commandBom(const CommandLine& line, kr::Report& report);
void commandList(const CommandLine& line, kr::Report& report);
void commandCatalogue(const CommandLine& line, kr::Report& report);
void commandAbout(const CommandLine& line, kr::Report& report);
void commandHelp(const CommandLine& line, kr::Report& report);
void commandDocuments(const CommandLine& line, kr::Report& report);
