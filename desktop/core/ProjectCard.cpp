#include "desktop/core/ProjectCard.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "commands/ProjectSummary.h"
#include "desktop/plan/SchematicView.h"
#include "desktop/support/FormTools.h"
#include "plan/PanelPicture.h"

namespace korva::desktop {

namespace {

QFont Scaled(QFont font, double factor, bool bold) {
  font.setPointSizeF(font.pointSizeF() * factor);
  font.setBold(bold);
  return font;
}

void Clear(QFormLayout& rows) {
  while (rows.rowCount() > 0) {
    rows.removeRow(0);
  }
}

void Fill(QFormLayout& layout, const std::vector<SummaryRow>& rows, const QFont& font) {
  Clear(layout);
  for (const SummaryRow& row : rows) {
    auto* value = new QLabel(FromUtf8(row.Value));
    value->setTextFormat(Qt::PlainText);
    value->setFont(font);
    value->setAccessibleName(FromUtf8(row.Caption));
    layout.addRow(FromUtf8(row.Caption), value);
  }
}

}  // namespace

ProjectCard::ProjectCard(QWidget* parent)
    : QWidget(parent),
      title_(NewLabel(QStringLiteral("lblCardTitle"), {}, this)),
      file_(NewLabel(QStringLiteral("lblCardFile"), {}, this)),
      body_(new QHBoxLayout),
      inputs_(new QFormLayout),
      factors_(new QFormLayout),
      outOfDate_(NewLabel(QStringLiteral("lblCardOutOfDate"),
                          QStringLiteral("Out of date: an input has changed since this run"), this)) {
  setObjectName(QStringLiteral("ProjectCard"));
  title_->setFont(Scaled(font(), 1.4, true));
  title_->setWordWrap(true);
  file_->setWordWrap(true);
  outOfDate_->setWordWrap(true);
  auto* columns = new QVBoxLayout;
  columns->addLayout(inputs_);
  columns->addSpacing(2 * SpacingUnit(*this));
  columns->addLayout(factors_);
  columns->addWidget(outOfDate_);
  columns->addStretch();
  body_->addLayout(columns);
  auto* all = new QVBoxLayout(this);
  ApplySpacing(*all, *this);
  all->addWidget(title_);
  all->addWidget(file_);
  all->addLayout(body_, 1);
}

void ProjectCard::ShowPicture(const Project& project) {
  const int index =
      PanelPictureIndex(project.LoadingCondition, project.RowA, project.RowB, project.RowC, project.RowD);
  if (index == pictureIndex_) {
    return;
  }
  pictureIndex_ = index;
  delete picture_;
  picture_ = new SchematicView(index, this);
  body_->addWidget(picture_, 1);
}

void ProjectCard::Show(const Korva& korva) {
  const QString title = FromUtf8(korva.Stored.ProjectTitle);
  title_->setText(title.isEmpty() ? QStringLiteral("Project without a title") : title);
  file_->setText(FromUtf8(korva.ProjectFileName));
  Fill(*inputs_, KeyInputs(korva.Stored), font());
  const FactorSummary factors = LastFactors(korva);
  QFont factorFont = Scaled(font(), 1.2, true);
  factorFont.setStrikeOut(factors.OutOfDate);
  Fill(*factors_, factors.Rows, factorFont);
  outOfDate_->setVisible(factors.OutOfDate);
  ShowPicture(korva.Stored.ProjectInput);
}

}  // namespace korva::desktop
