// The competitors screen stores what the operator typed, only what was
// changed, and never loses a dancer's entries.
#include "entries/frmCompetitors.h"
#include "support/fixtures.h"
#include "support/screen_script.h"
#include "support/test_env.h"
#include "core/globals.h"

class TestCompetitorSafety : public QObject
{
    Q_OBJECT
private slots:
    void typed_saved_and_searched_data();
    void typed_saved_and_searched();
};

void TestCompetitorSafety::typed_saved_and_searched_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("sql");
    QTest::addColumn<QString>("state");   // the answer of sql | title of the first box | rows in the grid
    const QString names = "SELECT group_concat(forename || ':' || ifnull(town, '') || ':' || ifnull(teacher, '') || ':' || ifnull(age, '')) FROM (SELECT * FROM competitors ORDER BY competition_id, competitor_id)";
    const QString entries = "SELECT group_concat(competitor_id || group_id) FROM (SELECT * FROM competitor_groups ORDER BY competitor_id, group_id)";
    QTest::newRow("burst of keys") << "@1,2|>Catriona\n|!CmdSave" << names << "Anna:::,CATRIONA:::,Dan:::|Confirmation|2";
    QTest::newRow("refused age, then clicks") << "@2,4|>-5|!CmdViewSearch|!CmdCancelSearch|!CmdSave" << names << "Anna:::,Cara:::,Dan:::|Invalid Data|2";
    QTest::newRow("new dancer saved twice") << "@2,1|>\n|>\x1b|@3,1|>103\n|@3,2|>Eve\n|@3,3|>Fox\n|>\x1b|=3,7,Bo'ness|=3,11,O'Neill|!CmdSave|!CmdSave"
                                            << names << "Anna:::,Cara:::,Eve:Bo'ness:O'NEILL:,Dan:::|Confirmation|3";
    QTest::newRow("edit below a delete") << "@2,2|>Annie\t|@1,1|!cmdDel|!CmdSave" << names << "ANNIE:::,Dan:::|Deletion Confirmation|1";
    QTest::newRow("Field4 with a quote") << "@2,16|>St Andrew's\t|!CmdSave" << entries << "101E1,101St Andrew's,102E1,102E2,201E1|Confirmation|2";
    QTest::newRow("renumber onto a taken number") << "@2,1|>102\t|!CmdSave" << entries << "101E1,102E1,102E2,201E1|Data Error|2";
    QTest::newRow("search a name with a quote") << "!CmdViewSearch|!SearchSurname|>O'Brien|!CmdSearch" << entries << "101E1,102E1,102E2,201E1||1";
    QTest::newRow("number box with no number") << "!CmdViewSearch|!SearchNo|>1 OR 1=1|!CmdSearch" << entries << "101E1,102E1,102E2,201E1|Invalid Data|2";
}

void TestCompetitorSafety::typed_saved_and_searched()
{
    QFETCH(QString, script);
    QFETCH(QString, sql);
    TestDataFolder env;
    Connection c;
    c.open();
    Current_Competition_Id = Fixture::Competition(c, "Alpha");
    Fixture::Competition(c, "Beta");
    Fixture::Event(c, 1, "E1", "Under 8", "H");
    Fixture::Event(c, 1, "E2", "Under 10", "H");
    Fixture::Competitor(c, 1, 101, "Anna", "O'Brien", {"E1"});
    Fixture::Competitor(c, 1, 102, "Cara", "Dunn", {"E1", "E2"});
    Fixture::Competitor(c, 2, 201, "Dan", "Ross", {"E1"});
    frmCompetitors s;
    Show_Screen(&s);
    Run_Script(&s, script);
    QTEST(c.scalar(sql).toString() + "|" + Dialogs::records().value(0).title + "|" + QString::number(s.Row_Count() - 1), "state");
    s.Set_Dirty(false);
}

QTEST_MAIN(TestCompetitorSafety)
#include "test_competitor_safety.moc"
