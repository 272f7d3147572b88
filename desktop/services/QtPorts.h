// The window toolkit's side of the engine's ports. No other place shows a box or a file dialog.
#pragma once

#include "core/Ports.h"

namespace korva::desktop {

// Message boxes over the active window.
class QtMessages final : public MessagePort {
 public:
  MessageAnswer Show(const Message& message) override;
};

class QtFileChoice final : public FileChoicePort {
 public:
  std::optional<std::string> ChooseFile(const FileQuestion& question) override;
};

class QtClipboard final : public ClipboardPort {
 public:
  void SetText(std::string_view text) override;
  void SetPicture(std::string_view png) override;
};

class QtDocuments final : public DocumentPort {
 public:
  bool Open(const std::string& file) override;
  bool OpenPage(const std::string& address) override;
};

class QtPrograms final : public ProgramPort {
 public:
  bool Run(const std::string& program, const std::vector<std::string>& arguments) override;
};

class QtBusy final : public BusyPort {
 public:
  void Begin() override;
  void End() override;
};

}  // namespace korva::desktop
