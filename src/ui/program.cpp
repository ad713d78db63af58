#include "program.h"
#include "application.h"
#include "dialog_presenter.h"
#include "frmMain.h"
#include "frmSplash.h"
#include "core/database_file.h"
#include "core/prepared_file.h"
#include "core/db.h"
#include "core/dialogs.h"
#include "core/doing.h"
#include "core/globals.h"
#include "core/pause.h"

namespace {

// A box that says what keeps the program from writing, when something does.
bool Refuse_Folder_Problem()
{
    const Folder_Problem problem = Check_Data_Folder();
    if (problem == Folder_Problem::None)
        return false;
    Msg_Box(Folder_Problem_Text(problem), vbCritical, App_Title);
    return true;
}

} // namespace

std::unique_ptr<frmMain> Start_Program()
{
    Opt_Judges_Points = false;
    Db_Password = QString::fromLatin1(DB_PASSWORD_CONSTANT);
    Current_Competition_Id = 0;
    try {
        Doing doing(QStringLiteral("Finding the data folder"));
        Data_Dir = Find_Data_Dir();
    } catch (const AppError &e) {
        Msg_Box(Fault_Text(e.message()), vbCritical, App_Title);
        return nullptr;
    }
    Finish_Interrupted_Compaction();
    if (!Adopt_Database_Name()) {
        Msg_Box(Folder_Problem_Text(Folder_Problem::Read_Only_Folder), vbCritical, App_Title);
        return nullptr;
    }
    Lay_Prepared_Database();

    Connection conn;
    if (!Open_Database(conn)) {
        Msg_Box(QStringLiteral("Unable to open database ") + Data_Dir);
        return nullptr;
    }
    // Nothing is written until the folder is known to take it.
    if (Refuse_Folder_Problem())
        return nullptr;

    frmSplash splash;
    splash.show();
    splash.repaint();
    for (int i = 0; i < 10; ++i)
        Pause_Ms(75);

    try {
        {
            Doing doing(QStringLiteral("Opening the database"));
            Upgrade_Database(conn);
            Read_Options(conn);
            Stamp_Database(conn);
            conn.close();
        }
        {
            Doing doing(QStringLiteral("Compacting and backing up the database"));
            Compact_Database();
        }
        auto main = std::make_unique<frmMain>();
        main->Load();
        splash.close();
        main->show();
        return main;
    } catch (const AppError &e) {
        conn.close();
        // The disk may have filled, or the folder turned read-only, since the check.
        const QString text = Fault_Text(e.message(), QStringLiteral("Starting the program"));
        if (!Refuse_Folder_Problem())
            Msg_Box(text, vbCritical, App_Title);
        return nullptr;
    }
}

int Run_Program(int argc, char *argv[])
{
    StrathmarkApp app(argc, argv);
    Install_Dialog_Presenter();
    std::unique_ptr<frmMain> main = Start_Program();
    if (!main)
        return 1;
    return app.exec();
}
