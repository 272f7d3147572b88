// The middle of the main window while no project is open: the title picture, and what one can begin with.
#pragma once

#include <QWidget>
#include <functional>
#include <string>

#include "core/Folders.h"

class QMenu;

namespace korva::desktop {

class StartPage : public QWidget {
 public:
  struct Commands {
    std::function<void()> New;
    std::function<void()> Open;
    std::function<void(const std::string& file)> OpenExample;
  };

  // `places` has to outlive the page.
  StartPage(const Folders& places, Commands commands, QWidget* parent);

 private:
  void FillExamples();

  const Folders& places_;
  Commands commands_;
  QMenu* examples_;
};

}  // namespace korva::desktop
