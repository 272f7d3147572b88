#include "commands/Examples.h"

#include "core/Encoding.h"
#include "core/FileNames.h"
#include "core/RuntimeError.h"
#include "core/Text.h"
#include "files/FileReader.h"
#include "files/FileTree.h"
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
    project.ProjectTitle.clear();  // opening it reports what is wrong
  }
  return Trimmed(project.ProjectTitle).empty() ? FileBaseName(file, true) : project.ProjectTitle;
}

}  // namespace

std::vector<std::string> ExampleNames(const Folders& places) {
  if (places.Examples.empty()) {
    return {};
  }
  try {
    std::vector<std::string> names = ReadFolder(places.Examples).Files;
    std::erase_if(names, [](const std::string& name) { return !IsProjectName(name); });
    return names;
  } catch (const RuntimeError&) {
    return {};
  }
}

std::vector<ExampleProject> ExampleProjects(const Folders& places) {
  std::vector<ExampleProject> examples;
  for (const std::string& name : ExampleNames(places)) {
    const std::string own = places.ProductFolder + name;
    const std::string file = IsFile(own) ? own : places.Examples + name;
    examples.push_back({TitleOf(file), file});
  }
  return examples;
}

}  // namespace korva
