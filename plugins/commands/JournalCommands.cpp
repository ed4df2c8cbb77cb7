#include "CommandParts.h"
#include "Commands.h"
#include "EntityObject.h"
#include "EntityParts.h"

#include <OrvikCore/IEntityProperties.h>
#include <OrvikOs/FpMasked.h>
#include <TambCommandsInfra/CommandTable.h>
#include <TambCommandsInfra/ICommandJournal.h>
#include <TambVizCore/Utils.h>
#include <TambVizCore/VizBox.h>

#include <cstdint>
#include <limits>
#include <optional>
#include <sstream>
#include <string>

namespace OrvikCommands {
namespace {

using OrvikCore::IEntityProperties;
using TambCommandsInfra::Arguments;
using TambCommandsInfra::Command;
using TambCommandsInfra::CommandTable;
using TambCommandsInfra::Parameter;
using TambCommandsInfra::Presence;
using TambCommandsInfra::Value;
using TambCommandsInfra::ValueType;
using TambVizCore::EntityId;
using TambVizCore::EntityType;
using TambVizCore::PartKind;
using TambVizCore::Utils;

Value journal(const Arguments& arguments)
{
    const TambCommandsInfra::ICommandJournal* const current =
        TambCommandsInfra::GetCommandJournal();
    const std::wstring path = current == nullptr ? std::wstring() : current->GetPath();
    if (path.empty())
        return Value(false);
    if (!arguments["text"].AsBool())
        return Value(path);
    std::wstring text;
    if (!Utils::GetFileContents(path, text))
        throw TambCommandsInfra::CommandError("app:journal: the journal cannot be read: " +
                                              Utils::WstringToString(path));
    return Value(text);
}

Command journalCommand()
{
    Command command;
    command.name = "app:journal";
    Parameter text;
    text.name = "text";
    text.type = ValueType::Bool;
    text.help = "#t for the text of the journal, #f for its path";
    text.presence = Presence::Optional;
    text.defaultValue = Value(false);
    command.parameters = {text};
    command.result = ValueType::Any;
    command.resultHelp = "the path or the text; #f when this run keeps no journal";
    command.summary = "Tells where the journal of this run is, or what it holds so far.";
    command.help = "The journal holds what has changed something, up to the form that runs now. "
                   "pellux-batch --replay repeats it.";
    command.example = "(app:journal)";
    command.handler = journal;
    return command;
}

/// The pieces of "face 3 of mesh 1 in 2".
struct IdWords
{
    PartKind part = PartKind::None;
    std::int32_t index = -1;
    std::string type;
    std::uint64_t value = 0;
    std::uint64_t content = 0;
};

std::optional<std::uint64_t> numberOf(const std::string& word)
{
    long long number = -1;
    if (!Utils::ParseInt(word, number) || number < 0)
        return std::nullopt;
    return static_cast<std::uint64_t>(number);
}

std::optional<IdWords> readWords(const std::string& text)
{
    std::istringstream stream(text);
    std::vector<std::string> words;
    for (std::string word; stream >> word;)
        words.push_back(word);
    IdWords id;
    std::size_t at = 0;
    if (words.size() == 7 && IsPartKind(words[0]) && words[2] == "of") {
        id.part = words[0] == "face"   ? PartKind::Face
                  : words[0] == "edge" ? PartKind::Edge
                                       : PartKind::Vertex;
        const auto index = numberOf(words[1]);
        if (!index || *index > std::numeric_limits<std::int32_t>::max())
            return std::nullopt;
        id.index = static_cast<std::int32_t>(*index);
        at = 3;
    }
    if (words.size() != at + 4 || words[at + 2] != "in")
        return std::nullopt;
    const auto value = numberOf(words[at + 1]);
    const auto content = numberOf(words[at + 3]);
    if (!value || !content)
        return std::nullopt;
    id.type = words[at];
    id.value = *value;
    id.content = *content;
    return id;
}

/// Types that one word may name.
constexpr EntityType kTypes[] = {
    EntityType::Body,
    EntityType::Mesh,
    EntityType::Assembly,
    EntityType::AssemblyReference,
    EntityType::Wire,
    EntityType::PointSet,
    EntityType::PointCloud,
    EntityType::Annotation,
    EntityType::AnnotationSet,
    EntityType::View,
    EntityType::Capture,
    EntityType::NonGraphical,
    EntityType::PmiDimension,
    EntityType::PmiDatum,
    EntityType::PmiGeometricTolerance,
    EntityType::PmiNote,
    EntityType::PmiSurfaceFinish,
    EntityType::Container,
};

/// Finds the entity among those of a content; empty when there is none.
EntityId findEntity(const IEntityProperties& content, const IdWords& id)
{
    for (const EntityType type : kTypes) {
        if (TambVizCore::EntityTypeName(type) != id.type)
            continue;
        EntityId found(id.value, id.content, type);
        EntityId parent;
        std::wstring name;
        if (!content.GetParent(found, parent) && !content.GetName(found, name))
            continue;
        found.SetSubEntity(id.part, id.index);
        TambVizCore::VizBox box;
        if (id.part == PartKind::None || content.GetBox(found, box))
            return found;
    }
    return {};
}

Value byId(const Arguments& arguments)
{
    const OrvikOs::FpMasked coordinatesAreData;
    const std::optional<IdWords> id = readWords(arguments["id"].AsUtf8());
    if (!id)
        throw WrongArgument("entity:by-id", "id", "an id such as \"face 3 of mesh 1 in 2\"",
                            arguments["id"]);
    for (const IEntityProperties* const content : LoadedProperties()) {
        const EntityId entity = findEntity(*content, *id);
        if (!entity.IsEmpty())
            return ToValue(entity);
    }
    return Value(false);
}

Command byIdCommand()
{
    Command command;
    command.name = "entity:by-id";
    Parameter id;
    id.name = "id";
    id.type = ValueType::String;
    id.help = "what it is called, then \"in\" and the number of its file";
    command.parameters = {id};
    command.result = ValueType::Any;
    command.resultHelp = "the entity, or #f when there is none";
    command.summary = "Finds an entity by what the journal calls it.";
    command.help = "Ids stay the same when the same file is loaded again; the files of a document "
                   "are numbered from 1.";
    command.example = "(entity:by-id \"face 3 of mesh 1 in 1\")";
    command.handler = byId;
    return command;
}

} // namespace

void RegisterJournalCommands(CommandTable& table)
{
    table.Register(journalCommand());
    table.Register(byIdCommand());
}

} // namespace OrvikCommands
