#pragma once
// Drives the Competition mark screen as the operator does: clicks on lists
// and buttons found by their names, marks typed key by key.
#include "tally/competition/screen/FrmTallyComp.h"
#include "ui/grid/flex_grid.h"

#include <QCoreApplication>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QtTest>

namespace Drive {

inline QListWidget *List(FrmTallyComp &s, const char *name)
{
    auto *list = s.findChild<QListWidget *>(QString::fromLatin1(name));
    if (!list)
        qFatal("no list %s", name);
    return list;
}

inline QPushButton *Button(FrmTallyComp &s, const QString &name)
{
    auto *b = s.findChild<QPushButton *>(name);
    if (!b)
        qFatal("no button %s", qPrintable(name));
    return b;
}

inline FlexGrid *Grid(FrmTallyComp &s, const char *name)
{
    auto *g = s.findChild<FlexGrid *>(QString::fromLatin1(name));
    if (!g)
        qFatal("no grid %s", name);
    return g;
}

inline QLineEdit *Editor(FrmTallyComp &s)
{
    return s.findChild<QLineEdit *>(QStringLiteral("txtEdit"));
}

inline void Settle()
{
    for (int i = 0; i < 3; ++i)
        QCoreApplication::processEvents();
}

inline void Pick(QListWidget *list, const QString &text)
{
    const QList<QListWidgetItem *> found = list->findItems(text, Qt::MatchExactly);
    if (found.isEmpty())
        qFatal("no entry %s", qPrintable(text));
    list->scrollToItem(found.first());
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(found.first()).center());
    Settle();
}

inline void Click(QPushButton *b)
{
    QTest::mouseClick(b, Qt::LeftButton);
    Settle();
}

// Puts the mark grid's cursor on a cell and gives the grid the focus.
inline void Go(FrmTallyComp &s, int row, int col)
{
    FlexGrid *grid = Grid(s, "MSFlexGrid1");
    grid->setCurrentCell(row, col);
    grid->setFocus();
    Settle();
}

inline void Key(QWidget *w, int key, Qt::KeyboardModifiers mods = Qt::NoModifier)
{
    QTest::keyClick(w, static_cast<Qt::Key>(key), mods);
    Settle();
}

// Types a mark into the current cell: the first key opens the editor on the
// grid, the rest go into the editor; then the closing key (Enter by default).
inline void Type(FrmTallyComp &s, const QString &text, int closing = Qt::Key_Return)
{
    FlexGrid *grid = Grid(s, "MSFlexGrid1");
    QTest::keyClicks(grid, text.left(1));
    Settle();
    if (text.size() > 1)
        QTest::keyClicks(Editor(s), text.mid(1));
    if (closing)
        Key(Editor(s), closing);
}

// Marks of the grid from the first data row, a mark typed per dancer and an
// empty text passed over with Enter.
inline void Type_Column(FrmTallyComp &s, const QStringList &marks)
{
    for (const QString &m : marks) {
        if (m.isEmpty())
            Key(Grid(s, "MSFlexGrid1"), Qt::Key_Return);
        else
            Type(s, m);
    }
}

// Rows of a result grid as "num|place|name".
inline QStringList Rows(FlexGrid *grid)
{
    QStringList out;
    for (int r = 1; r < grid->rowCount(); ++r)
        out << grid->Text(r, 0) + "|" + grid->Text(r, 1) + "|" + grid->Text(r, 2);
    return out;
}

// Column of a grid from the first data row.
inline QStringList Column(FlexGrid *grid, int col)
{
    QStringList out;
    for (int r = 1; r < grid->rowCount(); ++r)
        out << grid->Text(r, col);
    return out;
}

} // namespace Drive
