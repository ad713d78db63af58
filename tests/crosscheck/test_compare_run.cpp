#include "crosscheck_event.h"
#include "crosscheck/compare_file.h"
#include "crosscheck/compare_run.h"

#include <QDir>
#include <QFile>
#include <QtTest>

namespace {
QString Sides(const Compare_Outcome &o)
{
    auto side = [](const Compare_Side &s) { return QStringList{s.dance, s.number, s.place, s.judge}.join('/'); };
    return QString::number(o.lineType) + QLatin1Char(' ') + side(o.here) + QStringLiteral(" | ") + side(o.remote);
}
const QHash<int, QString> Dances = {{1, "Fling"}, {2, "Swords"}};
} // namespace

class TestCompareRun : public QObject
{
    Q_OBJECT
private slots:
    void first_differing_pair_data();
    void first_differing_pair();
    void check_against_the_written_file();
};

void TestCompareRun::first_differing_pair_data()
{
    QTest::addColumn<QString>("own");       // lines, each ended by CR LF
    QTest::addColumn<QByteArray>("remote");
    QTest::addColumn<QString>("outcome");   // kind, type, "dance/no/place/judge | remote side"
    const QString a = "2\t12\t1\t1\t1\r\n2\t17\t2\t1\t1\r\n1\t12\t1  \t1\r\n";
    const QByteArray ab = a.toLatin1();
    const QString none = " 0 /// | ///";
    QTest::newRow("equal") << a << ab << "0" + none;
    QTest::newRow("both empty") << "" << QByteArray() << "0" + none;
    QTest::newRow("last line without its end unread") << "" << QByteArray("1\t1\t1\t1") << "0" + none;
    QTest::newRow("judge order") << a << QByteArray("2\t12\t1\t1\t2\r\n") << "1 2 Fling/12/1/1 | Fling/12/1/2";
    QTest::newRow("tie mark") << a << QByteArray(ab).replace("1  ", "1 =") << "1 1 Fling/12/1  / | Fling/12/1 =/";
    QTest::newRow("extra remote line") << a << ab + "1\t17\t2\t2\r\n" << "1 1 /// | Swords/17/2/";
    QTest::newRow("own line left over") << a + "2\t20\t3\t2\t1\r\n" << ab << "1 1 Swords/20/3/ | ///";
    QTest::newRow("too few fields") << a << QByteArray("2\t12\t1\t1\r\n") << "3" + none;
    QTest::newRow("dance not a number") << a << QByteArray("2\t12\t1\tx\t1\r\n") << "3" + none;
    QTest::newRow("dance unknown") << "1\t1\t1\t9\r\n" << QByteArray("1\t1\t2\t9\r\n") << "3" + none;
    QTest::newRow("odd bytes") << a << QByteArray("\xff\x00\t\t\r\n\r", 7) << "3" + none;
}

void TestCompareRun::first_differing_pair()
{
    QFETCH(QString, own);
    QFETCH(QByteArray, remote);
    QFETCH(QString, outcome);
    const Compare_Outcome o = Compare_Results(own.split("\r\n"), Split_Compare_Text(remote), Dances);
    QCOMPARE(QString::number(o.kind) + ' ' + Sides(o), outcome);
}

void TestCompareRun::check_against_the_written_file()
{
    Crosscheck_Event ev;
    Opt_Check_Dir = Data_Dir + QStringLiteral("compare");  // written as "Compare"
    QCOMPARE(Check_Results(ev.conn, "Under 12", "Champ").kind, Compare_Outcome::No_File);

    Write_Compare_File(2, "Under 12");
    QCOMPARE(Check_Results(ev.conn, "Under 12", "Champ").kind, Compare_Outcome::Match);
    // The Competition layout of the same event is another file.
    QCOMPARE(Check_Results(ev.conn, "Under 12", "Comp").kind, Compare_Outcome::Differ);

    // A judge's placing changed here after the file was written.
    ev.conn.execute("UPDATE dance_results SET placing = 3 WHERE competitor_id = 17 AND dance_id = 1");
    const Compare_Outcome o = Check_Results(ev.conn, "Under 12", "Champ");
    QCOMPARE(Sides(o), QString("2 Fling/17/3/1 | Fling/17/2/1"));
    QCOMPARE(Check_Text("This Computer", o, false),
             QString("This Computer\r\nDance: Fling\r\nJudge: 1\r\nNo: 17\r\nPlace: 3\r\n"));
    QCOMPARE(Check_Text("Remote Computer", o, true),
             QString("Remote Computer\r\nDance: Fling\r\nJudge: 1\r\nNo: 17\r\nPlace: 2\r\n"));
}

QTEST_GUILESS_MAIN(TestCompareRun)
#include "test_compare_run.moc"
