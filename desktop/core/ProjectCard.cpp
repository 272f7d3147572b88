#include "desktop/core/ProjectCard.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "commands/ProjectSummary.h"
#include "desktop/core/CardPlan.h"
#include "desktop/support/FormTools.h"
#include "desktop/support/PathLabel.h"

namespace korva::desktop {

namespace {

QFont Scaled(QFont font, double factor, bool bold) {
  font.setPointSizeF(font.pointSizeF() * factor);
  font.setBold(bold);
  return font;
}

QLabel* NewText(const std::string& text, const QFont& font = {}) {
  auto* label = new QLabel(FromUtf8(text));
  label->setTextFormat(Qt::PlainText);
  label->setFont(font);
  return label;
}

void FillInputs(QFormLayout& layout, const std::vector<SummaryRow>& rows) {
  while (layout.rowCount() > 0) {
    layout.removeRow(0);
  }
  for (const SummaryRow& row : rows) {
    QLabel* value = NewText(row.Value);
    value->setAccessibleName(FromUtf8(row.Caption));
    layout.addRow(FromUtf8(row.Caption), value);
  }
}

// A row for each case and model under the names of what the factors are of.
void FillFactors(QGridLayout& grid, const FactorSummary& factors, const QFont& font) {
  while (QLayoutItem* item = grid.takeAt(0)) {
    delete item->widget();
    delete item;
  }
  for (std::size_t column = 0; column < factors.Columns.size(); ++column) {
    grid.addWidget(NewText(factors.Columns[column]), 0, static_cast<int>(column) + 1, Qt::AlignRight);
  }
  int line = 0;
  for (const FactorSummary::Row& row : factors.Rows) {
    ++line;
    grid.addWidget(NewText(row.Caption), line, 0);
    for (std::size_t column = 0; column < row.Values.size(); ++column) {
      QLabel* value = NewText(row.Values[column], font);
      value->setAccessibleName(FromUtf8(row.Caption + ", " + factors.Columns.at(column)));
      grid.addWidget(value, line, static_cast<int>(column) + 1, Qt::AlignRight);
    }
  }
}

}  // namespace

ProjectCard::ProjectCard(QWidget* parent)
    : QWidget(parent),
      title_(new PathLabel("lblCardTitle", this)),
      file_(new PathLabel("lblCardFile", this)),
      inputs_(new QFormLayout),
      factors_(new QGridLayout),
      outOfDate_(NewLabel(QStringLiteral("lblCardOutOfDate"),
                          QStringLiteral("Out of date: an input has changed since this run"), this)),
      plan_(new CardPlan(this)) {
  setObjectName(QStringLiteral("ProjectCard"));
  title_->setFont(Scaled(font(), 1.4, true));
  outOfDate_->setWordWrap(true);
  factors_->setHorizontalSpacing(2 * SpacingUnit(*this));
  auto* columns = new QVBoxLayout;
  columns->addLayout(inputs_);
  columns->addSpacing(2 * SpacingUnit(*this));
  columns->addLayout(factors_);
  columns->addWidget(outOfDate_);
  columns->addStretch();
  auto* body = new QHBoxLayout;
  body->addLayout(columns);
  body->addSpacing(2 * SpacingUnit(*this));
  body->addWidget(plan_, 1);
  QVBoxLayout* all = NewColumn(this);
  all->addWidget(title_);
  all->addWidget(file_);
  all->addSpacing(SpacingUnit(*this));
  all->addLayout(body, 1);
}

void ProjectCard::Show(const Korva& korva) {
  const QString title = FromUtf8(korva.Stored.ProjectTitle);
  title_->ShowPath(title.isEmpty() ? QStringLiteral("Project without a title") : title);
  file_->ShowPath(FromUtf8(korva.ProjectFileName));
  FillInputs(*inputs_, KeyInputs(korva.Stored));
  const FactorSummary factors = LastFactors(korva);
  QFont factorFont = Scaled(font(), 1.2, true);
  factorFont.setStrikeOut(factors.OutOfDate);
  FillFactors(*factors_, factors, factorFont);
  outOfDate_->setVisible(factors.OutOfDate);
  plan_->Show(korva);
}

}  // namespace korva::desktop
