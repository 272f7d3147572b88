#include "desktop/input/frmKORVAParmControls.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/plan/SchematicView.h"
#include "input/ParameterTexts.h"
#include "plan/PanelPicture.h"

namespace korva::desktop {

namespace {

constexpr int kLongestNumber = 10;

}  // namespace

frmKORVAParmControls::frmKORVAParmControls(QWidget& form, UnitSystem units) : form_(form), units_(units) {
  SSTab1 = new FormTabs(QStringLiteral("SSTab1"), &form);
  order_.push_back(SSTab1);
  SSTab1->AddPage(StandardTab(), QStringLiteral("Standard"));
  SSTab1->AddPage(DefaultsTab(), QStringLiteral("Defaults"));
  SSTab1->AddPage(RetreatTab(), QStringLiteral("Retreat"));
  QVBoxLayout* all = NewColumn(&form);
  all->addWidget(SSTab1, 1);
  AddButtons(*all);
  for (std::size_t i = 1; i < order_.size(); ++i) {
    QWidget::setTabOrder(order_[i - 1], order_[i]);
  }
}

QGroupBox* frmKORVAParmControls::NewFrame(const char* name, const char* title) {
  auto* frame = new QGroupBox(QLatin1String(title), &form_);
  frame->setObjectName(QLatin1String(name));
  return frame;
}

FieldBox* frmKORVAParmControls::NewBox(const NumberField& field, const QString& name,
                                       const QString& caption) {
  auto* box = new FieldBox(name, field.Length, &form_);
  const QString unit = field.Unit ? FromUtf8(UnitLabel(*field.Unit, units_)) : QString();
  box->Explain(caption, QStringLiteral("%1%2. Accepted: %3.")
                            .arg(QLatin1String(field.Meaning), unit, FromUtf8(AcceptedText(field))));
  box->HoldNumber();
  SetColumns(*box, kLongestNumber);
  order_.push_back(box);
  return box;
}

// The box of a row with its label before it.
void frmKORVAParmControls::AddBox(QGridLayout& grid, std::size_t field, int line, int column) {
  const NumberField& row = kNumberFields[field];
  QString caption = QLatin1String(row.Caption);
  if (row.Unit) {
    caption += FromUtf8(UnitLabel(*row.Unit, units_));
  }
  labels[field] = NewLabel(QLatin1String(row.Label), caption, &form_);
  boxes[field] = NewBox(row, QLatin1String(row.Control), caption);
  labels[field]->setBuddy(boxes[field]);
  grid.addWidget(labels[field], line, column);
  grid.addWidget(boxes[field], line, column + 1);
}

QCheckBox* frmKORVAParmControls::NewCheck(std::size_t field) {
  const FlagField& row = kFlagFields[field];
  checks[field] = NewCheckBox(row.Control, QLatin1String(row.Caption), &form_);
  checks[field]->setToolTip(QLatin1String(row.Meaning));
  order_.push_back(checks[field]);
  return checks[field];
}

// A frame with a line for each of its boxes, and then one for each of its check boxes.
QGroupBox* frmKORVAParmControls::FieldsFrame(ParameterFrame which) {
  QGroupBox* frame = NewFrame(RowOf(which).Control, RowOf(which).Title);
  auto* grid = new QGridLayout(frame);
  grid->setColumnStretch(0, 1);
  for (std::size_t i = 0; i < kNumberFields.size(); ++i) {
    if (kNumberFields[i].Frame == which) {
      AddBox(*grid, i, grid->rowCount(), 0);
    }
  }
  for (std::size_t i = 0; i < kFlagFields.size(); ++i) {
    if (kFlagFields[i].Frame == which) {
      grid->addWidget(NewCheck(i), grid->rowCount(), 0, 1, 2);
    }
  }
  return frame;
}

QGroupBox* frmKORVAParmControls::OptionFrame(const char* name, const char* title, const char* array,
                                             std::span<const char* const> captions,
                                             std::span<QRadioButton*> options) {
  QGroupBox* frame = NewFrame(name, title);
  auto* column = new QVBoxLayout(frame);
  for (std::size_t i = 0; i < options.size(); ++i) {
    const QString caption = QLatin1String(captions[i]);
    options[i] = NewOption(IndexedName(array, static_cast<int>(i)), caption, frame);
    options[i]->setToolTip(QString(caption).replace(QLatin1String("&&"), QLatin1String("&")));
    column->addWidget(options[i]);
    order_.push_back(options[i]);
  }
  column->addStretch();
  return frame;
}

QWidget* frmKORVAParmControls::DefaultsTab() {
  auto* tab = new QWidget(&form_);
  QVBoxLayout* column = NewColumn(tab);
  for (const ParameterFrame frame :
       {ParameterFrame::kLoading, ParameterFrame::kZone, ParameterFrame::kArch}) {
    column->addWidget(FieldsFrame(frame));
  }
  column->addStretch();
  auto* row = new QWidget(&form_);
  auto* middle = new QHBoxLayout(row);
  middle->setContentsMargins(0, 0, 0, 0);
  middle->addWidget(tab);
  middle->addStretch();
  return row;
}

// The rows beside the sides in one line, and a line for each row with its width.
QGroupBox* frmKORVAParmControls::BleederFrame() {
  const FrameRow& row = RowOf(ParameterFrame::kBleeder);
  QGroupBox* frame = NewFrame(row.Control, row.Title);
  auto* grid = new QGridLayout(frame);
  int line = 0;
  int column = 0;
  for (std::size_t i = 0; i < kFlagFields.size(); ++i) {
    if (kFlagFields[i].Frame != ParameterFrame::kBleeder) {
      continue;
    }
    QCheckBox* check = NewCheck(i);
    KeepPlace(*check);
    if (kFlagFields[i].Role != FlagRole::kShows) {
      grid->addWidget(check, 0, column++);
      continue;
    }
    grid->addWidget(check, ++line, 0);
    const std::size_t field = IndexOf(kFlagFields[i].Number);
    AddBox(*grid, field, line, 1);
    KeepPlace(*labels[field]);
    KeepPlace(*boxes[field]);
  }
  return frame;
}

QWidget* frmKORVAParmControls::RetreatTab() {
  QGroupBox* condition = OptionFrame(
      "Frame5", "Loading Condition", "optAnal",
      std::array<const char*, 4>{"Development load (no nearby gob)", "One active retreat section",
                                 "One active section && one side gob", "One active section && two side gobs"},
      optAnal);
  fraActive = FieldsFrame(ParameterFrame::kActiveGob);
  fraFirst = FieldsFrame(ParameterFrame::kFirstGob);
  fraSecond = FieldsFrame(ParameterFrame::kSecondGob);
  fraBleeder = BleederFrame();
  pictures = new QStackedWidget(&form_);
  for (int i = 0; i < kPanelPictures; ++i) {
    auto* picture = new SchematicView(i, pictures);
    picture->setObjectName(IndexedName("Picture2", i));
    pictures->addWidget(picture);
  }
  for (QWidget* frame : {fraActive, fraFirst, fraSecond, fraBleeder}) {
    KeepPlace(*frame);
  }
  auto* tab = new QWidget(&form_);
  auto* grid = new QGridLayout(tab);
  ApplySpacing(*grid, form_);
  grid->addWidget(condition, 0, 0);
  grid->addWidget(fraActive, 1, 0);
  grid->addWidget(fraFirst, 2, 0);
  grid->addWidget(fraSecond, 3, 0);
  grid->addWidget(pictures, 0, 1, 3, 1);
  grid->addWidget(fraBleeder, 3, 1);
  grid->setColumnStretch(1, 1);
  return tab;
}

void frmKORVAParmControls::AddButtons(QBoxLayout& layout) {
  struct Button {
    QPushButton*& Made;
    const char* Name;
    const char* Caption;
    const char* ToolTip;
  };
  for (const Button& row : std::initializer_list<Button>{
           {cmdResults, "cmdResults", "&Results", "Calculates the values in the form, without storing them"},
           {cmdCopyClip, "cmdCopyClip", "&Copy Clip", "Copies a picture of this window to the clipboard"},
           {cmdView, "cmdView", kViewPlanCaption, kViewPlanTip},
           {cmdCancel, "cmdCancel", "Cancel", "Closes without storing anything"},
           {cmdOK, "cmdOK", "OK", "Stores the values of the form in the project"},
           {cmdHelp, "cmdHelp", kHelpCaption, ""}}) {
    row.Made = NewButton(row.Name, QLatin1String(row.Caption), &form_);
    row.Made->setToolTip(QLatin1String(row.ToolTip));
    order_.push_back(row.Made);
  }
  cmdOK->setDefault(true);
  layout.addLayout(NewButtonRow(cmdHelp, {cmdResults, cmdCopyClip, cmdView, cmdCancel, cmdOK}));
}

}  // namespace korva::desktop
