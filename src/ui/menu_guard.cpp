#include "menu_guard.h"
#include "core/db.h"
#include "core/globals.h"

Guard_Outcome Competition_Guard()
{
    if (Current_Competition_Id != 0)
        return Guard_Outcome::Open_Target;
    Connection conn;
    conn.open();
    const int count = conn.scalar(QStringLiteral("SELECT count(*) AS no_comp FROM competitions")).toInt();
    conn.close();
    return count < 1 ? Guard_Outcome::Create_First : Guard_Outcome::Select_First;
}
