#include "desk.h"

#include "core/db.h"
#include "core/errors.h"
#include "core/routines.h"

#include <QSet>

namespace {

QString Id(short comp)
{
    return QString::number(comp);
}

QString Condition(short comp, const Desk_Search &s)
{
    QString sql = " from competitors where competition_id = " + Id(comp);
    if (!s.number.isEmpty())
        sql += " AND competitor_id = " + QString::number(s.number.trimmed().toShort());
    if (!s.forename.isEmpty())
        sql += " AND forename like '%" + Sql_Quote(s.forename) + "%'";
    if (!s.surname.isEmpty())
        sql += " AND surname like '%" + Sql_Quote(s.surname) + "%'";
    return sql;
}

} // namespace

bool Valid_Desk_Number(const QString &text)
{
    bool ok = true;
    if (!text.isEmpty())
        text.trimmed().toShort(&ok);
    return ok;
}

QList<Desk_Hit> Desk_Find(Connection &conn, short comp, const Desk_Search &search)
{
    if (!Valid_Desk_Number(search.number))
        throw AppError(QStringLiteral("Not a competitor number"));
    const QString where = Condition(comp, search);
    const int found = conn.scalar("Select count(*) as no_comps " + where).toInt();
    QList<Desk_Hit> out;
    if (found == 1) {
        out << Desk_Hit{To_Int16(conn.scalar("Select competitor_id " + where)), QString()};
    } else if (found > 1) {
        RowSet rs = conn.query("Select competitor_id, ifnull(forename,'') || ' ' || ifnull(surname,'') as name, town "
                               + where + " order by surname");
        for (; !rs.eof(); rs.next())
            out << Desk_Hit{rs.toShort(QStringLiteral("competitor_id")),
                            rs.text(QStringLiteral("competitor_id")) + ' ' + rs.text(QStringLiteral("name")) + ", "
                                + rs.text(QStringLiteral("town"))};
    }
    return out;
}

Desk_Entry Read_Desk_Entry(Connection &conn, short comp, short number)
{
    RowSet rs = conn.query("Select competitor_id, forename, surname, address1, address2, town, age, teacher, notes, "
                           "registered FROM competitors WHERE competition_id = "
                           + Id(comp) + " AND competitor_id = " + QString::number(number));
    if (rs.eof())
        throw AppError(QStringLiteral("No such competitor"));
    Desk_Entry e;
    e.number = rs.toShort(QStringLiteral("competitor_id"));
    e.forename = rs.text(QStringLiteral("forename"));
    e.surname = rs.text(QStringLiteral("surname"));
    e.address1 = rs.text(QStringLiteral("address1"));
    e.address2 = rs.text(QStringLiteral("address2"));
    e.town = rs.text(QStringLiteral("town"));
    e.age = rs.text(QStringLiteral("age"));
    e.teacher = rs.text(QStringLiteral("teacher"));
    e.notes = rs.text(QStringLiteral("notes"));
    e.registered = rs.value(QStringLiteral("registered"));
    return e;
}

void Save_Desk_Entry(Connection &conn, short comp, const Desk_Entry &e)
{
    // The age goes in bare, so it must be a number first.
    QString age = e.age.trimmed();
    if (!age.isEmpty()) {
        bool ok = false;
        age = QString::number(age.toShort(&ok));
        if (!ok)
            throw AppError(QStringLiteral("The age is not a number"));
    }
    conn.execute("UPDATE competitors SET forename = '" + Sql_Quote(e.forename) + "', surname = '"
                 + Sql_Quote(e.surname) + "', age = " + Default_If_Empty(age, QStringLiteral("Null"))
                 + ", address1 = '" + Sql_Quote(e.address1) + "', address2 = '" + Sql_Quote(e.address2)
                 + "', town = '" + Sql_Quote(e.town) + "', teacher = '" + Sql_Quote(e.teacher) + "', notes = '"
                 + Sql_Quote(e.notes) + "' WHERE competition_id = " + Id(comp)
                 + " AND competitor_id = " + QString::number(e.number));
}

void Set_Registered(Connection &conn, short comp, short number, const QVariant &state)
{
    const QString value = state.isNull() ? QStringLiteral("NULL") : QString::number(state.toInt() == 1 ? 1 : 0);
    conn.execute("UPDATE competitors SET registered = " + value + " WHERE competition_id = " + Id(comp)
                 + " AND competitor_id = " + QString::number(number));
}

int Register_All(Connection &conn, short comp)
{
    const QString unsigned_ = " and competitor_id IN( select competitor_id FROM competitors WHERE registered IS NULL "
                              "AND competition_id = "
                              + Id(comp) + ")";
    const QStringList passes = {
        "select distinct competitor_id From comp_judges_results Where competition_id = " + Id(comp)
            + " and points_awarded1 IS NOT NULL" + unsigned_,
        "select distinct competitor_id From judges_results Where competition_id = " + Id(comp)
            + " and (points_awarded1 IS NOT NULL OR points_awarded2 IS NOT NULL OR points_awarded3 IS NOT NULL)"
            + unsigned_,
    };
    Transaction work(conn);
    QSet<short> done;
    for (const QString &pass : passes) {
        RowSet rs = conn.query(pass);
        for (; !rs.eof(); rs.next()) {
            const short number = rs.toShort(QStringLiteral("competitor_id"));
            Set_Registered(conn, comp, number, 0);
            done.insert(number);
        }
    }
    return done.size();
}
