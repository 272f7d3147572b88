#include "core/FileNames.h"
#include "strond/KORVAStrond2D.h"

namespace korva {

namespace {

// A file in the folder that carries the stem.
std::string InStemFolder(const std::string& folder, const std::string& stem, std::string_view ext) {
  return folder + stem + "/" + stem + std::string(ext);
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
  const std::string stem = FileBaseName(projectPath, true);
  switch (place.iOptDir) {
    case SolverFolder::kApplication:
      return InStemFolder(place.App + "/", stem, ext);
    case SolverFolder::kUserTemporary:
      return InStemFolder(place.Tmp + "/", stem, ext);
    case SolverFolder::kRoot:
      return InStemFolder(place.Drive + "/", stem, ext);
    case SolverFolder::kDocuments:
      return place.Docs + stem + std::string(ext);
  }
  return {};
}

std::string StrondOutputPath(const std::string& projectPath, std::string_view ext, const StrondPlace& place) {
  const std::string stem = FileBaseName(projectPath, true);
  switch (place.iOptDir) {
    case SolverFolder::kApplication:
      return InStemFolder(place.App + "/", stem, ext);
    case SolverFolder::kUserTemporary:
      return InStemFolder(place.Tmp, stem, ext);
    case SolverFolder::kRoot:
      return InStemFolder(place.Drive + "/", stem, ext);
    case SolverFolder::kDocuments:
      return InStemFolder(place.Docs, stem, ext);
  }
  return {};
}

std::string StrondResultPath(const std::string& projectPath, std::string_view ext, const StrondPlace& place) {
  const std::string name = FileBaseName(projectPath, true) + "_KVSD";
  switch (place.iOptDir) {
    case SolverFolder::kApplication:
      return place.App + "/" + name + "." + std::string(ext);
    case SolverFolder::kUserTemporary:
      return place.Tmp + name + std::string(ext);
    case SolverFolder::kRoot:
      return place.Drive + "/" + name + std::string(ext);
    case SolverFolder::kDocuments:
      return place.Docs + name + std::string(ext);
  }
  return {};
}

}  // namespace korva
