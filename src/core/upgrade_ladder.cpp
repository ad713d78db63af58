#include "upgrade_ladder.h"
#include "database_file.h"
#include "db.h"
#include "globals.h"
#include "routines.h"
#include "table_rebuild.h"
#include "type_guards.h"

#include <functional>
#include <vector>

namespace {

// A statement whose failure means "already done" on this file.
void probe(Connection &conn, const QString &sql)
{
    try {
        conn.execute(sql);
    } catch (const DbError &) {
    }
}

template <typename Work>
void probe(Work &&work)
{
    try {
        work();
    } catch (const DbError &) {
    }
}

void run(Connection &conn, const QStringList &statements)
{
    for (const QString &s : statements)
        conn.execute(s);
}

void setVersion(Connection &conn, const QString &version, bool stamp = true)
{
    conn.execute(QStringLiteral("UPDATE db_info SET db_version = '") + version + QLatin1Char('\'')
                 + (stamp ? QStringLiteral(", last_update = now()") : QString()));
}

QString addColumn(const QString &table, const QString &definition)
{
    return QStringLiteral("ALTER TABLE ") + table + QStringLiteral(" ADD COLUMN ") + definition;
}

QStringList addTexts(const QString &table, const QStringList &columns)
{
    QStringList out;
    for (const QString &c : columns)
        out << addColumn(table, c + QStringLiteral(" TEXT COLLATE NOCASE"));
    return out;
}

// A table keyed by several columns, in the form of the present schema.
QString keyedTable(const QString &table, const QString &columns, const QString &key, const QString &keyName)
{
    return QStringLiteral("CREATE TABLE ") + table + QStringLiteral(" (") + columns + QStringLiteral(", CONSTRAINT ") + keyName
           + QStringLiteral(" PRIMARY KEY (") + key + QStringLiteral("))");
}

struct Rung
{
    const char *from;
    const char *to;
    std::function<void(Connection &)> steps;
};

const std::vector<Rung> &rungs()
{
    static const std::vector<Rung> ladder = {
        {"1", "2",
         [](Connection &c) {
             Ensure_Table(c, QStringLiteral("dance_no_prizes"));
             probe([&] {
                 try {
                     c.execute(QStringLiteral("SELECT orderby FROM category_dances WHERE 1=0"));
                 } catch (const DbError &) {
                     c.execute(addColumn(QStringLiteral("category_dances"), QStringLiteral("orderby NUMERIC")));
                 }
             });
             probe(c, QStringLiteral("CREATE UNIQUE INDEX pk_category_dances ON category_dances(competition_id, category_id, dance_id)"));
         }},
        {"2", "3",
         [](Connection &c) {
             probe([&] { Drop_Column(c, QStringLiteral("judges_results"), QStringLiteral("orderby")); });
             probe([&] { Drop_Column(c, QStringLiteral("comp_judges_results"), QStringLiteral("orderby")); });
             c.execute(addColumn(QStringLiteral("judges_results"), QStringLiteral("orderby REAL")));
             c.execute(addColumn(QStringLiteral("comp_judges_results"), QStringLiteral("orderby REAL")));
             setVersion(c, QStringLiteral("3"), false);
         }},
        {"3", "3.1",
         [](Connection &c) {
             Ensure_Table(c, QStringLiteral("system_settings"));
             setVersion(c, QStringLiteral("3.1"), false);
         }},
        {"3.1", "3.2",
         [](Connection &c) {
             c.execute(addColumn(QStringLiteral("age_groups"), QStringLiteral("split_ages TEXT COLLATE NOCASE NOT NULL DEFAULT 'N'")));
             c.execute(addColumn(QStringLiteral("age_groups"), QStringLiteral("parent_group_id TEXT COLLATE NOCASE")));
             setVersion(c, QStringLiteral("3.2"), false);
         }},
        {"3.2", "3.3",
         [](Connection &c) {
             c.execute(addColumn(QStringLiteral("db_info"), QStringLiteral("last_update DATETIME")));
             setVersion(c, QStringLiteral("3.3"));
         }},
        {"3.3", "3.4",
         [](Connection &c) {
             run(c, addTexts(QStringLiteral("competitions"), {QStringLiteral("competition_organiser"), QStringLiteral("organiser_role"),
                                                              QStringLiteral("competition_venue"), QStringLiteral("competition_town")}));
             run(c, addTexts(QStringLiteral("age_groups"), {QStringLiteral("championship_title"), QStringLiteral("championship_type")}));
             setVersion(c, QStringLiteral("3.4"));
         }},
        {"3.4", "3.5",
         [](Connection &c) {
             run(c, addTexts(QStringLiteral("competitions"), {QStringLiteral("address")}));
             c.execute(addColumn(QStringLiteral("system_settings"), QStringLiteral("check_mode INTEGER")));
             run(c, addTexts(QStringLiteral("system_settings"), {QStringLiteral("check_dir")}));
             setVersion(c, QStringLiteral("3.5"));
             c.execute(QStringLiteral("UPDATE system_settings SET check_mode = 0"));
             // The data folder and the lower-case word, with no separator added:
             // the folder made on demand is "Compare", and both name one folder.
             c.execute(QStringLiteral("UPDATE system_settings SET check_dir = '") + Sql_Quote(Data_Dir + QStringLiteral("compare"))
                       + QLatin1Char('\''));
         }},
        {"3.5", "3.6",
         [](Connection &c) {
             run(c, addTexts(QStringLiteral("competitors"), {QStringLiteral("address1"), QStringLiteral("address2")}));
             c.execute(addColumn(QStringLiteral("system_settings"), QStringLiteral("show_address INTEGER")));
             setVersion(c, QStringLiteral("3.6"));
         }},
        {"3.6", "3.7",
         [](Connection &c) {
             // An early teacher column of another width goes, with its content.
             probe([&] { Drop_Column(c, QStringLiteral("competitors"), QStringLiteral("teacher")); });
             run(c, addTexts(QStringLiteral("competitors"), {QStringLiteral("teacher"), QStringLiteral("notes")}));
             setVersion(c, QStringLiteral("3.7"));
         }},
        {"3.7", "3.8",
         [](Connection &c) {
             c.execute(QStringLiteral("CREATE TABLE custom_reports (competition_id NUMERIC, id INTEGER PRIMARY KEY AUTOINCREMENT, "
                                      "name TEXT COLLATE NOCASE)"));
             c.execute(QStringLiteral("CREATE UNIQUE INDEX pk_custom_reports ON custom_reports(competition_id, id)"));
             c.execute(keyedTable(QStringLiteral("custom_reports_dances"), QStringLiteral("id NUMERIC, dance_id NUMERIC"),
                                  QStringLiteral("id, dance_id"), QStringLiteral("pk_custom_dances")));
             c.execute(keyedTable(QStringLiteral("custom_reports_groups"), QStringLiteral("id NUMERIC, group_id TEXT COLLATE NOCASE"),
                                  QStringLiteral("id, group_id"), QStringLiteral("pk_custom_groups")));
             c.execute(keyedTable(QStringLiteral("custom_reports_fields"), QStringLiteral("id NUMERIC, fvalue TEXT COLLATE NOCASE"),
                                  QStringLiteral("id, fvalue"), QStringLiteral("pk_custom_fields")));
             c.execute(keyedTable(QStringLiteral("dance_no_dancers"),
                                  QStringLiteral("competition_id NUMERIC, group_id TEXT COLLATE NOCASE, dance_id NUMERIC"),
                                  QStringLiteral("competition_id, group_id, dance_id"), QStringLiteral("pk_dance_no_d")));
             run(c, addTexts(QStringLiteral("competitors"), {QStringLiteral("custom1"), QStringLiteral("custom2"),
                                                             QStringLiteral("custom3"), QStringLiteral("custom4")}));
             setVersion(c, QStringLiteral("3.8"));
         }},
        {"3.8", "3.9",
         [](Connection &c) {
             const QString t = QStringLiteral("age_groups");
             c.execute(addColumn(t, QStringLiteral("no_overall_prizes INTEGER NOT NULL DEFAULT 6")));
             c.execute(QStringLiteral("UPDATE age_groups SET no_overall_prizes = 6"));
             c.execute(addColumn(t, QStringLiteral("dancer_order TEXT COLLATE NOCASE NOT NULL DEFAULT 'A'")));
             c.execute(addColumn(t, QStringLiteral("orderby INTEGER")));
             c.execute(addColumn(t, QStringLiteral("inc_t_fling TEXT COLLATE NOCASE NOT NULL DEFAULT 'Y'")));
             c.execute(QStringLiteral("UPDATE age_groups SET dancer_order = 'A' WHERE dancer_order IS NULL"));
             c.execute(QStringLiteral("UPDATE age_groups SET inc_t_fling = 'Y' WHERE inc_t_fling IS NULL"));
             setVersion(c, QStringLiteral("3.9"));
         }},
        {"3.9", "4.0",
         [](Connection &c) {
             Redefine_Column(c, QStringLiteral("comp_judges_results"), QStringLiteral("points_awarded1"),
                             QStringLiteral("points_awarded1 NUMERIC DEFAULT NULL"));
             for (const char *col : {"points_awarded1", "points_awarded2", "points_awarded3"})
                 Redefine_Column(c, QStringLiteral("judges_results"), QLatin1String(col),
                                 QLatin1String(col) + QStringLiteral(" NUMERIC DEFAULT NULL"));
             c.execute(addColumn(QStringLiteral("system_settings"), QStringLiteral("auto_save INTEGER")));
             c.execute(addColumn(QStringLiteral("system_settings"), QStringLiteral("judges_order INTEGER")));
             c.execute(QStringLiteral("UPDATE system_settings SET auto_save = 0, check_mode = 0, judges_order = 0"));
             setVersion(c, QStringLiteral("4.0"));
         }},
        {"4.0", "4.1",
         [](Connection &c) {
             c.execute(addColumn(QStringLiteral("competitors"), QStringLiteral("registered INTEGER")));
             setVersion(c, QStringLiteral("4.1"));
         }},
        {"4.1", "4.2",
         [](Connection &c) {
             c.execute(keyedTable(QStringLiteral("championship_dance_names"),
                                  QStringLiteral("competition_id NUMERIC, group_id TEXT COLLATE NOCASE, dance_id NUMERIC, "
                                                 "name TEXT COLLATE NOCASE"),
                                  QStringLiteral("competition_id, group_id, dance_id"), QStringLiteral("pk_championship_dance_names")));
             setVersion(c, QStringLiteral("4.2"));
         }},
        {"4.2", "4.3",
         [](Connection &c) {
             run(c, addTexts(QStringLiteral("competitors"), {QStringLiteral("postcode")}));
             setVersion(c, QStringLiteral("4.3"));
         }},
        {"4.3", "4.4",
         [](Connection &c) {
             run(c, addTexts(QStringLiteral("competitions"), {QStringLiteral("registration_id"), QStringLiteral("registration_email"),
                                                              QStringLiteral("registration_key")}));
             setVersion(c, QStringLiteral("4.4"));
         }},
        {"4.4", "4.5",
         [](Connection &c) {
             run(c, addTexts(QStringLiteral("competitors"), {QStringLiteral("txnid")}));
             setVersion(c, QStringLiteral("4.5"));
         }},
        {"4.5", "4.6",
         [](Connection &c) {
             // No default and no value: the locale stays unset until the operator chooses.
             c.execute(addColumn(QStringLiteral("system_settings"), QStringLiteral("locale INTEGER")));
             setVersion(c, QStringLiteral("4.6"));
         }},
    };
    return ladder;
}

} // namespace

void Ensure_Table(Connection &conn, const QString &table)
{
    try {
        conn.execute(QStringLiteral("SELECT * FROM ") + table + QStringLiteral(" WHERE 1=0"));
        return;
    } catch (const DbError &) {
    }
    if (table == QLatin1String("dance_no_prizes")) {
        conn.execute(keyedTable(table,
                                QStringLiteral("competition_id NUMERIC, group_id TEXT COLLATE NOCASE, dance_id NUMERIC, no_prizes NUMERIC"),
                                QStringLiteral("competition_id, group_id, dance_id"), QStringLiteral("pk_dance_no_prizes")));
    } else if (table == QLatin1String("system_settings")) {
        conn.execute(QStringLiteral("CREATE TABLE system_settings (judges_points NUMERIC DEFAULT 0)"));
        conn.execute(QStringLiteral("INSERT INTO system_settings(judges_points) VALUES(0)"));
    }
}

void Climb_Ladder(Connection &conn, QString version, const QString &stopAt)
{
    for (const Rung &rung : rungs()) {
        if (version != QLatin1String(rung.from) || version == stopAt)
            continue;
        try {
            In_Savepoint(conn, [&] {
                rung.steps(conn);
                Install_Type_Guards(conn);
            });
        } catch (const AppError &e) {
            throw AppError(QStringLiteral("Upgrading the database file from version ") + version + QStringLiteral(" to ")
                           + QLatin1String(rung.to) + QStringLiteral(": ") + e.message());
        }
        version = QLatin1String(rung.to);
    }
}

QString Read_Db_Version(Connection &conn)
{
    try {
        return conn.scalar(QStringLiteral("SELECT db_version FROM db_info")).toString();
    } catch (const DbError &) {
        // The file now says 2 while the climb starts at 1: rung 1 writes no version of its own.
        conn.execute(QStringLiteral("ALTER TABLE db_info ADD COLUMN db_version TEXT COLLATE NOCASE"));
        conn.execute(QStringLiteral("UPDATE db_info SET db_version = '2'"));
        return QStringLiteral("1");
    }
}

void Upgrade_Database(Connection &conn)
{
    Climb_Ladder(conn, Read_Db_Version(conn));
}
