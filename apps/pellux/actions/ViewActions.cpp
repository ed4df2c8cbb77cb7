#include "actions/ActionDefinition.h"
#include "actions/WindowState.h"
#include "runtime/QtText.h"

#include <TambVizCore/RenderingOptions.h>

#include <QCoreApplication>

namespace Pellux {
namespace {

using TambVizCore::RenderingOptions;

QString tr(const char* text)
{
    return QCoreApplication::translate("Actions", text);
}

std::function<bool()> option(bool (RenderingOptions::*get)() const)
{
    return [get] {
        const RenderingOptions* const options = WindowState::Options();
        return options != nullptr && (options->*get)();
    };
}

ActionDefinition::Script backgroundScript(int number, const QString& title)
{
    return [number, title](IAsker& asker, bool) -> ActionScript {
        const QColor color = asker.Color(title, WindowState::Background(number));
        if (!color.isValid())
            return {};
        return {QStringLiteral("(app:set-background-color! %1 '(%2 %3 %4))")
                    .arg(number)
                    .arg(color.red())
                    .arg(color.green())
                    .arg(color.blue())};
    };
}

void addStandardViews(ActionDefinitions& actions)
{
    const QString menu = tr("&View") + u'/' + tr("&Standard views");
    const auto add = [&](const char* word, const QString& text, const QString& tip,
                         const char* shortcut, const char* icon) {
        ActionDefinition action;
        action.id = QByteArray("view.") + word;
        action.menu = menu;
        action.text = text;
        action.tip = tip;
        action.icon = icon;
        action.shortcut = shortcut;
        action.script = FixedScript((std::string("(view:") + word + ")").c_str());
        action.isOnToolBar = *icon != '\0';
        actions.push_back(action);
    };
    add("front", tr("&Front"), tr("Looks from the front"), "Ctrl+1", "front");
    add("back", tr("&Back"), tr("Looks from the back"), "Ctrl+2", "");
    add("left", tr("&Left"), tr("Looks from the left"), "Ctrl+3", "");
    add("right", tr("&Right"), tr("Looks from the right"), "Ctrl+4", "right");
    add("top", tr("&Top"), tr("Looks from above"), "Ctrl+5", "top");
    add("bottom", tr("B&ottom"), tr("Looks from below"), "Ctrl+6", "");
    add("iso", tr("&Isometric"), tr("Looks from a corner"), "Ctrl+7", "iso");
}

void addCamera(ActionDefinitions& actions)
{
    const QString view = tr("&View");
    const QString projection = view + u'/' + tr("&Projection");
    const QString up = view + u'/' + tr("&Up axis");
    const QString center = view + u'/' + tr("Rotation &centre");
    const ActionDefinitions camera = {
        {"view.fit",
         view,
         tr("&Fit"),
         tr("Shows everything"),
         "fit",
         "Ctrl+0",
         FixedScript("(view:zoom-all)"),
         {},
         Needs::Nothing,
         true,
         true},
        {"view.fit-selection",
         view,
         tr("F&it selection"),
         tr("Lets what is selected fill the view"),
         "fit-selection",
         "Ctrl+9",
         FixedScript("(view:zoom-to (sel:get))"),
         {},
         Needs::Selection,
         true},
        {"view.parallel", projection, tr("&Parallel"), tr("Shows parallel lines as parallel"), "",
         "", FixedScript("(view:projection \"parallel\")"),
         [] { return !WindowState::IsPerspective(); }},
        {"view.perspective", projection, tr("P&erspective"), tr("Shows what is far as smaller"), "",
         "", FixedScript("(view:projection \"perspective\")"), &WindowState::IsPerspective},
        {"view.y-up", up, tr("&Y up"), tr("Lets the y axis point up in the standard views"), "", "",
         FixedScript("(view:up-axis \"y\")"), [] { return !WindowState::IsZUp(); }},
        {"view.z-up", up, tr("&Z up"), tr("Lets the z axis point up in the standard views"), "", "",
         FixedScript("(view:up-axis \"z\")"), &WindowState::IsZUp},
        {"view.rotate-about-selection",
         center,
         tr("Of the &selection"),
         tr("Turns the model about the middle of what is selected"),
         "",
         "",
         FixedScript("(view:rotation-center (entity:center (car (sel:get))))"),
         {},
         Needs::Selection},
        {"view.rotate-about-model", center, tr("Of the &model"),
         tr("Turns the model about its middle"), "", "", FixedScript("(view:rotation-center #f)")},
        {"view.animate", view, tr("&Animate"), tr("Moves the camera in steps"), "", "",
         SwitchScript("(view:animate %1)"), &WindowState::IsAnimated},
    };
    actions.insert(actions.end(), camera.begin(), camera.end());
}

void addNavigation(ActionDefinitions& actions)
{
    const QString menu = tr("&View") + u'/' + tr("&Navigation");
    for (const QString& name : WindowState::Navigations()) {
        ActionDefinition action;
        action.id = "view.navigation." + name.toLatin1();
        action.menu = menu;
        action.text = u'&' + name;
        action.tip = tr("Uses the mouse table \"%1\" in the view").arg(name);
        const std::string script = "(app:navigation " + Quoted(name).toStdString() + ")";
        action.script = FixedScript(script.c_str());
        action.isOn = [name] { return WindowState::Navigation() == name; };
        actions.push_back(action);
    }
}

} // namespace

ActionDefinitions ViewActions()
{
    ActionDefinitions actions;
    addStandardViews(actions);
    addCamera(actions);
    addNavigation(actions);
    return actions;
}

ActionDefinitions DisplayActions()
{
    const QString view = tr("&View");
    const QString display = view + u'/' + tr("&Display");
    const QString background = view + u'/' + tr("&Background");
    return {
        {"view.faces", display, tr("&Faces"), tr("Shows faces"), "", "Ctrl+Alt+F",
         SwitchScript("(view:display-faces %1)"), option(&RenderingOptions::GetShowFaces)},
        {"view.edges", display, tr("&Edges"), tr("Shows edges"), "", "Ctrl+Alt+E",
         SwitchScript("(view:display-edges %1)"), option(&RenderingOptions::GetShowEdges)},
        {"view.vertices", display, tr("&Vertices"), tr("Shows vertices"), "", "Ctrl+Alt+V",
         SwitchScript("(view:display-vertices %1)"), option(&RenderingOptions::GetShowVertices)},
        {"view.tessellation", display, tr("&Tessellation"),
         tr("Shows the triangles that faces are drawn with"), "", "Ctrl+Alt+T",
         SwitchScript("(view:display-tessellation %1)"),
         option(&RenderingOptions::GetShowTessellation)},
        {"view.clouds", display, tr("Point &clouds"), tr("Shows point clouds"), "", "",
         SwitchScript("(view:display-clouds %1)"), option(&RenderingOptions::GetShowPointClouds)},
        {"view.pmi", display, tr("&PMI"), tr("Shows product manufacturing information"), "", "",
         SwitchScript("(view:display-pmi %1)"), option(&RenderingOptions::GetShowPMI)},
        {"view.axes", display, tr("&Axes"), tr("Shows the axes in a corner"), "", "",
         SwitchScript("(view:display-axes %1)"), WindowState::ShowsAxes},
        {"view.xray", view, tr("&X-ray"), tr("Draws what is not selected as through frosted glass"),
         "xray", "Ctrl+Alt+X", SwitchScript("(view:xray %1)"), option(&RenderingOptions::GetXRay),
         Needs::Nothing, true},
        {"view.background-top", background, tr("&Top colour..."),
         tr("Chooses the colour of the background at the top"), "", "",
         backgroundScript(1, tr("Top of the background"))},
        {"view.background-bottom", background, tr("&Bottom colour..."),
         tr("Chooses the colour of the background at the bottom"), "", "",
         backgroundScript(2, tr("Bottom of the background"))},
        {"view.hide",
         view,
         tr("&Hide"),
         tr("Hides what is selected"),
         "hide",
         "Ctrl+H",
         FixedScript("(view:hide (sel:get))"),
         {},
         Needs::Selection,
         true,
         true},
        {"view.isolate",
         view,
         tr("Is&olate"),
         tr("Shows only what is selected"),
         "isolate",
         "Ctrl+I",
         FixedScript("(view:isolate (sel:get))"),
         {},
         Needs::Selection,
         true},
        {"view.show-all",
         view,
         tr("Show a&ll"),
         tr("Shows everything that was hidden"),
         "show",
         "Ctrl+Shift+H",
         FixedScript("(view:show-all)"),
         {},
         Needs::Nothing,
         true},
        {"view.sections-off", view, tr("Sections o&ff"), tr("Takes every section away"), "", "",
         FixedScript("(view:section-off)")},
        {"view.clear-drawing", view, tr("Clear dra&wing"),
         tr("Removes what scripts have drawn over the model"), "", "",
         FixedScript("(view:clear-drawing)")},
    };
}

} // namespace Pellux
