// The help file, opened.
#pragma once

#include <QHelpEngine>
#include <QTemporaryDir>
#include <QUrl>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace korva::desktop {

// The toolkit keeps a catalogue beside a help file; ours lies in a folder of this process, which goes with
// it, so that two running programs do not meet and nothing is written where the program lies.
class HelpFile {
 public:
  // Nothing if the file is not there or is no help file.
  static std::unique_ptr<HelpFile> Open(const QString& name);
  ~HelpFile();
  HelpFile(const HelpFile&) = delete;
  HelpFile& operator=(const HelpFile&) = delete;

  // Begins a search; the engine's signals tell the end of it.
  void Search(const QString& query);

  QHelpEngine& Engine() { return *engine_; }
  // The bytes of a page or picture; nothing if there is no such file.
  QByteArray Bytes(const QUrl& url) const { return engine_->fileData(url); }
  // The first of the labels that the file has; an empty address if it has none of them.
  QUrl Topic(const std::vector<std::string>& labels) const;
  QUrl StartPage() const;

 private:
  HelpFile();
  void ReadLabels();
  bool IsBusy() const;

  std::map<std::string, QUrl> topics_;  // by label
  bool isSearching_ = false;
  QTemporaryDir folder_;
  std::unique_ptr<QHelpEngine> engine_;  // ends before its folder
};

}  // namespace korva::desktop
