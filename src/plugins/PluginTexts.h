#ifndef ORVIKCORE_PLUGINS_PLUGINTEXTS_H
#define ORVIKCORE_PLUGINS_PLUGINTEXTS_H

namespace OrvikCore {

// The wording is fixed, spelling included.
inline constexpr wchar_t kLoading[] = L"loading : ";
inline constexpr wchar_t kDebugLoading[] = L"-- loading : ";
inline constexpr wchar_t kDebugError[] = L"\t  ";
inline constexpr wchar_t kAttemptToLoad[] = L"Attempt to load ";
inline constexpr wchar_t kFailedWithMessage[] = L" failed with error Message : ";
inline constexpr wchar_t kCode[] = L" (code : ";
inline constexpr wchar_t kCodeEnd[] = L" ) ";
inline constexpr wchar_t kMissingType[] = L"Missing plugin type definition in ";
inline constexpr wchar_t kMissingName[] = L"Missing plugin name definition in ";
inline constexpr wchar_t kCannotCreateFactory[] = L"Cannot create factory in ";
inline constexpr wchar_t kCannotLoad[] = L"Cannot load ";
inline constexpr wchar_t kPlugin[] = L" plugin : ";
inline constexpr wchar_t kUnexpectedError[] = L"unexpected error";

inline constexpr wchar_t kInitializing[] = L"initializing : ";
inline constexpr wchar_t kDots[] = L"...";
inline constexpr wchar_t kFailedWithText[] = L"... failed :\n";
inline constexpr wchar_t kContinuingAfterText[] = L"\nContinuing...";
inline constexpr wchar_t kFailed[] = L"... failed. Continuing...";

inline constexpr wchar_t kRequiresPlugin[] = L": requires plugin ";
inline constexpr wchar_t kToBeInitializedFirst[] = L" to be initialized first.";
inline constexpr char kSource[] = "\n   Source:  ";
inline constexpr wchar_t kFailedToInitialize[] = L" failed to initialize with error : ";
inline constexpr wchar_t kUnknownError[] = L"unknown";

inline constexpr wchar_t kInitializationErrorAt[] = L"Initialization error at ";
inline constexpr wchar_t kInitializationErrorEnd[] = L" :\n";
inline constexpr wchar_t kUnrecognizedException[] = L"Unrecognized Exception in Initialize() in ";

inline constexpr wchar_t kCannotMakeEngine[] = L"Cannot instanciate script engine at ";
inline constexpr wchar_t kWithError[] = L" with error : ";
inline constexpr char kNoEngineFactory[] = "Could not find RegisterScriptEngineFactory";
inline constexpr wchar_t kUsing[] = L"Using ";
inline constexpr wchar_t kScriptEngine[] = L" Script Engine";

} // namespace OrvikCore

#endif
