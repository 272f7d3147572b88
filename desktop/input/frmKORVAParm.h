// The parameters form "Input Project Parameters": the one window in which a panel is described.
#pragma once

#include <QDialog>
#include <QTimer>
#include <functional>
#include <optional>

#include "core/Project.h"
#include "desktop/input/frmKORVAParmControls.h"
#include "desktop/support/Session.h"
#include "input/ParameterTexts.h"

namespace korva::desktop {

class frmKORVAParm final : public QDialog {
  Q_OBJECT

 public:
  // Fills itself from the open project. Deletes itself when it is closed.
  explicit frmKORVAParm(Session& session, QWidget* parent = nullptr);

  // What stands in the form now.
  ParameterTexts Texts() const;
  // The project as it would be after OK, or nothing while the form is as it was opened: numbers that it shows
  // rounded are no change.
  std::optional<StoredProject> Draft() const;

  void reject() override;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void Load();
  void Wire();
  void WireBoxes();
  void WireChecks();
  void WireConditions();
  void WireWarnings();
  void WirePreview();

  // Rules of dependent fields.
  Project Entered() const;
  void UpdateArch();
  void UpdateAMZ();
  void UpdateRatio();
  void CenterChanged(int index);
  void EntriesChosen();
  void ApplyEqual();
  void FlagClicked(std::size_t field);
  void ShowRowWidth(std::size_t field);
  void UpdateRowState(NumberIndex barrier, FlagIndex check);
  void ShowEntryFields(int entries);
  void ShowConditionFields();
  void ShowPanelPicture();

  void WarnOnLeaving(const std::optional<std::string>& warning);
  void CompleteClick(QAbstractButton* pressed);
  void ShowWarning(const std::string& text);
  void Run(const std::function<void()>& step);
  bool CheckAndShow();
  void ShowHidden(FieldBox& box);

  void AcceptAndClose();
  void Results();
  void View();
  void DrawPlanPreview();
  void ShowPreview();

  PanelLoading Condition() const;

  Session& session_;
  frmKORVAParmControls ui_;
  ParameterTexts opened_;
  QTimer timer_;
  QTimer previewTimer_;  // runs out when a change has gone through all fields
  bool loading_ = true;
  bool accepted_ = false;
  bool warningShown_ = false;
  bool chosenAgain_ = false;  // the condition that is being clicked
};

}  // namespace korva::desktop
