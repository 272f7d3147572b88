// The files of one folder whose names fit a filter.
#pragma once

#include <QAbstractListModel>
#include <string>
#include <vector>

namespace korva::desktop {

class FileList final : public QAbstractListModel {
 public:
  void SetNames(std::vector<std::string> names);
  // Patterns with "*" and "?", separated by ";"; capital and small letters are alike, and a name without a
  // point fits as if one stood at its end. A blank filter takes every name. Names that begin with a point
  // only fit a pattern that begins so, too.
  void SetFilter(const QString& filter);
  const std::string& NameAt(int row) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

 private:
  void Choose();

  std::vector<std::string> names_;
  std::vector<std::size_t> shown_;  // which of them
  QString filter_;
};

}  // namespace korva::desktop
