#include "desktop/graphs/frmGraphOpt.h"

#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QScrollBar>
#include <QVBoxLayout>

#include "commands/AcceptForms.h"
#include "core/Limits.h"
#include "desktop/graphs/frmGraph.h"
#include "desktop/support/FormTools.h"
#include "desktop/support/ReadOut.h"
#include "graphs/GraphTitles.h"

namespace korva::desktop {

namespace {

QComboBox* NewChoice(const char* name, std::initializer_list<const char*> entries, QWidget* parent) {
  QComboBox* list = NewList(QLatin1String(name), parent);
  for (const char* entry : entries) {
    list->addItem(QLatin1String(entry));
  }
  return list;
}

// A row of the texts of which one is shown.
QWidget* Stack(const std::vector<QLineEdit*>& texts, int shown, QWidget* parent) {
  auto* row = new QWidget(parent);
  auto* layout = new QVBoxLayout(row);
  layout->setContentsMargins(0, 0, 0, 0);
  for (std::size_t i = 0; i < texts.size(); ++i) {
    layout->addWidget(texts[i]);
    texts[i]->setVisible(static_cast<int>(i) == shown);
  }
  return row;
}

}  // namespace

frmGraphOpt::frmGraphOpt(Session& session, frmGraph& graph)
    : QDialog(&graph), session_(session), graph_(graph), draft_(session.State.Preferences.Graph) {
  setObjectName(QStringLiteral("frmGraphOpt"));
  setWindowTitle(QStringLiteral("Graph Parameters and Options"));
  Build();
  Option1_[draft_.GraphSetParams ? 1 : 0]->setChecked(true);
  InitForm();
  ChooseParameters(draft_.GraphSetParams);
  CenterForm(*this);
}

void frmGraphOpt::Build() {
  QVBoxLayout* all = NewColumn(this);
  constexpr std::array kCaptions = {"Set default format parameters", "Set format parameters to last used"};
  for (int i = 0; i < 2; ++i) {
    QRadioButton* option =
        NewOption(IndexedName("Option1", i), QLatin1String(kCaptions.at(static_cast<std::size_t>(i))), this);
    connect(option, &QRadioButton::clicked, this, [this, i] { ChooseParameters(i == 1); });
    Option1_.at(static_cast<std::size_t>(i)) = option;
    all->addWidget(option);
  }
  all->addWidget(BuildTitles());
  all->addWidget(BuildFormat());

  QPushButton* help =
      NewButton("Command3", kHelpCaption, "Empties the graph", *this, [this] { graph_.ClearGraph(); });
  all->addLayout(NewOkCancelRow(*this, help, "Command2", "Command1", [this] { accept(); }));
}

QLineEdit* frmGraphOpt::NewTitle(const QString& name, const char* meaning, std::string& title) {
  auto* text = new QLineEdit(this);
  text->setObjectName(name);
  text->setAccessibleName(QLatin1String(meaning));
  text->setMinimumWidth(text->fontMetrics().averageCharWidth() * 36);
  titles_.emplace_back(text, &title);
  return text;
}

QWidget* frmGraphOpt::BuildTitles() {
  auto* frame = new QGroupBox(QStringLiteral("Titles"), this);
  auto* rows = new QFormLayout(frame);
  rows->addRow(QStringLiteral("Graph title"),
               NewTitle(QStringLiteral("Text1"), "Graph title", draft_.GraphTitle));
  std::vector<QLineEdit*> texts;
  texts.reserve(kGraphs);
  for (int i = 0; i < kGraphs; ++i) {
    texts.push_back(NewTitle(IndexedName("Text2", i), "X-axis title", draft_.XAxisTitle[i]));
  }
  rows->addRow(QStringLiteral("X-axis title"), Stack(texts, graph_.ShownGraph(), frame));
  texts.clear();
  for (int i = 0; i < 2; ++i) {
    texts.push_back(NewTitle(IndexedName("Text3", i), "Y-axis title", draft_.YAxisTitle[i]));
  }
  rows->addRow(QStringLiteral("Y-axis title"), Stack(texts, YTitleOf(graph_.ShownGraph()), frame));
  return frame;
}

QWidget* frmGraphOpt::BuildFormat() {
  auto* frame = new QGroupBox(QStringLiteral("Format"), this);
  auto* rows = new QFormLayout(frame);
  Combo1_ = NewChoice("Combo1", {"None", "Horizontal", "Vertical", "Horizontal & Vertical"}, frame);
  Combo2_ = NewChoice("Combo2", {"Lines Only", "Symbols Only", "Lines & Symbols"}, frame);
  for (QComboBox* list : {Combo1_, Combo2_}) {
    connect(list, &QComboBox::currentIndexChanged, this, [this, list] { CheckChoice(*list); });
  }
  connect(Combo2_, &QComboBox::currentIndexChanged, this, [this] { ShowSymbolControls(); });
  Check1_ = NewCheckBox("Check1", QStringLiteral("Curve legend"), frame);
  lblSS_ = NewLabel(QStringLiteral("lblSS"), QStringLiteral("Symbol size"), frame);
  HScroll1_ = new QScrollBar(Qt::Horizontal, frame);
  HScroll1_->setObjectName(QStringLiteral("HScroll1"));
  HScroll1_->setAccessibleName(QStringLiteral("Symbol size"));
  HScroll1_->setRange(kLeastSymbol, kGreatestSymbol);
  HScroll1_->setFocusPolicy(Qt::StrongFocus);
  LetWheelPass(*HScroll1_);
  txtSS_ = new QLineEdit(frame);
  txtSS_->setObjectName(QStringLiteral("txtSS"));
  txtSS_->setAccessibleName(QStringLiteral("Symbol size"));
  MakeReadOnly(*txtSS_);
  txtSS_->setAlignment(Qt::AlignRight);
  txtSS_->setFixedWidth(fontMetrics().averageCharWidth() * 6);
  connect(HScroll1_, &QScrollBar::valueChanged, this,
          [this](int size) { txtSS_->setText(QString::number(size)); });
  auto* size = new QHBoxLayout;
  size->addWidget(HScroll1_, 1);
  size->addWidget(txtSS_);
  rows->addRow(QStringLiteral("Grid style"), Combo1_);
  rows->addRow(QStringLiteral("Graph style"), Combo2_);
  rows->addRow(QString(), Check1_);
  rows->addRow(lblSS_, size);
  return frame;
}

void frmGraphOpt::InitForm() {
  for (const auto& [text, title] : titles_) {
    text->setText(FromUtf8(*title));
  }
  Combo1_->setCurrentIndex(static_cast<int>(draft_.GridStyle));
  Combo2_->setCurrentIndex(static_cast<int>(draft_.GraphStyle) - 1);
  Check1_->setChecked(draft_.CurveLegend);
  HScroll1_->setValue(draft_.SymbolSize);
  txtSS_->setText(QString::number(draft_.SymbolSize));
  ShowSymbolControls();
}

// Default parameters cannot be edited.
void frmGraphOpt::ChooseParameters(bool lastUsed) {
  if (!lastUsed) {
    draft_.GraphSetParams = false;
    SetDefaultTitles(draft_, session_.State.Stored.ProjectUnits);
    InitForm();
  }
  for (QWidget* control :
       std::initializer_list<QWidget*>{Combo1_, Combo2_, Check1_, HScroll1_, txtSS_, lblSS_}) {
    control->setEnabled(lastUsed);
  }
  for (const auto& title : titles_) {
    title.first->setEnabled(lastUsed);
  }
}

void frmGraphOpt::ShowSymbolControls() {
  for (QWidget* control : std::initializer_list<QWidget*>{lblSS_, HScroll1_, txtSS_}) {
    control->setVisible(Combo2_->currentIndex() > 0);
  }
}

void frmGraphOpt::CheckChoice(QComboBox& list) {
  if (list.currentIndex() < 0) {
    ShowMessage(session_.State, session_.Ports.Messages,
                {.text = "Please select a valid entry", .topic = "messages-forms"});
    list.setCurrentIndex(0);
  }
}

void frmGraphOpt::accept() {
  for (const auto& [text, title] : titles_) {
    *title = text->text().toStdString();
  }
  draft_.GridStyle = static_cast<GridLines>(Combo1_->currentIndex());
  draft_.GraphStyle = static_cast<CurveStyle>(Combo2_->currentIndex() + 1);
  draft_.CurveLegend = Check1_->isChecked();
  draft_.SymbolSize = HScroll1_->value();
  draft_.GraphSetParams = Option1_[1]->isChecked();
  AcceptGraph(session_.State, draft_);
  graph_.DrawCurve();
  QDialog::accept();
}

}  // namespace korva::desktop
