#include <fmt/format.h>

#include <array>

#include "core/FileNames.h"
#include "strond/KORVAStrond2D.h"

namespace korva {

namespace {

// The files of a place, made of its folder, the project's stem and the extension.
struct PlaceFiles {
  std::string StrondPlace::*Folder;
  std::string_view Input;
  std::string_view Output;
  std::string_view Result;
};
constexpr std::array<PlaceFiles, 4> kPlaces = {{
    {&StrondPlace::App, "{0}/{1}/{1}{2}", "{0}/{1}/{1}{2}", "{0}/{1}_KVSD.{2}"},
    {&StrondPlace::Tmp, "{0}/{1}/{1}{2}", "{0}{1}/{1}{2}", "{0}{1}_KVSD{2}"},
    {&StrondPlace::Drive, "{0}/{1}/{1}{2}", "{0}/{1}/{1}{2}", "{0}/{1}_KVSD{2}"},
    {&StrondPlace::Docs, "{0}{1}{2}", "{0}{1}/{1}{2}", "{0}{1}_KVSD{2}"},
}};

std::string StrondFile(std::string_view PlaceFiles::*file, const std::string& projectPath,
                       std::string_view ext, const StrondPlace& place) {
  const auto index = static_cast<std::size_t>(place.iOptDir);
  return index >= kPlaces.size()
             ? std::string()
             : fmt::format(fmt::runtime(kPlaces.at(index).*file), place.*kPlaces.at(index).Folder,
                           FileBaseName(projectPath, true), ext);
}

}  // namespace

StrondPlace StrondPlaceOf(const Folders& folders, SolverFolder iOptDir) {
  std::string app = folders.AppPath;
  if (app.ends_with('/')) {
    app.pop_back();
  }
  return {iOptDir, app, folders.SystemTempFolder, "", folders.TempRoot};
}

std::string StrondInputPath(const std::string& projectPath, std::string_view ext, const StrondPlace& place) {
  return StrondFile(&PlaceFiles::Input, projectPath, ext, place);
}

std::string StrondOutputPath(const std::string& projectPath, std::string_view ext, const StrondPlace& place) {
  return StrondFile(&PlaceFiles::Output, projectPath, ext, place);
}

std::string StrondResultPath(const std::string& projectPath, std::string_view ext, const StrondPlace& place) {
  return StrondFile(&PlaceFiles::Result, projectPath, ext, place);
}

}  // namespace korva
