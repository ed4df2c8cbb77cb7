#include "BatchProcess.h"
#include "CommandReference.h"
#include "SampleFiles.h"

#include <gtest/gtest.h>

#include <set>
#include <sstream>
#include <string>

namespace {

/// Runs examples one by one in one program.
class CommandExamples : public testing::Test
{
protected:
    /// @return the commands of a family whose example ends with an error, with that.
    ///
    /// @param left  These are left out.
    std::set<std::string> failuresOf(const std::string& family, const std::set<std::string>& left)
    {
        m_process.Write("part.stl", BoxStl(100, 100, 50));
        std::ostringstream script;
        for (const CommandEntry& command : ReadCommandReference()) {
            if (!command.name.starts_with(family + ":") || left.contains(command.name))
                continue;
            ++m_count;
            script << "(sel:by-kind 'face)\n(catch #t (lambda () " << command.example
                   << ") (lambda (key . rest) (app:print \"failed: " << command.name
                   << " \" (object->string rest))))\n";
        }
        m_process.Write("examples.scm", script.str());
        const Outcome outcome = m_process.Run({"part.stl", "--script", "examples.scm"});
        EXPECT_EQ(outcome.exitCode, 0) << outcome.errors;
        return linesIn(outcome.output);
    }

    static std::string noWindow() { return " (\"This program has no window.\")"; }

    static std::set<std::string> linesIn(const std::string& output)
    {
        std::set<std::string> failures;
        std::istringstream lines(output);
        std::string line;
        while (std::getline(lines, line))
            if (line.starts_with("failed: "))
                failures.insert(line.substr(8, line.find(' ', 8) - 8) +
                                line.substr(line.find(" (")));
        return failures;
    }

    BatchProcess m_process;
    int m_count = 0;
};

TEST_F(CommandExamples, OfTheViewWork)
{
    // The box has no saved views.
    EXPECT_EQ(failuresOf("view", {"view:saved-view"}),
              std::set<std::string>{"view:copy-image" + noWindow()});
    EXPECT_GT(m_count, 50);
}

TEST_F(CommandExamples, OfInputWork)
{
    // The menu of a mesh has no such item.
    EXPECT_EQ(failuresOf("input", {"input:menu"}), std::set<std::string>());
    EXPECT_GE(m_count, 5);
}

TEST_F(CommandExamples, OfTheApplicationWork)
{
    EXPECT_EQ(failuresOf("app", {"app:quit"}),
              (std::set<std::string>{"app:panels" + noWindow(), "app:reset-layout" + noWindow(),
                                     "app:show-panel" + noWindow(), "app:watch" + noWindow()}));
    EXPECT_GT(m_count, 30);
}

TEST_F(CommandExamples, OfTheSelectionWork)
{
    EXPECT_EQ(failuresOf("sel", {}), std::set<std::string>());
    EXPECT_GT(m_count, 8);
}

TEST_F(CommandExamples, OfMeasuringWork)
{
    EXPECT_EQ(failuresOf("measure", {}), std::set<std::string>());
    EXPECT_GE(m_count, 8);
}

} // namespace
