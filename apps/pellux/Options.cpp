#include "Options.h"

#include "runtime/QtText.h"

#include <OrvikOs/Environment.h>

#include <CLI/CLI.hpp>

namespace Pellux {

ParseResult ParseOptions(int argc, const char* const* argv, WindowOptions& options)
{
    CLI::App app("Shows 3D models and runs scripts.", "pellux");
    app.footer("Exit status: 0 good, 1 ended while something ran, 2 a mistake in the command line "
               "or the configuration,\n3 the program cannot start, 130 interrupted.");
    CommandLine line(app);
    std::string graphics;
    app.add_option("--graphics", graphics,
                   "How frames reach the window: in its own OpenGL context or as pictures (auto); "
                   "also PELLUX_GRAPHICS")
        ->type_name("auto|image|window");
    CommonOptions common;
    const ParseResult result = line.Parse(argc, argv, common);
    if (!result.run)
        return result;
    if (common.wantsJournal && common.forbidsJournal)
        return line.Mistake("--journal and --no-journal exclude each other");
    QString wish = QString::fromStdString(graphics);
    if (wish.isEmpty())
        wish = ToQt(OrvikOs::EnvironmentVariable("PELLUX_GRAPHICS").value_or(std::wstring()));
    if (!wish.isEmpty() && !ReadGraphicsWish(wish, options.graphics))
        return line.Mistake("--graphics takes auto, image or window, not '" + wish.toStdString() +
                            "'");
    options.steps = common.steps;
    options.width = common.width;
    options.height = common.height;
    if (!common.up.empty())
        options.cameraName = common.up == "z" ? "CameraZUp" : "CameraYUp";
    options.configurationFile = common.configurationFile;
    options.useConfiguration = common.useConfiguration;
    options.runStartupScripts = common.runStartupScripts;
    options.withJournal =
        !common.forbidsJournal && (common.wantsJournal || common.useConfiguration);
    options.verbose = common.verbose;
    return {};
}

} // namespace Pellux
