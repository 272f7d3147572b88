// The limits that checks, computations and warnings share. Lengths are in feet and angles in degrees.
#pragma once

namespace korva {

// What the input form takes. The check before a calculation takes less steep crosscuts and smaller arch
// factors, too.
inline constexpr double kLeastXcutAngle = 30;
inline constexpr double kGreatestAngle = 90;
inline constexpr double kLeastArchFactor = 0.28;
inline constexpr double kGreatestArchFactor = 1;

// The pressure arch factor that is computed: 1 - kArchSlope ln(depth / width) for a depth beyond
// kLeastArchDepth, 1 for a panel wider than depth less kWidePanelDepth, at least kLeastArchFactorSingle.
// Depths are taken as they stand in both unit systems.
inline constexpr double kArchSlope = 0.28;
inline constexpr double kLeastArchDepth = 25;
inline constexpr double kWidePanelDepth = 80;
inline constexpr auto kLeastArchFactorSingle = static_cast<float>(kLeastArchFactor);

// Stability factors that the case data base asks for: of pillars, and of barriers.
inline constexpr double kRequiredSF = 1.5;
inline constexpr double kRequiredBarrierSF = 2;

// Characters of the history box, and percent of the project's value to which a graph goes.
inline constexpr int kLeastHistory = 4096;
inline constexpr int kGreatestHistory = 16384;
inline constexpr double kGreatestRange = 150;

// Pixels of a symbol of a graph, and points of a font.
inline constexpr int kLeastSymbol = 3;
inline constexpr int kGreatestSymbol = 20;
inline constexpr float kLeastFont = 7;
inline constexpr float kGreatestFont = 24;

// Cells of the laminated model have no bound but that of a number in the settings file, on either side of 0.
inline constexpr int kGreatestCell = 32767;

}  // namespace korva
