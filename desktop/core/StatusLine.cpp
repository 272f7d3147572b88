#include "desktop/core/StatusLine.h"

#include "commands/ProjectSummary.h"
#include "core/Tables.h"
#include "desktop/support/FormTools.h"

namespace korva::desktop {

namespace {

QString Capitalized(std::string_view word) {
  QString text = FromUtf8(word);
  text[0] = text[0].toUpper();
  return text;
}

}  // namespace

StatusLine::StatusLine(QWidget* parent)
    : QStatusBar(parent),
      file_(new PathLabel("lblStatusFile", this)),
      remark_(new PathLabel("lblStatusRemark", this)),
      units_(NewLabel(QStringLiteral("lblStatusUnits"), {}, this)),
      model_(NewLabel(QStringLiteral("lblStatusModel"), {}, this)),
      saved_(NewLabel(QStringLiteral("lblStatusSaved"), {}, this)) {
  setObjectName(QStringLiteral("StatusBar1"));
  const int edge = 2 * SpacingUnit(*this);
  setContentsMargins(edge, 0, 0, 0);
  saved_->setContentsMargins(0, 0, edge, 0);  // a maximised window has no grip there
  for (PathLabel* label : {file_, remark_}) {
    addWidget(label, 1);
  }
  for (QLabel* label : {units_, model_, saved_}) {
    addPermanentWidget(label);
  }
}

void StatusLine::Show(const Korva& korva) {
  file_->ShowPath(FromUtf8(korva.ProjectFileName));
  const QString remark = FromUtf8(ProjectRemark(korva));
  remark_->ShowPath(remark);
  remark_->setVisible(!remark.isEmpty());
  units_->setText(Capitalized(UnitSystemName(korva.Stored.ProjectUnits)));
  model_->setText(Capitalized(ModelName(korva.Stored.ProjectInput.CalcMode)) + QStringLiteral(" model"));
  saved_->setText(korva.ProjectSaved ? QStringLiteral("Saved") : QStringLiteral("Not saved"));
}

}  // namespace korva::desktop
