// korva plan: the panel in plan, to scale.
#include <fmt/format.h>

#include <memory>

#include "Commands.h"
#include "commands/Calculate.h"
#include "commands/Formats.h"
#include "commands/PlanCommands.h"
#include "core/Tables.h"
#include "model/KORVAmodel.h"

namespace korva::cli {

namespace {

struct PlanCall : ProjectCall {
  int Plot = kPlotDimensions;
};

template <class Points>
Json PointsJson(const Points& points) {
  Json all = Json::array();
  for (const PlanPoint& point : points) {
    all.push_back({static_cast<double>(point.X), static_cast<double>(point.Y)});
  }
  return all;
}

Json TextsJson(const Drawing& drawing) {
  Json texts = Json::array();
  for (const DrawText& text : drawing.Texts) {
    texts.push_back(
        {{"text", text.Text}, {"x", text.At.X}, {"y", text.At.Y}, {"angle", text.Upright ? 90 : 0}});
  }
  return texts;
}

Json PlanJson(const Plan& plan) {
  Json pillars = Json::array();
  for (const PlanPillar& pillar : plan.Pillars) {
    pillars.push_back({{"i", pillar.Line}, {"j", pillar.Row}, {"corners", PointsJson(pillar.Corners)}});
  }
  Json bleeders = Json::array();
  for (const PlanBleeder& bleeder : plan.Bleeders) {
    bleeders.push_back({{"row", RowLetters.at(static_cast<std::size_t>(bleeder.Side))},
                        {"j", bleeder.Row},
                        {"corners", PointsJson(bleeder.Corners)}});
  }
  Json gobs = Json::array();
  for (const PlanGob& gob : plan.Gobs) {
    gobs.push_back({{"name", NameOf(gob.Index)}, {"outline", PointsJson(gob.Outline)}});
  }
  return {{"PlanWidth", static_cast<double>(plan.PlanWidth)},
          {"PlanHeight", static_cast<double>(plan.PlanHeight)},
          {"pillars", pillars},
          {"bleeders", bleeders},
          {"gobs", gobs},
          {"activeGob", PointsJson(plan.ActiveGob)},
          {"activeMiningZone", PointsJson(plan.ActiveMiningZone)},
          {"texts", TextsJson(PictureOf(plan))}};
}

int Refuse(const PlanCall& call, const std::string& why) {
  PrintMessage(call.File + ": " + why);
  if (call.AsJson) {
    Print(JsonText({{"file", call.File}, {"refused", why}}));
  }
  return kRefused;
}

// Runs what the values come from: the laminated model for strengths if the project asks for it, else the
// traditional one. The dimensions need no run.
void Evaluate(Korva& korva, int plot) {
  if (plot == kPlotDimensions) {
    return;
  }
  const bool laminated = plot == kPlotStrength && UsesLaminated(korva.ProjectCalc.CalcMode);
  korva.PillarValues =
      PillarValuesOf(korva, EvaluateProject(korva, laminated ? kLaminatedModel : kTraditionalModel));
}

int DrawPlanOf(Korva& korva, const PlanCall& call, PictureKind kind) {
  FillPlotCopies(korva);
  if (const auto refusal = CheckProject(korva.ProjectCalc)) {
    return Refuse(call, *refusal);
  }
  if (call.Plot >= kPlotCapacity && !UsesTraditional(korva.ProjectCalc.CalcMode)) {
    return Refuse(call,
                  "the laminated model alone provides neither load bearing capacity nor pillar stresses");
  }
  PrintFormNotices(korva, call.File);
  Evaluate(korva, call.Plot);
  PlanRequest request = PlanRequestOf(korva, kPlanFromResults, true);
  request.PlotType = static_cast<PillarPlot>(call.Plot);
  const auto plan = DrawPlan(request);
  if (!plan) {
    return Refuse(call, std::string(kInvalidPillars));
  }
  if (call.AsJson) {
    Print(JsonText(PlanJson(*plan)));
    return kDone;
  }
  WriteOrPrint(call, Formats().DrawingPicture(PictureOf(*plan),
                                              static_cast<double>(plan->PlanHeight) * kPlanTextShare, kind));
  return kDone;
}

}  // namespace

Command AddPlan(CLI::App& app, const CommonOptions& common) {
  auto call = std::make_shared<PlanCall>();
  CLI::App* parser = app.add_subcommand("plan", "Draw a plan of the panel to scale");
  AddFile(*parser, call->File);
  parser
      ->add_option(
          "--plot", call->Plot,
          "what the pillars show: 1 dimensions, 2 strength, 3 load bearing capacity, 4 stress of the "
          "side abutments, 5 the same and the tributary stress")
      ->type_name("N")
      ->check(CLI::Range(int{kPlotDimensions}, int{kPlotTotalStress}));
  AddModelOption(*parser, call->Model);
  auto* json = parser->add_flag("--json", call->AsJson, "the coordinates as JSON");
  parser->add_option("-o", call->Out, "draw into this file, .svg, .pdf or .png; without it, SVG is printed")
      ->type_name("OUT")
      ->excludes(json);
  parser->footer("Example:\n  korva plan examples/two-side-gobs.KVL -o plan.svg");
  return {parser, [call, &common] {
            const PictureKind kind = PictureKindFor(*call);
            return RunOnProject(common, *call, [&](Korva& korva) { return DrawPlanOf(korva, *call, kind); });
          }};
}

}  // namespace korva::cli
