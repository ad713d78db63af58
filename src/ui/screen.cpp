#include "screen.h"
#include "core/dialogs.h"
#include "core/errors.h"
#include "core/globals.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QMdiSubWindow>

Screen::Screen(const QString &formName, const QString &caption, QWidget *parent) : QWidget(parent)
{
    setObjectName(formName);
    setWindowTitle(caption);
}

Screen::~Screen() = default;

bool Screen::Open_Connection()
{
    try {
        m_conn.open();
        return true;
    } catch (const AppError &) {
        m_conn.close();
        Msg_Box(QStringLiteral("Unable to open database ") + Data_Dir + DB_FILE);
        return false;
    }
}

void Screen::Unload()
{
    // Inside the main window the frame closes the screen with it.
    if (auto *frame = qobject_cast<QMdiSubWindow *>(parentWidget())) {
        frame->close();
        return;
    }
    close();
}

void Screen::closeEvent(QCloseEvent *event)
{
    // Closed already (the frame follows a screen that closed itself).
    if (m_unloaded) {
        event->accept();
        return;
    }
    if (!Query_Unload()) {
        event->ignore();
        return;
    }
    m_unloaded = true;
    Form_Unload();
    m_conn.close();
    event->accept();
}

void Screen::showEvent(QShowEvent *event)
{
    m_unloaded = false;
    QWidget::showEvent(event);
}

void Screen::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && event->modifiers() == Qt::NoModifier) {
        event->accept();
        Unload();
        return;
    }
    QWidget::keyPressEvent(event);
}
