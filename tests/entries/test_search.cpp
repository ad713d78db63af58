#include "grid_rows.h"
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
    void filters_and_orders_data();
    void filters_and_orders();
    void search_rows_save_through_their_alias();
    void number_with_event_is_refused_by_the_store();

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

void TestSearch::filters_and_orders_data()
{
    QTest::addColumn<QStringList>("search");   // field=value; order=n is the item of SearchOrder
    QTest::addColumn<QList<int>>("found");
    QTest::newRow("plain, highest first") << QStringList{} << QList<int>{4, 3, 2, 1};
    QTest::newRow("by number") << QStringList{"order=3"} << QList<int>{1, 2, 3, 4};
    QTest::newRow("by surname") << QStringList{"order=4"} << QList<int>{2, 4, 3, 1};
    QTest::newRow("by age") << QStringList{"order=5"} << QList<int>{1, 2, 3, 4};
    QTest::newRow("Group sorts by the date received") << QStringList{"order=11"} << QList<int>{2, 3, 1, 4};
    QTest::newRow("number") << QStringList{"number=3"} << QList<int>{3};
    QTest::newRow("forename, any case") << QStringList{"forename=A"} << QList<int>{4, 3, 1};
    QTest::newRow("forename inside") << QStringList{"forename=ET"} << QList<int>{2};
    QTest::newRow("surname") << QStringList{"surname=ai"} << QList<int>{3};
    QTest::newRow("teacher") << QStringList{"teacher=gra"} << QList<int>{3, 1};
    QTest::newRow("teacher with a quote") << QStringList{"teacher=O'Neil"} << QList<int>{};
    QTest::newRow("event") << QStringList{"groupCode=CH"} << QList<int>{4, 3, 2};
    QTest::newRow("event and age") << QStringList{"groupCode=CH", "ageFrom=9"} << QList<int>{3};
    QTest::newRow("winners: top six of the event") << QStringList{"groupCode=CH", "winnersOnly=1"} << QList<int>{4, 2};
    QTest::newRow("winners of any event, placed or not") << QStringList{"winnersOnly=1"} << QList<int>{4, 3, 2, 1};
    QTest::newRow("winners and surname") << QStringList{"winnersOnly=1", "surname=abel"} << QList<int>{2};
}

void TestSearch::filters_and_orders()
{
    QFETCH(QStringList, search);
    for (const auto &[n, placing, code, c] : {std::tuple{2, 1, "CH", comp}, {3, 7, "CH", comp}, {4, 6, "CH", comp},
                                               {1, 1, "A1", comp}, {2, 1, "CH", other}})
        conn.execute("INSERT INTO highland_results(competition_id, group_id, competitor_id, placing) VALUES (?,?,?,?)",
                     {c, code, n, placing});
    Competitor_Search s;
    for (const QString &f : search) {
        const QString v = f.section('=', 1);
        QString *field = f.startsWith("number") ? &s.number : f.startsWith("forename") ? &s.forename
                       : f.startsWith("surname") ? &s.surname : f.startsWith("teacher") ? &s.teacher
                       : f.startsWith("groupCode") ? &s.groupCode : f.startsWith("ageFrom") ? &s.ageFrom : nullptr;
        if (field)
            *field = v;
        if (f.startsWith("order"))
            s.order = Search_Order(v.toInt());
        if (f.startsWith("winnersOnly"))
            s.winnersOnly = true;
    }
    QTEST(numbers(s), "found");
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

QTEST_MAIN(TestSearch)
#include "test_search.moc"
