#ifndef ORVIKOS_LIBRARY_H
#define ORVIKOS_LIBRARY_H

#include "OrvikOs/Export.h"

#include <string>

namespace OrvikOs {

/// One load of a dynamic library.
///
/// The system counts loads: a library stays in the process until every load of it has been closed.
/// The destructor closes; what must stay loaded is detached first.
///
/// @thread  The thread that created it.
class ORVIKOS_API Library
{
public:
    Library();

    /// Closes the load unless it was detached.
    ~Library();

    Library(Library&& other) noexcept;
    Library& operator=(Library&& other) noexcept;
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;

    /// Loads a library with every symbol bound at once and kept private to it. A load held before
    /// is closed.
    ///
    /// @param fileName  A path, or a bare name. A bare name is looked for in the executable's
    /// folder first,
    ///                  then wherever the system looks.
    /// @return false on failure; ErrorCode() and ErrorText() then say why.
    /// @throws whatever the static initialisers of the library throw.
    bool Load(const std::wstring& fileName);

    /// Tells whether a load is held.
    bool IsLoaded() const;

    /// Finds an exported function or variable.
    ///
    /// @param name  Plain, undecorated name.
    /// @return its address, or null when there is none or nothing is loaded. Valid while loaded.
    void* Symbol(const char* name) const;

    /// Gives the error number of the last Load(): 0 after success. On Linux the number with which
    /// opening the file failed, else 0xb (the file is there and is no library that can be loaded);
    /// on Windows the system's last error.
    unsigned ErrorCode() const;

    /// Gives the system's text for the last Load(): empty after success.
    const std::wstring& ErrorText() const;

    /// Forgets the load without closing it: the library stays for the life of the process.
    void Detach();

    /// Closes the load; does nothing when none is held. Addresses found in it become invalid unless
    /// another load keeps the library.
    void Close();

private:
    void* m_handle = nullptr; ///< Owned load; null when none.
    unsigned m_errorCode = 0; ///< Error of the last Load().
    std::wstring m_errorText; ///< Text of the last Load().
};

} // namespace OrvikOs

#endif
