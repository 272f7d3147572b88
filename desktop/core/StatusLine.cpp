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

std::string_view ModelName(std::int16_t calcMode) {
  const auto index = static_cast<std::size_t>(calcMode);
  return kModelNames[index < kModelNames.size() ? index : 1];
}

}  // namespace

StatusLine::StatusLine(QWidget* parent)
    : QStatusBar(parent),
      file_(NewLabel(QStringLiteral("lblStatusFile"), {}, this)),
      remark_(NewLabel(QStringLiteral("lblStatusRemark"), {}, this)),
      units_(NewLabel(QStringLiteral("lblStatusUnits"), {}, this)),
      model_(NewLabel(QStringLiteral("lblStatusModel"), {}, this)),
      saved_(NewLabel(QStringLiteral("lblStatusSaved"), {}, this)) {
  setObjectName(QStringLiteral("StatusBar1"));
  for (QLabel* label : {file_, remark_}) {
    label->setMinimumWidth(1);  // a long text gives way to the others
    addWidget(label, 1);
  }
  for (QLabel* label : {units_, model_, saved_}) {
    addPermanentWidget(label);
  }
}

void StatusLine::Show(const Korva& korva) {
  const QString name = FromUtf8(korva.ProjectFileName);
  file_->setText(name);
  file_->setToolTip(name);
  const QString remark = FromUtf8(ProjectRemark(korva));
  remark_->setText(remark);
  remark_->setToolTip(remark);
  units_->setText(Capitalized(kUnitSystemNames[korva.Stored.ProjectUnits == kMetric ? 1 : 0]));
  model_->setText(Capitalized(ModelName(korva.Stored.ProjectInput.CalcMode)) + QStringLiteral(" model"));
  saved_->setText(korva.ProjectSaved ? QStringLiteral("Saved") : QStringLiteral("Not saved"));
}

}  // namespace korva::desktop
