#include "support/test_env.h"
#include "core/database_file.h"
#include "core/db.h"
#include "core/globals.h"

#include <QFile>
#include <QtTest>
#include <functional>

namespace {

// The competitions that a file holds, or -1 when it does not open as ours.
int competitionsIn(const QString &path)
{
    if (!QFile::exists(path))
        return -1;
    try {
        Connection c;
        c.open(path, Db_Password);
        return c.scalar("SELECT count(*) FROM competitions").toInt();
    } catch (const AppError &) {
        return -1;
    }
}

void addCompetitions(int n)
{
    Connection c;
    c.open();
    Transaction t(c);
    for (int i = 0; i < n; ++i)
        c.execute("INSERT INTO competitions(competition_name, competition_date) VALUES('Games', '2026')");
}

} // namespace

class TestCompaction : public QObject
{
    Q_OBJECT
private slots:
    void whole_compaction_keeps_the_previous_file();
    void stopped_after_each_step_keeps_a_complete_copy_data();
    void stopped_after_each_step_keeps_a_complete_copy();
    void data_sub_folders_are_found_in_any_case();
};

void TestCompaction::whole_compaction_keeps_the_previous_file()
{
    TestDataFolder env;
    addCompetitions(3);
    Compact_Database();   // no Tallier.bak yet: that step is skipped
    QCOMPARE(competitionsIn(env.file(DB_FILE)), 3);
    QCOMPARE(competitionsIn(env.file(DB_BACKUP_FILE)), 3);
    addCompetitions(2);
    Compact_Database();
    QCOMPARE(competitionsIn(env.file(DB_FILE)), 5);
    QCOMPARE(competitionsIn(env.file(DB_BACKUP_FILE)), 5);
    QVERIFY(!env.exists(DB_TEMP_FILE));
    // Number columns still refuse text in the compacted file.
    Connection c;
    c.open();
    QVERIFY_THROWS_EXCEPTION(DbError, c.execute("INSERT INTO comp_judges_results(points_awarded1) VALUES('abc')"));
}

void TestCompaction::stopped_after_each_step_keeps_a_complete_copy_data()
{
    QTest::addColumn<int>("steps");
    QTest::newRow("after the copy") << 1;
    QTest::newRow("after dropping the old backup") << 2;
    QTest::newRow("after keeping the backup") << 3;
    QTest::newRow("all steps") << 4;
}

void TestCompaction::stopped_after_each_step_keeps_a_complete_copy()
{
    QFETCH(int, steps);
    TestDataFolder env;
    addCompetitions(4);
    Compact_Database();   // leaves an older Tallier.bak of 4
    addCompetitions(3);   // the live file now holds 7

    const std::function<void()> all[] = {Compact_Export, Compact_Drop_Backup, Compact_Keep_Backup, Compact_Install_Copy};
    for (int i = 0; i < steps; ++i)
        all[i]();

    const int live = competitionsIn(env.file(DB_FILE));
    const int temp = competitionsIn(env.file(DB_TEMP_FILE));
    QVERIFY2(live == 7 || temp == 7, "one complete copy of the data remains on disk");

    // The next start finds its file whole.
    Finish_Interrupted_Compaction();
    QCOMPARE(competitionsIn(env.file(DB_FILE)), 7);
    QVERIFY(!env.exists(DB_TEMP_FILE));
    Compact_Database();
    QCOMPARE(competitionsIn(env.file(DB_FILE)), 7);
    QCOMPARE(competitionsIn(env.file(DB_BACKUP_FILE)), 7);
}

void TestCompaction::data_sub_folders_are_found_in_any_case()
{
    TestDataFolder env;
    QDir(env.path()).mkdir("compare");
    QCOMPARE(Data_Sub_Dir("Compare"), env.path() + "compare/");
    QCOMPARE(Data_Sub_Dir("Html"), env.path() + "Html/");
    QVERIFY(QFileInfo(env.path() + "Html").isDir());
}

QTEST_GUILESS_MAIN(TestCompaction)
#include "test_compaction.moc"
