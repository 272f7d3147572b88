#pragma once

#include "workbook/XlsLines.h"

namespace korva {

// Thrown to end the program with this status.
struct Failure {
  XlsStatus Status;
};

}  // namespace korva
