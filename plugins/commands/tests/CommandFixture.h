#ifndef PLUGINCOMMANDS_TESTS_COMMANDFIXTURE_H
#define PLUGINCOMMANDS_TESTS_COMMANDFIXTURE_H

#include "../Commands.h"
#include "FakeContent.h"
#include "FakeSession.h"
#include "FakeView3D.h"
#include "RecordingOutputListener.h"

#include <TambCommandsInfra/CommandTable.h>

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

/// All commands over a fake session with a fake view.
class CommandFixture : public testing::Test
{
protected:
    using Value = TambCommandsInfra::Value;
    using List = Value::List;

    CommandFixture()
    {
        OrvikCommands::RegisterAllCommands(m_table);
        m_session.m_fakeView = &m_view;
        m_session.RegisterOutputCb(&m_output);
    }
    ~CommandFixture() override
    {
        m_session.UnRegisterOutputCb(&m_output);
        m_session.m_fakeView = nullptr;
    }

    Value run(const std::string& name, std::vector<Value> arguments = {})
    {
        return m_table.Run(name, std::move(arguments));
    }

    /// @return the text of the error that the call ends with.
    std::string errorOf(const std::string& name, std::vector<Value> arguments = {})
    {
        try {
            run(name, std::move(arguments));
        } catch (const std::exception& error) {
            return error.what();
        }
        return "no error";
    }

    TambCommandsInfra::CommandTable m_table;
    FakeView3D m_view;
    FakeSession& m_session = MakeCurrentFakeSession();
    RecordingOutputListener m_output;
};

#endif
