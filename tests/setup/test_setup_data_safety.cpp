// What the operator types on the competitions and events screens is stored
// as typed, once, and never lost.
#include "setup/FrmEvents.h"
#include "setup/category_logic.h"
#include "setup/competition_logic.h"
#include "setup/frmgroups.h"
#include "support/fixtures.h"
#include "support/screen_script.h"
#include "support/test_env.h"
#include "core/globals.h"

class TestSetupDataSafety : public QObject
{
    Q_OBJECT
private slots:
    void typed_and_saved_data();
    void typed_and_saved();
    void names_with_quotes_in_categories_and_copies();
    void counters_never_give_a_number_twice_data();
    void counters_never_give_a_number_twice();
};

void TestSetupDataSafety::typed_and_saved_data()
{
    QTest::addColumn<QString>("form");
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("sql");
    QTest::addColumn<QString>("state");   // the answer of sql | screen open or closed | Current_Competition_Name
    const QString events = "SELECT group_concat(competition_group_id || ':' || age_group || ':' || ifnull(championship_title, ''), ',') FROM age_groups WHERE competition_id = 1";
    QTest::newRow("a burst of keys, a blank row, the new name") << "FrmEvents" << "@2,1|>\n|>Strathspey Open\n|@3,2|>01/07/2026\n|>\x1b|!CmdSave"
        << "SELECT group_concat(competition_name || ' ' || competition_date) FROM competitions WHERE competition_id > 2" << "Strathspey Open 01/07/2026|open|Strathspey Open";
    QTest::newRow("copy of the chosen competition after the re-sort") << "FrmEvents" << "@2,1|>Aaron\t|!CmdCopy|!TxtCompname|>Copy|!TxtCompDate|>d9|!cmdcreate"
        << "SELECT count(*) FROM age_groups JOIN competitions USING (competition_id) WHERE competition_name = 'Copy'" << "2|open|Alpha";
    QTest::newRow("real names") << "frmgroups" << "=2,1,St Andrew's Premiership|=2,2,B'O|=2,3,H|=2,7,St Andrew's|!CmdSave" << events << "B'O:St Andrew's Premiership:ST ANDREW'S|open|Alpha";
    QTest::newRow("rows written before a fault") << "frmgroups" << "=2,1,U8|=2,2,A|=2,3,H|!CmdAdd|>\x1b|=3,1,U10|=3,2,B|=3,3,H|=3,4,x|!CmdSave|=3,4,6|!CmdSave" << events << "A:U8:,B:U10:|open|Alpha";
    QTest::newRow("duplicate codes keep the screen") << "frmgroups" << "=2,1,U8|=2,2,A|=2,3,H|!CmdAdd|>\x1b|=3,1,U10|=3,2,a|=3,3,H|#" << events << "|open|Alpha";
}

void TestSetupDataSafety::typed_and_saved()
{
    QFETCH(QString, form);
    QFETCH(QString, script);
    TestDataFolder env;
    Connection c;
    c.open();
    Fixture::Competition(c, "Alpha");
    Fixture::Competition(c, "Beta");
    Fixture::Event(c, 2, "B1", "Under 8", "H");
    Fixture::Event(c, 2, "B2", "Under 10", "H");
    Current_Competition_Id = 1;
    Current_Competition_Name = "Alpha";
    std::unique_ptr<GridScreen> s(form == "FrmEvents" ? static_cast<GridScreen *>(new FrmEvents) : new frmgroups);
    Show_Screen(s.get());
    Run_Script(s.get(), script);
    QFETCH(QString, sql);
    const QString state = c.scalar(sql).toString() + (s->isVisible() ? "|open|" : "|closed|") + Current_Competition_Name;
    s->Set_Dirty(false);
    QTEST(state, "state");
}

void TestSetupDataSafety::names_with_quotes_in_categories_and_copies()
{
    TestDataFolder env;
    Connection c;
    c.open();
    Fixture::Competition(c, "Alpha");
    Fixture::Competition(c, "Beta");
    Insert_Category(c, 1, "RT", "Reel o' Tulloch");
    Update_Category(c, 1, "MX", "Mixed', category_id = category_id --", "RT");
    Fixture::Event(c, 1, "M'1", "Bo'ness Open", "MX");
    c.execute("UPDATE age_groups SET championship_title = 'St Andrew''s'");
    Copy_Competition(c, 1, "O'Neill Games", "d'2", true);
    QCOMPARE(c.scalar("SELECT group_concat(category) FROM categories WHERE category_id = 'MX'").toString(),
             QString("Mixed', category_id = category_id --,Mixed', category_id = category_id --"));
    QCOMPARE(c.scalar("SELECT count(*) FROM categories WHERE competition_id = 2 AND category = 'Highland'").toInt(), 1);
    QCOMPARE(c.scalar("SELECT group_concat(championship_title) FROM age_groups").toString(), QString("St Andrew's,St Andrew's"));
}

void TestSetupDataSafety::counters_never_give_a_number_twice_data()
{
    QTest::addColumn<QString>("insert");
    QTest::newRow("competitions") << "INSERT INTO competitions(competition_name) VALUES ('x')";
    QTest::newRow("events") << "INSERT INTO age_groups(competition_id, competition_group_id) VALUES (1, 'x')";
    QTest::newRow("judges") << "INSERT INTO judges(competition_id, forename) VALUES (1, 'x')";
    QTest::newRow("dances") << "INSERT INTO dances(dance) VALUES ('x')";
    QTest::newRow("trophies") << "INSERT INTO custom_reports(competition_id, name) VALUES (1, 'x')";
}

void TestSetupDataSafety::counters_never_give_a_number_twice()
{
    QFETCH(QString, insert);
    TestDataFolder env;
    Connection c;
    c.open();
    const QString table = insert.section(' ', 2, 2).section('(', 0, 0);
    c.execute(insert);
    const qint64 dead = c.lastInsertId();
    c.execute("DELETE FROM " + table + " WHERE rowid = ?", {dead});
    c.execute(insert);
    QVERIFY(c.lastInsertId() > dead);
}

QTEST_MAIN(TestSetupDataSafety)
#include "test_setup_data_safety.moc"
