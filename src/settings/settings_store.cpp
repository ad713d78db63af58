#include "settings_store.h"

#include "core/db.h"
#include "core/globals.h"
#include "core/routines.h"

void Set_Switch(Connection &conn, Switch_Option option, bool on)
{
    static const char *const columns[] = {"judges_points", "show_address", "auto_save", "judges_order"};
    bool *const globals[] = {&Opt_Judges_Points, &Opt_Show_Address, &Opt_Auto_Save, &Opt_Judges_Order};
    const int i = static_cast<int>(option);
    *globals[i] = on;
    conn.execute(QStringLiteral("UPDATE system_settings SET ") + QLatin1String(columns[i])
                 + (on ? QStringLiteral(" = 1") : QStringLiteral(" = 0")));
}

void Set_Check_Mode(Connection &conn, short position)
{
    Opt_Check_Mode = position;
    conn.execute(QStringLiteral("UPDATE system_settings SET check_mode = ") + QString::number(position));
}

void Set_Locale(Connection &conn, short position)
{
    Opt_Locale = position != 0;
    conn.execute(QStringLiteral("UPDATE system_settings SET locale = ") + QString::number(position));
}

void Set_Check_Dir(Connection &conn, const QString &folder)
{
    Opt_Check_Dir = folder;
    conn.execute(QStringLiteral("UPDATE system_settings SET check_dir = '") + Sql_Quote(folder) + QStringLiteral("'"));
}
