#include "setup_fill.h"
#include "setup/competition_logic.h"
#include "support/test_env.h"

#include <QtTest>

using Fixture::Count;

class TestSetupCopy : public QObject
{
    Q_OBJECT
private slots:
    void copy_without_competitors();
    void copy_with_competitors();
};

namespace {

// A source competition with a reordered category, a category of its own, a
// split event, dancers, judges, marks and a trophy.
short Make_Source(Connection &c)
{
    const short s = Fixture::Competition(c, "Source Games", "01/06/2026");
    c.execute("UPDATE competitions SET competition_organiser='Org', competition_venue='Park', registration_id='R1' "
              "WHERE competition_id=?", {s});
    c.execute("INSERT INTO categories(competition_id, category_id, category) VALUES(?,'DNC1','Dancer''s Choice')", {s});
    Fixture::Category_Dances(c, s, "DNC1", {9, 12, 5});
    // PRI reordered to 1, 2, 6, 7.
    c.execute("UPDATE category_dances SET orderby = CASE dance_id WHEN 1 THEN 1 WHEN 2 THEN 2 WHEN 6 THEN 3 ELSE 4 END "
              "WHERE competition_id=? AND category_id='PRI'", {s});
    c.execute("INSERT INTO age_groups(competition_id, competition_group_id, age_group, category, no_prizes, split_overalls, "
              "split_ages, championship_title, championship_type, no_overall_prizes, dancer_order, orderby, inc_t_fling) "
              "VALUES(?,'1A','Under 8''s','PRI',4,'Y','Y','',NULL,3,'D',NULL,'N')", {s});
    c.execute("INSERT INTO age_groups(competition_id, competition_group_id, age_group, category, no_prizes, split_overalls, "
              "split_ages, parent_group_id, championship_title, championship_type, no_overall_prizes, dancer_order, "
              "orderby, inc_t_fling) VALUES(?,'1A1','Under 8 (6-7)','PRI',6,'N','N','1A','SCOTTISH','O',6,'A',3,'Y')",
              {s});
    Fixture::Competitor(c, s, 101, "Ann", "O'Rourke", {"1A", "1A1"});
    Fixture::Competitor(c, s, 205, "Beth", "Ross", {"1A"});
    c.execute("UPDATE competitors SET age=7, fee=12.5, town='Perth', postcode='PH1', registered=1, txnid='T9', "
              "teacher='Mrs Brown' WHERE competition_id=? AND competitor_id=101", {s});
    const int j = Fixture::Judge(c, s, "Jean", "Grant");
    Fill_Event_Rows(c, s, "1A", 6, j);
    Add_Trophy(c, s, "Cup", "1A");
    return s;
}

QStringList Column(Connection &c, const QString &sql)
{
    QStringList out;
    RowSet rs = c.query(sql);
    for (; !rs.eof(); rs.next())
        out << rs.value(0).toString();
    return out;
}

void Check_Common(Connection &c, short s, short n)
{
    QCOMPARE(c.scalar(QString("SELECT ifnull(competition_organiser,'-') || ifnull(competition_venue,'-') || "
                              "ifnull(registration_id,'-') FROM competitions WHERE competition_id=%1").arg(n)).toString(),
             QString("---"));
    const QString cats = "SELECT category_id || '=' || category FROM categories WHERE competition_id=%1 ORDER BY 1";
    QCOMPARE(Column(c, cats.arg(n)), Column(c, cats.arg(s)));
    QVERIFY(Column(c, cats.arg(n)).contains("DNC1=Dancer's Choice"));

    // Every copied dance takes its id as its order: PRI comes back 1, 2, 6, 7.
    QCOMPARE(Count(c, "category_dances", QString("competition_id=%1").arg(n)), 15);
    QCOMPARE(Count(c, "category_dances", QString("competition_id=%1 AND orderby <> dance_id").arg(n)), 0);
    QCOMPARE(Column(c, QString("SELECT dance_id FROM category_dances WHERE competition_id=%1 AND category_id='PRI' "
                               "ORDER BY orderby").arg(n)),
             QStringList({"1", "2", "6", "7"}));

    const QString ev = "SELECT competition_group_id || '|' || age_group || '|' || category || '|' || no_prizes || '|' || "
                       "split_overalls || '|' || ifnull(championship_title,'?') || '|' || ifnull(championship_type,'?') "
                       "|| '|' || no_overall_prizes || '|' || dancer_order || '|' || ifnull(orderby,'null') || '|' || "
                       "inc_t_fling || '|' || split_ages || '|' || ifnull(parent_group_id,'none') "
                       "FROM age_groups WHERE competition_id=%1 ORDER BY 1";
    QCOMPARE(Column(c, ev.arg(n)), QStringList({"1A1|Under 8 (6-7)|PRI|6|N|SCOTTISH|O|6|A|3|Y|N|none",
                                                "1A|Under 8's|PRI|4|Y|||3|D|null|N|N|none"}));
    // Judges, marks, results and trophies never come across.
    for (const char *t : {"judges", "judges_results", "comp_judges_results", "overall_results", "custom_reports",
                          "dance_no_prizes"})
        QVERIFY2(Count(c, t, QString("competition_id=%1").arg(n)) == 0, t);
}

} // namespace

void TestSetupCopy::copy_without_competitors()
{
    TestDataFolder env;
    Connection c;
    c.open();
    const short s = Make_Source(c);
    const short n = Copy_Competition(c, s, "Copy Games", "01/06/2027", false);
    QVERIFY(n > s);
    QCOMPARE(c.scalar(QString("SELECT competition_name FROM competitions WHERE competition_id=%1").arg(n)).toString(),
             QString("Copy Games"));
    Check_Common(c, s, n);
    QCOMPARE(Count(c, "competitors", QString("competition_id=%1").arg(n)), 0);
    QCOMPARE(Count(c, "competitor_groups", QString("competition_id=%1").arg(n)), 0);
    // The source keeps everything.
    QCOMPARE(Count(c, "competitors", QString("competition_id=%1").arg(s)), 2);
}

void TestSetupCopy::copy_with_competitors()
{
    TestDataFolder env;
    Connection c;
    c.open();
    const short s = Make_Source(c);
    const short n = Copy_Competition(c, s, "Copy's Games", "01/06/2027", true);
    Check_Common(c, s, n);
    const QString who = "SELECT competitor_id || '|' || forename || '|' || surname || '|' || ifnull(age,'null') || '|' || "
                        "ifnull(fee,'null') || '|' || ifnull(town,'null') || '|' || ifnull(teacher,'null') || '|' || "
                        "ifnull(group_id1,'null') || '|' || ifnull(group_id2,'null') || '|' || ifnull(group_id3,'null') "
                        "|| '|' || ifnull(postcode,'null') || '|' || ifnull(registered,'null') || '|' || "
                        "ifnull(txnid,'null') FROM competitors WHERE competition_id=%1 ORDER BY competitor_id";
    // NULL texts and event slots come across as empty texts; postcode,
    // sign-in and online id stay behind.
    QCOMPARE(Column(c, who.arg(n)), QStringList({"101|Ann|O'Rourke|7|12.5|Perth|Mrs Brown|1A|1A1||null|null|null",
                                                 "205|Beth|Ross|null|null|||1A|||null|null|null"}));
    const QString cg = "SELECT competitor_id || ':' || group_id FROM competitor_groups WHERE competition_id=%1 ORDER BY 1";
    QCOMPARE(Column(c, cg.arg(n)), Column(c, cg.arg(s)));
    QCOMPARE(Column(c, cg.arg(n)).size(), 4);  // 3 entries and the filler row of Fill_Event_Rows
}

QTEST_GUILESS_MAIN(TestSetupCopy)
#include "test_setup_copy.moc"
