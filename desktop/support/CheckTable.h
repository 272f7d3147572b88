// The check boxes of a form, a row a box, whose values are members of a record.
#pragma once

#include <QCheckBox>
#include <QGridLayout>
#include <map>
#include <span>
#include <string_view>

#include "desktop/support/FormTools.h"

namespace korva::desktop {

// The group that a box stands in, its name and caption, what it means, and its member.
template <class Record>
struct CheckRow {
  std::string_view Group;
  const char* Name;
  const char* Caption;
  const char* Tip;
  bool Record::*Value;
};

template <class Record>
class CheckTable {
 public:
  // `rows` have to outlive it.
  explicit CheckTable(std::span<const CheckRow<Record>> rows) : rows_(rows) {}

  // Adds the boxes of a group, one below the other.
  void AddTo(QWidget& frame, QGridLayout& grid, std::string_view group) {
    for (const CheckRow<Record>& row : rows_) {
      if (row.Group == group) {
        QCheckBox* box = NewCheckBox(row.Name, QLatin1String(row.Caption), &frame);
        box->setToolTip(QLatin1String(row.Tip));
        boxes_[row.Name] = box;
        grid.addWidget(box, grid.rowCount(), 0, 1, -1);
      }
    }
  }

  QCheckBox* Of(bool Record::*member) const {
    for (const CheckRow<Record>& row : rows_) {
      if (row.Value == member) {
        return boxes_.at(row.Name);
      }
    }
    return nullptr;
  }

  void Fill(const Record& record) const {
    for (const CheckRow<Record>& row : rows_) {
      boxes_.at(row.Name)->setChecked(record.*row.Value);
    }
  }
  void Store(Record& record) const {
    for (const CheckRow<Record>& row : rows_) {
      record.*row.Value = boxes_.at(row.Name)->isChecked();
    }
  }

 private:
  std::span<const CheckRow<Record>> rows_;
  std::map<std::string_view, QCheckBox*> boxes_;
};

}  // namespace korva::desktop
