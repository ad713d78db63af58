#include "core/db.h"
#include "core/globals.h"
#include "core/prepared_file.h"
#include "support/test_env.h"

#include <QFile>
#include <QtTest>

// The first start of an installed program lays the prepared database only into
// a folder that has never held one.
class TestFirstStart : public QObject
{
    Q_OBJECT
private slots:
    void laidOnlyIntoAnEmptyFolder_data()
    {
        QTest::addColumn<QString>("present");
        QTest::addColumn<bool>("laid");
        for (const char *name : {"", "tallier.mdb", "Tallier.bak", "TALLIER.MDB", "TallierTemp.mdb"})
            QTest::newRow(*name ? name : "empty folder") << QString(name) << !*name;
    }
    void laidOnlyIntoAnEmptyFolder()
    {
        QFETCH(QString, present);
        QFETCH(bool, laid);
        TestDataFolder folder(false);
        if (!present.isEmpty()) {
            QFile f(folder.file(present));
            QVERIFY(f.open(QIODevice::WriteOnly));
            f.write("the operator's data");
        }
        QCOMPARE(Lay_Prepared_Database(Prepared_Database_Path()), laid);
        Connection c;
        if (laid)  // the laid copy opens and takes a competition
            c.open(folder.file(DB_FILE), Db_Password), c.execute(QStringLiteral("INSERT INTO competitions(competition_name) VALUES ('Cowal')"));
        QFile f(folder.file(present));
        QVERIFY(laid || (f.open(QIODevice::ReadOnly) && f.readAll() == "the operator's data"));
    }
};

QTEST_GUILESS_MAIN(TestFirstStart)
#include "test_first_start.moc"
