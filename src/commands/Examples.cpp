#include "commands/Examples.h"

#include <filesystem>
#include <system_error>

#include "core/Encoding.h"
#include "core/FileNames.h"
#include "core/RuntimeError.h"
#include "core/Text.h"
#include "files/FolderContent.h"
#include "files/PlatformFile.h"
#include "files/ProjectFile.h"

namespace korva {

namespace {

std::string TitleOf(const std::string& file) {
  StoredProject project;
  try {
    const std::string text = TextFromFileBytes(ReadWholeFile(file, kLargestProjectFile));
    if (const auto format = DetectProjectFormat(text, file)) {
      std::vector<FileNotice> notices;
      ReadProject(text, file, *format, project, notices);
    }
  } catch (const RuntimeError&) {
    project.ProjectTitle.clear();  // opening it tells what is wrong
  }
  return Trimmed(project.ProjectTitle).empty() ? FileBaseName(file, true) : project.ProjectTitle;
}

}  // namespace

std::vector<ExampleProject> ExampleProjects(const Folders& places) {
  std::vector<ExampleProject> examples;
  if (places.Examples.empty()) {
    return examples;
  }
  try {
    for (const std::string& name : ReadFolder(places.Examples).Files) {
      if (IsProjectName(name)) {
        const std::string own = places.ProductFolder + name;
        std::error_code failure;
        const std::string file = std::filesystem::exists(own, failure) ? own : places.Examples + name;
        examples.push_back({TitleOf(file), file});
      }
    }
  } catch (const RuntimeError&) {
    examples.clear();
  }
  return examples;
}

}  // namespace korva
