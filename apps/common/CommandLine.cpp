#include "CommandLine.h"

#include "Replay.h"

#include <TambCommandsInfra/NearestName.h>
#include <TambVizCore/Utils.h>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <map>

namespace Pellux {
namespace {

using TambVizCore::Utils;

/// Exit code after a mistake in the command line.
constexpr int kUsageExitCode = 2;

/// Largest side of a picture, pixels.
constexpr long long kMaxSide = 16384;

void addMany(CLI::App& app, const char* name, std::vector<std::string>& values, const char* help,
             const char* type)
{
    app.add_option(name, values, help)
        ->type_name(type)
        ->expected(1)
        ->allow_extra_args(false)
        ->take_all();
}

/// "WIDTHxHEIGHT", each from 1 to kMaxSide.
bool parseSize(const std::string& text, CommonOptions& options)
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

void addStep(CommonOptions& options, Step::Kind kind, const std::string& text)
{
    options.steps.push_back({kind, Utils::StringToWstring(text)});
}

} // namespace

CommandLine::CommandLine(CLI::App& app) : m_app(app)
{
    app.set_version_flag("--version", app.get_name() + " " + PELLUX_VERSION,
                         "Print the version and end");
    app.add_option("FILE", m_files, "Models to load; the second and later ones are added");
    addMany(app, "--script", m_scripts, "Run a script file; - is standard input", "F");
    addMany(app, "--eval", m_evals, "Run an expression", "EXPR");
    addMany(app, "--import", m_imports, "Add a model to what is loaded", "F");
    app.add_option("--size", m_size, "Size of the view in pixels")->type_name("WxH");
    app.add_option("--up", m_up, "Axis that points up in the standard views (y)")->type_name("y|z");
    app.add_option("--config", m_configurationFile, "Read a further configuration file")
        ->type_name("F");
    app.add_flag("--no-config", m_noConfiguration,
                 "Leave out the configuration of system and user");
    app.add_flag("--no-startup", m_noStartup, "Leave out the start-up scripts");
    app.add_flag("--journal", m_journal, "Keep a journal also with --no-config");
    app.add_flag("--no-journal", m_noJournal, "Keep no journal of this run");
    app.add_flag("--verbose", m_verbose, "Tell what is going on, with times");
}

ParseResult CommandLine::Parse(int argc, const char* const* argv, CommonOptions& options)
{
    try {
        m_app.parse(argc, argv);
    } catch (const CLI::ExtrasError&) {
        return unknownOption();
    } catch (const CLI::CallForHelp&) {
        return {false, 0, m_app.help()};
    } catch (const CLI::CallForVersion& version) {
        return {false, 0, std::string(version.what()) + "\n"};
    } catch (const CLI::ParseError& error) {
        return Mistake(error.what());
    }
    return understand(options);
}

ParseResult CommandLine::Mistake(const std::string& reason) const
{
    const std::string& name = m_app.get_name();
    return {false, kUsageExitCode, name + ": " + reason + "\nTry " + name + " --help\n"};
}

ParseResult CommandLine::unknownOption() const
{
    const std::vector<std::string> extras = m_app.remaining();
    const auto option = std::find_if(extras.begin(), extras.end(),
                                     [](const std::string& text) { return text.starts_with("-"); });
    const std::string name = option == extras.end() ? extras.front() : *option;
    std::vector<std::string> known;
    for (const CLI::Option* const candidate : m_app.get_options())
        for (const std::string& longName : candidate->get_lnames())
            known.push_back("--" + longName);
    const std::string nearest = TambCommandsInfra::FindNearestName(name, known);
    return Mistake("there is no option " + name +
                   (nearest.empty() ? "" : "; did you mean " + nearest + "?"));
}

ParseResult CommandLine::understand(CommonOptions& options)
{
    if (!m_size.empty() && !parseSize(m_size, options))
        return Mistake("--size takes WIDTHxHEIGHT in pixels, each from 1 to 16384, not '" + m_size +
                       "'");
    if (!m_up.empty() && m_up != "y" && m_up != "z")
        return Mistake("--up takes y or z, not '" + m_up + "'");
    options.up = m_up;
    options.configurationFile = Utils::StringToWstring(m_configurationFile);
    options.useConfiguration = !m_noConfiguration;
    options.runStartupScripts = !m_noStartup;
    options.wantsJournal = m_journal;
    options.forbidsJournal = m_noJournal;
    options.verbose = m_verbose;
    for (std::size_t i = 0; i < m_files.size(); ++i)
        addStep(options, i == 0 ? Step::Kind::Load : Step::Kind::Import, m_files[i]);
    addOrderedSteps(options);
    return {};
}

/// Scripts, expressions and imports in the order in which they stand on the command line.
void CommandLine::addOrderedSteps(CommonOptions& options) const
{
    const std::map<std::string, Step::Kind> kinds = {
        {"script", Step::Kind::Script}, {"eval", Step::Kind::Eval}, {"import", Step::Kind::Import}};
    std::map<const CLI::Option*, std::size_t> taken;
    for (const CLI::Option* const option : m_app.parse_order()) {
        const auto kind =
            kinds.find(option->get_lnames().empty() ? "" : option->get_lnames().front());
        if (kind == kinds.end())
            continue;
        const std::size_t index = taken[option]++;
        if (index < option->results().size())
            addStep(options, kind->second, option->results()[index]);
    }
}

std::wstring CommandOfStep(const Step& step)
{
    const wchar_t* const command =
        step.kind == Step::Kind::Import ? L"(doc:import " : L"(doc:load ";
    return command + QuotedForScript(step.text) + L")";
}

} // namespace Pellux
