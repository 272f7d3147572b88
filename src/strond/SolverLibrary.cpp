#include <fmt/format.h>
#include <korvastrond.h>

#include <array>

#include "core/RuntimeError.h"
#include "files/DynamicLibrary.h"
#include "strond/KORVAStrond2D.h"

namespace korva {

namespace {

constexpr const char* kLibrary = "korvastrond";
constexpr const char* kFunction = "KORVA_Run_STROND";

// Names of the fields of the exchange line that a solver can refuse; the others are constants.
std::string FieldName(int field) {
  struct Name {
    int field;
    std::string_view text;
  };
  static constexpr std::array kNames = {Name{3, "entry height"},
                                        Name{4, "depth of cover"},
                                        Name{5, "entry width"},
                                        Name{6, "crosscut spacing"},
                                        Name{7, "crosscut angle"},
                                        Name{8, "number of entries"},
                                        Name{18, "loading condition"},
                                        Name{19, "extent of the active gob"},
                                        Name{20, "extent of the first side gob"},
                                        Name{21, "extent of the second side gob"},
                                        Name{22, "barrier of the first side gob"},
                                        Name{23, "barrier of the second side gob"},
                                        Name{24, "slab cut of the first side"},
                                        Name{25, "slab cut of the second side"},
                                        Name{38, "unit system"},
                                        Name{39, "coal strength"},
                                        Name{40, "unit weight"},
                                        Name{41, "breadth of the AMZ"},
                                        Name{42, "abutment angle of the active gob"},
                                        Name{43, "abutment angle of the first side gob"},
                                        Name{44, "abutment angle of the second side gob"},
                                        Name{49, "width of row C"},
                                        Name{50, "width of row D"}};
  constexpr int kFirstCenter = 9;
  if (field >= kFirstCenter && field < kFirstCenter + kMaxRows) {
    return fmt::format("center-to-center distance #{}", field - kFirstCenter + 1);
  }
  for (const Name& name : kNames) {
    if (name.field == field) {
      return std::string(name.text);
    }
  }
  return fmt::format("field {}", field);
}

}  // namespace

std::int16_t CallSolverLibrary(const std::string& library, const std::string& exchangePath) {
  const auto run = reinterpret_cast<decltype(&KORVA_Run_STROND)>(LibraryFunction(library, kFunction));
  if (run == nullptr) {
    throw RuntimeError(ErrorNumber::kFileNotFound,
                       fmt::format("the solver library {} has no function {}", library, kFunction));
  }
  return run(exchangePath.c_str());
}

std::int16_t CallSolverLibrary(const std::string& exchangePath) {
  return CallSolverLibrary(LibraryFile(kLibrary), exchangePath);
}

std::string SolverStatusText(std::int16_t status) {
  constexpr int kLastField = 52;
  switch (status) {
    case KORVASTROND_DONE:
      return {};
    case KORVASTROND_NO_EXCHANGE_FILE:
      return "it could not read the exchange file";
    case KORVASTROND_NOT_52_FIELDS:
      return "it found no 52 fields in the exchange file";
    case KORVASTROND_NO_CONVERGENCE:
      return "the stresses did not settle";
    case KORVASTROND_NO_YIELD_BALANCE:
      return "the overloaded barriers did not settle";
    case KORVASTROND_RESULT_NOT_WRITTEN:
      return "it could not write the result file";
    case KORVASTROND_OUT_OF_MEMORY:
      return "it ran out of memory";
    case KORVASTROND_INTERNAL_ERROR:
      return "it met an error of its own";
    default:
      break;
  }
  if (status > KORVASTROND_FIELD && status <= KORVASTROND_FIELD + kLastField) {
    return fmt::format("it has no model for this {}", FieldName(status - KORVASTROND_FIELD));
  }
  return fmt::format("it gave back {}", status);
}

ErrorNumber SolverStatusError(std::int16_t status) {
  switch (status) {
    case KORVASTROND_DONE:
    case KORVASTROND_NO_EXCHANGE_FILE:
    case KORVASTROND_NOT_52_FIELDS:  // another program has changed it
      return ErrorNumber::kFileNotFound;
    case KORVASTROND_RESULT_NOT_WRITTEN:
      return ErrorNumber::kDeviceIo;
    case KORVASTROND_OUT_OF_MEMORY:
      return ErrorNumber::kOutOfMemory;
    default:
      return ErrorNumber::kInvalidCall;
  }
}

}  // namespace korva
