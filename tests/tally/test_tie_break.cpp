#include "tally_fill.h"
#include "tally/three_judge/three_judge_tally.h"

#include <QtTest>

namespace {

// "id: dance place points... / judges' points / judges' placings", the dance
// results of one dancer as Tally_Dance leaves them.
void Add_Dancer(Tally_Event &ev, const QString &row)
{
    const QStringList parts = row.split('/');
    const QStringList head = parts[0].split(':');
    const int id = head[0].trimmed().toInt();
    const QStringList points = head[1].split(' ', Qt::SkipEmptyParts);
    const int total = parts[1].trimmed().toInt();
    const int placings = parts[2].trimmed().toInt();
    for (int d = 0; d < points.size(); ++d)
        ev.danceResult(id, d + 1, points[d].toInt(), d == 0 ? total : 0);
    for (int k = 0; k < placings; ++k)
        ev.conn.execute("INSERT INTO dance_results(competition_id, group_id, dance_id, result_no, competitor_id, points, "
                        "placing) VALUES(?,?,?,?,?,23,6)",
                        {ev.comp, Current_Group_Id, 1 + k / 3, 1 + k % 3, id});
}

} // namespace

class TestTieBreak : public QObject
{
    Q_OBJECT
private slots:
    void tie_rules_data();
    void tie_rules();
    void measures_are_kept_beside_the_result();
    void nothing_to_rank();
    void worked_dance_through_to_the_overall();
};

void TestTieBreak::tie_rules_data()
{
    QTest::addColumn<QStringList>("dancers");
    QTest::addColumn<QStringList>("expected");   // "id place[tie] dance points", no brackets for a NULL tie

    // Each rule wins over the ones after it.
    QTest::newRow("more dances won")
        << QStringList{"102: 91 91 91 23 / 610 / 9", "101: 137 53 53 53 / 600 / 8", "103: 71 71 71 71 / 700 / 12"}
        << QStringList{"101 1 296", "102 2[] 296", "103 3 284"};
    QTest::newRow("then more judges' points")
        << QStringList{"102: 137 91 37 23 / 640 / 9", "101: 137 91 37 23 / 650 / 8"}
        << QStringList{"101 1 288", "102 2[] 288"};
    QTest::newRow("then more judges' placings")
        << QStringList{"102: 137 91 37 23 / 650 / 8", "101: 137 91 37 23 / 650 / 9"}
        << QStringList{"101 1 288", "102 2[] 288"};
    QTest::newRow("equal on all three")
        << QStringList{"101: 137 91 37 23 / 650 / 8", "102: 137 91 37 23 / 650 / 8"}
        << QStringList{"101 1[=] 288", "102 1[=] 288"};
    QTest::newRow("three tied, the first ahead")
        << QStringList{"109: 137 137 137 137 / 900 / 12", "103: 137 91 23 23 / 600 / 9", "102: 137 91 23 23 / 600 / 9",
                       "101: 137 137 0 0 / 600 / 9", "104: 91 71 53 53 / 500 / 9"}
        << QStringList{"109 1 548", "101 2 274", "102 3[=] 274", "103 3[=] 274", "104 5 268"};
    QTest::newRow("three tied, the last behind")
        << QStringList{"109: 137 137 137 137 / 900 / 12", "103: 137 91 23 23 / 600 / 9", "102: 137 137 0 0 / 600 / 9",
                       "101: 137 137 0 0 / 600 / 9", "104: 91 71 53 53 / 500 / 9"}
        << QStringList{"109 1 548", "101 2[=] 274", "102 2[=] 274", "103 3[] 274", "104 5 268"};
    QTest::newRow("two tied groups apart")
        << QStringList{"102: 137 91 23 23 / 600 / 9", "101: 137 137 0 0 / 600 / 9", "103: 91 71 53 53 / 500 / 9",
                       "105: 71 71 71 53 / 400 / 9", "104: 71 71 71 53 / 400 / 10"}
        << QStringList{"101 1 274", "102 2[] 274", "103 3 268", "104 4 266", "105 5[] 266"};
    QTest::newRow("a tie at sixth keeps every tied dancer")
        << QStringList{"101: 137 137 137 / 1 / 1", "102: 137 137 / 1 / 1", "103: 137 91 / 1 / 1", "104: 137 / 1 / 1",
                       "105: 91 / 1 / 1", "106: 71 / 1 / 1", "107: 71 / 1 / 1", "108: 71 / 1 / 1", "110: 53 / 1 / 1"}
        << QStringList{"101 1 411", "102 2 274", "103 3 228", "104 4 137", "105 5 91", "106 6[=] 71", "107 6[=] 71",
                       "108 6[=] 71"};
}

void TestTieBreak::tie_rules()
{
    QFETCH(QStringList, dancers);
    QFETCH(QStringList, expected);
    Tally_Event ev(QStringLiteral("C"));
    for (const QString &d : dancers)
        Add_Dancer(ev, d);
    Tally_Overall(ev.conn);
    QCOMPARE(ev.rows("highland_results", {}, "dance_points"), expected);
    QVERIFY(!ev.conn.inTransaction());
}

void TestTieBreak::measures_are_kept_beside_the_result()
{
    Tally_Event ev(QStringLiteral("PS"));
    Add_Dancer(ev, "101: 137 53 53 53 / 600 / 8");
    Add_Dancer(ev, "102: 91 91 91 23 / 610 / 7");
    Add_Dancer(ev, "103: 71 71 71 71 / 700 / 12");
    // Another event's tie-break is its own.
    ev.conn.execute("INSERT INTO tie_break(competition_id, group_id, competitor_id, placing) VALUES(1, 'E2', 201, 1)");
    Tally_Overall(ev.conn);

    RowSet tb = ev.conn.query("SELECT competitor_id || ':' || placing || ',' || no_firsts || ',' || no_prizes || ',' || "
                              "dance_points AS r FROM tie_break WHERE group_id = 'E1' ORDER BY competitor_id");
    QStringList rows;
    for (; !tb.eof(); tb.next())
        rows << tb.text("r");
    // dance_points of tie_break is the sum of the judges' points.
    QCOMPARE(rows, QStringList({"101:1,1,8,600", "102:1,0,7,610"}));
    QCOMPARE(Fixture::Count(ev.conn, "tie_break", "group_id = 'E2'"), 1);

    RowSet hr = ev.conn.query("SELECT competitor_id || ':' || tied || ',' || ifnull(no_firsts, 'null') || ',' || "
                              "ifnull(no_prizes, 'null') || ',' || total_dance_points || ',' || points AS r "
                              "FROM highland_results ORDER BY competitor_id");
    rows.clear();
    for (; !hr.eof(); hr.next())
        rows << hr.text("r");
    // Still flagged as tied once resolved; the measures only on rows that tied.
    QCOMPARE(rows, QStringList({"101:1,1,8,600,137", "102:1,0,7,610,137", "103:0,null,null,700,71"}));
}

void TestTieBreak::nothing_to_rank()
{
    Tally_Event ev(QStringLiteral("C"));
    Add_Dancer(ev, "101: 137 / 300 / 3");
    Add_Dancer(ev, "102: 137 / 300 / 3");
    Tally_Overall(ev.conn);
    QCOMPARE(Fixture::Count(ev.conn, "tie_break"), 2);

    // Rows without judges' points (a Competition tally's) are not counted either.
    ev.conn.execute("DELETE FROM overall_dance_results");
    ev.conn.execute("INSERT INTO overall_dance_results(competition_id, group_id, dance_id, competitor_id, points, placing, tie) "
                    "VALUES(1,'E1',1,101,137,1,'')");
    Tally_Overall(ev.conn);
    QCOMPARE(Fixture::Count(ev.conn, "highland_results"), 0);
    QCOMPARE(Fixture::Count(ev.conn, "tie_break"), 0);
}

void TestTieBreak::worked_dance_through_to_the_overall()
{
    Tally_Event ev(QStringLiteral("C"));
    const QList<int> judge1 = {90, 90, 85, 80, 75, 70, 70, 60};
    const QMap<int, int> judges23 = {{101, 90}, {102, 90}, {103, 80}, {104, 70}, {105, 60}, {106, 50}};
    for (int i = 0; i < 8; ++i)
        ev.marks(101 + i, judge1[i], judges23.value(101 + i), judges23.value(101 + i));
    ev.marks(109, QVariant(), 95, 95);
    Tally_Event_Dances(ev.conn);
    Tally_Overall(ev.conn);
    // A and B won the dance jointly: one first each, the same judges' points and placings, so the tie stands.
    QCOMPARE(ev.rows("highland_results", {}, "dance_points"),
             QStringList({"101 1[=] 137", "102 1[=] 137", "109 3 71", "103 4 53", "104 5 37", "105 6 23"}));
}

QTEST_GUILESS_MAIN(TestTieBreak)
#include "test_tie_break.moc"
