#include "tally/three_judge/screen/mark_rules.h"
#include "tally/three_judge/screen/three_judge_sheet.h"
#include "core/db.h"
#include "core/errors.h"
#include "support/fixtures.h"
#include "support/test_env.h"

#include <QtTest>

using namespace ThreeJudge;

// The mark check's edges and the random draw; the screens are driven by keys
// in the other tests of this folder.
class TestThreeJudgeSheet : public QObject
{
    Q_OBJECT
private slots:
    void mark_check_data();
    void mark_check();
    void random_draw();
};

void TestThreeJudgeSheet::mark_check_data()
{
    QTest::addColumn<QString>("texts");
    QTest::addColumn<QString>("answer");
    QTest::newRow("accepted") << "|D|d|0|100|87.5| 42 " << "ok";
    QTest::newRow("out of range") << "101|-1|100.7" << "Validation Error: " + Mark_Range_Message;   // 100.7 reads as 101
    // The editor's handler shows the "Invalid Entry!" box for a fault.
    QTest::newRow("fault") << "40000|DQ|abc|inf|1O" << "fault";
}

void TestThreeJudgeSheet::mark_check()
{
    QFETCH(QString, texts);
    Mark_Rules rules;
    for (QString text : texts.split('|')) {
        QString answer;
        try {
            const std::optional<Cell_Refusal> refused = rules.Check_Cell(1, 4, text);
            answer = refused ? refused->title + ": " + refused->text : QString("ok");
        } catch (const AppError &) {
            answer = "fault";
        }
        QTEST(answer, "answer");
    }
}

void TestThreeJudgeSheet::random_draw()
{
    TestDataFolder env;
    Connection conn;
    conn.open();
    const short comp = Fixture::Competition(conn);
    Fixture::Event(conn, comp, "C1", "Adult", "C");
    for (int n = 1; n <= 3; ++n)
        Fixture::Competitor(conn, comp, n, "D", QString::number(n), {"C1"});
    Sync_Entries(conn, comp, "C1", {1, 2, 3, 4});
    QList<int> numbers;
    for (int i = 0; i < 12; ++i)
        numbers << 500 + i;
    Write_Random_Draw(conn, comp, "C1", {"1", "2", "3"}, numbers);
    QCOMPARE(conn.scalar("SELECT orderby FROM judges_results WHERE dance_id = 1 AND competitor_id = 1").toInt(), 500);
    QCOMPARE(conn.scalar("SELECT orderby FROM judges_results WHERE dance_id = 1 AND competitor_id = 3").toInt(), 502);
    QCOMPARE(conn.scalar("SELECT orderby FROM judges_results WHERE dance_id = 4 AND competitor_id = 3").toInt(), 511);
    QCOMPARE(conn.scalar("SELECT count(DISTINCT orderby) FROM judges_results").toInt(), 12);

    // Too few numbers: a fault, and what was written stays.
    QVERIFY_THROWS_EXCEPTION(AppError, Write_Random_Draw(conn, comp, "C1", {"1", "2", "3"}, {1, 2, 3, 4}));
    QCOMPARE(conn.scalar("SELECT orderby FROM judges_results WHERE dance_id = 2 AND competitor_id = 1").toInt(), 4);
}

QTEST_GUILESS_MAIN(TestThreeJudgeSheet)
#include "test_sheet.moc"

