#ifndef TESTS_REPLAY_BATCHPROCESS_H
#define TESTS_REPLAY_BATCHPROCESS_H

#include "ScopedTempDir.h"

#include <filesystem>
#include <string>
#include <vector>

/// How a run of pellux-batch ended.
struct Outcome
{
    int exitCode = -1; ///< 124 when it ran for a minute and was ended.
    std::string output;
    std::string errors;
};

/// Runs pellux-batch as a process in a folder of its own, without the configuration of the user.
class BatchProcess
{
public:
    BatchProcess();

    /// Runs with these arguments, in the folder, until it ends.
    Outcome Run(const std::vector<std::string>& arguments) const;

    /// The folder of the test: runs begin in it, and what they write goes there.
    std::filesystem::path Folder() const { return m_folder.Path(); }

    /// Writes a file into the folder.
    /// @return its path.
    std::string Write(const std::string& name, const std::string& text) const;

    /// Makes a run folder of the test's own: the programs and plugins, but no start-up scripts.
    /// Later runs start from there.
    /// @return the folder, to add files to or remove them from.
    std::filesystem::path OwnRunFolder();

    /// Puts the commands test:... into a run folder of the test's own.
    void UseTestCommands();

    /// Compares an outcome with tests/golden/replay/<name>.txt; ORVIK_UPDATE_GOLDEN=1 writes that
    /// file instead. The folder of the test, the source folder and addresses are masked.
    void ExpectGolden(const std::string& name, const Outcome& outcome) const;

private:
    ScopedTempDir m_folder;
    std::filesystem::path m_runFolder;
};

/// @return a file of the source tree.
std::string SourceFile(const std::string& path);

/// @return all bytes of a file; empty when there is none.
std::string ReadBytes(const std::filesystem::path& file);

#endif
