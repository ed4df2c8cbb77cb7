#include "actions/ActionDefinition.h"
#include "runtime/QtText.h"

#include <QCoreApplication>

namespace Pellux {
namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("Actions", text);
}

ActionScript byName(IAsker& asker)
{
    const QString pattern = asker.Text(tr("Select by name"), tr("Name, with * and ?:"));
    if (pattern.isEmpty())
        return {};
    return {QStringLiteral("(sel:by-name ") + Quoted(pattern) + u')'};
}

} // namespace

ActionDefinitions SelectActions()
{
    const QString select = tr("&Select");
    const Needs some = Needs::Selection;
    return {
        {"select.by-name",
         select,
         tr("By &name..."),
         tr("Selects what has a name that fits"),
         "",
         "Ctrl+Shift+F",
         [](IAsker& asker, bool) { return byName(asker); },
         {},
         Needs::Model},
        {"select.bodies",
         select,
         tr("All &bodies"),
         tr("Selects every body"),
         "",
         "Ctrl+A",
         FixedScript("(sel:by-kind \"body\")"),
         {},
         Needs::Model,
         false,
         true},
        {"select.faces",
         select,
         tr("All &faces"),
         tr("Selects every face"),
         "",
         "",
         FixedScript("(sel:by-kind \"face\")"),
         {},
         Needs::Model},
        {"select.edges",
         select,
         tr("All &edges"),
         tr("Selects every edge"),
         "",
         "",
         FixedScript("(sel:by-kind \"edge\")"),
         {},
         Needs::Model},
        {"select.vertices",
         select,
         tr("All &vertices"),
         tr("Selects every vertex"),
         "",
         "",
         FixedScript("(sel:by-kind \"vertex\")"),
         {},
         Needs::Model},
        {"select.whole",
         select,
         tr("&Whole bodies"),
         tr("Selects the bodies of what is selected"),
         "",
         "Ctrl+B",
         FixedScript("(apply sel:set (map entity:body (sel:get)))"),
         {},
         some,
         false,
         true},
        {"select.clear",
         select,
         tr("&Clear"),
         tr("Selects nothing"),
         "clear",
         "Ctrl+Shift+A",
         FixedScript("(sel:clear)"),
         {},
         some},
    };
}

ActionDefinitions MeasureActions()
{
    const QString measure = tr("&Measure");
    const Needs some = Needs::Selection;
    return {
        {"measure.distance",
         measure,
         tr("&Distance"),
         tr("Measures the least distance between the two things that are selected"),
         "distance",
         "Ctrl+D",
         FixedScript("(apply measure:distance (sel:get))"),
         {},
         Needs::TwoSelected,
         true},
        {"measure.angle",
         measure,
         tr("&Angle"),
         tr("Measures the angle between the two things that are selected"),
         "angle",
         "",
         FixedScript("(apply measure:angle (sel:get))"),
         {},
         Needs::TwoSelected,
         true},
        {"measure.thickness",
         measure,
         tr("&Thickness"),
         tr("Measures how thick the material is behind the face that is selected"),
         "",
         "",
         FixedScript("(measure:face-thickness (car (sel:get)))"),
         {},
         Needs::OneSelected},
        {"measure.length",
         measure,
         tr("&Length"),
         tr("Measures the edges that are selected"),
         "",
         "",
         FixedScript("(map entity:length (sel:get))"),
         {},
         some,
         false,
         true},
        {"measure.radius",
         measure,
         tr("&Radius"),
         tr("Measures the round faces and edges that are selected"),
         "",
         "",
         FixedScript("(map measure:radius (sel:get))"),
         {},
         some},
        {"measure.area",
         measure,
         tr("A&rea"),
         tr("Measures the area of what is selected"),
         "",
         "",
         FixedScript("(map entity:area (sel:get))"),
         {},
         some},
        {"measure.volume",
         measure,
         tr("&Volume"),
         tr("Measures the volume of what is selected"),
         "",
         "",
         FixedScript("(map entity:volume (sel:get))"),
         {},
         some},
        {"measure.box",
         measure,
         tr("&Box"),
         tr("Measures the box around what is selected"),
         "",
         "",
         FixedScript("(map entity:box (sel:get))"),
         {},
         some},
        {"measure.model-box",
         measure,
         tr("Box around the &model"),
         tr("Measures the box around everything that is loaded"),
         "",
         "",
         FixedScript("(doc:bounding-box)"),
         {},
         Needs::Model,
         false,
         true},
    };
}

} // namespace Pellux
