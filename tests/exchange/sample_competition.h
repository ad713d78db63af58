#pragma once
// A competition as a tallier has it at the end of the day: categories, events
// of the three kinds, dancers with addresses and notes, judges, marks of both
// kinds, prizes per dance and two custom reports.
#include "core/db.h"

#include <QStringList>

inline short Sample_Competition(Connection &conn, int dancers)
{
    Transaction t(conn);
    conn.execute("INSERT INTO competitions(competition_name, competition_date, competition_organiser, organiser_role, "
                 "competition_venue, competition_town, address, registration_id, registration_key, registration_email) "
                 "VALUES ('St Andrew''s Highland Games', '12/07/2026', 'Morag O''Hara', 'Secretary', 'Braeside Park', "
                 "'Oban', '1 Shore Street|Oban', '4711', 'K9', 'games@example.org')");
    const short comp = static_cast<short>(conn.lastInsertId());
    const QList<QStringList> cats = {{"C", "Championship", "1 2 3 4"}, {"H", "Highland", "1 2 3 4"},
                                     {"PS", "Premiership", "1 2 3 4"}, {"PRI", "Primary Dances", "6 7 1 2"},
                                     {"DNC1", "Dance Category 1", "8 9 16"}};
    for (const QStringList &c : cats) {
        conn.execute("INSERT INTO categories(competition_id, category_id, category) VALUES (?,?,?)", {comp, c[0], c[1]});
        int order = 1;
        for (const QString &d : c[2].split(' '))
            conn.execute("INSERT INTO category_dances(competition_id, category_id, dance_id, orderby) VALUES (?,?,?,?)",
                         {comp, c[0], d.toInt(), order++});
    }
    const QList<QStringList> events = {{"E1", "Primary 6 & Under", "PRI", "N"}, {"E2", "Beginner 10 & Under", "H", "N"},
                                       {"E3", "Novice", "H", "Y"}, {"E4", "Nationals 12 & Over", "DNC1", "N"},
                                       {"CH", "Open Championship", "C", "N"}, {"PS", "Premiership", "PS", "N"}};
    for (const QStringList &e : events)
        conn.execute("INSERT INTO age_groups(competition_id, competition_group_id, age_group, category, no_prizes, "
                     "split_overalls, championship_title, orderby, inc_t_fling) VALUES (?,?,?,?,6,?,'Argyll',?,?)",
                     {comp, e[0], e[1], e[2], e[3], events.indexOf(e) + 1, e[0] == "E4" ? "N" : "Y"});
    QList<int> judges;
    for (const char *name : {"O'Neill", "Kerr", "Grant"})
        judges << int((conn.execute("INSERT INTO judges(competition_id, forename, surname) VALUES (?,'Ann',?)", {comp, name}),
                       conn.lastInsertId()));
    const QStringList towns = {"Oban", "Perth", "Inverness", "Aberdeen", "Dundee", "Stirling"};
    QHash<QString, QList<int>> entered;
    for (int n = 1; n <= dancers; ++n) {
        QStringList in = {QStringList{"E1", "E2", "E3", "E4"}.at(n % 4)};
        // A three-judge event holds at most 21 dancers in any file size.
        if (n % 10 == 0 && n <= 210)
            in << "CH";
        if (n % 11 == 0 && n <= 231)
            in << "PS";
        QVariantList v{comp, n, QString("Dancer%1").arg(n), n % 7 ? QString("Mac%1").arg(n) : QString("O'Neill"),
                       towns[n % 6], 6 + n % 12, n % 2 ? QVariant(12.5) : QVariant(10),
                       QString("0%1/06/2026").arg(1 + n % 9), QString("%1 High Street").arg(n), "Argyll",
                       QString("Teacher %1").arg(n % 9), n % 10 ? QVariant("Paid at the desk") : QVariant(),
                       QString("PA%1 4AB").arg(n % 40)};
        for (int k = 0; k < 8; ++k)
            v << (k < in.size() ? QVariant(in[k]) : QVariant());
        conn.execute("INSERT INTO competitors(competition_id, competitor_id, forename, surname, town, age, fee, "
                     "date_received, address1, address2, teacher, notes, postcode, group_id1, group_id2, group_id3, "
                     "group_id4, group_id5, group_id6, group_id7, group_id8) VALUES (?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)",
                     v);
        for (const QString &e : in) {
            conn.execute("INSERT INTO competitor_groups(competition_id, competitor_id, group_id) VALUES (?,?,?)", {comp, n, e});
            entered[e] << n;
        }
    }
    for (const QStringList &e : events) {
        const bool three = e[2] == "C" || e[2] == "PS";
        RowSet dances = conn.query("SELECT dance_id FROM category_dances WHERE competition_id = ? AND category_id = ?",
                                   {comp, e[2]});
        for (; !dances.eof(); dances.next()) {
            const int d = dances.value(0).toInt();
            for (int r = three ? 1 : 0; r <= (three ? 3 : 0); ++r)
                conn.execute("INSERT INTO judges_results_judges(competition_id, group_id, dance_id, result_no, judge_id) "
                             "VALUES (?,?,?,?,?)", {comp, e[0], d, r, judges[(d + qMax(r, 1)) % 3]});
            for (int n : entered[e[0]]) {
                const auto mark = [&](int salt) {
                    const int m = (n * 7919 + d * 104729 + salt * 1299709) % 37;
                    return m == 0 ? QVariant() : QVariant(60 + m + (n % 2 ? 0.5 : 0.0));
                };
                if (three)
                    conn.execute("INSERT INTO judges_results(competition_id, group_id, dance_id, competitor_id, "
                                 "points_awarded1, points_awarded2, points_awarded3) VALUES (?,?,?,?,?,?,?)",
                                 {comp, e[0], d, n, mark(1), n % 23 ? mark(2) : QVariant(-1), mark(3)});
                else
                    conn.execute("INSERT INTO comp_judges_results(competition_id, group_id, dance_id, competitor_id, "
                                 "points_awarded1) VALUES (?,?,?,?,?)", {comp, e[0], d, n, mark(0)});
            }
        }
    }
    conn.execute("INSERT INTO dance_no_prizes(competition_id, group_id, dance_id, no_prizes) VALUES (?, 'E2', 1, 3), "
                 "(?, 'E4', 16, 4)", {comp, comp});
    const QList<QStringList> reports = {{"Best Highland", "E2 E3", "1 2", "Oban"}, {"Best National", "E4", "8", "Perth"}};
    for (const QStringList &r : reports) {
        conn.execute("INSERT INTO custom_reports(competition_id, name) VALUES (?,?)", {comp, r[0]});
        const qint64 id = conn.lastInsertId();
        for (const QString &g : r[1].split(' '))
            conn.execute("INSERT INTO custom_reports_groups(id, group_id) VALUES (?,?)", {id, g});
        for (const QString &d : r[2].split(' '))
            conn.execute("INSERT INTO custom_reports_dances(id, dance_id) VALUES (?,?)", {id, d.toInt()});
        conn.execute("INSERT INTO custom_reports_fields(id, fvalue) VALUES (?,?)", {id, r[3]});
    }
    return comp;
}
