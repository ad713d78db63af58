#pragma once
#include "core/db.h"

#include <QWidget>

// A screen opened from the main menu. It keeps its own connection to the
// database for as long as it is open, closes on Esc, and asks the screen
// itself (Query_Unload) whether it may close.
class Screen : public QWidget
{
    Q_OBJECT
public:
    // formName becomes the objectName; caption the window title.
    Screen(const QString &formName, const QString &caption, QWidget *parent = nullptr);
    ~Screen() override;

    Connection &conn() { return m_conn; }
    // Opens the screen's connection. On failure: the box "Unable to open
    // database " with the data file's path, and false.
    bool Open_Connection();
    // Closes the screen, and the main window's frame around it if it has one.
    // The screen may refuse (Query_Unload), then it stays.
    void Unload();

protected:
    // False keeps the screen open (a save that failed, for instance).
    virtual bool Query_Unload() { return true; }
    // Runs once the screen is sure to close, before its connection closes.
    virtual void Form_Unload() {}

    void closeEvent(QCloseEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    Connection m_conn;
    bool m_unloaded = false;
};
