#include "desktop/input/frmKORVADesc.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QVBoxLayout>

#include "commands/AcceptForms.h"
#include "core/Tables.h"
#include "core/Text.h"

namespace korva::desktop {

namespace {

constexpr int kLongestDescription = 1000;
constexpr int kDescriptionColumns = 62;
constexpr int kDescriptionLines = 10;

// The lines of a record's text, without the line ends' own characters.
QString ShownText(std::string_view text) {
  return FromUtf8(text).replace(QLatin1String("\r\n"), QLatin1String("\n"));
}

}  // namespace

frmKORVADesc::frmKORVADesc(Session& session, QWidget* parent) : QDialog(parent), session_(session) {
  setObjectName(QStringLiteral("frmKORVADesc"));
  setWindowTitle(QStringLiteral("Project Description"));
  SetMessageTitles(session.State, TitleSlot::kDescription);
  HistoryLog(session.State, "Editing Project Description");
  Build();
  Load();
  CenterForm(*this);
}

void frmKORVADesc::Build() {
  auto* texts = new QGroupBox(QStringLiteral("Title and description"), this);
  texts->setObjectName(QStringLiteral("Frame1"));
  title_ = new FieldBox(QStringLiteral("Text1"), 0, texts);
  title_->Explain(QStringLiteral("Title"), QStringLiteral("Title of the project, one line"));
  QLabel* label = NewLabel(QStringLiteral("Label1"), QStringLiteral("Title"), texts);
  label->setBuddy(title_);
  description_ = new DescriptionBox(QStringLiteral("Text2"), kLongestDescription, texts);
  description_->setAccessibleName(QStringLiteral("Description"));
  description_->setToolTip(
      QStringLiteral("Description of the project, at most %1 characters").arg(kLongestDescription));
  const QFontMetrics metrics(description_->font());
  description_->setMinimumSize(metrics.averageCharWidth() * kDescriptionColumns,
                               metrics.lineSpacing() * kDescriptionLines);
  auto* grid = new QGridLayout(texts);
  grid->addWidget(label, 0, 0);
  grid->addWidget(title_, 0, 1);
  grid->addWidget(description_, 1, 0, 1, 2);
  grid->setRowStretch(1, 1);

  auto* units = new QGroupBox(QStringLiteral("Current units"), this);
  units->setObjectName(QStringLiteral("Frame2"));
  auto* unitRow = new QHBoxLayout(units);
  const std::array<const char*, 2> captions = {"feet, lbs", "meters, kN"};
  for (std::size_t i = 0; i < units_.size(); ++i) {
    units_[i] = NewOption(IndexedName("Option1", static_cast<int>(i)), QLatin1String(captions[i]), units);
    units_[i]->setToolTip(FromUtf8(UnitSummary[i]) +
                          QStringLiteral("; another choice resets the project, title and description too"));
    unitRow->addWidget(units_[i]);
  }
  unitRow->addStretch();

  QPushButton* next =
      NewButton("Command4", "Next Form", "Accepts and opens the project parameters", *this, [this] {
        openParameters_ = true;
        accept();
      });
  QVBoxLayout* all = NewColumn(this);
  all->addWidget(texts, 1);
  all->addWidget(units);
  all->addLayout(NewOkCancelRow(*this, NewHelpButton("Command3", session_, this), "Command2", "Command1",
                                [this] { accept(); }, {next}));
}

void frmKORVADesc::Load() {
  const Korva& korva = session_.State;
  title_->Fill(korva.Stored.ProjectTitle);
  description_->setPlainText(ShownText(korva.Stored.ProjectDescription));
  for (QRadioButton* option : units_) {
    option->setEnabled(!korva.ProjectUnitsLocked);
  }
  const int units = static_cast<int>(korva.Stored.ProjectUnits);
  SetArrayIndex(units_, units);
  units_.at(static_cast<std::size_t>(units))->setEnabled(true);
}

// The text as the record keeps it; an untouched one comes back as it was.
std::string frmKORVADesc::Description() const {
  const std::string& record = session_.State.Stored.ProjectDescription;
  QString text = description_->toPlainText();
  if (!description_->document()->isModified() || text == ShownText(record)) {
    return record;
  }
  return text.replace(QLatin1Char('\n'), QLatin1String("\r\n")).toStdString();
}

std::optional<StoredProject> frmKORVADesc::Draft() const {
  StoredProject draft = session_.State.Stored;
  if (title_->Text() == draft.ProjectTitle && Description() == draft.ProjectDescription) {
    return std::nullopt;
  }
  TakeTexts(title_->Text(), Description(), draft);
  return draft;
}

void frmKORVADesc::done(int result) {
  Korva& korva = session_.State;
  if (result == Accepted) {
    AcceptDescription(korva, {title_->Text(), Description(), static_cast<UnitSystem>(GetArrayIndex(units_))});
  } else {
    HistoryLog(korva, "Project Description Not Modified");
  }
  QDialog::done(result);
  session_.Main.Refresh();
  if (result == Accepted && openParameters_) {
    session_.Main.EditParameters();
  }
}

}  // namespace korva::desktop
