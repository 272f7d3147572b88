// The steps of one evaluation of a loading case, in their order.
#pragma once

#include "core/ArithmeticWatch.h"
#include "model/Calculation.h"

namespace korva {

// Strength of a pillar of width `w` and length `l` at height `h`, with the coal's strength `coal` as scale:
// (0.64 + 0.54 w/h - 0.18 w^2/(h l)) coal.
double PillarStrengthOf(double w, double l, double h, double coal);

// The same for a pillar that counts as infinitely long; 0 for one narrower than its height.
double LongPillarStrengthOf(double w, double h, double coal);

// Share of an abutment load that falls within `distance` of the gob's edge, at most 1; `extent` is how far it
// reaches.
double ShareWithin(double extent, double distance);

// Steps that no case changes; `s` is the sine of the crosscut angle.
void PanelGeometry(const WorkValues& w, double s, Results& r, const ArithmeticWatch& watch);
void RowStrengths(const WorkValues& w, double s, Results& r, const ArithmeticWatch& watch);
void NetPanel(const WorkValues& w, Results& r, const ArithmeticWatch& watch);
void LeaveRows(const WorkValues& w, Results& r, const ArithmeticWatch& watch);
void BarrierStrengths(const WorkValues& w, Results& r, const ArithmeticWatch& watch);

// Steps of case `c`, 1 or 2.
void CaseLoads(const WorkValues& w, Results& r, int c, const ArithmeticWatch& watch);
void Remnants(const WorkValues& w, Results& r, int c, const ArithmeticWatch& watch);
void BarrierLoads(const WorkValues& w, Results& r, int c, const ArithmeticWatch& watch);
void BarrierTransfer(const WorkValues& w, Results& r, int c, const ArithmeticWatch& watch);
void BarrierStresses(const WorkValues& w, Results& r, int c, const ArithmeticWatch& watch);
void SideStresses(const WorkValues& w, Results& r, int c, const ArithmeticWatch& watch);

}  // namespace korva
