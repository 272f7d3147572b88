#include <fmt/format.h>

#include <array>
#include <variant>

#include "core/NumberText.h"
#include "core/Text.h"
#include "strond/KORVAStrond2D.h"

namespace korva {

namespace {

struct Center {
  int number;  // 1 to kMaxRows
};
// As the solver counts the loading conditions, from 1 on.
struct Condition {};
struct Units {};

// A text stands in the line as it is.
using Value = std::variant<std::string_view, double Project::*, float Project::*, int Project::*, Center,
                           Condition, Units>;

struct Field {
  std::string_view name;  // empty for what no panel changes
  Value value;
};

constexpr Field kNothing = {{}, "0"};

// The fields of the line in their order; the solver counts them from 1 on.
constexpr auto kFields = std::to_array<Field>({
    kNothing,
    kNothing,
    {"entry height", &Project::EntryHeight},
    {"depth of cover", &Project::DepthCover},
    {"entry width", &Project::EntryWidth},
    {"crosscut spacing", &Project::XcutSpacing},
    {"crosscut angle", &Project::XcutAngle},
    {"number of entries", &Project::NumberEntries},
    {"center-to-center distance #1", Center{1}},
    {"center-to-center distance #2", Center{2}},
    {"center-to-center distance #3", Center{3}},
    {"center-to-center distance #4", Center{4}},
    {"center-to-center distance #5", Center{5}},
    {"center-to-center distance #6", Center{6}},
    {"center-to-center distance #7", Center{7}},
    {"center-to-center distance #8", Center{8}},
    {"center-to-center distance #9", Center{9}},
    {"loading condition", Condition{}},
    {"extent of the active gob", &Project::ExtentActiveGob},
    {"extent of the first side gob", &Project::ExtentFirstGob},
    {"extent of the second side gob", &Project::ExtentSecondGob},
    {"barrier of the first side gob", &Project::BarrierFirstGob},
    {"barrier of the second side gob", &Project::BarrierSecondGob},
    {"slab cut of the first side", &Project::SlabcutFirstGob},
    {"slab cut of the second side", &Project::SlabcutSecondGob},
    {{}, " 0"},
    kNothing,
    kNothing,
    {{}, " 0"},
    kNothing,
    kNothing,
    {{}, " 0"},
    kNothing,
    kNothing,
    {{}, " 0"},
    {{}, "1"},
    kNothing,
    {"unit system", Units{}},
    {"coal strength", &Project::CoalStrength},
    {"unit weight", &Project::UnitWeight},
    {"breadth of the AMZ", &Project::BreadthAMZ},
    {"abutment angle of the active gob", &Project::AbutmentAngleActiveGob},
    {"abutment angle of the first side gob", &Project::AbutmentAngleFirstGob},
    {"abutment angle of the second side gob", &Project::AbutmentAngleSecondGob},
    {"row A", &Project::RowA},
    {"row B", &Project::RowB},
    {"row C", &Project::RowC},
    {"row D", &Project::RowD},
    {"width of row C", &Project::WidthRowC},
    {"width of row D", &Project::WidthRowD},
    kNothing,
    kNothing,
});
static_assert(kFields.size() == kStrondFields);

struct FieldText {
  const Project& p;
  UnitSystem units;

  std::string operator()(std::string_view text) const { return std::string(text); }
  std::string operator()(double Project::*member) const { return GeneralText(p.*member); }
  std::string operator()(float Project::*member) const { return GeneralText(p.*member); }
  std::string operator()(int Project::*member) const { return fmt::format("{}", p.*member); }
  std::string operator()(Center center) const { return GeneralText(p.XcutCenters[center.number]); }
  std::string operator()(Condition) const {
    return fmt::format("{}", static_cast<int>(p.LoadingCondition) + 1);
  }
  std::string operator()(Units) const { return fmt::format("{}", static_cast<int>(units)); }
};

}  // namespace

std::string StrondLine(const Project& project, UnitSystem units) {
  std::string line;
  for (const Field& field : kFields) {
    line.append(line.empty() ? "" : ",").append(std::visit(FieldText{project, units}, field.value));
  }
  return line.append(kLineEnd);
}

std::string StrondFieldName(int field) {
  const std::string_view name = kFields.at(static_cast<std::size_t>(field - 1)).name;
  return name.empty() ? fmt::format("field {}", field) : std::string(name);
}

}  // namespace korva
