#pragma once
// A competition of 1,500 dancers in 60 events as a tallier has it at the end
// of the day (52 Highland events of one judge, four Championships and four
// Premierships of three, marks in every cell, every event tallied), and a
// season of earlier competitions beside it in the same file.
#include "core/db.h"
#include "core/globals.h"
#include "core/pause.h"
#include "tally/competition/dance_tally.h"
#include "tally/competition/overall_settings.h"
#include "tally/competition/overall_tally.h"
#include "tally/competition/prize_count.h"
#include "tally/three_judge/three_judge_tally.h"

#include <QHash>
#include <QStringList>

namespace Bench {

constexpr int Season_Dancers = 1500;
constexpr int Season_Events = 60;

struct Season_Event
{
    QString code;
    QString category;   // H, C or PS
    QList<int> dancers;
};

inline QString Event_Code(int e)
{
    return e < 52 ? QStringLiteral("H%1").arg(e + 1, 2, 10, QLatin1Char('0'))
                  : QStringLiteral("%1%2").arg(e < 56 ? QStringLiteral("CH") : QStringLiteral("PS")).arg(e % 4 + 1);
}

// A mark from 60 to 97.5, spread so that few dancers tie; now and then none.
inline QVariant Mark(int dancer, int dance, int judge)
{
    const int m = (dancer * 7919 + dance * 104729 + judge * 1299709) % 151;
    return m == 0 ? QVariant() : QVariant(60 + m / 4.0);
}

// The events of `comp`, `dancers` of them: each enters one Highland event and
// every fifth one a three-judge event too.
inline QList<Season_Event> Make_Events(Connection &conn, short comp, int dancers, int events = Season_Events)
{
    const QList<QStringList> cats = {{"H", "Highland"}, {"C", "Championship"}, {"PS", "Premiership"}};
    for (const QStringList &c : cats) {
        conn.execute("INSERT INTO categories(competition_id, category_id, category) VALUES (?,?,?)", {comp, c[0], c[1]});
        for (int d = 1; d <= 4; ++d)
            conn.execute("INSERT INTO category_dances(competition_id, category_id, dance_id, orderby) VALUES (?,?,?,?)",
                         {comp, c[0], d, d});
    }
    QList<int> judges;
    for (const char *name : {"O'Neill", "Kerr", "Grant"}) {
        conn.execute("INSERT INTO judges(competition_id, forename, surname) VALUES (?,'Ann',?)", {comp, name});
        judges << int(conn.lastInsertId());
    }
    QList<Season_Event> list;
    for (int e = 0; e < events; ++e) {
        Season_Event ev{Event_Code(e), e < 52 ? "H" : e < 56 ? "C" : "PS", {}};
        conn.execute("INSERT INTO age_groups(competition_id, competition_group_id, age_group, category, no_prizes, "
                     "split_overalls, no_overall_prizes, inc_t_fling, championship_title, orderby) "
                     "VALUES (?,?,?,?,6,'N',6,'Y','Argyll',?)",
                     {comp, ev.code, QStringLiteral("Event %1 - %2 & Under").arg(e + 1).arg(6 + e % 12), ev.category,
                      e + 1});
        list << ev;
    }
    const int highland = qMin(52, events);
    const QStringList towns = {"Oban", "Perth", "Inverness", "Aberdeen", "Dundee", "Stirling"};
    for (int n = 1; n <= dancers; ++n) {
        QList<int> in{n % highland};
        if (events > 52 && n % 5 == 0)
            in << 52 + (n / 5) % (events - 52);
        QVariantList v{comp, n, QStringLiteral("Dancer%1").arg(n), n % 7 ? QStringLiteral("Mac%1").arg(n) : "O'Neill",
                       towns[n % 6], 6 + n % 12, 12.5, "01/06/2026", QStringLiteral("%1 High Street").arg(n),
                       QStringLiteral("Teacher %1").arg(n % 40), QStringLiteral("PA%1 4AB").arg(n % 40)};
        for (int k = 0; k < 8; ++k)
            v << (k < in.size() ? QVariant(list[in[k]].code) : QVariant());
        conn.execute("INSERT INTO competitors(competition_id, competitor_id, forename, surname, town, age, fee, "
                     "date_received, address1, teacher, postcode, group_id1, group_id2, group_id3, group_id4, "
                     "group_id5, group_id6, group_id7, group_id8) VALUES (?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)",
                     v);
        for (int e : in) {
            conn.execute("INSERT INTO competitor_groups(competition_id, competitor_id, group_id) VALUES (?,?,?)",
                         {comp, n, list[e].code});
            list[e].dancers << n;
        }
    }
    for (const Season_Event &ev : list) {
        const bool three = ev.category != QLatin1String("H");
        for (int d = 1; d <= 4; ++d) {
            for (int r = three ? 1 : 0; r <= (three ? 3 : 0); ++r)
                conn.execute("INSERT INTO judges_results_judges(competition_id, group_id, dance_id, result_no, judge_id) "
                             "VALUES (?,?,?,?,?)",
                             {comp, ev.code, d, r, judges[(d + qMax(r, 1)) % 3]});
            for (int n : ev.dancers) {
                if (three)
                    conn.execute("INSERT INTO judges_results(competition_id, group_id, dance_id, competitor_id, "
                                 "points_awarded1, points_awarded2, points_awarded3) VALUES (?,?,?,?,?,?,?)",
                                 {comp, ev.code, d, n, Mark(n, d, 1), Mark(n, d, 2), Mark(n, d, 3)});
                else
                    conn.execute("INSERT INTO comp_judges_results(competition_id, group_id, dance_id, competitor_id, "
                                 "points_awarded1) VALUES (?,?,?,?,?)",
                                 {comp, ev.code, d, n, Mark(n, d, 0)});
            }
        }
    }
    return list;
}

inline short New_Competition(Connection &conn, const QString &name)
{
    conn.execute("INSERT INTO competitions(competition_name, competition_date, competition_venue, competition_town) "
                 "VALUES (?, '12/07/2026', 'Braeside Park', 'Oban')",
                 {name});
    return short(conn.lastInsertId());
}

// Every event tallied as its screen would: the dances, then the overall. A
// three-judge event longer than the tally holds ends in its fault; what ran
// before it stays, as on the screen.
inline void Tally_All(Connection &conn, short comp, const QList<Season_Event> &events)
{
    Current_Competition_Id = comp;
    for (const Season_Event &ev : events) {
        Current_Group_Id = ev.code;
        try {
            if (ev.category == QLatin1String("H")) {
                for (short d = 1; d <= 4; ++d) {
                    Current_Dance_Id = d;
                    short prizes = Choose_No_Prizes(conn, 6).No_Prizes;
                    Recalc_Dance(conn, prizes);
                }
                Recalc_Overall(conn, Read_Overall_Settings(conn));
            } else {
                Tally_Event_Dances(conn);
                Tally_Overall(conn);
            }
        } catch (const AppError &) {
        }
    }
}

// Copies every row of competition `from` as a new competition: an earlier
// competition of the season.
inline void Copy_Competition(Connection &conn, short from, const QString &name)
{
    const short to = New_Competition(conn, name);
    RowSet tables = conn.query("SELECT name FROM sqlite_master WHERE type = 'table' AND name <> 'competitions'");
    for (; !tables.eof(); tables.next()) {
        const QString table = tables.value(0).toString();
        RowSet cols = conn.query(QStringLiteral("PRAGMA table_info(%1)").arg(table));
        QStringList names, values;
        bool keyed = false;
        for (; !cols.eof(); cols.next()) {
            const QString c = cols.value(1).toString();
            if (cols.value(5).toInt() > 0 && cols.value(2).toString().startsWith(QLatin1String("INTEGER"), Qt::CaseInsensitive)
                && c != QLatin1String("competition_id"))
                continue;   // a counter takes a fresh value
            names << c;
            values << (c == QLatin1String("competition_id") ? QString::number(to) : c);
            keyed = keyed || c == QLatin1String("competition_id");
        }
        if (keyed)
            conn.execute(QStringLiteral("INSERT INTO %1(%2) SELECT %3 FROM %1 WHERE competition_id = %4")
                             .arg(table, names.join(','), values.join(','))
                             .arg(from));
    }
}

// The competition of the day, tallied, and `earlier` competitions of the
// season before it. Leaves Current_Competition_Id on the competition of the day.
inline QList<Season_Event> Build_Season(Connection &conn, int earlier, int dancers = Season_Dancers)
{
    const short first = [&] {
        Transaction t(conn);
        return New_Competition(conn, QStringLiteral("St Andrew's Highland Games"));
    }();
    QList<Season_Event> events;
    {
        Transaction t(conn);
        events = Make_Events(conn, first, dancers);
    }
    Tally_All(conn, first, events);
    {
        Transaction t(conn);
        for (int i = 0; i < earlier; ++i)
            Copy_Competition(conn, first, QStringLiteral("Games %1 of the season").arg(i + 1));
    }
    Current_Competition_Id = first;
    Current_Competition_Name = QStringLiteral("St Andrew's Highland Games");
    Current_Competition_Date = QStringLiteral("12/07/2026");
    return events;
}

} // namespace Bench
