// The warnings of a run that are too long for a message box.
#pragma once

#include <QDialog>
#include <string_view>

namespace korva::desktop {

inline constexpr std::string_view kWarningsTitle = "KORVA Warnings";

class frmPopUp final : public QDialog {
 public:
  explicit frmPopUp(std::string_view warnings, QWidget* parent = nullptr);
};

}  // namespace korva::desktop
