// The one box for typed values and short texts: selects itself on focus, limits what is typed but never what
// the program fills in, says when a text counts as another number than it looks, and can show that it was
// refused.
#pragma once

#include <QLineEdit>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "input/FieldNumber.h"

namespace korva::desktop {

class FieldBox : public QLineEdit {
  Q_OBJECT

 public:
  // `greatestLength` 0 stands for no limit.
  explicit FieldBox(const QString& name, int greatestLength = 0, QWidget* parent = nullptr);

  // Meaning, unit and accepted range, for tool tip and screen readers.
  void Explain(const QString& caption, const QString& explanation);

  // From here on the box holds a number: what is pasted loses its blanks, and `note` says what a text counts
  // as that looks like another number ("counts as 12"), nothing for all others.
  using NumberNote = std::function<std::optional<std::string>(std::string_view)>;
  void HoldNumber(NumberNote note = CountsAs);

  // Puts in a text of the program's own, whatever its length.
  void Fill(std::string_view text);
  // What stands in the box, as UTF-8.
  std::string Text() const;

  // Takes the focus, selects the text and wears a red frame with `reason` as tool tip until it is changed.
  void ShowRefused(const QString& reason);

 signals:
  void FocusLeft();

 protected:
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  qsizetype Room() const;
  void Paste(const QString& text);
  void TakeChange();
  void ShowTip();

  int greatestLength_;
  QString explanation_;
  NumberNote note_;
  QString counts_;   // what the text counts as, if that is not what it looks like
  QString refusal_;  // why the text was refused
};

}  // namespace korva::desktop
