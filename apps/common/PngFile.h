#ifndef APPSCOMMON_PNGFILE_H
#define APPSCOMMON_PNGFILE_H

#include <TambVizCore/Image.h>

#include <string>
#include <utility>
#include <vector>

namespace Pellux {

/// A keyword (Latin letters) and a text (UTF-8) stored beside the picture.
using PngTexts = std::vector<std::pair<std::string, std::string>>;

/// Writes a picture as PNG, fast rather than small; the file appears whole or not at all.
///
/// @param path       An existing file is replaced.
/// @param image      At least one pixel.
/// @param texts      Stored in the file's text chunks.
/// @param errorText  Receives "<path>: <reason>" on false.
/// @thread Any thread.
bool WritePng(const std::wstring& path, const TambVizCore::Image& image, const PngTexts& texts,
              std::wstring& errorText);

} // namespace Pellux

#endif
