// The dialogs that ask for a value: a font, a line of text.
#pragma once

#include <QFont>

#include "core/Ports.h"

namespace korva::desktop {

// The font that settings describe.
QFont FontOf(const FontSettings& settings);

class QtValues final : public ValuePort {
 public:
  std::optional<FontSettings> ChooseFont(const FontSettings& font) override;
  std::optional<std::string> EnterText(const TextQuestion& question) override;
};

}  // namespace korva::desktop
