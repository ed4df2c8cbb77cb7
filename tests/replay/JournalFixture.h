#ifndef TESTS_REPLAY_JOURNALFIXTURE_H
#define TESTS_REPLAY_JOURNALFIXTURE_H

#include "BatchProcess.h"
#include "SampleFiles.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

namespace fs = std::filesystem;

/// Runs that keep journals in the test's own folder.
class JournalFixture : public testing::Test
{
protected:
    JournalFixture() { m_process.Write("box.stl", BoxStl(10, 20, 30)); }

    fs::path folder() const { return m_process.Folder() / "process/state/pellux/journals"; }

    std::vector<fs::path> journals() const
    {
        std::vector<fs::path> files;
        if (fs::exists(folder()))
            for (const fs::directory_entry& entry : fs::directory_iterator(folder()))
                files.push_back(entry.path());
        std::sort(files.begin(), files.end());
        return files;
    }

    Outcome runForms(const std::vector<std::string>& forms,
                     const std::vector<std::string>& options = {}) const
    {
        std::vector<std::string> arguments = {"box.stl"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        for (const std::string& form : forms)
            arguments.insert(arguments.end(), {"--eval", form});
        return m_process.Run(arguments);
    }

    /// Runs the forms on a box and keeps the journal.
    /// @return its text.
    std::string record(const std::vector<std::string>& forms) const
    {
        runForms(forms);
        EXPECT_EQ(journals().size(), 1u);
        const std::string text = ReadBytes(journals().back());
        m_process.Write("run.journal.scm", text);
        return text;
    }

    Outcome replay(const std::vector<std::string>& options = {}) const
    {
        std::vector<std::string> arguments = {"--replay", "run.journal.scm"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return m_process.Run(arguments);
    }

    void expectEnd(const Outcome& outcome, int exitCode, const std::string& lastLine) const
    {
        EXPECT_EQ(outcome.exitCode, exitCode) << outcome.errors;
        EXPECT_TRUE(outcome.output.ends_with(lastLine)) << outcome.output;
    }

    BatchProcess m_process;
};

#endif
