#ifndef ORVIKCORE_APPLICATION_SESSIONTEXTS_H
#define ORVIKCORE_APPLICATION_SESSIONTEXTS_H

namespace OrvikCore {

// The wording is fixed, spelling included.
inline constexpr char kNullSessionFactory[] = "null ASessionFactory!";
inline constexpr char kNullApplication[] = "null IApplication!";
inline constexpr char kUnknownOrigin[] = "RenderId has Unknown origin";
inline constexpr char kNotConvertedInHighlight[] =
    "Could not convert EntityId to RenderId in ASession::Highlight";
inline constexpr wchar_t kNotConvertedInSelect[] =
    L"Could not convert EntityId to RenderId in ASession::Select";
inline constexpr char kCouldNotConvert[] = "Could not convert ";
inline constexpr char kToTreeId[] = " to RenderId in ASession::convertToViewTreeId";
inline constexpr char kToView3DId[] = " to RenderId in ASession::convertToView3DId";

inline constexpr wchar_t kHideNode[] = L"&Hide node";
inline constexpr wchar_t kUnhideNode[] = L"&Unhide node";

} // namespace OrvikCore

#endif
