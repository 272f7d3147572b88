#include "desktop/services/FileList.h"

#include <algorithm>

#include "desktop/support/FormTools.h"

namespace korva::desktop {

namespace {

// Both in folded case. One star at a time is stretched, so that many of them cost no more than length times
// length.
bool FitsPattern(QStringView name, QStringView pattern) {
  qsizetype n = 0;
  qsizetype p = 0;
  qsizetype star = -1;
  qsizetype stretched = 0;  // where the star ends in the name
  while (n < name.size()) {
    if (p < pattern.size() && pattern[p] == u'*') {
      star = p++;
      stretched = n;
    } else if (p < pattern.size() && (pattern[p] == u'?' || pattern[p] == name[n])) {
      ++n;
      ++p;
    } else if (star >= 0) {
      p = star + 1;
      n = ++stretched;
    } else {
      return false;
    }
  }
  while (p < pattern.size() && pattern[p] == u'*') {
    ++p;
  }
  return p == pattern.size();
}

QStringList PatternsOf(const QString& filter) {
  QStringList patterns;
  for (const QString& part : filter.toCaseFolded().split(QLatin1Char(';'))) {
    if (!part.trimmed().isEmpty()) {
      patterns << part.trimmed();
    }
  }
  return patterns.isEmpty() ? QStringList(QStringLiteral("*")) : patterns;
}

bool FitsOne(const QString& name, const QStringList& patterns) {
  const QString folded = name.toCaseFolded();
  const bool hidden = folded.startsWith(QLatin1Char('.'));
  const bool hasPoint = folded.contains(QLatin1Char('.'));
  return std::any_of(patterns.begin(), patterns.end(), [&](const QString& pattern) {
    if (hidden && !pattern.startsWith(QLatin1Char('.'))) {
      return false;
    }
    return FitsPattern(folded, pattern) || (!hasPoint && FitsPattern(folded + QLatin1Char('.'), pattern));
  });
}

}  // namespace

void FileList::SetNames(std::vector<std::string> names) {
  beginResetModel();
  names_ = std::move(names);
  Choose();
  endResetModel();
}

void FileList::SetFilter(const QString& filter) {
  beginResetModel();
  filter_ = filter;
  Choose();
  endResetModel();
}

void FileList::Choose() {
  shown_.clear();
  const QStringList patterns = PatternsOf(filter_);
  for (std::size_t i = 0; i < names_.size(); ++i) {
    if (FitsOne(FromUtf8(names_[i]), patterns)) {
      shown_.push_back(i);
    }
  }
}

const std::string& FileList::NameAt(int row) const {
  return names_.at(shown_.at(static_cast<std::size_t>(row)));
}

int FileList::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(shown_.size());
}

QVariant FileList::data(const QModelIndex& index, int role) const {
  return role == Qt::DisplayRole && index.isValid() ? QVariant(FromUtf8(NameAt(index.row()))) : QVariant();
}

}  // namespace korva::desktop
