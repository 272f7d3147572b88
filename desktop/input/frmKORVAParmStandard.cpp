// The first tab of the parameters form: geometry, model, extraction ratio, plan and entries.
#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "desktop/input/frmKORVAParmControls.h"
#include "desktop/plan/PlanView.h"
#include "desktop/support/ReadOut.h"

namespace korva::desktop {

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
  MakeReadOnly(*block);
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
  const QString caption = QStringLiteral("%1 %2").arg(QLatin1String(kCenterField.Caption)).arg(number);
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

  const QString caption = QLatin1String(kEntriesCaption);
  Combo1 = NewList(QStringLiteral("Combo1"), geometry);
  Combo1->setAccessibleName(caption);
  Combo1->setToolTip(QStringLiteral("Number of parallel entries of the panel. Accepted: %1 to %2.")
                         .arg(kLeastEntries)
                         .arg(kMaxEntries));
  for (int entries = kLeastEntries; entries <= kMaxEntries; ++entries) {
    Combo1->addItem(QString::number(entries));
  }
  order_.push_back(Combo1);
  QLabel* label = NewLabel(QStringLiteral("Label6"), caption, geometry);
  label->setBuddy(Combo1);
  const int line = grid->rowCount();
  grid->addWidget(label, line, 0);
  grid->addWidget(Combo1, line, 1);
  txtNumberEntries = new FieldBox(QStringLiteral("txtNumberEntries"), 0, geometry);
  txtNumberEntries->Explain(caption, caption);
  txtNumberEntries->hide();
  return geometry;
}

QGroupBox* frmKORVAParmControls::RatioFrame() {
  QGroupBox* ratio = NewFrame("Frame7", "Extraction ratio");
  auto* ratioRow = new QHBoxLayout(ratio);
  Text10 = new FieldBox(QStringLiteral("Text10"), 0, ratio);
  MakeReadOnly(*Text10);
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

}  // namespace korva::desktop
