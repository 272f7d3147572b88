#include "desktop/input/frmKORVAParmControls.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/plan/PlanView.h"
#include "desktop/plan/SchematicView.h"
#include "desktop/support/ReadOut.h"
#include "plan/PanelPicture.h"

namespace korva::desktop {

namespace {

constexpr int kLongestNumber = 10;

QString CenterCaption(int i) {
  return QStringLiteral("%1 %2").arg(QLatin1String(kCenterField.Caption)).arg(i);
}

// Keeps the place of a hidden widget, so that nothing jumps.
void KeepPlace(QWidget& widget) {
  QSizePolicy policy = widget.sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  widget.setSizePolicy(policy);
}

}  // namespace

frmKORVAParmControls::frmKORVAParmControls(QWidget& form, UnitSystem units) : form_(form), units_(units) {
  SSTab1 = new FormTabs(QStringLiteral("SSTab1"), &form);
  order_.push_back(SSTab1);
  SSTab1->AddPage(StandardTab(), QStringLiteral("Standard"));
  SSTab1->AddPage(DefaultsTab(), QStringLiteral("Defaults"));
  SSTab1->AddPage(RetreatTab(), QStringLiteral("Retreat"));
  auto* all = new QVBoxLayout(&form);
  ApplySpacing(*all, form);
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
                            .arg(QLatin1String(field.Meaning), unit, QLatin1String(field.Range.Words)));
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

template <std::size_t Count>
QGroupBox* frmKORVAParmControls::OptionFrame(const char* name, const char* title, const char* array,
                                             const std::array<const char*, Count>& captions,
                                             std::array<QRadioButton*, Count>& options) {
  QGroupBox* frame = NewFrame(name, title);
  auto* column = new QVBoxLayout(frame);
  for (std::size_t i = 0; i < Count; ++i) {
    const QString caption = QLatin1String(captions[i]);
    options[i] = NewOption(IndexedName(array, static_cast<int>(i)), caption, frame);
    options[i]->setToolTip(QString(caption).replace(QLatin1String("&&"), QLatin1String("&")));
    column->addWidget(options[i]);
    order_.push_back(options[i]);
  }
  column->addStretch();
  return frame;
}

// Entries as numbered blocks with a line below each, and between two of them the box of their distance.
QGroupBox* frmKORVAParmControls::EntriesFrame() {
  QGroupBox* frame = NewFrame("Frame6", "Center-to-center entry spacing");
  auto* grid = new QGridLayout(frame);
  grid->setHorizontalSpacing(0);
  for (int i = 1; i <= kMaxEntries; ++i) {
    AddEntry(*grid, i);
  }
  for (int i = 1; i <= kMaxRows; ++i) {
    AddCenter(*grid, i);
  }
  grid->setColumnStretch(2 * kMaxEntries, 1);
  return frame;
}

void frmKORVAParmControls::AddEntry(QGridLayout& grid, int number) {
  auto* block = new FieldBox(IndexedName("Text15", number), 0, &form_);
  block->setText(QString::number(number));
  MakeReadOut(*block);
  block->setFocusPolicy(Qt::NoFocus);
  block->setAlignment(Qt::AlignCenter);
  block->Explain(QStringLiteral("Entry %1").arg(number), QStringLiteral("Entry %1 of the panel").arg(number));
  SetColumns(*block, 1);
  KeepPlace(*block);
  auto* line = new QFrame(&form_);
  line->setObjectName(IndexedName("Line1", number));
  line->setFrameShape(QFrame::VLine);
  KeepPlace(*line);
  Text15[number] = block;
  Line1[number] = line;
  grid.addWidget(block, 0, 2 * number - 2, Qt::AlignHCenter);
  grid.addWidget(line, 1, 2 * number - 2, 2, 1, Qt::AlignHCenter);
}

void frmKORVAParmControls::AddCenter(QGridLayout& grid, int number) {
  const QString caption = CenterCaption(number);
  FieldBox* box = NewBox(kCenterField, IndexedName(kCenterField.Control, number),
                         QStringLiteral("Distance %1").arg(caption));
  SetColumns(*box, kCenterField.Length);
  QLabel* label = NewLabel(IndexedName(kCenterField.Label, number), caption, &form_);
  label->setAlignment(Qt::AlignCenter);
  label->setBuddy(box);
  KeepPlace(*box);
  KeepPlace(*label);
  txtXcutCenters[number] = box;
  Label23[number] = label;
  grid.addWidget(label, 1, 2 * number - 1);
  grid.addWidget(box, 2, 2 * number - 1);
}

QGroupBox* frmKORVAParmControls::GeometryFrame() {
  QGroupBox* geometry = FieldsFrame(ParameterFrame::kGeometry);
  auto* grid = qobject_cast<QGridLayout*>(geometry->layout());
  grid->addWidget(NewLabel(QStringLiteral("Label10"), QStringLiteral("(center-to-center)"), geometry),
                  grid->rowCount(), 0);

  Combo1 = NewList(QStringLiteral("Combo1"), geometry);
  Combo1->setAccessibleName(QStringLiteral("Number of entries"));
  Combo1->setToolTip(QStringLiteral("Number of parallel entries of the panel. Accepted: 2 to 10."));
  for (int entries = 2; entries <= kMaxEntries; ++entries) {
    Combo1->addItem(QString::number(entries));
  }
  order_.push_back(Combo1);
  QLabel* label = NewLabel(QStringLiteral("Label6"), QStringLiteral("Number of entries"), geometry);
  label->setBuddy(Combo1);
  const int line = grid->rowCount();
  grid->addWidget(label, line, 0);
  grid->addWidget(Combo1, line, 1);
  txtNumberEntries = new FieldBox(QStringLiteral("txtNumberEntries"), 0, geometry);
  txtNumberEntries->Explain(QStringLiteral("Number of entries"), QStringLiteral("Number of entries"));
  txtNumberEntries->hide();
  return geometry;
}

QGroupBox* frmKORVAParmControls::RatioFrame() {
  QGroupBox* ratio = NewFrame("Frame7", "Extraction ratio");
  auto* ratioRow = new QHBoxLayout(ratio);
  Text10 = new FieldBox(QStringLiteral("Text10"), 0, ratio);
  MakeReadOut(*Text10);
  Text10->setFocusPolicy(Qt::ClickFocus);
  Text10->setAlignment(Qt::AlignRight);
  Text10->Explain(
      QStringLiteral("Average extraction ratio (%)"),
      QStringLiteral("Share of the coal that is mined within the active mining zone (%), computed"));
  SetColumns(*Text10, 6);
  QLabel* ratioLabel =
      NewLabel(QStringLiteral("Label11"), QStringLiteral("Average extraction ratio (%)"), ratio);
  ratioLabel->setBuddy(Text10);
  ratioRow->addWidget(ratioLabel, 1);
  ratioRow->addWidget(Text10);
  return ratio;
}

QWidget* frmKORVAParmControls::StandardTab() {
  QGroupBox* geometry = GeometryFrame();
  QGroupBox* model =
      OptionFrame("Frame8", "Overburden Model", "optLam",
                  std::array<const char*, 3>{"Traditional Loading Model", "Laminated Overburden Model",
                                             "Laminated Overburden Model compared to Traditional Model"},
                  optLam);
  Picture1 = new PlanView("Picture1", &form_);
  Picture1->setAccessibleName(QStringLiteral("Plan preview"));
  Picture1->setToolTip(QStringLiteral("The panel to scale, as it is typed in"));
  Picture1->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);

  chkEqual =
      NewCheckBox("chkEqual", QStringLiteral("Equal center-to-center spacing for all entries"), &form_);
  chkEqual->setToolTip(QStringLiteral("Gives all distances the value of the first"));
  order_.push_back(chkEqual);
  auto* tab = new QWidget(&form_);
  auto* layout = new QGridLayout(tab);
  ApplySpacing(*layout, form_);
  layout->addWidget(geometry, 0, 0, 2, 1);
  layout->addWidget(model, 0, 1);
  layout->addWidget(RatioFrame(), 1, 1);
  layout->addWidget(Picture1, 0, 2, 2, 1);
  layout->addWidget(chkEqual, 2, 0, 1, 3);
  layout->addWidget(EntriesFrame(), 3, 0, 1, 3);
  layout->setRowStretch(4, 1);
  layout->setColumnStretch(2, 1);
  return tab;
}

QWidget* frmKORVAParmControls::DefaultsTab() {
  auto* tab = new QWidget(&form_);
  auto* column = new QVBoxLayout(tab);
  ApplySpacing(*column, form_);
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
    const auto width =
        std::find_if(kNumberFields.begin(), kNumberFields.end(),
                     [i](const NumberField& field) { return field.OnlyWith && field.OnlyWith->At == i; });
    if (width == kNumberFields.end()) {
      grid->addWidget(check, 0, column++);
      continue;
    }
    grid->addWidget(check, ++line, 0);
    const auto field = static_cast<std::size_t>(width - kNumberFields.begin());
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
           {cmdResults, "cmdResults", "&Results", "Calculates what stands in the form, without storing it"},
           {cmdCopyClip, "cmdCopyClip", "&Copy Clip", "Copies a picture of this window to the clipboard"},
           {cmdView, "cmdView", "&View Plan", "Draws the panel in plan"},
           {cmdCancel, "cmdCancel", "Cancel", "Closes without storing anything"},
           {cmdOK, "cmdOK", "OK", "Stores what stands in the form in the project"},
           {cmdHelp, "cmdHelp", "Help", ""}}) {
    row.Made = NewButton(row.Name, QLatin1String(row.Caption), &form_);
    row.Made->setToolTip(QLatin1String(row.ToolTip));
    order_.push_back(row.Made);
  }
  cmdOK->setDefault(true);
  layout.addLayout(NewButtonRow(cmdHelp, {cmdResults, cmdCopyClip, cmdView, cmdCancel, cmdOK}));
}

}  // namespace korva::desktop
