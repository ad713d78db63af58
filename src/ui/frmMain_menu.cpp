// The main window's menu: its items, the competition guard, and the items
// the window handles itself (print, help, about, exit).
#include "frmMain.h"
#include "frmAbout.h"
#include "help_pages.h"
#include "main_menu.h"
#include "menu_guard.h"
#include "core/database_file.h"
#include "core/dialogs.h"
#include "core/errors.h"
#include "core/globals.h"
#include "core/page_setup.h"
#include "core/routines.h"

#include <QDesktopServices>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrinter>
#include <QTextDocumentFragment>
#include <QTextEdit>
#include <QUrl>

namespace {

QPrinter &sharedPrinter()
{
    static QPrinter printer;
    return printer;
}

} // namespace

void frmMain::Build_Menus()
{
    for (const Menu_Def &def : Main_Menu_Tree()) {
        QMenu *menu = menuBar()->addMenu(def.caption);
        menu->setObjectName(def.name);
        for (const Menu_Entry &e : def.entries) {
            QAction *a = e.kind == Menu_Entry::Separator ? menu->addSeparator() : menu->addAction(e.caption);
            a->setObjectName(e.name);
            m_actions.insert(e.name, a);
            if (e.kind == Menu_Entry::Separator)
                continue;
            const QString item = e.name;
            connect(a, &QAction::triggered, this, [this, item] { Menu_Click(item); });
        }
        connect(menu, &QMenu::aboutToShow, this, &frmMain::Refresh_Menu);
    }
    Refresh_Menu();
}

QAction *frmMain::Menu_Action(const QString &item) const
{
    return m_actions.value(item);
}

void frmMain::Refresh_Menu()
{
    // An item whose screen is not part of the program yet stays greyed.
    for (const Menu_Def &def : Main_Menu_Tree())
        for (const Menu_Entry &e : def.entries)
            if (e.kind == Menu_Entry::Screen)
                m_actions.value(e.name)->setEnabled(Has_Screen(e.name));
}

void frmMain::Menu_Click(const QString &item)
{
    if (item == QLatin1String("mnuFileExit"))
        return mnuFileExit_Click();
    if (item == QLatin1String("mnuFilePageSetup"))
        return mnuFilePageSetup_Click();
    if (item == QLatin1String("mnuFilePrint"))
        return mnuFilePrint_Click();
    if (item == QLatin1String("mnuHelpSearchForHelpOn"))
        return mnuHelpSearchForHelpOn_Click();
    if (item == QLatin1String("mnuHelpAbout"))
        return mnuHelpAbout_Click();

    const Menu_Entry entry = Find_Menu_Entry(item);
    if (entry.kind != Menu_Entry::Screen)
        return;  // the Edit items do nothing
    if (!Has_Screen(item))
        return;
    if (entry.needsCompetition) {
        Run_Guarded(item);
    } else if (item == QLatin1String("mnuCompetitionWizard")) {
        // The wizard opens whatever goes wrong on its way.
        try {
            Open_Screen(item);
        } catch (...) {
        }
    } else {
        Open_Screen(item);
    }
    if (entry.stamps)
        Stamp_File();
}

void frmMain::Run_Guarded(const QString &item)
{
    switch (Competition_Guard()) {
    case Guard_Outcome::Open_Target:
        Open_Screen(item);
        break;
    case Guard_Outcome::Create_First:
        Msg_Box(QStringLiteral("You are required to create a new competition first!"), vbExclamation,
                QStringLiteral("Select Competition"));
        Open_Screen(QStringLiteral("mnuevents"));
        break;
    case Guard_Outcome::Select_First:
        Msg_Box(QStringLiteral("You are required to select an existing competition first!"), vbExclamation,
                QStringLiteral("Select Competition"));
        Open_Screen(QStringLiteral("mnuSelectCompetition"));
        break;
    }
}

void frmMain::Stamp_File()
{
    try {
        Stamp_Database();
    } catch (const AppError &e) {
        Msg_Box(e.message(), vbCritical, App_Title);
    }
}

void frmMain::mnuFilePageSetup_Click()
{
    if (Page_Chosen())
        sharedPrinter().setPageLayout(Chosen_Page_Layout());
    QPageSetupDialog dialog(&sharedPrinter(), this);
    dialog.setWindowTitle(QStringLiteral("Page Setup"));
    if (dialog.exec() == QDialog::Accepted)
        Choose_Page_Layout(sharedPrinter().pageLayout());
}

void frmMain::mnuFilePrint_Click()
{
    // Only a screen holding a rich text box has anything to print.
    QMdiSubWindow *active = m_mdi->activeSubWindow();
    QTextEdit *text = active && active->widget() ? active->widget()->findChild<QTextEdit *>(QStringLiteral("rtfText"))
                                                 : nullptr;
    if (!text)
        return;
    QPrintDialog dialog(&sharedPrinter(), this);
    dialog.setWindowTitle(QStringLiteral("Print"));
    dialog.setOption(QAbstractPrintDialog::PrintSelection, text->textCursor().hasSelection());
    if (dialog.exec() != QDialog::Accepted)
        return;
    if (sharedPrinter().printRange() == QPrinter::Selection) {
        QTextEdit selection;
        selection.setHtml(text->textCursor().selection().toHtml());
        selection.print(&sharedPrinter());
    } else {
        text->print(&sharedPrinter());
    }
}

void frmMain::mnuHelpSearchForHelpOn_Click()
{
    const QString helpFile = Help_Index();
    if (helpFile.isEmpty()) {
        Msg_Box(QStringLiteral("Unable to display Help Contents. There is no Help associated with this project."),
                vbInformation);
        return;
    }
    QDesktopServices::openUrl(QUrl::fromLocalFile(helpFile));
}

void frmMain::mnuHelpAbout_Click()
{
    auto *about = new frmAbout(this);
    about->setAttribute(Qt::WA_DeleteOnClose);
    about->open();
}
