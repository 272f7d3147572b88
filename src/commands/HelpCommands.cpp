#include "commands/HelpCommands.h"

#include "core/RuntimeError.h"
#include "files/FileTree.h"
#include "services/HelpTexts.h"

namespace korva {

namespace {

void ShowNotAvailable(Korva& korva, MessagePort& messages, std::string_view kind, std::string_view name) {
  ShowMessage(korva, messages,
              {.text = std::string(kind).append(" file (").append(name).append(") not available"),
               .topic = "messages-documents"});
}

// `name` is what a message calls the document.
void Open(Korva& korva, Ports& ports, const std::string& path, std::string_view kind, std::string_view name) {
  if (!IsFile(path)) {
    ShowNotAvailable(korva, ports.Messages, kind, name);
  } else if (!ports.Documents.Open(path)) {
    ShowMessage(korva, ports.Messages, {.text = kOperationFailed, .topic = "messages-documents"});
  }
}

}  // namespace

std::string DocumentPath(const Folders& places, std::string_view name) {
  std::string beside = places.AppPath + std::string(name);
  std::string shared = places.Docs + std::string(name);
  return !IsFile(beside) && !places.Docs.empty() && IsFile(shared) ? shared : beside;
}

void ShowHelpNotAvailable(Korva& korva, MessagePort& messages) {
  ShowNotAvailable(korva, messages, "Help", HelpFileName);
}

void OpenManual(Korva& korva, Ports& ports) {
  Open(korva, ports, DocumentPath(korva.Places, ManualFileName), "Help", ManualFileName);
}

bool HasResource(const Folders& places, int index) {
  return IsFile(DocumentPath(places, ResourceFiles[static_cast<std::size_t>(index)]));
}

void OpenResource(Korva& korva, Ports& ports, int index) {
  if (index < 0 || index >= kResources) {
    throw RuntimeError(ErrorNumber::kSubscript, "the index of a resource file");
  }
  const std::string path = DocumentPath(korva.Places, ResourceFiles[static_cast<std::size_t>(index)]);
  Open(korva, ports, path, "Resource", path);
}

void ShowAbout(Korva& korva, MessagePort& messages) {
  ShowMessage(
      korva, messages,
      {.text = AboutText(), .icon = MessageIcon::kInformation, .title = AboutTitle(), .topic = "about"});
}

}  // namespace korva
