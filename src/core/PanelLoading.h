// The loading condition of a project: which gobs lie around the panel.
#pragma once

namespace korva {

// By the number that a file holds; each one adds to those before it. A file may hold others.
enum class PanelLoading : int {
  kDevelopmentLoad = 0,   // no nearby gob
  kActiveSection = 1,     // one active retreat section
  kWithFirstSideGob = 2,  // and one side gob
  kWithBothSideGobs = 3,  // and two side gobs
  kVoskFirstSideGob = 4   // that the sibling's files hold; a calculation takes it as one side gob
};

// Whether gobs take part: the active one, and those of the first and the second side. A number beyond these,
// which a sibling's file may hold, is drawn as one side gob; no calculation takes it.
constexpr bool HasActiveGob(PanelLoading loading) {
  return loading >= PanelLoading::kActiveSection;
}
constexpr bool HasFirstSideGob(PanelLoading loading) {
  return loading >= PanelLoading::kWithFirstSideGob;
}
constexpr bool HasSecondSideGob(PanelLoading loading) {
  return loading == PanelLoading::kWithBothSideGobs;
}

}  // namespace korva
