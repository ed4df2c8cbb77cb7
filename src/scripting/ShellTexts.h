#ifndef ORVIKCORE_SCRIPTING_SHELLTEXTS_H
#define ORVIKCORE_SCRIPTING_SHELLTEXTS_H

namespace OrvikCore {

// The wording is fixed, spelling included.
inline constexpr wchar_t kNoScriptEngine[] = L"*** Error : No Script Engine Available";
inline constexpr wchar_t kNoEngineMade[] = L"Failed to instanciate script engine";
inline constexpr wchar_t kEngineNotLoaded[] = L"Failed to load script engine";
inline constexpr wchar_t kIllegalCharacter[] = L"Illegal character in the command at position ";
inline constexpr wchar_t kNoSuchFile[] = L"Failed to load script, file :";
inline constexpr wchar_t kDoesNotExist[] = L" does not exist";
inline constexpr wchar_t kWrongExtension[] = L"Failed to load script, no ";
inline constexpr wchar_t kExtension[] = L" extension";
inline constexpr wchar_t kNotReadable[] = L"Failed to read script file : ";
inline constexpr wchar_t kLogLoading[] = L"loading : ";
inline constexpr wchar_t kLogFile[] = L"        : ";
inline constexpr wchar_t kNullTicket[] = L"Invalid JobTicket = NULL";

} // namespace OrvikCore

#endif
