#include "commands/Formats.h"

#include "files/OwnLibrary.h"

namespace korva {

const FileFormats& Formats() {
  static const FileFormats& formats =
      *reinterpret_cast<decltype(&KorvaFormats)>(OwnLibraryFunction("korvaformats", "KorvaFormats"))();
  return formats;
}

}  // namespace korva
