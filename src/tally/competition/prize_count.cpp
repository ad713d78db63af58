#include "prize_count.h"

#include "core/db.h"
#include "core/globals.h"
#include "core/routines.h"
#include "tally/tally_transaction.h"

namespace {

QString danceKey()
{
    return QStringLiteral(" WHERE competition_id = ") + QString::number(Current_Competition_Id)
           + QStringLiteral(" AND group_id = '") + Sql_Quote(Current_Group_Id) + QStringLiteral("' AND dance_id = ")
           + QString::number(Current_Dance_Id);
}

QString insertHead()
{
    return QString::number(Current_Competition_Id) + QStringLiteral(",'") + Sql_Quote(Current_Group_Id) + QStringLiteral("',")
           + QString::number(Current_Dance_Id) + QLatin1Char(',');
}

} // namespace

Prize_Choice Choose_No_Prizes(Connection &conn, short eventNoPrizes)
{
    Prize_Choice choice{eventNoPrizes, false};
    RowSet rs = conn.query(QStringLiteral("Select no_prizes FROM dance_no_prizes where competition_id = ")
                           + QString::number(Current_Competition_Id) + QStringLiteral(" AND group_id = '")
                           + Sql_Quote(Current_Group_Id) + QStringLiteral("'") + QStringLiteral(" AND dance_id =")
                           + QString::number(Current_Dance_Id));
    for (; !rs.eof(); rs.next()) {
        choice.No_Prizes = To_Int16(rs.value(QStringLiteral("no_prizes")));
        choice.From_Dance = true;
    }
    return choice;
}

short System_No_Prizes(Connection &conn, int dancers)
{
    const QString n = QString::number(dancers);
    RowSet rs = conn.query(QStringLiteral("SELECT no_prizes FROM system_no_prizes WHERE min_no <= ") + n
                           + QStringLiteral(" AND max_no >= ") + n);
    // Reading with no row is the end-of-data fault.
    return To_Int16(rs.value(QStringLiteral("no_prizes")));
}

short Set_Dance_No_Prizes(Connection &conn, short itemValue, int markedCells)
{
    Tally_Transaction t(conn);
    conn.execute(QStringLiteral("DELETE FROM dance_no_prizes") + danceKey());
    if (itemValue != Auto_No_Prizes) {
        conn.execute(QStringLiteral("INSERT INTO dance_no_prizes(competition_id, group_id, dance_id, no_prizes) VALUES(")
                     + insertHead() + QString::number(itemValue) + QLatin1Char(')'));
    } else if (markedCells > 0) {
        const short n = System_No_Prizes(conn, markedCells);
        conn.execute(QStringLiteral("INSERT INTO dance_no_prizes(competition_id, group_id, dance_id, no_prizes, auto) VALUES(")
                     + insertHead() + QString::number(n) + QStringLiteral(",'Y')"));
    }
    return itemValue;
}
