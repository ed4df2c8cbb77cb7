#ifndef PELLUX_TESTS_RUNFOLDERWITHFAULTS_H
#define PELLUX_TESTS_RUNFOLDERWITHFAULTS_H

#include <filesystem>

/// Makes a run folder of its own: all of the run folder, and the plugins that go wrong. The program
/// is a copy, because its folder is where its file lies; all else are links.
///
/// @param folder  Made; its parent exists. Programs that use this define ORVIK_RUN_FOLDER and
///                ORVIK_FAULTY_PLUGINS.
inline void MakeRunFolderWithFaults(const std::filesystem::path& folder)
{
    namespace fs = std::filesystem;
    fs::create_directory(folder);
    for (const char* const from : {ORVIK_RUN_FOLDER, ORVIK_FAULTY_PLUGINS})
        for (const fs::directory_entry& entry : fs::directory_iterator(from))
            if (entry.is_regular_file() && entry.path().filename() != "pellux")
                fs::create_symlink(entry.path(), folder / entry.path().filename());
    const fs::path program = fs::path(ORVIK_RUN_FOLDER) / "pellux";
    if (fs::exists(program))
        fs::copy_file(program, folder / "pellux");
}

#endif
