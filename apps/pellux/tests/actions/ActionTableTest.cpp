#include "WindowFixture.h"

#include <actions/ActionTable.h>
#include <actions/WindowMenus.h>
#include <actions/WindowState.h>

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <map>
#include <set>

namespace {

/// Answers every question at once.
class FakeAsker final : public Pellux::IAsker
{
public:
    explicit FakeAsker(QString folder) : m_folder(std::move(folder)) {}

    QString FileToOpen(const QString& title, const QString&) override
    {
        return m_folder + (title.contains(QStringLiteral("script")) ? QStringLiteral("/a.scm")
                                                                    : QStringLiteral("/cube.stl"));
    }
    QString FileToSave(const QString& title, const QString&) override
    {
        return m_folder + (title.contains(QStringLiteral("picture")) ? QStringLiteral("/out.png")
                                                                     : QStringLiteral("/out.stl"));
    }
    QString Folder(const QString&) override { return m_folder; }
    QString Text(const QString&, const QString&) override { return QStringLiteral("c\"be*"); }
    QColor Color(const QString&, const QColor&) override { return {1, 2, 3}; }

private:
    QString m_folder;
};

/// The user thinks better of it.
class SilentAsker final : public Pellux::IAsker
{
public:
    QString FileToOpen(const QString&, const QString&) override { return {}; }
    QString FileToSave(const QString&, const QString&) override { return {}; }
    QString Folder(const QString&) override { return {}; }
    QString Text(const QString&, const QString&) override { return {}; }
    QColor Color(const QString&, const QColor&) override { return {}; }
};

/// What each action prints; "DIR" is the folder of the test.
const std::map<QByteArray, const char*> kCommands = {
    {"file.open", "(doc:load \"DIR/cube.stl\")"},
    {"file.import", "(doc:import \"DIR/cube.stl\")"},
    {"file.reload", "(doc:reload)"},
    {"file.watch", "(app:watch #t)"},
    {"file.save-as", "(doc:save \"DIR/out.stl\")"},
    {"file.save-picture", "(view:save-image \"DIR/out.png\")"},
    {"file.copy-picture", "(view:copy-image)"},
    {"file.run-script", "(define from-file 7)"},
    {"file.input-folder", "(app:set-default-input-directory! \"DIR\")"},
    {"file.output-folder", "(app:set-default-output-directory! \"DIR\")"},
    {"file.close", "(doc:clear)"},
    {"file.quit", "(app:quit)"},
    {"edit.undo", "(view:undo)"},
    {"edit.redo", "(view:redo)"},
    {"edit.undo-model", "(doc:undo)"},
    {"edit.redo-model", "(doc:redo)"},
    {"edit.note-state", "(doc:note-state)"},
    {"edit.journal", "(app:show-panel \"journal\")"},
    {"edit.preferences", "(app:show-panel \"preferences\")"},
    {"view.front", "(view:front)"},
    {"view.back", "(view:back)"},
    {"view.left", "(view:left)"},
    {"view.right", "(view:right)"},
    {"view.top", "(view:top)"},
    {"view.bottom", "(view:bottom)"},
    {"view.iso", "(view:iso)"},
    {"view.reset-layout", "(app:reset-layout)"},
    {"view.fit", "(view:zoom-all)"},
    {"view.fit-selection", "(view:zoom-to (sel:get))"},
    {"view.parallel", "(view:projection \"parallel\")"},
    {"view.perspective", "(view:projection \"perspective\")"},
    {"view.y-up", "(view:up-axis \"y\")"},
    {"view.z-up", "(view:up-axis \"z\")"},
    {"view.rotate-about-selection", "(view:rotation-center (entity:center (car (sel:get))))"},
    {"view.rotate-about-model", "(view:rotation-center #f)"},
    {"view.animate", "(view:animate #t)"},
    {"view.navigation.default", "(app:navigation \"default\")"},
    {"view.navigation.left-rotates", "(app:navigation \"left-rotates\")"},
    {"view.navigation.middle-rotates", "(app:navigation \"middle-rotates\")"},
    {"view.navigation.right-rotates", "(app:navigation \"right-rotates\")"},
    {"view.faces", "(view:display-faces #f)"},
    {"view.edges", "(view:display-edges #f)"},
    {"view.vertices", "(view:display-vertices #t)"},
    {"view.tessellation", "(view:display-tessellation #t)"},
    {"view.clouds", "(view:display-clouds #f)"},
    {"view.pmi", "(view:display-pmi #f)"},
    {"view.axes", "(view:display-axes #t)"},
    {"view.xray", "(view:xray #t)"},
    {"view.background-top", "(app:set-background-color! 1 '(1 2 3))"},
    {"view.background-bottom", "(app:set-background-color! 2 '(1 2 3))"},
    {"view.hide", "(view:hide (sel:get))"},
    {"view.isolate", "(view:isolate (sel:get))"},
    {"view.show-all", "(view:show-all)"},
    {"view.sections-off", "(view:section-off)"},
    {"view.clear-drawing", "(view:clear-drawing)"},
    {"select.by-name", "(sel:by-name \"c\\\"be*\")"},
    {"select.bodies", "(sel:by-kind \"body\")"},
    {"select.faces", "(sel:by-kind \"face\")"},
    {"select.edges", "(sel:by-kind \"edge\")"},
    {"select.vertices", "(sel:by-kind \"vertex\")"},
    {"select.whole", "(apply sel:set (map entity:body (sel:get)))"},
    {"select.clear", "(sel:clear)"},
    {"measure.distance", "(apply measure:distance (sel:get))"},
    {"measure.angle", "(apply measure:angle (sel:get))"},
    {"measure.thickness", "(measure:face-thickness (car (sel:get)))"},
    {"measure.length", "(map entity:length (sel:get))"},
    {"measure.radius", "(map measure:radius (sel:get))"},
    {"measure.area", "(map entity:area (sel:get))"},
    {"measure.volume", "(map entity:volume (sel:get))"},
    {"measure.box", "(map entity:box (sel:get))"},
    {"measure.model-box", "(doc:bounding-box)"},
    {"help.commands", "(app:show-panel \"commands\")"},
    {"help.keys", "(app:show-panel \"keys\")"},
    {"help.about", "(app:show-panel \"about\")"},
};

QString bare(QString text)
{
    return text.remove(u'&').remove(QStringLiteral("..."));
}

class ActionTable : public WindowFixture
{
protected:
    ActionTable()
    {
        Dir().Write("a.scm", "(define from-file 7)\n");
        m_cube = WriteCube();
        Open();
        m_folder = QString::fromStdString(Dir().Path().string());
        table().SetAsker(std::make_unique<FakeAsker>(m_folder));
        Do("(view:animate #f)");
    }

    Pellux::ActionTable& table() { return Window().Menus().Actions(); }

    void load() { ASSERT_TRUE(Runner().Run(QStringLiteral("(doc:load \"%1\")").arg(m_cube))); }

    /// Selects so many faces that the action can be chosen.
    void prepareFor(const QAction& action)
    {
        if (!Pellux::WindowState::HasModel())
            load();
        for (const char* const selection :
             {"(sel:set (car (sel:by-kind \"face\")))",
              "(let ((all (sel:by-kind \"face\"))) (sel:set (car all) (cadr all)))"}) {
            Do(selection);
            if (action.isEnabled())
                return;
        }
    }

    /// @return what choosing an action echoes.
    QString choose(const QByteArray& id)
    {
        QAction& action = *table().Find(id);
        prepareFor(action);
        EXPECT_TRUE(action.isEnabled()) << id.toStdString();
        echoed.clear();
        action.trigger();
        return echoed.join(u'\n');
    }

    QString expected(const QByteArray& id)
    {
        if (id.startsWith("panel."))
            return QStringLiteral("(app:show-panel \"%1\" %2)")
                .arg(QString::fromLatin1(id.mid(6)),
                     table().Find(id)->isChecked() ? QStringLiteral("#f") : QStringLiteral("#t"));
        const auto found = kCommands.find(id);
        EXPECT_NE(found, kCommands.end()) << id.toStdString() << " has no command here";
        QString text = found == kCommands.end() ? QString() : QString::fromUtf8(found->second);
        return text.replace(QStringLiteral("DIR"), m_folder);
    }

    QString m_cube;
    QString m_folder;
};

TEST_F(ActionTable, EachActionPrintsExactlyItsCommand)
{
    for (const QByteArray& id : table().Ids()) {
        if (id == "file.quit")
            continue;
        const QString command = expected(id);
        errors.clear();
        EXPECT_EQ(choose(id), command) << id.toStdString();
        EXPECT_EQ(errors, QStringList()) << id.toStdString();
    }
    EXPECT_EQ(choose("file.quit"), expected("file.quit"));
}

TEST_F(ActionTable, EveryCommandOfTheListHasItsAction)
{
    for (const auto& [id, command] : kCommands)
        EXPECT_NE(table().Find(id), nullptr) << id.toStdString();
}

/// Nothing can be chosen that the walk above does not choose; recent files have theirs.
TEST_F(ActionTable, MenusAndToolBarsHoldNoOtherActions)
{
    std::set<const QAction*> known;
    for (const QByteArray& id : table().Ids())
        known.insert(table().Find(id));
    QList<QWidget*> holders;
    for (QMenu* const menu : Window().menuBar()->findChildren<QMenu*>())
        if (menu->accessibleName() != QStringLiteral("Recent files"))
            holders << menu;
    for (QToolBar* const bar :
         Window().findChildren<QToolBar*>(QString(), Qt::FindDirectChildrenOnly))
        holders << bar;
    holders << &Window();
    std::size_t met = 0;
    for (const QWidget* const holder : holders)
        for (const QAction* const action : holder->actions()) {
            if (action->isSeparator() || action->menu() != nullptr)
                continue;
            ++met;
            EXPECT_TRUE(known.contains(action))
                << holder->objectName().toStdString() << ": " << action->text().toStdString();
        }

    EXPECT_GE(met, known.size());
}

TEST_F(ActionTable, EachActionHasATextATipAndItsOwnKey)
{
    std::set<QString> keys;
    std::set<QByteArray> ids;
    for (const QByteArray& id : table().Ids()) {
        const QAction& action = *table().Find(id);
        EXPECT_TRUE(ids.insert(id).second) << id.toStdString();
        EXPECT_FALSE(bare(action.text()).isEmpty()) << id.toStdString();
        EXPECT_NE(action.toolTip(), bare(action.text())) << id.toStdString();
        const QString key = action.shortcut().toString();
        EXPECT_TRUE(key.isEmpty() || keys.insert(key).second) << key.toStdString();
    }
}

TEST_F(ActionTable, ToolBarButtonsHaveIcons)
{
    const auto* const bar = Find<QToolBar>("main-tool-bar");
    ASSERT_GT(bar->actions().size(), 10);
    for (const QAction* const action : bar->actions())
        EXPECT_FALSE(action->icon().isNull()) << action->objectName().toStdString();
}

TEST_F(ActionTable, SwitchesFollowWhatScriptsDo)
{
    const QAction& faces = *table().Find("view.faces");
    const QAction& perspective = *table().Find("view.perspective");
    EXPECT_TRUE(faces.isChecked());
    EXPECT_TRUE(Do("(view:display-faces #f) (view:projection \"perspective\")"));
    EXPECT_FALSE(faces.isChecked());
    EXPECT_TRUE(perspective.isChecked());
    EXPECT_FALSE(table().Find("view.parallel")->isChecked());
}

TEST_F(ActionTable, AChoiceThatHoldsStaysChecked)
{
    QAction& parallel = *table().Find("view.parallel");
    ASSERT_TRUE(parallel.isChecked());
    parallel.trigger();
    EXPECT_TRUE(parallel.isChecked());
}

TEST_F(ActionTable, WhatMakesNoSenseIsOff)
{
    EXPECT_FALSE(table().Find("file.reload")->isEnabled());
    load();
    EXPECT_TRUE(table().Find("file.reload")->isEnabled());
    EXPECT_FALSE(table().Find("view.hide")->isEnabled());
    Do("(sel:set (car (sel:by-kind \"face\")))");
    EXPECT_TRUE(table().Find("view.hide")->isEnabled());
    EXPECT_FALSE(table().Find("measure.distance")->isEnabled());
}

TEST_F(ActionTable, NothingRunsWhenTheUserThinksBetterOfIt)
{
    table().SetAsker(std::make_unique<SilentAsker>());
    load();
    echoed.clear();
    for (const char* const id : {"file.open", "file.import", "file.save-as", "file.save-picture",
                                 "file.run-script", "select.by-name", "view.background-top"})
        table().Find(id)->trigger();
    EXPECT_EQ(echoed, QStringList());
}

TEST_F(ActionTable, APictureTooLargeForTheClipboardNamesTheLimit)
{
    errors.clear();
    Do("(view:copy-image 100000 100000)");

    EXPECT_TRUE(errors.join(u'\n').contains(QStringLiteral("GL_MAX_")))
        << errors.join(u'\n').toStdString();
}

TEST_F(ActionTable, PutsThePictureIntoTheClipboard)
{
    load();
    EXPECT_TRUE(Do("(view:copy-image 320 200)"));
    EXPECT_EQ(QGuiApplication::clipboard()->image().size(), QSize(320, 200));
}

TEST_F(ActionTable, ReloadKeepsCameraAndSections)
{
    load();
    ASSERT_TRUE(Do("(view:set-camera! '(50 40 30) '(1 2 3) '(0 1 0)) "
                   "(view:section '(0 0 5) '(0 0 1))"));
    printed.clear();
    ASSERT_TRUE(Do("(view:camera) (view:sections) (doc:reload) (view:camera) (view:sections)"));
    ASSERT_EQ(printed.size(), 5);
    EXPECT_EQ(printed[0], printed[3]);
    EXPECT_EQ(printed[1], printed[4]);
}

TEST_F(ActionTable, PanelsAreShownAndHiddenByName)
{
    EXPECT_TRUE(Do("(app:show-panel \"about\")"));
    EXPECT_TRUE(Pellux::WindowState::IsPanelShown(QStringLiteral("about")));
    EXPECT_TRUE(Do("(app:show-panel \"about\" #f)"));
    EXPECT_FALSE(Pellux::WindowState::IsPanelShown(QStringLiteral("about")));
    EXPECT_FALSE(Do("(app:show-panel \"nothing\")"));
    EXPECT_TRUE(errors.last().contains(QStringLiteral("expected one of console, ")));
}

class HotkeysOfTheUser : public WindowFixture
{
};

TEST_F(HotkeysOfTheUser, WinOverKeysOfMenus)
{
    options.configurationFile = Dir().Write("own.toml", "[hotkeys]\n\"Ctrl-o\" = \"(view:iso)\"\n");
    Open();
    EXPECT_TRUE(Window().Menus().Actions().Find("file.open")->shortcut().isEmpty());
    EXPECT_FALSE(Window().Menus().Actions().Find("file.quit")->shortcut().isEmpty());
}

} // namespace
