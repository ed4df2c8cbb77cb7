#include "BatchProcess.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <regex>
#include <sstream>

namespace fs = std::filesystem;

namespace {

std::string quoted(const std::string& word)
{
    std::string result = "'";
    for (const char c : word)
        result += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return result + "'";
}

void replaceAll(std::string& text, const std::string& from, const std::string& to)
{
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at))
        text.replace(at, from.size(), to);
}

} // namespace

BatchProcess::BatchProcess() : m_runFolder(ORVIK_RUN_FOLDER) {}

Outcome BatchProcess::Run(const std::vector<std::string>& arguments) const
{
    const fs::path own = Folder() / "process";
    fs::create_directories(own);
    std::string line = "cd " + quoted(Folder().string()) +
                       " && XDG_CONFIG_HOME=" + quoted((own / "config").string()) +
                       " XDG_STATE_HOME=" + quoted((own / "state").string()) +
                       " timeout --kill-after=5 60 " +
                       quoted((m_runFolder / "pellux-batch").string());
    for (const std::string& argument : arguments)
        line += " " + quoted(argument);
    line += " >process/output 2>process/errors </dev/null; echo $? >process/status";
    EXPECT_EQ(std::system(line.c_str()), 0);
    Outcome outcome;
    std::ifstream(own / "status") >> outcome.exitCode;
    outcome.output = ReadBytes(own / "output");
    outcome.errors = ReadBytes(own / "errors");
    return outcome;
}

std::string BatchProcess::Write(const std::string& name, const std::string& text) const
{
    m_folder.Write(name, text);
    return (Folder() / name).string();
}

fs::path BatchProcess::OwnRunFolder()
{
    const fs::path folder = Folder() / "bin";
    if (m_runFolder == folder)
        return folder;
    fs::create_directories(folder);
    for (const fs::directory_entry& entry : fs::directory_iterator(ORVIK_RUN_FOLDER))
        if (entry.is_regular_file() && entry.path().filename() != "pellux-batch")
            fs::create_symlink(entry.path(), folder / entry.path().filename());
    // A copy: the folder of the program is where its file lies.
    fs::copy_file(fs::path(ORVIK_RUN_FOLDER) / "pellux-batch", folder / "pellux-batch");
    m_runFolder = folder;
    return folder;
}

void BatchProcess::UseTestCommands()
{
    fs::create_symlink(ORVIK_TEST_COMMANDS, OwnRunFolder() / "TestCommands.ScriptPlugin.dll");
}

void BatchProcess::ExpectGolden(const std::string& name, const Outcome& outcome) const
{
    std::string text = "exit code " + std::to_string(outcome.exitCode) + "\n--- output\n" +
                       outcome.output + "--- errors\n" + outcome.errors;
    replaceAll(text, Folder().string(), "<folder>");
    replaceAll(text, ORVIK_SOURCE_FOLDER, "<source>");
    text = std::regex_replace(text, std::regex("0x[0-9a-f]{6,}"), "<address>");
    text = std::regex_replace(text, std::regex("(bytes\"?:? +)[0-9]+"), "$1<number>");

    const fs::path file = SourceFile("tests/golden/replay/" + name + ".txt");
    if (std::getenv("ORVIK_UPDATE_GOLDEN") != nullptr) {
        fs::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << text;
    }
    EXPECT_EQ(text, ReadBytes(file));
}

std::string SourceFile(const std::string& path)
{
    return std::string(ORVIK_SOURCE_FOLDER) + "/" + path;
}

std::string ReadBytes(const fs::path& file)
{
    std::stringstream bytes;
    bytes << std::ifstream(file, std::ios::binary).rdbuf();
    return bytes.str();
}
