#include "desktop/reports/frmPopUp.h"

#include <QVBoxLayout>

#include "desktop/reports/PageView.h"
#include "desktop/support/FormTools.h"

namespace korva::desktop {

namespace {

constexpr int kColumns = 84;
constexpr int kLines = 24;

}  // namespace

frmPopUp::frmPopUp(std::string_view warnings, QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("frmPopUp"));
  setWindowTitle(FromUtf8(kWarningsTitle));
  auto* text = new PageView("RichTextBox1", kColumns, kLines, this);
  text->setLineWrapMode(QPlainTextEdit::WidgetWidth);
  text->setAccessibleName(QStringLiteral("Warnings"));
  text->setPlainText(FromUtf8(warnings));
  QPushButton* ok = NewButton("cmdOK", "OK", kCloseTip, *this, [this] { accept(); });
  ok->setDefault(true);
  QVBoxLayout* all = NewColumn(this);
  all->addWidget(text, 1);
  all->addLayout(NewButtonRow(nullptr, {ok}));
  ok->setFocus();
  CenterForm(*this);
}

}  // namespace korva::desktop
