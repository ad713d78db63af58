#include "program.h"
#include "application.h"
#include "dialog_presenter.h"
#include "frmMain.h"
#include "frmSplash.h"
#include "core/database_file.h"
#include "core/prepared_file.h"
#include "core/db.h"
#include "core/dialogs.h"
#include "core/globals.h"
#include "core/pause.h"

std::unique_ptr<frmMain> Start_Program()
{
    Opt_Judges_Points = false;
    Db_Password = QString::fromLatin1(DB_PASSWORD_CONSTANT);
    Current_Competition_Id = 0;
    try {
        Data_Dir = Find_Data_Dir();
    } catch (const AppError &e) {
        Msg_Box(e.message(), vbCritical, App_Title);
        return nullptr;
    }
    Finish_Interrupted_Compaction();
    Lay_Prepared_Database();

    Connection conn;
    if (!Open_Database(conn)) {
        Msg_Box(QStringLiteral("Unable to open database ") + Data_Dir);
        return nullptr;
    }

    frmSplash splash;
    splash.show();
    splash.repaint();
    for (int i = 0; i < 10; ++i)
        Pause_Ms(75);

    try {
        Upgrade_Database(conn);
        Read_Options(conn);
        Stamp_Database(conn);
        conn.close();
        Compact_Database();

        auto main = std::make_unique<frmMain>();
        main->Load();
        splash.close();
        main->show();
        return main;
    } catch (const AppError &e) {
        Msg_Box(e.message(), vbCritical, App_Title);
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
