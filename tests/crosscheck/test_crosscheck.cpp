#include "crosscheck/compare_file.h"
#include "crosscheck/compare_run.h"
#include "support/fixtures.h"
#include "support/test_env.h"
#include "core/db.h"
#include "core/globals.h"

#include <QtTest>

namespace {
QString Outcome(const Compare_Outcome &o)
{
    auto side = [](const Compare_Side &s) { return QStringList{s.dance, s.number, s.place, s.judge}.join('/'); };
    return QString::number(o.kind) + ' ' + QString::number(o.lineType) + ' ' + side(o.here) + " | " + side(o.remote);
}

// One event with dance results (another event's row and a place 7 with no
// points among them) and judges' placings.
void Fill_Event(Connection &conn)
{
    Current_Competition_Id = Fixture::Competition(conn);
    Current_Group_Id = "E1";
    for (int n : {12, 17, 20})
        Fixture::Competitor(conn, Current_Competition_Id, n, "Ann", "O'Neill", {"E1"});
    const QString c = "(" + QString::number(Current_Competition_Id) + ",'E";
    conn.execute("INSERT INTO overall_dance_results(competition_id, group_id, dance_id, competitor_id, points, placing, tie) "
                 "VALUES" + c + "1',1,20,91,2,'='),"  + c + "1',1,12,137,1,' ')," + c + "1',1,17,91,2,'='),"
                 + c + "1',2,17,137,1,' ')," + c + "1',2,20,0,7,' ')," + c + "2',1,12,137,1,' ')");
    conn.execute("INSERT INTO dance_results(competition_id, group_id, dance_id, result_no, competitor_id, points, placing) "
                 "VALUES" + c + "1',1,2,12,0,1)," + c + "1',1,1,17,0,2)," + c + "1',1,1,12,0,1)," + c + "1',2,1,17,0,1)");
}
} // namespace

class TestCrosscheck : public QObject
{
    Q_OBJECT
private slots:
    void written_bytes_data();
    void written_bytes();
    void first_differing_pair_data();
    void first_differing_pair();
};

void TestCrosscheck::written_bytes_data()
{
    QTest::addColumn<short>("type");
    QTest::addColumn<QString>("group");
    QTest::addColumn<QString>("folder");  // already there, in its own case
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("competition, place 7 kept") << short(1) << "E1" << "Compare"
        << QByteArray("1\t12\t1\t1\r\n1\t17\t2\t1\r\n1\t20\t2\t1\r\n1\t17\t1\t2\r\n1\t20\t7\t2\r\n");
    QTest::newRow("three judges, placings first, no place 7") << short(2) << "E1" << "compare"
        << QByteArray("2\t12\t1\t1\t1\r\n2\t17\t2\t1\t1\r\n2\t12\t1\t1\t2\r\n2\t17\t1\t2\t1\r\n"
                      "1\t12\t1  \t1\r\n1\t17\t2 =\t1\r\n1\t20\t2 =\t1\r\n1\t17\t1  \t2\r\n");
    QTest::newRow("no results, empty file") << short(2) << "E3" << "COMPARE" << QByteArray();
}

void TestCrosscheck::written_bytes()
{
    QFETCH(short, type);
    QFETCH(QString, group);
    QFETCH(QString, folder);
    QFETCH(QByteArray, bytes);
    TestDataFolder env;
    Connection conn;
    conn.open();
    Fill_Event(conn);
    Current_Group_Id = group;
    QFile file(Data_Dir + folder + "/Under 12 \u00e9t\u00e9.cmp");  // a file there already is replaced whole
    QVERIFY(QDir().mkpath(Data_Dir + folder) && file.open(QIODevice::WriteOnly) && file.write(QByteArray(99, 'x')));
    file.close();
    Write_Compare_File(type, "Under 12 \u00e9t\u00e9");
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), bytes);
    // The other computer reads the folder whatever its case on disk.
    Opt_Check_Dir = Data_Dir + folder.toLower();
    QCOMPARE(Check_Results(conn, "Under 12 \u00e9t\u00e9", type == 2 ? "Champ" : "Comp").kind, Compare_Outcome::Match);
    QCOMPARE(Check_Results(conn, "Over 12", "Champ").kind, Compare_Outcome::No_File);
}

void TestCrosscheck::first_differing_pair_data()
{
    QTest::addColumn<QString>("own");       // lines, each ended by CR LF
    QTest::addColumn<QByteArray>("remote");
    QTest::addColumn<QString>("outcome");   // kind, type, "dance/no/place/judge | remote side"
    const QString a = "2\t12\t1\t1\t1\r\n2\t17\t2\t1\t1\r\n1\t12\t1  \t1\r\n", none = " 0 /// | ///";
    const QByteArray ab = a.toLatin1();
    QTest::newRow("equal") << a << ab << "0" + none;
    QTest::newRow("both empty") << "" << QByteArray() << "0" + none;
    QTest::newRow("judge order") << a << QByteArray("2\t12\t1\t1\t2\r\n") << "1 2 Fling/12/1/1 | Fling/12/1/2";
    QTest::newRow("tie mark") << a << QByteArray(ab).replace("1  ", "1 =") << "1 1 Fling/12/1  / | Fling/12/1 =/";
    QTest::newRow("extra remote line") << a << ab + "1\t17\t2\t2\r\n" << "1 1 /// | Swords/17/2/";
    QTest::newRow("own line left over") << a + "2\t20\t3\t2\t1\r\n" << ab << "1 1 Swords/20/3/ | ///";
    QTest::newRow("too few fields") << a << QByteArray("2\t12\t1\t1\r\n") << "3" + none;
    QTest::newRow("dance not a number") << a << QByteArray("2\t12\t1\tx\t1\r\n") << "3" + none;
    QTest::newRow("dance unknown") << "1\t1\t1\t9\r\n" << QByteArray("1\t1\t2\t9\r\n") << "3" + none;
    QTest::newRow("odd bytes") << a << QByteArray("\xff\x00\t\t\r\n\r", 7) << "3" + none;
}

void TestCrosscheck::first_differing_pair()
{
    QFETCH(QString, own);
    QFETCH(QByteArray, remote);
    QFETCH(QString, outcome);
    const QHash<int, QString> dances = {{1, "Fling"}, {2, "Swords"}};
    const Compare_Outcome o = Compare_Results(own.split("\r\n"), Split_Compare_Text(remote), dances);
    QCOMPARE(Outcome(o), outcome);
    QCOMPARE(Check_Text("Remote Computer", o, true), o.lineType == 2 ? "Remote Computer\r\nDance: Fling\r\nJudge: 2\r\n"
             "No: 12\r\nPlace: 1\r\n" : "Remote Computer\r\nDance: Judge: No: Place: ");
}

QTEST_GUILESS_MAIN(TestCrosscheck)
#include "test_crosscheck.moc"
