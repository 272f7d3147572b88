#include "desktop/input/frmKORVAParmControls.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "core/Tables.h"
#include "desktop/plan/PlanView.h"
#include "desktop/plan/SchematicView.h"
#include "desktop/support/ReadOut.h"
#include "plan/PanelPicture.h"

namespace korva::desktop {

// A labelled box: names and caption, the unit behind it, the greatest typed length, and what the tool tip
// says of meaning and accepted range.
struct frmKORVAParmControls::Row {
  const char* Box;
  const char* Label;
  const char* Caption;
  int Length;
  const char* Meaning;
  const char* Range;
  UnitKind Unit = UnitKind::kLength;
  bool HasUnit = true;
};

namespace {

constexpr int kLongestCenter = 5;
constexpr const char* kAboveZero = "above 0";
constexpr const char* kZeroOrMore = "0 or more";
constexpr const char* kAngle = "0 to 90 degrees; the data base used 21";
constexpr const char* kSlabCut = "0 to the width of the barrier pillar";
constexpr const char* kSlabMeaning = "How deep the barrier pillar is cut from the panel's side";

QString CenterCaption(int i) {
  return QStringLiteral("P %1").arg(i);
}

// Keeps the place of a hidden widget, so that nothing jumps.
void KeepPlace(QWidget& widget) {
  QSizePolicy policy = widget.sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  widget.setSizePolicy(policy);
}

}  // namespace

std::string CenterName(int index) {
  return IndexedName("txtXcutCenters", index).toStdString();
}

frmKORVAParmControls::frmKORVAParmControls(QWidget& form, UnitSystem units) : form_(form), units_(units) {
  SSTab1 = new FormTabs(QStringLiteral("SSTab1"), &form);
  SSTab1->AddPage(StandardTab(), QStringLiteral("Standard"));
  SSTab1->AddPage(DefaultsTab(), QStringLiteral("Defaults"));
  SSTab1->AddPage(RetreatTab(), QStringLiteral("Retreat"));
  auto* all = new QVBoxLayout(&form);
  ApplySpacing(*all, form);
  all->addWidget(SSTab1, 1);
  AddButtons(*all);
  SetTabOrder();
}

// As a person reads the form, tab by tab.
void frmKORVAParmControls::SetTabOrder() const {
  std::vector<QWidget*> order{SSTab1};
  const auto add = [&](std::initializer_list<const char*> names) {
    for (const char* name : names) {
      const auto box = boxes.find(name);
      order.push_back(box != boxes.end() ? static_cast<QWidget*>(box->second) : checks.at(name));
    }
  };
  add({"txtEntryHeight", "txtDepthCover", "txtXcutAngle", "txtEntryWidth", "txtXcutSpacing"});
  order.push_back(Combo1);
  order.insert(order.end(), optLam.begin(), optLam.end());
  add({"chkEqual"});
  for (int i = 1; i <= kMaxRows; ++i) {
    add({CenterName(i).c_str()});
  }
  add({"txtCoalStrength", "txtUnitWeight", "txtBreadthAMZ", "chkAMZ", "txtArchFactor", "chkArch"});
  order.insert(order.end(), optAnal.begin(), optAnal.end());
  add({"txtExtentActiveGob", "txtAbutmentAngleActiveGob", "txtExtentFirstGob", "txtAbutmentAngleFirstGob",
       "txtBarrierFirstGob", "txtSlabcutFirstGob", "txtExtentSecondGob", "txtAbutmentAngleSecondGob",
       "txtBarrierSecondGob", "txtSlabcutSecondGob", "chkRowA", "chkRowB", "chkRowC", "txtWidthC", "chkRowD",
       "txtWidthD"});
  order.insert(order.end(), {cmdResults, cmdCopyClip, cmdView, cmdCancel, cmdOK, cmdHelp});
  for (std::size_t i = 1; i < order.size(); ++i) {
    QWidget::setTabOrder(order[i - 1], order[i]);
  }
}

QGroupBox* frmKORVAParmControls::NewFrame(const char* name, const char* title) {
  auto* frame = new QGroupBox(QLatin1String(title), &form_);
  frame->setObjectName(QLatin1String(name));
  return frame;
}

FieldBox* frmKORVAParmControls::NewBox(const Row& row, const QString& caption) {
  static constexpr int kLongestNumber = 10;
  auto* box = new FieldBox(QLatin1String(row.Box), row.Length, &form_);
  const QString unit = row.HasUnit ? FromUtf8(UnitLabel(row.Unit, units_)) : QString();
  box->Explain(
      caption,
      QStringLiteral("%1%2. Accepted: %3.").arg(QLatin1String(row.Meaning), unit, QLatin1String(row.Range)));
  box->HoldNumber();
  SetColumns(*box, kLongestNumber);
  boxes[row.Box] = box;
  return box;
}

void frmKORVAParmControls::AddRow(QGridLayout& grid, const Row& row) {
  QString caption = QLatin1String(row.Caption);
  if (row.HasUnit) {
    caption += FromUtf8(UnitLabel(row.Unit, units_));
  }
  QLabel* label = NewLabel(QLatin1String(row.Label), caption, &form_);
  FieldBox* box = NewBox(row, caption);
  label->setBuddy(box);
  labels[row.Label] = label;
  const int line = grid.rowCount();
  grid.addWidget(label, line, 0);
  grid.addWidget(box, line, 1);
  grid.setColumnStretch(0, 1);
}

QGroupBox* frmKORVAParmControls::NewValueFrame(const char* name, const char* title,
                                               const std::vector<Row>& rows) {
  QGroupBox* frame = NewFrame(name, title);
  auto* grid = new QGridLayout(frame);
  for (const Row& row : rows) {
    AddRow(*grid, row);
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
    const auto at = static_cast<std::size_t>(i - 1);
    auto* block = new FieldBox(IndexedName("Text15", i), 0, frame);
    block->setText(QString::number(i));
    MakeReadOut(*block);
    block->setFocusPolicy(Qt::NoFocus);
    block->setAlignment(Qt::AlignCenter);
    block->Explain(QStringLiteral("Entry %1").arg(i), QStringLiteral("Entry %1 of the panel").arg(i));
    SetColumns(*block, 1);
    KeepPlace(*block);
    auto* line = new QFrame(frame);
    line->setObjectName(IndexedName("Line1", i));
    line->setFrameShape(QFrame::VLine);
    KeepPlace(*line);
    Text15[at] = block;
    Line1[at] = line;
    grid->addWidget(block, 0, 2 * i - 2, Qt::AlignHCenter);
    grid->addWidget(line, 1, 2 * i - 2, 2, 1, Qt::AlignHCenter);
  }
  for (int i = 1; i <= kMaxRows; ++i) {
    const std::string name = CenterName(i);
    FieldBox* box =
        NewBox({name.c_str(), "", "", kLongestCenter,
                "Distance from center to center of two neighbouring entries", "more than the entry width"},
               QStringLiteral("Distance %1").arg(CenterCaption(i)));
    SetColumns(*box, kLongestCenter);
    QLabel* label = NewLabel(IndexedName("Label23", i), CenterCaption(i), frame);
    label->setAlignment(Qt::AlignCenter);
    label->setBuddy(box);
    KeepPlace(*box);
    KeepPlace(*label);
    Label23[static_cast<std::size_t>(i - 1)] = label;
    grid->addWidget(label, 1, 2 * i - 1);
    grid->addWidget(box, 2, 2 * i - 1);
  }
  grid->setColumnStretch(2 * kMaxEntries, 1);
  return frame;
}

QGroupBox* frmKORVAParmControls::GeometryFrame() {
  QGroupBox* geometry = NewFrame("Frame1", "Panel geometry");
  auto* grid = new QGridLayout(geometry);
  AddRow(*grid, {"txtEntryHeight", "Label1", "Entry height", 5, "Height of the entries", kAboveZero});
  AddRow(*grid, {"txtDepthCover", "Label2", "Depth of cover", 10, "Depth of the seam below the surface",
                 kAboveZero});
  AddRow(*grid, {"txtXcutAngle", "Label3", "Crosscut angle (deg)", 5, "Angle between entries and crosscuts",
                 "30 to 90 degrees", UnitKind::kLength, false});
  AddRow(*grid, {"txtEntryWidth", "Label4", "Entry width", 5, "Width of entries and crosscuts", kAboveZero});
  AddRow(*grid,
         {"txtXcutSpacing", "Label5", "Crosscut spacing", 10,
          "Distance from center to center of two neighbouring crosscuts", "more than the entry width"});
  grid->addWidget(NewLabel(QStringLiteral("Label10"), QStringLiteral("(center-to-center)"), geometry),
                  grid->rowCount(), 0);

  Combo1 = NewList(QStringLiteral("Combo1"), geometry);
  Combo1->setAccessibleName(QStringLiteral("Number of entries"));
  Combo1->setToolTip(QStringLiteral("Number of parallel entries of the panel. Accepted: 2 to 10."));
  for (int entries = 2; entries <= kMaxEntries; ++entries) {
    Combo1->addItem(QString::number(entries));
  }
  QLabel* label = NewLabel(QStringLiteral("Label6"), QStringLiteral("Number of entries"), geometry);
  label->setBuddy(Combo1);
  const int line = grid->rowCount();
  grid->addWidget(label, line, 0);
  grid->addWidget(Combo1, line, 1);
  auto* entries = new FieldBox(QStringLiteral("txtNumberEntries"), 0, geometry);
  entries->Explain(QStringLiteral("Number of entries"), QStringLiteral("Number of entries"));
  entries->hide();
  boxes["txtNumberEntries"] = entries;
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
  QGroupBox* model =
      OptionFrame("Frame8", "Overburden Model", "optLam",
                  std::array<const char*, 3>{"Traditional Loading Model", "Laminated Overburden Model",
                                             "Laminated Overburden Model compared to Traditional Model"},
                  optLam);
  Picture1 = new PlanView("Picture1", &form_);
  Picture1->setAccessibleName(QStringLiteral("Plan preview"));
  Picture1->setToolTip(QStringLiteral("The panel to scale, as it is typed in"));
  Picture1->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);

  checks["chkEqual"] =
      NewCheckBox("chkEqual", QStringLiteral("Equal center-to-center spacing for all entries"), &form_);
  checks["chkEqual"]->setToolTip(QStringLiteral("Gives all distances the value of the first"));
  auto* tab = new QWidget(&form_);
  auto* layout = new QGridLayout(tab);
  ApplySpacing(*layout, form_);
  layout->addWidget(GeometryFrame(), 0, 0, 2, 1);
  layout->addWidget(model, 0, 1);
  layout->addWidget(RatioFrame(), 1, 1);
  layout->addWidget(Picture1, 0, 2, 2, 1);
  layout->addWidget(checks["chkEqual"], 2, 0, 1, 3);
  layout->addWidget(EntriesFrame(), 3, 0, 1, 3);
  layout->setRowStretch(4, 1);
  layout->setColumnStretch(2, 1);
  return tab;
}

QWidget* frmKORVAParmControls::DefaultsTab() {
  auto* tab = new QWidget(&form_);
  auto* column = new QVBoxLayout(tab);
  ApplySpacing(*column, form_);
  column->addWidget(NewValueFrame(
      "Frame2", "Loading parameters",
      {{"txtCoalStrength", "Label7", "In situ coal strength", 6, "Strength of the coal in place",
        "above 0; the data base used 900 psi (6.21 MPa)", UnitKind::kStrength},
       {"txtUnitWeight", "Label8", "Overburden unit weight", 6, "Weight of the rock above the seam",
        "above 0; the data base used 162 pcf (25.45 kN/m3)", UnitKind::kUnitWeight}}));
  const auto automatic = [&](const char* frame, const char* title, const Row& row, const char* check,
                             const char* caption, const char* tip) {
    QGroupBox* box = NewValueFrame(frame, title, {row});
    checks[check] = NewCheckBox(check, QLatin1String(caption), box);
    checks[check]->setToolTip(QLatin1String(tip));
    auto* grid = qobject_cast<QGridLayout*>(box->layout());
    grid->addWidget(checks[check], grid->rowCount(), 0, 1, 2);
    column->addWidget(box);
  };
  automatic("Frame3", "Active Mining Zone",
            {"txtBreadthAMZ", "label9", "Breadth of AMZ", 6,
             "Breadth of the active mining zone along the entries", kAboveZero},
            "chkAMZ", "Set AMZ automatically", "5 times the square root of the depth of cover in feet");
  automatic("Frame4", "Pressure Arch factor",
            {"txtArchFactor", "Label12", "Arch factor", 5, "Share of the overburden that the panel carries",
             "0.28 to 1", UnitKind::kLength, false},
            "chkArch", "Set arch factor automatically", "From the ratio of depth of cover to panel width");
  column->addStretch();
  auto* row = new QWidget(&form_);
  auto* middle = new QHBoxLayout(row);
  middle->setContentsMargins(0, 0, 0, 0);
  middle->addWidget(tab);
  middle->addStretch();
  return row;
}

QGroupBox* frmKORVAParmControls::BleederFrame() {
  QGroupBox* frame = NewFrame("fraBleeder", "Bleeder Pillars");
  auto* grid = new QGridLayout(frame);
  const auto add = [&](const char* name, const char* caption, const char* tip, int line, int column) {
    QCheckBox* check = NewCheckBox(name, QLatin1String(caption), frame);
    check->setToolTip(QLatin1String(tip));
    KeepPlace(*check);
    checks[name] = check;
    grid->addWidget(check, line, column);
  };
  add("chkRowA", "Row A", "Leave the pillar row beside the first side in place", 0, 0);
  add("chkRowB", "Row B", "Leave the pillar row beside the second side in place", 0, 1);
  add("chkRowC", "Row C", "Leave a bleeder row beside the first barrier, in the first side gob", 1, 0);
  add("chkRowD", "Row D", "Leave a bleeder row beside the second barrier, in the second side gob", 2, 0);
  int line = 1;
  for (const Row& row :
       {Row{"txtWidthC", "lblwidRowC", "Width of row C", 5, "Width of the pillars of row C", kAboveZero},
        Row{"txtWidthD", "lblwidRowD", "Width of row D", 5, "Width of the pillars of row D", kAboveZero}}) {
    const QString caption = QLatin1String(row.Caption) + FromUtf8(UnitLabel(row.Unit, units_));
    labels[row.Label] = NewLabel(QLatin1String(row.Label), caption, frame);
    FieldBox* box = NewBox(row, caption);
    labels[row.Label]->setBuddy(box);
    KeepPlace(*labels[row.Label]);
    KeepPlace(*box);
    grid->addWidget(labels[row.Label], line, 1);
    grid->addWidget(box, line++, 2);
  }
  return frame;
}

QWidget* frmKORVAParmControls::RetreatTab() {
  QGroupBox* condition = OptionFrame(
      "Frame5", "Loading Condition", "optAnal",
      std::array<const char*, 4>{"Development load (no nearby gob)", "One active retreat section",
                                 "One active section && one side gob", "One active section && two side gobs"},
      optAnal);
  fraActive = NewValueFrame(
      "fraActive", "Active Gob Parameters",
      {{"txtExtentActiveGob", "lblExtActive", "Extent of active gob", 5,
        "Extent of the gob behind the retreat line", kZeroOrMore},
       {"txtAbutmentAngleActiveGob", "Label37", "Abutment angle for active gob (deg)", 5,
        "Angle of the overburden that bridges the active gob", kAngle, UnitKind::kLength, false}});
  fraFirst = NewValueFrame(
      "fraFirst", "First Side Gob Parameters",
      {{"txtExtentFirstGob", "Label16", "Extent of first side gob", 5, "Extent of the first side gob",
        kZeroOrMore},
       {"txtAbutmentAngleFirstGob", "Label17", "Abutment angle for first side gob (deg)", 5,
        "Angle of the overburden that bridges the first side gob", kAngle, UnitKind::kLength, false},
       {"txtBarrierFirstGob", "Label18", "Barrier pillar width for first side gob", 5,
        "Width of the barrier pillar between panel and first side gob", kZeroOrMore},
       {"txtSlabcutFirstGob", "Label19", "Depth of slab cut in barrier pillar", 5, kSlabMeaning, kSlabCut}});
  fraSecond = NewValueFrame(
      "fraSecond", "Second Side Gob Parameters",
      {{"txtExtentSecondGob", "Label26", "Extent of second side gob", 5, "Extent of the second side gob",
        kZeroOrMore},
       {"txtAbutmentAngleSecondGob", "Label27", "Abutment angle for second side gob (deg)", 5,
        "Angle of the overburden that bridges the second side gob", kAngle, UnitKind::kLength, false},
       {"txtBarrierSecondGob", "Label28", "Barrier pillar width for second side gob", 5,
        "Width of the barrier pillar between panel and second side gob", kZeroOrMore},
       {"txtSlabcutSecondGob", "Label29", "Depth of slab cut in barrier pillar", 5, kSlabMeaning, kSlabCut}});
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
  cmdResults = NewButton("cmdResults", QStringLiteral("&Results"), &form_);
  cmdResults->setToolTip(QStringLiteral("Calculates what stands in the form, without storing it"));
  cmdCopyClip = NewButton("cmdCopyClip", QStringLiteral("&Copy Clip"), &form_);
  cmdCopyClip->setToolTip(QStringLiteral("Copies a picture of this window to the clipboard"));
  cmdView = NewButton("cmdView", QStringLiteral("&View Plan"), &form_);
  cmdView->setToolTip(QStringLiteral("Draws the panel in plan"));
  cmdCancel = NewButton("cmdCancel", QStringLiteral("Cancel"), &form_);
  cmdCancel->setToolTip(QStringLiteral("Closes without storing anything"));
  cmdOK = NewButton("cmdOK", QStringLiteral("OK"), &form_);
  cmdOK->setToolTip(QStringLiteral("Stores what stands in the form in the project"));
  cmdOK->setDefault(true);
  cmdHelp = NewButton("cmdHelp", QStringLiteral("Help"), &form_);
  layout.addLayout(NewButtonRow(cmdHelp, {cmdResults, cmdCopyClip, cmdView, cmdCancel, cmdOK}));
}

}  // namespace korva::desktop
