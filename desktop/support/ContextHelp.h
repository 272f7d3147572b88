// F1 in every window of the program: opens the help at the control with the focus, or at the menu command
// that is highlighted.
#pragma once

#include <QObject>
#include <functional>
#include <string>
#include <vector>

class QWidget;

namespace korva::desktop {

// The property with which a window that is no form names its own topic.
inline constexpr const char* kTopicProperty = "helpTopic";

// The labels that belong to a control, the best first.
std::vector<std::string> HelpLabelsOf(const QWidget& control);

// Watches the keys of the whole program while it lives.
class ContextHelp final : public QObject {
 public:
  explicit ContextHelp(std::function<void(const std::vector<std::string>& labels)> show);

 protected:
  bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
  std::function<void(const std::vector<std::string>& labels)> show_;
};

}  // namespace korva::desktop
