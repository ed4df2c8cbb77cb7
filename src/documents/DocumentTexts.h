#ifndef ORVIKCORE_DOCUMENTTEXTS_H
#define ORVIKCORE_DOCUMENTTEXTS_H

namespace OrvikCore {

inline constexpr char kNullSession[] = "null session";
inline constexpr char kNoContentFactory[] = "could not get default content factory";
inline constexpr char kDeleteNullContent[] = "Attempting to delete a null content!";
inline constexpr char kDeleteUnknownContent[] = "Cannot find the content you are trying to delete!";
inline constexpr char kNullContentInDocument[] = "NULL content found in the document!";

// The wording is fixed, two blanks after "session," included.
inline constexpr wchar_t kNoLoaderBefore[] = L"Cannot find a loader for ";
inline constexpr wchar_t kNoLoaderAfter[] =
    L" with the requested settings! If the required loader is already registered with this Pellux "
    L"session,  check the 'Force Graphical Mode' and 'Force ProductStructure Mode' settings under "
    L"the Preferences dialog, or using the WEND.getForceGraphicalMode() and "
    L"WEND.getForceProductStructureMode() commands.";

inline constexpr wchar_t kCouldNotSave[] = L"Could not save ";
inline constexpr wchar_t kSaverError[] = L" : ";
inline constexpr wchar_t kSaverFor[] = L". Saver for ";
inline constexpr wchar_t kNotRegistered[] = L" not registered.";

inline constexpr wchar_t kBetweenContentIds[] = L" and ";

} // namespace OrvikCore

#endif
