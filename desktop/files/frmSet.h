// The dialog "Settings".
#pragma once

#include <QDialog>
#include <array>
#include <string>

#include "desktop/support/CheckTable.h"
#include "desktop/support/FieldBox.h"
#include "desktop/support/FormTools.h"
#include "desktop/support/Session.h"
#include "input/CheckSettings.h"

class QGroupBox;

namespace korva::desktop {

class frmSet final : public QDialog {
  Q_OBJECT

 public:
  explicit frmSet(Session& session, QWidget* parent = nullptr);

  void reject() override;

 private:
  void Build();
  QGroupBox* UnitsFrame();
  QGroupBox* WindowFrame();
  QGroupBox* FilesFrame();
  QGroupBox* EditorFrame();
  void Load();
  void Wire();
  void Check();
  void ChooseFont();
  void ChooseEditor();
  void ChoosePath();
  void ExtensionTyped(const QString& text);
  FieldBox* NewBox(const char* name, const char* caption, const std::string& explanation);
  SettingsTexts Texts() const;
  Settings Entered() const;

  Session& session_;
  std::array<QRadioButton*, 2> units_{};
  CheckTable<Settings> checks_;
  FieldBox* extension_ = nullptr;  // Text1
  FieldBox* path_ = nullptr;       // Text2
  FieldBox* size_ = nullptr;       // Text3
  FieldBox* editor_ = nullptr;     // Text4
  QPushButton* font_ = nullptr;
  bool loading_ = true;
};

}  // namespace korva::desktop
