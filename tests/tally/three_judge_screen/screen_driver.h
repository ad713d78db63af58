#pragma once
// Driving the three-judge mark screen as an operator does: clicks on list
// entries and buttons, keys to whatever has the focus.
#include "tally/three_judge/screen/three_judge_screen.h"
#include "core/db.h"
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

inline int Row_Of(QListWidget *list, const QString &text)
{
    for (int i = 0; i < list->count(); ++i)
        if (list->item(i)->text() == text)
            return i;
    return -1;
}

// The overall result as stored, in the grid's shape.
inline QList<QStringList> Stored_Overall(Connection &conn, const QString &group)
{
    RowSet rs = conn.query("SELECT h.placing, h.tie, h.competitor_id, h.dance_points, c.forename, c.surname FROM "
                           "highland_results h JOIN competitors c ON c.competitor_id = h.competitor_id AND "
                           "c.competition_id = h.competition_id WHERE h.group_id = '" + group + "' ORDER BY h.placing");
    QList<QStringList> rows;
    for (; !rs.eof(); rs.next())
        rows << QStringList{rs.text("placing") + rs.text("tie"), rs.text("competitor_id"), rs.text("dance_points"),
                            rs.text("forename") + " " + rs.text("surname")};
    return rows;
}

inline QList<QStringList> Stored_Dance(Connection &conn, const QString &group, int dance)
{
    RowSet rs = conn.query(QString("SELECT o.placing, o.tie, o.competitor_id, c.forename, c.surname FROM "
                                   "overall_dance_results o JOIN competitors c ON c.competitor_id = o.competitor_id AND "
                                   "c.competition_id = o.competition_id WHERE o.group_id = '%1' AND o.dance_id = %2 "
                                   "AND o.points > 0 ORDER BY o.placing").arg(group).arg(dance));
    QList<QStringList> rows;
    for (; !rs.eof(); rs.next())
        rows << QStringList{rs.text("placing") + rs.text("tie"), rs.text("competitor_id"),
                            rs.text("forename") + " " + rs.text("surname")};
    return rows;
}

inline void Open(ThreeJudgeScreen &s)
{
    s.resize(1280, 860);
    s.show();
    QVERIFY(QTest::qWaitForWindowExposed(&s));
    // Without a window manager (Xvfb) the window may never be told it is
    // active; the keys go to the focus widget all the same.
    QApplication::setActiveWindow(&s);
    (void)QTest::qWaitForWindowActive(&s, 1000);
}

inline void Select_Event(ThreeJudgeScreen &s, const QString &text)
{
    const int row = Row_Of(s.LstGroup, text);
    QVERIFY(row >= 0);
    Click_Item(s.LstGroup, row);
}

} // namespace Drive
