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

/// Tells whether a help says what numbers mean that have no unit.
bool isUnitless(const std::string& help)
{
    for (const char* word : {"direction", "normal", "where the ray goes", "red, green and blue"})
        if (help.find(word) != std::string::npos)
            return true;
    return false;
}

TEST(CommandReference, EveryLengthAngleAndPlaceHasAUnit)
{
    TambCommandsInfra::CommandTable table;
    OrvikCommands::RegisterAllCommands(table);
    int checked = 0;

    for (const std::string& name : table.Names())
        for (const TambCommandsInfra::Parameter& parameter : table.Find(name)->parameters) {
            using TambCommandsInfra::ValueType;
            const bool isMeasured = parameter.type == ValueType::Real ||
                                    parameter.type == ValueType::Point ||
                                    parameter.type == ValueType::Vector;
            if (!isMeasured)
                continue;
            ++checked;
            EXPECT_TRUE(!parameter.unit.empty() || isUnitless(parameter.help))
                << name << " " << parameter.name;
        }

    EXPECT_GT(checked, 50);
}

TEST(CommandReference, EveryCommandThatMeasuresSaysInItsLineInWhatUnit)
{
    TambCommandsInfra::CommandTable table;
    OrvikCommands::RegisterAllCommands(table);
    int checked = 0;

    for (const std::string& name : table.Names()) {
        const std::string& summary = table.Find(name)->summary;
        if (!summary.starts_with("Measures ") && name != "view:tessellation" &&
            name != "entity:center" && name != "entity:origin" && name != "sel:by-box")
            continue;
        ++checked;
        EXPECT_TRUE(summary.find("in mm") != std::string::npos ||
                    summary.find("in degrees") != std::string::npos ||
                    summary.find("in pixels") != std::string::npos)
            << name << ": " << summary;
    }

    EXPECT_GE(checked, 14);
}

} // namespace
