#include "CommandParts.h"
#include "Commands.h"
#include "EntityObject.h"

#include <OrvikCore/AContent.h>
#include <OrvikCore/ASession.h>
#include <OrvikCore/Document.h>
#include <OrvikCore/SessionMgr.h>
#include <OrvikOs/Directory.h>
#include <OrvikOs/FpMasked.h>
#include <TambCommandsInfra/CallGate.h>
#include <TambCommandsInfra/CancelToken.h>
#include <TambCommandsInfra/CommandTable.h>
#include <TambCommandsInfra/ITambApplicationCoreServices.h>
#include <TambCommandsInfra/ITambDocumentServices.h>
#include <TambVizCore/Utils.h>

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <vector>

namespace OrvikCommands {
namespace {

using OrvikCore::ASession;
using TambCommandsInfra::Arguments;
using TambCommandsInfra::CallGate;
using TambCommandsInfra::Command;
using TambCommandsInfra::CommandEffect;
using TambCommandsInfra::CommandTable;
using TambCommandsInfra::Value;
using TambCommandsInfra::ValueType;
using TambVizCore::Utils;

/// Takes everything that is loaded out of view and document. Main thread.
void clearDocument(ASession& session)
{
    session.UnSelect();
    session.SetPickedEntities({});
    CloseEntities();
    session.DeleteAllRenderers();
    session.Document().ClearContents();
    session.Document().SetOpenedModelName(L"");
}

/// Where the camera goes when a file was read.
enum class CameraMove
{
    ToAll,
    None,
};

/// How near cameras come to their target (ACamera::SetCamera), mm.
constexpr double kNearest = 0.0001;

/// Says so when what is loaded is too small for a camera to come near. Worker thread.
void warnOfSmallness(const std::wstring& path)
{
    double lo[3];
    double hi[3];
    if (!DocumentServices().GetBoundingBox(lo[0], lo[1], lo[2], hi[0], hi[1], hi[2]))
        return;
    const double across = std::hypot(hi[0] - lo[0], hi[1] - lo[1], hi[2] - lo[2]);
    if (across > 0.0 && across < kNearest)
        ApplicationServices().PrintWarningMessage(
            path + L": all that is loaded is " +
            Utils::StringToWstring(Utils::FormatGeneral(across, 3)) +
            L" across; no camera comes nearer than 0.0001, so it may not be seen");
}

/// Shows what was loaded. Main thread.
void showLoaded(ASession& session, const std::wstring& path, bool replace, CameraMove move)
{
    if (replace)
        session.Document().SetOpenedModelName(Utils::GetFileNameOnly(path));
    session.UpdateAfterContentModified();
    if (move == CameraMove::ToAll)
        session.ZoomAll();
}

/// Whether there is something to put in the place of what is loaded. Worker thread.
bool canBeLoaded(const std::wstring& path)
{
    return Utils::FileExists(path) && !OrvikOs::IsDirectory(path) &&
           OrvikCore::SessionMgr::Instance().GetContentLoader(path) != nullptr;
}

/// Reads a file on the worker; the document and the view change in commits on the main thread.
Value load(const std::wstring& path, bool wantsReplace, CameraMove move)
{
    ASession& session = Session();
    // A slip in a name costs nobody the model: an importer says what is wrong and leaves it alone.
    const bool replace = wantsReplace && canBeLoaded(path);
    if (replace)
        CallGate::Call([&session] { clearDocument(session); });
    // The view gets ready on the main thread while the file is read here.
    CallGate::Post([&session] { session.UpdateDisplay(); });

    std::wstring errorText;
    std::vector<std::wstring> warnings;
    bool loaded = false;
    {
        const OrvikOs::FpMasked coordinatesAreData;
        loaded = session.Document().LoadContent(path, &errorText, replace, &warnings);
    }
    for (const std::wstring& warning : warnings)
        ApplicationServices().PrintWarningMessage(warning);
    TambCommandsInfra::CancelToken::Instance().ThrowIfCancelled();
    if (!errorText.empty())
        throw std::runtime_error(Utils::WstringToString(errorText));
    if (!loaded)
        throw std::runtime_error(Utils::WstringToString(path) + ": there is nothing in the file");
    CallGate::Call([&] { showLoaded(session, path, replace, move); });
    if (move == CameraMove::ToAll)
        warnOfSmallness(path);
    return Value(true);
}

Command loadCommand(const std::string& verb, bool replace)
{
    Command command;
    command.name = "doc:" + verb;
    command.parameters = {PathParameter("path", "file to read")};
    command.result = ValueType::Bool;
    command.resultHelp = "#t; a file that cannot be read is an error";
    command.summary =
        replace ? "Loads a model, in place of what is loaded." : "Adds a model to what is loaded.";
    command.help = "The format is known by the file's extension. A path that does not begin at the "
                   "root is looked for in the default input directory.";
    if (replace)
        command.help += " When there is no such file, or no loader for it, what is loaded stays.";
    command.example = "(" + command.name + " \"bracket.stl\")";
    command.effect = CommandEffect::Changes;
    command.handler = [replace](const Arguments& arguments) {
        return load(InFolder(OrvikCore::SessionMgr::Instance().GetDefaultInputDirectory(),
                             arguments["path"].AsString()),
                    replace, CameraMove::ToAll);
    };
    return command;
}

/// Reads the files of what is loaded anew.
Value reload()
{
    std::vector<std::wstring> paths;
    for (OrvikCore::AContent* const content : Session().Document().GetContentList())
        if (content != nullptr &&
            std::find(paths.begin(), paths.end(), content->GetLongId()) == paths.end())
            paths.push_back(content->GetLongId());
    // What is shown stays when a file is missing.
    for (const std::wstring& path : paths)
        if (!Utils::FileExists(path))
            throw std::runtime_error(Utils::WstringToString(path) + ": the file does not exist");
    bool replace = true;
    for (const std::wstring& path : paths) {
        load(path, replace, CameraMove::None);
        replace = false;
    }
    if (!paths.empty())
        CallGate::Call([] { Session().UpdateDisplay(); });
    return Value(!paths.empty());
}

Command reloadCommand()
{
    Command command;
    command.name = "doc:reload";
    command.result = ValueType::Bool;
    command.resultHelp = "#f when nothing is loaded; a file that cannot be read is an error";
    command.summary = "Reads the files of everything that is loaded again.";
    command.help = "The camera and the sections stay; what was selected or hidden does not. When "
                   "a file is missing nothing happens.";
    command.example = "(doc:reload)";
    command.effect = CommandEffect::Changes;
    command.handler = [](const Arguments&) { return reload(); };
    return command;
}

Command clearCommand()
{
    Command command;
    command.name = "doc:clear";
    command.summary = "Closes everything that is loaded.";
    command.example = "(doc:clear)";
    command.effect = CommandEffect::Changes;
    command.handler = [](const Arguments&) {
        ASession& session = Session();
        CallGate::Call([&session] {
            clearDocument(session);
            session.UpdateDisplay();
        });
        return Value();
    };
    return command;
}

Command contentsCommand()
{
    Command command;
    command.name = "doc:contents";
    command.result = ValueType::List;
    command.resultHelp = "the names of what is loaded, in the order of loading";
    command.summary = "Lists what is loaded.";
    command.example = "(doc:contents)";
    command.handler = [](const Arguments&) {
        Value::List names;
        for (OrvikCore::AContent* const content : Session().Document().GetContentList())
            if (content != nullptr)
                names.push_back(Value(content->GetShortId()));
        return Value(std::move(names));
    };
    return command;
}

Command boundingBoxCommand()
{
    Command command;
    command.name = "doc:bounding-box";
    command.result = ValueType::Any;
    command.resultHelp = "x-min y-min z-min x-max y-max z-max in mm, or #f when nothing is "
                         "loaded";
    command.summary = "Measures the box around everything that is loaded, in mm.";
    command.example = "(doc:bounding-box)";
    command.handler = [](const Arguments&) {
        double box[6];
        if (!DocumentServices().GetBoundingBox(box[0], box[1], box[2], box[3], box[4], box[5]))
            return Value(false);
        return Value(Value::List(box, box + 6));
    };
    return command;
}

} // namespace

void RegisterDocumentCommands(CommandTable& table)
{
    table.DescribeFamily("doc", "Document");
    table.Register(loadCommand("load", /*replace=*/true));
    table.Register(loadCommand("import", /*replace=*/false));
    table.Register(reloadCommand());
    table.Register(clearCommand());
    table.Register(contentsCommand());
    table.Register(boundingBoxCommand());
}

} // namespace OrvikCommands
