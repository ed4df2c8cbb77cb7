#ifndef ORVIKCORE_ASCRIPTMODULEPLUGINFACTORY_H
#define ORVIKCORE_ASCRIPTMODULEPLUGINFACTORY_H

#include "OrvikCore/Export.h"
#include "OrvikCore/PluginInfo.h"

#include <string>
#include <vector>

namespace OrvikCore {

/// The base of the factory of every script plugin: a library that adds commands to the script
/// language.
///
/// A library exports two functions with C linkage:
///     AScriptModulePluginFactory* RegisterPlugin();  // a new factory, owned by the core
///     const char* GetScriptPluginName();             // the name that others require it by
///
/// ScriptPluginManager makes the factory on the main thread while it loads the library; Initialize
/// runs on the worker thread, from the script engine's callback.
class ORVIKCORE_API AScriptModulePluginFactory
{
public:
    // Virtual operations in slot order; append only.

    virtual ~AScriptModulePluginFactory();

    /// Called once, just before the factory is deleted.
    virtual void Terminate() = 0;

protected:
    /// Sets the plugin up and, when that succeeded, sets m_initialized.
    ///
    /// @param context  What the script engine handed to its callback; engine-defined.
    /// @return true when the plugin can be used.
    virtual bool doInitialize(void* context) = 0;

    /// Fills in the description through setName and its neighbours; the first call of Initialize.
    virtual void describe() = 0;

    /// Loads ahead what would be loaded on first use. The last call of Initialize, after
    /// createContextMenuItems, when pre-loading is wanted; does nothing by default.
    virtual void doPreLoad();

    /// @return the names (as their GetScriptPluginName gives them) of the script plugins that must
    ///         be initialised before this one; none by default.
    virtual std::vector<std::wstring> getPreqPlugins();

    /// Adds items to the menu template of SessionMgr; does nothing by default.
    virtual void createContextMenuItems();

public:
    // Operations outside the table.

    /// Initialises the script plugins that this one requires, then this one. What goes wrong is
    /// noted among its errors: "<name>: requires plugin <plugin> to be initialized first.",
    /// "<name> failed to initialize with error : <text>" or "... : unknown".
    ///
    /// @return true when it is initialised, or was before; false when it, or one that it requires,
    ///         is not.
    /// @throws what describe, getPreqPlugins and doPreLoad throw.
    bool Initialize(void* context, bool preLoad);

    /// @return whether the plugin's own initialisation has succeeded.
    bool IsInitialized() const;

    /// @return a copy of the description.
    PluginInfo GetInfo() const;

protected:
    AScriptModulePluginFactory();
    AScriptModulePluginFactory(const AScriptModulePluginFactory&) = default;
    AScriptModulePluginFactory& operator=(const AScriptModulePluginFactory&) = default;

    void setName(const std::string& name);
    void setDescription(const std::wstring& description);

    /// Appends to the products.
    void addGetProduct(const std::string& product);

    /// Appends to the errors.
    void logError(const std::wstring& text);

    /// Appends to the messages.
    void logMessage(const std::wstring& text);

    bool m_initialized = false; ///< Set by the concrete factory, never by this class.
    PluginInfo m_info;

private:
    bool initializePrerequisites(void* context, bool preLoad);
    bool initializeThis(void* context);
};

} // namespace OrvikCore

#endif
