// The one box for typed values and short texts: selects itself on focus, limits what is typed but never what
// the program fills in, shows a remark on it, and can show that it was refused.
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

  // A remark on what stands in the box, which is shown with a quiet frame; nothing for most texts.
  using Remark = std::function<std::optional<std::string>(std::string_view)>;
  void RemarkOn(Remark remark);
  // From here on the box holds a number: it stands at the right, what is pasted loses its blanks, and a text
  // that counts as another number than it looks brings a remark.
  void HoldNumber(Remark remark = CountsAs);

  // Puts in a text of the program's own, whatever its length.
  void Fill(std::string_view text);
  // What stands in the box, as UTF-8.
  std::string Text() const;

  // Takes the focus, selects the text and shows a red frame with `reason` as tool tip until it is changed.
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
  Remark remark_;
  bool number_ = false;
  QString shownRemark_;
  QString refusal_;  // why the text was refused
};

}  // namespace korva::desktop
