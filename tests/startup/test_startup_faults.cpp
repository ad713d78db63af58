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

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QtTest>

#include <unistd.h>

namespace {

QByteArray digest(const QString &path)
{
    QFile f(path);
    f.open(QIODevice::ReadOnly);
    return QCryptographicHash::hash(f.readAll(), QCryptographicHash::Sha1);
}

QStringList filesIn(const QString &dir)
{
    return QDir(dir).entryList(QDir::Files | QDir::Hidden, QDir::Name);
}

bool run(const QString &program, const QStringList &args)
{
    QProcess p;
    p.start(program, args);
    return p.waitForFinished() && p.exitStatus() == QProcess::NormalExit && p.exitCode() == 0;
}

// Mounts made for one test (a small disk, a read-only file or folder), taken
// down again in reverse order. Only the superuser can mount; everyone else
// gets read-only places by permissions, and no small disk.
class Places
{
public:
    ~Places()
    {
        for (int i = m_mounts.size() - 1; i >= 0; --i)
            run("umount", {"-l", m_mounts.at(i)});
        for (const QString &p : m_chmods)
            QFile(p).setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    }
    bool smallDisk(const QString &dir, const QString &size)
    {
        return mount({"-t", "tmpfs", "-o", "size=" + size, "tmpfs", dir}, dir);
    }
    bool readOnly(const QString &path)
    {
        if (geteuid() != 0) {
            m_chmods << path;
            return QFile(path).setPermissions(QFileDevice::ReadOwner | QFileDevice::ExeOwner);
        }
        return mount({"--bind", path, path}, path) && run("mount", {"-o", "remount,bind,ro", path});
    }
    // A writable file shown inside a folder that is read-only.
    bool bindFile(const QString &from, const QString &to) { return mount({"--bind", from, to}, to); }

private:
    bool mount(const QStringList &args, const QString &target)
    {
        if (geteuid() != 0 || !run("mount", args))
            return false;
        m_mounts << target;
        return true;
    }
    QStringList m_mounts;
    QStringList m_chmods;
};

void layDatabase(const QString &dir)
{
    QFile::copy(Prepared_Database_Path(), dir + DB_FILE);
    QFile(dir + DB_FILE).setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner);
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
    QTest::addColumn<QString>("place");
    QTest::addColumn<int>("problem");  // Folder_Problem, or -1 for the open failure
    QTest::newRow("empty file") << "empty" << -1;
    QTest::newRow("read-only file") << "file" << int(Folder_Problem::Read_Only_File);
    QTest::newRow("read-only folder") << "folder" << int(Folder_Problem::Read_Only_Folder);
    QTest::newRow("full disk") << "full" << int(Folder_Problem::Disk_Full);
}

void TestStartupFaults::unusable_folder_says_why()
{
    QFETCH(QString, place);
    QFETCH(int, problem);
    TestDataFolder env(false);
    QTemporaryDir elsewhere;
    Places places;
    const QString dir = env.path();
    if (place == "empty") {
        QFile(env.file(DB_FILE)).open(QIODevice::WriteOnly);
    } else if (place == "file") {
        layDatabase(dir);
        QVERIFY(places.readOnly(env.file(DB_FILE)));
    } else if (place == "folder") {
        if (geteuid() == 0) {
            layDatabase(elsewhere.path() + "/");
            QFile(env.file(DB_FILE)).open(QIODevice::WriteOnly);
            if (!places.readOnly(dir) || !places.bindFile(elsewhere.filePath(DB_FILE), env.file(DB_FILE)))
                QSKIP("no mounts here");
        } else {
            layDatabase(dir);
            QVERIFY(places.readOnly(dir));
        }
    } else {
        if (!places.smallDisk(dir, "1m"))
            QSKIP("a small disk needs the superuser");
        layDatabase(dir);
        // The rest of the disk taken by other files.
        QFile filler(dir + "filler");
        filler.open(QIODevice::WriteOnly);
        while (filler.write(QByteArray(4096, 'x')) == 4096 && filler.flush()) {
        }
        filler.close();
    }
    const QStringList filesBefore = filesIn(dir);
    const QByteArray before = digest(env.file(DB_FILE));

    QVERIFY(!Start_Program());
    const QString expected = problem < 0 ? "Unable to open database " + dir
                                         : Folder_Problem_Text(static_cast<Folder_Problem>(problem));
    QCOMPARE(Dialogs::texts(), QStringList{expected});
    if (problem >= 0) {
        QVERIFY(expected.contains(dir));
        QVERIFY(expected.contains("Nothing has been changed."));
    }
    QCOMPARE(filesIn(dir), filesBefore);
    QCOMPARE(digest(env.file(DB_FILE)), before);
}

void TestStartupFaults::database_in_another_case_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<bool>("starts");
    QTest::newRow("Tallier.mdb") << QStringList{"Tallier.mdb"} << true;
    QTest::newRow("TALLIER.MDB") << QStringList{"TALLIER.MDB"} << true;
    QTest::newRow("two spellings") << QStringList{"Tallier.mdb", "TALLIER.MDB"} << false;
}

void TestStartupFaults::database_in_another_case()
{
    QFETCH(QStringList, names);
    QFETCH(bool, starts);
    TestDataFolder env(false);
    for (const QString &n : names)
        QFile::copy(Prepared_Database_Path(), env.file(n));
    std::unique_ptr<frmMain> main = Start_Program();
    QCOMPARE(bool(main), starts);
    if (starts) {
        QVERIFY(env.exists(DB_FILE));
        QVERIFY(!env.exists(names.first()));
        main->close();
    } else {
        QCOMPARE(Dialogs::texts(), QStringList{"Unable to open database " + env.path()});
        for (const QString &n : names)
            QVERIFY(env.exists(n));
    }
}

void TestStartupFaults::fault_says_what_was_being_done()
{
    // The innermost action a fault went through is named, also once the
    // fault has left it; none named leaves the fallback or the bare words.
    try {
        Doing outer("Saving the events");
        Doing inner("Saving the event Under 12");
        throw DbError("database or disk is full");
    } catch (const AppError &e) {
        QCOMPARE(Fault_Text(e.message()), QString("Saving the event Under 12: database or disk is full"));
    }
    {
        Doing outer("Tallying Fling");
        QCOMPARE(Fault_Text("no such table: x"), QString("Tallying Fling: no such table: x"));
    }
    QCOMPARE(Fault_Text("disk I/O error", "Working on Judges"), QString("Working on Judges: disk I/O error"));
    QCOMPARE(Fault_Text("disk I/O error"), QString("disk I/O error"));

    // At start: a file whose settings table has gone.
    TestDataFolder env;
    {
        Connection c;
        c.open();
        c.execute("DROP TABLE system_settings");
    }
    QVERIFY(!Start_Program());
    QCOMPARE(Dialogs::texts(), QStringList{"Opening the database: no such table: system_settings"});
    QVERIFY(!env.exists(DB_TEMP_FILE));
}

QTEST_MAIN(TestStartupFaults)
#include "test_startup_faults.moc"
