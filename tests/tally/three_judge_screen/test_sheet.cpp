#include "tally/three_judge/screen/mark_rules.h"
#include "tally/three_judge/screen/three_judge_kind.h"
#include "tally/three_judge/screen/three_judge_sheet.h"
#include "core/db.h"
#include "core/errors.h"
#include "support/fixtures.h"
#include "support/test_env.h"

#include <QSet>
#include <QtTest>

using namespace ThreeJudge;

class TestThreeJudgeSheet : public QObject
{
    Q_OBJECT
private slots:
    void events_and_judges_lists();
    void premiership_dances();
    void championship_names();
    void sync_entries();
    void small_events_and_trophy_flag();
    void dance_judges();
    void mark_check();
    void marks_read_and_write();
    void result_rows();
    void random_draw();
};

namespace {

QString Marks(Connection &conn, short comp, const QString &group, short dance, int dancer)
{
    RowSet rs = conn.query(QString("SELECT points_awarded1, points_awarded2, points_awarded3 FROM judges_results WHERE "
                                   "competition_id = %1 AND group_id = '%2' AND dance_id = %3 AND competitor_id = %4")
                               .arg(comp).arg(group).arg(dance).arg(dancer));
    if (rs.eof())
        return "none";
    QStringList out;
    for (const char *f : {"points_awarded1", "points_awarded2", "points_awarded3"})
        out << (rs.isNull(f) ? QString("NULL") : rs.text(f));
    return out.join(',');
}

// The grid as the screen fills it: the caption row, then one row per record.
Grid_Cells Grid_Of(const Mark_Rules &rules, const RecordSet &rs)
{
    Grid_Cells cells(0, rs.fieldCount());
    cells.appendRow(rules.Captions(false).first());
    for (int r = 0; r < rs.rowCount(); ++r) {
        QStringList row;
        for (int f = 0; f < rs.fieldCount(); ++f)
            row << rules.Display_Text(f, rs.value(r, f));
        cells.appendRow(row);
    }
    return cells;
}

} // namespace

void TestThreeJudgeSheet::events_and_judges_lists()
{
    TestDataFolder env;
    Connection conn;
    conn.open();
    const short comp = Fixture::Competition(conn);
    const short other = Fixture::Competition(conn, "Other Games");
    Fixture::Event(conn, comp, "P2", "Under 12", "PS");
    Fixture::Event(conn, comp, "P1", "Under 10", "PS");
    Fixture::Event(conn, comp, "C1", "Adult", "C");
    Fixture::Event(conn, comp, "H1", "Beginners", "H");
    Fixture::Event(conn, other, "P9", "Elsewhere", "PS");
    conn.execute("UPDATE age_groups SET orderby = 2, championship_title = 'Premiership' WHERE competition_group_id = 'P2'");
    conn.execute("UPDATE age_groups SET orderby = 1 WHERE competition_group_id = 'P1'");
    conn.execute("UPDATE age_groups SET championship_title = 'Scottish Open' WHERE competition_group_id = 'C1'");

    const QList<Event_Entry> prem = Load_Events(conn, comp, Premiership_Kind().category);
    QCOMPARE(prem.size(), 2);
    QCOMPARE(prem[0].code, QString("P1"));
    QCOMPARE(prem[0].text, QString("Under 10 "));   // no title: the blank stays
    QCOMPARE(prem[1].text, QString("Under 12 Premiership"));
    const QList<Event_Entry> champ = Load_Events(conn, comp, Championship_Kind().category);
    QCOMPARE(champ.size(), 1);
    QCOMPARE(champ[0].text, QString("Adult Scottish Open"));

    const int mac = Fixture::Judge(conn, comp, "Ann", "MacLeod");
    Fixture::Judge(conn, comp, "Bob", "Brown");
    Fixture::Judge(conn, other, "Zed", "Away");
    QList<Judge_Entry> judges = Load_Judge_Lists(conn, comp, false);
    QCOMPARE(judges.size(), 2);
    QCOMPARE(judges[0].text, QString("Bob Brown"));   // sorted by surname either way
    QCOMPARE(judges[1].text, QString("Ann MacLeod"));
    QCOMPARE(judges[1].judgeId, mac);
    judges = Load_Judge_Lists(conn, comp, true);
    QCOMPARE(judges[0].text, QString("Brown Bob"));
    QCOMPARE(judges[1].text, QString("MacLeod Ann"));
}

void TestThreeJudgeSheet::premiership_dances()
{
    TestDataFolder env;
    Connection conn;
    conn.open();
    const short comp = Fixture::Competition(conn);
    Fixture::Event(conn, comp, "P1", "Under 12", "PS");
    Fixture::Category_Dances(conn, comp, "PS", {4, 2, 3});
    QCOMPARE(Premiership_Dance_Count(conn, comp, "P1"), 3);
    conn.execute("INSERT INTO category_dances(competition_id, category_id, dance_id, orderby) VALUES(?, 'PS', 16, 0)",
                 {comp});
    QCOMPARE(Premiership_Dance_Count(conn, comp, "P1"), 4);
    const QList<Event_Dance> dances = Load_Event_Dances(conn, comp, "P1");
    QCOMPARE(dances.size(), 4);
    QCOMPARE(dances[0].id, short(16));
    QCOMPARE(dances[0].name, QString("Trophy Fling"));
    QCOMPARE(dances[1].id, short(4));
    QCOMPARE(dances[3].name, QString("Seann Truibhas"));
    // Another category's dances do not count.
    Fixture::Event(conn, comp, "P2", "Under 14", "PRI");
    QCOMPARE(Premiership_Dance_Count(conn, comp, "P1"), 4);
}

void TestThreeJudgeSheet::championship_names()
{
    TestDataFolder env;
    Connection conn;
    conn.open();
    const short comp = Fixture::Competition(conn);
    Fixture::Event(conn, comp, "C1", "Adult", "C");
    Fixture::Event(conn, comp, "C2", "Junior", "C");
    QCOMPARE(Load_Dance_Names(conn, comp, "C1"), Default_Dance_Names());

    QVERIFY(Save_Dance_Name(conn, comp, "C1", 2, "Broadswords"));
    QVERIFY(Save_Dance_Name(conn, comp, "C1", 4, "Strathspey"));
    QVERIFY(Save_Dance_Name(conn, comp, "C1", 4, "Reel of Tulloch"));   // replaces
    std::array<QString, 4> names = Load_Dance_Names(conn, comp, "C1");
    QCOMPARE(names[0], QString("Fling"));
    QCOMPARE(names[1], QString("Broadswords"));
    QCOMPARE(names[3], QString("Reel of Tulloch"));
    QCOMPARE(Load_Dance_Names(conn, comp, "C2"), Default_Dance_Names());

    // Back to the default name: the row goes.
    QVERIFY(!Save_Dance_Name(conn, comp, "C1", 2, "Swords"));
    QCOMPARE(Fixture::Count(conn, "championship_dance_names", "dance_id = 2"), 0);

    QVERIFY(Save_Dance_Name(conn, comp, "C1", 4, "Reel o' Tulloch"));
    QCOMPARE(Load_Dance_Names(conn, comp, "C1")[3], QString("Reel o' Tulloch"));

    Save_Dance_Name(conn, comp, "C1", 1, "Highland Fling");
    Save_Dance_Name(conn, comp, "C2", 1, "Other Fling");
    Reset_Dance_Names(conn, comp, "C1");
    QCOMPARE(Load_Dance_Names(conn, comp, "C1"), Default_Dance_Names());
    QCOMPARE(Load_Dance_Names(conn, comp, "C2")[0], QString("Other Fling"));
}

void TestThreeJudgeSheet::sync_entries()
{
    TestDataFolder env;
    Connection conn;
    conn.open();
    const short comp = Fixture::Competition(conn);
    Fixture::Event(conn, comp, "P1", "Under 12", "PS");
    Fixture::Event(conn, comp, "P2", "Under 14", "PS");
    for (int n = 101; n <= 103; ++n)
        Fixture::Competitor(conn, comp, n, "Dancer", QString::number(n), {"P1"});
    Fixture::Competitor(conn, comp, 201, "Other", "Event", {"P2"});

    Sync_Entries(conn, comp, "P1", {2, 3, 4, 16});
    QCOMPARE(Fixture::Count(conn, "judges_results", "group_id = 'P1'"), 12);
    QCOMPARE(Fixture::Count(conn, "judges_results", "group_id = 'P1' AND dance_id = 16"), 3);
    QCOMPARE(Fixture::Count(conn, "judges_results", "group_id = 'P2'"), 0);

    // Marks survive a second run; a new entry gets its rows.
    conn.execute("UPDATE judges_results SET points_awarded1 = 80 WHERE competitor_id = 102 AND dance_id = 2");
    Fixture::Competitor(conn, comp, 104, "Late", "Entry", {"P1"});
    Sync_Entries(conn, comp, "P1", {2, 3, 4, 16});
    QCOMPARE(Fixture::Count(conn, "judges_results", "group_id = 'P1'"), 16);
    QCOMPARE(Marks(conn, comp, "P1", 2, 102), QString("80,NULL,NULL"));

    // Withdrawn from the event, or deleted as a competitor: all marks go.
    conn.execute("DELETE FROM competitor_groups WHERE competitor_id = 102");
    conn.execute("DELETE FROM competitors WHERE competitor_id = 103");
    Sync_Entries(conn, comp, "P1", {2, 3, 4, 16});
    QCOMPARE(Fixture::Count(conn, "judges_results", "group_id = 'P1'"), 8);
    QCOMPARE(Fixture::Count(conn, "judges_results", "competitor_id IN (102, 103)"), 0);
}

void TestThreeJudgeSheet::small_events_and_trophy_flag()
{
    TestDataFolder env;
    Connection conn;
    conn.open();
    const short comp = Fixture::Competition(conn);
    Fixture::Event(conn, comp, "C1", "Adult", "C");
    for (int n = 1; n <= 5; ++n)
        Fixture::Competitor(conn, comp, n, "D", QString::number(n), {"C1"});
    QCOMPARE(Count_Event_Dancers(conn, comp, "C1"), 5);
    QVERIFY(Flag_Small_Event(conn, comp, "C1"));
    QCOMPARE(Fixture::Count(conn, "dance_no_dancers", "group_id = 'C1'"), 4);
    QVERIFY(Flag_Small_Event(conn, comp, "C1"));   // rewritten, not doubled
    QCOMPARE(Fixture::Count(conn, "dance_no_dancers", "group_id = 'C1'"), 4);

    Fixture::Competitor(conn, comp, 6, "D", "6", {"C1"});
    conn.execute("DELETE FROM dance_no_dancers");
    QVERIFY(!Flag_Small_Event(conn, comp, "C1"));
    QCOMPARE(Fixture::Count(conn, "dance_no_dancers"), 0);

    Sync_Entries(conn, comp, "C1", {1, 2, 3, 4});
    QVERIFY(!Flag_Small_Dance(conn, comp, "C1", 1));
    conn.execute("DELETE FROM judges_results WHERE competitor_id = 6 AND dance_id = 2");
    QVERIFY(Flag_Small_Dance(conn, comp, "C1", 2));
    QVERIFY(Flag_Small_Dance(conn, comp, "C1", 2));
    QCOMPARE(Fixture::Count(conn, "dance_no_dancers"), 1);
    QVERIFY(Dance_Flagged_No_Dancers(conn, comp, "C1", 2));
    QVERIFY(!Dance_Flagged_No_Dancers(conn, comp, "C1", 1));

    Set_Include_In_Trophies(conn, comp, "C1", 2, 1);
    QVERIFY(!Dance_Flagged_No_Dancers(conn, comp, "C1", 2));
    Set_Include_In_Trophies(conn, comp, "C1", 1, 0);
    Set_Include_In_Trophies(conn, comp, "C1", 1, 0);
    QVERIFY(Dance_Flagged_No_Dancers(conn, comp, "C1", 1));
    QCOMPARE(Fixture::Count(conn, "dance_no_dancers"), 1);
}

void TestThreeJudgeSheet::dance_judges()
{
    TestDataFolder env;
    Connection conn;
    conn.open();
    const short comp = Fixture::Competition(conn);
    const int ann = Fixture::Judge(conn, comp, "Ann", "MacLeod");
    const int bob = Fixture::Judge(conn, comp, "Bob", "Brown");
    QCOMPARE(Judge_Name(conn, bob), QString("Bob Brown"));

    Set_Dance_Judge(conn, comp, "C1", 1, 1, ann);
    Set_Dance_Judge(conn, comp, "C1", 1, 3, bob);
    Set_Dance_Judge(conn, comp, "C1", 2, 1, bob);
    Set_Dance_Judge(conn, comp, "C1", 1, 1, bob);   // judge 1 of dance 1 replaced
    QCOMPARE(Fixture::Count(conn, "judges_results_judges"), 3);
    const auto names = Load_Dance_Judges(conn, comp, "C1", 1);
    QCOMPARE(names[0].value_or("none"), QString("Bob Brown"));
    QVERIFY(!names[1].has_value());
    QCOMPARE(names[2].value_or("none"), QString("Bob Brown"));
    QCOMPARE(Fixture::Count(conn, "judges_results_judges", "result_no = 1 AND dance_id = 1 AND judge_id = " +
                                                               QString::number(bob)), 1);
}

void TestThreeJudgeSheet::mark_check()
{
    Mark_Rules rules;
    auto check = [&rules](QString text) -> QString {
        try {
            const std::optional<Cell_Refusal> refused = rules.Check_Cell(1, 4, text);
            return refused ? refused->title + ": " + refused->text : QString("ok");
        } catch (const AppError &) {
            return "fault";   // the editor's handler shows the "Invalid Entry!" box
        }
    };
    for (const char *good : {"", "D", "d", "0", "100", "87.5", " 42 "})
        QCOMPARE(check(good), QString("ok"));
    const QString range = "Validation Error: " + Mark_Range_Message;
    QCOMPARE(check("101"), range);
    QCOMPARE(check("-1"), range);
    QCOMPARE(check("100.7"), range);   // read as 101
    QCOMPARE(check("40000"), QString("fault"));   // past 16 bits
    for (const char *bad : {"DQ", "abc", "inf", "1O"})
        QCOMPARE(check(bad), QString("fault"));
    QCOMPARE(rules.texts.faultText, QString("Invalid Entry! Re-enter or Hit <Escape> to exit"));
    QCOMPARE(rules.texts.faultTitle, QString("Validation Error"));
}

void TestThreeJudgeSheet::marks_read_and_write()
{
    TestDataFolder env;
    Connection conn;
    conn.open();
    const short comp = Fixture::Competition(conn);
    Fixture::Event(conn, comp, "C1", "Adult", "C");
    for (int n = 11; n <= 13; ++n)
        Fixture::Competitor(conn, comp, n, "D", QString::number(n), {"C1"});
    Sync_Entries(conn, comp, "C1", {1, 2, 3, 4});
    conn.execute("UPDATE judges_results SET points_awarded1 = -1, points_awarded2 = 87.5 WHERE competitor_id = 12 AND "
                 "dance_id = 1");

    Mark_Rules rules;
    rules.select = Marks_Select(comp, "C1", 1, false);
    RecordSet rs;
    rs.open(conn, rules.table, rules.Select_Sql());
    QCOMPARE(rs.rowCount(), 3);
    QCOMPARE(rs.fieldCount(), rules.Column_Count());
    QCOMPARE(rs.fieldName(First_Judge_Column), QString("points_awarded1"));
    QCOMPARE(rs.fieldName(Last_Judge_Column), QString("points_awarded3"));
    QCOMPARE(rs.fieldName(Group_Column), QString("group_id"));
    Grid_Cells grid = Grid_Of(rules, rs);
    QCOMPARE(grid.row(2), (QStringList{"12", QString::number(comp), "C1", "1", "D", "87.5", ""}));

    // Typed marks: "d" and "D" become -1, empty becomes NULL, fractions stay.
    grid.setText(1, 4, "d");
    grid.setText(1, 5, "90");
    grid.setText(2, 4, "");
    grid.setText(2, 6, "72.25");
    grid.setText(3, 6, "D");
    Grid_Save_Result saved = Run_Grid_Save(rules, conn, rs, grid, 0);
    QVERIFY(!saved.failed);
    QCOMPARE(Marks(conn, comp, "C1", 1, 11), QString("-1,90,NULL"));
    QCOMPARE(Marks(conn, comp, "C1", 1, 12), QString("NULL,87.5,72.25"));
    QCOMPARE(Marks(conn, comp, "C1", 1, 13), QString("NULL,NULL,-1"));
    QCOMPARE(conn.scalar("SELECT typeof(points_awarded2) FROM judges_results WHERE competitor_id = 11 AND dance_id = 1")
                 .toString(), QString("integer"));
    QCOMPARE(conn.scalar("SELECT typeof(competition_id) FROM judges_results WHERE competitor_id = 11 AND dance_id = 1")
                 .toString(), QString("integer"));   // the hidden columns go back as they were
    QCOMPARE(Marks(conn, comp, "C1", 2, 11), QString("NULL,NULL,NULL"));   // other dances untouched

    // A text that is no number stops the save at its row; rows before it stay.
    rs.requery();
    grid = Grid_Of(rules, rs);
    grid.setText(1, 4, "55");
    grid.setText(2, 4, "abc");
    grid.setText(3, 4, "60");
    saved = Run_Grid_Save(rules, conn, rs, grid, 0);
    QVERIFY(saved.failed);
    QCOMPARE(saved.row, 2);
    QCOMPARE(Marks(conn, comp, "C1", 1, 11), QString("55,90,NULL"));
    QCOMPARE(Marks(conn, comp, "C1", 1, 12), QString("NULL,87.5,72.25"));
    QCOMPARE(Marks(conn, comp, "C1", 1, 13), QString("NULL,NULL,-1"));

    // The filter shows signed-in dancers only and leaves the others' marks alone.
    conn.execute("UPDATE competitors SET registered = 0 WHERE competitor_id = 11");
    conn.execute("UPDATE competitors SET registered = 1 WHERE competitor_id = 13");
    rules.select = Marks_Select(comp, "C1", 1, true);
    RecordSet filtered;
    filtered.open(conn, rules.table, rules.Select_Sql());
    QCOMPARE(filtered.rowCount(), 2);
    grid = Grid_Of(rules, filtered);
    QCOMPARE(grid.text(2, 0), QString("13"));
    grid.setText(2, 4, "70");
    QVERIFY(!Run_Grid_Save(rules, conn, filtered, grid, 0).failed);
    QCOMPARE(Marks(conn, comp, "C1", 1, 13), QString("70,NULL,-1"));
    QCOMPARE(Marks(conn, comp, "C1", 1, 12), QString("NULL,87.5,72.25"));

    RecordSet empty;
    empty.open(conn, rules.table, Empty_Marks_Select());
    QCOMPARE(empty.rowCount(), 0);
}

void TestThreeJudgeSheet::result_rows()
{
    TestDataFolder env;
    Connection conn;
    conn.open();
    const short comp = Fixture::Competition(conn);
    Fixture::Competitor(conn, comp, 21, "Amy", "Bell", {"C1"});
    Fixture::Competitor(conn, comp, 22, "Cara", "Dunn", {"C1"});
    Fixture::Competitor(conn, comp, 23, "Eve", "Fyfe", {"C1"});
    conn.execute("INSERT INTO highland_results(competition_id, group_id, competitor_id, points, dance_points, placing, "
                 "tie, tied) VALUES(?, 'C1', 22, 137, 411, 1, '=', 1)", {comp});
    conn.execute("INSERT INTO highland_results(competition_id, group_id, competitor_id, points, dance_points, placing, "
                 "tied) VALUES(?, 'C1', 21, 137, 411, 1, 1)", {comp});
    conn.execute("INSERT INTO highland_results(competition_id, group_id, competitor_id, points, dance_points, placing, "
                 "tie, tied) VALUES(?, 'C1', 23, 71, 200, 3, '', 0)", {comp});
    const QList<QStringList> overall = Overall_Result_Rows(conn, comp, "C1");
    QCOMPARE(overall.size(), 3);
    QCOMPARE(overall[2], (QStringList{"3", "23", "200", "Eve Fyfe"}));
    QVERIFY(overall[0][0] == "1=" || overall[1][0] == "1=");
    QVERIFY(overall[0][0] == "1" || overall[1][0] == "1");

    conn.execute("INSERT INTO overall_dance_results(competition_id, group_id, dance_id, competitor_id, points, "
                 "total_dance_points, placing, tie) VALUES(?, 'C1', 2, 21, 137, 411, 1, ' ')", {comp});
    conn.execute("INSERT INTO overall_dance_results(competition_id, group_id, dance_id, competitor_id, points, "
                 "total_dance_points, placing, tie) VALUES(?, 'C1', 2, 23, 0, 23, 7, ' ')", {comp});
    conn.execute("INSERT INTO overall_dance_results(competition_id, group_id, dance_id, competitor_id, points, "
                 "total_dance_points, placing, tie) VALUES(?, 'C1', 1, 22, 137, 411, 1, ' ')", {comp});
    const QList<QStringList> dance = Dance_Result_Rows(conn, comp, "C1", 2);
    QCOMPARE(dance.size(), 1);   // place 7 with no points is not shown
    QCOMPARE(dance[0], (QStringList{"1 ", "21", "Amy Bell"}));
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

