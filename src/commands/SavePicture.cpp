#include "commands/SavePicture.h"

#include "core/FileNames.h"
#include "files/SafeWriter.h"

namespace korva {

void SavePicture(Korva& korva, Ports& ports, const std::string& what,
                 const std::function<std::string(PictureKind)>& draw) {
  const FileQuestion question = {.Save = true,
                                 .Title = "Save Picture",
                                 .Folder = korva.Preferences.DataPath,
                                 .Name = FileBaseName(korva.ProjectFileName, true) + ".svg",
                                 .DefaultExtension = "svg",
                                 .Filters = {"Scalable picture (*.svg)", kPdfFiles, "Picture (*.png)"}};
  const auto file = ports.Files.ChooseFile(question);
  if (!file) {
    return;
  }
  const auto kind = PictureKindOf(*file);
  if (!kind) {
    ShowMessage(korva, ports.Messages,
                {.text = "A picture's name ends in .svg, .pdf or .png", .topic = "messages-graphs"});
    return;
  }
  WriteFileSafely(*file, draw(*kind));
  HistoryLog(korva, what + " saved to file: " + *file);
}

}  // namespace korva
