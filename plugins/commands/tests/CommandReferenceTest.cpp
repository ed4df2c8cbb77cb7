#include "../Commands.h"

#include <TambCommandsInfra/CommandTable.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

namespace {

TEST(CommandReference, TheDocumentShowsTheTable)
{
    TambCommandsInfra::CommandTable table;
    OrvikCommands::RegisterAllCommands(table);
    const std::string reference = table.MarkdownReference();
    if (std::getenv("ORVIK_UPDATE_GOLDEN") != nullptr)
        std::ofstream(ORVIK_COMMAND_REFERENCE) << reference;

    std::stringstream document;
    document << std::ifstream(ORVIK_COMMAND_REFERENCE).rdbuf();

    EXPECT_EQ(document.str(), reference) << "set ORVIK_UPDATE_GOLDEN=1 to write it anew";
}

TEST(CommandReference, EveryExampleBeginsWithItsCommand)
{
    TambCommandsInfra::CommandTable table;
    OrvikCommands::RegisterAllCommands(table);

    for (const std::string& name : table.Names())
        EXPECT_NE(table.Find(name)->example.find("(" + name), std::string::npos) << name;
}

} // namespace
