#include "commands/Updates.h"

#include <fmt/format.h>

#include <utility>

#include "commands/Attempt.h"
#include "commands/SettingsCommands.h"
#include "core/Text.h"
#include "core/Version.h"
#include "files/FileReader.h"
#include "files/FileTree.h"
#include "files/PlatformFile.h"
#include "files/SafeWriter.h"
#include "services/SetupSignature.h"
#include "services/UpdateRules.h"

namespace korva {

namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds kVersionLimit = 20s;
constexpr std::chrono::milliseconds kSetupLimit = 60min;

}  // namespace

std::unique_ptr<FetchPort::Running> FetchVersionFile(const Korva& korva, Ports& ports,
                                                     std::function<void(FetchAnswer)> done) {
  return ports.Fetches.Fetch(
      {korva.Updates.DownloadBaseUrl + std::string(kVersionFileName), kLargestVersionFile, kVersionLimit},
      [](std::uint64_t) {}, std::move(done));
}

bool CompareServerVersion(Korva& korva, MessagePort& messages, std::string_view versionFile) {
  const std::string server = ReadServerVersion(versionFile);
  const std::string current = ProgramVersionText(false);
  HistoryLog(korva, "Server/Current: " + server + "/" + current);
  korva.AutoUpdate = false;
  if (IsNewerVersion(server, current)) {
    korva.AutoUpdate = IsConfirmed(korva, messages, NewVersionQuestion(), "messages-updates",
                                   MessageButtons::kYesNoCancel, MessageIcon::kQuestion);
  }
  return korva.AutoUpdate;
}

Updates::Updates(Korva& korva, Ports& ports, std::function<void()> changed, std::function<void()> endProgram)
    : korva_(korva), ports_(ports), changed_(std::move(changed)), endProgram_(std::move(endProgram)) {}

Updates::~Updates() {
  korva_.AutoUpdate = false;
}

void Updates::Show(std::string text) {
  ShowMessage(korva_, ports_.Messages, {.text = std::move(text), .topic = "messages-updates"});
}

std::string Updates::SetupFile() const {
  return DownloadsFolder(korva_.Places.DataRoot) + setupName_;
}

void Updates::OpenProductPage() {
  if (!ports_.Documents.OpenPage(korva_.Updates.ProductPageUrl)) {
    Show(kOperationFailed);
  }
}

void Updates::Close(bool disabled) {
  if (disabled) {
    korva_.Preferences.RemindAnnualUpdates = false;
  }
  SaveSettings(korva_, SettingsSection::kSettings);
}

void Updates::RunAll() {
  korva_.AutoUpdate = true;
  Check();
}

void Updates::Check() {
  view_ = UpdateView();  // what an earlier check has found is not known any more
  view_.Busy = true;
  setupName_.clear();
  running_ = FetchVersionFile(korva_, ports_, [this](const FetchAnswer& answer) {
    running_.reset();
    view_.Busy = false;
    view_.LastVersionIsRed = true;
    Compare(answer);
  });
  changed_();
}

void Updates::Compare(const FetchAnswer& answer) {
  if (!answer.Complete) {
    view_.LastVersion = "Internet Connection Failed";
    view_.Bytes = "The check failed: " + answer.Reason;
    HistoryLog(korva_, view_.LastVersion + ": " + answer.Reason);
    EndStep();
    return;
  }
  const std::string server = ReadServerVersion(answer.Bytes);
  if (server.empty()) {
    changed_();
    Show("Invalid information for new version. Check with developer.");
    EndStep();
    return;
  }
  view_.LastVersion = VersionsText(server);
  if (!IsNewerVersion(server, ProgramVersionText(false))) {
    korva_.AutoUpdate = false;  // nothing is left to do
    changed_();
    ShowMessage(
        korva_, ports_.Messages,
        {.text = "Program is up to date", .buttons = MessageButtons::kOkCancel, .topic = "messages-updates"});
    return;
  }
  setupName_ = SetupName(server);
  view_.MayDownload = true;
  changed_();
  if (korva_.AutoUpdate ||
      IsConfirmed(korva_, ports_.Messages, "A new version is available. Download?", "messages-updates",
                  MessageButtons::kYesNoCancel, MessageIcon::kQuestion)) {
    Download();
  }
}

// A run of all steps goes on to the last one whatever came of the others.
void Updates::EndStep() {
  changed_();
  if (korva_.AutoUpdate) {
    Install();
    korva_.AutoUpdate = false;
  }
}

void Updates::Fetch(const std::string& name, std::uint64_t mostBytes, std::function<void(FetchAnswer)> done) {
  running_ = ports_.Fetches.Fetch(
      {korva_.Updates.DownloadBaseUrl + name, mostBytes, kSetupLimit},
      [this](std::uint64_t bytes) {
        view_.Progress = ProgressOfDownload(bytes);
        view_.Bytes = fmt::format("{}", bytes);
        changed_();
      },
      [this, done = std::move(done)](FetchAnswer answer) {
        running_.reset();
        done(std::move(answer));  // hundreds of megabytes are not copied
      });
}

// The signature comes first: without one there is no need for the rest.
void Updates::Download() {
  view_.Busy = true;
  view_.MayInstall = false;
  view_.Bytes.clear();
  view_.Progress = 0;
  if (const std::string fault = SignatureKeyFault(korva_.Updates.PublicKey); !fault.empty()) {
    FailDownload(fault);
    return;
  }
  Fetch(setupName_ + std::string(kSignatureExtension), kLargestSignature, [this](const FetchAnswer& answer) {
    if (answer.Complete) {
      FetchSetup(answer.Bytes);
    } else {
      FailDownload("its signature could not be fetched: " + answer.Reason);
    }
  });
  changed_();
}

void Updates::FetchSetup(std::string signature) {
  Fetch(setupName_, kLargestSetup, [this, signature = std::move(signature)](const FetchAnswer& answer) {
    const std::string fault =
        answer.Complete ? SignatureFault(answer.Bytes, setupName_, signature, korva_.Updates.PublicKey)
                        : answer.Reason;
    if (fault.empty()) {
      Keep(answer.Bytes, signature);
    } else {
      FailDownload(fault);
    }
  });
}

void Updates::FailDownload(const std::string& reason) {
  view_.Busy = false;
  view_.Progress = 0;
  view_.Bytes = "Download failed: " + reason;
  HistoryLog(korva_, view_.Bytes);
  EndStep();
}

void Updates::Keep(const std::string& setup, const std::string& signature) {
  const std::string file = SetupFile();
  bool kept = false;
  Attempt(korva_, ports_.Messages, [&] {
    TryMakeFolderPath(DownloadsFolder(korva_.Places.DataRoot));  // writing tells
    // Never through a link: the name is known to others.
    WriteScratchFile(file, setup);
    WriteScratchFile(file + std::string(kSignatureExtension), signature);
    kept = true;
  });
  if (!kept) {
    FailDownload("the setup program could not be written");
    return;
  }
  view_.Busy = false;
  view_.MayInstall = true;
  changed_();
  Show("Download completed. Program at: " + file);
  EndStep();
}

void Updates::Install() {
  const std::string file = SetupFile();
  Attempt(korva_, ports_.Messages, [&] {
    if (setupName_.empty() || !StateOfFile(file).exists) {
      Show("Update file: " + file + " not found");
      return;
    }
    if (korva_.AutoUpdate) {
      Show(
          "KORVASTROND will now close to install the new update. You may be asked to grant permission to Windows "
          "to allow installation of the new version. ");
    }
    StartSetup(file);
  });
}

// What lies in the folder may have changed since it was written: it is checked once more, right before its
// start.
void Updates::StartSetup(const std::string& file) {
  const std::string signature = file + std::string(kSignatureExtension);
  const std::string fault =
      !StateOfFile(signature).exists
          ? "its signature is missing"
          : SignatureFault(ReadWholeFile(file, kLargestSetup), setupName_,
                           ReadWholeFile(signature, kLargestSignature), korva_.Updates.PublicKey);
  if (!fault.empty()) {
    Show("Update file: " + file + " was not started: " + fault);
  } else if (ports_.Documents.Open(file)) {
    endProgram_();
  } else {
    Show(kOperationFailed);
  }
}

}  // namespace korva
