// What the tabs of the help window have in common.
#pragma once

#include <QLineEdit>

class QAbstractItemView;
class QVBoxLayout;

namespace korva::desktop {

// A line to type in, with its meaning shown while it is empty.
QLineEdit* NewHelpText(const char* name, const QString& meaning, QWidget* parent);

// Down and Page Down lead from `text` into `list`, Up on the list's first line leads back.
void JoinToList(QLineEdit& text, QAbstractItemView& list);

// Lays `page` out from top to bottom, with the gaps of a tab.
QVBoxLayout* NewHelpTabLayout(QWidget& page);

}  // namespace korva::desktop
