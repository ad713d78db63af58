#include "fixtures.h"
#include "core/db.h"
#include "core/routines.h"

namespace Fixture {

short Competition(Connection &conn, const QString &name, const QString &date)
{
    conn.execute(QStringLiteral("INSERT INTO competitions(competition_name, competition_date) VALUES(?, ?)"), {name, date});
    const short id = static_cast<short>(conn.lastInsertId());
    const QList<QPair<QString, QString>> cats = {{"C", "Championship"}, {"H", "Highland"}, {"PS", "Premiership"},
                                                 {"PRI", "Primary Dances"}};
    for (const auto &c : cats)
        conn.execute(QStringLiteral("INSERT INTO categories(competition_id, category_id, category) VALUES(?, ?, ?)"),
                     {id, c.first, c.second});
    Category_Dances(conn, id, QStringLiteral("H"), {1, 2, 3, 4});
    Category_Dances(conn, id, QStringLiteral("C"), {1, 2, 3, 4});
    Category_Dances(conn, id, QStringLiteral("PRI"), {6, 7, 1, 2});
    return id;
}

void Event(Connection &conn, short comp, const QString &code, const QString &name, const QString &category,
           int noPrizes, const QString &split, int noOverallPrizes, const QString &incTFling)
{
    conn.execute(QStringLiteral("INSERT INTO age_groups(competition_id, competition_group_id, age_group, category, "
                                "no_prizes, split_overalls, no_overall_prizes, inc_t_fling) VALUES(?,?,?,?,?,?,?,?)"),
                 {comp, code, name, category, noPrizes, split, noOverallPrizes, incTFling});
}

void Category_Dances(Connection &conn, short comp, const QString &category, const QList<int> &danceIds)
{
    int order = 1;
    for (int d : danceIds)
        conn.execute(QStringLiteral("INSERT INTO category_dances(competition_id, category_id, dance_id, orderby) "
                                    "VALUES(?,?,?,?)"),
                     {comp, category, d, order++});
}

void Competitor(Connection &conn, short comp, int number, const QString &forename, const QString &surname,
                const QStringList &events)
{
    QVariantList v{comp, number, forename, surname};
    for (int i = 0; i < 8; ++i)
        v << (i < events.size() ? QVariant(events.at(i)) : QVariant());
    conn.execute(QStringLiteral("INSERT INTO competitors(competition_id, competitor_id, forename, surname, group_id1, "
                                "group_id2, group_id3, group_id4, group_id5, group_id6, group_id7, group_id8) "
                                "VALUES(?,?,?,?,?,?,?,?,?,?,?,?)"),
                 v);
    for (const QString &e : events)
        conn.execute(QStringLiteral("INSERT INTO competitor_groups(competition_id, competitor_id, group_id) VALUES(?,?,?)"),
                     {comp, number, e});
}

int Judge(Connection &conn, short comp, const QString &forename, const QString &surname)
{
    conn.execute(QStringLiteral("INSERT INTO judges(competition_id, forename, surname) VALUES(?,?,?)"),
                 {comp, forename, surname});
    return static_cast<int>(conn.lastInsertId());
}

int Count(Connection &conn, const QString &table, const QString &where)
{
    QString sql = QStringLiteral("SELECT count(*) FROM ") + table;
    if (!where.isEmpty())
        sql += QStringLiteral(" WHERE ") + where;
    return conn.scalar(sql).toInt();
}

} // namespace Fixture
