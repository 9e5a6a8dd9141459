#include <algorithm>
#include <memory>
#include <nlohmann/json.hpp>
#include <numbers>
#include <optional>

#include "Bom.h"
#include "CatalogueProfile.h"
#include "CatalogueTables.h"
#include "Drawing.h"
#include "Files.h"
#include "Number.h"
#include "ProfileRows.h"
#include "Session.h"
#include "Sheet.h"
#include "Suggest.h"
#include "Verbs.h"
#include "host/db/db.h"
#include "object/KrObject.h"

// kr catalogue: the tables, a search, one section.

namespace kr {
namespace {

using nlohmann::ordered_json;

constexpr int kPictureResolution = 150;
constexpr double kSampleLength = 1000;  // of the member that is measured: one metre
constexpr double kPictureLength = 4;    // of the members that are drawn, in sizes of the section
constexpr double kPictureStep = 1.5;    // from one to the next, likewise
constexpr double kDegrees = 180 / std::numbers::pi;

std::string_view classOf(const Catalogue& catalogue, const CatalogueRow& row) {
  return profileOf(catalogue, row).profileClass->name;
}

// Rows of cells as aligned columns.
std::string aligned(const std::vector<std::vector<std::string>>& rows) {
  std::vector<std::size_t> widths;
  for (const auto& row : rows) {
    widths.resize(std::max(widths.size(), row.size()));
    for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], row[i].size());
  }
  std::string text;
  for (const auto& row : rows) {
    std::string line;
    for (std::size_t i = 0; i < row.size(); ++i) {
      line += row[i] + std::string(widths[i] - row[i].size() + 2, ' ');
    }
    text += line.substr(0, line.find_last_not_of(' ') + 1) + "\n";
  }
  return text;
}

std::string tablesText(const Catalogue& catalogue) {
  std::vector<std::vector<std::string>> rows;
  for (const CatalogueTable& table : catalogue.tables()) {
    const std::string first =
        table.rowCount == 0 ? "" : std::string(classOf(catalogue, catalogue.rows()[table.firstRow]));
    rows.push_back(
        {table.name, std::to_string(table.rowCount), first, std::string(table.series), std::string(table.standard)});
  }
  return aligned(rows);
}

ordered_json tablesJson(const Catalogue& catalogue) {
  ordered_json tables = ordered_json::array();
  for (const CatalogueTable& table : catalogue.tables()) {
    tables.push_back({{"name", table.name},
                      {"file", table.file},
                      {"series", table.series},
                      {"shape", shapeWord(table.shape)},
                      {"standard", table.standard},
                      {"source", table.source},
                      {"sections", table.rowCount}});
  }
  return {{"tables", tables}};
}

std::string foundText(const Catalogue& catalogue, const std::vector<const CatalogueRow*>& found) {
  std::vector<std::vector<std::string>> rows;
  rows.reserve(found.size());
  for (const CatalogueRow* row : found) {
    rows.push_back({std::string(row->designation), std::string(row->second), catalogue.tableOf(*row).name,
                    std::string(classOf(catalogue, *row))});
  }
  return aligned(rows);
}

ordered_json foundJson(const Catalogue& catalogue, const std::vector<const CatalogueRow*>& found) {
  ordered_json sections = ordered_json::array();
  for (const CatalogueRow* row : found) {
    sections.push_back({{"designation", row->designation},
                        {"second", row->second},
                        {"table", catalogue.tableOf(*row).name},
                        {"class", classOf(catalogue, *row)}});
  }
  return {{"sections", sections}};
}

// One section of a catalogue, and what a member of it says of itself.
struct Shown {
  const CatalogueRow* row = nullptr;
  const CatalogueTable* table = nullptr;
  JobProfile profile;
  double area = 0;
  double perimeter = 0;
  double weight = 0;
  double height = 0;
  double width = 0;
};

bool isAngle(Range range) {
  return range == Range::kTurn || range == Range::kBend || range == Range::kSlope;
}

// Rounded to what is seen, without zeros behind it.
std::string number(double value) {
  return shortest(std::stod(fixed(value, 3)));
}

std::string shownText(const Shown& shown) {
  std::vector<std::vector<std::string>> rows;
  if (!shown.row->second.empty()) rows.push_back({"second name", std::string(shown.row->second)});
  rows.push_back({"series", std::string(shown.table->series)});
  if (!shown.table->standard.empty()) rows.push_back({"standard", std::string(shown.table->standard)});
  rows.push_back({"table", shown.table->file + ", line " + std::to_string(shown.row->line)});
  const ProfileClass& drawn = *shown.profile.profileClass;
  rows.push_back({"class", std::string(drawn.name)});
  for (std::size_t i = 0; i < drawn.parameters.size(); ++i) {
    const ProfileParameter& parameter = drawn.parameters[i];
    const double value = shown.profile.values[i];
    if (value == 0 || parameter.range == Range::kFigure) continue;
    const bool angle = isAngle(parameter.range);
    const std::string unit = angle ? " degrees" : parameter.range == Range::kKind ? "" : " mm";
    rows.push_back({"  " + std::string(parameter.key), number(angle ? value * kDegrees : value) + unit});
  }
  rows.push_back({"area", number(shown.area) + " mm2"});
  rows.push_back({"weight", number(shown.weight) + " kg/m"});
  rows.push_back({"perimeter", number(shown.perimeter) + " mm"});
  return std::string(shown.row->designation) + "\n" + aligned(rows);
}

ordered_json shownJson(const Shown& shown) {
  const ProfileClass& drawn = *shown.profile.profileClass;
  ordered_json parameters = ordered_json::object();
  for (std::size_t i = 0; i < drawn.parameters.size(); ++i) {
    // A wall has become the inner diameter.
    if (shown.profile.values[i] == 0 && !drawn.parameters[i].required) continue;
    const double value = shown.profile.values[i];
    parameters[std::string(drawn.parameters[i].key)] = isAngle(drawn.parameters[i].range) ? value * kDegrees : value;
  }
  return {{"section",
           {{"designation", shown.row->designation},
            {"second", shown.row->second},
            {"table", shown.table->name},
            {"series", shown.table->series},
            {"standard", shown.table->standard},
            {"source", shown.table->source},
            {"class", drawn.name},
            {"parameters", parameters},
            {"height", shown.height},
            {"width", shown.width},
            {"area", shown.area},
            {"weight", shown.weight},
            {"perimeter", shown.perimeter}}}};
}

void measure(Shown& shown) {
  AcGePoint3d start(0, 0, 0);
  AcGePoint3d end(kSampleLength, 0, 0);
  constexpr int kSectionView = 0;
  const std::unique_ptr<KrObject> member(
      shown.profile.profileClass->make(start, end, kSectionView, shown.profile.values));
  shown.area = member->getArea();
  shown.perimeter = member->getPerimetro();
  if (member->getLinearWeight(shown.weight) == 0) shown.weight = shown.area * kSteel;
  shown.height = member->getAltura();
  shown.width = member->getLargura();
}

// A job of one member in each of the four views, one below the other.
Job pictureJob(const Shown& shown) {
  Job job;
  const double size = sectionSize(*shown.profile.profileClass, shown.profile.values);
  job.profiles.push_back(shown.profile);
  job.profiles[0].name = job.profiles[0].designation = job.names.intern(shown.row->designation);
  constexpr int kFirst = 1;
  constexpr int kLast = 4;
  std::string views;
  for (int view = kFirst; view <= kLast; ++view) {
    const double y = -(view - kFirst) * kPictureStep * size;
    JobMember member;
    member.name = job.names.intern(viewWord(view));
    member.profile = 0;
    member.view = static_cast<std::int8_t>(view);
    member.from = static_cast<std::uint32_t>(job.points.size());
    member.to = member.from + 1;
    job.points.push_back({0, y});
    job.points.push_back({kPictureLength * size, y});
    job.members.push_back(member);
    views += (views.empty() ? "" : ", ") + std::string(viewWord(view));
  }
  job.title.title = shown.row->designation;
  job.title.subtitle = shown.table->series;
  JobSheet sheet;
  sheet.size = "A3";
  sheet.table = sheet.marks = sheet.dimensions = false;
  sheet.notes.push_back("Elevations from above: " + views);
  sheet.notes.push_back("Area " + number(shown.area) + " mm2, weight " + number(shown.weight) + " kg/m");
  sheet.notes.push_back("Perimeter " + number(shown.perimeter) + " mm");
  job.sheets.push_back(sheet);
  return job;
}

bool drawPicture(const Shown& shown, const Session& session, plot::PlotFormat format, std::string& bytes,
                 Report& report) {
  const Job job = pictureJob(shown);
  std::vector<AcDbObjectId> members;
  std::string why;
  if (!drawMembers(job, *session.database(), members, why)) {
    report.error(Exit::kJobFailed, why);
    return false;
  }
  const Bom bill = makeBom(piecesOf(job, members));
  auto sheet = layOutSheet({job, bill, *session.database()}, job.sheets[0], 1, 1, why);
  if (!sheet) {
    report.error(Exit::kJobFailed, why);
    return false;
  }
  plot::PlotOptions options;
  options.pngDpi = kPictureResolution;
  options.colors = plot::ColorPolicy::black;
  options.title = job.title.title;
  std::vector<plot::PlotSheet> sheets;
  sheets.push_back(std::move(*sheet));
  plot::PlotOutput output = plot::plotToBytes(sheets, format, options);
  if (output.error) {
    report.error(Exit::kJobFailed, output.error->text);
    return false;
  }
  bytes = std::move(output.bytes);
  return true;
}

// The section that was asked for; false, reported, when there is none or more than one.
bool pickSection(const Catalogue& catalogue, const std::string& designation, Shown& shown, Report& report) {
  const CatalogueMatch match = catalogue.find(designation);
  if (match.row == nullptr) {
    report.error(Exit::kArguments,
                 "unknown designation " + inQuotes(designation) + ": " + catalogue.suggestion(designation));
    return false;
  }
  if (match.other != nullptr) {
    report.error(Exit::kArguments, "two tables have " + inQuotes(designation) + ": name one, " +
                                       inQuotes(catalogue.tableOf(*match.row).name + ":" + designation) + " or " +
                                       inQuotes(catalogue.tableOf(*match.other).name + ":" + designation));
    return false;
  }
  shown.row = match.row;
  shown.table = &catalogue.tableOf(*match.row);
  const CatalogueProfile profile = profileOf(catalogue, *match.row);
  shown.profile.profileClass = profile.profileClass;
  ParameterProblem problem;
  if (settleParameters(*profile.profileClass, profile.given, shown.profile.values, problem)) return true;
  report.error(Exit::kBadInput, inQuotes(designation) + " gives no section: " + problem.message);
  return false;
}

void show(const CatalogueRequest& request, const Catalogue& catalogue, const std::string& folder, Report& report) {
  std::optional<plot::PlotFormat> format;
  if (request.output != kStandardStream) {
    format = plot::formatOf(request.output);
    if (!format) {
      report.error(Exit::kArguments, inQuotes(request.output) + " ends in none of .pdf, .svg and .png");
      return;
    }
  }
  Shown shown;
  if (!pickSection(catalogue, request.text, shown, report)) return;
  const std::unique_ptr<Session> session = Session::start(folder, report);
  if (session == nullptr) return;
  measure(shown);
  std::string picture;
  if (format && !drawPicture(shown, *session, *format, picture, report)) return;
  if (format && !writeOutput(request.output, picture, request.overwrite, report)) return;
  ordered_json out{{"format", "kr-catalogue"}, {"version", 1}};
  out.update(shownJson(shown));
  writeOutput("-", request.json ? out.dump(2) + "\n" : shownText(shown), false, report);
}

}  // namespace

void catalogue(const CatalogueRequest& request, Report& report) {
  if (!checkOutput(request.output, request.catalogue, request.overwrite, report)) return;
  const std::string folder = findInstallFolder(request.data);
  CatalogueShelf shelf(folder);
  const Catalogue& tables = shelf.open();
  if (tables.tables().empty()) {
    report.error(Exit::kBadInput, "the install folder " + inQuotes(folder) +
                                      " has no tables in catalogue/: name it with "
                                      "--data or install it anew");
    return;
  }
  if (!addTables(shelf, request.catalogue, report)) return;
  tellTables(shelf, report);
  if (request.action == CatalogueAction::kShow) return show(request, tables, folder, report);
  ordered_json out{{"format", "kr-catalogue"}, {"version", 1}};
  std::string text;
  if (request.action == CatalogueAction::kList) {
    request.json ? out.update(tablesJson(tables)) : void(text = tablesText(tables));
  } else {
    const std::vector<const CatalogueRow*> found = tables.search(request.text);
    if (found.empty())
      report.warning("no section has " + inQuotes(request.text) + ": " + tables.suggestion(request.text));
    request.json ? out.update(foundJson(tables, found)) : void(text = foundText(tables, found));
  }
  writeOutput(request.output, request.json ? out.dump(2) + "\n" : text, request.overwrite, report);
}

}  // namespace kr
