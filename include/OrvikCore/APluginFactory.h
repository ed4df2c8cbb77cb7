#ifndef ORVIKCORE_APLUGINFACTORY_H
#define ORVIKCORE_APLUGINFACTORY_H

#include "OrvikCore/Export.h"
#include "OrvikCore/PluginInfo.h"

#include <string>
#include <vector>

namespace OrvikCore {

/// The base of the one factory of every plugin library.
///
/// A library exports three functions with C linkage:
///     APluginFactory* CreatePlugin();     // a new factory, owned by the core; null is an error
///     const char* GetPluginType();        // the type word, such as "Content" or "Loader"
///     const char* GetPluginName();        // the name that other plugins require it by
///
/// PluginManager makes the factory while it loads the library, initialises it after the factories
/// that it requires, and calls Terminate just before it deletes it. Main thread.
class ORVIKCORE_API APluginFactory
{
public:
    // Virtual operations in slot order; append only.

    virtual ~APluginFactory();

    /// Makes an object of a kind that the factory offers.
    ///
    /// @param objectName  Name of the kind; not null.
    /// @return the object as a pointer to exactly the interface that the caller casts to
    ///         (transferred out), or null for an unknown kind.
    virtual void* CreateObject(const char* objectName) = 0;

    /// Called once, just before the factory is deleted.
    virtual void Terminate() = 0;

protected:
    /// Fills in the description through setName and its neighbours; the first call of Initialize.
    virtual void describe() = 0;

    /// Sets the plugin up and, when that succeeded, sets m_initialized.
    ///
    /// @param context  Address of the pointer that the host gave PluginManager::Initialize; null
    ///                 when the factory is initialised on demand.
    /// @throws std::exception with the reason when the plugin cannot be used.
    virtual void doInitialize(void** const context) = 0;

    /// Loads ahead what would be loaded on first use. Called after doInitialize, before
    /// createContextMenuItems, when pre-loading is wanted; does nothing by default.
    virtual void doPreLoad();

    /// @return the names (as their GetPluginName gives them) of the plugins that must be
    ///         initialised before this one; none by default.
    virtual std::vector<std::wstring> getPreqPlugins();

    /// Adds items to the menu template of SessionMgr; the last call of Initialize, does nothing by
    /// default.
    virtual void createContextMenuItems();

public:
    // Operations outside the table.

    /// Initialises the plugins that this one requires, then this one; nothing once m_initialized is
    /// set. Without one of them it notes "<name>: requires plugin <plugin> to be initialized
    /// first." among its errors and stays as it is. Plugins that require each other recurse until
    /// one sets m_initialized.
    ///
    /// A std::exception from doInitialize on is noted as "<text>\n   Source:  <name>\n".
    ///
    /// @throws whatever else the plugin throws.
    void Initialize(void** const context, bool preLoad);

    /// @return whether the plugin's own initialisation has succeeded.
    bool IsInitialized() const;

    /// @return a copy of the description.
    PluginInfo GetInfo() const;

    /// @return the description; owned by the factory.
    PluginInfo& GetInfoRef();

protected:
    APluginFactory();
    APluginFactory(const APluginFactory&) = default;
    APluginFactory& operator=(const APluginFactory&) = default;

    void setName(const std::string& name);
    void setDescription(const std::wstring& description);
    void setComponentName(std::string componentName);
    std::string getComponentName() const;

    /// Appends to the products.
    void addGetProduct(const std::string& product);

    /// Appends to the errors.
    void logError(const std::wstring& text);

    /// Appends to the messages.
    void logMessage(const std::wstring& text);

    bool m_initialized = false; ///< Set by the concrete factory, never by this class.
    PluginInfo m_info;

private:
    friend class PluginManager;

    bool initializePrerequisites(void** const context, bool preLoad);
};

} // namespace OrvikCore

#endif
