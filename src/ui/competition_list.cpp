#include "competition_list.h"
#include "core/db.h"
#include "core/globals.h"

QList<Competition_Choice> Read_Competition_List(Connection &conn)
{
    // Sorted on the stored name, not on the joined text of the same name.
    RowSet rs = conn.query(QStringLiteral(
        "SELECT ifnull(competition_name,'') || ' ' || ifnull(competition_date,'') AS competition_name, competition_id "
        "FROM competitions ORDER BY competitions.competition_name DESC, competition_date"));
    QList<Competition_Choice> list;
    for (; !rs.eof(); rs.next())
        list << Competition_Choice{rs.text(QStringLiteral("competition_name")), rs.toShort(QStringLiteral("competition_id"))};
    return list;
}

void Select_Competition(Connection &conn, short id)
{
    Current_Competition_Id = id;
    RowSet rs = conn.query(QStringLiteral("SELECT competition_name, competition_date FROM competitions WHERE competition_id = ")
                           + QString::number(id));
    if (rs.eof())
        return;
    Current_Competition_Date = rs.text(QStringLiteral("competition_date"));
    Current_Competition_Name = rs.text(QStringLiteral("competition_name"));
}
