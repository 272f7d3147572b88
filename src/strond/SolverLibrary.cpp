#include <fmt/format.h>
#include <korvastrond.h>

#include "core/RuntimeError.h"
#include "files/DynamicLibrary.h"
#include "strond/KORVAStrond2D.h"

namespace korva {

namespace {

constexpr const char* kLibrary = "korvastrond";
constexpr const char* kFunction = "KORVA_Run_STROND";

}  // namespace

int CallSolverLibrary(const std::string& library, const std::string& exchangePath) {
  const auto run = reinterpret_cast<decltype(&KORVA_Run_STROND)>(LibraryFunction(library, kFunction));
  if (run == nullptr) {
    throw RuntimeError(ErrorNumber::kFileNotFound,
                       fmt::format("the solver library {} has no function {}", library, kFunction));
  }
  return run(exchangePath.c_str());
}

int CallSolverLibrary(const std::string& exchangePath) {
  return CallSolverLibrary(LibraryFile(kLibrary), exchangePath);
}

std::string SolverStatusText(int status) {
  switch (status) {
    case KORVASTROND_DONE:
      return {};
    case KORVASTROND_NO_EXCHANGE_FILE:
      return "it could not read the exchange file";
    case KORVASTROND_NOT_52_FIELDS:
      return "the exchange file does not have 52 fields";
    case KORVASTROND_NO_CONVERGENCE:
      return "the stresses did not converge";
    case KORVASTROND_NO_YIELD_BALANCE:
      return "the overloaded barriers reached no balance";
    case KORVASTROND_RESULT_NOT_WRITTEN:
      return "it could not write the result file";
    case KORVASTROND_OUT_OF_MEMORY:
      return "it ran out of memory";
    case KORVASTROND_INTERNAL_ERROR:
      return "it failed with an internal error";
    default:
      break;
  }
  if (status > KORVASTROND_FIELD && status <= KORVASTROND_FIELD + kStrondFields) {
    return fmt::format("it does not support this {}", StrondFieldName(status - KORVASTROND_FIELD));
  }
  return fmt::format("it returned {}", status);
}

ErrorNumber SolverStatusError(int status) {
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
