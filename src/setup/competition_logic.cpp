#include "competition_logic.h"

#include "core/db.h"
#include "core/globals.h"
#include "core/routines.h"

namespace {

QString quoted(const QString &s)
{
    return QLatin1Char('\'') + s + QLatin1Char('\'');
}

// Looks a competition up by name and date; the last row read wins.
short Find_Competition(Connection &conn, const QString &name, const QString &date, bool setCurrent)
{
    RowSet rs = conn.query(QStringLiteral("SELECT competition_id FROM competitions WHERE competition_name = '")
                           + Sql_Quote(name) + QStringLiteral("' AND competition_date = '") + Sql_Quote(date)
                           + QStringLiteral("'"));
    short id = 0;
    while (!rs.eof()) {
        id = To_Int16(rs.value(QStringLiteral("competition_id")));
        if (setCurrent) {
            // Captions and sheets name the competition just made.
            Current_Competition_Id = id;
            Current_Competition_Name = name;
            Current_Competition_Date = date;
        }
        rs.next();
    }
    return id;
}

// A number read back from the source row goes in bare; a NULL as the word NULL.
QString bareOrNull(const RowSet &rs, const QString &field)
{
    return rs.isNull(field) ? QStringLiteral("NULL") : rs.text(field);
}

} // namespace

short Insert_Competition(Connection &conn, const QStringList &cells)
{
    Transaction t(conn);
    QStringList values;
    for (int i = 0; i < 7; ++i)
        values << quoted(Sql_Quote(cells.value(i)));
    conn.execute(QStringLiteral("INSERT INTO competitions(competition_name, competition_date, competition_organiser, "
                                "organiser_role, competition_venue, competition_town, address) VALUES (")
                 + values.join(QLatin1Char(',')) + QLatin1Char(')'));
    Find_Competition(conn, cells.value(0), cells.value(1), true);
    Add_Standard_Categories(conn, Current_Competition_Id);
    return Current_Competition_Id;
}

void Add_Standard_Categories(Connection &conn, short competitionId)
{
    Transaction t(conn);
    const QString id = QString::number(competitionId);
    for (const char *tail : {",'C','Championship')", ",'H','Highland')", ",'PS','Premiership')",
                             ",'PRI','Primary Dances')"})
        conn.execute(QStringLiteral("INSERT INTO categories (competition_id, category_id, category) VALUES(") + id
                     + QLatin1String(tail));
    for (const char *tail : {",'H',1,1)", ",'H',2,2)", ",'H',3,3)", ",'H',4,4)", ",'C',1,1)", ",'C',2,2)",
                             ",'C',3,3)", ",'C',4,4)", ",'PRI',6,1)", ",'PRI',7,2)", ",'PRI',1,3)", ",'PRI',2,4)"})
        conn.execute(QStringLiteral("INSERT INTO category_dances (competition_id, category_id, dance_id, orderby) VALUES(")
                     + id + QLatin1String(tail));
}

void Delete_Competition_Dependents(Connection &conn, short competitionId)
{
    Transaction t(conn);
    const QString id = QString::number(competitionId);
    for (const char *table : {"dance_results", "championship_dance_names", "highland_results", "national_results",
                              "overall_results", "judges_results", "comp_judges_results", "judges_results_judges",
                              "judges", "overall_dance_results", "tie_break", "competitors", "competitor_groups",
                              "age_groups", "categories", "category_dances", "dance_no_prizes", "dance_no_dancers"})
        conn.execute(QStringLiteral("DELETE FROM ") + QLatin1String(table) + QStringLiteral(" WHERE competition_id = ")
                     + id);

    RowSet trophies = conn.query(QStringLiteral("SELECT id FROM custom_reports WHERE competition_id = ") + id);
    if (trophies.eof())
        return;
    // Only the first trophy's details go; the others' stay behind.
    const QString first = QString::number(trophies.toShort(QStringLiteral("id")));
    conn.execute(QStringLiteral("DELETE FROM custom_reports_groups WHERE id = ") + first);
    conn.execute(QStringLiteral("DELETE FROM custom_reports_dances WHERE id = ") + first);
    conn.execute(QStringLiteral("DELETE FROM custom_reports_fields WHERE id = ") + first);
    conn.execute(QStringLiteral("DELETE FROM custom_reports WHERE competition_id = ") + id);
}

short Copy_Competition(Connection &conn, short sourceId, const QString &name, const QString &date,
                       bool copyCompetitors)
{
    Transaction t(conn);
    const QString source = QString::number(sourceId);
    conn.execute(QStringLiteral("INSERT INTO competitions(competition_name, competition_date) VALUES ('")
                 + Sql_Quote(name) + QStringLiteral("','") + Sql_Quote(date) + QStringLiteral("')"));
    const short newId = Find_Competition(conn, name, date, false);
    const QString target = QString::number(newId);

    // The dance id goes into orderby too, so the copy lists dances in id order.
    RowSet cd = conn.query(QStringLiteral("SELECT category_id, dance_id, orderby FROM category_dances WHERE competition_id = ")
                           + source);
    for (; !cd.eof(); cd.next())
        conn.execute(QStringLiteral("INSERT INTO category_dances (category_id, dance_id, competition_id, orderby) VALUES ('")
                     + Sql_Quote(cd.text(QStringLiteral("category_id"))) + QStringLiteral("',")
                     + cd.text(QStringLiteral("dance_id")) + QLatin1Char(',') + target + QLatin1Char(',')
                     + cd.text(QStringLiteral("dance_id")) + QLatin1Char(')'));

    RowSet cats = conn.query(QStringLiteral("SELECT category_id, category FROM categories WHERE competition_id = ") + source);
    for (; !cats.eof(); cats.next())
        conn.execute(QStringLiteral("INSERT INTO categories (category_id, category, competition_id) VALUES ('")
                     + Sql_Quote(cats.text(QStringLiteral("category_id"))) + QStringLiteral("','")
                     + Sql_Quote(cats.text(QStringLiteral("category"))) + QStringLiteral("',") + target
                     + QLatin1Char(')'));

    // split_ages and parent_group_id stay behind: split events come across as ordinary ones.
    RowSet ev = conn.query(QStringLiteral("SELECT competition_group_id,  age_group, category, no_prizes, split_overalls, "
                                          "championship_title, championship_type, no_overall_prizes, dancer_order, "
                                          "orderby, inc_t_fling FROM age_groups WHERE competition_id = ")
                           + source);
    for (; !ev.eof(); ev.next()) {
        const QString sql =
            QStringLiteral("INSERT INTO age_groups (competition_group_id, age_group, category, no_prizes, split_overalls, "
                           "competition_id, championship_title, championship_type, no_overall_prizes, dancer_order, "
                           "orderby, inc_t_fling) VALUES ('")
            + Sql_Quote(ev.text(QStringLiteral("competition_group_id"))) + QStringLiteral("','")
            + Sql_Quote(ev.text(QStringLiteral("age_group"))) + QStringLiteral("','")
            + Sql_Quote(ev.text(QStringLiteral("category"))) + QStringLiteral("',") + ev.text(QStringLiteral("no_prizes"))
            + QStringLiteral(",'") + Sql_Quote(ev.text(QStringLiteral("split_overalls"))) + QStringLiteral("',") + target
            + QStringLiteral(",'") + Sql_Quote(ev.text(QStringLiteral("championship_title"))) + QStringLiteral("','")
            + Sql_Quote(ev.text(QStringLiteral("championship_type"))) + QStringLiteral("',")
            + ev.text(QStringLiteral("no_overall_prizes")) + QStringLiteral(",'")
            + Sql_Quote(ev.text(QStringLiteral("dancer_order"))) + QStringLiteral("',") + bareOrNull(ev, QStringLiteral("orderby"))
            + QStringLiteral(",'") + Sql_Quote(ev.text(QStringLiteral("inc_t_fling"))) + QStringLiteral("')");
        conn.execute(sql);
    }

    if (!copyCompetitors)
        return newId;

    RowSet c = conn.query(QStringLiteral("SELECT competitor_id, forename, surname, town, age, fee, date_received, group_id1, "
                                         "group_id2, group_id3, group_id4, group_id5, group_id6, group_id7, group_id8, "
                                         "address1, address2, teacher, notes, custom1, custom2, custom3, custom4 "
                                         "FROM competitors WHERE competition_id = ")
                          + source);
    for (; !c.eof(); c.next()) {
        auto q = [&](const char *f) { return quoted(Sql_Quote(c.text(QLatin1String(f)))); };
        QStringList v;
        v << target << c.text(QStringLiteral("competitor_id")) << q("forename") << q("surname") << q("town")
          << bareOrNull(c, QStringLiteral("age")) << bareOrNull(c, QStringLiteral("fee")) << q("date_received");
        for (const char *g : {"group_id1", "group_id2", "group_id3", "group_id4", "group_id5", "group_id6",
                              "group_id7", "group_id8"})
            v << q(g);
        for (const char *f : {"address1", "address2", "teacher", "notes", "custom1", "custom2", "custom3", "custom4"})
            v << q(f);
        conn.execute(QStringLiteral("INSERT INTO competitors(competition_id, competitor_id, forename, surname, town, age, "
                                    "fee, date_received, group_id1, group_id2, group_id3, group_id4, group_id5, "
                                    "group_id6, group_id7, group_id8, address1, address2, teacher, notes, custom1, "
                                    "custom2, custom3, custom4) VALUES (")
                     + v.join(QLatin1Char(',')) + QLatin1Char(')'));
    }

    RowSet cg = conn.query(QStringLiteral("SELECT competitor_id, group_id FROM competitor_groups WHERE competition_id = ")
                           + source);
    for (; !cg.eof(); cg.next())
        conn.execute(QStringLiteral("INSERT INTO competitor_groups(competition_id,  competitor_id, group_id) VALUES(")
                     + target + QLatin1Char(',') + cg.text(QStringLiteral("competitor_id")) + QStringLiteral(",'")
                     + Sql_Quote(cg.text(QStringLiteral("group_id"))) + QStringLiteral("')"));
    return newId;
}
