#ifndef PELLUX_ACTIONS_ACTIONDEFINITION_H
#define PELLUX_ACTIONS_ACTIONDEFINITION_H

#include "actions/Asker.h"

#include <QByteArray>
#include <QString>
#include <functional>
#include <vector>

namespace Pellux {

/// A script that an action stands for.
struct ActionScript
{
    QString text;                            ///< Empty when there is nothing to run.
    QString source = QStringLiteral("menu"); ///< Named in error messages.
};

/// What must be there for an action to make sense.
enum class Needs
{
    Nothing,
    Model,       ///< Something is loaded.
    Selection,   ///< Something is selected.
    OneSelected, ///< Exactly one thing.
    TwoSelected, ///< Exactly two things.
};

/// One action of the window: what it looks like and the script that it stands for. It does nothing
/// else.
struct ActionDefinition
{
    /// Makes the script.
    ///
    /// @param isOn  What a switch is to become; true for what is none.
    using Script = std::function<ActionScript(IAsker& asker, bool isOn)>;

    QByteArray id;       ///< "view.front"; unique.
    QString menu;        ///< Path of its menu, with mnemonics: "&View/&Standard views".
    QString text;        ///< With a mnemonic.
    QString tip;         ///< One sentence.
    QByteArray icon;     ///< See LineIcon(); empty for none.
    QByteArray shortcut; ///< Portable text of a key sequence; empty for none.
    Script script;
    std::function<bool()> isOn = {}; ///< State of a switch or choice; empty for what is neither.
    Needs needs = Needs::Nothing;
    bool isOnToolBar = false;
    bool beginsGroup = false; ///< A separator stands before it in the menu.
};

using ActionDefinitions = std::vector<ActionDefinition>;

/// The actions of each menu, in the order of the menu.
ActionDefinitions FileActions();
ActionDefinitions EditActions();
ActionDefinitions ViewActions();
ActionDefinitions DisplayActions();
ActionDefinitions SelectActions();
ActionDefinitions MeasureActions();
ActionDefinitions HelpActions();

/// A script that is always the same.
ActionDefinition::Script FixedScript(const char* text);

/// A script with #t or #f at its "%1".
ActionDefinition::Script SwitchScript(const char* text);

} // namespace Pellux

#endif
