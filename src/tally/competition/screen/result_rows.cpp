#include "result_rows.h"
#include "core/db.h"
#include "core/routines.h"

namespace {

QString Result_Select(short comp, const QString &code, const QString &table)
{
    const QString id = QString::number(comp);
    return "Select o.competitor_id As Num, ifnull(o.placing,'') || ifnull(o.tie,'') AS Place, "
           "ifnull(c.forename,'') || ' ' || ifnull(c.surname,'') as name from "
           + table + " o, competitors c where o.competition_id = " + id + " AND c.competition_id = " + id
           + " AND o.competitor_id = c.competitor_id AND o.group_id = '" + Sql_Quote(code) + "'";
}

QList<QStringList> Rows(Connection &conn, const QString &sql)
{
    RowSet rs = conn.query(sql);
    QList<QStringList> rows;
    for (; !rs.eof(); rs.next())
        rows.append({rs.text("Num"), rs.text("Place"), rs.text("name")});
    return rows;
}

} // namespace

QList<QStringList> Event_Result_Rows(Connection &conn, short comp, const QString &code, const QString &table)
{
    return Rows(conn, Result_Select(comp, code, table) + " Order by placing");
}

QList<QStringList> Dance_Result_Rows(Connection &conn, short comp, const QString &code, short dance)
{
    return Rows(conn, Result_Select(comp, code, QStringLiteral("overall_dance_results"))
                          + " AND dance_id = " + QString::number(dance) + " order by placing");
}

QStringList Result_Headers()
{
    return {QStringLiteral("Num"), QStringLiteral("Place"), QStringLiteral("Name")};
}
