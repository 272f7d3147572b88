#include "commands/FileAssociation.h"

#include <fmt/format.h>

#include "commands/Attempt.h"
#include "core/Text.h"
#include "core/Version.h"
#include "input/CheckSettings.h"

namespace korva {

namespace {

constexpr const char* kTopic = "messages-association";
constexpr std::size_t kLongestExtension = 3;

UserFolders UserOf(const Korva& korva) {
  return {korva.Places.DataHome, korva.Places.ConfigHome};
}

// The lines of `names` below `heading`, or nothing.
std::string Listed(std::string_view heading, const std::vector<std::string>& names) {
  return names.empty() ? std::string() : fmt::format("{}\n{}", heading, fmt::join(names, "\n"));
}

std::string CaveatsText(const AssociationCaveats& caveats) {
  const std::string tools =
      Listed("Desktops may not see it before these tools are installed and have run:", caveats.MissingTools);
  const std::string lists = Listed(
      "This desktop still opens the files with the program that these lists name:", caveats.OtherLists);
  return tools + (tools.empty() || lists.empty() ? "" : "\n") + lists;
}

}  // namespace

void AskFileAssociation(Korva& korva, Ports& ports, const AssociationPictures& pictures) {
  const std::string extension = korva.Preferences.FileExtension;
  if (extension.empty() || extension.size() > kLongestExtension || !IsExtensionText(extension)) {
    ShowMessage(
        korva, ports.Messages,
        {.text = fmt::format("The file extension of the settings, \"{}\", cannot be associated. It has "
                             "to be one to three capital letters or digits.",
                             Excerpt(extension)),
         .topic = kTopic});
    return;
  }
  if (!IsConfirmed(
          korva, ports.Messages,
          fmt::format("This operation may break an existing association of file extension {} with other "
                      "programs on this computer. Proceed?",
                      extension),
          kTopic)) {
    return;
  }
  const std::string program(ProgramFile);
  AssociationCaveats caveats;
  const auto associate = [&] {
    const BusyPointer busy(ports.Busy);
    caveats = AssociateFileType(UserOf(korva), korva.Places.AppPath, program, extension, pictures);
  };
  if (Attempt(korva, ports.Messages, associate) != AttemptResult::kDone) {
    return;
  }
  ShowMessage(
      korva, ports.Messages,
      {.text = fmt::format("The {} file extensions has been associated to {}{}{}Note: if order for this "
                           "function to be successfully completed the user needs to have access to the "
                           "registry",
                           extension, program, kLineEnd, kLineEnd),
       .detail = CaveatsText(caveats),
       .topic = kTopic});
  HistoryLog(korva, fmt::format("{} {} {}", extension, program, korva.Places.AppPath));
}

bool HasFileAssociation(const Korva& korva) {
  return AssociatedExtension(UserOf(korva)).has_value();
}

void AskFileDissociation(Korva& korva, Ports& ports) {
  const auto extension = AssociatedExtension(UserOf(korva));
  if (!extension ||
      !IsConfirmed(
          korva, ports.Messages,
          fmt::format("Files with the extension {} will open as they did before they were associated to {}. "
                      "Proceed?",
                      *extension, ProgramFile),
          kTopic)) {
    return;
  }
  std::vector<std::string> left;
  const auto dissociate = [&] {
    const BusyPointer busy(ports.Busy);
    left = DissociateFileType(UserOf(korva));
  };
  if (Attempt(korva, ports.Messages, dissociate) == AttemptResult::kDone) {
    ShowMessage(korva, ports.Messages,
                {.text = fmt::format("The association of file extension {} has been removed", *extension),
                 .detail = Listed("These files were changed since and stay as they are:", left),
                 .topic = kTopic});
  }
}

}  // namespace korva
