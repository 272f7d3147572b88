#include "desktop/options/frmUnits.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QTabWidget>
#include <QVBoxLayout>

#include "commands/Attempt.h"
#include "core/NumberText.h"
#include "desktop/support/FieldBox.h"
#include "desktop/support/FormTools.h"
#include "desktop/support/ReadOut.h"

namespace korva::desktop {

namespace {

constexpr int kResultColumns = 26;

}  // namespace

frmUnits::frmUnits(Session& session, QWidget* parent) : QDialog(parent), session_(session) {
  setObjectName(QStringLiteral("frmUnits"));
  setWindowTitle(QStringLiteral("Unit Conversions"));
  SetMessageTitles(session.State, TitleSlot::kUnits);
  HistoryLog(session.State, "Loading Unit Conversion Form");
  SSTab1_ = new QTabWidget(this);
  SSTab1_->setObjectName(QStringLiteral("SSTab1"));
  SSTab1_->setUsesScrollButtons(false);  // wide enough for all tabs
  for (const UnitTab& tab : UnitTabs()) {
    SSTab1_->addTab(NewPage(tab), FromUtf8(tab.Caption));
  }
  connect(SSTab1_, &QTabWidget::currentChanged, this,
          [this](int tab) { pages_[static_cast<std::size_t>(tab)].Input->setFocus(); });
  QPushButton* help = NewHelpButton("Command3", session_, this);
  QPushButton* copy =
      NewButton("cmdCopy", "&Copy", "Copies all results of this tab as text", *this, [this] { Copy(); });
  QPushButton* close = NewButton("Command1", "Close", "", *this, [this] { accept(); });
  QVBoxLayout* all = NewColumn(this);
  all->addWidget(SSTab1_, 1);
  all->addLayout(NewButtonRow(help, {copy, close}));
  CenterForm(*this);
}

QWidget* frmUnits::NewPage(const UnitTab& tab) {
  const std::size_t index = pages_.size();
  auto* page = new QWidget(this);
  Page& made = pages_.emplace_back();
  made.Input = new FieldBox(FromUtf8(tab.InputBox), 0, page);
  made.Input->Explain(QStringLiteral("Value"),
                      QStringLiteral("The value to convert, in the unit chosen below"));
  made.Input->HoldNumber([](std::string_view text) { return ReadCalculatorNumber(text).Note; });
  made.Input->setText(QStringLiteral("0"));
  auto* label = new QLabel(QStringLiteral("&Value:"), page);
  label->setBuddy(made.Input);
  auto* head = new QHBoxLayout;
  head->addWidget(label);
  head->addWidget(made.Input, 1);

  auto* frame = new QGroupBox(FromUtf8(tab.FrameCaption), page);
  auto* rows = new QGridLayout(frame);
  const std::string array(tab.Buttons);
  for (std::size_t i = 0; i < tab.Units.size(); ++i) {
    const QString caption = FromUtf8(tab.Units[i].Caption);
    QRadioButton* source = NewOption(IndexedName(array.c_str(), static_cast<int>(i)), caption, frame);
    source->setChecked(i == 0);
    auto* result = new QLineEdit(QStringLiteral("0"), frame);
    result->setObjectName(FromUtf8(tab.Units[i].ResultBox));
    MakeReadOnly(*result);
    result->setAlignment(Qt::AlignRight);
    result->setAccessibleName(QStringLiteral("Value in ") + caption);
    result->setMinimumWidth(fontMetrics().averageCharWidth() * kResultColumns);
    const int row = static_cast<int>(i);
    rows->addWidget(source, row, 0);
    rows->addWidget(result, row, 1);
    connect(source, &QRadioButton::clicked, this, [this, index] { Convert(index); });
    made.Sources.push_back(source);
    made.Results.push_back(result);
  }
  connect(made.Input, &QLineEdit::textChanged, this, [this, index] { Convert(index); });
  QVBoxLayout* column = NewColumn(page);
  column->addLayout(head);
  column->addWidget(frame);
  column->addStretch();
  return page;
}

// A value without a result leaves no earlier one standing.
void frmUnits::Convert(std::size_t tab) {
  const Page& page = pages_[tab];
  for (QLineEdit* result : page.Results) {
    result->clear();
  }
  Attempt(session_.State, session_.Ports.Messages, [&] {
    const double value = ReadCalculatorNumber(page.Input->Text()).Value;
    const std::vector<double> row =
        ConvertUnits(UnitTabs()[tab].Quantity, GetArrayIndex(page.Sources), value);
    for (std::size_t i = 0; i < row.size(); ++i) {
      page.Results[i]->setText(FromUtf8(ShortestText(row[i])));
    }
  });
}

void frmUnits::Copy() {
  const auto tab = static_cast<std::size_t>(SSTab1_->currentIndex());
  std::string text;
  for (std::size_t i = 0; i < pages_[tab].Results.size(); ++i) {
    text += pages_[tab].Results[i]->text().toStdString() + " " +
            std::string(UnitTabs()[tab].Units[i].Caption) + "\n";
  }
  session_.Ports.Clipboard.SetText(text);
}

// It always opens on the lengths.
void frmUnits::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  SSTab1_->setCurrentIndex(0);
  pages_.front().Input->setFocus();
}

}  // namespace korva::desktop
