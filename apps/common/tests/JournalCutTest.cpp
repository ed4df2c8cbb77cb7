#include "../JournalText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

using Pellux::JournalContents;
using Pellux::JournalEntry;
using Pellux::ParseJournal;
using Pellux::PickLine;
using Pellux::PlacedForm;

/// Splits where parentheses close; what is not closed is the last form.
bool splitForms(const std::wstring& text, std::vector<PlacedForm>& forms, std::wstring& errorText)
{
    int line = 1;
    int depth = 0;
    bool isComment = false;
    PlacedForm form;
    for (const wchar_t c : text) {
        isComment = depth == 0 && c != L'\n' && (isComment || c == L';');
        if (depth == 0 && c == L'(' && !isComment)
            form = {L"", line, 1};
        depth += isComment ? 0 : c == L'(' ? 1 : c == L')' ? -1 : 0;
        form.text += c;
        if (depth == 0 && c == L')' && !isComment)
            forms.push_back(form);
        line += c == L'\n' ? 1 : 0;
    }
    if (depth != 0) {
        errorText = L"line " + std::to_wstring(form.line) + L": does not match";
        forms.push_back(form);
    }
    return depth == 0;
}

std::wstring head()
{
    return Pellux::JournalHead({640, 480, true, L"/a folder"}, L"program", L"today");
}

std::wstring pickOf(double x)
{
    Pellux::PickNote note;
    note.isFound = note.hasBox = true;
    note.entity = TambVizCore::EntityId(7, 2, TambVizCore::EntityType::Mesh);
    std::fill(note.box, note.box + 6, x);
    return PickLine(note) + L"\n";
}

/// A journal in which every kind of line occurs.
std::wstring wholeJournal()
{
    return head() + L"(one)\n" + pickOf(10.25) + L";= pick nothing\n(begin\n  (two)\n  (three))\n" +
           Pellux::InputLine() + L"\n(four \u2603)\n" + pickOf(123.0) + Pellux::FailureLine() +
           L"\n(five)\n";
}

JournalContents parse(const std::wstring& text)
{
    JournalContents contents;
    std::wstring errorText;
    EXPECT_TRUE(ParseJournal(text, splitForms, contents, errorText))
        << std::string(errorText.begin(), errorText.end());
    return contents;
}

/// Whether an entry has picks of another one, from the first on.
bool beginsLike(const JournalEntry& some, const JournalEntry& all)
{
    if (some.picks.size() > all.picks.size())
        return false;
    for (std::size_t i = 0; i < some.picks.size(); ++i)
        if (PickLine(some.picks[i]) != PickLine(all.picks[i]))
            return false;
    return some.form == all.form;
}

TEST(JournalCut, AWholeJournalIsNotCut)
{
    const JournalContents contents = parse(wholeJournal());

    EXPECT_EQ(contents.cutLine, 0);
    ASSERT_EQ(contents.entries.size(), 4u);
    EXPECT_EQ(contents.entries[0].picks.size(), 2u);
    EXPECT_TRUE(contents.entries[1].hasInputBelow);
    EXPECT_FALSE(contents.entries[1].hasFailed);
    EXPECT_TRUE(contents.entries[2].hasFailed);
    EXPECT_FALSE(contents.entries[2].hasInputBelow);
}

TEST(JournalCut, EveryBeginningIsReadUpToItsLastWholeLine)
{
    const std::wstring whole = wholeJournal();
    const std::vector<JournalEntry> all = parse(whole).entries;
    for (std::size_t size = head().size(); size < whole.size(); ++size) {
        SCOPED_TRACE(size);
        const std::wstring text = whole.substr(0, size);
        const JournalContents contents = parse(text);
        ASSERT_LE(contents.entries.size(), all.size());
        for (std::size_t i = 0; i < contents.entries.size(); ++i)
            EXPECT_TRUE(beginsLike(contents.entries[i], all[i])) << i;
        for (std::size_t i = 0; i + 1 < contents.entries.size(); ++i)
            EXPECT_EQ(contents.entries[i].picks.size(), all[i].picks.size()) << i;
        const auto line = static_cast<int>(std::count(text.begin(), text.end(), L'\n')) + 1;
        EXPECT_TRUE(contents.cutLine == 0 || contents.cutLine == line ||
                    all[1].line == contents.cutLine)
            << contents.cutLine;
    }
}

TEST(JournalCut, WhatIsLeftOutIsNamedWithItsLine)
{
    const JournalContents form = parse(head() + L"(one)\n(two (three");
    EXPECT_EQ(form.cutLine, 6);
    EXPECT_EQ(form.cutReason, L"a command");
    EXPECT_EQ(form.entries.size(), 1u);

    // 123 may have been the beginning of 1234.
    const std::wstring pick = pickOf(123.0);
    const JournalContents mark = parse(head() + L"(one)\n" + pick.substr(0, pick.size() - 1));
    EXPECT_EQ(mark.cutLine, 6);
    EXPECT_EQ(mark.cutReason, L"what stands behind a command");
    EXPECT_TRUE(mark.entries.at(0).picks.empty());
}

TEST(JournalCut, AMarkThatCannotBeToldMayHaveBeenEither)
{
    const JournalContents contents = parse(head() + L"(one)\n;=");

    EXPECT_TRUE(contents.entries.at(0).hasFailed);
    EXPECT_TRUE(contents.entries.at(0).hasInputBelow);
    EXPECT_FALSE(parse(head() + L"(one)\n;= pick").entries.at(0).hasFailed);
}

TEST(JournalCut, AHeadThatIsCutHasNothingToRun)
{
    const std::wstring all = head();

    const JournalContents contents = parse(all.substr(0, all.size() - 3));

    EXPECT_EQ(contents.start.width, 640);
    EXPECT_TRUE(contents.start.folder.empty());
    EXPECT_EQ(contents.cutLine, 4);
}

TEST(JournalCut, AMistakeBeforeTheEndIsRefused)
{
    JournalContents contents;
    std::wstring errorText;
    for (const wchar_t* const text : {L"(one (two\n(three)\n", L"(one\n;= pick nothing\n"}) {
        EXPECT_FALSE(ParseJournal(head() + text, splitForms, contents, errorText));
        EXPECT_EQ(errorText, L"line 5: does not match");
    }
}

} // namespace
