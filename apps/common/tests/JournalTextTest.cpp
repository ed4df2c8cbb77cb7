#include "../JournalText.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using Pellux::AsksOnly;
using Pellux::CameraForm;
using Pellux::FailureLine;
using Pellux::JournalContents;
using Pellux::JournalHead;
using Pellux::ParseJournal;
using Pellux::ParsePickLine;
using Pellux::PickLine;
using Pellux::PickNote;
using Pellux::PlacedForm;
using TambVizCore::EntityId;
using TambVizCore::EntityType;
using TambVizCore::PartKind;

/// Splits at line ends: enough for forms of one line; lines without "(" hold none.
bool splitLines(const std::wstring& text, std::vector<PlacedForm>& forms, std::wstring& errorText)
{
    int line = 1;
    for (std::size_t at = 0; at < text.size(); ++line) {
        const std::size_t end = std::min(text.find(L'\n', at), text.size());
        const std::wstring form = text.substr(at, end - at);
        if (form == L"broken") {
            errorText = L"line " + std::to_wstring(line) + L": broken";
            forms.push_back({text.substr(at), line, 1});
            return false;
        }
        if (form.starts_with(L"("))
            forms.push_back({form, line, 1});
        at = end + 1;
    }
    return true;
}

PickNote faceNote()
{
    PickNote note;
    note.isFound = true;
    note.entity = EntityId(7, 2, EntityType::Mesh);
    note.entity.SetSubEntity(PartKind::Face, 3);
    note.hasBox = true;
    note.hasPoint = true;
    for (int i = 0; i < 6; ++i)
        note.box[i] = 0.1 * i - 1.0 / 3.0;
    for (int i = 0; i < 3; ++i)
        note.point[i] = 1e300 / (i + 3);
    return note;
}

std::wstring head()
{
    return JournalHead({640, 480, true, L"/a folder/of mine"}, L"program", L"today");
}

std::wstring errorOf(const std::wstring& text)
{
    JournalContents contents;
    std::wstring errorText;
    EXPECT_FALSE(ParseJournal(text, splitLines, contents, errorText));
    return errorText;
}

/// Commands named ask:... change nothing.
bool asks(const std::wstring& form)
{
    return AsksOnly(form, [](const std::string& name) { return name.starts_with("ask:"); });
}

TEST(JournalText, ASizeBelongsToTheFormBelowIt)
{
    JournalContents contents;
    std::wstring errorText;

    ASSERT_TRUE(ParseJournal(head() + Pellux::SizeLine(860, 467) + L"\n(one)\n(two)\n;= failed\n" +
                                 Pellux::SizeLine(100, 50) + L"\n(three)\n",
                             splitLines, contents, errorText))
        << errorText.c_str();

    EXPECT_EQ(contents.start.width, 860);
    EXPECT_EQ(contents.start.height, 467);
    ASSERT_EQ(contents.entries.size(), 3u);
    EXPECT_EQ(contents.entries[1].width, 0);
    EXPECT_TRUE(contents.entries[1].hasFailed);
    EXPECT_EQ(contents.entries[2].width, 100);
    EXPECT_EQ(contents.entries[2].height, 50);
    EXPECT_FALSE(contents.entries[2].hasFailed);
}

TEST(JournalText, ASizeThatIsNoneIsNotUnderstood)
{
    for (const wchar_t* const line :
         {L";= size 0 5", L";= size 5", L";= size 5 99999999", L";= size 5 5 5", L";= size x y"}) {
        EXPECT_EQ(errorOf(head() + L"(one)\n" + line + L"\n(two)\n"),
                  L"line 6: this line is not understood");
        EXPECT_EQ(errorOf(head() + line + L"\n(two)\n"), L"line 5: this line is not understood");
    }
}

TEST(JournalText, APickIsReadBackExactly)
{
    const PickNote note = faceNote();

    const auto read = ParsePickLine(PickLine(note));

    ASSERT_TRUE(read);
    EXPECT_TRUE(read->entity == note.entity);
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(read->box[i], note.box[i]);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(read->point[i], note.point[i]);
}

TEST(JournalText, APickOfNothingAndOfAWholeBodyAreReadBack)
{
    PickNote body;
    body.isFound = true;
    body.entity = EntityId(12, 1, EntityType::Body);

    EXPECT_EQ(PickLine(PickNote()), L";= pick nothing");
    EXPECT_FALSE(ParsePickLine(PickLine(PickNote()))->isFound);
    EXPECT_EQ(PickLine(body), L";= pick body 12 in 1");
    EXPECT_TRUE(ParsePickLine(PickLine(body))->entity == body.entity);
}

TEST(JournalText, PicksThatWereNotWrittenSoAreRefused)
{
    for (const wchar_t* const line :
         {L"", L";=", L";= pick", L";= pick nothing more", L";= pick face", L";= pick face 3",
          L";= pick face -1 of mesh 1 in 1", L";= pick face 3 of mesh 1", L";= pick soup 1 in 1",
          L";= pick mesh 1 in 1 box 1 2 3", L";= pick mesh 1 in 1 at 1 2 nan",
          L";= pick mesh 1 in 1 at 1 2 inf", L";= pick mesh 1 in 1 at 1 2 3 4",
          L";= pick face 99999999999 of mesh 1 in 1", L";= pick mesh 1 in -1"})
        EXPECT_FALSE(ParsePickLine(line)) << std::string(line, line + wcslen(line));
}

TEST(JournalText, AJournalIsReadBack)
{
    JournalContents contents;
    std::wstring errorText;
    const std::wstring text = head() + L"(one)\n" + PickLine(faceNote()) + L"\n;= pick nothing\n" +
                              L"(two)\n" + FailureLine() + L"\n(three)\n";

    ASSERT_TRUE(ParseJournal(text, splitLines, contents, errorText));

    EXPECT_EQ(contents.start.width, 640);
    EXPECT_EQ(contents.start.height, 480);
    EXPECT_TRUE(contents.start.isZUp);
    EXPECT_EQ(contents.start.folder, L"/a folder/of mine");
    ASSERT_EQ(contents.entries.size(), 3u);
    EXPECT_EQ(contents.entries[0].form, L"(one)");
    EXPECT_EQ(contents.entries[0].line, 5);
    EXPECT_EQ(contents.entries[0].picks.size(), 2u);
    EXPECT_TRUE(contents.entries[1].hasFailed);
    EXPECT_FALSE(contents.entries[2].hasFailed);
}

TEST(JournalText, WhatIsNoJournalIsRefusedWithItsLine)
{
    EXPECT_EQ(errorOf(L""), L"line 1: this is no journal: it does not begin with \";; Pellux "
                            L"journal 1\"");
    EXPECT_EQ(errorOf(L";; Pellux journal 2\n"),
              L"line 1: this journal is of another version of the program");
    EXPECT_EQ(errorOf(L";; Pellux journal 1\n;= start size 0 1 up y\n"),
              L"line 2: this line is not understood");
    EXPECT_EQ(errorOf(L";; Pellux journal 1\n;= start size 99999 1 up y\n"),
              L"line 2: this line is not understood");
    EXPECT_EQ(errorOf(head() + L"(one)\n;= pick nonsense\n"),
              L"line 6: this line is not understood");
    EXPECT_EQ(errorOf(head() + L"(one)\nbroken\n"), L"line 6: broken");
}

TEST(JournalText, AFolderWithALineEndIsLeftOut)
{
    EXPECT_EQ(JournalHead({1, 1, false, L"/a\n(evil)"}, L"p", L"t").find(L"evil"),
              std::wstring::npos);
}

TEST(JournalText, FormsThatOnlyAskAreKnown)
{
    EXPECT_TRUE(asks(L"(ask:size)"));
    EXPECT_TRUE(asks(L"(ask:this (ask:that 1 2.5 \"(change)\") #t 'word '(a (b) \")\" c))"));
    EXPECT_TRUE(asks(L"(ask:size) ; (change)"));
    EXPECT_TRUE(asks(L"name"));
}

TEST(JournalText, FormsThatMayChangeSomethingAreKept)
{
    for (const wchar_t* const form :
         {L"(change)", L"(define x (ask:size))", L"(ask:this (change))", L"(ask:this \"\\\"\" (c))",
          L"(ask:this '(a) (change))", L"(ask:this `(a ,(change)))", L"(ask:this #\\( (change))",
          L"(ask:this #| ( |# (change))", L"((ask:this))"})
        EXPECT_FALSE(asks(form)) << std::string(form, form + wcslen(form));
}

TEST(JournalText, APlainCallIsOneCallOfThatCommandWithPlainValues)
{
    using Pellux::IsPlainCall;

    EXPECT_TRUE(IsPlainCall(L"(sel:box 1 2 3 4)", "sel:box"));
    EXPECT_TRUE(IsPlainCall(L"(sel:box 1 2 3 4 'touching #t) ; (why)", "sel:box"));
    for (const wchar_t* const form :
         {L"(sel:boxes 1)", L"(define a (sel:box 1 2 3 4))", L"(sel:box (car '(1)) 2 3 4)",
          L"(begin (sel:box 1 2 3 4))", L"x", L"", L"(sel:box `(1))"})
        EXPECT_FALSE(IsPlainCall(form, "sel:box")) << std::string(form, form + wcslen(form));
}

TEST(JournalText, ACameraIsWrittenExactly)
{
    const float eye[3] = {0.1f, -2.0f, 1e-7f};
    const float target[3] = {0.0f, 0.0f, 0.0f};
    const float up[3] = {0.0f, 1.0f, 0.0f};

    EXPECT_EQ(CameraForm(eye, target, up),
              L"(view:set-camera! '(0.10000000149011612 -2 1.0000000116860974e-07) '(0 0 0) '(0 1 "
              L"0))");
}

} // namespace
