#include "wizard_logic.h"

#include "core/db.h"
#include "core/routines.h"

namespace {

QString quoted(const QString &s)
{
    return QLatin1Char('\'') + Sql_Quote(s) + QLatin1Char('\'');
}

} // namespace

QList<Wizard_Category> Wizard_Categories(Connection &conn, short comp)
{
    const QString id = QString::number(comp);
    QList<Wizard_Category> out;
    RowSet named = conn.query(QStringLiteral("SELECT category_id, category FROM categories WHERE competition_id = ") + id
                              + QStringLiteral(" AND category_id NOT LIKE 'DNC%' ORDER BY 2"));
    for (; !named.eof(); named.next())
        out << Wizard_Category{named.text(QStringLiteral("category")), named.text(QStringLiteral("category_id"))};
    RowSet used = conn.query(QStringLiteral("SELECT DISTINCT category As category FROM age_groups WHERE competition_id = ")
                             + id + QStringLiteral(" AND category <> 'C' AND category <> 'H' AND category <> 'PRI'"));
    for (; !used.eof(); used.next()) {
        const QString code = used.text(QStringLiteral("category"));
        RowSet first = conn.query(QStringLiteral("SELECT age_group, category FROM age_groups WHERE competition_id = ") + id
                                  + QStringLiteral(" AND category = ") + quoted(code) + QStringLiteral(" ORDER BY 1"));
        if (!first.eof())
            out << Wizard_Category{Same_As + first.text(QStringLiteral("age_group")), code};
    }
    out << Wizard_Category{Other_Category, QString()};
    return out;
}

bool Group_Code_Taken(Connection &conn, short comp, const QString &code)
{
    return conn.scalar(QStringLiteral("SELECT COUNT(*) as no_matches FROM age_groups WHERE competition_id = ")
                       + QString::number(comp) + QStringLiteral(" AND competition_group_id = ") + quoted(code))
               .toInt()
           > 0;
}

void Insert_Wizard_Event(Connection &conn, short comp, const Wizard_Event &e)
{
    conn.execute(QStringLiteral("INSERT INTO age_groups(competition_id, age_group, competition_group_id, Category, "
                                "no_prizes, split_overalls, split_ages, championship_title, championship_type, orderby) "
                                "VALUES (")
                 + QString::number(comp) + QLatin1Char(',') + quoted(e.name) + QLatin1Char(',')
                 + quoted(e.code.toUpper()) + QLatin1Char(',') + quoted(e.category) + QStringLiteral(",6,'N',")
                 + quoted(e.split) + QLatin1Char(',') + quoted(e.title) + QLatin1Char(',') + quoted(e.type)
                 + QLatin1Char(',') + QString::number(e.order) + QLatin1Char(')'));
}

QString Insert_Other_Event(Connection &conn, short comp, const Wizard_Event &e)
{
    const QString id = QString::number(comp);
    Transaction t(conn);
    const int n = conn.scalar(QStringLiteral("SELECT count(*) as no_cats FROM categories WHERE competition_id = ") + id
                              + QStringLiteral(" AND category_id like 'DNC%'"))
                      .toInt()
                  + 1;
    const QString code = QStringLiteral("DNC") + QString::number(n);
    conn.execute(QStringLiteral("INSERT INTO age_groups(competition_id, age_group, competition_group_id, Category, "
                                "no_prizes, split_overalls, split_ages, orderby) VALUES (")
                 + id + QLatin1Char(',') + quoted(e.name) + QLatin1Char(',') + quoted(e.code.toUpper())
                 + QLatin1Char(',') + quoted(code) + QStringLiteral(",6,'N',") + quoted(e.split) + QLatin1Char(',')
                 + QString::number(e.order) + QLatin1Char(')'));
    conn.execute(QStringLiteral("INSERT INTO categories (competition_id, category_id, category) VALUES (") + id
                 + QStringLiteral(",'") + code + QStringLiteral("','Dance Category ") + QString::number(n)
                 + QStringLiteral("')"));
    return code;
}

void Delete_Wizard_Competition(Connection &conn, short comp)
{
    Transaction t(conn);
    for (const char *table : {"competitions", "age_groups", "categories", "category_dances"})
        conn.execute(QStringLiteral("DELETE FROM ") + QLatin1String(table) + QStringLiteral(" WHERE competition_id = ")
                     + QString::number(comp));
}
