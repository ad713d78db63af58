#pragma once
// An operator's actions on a grid screen, steps split by "|": @r,c cursor to a
// cell; >text keys typed faster than the program reads them ("\n" Enter, "\t"
// Tab, "\x1b" Esc), each going to whatever has the focus when its turn comes;
// !name a click on a control (!name:text on a list entry); =r,c,text a cell set
// directly; ?n answer n to the next box; $sql a statement run; # close.
#include "core/db.h"
#include "core/dialogs.h"
#include "ui/grid/flex_grid.h"
#include "ui/grid/grid_screen.h"

#include <QKeyEvent>
#include <QListWidget>
#include <QtTest>

struct Queued_Key : QObject
{
    explicit Queued_Key(QChar k) : c(k) {}
    QChar c;
    bool event(QEvent *ev) override
    {
        if (ev->type() != QEvent::User)
            return QObject::event(ev);
        const int key = c == '\n' ? Qt::Key_Return : c == '\t' ? Qt::Key_Tab : c == '\x1b' ? Qt::Key_Escape : c.toUpper().unicode();
        QKeyEvent e(QEvent::KeyPress, key, Qt::NoModifier, c.isPrint() ? QString(c) : QString());
        if (QApplication::focusWidget())
            QApplication::sendEvent(QApplication::focusWidget(), &e);
        deleteLater();
        return true;
    }
};

inline void Run_Script(GridScreen *s, Connection &conn, const QString &script)
{
    s->resize(1200, 700);
    s->show();
    QApplication::setActiveWindow(s);
    (void)QTest::qWaitForWindowActive(s, 1000);
    s->MSFlexGrid1->setFocus();
    for (const QString &step : script.split('|')) {
        const QString arg = step.mid(1);
        const QStringList p = arg.split(',');
        QWidget *w = s->findChild<QWidget *>(arg.section(':', 0, 0));
        if (step[0] == '@')
            s->MSFlexGrid1->setFocus(), s->MSFlexGrid1->setCurrentCell(p[0].toInt(), p[1].toInt());
        for (QChar c : step[0] == '>' ? arg : QString())
            QCoreApplication::postEvent(new Queued_Key(c), new QEvent(QEvent::User));
        if (auto *list = qobject_cast<QListWidget *>(w); step[0] == '!' && list && arg.contains(':'))
            QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->findItems(arg.section(':', 1), Qt::MatchExactly).value(0)).center());
        else if (step[0] == '!' && w)
            QTest::mouseClick(w, Qt::LeftButton);
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
