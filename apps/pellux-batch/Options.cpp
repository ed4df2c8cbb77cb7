#include "Options.h"

#include <TambCommandsInfra/NearestName.h>
#include <TambVizCore/Utils.h>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <map>

namespace PelluxBatch {
namespace {

using TambVizCore::Utils;

/// Exit code after a mistake in the command line.
constexpr int kUsageExitCode = 2;

/// Largest side of a picture, pixels.
constexpr long long kMaxSide = 16384;

/// What CLI11 fills in, before it is understood.
struct RawOptions
{
    std::vector<std::string> files, scripts, evals, imports;
    std::string output, size, up, configurationFile, info, tree;
    std::string replay, report;
    bool noConfiguration = false, noStartup = false, journal = false, noJournal = false;
};

void declare(CLI::App& app, RawOptions& raw, Options& options)
{
    app.set_version_flag("--version", std::string("pellux-batch ") + PELLUX_VERSION,
                         "Print the version and end");
    app.add_option("FILE", raw.files, "Models to load; the second and later ones are added");
    app.add_option("--script", raw.scripts, "Run a script file")
        ->type_name("F")
        ->expected(1)
        ->allow_extra_args(false)
        ->take_all();
    app.add_option("--eval", raw.evals, "Run an expression")
        ->type_name("EXPR")
        ->expected(1)
        ->allow_extra_args(false)
        ->take_all();
    app.add_option("--import", raw.imports, "Add a model to what is loaded")
        ->type_name("F")
        ->expected(1)
        ->allow_extra_args(false)
        ->take_all();
    app.add_option("--output", raw.output, "Write a picture at the end")->type_name("PNG");
    app.add_option("--size", raw.size, "Size of view and picture in pixels (1920x1080)")
        ->type_name("WxH");
    app.add_option("--up", raw.up, "Axis that points up in the standard views (y)")
        ->type_name("y|z");
    app.add_option("--config", raw.configurationFile, "Read a further configuration file")
        ->type_name("F");
    app.add_flag("--no-config", raw.noConfiguration,
                 "Leave out the configuration of system and user");
    app.add_flag("--no-startup", raw.noStartup, "Leave out the start-up scripts");
    app.add_option("--replay", raw.replay, "Run a journal and compare what its picks find")
        ->type_name("F");
    app.add_option("--report", raw.report, "Write the results of --replay as JSON")
        ->type_name("json:F");
    app.add_flag("--journal", raw.journal, "Keep a journal also with --no-config");
    app.add_flag("--no-journal", raw.noJournal, "Keep no journal of this run");
    app.add_flag("--info{text}", raw.info, "Report what is loaded; --info=json for programs");
    app.add_flag("--tree{text}", raw.tree, "Print the model tree; --tree=json for programs");
    app.add_flag("--tree-parts", options.treeParts,
                 "List faces, edges and vertices in the tree too");
    app.add_flag("--verbose", options.verbose, "Tell what is going on, with times");
    app.add_flag("--list-commands", options.listCommands, "List the script commands and end");
    app.add_flag("--list-formats", options.listFormats, "List the file formats and end");
}

/// "WIDTHxHEIGHT", each from 1 to kMaxSide.
bool parseSize(const std::string& text, Options& options)
{
    const std::size_t cross = text.find_first_of("xX");
    long long width = 0;
    long long height = 0;
    if (cross == std::string::npos || !Utils::ParseInt(text.substr(0, cross), width) ||
        !Utils::ParseInt(text.substr(cross + 1), height))
        return false;
    if (width < 1 || height < 1 || width > kMaxSide || height > kMaxSide)
        return false;
    options.width = static_cast<int>(width);
    options.height = static_cast<int>(height);
    return true;
}

void addStep(Options& options, Step::Kind kind, const std::string& text)
{
    options.steps.push_back({kind, Utils::StringToWstring(text)});
}

/// Scripts, expressions and imports in the order in which they stand on the command line.
void addOrderedSteps(const CLI::App& app, Options& options)
{
    const std::map<std::string, Step::Kind> kinds = {
        {"script", Step::Kind::Script}, {"eval", Step::Kind::Eval}, {"import", Step::Kind::Import}};
    std::map<const CLI::Option*, std::size_t> taken;
    for (const CLI::Option* const option : app.parse_order()) {
        const auto kind =
            kinds.find(option->get_lnames().empty() ? "" : option->get_lnames().front());
        if (kind == kinds.end())
            continue;
        const std::size_t index = taken[option]++;
        if (index < option->results().size())
            addStep(options, kind->second, option->results()[index]);
    }
}

ParseResult mistake(const std::string& reason)
{
    return {false, kUsageExitCode, "pellux-batch: " + reason + "\nTry pellux-batch --help\n"};
}

ParseResult unknownOption(const CLI::App& app)
{
    const std::vector<std::string> extras = app.remaining();
    const auto option = std::find_if(extras.begin(), extras.end(),
                                     [](const std::string& text) { return text.starts_with("-"); });
    const std::string name = option == extras.end() ? extras.front() : *option;
    std::vector<std::string> known;
    for (const CLI::Option* const candidate : app.get_options())
        for (const std::string& longName : candidate->get_lnames())
            known.push_back("--" + longName);
    const std::string nearest = TambCommandsInfra::FindNearestName(name, known);
    return mistake("there is no option " + name +
                   (nearest.empty() ? "" : "; did you mean " + nearest + "?"));
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

ParseResult understandJournal(const RawOptions& raw, Options& options)
{
    constexpr std::string_view kJson = "json:";
    if (raw.journal && raw.noJournal)
        return mistake("--journal and --no-journal exclude each other");
    if (!raw.report.empty() &&
        (!raw.report.starts_with(kJson) || raw.report.size() == kJson.size()))
        return mistake("--report takes json:FILE, not '" + raw.report + "'");
    if (!raw.report.empty() && raw.replay.empty())
        return mistake("--report goes with --replay");
    if (!raw.replay.empty() && !options.steps.empty())
        return mistake("--replay takes no models, scripts or expressions");
    if (!raw.replay.empty() && raw.journal)
        return mistake("--replay keeps no journal");
    options.replay = Utils::StringToWstring(raw.replay);
    if (!raw.report.empty())
        options.replayReport = Utils::StringToWstring(raw.report.substr(kJson.size()));
    options.withJournal =
        !raw.noJournal && raw.replay.empty() && (raw.journal || options.useConfiguration);
    return {};
}

ParseResult understand(const CLI::App& app, const RawOptions& raw, Options& options)
{
    if (!raw.size.empty() && !parseSize(raw.size, options))
        return mistake("--size takes WIDTHxHEIGHT in pixels, each from 1 to 16384, not '" +
                       raw.size + "'");
    if (!raw.up.empty() && raw.up != "y" && raw.up != "z")
        return mistake("--up takes y or z, not '" + raw.up + "'");
    if (!parseForm(raw.info, options.info))
        return mistake("--info takes json or nothing, not '" + raw.info + "'");
    if (!parseForm(raw.tree, options.tree))
        return mistake("--tree takes json or nothing, not '" + raw.tree + "'");
    if (options.treeParts && options.tree == InfoForm::None)
        return mistake("--tree-parts goes with --tree");
    options.isSizeGiven = !raw.size.empty();
    options.isUpGiven = !raw.up.empty();
    options.cameraName = raw.up == "z" ? "CameraZUp" : "CameraYUp";
    options.output = Utils::StringToWstring(raw.output);
    options.configurationFile = Utils::StringToWstring(raw.configurationFile);
    options.useConfiguration = !raw.noConfiguration;
    options.runStartupScripts = !raw.noStartup;
    for (std::size_t i = 0; i < raw.files.size(); ++i)
        addStep(options, i == 0 ? Step::Kind::Load : Step::Kind::Import, raw.files[i]);
    addOrderedSteps(app, options);
    return understandJournal(raw, options);
}

} // namespace

ParseResult ParseOptions(int argc, const char* const* argv, Options& options)
{
    CLI::App app("Loads 3D models, runs scripts and writes pictures, without a window.",
                 "pellux-batch");
    app.footer("Exit status: 0 good, 1 a script failed or a file could not be read, 2 a mistake in "
               "the command line,\n3 the program cannot start, 130 interrupted.");
    RawOptions raw;
    declare(app, raw, options);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ExtrasError&) {
        return unknownOption(app);
    } catch (const CLI::CallForHelp&) {
        return {false, 0, app.help()};
    } catch (const CLI::CallForVersion& version) {
        return {false, 0, std::string(version.what()) + "\n"};
    } catch (const CLI::ParseError& error) {
        return mistake(error.what());
    }
    return understand(app, raw, options);
}

} // namespace PelluxBatch
