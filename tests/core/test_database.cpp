#include "support/test_env.h"
#include "core/codec.h"
#include "core/db.h"
#include "core/globals.h"
#include "core/table_rebuild.h"

#include <QFile>
#include <QtTest>

class TestDatabase : public QObject
{
    Q_OBJECT
private slots:
    void prepared_file_holds_the_standard_content();
    void opening_never_creates_and_needs_the_key();
    void one_statement_per_call();
    void dialect_functions_numbers_and_case();
    void record_set_writes_back_by_rowid();
    void transaction_commits_what_ran_before_a_fault();
    void windows_1252_round_trip();
    void table_rebuild_keeps_keys_and_indexes_data();
    void table_rebuild_keeps_keys_and_indexes();
};

void TestDatabase::prepared_file_holds_the_standard_content()
{
    TestDataFolder env;
    Connection c;
    c.open();
    QCOMPARE(c.scalar("SELECT db_version FROM db_info").toString(), QString("4.6"));
    QCOMPARE(c.scalar("SELECT count(*) FROM db_info").toInt(), 1);
    QCOMPARE(c.scalar("SELECT count(*) FROM system_settings").toInt(), 1);
    QCOMPARE(c.scalar("SELECT count(*) FROM dances").toInt(), 17);
    QCOMPARE(c.scalar("SELECT min(dance_id) || '-' || max(dance_id) FROM dances").toString(), QString("1-17"));
    QCOMPARE(c.scalar("SELECT group_concat(dance) FROM dances WHERE dance_id <= 4").toString(),
             QString("Fling,Swords,Seann Truibhas,Reel"));
    QCOMPARE(c.scalar("SELECT count(*) FROM dances WHERE ucase(dance) IN ('TROPHY FLING','SPECIAL FLING')").toInt(), 2);

    // Prize rows must leave no gap from one dancer upward.
    for (int n = 1; n <= 400; ++n)
        QCOMPARE(c.scalar(QString("SELECT count(*) FROM system_no_prizes WHERE min_no <= %1 AND max_no >= %1").arg(n)).toInt(), 1);

}

void TestDatabase::opening_never_creates_and_needs_the_key()
{
    TestDataFolder env(false);
    Connection c;
    QVERIFY_THROWS_EXCEPTION(DbError, c.open());
    QVERIFY(!env.exists(DB_FILE));

    QFile::copy(Prepared_Database_Path(), env.file(DB_FILE));
    QVERIFY_THROWS_EXCEPTION(DbError, c.open(env.file(DB_FILE), "wrong-key"));
    QVERIFY(!c.isOpen());
    c.open();
    QVERIFY(c.isOpen());

    // A file that is no database fails the same way.
    QFile junk(env.file("junk.mdb"));
    QVERIFY(junk.open(QIODevice::WriteOnly));
    junk.write(QByteArray(4096, 'x'));
    junk.close();
    Connection j;
    QVERIFY_THROWS_EXCEPTION(DbError, j.open(env.file("junk.mdb"), Db_Password));
}

void TestDatabase::one_statement_per_call()
{
    TestDataFolder env;
    Connection c;
    c.open();
    // A name that breaks out of its quotes must fail, never run a second statement.
    const QString name = "x'); DELETE FROM dances; --";
    QVERIFY_THROWS_EXCEPTION(DbError, c.execute("INSERT INTO judges(competition_id, forename) VALUES(1, '" + name + "')"));
    QCOMPARE(c.scalar("SELECT count(*) FROM dances").toInt(), 17);
    QVERIFY_THROWS_EXCEPTION(DbError, c.execute("UPDATE db_info SET db_version='4.6'; DELETE FROM dances"));
    QCOMPARE(c.scalar("SELECT count(*) FROM dances").toInt(), 17);
    // A trailing semicolon is one statement still.
    QCOMPARE(c.execute("UPDATE db_info SET db_version = '4.6';"), 1);
}

void TestDatabase::dialect_functions_numbers_and_case()
{
    TestDataFolder env;
    Connection c;
    c.open();
    QCOMPARE(c.scalar("SELECT ucase('Trophy Fling')").toString(), QString("TROPHY FLING"));
    QCOMPARE(c.scalar("SELECT lcase('ABC')").toString(), QString("abc"));
    QVERIFY(c.scalar("SELECT ucase(NULL)").isNull());
    QCOMPARE(c.scalar("SELECT iif(1 > 0, 'yes', 'no')").toString(), QString("yes"));
    QCOMPARE(c.scalar("SELECT iif(NULL, 'yes', 'no')").toString(), QString("no"));
    const QDateTime now = QDateTime::fromString(c.scalar("SELECT now()").toString(), "yyyy-MM-dd HH:mm:ss");
    QVERIFY(now.isValid());
    QVERIFY(qAbs(now.secsTo(QDateTime::currentDateTime())) < 5);
    // placing & tie, as the screens concatenate it.
    QCOMPARE(c.scalar("SELECT ifnull(3,'') || ifnull(NULL,'')").toString(), QString("3"));

    QVERIFY_THROWS_EXCEPTION(DbError, c.execute("INSERT INTO comp_judges_results(competition_id, points_awarded1) VALUES(1, 'abc')"));
    QVERIFY_THROWS_EXCEPTION(DbError, c.execute("INSERT INTO judges_results(competition_id, points_awarded2) VALUES(1, 'D')"));
    QCOMPARE(c.scalar("SELECT count(*) FROM comp_judges_results").toInt(), 0);
    c.execute("INSERT INTO comp_judges_results(competition_id, group_id, points_awarded1) VALUES(1, 'A1', 87.5)");
    c.execute("INSERT INTO comp_judges_results(competition_id, group_id, points_awarded1) VALUES(1, 'A1', 87.25)");
    c.execute("INSERT INTO comp_judges_results(competition_id, group_id, points_awarded1) VALUES(1, 'A1', '87.5')");
    QCOMPARE(c.scalar("SELECT count(*) FROM comp_judges_results WHERE points_awarded1 = 87.5").toInt(), 2);
    QCOMPARE(c.scalar("SELECT max(points_awarded1) FROM comp_judges_results").toDouble(), 87.5);
    QVERIFY_THROWS_EXCEPTION(DbError, c.execute("UPDATE comp_judges_results SET points_awarded1 = 'x'"));
    QCOMPARE(c.scalar("SELECT count(*) FROM comp_judges_results WHERE points_awarded1 IS NOT NULL").toInt(), 3);

    c.execute("INSERT INTO age_groups(competition_id, competition_group_id, age_group) VALUES(1, 'a1', 'Under 8')");
    QCOMPARE(c.scalar("SELECT count(*) FROM age_groups WHERE competition_group_id = 'A1'").toInt(), 1);
    // The event code is unique in a competition, whatever its case.
    QVERIFY_THROWS_EXCEPTION(DbError, c.execute("INSERT INTO age_groups(competition_id, competition_group_id) VALUES(1, 'A1')"));
    c.execute("INSERT INTO age_groups(competition_id, competition_group_id) VALUES(2, 'A1')");
}

void TestDatabase::record_set_writes_back_by_rowid()
{
    TestDataFolder env;
    Connection c;
    c.open();
    c.execute("INSERT INTO competitors(competition_id, competitor_id, forename, surname) VALUES(1, 7, 'Ann', 'Bell')");
    c.execute("INSERT INTO competitors(competition_id, competitor_id, forename, surname) VALUES(1, 8, 'Cara', 'Dunn')");
    RecordSet rs;
    rs.open(c, "competitors", "SELECT competitor_id, forename, surname FROM competitors WHERE competition_id = 1 ORDER BY competitor_id");
    QCOMPARE(rs.rowCount(), 2);
    // The number itself is changed: the row is still found by its hidden key.
    rs.setValue(0, "competitor_id", 17);
    rs.setValue(0, 1, "Anne");
    rs.update(0);
    QCOMPARE(c.scalar("SELECT forename FROM competitors WHERE competitor_id = 17").toString(), QString("Anne"));
    QCOMPARE(c.scalar("SELECT count(*) FROM competitors WHERE competitor_id = 7").toInt(), 0);
    QCOMPARE(c.scalar("SELECT surname FROM competitors WHERE competitor_id = 8").toString(), QString("Dunn"));
    // A refused value leaves the row as stored.
    rs.setValue(1, "competitor_id", "abc");
    QVERIFY_THROWS_EXCEPTION(DbError, rs.update(1));
    rs.cancelUpdate(1);
    QCOMPARE(rs.value(1, 0).toInt(), 8);
    rs.remove(0);
    QCOMPARE(rs.rowCount(), 1);
    QCOMPARE(c.scalar("SELECT count(*) FROM competitors").toInt(), 1);

    // Ordering by column number, an alias, a sub-select: the key stays out of the way.
    c.execute("INSERT INTO competitors(competition_id, competitor_id, forename, surname) VALUES(1, 3, 'Zoe', 'Aird')");
    RecordSet byName;
    byName.open(c, "competitors", "SELECT competitor_id, surname FROM competitors AS k WHERE k.competition_id = 1 ORDER BY 2");
    QCOMPARE(byName.value(0, "surname").toString(), QString("Aird"));
    byName.setValue(0, "surname", "Airdrie");
    byName.update(0);
    QCOMPARE(c.scalar("SELECT surname FROM competitors WHERE competitor_id = 3").toString(), QString("Airdrie"));
    RecordSet wrapped;
    wrapped.open(c, "competitors", "SELECT competitor_id FROM (SELECT k.competitor_id, k.rowid AS rowid FROM competitors AS k) AS competitors ORDER BY 1 DESC");
    QCOMPARE(wrapped.value(0, 0).toInt(), 8);
    wrapped.setValue(1, 0, 4);
    wrapped.update(1);
    QCOMPARE(c.scalar("SELECT surname FROM competitors WHERE competitor_id = 4").toString(), QString("Airdrie"));
}

void TestDatabase::transaction_commits_what_ran_before_a_fault()
{
    TestDataFolder env;
    {
        Connection c;
        c.open();
        try {
            Transaction t(c);
            c.execute("INSERT INTO judges(competition_id, forename) VALUES(1, 'Ann')");
            c.execute("INSERT INTO judges(competition_id, forename) VALUES('x', 'Bob')");
            QFAIL("the second insert must fail");
        } catch (const DbError &) {
        }
        QVERIFY(!c.inTransaction());
    }
    Connection other;
    other.open();
    QCOMPARE(other.scalar("SELECT count(*) FROM judges").toInt(), 1);
}

void TestDatabase::windows_1252_round_trip()
{
    const QString text = QString::fromUtf8("Caf\u00e9 \u2013 \u20ac5 \u201cquoted\u201d");
    const QByteArray bytes = To_1252(text);
    QCOMPARE(bytes, QByteArray("Caf\xe9 \x96 \x80" "5 \x93quoted\x94"));
    QCOMPARE(From_1252(bytes), text);
    TestDataFolder env;
    QVERIFY(Write_1252_File(env.file("x.txt"), "a\nb\r\nc"));
    QFile f(env.file("x.txt"));
    QVERIFY(f.open(QIODevice::ReadOnly));
    QCOMPARE(f.readAll(), QByteArray("a\r\nb\r\nc"));
}

void TestDatabase::table_rebuild_keeps_keys_and_indexes_data()
{
    QTest::addColumn<QString>("column");
    QTest::addColumn<QString>("definition"); // empty: the column is dropped
    QTest::addColumn<QString>("columns");
    QTest::addColumn<QString>("indexes");
    QTest::addColumn<bool>("keyHolds");
    QTest::newRow("drop a column one index names") << "d" << "" << "a,b,c" << "t_c" << true;
    QTest::newRow("drop a column two indexes name") << "c" << "" << "a,b,d" << "t_d" << true;
    QTest::newRow("drop a column of the key") << "b" << "" << "a,c,d" << "t_c,t_cd,t_d" << false;
    QTest::newRow("redefine keeps every index") << "c" << "c TEXT DEFAULT NULL" << "a,b,c,d" << "t_c,t_cd,t_d" << true;
}

void TestDatabase::table_rebuild_keeps_keys_and_indexes()
{
    QFETCH(QString, column);
    QFETCH(QString, definition);
    TestDataFolder env;
    Connection c;
    c.open();
    // A bracketed key list and a default holding commas must not split the definitions.
    c.execute("CREATE TABLE t (a INTEGER NOT NULL, b TEXT DEFAULT 'x,y', c NUMERIC, d TEXT, PRIMARY KEY (a, b))");
    c.execute("CREATE INDEX t_c ON t (c)");
    c.execute("CREATE INDEX t_cd ON t (c, d)");
    c.execute("CREATE UNIQUE INDEX t_d ON t (d)");
    for (int i = 1; i <= 3; ++i)
        c.execute("INSERT INTO t (a, b, c, d) VALUES (?, 'k', ?, ?)", {i, i * 10, QString("d%1").arg(i)});
    if (definition.isEmpty())
        Drop_Column(c, "t", column);
    else
        Redefine_Column(c, "t", column, definition);

    QStringList columns;
    for (RowSet r = c.query("PRAGMA table_info(t)"); !r.eof(); r.next())
        columns << r.text("name");
    QTEST(columns.join(','), "columns");
    QTEST(c.scalar("SELECT group_concat(name) FROM (SELECT name FROM sqlite_master WHERE type = 'index' "
                   "AND tbl_name = 't' AND sql IS NOT NULL ORDER BY name)").toString(), "indexes");
    QCOMPARE(c.scalar("SELECT count(*) FROM t").toInt(), 3);
    QCOMPARE(c.scalar("SELECT a FROM t WHERE rowid = 2").toInt(), 2);
    bool refused = false;
    try {
        c.execute("INSERT INTO t (a" + QString(columns.contains("b") ? ", b" : "") + ") VALUES (1" + (columns.contains("b") ? ", 'k'" : "") + ")");
    } catch (const DbError &) {
        refused = true;
    }
    QTEST(refused, "keyHolds");
}

QTEST_GUILESS_MAIN(TestDatabase)
#include "test_database.moc"
