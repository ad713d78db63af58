// Time to re-tally every dance and every overall of a large competition, each
// tally in one transaction against every statement in autocommit. The
// deliberate pauses of the overall tallies are scaled to zero.
//
//   bench_tally [folder [rounds]]
//       folder: where the working copy of the database goes (default: the
//       system's temporary folder); rounds: how many times each way is timed
//       (default 3, the median is shown)
#include "core/db.h"
#include "core/globals.h"
#include "core/pause.h"
#include "tally/competition/dance_tally.h"
#include "tally/competition/overall_tally.h"
#include "tally/competition/prize_count.h"
#include "tally/three_judge/three_judge_tally.h"
#include "tally/tally_transaction.h"

#include <sqlite3.h>

#include <QCryptographicHash>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <random>

namespace {

constexpr int Events = 60;
constexpr int Dancers = 25;
const QList<short> Comp_Dances = {1, 2, 6, 7};   // two Highland, two National: every overall pass has work

struct Competition
{
    short id = 0;
    QStringList codes;
};

QString Code(int e)
{
    return QStringLiteral("B%1").arg(e + 1, 2, 10, QLatin1Char('0'));
}

Competition Make_Competition(Connection &conn, const QString &name, const QString &category, const QList<short> &dances)
{
    conn.execute(QStringLiteral("INSERT INTO competitions(competition_name, competition_date) VALUES(?, '01/07/2026')"),
                 {name});
    Competition c;
    c.id = static_cast<short>(conn.lastInsertId());
    conn.execute(QStringLiteral("INSERT INTO categories(competition_id, category_id, category) VALUES(?,?,?)"),
                 {c.id, category, name});
    for (int i = 0; i < dances.size(); ++i)
        conn.execute(QStringLiteral("INSERT INTO category_dances(competition_id, category_id, dance_id, orderby) "
                                    "VALUES(?,?,?,?)"),
                     {c.id, category, dances[i], i + 1});
    for (int e = 0; e < Events; ++e) {
        c.codes << Code(e);
        conn.execute(QStringLiteral("INSERT INTO age_groups(competition_id, competition_group_id, age_group, category, "
                                    "no_prizes, split_overalls, no_overall_prizes, inc_t_fling, orderby) "
                                    "VALUES(?,?,?,?,6,'Y',6,'Y',?)"),
                     {c.id, Code(e), QStringLiteral("Event %1").arg(e + 1), category, e + 1});
        for (int k = 0; k < Dancers; ++k) {
            const int dancer = 100 + e * Dancers + k;
            conn.execute(QStringLiteral("INSERT INTO competitors(competition_id, competitor_id, forename, surname, "
                                        "group_id1) VALUES(?,?,?,?,?)"),
                         {c.id, dancer, QStringLiteral("Dancer"), QString::number(dancer), Code(e)});
            conn.execute(QStringLiteral("INSERT INTO competitor_groups(competition_id, competitor_id, group_id) "
                                        "VALUES(?,?,?)"),
                         {c.id, dancer, Code(e)});
        }
    }
    return c;
}

// A running order of the event's dancers, best first.
QList<int> Shuffled(std::mt19937 &rng, int e)
{
    QList<int> order;
    for (int k = 0; k < Dancers; ++k)
        order << 100 + e * Dancers + k;
    std::shuffle(order.begin(), order.end(), rng);
    return order;
}

void Fill_Marks(Connection &conn, const Competition &single, const Competition &three)
{
    std::mt19937 rng(20260701);
    for (int e = 0; e < Events; ++e) {
        for (short d : Comp_Dances) {
            const QList<int> order = Shuffled(rng, e);
            for (int pos = 0; pos < Dancers; ++pos)
                conn.execute(QStringLiteral("INSERT INTO comp_judges_results(competition_id, group_id, dance_id, "
                                            "competitor_id, points_awarded1) VALUES(?,?,?,?,?)"),
                             {single.id, single.codes[e], d, order[pos], 95.0 - 1.5 * pos});
        }
        for (short d = 1; d <= 4; ++d) {
            const QList<int> order = Shuffled(rng, e);
            // Each judge sees nearly the same dance: a few neighbours swapped.
            QList<QList<int>> judges(3, order);
            for (QList<int> &j : judges)
                for (int s = 0; s < 4; ++s) {
                    const int i = static_cast<int>(rng() % (Dancers - 1));
                    std::swap(j[i], j[i + 1]);
                }
            for (int k : order) {
                QVariantList v{three.id, three.codes[e], d, k};
                for (const QList<int> &j : judges)
                    v << 100 - 2 * j.indexOf(k);
                conn.execute(QStringLiteral("INSERT INTO judges_results(competition_id, group_id, dance_id, "
                                            "competitor_id, points_awarded1, points_awarded2, points_awarded3) "
                                            "VALUES(?,?,?,?,?,?,?)"),
                             v);
            }
        }
    }
}

void Tally_Single_Judge(Connection &conn, const Competition &c)
{
    Current_Competition_Id = c.id;
    for (const QString &code : c.codes) {
        Current_Group_Id = code;
        for (short d : Comp_Dances) {
            Current_Dance_Id = d;
            short noPrizes = Choose_No_Prizes(conn, 6).No_Prizes;
            Recalc_Dance(conn, noPrizes);
        }
        Recalc_Overall(conn, Read_Overall_Settings(conn));
    }
}

void Tally_Three_Judge(Connection &conn, const Competition &c)
{
    Current_Competition_Id = c.id;
    for (const QString &code : c.codes) {
        Current_Group_Id = code;
        Tally_Event_Dances(conn);
        Tally_Overall(conn);
    }
}

int g_statements = 0;

// Statements the program runs; the type guards' trigger programs are not counted.
int Count_Statement(unsigned, void *, void *, void *text)
{
    if (!QByteArray(static_cast<const char *>(text)).startsWith("--"))
        ++g_statements;
    return 0;
}

// A digest of every result table, to show both ways give the same results.
QByteArray Results_Digest(Connection &conn)
{
    QCryptographicHash hash(QCryptographicHash::Sha1);
    for (const char *sql :
         {"SELECT competition_id, group_id, dance_id, result_no, competitor_id, points, placing FROM dance_results "
          "ORDER BY 1, 2, 3, 4, 5",
          "SELECT competition_id, group_id, dance_id, competitor_id, points, total_dance_points, placing, tie FROM "
          "overall_dance_results ORDER BY 1, 2, 3, 4",
          "SELECT competition_id, group_id, competitor_id, points, dance_points, placing, tie FROM overall_results "
          "ORDER BY 1, 2, 3",
          "SELECT competition_id, group_id, competitor_id, points, dance_points, placing, tie, total_dance_points, "
          "no_firsts, no_prizes, tied FROM highland_results ORDER BY 1, 2, 3",
          "SELECT competition_id, group_id, competitor_id, points, dance_points, placing, tie FROM national_results "
          "ORDER BY 1, 2, 3"}) {
        RowSet rs = conn.query(QString::fromLatin1(sql));
        for (; !rs.eof(); rs.next())
            for (int f = 0; f < rs.fieldCount(); ++f)
                hash.addData(rs.value(f).toString().toUtf8() + '|');
    }
    return hash.result().toHex().left(12);
}

struct Timing
{
    double ms = 0;
    int statements = 0;
};

template<typename Work>
Timing Time(Connection &conn, bool inTransaction, Work work)
{
    Tally_In_Transaction = inTransaction;
    g_statements = 0;
    QElapsedTimer timer;
    timer.start();
    work();
    Timing t{timer.nsecsElapsed() / 1e6, g_statements};
    Tally_In_Transaction = true;
    return t;
}

} // namespace

int main(int argc, char **argv)
{
    Set_Pause_Scale(0.0);
    const QString base = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QDir::tempPath();
    QTemporaryDir dir(base + QStringLiteral("/bench_tally_XXXXXX"));
    if (!dir.isValid() || !QFile::copy(QString::fromUtf8(STRATHMARK_PREPARED_DB), dir.filePath(DB_FILE))) {
        std::fprintf(stderr, "bench_tally: cannot lay a copy of %s in %s\n", STRATHMARK_PREPARED_DB, qPrintable(base));
        return 1;
    }
    QFile(dir.filePath(DB_FILE)).setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    Data_Dir = dir.path() + QLatin1Char('/');
    Db_Password = QString::fromLatin1(DB_PASSWORD_CONSTANT);

    try {
        Connection conn;
        conn.open();
        Competition single, three;
        {
            Transaction t(conn);
            single = Make_Competition(conn, QStringLiteral("Bench Games"), QStringLiteral("HN"), Comp_Dances);
            three = Make_Competition(conn, QStringLiteral("Bench Championships"), QStringLiteral("C"), {1, 2, 3, 4});
            Fill_Marks(conn, single, three);
        }
        sqlite3_trace_v2(conn.handle(), SQLITE_TRACE_STMT, Count_Statement, nullptr);

        // Once untimed, so that both timed runs find the same file and the same cache.
        Tally_Single_Judge(conn, single);
        Tally_Three_Judge(conn, three);
        const QByteArray before = Results_Digest(conn);

        // The disk is shared: rounds alternate the two ways and the median of each is shown.
        const int rounds = argc > 2 ? std::max(1, QByteArray(argv[2]).toInt()) : 3;
        QList<Timing> singleTx, singleAuto, threeTx, threeAuto;
        for (int r = 0; r < rounds; ++r) {
            singleTx << Time(conn, true, [&] { Tally_Single_Judge(conn, single); });
            singleAuto << Time(conn, false, [&] { Tally_Single_Judge(conn, single); });
            threeTx << Time(conn, true, [&] { Tally_Three_Judge(conn, three); });
            threeAuto << Time(conn, false, [&] { Tally_Three_Judge(conn, three); });
        }
        const QByteArray after = Results_Digest(conn);

        std::printf("Re-tally of every dance and every overall, pauses scaled to 0\n");
        std::printf("%d events x %d dancers x 4 dances, marks in every cell; database in %s (journal %s, synchronous %s)\n",
                    Events, Dancers, qPrintable(base), qPrintable(conn.scalar("PRAGMA journal_mode").toString()),
                    qPrintable(conn.scalar("PRAGMA synchronous").toString()));
        std::printf("median of %d rounds, [fastest - slowest] in brackets\n\n", rounds);
        std::printf("%-28s %10s  %-28s  %-28s %7s\n", "", "statements", "one transaction per tally",
                    "autocommit per statement", "ratio");
        auto cell = [](QList<Timing> t) {
            std::sort(t.begin(), t.end(), [](const Timing &a, const Timing &b) { return a.ms < b.ms; });
            return QStringLiteral("%1 ms [%2 - %3]").arg(t[t.size() / 2].ms, 0, 'f', 0).arg(t.first().ms, 0, 'f', 0)
                .arg(t.last().ms, 0, 'f', 0);
        };
        auto median = [](QList<Timing> t) {
            std::sort(t.begin(), t.end(), [](const Timing &a, const Timing &b) { return a.ms < b.ms; });
            return t[t.size() / 2].ms;
        };
        auto line = [&](const char *name, const QList<Timing> &tx, const QList<Timing> &ac) {
            std::printf("%-28s %10d  %-28s  %-28s %6.1fx\n", name, tx.first().statements, qPrintable(cell(tx)),
                        qPrintable(cell(ac)), median(ac) / median(tx));
        };
        line("Competition (1 judge)", singleTx, singleAuto);
        line("Championship (3 judges)", threeTx, threeAuto);
        std::printf("\nresults the same after every run: %s (%s)\n", before == after ? "yes" : "NO", before.constData());
        return before == after ? 0 : 2;
    } catch (const AppError &e) {
        std::fprintf(stderr, "bench_tally: %s\n", qPrintable(e.message()));
        return 1;
    }
}
