// The search's language, in and out.
#pragma once

#include <QString>

namespace korva::desktop {

// A piece of a page around what was searched for.
struct HelpExcerpt {
  QString Text;    // as in the page's plain text
  qsizetype At;    // where in it the first hit begins
  qsizetype Hits;  // the hit's length; 0 if there is none
};

// What a person typed, as the search engine wants it: each word, and each phrase in quotation marks, has to
// be in a page; words that signs join ("center-to-center", "1.5") are a phrase. Empty if there is no letter
// or digit in it.
QString FullTextQuery(const QString& typed);

// `snippet` is what the engine returns of a page: HTML, hits in <b>, and dots where it leaves out text.
HelpExcerpt ExcerptOf(const QString& snippet);

// `snippet` for a person to read, as HTML: with a mark between lines and table cells, and dots for a formula
// within a line.
QString ShownSnippet(const QString& snippet);

}  // namespace korva::desktop
