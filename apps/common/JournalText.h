#ifndef APPSCOMMON_JOURNALTEXT_H
#define APPSCOMMON_JOURNALTEXT_H

#include <TambVizCore/EntityId.h>

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Pellux {

/// What a pick found, and where that is.
struct PickNote
{
    bool isFound = false;
    TambVizCore::EntityId entity; ///< Empty when nothing was found.
    bool hasBox = false;
    double box[6] = {}; ///< xMin, yMin, zMin, xMax, yMax, zMax of the entity, world units.
    bool hasPoint = false;
    double point[3] = {}; ///< Where the ray meets the entity, world units; faces only.
};

/// How a run began, as far as a replay must repeat it.
struct JournalStart
{
    int width = 0;  ///< Of the view, pixels.
    int height = 0; ///< Of the view, pixels.
    bool isZUp = false;
    std::wstring folder; ///< The current one, absolute; empty when there was none.
};

/// One form of a journal with what followed it.
struct JournalEntry
{
    std::wstring form;
    int line = 1;   ///< From 1.
    int column = 1; ///< From 1.
    bool hasFailed = false;
    /// What the events that it asked for have done stands in the forms below.
    bool hasInputBelow = false;
    std::vector<PickNote> picks; ///< In the order in which the form made them.
    int width = 0;               ///< Of the view, pixels; 0 where it is that of the form before.
    int height = 0;
};

/// A form of a text and its place.
struct PlacedForm
{
    std::wstring text;
    int line = 1;
    int column = 1;
};

/// Cuts a text into forms; see AScriptEngine::SplitForms.
using SplitForms = std::function<bool(const std::wstring& text, std::vector<PlacedForm>& forms,
                                      std::wstring& errorText)>;

/// A whole journal, read back.
struct JournalContents
{
    JournalStart start;
    std::vector<JournalEntry> entries;
    /// The line where what was left out at the end begins, because a run ended while it was
    /// written; 0 for a whole journal.
    int cutLine = 0;
    std::wstring cutReason; ///< What is not whole there.
};

/// Names an entity as scripts show it: "face 3 of mesh 1", "body 7".
std::wstring DescribeEntity(const TambVizCore::EntityId& entity);

/// Names an entity for good: "face 3 of mesh 1 in 2", the last number being its content's.
std::wstring EntityWords(const TambVizCore::EntityId& entity);

/// Writes the first lines of a journal.
///
/// @param program  Name and version of the program.
/// @param when     Date and time, for people.
std::wstring JournalHead(const JournalStart& start, const std::wstring& program,
                         const std::wstring& when);

/// Writes the line that follows a form which made a pick; numbers with 17 digits.
std::wstring PickLine(const PickNote& note);

/// The line before a form that found the view in another size than the one before.
std::wstring SizeLine(int width, int height);

/// The line that follows a form which failed.
std::wstring FailureLine();

/// The line that follows a form whose events have written their own forms below.
std::wstring InputLine();

/// Reads what PickLine() wrote.
/// @return nothing for a line that is not of its form.
std::optional<PickNote> ParsePickLine(const std::wstring& line);

/// Reads the first lines of a journal alone.
///
/// @param errorText  Receives "line <n>: <reason>" on false.
bool ParseJournalHead(const std::wstring& text, JournalStart& start, std::wstring& errorText);

/// Reads a journal. What stands behind the last form or line that is whole is left out, as long as
/// nothing but its rest comes after: a run may have ended in the middle of it.
///
/// @param split      For a text that is cut short its last form is the rest of the text.
/// @param errorText  Receives "line <n>: <reason>" on false.
bool ParseJournal(const std::wstring& text, const SplitForms& split, JournalContents& contents,
                  std::wstring& errorText);

/// Tells whether a form consists of calls that only ask, with plain values as arguments.
///
/// @param onlyAsks  Tells of a name whether it is a command that changes nothing.
/// @return false in doubt, as for a definition or a call of anything else.
bool AsksOnly(const std::wstring& form, const std::function<bool(const std::string&)>& onlyAsks);

/// Tells whether a form is nothing but one call of a command, with plain values as arguments.
bool IsPlainCall(const std::wstring& form, const std::string& name);

/// Writes the form that moves the camera; numbers with 17 digits.
/// @param eye, target, up  float[3] each.
std::wstring CameraForm(const float* eye, const float* target, const float* up);

/// Writes the form that does what an item of a tree row's context menu does.
///
/// @param item  Its text; "&" may be left out.
/// @return the empty text for an item that no form stands for.
std::wstring MenuForm(const std::wstring& item, const TambVizCore::EntityId& entity);

/// Writes numbers with a blank before each.
std::wstring ExactNumbers(const double* numbers, int count);

} // namespace Pellux

#endif
