#ifndef ORVIKCORE_SCRIPTPLUGINMANAGER_H
#define ORVIKCORE_SCRIPTPLUGINMANAGER_H

#include "OrvikCore/Export.h"
#include "OrvikCore/PMNotificationType.h"

#include <string>
#include <vector>

namespace OrvikCore {

class AScriptEngine;
class AScriptModulePluginFactory;
class ScriptPluginRecord;

/// The registry of the script plugins beside the executable, and the loader of script engines.
///
/// Owns the records and with them the factories. Created on first use of Instance() and destroyed
/// at process exit; a host calls Terminate() before. Plugins are loaded and terminated on the main
/// thread; Initialize and LoadScriptEngine run on the worker while the main thread waits.
class ORVIKCORE_API ScriptPluginManager
{
public:
    ScriptPluginManager(const ScriptPluginManager&) = delete;
    ScriptPluginManager& operator=(const ScriptPluginManager&) = delete;

    /// @return the one object of the process. Any thread may be the first to ask.
    static ScriptPluginManager& Instance();

    // Virtual operations in slot order; append only.

    /// Empties the list, from the last record to the first.
    virtual ~ScriptPluginManager();

    /// Empties the list, then records the script plugins beside the executable: names that end in
    /// ".dll" and contain "Plugin", but not "Scheme". Libraries without the entry points of a
    /// script plugin are passed over in silence; one that cannot be loaded is told to the callback
    /// (followed by a pause of 500 ms).
    virtual void LoadPlugins();

    /// Records one library, unless the *name* of a recorded plugin is @p fileName: a path that was
    /// loaded before is probed again.
    ///
    /// @param fileName  Path of the library; not null.
    /// @return true when it is recorded, or is no script plugin; false when it cannot be used.
    virtual bool LoadPlugin(const wchar_t* fileName);

    /// Initialises the factory of every record in order, under a protection scope that turns
    /// machine faults into exceptions. Failures are told to the callback and kept.
    ///
    /// @param context  What the script engine handed to its callback; engine-defined.
    /// @return true.
    /// @thread Worker thread.
    virtual bool Initialize(void* context);

    /// Empties the list, from the last record to the first.
    /// @return true.
    virtual bool Terminate();

    /// Says whether Initialize pre-loads; true at the start.
    virtual void SetPreLoadFlag(bool preLoad);

    /// Keeps @p callback; null for none.
    virtual void SetNotificationCb(PMNotificationCallback callback);

    /// Makes the engine of a script-engine library, which then stays loaded.
    ///
    /// Tells the callback "Using <name> Script Engine", or why there is none: "Cannot load <file>",
    /// "Cannot instanciate script engine at <file>", the latter with " with error : <text>" where
    /// there is a text.
    ///
    /// @return the engine (transferred out) or null.
    /// @throws std::runtime_error with that text when there is no engine and no callback.
    /// @thread Worker thread.
    virtual AScriptEngine* LoadScriptEngine(const wchar_t* fileName);

    // Operations outside the table.

    /// @return the index of the first record whose name is exactly @p name, else -1.
    int FindPluginByName(const wchar_t* name);

    /// @return the factories in order, made if need be; records without one are left out, so the
    ///         indexes are not those of the records. Owned by the manager.
    std::vector<AScriptModulePluginFactory*> GetPlugins();

    /// @return what went wrong in the last Initialize, one text per plugin: "Initialization error
    ///         at <file> :\n<text>" or "Unrecognized Exception in Initialize() in <file>\n".
    const std::vector<std::wstring>& GetInitializationErrors() const;

protected:
    ScriptPluginManager();

    /// Deletes the records from the last to the first.
    void clearPluginList();

    /// Loads one library and records it; LoadPlugin says what is returned.
    bool createPluginRecord(const wchar_t* fileName);

    /// Appends a backslash, unless @p buffer ends in a separator, and "*.dll" to @p buffer.
    ///
    /// @param folder  Read, without effect.
    /// @param buffer  Zero-terminated, holds the folder, with room for six more characters.
    void createSearchTemplate(wchar_t* folder, wchar_t* buffer);

private:
    void initializeRecord(ScriptPluginRecord& record, void* context);

    std::vector<ScriptPluginRecord*> m_plugins; ///< Owned.
    bool m_preLoad = true;
    PMNotificationCallback m_notify = nullptr;
    std::vector<std::wstring> m_initializationErrors;
};

} // namespace OrvikCore

#endif
