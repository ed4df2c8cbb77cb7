#ifndef PELLUXBATCH_OPTIONS_H
#define PELLUXBATCH_OPTIONS_H

#include <CommandLine.h>

#include <string>
#include <vector>

namespace PelluxBatch {

using Pellux::ParseResult;
using Pellux::Step;

/// How --info and --tree report.
enum class InfoForm
{
    None,
    Text,
    Json,
};

/// The command line of pellux-batch.
struct Options
{
    std::vector<Step> steps; ///< Files first, then scripts, expressions and imports as they came.
    std::wstring output;     ///< Picture to write; empty for none.
    int width = 1920;        ///< Pixels.
    int height = 1080;       ///< Pixels.
    std::string cameraName;  ///< "CameraYUp" or "CameraZUp".
    std::wstring configurationFile;
    bool useConfiguration = true;
    bool runStartupScripts = true;
    bool withJournal = true;
    std::wstring replay;       ///< Journal to run; empty for none.
    std::wstring replayReport; ///< JSON file to write about that; empty for none.
    bool isSizeGiven = false;
    bool isUpGiven = false;
    InfoForm info = InfoForm::None;
    InfoForm tree = InfoForm::None;
    bool treeParts = false; ///< The tree goes down to faces, edges and vertices.
    bool verbose = false;
    bool listCommands = false;
    bool listFormats = false;
};

/// Reads the command line; a mistake is answered with the reason and the nearest option.
ParseResult ParseOptions(int argc, const char* const* argv, Options& options);

} // namespace PelluxBatch

#endif
