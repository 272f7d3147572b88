// A view of fixed-pitch text.
#pragma once

#include <QPlainTextEdit>

namespace korva::desktop {

// Read-only, black on paper white in every theme; it asks for `columns` characters and `lines` lines.
class PageView final : public QPlainTextEdit {
 public:
  PageView(const char* name, int columns, int lines, QWidget* parent);

  QSize sizeHint() const override;

 private:
  int columns_;
  int lines_;
};

}  // namespace korva::desktop
