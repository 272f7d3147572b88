// Any bytes as a web server's answer, whole and in pieces: the same comes of both, within the bounds.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "Require.h"
#include "services/HttpAnswer.h"

using namespace korva;

namespace {

constexpr std::uint64_t kMost = 300;

HttpAnswer Read(std::string_view bytes, std::size_t step) {
  HttpAnswer answer(kMost);
  for (; !bytes.empty(); bytes.remove_prefix(step < bytes.size() ? step : bytes.size())) {
    answer.Take(bytes.substr(0, step));
    Require(answer.File().size() <= kMost, "no more is kept than was asked for");
  }
  answer.Close();
  Require(answer.HasEnded(), "a closed connection is the end");
  Require(answer.Fault().empty() || (answer.File().empty() && answer.Location().empty()),
          "a fault brings nothing");
  return answer;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const HttpAnswer whole = Read(bytes, size + 1);
  const HttpAnswer pieces = Read(bytes, 1 + size % 5);
  Require(whole.Fault() == pieces.Fault() && whole.File() == pieces.File() &&
              whole.Location() == pieces.Location(),
          "pieces make no difference");
  return 0;
}
