// The one function of the library that Formats() loads.
#include "commands/Formats.h"
#include "graphs/GraphWorkbook.h"
#include "pictures/DrawingPicture.h"
#include "pictures/PaintPicture.h"
#include "services/PagesPdf.h"
#include "workbook/ReadSheet.h"

const korva::FileFormats* KorvaFormats() {
  static constexpr korva::FileFormats kFormats = {
      korva::DrawingPicture, korva::PictureBytes,  korva::TextWidth,
      korva::PagesPdf,       korva::GraphWorkbook, korva::ReadSheet,
  };
  return &kFormats;
}
