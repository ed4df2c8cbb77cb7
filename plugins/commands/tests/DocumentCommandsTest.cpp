#include "CommandFixture.h"

#include <OrvikCore/Document.h>
#include <TambCommandsInfra/ICommandObject.h>

namespace {

class DocumentCommands : public CommandFixture
{
};

TEST_F(DocumentCommands, AnEmptyDocumentHasNoBox)
{
    EXPECT_EQ(run("doc:bounding-box"), Value(false));
}

TEST_F(DocumentCommands, AFileThatNoLoaderTakesIsAnError)
{
    EXPECT_NE(errorOf("doc:load", {L"/absent/model.unknown"}), "no error");
}

TEST_F(DocumentCommands, APathIsAText)
{
    EXPECT_EQ(errorOf("doc:load", {1}),
              "doc:load: parameter \"path\": expected a path, got the integer 1.");
    EXPECT_EQ(errorOf("doc:import"), "doc:import: expected 1 argument, got 0. Missing: \"path\" "
                                     "(path).");
}

TEST_F(DocumentCommands, ANegativeRadiusIsRefused)
{
    EXPECT_EQ(errorOf("app:pick-face", {0, 0, 9, 0, 0, -1, -1}),
              "app:pick-face: parameter \"radius\": expected a number of at least 0 in mm, got the "
              "integer -1.");
}

TEST_F(DocumentCommands, WhatIsNoEntityHasNoType)
{
    EXPECT_EQ(errorOf("entity:type", {L"face"}), "entity:type: parameter \"entity\": expected an "
                                                 "entity, got the string \"face\".");
}

TEST_F(DocumentCommands, PrintJoinsValuesInTheirShortestForm)
{
    run("app:print", {L"size: ", 3, L" ", 0.1, L" ", true, L" ", List{1, L"x"}});

    EXPECT_EQ(m_output.Messages(),
              (std::vector<RecordingOutputListener::Message>{{L"size: 3 0.1 #t (1 x)", 0}}));
}

TEST_F(DocumentCommands, WarningsAndErrorsHaveTheirKinds)
{
    run("app:warn", {L"careful"});
    run("app:error", {L"wrong"});

    EXPECT_EQ(m_output.Messages(),
              (std::vector<RecordingOutputListener::Message>{{L"careful", 1}, {L"wrong", 2}}));
}

} // namespace
