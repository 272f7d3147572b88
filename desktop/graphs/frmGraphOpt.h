// The options of the graph window: titles, grid, style, legend and symbols.
#pragma once

#include <QDialog>
#include <array>
#include <string>
#include <utility>
#include <vector>

#include "desktop/support/Session.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QScrollBar;

namespace korva::desktop {

class frmGraph;

// Works on a draft of the settings; OK takes it over, saves it, and has `graph` drawn again.
class frmGraphOpt final : public QDialog {
  Q_OBJECT

 public:
  frmGraphOpt(Session& session, frmGraph& graph);

  void accept() override;

 private:
  void Build();
  QLineEdit* NewTitle(const QString& name, const char* meaning, std::string& title);
  QWidget* BuildTitles();
  QWidget* BuildFormat();
  void InitForm();
  void ChooseParameters(bool lastUsed);
  void ShowSymbolControls();
  void CheckChoice(QComboBox& list);

  Session& session_;
  frmGraph& graph_;
  GraphSettings draft_;
  std::array<QRadioButton*, 2> Option1_{};
  std::vector<std::pair<QLineEdit*, std::string*>> titles_;  // boxes, and what they edit of the draft
  QComboBox* Combo1_ = nullptr;
  QComboBox* Combo2_ = nullptr;
  QCheckBox* Check1_ = nullptr;
  QScrollBar* HScroll1_ = nullptr;
  QLineEdit* txtSS_ = nullptr;
  QLabel* lblSS_ = nullptr;
};

}  // namespace korva::desktop
