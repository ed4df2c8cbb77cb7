#ifndef TESTS_PLUGINSFIXTURE_H
#define TESTS_PLUGINSFIXTURE_H

#include "CapturedDebugOutput.h"
#include "PluginFolder.h"
#include "RecordingSleeper.h"

#include "OrvikCore/PluginManager.h"
#include "OrvikCore/PluginRecord.h"
#include "OrvikCore/ScriptPluginManager.h"

#include <TambVizCore/Utils.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

/// A text that a plugin manager told the host, and the number of its kind.
using Notice = std::pair<std::wstring, int>;

/// A folder of plugins beside a pretended executable, with both managers and everything that they
/// tell in the test's hands.
class PluginsTest : public ::testing::Test
{
protected:
    PluginsTest() { s_notices.clear(); }
    ~PluginsTest() override
    {
        manager().Terminate();
        scriptManager().Terminate();
    }

    static OrvikCore::PluginManager& manager() { return OrvikCore::PluginManager::Instance(); }
    static OrvikCore::ScriptPluginManager& scriptManager()
    {
        return OrvikCore::ScriptPluginManager::Instance();
    }

    /// Has both managers tell their texts to notices().
    static void listen()
    {
        manager().SetNotificationCb(note);
        scriptManager().SetNotificationCb(note);
    }
    static std::vector<Notice>& notices() { return s_notices; }

    /// The texts of one kind.
    static std::vector<std::wstring> texts(int kind)
    {
        std::vector<std::wstring> found;
        for (const Notice& notice : s_notices) {
            if (notice.second == kind) {
                found.push_back(notice.first);
            }
        }
        return found;
    }
    static std::vector<std::wstring> errors() { return texts(1); }

    /// Records one library; for tests in which it is good.
    OrvikCore::APluginFactory* load(const std::wstring& file,
                                    const std::wstring& folder = L"elsewhere")
    {
        wchar_t* errorText = nullptr;
        OrvikCore::APluginFactory* const factory =
            manager().LoadPlugin(file.c_str(), errorText, folder);
        m_errorText = errorText == nullptr ? std::wstring(L"<null>") : std::wstring(errorText);
        delete[] errorText;
        return factory;
    }

    static std::wstring lower(const std::wstring& text)
    {
        return TambVizCore::Utils::ToLowerAscii(text);
    }

    /// @return true when the process holds the library of the folder.
    static bool isInProcess(const std::wstring& file)
    {
        const std::string path = TambVizCore::Utils::WstringToString(file);
        std::ifstream maps("/proc/self/maps");
        for (std::string line; std::getline(maps, line);) {
            if (line.ends_with(path)) {
                return true;
            }
        }
        return false;
    }

    /// What a test plugin logged.
    std::vector<std::string> log(const std::string& who) const
    {
        return m_debug.LinesAfter("[" + who + "] ");
    }

    PluginFolder m_folder;
    RecordingSleeper m_sleeper;
    CapturedDebugOutput m_debug;
    std::wstring m_errorText; ///< What load() received; "<null>" for null.

private:
    static void note(const std::wstring& text, const OrvikCore::PMNotificationType& type)
    {
        s_notices.emplace_back(text, static_cast<int>(type));
    }

    inline static std::vector<Notice> s_notices;
};

#endif
