#ifndef PELLUX_TESTS_TREE_TREEWINDOW_H
#define PELLUX_TESTS_TREE_TREEWINDOW_H

#include "WindowFixture.h"

#include <OrvikCore/ASession.h>
#include <OrvikCore/SessionMgr.h>

#include <tree/RowsView.h>
#include <tree/TreePanel.h>

#include <QItemSelectionModel>
#include <QSignalSpy>
#include <QTest>

/// The window with a model in it and its model tree at hand.
class TreeWindow : public WindowFixture
{
protected:
    /// Opens the window and loads a cube from a file "cube.stl".
    void OpenCube()
    {
        Open();
        Load(WriteCube());
    }

    void Load(const QString& file)
    {
        ASSERT_TRUE(Do(qPrintable(QStringLiteral("(doc:load \"%1\")").arg(file))));
        Settle();
        echoed.clear();
    }

    /// Lets what is put off come to its end.
    void Settle() { QTest::qWait(1); }

    Pellux::TreePanel& Panel() { return *Window().findChild<Pellux::TreePanel*>(); }
    Pellux::TreeModel& Model() { return Panel().Model(); }
    Pellux::RowsView& View() { return Panel().View(); }
    OrvikCore::ASession& Session() { return OrvikCore::SessionMgr::Instance().CurrentSession(); }

    /// Follows positions from the top row down, fetching what is not there.
    QModelIndex RowAt(std::initializer_list<int> positions)
    {
        QModelIndex index;
        for (const int position : positions) {
            if (Model().canFetchMore(index))
                Model().fetchMore(index);
            index = Model().index(position, 0, index);
        }
        return index;
    }

    /// The row of the cube's body.
    QModelIndex Body() { return RowAt({0, 0, 0}); }

    QStringList SelectedTexts()
    {
        QStringList texts;
        for (const QModelIndex& index : View().selectionModel()->selectedIndexes())
            texts << index.data().toString();
        return texts;
    }

    void Click(const QModelIndex& index, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        View().scrollTo(index);
        const QRect row = View().visualRect(index);
        QTest::mouseClick(View().viewport(), Qt::LeftButton, modifiers,
                          QPoint(row.left() + 60, row.center().y()));
        Settle();
    }
};

#endif
