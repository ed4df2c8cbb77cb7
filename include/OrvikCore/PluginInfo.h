#ifndef ORVIKCORE_PLUGININFO_H
#define ORVIKCORE_PLUGININFO_H

#include "OrvikCore/Export.h"

#include <string>
#include <vector>

namespace OrvikCore {

/// What a plugin says about itself, and the errors and messages of its initialisation.
///
/// Held by value inside the plugin's factory, which fills it; a plain value for everybody else.
class ORVIKCORE_API PluginInfo
{
public:
    PluginInfo(const PluginInfo&) = default;
    PluginInfo(PluginInfo&&) = default;
    PluginInfo& operator=(const PluginInfo&) = default;
    PluginInfo& operator=(PluginInfo&&) = default;
    ~PluginInfo();

    /// @return the name; "Undefined" until the factory sets it.
    std::string GetName() const;

    /// @return a description for people; empty until the factory sets it.
    std::wstring GetDescription() const;

    /// @return the name of the component that the plugin is a part of; empty when it is none.
    std::string GetComponentName() const;

    /// @return true when GetComponentName() is not empty.
    bool IsComponent() const;

    /// @return copies of the lists, in the order of logging.
    std::vector<std::wstring> GetMessages() const;
    std::vector<std::wstring> GetErrors() const;

    /// @return the names of the products that the plugin offers.
    std::vector<std::string> GetProducts() const;

    /// Empties messages and errors.
    void FlushMessagesAndErrors();

    /// Replaces the name.
    void setName(const std::string& newName);

private:
    friend class APluginFactory;
    friend class AScriptModulePluginFactory;

    PluginInfo();

    std::string name = "Undefined";
    std::wstring description;
    std::string componentName;
    std::vector<std::wstring> messages;
    std::vector<std::wstring> errors;
    std::vector<std::string> products;
};

} // namespace OrvikCore

#endif
