#ifndef ORVIKCAD_INTERFACE_CADTEXTS_H
#define ORVIKCAD_INTERFACE_CADTEXTS_H

namespace OrvikCad {

// The reasons that reading and writing give, after file and place; %1 and %2 are filled in.

inline constexpr wchar_t kCannotOpen[] = L"the file cannot be opened: %1";
inline constexpr wchar_t kEmptyFile[] = L"the file is empty";
inline constexpr wchar_t kCancelled[] = L"reading was cancelled";
inline constexpr wchar_t kOutOfMemory[] = L"not enough memory to read the file";
inline constexpr wchar_t kKernelFailure[] = L"the geometry kernel failed while %1: %2";
inline constexpr wchar_t kNoShape[] = L"the file holds no shape that can be shown";
inline constexpr wchar_t kNothingTransferred[] =
    L"none of the file's %1 entities could be turned into a shape";

inline constexpr wchar_t kWhileReading[] = L"reading";
inline constexpr wchar_t kWhileTransferring[] = L"making shapes of the file's entities";
inline constexpr wchar_t kWhileBuilding[] = L"collecting the model's structure";
inline constexpr wchar_t kWhileReadingPmi[] = L"reading annotations";
inline constexpr wchar_t kWhileReadingViews[] = L"reading saved views";
inline constexpr wchar_t kWhileValidating[] = L"comparing validation properties";
inline constexpr wchar_t kWhileWriting[] = L"writing";

inline constexpr wchar_t kNotStep[] = L"this is no STEP file: it does not begin with ISO-10303-21";
inline constexpr wchar_t kStepScope[] = L"entities that hold others (\"&SCOPE\") are not read";
inline constexpr wchar_t kStepNesting[] = L"brackets are nested more than %1 deep";
inline constexpr wchar_t kStepTwice[] = L"the entity #%1 is defined a second time";
inline constexpr wchar_t kStepNumber[] = L"an entity has a number beyond %1";
inline constexpr wchar_t kStepTruncated[] =
    L"the file ends before \"END-ISO-10303-21;\"; what came before was read";
inline constexpr wchar_t kStepSyntax[] = L"the file's syntax is wrong: %1";
inline constexpr wchar_t kStepNoData[] = L"the file has no data section";
inline constexpr wchar_t kMissingExternal[] =
    L"the file refers to \"%1\", which cannot be read; it was left out";

inline constexpr wchar_t kNotIges[] = L"this is no IGES file";
inline constexpr wchar_t kIgesUnreadable[] = L"the file's sections could not be read";

inline constexpr wchar_t kNotBrep[] = L"this is no BREP file";
inline constexpr wchar_t kBinaryBrep[] =
    L"this is a binary BREP file, of which only the text form is read";
inline constexpr wchar_t kBrepUnexpected[] =
    L"the file ends or goes on otherwise than its counts announce";
inline constexpr wchar_t kBrepBroken[] = L"the shape could not be read to its end";

inline constexpr wchar_t kShapeFailed[] = L"the shape \"%1\" could not be cut into triangles: %2";
inline constexpr wchar_t kFacesFailed[] =
    L"the shape \"%1\": faces that could not be cut into triangles, left out: %2";
inline constexpr wchar_t kTooManyNodes[] =
    L"the assembly holds more than %1 instances; the others were left out";
inline constexpr wchar_t kTooDeep[] =
    L"the assembly is nested more than %1 deep; what lies deeper was left out";

inline constexpr wchar_t kBadPlace[] =
    L"the place of \"%1\" is not made of numbers that place anything and was left out";

inline constexpr wchar_t kCannotWrite[] = L"the file cannot be written: %1";
inline constexpr wchar_t kNotWritable[] =
    L"the model has no exact shapes of the geometry kernel, so it cannot be written in this format";
inline constexpr wchar_t kNothingWritten[] =
    L"the geometry kernel could not turn the model into %1";
inline constexpr wchar_t kWritingCancelled[] = L"writing was cancelled";
inline constexpr wchar_t kNoMemoryToWrite[] = L"not enough memory to write the file";
inline constexpr wchar_t kAnnotationsNotWritten[] = L"annotations that were not written: %1";
inline constexpr wchar_t kIgesNames[] =
    L"names with characters that IGES does not have, written with \"_\" for each: %1";
inline constexpr wchar_t kPointsNotWritten[] =
    L"loose points of bodies with edges that were not written: %1";
inline constexpr wchar_t kViewsNotWritten[] = L"saved views that were not written: %1";

} // namespace OrvikCad

#endif
