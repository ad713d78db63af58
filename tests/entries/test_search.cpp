#include "grid_rows.h"
#include "entries/competitor_delete.h"
#include "entries/competitor_search.h"

#include "core/db.h"
#include "core/errors.h"
#include "support/fixtures.h"
#include "support/test_env.h"

#include <QtTest>

using namespace Competitor_Col;

class TestSearch : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void plain_search_orders();
    void text_and_number_filters();
    void event_and_winners_statements();
    void search_rows_save_through_their_alias();
    void number_with_event_is_refused_by_the_store();
    void delete_cascade_tables();

private:
    QList<int> numbers(const Competitor_Search &s);

    TestDataFolder *env = nullptr;
    Connection conn;
    short comp = 0;
    short other = 0;
};

void TestSearch::init()
{
    env = new TestDataFolder;
    conn.open();
    comp = Fixture::Competition(conn);
    other = Fixture::Competition(conn, "Other Games");
    Fixture::Event(conn, comp, "A1", "Under 8", "H");
    Fixture::Event(conn, comp, "CH", "Open", "C");
    // number, forename, surname, age, teacher, registered, date received
    struct D { int n; const char *f, *s; int age; const char *t; QVariant reg; const char *date; QStringList ev; };
    const QList<D> dancers = {
        {1, "Amy", "Watt", 7, "Grant", 1, "03", {"A1"}},
        {2, "Beth", "Abel", 8, "Munro", QVariant(), "01", {"A1", "CH"}},
        {3, "Cara", "Mair", 9, "Grant", 0, "02", {"CH"}},
        {4, "Dana", "Kerr", 12, "Ross", 1, "04", {"CH"}},
    };
    for (const D &d : dancers) {
        Fixture::Competitor(conn, comp, d.n, d.f, d.s, d.ev);
        conn.execute("UPDATE competitors SET age = ?, teacher = ?, registered = ?, date_received = ? "
                     "WHERE competition_id = ? AND competitor_id = ?",
                     {d.age, d.t, d.reg, d.date, comp, d.n});
    }
    Fixture::Competitor(conn, other, 2, "Zoe", "Abel", {"A1"});
    conn.execute("UPDATE competitors SET age = 8 WHERE competition_id = ?", {other});
}

void TestSearch::cleanup()
{
    conn.close();
    delete env;
}

QList<int> TestSearch::numbers(const Competitor_Search &s)
{
    RecordSet rows;
    rows.open(conn, "competitors", Search_Statement(comp, s));
    QList<int> out;
    for (int r = 0; r < rows.rowCount(); ++r)
        out << rows.value(r, Number).toInt();
    return out;
}

void TestSearch::plain_search_orders()
{
    Competitor_Search s;
    QCOMPARE(numbers(s), QList<int>({4, 3, 2, 1}));
    s.order = Search_Order(3);
    QCOMPARE(s.order, QString(" 2 ASC"));
    QCOMPARE(numbers(s), QList<int>({1, 2, 3, 4}));
    s.order = Search_Order(4);   // Surname!
    QCOMPARE(numbers(s), QList<int>({2, 4, 3, 1}));
    s.order = Search_Order(5);   // Age
    QCOMPARE(numbers(s), QList<int>({1, 2, 3, 4}));
    s.order = Search_Order(11);  // "Group" sorts by the date received
    QCOMPARE(numbers(s), QList<int>({2, 3, 1, 4}));
    QCOMPARE(Search_Order(2), QString("2 DESC"));
}

void TestSearch::text_and_number_filters()
{
    Competitor_Search s;
    s.number = "3";
    QCOMPARE(numbers(s), QList<int>({3}));
    s = {};
    s.forename = "A";   // LIKE is case-blind
    QCOMPARE(numbers(s), QList<int>({4, 3, 1}));
    s.forename = "ET";
    QCOMPARE(numbers(s), QList<int>({2}));
    s = {};
    s.surname = "ai";
    QCOMPARE(numbers(s), QList<int>({3}));
    s = {};
    s.teacher = "gra";
    QCOMPARE(numbers(s), QList<int>({3, 1}));
    s.teacher = "O'Neil";
    QCOMPARE(numbers(s), QList<int>());
}

void TestSearch::event_and_winners_statements()
{
    auto result = [&](int n, int placing) {
        conn.execute("INSERT INTO highland_results(competition_id, group_id, competitor_id, placing) VALUES (?,?,?,?)",
                     {comp, "CH", n, placing});
    };
    result(2, 1);
    result(3, 7);
    result(4, 6);
    conn.execute("INSERT INTO highland_results(competition_id, group_id, competitor_id, placing) VALUES (?,?,?,?)",
                 {comp, "A1", 1, 1});
    conn.execute("INSERT INTO highland_results(competition_id, group_id, competitor_id, placing) VALUES (?,?,?,?)",
                 {other, "CH", 2, 1});

    Competitor_Search s;
    s.groupCode = "CH";
    QCOMPARE(numbers(s), QList<int>({4, 3, 2}));
    s.ageFrom = "9";
    QCOMPARE(numbers(s), QList<int>({3}));
    s.ageFrom.clear();
    s.winnersOnly = true;   // top six of the event only
    QCOMPARE(numbers(s), QList<int>({4, 2}));
    s.groupCode.clear();    // any result of any event, placed or not
    QCOMPARE(numbers(s), QList<int>({4, 3, 2, 1}));
    s.surname = "abel";
    QCOMPARE(numbers(s), QList<int>({2}));
}

void TestSearch::search_rows_save_through_their_alias()
{
    Competitor_Search s;
    s.groupCode = "CH";
    s.order = Search_Order(3);
    const QString statement = Search_Statement(comp, s);
    Grid_Rows grid(conn, comp);
    grid.rules.setStatement(statement);
    grid.open();
    QCOMPARE(grid.rowOf(3), 2);   // dancer 3, second row of the search
    grid.edit(3, 5, "2 High St");
    QVERIFY(!grid.save().failed);
    QCOMPARE(conn.scalar("SELECT address1 FROM competitors WHERE competition_id = ? AND competitor_id = 3", {comp}).toString(),
             QString("2 HIGH ST"));
    QCOMPARE(Fixture::Count(conn, "competitors", "address1 IS NOT NULL"), 1);
    // The refresh after the save keeps the search.
    QCOMPARE(grid.rs.rowCount(), 3);
    QCOMPARE(grid.text(1, Number), QString("2"));
}

void TestSearch::number_with_event_is_refused_by_the_store()
{
    // With an event chosen the number filter names a column of two tables.
    Competitor_Search s;
    s.groupCode = "CH";
    s.number = "3";
    QVERIFY_THROWS_EXCEPTION(DbError, numbers(s));
}

void TestSearch::delete_cascade_tables()
{
    const QStringList cleared = {"dance_results", "highland_results", "judges_results", "overall_dance_results",
                                 "tie_break", "competitor_groups"};
    const QStringList kept = {"comp_judges_results", "national_results", "overall_results"};
    for (short c : {comp, other})
        for (int n : {2, 3})
            for (const QString &t : cleared + kept)
                conn.execute("INSERT INTO " + t + "(competition_id, group_id, competitor_id) VALUES (?, 'CH', ?)", {c, n});
    const int before = Fixture::Count(conn, "competitor_groups");

    Delete_Dependents(conn, comp, "");   // a row never saved: nothing
    QCOMPARE(Fixture::Count(conn, "competitor_groups"), before);

    Delete_Dependents(conn, comp, "2");
    QVERIFY(!conn.inTransaction());
    for (const QString &t : cleared) {
        QCOMPARE(Fixture::Count(conn, t, QString("competition_id = %1 AND competitor_id = 2").arg(comp)), 0);
        QVERIFY2(Fixture::Count(conn, t, QString("competition_id = %1 AND competitor_id = 3").arg(comp)) > 0, qPrintable(t));
        QVERIFY2(Fixture::Count(conn, t, QString("competition_id = %1 AND competitor_id = 2").arg(other)) > 0, qPrintable(t));
    }
    for (const QString &t : kept)
        QVERIFY2(Fixture::Count(conn, t, QString("competition_id = %1 AND competitor_id = 2").arg(comp)) > 0, qPrintable(t));
    QCOMPARE(Delete_Competitor_Question(),
             QString("Are you sure you want to delete entry? \nIt will also delete entry from any results."));
}

QTEST_MAIN(TestSearch)
#include "test_search.moc"
