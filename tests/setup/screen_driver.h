#pragma once
// Drives a grid screen the way the operator does: keys on the focused
// control, cells reached by the cursor.
#include "ui/grid/flex_grid.h"
#include "ui/grid/grid_screen.h"

#include <QApplication>
#include <QLineEdit>
#include <QtTest>

class Driver
{
public:
    explicit Driver(GridScreen *s) : m_s(s) {}

    // Shows the screen with the grid focused.
    bool show()
    {
        m_s->resize(1100, 500);
        m_s->show();
        QApplication::setActiveWindow(m_s);
        if (!QTest::qWaitForWindowActive(m_s))
            return false;
        m_s->MSFlexGrid1->setFocus();
        QCoreApplication::processEvents();
        return true;
    }

    void press(int key, Qt::KeyboardModifiers mods = Qt::NoModifier)
    {
        QWidget *target = QApplication::focusWidget();
        QVERIFY(target);
        QTest::keyClick(target, Qt::Key(key), mods);
        QCoreApplication::processEvents();
    }

    void type(const QString &text)
    {
        for (QChar ch : text) {
            QTest::keyClick(QApplication::focusWidget(), ch.toLatin1());
            QCoreApplication::processEvents();
        }
    }

    void go(int row, int col)
    {
        m_s->MSFlexGrid1->setFocus();
        m_s->MSFlexGrid1->setCurrentCell(row, col);
        QCoreApplication::processEvents();
    }

    // Types a cell's new text (empty: the Delete key) and leaves it by Tab,
    // through the screen's checks.
    void enter(int row, int col, const QString &text)
    {
        go(row, col);
        if (text.isEmpty())
            press(Qt::Key_Delete);
        else
            type(text);
        press(Qt::Key_Tab);
    }

    // Finds the grid row whose column holds the text; -1 if none.
    int rowOf(int col, const QString &text) const
    {
        for (int r = m_s->Fixed_Rows(); r < m_s->Row_Count(); ++r)
            if (m_s->Cell(r, col) == text)
                return r;
        return -1;
    }

    QLineEdit *editor() const { return m_s->txtEdit; }

private:
    GridScreen *m_s;
};
