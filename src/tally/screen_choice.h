#pragma once
// The competition, event and dance a mark screen works on. Several mark
// screens may be open at once, while the results logic reads the program's
// globals: each screen keeps its own choice here and sets the globals from it
// when it takes the focus and before each of its actions, so that nothing
// done on one screen reads or writes another screen's event.
#include "core/globals.h"

#include <QApplication>
#include <QListWidget>
#include <QMouseEvent>
#include <functional>

struct Screen_Choice
{
    short competition = Current_Competition_Id;
    QString competitionName = Current_Competition_Name;
    QString competitionDate = Current_Competition_Date;
    QString group;
    short dance = 0;

    void Assert() const
    {
        Current_Competition_Id = competition;
        Current_Competition_Name = competitionName;
        Current_Competition_Date = competitionDate;
        Current_Group_Id = group;
        Current_Dance_Id = dance;
    }
};

// Runs onFocus whenever the focus comes into the screen from outside it: the
// screen, or its frame in the main window, has become the active one.
inline void On_Screen_Focus(QWidget *screen, std::function<void()> onFocus)
{
    QObject::connect(qApp, &QApplication::focusChanged, screen,
                     [screen, onFocus = std::move(onFocus)](QWidget *old, QWidget *now) {
                         const auto inside = [screen](QWidget *w) { return w && (w == screen || screen->isAncestorOf(w)); };
                         if (inside(now) && !inside(old))
                             onFocus();
                     });
}

// A click on the entry the list already shows selected changes no selection,
// so the list says nothing; the screen reloads the event on it all the same.
class Shown_Entry_Click : public QObject
{
public:
    Shown_Entry_Click(QListWidget *list, std::function<int()> shownRow, std::function<void()> reload)
        : QObject(list), m_list(list), m_shownRow(std::move(shownRow)), m_reload(std::move(reload))
    {
        list->viewport()->installEventFilter(this);
    }

    bool eventFilter(QObject *, QEvent *event) override
    {
        // Seen before the list handles the press: the selection is still the old one.
        if (event->type() == QEvent::MouseButtonPress) {
            const QListWidgetItem *item = m_list->itemAt(static_cast<QMouseEvent *>(event)->position().toPoint());
            m_pressedShown = item && item->isSelected() && m_list->row(item) == m_shownRow();
        } else if (event->type() == QEvent::MouseButtonRelease && m_pressedShown) {
            m_pressedShown = false;
            const QListWidgetItem *item = m_list->itemAt(static_cast<QMouseEvent *>(event)->position().toPoint());
            if (item && m_list->row(item) == m_shownRow())
                m_reload();
        }
        return false;
    }

private:
    QListWidget *m_list;
    std::function<int()> m_shownRow;
    std::function<void()> m_reload;
    bool m_pressedShown = false;
};
