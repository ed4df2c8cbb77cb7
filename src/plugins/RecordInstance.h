#ifndef ORVIKCORE_PLUGINS_RECORDINSTANCE_H
#define ORVIKCORE_PLUGINS_RECORDINSTANCE_H

#include <OrvikOs/Library.h>

#include <memory>

namespace OrvikCore {

/// The fields of a plugin record that its factory comes from; the record owns what they name.
///
/// @tparam Factory  What the library's function makes.
template <class Factory> struct RecordFields
{
    const wchar_t* fileName;
    OrvikOs::Library*& module; ///< The load, once made.
    void*& makeFn;             ///< The library's function, once found.
    Factory*& instance;        ///< The factory, once made.
};

/// Gives the record's factory, which the first call makes: loads the library, looks up the function
/// and calls it. A later call tries again from the step that failed.
///
/// @return the factory or null when a step failed.
/// @throws whatever the library's function throws.
template <class Factory>
Factory* MakeInstance(const RecordFields<Factory>& fields, const char* function)
{
    if (fields.instance != nullptr) {
        return fields.instance;
    }
    if (fields.module == nullptr && fields.fileName != nullptr) {
        auto library = std::make_unique<OrvikOs::Library>();
        if (library->Load(fields.fileName)) {
            fields.module = library.release();
        }
    }
    if (fields.module != nullptr) {
        fields.makeFn = fields.module->Symbol(function);
        if (fields.makeFn != nullptr) {
            fields.instance = reinterpret_cast<Factory* (*)()>(fields.makeFn)();
        }
    }
    return fields.instance;
}

/// Forgets the library without releasing it; terminates and deletes the factory, if any.
template <class Factory> void EndInstance(OrvikOs::Library*& module, Factory*& instance)
{
    if (module != nullptr) {
        // Deliberate: the library stays loaded for the life of the process.
        // Held by PluginRecordTest.DestroyingTheInstanceKeepsTheLibrary.
        module->Detach();
        delete module;
        module = nullptr;
    }
    if (instance != nullptr) {
        instance->Terminate();
        delete instance;
        instance = nullptr;
    }
}

} // namespace OrvikCore

#endif
