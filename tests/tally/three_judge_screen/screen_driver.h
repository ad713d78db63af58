#pragma once
// Driving the three-judge mark screen as an operator does: clicks on list
// entries and buttons, keys to whatever has the focus.
#include "tally/three_judge/screen/three_judge_screen.h"
#include "ui/grid/flex_grid.h"

#include <QApplication>
#include <QListWidget>
#include <QPushButton>
#include <QtTest>

namespace Drive {

inline void Click_Item(QListWidget *list, int row)
{
    QListWidgetItem *it = list->item(row);
    QVERIFY(it);
    list->scrollToItem(it);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(it).center());
}

inline void Click(QPushButton *button)
{
    QVERIFY(button->isEnabled());
    QTest::mouseClick(button, Qt::LeftButton);
}

inline QWidget *Focus()
{
    QWidget *w = QApplication::focusWidget();
    return w ? w : QApplication::activeWindow();
}

inline void Press(Qt::Key key, Qt::KeyboardModifiers mods = Qt::NoModifier)
{
    QTest::keyClick(Focus(), key, mods);
}

inline void Type(const QString &text)
{
    for (QChar c : text)
        QTest::keyClick(Focus(), c.toLatin1());
}

// Puts the grid's cursor on a cell and gives the grid the focus.
inline void Go(ThreeJudgeScreen &s, int row, int col)
{
    s.MSFlexGrid1->setCurrentCell(row, col);
    s.MSFlexGrid1->setFocus();
    QApplication::processEvents();
}

// Types the marks of one judge's column, each followed by Enter; the cursor
// wraps to the next judge after the last dancer.
inline void Type_Column(const QStringList &marks)
{
    for (const QString &m : marks) {
        if (m.isEmpty())
            Press(Qt::Key_Delete);
        else
            Type(m);
        Press(Qt::Key_Return);
    }
}

inline QList<QStringList> Grid_Rows(const FlexGrid *g)
{
    QList<QStringList> rows;
    for (int r = 1; r < g->rowCount(); ++r) {
        QStringList row;
        for (int c = 0; c < g->columnCount(); ++c)
            row << g->Text(r, c);
        rows << row;
    }
    return rows;
}

} // namespace Drive
