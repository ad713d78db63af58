#pragma once
#include <QHash>
#include <QMainWindow>
#include <QPointer>
#include <functional>

class QAction;
class QMdiArea;
class QMdiSubWindow;
class QMenu;

// The program's one top-level window: a menu above full-size screens.
class frmMain : public QMainWindow
{
    Q_OBJECT
public:
    using Screen_Factory = std::function<QWidget *()>;

    explicit frmMain(QWidget *parent = nullptr);
    ~frmMain() override;

    // Tells the menu which screen an item opens. Items with no screen stay
    // disabled. A factory may do its work and return null (a report shown).
    static void Register_Screen(const QString &menuItem, Screen_Factory factory);
    static bool Has_Screen(const QString &menuItem);

    // The load step: compacts with the message, then takes its place and size.
    void Load();
    // Unloads the screens, keeps the geometry unless minimised, compacts
    // with the message. False when a screen refused to close: the run goes on.
    bool Unload_Steps();

    QMdiArea *mdiArea() const { return m_mdi; }
    QAction *Menu_Action(const QString &item) const;

    // What a click on a menu item does: the competition guard where the item
    // needs it, the screen, then the stamp of the file.
    void Menu_Click(const QString &item);
    // Opens the item's screen full size under the menu, or brings it to the
    // front when it is open already. Null when none is registered.
    QWidget *Open_Screen(const QString &item);
    // The screen open for the item, if any.
    QWidget *Open_Screen_Of(const QString &item) const;

protected:
    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    // The live main windows, so that a late registration enables its item.
    static void Keep_Track(frmMain *window, bool live);
    void Build_Menus();
    void Refresh_Menu();
    // The window's own title again: the one the screen in front gave it when
    // it opened, or the program's title.
    void Refresh_Title();
    void Run_Guarded(const QString &item);
    void Stamp_File();
    void Compact_With_Message();
    void mnuFileExit_Click();
    void mnuFilePageSetup_Click();
    void mnuFilePrint_Click();
    void mnuHelpSearchForHelpOn_Click();
    void mnuHelpAbout_Click();

    QMdiArea *m_mdi = nullptr;
    QHash<QString, QAction *> m_actions;
    QHash<QString, QPointer<QMdiSubWindow>> m_open;
    QHash<QMdiSubWindow *, QString> m_screenTitles;
};
