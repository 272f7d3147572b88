#include "core/FileNames.h"
#include "strond/KORVAStrond2D.h"

namespace korva {

namespace {

enum Choice : std::int16_t { kApplication = 0, kUserTemporary = 1, kRoot = 2, kDocuments = 3 };

// A file in the folder that carries the stem.
std::string InStemFolder(const std::string& folder, const std::string& stem, std::string_view ext) {
  return folder + stem + "/" + stem + std::string(ext);
}

}  // namespace

StrondPlace StrondPlaceOf(const Folders& folders, std::int16_t iOptDir) {
  std::string app = folders.AppPath;
  if (app.ends_with('/')) {
    app.pop_back();
  }
  return {iOptDir, app, folders.SystemTempFolder, "", folders.TempRoot};
}

std::string StrondInputPath(const std::string& projectPath, std::string_view ext, const StrondPlace& place) {
  const std::string stem = FileBaseName(projectPath, true);
  switch (place.iOptDir) {
    case kApplication:
      return InStemFolder(place.App + "/", stem, ext);
    case kUserTemporary:
      return InStemFolder(place.Tmp + "/", stem, ext);
    case kRoot:
      return InStemFolder(place.Drive + "/", stem, ext);
    case kDocuments:
      return place.Docs + stem + std::string(ext);
    default:
      return {};
  }
}

std::string StrondOutputPath(const std::string& projectPath, std::string_view ext, const StrondPlace& place) {
  const std::string stem = FileBaseName(projectPath, true);
  switch (place.iOptDir) {
    case kApplication:
      return InStemFolder(place.App + "/", stem, ext);
    case kUserTemporary:
      return InStemFolder(place.Tmp, stem, ext);
    case kRoot:
      return InStemFolder(place.Drive + "/", stem, ext);
    case kDocuments:
      return InStemFolder(place.Docs, stem, ext);
    default:
      return {};
  }
}

std::string StrondResultPath(const std::string& projectPath, std::string_view ext, const StrondPlace& place) {
  const std::string name = FileBaseName(projectPath, true) + "_KVSD";
  switch (place.iOptDir) {
    case kApplication:
      return place.App + "/" + name + "." + std::string(ext);
    case kUserTemporary:
      return place.Tmp + name + std::string(ext);
    case kRoot:
      return place.Drive + "/" + name + std::string(ext);
    case kDocuments:
      return place.Docs + name + std::string(ext);
    default:
      return {};
  }
}

}  // namespace korva
