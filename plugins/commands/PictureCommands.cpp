#include "CommandParts.h"
#include "Commands.h"
#include "EntityObject.h"
#include "SceneParts.h"

#include <OrvikCore/ABufferManipulator.h>
#include <OrvikCore/AppController.h>
#include <OrvikCore/IIdPictureSaver.h>
#include <OrvikCore/SessionMgr.h>
#include <TambCommandsInfra/CallGate.h>
#include <TambCommandsInfra/CommandTable.h>
#include <TambVizCore/EntityId.h>
#include <TambVizCore/IView3D.h>
#include <TambVizCore/RGBAColor.h>
#include <TambVizCore/RenderingOptions.h>
#include <TambVizCore/Utils.h>

#include <optional>
#include <stdexcept>
#include <utility>
#include <vector>

namespace OrvikCommands {
namespace {

using TambCommandsInfra::Arguments;
using TambCommandsInfra::CallGate;
using TambCommandsInfra::Command;
using TambCommandsInfra::CommandEffect;
using TambCommandsInfra::CommandTable;
using TambCommandsInfra::Parameter;
using TambCommandsInfra::Presence;
using TambCommandsInfra::Value;
using TambCommandsInfra::ValueType;
using TambVizCore::Utils;

/// Endings of pictures that are no PNG files.
constexpr const wchar_t* kOtherPictures[] = {L"BMP", L"EXR", L"GIF", L"JPEG", L"JPG",  L"PDF",
                                             L"PPM", L"SVG", L"TGA", L"TIF",  L"TIFF", L"WEBP"};

OrvikCore::ABufferManipulator& pictures()
{
    OrvikCore::ABufferManipulator* const manipulator =
        OrvikCore::AppController::Instance().GetBufferManipulator();
    if (manipulator == nullptr)
        throw std::runtime_error("The program makes no pictures.");
    return *manipulator;
}

Command sizeCommand()
{
    Command command;
    command.name = "view:size";
    command.result = ValueType::List;
    command.resultHelp = "width and height in pixels";
    command.summary = "Tells the size of the view.";
    command.example = "(view:size)";
    command.handler = [](const Arguments&) {
        return CallGate::Call([] {
            int width = 0;
            int height = 0;
            if (!pictures().GetSize(width, height))
                throw std::runtime_error("There is no view.");
            return Value(Value::List{Value(width), Value(height)});
        });
    };
    return command;
}

int sideArgument(const Arguments& arguments, const char* name)
{
    return arguments.IsGiven(name) ? static_cast<int>(arguments[name].AsInteger()) : 0;
}

/// @throws CommandError for a name that promises another kind of picture.
std::wstring outputPath(const std::string& command, const Arguments& arguments)
{
    const std::wstring extension =
        Utils::ToUpperAscii(Utils::GetFileExtension(arguments["path"].AsString()));
    for (const wchar_t* const other : kOtherPictures)
        if (extension == other)
            throw WrongArgument(command, "path", "the name of a PNG file", arguments["path"]);
    return InFolder(OrvikCore::SessionMgr::Instance().GetDefaultOutputDirectory(),
                    arguments["path"].AsString());
}

/// Makes the background of a view transparent while it lives. Main thread.
class TransparentBackground
{
public:
    explicit TransparentBackground(TambVizCore::IView3D& view) : m_view(view)
    {
        for (int i = 0; i < 2; ++i)
            if (m_view.GetBackgroundColor(i + 1, m_colors[i])) {
                TambVizCore::RGBAColor clear = m_colors[i];
                clear.a = 0;
                m_view.SetBackgroundColor(i + 1, clear);
            }
    }
    ~TransparentBackground()
    {
        for (int i = 0; i < 2; ++i)
            m_view.SetBackgroundColor(i + 1, m_colors[i]);
    }
    TransparentBackground(const TransparentBackground&) = delete;
    TransparentBackground& operator=(const TransparentBackground&) = delete;

private:
    TambVizCore::IView3D& m_view; ///< Not owned.
    TambVizCore::RGBAColor m_colors[2];
};

Command saveImageCommand()
{
    Command command;
    command.name = "view:save-image";
    Parameter transparent =
        SwitchParameter("transparent", "#t leaves the background out; #f when left out");
    transparent.defaultValue = Value(false);
    command.parameters = {PathParameter("path", "PNG file to write; one that exists is replaced"),
                          PictureSideParameter("width"), PictureSideParameter("height"),
                          transparent};
    command.summary = "Writes a picture of the view.";
    command.help = "A path that does not begin at the root is meant in the default output "
                   "directory. The file's texts name program, models, camera and the command that "
                   "draws the picture again.";
    command.example = "(view:save-image \"part.png\" 1920 1080)";
    command.effect = CommandEffect::Changes;
    command.handler = [name = command.name](const Arguments& arguments) {
        const std::wstring path = outputPath(name, arguments);
        CallGate::Call([&] {
            std::optional<TransparentBackground> background;
            if (arguments["transparent"].AsBool())
                background.emplace(CurrentView());
            std::wstring reason;
            if (!pictures().SaveImage(path, sideArgument(arguments, "width"),
                                      sideArgument(arguments, "height"), &reason))
                throw std::runtime_error(Utils::WstringToString(reason));
        });
        return Value();
    };
    return command;
}

Command antialiasingCommand()
{
    Command command;
    command.name = "view:antialiasing";
    Parameter samples;
    samples.name = "samples";
    samples.type = ValueType::Integer;
    samples.help = "for each pixel; 0 and 1 are none, -1 chooses. At most as many as the driver "
                   "offers count";
    samples.minimum = TambVizCore::kAutomaticAntialiasing;
    samples.maximum = TambVizCore::kMostAntialiasSamples;
    command.parameters = {samples};
    command.summary = "Sets how finely the borders in pictures are smoothed.";
    command.example = "(view:antialiasing 4)";
    command.effect = CommandEffect::Changes;
    command.handler = [](const Arguments& arguments) {
        ChangeView([&] {
            CurrentOptions().SetAntialiasLevel(static_cast<int>(arguments["samples"].AsInteger()));
        });
        return Value();
    };
    return command;
}

Command idPictureCommand()
{
    Command command;
    command.name = "view:id-picture";
    command.parameters = {PathParameter("path", "PNG file to write; one that exists is replaced"),
                          PictureSideParameter("width"), PictureSideParameter("height")};
    command.result = ValueType::List;
    command.resultHelp = "what is drawn: the first has the number 1, the second 2, ...; #f for "
                         "what is drawn of no entity";
    command.summary = "Writes a picture whose colours are the numbers of what is drawn.";
    command.help = "A colour is red * 65536 + green * 256 + blue; 0 is nothing. Numbers stand for "
                   "faces, edges and vertices, or for bodies where what is drawn belongs to none. "
                   "What is transparent counts as opaque; what is drawn beside the model is left "
                   "out. The file's text \"Entities\" names them too. A path that does not begin "
                   "at the root is meant in the default output directory.";
    command.example = "(view:id-picture \"ids.png\" 400 300)";
    command.effect = CommandEffect::Changes;
    command.handler = [name = command.name](const Arguments& arguments) {
        const std::wstring path = outputPath(name, arguments);
        std::vector<TambVizCore::EntityId> entities;
        CallGate::Call([&] {
            auto* const saver = dynamic_cast<OrvikCore::IIdPictureSaver*>(&pictures());
            if (saver == nullptr)
                throw std::runtime_error("The program makes no pictures of ids.");
            std::wstring reason;
            if (!saver->SaveIdPicture(path, sideArgument(arguments, "width"),
                                      sideArgument(arguments, "height"), entities, &reason))
                throw std::runtime_error(Utils::WstringToString(reason));
        });
        Value::List drawn;
        for (const TambVizCore::EntityId& entity : entities)
            drawn.push_back(entity.IsEmpty() ? Value(false) : ToValue(entity));
        return Value(std::move(drawn));
    };
    return command;
}

} // namespace

void RegisterPictureCommands(CommandTable& table)
{
    table.Register(sizeCommand());
    table.Register(saveImageCommand());
    table.Register(idPictureCommand());
    table.Register(antialiasingCommand());
}

} // namespace OrvikCommands
