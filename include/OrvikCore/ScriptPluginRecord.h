#ifndef ORVIKCORE_SCRIPTPLUGINRECORD_H
#define ORVIKCORE_SCRIPTPLUGINRECORD_H

#include "OrvikCore/Export.h"

namespace OrvikOs {
class Library;
}

namespace OrvikCore {

class AScriptModulePluginFactory;

/// One accepted script plugin library: its file and name, and its factory once made.
///
/// Owns the two texts and the factory; the library stays loaded for the life of the process.
/// Copies share the five pointers and only one of them may be destroyed.
class ORVIKCORE_API ScriptPluginRecord
{
public:
    ScriptPluginRecord();
    ScriptPluginRecord(const ScriptPluginRecord& other);

    /// Copies the five fields as they are; what this record owned before is left alone.
    ScriptPluginRecord& operator=(const ScriptPluginRecord& other);

    /// DestroyInstance, then frees the texts.
    ~ScriptPluginRecord();

    /// Each frees the old text and stores a copy of the argument; null stores null.
    void SetFileName(const wchar_t* newFileName);
    void SetName(const wchar_t* newName);

    /// @return the stored text or null; owned by the record, valid until it is set again.
    wchar_t* GetFileName() const;
    wchar_t* GetName() const;

    /// Gives the factory, which the first call makes: loads the library, looks up RegisterPlugin
    /// and calls it. A later call tries again from the step that failed.
    ///
    /// @return the factory or null when a step failed; owned by the record.
    /// @throws whatever RegisterPlugin throws; the record then has no factory.
    AScriptModulePluginFactory* GetInstance();

    /// Forgets the library without releasing it; terminates and deletes the factory, if any.
    void DestroyInstance();

private:
    void clearMembers();

    wchar_t* fileName = nullptr;                    ///< Owned; the full path of the library.
    wchar_t* name = nullptr;                        ///< Owned; null until set.
    OrvikOs::Library* module = nullptr;             ///< Owned; the load that GetInstance made.
    void* registerFn = nullptr;                     ///< Address of the library's RegisterPlugin.
    AScriptModulePluginFactory* instance = nullptr; ///< Owned.
};

} // namespace OrvikCore

#endif
