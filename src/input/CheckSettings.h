// What the Settings dialog refuses.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace korva {

// The names of the boxes that are checked; the history's size as refusals call it.
inline constexpr const char* kExtensionBox = "Text1";
inline constexpr const char* kDataPathBox = "Text2";
inline constexpr const char* kHistorySizeBox = "Text3";
inline constexpr const char* kHistorySizeCaption = "Size of Command History Window";

// The texts of the dialog that are checked.
struct SettingsTexts {
  std::string DataPath;
  std::string MaxDisplaySize;
  std::string FileExtension;
};

struct SettingsRefusal {
  enum class Kind { kError, kRange, kInvalidCharacter };
  std::string Text;
  Kind Title = Kind::kError;
  std::string Control;  // that gets the focus
};

// A folder's name without outer blanks and with a separator at its end; empty for an empty one.
std::string FolderText(const std::string& path);

// Whether a file extension has capital letters and digits alone.
bool IsExtensionText(std::string_view text);

// The first fault, or nothing if the texts may be taken.
std::optional<SettingsRefusal> CheckSettings(const SettingsTexts& texts,
                                             const std::function<bool(const std::string&)>& folderExists);

}  // namespace korva
