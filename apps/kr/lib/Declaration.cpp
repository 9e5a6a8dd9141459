#include "Declaration.h"

namespace kr {
namespace {

constexpr std::string_view kFormats[] = {"pdf", "svg", "png"};

constexpr OptionDeclaration kCommon[] = {
    {"--help", 'h', {}, "show how the verb is used, and end"},
    {"--quiet", 'q', {}, "say nothing but errors"},
    {"--verbose", 'v', {}, "tell what is done"},
    {"--data", '\0', "DIR", "the install folder with layers, line styles and names", {}, true},
};

constexpr OptionDeclaration kOutput{"--output", 'o', "FILE", "write to FILE instead of standard output", {}, true};
constexpr OptionDeclaration kOverwrite{"--overwrite", '\0', {}, "replace output files that exist"};
constexpr OptionDeclaration kJson{"--json", '\0', {}, "write JSON by the published schema"};

constexpr OptionDeclaration kTables{
    "--catalogue", '\0', "FILE", "a table of sections of one's own, beside those of the install folder", {}, true};

constexpr ArgumentDeclaration kJob{"JOB", "the job file, or - for standard input", true, false, true, "json"};

constexpr ArgumentDeclaration kBuildArguments[] = {
    kJob,
    {"FILE", "a drawing to write, by its ending a pdf, svg or png; - for standard output", true, true, true,
     "pdf svg png"},
};
constexpr OptionDeclaration kBuildOptions[] = {
    {"--format", 'f', "FORMAT", "the kind of drawing, where the ending doesn't tell it", kFormats},
    {"--sheet", '\0', "N", "draw only sheet N of the job, counted from 1"},
    {"--resolution", '\0', "DPI", "the dots per inch of a png, from 30 to 1200; 150 when not given"},
    kTables,
    kOverwrite,
};
constexpr ExampleDeclaration kBuildExamples[] = {
    {"kr build roof-truss.json roof-truss.pdf", "Draw a job as PDF."},
    {"kr build roof-truss.json roof-truss.pdf roof-truss.svg --overwrite",
     "Draw it twice, replacing what stands there."},
    {"generate-job | kr build - - --format svg > truss.svg", "Draw what another program writes."},
};

constexpr ArgumentDeclaration kBomArguments[] = {kJob};
constexpr OptionDeclaration kBomOptions[] = {
    kJson, {"--csv", '\0', {}, "write comma separated values, with a row of names"}, kTables, kOutput, kOverwrite,
};
constexpr ExampleDeclaration kBomExamples[] = {
    {"kr bom roof-truss.json", "Show the bill of materials."},
    {"kr bom roof-truss.json --csv -o roof-truss.csv", "Write it for a spreadsheet."},
    {"kr bom roof-truss.json --json | jq .totals.weight", "Take one number from it."},
};

constexpr ArgumentDeclaration kListArguments[] = {
    kJob,
    {"NAME", "the names of the members to list; all when none is given", false, true, false},
};
constexpr OptionDeclaration kListOptions[] = {kJson, kTables, kOutput, kOverwrite};
constexpr ExampleDeclaration kListExamples[] = {
    {"kr list roof-truss.json D1", "Show all that member D1 says of itself."},
};

constexpr ArgumentDeclaration kCatalogueArguments[] = {
    {"ACTION", "search or show; the tables are listed when none is given", false, false, false},
    {"TEXT", "the words to search for, or the designation of the section to show", false, true, false},
};
constexpr OptionDeclaration kCatalogueOptions[] = {
    kJson,
    {"--output", 'o', "FILE", "write to FILE; with show, draw the section there: a pdf, svg or png", {}, true},
    kTables,
    kOverwrite,
};
constexpr ExampleDeclaration kCatalogueExamples[] = {
    {"kr catalogue", "List the tables."},
    {"kr catalogue search ipe", "List the sections whose designation or series has that word."},
    {"kr catalogue show IPE 200", "Show the numbers of a section."},
    {"kr catalogue show W250x44.8 -o beam.pdf", "Draw its section and elevations too."},
};

constexpr OptionDeclaration kAboutOptions[] = {kJson, kOutput, kOverwrite};
constexpr ExampleDeclaration kAboutExamples[] = {
    {"kr about", "Show the version and build of the module."},
};

constexpr ArgumentDeclaration kHelpArguments[] = {
    {"VERB", "the verb to explain; an overview when none is given", false, false, false},
};
constexpr OptionDeclaration kHelpOptions[] = {kJson};
constexpr ExampleDeclaration kHelpExamples[] = {
    {"kr help build", "Explain a verb."},
    {"kr help --json", "Describe every verb and option for another program."},
};

constexpr ArgumentDeclaration kDocumentsArguments[] = {
    {"KIND", "man, completion or reference", true, false, false},
    {"NAME", "the verb whose manual page is wanted; the program's own when none is given", false, false, false},
};

constexpr VerbDeclaration kVerbs[] = {
    {"build", "draw a job",
     "Reads JOB, makes its members and draws them on the job's sheets: every member in elevation in its place, the "
     "distinct sections beside it, dimensions, marks, the bill of materials and the title block.\n\n"
     "Each FILE is written by its ending. A pdf holds every sheet of the job, an svg or png one. Files are written "
     "whole or not at all: a wrong job, a failure or a full disk leaves what was there.",
     kBuildArguments, kBuildOptions, kBuildExamples},
    {"bom", "write a job's bill of materials",
     "Reads JOB and writes its bill of materials: class, designation, dimensions, length, count, unit and total "
     "weight, and painted area. Equal members stand in one row.\n\n"
     "Lengths are in mm, weights in kg, areas in m2. Text is for people and may change; CSV and JSON are for programs.",
     kBomArguments, kBomOptions, kBomExamples, "bom.schema.json"},
    {"list", "write what members say of themselves",
     "Reads JOB and writes the listing of its members, or of those named: points, view, role, lengths, painted area, "
     "weight and the dimensions of the class.",
     kListArguments, kListOptions, kListExamples, "list.schema.json"},
    {"catalogue", "list, search or show standard sections",
     "Without ACTION, lists the tables of standard sections and how many sections each has. search lists the sections "
     "in one of whose designations, or in whose series, every word stands. show tells which class draws a section and "
     "with which parameters, its area, weight and perimeter, and with -o draws its section and its four "
     "elevations.\n\n"
     "Designations are compared without spaces and letter case. Lengths are in mm, areas in mm2, weights in kg/m, "
     "angles in degrees. What is wrong in a table is told with its place; the rest of it is used.",
     kCatalogueArguments, kCatalogueOptions, kCatalogueExamples, "catalogue.schema.json"},
    {"about",
     "show the version and build of the module",
     "Starts the module and runs its command SOBREKR_TRAMA, which tells its version and build.",
     {},
     kAboutOptions,
     kAboutExamples,
     "about.schema.json"},
    {"help", "explain the program or a verb", "Shows how the program or VERB is used.", kHelpArguments, kHelpOptions,
     kHelpExamples, "help.schema.json"},
    {"documents",
     "write the manual pages, the completion or the reference",
     "Writes, to standard output, a document made from the declaration of the verbs.",
     kDocumentsArguments,
     {},
     {},
     {},
     true},
};

constexpr ReservedOption kReserved[] = {
    {"--help", 'h', false, "show how the verb is used"},
    {"--version", '\0', false, "show the program's version"},
    {"--input", 'i', true, "an input, where its place on the command line can't tell"},
    {"--output", 'o', true, "the output, where its place on the command line can't tell"},
    {"--format", 'f', true, "the output's format, where its ending can't tell"},
    {"--input-format", '\0', true, "the input's format, where its ending can't tell"},
    {"--overwrite", '\0', false, "replace output files that exist"},
    {"--layer", 'l', true, "layers, by comma or by repetition"},
    {"--quiet", 'q', false, "say nothing but errors"},
    {"--verbose", 'v', false, "tell what is done"},
    {"--json", '\0', false, "write JSON by the published schema"},
    {"--csv", '\0', false, "write comma separated values"},
    {"--data", '\0', true, "the install folder"},
    {"--catalogue", '\0', true, "a table of sections"},
    {"--sheet", '\0', true, "a sheet of the job, counted from 1"},
    {"--progress", '\0', false, "show progress even when standard error is no terminal"},
    {"--no-progress", '\0', false, "never show progress"},
    {"--strict", '\0', false, "take warnings for errors"},
    {"--depfile", '\0', true, "write the inputs as rules for a build system"},
    {"--exit-code-violations", '\0', false, "end with code 5 when a check finds something"},
};

constexpr ExitMeaning kExits[] = {
    {Exit::kOk, "everything was done"},
    {Exit::kArguments, "the command line is wrong"},
    {Exit::kOther, "something else failed"},
    {Exit::kBadInput, "an input file can't be read, or is wrong"},
    {Exit::kOutputConflict, "an output exists, or can't be written where it is to go"},
    {Exit::kRuleViolation, "a check that was asked for found something"},
    {Exit::kJobFailed, "the input is good, but the work failed"},
};

constexpr VariableDeclaration kVariables[] = {
    {"KRTRAMA_BRICSV17",
     "the install folder with Prototipo/ and Support/. When it isn't set and --data isn't given, the folder is "
     "../share/krobjects beside the program's own."},
    {"SOURCE_DATE_EPOCH", "seconds since 1970: the date that outputs carry, so that equal input gives equal bytes"},
};

}  // namespace

std::span<const VerbDeclaration> verbs() {
  return kVerbs;
}

const VerbDeclaration* verb(std::string_view name) {
  for (const VerbDeclaration& row : kVerbs) {
    if (row.name == name) return &row;
  }
  return nullptr;
}

std::span<const OptionDeclaration> commonOptions() {
  return kCommon;
}
std::span<const ReservedOption> reservedOptions() {
  return kReserved;
}
std::span<const ExitMeaning> exitMeanings() {
  return kExits;
}
std::span<const VariableDeclaration> variables() {
  return kVariables;
}
std::string_view programSummary() {
  return "draw and weigh steel members from a job file";
}

}  // namespace kr
