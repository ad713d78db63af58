#pragma once
// An operator's actions on a grid screen, written as one line of steps split
// by "|":  @r,c   cursor to a cell, grid focused
//          >text  keys typed faster than the program reads them ("\n" Enter,
//                 "\t" Tab, "\x1b" Esc): each waits in the event queue and goes
//                 to whatever has the focus when its turn comes
//          !name  a click on the control of that name; !name:text on a list entry
//          =r,c,t a cell's text set directly       ?n  answer n to the next box
//          #      the screen asked to close
#include "core/dialogs.h"
#include "ui/grid/flex_grid.h"
#include "ui/grid/grid_screen.h"

#include <QApplication>
#include <QKeyEvent>
#include <QListWidget>
#include <QtTest>

class Queued_Key : public QObject
{
public:
    explicit Queued_Key(QChar c) : m_c(c) {}
    bool event(QEvent *e) override
    {
        if (e->type() != QEvent::User)
            return QObject::event(e);
        const int key = m_c == '\n' ? Qt::Key_Return : m_c == '\t' ? Qt::Key_Tab : m_c == '\x1b' ? Qt::Key_Escape : m_c.toUpper().unicode();
        const QString text = m_c.isPrint() ? QString(m_c) : QString();
        if (QWidget *w = QApplication::focusWidget()) {
            QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text), release(QEvent::KeyRelease, key, Qt::NoModifier, text);
            QApplication::sendEvent(w, &press);
            QApplication::sendEvent(w, &release);
        }
        deleteLater();
        return true;
    }

private:
    QChar m_c;
};

inline void Run_Script(GridScreen *s, const QString &script)
{
    for (const QString &step : script.split('|')) {
        const QString arg = step.mid(1);
        const QStringList p = arg.split(',');
        if (step.startsWith('@')) {
            s->MSFlexGrid1->setFocus();
            s->MSFlexGrid1->setCurrentCell(p[0].toInt(), p[1].toInt());
        } else if (step.startsWith('>')) {
            for (QChar c : arg)
                QCoreApplication::postEvent(new Queued_Key(c), new QEvent(QEvent::User));
        } else if (step.startsWith('!')) {
            QWidget *w = s->findChild<QWidget *>(arg.section(':', 0, 0));
            QVERIFY2(w, qPrintable(arg));
            if (auto *list = qobject_cast<QListWidget *>(w); list && arg.contains(':')) {
                const QRect r = list->visualItemRect(list->findItems(arg.section(':', 1), Qt::MatchExactly).value(0));
                QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, r.center());
            } else {
                QTest::mouseClick(w, Qt::LeftButton);
            }
        } else if (step.startsWith('=')) {
            s->Set_Cell(p[0].toInt(), p[1].toInt(), arg.section(',', 2));
        } else if (step.startsWith('?')) {
            Dialogs::queueAnswer(arg.toInt());
        } else if (step == "#") {
            s->close();
        }
        for (int i = 0; i < 5; ++i)
            QCoreApplication::processEvents();
    }
}

// Shows the screen with the grid focused.
inline void Show_Screen(GridScreen *s)
{
    s->resize(1200, 700);
    s->show();
    QApplication::setActiveWindow(s);
    (void)QTest::qWaitForWindowActive(s, 1000);
    s->MSFlexGrid1->setFocus();
}
