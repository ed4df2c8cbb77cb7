#ifndef PELLUX_PROPERTIES_PROPERTIESPANEL_H
#define PELLUX_PROPERTIES_PROPERTIESPANEL_H

#include "properties/PropertyJob.h"
#include "properties/PropertyList.h"

#include <QTimer>
#include <QWidget>
#include <memory>
#include <vector>

QT_BEGIN_NAMESPACE
class QLabel;
class QTreeView;
QT_END_NAMESPACE

namespace OrvikCore {
class AContent;
class ASession;
} // namespace OrvikCore

namespace Pellux {

class CommandRunner;

/// What is known of what is picked or selected, asked on the worker without keeping anybody
/// waiting. @thread Main thread.
class PropertiesPanel final : public QWidget
{
    Q_OBJECT

public:
    /// @param runner, session  Not owned; outlive the panel.
    PropertiesPanel(CommandRunner& runner, OrvikCore::ASession& session, QWidget* parent = nullptr);
    ~PropertiesPanel() override;

    PropertiesPanel(const PropertiesPanel&) = delete;
    PropertiesPanel& operator=(const PropertiesPanel&) = delete;

    const PropertyList& List() const { return m_list; }

    /// Tells whether answers are still to come.
    bool IsAsking() const { return m_job != nullptr || m_timer.isActive(); }

private:
    void layOut();
    void addActions();
    void refresh();
    void ask();
    LengthUnit lengthUnit() const;
    void drop();
    void showState();
    void copyRows();
    void copyScripts();
    void runScript();
    std::vector<int> selectedRows() const;

    CommandRunner& m_runner;
    OrvikCore::ASession& m_session;
    PropertyList m_list;
    QTreeView* m_view = nullptr; ///< Owned as a child, as the label.
    QLabel* m_state = nullptr;
    QTimer m_timer;
    std::vector<PropertyQuestion> m_questions;
    std::shared_ptr<PropertyJob> m_job; ///< Null when none is under way.
    /// Whose properties are asked for or shown, and what was loaded then (not owned).
    std::vector<TambVizCore::EntityId> m_entities;
    std::vector<OrvikCore::AContent*> m_contents;
    bool m_isComplete = false; ///< Every question about them is answered.
};

} // namespace Pellux

#endif
