#include "trophy_logic.h"

#include "core/db.h"
#include "core/globals.h"
#include "core/routines.h"
#include "reports/report.h"
#include "reports/top_cut.h"

namespace {

QString quoted(const QString &s)
{
    return QLatin1Char('\'') + Sql_Quote(s) + QLatin1Char('\'');
}

QString Detail_Table(Trophy_Page page)
{
    switch (page) {
    case Trophy_Page::Groups:
        return QStringLiteral("custom_reports_groups");
    case Trophy_Page::Dances:
        return QStringLiteral("custom_reports_dances");
    case Trophy_Page::Fields:
        break;
    }
    return QStringLiteral("custom_reports_fields");
}

QString Detail_Column(Trophy_Page page)
{
    return page == Trophy_Page::Groups ? QStringLiteral("group_id")
           : page == Trophy_Page::Dances ? QStringLiteral("dance_id")
                                         : QStringLiteral("fvalue");
}

QList<Trophy_Item> Groups(Connection &conn, const QString &sql)
{
    QList<Trophy_Item> out;
    for (RowSet rs = conn.query(sql); !rs.eof(); rs.next())
        out << Trophy_Item{rs.text(QStringLiteral("competition_group_id")),
                           rs.text(QStringLiteral("age_group")) + QLatin1Char(' ')
                               + rs.text(QStringLiteral("championship_title"))};
    return out;
}

QList<Trophy_Item> Dances(Connection &conn, const QString &sql)
{
    QList<Trophy_Item> out;
    for (RowSet rs = conn.query(sql); !rs.eof(); rs.next())
        out << Trophy_Item{rs.text(QStringLiteral("dance_id")), rs.text(QStringLiteral("dance"))};
    return out;
}

// Values met again (in another field, or in another case) are shown once.
void Add_Values(QList<Trophy_Item> &out, Connection &conn, const QString &sql)
{
    for (RowSet rs = conn.query(sql); !rs.eof(); rs.next()) {
        const QString v = rs.text(QStringLiteral("cvalue"));
        bool seen = false;
        for (const Trophy_Item &i : out)
            seen = seen || i.key.compare(v, Qt::CaseInsensitive) == 0;
        if (!seen)
            out << Trophy_Item{v, v};
    }
}

QString Dance_Join(short comp, int trophy, bool included)
{
    const QString id = QString::number(comp);
    return QStringLiteral("SELECT DISTINCT d.dance, d.dance_id FROM (((dances AS d INNER JOIN category_dances AS c ON "
                          "d.dance_id = c.dance_id) INNER JOIN age_groups AS a ON a.category = c.category_id) INNER JOIN "
                          "custom_reports_groups AS g ON g.group_id = a.competition_group_id)")
           + (included ? QStringLiteral(" INNER JOIN custom_reports_dances AS r on r.dance_id = d.dance_id") : QString())
           + QStringLiteral(" WHERE a.competition_id = ") + id + QStringLiteral(" AND c.competition_id = ") + id
           + QStringLiteral("  AND g.id = ") + QString::number(trophy)
           + (included ? QStringLiteral(" AND r.id = ") + QString::number(trophy) : QString())
           + QStringLiteral(" ORDER BY 1");
}

} // namespace

QList<Trophy> Read_Trophies(Connection &conn, short comp)
{
    const QString id = QString::number(comp);
    QList<Trophy> out;
    out.reserve(conn.scalar(QStringLiteral("SELECT count(*) AS no_records FROM custom_reports WHERE competition_id = ") + id)
                    .toInt());
    RowSet rs = conn.query(QStringLiteral("SELECT id, name FROM custom_reports WHERE competition_id = ") + id
                           + QStringLiteral(" ORDER BY 2,1"));
    for (; !rs.eof(); rs.next())
        out << Trophy{rs.value(QStringLiteral("id")).toInt(), rs.text(QStringLiteral("name"))};
    return out;
}

int Create_Trophy(Connection &conn, short comp, const QString &name)
{
    const QString id = QString::number(comp);
    conn.execute(QStringLiteral("INSERT INTO custom_reports(competition_id, name) VALUES(") + id + QLatin1Char(',')
                 + quoted(name) + QLatin1Char(')'));
    return conn
        .scalar(QStringLiteral("Select max(id) AS max_id FROM custom_reports WHERE competition_id = ") + id
                + QStringLiteral(" AND name = ") + quoted(name))
        .toInt();
}

void Delete_Trophy(Connection &conn, int trophy)
{
    Transaction t(conn);
    for (const char *table : {"custom_reports", "custom_reports_groups", "custom_reports_dances", "custom_reports_fields"})
        conn.execute(QStringLiteral("DELETE FROM ") + QLatin1String(table) + QStringLiteral(" WHERE id = ")
                     + QString::number(trophy));
}

QList<Trophy_Item> Available_Items(Connection &conn, short comp, int trophy, Trophy_Page page)
{
    const QString id = QString::number(comp);
    if (page == Trophy_Page::Groups)
        return Groups(conn, QStringLiteral("SELECT a.competition_group_id, a.age_group, a.championship_title FROM "
                                           "age_groups AS a WHERE a.competition_id = ")
                                + id + QStringLiteral(" ORDER BY 3,2"));
    if (page == Trophy_Page::Dances)
        return Dances(conn, Dance_Join(comp, trophy, false));
    QList<Trophy_Item> out;
    for (const char *field : {"custom1", "custom2", "custom3", "custom4"}) {
        const QString f = QStringLiteral("c.") + QLatin1String(field);
        Add_Values(out, conn,
                   QStringLiteral("SELECT DISTINCT ") + f + QStringLiteral(" AS cvalue FROM competitors AS c WHERE "
                                                                           "c.competition_id = ")
                       + id + QStringLiteral(" AND ") + f + QStringLiteral(" IS NOT NULL AND ") + f
                       + QStringLiteral(" <> ''"));
    }
    return out;
}

QList<Trophy_Item> Included_Items(Connection &conn, short comp, int trophy, Trophy_Page page)
{
    if (page == Trophy_Page::Groups)
        return Groups(conn, QStringLiteral("SELECT a.competition_group_id, a.age_group, a.championship_title FROM "
                                           "age_groups AS a INNER JOIN custom_reports_groups AS c ON "
                                           "a.competition_group_id = c.group_id WHERE a.competition_id = ")
                                + QString::number(comp) + QStringLiteral(" AND c.id = ") + QString::number(trophy)
                                + QStringLiteral(" ORDER BY 3,2"));
    if (page == Trophy_Page::Dances)
        return Dances(conn, Dance_Join(comp, trophy, true));
    QList<Trophy_Item> out;
    Add_Values(out, conn,
               QStringLiteral("SELECT DISTINCT fvalue AS cvalue FROM custom_reports_fields WHERE id = ")
                   + QString::number(trophy) + QStringLiteral(" ORDER BY 1"));
    return out;
}

void Save_Page(Connection &conn, int trophy, Trophy_Page page, const QStringList &keys)
{
    const QString table = Detail_Table(page);
    const QString id = QString::number(trophy);
    In_Savepoint(conn, [&] {
        conn.execute(QStringLiteral("DELETE FROM ") + table + QStringLiteral(" WHERE id = ") + id);
        for (const QString &key : keys)
            conn.execute(QStringLiteral("INSERT INTO ") + table + QLatin1Char('(') + QStringLiteral("id, ")
                         + Detail_Column(page) + QStringLiteral(") VALUES(") + id + QLatin1Char(',')
                         + (page == Trophy_Page::Dances ? QString::number(key.toInt()) : quoted(key))
                         + QLatin1Char(')'));
    });
}

void Reset_Page(Connection &conn, int trophy, Trophy_Page page)
{
    conn.execute(QStringLiteral("DELETE FROM ") + Detail_Table(page) + QStringLiteral(" WHERE id = ")
                 + QString::number(trophy));
}

QList<Trophy_Row> Trophy_Top_10(Connection &conn, short comp, int trophy)
{
    const QString id = QString::number(comp);
    const QString t = QString::number(trophy);
    const bool byField = conn.scalar(QStringLiteral("SELECT count(*) as no_fields FROM custom_reports_fields WHERE id = ")
                                     + t + QStringLiteral(" AND fvalue IS NOT NULL"))
                             .toInt()
                         > 0;
    const QString name = QStringLiteral("ifnull(c.forename,'') || ' ' || ifnull(c.surname,'')");
    // A dancer matching two of the values meets two value rows, so counts twice.
    const QString fieldJoin =
        byField ? QStringLiteral(" INNER JOIN custom_reports_fields AS f ON c.custom1 = f.fvalue OR c.custom2 = "
                                 "f.fvalue OR c.custom3 = f.fvalue OR c.custom4 = f.fvalue")
                : QString();
    RowSet rs = conn.query(
        QStringLiteral("SELECT Sum(o.points) AS tot_points, o.competitor_id, ") + name
        + QStringLiteral(" AS name FROM overall_dance_results AS o INNER JOIN custom_reports_groups AS g ON o.group_id = "
                         "g.group_id INNER JOIN custom_reports_dances AS d ON o.dance_id = d.dance_id INNER JOIN "
                         "competitors AS c ON o.competitor_id = c.competitor_id")
        + fieldJoin
        + QStringLiteral(" INNER JOIN custom_reports AS r ON r.id = g.id") + (byField ? QStringLiteral(" AND r.id = f.id") : QString())
        + QStringLiteral(" AND r.id = d.id LEFT JOIN dance_no_dancers AS b ON (o.dance_id = b.dance_id) AND (o.group_id = "
                         "b.group_id) AND (o.competition_id = b.competition_id) Where c.competition_id = ")
        + id + QStringLiteral(" AND o.competition_id = ") + id + QStringLiteral(" AND r.competition_id = ") + id
        + QStringLiteral(" AND r.id = ") + t
        + QStringLiteral(" AND o.points > 0 AND b.group_id Is Null AND b.dance_id IS NULL AND b.competition_id IS NULL "
                         "GROUP BY o.competitor_id, ")
        + name + QStringLiteral(" ORDER BY 1 DESC, 2"));
    QList<double> points;
    for (; !rs.eof(); rs.next())
        points << rs.toDouble(QStringLiteral("tot_points"));
    QList<Trophy_Row> out;
    rs.moveFirst();
    for (int i = Top_Count(points, 10); i > 0; --i, rs.next())
        out << Trophy_Row{rs.text(QStringLiteral("competitor_id")), rs.text(QStringLiteral("name")),
                          Total_Text(rs.value(QStringLiteral("tot_points")))};
    return out;
}

void Fill_Trophy_Report(Connection &conn, Report &report, int trophy, const QString &trophyName)
{
    report.Controls(QStringLiteral("Section4"), QStringLiteral("compdate")).Caption = Current_Competition_Date;
    report.Controls(QStringLiteral("Section4"), QStringLiteral("cname")).Caption = Current_Competition_Name;
    report.Controls(QStringLiteral("Section4"), QStringLiteral("Label1")).Caption = trophyName;
    QString names;
    QString totals;
    for (const Trophy_Row &row : Trophy_Top_10(conn, Current_Competition_Id, trophy)) {
        names += row.number + QLatin1Char(' ') + row.name + QStringLiteral("\r\n");
        totals += row.points + QStringLiteral("\r\n");
    }
    report.Controls(QStringLiteral("Section2"), QStringLiteral("lbl_overall")).Caption = names;
    report.Controls(QStringLiteral("Section2"), QStringLiteral("lbl_points")).Caption = totals;
    report.Controls(QStringLiteral("Section3"), QStringLiteral("Footer")).Caption = Footer_Text();
}
