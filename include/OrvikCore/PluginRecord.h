#ifndef ORVIKCORE_PLUGINRECORD_H
#define ORVIKCORE_PLUGINRECORD_H

#include "OrvikCore/Export.h"

namespace OrvikOs {
class Library;
}

namespace OrvikCore {

class APluginFactory;

/// One accepted plugin library: its file, type and name, and its factory once made.
///
/// Owns the three texts and the factory; the library stays loaded for the life of the process.
/// Copies share the six pointers and only one of them may be destroyed. Main thread.
class ORVIKCORE_API PluginRecord
{
public:
    PluginRecord();
    PluginRecord(const PluginRecord& other);

    /// Copies the six fields as they are; what this record owned before is left alone.
    PluginRecord& operator=(const PluginRecord& other);

    /// DestroyInstance, then frees the texts.
    ~PluginRecord();

    /// Each frees the old text and stores a copy of the argument; null stores null.
    void SetFileName(const wchar_t* newFileName);
    void SetType(const char* newType);
    void SetName(const wchar_t* newName);

    /// @return the stored text or null; owned by the record, valid until it is set again.
    wchar_t* GetFileName() const;
    char* GetType() const;
    wchar_t* GetName() const;

    /// Gives the factory, which the first call makes: loads the library, looks up CreatePlugin and
    /// calls it. A later call tries again from the step that failed.
    ///
    /// @return the factory or null when a step failed; owned by the record.
    /// @throws whatever CreatePlugin throws; the record then has no factory.
    APluginFactory* GetInstance();

    /// Forgets the library without releasing it; terminates and deletes the factory, if any.
    void DestroyInstance();

private:
    void clearMembers();

    wchar_t* fileName = nullptr;        ///< Owned; the full path of the library.
    char* type = nullptr;               ///< Owned; null until set.
    wchar_t* name = nullptr;            ///< Owned; null until set.
    OrvikOs::Library* module = nullptr; ///< Owned; the load that GetInstance made.
    void* createFn = nullptr;           ///< Address of the library's CreatePlugin.
    APluginFactory* instance = nullptr; ///< Owned.
};

} // namespace OrvikCore

#endif
