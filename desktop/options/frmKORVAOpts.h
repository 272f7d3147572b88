// The dialog "Options": preferences of the section "KORVAOptions".
#pragma once

#include <QDialog>
#include <map>
#include <string>
#include <vector>

#include "desktop/support/CheckTable.h"
#include "desktop/support/Session.h"

class QGroupBox;
class QRadioButton;

namespace korva::desktop {

class CaseImportBox;
class FieldBox;
class FormTabs;

class frmKORVAOpts final : public QDialog {
 public:
  explicit frmKORVAOpts(Session& session, QWidget* parent = nullptr);

  void reject() override;

 private:
  void Build();
  QWidget* NewTab(const char* caption);
  QGroupBox* NewFrame(QWidget* tab, const char* caption);
  FieldBox* AddBox(QGroupBox* frame, const char* name, const char* caption, const std::string& explanation);
  void BuildEditTab();
  void BuildPlotTab();
  void BuildOutputTab();
  void BuildStrondelTab();
  void AddHiddenFrames(QWidget* tab);
  void AddImport(QWidget* tab);
  void Load();
  void Check();
  OptionSettings Entered() const;

  Session& session_;
  FormTabs* SSTab1_ = nullptr;
  CaseImportBox* import_ = nullptr;
  CheckTable<OptionSettings> checks_;
  std::map<std::string, std::vector<QRadioButton*>> options_;
  std::map<std::string, FieldBox*> boxes_;
};

}  // namespace korva::desktop
