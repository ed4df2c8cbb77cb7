#include "ModelFixture.h"

#include <OrvikCore/AContentSaver.h>
#include <OrvikCore/SessionMgr.h>

#include <algorithm>

namespace {

/// Saves contents as "SAV" files: remembers what it was asked, fails where a test wants it.
class FakeSaver : public OrvikCore::AContentSaver
{
public:
    FakeSaver() { validExtensions = {{L"SAV", L"Saved"}}; }

    bool save(const std::wstring& fileName, OrvikCore::AContent* content) override
    {
        m_saved.push_back(content->GetShortId() + L" to " + fileName);
        if (!m_warning.empty())
            addWarningMessage(m_warning);
        if (!m_error.empty())
            setErrorMessage(m_error);
        return m_error.empty();
    }
    bool canSave(OrvikCore::AContent* content, const std::wstring&) override
    {
        return content != m_refused;
    }

    std::vector<std::wstring> m_saved;
    std::wstring m_warning;
    std::wstring m_error;
    OrvikCore::AContent* m_refused = nullptr; ///< Not owned.
};

class DocumentFileCommands : public ModelFixture
{
protected:
    DocumentFileCommands() { OrvikCore::SessionMgr::Instance().RegisterContentSaver(&m_saver); }

    FakeSaver& m_saver = *new FakeSaver; ///< Owned by the session manager.
};

using Texts = std::vector<std::wstring>;

TEST_F(DocumentFileCommands, TheFirstContentThatCanBeSavedIs)
{
    m_saver.m_refused = &m_bolts;

    EXPECT_EQ(run("doc:save", {L"/tmp/a.sav"}), Value(true));

    EXPECT_EQ(m_saver.m_saved, Texts{L"plate.stl to /tmp/a.sav"});
}

TEST_F(DocumentFileCommands, ANameChoosesTheContent)
{
    run("doc:save", {L"/tmp/a.sav", L"plate.stl"});

    EXPECT_EQ(m_saver.m_saved, Texts{L"plate.stl to /tmp/a.sav"});
}

TEST_F(DocumentFileCommands, ANameThatNothingHasIsRefused)
{
    EXPECT_EQ(errorOf("doc:save", {L"/tmp/a.sav", L"nut"}),
              "doc:save: parameter \"name\": expected a name that one loaded file alone has "
              "(bolts.step, plate.stl), got the string \"nut\".");
    EXPECT_TRUE(m_saver.m_saved.empty());
}

TEST_F(DocumentFileCommands, ANameThatTwoHaveIsRefused)
{
    m_plates.m_shortId = L"bolts.step";

    EXPECT_EQ(errorOf("doc:save", {L"/tmp/a.sav", L"bolts.step"}),
              "doc:save: parameter \"name\": expected a name that one loaded file alone has "
              "(bolts.step, bolts.step), got the string \"bolts.step\".");
}

TEST_F(DocumentFileCommands, ASaversErrorIsTheCommands)
{
    m_saver.m_error = L"the disk is full";

    EXPECT_EQ(errorOf("doc:save", {L"/tmp/a.sav"}), "Could not save /tmp/a.sav : the disk is full");
    EXPECT_EQ(errorOf("doc:save", {L"/tmp/a.sav", L"plate.stl"}),
              "Could not save /tmp/a.sav : the disk is full");
}

TEST_F(DocumentFileCommands, WithoutSaverTheFormatIsNamed)
{
    EXPECT_EQ(errorOf("doc:save", {L"/tmp/a.xyz"}),
              "Could not save /tmp/a.xyz. Saver for /tmp/a.xyz not registered.");
    EXPECT_EQ(errorOf("doc:save", {L"/tmp/a.xyz", L"plate.stl"}),
              "Could not save /tmp/a.xyz. Saver for /tmp/a.xyz not registered.");
}

TEST_F(DocumentFileCommands, WarningsArePrinted)
{
    m_saver.m_warning = L"colours are lost";

    run("doc:save", {L"/tmp/a.sav", L"plate.stl"});

    EXPECT_EQ(m_output.Messages(),
              (std::vector<RecordingOutputListener::Message>{{L"colours are lost", 1}}));
}

TEST_F(DocumentFileCommands, WithNothingLoadedThereIsNothingToSave)
{
    run("doc:clear");

    EXPECT_EQ(errorOf("doc:save", {L"/tmp/a.sav"}),
              "/tmp/a.sav: there is nothing to save, as nothing is loaded");
}

TEST_F(DocumentFileCommands, ARelativePathIsMeantInTheOutputDirectory)
{
    run("app:set-default-output-directory!", {L"/out"});

    run("doc:save", {L"a.sav"});

    EXPECT_EQ(m_saver.m_saved, Texts{L"bolts.step to /out/a.sav"});
}

TEST_F(DocumentFileCommands, StatesReachEveryContentAndTheSession)
{
    run("doc:note-state");
    run("doc:undo");
    run("doc:redo");

    EXPECT_EQ(m_log, (CallLog{"model.NoteState", "model.NoteState", "model.Undo", "model.Undo",
                              "model.Redo", "model.Redo"}));
    EXPECT_EQ(std::count(m_session.m_calls.begin(), m_session.m_calls.end(), "UpdateAfterUndoRedo"),
              2);
}

class DocumentTree : public ModelFixture
{
};

TEST_F(DocumentTree, ListsFilesNodesAndBodies)
{
    const Value tree = run("doc:tree");

    const Value bolt1 = List{L"assembly-reference", L"bolt 1", entity(m_firstReference),
                             List{List{L"body", L"bolt", entity(m_firstBody), List{}}}};
    const Value bolt2 = List{L"assembly-reference", L"bolt 2", entity(m_secondReference),
                             List{List{L"body", L"bolt", entity(m_secondBody), List{}}}};
    EXPECT_EQ(
        tree,
        Value(List{List{L"container", L"bolts.step", entity(m_file),
                        List{List{L"assembly", L"pair", entity(m_assembly), List{bolt1, bolt2}}}},
                   List{L"container", L"plate.stl", false,
                        List{List{L"mesh", L"plate", entity(m_plate), List{}}}}}));
}

TEST_F(DocumentTree, ListsPartsWhenAskedTo)
{
    const Value tree = run("doc:tree", {true});

    const Value& assembly = tree.AsList()[0].AsList()[3].AsList()[0];
    const Value& body = assembly.AsList()[3].AsList()[0].AsList()[3].AsList()[0];
    EXPECT_EQ(body.AsList()[3].AsList().size(), 4u);
    EXPECT_EQ(body.AsList()[3].AsList()[0], Value(List({L"face", L"", entity(m_face), List{}})));
}

TEST_F(DocumentTree, ListsTheCurvesOfAnnotationsOnlyWhenAskedTo)
{
    const EntityId note = node(9, EntityType::Annotation);
    m_bolts.Add(m_firstReference, note, L"note");
    m_bolts.Add(note, part(note, PartKind::Edge, 0), L"");
    m_bolts.m_childrenAsked.clear();

    const Value tree = run("doc:tree");

    const Value& assembly = tree.AsList()[0].AsList()[3].AsList()[0];
    const Value& row = assembly.AsList()[3].AsList()[0].AsList()[3].AsList()[1];
    EXPECT_EQ(row, Value(List({L"annotation", L"note", entity(note), List{}})));
    EXPECT_EQ(std::count(m_bolts.m_childrenAsked.begin(), m_bolts.m_childrenAsked.end(), note), 0);
}

TEST_F(DocumentTree, IsEmptyWhenNothingIsLoaded)
{
    run("doc:clear");

    EXPECT_EQ(run("doc:tree"), Value(List{}));
}

} // namespace
