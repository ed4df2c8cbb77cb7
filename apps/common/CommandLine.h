#ifndef APPSCOMMON_COMMANDLINE_H
#define APPSCOMMON_COMMANDLINE_H

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace Pellux {

/// One thing to do, in the order of the command line.
struct Step
{
    enum class Kind
    {
        Load,   ///< Load a file, replacing what is there.
        Import, ///< Add a file to what is there.
        Script, ///< Run a script file.
        Eval,   ///< Run an expression.
    };

    Kind kind = Kind::Load;
    std::wstring text; ///< A path or an expression.
};

/// The options that both hosts have.
struct CommonOptions
{
    std::vector<Step> steps; ///< Files first, then scripts, expressions and imports as they came.
    int width = 0;           ///< Pixels; 0 where none was given.
    int height = 0;
    std::string up; ///< "y" or "z"; empty where none was given.
    std::wstring configurationFile;
    bool useConfiguration = true;
    bool runStartupScripts = true;
    bool wantsJournal = false;   ///< --journal was given.
    bool forbidsJournal = false; ///< --no-journal was given.
    bool verbose = false;
};

/// What to do after the command line was read.
struct ParseResult
{
    bool run = true;     ///< false: end with the exit code.
    int exitCode = 0;    ///< 0 after --help and --version, 2 after a mistake.
    std::string message; ///< For standard output when the exit code is 0, else standard error.
};

/// Reads a command line; what the hosts share of it is understood here. Use once.
class CommandLine
{
public:
    /// Declares the shared options.
    /// @param app  Not owned; named as the program is, and outlives this.
    explicit CommandLine(CLI::App& app);

    CommandLine(const CommandLine&) = delete;
    CommandLine& operator=(const CommandLine&) = delete;

    /// Reads; the program's own options are declared before.
    ///
    /// @return what to do; a mistake is answered with the reason and the nearest option.
    ParseResult Parse(int argc, const char* const* argv, CommonOptions& options);

    /// @return the answer to a mistake that the program itself has found.
    ParseResult Mistake(const std::string& reason) const;

private:
    ParseResult understand(CommonOptions& options);
    ParseResult unknownOption() const;
    void addOrderedSteps(CommonOptions& options) const;

    CLI::App& m_app;
    std::vector<std::string> m_files, m_scripts, m_evals, m_imports;
    std::string m_size, m_up, m_configurationFile;
    bool m_noConfiguration = false, m_noStartup = false, m_journal = false, m_noJournal = false;
    bool m_verbose = false;
};

/// @return the command that does a step of kind Load or Import.
std::wstring CommandOfStep(const Step& step);

} // namespace Pellux

#endif
