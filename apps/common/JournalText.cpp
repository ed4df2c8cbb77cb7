#include "JournalText.h"

#include "JournalCut.h"
#include "JournalWords.h"

#include <TambVizCore/Utils.h>

#include <algorithm>
#include <cmath>
#include <sstream>
#include <utility>

namespace Pellux {
namespace {

using TambVizCore::EntityId;
using TambVizCore::EntityType;
using TambVizCore::PartKind;
using TambVizCore::Utils;

constexpr wchar_t kFirstLine[] = L";; Pellux journal 1";
constexpr wchar_t kFirstLineStart[] = L";; Pellux journal ";
constexpr wchar_t kMark[] = L";= ";
constexpr wchar_t kFolderMark[] = L";= folder ";
constexpr wchar_t kSizeMark[] = L";= size ";
constexpr long long kMaxSide = 16384;

constexpr EntityType kTypes[] = {
    EntityType::Assembly,
    EntityType::AssemblyReference,
    EntityType::Body,
    EntityType::Mesh,
    EntityType::AnnotationSet,
    EntityType::PointCloud,
    EntityType::NonGraphical,
    EntityType::Wire,
    EntityType::PointSet,
    EntityType::View,
    EntityType::Annotation,
    EntityType::Capture,
    EntityType::PmiDimension,
    EntityType::PmiGeometricTolerance,
    EntityType::PmiDatum,
    EntityType::PmiNote,
    EntityType::PmiSurfaceFinish,
    EntityType::Container,
};

const char* partWord(const EntityId& entity)
{
    if (entity.IsFace())
        return "face";
    if (entity.IsEdge())
        return "edge";
    return entity.IsVertex() ? "vertex" : "";
}

bool readPartKind(const std::string& word, PartKind& kind)
{
    if (word == "face")
        kind = PartKind::Face;
    else if (word == "edge")
        kind = PartKind::Edge;
    else if (word == "vertex")
        kind = PartKind::Vertex;
    else
        return false;
    return true;
}

/// Reads "face 3 of mesh 1 in 2".
bool readEntity(JournalWords& words, EntityId& entity)
{
    PartKind kind = PartKind::None;
    long long index = -1;
    std::string word = words.Next();
    if (readPartKind(word, kind)) {
        if (!words.NextInteger(index) || index < 0 || index > INT32_MAX || words.Next() != "of")
            return false;
        word = words.Next();
    }
    const auto type = std::find_if(std::begin(kTypes), std::end(kTypes), [&word](EntityType t) {
        return word == TambVizCore::EntityTypeName(t);
    });
    long long value = 0;
    long long owner = 0;
    if (type == std::end(kTypes) || !words.NextInteger(value) || value < 0 ||
        words.Next() != "in" || !words.NextInteger(owner) || owner < 0)
        return false;
    entity = EntityId(static_cast<std::uint64_t>(value), static_cast<std::uint64_t>(owner), *type);
    entity.SetSubEntity(kind, static_cast<std::int32_t>(index));
    return true;
}

bool readSize(JournalWords& words, int& width, int& height)
{
    long long sides[2] = {};
    if (!words.NextInteger(sides[0]) || !words.NextInteger(sides[1]) ||
        std::min(sides[0], sides[1]) < 1 || std::max(sides[0], sides[1]) > kMaxSide)
        return false;
    width = static_cast<int>(sides[0]);
    height = static_cast<int>(sides[1]);
    return true;
}

bool readSizeMark(const std::wstring& line, int& width, int& height)
{
    if (!line.starts_with(kSizeMark))
        return false;
    JournalWords words(line.substr(std::size(kSizeMark) - 1));
    return readSize(words, width, height) && words.IsAtEnd();
}

bool readStart(JournalWords& words, JournalStart& start)
{
    if (words.Next() != "size" || !readSize(words, start.width, start.height) ||
        words.Next() != "up")
        return false;
    const std::string up = words.Next();
    start.isZUp = up == "z";
    return (up == "y" || up == "z") && words.IsAtEnd();
}

std::wstring place(std::size_t line, const std::wstring& reason)
{
    return L"line " + std::to_wstring(line) + L": " + reason;
}

std::vector<std::wstring> linesOf(const std::wstring& text)
{
    std::vector<std::wstring> lines(1);
    for (const wchar_t c : text)
        if (c == L'\n')
            lines.emplace_back();
        else
            lines.back() += c;
    for (std::wstring& line : lines)
        if (!line.empty() && line.back() == L'\r')
            line.pop_back();
    return lines;
}

/// Takes a line behind a form; what it says of the form to come goes to @p next.
bool readMark(const std::wstring& line, JournalEntry& entry, JournalEntry& next)
{
    if (readSizeMark(line, next.width, next.height))
        return true;
    if (line == FailureLine() || line == InputLine()) {
        entry.hasFailed |= line == FailureLine();
        entry.hasInputBelow |= line == InputLine();
        return true;
    }
    const std::optional<PickNote> note = ParsePickLine(line);
    if (note)
        entry.picks.push_back(*note);
    return note.has_value();
}

bool isMark(const std::wstring& line)
{
    return line.starts_with(L";=");
}

bool readHead(const std::vector<std::wstring>& lines, JournalStart& start, std::wstring& errorText)
{
    if (!lines.front().starts_with(kFirstLineStart)) {
        errorText = place(1, L"this is no journal: it does not begin with \"" +
                                 std::wstring(kFirstLine) + L"\"");
        return false;
    }
    if (lines.front() != kFirstLine) {
        errorText = place(1, L"this journal is of another version of the program");
        return false;
    }
    bool isStartRead = false;
    for (std::size_t i = 1; i < lines.size() && (lines[i].empty() || lines[i][0] == L';'); ++i) {
        if (!isMark(lines[i]))
            continue;
        if (lines[i].starts_with(kFolderMark)) {
            start.folder = lines[i].substr(std::size(kFolderMark) - 1);
            continue;
        }
        if (isStartRead && readSizeMark(lines[i], start.width, start.height))
            continue;
        JournalWords words(lines[i].substr(2));
        if (isStartRead || words.Next() != "start" || !readStart(words, start)) {
            errorText = place(i + 1, L"this line is not understood");
            return false;
        }
        isStartRead = true;
    }
    return true;
}

} // namespace

std::wstring DescribeEntity(const EntityId& entity)
{
    std::string text;
    if (entity.SubEntityIndex() >= 0)
        text =
            std::string(partWord(entity)) + " " + std::to_string(entity.SubEntityIndex()) + " of ";
    text += TambVizCore::EntityTypeName(entity.Type());
    return Utils::StringToWstring(text + " " + std::to_string(entity.Value()));
}

std::wstring EntityWords(const EntityId& entity)
{
    return DescribeEntity(entity) + L" in " + std::to_wstring(entity.Owner());
}

std::wstring ExactNumbers(const double* numbers, int count)
{
    std::string text;
    for (int i = 0; i < count; ++i)
        text += " " + Utils::FormatGeneral(numbers[i]);
    return Utils::StringToWstring(text);
}

std::wstring JournalHead(const JournalStart& start, const std::wstring& program,
                         const std::wstring& when)
{
    std::wstring text = std::wstring(kFirstLine) + L"\n;; " + program + L", " + when + L"\n" +
                        kMark + L"start size " + std::to_wstring(start.width) + L" " +
                        std::to_wstring(start.height) + L" up " + (start.isZUp ? L"z" : L"y") +
                        L"\n";
    // A name with a line end in it cannot be kept on a line.
    if (!start.folder.empty() && start.folder.find_first_of(L"\r\n") == std::wstring::npos)
        text += kFolderMark + start.folder + L"\n";
    return text;
}

std::wstring PickLine(const PickNote& note)
{
    if (!note.isFound)
        return std::wstring(kMark) + L"pick nothing";
    std::wstring text = std::wstring(kMark) + L"pick " + EntityWords(note.entity);
    if (note.hasBox)
        text += L" box" + ExactNumbers(note.box, 6);
    if (note.hasPoint)
        text += L" at" + ExactNumbers(note.point, 3);
    return text;
}

std::wstring SizeLine(int width, int height)
{
    return kSizeMark + std::to_wstring(width) + L" " + std::to_wstring(height);
}

std::wstring FailureLine()
{
    return std::wstring(kMark) + L"failed";
}

std::optional<PickNote> ParsePickLine(const std::wstring& line)
{
    JournalWords words(line);
    PickNote note;
    if (words.Next() != ";=" || words.Next() != "pick")
        return std::nullopt;
    if (words.Skip("nothing"))
        return words.IsAtEnd() ? std::optional(note) : std::nullopt;
    note.isFound = true;
    if (!readEntity(words, note.entity))
        return std::nullopt;
    note.hasBox = words.Skip("box");
    if (note.hasBox && !words.NextNumbers(note.box, 6))
        return std::nullopt;
    note.hasPoint = words.Skip("at");
    if (note.hasPoint && !words.NextNumbers(note.point, 3))
        return std::nullopt;
    return words.IsAtEnd() ? std::optional(note) : std::nullopt;
}

std::wstring InputLine()
{
    return std::wstring(kMark) + L"input below";
}

bool ParseJournalHead(const std::wstring& text, JournalStart& start, std::wstring& errorText)
{
    std::vector<std::wstring> lines = linesOf(text);
    CutOffMark(lines);
    return readHead(lines, start, errorText);
}

bool ParseJournal(const std::wstring& text, const SplitForms& split, JournalContents& contents,
                  std::wstring& errorText)
{
    std::vector<std::wstring> lines = linesOf(text);
    contents = JournalContents();
    const std::wstring cutMark = CutOffMark(lines);
    if (!readHead(lines, contents.start, errorText))
        return false;
    if (!cutMark.empty()) {
        contents.cutLine = static_cast<int>(lines.size());
        contents.cutReason = L"what stands behind a command";
    }
    std::vector<PlacedForm> forms;
    if (!split(text, forms, errorText)) {
        if (!IsCutShort(forms))
            return false;
        contents.cutLine = forms.back().line;
        contents.cutReason = L"a command";
        forms.pop_back();
        lines.resize(static_cast<std::size_t>(contents.cutLine) - 1);
    }
    JournalEntry next;
    for (std::size_t i = 0; i < forms.size(); ++i) {
        JournalEntry entry = std::exchange(next, JournalEntry());
        entry.form = forms[i].text;
        entry.line = forms[i].line;
        entry.column = forms[i].column;
        const auto first = static_cast<std::size_t>(
            forms[i].line + std::count(forms[i].text.begin(), forms[i].text.end(), L'\n'));
        const std::size_t last =
            i + 1 < forms.size() ? static_cast<std::size_t>(forms[i + 1].line) - 1 : lines.size();
        for (std::size_t line = first; line < last; ++line) {
            if (isMark(lines[line]) && !readMark(lines[line], entry, next)) {
                errorText = place(line + 1, L"this line is not understood");
                return false;
            }
        }
        contents.entries.push_back(std::move(entry));
    }
    if (!cutMark.empty() && !contents.entries.empty()) {
        // It may have been going to say so.
        contents.entries.back().hasFailed |= FailureLine().starts_with(cutMark);
        contents.entries.back().hasInputBelow |= InputLine().starts_with(cutMark);
    }
    return true;
}

std::wstring CameraForm(const float* eye, const float* target, const float* up)
{
    std::wstring text = L"(view:set-camera!";
    for (const float* const vector : {eye, target, up}) {
        const double numbers[3] = {vector[0], vector[1], vector[2]};
        text += L" '(" + ExactNumbers(numbers, 3).substr(1) + L")";
    }
    return text + L")";
}

std::wstring MenuForm(const std::wstring& item, const EntityId& entity)
{
    std::wstring plain = item;
    std::erase(plain, L'&');
    if (plain != L"Hide node" && plain != L"Unhide node")
        return std::wstring();
    return std::wstring(plain == L"Hide node" ? L"(view:hide" : L"(view:show") +
           L" (entity:by-id \"" + EntityWords(entity) + L"\"))";
}

} // namespace Pellux
