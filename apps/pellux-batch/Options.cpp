#include "Options.h"

#include <TambVizCore/Utils.h>

#include <CLI/CLI.hpp>

namespace PelluxBatch {
namespace {

using Pellux::CommandLine;
using Pellux::CommonOptions;
using TambVizCore::Utils;

/// What CLI11 fills in, before it is understood.
struct RawOptions
{
    std::string output, info, tree, replay, report;
};

void declare(CLI::App& app, RawOptions& raw, Options& options)
{
    app.add_option("--output", raw.output, "Write a picture at the end")->type_name("PNG");
    app.add_option("--replay", raw.replay, "Run a journal and compare what its picks find")
        ->type_name("F");
    app.add_option("--report", raw.report, "Write the results of --replay as JSON")
        ->type_name("json:F");
    app.add_flag("--info{text}", raw.info, "Report what is loaded; --info=json for programs");
    app.add_flag("--tree{text}", raw.tree, "Print the model tree; --tree=json for programs");
    app.add_flag("--tree-parts", options.treeParts,
                 "List faces, edges and vertices in the tree too");
    app.add_flag("--list-commands", options.listCommands, "List the script commands and end");
    app.add_flag("--list-formats", options.listFormats, "List the file formats and end");
}

/// Reads the form of a report: empty, "text" or "json".
bool parseForm(const std::string& text, InfoForm& form)
{
    if (text == "text")
        form = InfoForm::Text;
    else if (text == "json")
        form = InfoForm::Json;
    return text.empty() || form != InfoForm::None;
}

ParseResult understandJournal(const CommandLine& line, const CommonOptions& common,
                              const RawOptions& raw, Options& options)
{
    constexpr std::string_view kJson = "json:";
    if (common.wantsJournal && common.forbidsJournal)
        return line.Mistake("--journal and --no-journal exclude each other");
    if (!raw.report.empty() &&
        (!raw.report.starts_with(kJson) || raw.report.size() == kJson.size()))
        return line.Mistake("--report takes json:FILE, not '" + raw.report + "'");
    if (!raw.report.empty() && raw.replay.empty())
        return line.Mistake("--report goes with --replay");
    if (!raw.replay.empty() && !options.steps.empty())
        return line.Mistake("--replay takes no models, scripts or expressions");
    if (!raw.replay.empty() && common.wantsJournal)
        return line.Mistake("--replay keeps no journal");
    options.replay = Utils::StringToWstring(raw.replay);
    if (!raw.report.empty())
        options.replayReport = Utils::StringToWstring(raw.report.substr(kJson.size()));
    options.withJournal = !common.forbidsJournal && raw.replay.empty() &&
                          (common.wantsJournal || options.useConfiguration);
    return {};
}

ParseResult understand(const CommandLine& line, const CommonOptions& common, const RawOptions& raw,
                       Options& options)
{
    if (!parseForm(raw.info, options.info))
        return line.Mistake("--info takes json or nothing, not '" + raw.info + "'");
    if (!parseForm(raw.tree, options.tree))
        return line.Mistake("--tree takes json or nothing, not '" + raw.tree + "'");
    if (options.treeParts && options.tree == InfoForm::None)
        return line.Mistake("--tree-parts goes with --tree");
    options.isSizeGiven = common.width > 0;
    if (options.isSizeGiven) {
        options.width = common.width;
        options.height = common.height;
    }
    options.isUpGiven = !common.up.empty();
    options.cameraName = common.up == "z" ? "CameraZUp" : "CameraYUp";
    options.output = Utils::StringToWstring(raw.output);
    options.configurationFile = common.configurationFile;
    options.useConfiguration = common.useConfiguration;
    options.runStartupScripts = common.runStartupScripts;
    options.verbose = common.verbose;
    options.steps = common.steps;
    return understandJournal(line, common, raw, options);
}

} // namespace

ParseResult ParseOptions(int argc, const char* const* argv, Options& options)
{
    CLI::App app("Loads 3D models, runs scripts and writes pictures, without a window.",
                 "pellux-batch");
    app.footer("Exit status: 0 good, 1 a script failed or a file could not be read, 2 a mistake in "
               "the command line,\n3 the program cannot start, 4 a journal that is cut short was "
               "replayed up "
               "to there, 130 interrupted.");
    CommandLine line(app);
    RawOptions raw;
    declare(app, raw, options);
    CommonOptions common;
    const ParseResult result = line.Parse(argc, argv, common);
    return result.run ? understand(line, common, raw, options) : result;
}

} // namespace PelluxBatch
