#include "RunHistory.h"

#include <TambVizCore/Utils.h>

namespace Pellux {
namespace {

/// What systems take as one argument and more.
constexpr std::size_t kMostBytes = 100000;

/// A word for a shell, in single quotes.
std::string quoted(const std::wstring& text)
{
    std::string word = "'";
    for (const char c : TambVizCore::Utils::WstringToString(text))
        word += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return word + "'";
}

} // namespace

void RunHistory::Add(const std::wstring& form, bool hasFailed)
{
    // What failed may have done something before.
    m_forms.push_back(hasFailed ? L"(false-if-exception " + form + L")" : form);
}

std::string RunHistory::CommandLine(int width, int height, const std::wstring& camera) const
{
    std::string line;
    if (!m_beginning.folder.empty())
        line = "cd " + quoted(m_beginning.folder) + " && ";
    line += "pellux-batch --size " + std::to_string(width) + "x" + std::to_string(height);
    line += m_beginning.isZUp ? " --up z" : "";
    line += m_beginning.useConfiguration ? "" : " --no-config";
    // Without the configuration there is no journal unless it is asked for.
    if (m_beginning.keepsJournal != m_beginning.useConfiguration)
        line += m_beginning.keepsJournal ? " --journal" : " --no-journal";
    line += m_beginning.runStartupScripts ? "" : " --no-startup";
    if (!m_beginning.configurationFile.empty())
        line += " --config " + quoted(m_beginning.configurationFile);
    const auto add = [&line](const std::wstring& form) { line += " --eval " + quoted(form); };
    for (const std::wstring& form : m_forms) {
        add(form);
        if (line.size() > kMostBytes)
            return {};
    }
    if (width != m_beginning.width || height != m_beginning.height)
        add(camera);
    if (!m_running.empty())
        add(m_running);
    return line.size() > kMostBytes ? std::string() : line;
}

} // namespace Pellux
