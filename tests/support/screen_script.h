#pragma once
// An operator's actions on a grid screen, steps split by "|": @r,c cursor to a
// cell; ^r,c a click on a cell; >text keys typed faster than the program reads
// them ("\n" Enter, "\t" Tab, "\x1b" Esc, {Del} {F2} {Left} {Right} {Up} {Down}
// {Space} {BackTab} {Ctrl+C} {Ctrl+V} {Ctrl+X} by name), each going to whatever
// has the focus when its turn comes; !name a click on a control (!name:text on
// a list entry); *name the button's action without moving the focus (a
// shortcut); =r,c,text a cell set directly; ?n answer n to the next box;
// $sql a statement run; # close.
#include "core/db.h"
#include "core/dialogs.h"
#include "core/globals.h"
#include "ui/grid/flex_grid.h"
#include "ui/grid/grid_screen.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QLineEdit>
#include <QKeyEvent>
#include <QListWidget>
#include <QtTest>

struct Queued_Key : QObject
{
    Queued_Key(int k, Qt::KeyboardModifiers m, const QString &t) : key(k), mods(m), text(t) {}
    int key;
    Qt::KeyboardModifiers mods;
    QString text;
    bool event(QEvent *ev) override
    {
        if (ev->type() != QEvent::User)
            return QObject::event(ev);
        QKeyEvent e(QEvent::KeyPress, key, mods, text);
        if (QApplication::focusWidget())
            QApplication::sendEvent(QApplication::focusWidget(), &e);
        deleteLater();
        return true;
    }
};

inline void Queue_Keys(const QString &keys)
{
    static const QMap<QString, QPair<int, Qt::KeyboardModifiers>> named = {
        {"Del", {Qt::Key_Delete, {}}}, {"F2", {Qt::Key_F2, {}}}, {"Left", {Qt::Key_Left, {}}},
        {"Right", {Qt::Key_Right, {}}}, {"Up", {Qt::Key_Up, {}}}, {"Down", {Qt::Key_Down, {}}},
        {"Space", {Qt::Key_Space, {}}}, {"BackTab", {Qt::Key_Backtab, Qt::ShiftModifier}},
        {"Ctrl+C", {Qt::Key_C, Qt::ControlModifier}}, {"Ctrl+V", {Qt::Key_V, Qt::ControlModifier}},
        {"Ctrl+X", {Qt::Key_X, Qt::ControlModifier}}};
    for (int i = 0; i < keys.size(); ++i) {
        const QChar c = keys.at(i);
        Queued_Key *k = nullptr;
        if (c == '{' && keys.indexOf('}', i) > i) {
            const int end = keys.indexOf('}', i);
            const auto [key, mods] = named.value(keys.mid(i + 1, end - i - 1));
            k = new Queued_Key(key, mods, key == Qt::Key_Space ? QStringLiteral(" ") : QString());
            i = end;
        } else {
            const int key = c == '\n' ? Qt::Key_Return : c == '\t' ? Qt::Key_Tab : c == '\x1b' ? Qt::Key_Escape : c.toUpper().unicode();
            k = new Queued_Key(key, Qt::NoModifier, c.isPrint() ? QString(c) : QString());
        }
        QCoreApplication::postEvent(k, new QEvent(QEvent::User));
    }
}

inline void Run_Script(GridScreen *s, Connection &conn, const QString &script)
{
    if (!s->isVisible()) {
        s->resize(1200, 700);
        s->show();
        QApplication::setActiveWindow(s);
        (void)QTest::qWaitForWindowActive(s, 1000);
        s->MSFlexGrid1->setFocus();
    }
    for (const QString &step : script.split('|')) {
        const QString arg = step.mid(1);
        const QStringList p = arg.split(',');
        QWidget *w = s->findChild<QWidget *>(arg.section(':', 0, 0));
        if (step[0] == '@')
            s->MSFlexGrid1->setFocus(), s->MSFlexGrid1->setCurrentCell(p[0].toInt(), p[1].toInt());
        if (step[0] == '^')
            QTest::mouseClick(s->MSFlexGrid1->viewport(), Qt::LeftButton, {},
                              s->MSFlexGrid1->visualRect(s->MSFlexGrid1->model()->index(p[0].toInt(), p[1].toInt())).center());
        if (step[0] == '>')
            Queue_Keys(arg);
        if (auto *list = qobject_cast<QListWidget *>(w); step[0] == '!' && list && arg.contains(':'))
            QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->findItems(arg.section(':', 1), Qt::MatchExactly).value(0)).center());
        else if (step[0] == '!' && w)
            QTest::mouseClick(w, Qt::LeftButton);
        if (auto *button = qobject_cast<QAbstractButton *>(w); step[0] == '*' && button)
            button->click();
        if (step[0] == '=')
            s->Set_Cell(p[0].toInt(), p[1].toInt(), arg.section(',', 2));
        if (step[0] == '?')
            Dialogs::queueAnswer(arg.toInt());
        if (step[0] == '$')
            conn.execute(arg);
        if (step[0] == '#')
            s->close();
        for (int i = 0; i < 5; ++i)
            QCoreApplication::processEvents();
    }
}

// What the operator can see after a script, by key: "at" (row,col), "cell r,c",
// "editor" (its text, or "closed"), "caret", "selected", "over" (1: the editor
// lies over its cell), "focus" (editor, grid or the focused control's name),
// "boxes" (all, " / " between), "box", "title", "kind", "nboxes", "dirty",
// "rows", "added", "open", "connected", "clipboard", "shown name" (1 if the
// control is visible), "row r" (its cells, "," between), "items list", "competition"
// (the current id and name), "sql query" (a statement's answer; "IS" stands for
// "=" there).
inline QString Screen_State(GridScreen *s, Connection &conn, const QString &key)
{
    const QString k = key.section(' ', 0, 0), rest = key.section(' ', 1);
    if (k == "at")
        return QString("%1,%2").arg(s->Current_Row()).arg(s->Current_Col());
    if (k == "cell")
        return s->Cell(rest.section(',', 0, 0).toInt(), rest.section(',', 1).toInt());
    if (k == "editor")
        return s->Editor_Open() ? s->txtEdit->text() : "closed";
    if (k == "caret")
        return QString::number(s->txtEdit->cursorPosition());
    if (k == "selected")
        return s->txtEdit->selectedText();
    if (k == "over") {
        const QRect cell = s->MSFlexGrid1->visualRect(s->MSFlexGrid1->model()->index(s->Current_Row(), s->Current_Col()));
        return QString::number(s->txtEdit->geometry().topLeft() == s->MSFlexGrid1->viewport()->mapTo(s, cell.topLeft()));
    }
    if (k == "focus") {
        QWidget *f = QApplication::focusWidget();
        return f == s->txtEdit ? "editor" : f == s->MSFlexGrid1 ? "grid" : f ? f->objectName() : "none";
    }
    if (k == "boxes")
        return Dialogs::texts().join(" / ");
    if (k == "box")
        return Dialogs::records().isEmpty() ? QString() : Dialogs::lastRecord().text;
    if (k == "title")
        return Dialogs::lastRecord().title;
    if (k == "kind")
        return Dialogs::lastRecord().kind;
    if (k == "nboxes")
        return QString::number(Dialogs::records().size());
    if (k == "dirty")
        return QString::number(s->Dirty());
    if (k == "rows")
        return QString::number(s->Row_Count());
    if (k == "added")
        return QString::number(s->Added_Rows());
    if (k == "open")
        return QString::number(s->isVisible());
    if (k == "connected")
        return QString::number(s->conn().isOpen());
    if (k == "clipboard")
        return QApplication::clipboard()->text();
    if (k == "shown")
        return QString::number(s->findChild<QWidget *>(rest) && s->findChild<QWidget *>(rest)->isVisible());
    if (k == "row")
        return s->Row_Cells(rest.toInt()).join(',');
    if (k == "items") {
        QStringList items;
        if (auto *list = s->findChild<QListWidget *>(rest))
            for (int i = 0; i < list->count(); ++i)
                items << list->item(i)->text();
        return items.join(',');
    }
    if (k == "competition")
        return QString::number(Current_Competition_Id) + " " + Current_Competition_Name;
    if (k == "sql")
        return conn.scalar(QString(rest).replace(" IS ", " = ")).toString();
    return "unknown key " + key;
}

// Compares each "key=value" of expect, split by ";", with the screen.
inline void Check_State(GridScreen *s, Connection &conn, const QString &expect)
{
    for (const QString &pair : expect.split(';'))
        QCOMPARE(pair.section('=', 0, 0) + "=" + Screen_State(s, conn, pair.section('=', 0, 0)), pair);
}
