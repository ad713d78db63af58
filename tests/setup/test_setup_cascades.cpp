#include "setup_fill.h"
#include "setup/category_logic.h"
#include "setup/competition_logic.h"
#include "setup/event_logic.h"
#include "support/test_env.h"

#include "core/globals.h"

#include <QtTest>

using Fixture::Count;

class TestSetupCascades : public QObject
{
    Q_OBJECT
private slots:
    void new_competition_gets_the_standard_set();
    void same_name_and_date_go_to_the_last_id();
    void competition_delete_clears_every_table_and_first_trophy_only();
    void competition_delete_without_trophies();
    void event_delete_leaves_the_event_and_other_codes();
    void dance_delete_across_competitions();
};

static QString where(short comp)
{
    return QString("competition_id = %1").arg(comp);
}

void TestSetupCascades::new_competition_gets_the_standard_set()
{
    TestDataFolder env;
    Connection c;
    c.open();
    const short id = Insert_Competition(c, {"Braemar's Gathering", "06/09/2026", "A. O'Neil", "Secretary", "Park",
                                            "Braemar", "1 Main St"});
    QVERIFY(id > 0);
    QCOMPARE(Current_Competition_Id, id);
    QCOMPARE(c.scalar(QString("SELECT competition_organiser FROM competitions WHERE competition_id=%1").arg(id)).toString(),
             QString("A. O'Neil"));

    RowSet cats = c.query(QString("SELECT category_id || '=' || category FROM categories WHERE competition_id=%1 ORDER BY rowid").arg(id));
    QStringList got;
    for (; !cats.eof(); cats.next())
        got << cats.value(0).toString();
    QCOMPARE(got, QStringList({"C=Championship", "H=Highland", "PS=Premiership", "PRI=Primary Dances"}));

    RowSet cd = c.query(QString("SELECT category_id || ',' || dance_id || ',' || orderby FROM category_dances "
                                "WHERE competition_id=%1 ORDER BY rowid").arg(id));
    got.clear();
    for (; !cd.eof(); cd.next())
        got << cd.value(0).toString();
    QCOMPARE(got, QStringList({"H,1,1", "H,2,2", "H,3,3", "H,4,4", "C,1,1", "C,2,2", "C,3,3", "C,4,4", "PRI,6,1",
                               "PRI,7,2", "PRI,1,3", "PRI,2,4"}));
}

void TestSetupCascades::same_name_and_date_go_to_the_last_id()
{
    TestDataFolder env;
    Connection c;
    c.open();
    const short first = Insert_Competition(c, {"Cowal", "27/08/2026"});
    const short second = Insert_Competition(c, {"Cowal", "27/08/2026"});
    QVERIFY(second > first);
    QCOMPARE(Current_Competition_Id, second);
    QCOMPARE(Count(c, "competitions"), 2);
    QCOMPARE(Count(c, "categories", where(first)), 4);
    QCOMPARE(Count(c, "categories", where(second)), 4);
}

void TestSetupCascades::competition_delete_clears_every_table_and_first_trophy_only()
{
    TestDataFolder env;
    Connection c;
    c.open();
    const short a = Fixture::Competition(c, "Lonach", "22/08/2026");
    const short b = Fixture::Competition(c, "Aboyne", "01/08/2026");
    for (short comp : {a, b}) {
        Fixture::Event(c, comp, "1A", "Under 8", "PRI");
        Fixture::Event(c, comp, "2C", "Open", "C");
        Fixture::Competitor(c, comp, 101, "Ann", "Ross", {"1A"});
        const int judge = Fixture::Judge(c, comp, "Jean", "Grant");
        for (int d : {1, 2})
            Fill_Event_Rows(c, comp, "1A", d, judge);
        c.execute("INSERT INTO championship_dance_names(competition_id, group_id, dance_id, name) VALUES(?,'2C',1,'Fling')",
                  {comp});
    }
    const int t1 = Add_Trophy(c, a, "Best Fling", "1A");
    const int t2 = Add_Trophy(c, a, "Best Sword", "1A");
    const int t3 = Add_Trophy(c, a, "Best Reel", "1A");
    const int tb = Add_Trophy(c, b, "Aboyne Cup", "1A");

    const QStringList tables = {"dance_results", "championship_dance_names", "highland_results", "national_results",
                                "overall_results", "judges_results", "comp_judges_results", "judges_results_judges",
                                "judges", "overall_dance_results", "tie_break", "competitors", "competitor_groups",
                                "age_groups", "categories", "category_dances", "dance_no_prizes", "dance_no_dancers"};
    QMap<QString, int> before;
    for (const QString &t : tables) {
        QVERIFY2(Count(c, t, where(a)) > 0, qPrintable(t));
        before[t] = Count(c, t, where(b));
    }

    Delete_Competition_Dependents(c, a);

    QVERIFY(!c.inTransaction());
    for (const QString &t : tables) {
        QVERIFY2(Count(c, t, where(a)) == 0, qPrintable(t));
        QVERIFY2(Count(c, t, where(b)) == before[t], qPrintable(t));
    }
    QCOMPARE(Count(c, "custom_reports", where(a)), 0);
    QCOMPARE(Count(c, "custom_reports", where(b)), 1);
    for (const char *t : {"custom_reports_groups", "custom_reports_dances", "custom_reports_fields"}) {
        QCOMPARE(Count(c, t, QString("id = %1").arg(t1)), 0);
        // The other trophies' details stay behind.
        QCOMPARE(Count(c, t, QString("id = %1").arg(t2)), 1);
        QCOMPARE(Count(c, t, QString("id = %1").arg(t3)), 1);
        QCOMPARE(Count(c, t, QString("id = %1").arg(tb)), 1);
    }
    // The competition row itself is the screen's to remove.
    QCOMPARE(Count(c, "competitions", where(a)), 1);
    QCOMPARE(Count(c, "dances"), 17);
}

void TestSetupCascades::competition_delete_without_trophies()
{
    TestDataFolder env;
    Connection c;
    c.open();
    const short a = Fixture::Competition(c);
    const short b = Fixture::Competition(c, "Other", "02/02/2026");
    Add_Trophy(c, b, "Other Cup", "1A");
    Delete_Competition_Dependents(c, a);
    QCOMPARE(Count(c, "categories", where(a)), 0);
    QCOMPARE(Count(c, "custom_reports"), 1);
    QCOMPARE(Count(c, "custom_reports_groups"), 1);
}

void TestSetupCascades::event_delete_leaves_the_event_and_other_codes()
{
    TestDataFolder env;
    Connection c;
    c.open();
    const short a = Fixture::Competition(c);
    const short b = Fixture::Competition(c, "Other", "02/02/2026");
    for (short comp : {a, b}) {
        Fixture::Event(c, comp, "1A", "Under 8", "PRI");
        Fixture::Event(c, comp, "2B", "Under 10", "H");
        Fixture::Competitor(c, comp, 102, "Kate", "Moir", {"1A", "2B"});
        for (const char *code : {"1A", "2B"})
            for (int d : {1, 2})
                Fill_Event_Rows(c, comp, code, d);
        Add_Trophy(c, comp, "Cup", "1A");
        Add_Trophy(c, comp, "Shield", "2B");
    }
    QMap<QString, int> other, same;
    for (const char *t : Event_Tables) {
        other[t] = Count(c, t, QString("competition_id=%1").arg(b));
        same[t] = Count(c, t, QString("competition_id=%1 AND group_id='2B'").arg(a));
        QVERIFY2(Count(c, t, QString("competition_id=%1 AND group_id='1A'").arg(a)) > 0, t);
    }

    // Lower case: the store compares codes without regard to case.
    Delete_Event_Dependents(c, a, "1a");

    for (const char *t : Event_Tables) {
        QVERIFY2(Count(c, t, QString("competition_id=%1 AND group_id='1A'").arg(a)) == 0, t);
        QVERIFY2(Count(c, t, QString("competition_id=%1 AND group_id='2B'").arg(a)) == same[t], t);
        QVERIFY2(Count(c, t, QString("competition_id=%1").arg(b)) == other[t], t);
    }
    QCOMPARE(Count(c, "custom_reports_groups", "group_id='1A'"), 1);  // the other competition's
    QCOMPARE(Count(c, "custom_reports_groups", "group_id='2B'"), 2);
    QCOMPARE(Count(c, "custom_reports", where(a)), 2);
    // The event row and the dancer's own event columns are not touched.
    QCOMPARE(Count(c, "age_groups", QString("competition_id=%1 AND competition_group_id='1A'").arg(a)), 1);
    QCOMPARE(Count(c, "competitors", QString("competition_id=%1 AND group_id1='1A'").arg(a)), 1);
}

void TestSetupCascades::dance_delete_across_competitions()
{
    TestDataFolder env;
    Connection c;
    c.open();
    c.execute("INSERT INTO dances(dance) VALUES('Strathspey')");
    const int d = static_cast<int>(c.lastInsertId());
    QCOMPARE(d, 18);
    const short a = Fixture::Competition(c);
    const short b = Fixture::Competition(c, "Other", "02/02/2026");
    for (short comp : {a, b}) {
        Fixture::Category_Dances(c, comp, "PS", {d, 1});
        Fill_Event_Rows(c, comp, "1A", d);
        Fill_Event_Rows(c, comp, "1A", 1);
    }
    const QString dw = QString("dance_id = %1").arg(d);
    const int keptMarks = Count(c, "comp_judges_results", dw);
    QCOMPARE(keptMarks, 2);

    QVERIFY(!Dance_Can_Be_Deleted("17"));
    QVERIFY(!Dance_Can_Be_Deleted("1"));
    QVERIFY(Dance_Can_Be_Deleted("18"));
    QVERIFY(Dance_Can_Be_Deleted("0"));
    QVERIFY(Dance_Can_Be_Deleted(""));

    Delete_Dance_Dependents(c, QString::number(d));
    for (const char *t : {"dance_results", "judges_results", "judges_results_judges", "overall_dance_results",
                          "category_dances"}) {
        QVERIFY2(Count(c, t, dw) == 0, t);
        QVERIFY2(Count(c, t, "dance_id = 1") > 0, t);
    }
    QCOMPARE(Count(c, "comp_judges_results", dw), keptMarks);
    QCOMPARE(Count(c, "dance_no_prizes", dw), 2);
    QCOMPARE(Count(c, "dance_no_dancers", dw), 2);
    // The dance row goes by the screen's record set, not by the cascade.
    QCOMPARE(Count(c, "dances", dw), 1);

    Delete_Dance_Dependents(c, "");  // a row never saved
    QCOMPARE(Count(c, "category_dances", "dance_id = 1"), 2 * 4);
}

QTEST_GUILESS_MAIN(TestSetupCascades)
#include "test_setup_cascades.moc"
