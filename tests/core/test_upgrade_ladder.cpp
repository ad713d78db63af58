#include "core/db.h"
#include "core/database_file.h"
#include "core/globals.h"
#include "core/prepared_file.h"
#include "core/upgrade_ladder.h"
#include "support/test_env.h"

#include <sqlite3.h>

#include <QFile>
#include <QMap>
#include <QtTest>

namespace {

// table -> column -> type, not null, default, counter. A key of several columns
// may be a table key or a unique index: both keep rows unique.
using Shape = QMap<QString, QMap<QString, QString>>;

Shape shapeOf(Connection &c)
{
    Shape shape;
    RowSet tables = c.query(QStringLiteral("SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite_%'"));
    for (; !tables.eof(); tables.next()) {
        const QString t = tables.text(QStringLiteral("name"));
        RowSet cols = c.query(QStringLiteral("PRAGMA table_info(") + t + QLatin1Char(')'));
        for (; !cols.eof(); cols.next())
            shape[t][cols.text(QStringLiteral("name"))] = QStringList{cols.text(QStringLiteral("type")),
                cols.text(QStringLiteral("notnull")), cols.text(QStringLiteral("dflt_value")),
                cols.text(QStringLiteral("pk")) == QLatin1String("1") && cols.text(QStringLiteral("type")) == QLatin1String("INTEGER") ? QStringLiteral("counter") : QString()}
                                                              .join(QLatin1Char('|'));
    }
    return shape;
}

// A file of the first version, made the way the build makes the prepared one.
void makeFirstVersion(const QString &path)
{
    sqlite3 *db = nullptr;
    sqlite3_open_v2(path.toUtf8().constData(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    sqlite3_key(db, DB_PASSWORD_CONSTANT, static_cast<int>(qstrlen(DB_PASSWORD_CONSTANT)));
    QFile f(QStringLiteral(SCHEMA_V1));
    QVERIFY(f.open(QIODevice::ReadOnly));
    QCOMPARE(sqlite3_exec(db, f.readAll().constData(), nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(db);
}

} // namespace

class TestUpgradeLadder : public QObject
{
    Q_OBJECT
private slots:
    void climbsToTheTop_data();
    void climbsToTheTop();
    void failedRungKeepsTheLastFinished();
    void preparedFileLaidOnlyIntoAFolderThatNeverHeldOne();
};

void TestUpgradeLadder::climbsToTheTop_data()
{
    QTest::addColumn<QString>("start");
    QTest::addColumn<bool>("teacher");
    QTest::newRow("1, no db_version") << "1" << false;
    QTest::newRow("3.6 with a teacher column") << "3.6" << true;
    QTest::newRow("3.9") << "3.9" << false;
    QTest::newRow("4.5") << "4.5" << false;
    QTest::newRow("4.6") << "4.6" << false;
    QTest::newRow("9.9, newer than the program") << "9.9" << false;
}

void TestUpgradeLadder::climbsToTheTop()
{
    QFETCH(QString, start);
    QFETCH(bool, teacher);
    TestDataFolder folder;
    Connection prepared;
    prepared.open(Prepared_Database_Path(), Db_Password);
    const Shape top = shapeOf(prepared);

    const bool old = start.toDouble() < 4.6;
    const QString path = folder.file(QStringLiteral("old.mdb"));
    if (old) {
        makeFirstVersion(path);
    } else {
        QFile::copy(Prepared_Database_Path(), path);
    }
    Connection c;
    c.open(path, Db_Password);
    if (old && start != QLatin1String("1"))
        Climb_Ladder(c, Read_Db_Version(c), start);
    if (!old)
        c.execute(QStringLiteral("UPDATE db_info SET db_version = ?"), {start});
    if (start != QLatin1String("1"))
        QCOMPARE(Read_Db_Version(c), start);
    if (teacher) {
        c.execute(QStringLiteral("ALTER TABLE competitors ADD COLUMN teacher TEXT"));
        c.execute(QStringLiteral("INSERT INTO competitors(competition_id, competitor_id, forename, teacher) VALUES (1, 7, 'Ailsa', 'Mrs Grant')"));
    }
    const Shape before = shapeOf(c);

    Upgrade_Database(c);

    const Shape after = shapeOf(c);
    if (!old) {
        QCOMPARE(after, before);  // nothing ran
        QCOMPARE(c.scalar(QStringLiteral("SELECT db_version FROM db_info")).toString(), start);
        return;
    }
    QCOMPARE(c.scalar(QStringLiteral("SELECT db_version FROM db_info")).toString(), Top_Db_Version);
    QVERIFY(!c.scalar(QStringLiteral("SELECT last_update FROM db_info")).isNull());
    // Climbed files differ from a new one only where new files are richer.
    Shape expected = top;
    expected[QStringLiteral("dance_no_prizes")].remove(QStringLiteral("auto"));
    expected[QStringLiteral("db_info")][QStringLiteral("made_by")] = after[QStringLiteral("db_info")][QStringLiteral("made_by")];
    for (const QString &t : expected.keys())
        QCOMPARE(after.value(t), expected.value(t));
    QCOMPARE(after.keys(), expected.keys());

    // Settings as the rungs leave them: the locale and addresses unset.
    QCOMPARE(c.query(QStringLiteral("SELECT ifnull(judges_points,'-') || check_mode || auto_save || judges_order || ifnull(locale,'-') "
                                    "|| ifnull(show_address,'-') || check_dir FROM system_settings")).value(0).toString(),
             QStringLiteral("0000--") + Data_Dir + QStringLiteral("compare"));
    // Marks survive the rebuilds; the old order column and a teacher's name do not.
    QCOMPARE(c.scalar(QStringLiteral("SELECT points_awarded2 FROM judges_results WHERE competitor_id = 101")).toInt(), 85);
    QVERIFY(c.scalar(QStringLiteral("SELECT orderby FROM judges_results")).isNull());
    if (teacher)
        QVERIFY(c.scalar(QStringLiteral("SELECT teacher FROM competitors WHERE competitor_id = 7")).isNull());
    c.execute(QStringLiteral("INSERT INTO category_dances VALUES (1, 'H', 1, 1)"));
    QVERIFY_THROWS_EXCEPTION(DbError, c.execute(QStringLiteral("INSERT INTO category_dances VALUES (1, 'H', 1, 2)")));
    // Number columns refuse text after the climb, as in a new file.
    QVERIFY_THROWS_EXCEPTION(DbError, c.execute(QStringLiteral("UPDATE judges_results SET points_awarded1 = 'D'")));
}

void TestUpgradeLadder::failedRungKeepsTheLastFinished()
{
    TestDataFolder folder;
    const QString path = folder.file(QStringLiteral("old.mdb"));
    makeFirstVersion(path);
    Connection c;
    c.open(path, Db_Password);
    Climb_Ladder(c, Read_Db_Version(c), QStringLiteral("4.3"));
    // The third statement of the next rung meets a column that is already there.
    c.execute(QStringLiteral("ALTER TABLE competitions ADD COLUMN registration_key TEXT"));
    try {
        Upgrade_Database(c);
        QFAIL("the rung should have failed");
    } catch (const AppError &e) {
        QVERIFY2(e.message().startsWith(QStringLiteral("Upgrading the database file from version 4.3 to 4.4: ")), qPrintable(e.message()));
    }
    QCOMPARE(Read_Db_Version(c), QStringLiteral("4.3"));
    QVERIFY(!shapeOf(c)[QStringLiteral("competitions")].contains(QStringLiteral("registration_id")));
}

// The first start of an installed program: an operator's file, backup, copy
// in another case or unfinished compaction keeps the empty file out.
void TestUpgradeLadder::preparedFileLaidOnlyIntoAFolderThatNeverHeldOne()
{
    for (const char *name : {"", "tallier.mdb", "Tallier.bak", "TALLIER.MDB", "TallierTemp.mdb"}) {
        TestDataFolder folder(false);
        QFile f(folder.file(QString::fromLatin1(name)));
        if (*name)
            QVERIFY(f.open(QIODevice::WriteOnly) && f.write("data") == 4 && (f.close(), true));
        QCOMPARE(Lay_Prepared_Database(Prepared_Database_Path()), !*name);
        Connection c;
        if (!*name)
            c.open(folder.file(DB_FILE), Db_Password), c.execute(QStringLiteral("INSERT INTO competitions(competition_name) VALUES ('Cowal')"));
        else
            QVERIFY(f.open(QIODevice::ReadOnly) && f.readAll() == "data");
    }
}

QTEST_GUILESS_MAIN(TestUpgradeLadder)
#include "test_upgrade_ladder.moc"
