// What happens to files behind the program's back, and files that are dropped on its window.
#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>

#include "commands/FileCommands.h"
#include "core/FileNames.h"
#include "core/FilePaths.h"
#include "desktop/RandomActionsWorld.h"
#include "files/ProjectFile.h"
#include "support/ScriptedMessages.h"
#include "support/VoskPanel.h"

namespace korva::desktop::random {

namespace {

namespace fs = std::filesystem;

void Write(const std::string& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

// The files and folders of a folder, in an order that is the same in every run.
std::vector<std::string> PathsOf(const std::string& folder) {
  std::vector<std::string> paths;
  std::error_code failure;
  for (fs::directory_iterator entry(folder, failure); !failure && entry != fs::end(entry);
       entry.increment(failure)) {
    paths.push_back(Utf8Of(entry->path()));
  }
  std::sort(paths.begin(), paths.end());
  return paths;
}

std::string SomeProject(World& world) {
  auto paths = PathsOf(world.Projects());
  std::erase_if(paths, [](const std::string& path) { return !IsProjectName(FileBaseName(path, false)); });
  return paths.empty() ? world.Projects() + "none.KVL" : world.Random.Pick(paths);
}

// The open project's, or another one; only what lies in the program's own folder.
std::string Victim(World& world) {
  const std::string& open = world.State->OpenFile.Name;
  return open.starts_with(world.Folder) && world.Random.Chance(70) ? open : SomeProject(world);
}

void Damage(Dice& random, std::string& bytes) {
  for (int n = random.Between(1, 8); n > 0 && !bytes.empty(); --n) {
    const auto at = static_cast<std::size_t>(random.Between(0, static_cast<int>(bytes.size()) - 1));
    switch (random.Between(1, 4)) {
      case 1:
        bytes[at] = static_cast<char>(random.Between(1, 255));
        break;
      case 2:
        bytes.erase(at, static_cast<std::size_t>(random.Between(1, 60)));
        break;
      case 3:
        bytes.insert(at, random.Chance(50) ? "\r\n" : "999999");
        break;
      case 4:
        bytes.insert(at, bytes.substr(at / 2, 200));
        break;
    }
  }
}

void Lock(World& world, const std::string& path, fs::perms perms) {
  std::error_code failure;
  fs::permissions(path, perms, failure);
  world.Locked.push_back(path);
}

void ChangeProject(World& world) {
  const std::string path = Victim(world);
  std::error_code failure;
  std::string bytes = Read(path);
  const int kind = world.Random.Between(1, 8);
  Note("change file " + std::to_string(kind) + " " + FileBaseName(path, false));
  switch (kind) {
    case 1:
      fs::remove_all(path, failure);
      break;
    case 2:
      Write(path, Read(SomeProject(world)));
      break;
    case 3:
      Write(path, bytes.substr(
                      0, static_cast<std::size_t>(world.Random.Between(0, static_cast<int>(bytes.size())))));
      break;
    case 4:
      Damage(world.Random, bytes);
      Write(path, bytes);
      break;
    case 5:
      Lock(world, path, world.Random.Chance(50) ? fs::perms::none : fs::perms::owner_read);
      break;
    case 6:
      fs::rename(path, world.Projects() + "renamed.KVL", failure);
      break;
    case 7:
      fs::remove_all(path, failure);
      fs::create_directory(path, failure);
      break;
    case 8:
      Write(path, bytes + bytes);
      break;
  }
}

void ChangeSettings(World& world) {
  const int kind = world.Random.Between(1, 6);
  Note("change settings " + std::to_string(kind));
  std::string bytes = Read(world.Settings);
  std::error_code failure;
  if (kind == 1) {
    fs::remove_all(world.Settings, failure);
  } else if (kind == 2) {
    Lock(world, world.Settings, fs::perms::none);
  } else if (kind == 3) {
    Write(world.Settings, bytes.substr(0, bytes.size() / 2));
  } else {
    // Values of keys by others.
    static constexpr std::array kValues = {"-1",           "0",     "1",   "2", "99999",
                                           "-99999999999", "1e300", "nan", "",  "x,y"};
    for (int n = world.Random.Between(1, 5); n > 0; --n) {
      const auto from = bytes.find('=', bytes.empty() ? 0
                                                      : static_cast<std::size_t>(world.Random.Between(
                                                            0, static_cast<int>(bytes.size()) - 1)));
      if (from != std::string::npos) {
        bytes.replace(from + 1, bytes.find('\r', from) - from - 1, world.Random.Pick(kValues));
      }
    }
    Write(world.Settings, bytes);
  }
}

void LockFolder(World& world) {
  const std::array<std::string, 3> folders = {world.State->Places.ProductFolder, world.State->Places.DataRoot,
                                              world.State->Places.TempRoot};
  const std::string& folder = world.Random.Pick(folders);
  Note("lock " + folder);
  Lock(world, folder, fs::perms::owner_read | fs::perms::owner_exec);
}

void UnlockAll(World& world) {
  Note("unlock");
  Unlock(world);
}

void RenewProjects(World& world) {
  Note("renew projects");
  Unlock(world);
  std::error_code failure;
  for (const std::string& path : PathsOf(world.Folder + "/examples")) {
    const std::string target = world.Projects() + FileBaseName(path, false);
    if (fs::is_directory(target, failure)) {
      fs::remove_all(target, failure);
    }
    fs::copy_file(path, target, fs::copy_options::overwrite_existing, failure);
  }
}

void Drop(World& world) {
  if (world.Main == nullptr || !world.Main->isVisible()) {
    return;
  }
  QMimeData data;
  const std::string file = SomeFile(world);
  QList<QUrl> urls = {QUrl::fromLocalFile(QString::fromStdString(file))};
  const int kind = world.Random.Between(1, 10);
  if (kind == 1) {
    urls << QUrl(QStringLiteral("https://www.korva-strond.invalid/x.KVL"));
  }
  kind == 2 ? data.setText(OddText(world)) : data.setUrls(urls);
  Note("drop " + file);
  QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(world.Main, &enter);
  if (enter.isAccepted()) {
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(world.Main, &drop);
  }
}

// The example under another name, for the other models.
void PutModel(const std::string& folder, const std::string& example, OverburdenModel model,
              const std::string& name) {
  Korva korva;
  ScriptedMessages none;
  korva.ProjectFileName = folder + example;
  FileOpen(korva, none);
  korva.Stored.ProjectInput.CalcMode = model;
  korva.ProjectFileName = folder + name;
  FileSave(korva);
}

}  // namespace

std::string Read(const std::string& path) {
  std::error_code failure;
  if (!fs::is_regular_file(path, failure)) {
    return {};
  }
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string SomeFile(World& world) {
  static constexpr std::array kNames = {"new.KVL",
                                        "new",
                                        "none/new.KVL",
                                        "a b.kvl",
                                        "\u05E9\u05DC\u05D5\u05DD.KVL",
                                        "\u0645.KVL",
                                        "per%cent%1.KVL",
                                        "quote'.KVL",
                                        "picture.svg",
                                        "picture.pdf",
                                        "picture.PNG",
                                        "graph.xlsx",
                                        ".KVL",
                                        "x.y.z"};
  const std::string folder = world.Projects();
  const int kind = world.Random.Between(1, 100);
  if (kind <= 45) {
    return SomeProject(world);
  }
  if (kind <= 65) {
    return folder + world.Random.Pick(kNames);
  }
  if (kind <= 70) {
    return folder + std::string(static_cast<std::size_t>(world.Random.Between(100, 300)), 'n') + ".KVL";
  }
  const auto paths = PathsOf(folder);
  return paths.empty() ? folder : world.Random.Pick(paths);
}

void PrepareFolders(World& world) {
  const std::string examples = world.Folder + "/examples/";
  fs::create_directories(examples);
  for (const std::string& path : PathsOf(KORVA_EXAMPLES)) {
    fs::copy_file(path, examples + FileBaseName(path, false));
  }
  PutModel(examples, "development.KVL", kLaminatedModel, "laminated.KVL");
  PutModel(examples, "active-retreat.KVL", kComparedModels, "compared.KVL");
  Write(examples + "sibling.VSK", test::VoskPanel());
  Write(examples + "refuse.txt", std::string(3000, '\x07') + "\xff\xfe text");
  fs::copy_file(KORVA_WORKBOOKS "/cases.xls", examples + "cases.xls");
}

void Unlock(World& world) {
  std::error_code failure;
  for (const std::string& path : world.Locked) {
    const bool folder = fs::is_directory(path, failure);
    fs::permissions(path, folder ? fs::perms::owner_all : fs::perms::owner_read | fs::perms::owner_write,
                    failure);
  }
  world.Locked.clear();
}

const std::vector<Action>& FileActions() {
  static const std::vector<Action> actions = {{5, ChangeProject}, {1, ChangeSettings}, {1, LockFolder},
                                              {3, UnlockAll},     {2, RenewProjects},  {3, Drop}};
  return actions;
}

}  // namespace korva::desktop::random
