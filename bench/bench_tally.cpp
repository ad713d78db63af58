// Tallies beside the statements they run, done bare in one transaction on the
// same connection: a Championship of 300 dancers (three judges, four dances:
// the dances, then the overall), and a re-tally of every event of the
// 1,500-dancer competition of the day. Deliberate pauses are scaled to zero.
#include "bench_common.h"
#include "bench_season.h"

namespace {

// Runs a tally, telling its fault when it ends in one.
QString Tally(const std::function<void()> &work)
{
    try {
        work();
    } catch (const AppError &e) {
        return e.message();
    }
    return QString();
}

bool Time_Tally(Connection &conn, const char *what, const std::function<void()> &work)
{
    QList<QByteArray> statements;
    QString fault;
    {
        Bench::Statement_Log log(conn.handle());
        fault = Tally(work);
        statements = log.statements;
    }
    // The tallies' own transactions stand aside: the bare run holds all in one.
    QList<QByteArray> bare;
    for (const QByteArray &s : statements)
        if (!s.startsWith("BEGIN") && !s.startsWith("COMMIT") && !s.startsWith("SAVEPOINT") && !s.startsWith("RELEASE"))
            bare << s;
    std::printf("  (%s: %lld statements%s%s)\n", what, qlonglong(bare.size()), fault.isEmpty() ? "" : ", ends in the fault ",
                qPrintable(fault));
    return Bench::Print(what, Bench::Alternate([&] { Tally(work); }, [&] { Bench::Bare_Run(conn.handle(), bare); }), 2.0);
}

} // namespace

int main()
{
    QTemporaryDir dir;
    if (!Bench::Use_Data_Dir(dir)) {
        std::fprintf(stderr, "cannot lay the prepared database\n");
        return 1;
    }
    Connection conn;
    conn.open();
    QList<Bench::Season_Event> events = Bench::Build_Season(conn, 0);
    const short day = Current_Competition_Id;
    // A competition whose one Championship holds 300 dancers.
    short champ = 0;
    {
        Transaction t(conn);
        champ = Bench::New_Competition(conn, QStringLiteral("Bench Championships"));
        Bench::Make_Events(conn, champ, Bench::Season_Dancers, 53);
    }
    std::printf("Tallies, pauses scaled to 0\n");
    bool ok = Time_Tally(conn, "Championship of 300 dancers, 3 judges, 4 dances", [&] {
        Current_Competition_Id = champ;
        Current_Group_Id = Bench::Event_Code(52);
        Tally_Event_Dances(conn);
        Tally_Overall(conn);
    });
    ok = Time_Tally(conn, "every event of 1500 dancers in 60 events", [&] { Bench::Tally_All(conn, day, events); }) && ok;
    return ok ? 0 : 2;
}
