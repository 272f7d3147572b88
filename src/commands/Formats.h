// Pictures, PDF pages and workbooks. The libraries that make and read them take longer to load than both
// programs together, so the code on top of them is a library of the programs' own, which is loaded when it is
// first needed.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "charts/Chart.h"
#include "core/Drawing.h"
#include "core/Picture.h"
#include "core/PrintedSheet.h"
#include "pictures/PictureKind.h"
#include "workbook/Sheet.h"

namespace korva {

// The functions of that library; the headers named beside tell of them.
struct FileFormats {
  std::string (*DrawingPicture)(const Drawing&, double textHeight, PictureKind);  // pictures/DrawingPicture.h
  std::string (*PictureBytes)(PictureKind, const Picture&);                       // pictures/PaintPicture.h
  double (*TextWidth)(const std::string& text, double pixels);                    // likewise
  std::string (*PagesPdf)(const std::vector<PrintedSheet>&, PaperSize,
                          std::string_view title);  // services/PagesPdf.h
  std::string (*GraphWorkbook)(const Chart&);       // graphs/GraphWorkbook.h
  Sheet (*ReadSheet)(const std::string& workbook, std::string_view name,
                     const std::function<bool()>& goOn);  // workbook/ReadSheet.h
};

// Run-time error 53 if the library of this version of the program is not installed.
const FileFormats& Formats();

}  // namespace korva

// What the library is asked for.
extern "C" const korva::FileFormats* KorvaFormats();
