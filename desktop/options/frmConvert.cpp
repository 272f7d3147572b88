#include "desktop/options/frmConvert.h"

#include <QGroupBox>
#include <QVBoxLayout>

#include "commands/Attempt.h"
#include "commands/FileCommands.h"
#include "desktop/support/FormTools.h"

namespace korva::desktop {

frmConvert::frmConvert(Session& session, QWidget* parent) : QDialog(parent), session_(session) {
  setObjectName(QStringLiteral("frmConvert"));
  setWindowTitle(QStringLiteral("File Conversion Utility"));
  SetMessageTitles(session.State, TitleSlot::kConversion);
  HistoryLog(session.State, "Loading File Conversion Form");
  Build();
  Load();
  CenterForm(*this);
}

void frmConvert::Build() {
  const auto frame = [this](const char* title, const char* array, std::array<const char*, 2> captions,
                            std::array<QRadioButton*, 2>& options) {
    auto* box = new QGroupBox(QLatin1String(title), this);
    auto* column = new QVBoxLayout(box);
    for (std::size_t i = 0; i < captions.size(); ++i) {
      options.at(i) = NewOption(IndexedName(array, static_cast<int>(i)), QLatin1String(captions.at(i)), box);
      column->addWidget(options.at(i));
    }
    return box;
  };
  QGroupBox* units = frame("Units", "Option1", {"feet, psi, pcf", "meters, MPa, kN/m3"}, units_);
  QGroupBox* files =
      frame("File options", "Option2", {"Load converted project ", "Keep original project"}, files_);
  units->setToolTip(QStringLiteral("The units to convert to"));
  QPushButton* help = NewHelpButton("Command3", session_, this);
  QPushButton* convert =
      NewButton("Command2", "Convert", "Converts the open project; its file is unchanged until you save",
                *this, [this] { Convert(); });
  convert->setDefault(true);
  QPushButton* cancel = NewButton("Command1", "Cancel", "", *this, [this] { reject(); });
  QVBoxLayout* all = NewColumn(this);
  all->addWidget(units);
  all->addWidget(files);
  all->addStretch();
  all->addLayout(NewButtonRow(help, {convert, cancel}));
}

// Only the other unit system can be chosen, and the original is never kept.
void frmConvert::Load() {
  const bool metric = session_.State.Stored.ProjectUnits == kMetric;
  units_[metric ? 1 : 0]->setEnabled(false);
  units_[metric ? 0 : 1]->setChecked(true);
  files_[0]->setChecked(true);
  files_[1]->setEnabled(false);
}

void frmConvert::Convert() {
  const auto target = static_cast<UnitSystem>(GetArrayIndex(units_));
  const bool converted = Attempt(session_.State, session_.Ports.Messages,
                                 [&] { ConvertProject(session_.State, target); }) == AttemptResult::kDone;
  ShowMessage(session_.State, session_.Ports.Messages,
              {.text = converted ? "Conversion Completed: The conversion form will be closed"
                                 : "Error in the Conversion Procedure. Call technical support",
               .topic = "messages-files"});
  accept();
}

void frmConvert::done(int result) {
  session_.Main.Refresh();
  QDialog::done(result);
  // Message box and form close at one time: a window manager may give the keyboard to this form just when it
  // is gone.
  if (QWidget* parent = parentWidget()) {
    parent->activateWindow();
  }
}

}  // namespace korva::desktop
