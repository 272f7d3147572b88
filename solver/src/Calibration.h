// The two constants of the laminated overburden: its length scale, and how stiff a gob is beside solid coal.
#pragma once

namespace korva::laminated {

// The distance, in the unit of the depth, over which the vertical stress beside a straight edge of solid coal
// falls to 1/e: 90 percent of an abutment load lie within 5 sqrt(depth in ft) ft of the edge.
double LengthScale(double depth, bool metric);

// What a gob is calibrated with.
struct GobSetting {
  double Width = 0;              // the gob's smaller span
  double AbutmentAngle = 0;      // degrees, 0 to 90; from 90 on 89.9
  double AbutmentStiffness = 1;  // of the ground beside it, solid coal being 1
};

// The length of cover, per unit length of edge, that a gob sheds to each side by its abutment angle.
double ShedCover(double depth, const GobSetting& gob);

// The length of cover that a strip of stiffness `ratio` sheds to each side in the laminated model.
double ShedByStrip(double ratio, double lengthScale, const GobSetting& gob);

// The stiffness of a gob relative to solid coal, above 0 and at most that of its abutments, with which the
// laminated model sheds what the abutment angle asks for.
double GobStiffness(double depth, double lengthScale, const GobSetting& gob);

}  // namespace korva::laminated
