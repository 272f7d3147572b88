// The form "Project Description": title, description, and the units of a new project.
#pragma once

#include <QDialog>
#include <array>
#include <optional>

#include "desktop/input/DescriptionBox.h"
#include "desktop/support/FieldBox.h"
#include "desktop/support/FormTools.h"
#include "desktop/support/Session.h"

namespace korva::desktop {

class frmKORVADesc final : public QDialog {
 public:
  explicit frmKORVADesc(Session& session, QWidget* parent = nullptr);

  // The open project with what is typed in the form, or nothing while nothing is. A choice of other units,
  // which drops the texts, is none before OK.
  std::optional<StoredProject> Draft() const;

  void done(int result) override;

 private:
  void Build();
  void Load();
  std::string Description() const;

  Session& session_;
  FieldBox* title_ = nullptr;
  DescriptionBox* description_ = nullptr;
  std::array<QRadioButton*, 2> units_{};
  bool openParameters_ = false;
};

}  // namespace korva::desktop
