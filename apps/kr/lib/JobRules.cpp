#include "JobRules.h"

#include <numbers>

#include "JobBuilder.h"

namespace kr {
namespace {

constexpr std::string_view kViews[] = {"Secao", "Superior", "Inferior", "Esquerda", "Direita", "", "SecaoVerso"};
constexpr std::string_view kRoles[] = {"Barra", "Montante", "Diagonal", "Banzo Inferior", "Banzo Superior",
                                       "Viga",  "Pilar",    "Gousset",  "Chapa",          "Terca"};
constexpr std::string_view kSizes[] = {"A0", "A1", "A2", "A3", "A4"};

constexpr std::string_view kLooks[] = {"plan", "front", "back", "left", "right"};

constexpr double kLastColor = 255;
constexpr double kHalfTurn = 180;
constexpr double kFullTurn = 360;
constexpr double kThickestLine = 2.11;  // the widest of the standard line weights, mm

// Rules of single values.
constexpr ValueRule text(std::string_view meaning) {
  return {Form::kText, meaning};
}
constexpr ValueRule flag(std::string_view meaning) {
  return {Form::kFlag, meaning};
}
constexpr ValueRule length(std::string_view meaning) {
  return {Form::kNumber, meaning};
}
constexpr ValueRule object(const ObjectRule& rule, std::string_view meaning) {
  return {.form = Form::kObject, .meaning = meaning, .object = &rule};
}
constexpr ValueRule collection(Form form, const ValueRule& element, std::string_view meaning) {
  return {.form = form, .meaning = meaning, .element = &element};
}

// "1:50", "2:1" or "1:33.5" as a ratio of paper to real size; 0 when it isn't one.
double scaleOf(std::string_view text) {
  const std::size_t colon = text.find(':');
  if (colon == std::string_view::npos) return 0;
  const auto part = [](std::string_view digits) {
    if (digits.empty() || digits.find_first_not_of("0123456789.") != std::string_view::npos) return 0.0;
    return std::strtod(std::string(digits).c_str(), nullptr);
  };
  const double paper = part(text.substr(0, colon));
  const double real = part(text.substr(colon + 1));
  return paper > 0 && real > 0 && paper <= kLargestCoordinate && real <= kLargestCoordinate ? paper / real : 0;
}

void takeScale(JobBuilder& b, const Scalar& value, double& scale) {
  scale = scaleOf(value.text);
  if (scale > 0) return;
  b.problems.report("not a scale: \"" + std::string(value.text) + "\": expected paper to real size, such as \"1:50\"");
}

template <std::string JobTitle::*Field>
void takeTitle(JobBuilder& b, const Scalar& value) {
  b.title->*Field = value.text;
}

constexpr KeyRule kTitleKeys[] = {
    {"owner", text("a text: the legal owner of the drawing"), false, takeTitle<&JobTitle::owner>},
    {"project", text("a text: the project's name"), false, takeTitle<&JobTitle::project>},
    {"title", text("a text: what is drawn"), false, takeTitle<&JobTitle::title>},
    {"subtitle", text("a text: a second line of title"), false, takeTitle<&JobTitle::subtitle>},
    {"number", text("a text: the drawing's number"), false, takeTitle<&JobTitle::number>},
    {"revision", text("a text: the revision's letter or number"), false, takeTitle<&JobTitle::revision>},
    {"date", text("a text: the date of issue, such as \"2026-03-31\""), false, takeTitle<&JobTitle::date>},
    {"drawnBy", text("a text: who drew it"), false, takeTitle<&JobTitle::drawnBy>},
    {"checkedBy", text("a text: who checked it"), false, takeTitle<&JobTitle::checkedBy>},
    {"approvedBy", text("a text: who approved it"), false, takeTitle<&JobTitle::approvedBy>},
    {"documentType", text("a text: the kind of document"), false, takeTitle<&JobTitle::documentType>},
    {"status", text("a text: the document's status"), false, takeTitle<&JobTitle::status>},
};

constexpr ObjectRule kTitle{
    .what = "title",
    .keys = kTitleKeys,
    .open = [](JobBuilder& b, std::string_view) { b.title = &b.job.title; },
};

constexpr ObjectRule kSheetTitle{
    .what = "title",
    .keys = kTitleKeys,
    .open = [](JobBuilder& b, std::string_view) { b.title = &b.sheet.title; },
};

constexpr KeyRule kLayerKeys[] = {
    {"color",
     {Form::kInteger, "a colour index from 1 to 255", 1, kLastColor},
     false,
     [](JobBuilder& b, const Scalar& v) { b.layer.color = static_cast<int>(v.number); }},
    {"linetype", text("the name of a line style"), false,
     [](JobBuilder& b, const Scalar& v) { b.layer.linetype = b.job.names.intern(v.text); }},
    {"lineweight",
     {Form::kNumber, "a line weight in mm", 0, kThickestLine, true},
     false,
     [](JobBuilder& b, const Scalar& v) { b.layer.lineweight = v.number; }},
};

constexpr ObjectRule kLayer{
    .what = "layer",
    .keys = kLayerKeys,
    .open =
        [](JobBuilder& b, std::string_view name) {
          b.layer = {};
          b.layer.name = b.job.names.intern(name);
        },
    .close = [](JobBuilder& b) { b.job.layers.push_back(b.layer); },
};

constexpr ValueRule kBulge{Form::kNumber, "a bulge, the tangent of a quarter of the arc's angle", -1, 1};
constexpr ValueRule kLinePoint{.form = Form::kPoint, .meaning = "[x, y] in mm or [x, y, bulge]", .third = &kBulge};

constexpr KeyRule kProfileKeys[] = {
    {"class", text("the name of a class of profile, such as \"KrTubo\""), false,
     [](JobBuilder& b, const Scalar& v) { b.profileClassName(v.text); }},
    {"designation", text("the designation of a catalogue's section, such as \"IPE 200\""), false,
     [](JobBuilder& b, const Scalar& v) { b.profileDesignation(v.text); }},
    {"line", collection(Form::kList, kLinePoint, "a list of points, the section's middle line"), false,
     [](JobBuilder& b, const Scalar& v) { b.profileLinePoint(v.point); }, [](JobBuilder& b) { b.beginProfileLine(); }},
    {"origin",
     {.form = Form::kPoint, .meaning = "[x, y] in mm", .flat = true},
     false,
     [](JobBuilder& b, const Scalar& v) { b.profileOrigin(v); }},
};

constexpr KeyRule kProfileParameter{
    "", {Form::kAny, "a parameter of the profile"}, false, [](JobBuilder& b, const Scalar& v) {
      b.profileParameter(v);
    }};

constexpr ObjectRule kProfile{
    .what = "profile",
    .keys = kProfileKeys,
    .open = [](JobBuilder& b, std::string_view name) { b.beginProfile(name); },
    .close = [](JobBuilder& b) { b.endProfile(); },
    .otherKeys = &kProfileParameter,
};

constexpr std::string_view kElevations[] = {"", "Superior", "Inferior", "Esquerda", "Direita"};
constexpr std::string_view kDrilled[] = {"Secao", "Superior", "Inferior", "Esquerda", "Direita"};
constexpr ValueRule kElevation{.form = Form::kWord, .meaning = "elevation", .words = kElevations};
constexpr ValueRule kPlace{.form = Form::kPoint, .meaning = "[x, y] in mm", .flat = true};

constexpr double radians(double degrees) {
  return degrees * (std::numbers::pi / kHalfTurn);
}

constexpr double kMostWalls = 1000;

constexpr KeyRule kHoleKeys[] = {
    {"view",
     {.form = Form::kWord, .meaning = "view", .words = kDrilled},
     false,
     [](JobBuilder& b, const Scalar& v) { b.hole.view = static_cast<std::int8_t>(v.word); }},
    {"at", kPlace, true, [](JobBuilder& b, const Scalar& v) { b.hole.at = v.point; }},
    {"along", length("a length in mm from the bar's start"), false,
     [](JobBuilder& b, const Scalar& v) { b.hole.along = v.number; }},
    {"direction",
     {Form::kNumber, "an angle in degrees from the section's X, from -360 to 360", -kFullTurn, kFullTurn},
     false,
     [](JobBuilder& b, const Scalar& v) { b.hole.direction = radians(v.number); }},
    {"diameter",
     {Form::kNumber, "a diameter in mm", 0, kLargestCoordinate, true},
     true,
     [](JobBuilder& b, const Scalar& v) { b.hole.diameter = v.number; }},
    {"slot",
     {Form::kNumber, "the length in mm of a slot's straight part, 0 or more", 0},
     false,
     [](JobBuilder& b, const Scalar& v) { b.hole.slot = v.number; }},
    {"angle",
     {Form::kNumber, "a slot's angle in degrees, from -360 to 360", -kFullTurn, kFullTurn},
     false,
     [](JobBuilder& b, const Scalar& v) { b.hole.angle = radians(v.number); }},
    {"walls",
     {Form::kInteger, "how many walls it passes, or 0 for all", 0, kMostWalls},
     false,
     [](JobBuilder& b, const Scalar& v) { b.hole.walls = v.number == 0 ? -1 : static_cast<int>(v.number); }},
};

constexpr ObjectRule kHole{
    .what = "hole",
    .keys = kHoleKeys,
    .open = [](JobBuilder& b, std::string_view) { b.hole = {}; },
    .close = [](JobBuilder& b) { b.endHole(); },
};

constexpr KeyRule kCutKeys[] = {
    {"view", kElevation, false, [](JobBuilder& b, const Scalar& v) { b.cut.view = static_cast<std::int8_t>(v.word); }},
    {"line", collection(Form::kList, kPlace, "a list of two points, [x, y] in mm"), true,
     [](JobBuilder& b, const Scalar& v) {
       b.cut.line.push_back({v.point.x, v.point.y});
     }},
    {"side", kPlace, true, [](JobBuilder& b, const Scalar& v) { b.cut.side = v.point; }},
};

constexpr ObjectRule kCut{
    .what = "cut",
    .keys = kCutKeys,
    .open = [](JobBuilder& b, std::string_view) { b.cut = {}; },
    .close = [](JobBuilder& b) { b.endCut(); },
};

constexpr KeyRule kNotchKeys[] = {
    {"view", kElevation, false,
     [](JobBuilder& b, const Scalar& v) { b.notch.view = static_cast<std::int8_t>(v.word); }},
    {"points", collection(Form::kList, kLinePoint, "a list of points, [x, y] or [x, y, bulge]"), true,
     [](JobBuilder& b, const Scalar& v) {
       b.notch.points.push_back({v.point.x, v.point.y, v.point.z});
     }},
    {"side", kPlace, true, [](JobBuilder& b, const Scalar& v) { b.notch.side = v.point; }},
    {"open", flag("true for a line across the bar, false for a polygon"), false,
     [](JobBuilder& b, const Scalar& v) { b.notch.open = v.flag; }},
};

constexpr ObjectRule kNotch{
    .what = "notch",
    .keys = kNotchKeys,
    .open = [](JobBuilder& b, std::string_view) { b.notch = {}; },
    .close = [](JobBuilder& b) { b.endNotch(); },
};

constexpr KeyRule kSplitKeys[] = {
    {"at", length("a length in mm from the bar's start"), true,
     [](JobBuilder& b, const Scalar& v) { b.split.at = v.number; }},
    {"gap",
     {Form::kNumber, "the width of the gap in mm", 0, kLargestCoordinate, true},
     true,
     [](JobBuilder& b, const Scalar& v) { b.split.gap = v.number; }},
};

constexpr ObjectRule kSplit{
    .what = "split",
    .keys = kSplitKeys,
    .open = [](JobBuilder& b, std::string_view) { b.split = {}; },
    .close = [](JobBuilder& b) { b.modifiers.splits.push_back(b.split); },
};

constexpr KeyRule kLimitKeys[] = {
    {"from",
     {Form::kNumber, "a length in mm from the bar's start", 0, kLargestCoordinate, true},
     false,
     [](JobBuilder& b, const Scalar& v) { b.modifiers.limitFrom = v.number; }},
    {"to",
     {Form::kNumber, "a length in mm from the bar's start", 0, kLargestCoordinate, true},
     false,
     [](JobBuilder& b, const Scalar& v) { b.modifiers.limitTo = v.number; }},
    {"symbol",
     {Form::kNumber, "the size of the break lines", 0, kLargestCoordinate, true},
     false,
     [](JobBuilder& b, const Scalar& v) { b.modifiers.limitSymbol = v.number; }},
};

constexpr ObjectRule kLimits{
    .what = "limits",
    .keys = kLimitKeys,
    .open = [](JobBuilder& b, std::string_view) { b.modifiers.limited = true; },
};

constexpr ValueRule kHoleElement = object(kHole, "an object: a hole");
constexpr ValueRule kCutElement = object(kCut, "an object: a cut");
constexpr ValueRule kNotchElement = object(kNotch, "an object: a notch");
constexpr ValueRule kSplitElement = object(kSplit, "an object: a split");

constexpr KeyRule kMemberKeys[] = {
    {"name", text("the member's name, unique in the job"), true,
     [](JobBuilder& b, const Scalar& v) {
       if (v.text.empty()) b.problems.report("a name must not be empty");
       b.member.name = b.job.names.intern(v.text);
     }},
    {"profile", text("the name of one of \"profiles\""), true,
     [](JobBuilder& b, const Scalar& v) { b.member.profile = b.job.names.intern(v.text); }},
    {"from",
     {Form::kPointOrName, "the name of a node, or [x, y] or [x, y, z] in mm"},
     true,
     [](JobBuilder& b, const Scalar& v) { b.member.from = b.nodeReference(v); }},
    {"to",
     {Form::kPointOrName, "the name of a node, or [x, y] or [x, y, z] in mm"},
     true,
     [](JobBuilder& b, const Scalar& v) { b.member.to = b.nodeReference(v); }},
    {"view",
     {.form = Form::kWord, .meaning = "view", .words = kViews},
     false,
     [](JobBuilder& b, const Scalar& v) { b.member.view = static_cast<std::int8_t>(v.word); }},
    {"role",
     {.form = Form::kWord, .meaning = "role", .words = kRoles},
     false,
     [](JobBuilder& b, const Scalar& v) { b.member.role = static_cast<std::int8_t>(v.word); }},
    {"rotation",
     {Form::kNumber, "a turn in degrees, from -360 to 360", -kFullTurn, kFullTurn},
     false,
     [](JobBuilder& b, const Scalar& v) { b.member.rotation = v.number * (std::numbers::pi / kHalfTurn); }},
    {"layer", text("the name of a layer"), false,
     [](JobBuilder& b, const Scalar& v) { b.member.layer = b.job.names.intern(v.text); }},
    {"startSetback", length("a length in mm from the start node"), false,
     [](JobBuilder& b, const Scalar& v) { b.member.startSetback = v.number; }},
    {"endSetback", length("a length in mm from the end node"), false,
     [](JobBuilder& b, const Scalar& v) { b.member.endSetback = v.number; }},
    {"clearance",
     {Form::kNumber, "a gap in mm, 0 or more, to the faces of the members met", 0},
     false,
     [](JobBuilder& b, const Scalar& v) { b.member.clearance = v.number; }},
    {"holes", collection(Form::kList, kHoleElement, "a list of holes")},
    {"cuts", collection(Form::kList, kCutElement, "a list of cuts")},
    {"notches", collection(Form::kList, kNotchElement, "a list of notches")},
    {"splits", collection(Form::kList, kSplitElement, "a list of splits")},
    {"limits", object(kLimits, "an object: what of the member is shown")},
    {"scale", text("a scale, such as \"1:10\""), false,
     [](JobBuilder& b, const Scalar& v) { takeScale(b, v, b.modifiers.scale); }},
    {"scaleAlong", text("a scale, such as \"1:50\""), false,
     [](JobBuilder& b, const Scalar& v) { takeScale(b, v, b.modifiers.scaleAlong); }},
};

constexpr ObjectRule kMember{
    .what = "member",
    .keys = kMemberKeys,
    .open = [](JobBuilder& b, std::string_view) { b.beginMember(); },
    .close = [](JobBuilder& b) { b.endMember(); },
};

constexpr double kLongestPaper = 2000;

constexpr KeyRule kDetailKeys[] = {
    {"at",
     {Form::kPointOrName, "the name of a node, or [x, y] or [x, y, z] in mm"},
     true,
     [](JobBuilder& b, const Scalar& v) { b.detail.at = b.nodeReference(v); }},
    {"scale", text("a scale, such as \"1:10\""), true,
     [](JobBuilder& b, const Scalar& v) { takeScale(b, v, b.detail.scale); }},
    {"width",
     {Form::kNumber, "a width on paper in mm", 0, kLongestPaper, true},
     false,
     [](JobBuilder& b, const Scalar& v) { b.detail.width = v.number; }},
    {"height",
     {Form::kNumber, "a height on paper in mm", 0, kLongestPaper, true},
     false,
     [](JobBuilder& b, const Scalar& v) { b.detail.height = v.number; }},
};

constexpr ObjectRule kDetail{
    .what = "detail",
    .keys = kDetailKeys,
    .open = [](JobBuilder& b, std::string_view) { b.detail = {}; },
    .close = [](JobBuilder& b) { b.sheet.details.push_back(b.detail); },
};

constexpr ValueRule kDetailElement = object(kDetail, "an object: a detail");

constexpr ValueRule kNote = text("a line of text");

constexpr ValueRule kMemberName = text("the name of a member");
constexpr ValueRule kRoleName{.form = Form::kWord, .meaning = "role", .words = kRoles};
constexpr ValueRule kShownView{.form = Form::kWord, .meaning = "view", .words = kViews};
constexpr ValueRule kProfileName = text("the name of one of \"profiles\"");

constexpr KeyRule kViewKeys[] = {
    {"look",
     {.form = Form::kWord, .meaning = "look", .words = kLooks},
     false,
     [](JobBuilder& b, const Scalar& v) {
       b.view.look = static_cast<Look>(v.word);
       b.view.looks = true;
     }},
    {"bar", text("the name of a member, whose views are laid out"), false,
     [](JobBuilder& b, const Scalar& v) { b.view.bar = b.job.names.intern(v.text); }},
    {"show", collection(Form::kList, kShownView, "a list of views of the bar"), false,
     [](JobBuilder& b, const Scalar& v) { b.view.show.push_back(v.word); }},
    {"title", text("a text: what stands above the view"), false,
     [](JobBuilder& b, const Scalar& v) { b.view.title = v.text; }},
    {"scale", text("a scale, such as \"1:50\""), false,
     [](JobBuilder& b, const Scalar& v) { takeScale(b, v, b.view.scale); }},
    {"from", length("a coordinate in mm along the look"), false,
     [](JobBuilder& b, const Scalar& v) { b.view.from = v.number; }},
    {"to", length("a coordinate in mm along the look"), false,
     [](JobBuilder& b, const Scalar& v) { b.view.to = v.number; }},
    {"members", collection(Form::kList, kMemberName, "a list of names of members"), false,
     [](JobBuilder& b, const Scalar& v) { b.view.members.push_back(b.job.names.intern(v.text)); }},
    {"roles", collection(Form::kList, kRoleName, "a list of roles"), false,
     [](JobBuilder& b, const Scalar& v) { b.view.roles.push_back(v.word); }},
    {"marks", flag("true or false: write the marks on the members"), false,
     [](JobBuilder& b, const Scalar& v) { b.view.marks = v.flag; }},
    {"dimensions", flag("true or false: draw the main dimensions"), false,
     [](JobBuilder& b, const Scalar& v) { b.view.dimensions = v.flag; }},
};

constexpr ObjectRule kView{
    .what = "view",
    .keys = kViewKeys,
    .open = [](JobBuilder& b, std::string_view) { b.beginView(); },
    .close = [](JobBuilder& b) { b.endView(); },
};

constexpr ValueRule kViewElement = object(kView, "an object: a view");

constexpr KeyRule kSheetKeys[] = {
    {"size",
     {.form = Form::kWord, .meaning = "size of sheet", .words = kSizes},
     false,
     [](JobBuilder& b, const Scalar& v) { b.sheet.size = v.text; }},
    {"scale", text("a scale, such as \"1:50\""), false,
     [](JobBuilder& b, const Scalar& v) { takeScale(b, v, b.sheet.scale); }},
    {"sectionScale", text("a scale, such as \"1:5\""), false,
     [](JobBuilder& b, const Scalar& v) { takeScale(b, v, b.sheet.sectionScale); }},
    {"title", object(kSheetTitle, "an object: what this sheet's title block says differently")},
    {"sections", flag("true or false: draw the sections"), false,
     [](JobBuilder& b, const Scalar& v) { b.sheet.sections = v.flag; }},
    {"table", flag("true or false: draw the bill of materials"), false,
     [](JobBuilder& b, const Scalar& v) { b.sheet.table = v.flag; }},
    {"marks", flag("true or false: write the marks on the members"), false,
     [](JobBuilder& b, const Scalar& v) { b.sheet.marks = v.flag; }},
    {"dimensions", flag("true or false: draw the main dimensions"), false,
     [](JobBuilder& b, const Scalar& v) { b.sheet.dimensions = v.flag; }},
    {"details", collection(Form::kList, kDetailElement, "a list of details")},
    {"views", collection(Form::kList, kViewElement, "a list of views")},
    {"profiles", collection(Form::kList, kProfileName, "a list of names of profiles"), false,
     [](JobBuilder& b, const Scalar& v) { b.sheet.profiles.push_back(b.job.names.intern(v.text)); }},
    {"notes", collection(Form::kList, kNote, "a list of texts"), false,
     [](JobBuilder& b, const Scalar& v) { b.sheet.notes.emplace_back(v.text); }},
};

constexpr ObjectRule kSheet{
    .what = "sheet",
    .keys = kSheetKeys,
    .open = [](JobBuilder& b, std::string_view) { b.sheet = {}; },
    .close = [](JobBuilder& b) { b.endSheet(); },
};

constexpr ValueRule kCatalogueElement = text("the name of a file, from the job's folder on");
constexpr ValueRule kLayerElement = object(kLayer, "an object: a layer");
constexpr ValueRule kNodeElement{Form::kPoint, "a node: [x, y] or [x, y, z] in mm"};
constexpr ValueRule kProfileElement = object(kProfile, "an object: a profile");
constexpr ValueRule kMemberElement = object(kMember, "an object: a member");
constexpr ValueRule kSheetElement = object(kSheet, "an object: a sheet");

constexpr double kFormatVersion = 1;

constexpr KeyRule kJobKeys[] = {
    {"kr", {Form::kInteger, "the version of the format, 1", kFormatVersion, kFormatVersion}, true},
    {"$schema", text("a text: the address of the format's schema")},
    {"title", object(kTitle, "an object: what the title block says")},
    {"catalogues", collection(Form::kList, kCatalogueElement, "a list of files of tables"), false,
     [](JobBuilder& b, const Scalar& v) { b.job.catalogues.emplace_back(v.text); }},
    {"layers", collection(Form::kMap, kLayerElement, "an object of layers by name")},
    {"nodes", collection(Form::kMap, kNodeElement, "an object of nodes by name"), false,
     [](JobBuilder& b, const Scalar& v) { b.addNode(v.key, v.point); }},
    {"profiles", collection(Form::kMap, kProfileElement, "an object of profiles by name"), true},
    {"members", collection(Form::kList, kMemberElement, "a list of members"), true},
    {"sheets", collection(Form::kList, kSheetElement, "a list of sheets")},
};

constexpr ObjectRule kJob{.what = "job", .keys = kJobKeys};

}  // namespace

const ObjectRule& jobRule() {
  return kJob;
}

std::string_view viewWord(int view) {
  return view >= 0 && view < 7 ? kViews[view] : std::string_view();
}
std::string_view lookWord(Look look) {
  return kLooks[static_cast<std::size_t>(look)];
}
std::string_view roleWord(int role) {
  return role >= 0 && role < 10 ? kRoles[role] : std::string_view();
}

}  // namespace kr
