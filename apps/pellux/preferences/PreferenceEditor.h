#ifndef PELLUX_PREFERENCES_PREFERENCEEDITOR_H
#define PELLUX_PREFERENCES_PREFERENCEEDITOR_H

#include "preferences/PreferenceTable.h"

#include <functional>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace Pellux {

/// The widget in which one preference is edited, and the ways to its value.
struct PreferenceEditor
{
    QWidget* widget = nullptr; ///< Owned by its parent.
    std::function<QString()> get;
    std::function<void(const QString& text)> set; ///< Takes valid values.
};

/// Makes the editor of a preference, with its default in it.
/// @param parent  Owns the widget.
PreferenceEditor MakePreferenceEditor(const Preference& preference, QWidget* parent);

} // namespace Pellux

#endif
