#include "services/SheetPieces.h"

#include "core/Text.h"

namespace korva {

namespace {

constexpr std::size_t kMostKept = 20;   // lines
constexpr std::size_t kKeptOfLong = 3;  // lines below the headings

// "[PILLAR PARAMETERS]", "[Development]".
bool IsHeading(std::string_view line) {
  const std::string_view words = Trimmed(line);
  return words.starts_with('[') && words.ends_with(']');
}

// Where a piece ends: before the next heading, and after empty lines, too.
enum class Cut { kHeadings, kEmptyLines };

// Takes lines as long as they belong to it: headings, what stands between them and the text below, and that
// text with the empty lines after it.
class PieceBuilder {
 public:
  explicit PieceBuilder(Cut cut) : cut_(cut) {}

  bool Takes(std::string_view line) const {
    const bool ends = IsHeading(line) || (cut_ == Cut::kEmptyLines && ended_);
    return Trimmed(line).empty() || body_ == 0 || !ends;
  }
  // `line` with its line end takes `bytes`.
  void Add(std::string_view line, std::size_t bytes) {
    bytes_ += bytes;
    ++lines_;
    if (Trimmed(line).empty()) {
      ended_ = body_ > 0;
      return;
    }
    body_ += IsHeading(line) ? 0 : 1;
    whole_ = bytes_;
    wholeLines_ = lines_;
    if (body_ <= kKeptOfLong) {
      begin_ = bytes_;
    }
  }
  std::size_t Bytes() const { return bytes_; }
  std::size_t KeptBytes() const { return wholeLines_ <= kMostKept ? whole_ : begin_; }

 private:
  Cut cut_;
  std::size_t bytes_ = 0;
  std::size_t lines_ = 0;
  std::size_t body_ = 0;   // lines that are neither empty nor headings
  bool ended_ = false;     // by an empty line below the body
  std::size_t whole_ = 0;  // bytes through the last line that is not empty
  std::size_t wholeLines_ = 0;
  std::size_t begin_ = 0;  // bytes through the first lines of the body
};

std::vector<TextPiece> Split(std::string_view text, Cut cut) {
  std::vector<TextPiece> pieces;
  std::size_t start = 0;
  PieceBuilder piece(cut);
  const auto take = [&] {
    pieces.push_back({text.substr(start, piece.Bytes()), text.substr(start, piece.KeptBytes())});
    start += piece.Bytes();
    piece = PieceBuilder(cut);
  };
  for (std::string_view rest = text; !rest.empty();) {
    const SplitLine split = TakeLine(rest);
    if (!piece.Takes(split.line)) {
      take();
    }
    piece.Add(split.line, rest.size() - split.rest.size());
    rest = split.rest;
  }
  if (piece.Bytes() > 0) {
    take();
  }
  return pieces;
}

}  // namespace

// A short section is one piece, such as a table whose last rows stand below an empty line.
std::vector<TextPiece> PiecesOf(std::string_view text) {
  std::vector<TextPiece> pieces;
  for (const TextPiece& section : Split(text, Cut::kHeadings)) {
    if (section.Text.find_first_not_of(" \r\n", section.Kept.size()) == std::string_view::npos) {
      pieces.push_back(section);
      continue;
    }
    const auto parts = Split(section.Text, Cut::kEmptyLines);
    pieces.insert(pieces.end(), parts.begin(), parts.end());
  }
  return pieces;
}

}  // namespace korva
