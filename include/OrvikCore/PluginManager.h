#ifndef ORVIKCORE_PLUGINMANAGER_H
#define ORVIKCORE_PLUGINMANAGER_H

#include "OrvikCore/Export.h"
#include "OrvikCore/PMNotificationType.h"

#include <string>
#include <vector>

namespace OrvikCore {

class APluginFactory;
class PluginRecord;

/// The registry of the plugin libraries beside the executable.
///
/// Owns the records and with them the factories. Created on first use of Instance() and destroyed
/// at process exit; a host calls Terminate() before. Main thread; only Instance() may be called
/// first by any thread.
///
/// With a notification callback, errors of loading go to it (followed by a pause of 500 ms);
/// without one they are thrown as std::runtime_error. Either way they are written to the debugger
/// output.
class ORVIKCORE_API PluginManager
{
public:
    PluginManager(const PluginManager&) = delete;
    PluginManager& operator=(const PluginManager&) = delete;

    /// @return the one object of the process.
    static PluginManager& Instance();

    // Virtual operations in slot order; append only.

    /// Empties the list, from the last record to the first.
    virtual ~PluginManager();

    /// Initialises the factory of every record in order, under a protection scope that turns
    /// machine faults into exceptions. A failure is told to the callback, noted among the errors of
    /// the factory, and the next one comes.
    ///
    /// @param context  Host-defined; its address is handed to every factory.
    /// @return true.
    virtual bool Initialize(void* context);

    /// Empties the list, from the last record to the first.
    /// @return true.
    virtual bool Terminate();

    /// Empties the list, then records the plugin libraries beside the executable: regular names
    /// that end in ".dll" and contain "Plugin", but not "Script".
    ///
    /// @param folder  Never used as a path. The word "Plugins" admits only the types "Content" and
    ///                "Loader" and stores them; with any other word the types are not stored.
    /// @throws std::runtime_error at the first library that fails when there is no callback.
    virtual void LoadPlugins(const std::wstring& folder);

    /// Records one library, unless a record has exactly this file name.
    ///
    /// @param fileName   Path of the library; not null. A bare name is looked for in the
    ///                   executable's folder first.
    /// @param errorText  Set to null, and on an error to a new[] text (transferred out).
    /// @param folder     As for LoadPlugins.
    /// @return the factory or null; owned by the manager.
    /// @throws std::runtime_error with the error text when there is no callback.
    virtual APluginFactory* LoadPlugin(const wchar_t* fileName, wchar_t*& errorText,
                                       const std::wstring& folder);

    /// @param index  0 <= index < GetPluginsCount(); not tested.
    /// @return the factory of a record, made if need be, or null; owned by the manager.
    virtual APluginFactory* CreatePlugin(int index);

    /// @return the number of records, those without a factory included.
    virtual int GetPluginsCount();

    /// @param index  0 <= index < GetPluginsCount(); not tested.
    /// @return the name of a record; owned by it.
    virtual wchar_t* GetPluginName(int index);

    /// @param index  0 <= index < GetPluginsCount(); not tested.
    /// @return the type of a record, null when it was not stored; owned by it.
    virtual char* GetPluginType(int index);

    /// @return the index of the first record whose name is exactly @p name, else -1.
    virtual int FindPluginByName(const wchar_t* name);

    /// Says whether Initialize pre-loads; true at the start.
    virtual void SetPreLoadFlag(bool preLoad);

    /// Keeps @p callback; null for none.
    virtual void SetNotificationCb(PMNotificationCallback callback);

    // Operations outside the table.

    /// @return the factories in order, made if need be; records without one are left out, so the
    ///         indexes are not those of the records. Owned by the manager.
    std::vector<APluginFactory*> GetPlugins();

protected:
    PluginManager();

    /// Deletes the records from the last to the first; nothing while a clear is going on.
    void clearPluginList();

    /// @return the index of the first record whose file name is exactly @p fileName, else -1.
    int findPluginByFileName(const wchar_t* fileName);

    /// Loads one library and records it; LoadPlugin says what is returned and thrown.
    APluginFactory* createPluginRecord(const wchar_t* fileName, wchar_t*& errorText,
                                       const std::wstring& folder);

    /// Appends a backslash, unless @p buffer ends in a separator, and "*.dll" to @p buffer.
    ///
    /// @param folder  Read, without effect.
    /// @param buffer  Zero-terminated, holds the folder, with room for six more characters.
    void createSearchTemplate(wchar_t* folder, wchar_t* buffer);

private:
    struct Probe;

    void inspectLibrary(Probe& probe, const std::wstring& folder);
    void initializeRecord(PluginRecord& record, void* context);
    void reportLoadError(const std::wstring& errors, wchar_t*& errorText);

    std::vector<PluginRecord*> m_plugins; ///< Owned.
    bool m_preLoad = true;
    PMNotificationCallback m_notify = nullptr;
};

} // namespace OrvikCore

#endif
