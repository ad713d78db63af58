// A data folder the program cannot use says why, loses nothing and leaves no
// stray file; a fault's box says what the program was doing.
#include "support/test_env.h"
#include "core/database_file.h"
#include "core/db.h"
#include "core/dialogs.h"
#include "core/doing.h"
#include "core/globals.h"
#include "ui/frmMain.h"
#include "ui/program.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QScopeGuard>
#include <QtTest>

namespace {

bool sh(const QString &script)
{
    return QProcess::execute("sh", {"-c", script}) == 0;
}

} // namespace

class TestStartupFaults : public QObject
{
    Q_OBJECT
private slots:
    void unusable_folder_says_why_data();
    void unusable_folder_says_why();
    void database_in_another_case_data();
    void database_in_another_case();
    void fault_says_what_was_being_done();
};

void TestStartupFaults::unusable_folder_says_why_data()
{
    // %1 the data folder, %2 another folder, %3 the prepared database. A small
    // disk and read-only places are made by mounts.
    QTest::addColumn<QString>("make");
    QTest::addColumn<QString>("undo");
    QTest::addColumn<int>("problem");  // -1: the file does not open
    QTest::newRow("empty file") << ": > %1tallier.mdb" << "" << -1;
    QTest::newRow("read-only file")
        << "cp %3 %1tallier.mdb && mount --bind %1tallier.mdb %1tallier.mdb && mount -o remount,bind,ro %1tallier.mdb"
        << "umount -l %1tallier.mdb" << int(Folder_Problem::Read_Only_File);
    QTest::newRow("read-only folder") << "cp %3 %2/tallier.mdb && : > %1tallier.mdb && mount --bind %1 %1 && "
                                         "mount -o remount,bind,ro %1 && mount --bind %2/tallier.mdb %1tallier.mdb"
                                      << "umount -l %1tallier.mdb; umount -l %1" << int(Folder_Problem::Read_Only_Folder);
    QTest::newRow("full disk") << "mount -t tmpfs -o size=1m tmpfs %1 && cp %3 %1tallier.mdb && "
                                  "{ cat /dev/zero > %1filler 2>/dev/null; true; }"
                               << "umount -l %1" << int(Folder_Problem::Disk_Full);
}

void TestStartupFaults::unusable_folder_says_why()
{
    QFETCH(QString, make);
    QFETCH(QString, undo);
    QFETCH(int, problem);
    TestDataFolder env(false);
    QTemporaryDir elsewhere;
    auto fill = [&](QString script) {
        return script.replace("%1", env.path()).replace("%2", elsewhere.path()).replace("%3", Prepared_Database_Path());
    };
    auto undoMounts = qScopeGuard([&] { sh(fill(undo)); });  // before the folder goes
    if (!sh(fill(make)))
        QSKIP("mounts need the superuser");
    const QStringList files = QDir(env.path()).entryList(QDir::Files);
    const QDateTime written = QFileInfo(env.file(DB_FILE)).lastModified();

    QVERIFY(!Start_Program());
    const QString expected = problem < 0 ? "Unable to open database " + env.path()
                                         : Folder_Problem_Text(static_cast<Folder_Problem>(problem));
    QCOMPARE(Dialogs::texts(), QStringList{expected});
    QVERIFY(expected.contains(env.path()));
    QCOMPARE(QDir(env.path()).entryList(QDir::Files), files);
    QCOMPARE(QFileInfo(env.file(DB_FILE)).lastModified(), written);  // not written to
}

void TestStartupFaults::database_in_another_case_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::newRow("Tallier.mdb") << QStringList{"Tallier.mdb"};
    QTest::newRow("TALLIER.MDB") << QStringList{"TALLIER.MDB"};
    QTest::newRow("two spellings: neither is taken") << QStringList{"Tallier.mdb", "TALLIER.MDB"};
}

void TestStartupFaults::database_in_another_case()
{
    QFETCH(QStringList, names);
    TestDataFolder env(false);
    for (const QString &n : names)
        QFile::copy(Prepared_Database_Path(), env.file(n));
    std::unique_ptr<frmMain> main = Start_Program();
    QCOMPARE(bool(main), names.size() == 1);
    QCOMPARE(env.exists(DB_FILE), names.size() == 1);
    QCOMPARE(env.exists(names.first()), names.size() > 1);
}

void TestStartupFaults::fault_says_what_was_being_done()
{
    // The innermost action a fault went through is named, also once the fault
    // has left it; with none named, the fallback or the bare words.
    try {
        Doing outer("Saving the events");
        Doing inner("Saving the event Under 12");
        throw DbError("database or disk is full");
    } catch (const AppError &e) {
        QCOMPARE(Fault_Text(e.message()), QString("Saving the event Under 12: database or disk is full"));
    }
    QCOMPARE(Fault_Text("disk I/O error", "Working on Judges"), QString("Working on Judges: disk I/O error"));
    // At start: a file whose settings table has gone.
    TestDataFolder env;
    Connection c;
    c.open();
    c.execute("DROP TABLE system_settings");
    c.close();
    QVERIFY(!Start_Program());
    QCOMPARE(Dialogs::texts(), QStringList{"Opening the database: no such table: system_settings"});
    QVERIFY(!env.exists(DB_TEMP_FILE));
}

QTEST_MAIN(TestStartupFaults)
#include "test_startup_faults.moc"
