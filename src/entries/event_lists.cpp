#include "event_lists.h"
#include "core/db.h"

Event_List Load_Event_Lookup(Connection &conn, short competitionId)
{
    const QString id = QString::number(competitionId);
    const int total = conn.scalar(QStringLiteral("SELECT count(*) AS tot FROM age_groups WHERE competition_id = ") + id).toInt();
    RowSet rs = conn.query(QStringLiteral("SELECT competition_group_id, ifnull(championship_title,'') || ' ' || "
                                          "ifnull(age_group,'') as age_group FROM age_groups WHERE competition_id = ")
                           + id + QStringLiteral(" ORDER BY 2"));
    Event_List list;
    list.codes.reserve(total + 1);
    for (; !rs.eof(); rs.next()) {
        list.names << rs.text(QStringLiteral("age_group"));
        list.codes << rs.text(QStringLiteral("competition_group_id"));
    }
    list.codes << QString();   // the spare place
    return list;
}

Event_List Load_Search_Events(Connection &conn, short competitionId)
{
    const QString id = QString::number(competitionId);
    conn.scalar(QStringLiteral("Select count(*) as no_groups from age_groups where competition_id = ") + id);
    RowSet rs = conn.query(QStringLiteral("Select competition_group_id, age_group, category, championship_title from "
                                          "age_groups where competition_id = ")
                           + id + QStringLiteral(" ORDER BY 4,2"));
    Event_List list;
    for (; !rs.eof(); rs.next()) {
        list.names << rs.text(QStringLiteral("age_group")) + QLatin1Char(' ') + rs.text(QStringLiteral("championship_title"));
        list.codes << rs.text(QStringLiteral("competition_group_id"));
    }
    return list;
}

bool Group_Exists(const QStringList &codes, const QString &text)
{
    const QString wanted = text.toUpper();
    for (const QString &code : codes)
        if (code == wanted)
            return true;
    return false;
}
