#include "CompletionStore.h"

#include <TambCommandsInfra/CommandTable.h>
#include <TambVizCore/Utils.h>

#include <set>

namespace Pellux {

using TambCommandsInfra::CommandTable;
using TambVizCore::Utils;

bool CompletionStore::AddExtensionInfo(std::vector<std::wstring> names,
                                       std::vector<std::wstring> descriptions,
                                       const std::wstring& group)
{
    if (names.size() != descriptions.size())
        return false;
    for (std::size_t i = 0; i < names.size(); ++i) {
        const std::wstring suffix = group.empty() ? L"" : L" (" + group + L")";
        m_descriptions[names[i]] = descriptions[i] + suffix;
    }
    return true;
}

bool CompletionStore::AddExtensionObject(std::vector<std::wstring> names,
                                         const std::wstring& object)
{
    for (const std::wstring& name : names)
        m_descriptions[object + L"." + name] = L"member of " + object;
    return true;
}

bool CompletionStore::FindExtensions(const std::wstring& prefix, std::vector<std::wstring>& found)
{
    std::set<std::wstring> names;
    for (auto entry = m_descriptions.lower_bound(prefix);
         entry != m_descriptions.end() && entry->first.starts_with(prefix); ++entry)
        names.insert(entry->first);
    for (const std::string& name :
         CommandTable::Instance().Complete(Utils::WstringToString(prefix)))
        names.insert(Utils::StringToWstring(name));
    found.assign(names.begin(), names.end());
    return !found.empty();
}

bool CompletionStore::FindExtensionHelp(const std::wstring& name, std::wstring& help)
{
    const auto entry = m_descriptions.find(name);
    if (entry != m_descriptions.end()) {
        help = entry->second;
        return true;
    }
    const auto command = CommandTable::Instance().Find(Utils::WstringToString(name));
    if (command == nullptr)
        return false;
    help = Utils::StringToWstring(CommandTable::HelpText(*command));
    return true;
}

} // namespace Pellux
