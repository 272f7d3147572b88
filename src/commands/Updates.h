// Looking for a newer version of the program, fetching its setup program and starting it.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "core/Korva.h"
#include "core/Ports.h"

namespace korva {

// Begins to fetch the version file.
std::unique_ptr<FetchPort::Running> FetchVersionFile(const Korva& korva, Ports& ports,
                                                     std::function<void(FetchAnswer)> done);

// Logs the server's version and this one's and, if the server's is newer, asks whether to download and
// install it. True if the person wants that; AutoUpdate is true then, and the window of updates is to be
// shown and run.
bool CompareServerVersion(Korva& korva, MessagePort& messages, std::string_view versionFile);

// What the window of updates shows.
struct UpdateView {
  std::string LastVersion = "Version Available: ";
  bool LastVersionIsRed = false;
  std::string Bytes;  // of a download: how many have come, or why it or a check failed
  int Progress = 0;   // percent of a bar that goes round
  bool Busy = false;  // something is being fetched
  bool MayDownload = false;
  bool MayInstall = false;
};

// The work of that window. Nothing that comes from the server is trusted: the version has to be digits, the
// name of the setup program is made of that alone, and it is kept and started only with a valid signature.
class Updates {
 public:
  // `changed` is called when the view has changed, `endProgram` when the setup program has been started.
  Updates(Korva& korva, Ports& ports, std::function<void()> changed, std::function<void()> endProgram);
  ~Updates();
  Updates(const Updates&) = delete;
  Updates& operator=(const Updates&) = delete;

  const UpdateView& View() const { return view_; }

  void Check();     // fetches the version file and compares
  void Download();  // fetches the setup program of the version that was found
  void Install();   // starts it, and has the program end
  // Check, Download and Install one after the other, without further questions.
  void RunAll();
  // Opens the program's page on the web; if that fails, it tells so.
  void OpenProductPage();
  // Saves the settings, however the window is closed; `disabled` takes the yearly reminder off.
  void Close(bool disabled);

 private:
  void Compare(const FetchAnswer& answer);
  void FetchSetup(std::string signature);
  void Keep(const std::string& setup, const std::string& signature);
  void StartSetup(const std::string& file);
  void Fetch(const std::string& name, std::uint64_t mostBytes, std::function<void(FetchAnswer)> done);
  void FailDownload(const std::string& reason);
  void EndStep();
  void Show(std::string text);
  std::string SetupFile() const;

  Korva& korva_;
  Ports& ports_;
  std::function<void()> changed_;
  std::function<void()> endProgram_;
  UpdateView view_;
  std::string setupName_;
  std::unique_ptr<FetchPort::Running> running_;
};

}  // namespace korva
