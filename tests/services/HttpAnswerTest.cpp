// Answers of web servers, good and bad, however they are cut on the way.
#include <gtest/gtest.h>

#include "services/HttpAnswer.h"

namespace korva {
namespace {

constexpr std::uint64_t kMost = 1000;

struct Told {
  bool Ended;
  std::string Fault;
  std::string Location;
  std::string File;
  bool operator==(const Told&) const = default;
};

// The answer in pieces of `step` bytes, and then the end of the connection.
Told Read(std::string_view bytes, std::size_t step, bool closes) {
  HttpAnswer answer(kMost);
  for (; !bytes.empty(); bytes.remove_prefix(std::min(step, bytes.size()))) {
    answer.Take(bytes.substr(0, step));
  }
  if (closes) {
    answer.Close();
  }
  return {answer.HasEnded(), answer.Fault(), answer.Location(), answer.File()};
}

Told Read(const std::string& bytes, bool closes = true) {
  const Told whole = Read(bytes, bytes.size() + 1, closes);
  for (const std::size_t step : {1U, 2U, 3U, 7U}) {
    EXPECT_EQ(Read(bytes, step, closes), whole) << bytes;
  }
  return whole;
}

std::string FileOf(const std::string& bytes) {
  const Told told = Read(bytes);
  EXPECT_TRUE(told.Ended && told.Fault.empty()) << bytes << told.Fault;
  return told.File;
}

std::string FaultOf(const std::string& bytes, bool closes = true) {
  const Told told = Read(bytes, closes);
  EXPECT_EQ(told.File, "") << bytes;
  EXPECT_EQ(told.Location, "") << bytes;
  return told.Fault;
}

const std::string kOk = "HTTP/1.1 200 OK\r\n";
const std::string kChunked = kOk + "transfer-encoding: Chunked\r\n\r\n";

TEST(HttpAnswer, TakesAFileInEachFormThatServersSend) {
  EXPECT_EQ(FileOf(kOk + "Content-Length: 4\r\n\r\n1106behind"), "1106");
  EXPECT_EQ(FileOf("HTTP/1.0 200\ncontent-length:4\n\n1106"), "1106");
  EXPECT_EQ(FileOf(kOk + "\r\n1106"), "1106") << "until the connection ends";
  EXPECT_EQ(FileOf(kOk + "Content-Length: 0\r\n\r\n"), "");
  EXPECT_EQ(FileOf(kChunked + "2\r\n11\r\nA;x=1\r\n0123456789\r\n0\r\nTrailer: x\r\n\r\n"), "110123456789");
  EXPECT_EQ(
      FileOf("HTTP/1.1 100 Continue\r\nContent-Length: 9\r\n\r\n" + kOk + "Content-Length: 4\r\n\r\n1106"),
      "1106");
  EXPECT_EQ(
      FileOf(kOk + "Content-Encoding: identity\r\nContent-Length: 1000\r\n\r\n" + std::string(1000, 'x')),
      std::string(1000, 'x'));
  EXPECT_TRUE(Read(kOk + "Content-Length: 4\r\n\r\n1106", false).Ended) << "need not hang up";
  EXPECT_TRUE(Read(kChunked + "1\r\nx\r\n0\r\n\r\n", false).Ended);
  EXPECT_FALSE(Read(kOk + "\r\n1106", false).Ended);
}

TEST(HttpAnswer, TellsWhereItIsSentOn) {
  for (const char* status : {"301", "302", "303", "307", "308"}) {
    const Told told =
        Read("HTTP/1.1 " + std::string(status) + " On\r\nLocation:  /there \r\n\r\nbody", false);
    EXPECT_TRUE(told.Ended);
    EXPECT_EQ(told.Location, "/there") << status;
  }
  EXPECT_EQ(FaultOf("HTTP/1.1 302 On\r\n\r\n"), "the server answered with status 302");
  EXPECT_EQ(FaultOf("HTTP/1.1 300 Choose\r\nLocation: /there\r\n\r\n"),
            "the server answered with status 300");
  EXPECT_EQ(Read(kOk + "Location: /there\r\nContent-Length: 1\r\n\r\nx").Location, "");
}

TEST(HttpAnswer, RefusesWhatIsNotTheWholeFile) {
  for (const std::string status : {"206", "404", "500"}) {
    EXPECT_EQ(FaultOf("HTTP/1.1 " + status + " No\r\nContent-Length: 4\r\n\r\n1106"),
              "the server answered with status " + status);
  }
  const std::string length = "the file has another length than the server said";
  EXPECT_EQ(Read(kOk + "Content-Length: 5\r\n\r\n1106").Fault, length);
  for (const char* bad : {"-1", "4x", "", "0x4", "99999999999999999999999", "4, 5"}) {
    EXPECT_EQ(FaultOf(kOk + "Content-Length: " + bad + "\r\n\r\n1106"), length) << bad;
  }
  EXPECT_EQ(FaultOf(kOk + "Content-Length: 4\r\nContent-Length: 5\r\n\r\n1106x"), length);
  for (const char* end : {"", "2\r\n1", "2\r\n11", "2\r\n11\r\n", "2\r\n11\r\n0\r\n"}) {
    EXPECT_EQ(FaultOf(kChunked + end), length) << end;
  }
  for (const char* chunk : {"zz\r\n", "2\r\n1106\r\n", "-2\r\n", "\r\n", "2\r\n11zz\r\n"}) {
    EXPECT_EQ(FaultOf(kChunked + chunk), "the server sent a damaged file") << chunk;
  }
  const std::string form = "the server sent the file in a format that was not requested";
  EXPECT_EQ(FaultOf(kOk + "Content-Encoding: gzip\r\n\r\n1106"), form);
  EXPECT_EQ(FaultOf(kOk + "Transfer-Encoding: gzip, chunked\r\n\r\n1106"), form);
  for (const char* other :
       {"220 ready\r\n\r\n", "HTTP/2 200\r\n\r\n", "HTTP/1.1 2x0 OK\r\n\r\n", "HTTP/1.1 2000\r\n\r\n",
        "HTTP/1.1 099 OK\r\n\r\n", "\r\n", "HTTP/1.1 200 OK\r\nno colon\r\n\r\n", "HTTP/1.1 200 OK\r\n"}) {
    EXPECT_EQ(FaultOf(other), "the server did not send a valid HTTP response") << other;
  }
  EXPECT_EQ(FaultOf(""), "the server closed the connection");
}

TEST(HttpAnswer, HasBounds) {
  const std::string large = "the file is too large";
  EXPECT_EQ(FaultOf(kOk + "Content-Length: 1001\r\n\r\n", false), large) << "before any of it comes";
  EXPECT_EQ(FaultOf(kOk + "\r\n" + std::string(1001, 'x'), false), large);
  EXPECT_EQ(FaultOf(kChunked + "3e8\r\n" + std::string(1000, 'x') + "\r\n1\r\n", false), large);
  EXPECT_EQ(FaultOf(kChunked + "ffffffffffffffff\r\n", false), large);
  const std::string endless = "the server's answer is incomplete";
  EXPECT_EQ(FaultOf(kOk + "X: " + std::string(70'000, 'y'), false), endless) << "one line";
  std::string heads;
  for (int i = 0; i < 5000; ++i) {
    heads += "HTTP/1.1 100 Continue\r\n\r\n";
  }
  EXPECT_EQ(FaultOf(heads, false), endless) << "heads without end";
  EXPECT_EQ(FaultOf(kChunked + "1;" + std::string(70'000, 'y'), false), endless) << "a chunk's size";
}

}  // namespace
}  // namespace korva
