#include "Declaration.h"

namespace kr {
namespace {

constexpr std::string_view kFormats[] = {"pdf", "svg", "png", "dwg", "dxf"};
constexpr std::string_view kPageFormats[] = {"pdf", "svg", "png"};
constexpr std::string_view kDrawingFormats[] = {"dwg", "dxf"};
constexpr std::string_view kPageSizes[] = {"A0", "A1", "A2", "A3", "A4"};

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
    {"FILE", "a file to write, by its ending a pdf, svg, png, dwg or dxf; - for standard output", false, true, true,
     "pdf svg png dwg dxf"},
};
constexpr OptionDeclaration kBuildOptions[] = {
    {"--output", 'o', "FILE", "a file to write, as FILE", {}, true},
    {"--format", 'f', "FORMAT", "the kind of file, where the ending doesn't tell it", kFormats},
    {"--sheet", '\0', "N", "draw only sheet N of the job, counted from 1"},
    {"--resolution", '\0', "DPI", "the dots per inch of a png, from 30 to 1200; 150 when not given"},
    kTables,
    kOverwrite,
};
constexpr ExampleDeclaration kBuildExamples[] = {
    {"kr build roof-truss.json roof-truss.pdf", "Draw a job as PDF."},
    {"kr build roof-truss.json -o roof-truss.dwg", "Save its members as a drawing."},
    {"kr build roof-truss.json roof-truss.pdf roof-truss.svg --overwrite",
     "Draw it twice, replacing what stands there."},
    {"generate-job | kr build - - --format svg > truss.svg", "Draw what another program writes."},
};

constexpr ArgumentDeclaration kWork{
    "FILE", "a job (json) or a drawing (dwg, dxf), told by its contents; - for standard input",
    true,   false,
    true,   "json dwg dxf"};
constexpr ArgumentDeclaration kDrawing{
    "DRAWING", "the drawing, a dwg or dxf told by its contents; - for standard input", true, false, true, "dwg dxf"};

constexpr ArgumentDeclaration kBomArguments[] = {kWork};
constexpr OptionDeclaration kBomOptions[] = {
    kJson, {"--csv", '\0', {}, "write comma separated values, with a row of names"}, kTables, kOutput, kOverwrite,
};
constexpr ExampleDeclaration kBomExamples[] = {
    {"kr bom roof-truss.json", "Show the bill of materials."},
    {"kr bom roof-truss.json --csv -o roof-truss.csv", "Write it for a spreadsheet."},
    {"kr bom roof-truss.json --json | jq .totals.weight", "Take one number from it."},
};

constexpr ArgumentDeclaration kListArguments[] = {
    kWork,
    {"NAME", "the names of the members to list; all when none is given", false, true, false},
};
constexpr OptionDeclaration kListOptions[] = {kJson, kTables, kOutput, kOverwrite};
constexpr ExampleDeclaration kListExamples[] = {
    {"kr list roof-truss.json D1", "Show all that member D1 says of itself."},
    {"kr list roof-truss.dwg --json", "Read the members of a drawing."},
};

constexpr ArgumentDeclaration kInfoArguments[] = {kDrawing};
constexpr OptionDeclaration kInfoOptions[] = {kJson, kOutput, kOverwrite};
constexpr ExampleDeclaration kInfoExamples[] = {
    {"kr info roof-truss.dwg", "Show what is in a drawing."},
    {"kr info roof-truss.dwg --json | jq .modelSpace.members", "Count its members."},
};

constexpr ArgumentDeclaration kConvertArguments[] = {
    kDrawing,
    {"FILE", "the drawing to write, by its ending a dwg or dxf; - for standard output", true, false, true, "dwg dxf"},
};
constexpr OptionDeclaration kConvertOptions[] = {
    {"--format", 'f', "FORMAT", "the kind of drawing, where the ending doesn't tell it", kDrawingFormats},
    kOverwrite,
};
constexpr ExampleDeclaration kConvertExamples[] = {
    {"kr convert roof-truss.dwg roof-truss.dxf", "Write a drawing in the other format."},
};

constexpr ArgumentDeclaration kAuditArguments[] = {kDrawing};
constexpr OptionDeclaration kAuditOptions[] = {
    {"--fix", '\0', {}, "mend what can be mended, in the drawing's file; the file before stays with the ending .bak"},
    kJson,
    kOutput,
    kOverwrite,
};
constexpr ExampleDeclaration kAuditExamples[] = {
    {"kr audit roof-truss.dwg", "Look for faults; nothing is changed."},
    {"kr audit roof-truss.dwg --fix", "Mend what can be mended."},
};

constexpr ArgumentDeclaration kRecoverArguments[] = {kDrawing};
constexpr OptionDeclaration kRecoverOptions[] = {
    {"--output", 'o', "FILE", "the drawing to save, by its ending a dwg or dxf", {}, true},
    {"--format", 'f', "FORMAT", "the kind of drawing, where the ending doesn't tell it", kDrawingFormats},
    kJson,
    kOverwrite,
};
constexpr ExampleDeclaration kRecoverExamples[] = {
    {"kr recover damaged.dwg -o saved.dwg", "Save what can be read of a damaged drawing."},
};

constexpr ArgumentDeclaration kPlotArguments[] = {
    kWork,
    {"OUTPUT", "the page to write, by its ending a pdf, svg or png; - for standard output", true, false, true,
     "pdf svg png"},
};
constexpr OptionDeclaration kPlotOptions[] = {
    {"--format", 'f', "FORMAT", "the kind of page, where the ending doesn't tell it", kPageFormats},
    {"--size", '\0', "SIZE", "the size of the page; A3 when not given", kPageSizes},
    {"--scale", '\0', "SCALE", "as 1:50 or 2:1; the largest usual one that fits when not given"},
    {"--resolution", '\0', "DPI", "the dots per inch of a png, from 30 to 1200; 150 when not given"},
    kTables,
    kOverwrite,
};
constexpr ExampleDeclaration kPlotExamples[] = {
    {"kr plot roof-truss.dwg roof-truss.pdf", "Draw what is in model space."},
    {"kr plot roof-truss.dwg detail.png --size A4 --scale 1:100", "Draw it at a scale."},
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
     "Each FILE is written by its ending. A pdf holds every sheet of the job, an svg or png one. A dwg or dxf holds "
     "the "
     "members in model space, each as an entity of its class on its layer, with the picture that programs without the "
     "classes show; sheets aren't in it. Files are written whole or not at all: a wrong job, a failure or a full disk "
     "leaves what was there, and a drawing that --overwrite replaces is kept with the ending .bak.",
     kBuildArguments, kBuildOptions, kBuildExamples},
    {"bom", "write the bill of materials of a job or a drawing",
     "Reads FILE and writes the bill of materials: class, designation, dimensions, length, count, unit and total "
     "weight, and painted area. Equal members stand in one row.\n\n"
     "Lengths are in mm, weights in kg, areas in m2. Text is for people and may change; CSV and JSON are for programs.",
     kBomArguments, kBomOptions, kBomExamples, "bom.schema.json"},
    {"list", "write what members say of themselves",
     "Reads FILE and writes the listing of its members, or of those named: points, view, role, lengths, painted area, "
     "weight and the dimensions of the class.",
     kListArguments, kListOptions, kListExamples, "list.schema.json"},
    {"info", "show what is in a drawing",
     "Reads DRAWING and writes its format and version, how many objects of each class it holds, its layers and blocks, "
     "the extents of model space, the objects that are kept as proxies because their class isn't there, and its "
     "handles.",
     kInfoArguments, kInfoOptions, kInfoExamples, "info.schema.json"},
    {"convert", "write a drawing in the other format",
     "Reads DRAWING and writes all that it holds to FILE, by its ending a dwg or a dxf. What no class is there for "
     "goes "
     "along as it is.",
     kConvertArguments, kConvertOptions, kConvertExamples},
    {"plot", "draw the model space of a drawing or a job on one page",
     "Reads FILE and draws what stands in its model space on a page, that lies or stands as the drawing does, in the "
     "layers' colours and line weights. Objects whose class isn't there are drawn by the picture that came with them; "
     "what has none is told.",
     kPlotArguments, kPlotOptions, kPlotExamples},
    {"audit", "look for faults in a drawing, and mend them",
     "Reads DRAWING and looks at its structure (101: lost, 102: put right in reading), at the links of every object "
     "(201: owner, 202: layer, 203: another object that it needs, 204: its block's list, 205: an owner of itself, 206: "
     "a block that inserts itself, 299: others), at what it holds (301: no finite extents), and has every object audit "
     "itself (401: a fault that an object of a module, such as a member, finds). Findings are numbered, those fixed "
     "told apart from those that aren't.\n\n"
     "Nothing is changed without --fix. With it the file is replaced when something was mended, and the one before "
     "stays with the ending .bak. A damaged file is never replaced: see recover. The run ends with code 5 when any "
     "fault is left; what every reading of a whole file puts right is none.",
     kAuditArguments, kAuditOptions, kAuditExamples, "audit.schema.json"},
    {"recover", "save what can be read of a damaged drawing",
     "Reads DRAWING, whatever it takes, audits and mends it, saves what could be read to the file named with -o, and "
     "lists what was lost, mended or is left. The run ends with code 5 when anything was lost or a fault is left, and "
     "with 0 for a drawing that is whole or was put right.",
     kRecoverArguments, kRecoverOptions, kRecoverExamples, "recover.schema.json"},
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
    {"--size", '\0', true, "the size of a page"},
    {"--scale", '\0', true, "lengths on paper to real ones"},
    {"--fix", '\0', false, "mend what a check finds"},
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
  return "draw and weigh steel members of jobs and drawings";
}

}  // namespace kr
